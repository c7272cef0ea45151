#include "formlink.h"

#include <hostkit/formrows.h>

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>

#include <QXmlStreamWriter>

#include <algorithm>

namespace hostkit {

using Orvane::ZorvaSheet;

namespace {

/** How many choices a device may add to an enumeration; the oldest gives way. */
constexpr int mostOffered = 32;
constexpr int facesOfChoice = 3;

QStringList facesOf(const Orvane::ZorvaEnum& enumeration)
{
    QStringList faces;
    for (int i = 0; i < enumeration.GetValueCount(); ++i) {
        const Orvane::ZorvaEnumValue& choice = enumeration.GetValueAt(i);
        faces << choice.GetDisplayName() << choice.GetEnumIdentifier() << choice.GetValue();
    }
    return faces;
}

void writeChoice(QXmlStreamWriter& writer, const QString& name, const QString& identifier,
                 const QString& value)
{
    writer.writeStartElement(QStringLiteral("EnumValue"));
    writer.writeTextElement(QStringLiteral("DisplayName"), name);
    writer.writeTextElement(QStringLiteral("EnumIdentifier"), identifier);
    writer.writeTextElement(QStringLiteral("Value"), value);
    writer.writeEndElement();
}

/** An overlay that gives an enumeration the choices in @p faces, and behind them those in @p more. */
QString enumerationOverlay(const QString& name, const QStringList& faces, const QStringList& more)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartElement(QStringLiteral("KVParamGui"));
    writer.writeStartElement(QStringLiteral("Enums"));
    writer.writeStartElement(QStringLiteral("Enum"));
    writer.writeAttribute(QStringLiteral("name"), name);
    for (int i = 0; i + facesOfChoice <= faces.size(); i += facesOfChoice)
        writeChoice(writer, faces.at(i), faces.at(i + 1), faces.at(i + 2));
    for (int i = 0; i < more.size(); ++i)
        writeChoice(writer, more.at(i), QStringLiteral("DEVICE_%1").arg(i), more.at(i));
    writer.writeEndDocument();
    return xml;
}

} // namespace

FormLink::FormLink(const Form& form, std::shared_ptr<Device> device, QObject* parent)
    : QObject(parent)
    , m_form(form)
    , m_states(*form)
    , m_link(std::move(device))
{
    connect(form.data(), &Orvane::ZorvaFormular::si_parametersModified, this, &FormLink::sendModified);
    connect(&m_link, &DeviceLink::stateChanged, this, &FormLink::takeState);
    connect(&m_link, &DeviceLink::read, this, &FormLink::takeReadings);
    connect(&m_link, &DeviceLink::refused, this, &FormLink::takeRefusal);
    connect(&m_link, &DeviceLink::givenBack, this, &FormLink::takeBack);
    connect(&m_link, &DeviceLink::readAll, this, &FormLink::askAboutOpen);
    m_states.setStale(true);
}

FormLink::~FormLink()
{
    m_link.disconnect(this);
    m_link.stop();
}

void FormLink::sendModified()
{
    const QString xml = m_form->GetXmlString(true);
    const QList<Parameter> parameters = parametersOf(xml);
    for (const Parameter& parameter : parameters)
        ask(parameter.path, parameter.text);
}

void FormLink::ask(const QString& parameter, const QString& text)
{
    Row& row = m_rows[parameter];
    row.wanted = text;
    row.settledReading = QString();
    row.open = m_link.state() != LinkState::Up && m_link.state() != LinkState::Slow;
    if (row.open) {
        leaveOpen(parameter);
        return;
    }
    row.number = m_link.request(parameter, text);
    m_states.set(parameter, RowState::Requested, wordsOf(*m_form, parameter, text));
}

void FormLink::leaveOpen(const QString& parameter)
{
    Row& row = m_rows[parameter];
    row.open = true;
    // Nothing that is under way answers it any more.
    row.number = 0;
    m_states.set(parameter, RowState::Requested,
                 tr("%1, not sent or not confirmed when the link was lost")
                     .arg(wordsOf(*m_form, parameter, row.wanted)));
}

void FormLink::takeReadings(const QList<Reading>& readings)
{
    QList<Parameter> parameters;
    for (const Reading& reading : readings) {
        Row& row = m_rows[reading.parameter];
        if (reading.answer.outcome == Answer::Refused) {
            takeUnreadable(reading, row);
            continue;
        }
        if (reading.answer.text.isNull())
            continue;
        row.reading = reading.answer.text;
        if (mayShow(reading, row))
            parameters.append({reading.parameter, row.reading});
    }
    if (parameters.isEmpty())
        return;
    showInRows(parameters);
    for (const Parameter& parameter : qAsConst(parameters))
        settle(parameter.path, parameter.text);
}

// The operator's word stands until the device has had a chance to answer it.
bool FormLink::mayShow(const Reading& reading, const Row& row)
{
    if (row.open || reading.number < row.number)
        return false;
    const ZorvaSheet::WidgetPointer widget = rowOf(*m_form, reading.parameter);
    return widget && !widget->isModified();
}

void FormLink::takeUnreadable(const Reading& reading, const Row& row)
{
    if (row.open || reading.number < row.number)
        return;
    const RowState state = m_states.keptState(reading.parameter);
    if (state == RowState::Requested)
        m_states.set(reading.parameter, state,
                     tr("sent, but cannot be read back: %1").arg(reading.answer.text));
    else if (state != RowState::Refused)
        m_states.set(reading.parameter, RowState::Unread, reading.answer.text);
}

void FormLink::showInRows(const QList<Parameter>& parameters)
{
    QList<Parameter> written;
    for (const Parameter& parameter : parameters) {
        const ZorvaSheet::WidgetPointer widget = rowOf(*m_form, parameter.path);
        if (widget->GetClass() == QLatin1String("Label")) {
            widget->GetDelegate()->setProperty("text", parameter.text);
            continue;
        }
        offerChoice(parameter);
        if (!saysTheSame(shownText(*m_form, parameter.path), parameter.text))
            written.append(parameter);
    }
    if (!written.isEmpty())
        m_form->SetXmlString(parameterXml(m_form->GetEmptyXmlElement(), written));
}

// A choice that the list does not have would be shown as another one.
void FormLink::offerChoice(const Parameter& parameter)
{
    const ZorvaSheet::WidgetPointer widget = rowOf(*m_form, parameter.path);
    if (widget->GetClass() != QLatin1String("ComboBox"))
        return;
    const QString name = widget->GetDelegate()->GetString("enumName", QString());
    const auto enumeration = m_form->GetEnum(name);
    if (enumeration == m_form->GetEmptyEnum() || enumeration->firstIndexOfValue(parameter.text) >= 0)
        return;
    if (!m_original.contains(name))
        m_original.insert(name, facesOf(*enumeration));
    QStringList& offered = m_offered[name];
    offered.append(parameter.text);
    if (offered.size() > mostOffered)
        offered.removeFirst();
    m_form->SetChangedZORVA(enumerationOverlay(name, m_original.value(name), offered));
}

void FormLink::settle(const QString& parameter, const QString& text)
{
    Row& row = m_rows[parameter];
    const ZorvaSheet::WidgetPointer widget = rowOf(*m_form, parameter);
    const bool isLabel = widget->GetClass() == QLatin1String("Label");
    if (!isLabel && !saysTheSame(shownText(*m_form, parameter), text)) {
        m_states.set(parameter, RowState::Differing,
                     tr("the device reports %1, which this row cannot show").arg(text));
        return;
    }
    const RowState before = m_states.keptState(parameter);
    // What was said of an answer holds until the device says something else.
    const bool holds = before == RowState::Refused || before == RowState::Differing;
    if (holds && (row.settledReading.isNull() || row.settledReading == text)) {
        row.settledReading = text;
        return;
    }
    row.settledReading = text;
    if (before == RowState::Requested && !saysTheSame(row.wanted, text))
        m_states.set(parameter, RowState::Differing,
                     tr("asked for %1, the device took %2")
                         .arg(wordsOf(*m_form, parameter, row.wanted), wordsOf(*m_form, parameter, text)));
    else
        m_states.set(parameter, RowState::Confirmed);
}

void FormLink::takeRefusal(const QString& parameter, const QString& why, quint64 number)
{
    Row& row = m_rows[parameter];
    if (number < row.number)
        return;
    row.settledReading = QString();
    m_states.set(parameter, RowState::Refused,
                 tr("%1: %2").arg(wordsOf(*m_form, parameter, row.wanted), why));
}

void FormLink::takeState(LinkState state, const QString& reason)
{
    const bool down = state == LinkState::Down || state == LinkState::Closed;
    m_states.setStale(state != LinkState::Up, reason);
    if (down) {
        m_wasDown = true;
    } else if (state == LinkState::Up && m_wasDown) {
        m_wasDown = false;
        for (auto row = m_rows.begin(); row != m_rows.end(); ++row) {
            if (m_states.keptState(row.key()) == RowState::Requested)
                leaveOpen(row.key());
            else
                m_states.set(row.key(), RowState::Unread);
        }
    }
}

void FormLink::takeBack(const QList<Request>& requests)
{
    for (const Request& request : requests) {
        if (request.number >= m_rows.value(request.parameter).number)
            leaveOpen(request.parameter);
    }
}

void FormLink::askAboutOpen()
{
    QList<Difference> questions;
    for (auto row = m_rows.begin(); row != m_rows.end(); ++row) {
        if (!row->open)
            continue;
        if (!row->reading.isNull() && saysTheSame(row->reading, row->wanted)) {
            row->open = false;
            row->settledReading = row->reading;
            m_states.set(row.key(), RowState::Confirmed);
        } else {
            questions.append(difference(row.key(), row->wanted));
        }
    }
    Q_EMIT readAll();
    if (!questions.isEmpty())
        Q_EMIT unconfirmed(questions);
}

void FormLink::settleUnconfirmed(const QList<Difference>& chosen)
{
    QHash<QString, QString> again;
    for (const Difference& entry : chosen)
        again.insert(entry.parameter, entry.text);
    QList<Parameter> others;
    for (auto row = m_rows.begin(); row != m_rows.end(); ++row) {
        if (!row->open || again.contains(row.key()))
            continue;
        row->open = false;
        m_states.set(row.key(), RowState::Unread);
        if (!row->reading.isNull())
            others.append({row.key(), row->reading});
    }
    showInRows(others);
    for (const Parameter& parameter : qAsConst(others))
        settle(parameter.path, parameter.text);
    for (const Difference& entry : chosen)
        ask(entry.parameter, entry.text);
}

QString FormLink::settings() const
{
    QList<Parameter> parameters;
    ZorvaSheet& sheet = m_form->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const Orvane::ZorvaDelegate* const delegate = sheet.GetWidgetAt(i)->GetDelegate();
        const QString path = delegate->GetXmlPath();
        const QString reading = m_rows.value(path).reading;
        if (delegate->GetBool("generateParameterXml", false) && !reading.isNull())
            parameters.append({path, reading});
    }
    return parameterXml(m_form->GetEmptyXmlElement(), parameters);
}

Difference FormLink::difference(const QString& parameter, const QString& text)
{
    Difference result;
    result.parameter = parameter;
    result.text = text;
    const ZorvaSheet::WidgetPointer widget = rowOf(*m_form, parameter);
    result.sendable = widget && widget->GetDelegate()->GetBool("generateParameterXml", false);
    result.caption = widget ? captionOf(*widget) : parameter;
    result.group = groupOf(*m_form, parameter);
    result.wanted = wordsOf(*m_form, parameter, text);
    const QString reading = m_rows.value(parameter).reading;
    if (!reading.isNull())
        result.present = wordsOf(*m_form, parameter, reading);
    return result;
}

QList<Difference> FormLink::differences(const QList<Parameter>& wanted)
{
    QList<Difference> result;
    for (const Parameter& parameter : wanted) {
        const QString reading = m_rows.value(parameter.path).reading;
        if (reading.isNull() || !saysTheSame(reading, parameter.text))
            result.append(difference(parameter.path, parameter.text));
    }
    return result;
}

void FormLink::send(const QList<Difference>& chosen)
{
    QList<Parameter> parameters;
    for (const Difference& entry : chosen) {
        if (entry.sendable)
            parameters.append({entry.parameter, entry.text});
    }
    showInRows(parameters);
    for (const Parameter& parameter : qAsConst(parameters))
        ask(parameter.path, parameter.text);
}

} // namespace hostkit
