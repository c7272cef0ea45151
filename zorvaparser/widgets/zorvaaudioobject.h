#ifndef ZORVAAUDIOOBJECT_H
#define ZORVAAUDIOOBJECT_H

#include <zorvaparser/zorvadelegate.h>

namespace Orvane {

/** Relays a script's choice of audio source to the application; stores nothing. */
class ZorvaAudioObject : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaAudioObject(ZorvaWidget* widget);

Q_SIGNALS:
    void si_audioSourceAnalog();
    void si_audioSourceDigital();
    void si_audioSourceNone();

public:
    Q_INVOKABLE void setAudioSourceToAnalog();
    Q_INVOKABLE void setAudioSourceToDigital();
    Q_INVOKABLE void setAudioSourceToNone();
};

} // namespace Orvane

#endif
