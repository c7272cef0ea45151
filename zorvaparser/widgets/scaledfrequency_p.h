#ifndef ZORVASCALEDFREQUENCY_P_H
#define ZORVASCALEDFREQUENCY_P_H

#include <QString>

namespace Orvane {

/** A frequency in the unit in which scan ranges and resolutions are shown. */
struct ScaledFrequency
{
    double number;
    int decimals;
    QString suffix;
};

/** MHz above 1 MHz, kHz above 1 kHz, else Hz: exactly 1000 Hz stay hertz. */
inline ScaledFrequency scaledFrequency(double hertz)
{
    if (hertz > 1e6)
        return {hertz / 1e6, 9, QStringLiteral(" MHz")};
    if (hertz > 1e3)
        return {hertz / 1e3, 6, QStringLiteral(" kHz")};
    return {hertz, 3, QStringLiteral(" Hz")};
}

} // namespace Orvane

#endif
