#ifndef ZORVA_COMBOACCESS_P_H
#define ZORVA_COMBOACCESS_P_H

/// What assistive tools see of a VCComboBoxClassic.
namespace ComboAccess {

/// To be called by each control; does something once a process.
void Install();

} // namespace ComboAccess

#endif
