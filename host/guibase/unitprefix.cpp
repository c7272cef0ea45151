#include "guibase/unitprefix.h"

#include <cmath>

namespace {

constexpr char Letters[UnitPrefix::Count] = {'\0', 'k', 'M', 'G'};

} // namespace

QString UnitPrefix::Text(int step)
{
    return step > 0 && step < Count ? QString(QLatin1Char(Letters[step])) : QString();
}

int UnitPrefix::StepOf(QChar letter, bool anyCase)
{
    for (int step = 1; step < Count; ++step) {
        const QLatin1Char own(Letters[step]);
        if (letter == own || ((anyCase || step == 1) && letter.toLower() == QChar(own).toLower()))
            return step;
    }
    return -1;
}

double UnitPrefix::Factor(int step)
{
    return std::pow(10.0, PowersPerStep * step);
}
