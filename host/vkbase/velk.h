#ifndef ZORVA_VKBASE_VELK_H
#define ZORVA_VKBASE_VELK_H

#include <vkbase/vkbase_export.h>

#include <QString>

namespace Velk {

/// Reads a number as people type it: sign, digits, exponent; blanks, no-break
/// blanks and apostrophes between digits group. With both "." and "," the last
/// one is the point and the others group; a single "." or "," is the point;
/// several of the same sign group. `ok` may be null. Empty, unreadable or
/// too large a text: false and 0.
VKBASE_EXPORT double toDoubleEx(const QString& text, bool* ok);

} // namespace Velk

#endif
