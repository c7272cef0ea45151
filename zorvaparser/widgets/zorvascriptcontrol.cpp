#include "zorvascriptcontrol.h"

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>

#include <QIcon>

namespace Orvane {

namespace {

void enableIfThere(QWidget* button, bool enable)
{
    if (button)
        button->setEnabled(enable);
}

void showIfThere(QWidget* button, bool visible)
{
    if (button)
        button->setVisible(visible);
}

} // namespace

ZorvaScriptControl::ZorvaScriptControl(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , scriptLoaded(false)
{
    DefineProperty(QStringLiteral("enabledClear"));
    DefineProperty(QStringLiteral("enabledEdit"));
    DefineProperty(QStringLiteral("enabledLoad"));
    DefineProperty(QStringLiteral("visibleLoad"));
    DefineProperty(QStringLiteral("visibleClear"));
    DefineProperty(QStringLiteral("visibleEdit"));
    connect(this, &ZorvaDelegate::customPropertyChanged, this, &ZorvaScriptControl::sl_customPropertyChanged);
}

void ZorvaScriptControl::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    controlWidget = new QWidget(layout->parentWidget());
    controlWidget->setObjectName(ControlName());
    CreateStatusLabel();
    loadButton = CreateButton("_LoadButton", ":/ZorvaParser/Open.svg", QStringLiteral("Load"));
    loadButton->setMinimumWidth(80);
    editButton = CreateButton("_EditButton", ":/ZorvaParser/Edit.svg", QStringLiteral("Edit"));
    clearButton = CreateButton("ClearButton", ":/ZorvaParser/Clear.svg", QStringLiteral("Clear"));

    controlLayout = new QBoxLayout(QBoxLayout::LeftToRight, controlWidget);
    controlLayout->setContentsMargins(0, 0, 0, 0);
    controlLayout->setSpacing(0);
    controlLayout->addWidget(statusLabel);
    controlLayout->addWidget(loadButton);
    controlLayout->addWidget(editButton);
    controlLayout->addWidget(clearButton);

    layout->addSpecial();
    PlaceControl(layout, controlWidget);
    ConnectButtons();
    // The absent ones too: a button that the description does not mention is off and hidden.
    const QStringList names = definedProperties;
    for (const QString& name : names)
        PropertyChanged(name, property(name.toLatin1().constData()));
}

void ZorvaScriptControl::CreateStatusLabel()
{
    statusLabel = new QLabel(controlWidget);
    statusLabel->setObjectName(ControlName() + QLatin1String("StatusLabel"));
    scriptLoaded = false;
    // Not sooner: a form may be parsed, and its values used, in a program without a screen.
    loadedPixmap = QPixmap(QStringLiteral(":/ZorvaParser/Loaded_ON.png"));
    notLoadedPixmap = QPixmap(QStringLiteral(":/ZorvaParser/Loaded_OFF.png"));
    ShowLight();
}

QPushButton* ZorvaScriptControl::CreateButton(const char* nameSuffix, const char* image, const QString& word)
{
    auto* const button = new QPushButton(controlWidget);
    button->setObjectName(ControlName() + QLatin1String(nameSuffix));
    button->setIcon(QPixmap(QString::fromLatin1(image)));
    button->setToolTip(Markup::toolTip(word + GetTranslated("labelText")));
    NameControl(button, word);
    return button;
}

void ZorvaScriptControl::ConnectButtons()
{
    RelayClick(loadButton, &ZorvaScriptControl::loadScriptClicked);
    RelayClick(editButton, &ZorvaScriptControl::editScriptClicked);
    RelayClick(clearButton, &ZorvaScriptControl::clearScriptClicked);
}

void ZorvaScriptControl::setEnabledClear(bool flag)
{
    enableIfThere(clearButton, flag);
}

void ZorvaScriptControl::setEnabledEdit(bool flag)
{
    enableIfThere(editButton, flag);
}

void ZorvaScriptControl::setEnabledLoad(bool flag)
{
    enableIfThere(loadButton, flag);
}

void ZorvaScriptControl::setVisibleClear(bool flag)
{
    showIfThere(clearButton, flag);
}

void ZorvaScriptControl::setVisibleEdit(bool flag)
{
    showIfThere(editButton, flag);
}

void ZorvaScriptControl::setVisibleLoad(bool flag)
{
    showIfThere(loadButton, flag);
}

void ZorvaScriptControl::sl_customPropertyChanged(QString name, QVariant value)
{
    if (name != QLatin1String("scriptloaded"))
        return;
    scriptLoaded = value.toBool();
    UpdateStatus();
}

void ZorvaScriptControl::ShowLight()
{
    statusLabel->setPixmap(scriptLoaded ? loadedPixmap : notLoadedPixmap);
    statusLabel->setToolTip(scriptLoaded ? tr("Script loaded") : tr("NO Script loaded"));
    statusLabel->setAccessibleName(statusLabel->toolTip());
}

void ZorvaScriptControl::UpdateStatus()
{
    if (statusLabel)
        ShowLight();
    enableIfThere(clearButton, scriptLoaded);
}

void ZorvaScriptControl::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    const bool flag = value.toBool();
    if (name == QLatin1String("enabledClear"))
        setEnabledClear(flag);
    if (name == QLatin1String("enabledEdit"))
        setEnabledEdit(flag);
    if (name == QLatin1String("enabledLoad"))
        setEnabledLoad(flag);
    if (name == QLatin1String("visibleClear"))
        setVisibleClear(flag);
    if (name == QLatin1String("visibleEdit"))
        setVisibleEdit(flag);
    if (name == QLatin1String("visibleLoad"))
        setVisibleLoad(flag);
    PropagateProperty(name, clearButton);
    PropagateProperty(name, editButton);
    PropagateProperty(name, loadButton);
    PropagateProperty(name, statusLabel);
}

} // namespace Orvane
