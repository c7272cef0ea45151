#ifndef ZORVANUMERICCAST_P_H
#define ZORVANUMERICCAST_P_H

#include <QtGlobal>

#include <limits>

namespace Orvane {

/**
 * @p value cut toward zero to @p Int. A number out of range and a NaN give the
 * type's minimum, on every platform: texts shown to the user depend on it.
 */
template <typename Int>
Int truncatedTo(double value)
{
    // Both bounds are powers of two and so exact in double; the upper one is exclusive.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Int>::min());
    if (!(value > lowest - 1.0 && value < -lowest))
        return std::numeric_limits<Int>::min();
    return static_cast<Int>(value);
}

} // namespace Orvane

#endif
