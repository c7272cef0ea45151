#include "devicepane.h"

#include "devicesimulation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace Orvane {
namespace Author {

namespace {

constexpr int mostLines = 500;
constexpr int longestDelay = 60000; // milliseconds

} // namespace

DevicePane::DevicePane(DeviceSimulation& device, QWidget* parent)
    : QWidget(parent)
    , m_device(device)
    , m_manner(new QComboBox(this))
    , m_delay(new QSpinBox(this))
    , m_drift(new QCheckBox(QStringLiteral("Changes &values by itself"), this))
    , m_log(new QPlainTextEdit(this))
{
    m_manner->setObjectName(QStringLiteral("deviceManner"));
    m_manner->addItems({QStringLiteral("No device"), QStringLiteral("Confirms"),
                        QStringLiteral("Confirms late"), QStringLiteral("Refuses"),
                        QStringLiteral("Keeps its own value")});
    m_delay->setObjectName(QStringLiteral("deviceDelay"));
    m_delay->setRange(0, longestDelay);
    m_delay->setSingleStep(100);
    m_delay->setValue(1500);
    m_delay->setSuffix(QStringLiteral(" ms"));
    m_drift->setObjectName(QStringLiteral("deviceDrift"));
    m_log->setObjectName(QStringLiteral("deviceLog"));
    m_log->setAccessibleName(QStringLiteral("What the device did"));
    m_log->setReadOnly(true);
    m_log->setTabChangesFocus(true);
    m_log->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_log->setMaximumBlockCount(mostLines);
    auto* const now = new QPushButton(QStringLiteral("Change one &now"), this);
    auto* const switches = new QFormLayout;
    switches->addRow(QStringLiteral("&Device"), m_manner);
    switches->addRow(QStringLiteral("De&lay"), m_delay);
    switches->addRow(m_drift, now);
    auto* const lines = new QVBoxLayout(this);
    lines->addLayout(switches);
    lines->addWidget(m_log, 1);
    setFocusProxy(m_manner);
    connect(m_manner, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DevicePane::choose);
    connect(m_delay, QOverload<int>::of(&QSpinBox::valueChanged), &device, &DeviceSimulation::setDelay);
    connect(m_drift, &QCheckBox::toggled, &device, &DeviceSimulation::setDrifting);
    connect(now, &QPushButton::clicked, &device, &DeviceSimulation::drift);
    connect(&device, &DeviceSimulation::said, m_log, &QPlainTextEdit::appendPlainText);
}

void DevicePane::choose(int index)
{
    const bool isOn = index > 0;
    if (isOn)
        m_device.setManner(static_cast<SimulatedDevice::Manner>(index - 1));
    if (isOn == m_device.isOn())
        return;
    m_device.switchOn(isOn);
    Q_EMIT switched();
}

} // namespace Author
} // namespace Orvane
