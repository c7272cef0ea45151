#ifndef ZORVA_RIG_HAMLIBDEVICE_H
#define ZORVA_RIG_HAMLIBDEVICE_H

#include "rigdevice.h"

#include <QList>
#include <QPair>
#include <QString>

namespace radio {

/** How to reach a radio through Hamlib. */
struct HamlibSettings
{
    rig_model_t model = RIG_MODEL_DUMMY;
    QString device;                        ///< a serial port, or a host; empty for Hamlib's own idea
    QList<QPair<QString, QString>> config; ///< further settings of Hamlib by name
};

/** A radio on this computer, driven by Hamlib. Belongs to one thread from open() to close(). */
class HamlibDevice : public RigDevice
{
public:
    HamlibDevice(const HamlibSettings& settings, const QList<Parameter>& parameters);
    ~HamlibDevice() override;

    hostkit::Answer open() override;
    void close() override;

protected:
    hostkit::Answer get(const Parameter& parameter) override;
    hostkit::Answer set(const Parameter& parameter, const QString& text) override;

private:
    hostkit::Answer configure();
    hostkit::Answer answerTo(int result, const QString& text = QString());
    int getNumber(const Parameter& parameter, QString* text);
    int getSetting(const Parameter& parameter, value_t* value);
    int getTuning(const Parameter& parameter, QString* text);
    int getOffset(const Parameter& parameter, QString* text);
    int getTransmitter(const Parameter& parameter, QString* text);
    int getTone(const Parameter& parameter, QString* text);
    int setNumber(const Parameter& parameter, const QString& text);
    int setSetting(const Parameter& parameter, const value_t& value);
    int setTuning(const Parameter& parameter, const QString& text);
    int setTransmitter(const Parameter& parameter, const QString& text);
    int setTone(const Parameter& parameter, const QString& text);

    const HamlibSettings m_settings;
    RIG* m_rig = nullptr; // owned; null while closed
};

} // namespace radio

#endif
