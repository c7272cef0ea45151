#include "guibase/typednumber.h"

#include <vkbase/velk.h>

#include <cmath>

namespace {

bool isBlank(QChar letter)
{
    constexpr ushort vowelSeparator = 0x180e; // a blank until Unicode 6.3
    return letter.isSpace() || letter == QChar(vowelSeparator);
}

bool isSign(QChar letter)
{
    return letter == QLatin1Char('+') || letter == QLatin1Char('-');
}

bool isDigit(QChar letter)
{
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

// Digits with their grouping and point.
bool isOfNumber(QChar letter)
{
    constexpr ushort apostrophe = 0x2019;
    return isDigit(letter) || isBlank(letter) || letter == QLatin1Char('.') || letter == QLatin1Char(',') ||
           letter == QLatin1Char('\'') || letter == QChar(apostrophe);
}

template <typename Predicate>
int skip(const QString& text, int from, Predicate matches)
{
    while (from < text.size() && matches(text.at(from)))
        ++from;
    return from;
}

int skipSign(const QString& text, int from)
{
    return from < text.size() && isSign(text.at(from)) ? from + 1 : from;
}

// Behind an exponent of up to three digits; `from` if there is none.
int skipExponent(const QString& text, int from)
{
    if (from >= text.size() || text.at(from).toLower() != QLatin1Char('e'))
        return from;
    constexpr int mostDigits = 3;
    const int digits = skipSign(text, from + 1);
    const int end = qMin(skip(text, digits, isDigit), digits + mostDigits);
    return end > digits ? end : from;
}

} // namespace

// A pattern would have to be compiled before the first number of the program is shown.
TypedNumber::TypedNumber(const QString& text)
{
    if (!text.isValidUtf16())
        return;
    const int begin = skip(text, 0, isBlank);
    const int digits = skipSign(text, begin);
    const int exponent = skip(text, digits, isOfNumber);
    if (exponent == digits)
        return;
    const int unit = skipExponent(text, exponent);
    m_digits = text.mid(begin, exponent - begin).trimmed();
    if (unit > exponent)
        m_exponent = text.midRef(exponent + 1, unit - exponent - 1).toInt();
    m_number = movedBy(0, &m_isNumber);
    if (m_isNumber)
        m_unit = text.mid(unit).trimmed();
}

bool TypedNumber::HasPoint() const
{
    return m_digits.contains(QLatin1Char('.')) || m_digits.contains(QLatin1Char(','));
}

double TypedNumber::Value(int power, bool* ok) const
{
    if (power != 0)
        return movedBy(power, ok);
    if (ok)
        *ok = m_isNumber;
    return m_number;
}

double TypedNumber::movedBy(int power, bool* ok) const
{
    // Moving the exponent instead of multiplying rounds only once.
    bool readable = false;
    const double value =
        Velk::toDoubleEx(QStringLiteral("%1e%2").arg(m_digits).arg(m_exponent + power), &readable);
    readable = readable && std::isfinite(value);
    if (ok)
        *ok = readable;
    return readable ? value : 0.0;
}
