#ifndef ZORVA_AUTHOR_DEVICEPANE_H
#define ZORVA_AUTHOR_DEVICEPANE_H

#include <QWidget>

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QSpinBox;

namespace Orvane {
namespace Author {

class DeviceSimulation;

/** Switches of the simulated device, and what it does. */
class DevicePane : public QWidget
{
    Q_OBJECT

public:
    /** @p device must outlive this. */
    explicit DevicePane(DeviceSimulation& device, QWidget* parent = nullptr);

Q_SIGNALS:
    /** The device was switched on or off: the form is to be made anew. */
    void switched();

private:
    void choose(int index);

    DeviceSimulation& m_device;
    QComboBox* m_manner; // owned, like all that follows
    QSpinBox* m_delay;
    QCheckBox* m_drift;
    QPlainTextEdit* m_log;
};

} // namespace Author
} // namespace Orvane

#endif
