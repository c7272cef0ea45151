#ifndef ZORVA_SPINACCESS_P_H
#define ZORVA_SPINACCESS_P_H

/// What assistive tools see of a VCNumericFloatSpin.
namespace SpinAccess {

/// To be called by each control; does something once a process.
void Install();

} // namespace SpinAccess

#endif
