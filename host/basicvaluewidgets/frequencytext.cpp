#include "basicvaluewidgets/frequencytext.h"

#include <vkbase/velk.h>

#include <QRegularExpression>

#include <cmath>
#include <cstdint>

namespace FrequencyText {

namespace {

constexpr double MillihertzPerHertz = 1000.0;
// Up to here a double resolves single millihertz in 64 bits.
constexpr double ExactLimit = 9.0e15 / MillihertzPerHertz;

// The power of ten of a unit; -1 if the letters are none.
int powerOf(const QString& letters)
{
    const QString lower = letters.toLower();
    if (lower.isEmpty() || lower == QLatin1String("hz"))
        return 0;
    const QString prefix = lower.endsWith(QLatin1String("hz")) ? lower.chopped(2) : lower;
    if (prefix == QLatin1String("k"))
        return 3;
    if (prefix == QLatin1String("m"))
        return 6;
    return prefix == QLatin1String("g") ? 9 : -1;
}

double toMillihertzGrid(double hertz)
{
    return std::fabs(hertz) < ExactLimit ? std::round(hertz * MillihertzPerHertz) / MillihertzPerHertz
                                         : hertz;
}

Unit automaticUnit(double hertz)
{
    const double size = std::fabs(hertz);
    for (const Unit unit : {Unit::Gigahertz, Unit::Megahertz, Unit::Kilohertz}) {
        if (size >= Factor(unit))
            return unit;
    }
    return Unit::Hertz;
}

// The number in integer millihertz: no binary fraction can lose a digit.
QString exactNumber(double hertz, double factor)
{
    const std::int64_t total = std::llround(std::fabs(hertz) * MillihertzPerHertz);
    const std::int64_t scale = std::llround(factor * MillihertzPerHertz);
    QString text = QString::number(static_cast<qlonglong>(total / scale));
    if (hertz < 0 && total > 0)
        text.prepend(QLatin1Char('-'));
    if (total % scale == 0)
        return text;
    const int decimals = QString::number(static_cast<qlonglong>(scale)).size() - 1;
    QString fraction =
        QString::number(static_cast<qlonglong>(total % scale)).rightJustified(decimals, QLatin1Char('0'));
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    return text + QLatin1Char('.') + fraction;
}

} // namespace

double Factor(Unit unit)
{
    switch (unit) {
    case Unit::Kilohertz:
        return 1e3;
    case Unit::Megahertz:
        return 1e6;
    case Unit::Gigahertz:
        return 1e9;
    case Unit::Automatic:
    case Unit::Hertz:
        break;
    }
    return 1.0;
}

QString Name(Unit unit)
{
    switch (unit) {
    case Unit::Hertz:
        return QStringLiteral("Hz");
    case Unit::Kilohertz:
        return QStringLiteral("kHz");
    case Unit::Megahertz:
        return QStringLiteral("MHz");
    case Unit::Gigahertz:
        return QStringLiteral("GHz");
    case Unit::Automatic:
        break;
    }
    return QString();
}

bool Parse(const QString& text, double* hertz)
{
    static const QRegularExpression grammar(
        QStringLiteral("^\\s*([+-]?[0-9.,'\\x{2019}\\s]+)(?:[eE]([+-]?[0-9]{1,3}))?\\s*([A-Za-z]*)\\s*$"),
        QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = grammar.match(text);
    const int power = match.hasMatch() ? powerOf(match.captured(3)) : -1;
    if (power < 0)
        return false;
    // Moving the exponent instead of multiplying rounds only once.
    const QString number =
        QStringLiteral("%1e%2").arg(match.captured(1).trimmed()).arg(match.captured(2).toInt() + power);
    bool ok = false;
    const double result = Velk::toDoubleEx(number, &ok);
    if (!ok || !std::isfinite(result))
        return false;
    *hertz = toMillihertzGrid(result);
    return true;
}

QString Format(double hertz, Unit unit)
{
    if (!std::isfinite(hertz))
        return QString();
    const double onGrid = toMillihertzGrid(hertz);
    const Unit shown = unit == Unit::Automatic ? automaticUnit(onGrid) : unit;
    const double factor = Factor(shown);
    const QString number = std::fabs(onGrid) < ExactLimit ? exactNumber(onGrid, factor)
                                                          : QString::number(onGrid / factor, 'f', 0);
    return number + QLatin1Char(' ') + Name(shown);
}

} // namespace FrequencyText
