#include "spincontrol.h"

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <zorvaparser/bounds_p.h>
#include <zorvaparser/zorvadelegate.h>

#include <QVBoxLayout>
#include <QVariant>
#include <QWidget>

namespace Orvane {

VCNumericFloatSpin* CreateSpinControl(const ZorvaDelegate& row, values::IValueNumeric* value, QWidget* parent,
                                      const QString& name)
{
    auto* const control = new VCNumericFloatSpin(parent, nullptr, true);
    control->setObjectName(name);
    control->setSuffix(row.GetString("suffix", QString()));
    control->setAdditionalPrecision(DecimalsOf(row));
    ConfigureSpinDisplay(row, control);
    control->setFixedWidth(QWIDGETSIZE_MAX);
    control->EnableWrapAround(row.property("wrapping").toBool());
    control->SetNumericValue(value);
    return control;
}

void ConfigureSpinDisplay(const ZorvaDelegate& row, VCNumericFloatSpin* control)
{
    if (!control)
        return;
    control->SetDisplayAdditveOffset(row.GetDouble("displayAdditiveOffset", 0.0));
    control->SetDisplayScalingFactor(row.GetDouble("displayScalingFactor", 1.0));
    control->SetUnitScale(row.GetDouble("unitScale", 1.0));
}

void ApplySpinText(VCNumericFloatSpin* control, const QString& name, const QVariant& value)
{
    if (!control)
        return;
    if (name == QLatin1String("suffix"))
        control->setSuffix(value.toString());
    else if (name == QLatin1String("wrapping"))
        control->EnableWrapAround(value.toBool());
}

QWidget* CreateSpinContainer(const QString& name)
{
    auto* const stack = new QVBoxLayout;
    stack->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    stack->setSpacing(0);
    stack->setContentsMargins(0, 0, 0, 0);
    auto* const container = new QWidget;
    container->setObjectName(name);
    container->setLayout(stack);
    return container;
}

int SpinListCount(int count)
{
    return qMin(count, mostSpinBoxes);
}

int DecimalsOf(const ZorvaDelegate& row)
{
    return qMin(row.GetInt("decimals", 0), lastDecimal);
}

} // namespace Orvane
