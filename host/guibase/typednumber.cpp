#include "guibase/typednumber.h"

#include <vkbase/velk.h>

#include <QRegularExpression>

#include <cmath>

TypedNumber::TypedNumber(const QString& text)
{
    static const QRegularExpression grammar(
        QStringLiteral("^\\s*([+-]?[0-9.,'\\x{2019}\\s]+)(?:[eE]([+-]?[0-9]{1,3}))?(.*)$"),
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = grammar.match(text);
    if (!match.hasMatch())
        return;
    m_digits = match.captured(1).trimmed();
    m_exponent = match.captured(2).toInt();
    bool readable = false;
    Value(0, &readable);
    m_isNumber = readable;
    if (readable)
        m_unit = match.captured(3).trimmed();
}

bool TypedNumber::HasPoint() const
{
    return m_digits.contains(QLatin1Char('.')) || m_digits.contains(QLatin1Char(','));
}

double TypedNumber::Value(int power, bool* ok) const
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
