#include "predictedform.h"

#include <author/document/enginereading.h>
#include <author/live/liveform.h>
#include <valueframework/valuebase.h>
#include <zorvaparser/zorvadelegate.h>

#include <QScriptEngine>
#include <QStringList>
#include <QXmlStreamWriter>

#include <algorithm>

using namespace Orvane::Author;

namespace {

/// A property with the block that it stands in.
struct Placed
{
    QString name;
    ReadProperty read;
    bool isCustom;
};

class Writer
{
public:
    Writer(const Description& description, const ReadForm& form)
        : m_description(description)
        , m_form(form)
        , m_xml(&m_bytes)
    {
    }

    QByteArray written()
    {
        m_xml.writeStartElement(QStringLiteral("KVParamGui"));
        m_xml.writeAttribute(QStringLiteral("version"), m_form.version);
        writeEnumerations();
        m_xml.writeStartElement(QStringLiteral("Sheet"));
        m_xml.writeAttribute(QStringLiteral("name"), m_form.sheetName);
        writeProperties(m_form.sheetProperties, m_form.sheetCustom, QStringLiteral("Properties"));
        for (const ReadRow& row : m_form.rows)
            writeRow(row);
        m_xml.writeEndElement();
        writeScript();
        m_xml.writeEndElement();
        return m_bytes;
    }

private:
    void writeEnumerations()
    {
        m_xml.writeStartElement(QStringLiteral("Enums"));
        for (const ReadEnumeration& enumeration : m_form.enumerations) {
            m_xml.writeStartElement(QStringLiteral("Enum"));
            m_xml.writeAttribute(QStringLiteral("name"), enumeration.name);
            for (const ReadEntry& entry : enumeration.entries) {
                m_xml.writeStartElement(QStringLiteral("EnumValue"));
                m_xml.writeTextElement(QStringLiteral("DisplayName"), entry.displayName);
                m_xml.writeTextElement(QStringLiteral("EnumIdentifier"), entry.identifier);
                m_xml.writeTextElement(QStringLiteral("Value"), entry.value);
                m_xml.writeEndElement();
            }
            m_xml.writeEndElement();
        }
        m_xml.writeEndElement();
    }

    void writeRow(const ReadRow& row)
    {
        m_xml.writeStartElement(QStringLiteral("Widget"));
        m_xml.writeAttribute(QStringLiteral("name"), row.name);
        m_xml.writeAttribute(QStringLiteral("class"), row.className);
        writeProperties(row.properties, row.custom, QString(), row.customBlock);
        m_xml.writeEndElement();
    }

    void writeScript()
    {
        if (m_form.script < 0)
            return;
        m_xml.writeStartElement(QStringLiteral("Script"));
        if (const SourceAttribute* const language =
                m_description.element(m_form.script).attribute("language"))
            m_xml.writeAttribute(language->name, language->value);
        m_xml.writeCharacters(m_form.code);
        m_xml.writeEndElement();
    }

    /// In the order of the text; plain ones inside `block` if that has a name. An element `customBlock`
    /// that has nothing left in it is there all the same.
    void writeProperties(const QMap<QString, ReadProperty>& plain, const QMap<QString, ReadProperty>& custom,
                         const QString& block, int customBlock = -1)
    {
        QVector<Placed> all;
        if (customBlock >= 0)
            all.append({QString(), {customBlock, QVariant()}, true});
        for (auto property = plain.cbegin(); property != plain.cend(); ++property)
            all.append({property.key(), *property, false});
        for (auto property = custom.cbegin(); property != custom.cend(); ++property)
            all.append({property.key(), *property, true});
        std::sort(all.begin(), all.end(), [](const Placed& left, const Placed& right) {
            return left.read.element < right.read.element;
        });
        for (const Placed& property : qAsConst(all)) {
            const QString around = property.isCustom ? QStringLiteral("CustomProperties") : block;
            if (!around.isEmpty())
                m_xml.writeStartElement(around);
            if (property.read.element != customBlock)
                writeProperty(property);
            if (!around.isEmpty())
                m_xml.writeEndElement();
        }
    }

    void writeProperty(const Placed& property)
    {
        const bool isTruth = property.read.value.type() == QVariant::Bool;
        m_xml.writeStartElement(QStringLiteral("Property"));
        m_xml.writeAttribute(QStringLiteral("name"), property.name);
        m_xml.writeTextElement(isTruth ? QStringLiteral("Bool") : QStringLiteral("String"),
                               property.read.value.toString());
        m_xml.writeEndElement();
    }

    const Description& m_description;
    const ReadForm& m_form;
    QByteArray m_bytes;
    QXmlStreamWriter m_xml;
};

QString effectOfRow(const Orvane::ZorvaWidget& row)
{
    Orvane::ZorvaDelegate& delegate = *row.GetDelegate();
    QStringList parts{row.GetName(), row.GetClass()};
    if (const values::ValueBase* const value = delegate.GetVTValue())
        parts += value->GetStringValue();
    QList<QByteArray> names = delegate.dynamicPropertyNames();
    std::sort(names.begin(), names.end());
    for (const QByteArray& name : qAsConst(names))
        parts +=
            QString::fromLatin1(name) + QLatin1Char('=') + delegate.property(name.constData()).toString();
    return parts.join(QLatin1Char('|'));
}

} // namespace

QByteArray predictedDescription(const SourceText& source)
{
    const Description description(source);
    const EngineReading reading(description);
    return reading.hasForm() ? Writer(description, reading.form()).written() : QByteArray();
}

QString effectOf(const QByteArray& text)
{
    const LiveForm form(text, LiveForm::Running);
    if (!form.exists())
        return QString();
    QStringList lines{form->GetSheet().GetName()};
    for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
        lines += effectOfRow(*form->GetSheet().GetWidgetAt(i));
    const QScriptEngine* const engine = form.engine();
    if (engine && engine->hasUncaughtException())
        lines += QStringLiteral("%1: %2")
                     .arg(engine->uncaughtExceptionLineNumber())
                     .arg(engine->uncaughtException().toString());
    return (lines << form->GetXmlString(true) << form->GetXmlString(false)).join(QLatin1Char('\n'));
}
