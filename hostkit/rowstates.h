#ifndef ZORVA_HOSTKIT_ROWSTATES_H
#define ZORVA_HOSTKIT_ROWSTATES_H

#include <hostkit/hostkit_export.h>
#include <zorvaparser/zorvaformular.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

class QLabel;

namespace hostkit {

class RowMark;

/** What is known of a row's value at the device. */
enum class RowState {
    Unread,    ///< nothing: not read yet, or it cannot be read
    Requested, ///< asked for, not confirmed
    Confirmed, ///< read, and equal to what the row shows
    Differing, ///< the device took, or holds, another value than was asked for
    Refused,   ///< the device does not take what was asked for
    Stale      ///< the link is down: what the row shows may be old
};

/**
 * Shows the state of each row of a form where the row is: a mark at the caption
 * with a shape and a colour of its own, and the state in words in its tool tip and
 * in the accessible description of the control. Lives on the GUI's thread. The
 * form need not outlive it.
 */
class HOSTKIT_EXPORT RowStates : public QObject
{
    Q_OBJECT

public:
    /** @p form needs its widgets by now: it makes room for the marks beside the captions. */
    explicit RowStates(Orvane::ZorvaFormular& form, QObject* parent = nullptr);
    ~RowStates() override;

    /** @p why, in words, goes with the state. A row with several parameters shows what was set last. */
    void set(const QString& parameter, RowState state, const QString& why = QString());
    /** All rows show as stale until this is taken back; states set meanwhile are kept for then. */
    void setStale(bool stale, const QString& why = QString());

    /** As it is shown. */
    RowState state(const QString& parameter) const;
    /** As it was set: what shows when nothing is stale. */
    RowState keptState(const QString& parameter) const;
    /** What is told of the state; empty if nothing but its name. */
    QString why(const QString& parameter) const;

    /** The state in the operator's word. */
    static QString word(RowState state);

Q_SIGNALS:
    /** The state of a row, as it is shown, or what is told of it, is another now. */
    void changed(const QString& parameter, hostkit::RowState state, const QString& why);

private:
    struct Row
    {
        RowState state = RowState::Unread;
        QString why;
        QPointer<RowMark> mark;    // owned by caption or control
        QPointer<QWidget> control; // not owned
        QString toolTip;           // the control's own
    };

    void markRows();
    void addMark(const QString& path, QLabel* caption, QWidget* control);
    void show(const QString& path, Row& row);
    QString pathOf(const QString& parameter) const;

    QPointer<Orvane::ZorvaFormular> m_form;
    QHash<QString, Row> m_rows; // by the row's path
    bool m_stale = false;
    QString m_staleWhy;
};

} // namespace hostkit

Q_DECLARE_METATYPE(hostkit::RowState)

#endif
