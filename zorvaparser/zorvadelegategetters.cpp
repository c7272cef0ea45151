#include "zorvadelegate.h"

#include "numbertext_p.h"

#include <cmath>
#include <limits>

namespace Orvane {

namespace {

bool isFloating(const QVariant& value)
{
    return value.userType() == QMetaType::Double || value.userType() == QMetaType::Float;
}

/** Rounds as QVariant does, but only where @p Int can hold the result. */
template <typename Int>
Int roundedOr(Int fallback, double number)
{
    constexpr double lowest = static_cast<double>(std::numeric_limits<Int>::min());
    const double beyond = std::ldexp(1.0, std::numeric_limits<Int>::digits);
    // Adding a half first would round a large number once more.
    const double below = std::floor(number);
    const double rounded = number - below < 0.5 ? below : below + 1.0;
    return rounded >= lowest && rounded < beyond ? static_cast<Int>(rounded) : fallback;
}

} // namespace

bool ZorvaDelegate::GetBool(const QString& name, bool fallback) const
{
    return GetBool(name.toLatin1().constData(), fallback);
}

bool ZorvaDelegate::GetBool(const char* name, bool fallback) const
{
    const QVariant value = property(name);
    return value.isNull() ? fallback : value.toBool();
}

int ZorvaDelegate::GetInt(const QString& name, int fallback) const
{
    return GetInt(name.toLatin1().constData(), fallback);
}

int ZorvaDelegate::GetInt(const char* name, int fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<int>(fallback, value.toDouble());
    bool ok = false;
    const int number = value.toInt(&ok);
    return ok ? number : fallback;
}

qint64 ZorvaDelegate::GetInt64(const QString& name, qint64 fallback) const
{
    return GetInt64(name.toLatin1().constData(), fallback);
}

qint64 ZorvaDelegate::GetInt64(const char* name, qint64 fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<qint64>(fallback, value.toDouble());
    bool ok = false;
    const qint64 number = value.toLongLong(&ok);
    return ok ? number : fallback;
}

quint64 ZorvaDelegate::GetUInt64(const QString& name, quint64 fallback) const
{
    return GetUInt64(name.toLatin1().constData(), fallback);
}

quint64 ZorvaDelegate::GetUInt64(const char* name, quint64 fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<quint64>(fallback, value.toDouble());
    bool ok = false;
    const quint64 number = value.toULongLong(&ok);
    return ok ? number : fallback;
}

double ZorvaDelegate::GetDouble(const QString& name, double fallback) const
{
    return GetDouble(name.toLatin1().constData(), fallback);
}

double ZorvaDelegate::GetDouble(const char* name, double fallback) const
{
    bool ok = false;
    const double number = property(name).toDouble(&ok);
    return ok ? number : fallback;
}

QString ZorvaDelegate::GetString(const QString& name, QString fallback) const
{
    return GetString(name.toLatin1().constData(), fallback);
}

QString ZorvaDelegate::GetString(const char* name, const QString& fallback) const
{
    const QString text = PropertyText(name);
    return text.isEmpty() ? fallback : text;
}

QString ZorvaDelegate::GetTranslated(const QString& name)
{
    return GetTranslated(name.toLatin1().constData());
}

QString ZorvaDelegate::GetTranslated(const char* name)
{
    const QString text = PropertyText(name);
    return text.isEmpty() ? QString() : Translate(text);
}

QString ZorvaDelegate::VariantText(const QVariant& value)
{
    if (isFloating(value)) {
        const double number = value.toDouble();
        if (std::isfinite(number) && number == std::trunc(number))
            return fixedText(number, 0);
    }
    return value.toString();
}

QString ZorvaDelegate::PropertyText(const char* name) const
{
    return VariantText(property(name));
}

} // namespace Orvane
