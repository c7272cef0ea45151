#ifndef ZORVA_AUTHOR_PARAMETERSET_H
#define ZORVA_AUTHOR_PARAMETERSET_H

#include "formrows.h"

#include <author/document/description.h>

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** One element on the way from the root to a leaf, with what tells it from its neighbours of the same name.
 */
struct SettingStep
{
    QString name;
    QVector<QPair<QString, QString>> marks; // index, row, column, key
    int ordinal = 0;                        // among the neighbours that are alike, where these count

    bool operator==(const SettingStep& other) const
    {
        return name == other.name && marks == other.marks && ordinal == other.ordinal;
    }
};

/** One text with its place below the root. */
struct SettingLeaf
{
    QVector<SettingStep> steps;
    QString text;
    QString unit; // null if the element has none
    Range range;  // the text, or else the start tag
};

/**
 * The least that settings differ in: one text, or one item of a list. A list of ranges is
 * one setting, since halves of two ranges make no third.
 */
struct Setting
{
    QString key;  // path, with the marks of an item: "Tuner/Step", "shifts/Shift[index=2]"
    int row = -1; // position in the sheet; -1 if the form has no such row
    QVector<SettingLeaf> leaves;
    Range range; // the start tag

    /** The text of the only leaf; the texts of all of them, with blanks between, if there are several. */
    QString text() const;
};

/** Why the engine stops reading parameter XML before its end; at -1 it does not. */
struct ReadingEnd
{
    int at = -1;
    QString message;
};

/** Parameter XML as a form reads it: setting by setting, each with its place in the text. */
class ParameterSet
{
public:
    ParameterSet(const FormRows& rows, const SourceText& source);

    const SourceText& source() const { return m_description.source(); }
    /** In order; of several with one key the last, for that is the one that stays. */
    const QVector<Setting>& settings() const { return m_settings; }
    /** Null if there is none of that key. */
    const Setting* find(const QString& key) const;
    /** Those that a later one of the same key replaces. */
    const QVector<Setting>& replaced() const { return m_replaced; }
    /** Values with an element inside, which ends all reading. */
    const QVector<Setting>& nested() const { return m_nested; }
    /** False if no element has the name of the form's root: then nothing is read. */
    bool hasRoot() const { return m_hasRoot; }
    /** The start tag of the outermost element of all; empty in a text without one. */
    Range firstTag() const { return m_firstTag; }
    const ReadingEnd& end() const { return m_end; }

private:
    struct Node;

    void read(const FormRows& rows);
    Node place(const FormRows& rows, const QVector<Node>& nodes, int element) const;
    void addLeaf(const FormRows& rows, const QVector<Node>& nodes, int element);
    void add(Setting setting);
    void findEnd();

    Description m_description;
    QVector<Setting> m_settings;
    QHash<QString, int> m_index;
    QVector<Setting> m_replaced;
    QVector<Setting> m_nested;
    bool m_hasRoot = false;
    Range m_firstTag;
    ReadingEnd m_end;
};

/**
 * Parameter XML with these settings, below the root element @p emptyRoot (see
 * ZorvaFormular::GetEmptyXmlElement()). The items of one row come in one element.
 */
QString parameterXml(const QString& emptyRoot, const QVector<Setting>& settings);

/** Whether two texts mean the same to a row of that kind: to a number "5" and "5.0" do. */
bool meansTheSame(const ControlClass& kind, const QString& left, const QString& right);
/** Likewise for settings of one row: texts of all leaves in their order. */
bool meansTheSame(const ControlClass& kind, const Setting& left, const Setting& right);
/** True for kinds whose text is a number. */
bool holdsNumbers(const ControlClass& kind);
/** True for those whose numbers have no fraction. */
bool holdsWholeNumbers(const ControlClass& kind);

} // namespace Author
} // namespace Orvane

#endif
