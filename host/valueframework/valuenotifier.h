#ifndef ZORVA_VALUEFRAMEWORK_VALUENOTIFIER_H
#define ZORVA_VALUEFRAMEWORK_VALUENOTIFIER_H

#include <valueframework/scopedobserver.h>
#include <valueframework/valueframework_export.h>

#include <QObject>

namespace values {

/// A value's changes as Qt signals, sent at once.
class VALUEFRAMEWORK_EXPORT ValueNotifier : public QObject
{
    Q_OBJECT

public:
    /// `value` may be null or go before this object does.
    explicit ValueNotifier(ValueBase* value, QObject* parent = nullptr);

    /// Null once the value has gone.
    ValueBase* GetValue() const { return m_observer.Get(); }
    /// To be named in writes that are not to come back as signals.
    IObserver* Originator() const { return m_observer.Originator(); }

Q_SIGNALS:
    /// Every change, with its code (`ChangeCode`).
    void changed(int code);
    /// The content, as text; after `changed`.
    void contentChanged(const QString& text);
    /// The value is being destroyed; after `changed`.
    void gone();

private:
    void tell(ValueBase& value, TChangeCode code);

    ScopedObserver m_observer;
};

} // namespace values

#endif
