#ifndef ZORVAVALUEWALK_P_H
#define ZORVAVALUEWALK_P_H

#include <valueframework/valuebase.h>

#include <QList>

#include <list>

namespace Orvane {

/**
 * Hands the values of a list to @p visit, from the last to the first, null ones too.
 * A value that was deleted in answer to an earlier one is left out.
 */
template <typename Visit>
void fromLastToFirst(const QList<values::ValueBase*>& list, const Visit& visit)
{
    std::list<ObservableGuard> there;
    for (values::ValueBase* const value : list)
        there.emplace_back(value);
    auto guard = there.crbegin();
    for (auto value = list.crbegin(); value != list.crend(); ++value, ++guard) {
        if (guard->Get() || !*value)
            visit(*value);
    }
}

} // namespace Orvane

#endif
