#include <valueframework/format.h>

#include <QLocale>

QString values::numberText(double number)
{
    if (number == 0.0)
        return QStringLiteral("0"); // never "-0"
    const double size = std::fabs(number);
    const bool plain = size >= 1e-6 && size <= 1e17;
    return QString::number(number, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString values::numberText(qint64 number)
{
    return QString::number(number);
}

bool values::readNumber(const QString& text, double* number)
{
    bool ok = false;
    const double read = text.toDouble(&ok);
    // What overflows reads as infinity, and that is the largest number here.
    return (ok || std::isinf(read)) && convertNumber(read, number);
}

bool values::readNumber(const QString& text, qint64* number)
{
    bool ok = false;
    const qint64 whole = text.toLongLong(&ok);
    if (ok) {
        *number = whole;
        return true;
    }
    double floating = 0.0;
    return readNumber(text, &floating) && convertNumber(floating, number);
}
