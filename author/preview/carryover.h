#ifndef ZORVA_AUTHOR_CARRYOVER_H
#define ZORVA_AUTHOR_CARRYOVER_H

#include "previewform.h"

#include <QMap>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** Something that the operator entered and the new form does not have. */
struct KeptAside
{
    QString row; // in the operator's words
    QString text;
    QString why;
};

/**
 * Takes what the operator did from one state of a form to the next: what was entered, also
 * what is still being typed, the marks of what is not applied yet, the focus, closed groups,
 * text size and the place in the scroll area. What the new form does not take is kept for the next one.
 */
class Carryover
{
public:
    /** From @p form, which is up and about to go. */
    void take(PreviewForm& form);
    /** To @p form, which is built; gives what it did not take. */
    QVector<KeptAside> give(PreviewForm& form);
    /** To @p form once it is shown: focus, what is being typed, place. Adds to what give() said. */
    QVector<KeptAside> giveFocus(PreviewForm& form);
    /** Nothing is kept aside any more. */
    void forget();

private:
    struct Row
    {
        QString key;  // path in parameter XML, or the name of a row that is in none
        QString name; // in the operator's words
        QString control;
        QVector<Setting> settings;
        QString text;
        bool isUnsent = false; // in no parameter XML
        bool isMarked = false;
    };
    /** What the keyboard is about. */
    struct Typing
    {
        QString row;
        QString caption;
        int edit = -1; // among the text fields of the row; -1: another control of it
        QString text;
        int cursor = 0;
        bool isOpen = false; // text that is not final yet
    };

    void keep(const QVector<Row>& entered);
    static int rowOf(PreviewForm& form, const Row& row);
    static QString whyNot(PreviewForm& form, const Row& row, const QMap<QString, QString>& unsent);
    static void send(PreviewForm& form, const QVector<Row>& rows);
    static bool holds(PreviewForm& form, const ParameterSet& now, const Row& row);
    QVector<Row> settingsOf(PreviewForm& form) const;
    static QVector<Row> unsentOf(PreviewForm& form);
    void takeTyping(PreviewForm& form);
    void takeView(PreviewForm& form);

    QVector<Row> m_rows;
    Typing m_typing;
    QStringList m_collapsed;
    int m_scrolled = 0;
    int m_textSize = 0; // points
    bool m_isAutoApplying = false;
    bool m_hasView = false;
};

} // namespace Author
} // namespace Orvane

#endif
