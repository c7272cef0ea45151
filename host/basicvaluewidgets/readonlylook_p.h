#ifndef ZORVA_READONLYLOOK_P_H
#define ZORVA_READONLYLOOK_P_H

class QWidget;

/// How a control shows that it can only be read.
namespace ReadOnlyLook {

/// Puts an edit on the colour of the window, or back on its own.
void Apply(QWidget* edit, bool readOnly);

} // namespace ReadOnlyLook

#endif
