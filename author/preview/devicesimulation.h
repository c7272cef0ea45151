#ifndef ZORVA_AUTHOR_DEVICESIMULATION_H
#define ZORVA_AUTHOR_DEVICESIMULATION_H

#include "previewform.h"
#include "simulateddevice.h"

#include <hostkit/formlink.h>

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace Orvane {
namespace Author {

/**
 * The simulated device behind the form that is shown: what is applied goes to it, what it holds
 * comes back, and each row shows how it stands. It keeps what it holds when the form is
 * read anew.
 */
class DeviceSimulation : public QObject
{
    Q_OBJECT

public:
    explicit DeviceSimulation(QObject* parent = nullptr);
    ~DeviceSimulation() override;

    /** Takes effect with the next form: rows get marks, or have none. */
    void switchOn(bool isOn);
    bool isOn() const { return m_isOn; }
    void setManner(SimulatedDevice::Manner manner);
    /** Milliseconds that it takes when it delays. */
    void setDelay(int milliseconds);
    /** Whether the device changes a value now and then by itself. */
    void setDrifting(bool isDrifting);
    /** Changes one value at the device, each time that of another row. */
    void drift();

    /** To the form that is shown, which is built; nothing while switched off. It must be left before it goes.
     */
    void join(PreviewForm& form);
    void leave();

    /** Null while there is no link. */
    hostkit::FormLink* link() const { return m_link.get(); }

Q_SIGNALS:
    /** In words, what became of a row. */
    void said(const QString& text);

private:
    QString nextText(const QString& parameter);

    std::shared_ptr<SimulatedDevice> m_device; // shared with the link
    std::unique_ptr<hostkit::FormLink> m_link;
    QMap<QString, QString> m_held; // between two forms
    QStringList m_parameters;
    QTimer m_drift;
    int m_turn = 0;
    int m_delay = 1500;
    SimulatedDevice::Manner m_manner = SimulatedDevice::Confirms;
    bool m_isOn = false;
};

} // namespace Author
} // namespace Orvane

#endif
