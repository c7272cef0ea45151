#ifndef ZORVA_AUTHOR_OVERLAYTRIAL_H
#define ZORVA_AUTHOR_OVERLAYTRIAL_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

/** One property, value or mark of a live row that an overlay changed. */
struct OverlayChange
{
    enum Kind { Property, CustomProperty, Value, Mark };

    Kind kind = Property;
    QString row;
    QString name;   // of a property
    QString before; // null if there was none
    QString after;
    int line = 0; // in the overlay; 0 for what follows from something else
};

/** One enumeration that an overlay fills anew. */
struct OverlayEnumeration
{
    QString name;
    bool isNew = false;
    QStringList before; // entries as "shown (value)"
    QStringList after;
    /** What scripts go on seeing: identifiers with their old values, where these are not the new ones. */
    QStringList stale;
    int line = 0;
};

/** A part of an overlay that the engine takes nothing of. */
struct OverlayLoss
{
    QString what;   // "row `x`", "property `y`", ...
    QString reason; // why, with the line of the culprit
    int line = 0;
};

/** What an overlay does to a live form, seen through the engine, and what of it is lost. */
class OverlayTrial
{
public:
    /**
     * Both are files as they are stored. The form's script is stopped after @p longest milliseconds; at
     * 0 nobody stops it.
     */
    OverlayTrial(const QByteArray& form, const QByteArray& overlay, int longest = 0);

    /** False if the description makes no form: then there is nothing else. */
    bool exists() const { return m_exists; }
    /** True if code of the form was stopped, at start or in what it does on a change: the rest is seen. */
    bool wasStopped() const { return m_wasStopped; }
    const QVector<OverlayChange>& changes() const { return m_changes; }
    const QVector<OverlayEnumeration>& enumerations() const { return m_enumerations; }
    const QVector<OverlayLoss>& losses() const { return m_losses; }
    /** Line of a script in the overlay, which is stored and not run; 0 if there is none. */
    int scriptLine() const { return m_scriptLine; }

private:
    bool m_exists = false;
    bool m_wasStopped = false;
    QVector<OverlayChange> m_changes;
    QVector<OverlayEnumeration> m_enumerations;
    QVector<OverlayLoss> m_losses;
    int m_scriptLine = 0;
};

/** For people; the names are those of the files. */
QString overlayText(const QString& overlay, const OverlayTrial& trial);
/** One object for programs. */
QByteArray overlayJson(const OverlayTrial& trial);

} // namespace Author
} // namespace Orvane

#endif
