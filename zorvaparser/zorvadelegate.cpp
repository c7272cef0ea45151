#include "zorvadelegate.h"

#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>

#include <QCoreApplication>
#include <QXmlStreamWriter>

namespace Orvane {

ZorvaDelegate::ZorvaDelegate(ZorvaWidget* owningWidget)
    : widget(owningWidget)
    , applyMode(static_cast<eApplyMode>(0))
    , generateParameterXml(false)
    , modified(false)
    , groupVisible(true)
{
    // One list for all rows: it is shared until a kind defines more.
    static const QStringList baseProperties{QStringLiteral("enabled"), QStringLiteral("readOnly"),
                                            QStringLiteral("visible"), QStringLiteral("toolTip")};
    definedProperties = baseProperties;
}

ZorvaDelegate::~ZorvaDelegate() = default;

void ZorvaDelegate::CreateValueTree() {}

void ZorvaDelegate::ResyncValueTree()
{
    if (ErrorHandler::Traces(ErrorHandler::TraceNotes))
        _Q_Trace(QStringLiteral("ResyncValueTree empty implementation for %1").arg(xmlTagName),
                 QStringLiteral("zorvadelegate"), __LINE__);
}

void ZorvaDelegate::CreateGUI(FloatGroupLayout* layout)
{
    const QString text = PropertyText("labelText");
    if (text.isEmpty())
        return;
    label = layout->addLabel(Translate(text), nullptr);
    label->setObjectName(QStringLiteral("label") + widget->GetName());
    if (!property("visible").toBool())
        label->hide();
}

void ZorvaDelegate::Retranslate()
{
    if (label)
        Markup::show(label, Translate(PropertyText("labelText")));
}

void ZorvaDelegate::GetXml(QXmlStreamWriter&) const {}

void ZorvaDelegate::ReadXml(QXmlStreamReader&) {}

values::ValueBase* ZorvaDelegate::GetVTValue() const
{
    return nullptr;
}

void ZorvaDelegate::EnableInput(bool enable, bool)
{
    QVariant off(false);
    EnableProperty(QStringLiteral("enabled"), enable, &off);
}

void ZorvaDelegate::setApplyMode(eApplyMode mode)
{
    applyMode = mode;
}

void ZorvaDelegate::setEnabled(bool flag)
{
    setProperty("enabled", flag);
}

void ZorvaDelegate::setGenerateParameterXml(bool flag)
{
    setProperty("generateParameterXml", flag);
}

void ZorvaDelegate::setReadOnly(bool flag)
{
    setProperty("readOnly", flag);
}

void ZorvaDelegate::setVisible(bool flag)
{
    setProperty("visible", flag);
}

void ZorvaDelegate::setLabelText(QString text)
{
    ChangeProperty("labelText", text);
}

void ZorvaDelegate::setCustomProperty(QString name, QVariant value)
{
    if (value == customProperty(name))
        return;
    customProperties.insert(name, value);
    Q_EMIT customPropertyChanged(name, value);
}

void ZorvaDelegate::setGroupVisible(bool flag)
{
    if (flag == groupVisible)
        return;
    groupVisible = flag;
    QVariant hidden(false);
    EnableProperty(QStringLiteral("visible"), flag, &hidden);
}

void ZorvaDelegate::setFocus() {}

void ZorvaDelegate::setModified(bool autoApply)
{
    if (!generateParameterXml)
        return;
    modified = true;
    if (ZorvaSheet* const sheet = GetSheet())
        sheet->setModified(autoApply);
}

void ZorvaDelegate::resetModified()
{
    modified = false;
}

void ZorvaDelegate::forceFinishEditing() {}

QVariant ZorvaDelegate::customProperty(QString name)
{
    return customProperties.value(name, QVariant());
}

void ZorvaDelegate::Update(Observable*, TChangeCode) {}

bool ZorvaDelegate::isEnabled()
{
    return property("enabled").toBool();
}

bool ZorvaDelegate::isGroupVisible()
{
    return groupVisible;
}

bool ZorvaDelegate::isModified()
{
    return modified;
}

QString ZorvaDelegate::Translate(const QString& text)
{
    return QCoreApplication::translate(objectName().toLatin1().constData(), text.toUtf8().constData(),
                                       nullptr, -1);
}

void ZorvaDelegate::WriteUnitAttribute(QXmlStreamWriter& writer) const
{
    const QString unit = PropertyText("unit");
    if (!unit.isEmpty())
        writer.writeAttribute(QStringLiteral("unit"), unit);
}

bool ZorvaDelegate::MarkModified()
{
    const QPointer<ZorvaDelegate> alive(this);
    setModified(true);
    return alive;
}

void ZorvaDelegate::PlaceControl(FloatGroupLayout* layout, QWidget* control)
{
    layout->addWidget(control);
    layout->addGroup();
}

QString ZorvaDelegate::FallbackToolTip()
{
    return Markup::toolTip(label ? GetTranslated("labelText") : widget->GetXmlTagName());
}

void ZorvaDelegate::FocusControl(QWidget* control)
{
    if (control)
        control->setFocus(Qt::OtherFocusReason);
}

void ZorvaDelegate::WriteTextElement(QXmlStreamWriter& writer, const QString& text, bool withUnit) const
{
    writer.writeStartElement(GetXmlTagName());
    if (withUnit)
        WriteUnitAttribute(writer);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

const QString& ZorvaDelegate::ControlName() const
{
    return widget->GetName();
}

ZorvaSheet* ZorvaDelegate::GetSheet() const
{
    return widget ? widget->GetSheet() : nullptr;
}

ZorvaFormular* ZorvaDelegate::GetFormular() const
{
    return widget ? widget->GetFormular() : nullptr;
}

} // namespace Orvane
