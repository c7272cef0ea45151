#include "zorvadelegate.h"

#include "bounds_p.h"
#include "numbertext_p.h"
#include "numericcast_p.h"

#include <layout/markup.h>

#include <QWidget>

#include <cmath>
#include <limits>

namespace Orvane {

namespace {

/** A bound of a range tooltip. One without any limit has over 300 digits, and every row repeats it. */
QString boundText(double bound, int decimals)
{
    static double lastBound[2] = {0.0, 0.0};
    static int lastDecimals[2] = {-1, -1};
    static QString lastText[2];
    if (!(std::abs(bound) > 1e100))
        return fixedText(bound, decimals);
    const int slot = bound < 0.0 ? 0 : 1;
    if (lastDecimals[slot] != decimals || lastBound[slot] != bound) {
        lastText[slot] = QString::number(bound, 'f', decimals);
        lastBound[slot] = bound;
        lastDecimals[slot] = decimals;
    }
    return lastText[slot];
}

} // namespace

double ZorvaDelegate::displayTransformation(double value, double factor, double offset)
{
    return value * factor + offset;
}

double ZorvaDelegate::displayTransformation(double value) const
{
    return displayTransformation(value, GetDouble("displayScalingFactor", 1.0),
                                 GetDouble("displayAdditiveOffset", 0.0));
}

double ZorvaDelegate::reverseDisplayTransformation(double value, double factor, double offset)
{
    return (value - offset) / factor;
}

double ZorvaDelegate::reverseDisplayTransformation(double value) const
{
    return reverseDisplayTransformation(value, GetDouble("displayScalingFactor", 1.0),
                                        GetDouble("displayAdditiveOffset", 0.0));
}

QString ZorvaDelegate::formatString(double value, int decimals, QString suffix)
{
    QString text = fixedText(value, qMin(decimals, lastDecimal));
    bool trimming = decimals > 0;
    while (trimming && !text.isEmpty()) {
        const QChar last = text.at(text.size() - 1);
        if (last.isDigit() && last != QLatin1Char('0'))
            break;
        trimming = last.isDigit();
        text.chop(1);
    }
    return text + suffix;
}

void ZorvaDelegate::SetRangeTooltip(QWidget* control, const QString& lowest, const QString& highest)
{
    QString text = QStringLiteral("<html>") + Markup::fragment(GetTranslated("labelText"));
    if (!lowest.isEmpty() || !highest.isEmpty())
        text += QStringLiteral("<br>") + lowest + QStringLiteral("...") + highest;
    control->setToolTip(text);
}

void ZorvaDelegate::SetDoubleTooltip(QWidget* control)
{
    if (!control)
        return;
    const double scale = GetDouble("unitScale", 1.0);
    const double lowest = displayTransformation(GetDouble("minimum", noMinimum)) / scale;
    const double highest = displayTransformation(GetDouble("maximum", noMaximum)) / scale;
    const int decimals = qMin(property("decimals").toInt(), lastDecimal);
    SetRangeTooltip(control, lowest > noMinimum ? boundText(lowest, decimals) : QString(),
                    highest < noMaximum ? boundText(highest, decimals) : QString());
}

void ZorvaDelegate::SetIntTooltip(QWidget* control)
{
    if (!control)
        return;
    constexpr int none = std::numeric_limits<int>::min();
    constexpr int noEnd = std::numeric_limits<int>::max();
    const double scale = GetDouble("unitScale", 1.0);
    const int lowest = truncatedTo<int>(displayTransformation(GetInt("minimum", none)) / scale);
    const int highest = truncatedTo<int>(displayTransformation(GetInt("maximum", noEnd)) / scale);
    SetRangeTooltip(control, lowest > none ? QString::number(lowest, 10) : QString(),
                    highest < noEnd ? QString::number(highest, 10) : QString());
}

void ZorvaDelegate::SetInt64Tooltip(QWidget* control)
{
    if (!control)
        return;
    constexpr qint64 none = std::numeric_limits<qint64>::min();
    constexpr qint64 noEnd = std::numeric_limits<qint64>::max();
    const double scale = GetDouble("unitScale", 1.0);
    const double low = static_cast<double>(GetInt64("minimum", none));
    const double high = static_cast<double>(GetInt64("maximum", noEnd));
    const qint64 lowest = truncatedTo<qint64>(displayTransformation(low) / scale);
    // Without a maximum the number is just out of range, and shows as the lowest one.
    const qint64 highest = truncatedTo<qint64>(displayTransformation(high) / scale);
    SetRangeTooltip(control, lowest > none ? QString::number(lowest, 10) : QString(),
                    highest < noEnd ? QString::number(highest, 10) : QString());
}

} // namespace Orvane
