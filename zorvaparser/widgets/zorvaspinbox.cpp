#include "zorvaspinbox.h"

#include <QXmlStreamReader>

namespace Orvane {

ZorvaSpinBox::ZorvaSpinBox(ZorvaWidget* owner)
    : ZorvaSpinRow(owner)
    , numericValue(nullptr)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("minimum"));
    DefineProperty(QStringLiteral("maximum"));
    DefineProperty(QStringLiteral("specialValueText"));
    DefineProperty(QStringLiteral("displayAdditiveOffset"));
}

ZorvaSpinBox::~ZorvaSpinBox()
{
    ZorvaSpinBox::LetValuesGo();
}

void ZorvaSpinBox::LetValuesGo()
{
    ReleaseValue(numericValue);
}

void ZorvaSpinBox::CreateValueTree()
{
    MakeValue(numericValue, spinControl);
}

void ZorvaSpinBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    const QString name = numericValue ? numericValue->GetName() : ControlName();
    PlaceSpin(layout, spinControl, numericValue, name, &ZorvaSpinBox::SetIntTooltip);
}

void ZorvaSpinBox::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, QString::number(GetInt("value", 0)), true);
}

void ZorvaSpinBox::ReadXml(QXmlStreamReader& reader)
{
    const int number = reader.readElementText().toInt();
    if (SetProperty("value", number))
        Raise(&ZorvaSpinBox::valueChanged, number);
}

values::ValueBase* ZorvaSpinBox::GetVTValue() const
{
    return numericValue;
}

void ZorvaSpinBox::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(numericValue, observable, code))
        return;
    const int number = numericValue->GetValue();
    AnswerChange("value", number, Signal(&ZorvaSpinBox::valueChanged, number),
                 Signal(&ZorvaSpinBox::editingFinished));
}

void ZorvaSpinBox::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("value") && numericValue)
        numericValue->SetValue(GetInt(name, 0), this);
    FollowLimits(name, numericValue, spinControl, &ZorvaSpinBox::SetIntTooltip);
    FollowText(name, value, spinControl);
}

void ZorvaSpinBox::setFocus()
{
    FocusControl(spinControl);
}

} // namespace Orvane
