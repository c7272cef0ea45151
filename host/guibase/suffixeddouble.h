#ifndef ZORVA_SUFFIXEDDOUBLE_H
#define ZORVA_SUFFIXEDDOUBLE_H

#include <guibase/guibase_export.h>

#include <QString>

/// Prints a number with a unit and the prefix none, k, M or G: "98.5 MHz".
/// The point is always ".", there is no grouping.
class GUIBASE_EXPORT SuffixedDouble
{
public:
    /// Which prefix a number is printed with; automatic is the largest that leaves 1 or more.
    enum ESuffix : int { ekAutomatic = 0, ekNone = 1, ekKilo = 2, ekMega = 3, ekGiga = 4 };

    /// base is the step between two prefixes (1000, or 1024 for bytes); below 2
    /// it counts as 1000. keepZeros keeps the zeros behind the point.
    SuffixedDouble(QString unit, int base, bool keepZeros);

    /// A number outside ESuffix means automatic: the largest prefix that
    /// leaves 1 or more.
    void SetSuffix(ESuffix suffix) { m_suffix = suffix; }
    /// The prefix that numbers are printed with.
    ESuffix GetSuffix() const { return m_suffix; }

    /// Up to 3, 6, 9 or 12 decimals for no prefix, k, M, G. Numbers that are
    /// not finite give "nan", "inf" or "-inf" with the bare unit.
    QString GetString(double number) const;

private:
    bool isAutomatic() const;
    int prefixFor(double number) const;

    QString m_unit;
    int m_base;
    bool m_keepZeros;
    ESuffix m_suffix = ekAutomatic;
};

#endif
