#ifndef ZORVA_VALUEFRAMEWORK_FORMAT_H
#define ZORVA_VALUEFRAMEWORK_FORMAT_H

#include <valueframework/interfaces.h>
#include <valueframework/valueframework_export.h>

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace values {

/// The shortest text that reads back to the same number: "." as point, no
/// grouping, no exponent from 1e-6 to 1e17.
VALUEFRAMEWORK_EXPORT QString numberText(double number);
VALUEFRAMEWORK_EXPORT QString numberText(qint64 number);

/// Reads a number, exponents too; infinities become the largest finite number.
/// False, and `number` untouched, for anything else ("nan" included).
VALUEFRAMEWORK_EXPORT bool readNumber(const QString& text, double* number);
/// The same for whole numbers: a fraction is cut off, what is out of range
/// becomes the nearest number in it.
VALUEFRAMEWORK_EXPORT bool readNumber(const QString& text, qint64* number);

/// Converts a number to the type `To`, out of range to its nearest end and
/// fractions cut off for whole types. False, and `to` untouched, for NaN.
template <typename To, typename From>
bool convertNumber(From from, To* to)
{
    static_assert(std::is_arithmetic<To>::value && std::is_arithmetic<From>::value, "numbers only");
    static_assert(std::is_signed<To>::value, "values hold signed numbers");
    using Limits = std::numeric_limits<To>;
    if constexpr (std::is_floating_point<From>::value || std::is_floating_point<To>::value) {
        const double number = static_cast<double>(from);
        if (std::isnan(number))
            return false;
        // The largest 64-bit number is no double: the next one above it is.
        if (number >= static_cast<double>(Limits::max()))
            *to = Limits::max();
        else if (number <= static_cast<double>(Limits::lowest()))
            *to = Limits::lowest();
        else
            *to = static_cast<To>(number);
    } else if constexpr (std::is_unsigned<From>::value) {
        *to = from > static_cast<std::make_unsigned_t<To>>(Limits::max()) ? Limits::max()
                                                                          : static_cast<To>(from);
    } else {
        *to = static_cast<To>(std::clamp<qint64>(from, Limits::min(), Limits::max()));
    }
    return true;
}

// Formats say how one type looks as text; `fromText` is never called with empty
// text and leaves `value` untouched when it returns false.

/// "true" and "false"; reads them in any case, and numbers.
template <typename T>
struct VALUEFRAMEWORK_EXPORT FormatBool
{
    /// What a Value needs to know of its type: its number, its text, and back; fromText() leaves the value if
    /// it cannot read.
    static constexpr ValueType Type = TypeBool;
    /// Likewise.
    static QString toText(T value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    /// Likewise.
    static bool fromText(const QString& text, T* value)
    {
        double number = 0.0;
        if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            number = 1.0;
        else if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) != 0 && !readNumber(text, &number))
            return false;
        *value = number != 0.0;
        return true;
    }
};

/// The text itself.
template <typename T>
struct VALUEFRAMEWORK_EXPORT FormatString
{
    /// What a Value needs to know of its type: its number, its text, and back; fromText() leaves the value if
    /// it cannot read.
    static constexpr ValueType Type = TypeString;
    static QString toText(const T& value) { return value; } ///< Likewise.
    /// Likewise.
    static bool fromText(const QString& text, T* value)
    {
        *value = text;
        return true;
    }
};

/// Whole numbers of 32 or 64 bits.
template <typename T>
struct VALUEFRAMEWORK_EXPORT FormatInt
{
    /// What a Value needs to know of its type: its number, its text, and back; fromText() leaves the value if
    /// it cannot read.
    static constexpr ValueType Type = sizeof(T) == sizeof(qint64) ? TypeInt64 : TypeInt;
    static QString toText(T value) { return numberText(static_cast<qint64>(value)); } ///< Likewise.
    /// Likewise.
    static bool fromText(const QString& text, T* value)
    {
        qint64 number = 0;
        return readNumber(text, &number) && convertNumber(number, value);
    }
};

/// Floating numbers.
template <typename T>
struct VALUEFRAMEWORK_EXPORT FormatFloat
{
    /// What a Value needs to know of its type: its number, its text, and back; fromText() leaves the value if
    /// it cannot read.
    static constexpr ValueType Type = TypeDouble;
    static QString toText(T value) { return numberText(static_cast<double>(value)); } ///< Likewise.
    /// Likewise.
    static bool fromText(const QString& text, T* value)
    {
        double number = 0.0;
        return readNumber(text, &number) && convertNumber(number, value);
    }
};

/// How a value goes to text and comes back: empty text is the type's zero, and
/// blanks round a text count only where the value is a text itself.
template <typename T, typename Format>
struct VALUEFRAMEWORK_EXPORT StreamFormat
{
    /// The text of a value, and the value of a text; read() is false and changes nothing if it cannot.
    static QString write(const T& value) { return Format::toText(value); }
    /// Likewise.
    static bool read(const QString& text, T* value)
    {
        const QString core = std::is_same<T, QString>::value ? text : text.trimmed();
        if (core.isEmpty()) {
            *value = T();
            return true;
        }
        return Format::fromText(core, value);
    }
};

} // namespace values

#endif
