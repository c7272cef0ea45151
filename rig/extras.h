#ifndef ZORVA_RIG_EXTRAS_H
#define ZORVA_RIG_EXTRAS_H

#include "parameter.h"

namespace radio {

/**
 * What a model has beyond the levels, functions and settings that Hamlib has names of its own for. Buttons,
 * which hold nothing, and texts, for which drivers agree on no form, are left out.
 */
QList<Parameter> extrasOf(const rig_caps& capabilities);

} // namespace radio

#endif
