#include "zorvadelegate.h"

#include "bounds_p.h"
#include "rowwatch_p.h"
#include "sharedproperties_p.h"

#include <layout/markup.h>

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QScopedValueRollback>
#include <QXmlStreamReader>

namespace Orvane {

namespace {

int blockDepth = 0;

} // namespace

void ZorvaDelegate::ParseProperties(QXmlStreamReader& reader, bool custom)
{
    const QScopedValueRollback<int> nested(blockDepth, blockDepth + 1);
    const RowWatch row(*this);
    while (row && !reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            break;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Property")) {
            if (!ParseProperty(reader, custom))
                break;
        } else if (reader.name() == QLatin1String("CustomProperties")) {
            if (blockDepth < deepestBlock)
                ParseProperties(reader, true);
            else
                reader.skipCurrentElement();
        }
    }
    if (!custom && row)
        FinishParse();
}

bool ZorvaDelegate::ParseProperty(QXmlStreamReader& reader, bool custom)
{
    // Qt names its properties in bytes; only the own table of the row takes every letter.
    const QByteArray key = reader.attributes().value(QLatin1String("name")).toLatin1();
    const QString customName =
        custom ? reader.attributes().value(QLatin1String("name")).toString() : QString();
    if (!reader.readNextStartElement())
        return false;
    const bool isBool = reader.name() == QLatin1String("Bool");
    const QString text = reader.readElementText();
    const QVariant value =
        isBool ? QVariant(text == QLatin1String("true")) : QVariant(sharedPropertyText(key, text));
    if (custom)
        customProperties.insert(customName, value);
    if (!custom || customName == QLatin1String("toolTip"))
        SetParsedProperty(key, value);
    reader.skipCurrentElement();
    return true;
}

void ZorvaDelegate::SetParsedProperty(const QByteArray& key, const QVariant& value)
{
    if (dynamicPropertyNames().count() < mostProperties || property(key.constData()).isValid())
        SetProperty(key.constData(), value);
}

void ZorvaDelegate::FinishParse()
{
    sharePropertyNames(*this);
    generateParameterXml = property("generateParameterXml").toBool();
    SetXmlPath(PropertyText("parameterXmlTag"));
    const QString mode = property("applyMode").toString();
    if (mode == QLatin1String("ekInstantApplyMode"))
        applyMode = ekInstantApplyMode;
    else if (mode == QLatin1String("ekNormalApplyMode"))
        applyMode = ekNormalApplyMode;
    else
        applyMode = static_cast<eApplyMode>(0);
}

bool ZorvaDelegate::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        const QByteArray key = static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
        if (!key.startsWith("_q_") && !TellChange(key))
            return true;
    }
    return QObject::event(event);
}

bool ZorvaDelegate::SetProperty(const char* name, const QVariant& value)
{
    RowWatch row(*this);
    row.announceWrite(name, value);
    setProperty(name, value);
    return static_cast<bool>(row);
}

bool ZorvaDelegate::TellChange(const QByteArray& key)
{
    // Qt would look up what SetProperty() has at hand, and that watches already.
    RowWatch* const write = watches;
    if (write && write->isWriting(key)) {
        PropertyChanged(propertyNameText(key), write->takeWrite());
        return static_cast<bool>(*write);
    }
    return Watched([&] { PropertyChanged(propertyNameText(key), property(key.constData())); });
}

void ZorvaDelegate::PropertyChanged(const QString& name, const QVariant& value)
{
    if (name == QLatin1String("generateParameterXml")) {
        generateParameterXml = value.toBool();
    } else if (name == QLatin1String("labelText")) {
        if (label)
            Markup::show(label, Translate(VariantText(value)));
        UpdateNames();
    } else if (name == QLatin1String("visible")) {
        if (label && definedProperties.contains(name))
            label->setVisible(value.toBool());
    }
}

bool ZorvaDelegate::ChangeProperty(const QString& name, QVariant value)
{
    return ChangeProperty(name.toLatin1().constData(), value);
}

bool ZorvaDelegate::ChangeProperty(const char* name, const QVariant& value)
{
    if (value == property(name))
        return false;
    SetProperty(name, value);
    return true;
}

void ZorvaDelegate::EnableProperty(const QString& name, bool enable, QVariant* value)
{
    const QByteArray key = name.toLatin1();
    if (enable) {
        heldBackLooks.remove(name);
        DefineProperty(name);
        if (!SetProperty(key.constData(), property(key.constData())))
            return;
        // An equal value sends no event, and the control must see the real value again.
        QDynamicPropertyChangeEvent change(key);
        QCoreApplication::sendEvent(this, &change);
        return;
    }
    if (definedProperties.contains(name) && (!value || ShowLook(name, *value)))
        UndefineProperty(name);
}

bool ZorvaDelegate::ShowLook(const QString& name, const QVariant& look)
{
    heldBackLooks.insert(name, look);
    // Whoever hears of it may open the gate again, and that then stands.
    return Watched([&] { PropertyChanged(name, look); }) && heldBackLooks.contains(name);
}

void ZorvaDelegate::PushHeldBackProperties()
{
    const QMap<QString, QVariant> looks = heldBackLooks;
    for (auto look = looks.cbegin(); look != looks.cend(); ++look) {
        DefineProperty(look.key());
        QVariant shown = look.value();
        EnableProperty(look.key(), false, &shown);
    }
}

void ZorvaDelegate::DefineProperty(const QString& name)
{
    if (!definedProperties.contains(name))
        definedProperties.append(name);
}

void ZorvaDelegate::UndefineProperty(const QString& name)
{
    definedProperties.removeOne(name);
}

QVariant ZorvaDelegate::ForControl(const QString& name, const QVariant& value)
{
    return name == QLatin1String("toolTip") ? QVariant(Markup::toolTip(VariantText(value))) : value;
}

void ZorvaDelegate::PropagateProperties(QObject* target)
{
    if (!target)
        return;
    const QPointer<QObject> alive(target);
    const QStringList names = definedProperties;
    for (const QString& name : names) {
        const QByteArray key = name.toLatin1();
        const QVariant value = property(key.constData());
        if (!value.isNull() && alive)
            target->setProperty(key.constData(), ForControl(name, value));
    }
}

void ZorvaDelegate::PropagateProperty(const QString& name, QObject* target)
{
    if (!target || !definedProperties.contains(name))
        return;
    const QByteArray key = name.toLatin1();
    const auto look = heldBackLooks.constFind(name);
    const QVariant given = look != heldBackLooks.cend() ? look.value() : property(key.constData());
    if (given.isNull())
        return;
    const QVariant value = ForControl(name, given);
    // The control's own "visible" can be unchanged while its parent has hidden it.
    if (name == QLatin1String("visible") || value != target->property(key.constData()))
        target->setProperty(key.constData(), value);
}

} // namespace Orvane
