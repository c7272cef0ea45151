#ifndef ZORVAVALUELIST_P_H
#define ZORVAVALUELIST_P_H

#include <valueframework/valuebase.h>
#include <vkbase/iobserver.h>

#include <QHash>
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

/** Where in a list a value stands: a device may write all of a long one. */
class ValuePlaces
{
public:
    /** To be called when the list gets other values. */
    void clear() { places.clear(); }
    /** Position of the value that is @p observable; -1 if there is none. The list may have lost values. */
    template <typename V>
    int of(const QList<V*>& list, const Observable* observable)
    {
        if (places.count() < list.count())
            note(list);
        const auto noted = places.constFind(observable);
        if (noted == places.cend())
            return -1;
        // Those that went stood before it, behind it, or here and there.
        const int least = qMax(0, *noted - (places.count() - list.count()));
        if (least < list.count() && list.at(least) == observable)
            return least;
        for (int i = qMin(*noted, list.count() - 1); i > least; --i) {
            if (list.at(i) == observable)
                return i;
        }
        return -1;
    }

private:
    template <typename V>
    void note(const QList<V*>& list)
    {
        places.clear();
        places.reserve(list.count());
        for (int i = 0; i < list.count(); ++i)
            places.insert(list.at(i), i);
    }

    QHash<const Observable*, int> places; // as they were when somebody first asked
};

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
