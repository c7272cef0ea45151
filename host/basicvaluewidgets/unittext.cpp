#include "basicvaluewidgets/unittext_p.h"

#include <guibase/unitprefix.h>

namespace UnitText {

namespace {

struct Split
{
    double prefix;
    QString base;
};

bool isHertz(const QString& base)
{
    return base.compare(QLatin1String("Hz"), Qt::CaseInsensitive) == 0;
}

// 0 if the letter is no prefix.
double prefixFactor(QChar letter, bool anyCase)
{
    const int step = UnitPrefix::StepOf(letter, anyCase);
    return step < 0 ? 0.0 : UnitPrefix::Factor(step);
}

Split splitShown(const QString& unit)
{
    const double factor = unit.size() > 1 ? prefixFactor(unit.at(0), isHertz(unit.mid(1))) : 0.0;
    return factor > 0.0 ? Split{factor, unit.mid(1)} : Split{1.0, unit};
}

} // namespace

bool Ratio(const QString& typed, const QString& shown, double* ratio)
{
    const Split own = splitShown(shown);
    const auto fits = [&own](const QString& base) {
        return base.isEmpty() || base.compare(own.base, Qt::CaseInsensitive) == 0;
    };
    *ratio = 1.0;
    if (typed.isEmpty() || typed.compare(shown, Qt::CaseInsensitive) == 0)
        return true;
    if (fits(typed)) {
        *ratio = 1.0 / own.prefix;
        return true;
    }
    const double factor = prefixFactor(typed.at(0), isHertz(own.base));
    if (factor <= 0.0 || !fits(typed.mid(1)))
        return false;
    *ratio = factor / own.prefix;
    return true;
}

} // namespace UnitText
