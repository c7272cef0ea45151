#ifndef ZORVAVALUELIST_P_H
#define ZORVAVALUELIST_P_H

#include <valueframework/valuebase.h>
#include <vkbase/iobserver.h>

#include <QList>

namespace Orvane {

// What rows that own a list of values do alike. Values are owned by their row.

/** Stops @p observer observing the values, deletes them and empties the list. */
template <typename V>
void ReleaseValues(QList<V*>& list, IObserver* observer)
{
    QList<V*> released;
    released.swap(list);
    for (V* const value : qAsConst(released)) {
        value->DeleteObserver(observer);
        delete value;
    }
}

/** Position of the value that is @p observable; -1 if there is none. */
template <typename V>
int PositionOf(const QList<V*>& list, const Observable* observable)
{
    for (int i = 0; i < list.count(); ++i) {
        if (static_cast<const Observable*>(list.at(i)) == observable)
            return i;
    }
    return -1;
}

/** On code 2 from the value at @p index while it is going away: @p observer leaves it, and the list too. */
template <typename V>
void ForgetValueAt(QList<V*>& list, int index, TChangeCode code, IObserver* observer)
{
    if (code != ChangeCode::State)
        return;
    // Only the base of the value is still alive at this moment.
    values::ValueBase* const dying = list.at(index);
    if (dying->GetState() != ValueState::GoingAway)
        return;
    dying->DeleteObserver(observer);
    list.removeAt(index);
}

} // namespace Orvane

#endif
