#include "guibase/suffixeddouble.h"

#include "guibase/unitprefix.h"

#include <QLatin1String>

#include <cmath>

namespace {

QString rounded(double number, int prefix)
{
    return QString::number(number, 'f', UnitPrefix::PowersPerStep * (prefix + 1));
}

void trimZeros(QString* text)
{
    int length = text->size();
    while (length > 0 && text->at(length - 1) == QLatin1Char('0'))
        --length;
    if (length > 0 && text->at(length - 1) == QLatin1Char('.'))
        --length;
    text->truncate(length);
}

} // namespace

SuffixedDouble::SuffixedDouble(QString unit, int base, bool keepZeros)
    : m_unit(std::move(unit))
    , m_base(base < 2 ? 1000 : base)
    , m_keepZeros(keepZeros)
{
}

bool SuffixedDouble::isAutomatic() const
{
    return m_suffix < ekNone || m_suffix > ekGiga;
}

int SuffixedDouble::prefixFor(double number) const
{
    if (!isAutomatic())
        return m_suffix - ekNone;
    int prefix = 0;
    for (double rest = std::fabs(number); rest >= m_base && prefix < UnitPrefix::Count - 1; rest /= m_base)
        ++prefix;
    return prefix;
}

QString SuffixedDouble::GetString(double number) const
{
    const bool finite = std::isfinite(number);
    int prefix = finite ? prefixFor(number) : 0;
    QString text = rounded(number / std::pow(m_base, prefix), prefix);
    // Rounding may reach the next prefix: 999999.9999999 is 1 M.
    if (finite && isAutomatic() && prefix < UnitPrefix::Count - 1 && std::fabs(text.toDouble()) >= m_base) {
        ++prefix;
        text = rounded(text.toDouble() / m_base, prefix);
    }
    if (finite && !m_keepZeros)
        trimZeros(&text);
    if (text == QLatin1String("-0"))
        text.remove(0, 1);
    const QString unit = UnitPrefix::Text(prefix) + m_unit;
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}
