#ifndef ZORVA_VKBASE_NOTIFYING_H
#define ZORVA_VKBASE_NOTIFYING_H

#include <vkbase/vkbase_export.h>

/// Whether an observer, of whatever it may be, is being told of a change just now. What
/// made the change, a control perhaps, stands further down on the stack and goes on
/// afterwards: who would delete it has to wait until that is over.
VKBASE_EXPORT bool isNotifying();

#endif
