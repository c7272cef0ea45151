#include "externalwidget.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvawidget.h>

namespace Orvane {

ExternalWidget::ExternalWidget(ZorvaWidget* ownerWidget, QWidget* hostWidget)
    : ZorvaDelegate(ownerWidget)
    , externalWidget(hostWidget)
{
    if (ownerWidget)
        setObjectName(ownerWidget->GetName());
}

void ExternalWidget::CreateGUI(FloatGroupLayout* layout)
{
    if (!externalWidget)
        return;
    ZorvaDelegate::CreateGUI(layout);
    PropagateProperties(externalWidget);
    PlaceControl(layout, externalWidget);
}

void ExternalWidget::setFocus()
{
    FocusControl(externalWidget);
}

void ExternalWidget::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    PropagateProperty(name, externalWidget);
}

} // namespace Orvane
