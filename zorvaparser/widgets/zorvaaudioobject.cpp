#include "zorvaaudioobject.h"

namespace Orvane {

ZorvaAudioObject::ZorvaAudioObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
{
}

void ZorvaAudioObject::setAudioSourceToAnalog()
{
    Q_EMIT si_audioSourceAnalog();
}

void ZorvaAudioObject::setAudioSourceToDigital()
{
    Q_EMIT si_audioSourceDigital();
}

void ZorvaAudioObject::setAudioSourceToNone()
{
    Q_EMIT si_audioSourceNone();
}

} // namespace Orvane
