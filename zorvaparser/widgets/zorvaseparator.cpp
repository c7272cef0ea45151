#include "zorvaseparator.h"

#include <layout/floatgrouplayout.h>

#include <QGroupBox>

namespace Orvane {

ZorvaSeparator::ZorvaSeparator(ZorvaWidget* owner, bool line)
    : ZorvaDelegate(owner)
    , isLine(line)
{
}

ZorvaSeparator::~ZorvaSeparator() = default;

void ZorvaSeparator::CreateGUI(FloatGroupLayout* layout)
{
    if (isLine)
        spacerWidget = layout->addHeadline(QString(), GetInt("margin", 0), nullptr);
    else
        spacerWidget = layout->addSeparator(GetInt("height", 0), nullptr);
    spacerWidget->setObjectName(ControlName());
    PropagateProperties(spacerWidget);
}

void ZorvaSeparator::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    PropagateProperty(name, spacerWidget);
}

void ZorvaSeparator::setHeight(int value)
{
    ChangeProperty("height", value);
}

void ZorvaSeparator::setMargin(int value)
{
    ChangeProperty("margin", value);
}

} // namespace Orvane
