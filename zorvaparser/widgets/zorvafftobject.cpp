#include "zorvafftobject.h"

#include "scaledfrequency_p.h"

namespace Orvane {

ZorvaFFTObject::ZorvaFFTObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , fftLength(0)
    , sampleRate(0)
    , frequencyResolutionHz(0)
    , timeResolutionUs(0)
{
}

void ZorvaFFTObject::setFFTLength(uint value)
{
    if (value == fftLength)
        return;
    fftLength = value;
    Recompute();
}

void ZorvaFFTObject::setSignalSampleRate(qlonglong value)
{
    if (value == sampleRate)
        return;
    sampleRate = value;
    if (Recompute())
        Raise(&ZorvaFFTObject::si_signalSampleRateChanged, value);
}

bool ZorvaFFTObject::Recompute()
{
    frequencyResolutionHz = 0;
    if (fftLength != 0)
        frequencyResolutionHz = static_cast<double>(sampleRate) / static_cast<double>(fftLength);
    timeResolutionUs = 0;
    // In this order: it fixes the rounding.
    if (frequencyResolutionHz != 0)
        timeResolutionUs = (1 / frequencyResolutionHz) * 1000000;
    return Raise(&ZorvaFFTObject::si_spectralResolutionChanged, frequencyResolutionHz, timeResolutionUs);
}

QString ZorvaFFTObject::frequencyResolutionString()
{
    if (frequencyResolutionHz <= 0)
        return QStringLiteral("-");
    const ScaledFrequency scaled = scaledFrequency(frequencyResolutionHz);
    return formatString(scaled.number, scaled.decimals, scaled.suffix);
}

QString ZorvaFFTObject::timeResolutionString()
{
    if (timeResolutionUs <= 0)
        return QStringLiteral("-");
    if (timeResolutionUs > 1000)
        return formatString(timeResolutionUs / 1000, 6, QStringLiteral(" ms"));
    return formatString(timeResolutionUs, 0, QStringLiteral(" \u00b5s"));
}

double ZorvaFFTObject::frequencyResolution()
{
    return frequencyResolutionHz;
}

double ZorvaFFTObject::timeResolution()
{
    return timeResolutionUs;
}

qlonglong ZorvaFFTObject::signalSampleRate()
{
    return sampleRate;
}

} // namespace Orvane
