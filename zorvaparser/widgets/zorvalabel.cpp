#include "zorvalabel.h"

#include "elidingwidgets_p.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvawidget.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaLabel::ZorvaLabel(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , textValue(nullptr)
{
}

ZorvaLabel::~ZorvaLabel()
{
    ReleaseValue(textValue);
}

void ZorvaLabel::CreateValueTree()
{
    ReleaseValue(textValue);
    if (generateParameterXml)
        textValue = ObserveValue(CreateValueString(QStringLiteral("text")));
}

void ZorvaLabel::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    textLabel = new ElidingLabel(GetTranslated("text"), layout->parentWidget());
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
    setProperty("text", reader.readElementText());
}

void ZorvaLabel::Update(Observable* observable, TChangeCode code)
{
    ForgetValue(textValue, observable, code);
    if (!IsContentChange(textValue, observable, code))
        return;
    if (ChangeProperty("text", textValue->GetValue()))
        setModified(true);
}

void ZorvaLabel::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("text") && textLabel)
        textLabel->setText(Translate(VariantText(value)));
    PropagateProperty(name, textLabel);
}

void ZorvaLabel::Retranslate()
{
    ZorvaDelegate::Retranslate();
    if (textLabel)
        textLabel->setText(GetTranslated("text"));
}

void ZorvaLabel::setText(QString text)
{
    ChangeProperty("text", text);
}

} // namespace Orvane
