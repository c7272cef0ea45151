#ifndef ZORVATUNEROBJECT_H
#define ZORVATUNEROBJECT_H

#include <zorvaparser/zorvadelegate.h>

namespace Orvane {

/** Relays a script's tuner segment and spectrum switches to the application; stores nothing. */
class ZorvaTunerObject : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaTunerObject(ZorvaWidget* widget);

Q_SIGNALS:
    void si_IFPanSpectrumEnabled(bool enabled);
    void si_PIFPanSpectrumEnabled(bool enabled);
    void si_segmentChanged(qlonglong centerFreq, uint bandwidth);

public:
    Q_INVOKABLE void emitSegment(qlonglong centerFreq, uint bandwidth);
    Q_INVOKABLE void setIFPanSpectrumEnabled(bool enabled);
    Q_INVOKABLE void setPIFPanSpectrumEnabled(bool enabled);
};

} // namespace Orvane

#endif
