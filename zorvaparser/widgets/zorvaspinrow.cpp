#include "zorvaspinrow.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/bounds_p.h>
#include <zorvaparser/zorvawidget.h>

#include <QVBoxLayout>

namespace Orvane {

int ZorvaSpinRow::Decimals() const
{
    return qMin(GetInt("decimals", 0), lastDecimal);
}

VCNumericFloatSpin* ZorvaSpinRow::CreateSpinControl(values::IValueNumeric* value, QWidget* parent,
                                                    const QString& name) const
{
    auto* const control = new VCNumericFloatSpin(parent, true, SpinDisplay(), value);
    control->setObjectName(name);
    control->setFixedWidth(QWIDGETSIZE_MAX);
    control->EnableWrapAround(property("wrapping").toBool());
    return control;
}

VCNumericFloatSpin::Display ZorvaSpinRow::SpinDisplay() const
{
    return {GetString("suffix", QString()), Decimals(), GetDouble("displayAdditiveOffset", 0.0),
            GetDouble("displayScalingFactor", 1.0), GetDouble("unitScale", 1.0)};
}

void ZorvaSpinRow::ConfigureSpinDisplay(VCNumericFloatSpin* control) const
{
    if (!control)
        return;
    const VCNumericFloatSpin::Display display = SpinDisplay();
    control->SetDisplayAdditveOffset(display.offset);
    control->SetDisplayScalingFactor(display.factor);
    control->SetUnitScale(display.unitScale);
}

void ZorvaSpinRow::Dress(VCNumericFloatSpin* control, RangeToolTip toolTip)
{
    PropagateProperties(control);
    (this->*toolTip)(control);
}

void ZorvaSpinRow::PlaceSpin(FloatGroupLayout* layout, Control& control, values::IValueNumeric* value,
                             const QString& name, RangeToolTip toolTip)
{
    control = CreateSpinControl(value, layout->parentWidget(), name);
    Dress(control, toolTip);
    PlaceControl(layout, control);
}

void ZorvaSpinRow::FollowText(const QString& name, const QVariant& value, const Control& control)
{
    if (control && name == QLatin1String("suffix"))
        control->setSuffix(value.toString());
    else if (control && name == QLatin1String("wrapping"))
        control->EnableWrapAround(value.toBool());
    PropagateProperty(name, control);
}

int ZorvaSpinRow::Bounded(int count)
{
    return qMin(count, mostSpinBoxes);
}

QWidget* ZorvaSpinRow::MakeContainer() const
{
    auto* const stack = new QVBoxLayout;
    stack->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    stack->setSpacing(0);
    stack->setContentsMargins(0, 0, 0, 0);
    auto* const container = new QWidget;
    container->setObjectName(widget->GetName());
    container->setLayout(stack);
    return container;
}

VCNumericFloatSpin* ZorvaSpinRow::StackSpin(FloatGroupLayout* layout, QWidget* container,
                                            values::IValueNumeric* value, int index, RangeToolTip toolTip)
{
    const QString name = ControlName() + QLatin1Char('_') + QString::number(index);
    auto* const control = CreateSpinControl(value, layout->parentWidget(), name);
    Dress(control, toolTip);
    container->layout()->addWidget(control);
    NameControl(control, QString::number(index + 1));
    return control;
}

void ZorvaSpinRow::PlaceContainer(FloatGroupLayout* layout, QWidget* container)
{
    layout->addList();
    PlaceControl(layout, container);
}

void ZorvaSpinRow::FollowProperty(const QString& name, const QList<Control>& controls)
{
    for (const auto& control : controls)
        PropagateProperty(name, control);
}

bool ZorvaSpinRow::IsEnabledAt(const QList<Control>& controls, int index)
{
    const auto control = controls.value(index);
    return control && control->isEnabled();
}

} // namespace Orvane
