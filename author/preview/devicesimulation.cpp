#include "devicesimulation.h"

#include <hostkit/formrows.h>
#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <zorvaparser/zorvadelegate.h>

namespace Orvane {
namespace Author {

namespace {

constexpr int round = 150;  // milliseconds in which all values are read
constexpr int pause = 2000; // milliseconds between two changes of the device's own

QMap<QString, QString> valuesOf(const PreviewForm& form)
{
    QMap<QString, QString> values;
    for (const hostkit::Parameter& parameter : hostkit::parametersOf(form.parameters(false)))
        values.insert(parameter.path, parameter.text);
    return values;
}

/** The entry of an enumeration behind the one that has the text; the first behind the last. Null without
 * entries. */
QString entryBehind(const ZorvaEnum& enumeration, const QString& text)
{
    const int count = enumeration.GetValueCount();
    for (int i = 0; i < count; ++i) {
        if (enumeration.GetValueAt(i).GetValue() == text)
            return enumeration.GetValueAt((i + 1) % count).GetValue();
    }
    return count > 0 ? enumeration.GetValueAt(0).GetValue() : QString();
}

/** One step up, or back to the lowest. */
QString stepFrom(const values::IValueNumeric& number, const QString& text)
{
    const double step = number.GetStep() > 0 ? number.GetStep() : 1;
    const double next = text.toDouble() + step;
    return QString::number(next > number.GetMax() ? number.GetMin() : next, 'g', 15);
}

} // namespace

DeviceSimulation::DeviceSimulation(QObject* parent)
    : QObject(parent)
{
    m_drift.setInterval(pause);
    connect(&m_drift, &QTimer::timeout, this, &DeviceSimulation::drift);
}

DeviceSimulation::~DeviceSimulation()
{
    leave();
}

void DeviceSimulation::switchOn(bool isOn)
{
    m_isOn = isOn;
    if (!isOn)
        m_held.clear();
}

void DeviceSimulation::setManner(SimulatedDevice::Manner manner)
{
    m_manner = manner;
    if (m_device)
        m_device->setManner(manner);
}

void DeviceSimulation::setDelay(int milliseconds)
{
    m_delay = milliseconds;
    if (m_device)
        m_device->setDelay(milliseconds);
}

void DeviceSimulation::setDrifting(bool isDrifting)
{
    if (isDrifting)
        m_drift.start();
    else
        m_drift.stop();
}

void DeviceSimulation::join(PreviewForm& form)
{
    leave();
    if (!m_isOn)
        return;
    QMap<QString, QString> values = valuesOf(form);
    m_parameters = values.keys();
    for (const QString& parameter : qAsConst(m_parameters)) {
        if (m_held.contains(parameter))
            values.insert(parameter, m_held.value(parameter));
    }
    m_device = std::make_shared<SimulatedDevice>(values);
    m_device->setManner(m_manner);
    m_device->setDelay(m_delay);
    m_link = std::make_unique<hostkit::FormLink>(hostkit::FormLink::Form(&form.form()), m_device);
    m_link->link().setPolled(m_parameters, {}, round);
    connect(&m_link->states(), &hostkit::RowStates::changed, this,
            [this](const QString& parameter, hostkit::RowState state, const QString& why) {
                if (state == hostkit::RowState::Requested || state == hostkit::RowState::Refused ||
                    state == hostkit::RowState::Differing)
                    Q_EMIT said(
                        QStringLiteral("%1: %2: %3").arg(parameter, hostkit::RowStates::word(state), why));
            });
    m_link->link().start();
}

void DeviceSimulation::leave()
{
    if (!m_link)
        return;
    m_link->disconnect(this);
    m_link->states().disconnect(this);
    m_link.reset();
    m_held = m_device->values();
    m_device.reset();
}

void DeviceSimulation::drift()
{
    if (!m_link)
        return;
    for (int tries = 0; tries < m_parameters.size(); ++tries) {
        const QString parameter = m_parameters.at(m_turn++ % m_parameters.size());
        const QString text = nextText(parameter);
        if (text.isNull())
            continue;
        m_device->set(parameter, text);
        Q_EMIT said(QStringLiteral("%1: changed by the device: %2")
                        .arg(parameter, hostkit::wordsOf(m_link->form(), parameter, text)));
        return;
    }
}

QString DeviceSimulation::nextText(const QString& parameter)
{
    const auto row = hostkit::rowOf(m_link->form(), parameter);
    const values::ValueBase* const value = row ? row->GetDelegate()->GetVTValue() : nullptr;
    if (!value)
        return QString();
    const QString text = m_device->values().value(parameter);
    if (value->GetType() == values::TypeBool) {
        const ZorvaDelegate& box = *row->GetDelegate();
        const QString checked = box.GetString("checkedValue", QStringLiteral("true"));
        return text == checked ? box.GetString("uncheckedValue", QStringLiteral("false")) : checked;
    }
    if (value->GetType() == values::TypeSelection)
        return entryBehind(*m_link->form().GetEnum(row->GetDelegate()->property("enumName").toString()),
                           text);
    const auto* const number = dynamic_cast<const values::IValueNumeric*>(value);
    return number ? stepFrom(*number, text) : QString();
}

} // namespace Author
} // namespace Orvane
