#include "zorvaint64spinbox.h"

#include <zorvaparser/numericcast_p.h>

#include <QXmlStreamReader>

namespace Orvane {

namespace {

struct UnitStep
{
    qint64 scale;
    const char* suffix;
    int decimals;
};

constexpr UnitStep unitSteps[] = {
    {1, "Hz", 0},
    {1000, "kHz", 3},
    {1000000, "MHz", 6},
    {1000000000, "GHz", 9},
};

} // namespace

ZorvaInt64SpinBox::ZorvaInt64SpinBox(ZorvaWidget* owner)
    : ZorvaSpinRow(owner)
    , numericValue(nullptr)
{
}

ZorvaInt64SpinBox::~ZorvaInt64SpinBox()
{
    ZorvaInt64SpinBox::LetValuesGo();
}

void ZorvaInt64SpinBox::LetValuesGo()
{
    ReleaseValue(numericValue);
}

void ZorvaInt64SpinBox::CreateValueTree()
{
    LetValuesGo();
    ApplyUnitScale();
    MakeValue(numericValue, spinControl);
}

void ZorvaInt64SpinBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    PlaceSpin(layout, spinControl, numericValue, ControlName(), &ZorvaInt64SpinBox::SetInt64Tooltip);
}

void ZorvaInt64SpinBox::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, QString::number(GetInt64("value", 0)), true);
}

void ZorvaInt64SpinBox::ReadXml(QXmlStreamReader& reader)
{
    const qlonglong number = reader.readElementText().toLongLong();
    if (SetProperty("value", number))
        Raise(&ZorvaInt64SpinBox::valueChanged, number);
}

values::ValueBase* ZorvaInt64SpinBox::GetVTValue() const
{
    return numericValue;
}

void ZorvaInt64SpinBox::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(numericValue, observable, code))
        return;
    const double number = numericValue->GetValue();
    AnswerChange("value", number, Signal(&ZorvaInt64SpinBox::valueChanged, truncatedTo<qint64>(number)),
                 Signal(&ZorvaInt64SpinBox::editingFinished));
}

void ZorvaInt64SpinBox::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("value") && numericValue) {
        numericValue->SetValue(value.toDouble(), this);
    } else if (name == QLatin1String("unitScale")) {
        ApplyUnitScale();
        ConfigureSpinDisplay(spinControl);
    }
    FollowLimits(name, numericValue, spinControl, &ZorvaInt64SpinBox::SetInt64Tooltip);
    FollowFraction(name, numericValue, spinControl);
    FollowText(name, value, spinControl);
}

void ZorvaInt64SpinBox::ApplyUnitScale()
{
    const qint64 scale = GetInt64("unitScale", 0);
    for (const UnitStep& step : unitSteps) {
        if (step.scale != scale)
            continue;
        ChangeProperty("suffix", QLatin1String(step.suffix));
        ChangeProperty("decimals", step.decimals);
        return;
    }
}

void ZorvaInt64SpinBox::setUnitScale(QString value)
{
    // Forms rely on it: only the number form of this slot sets another scale.
    if (!value.isEmpty())
        ChangeProperty("unitScale", quint64(1));
}

void ZorvaInt64SpinBox::setFocus()
{
    FocusControl(spinControl);
}

} // namespace Orvane
