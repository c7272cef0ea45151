#include "zorvadoublespinbox.h"

#include <zorvaparser/numbertext_p.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaDoubleSpinBox::ZorvaDoubleSpinBox(ZorvaWidget* owner)
    : ZorvaSpinRow(owner)
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
    MakeValue(numericValue, spinControl);
}

void ZorvaDoubleSpinBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    PlaceSpin(layout, spinControl, numericValue, ControlName(), &ZorvaDoubleSpinBox::SetDoubleTooltip);
}

void ZorvaDoubleSpinBox::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    const int decimals = Decimals();
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
    if (name == QLatin1String("value") && numericValue)
        numericValue->SetValue(value.toDouble(), this);
    FollowLimits(name, numericValue, spinControl, &ZorvaDoubleSpinBox::SetDoubleTooltip);
    FollowFraction(name, numericValue, spinControl);
    FollowText(name, value, spinControl);
}

void ZorvaDoubleSpinBox::setFocus()
{
    FocusControl(spinControl);
}

} // namespace Orvane
