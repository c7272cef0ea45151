#ifndef ZORVA_UNITTEXT_P_H
#define ZORVA_UNITTEXT_P_H

#include <QString>

/// Units as typed behind a number: "kHz" is the prefix k before Hz.
namespace UnitText {

/// What one typed unit is worth in the unit that a control shows: 1000 for "M"
/// or "MHz" where "kHz" is shown, 1 for no unit. False if it does not fit. Case
/// counts for M and G only, unless the unit is Hz; milli is not known.
bool Ratio(const QString& typed, const QString& shown, double* ratio);

} // namespace UnitText

#endif
