#include "zorvahidden.h"

#include <QXmlStreamReader>

namespace Orvane {

ZorvaHidden::ZorvaHidden(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , value(nullptr)
{
}

ZorvaHidden::~ZorvaHidden()
{
    ZorvaHidden::LetValuesGo();
}

void ZorvaHidden::LetValuesGo()
{
    ReleaseValue(value);
}

void ZorvaHidden::CreateValueTree()
{
    LetValuesGo();
    value = ObserveValue(CreateValueString(QStringLiteral("value")));
}

void ZorvaHidden::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, PropertyText("value"), false);
}

void ZorvaHidden::ReadXml(QXmlStreamReader& reader)
{
    const QString text = reader.readElementText();
    if (text == PropertyText("value"))
        return;
    // With a value this tells twice, and marks: what was read is sent back.
    if (SetProperty("value", text))
        Raise(&ZorvaHidden::valueChanged, text);
}

values::ValueBase* ZorvaHidden::GetVTValue() const
{
    return value;
}

void ZorvaHidden::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(value, observable, code))
        return;
    const QString text = value->GetValue();
    if (TakeContent("value", text))
        Raise(&ZorvaHidden::valueChanged, text);
}

void ZorvaHidden::PropertyChanged(const QString& name, const QVariant& newValue)
{
    ZorvaDelegate::PropertyChanged(name, newValue);
    if (name != QLatin1String("value") || !value)
        return;
    const QString text = VariantText(newValue);
    if (text == value->GetValue())
        return;
    value->SetValue(text, this);
    if (MarkModified())
        Raise(&ZorvaHidden::valueChanged, text);
}

void ZorvaHidden::setValue(QString text)
{
    ChangeProperty("value", text);
}

} // namespace Orvane
