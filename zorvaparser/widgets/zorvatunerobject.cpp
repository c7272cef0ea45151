#include "zorvatunerobject.h"

namespace Orvane {

ZorvaTunerObject::ZorvaTunerObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
{
}

void ZorvaTunerObject::emitSegment(qlonglong centerFreq, uint bandwidth)
{
    Q_EMIT si_segmentChanged(centerFreq, bandwidth);
}

void ZorvaTunerObject::setIFPanSpectrumEnabled(bool enabled)
{
    Q_EMIT si_IFPanSpectrumEnabled(enabled);
}

void ZorvaTunerObject::setPIFPanSpectrumEnabled(bool enabled)
{
    Q_EMIT si_PIFPanSpectrumEnabled(enabled);
}

} // namespace Orvane
