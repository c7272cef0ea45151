#include "zorvadoublespinbox.h"

#include "spincontrol.h"

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/numbertext_p.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaDoubleSpinBox::ZorvaDoubleSpinBox(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , numericValue(nullptr)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("minimum"));
    DefineProperty(QStringLiteral("maximum"));
    DefineProperty(QStringLiteral("specialValueText"));
}

ZorvaDoubleSpinBox::~ZorvaDoubleSpinBox()
{
    ZorvaDoubleSpinBox::LetValuesGo();
}

void ZorvaDoubleSpinBox::LetValuesGo()
{
    ReleaseValue(numericValue);
}

void ZorvaDoubleSpinBox::CreateValueTree()
{
    LetValuesGo();
    numericValue = ObserveValue(CreateValueNumericFloat(QStringLiteral("value"), -1));
    if (spinControl)
        spinControl->SetNumericValue(numericValue);
}

void ZorvaDoubleSpinBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    spinControl = CreateSpinControl(*this, numericValue, layout->parentWidget(), ControlName());
    PropagateProperties(spinControl);
    SetDoubleTooltip(spinControl);
    PlaceControl(layout, spinControl);
}

void ZorvaDoubleSpinBox::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    const int decimals = DecimalsOf(*this);
    const double number = property("value").toDouble();
    QString text = fixedText(number, decimals);
    // With one decimal, and only then, a whole number goes without its point.
    if (decimals == 1 && text.contains(QLatin1String(".0")))
        text = fixedText(number, 0);
    WriteTextElement(writer, text, true);
}

void ZorvaDoubleSpinBox::ReadXml(QXmlStreamReader& reader)
{
    const double number = reader.readElementText().toDouble();
    if (SetProperty("value", number))
        Raise(&ZorvaDoubleSpinBox::valueChanged, number);
}

values::ValueBase* ZorvaDoubleSpinBox::GetVTValue() const
{
    return numericValue;
}

void ZorvaDoubleSpinBox::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(numericValue, observable, code))
        return;
    const double number = numericValue->GetValue();
    AnswerChange("value", number, Signal(&ZorvaDoubleSpinBox::valueChanged, number),
                 Signal(&ZorvaDoubleSpinBox::editingFinished));
}

void ZorvaDoubleSpinBox::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("value")) {
        if (numericValue)
            numericValue->SetValue(value.toDouble(), this);
    } else if (name == QLatin1String("minimum") || name == QLatin1String("maximum")) {
        ConfigureRowValue(numericValue);
        SetDoubleTooltip(spinControl);
    } else if (name == QLatin1String("singleStep") || name == QLatin1String("displayScalingFactor")) {
        ConfigureRowValue(numericValue);
    } else if (name == QLatin1String("decimals") && spinControl) {
        spinControl->setAdditionalPrecision(DecimalsOf(*this));
    }
    ApplySpinText(spinControl, name, value);
    PropagateProperty(name, spinControl);
}

void ZorvaDoubleSpinBox::setDecimals(int value)
{
    ChangeProperty("decimals", value);
}

void ZorvaDoubleSpinBox::setDisplayScalingFactor(double value)
{
    ChangeProperty("displayScalingFactor", value);
}

void ZorvaDoubleSpinBox::setMaximum(double value)
{
    ChangeProperty("maximum", value);
}

void ZorvaDoubleSpinBox::setMinimum(double value)
{
    ChangeProperty("minimum", value);
}

void ZorvaDoubleSpinBox::setPrefix(QString value)
{
    ChangeProperty("prefix", value);
}

void ZorvaDoubleSpinBox::setSingleStep(double value)
{
    ChangeProperty("singleStep", value);
}

void ZorvaDoubleSpinBox::setSpecialValueText(QString value)
{
    ChangeProperty("specialValueText", value);
}

void ZorvaDoubleSpinBox::setSuffix(QString value)
{
    ChangeProperty("suffix", value);
}

void ZorvaDoubleSpinBox::setUnit(QString value)
{
    ChangeProperty("unit", value);
}

void ZorvaDoubleSpinBox::setValue(double value)
{
    ChangeProperty("value", value);
}

void ZorvaDoubleSpinBox::setWrapping(bool flag)
{
    ChangeProperty("wrapping", flag);
}

void ZorvaDoubleSpinBox::setFocus()
{
    FocusControl(spinControl);
}

} // namespace Orvane
