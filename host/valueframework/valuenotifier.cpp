#include <valueframework/valuenotifier.h>

#include <valueframework/valuebase.h>

#include <QPointer>

namespace values {

ValueNotifier::ValueNotifier(ValueBase* value, QObject* parent)
    : QObject(parent)
    , m_observer(value, [this](ValueBase& changedValue, TChangeCode code) { tell(changedValue, code); })
{
}

// A receiver may delete the value and this object.
void ValueNotifier::tell(ValueBase& value, TChangeCode code)
{
    const bool isGoing = code == ChangeCode::State && value.GetState() == ValueState::GoingAway;
    const QPointer<ValueNotifier> alive(this);
    const ObservableGuard valueAlive(&value);
    Q_EMIT changed(code);
    if (!alive)
        return;
    if (isGoing)
        Q_EMIT gone();
    else if (code == ChangeCode::Content && valueAlive.Get())
        Q_EMIT contentChanged(value.GetStringValue());
}

} // namespace values
