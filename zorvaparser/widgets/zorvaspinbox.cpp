#include "zorvaspinbox.h"

#include "spincontrol.h"

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <layout/floatgrouplayout.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaSpinBox::ZorvaSpinBox(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
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
    LetValuesGo();
    numericValue = ObserveValue(CreateValueNumericInt(QStringLiteral("value"), -1));
    if (spinControl)
        spinControl->SetNumericValue(numericValue);
}

void ZorvaSpinBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    const QString name = numericValue ? numericValue->GetName() : ControlName();
    spinControl = CreateSpinControl(*this, numericValue, layout->parentWidget(), name);
    PropagateProperties(spinControl);
    SetIntTooltip(spinControl);
    PlaceControl(layout, spinControl);
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
    if (name == QLatin1String("value")) {
        if (numericValue)
            numericValue->SetValue(GetInt(name, 0), this);
    } else if (name == QLatin1String("minimum") || name == QLatin1String("maximum")) {
        ConfigureRowValue(numericValue);
        SetIntTooltip(spinControl);
    } else if (name == QLatin1String("singleStep")) {
        ConfigureRowValue(numericValue);
    }
    ApplySpinText(spinControl, name, value);
    PropagateProperty(name, spinControl);
}

void ZorvaSpinBox::setDisplayAdditiveOffset(int value)
{
    ChangeProperty("displayAdditiveOffset", value);
}

void ZorvaSpinBox::setMaximum(int value)
{
    ChangeProperty("maximum", value);
}

void ZorvaSpinBox::setMinimum(int value)
{
    ChangeProperty("minimum", value);
}

void ZorvaSpinBox::setPrefix(QString value)
{
    ChangeProperty("prefix", value);
}

void ZorvaSpinBox::setSingleStep(int value)
{
    ChangeProperty("singleStep", value);
}

void ZorvaSpinBox::setSpecialValueText(QString value)
{
    ChangeProperty("specialValueText", value);
}

void ZorvaSpinBox::setSuffix(QString value)
{
    ChangeProperty("suffix", value);
}

void ZorvaSpinBox::setUnit(QString value)
{
    ChangeProperty("unit", value);
}

void ZorvaSpinBox::setValue(int value)
{
    ChangeProperty("value", value);
}

void ZorvaSpinBox::setWrapping(bool flag)
{
    ChangeProperty("wrapping", flag);
}

void ZorvaSpinBox::setFocus()
{
    FocusControl(spinControl);
}

} // namespace Orvane
