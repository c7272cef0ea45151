#ifndef ZORVA_UNITPREFIX_H
#define ZORVA_UNITPREFIX_H

#include <guibase/guibase_export.h>

#include <QChar>
#include <QString>

/// The prefixes that numbers with units are shown and typed with: none, k, M
/// and G, numbered from 0. One step is three powers of ten.
namespace UnitPrefix {

constexpr int Count = 4;         ///< how many there are
constexpr int PowersPerStep = 3; ///< powers of ten from one to the next

/// "", "k", "M" or "G"; empty for any other number.
GUIBASE_EXPORT QString Text(int step);
/// The number of the prefix that the letter stands for, or -1. "K" is k; m and g
/// count as M and G only where \a anyCase says so, since m is milli elsewhere.
GUIBASE_EXPORT int StepOf(QChar letter, bool anyCase);
/// 1, 1e3, 1e6 or 1e9.
GUIBASE_EXPORT double Factor(int step);

} // namespace UnitPrefix

#endif
