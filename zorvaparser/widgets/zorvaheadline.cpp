#include "zorvaheadline.h"

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <zorvaparser/rowwatch_p.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvasheet.h>

namespace Orvane {

ZorvaHeadline::ZorvaHeadline(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
{
    UndefineProperty(QStringLiteral("enabled"));
}

ZorvaHeadline::~ZorvaHeadline() = default;

void ZorvaHeadline::CreateGUI(FloatGroupLayout* layout)
{
    // A text whose translation is empty has a head all the same.
    if (PropertyText("text").isEmpty())
        return;
    groupBox = layout->addHeadline(GetTranslated("text"), GetInt("margin", 0), nullptr);
    groupBox->setObjectName(ControlName());
    groupBox->setAlignment(Qt::AlignLeft);
    groupBox->setCheckable(true);
    groupBox->setChecked(groupVisible);
    groupBox->setStyleSheet(
        QStringLiteral("QGroupBox::indicator:unchecked {image: url(:/ZorvaParser/HeadlineClosed.svg);}"
                       "QGroupBox::indicator:checked {image: url(:/ZorvaParser/HeadlineOpened.svg);}"));
    groupBox->setAccessibleName(groupBox->title());
    UpdateToolTip();
    connect(groupBox, &QGroupBox::clicked, this, &ZorvaHeadline::slotClicked);
    PropagateProperties(groupBox);
}

void ZorvaHeadline::EnableInput(bool /*enable*/, bool /*restricted*/) {}

void ZorvaHeadline::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    PropagateProperty(name, groupBox);
}

void ZorvaHeadline::Retranslate()
{
    ZorvaDelegate::Retranslate();
    if (groupBox) {
        groupBox->setTitle(GetTranslated("text"));
        groupBox->setAccessibleName(groupBox->title());
    }
    UpdateToolTip();
}

void ZorvaHeadline::setText(QString text)
{
    ChangeProperty("text", text);
}

void ZorvaHeadline::setMargin(int value)
{
    ChangeProperty("margin", value);
}

void ZorvaHeadline::setGroupVisible(bool flag)
{
    if (flag == groupVisible)
        return;
    groupVisible = flag;
    if (!groupBox)
        return;
    if (Watched([&] { groupBox->setChecked(flag); }))
        UpdateToolTip();
}

void ZorvaHeadline::slotClicked(bool clicked)
{
    const RowWatch row(*this);
    // A row that the host keeps may outlive its form.
    if (ZorvaSheet* const sheet = GetSheet())
        sheet->setGroupVisible(widget, clicked);
    if (ZorvaFormular* const formular = row ? GetFormular() : nullptr)
        formular->ApplyConfiguration();
    if (row)
        UpdateToolTip();
}

void ZorvaHeadline::UpdateToolTip()
{
    if (!groupBox)
        return;
    const QString pattern = Translate(groupVisible ? QStringLiteral("Hide %1") : QStringLiteral("Show %1"));
    groupBox->setToolTip(Markup::toolTip(pattern.arg(PropertyText("text"))));
}

} // namespace Orvane
