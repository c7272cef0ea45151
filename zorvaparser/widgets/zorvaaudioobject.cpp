#include "zorvaaudioobject.h"

namespace Orvane {

ZorvaAudioObject::ZorvaAudioObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
{
}

void ZorvaAudioObject::setAudioSourceToAnalog()
{
    Raise(&ZorvaAudioObject::si_audioSourceAnalog);
}

void ZorvaAudioObject::setAudioSourceToDigital()
{
    Raise(&ZorvaAudioObject::si_audioSourceDigital);
}

void ZorvaAudioObject::setAudioSourceToNone()
{
    Raise(&ZorvaAudioObject::si_audioSourceNone);
}

} // namespace Orvane
