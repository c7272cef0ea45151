#include "zorvatunerobject.h"

namespace Orvane {

ZorvaTunerObject::ZorvaTunerObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
{
}

void ZorvaTunerObject::emitSegment(qlonglong centerFreq, uint bandwidth)
{
    Raise(&ZorvaTunerObject::si_segmentChanged, centerFreq, bandwidth);
}

void ZorvaTunerObject::setIFPanSpectrumEnabled(bool enabled)
{
    Raise(&ZorvaTunerObject::si_IFPanSpectrumEnabled, enabled);
}

void ZorvaTunerObject::setPIFPanSpectrumEnabled(bool enabled)
{
    Raise(&ZorvaTunerObject::si_PIFPanSpectrumEnabled, enabled);
}

} // namespace Orvane
