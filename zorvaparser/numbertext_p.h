#ifndef ZORVANUMBERTEXT_P_H
#define ZORVANUMBERTEXT_P_H

#include <QString>

#include <algorithm>

namespace Orvane {

/** @p number with so many @p decimals, without exponent, and without a sign when all of it is zeros. */
inline QString fixedText(double number, int decimals)
{
    const QString text = QString::number(number, 'f', decimals);
    const auto isNought = [](QChar character) {
        return character == QLatin1Char('0') || character == QLatin1Char('.') ||
               character == QLatin1Char('-');
    };
    const bool isMinusZero =
        text.startsWith(QLatin1Char('-')) && std::all_of(text.cbegin(), text.cend(), isNought);
    return isMinusZero ? text.mid(1) : text;
}

} // namespace Orvane

#endif
