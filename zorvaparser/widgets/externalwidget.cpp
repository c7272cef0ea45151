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
    // Nothing can lie in itself.
    if (!externalWidget || externalWidget->isAncestorOf(layout->parentWidget()))
        return;
    ZorvaDelegate::CreateGUI(layout);
    // Before "visible" reaches it: the widget must not flash up as a window.
    externalWidget->setParent(layout->parentWidget());
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
    // A widget that waits for its row is a window still; the row will show it. A window
    // that the host shows already is hidden at once.
    const bool isShowing = name == QLatin1String("visible") && value.toBool();
    if (isShowing && externalWidget && externalWidget->isWindow())
        return;
    PropagateProperty(name, externalWidget);
}

} // namespace Orvane
