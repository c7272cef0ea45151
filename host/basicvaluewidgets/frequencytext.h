#ifndef ZORVA_FREQUENCYTEXT_H
#define ZORVA_FREQUENCYTEXT_H

#include <basicvaluewidgets/basicvaluewidgets_export.h>

#include <QString>

/// Frequencies as the user types and reads them. Numbers are hertz throughout,
/// resolved to 1 mHz.
namespace FrequencyText {

enum class Unit { Automatic, Hertz, Kilohertz, Megahertz, Gigahertz };

/// Hertz in one unit; 1 for Automatic.
BASICVALUEWIDGETS_EXPORT double Factor(Unit unit);
/// "Hz", "kHz", "MHz", "GHz"; empty for Automatic.
BASICVALUEWIDGETS_EXPORT QString Name(Unit unit);

/// Reads sign, digits (blanks, no-break blanks and apostrophes group), "." or
/// "," as point, exponent, then optionally Hz or k, M, G with or without Hz in
/// any case. A bare number is hertz. False for anything else, and *hertz stays.
BASICVALUEWIDGETS_EXPORT bool Parse(const QString& text, double* hertz);

/// "98.5 MHz": Automatic takes the largest unit that leaves 1 or more. Zeros
/// behind the point are trimmed. Empty if the number is not finite.
BASICVALUEWIDGETS_EXPORT QString Format(double hertz, Unit unit = Unit::Automatic);

} // namespace FrequencyText

#endif
