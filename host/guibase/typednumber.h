#ifndef ZORVA_TYPEDNUMBER_H
#define ZORVA_TYPEDNUMBER_H

#include <guibase/guibase_export.h>

#include <QString>

/// A number as people type it, perhaps with a unit behind it: sign, digits with
/// blanks, no-break blanks or apostrophes as grouping, "." or "," as point,
/// exponent, unit. The one grammar of all controls.
class GUIBASE_EXPORT TypedNumber
{
public:
    /// Takes the text apart; it may be anything.
    explicit TypedNumber(const QString& text);

    /// False if the text does not begin with a number; the rest is empty then.
    bool IsNumber() const { return m_isNumber; }
    /// What stands behind the number, without blanks around it.
    const QString& Unit() const { return m_unit; }
    /// Whether the number was typed with a point or comma.
    bool HasPoint() const;
    /// The number times ten to \a power, rounded once; 0 if it is none, or too
    /// large for a double.
    double Value(int power = 0, bool* ok = nullptr) const;

private:
    double movedBy(int power, bool* ok) const;

    bool m_isNumber = false;
    double m_number = 0.0;
    QString m_digits;
    int m_exponent = 0;
    QString m_unit;
};

#endif
