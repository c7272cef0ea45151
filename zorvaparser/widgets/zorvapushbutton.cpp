#include "zorvapushbutton.h"

#include "elidingwidgets_p.h"
#include "iconfile_p.h"

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <zorvaparser/zorvawidget.h>

namespace Orvane {

ZorvaPushButton::ZorvaPushButton(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
{
    DefineProperty(QStringLiteral("icon"));
    DefineProperty(QStringLiteral("iconSize"));
}

ZorvaPushButton::~ZorvaPushButton() = default;

void ZorvaPushButton::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    const QString caption = GetTranslated("text");
    pushButton = new ElidingButton(layout->parentWidget());
    pushButton->setObjectName(widget->GetName());
    PropagateProperties(pushButton);
    pushButton->setText(caption);
    layout->addSpecial();
    // The caption wins over a tool tip of the description here.
    pushButton->setToolTip(Markup::toolTip(caption));
    PlaceControl(layout, pushButton);
    RelayClick(pushButton, &ZorvaPushButton::clicked);
    Relay(pushButton, &QAbstractButton::pressed, &ZorvaPushButton::pressed);
    Relay(pushButton, &QAbstractButton::released, &ZorvaPushButton::released);
}

void ZorvaPushButton::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    // A drawing takes the size that it is asked for, and the memory. The funnel comes back with the smaller
    // one.
    if (name == QLatin1String("iconSize") && ChangeProperty("iconSize", boundedIconSize(value)))
        return;
    if (name == QLatin1String("text") && pushButton)
        pushButton->setText(Translate(VariantText(value)));
    UpdateNames();
    PropagateProperty(name, pushButton);
}

void ZorvaPushButton::Retranslate()
{
    ZorvaDelegate::Retranslate();
    if (!pushButton)
        return;
    const QString caption = GetTranslated("text");
    // A script may have given the button another text since; the tool tip says the first one.
    if (pushButton->toolTip() == Markup::toolTip(pushButton->text()))
        pushButton->setToolTip(Markup::toolTip(caption));
    pushButton->setText(caption);
}

void ZorvaPushButton::animateClick()
{
    if (pushButton)
        pushButton->animateClick(100);
}

void ZorvaPushButton::clearIcon()
{
    ChangeProperty("icon", QVariant());
}

void ZorvaPushButton::setIcon(QIcon icon)
{
    ChangeProperty("icon", icon);
}

void ZorvaPushButton::setIcon(QString iconFilePath)
{
    setIcon(iconFromFile(iconFilePath));
}

void ZorvaPushButton::setIconSize(QSize size)
{
    ChangeProperty("iconSize", size);
}

void ZorvaPushButton::setIconSize(int width, int height)
{
    setIconSize(QSize(width, height));
}

void ZorvaPushButton::setText(QString text)
{
    ChangeProperty("text", text);
}

void ZorvaPushButton::setFocus()
{
    FocusControl(pushButton);
}

} // namespace Orvane
