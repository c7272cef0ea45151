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
    ReleaseValue(value);
}

void ZorvaHidden::CreateValueTree()
{
    ReleaseValue(value);
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
    setProperty("value", text);
    Q_EMIT valueChanged(text);
}

values::ValueBase* ZorvaHidden::GetVTValue() const
{
    return value;
}

void ZorvaHidden::Update(Observable* observable, TChangeCode code)
{
    ForgetValue(value, observable, code);
    if (!IsContentChange(value, observable, code))
        return;
    const QString text = value->GetValue();
    if (ChangeProperty("value", text))
        Q_EMIT valueChanged(text);
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
        Q_EMIT valueChanged(text);
}

void ZorvaHidden::setValue(QString text)
{
    ChangeProperty("value", text);
}

} // namespace Orvane
