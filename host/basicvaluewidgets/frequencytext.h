#ifndef ZORVA_FREQUENCYTEXT_H
#define ZORVA_FREQUENCYTEXT_H

#include <basicvaluewidgets/basicvaluewidgets_export.h>

#include <QString>

/// Frequencies as the user types and reads them. Numbers are hertz throughout,
/// resolved to 1 mHz.
namespace FrequencyText {

/// The unit a frequency is shown in; Automatic is the largest that leaves 1 or more.
enum class Unit { Automatic, Hertz, Kilohertz, Megahertz, Gigahertz };

/// Hertz in one unit; 1 for Automatic.
BASICVALUEWIDGETS_EXPORT double Factor(Unit unit);
/// "Hz", "kHz", "MHz", "GHz"; empty for Automatic.
BASICVALUEWIDGETS_EXPORT QString Name(Unit unit);

/// Reads sign, digits (blanks, no-break blanks and apostrophes group), "." or
/// "," as point, exponent, then optionally Hz or k, M, G with or without Hz in
/// any case. A bare number is hertz. False for anything else, and *hertz stays.
BASICVALUEWIDGETS_EXPORT bool Parse(const QString& text, double* hertz);

/// What a typed text turns out to be.
enum class Verdict { Good, NoFrequency, TooLow, TooHigh };

/// Reads a frequency that an operator typed where one in  shown stands. A bare
/// number counts in that unit if this lands within the limits, else as hertz if
/// that does. Limits beyond 1e15 are none: then it counts in the unit shown if
/// it has a point, and as hertz otherwise. *hertz stays unless the verdict is
/// Good; Automatic counts as hertz.
BASICVALUEWIDGETS_EXPORT Verdict Read(const QString& text, Unit shown, double lowest, double highest,
                                      double* hertz);

/// The unit in which Format shows a frequency by itself.
BASICVALUEWIDGETS_EXPORT Unit AutomaticUnit(double hertz);

/// "98.5 MHz": Automatic takes the largest unit that leaves 1 or more. Zeros
/// behind the point are trimmed. Empty if the number is not finite.
BASICVALUEWIDGETS_EXPORT QString Format(double hertz, Unit unit = Unit::Automatic);

} // namespace FrequencyText

#endif
