#include "basicvaluewidgets/frequencytext.h"

#include <guibase/typednumber.h>
#include <guibase/unitprefix.h>

#include <cmath>
#include <cstdint>

namespace FrequencyText {

namespace {

constexpr double MillihertzPerHertz = 1000.0;
// Up to here a double resolves single millihertz in 64 bits.
constexpr double ExactLimit = 9.0e15 / MillihertzPerHertz;

// No device tunes that far.
constexpr double FarthestLimit = 1e15;

// The power of ten of a unit; -1 if the letters are none.
int powerOf(const QString& letters)
{
    const QString lower = letters.toLower();
    if (lower.isEmpty() || lower == QLatin1String("hz"))
        return 0;
    const QString prefix = lower.endsWith(QLatin1String("hz")) ? lower.chopped(2) : lower;
    const int step = prefix.size() == 1 ? UnitPrefix::StepOf(prefix.at(0), true) : -1;
    return step < 0 ? -1 : step * UnitPrefix::PowersPerStep;
}

int stepOf(Unit unit)
{
    return unit == Unit::Automatic ? 0 : static_cast<int>(unit) - static_cast<int>(Unit::Hertz);
}

double toMillihertzGrid(double hertz)
{
    return std::fabs(hertz) < ExactLimit ? std::round(hertz * MillihertzPerHertz) / MillihertzPerHertz
                                         : hertz;
}

Verdict verdictOn(double hertz, double lowest, double highest)
{
    if (hertz < lowest)
        return Verdict::TooLow;
    return hertz > highest ? Verdict::TooHigh : Verdict::Good;
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
    return UnitPrefix::Factor(stepOf(unit));
}

QString Name(Unit unit)
{
    return unit == Unit::Automatic ? QString() : UnitPrefix::Text(stepOf(unit)) + QLatin1String("Hz");
}

Unit AutomaticUnit(double hertz)
{
    const double size = std::fabs(hertz);
    for (const Unit unit : {Unit::Gigahertz, Unit::Megahertz, Unit::Kilohertz}) {
        if (size >= Factor(unit))
            return unit;
    }
    return Unit::Hertz;
}

bool Parse(const QString& text, double* hertz)
{
    const TypedNumber typed(text);
    const int power = typed.IsNumber() ? powerOf(typed.Unit()) : -1;
    bool ok = false;
    const double result = typed.Value(qMax(power, 0), &ok);
    if (power < 0 || !ok)
        return false;
    *hertz = toMillihertzGrid(result);
    return true;
}

Verdict Read(const QString& text, Unit shown, double lowest, double highest, double* hertz)
{
    double asHertz = 0.0;
    if (!Parse(text, &asHertz))
        return Verdict::NoFrequency;
    const TypedNumber typed(text);
    double wanted = asHertz;
    if (typed.Unit().isEmpty()) {
        const double inUnit = toMillihertzGrid(typed.Value(stepOf(shown) * UnitPrefix::PowersPerStep));
        const bool limited = lowest > -FarthestLimit && highest < FarthestLimit;
        const bool asHertzFits = verdictOn(asHertz, lowest, highest) == Verdict::Good;
        const bool inUnitFits = verdictOn(inUnit, lowest, highest) == Verdict::Good;
        const bool preferUnit = limited ? inUnitFits : typed.HasPoint();
        wanted = preferUnit || !asHertzFits ? inUnit : asHertz;
    }
    const Verdict verdict = verdictOn(wanted, lowest, highest);
    if (verdict == Verdict::Good)
        *hertz = wanted;
    return verdict;
}

QString Format(double hertz, Unit unit)
{
    if (!std::isfinite(hertz))
        return QString();
    const double onGrid = toMillihertzGrid(hertz);
    const Unit shown = unit == Unit::Automatic ? AutomaticUnit(onGrid) : unit;
    const double factor = Factor(shown);
    const QString number = std::fabs(onGrid) < ExactLimit ? exactNumber(onGrid, factor)
                                                          : QString::number(onGrid / factor, 'f', 0);
    return number + QLatin1Char(' ') + Name(shown);
}

} // namespace FrequencyText
