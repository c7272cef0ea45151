#ifndef ZORVAFFTOBJECT_H
#define ZORVAFFTOBJECT_H

#include <zorvaparser/zorvadelegate.h>

namespace Orvane {

/**
 * A calculator for scripts: from FFT length (points) and sample rate (hertz) to
 * the resolution in frequency (hertz) and time (microseconds), both 0 while an
 * input is 0. A negative rate gives negative resolutions, shown as "-".
 */
class ZorvaFFTObject : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaFFTObject(ZorvaWidget* widget);

Q_SIGNALS:
    /** Comes after si_spectralResolutionChanged(). */
    void si_signalSampleRateChanged(qlonglong rate);
    /** At each recomputation, with equal results too. */
    void si_spectralResolutionChanged(double frequencyResolution, double timeResolution);

public Q_SLOTS:
    void setFFTLength(uint value);
    void setSignalSampleRate(qlonglong value);

public:
    Q_INVOKABLE QString frequencyResolutionString();
    Q_INVOKABLE QString timeResolutionString();
    Q_INVOKABLE double frequencyResolution();
    Q_INVOKABLE double timeResolution();
    Q_INVOKABLE qlonglong signalSampleRate();

private:
    /** False if the row is gone after telling. */
    bool Recompute();

    quint32 fftLength;
    qint64 sampleRate;
    double frequencyResolutionHz;
    double timeResolutionUs;
};

} // namespace Orvane

#endif
