#include <vkbase/velk.h>

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isGroupSign(QChar c)
{
    return c.isSpace() || c == QLatin1Char('\'') || c == QChar(0x2019);
}

/// Position of the decimal point among `digits`, or -1: see the header for the rule.
int pointPosition(const QString& digits)
{
    const int lastDot = digits.lastIndexOf(QLatin1Char('.'));
    const int lastComma = digits.lastIndexOf(QLatin1Char(','));
    if (lastDot >= 0 && lastComma >= 0)
        return qMax(lastDot, lastComma);
    const int last = qMax(lastDot, lastComma);
    const bool single = last < 0 || digits.indexOf(digits.at(last)) == last;
    return single ? last : -1;
}

/// The digits without grouping and with "." as point; null if something stands
/// where it groups nothing.
QString plainDigits(const QString& digits)
{
    const int point = pointPosition(digits);
    QString plain(QLatin1String("")); // empty, not null
    for (int i = 0; i < digits.size(); ++i) {
        const QChar c = digits.at(i);
        if (isDigit(c))
            plain += c;
        else if (i == point)
            plain += QLatin1Char('.');
        else if (i == 0 || i + 1 == digits.size() || !isDigit(digits.at(i - 1)) ||
                 !isDigit(digits.at(i + 1)) ||
                 (c != QLatin1Char('.') && c != QLatin1Char(',') && !isGroupSign(c)))
            return QString();
    }
    return plain;
}

} // namespace

double Velk::toDoubleEx(const QString& text, bool* ok)
{
    const QString trimmed = text.trimmed();
    const bool isSigned = trimmed.startsWith(QLatin1Char('-')) || trimmed.startsWith(QLatin1Char('+'));
    const int exponent = trimmed.indexOf(QLatin1Char('e'), 0, Qt::CaseInsensitive);
    const int begin = isSigned ? 1 : 0;
    const int end = exponent < 0 ? trimmed.size() : exponent;
    const QString digits = plainDigits(trimmed.mid(begin, qMax(0, end - begin)));

    bool readable = false;
    const double number = (trimmed.left(begin) + digits + trimmed.mid(end)).toDouble(&readable);
    readable = readable && !digits.isEmpty();
    if (ok)
        *ok = readable;
    return readable ? number : 0.0;
}
