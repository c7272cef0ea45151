#include "zorvacheckbox.h"

#include <basicvaluewidgets/vccheckbox.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvawidget.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaCheckBox::ZorvaCheckBox(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , booleanValue(nullptr)
{
}

ZorvaCheckBox::~ZorvaCheckBox()
{
    ZorvaCheckBox::LetValuesGo();
}

void ZorvaCheckBox::LetValuesGo()
{
    ReleaseValue(booleanValue);
}

void ZorvaCheckBox::CreateValueTree()
{
    LetValuesGo();
    booleanValue = ObserveValue(CreateValueBoolean(QStringLiteral("checked")));
    if (checkBox)
        checkBox->SetBoolean(booleanValue);
}

void ZorvaCheckBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    checkBox = new VCCheckBox(layout->parentWidget(), nullptr);
    checkBox->setObjectName(widget->GetName());
    checkBox->SetBoolean(booleanValue);
    PropagateProperties(checkBox);
    if (checkBox->toolTip().isEmpty())
        checkBox->setToolTip(FallbackToolTip());
    PlaceControl(layout, checkBox);
}

void ZorvaCheckBox::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    const bool checked = property("checked").toBool();
    const QString text = checked ? CheckedText() : GetString("uncheckedValue", QStringLiteral("false"));
    WriteTextElement(writer, text, false);
}

void ZorvaCheckBox::ReadXml(QXmlStreamReader& reader)
{
    const bool checked = reader.readElementText() == CheckedText();
    if (SetProperty("checked", checked))
        Raise(&ZorvaCheckBox::toggled, checked);
}

values::ValueBase* ZorvaCheckBox::GetVTValue() const
{
    return booleanValue;
}

void ZorvaCheckBox::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(booleanValue, observable, code))
        return;
    const bool checked = booleanValue->GetValue();
    AnswerChange("checked", checked, Signal(&ZorvaCheckBox::toggled, checked));
}

void ZorvaCheckBox::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("checked") && booleanValue)
        booleanValue->SetValue(value.toBool(), this);
    PropagateProperty(name, checkBox);
}

QString ZorvaCheckBox::CheckedText() const
{
    return GetString("checkedValue", QStringLiteral("true"));
}

void ZorvaCheckBox::setChecked(bool checked)
{
    ChangeProperty("checked", checked);
}

void ZorvaCheckBox::setCheckedValue(QString checkedValue)
{
    ChangeProperty("checkedValue", checkedValue);
}

void ZorvaCheckBox::setUncheckedValue(QString uncheckedValue)
{
    ChangeProperty("uncheckedValue", uncheckedValue);
}

void ZorvaCheckBox::setFocus()
{
    FocusControl(checkBox);
}

} // namespace Orvane
