#ifndef ZORVA_SPINACCESS_P_H
#define ZORVA_SPINACCESS_P_H

class VCNumericFloatSpin;

/// What assistive tools see of a VCNumericFloatSpin.
namespace SpinAccess {

/// To be called by each control; does something once a process.
void Install();
/// Tells assistive tools, if there are any, that the value is another one, which
/// Qt's spin boxes keep to themselves.
void TellValue(VCNumericFloatSpin* spin);

} // namespace SpinAccess

#endif
