#ifndef ZORVAVALUEWALK_P_H
#define ZORVAVALUEWALK_P_H

#include <valueframework/valuebase.h>

#include <QList>

#include <vector>

namespace Orvane {

/**
 * Hands the values of a list to @p visit, from the last to the first, null ones too.
 * A value that was deleted in answer to an earlier one is left out.
 */
template <typename Visit>
void fromLastToFirst(const QList<values::ValueBase*>& list, const Visit& visit)
{
    std::vector<ObservableGuard> there(std::size_t(list.size()));
    for (int i = 0; i < list.size(); ++i)
        there[std::size_t(i)].Reset(list.at(i));
    for (int i = list.size() - 1; i >= 0; --i) {
        if (there[std::size_t(i)].Get() || !list.at(i))
            visit(list.at(i));
    }
}

} // namespace Orvane

#endif
