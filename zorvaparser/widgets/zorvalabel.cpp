#include "zorvalabel.h"

#include "elidingwidgets_p.h"

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <zorvaparser/guardedrollback_p.h>
#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaLabel::ZorvaLabel(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , textValue(nullptr)
{
}

ZorvaLabel::~ZorvaLabel()
{
    ZorvaLabel::LetValuesGo();
}

void ZorvaLabel::LetValuesGo()
{
    ReleaseValue(textValue);
}

void ZorvaLabel::CreateValueTree()
{
    LetValuesGo();
    if (generateParameterXml)
        textValue = ObserveValue(CreateValueString(QStringLiteral("text")));
}

void ZorvaLabel::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    textLabel = new ElidingLabel(layout->parentWidget());
    ShowText();
    textLabel->setObjectName(widget->GetName());
    PropagateProperties(textLabel);
    PlaceControl(layout, textLabel);
}

void ZorvaLabel::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, PropertyText("text"), false);
}

void ZorvaLabel::ReadXml(QXmlStreamReader& reader)
{
    const QString text = reader.readElementText();
    const GuardedRollback<RowWatch, bool> report(*this, takesReport, true);
    setProperty("text", text); // in the form in which it came, also if it compares equal
}

void ZorvaLabel::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(textValue, observable, code))
        return;
    if (TakeReport(textValue->GetValue()))
        MarkModified();
}

void ZorvaLabel::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("text")) {
        isReport = takesReport;
        ShowText();
    }
    PropagateProperty(name, textLabel);
}

void ZorvaLabel::Retranslate()
{
    ZorvaDelegate::Retranslate();
    ShowText();
}

// True if the text changed and the row is still there.
bool ZorvaLabel::TakeReport(const QString& text)
{
    const GuardedRollback<RowWatch, bool> report(*this, takesReport, true);
    return ChangeProperty("text", text) && report;
}

void ZorvaLabel::ShowText()
{
    if (!textLabel)
        return;
    const QString text = PropertyText("text");
    const QString shown = text.isEmpty() ? text : Translate(text);
    if (isReport)
        Markup::showPlain(textLabel, shown);
    else
        Markup::show(textLabel, shown);
}

void ZorvaLabel::setText(QString text)
{
    ChangeProperty("text", text);
}

} // namespace Orvane
