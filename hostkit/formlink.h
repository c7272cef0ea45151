#ifndef ZORVA_HOSTKIT_FORMLINK_H
#define ZORVA_HOSTKIT_FORMLINK_H

#include <hostkit/devicelink.h>
#include <hostkit/hostkit_export.h>
#include <hostkit/parametertext.h>
#include <hostkit/review.h>
#include <hostkit/rowstates.h>
#include <zorvaparser/zorvaformular.h>

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

namespace hostkit {

/**
 * Ties a form to a device: what is applied is requested, what is read goes into
 * the rows, and each row's state shows. A value counts as confirmed only when it
 * was read. A row that the operator has changed and not applied, and one whose
 * request is on its way, keeps what it shows whatever is read meanwhile. What was
 * requested and not confirmed when the link went is not sent again before somebody
 * says so, see unconfirmed(). Lives on the GUI's thread.
 */
class HOSTKIT_EXPORT FormLink : public QObject
{
    Q_OBJECT

public:
    /** How the form is shared with the host. */
    using Form = QExplicitlySharedDataPointer<Orvane::ZorvaFormular>;

    /** @p form needs its values and widgets by now. Neither may be null. */
    FormLink(const Form& form, std::shared_ptr<Device> device, QObject* parent = nullptr);
    ~FormLink() override;

    /** To set up and to start; it is stopped when this goes. */
    DeviceLink& link() { return m_link; }
    /** What is requested, confirmed or refused, row by row; lives as long as this. */
    RowStates& states() { return m_states; }
    /** The form, which this keeps alive. */
    Orvane::ZorvaFormular& form() { return *m_form; }

    /** The device's settings as last read: parameter XML of all rows that take part in it. */
    QString settings() const;
    /** Where @p wanted differs from what the device holds; parameters without a row come as not sendable. */
    QList<Difference> differences(const QList<Parameter>& wanted);
    /** Puts the parameters into their rows and requests them. */
    void send(const QList<Difference>& chosen);
    /** The answer to unconfirmed(): @p chosen is requested again, the other rows take what the device holds.
     */
    void settleUnconfirmed(const QList<Difference>& chosen);

Q_SIGNALS:
    /** The link is back, and the device does not hold this that was requested before. */
    void unconfirmed(const QList<hostkit::Difference>& differences);
    /** Every row holds what the device holds, for the first time since the link is up. */
    void readAll();

private:
    struct Row
    {
        QString wanted;         // what was asked for last
        QString reading;        // what was read last; null if nothing was
        QString settledReading; // what was read when the state came to be; null before
        quint64 number = 0;     // of the last request; 0 for none
        bool open = false;      // asked for, not sent, and the operator has to say whether to
    };

    void sendModified();
    void ask(const QString& parameter, const QString& text);
    void leaveOpen(const QString& parameter);
    void takeReadings(const QList<Reading>& readings);
    bool mayShow(const Reading& reading, const Row& row);
    void takeUnreadable(const Reading& reading, const Row& row);
    void showInRows(const QList<Parameter>& parameters);
    void settle(const QString& parameter, const QString& text);
    void offerChoice(const Parameter& parameter);
    void takeRefusal(const QString& parameter, const QString& why, quint64 number);
    void takeState(LinkState state, const QString& reason);
    void takeBack(const QList<Request>& requests);
    void askAboutOpen();
    Difference difference(const QString& parameter, const QString& text);

    Form m_form;
    QHash<QString, Row> m_rows;             // by parameter
    QHash<QString, QStringList> m_original; // enumerations as described: display name, identifier, value ...
    QHash<QString, QStringList> m_offered;  // choices that a device brought, by enumeration
    RowStates m_states;
    DeviceLink m_link;
    bool m_wasDown = true;
};

} // namespace hostkit

#endif
