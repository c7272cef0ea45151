#include "zorvalineedit.h"

#include <basicvaluewidgets/vclineedit.h>
#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <zorvaparser/zorvasheet.h>

#include <QXmlStreamReader>

namespace Orvane {

ZorvaLineEdit::ZorvaLineEdit(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , textValue(nullptr)
{
    DefineProperty(QStringLiteral("inputMask"));
    DefineProperty(QStringLiteral("maxLength"));
}

ZorvaLineEdit::~ZorvaLineEdit()
{
    ZorvaLineEdit::LetValuesGo();
}

void ZorvaLineEdit::LetValuesGo()
{
    ReleaseValue(textValue);
}

void ZorvaLineEdit::CreateValueTree()
{
    LetValuesGo();
    textValue = ObserveValue(CreateValueString(QStringLiteral("text")));
    if (lineEdit)
        lineEdit->SetValueBase(textValue);
}

void ZorvaLineEdit::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    lineEdit = new VCLineEdit(layout->parentWidget(), nullptr, static_cast<VCLineEdit::LineEditType>(0));
    lineEdit->setObjectName(ControlName());
    lineEdit->SetValueBase(textValue);
    PropagateProperties(lineEdit);
    // The caption wins over a tool tip of the description here.
    lineEdit->setToolTip(Markup::toolTip(GetTranslated("labelText")));
    PlaceControl(layout, lineEdit);
    connect(lineEdit, &VCLineEdit::signalTextFinallyChanged, this, &ZorvaLineEdit::SlotTextFinallyChanged);
    connect(lineEdit, &QLineEdit::textEdited, this, &ZorvaLineEdit::SlotTextEdited);
    connect(lineEdit, &QLineEdit::returnPressed, this, &ZorvaLineEdit::SlotReturnPressed);
    Relay(lineEdit, &QLineEdit::textChanged, &ZorvaLineEdit::textChanged);
}

void ZorvaLineEdit::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, PropertyText("text"), true);
}

void ZorvaLineEdit::ReadXml(QXmlStreamReader& reader)
{
    const QString newText = reader.readElementText();
    if (SetProperty("text", newText))
        Raise(&ZorvaLineEdit::textChanged, newText);
}

values::ValueBase* ZorvaLineEdit::GetVTValue() const
{
    return textValue;
}

void ZorvaLineEdit::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(textValue, observable, code))
        return;
    const QString newText = textValue->GetValue();
    // A text from elsewhere is no user's edit: no auto-apply.
    if (TakeContent("text", newText) && Raise(&ZorvaLineEdit::textChanged, newText))
        MarkModified(false);
}

void ZorvaLineEdit::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("text") && textValue)
        textValue->SetValue(VariantText(value), this);
    PropagateProperty(name, lineEdit);
}

QString ZorvaLineEdit::inputMask()
{
    return PropertyText("inputMask");
}

QString ZorvaLineEdit::text()
{
    return PropertyText("text");
}

int ZorvaLineEdit::maxLength() const
{
    return GetInt("maxLength", 0);
}

bool ZorvaLineEdit::isEnabled() const
{
    return property("enabled").toBool();
}

bool ZorvaLineEdit::isReadOnly() const
{
    return property("readOnly").toBool();
}

void ZorvaLineEdit::setInputMask(QString inputMask)
{
    ChangeProperty("inputMask", inputMask);
}

void ZorvaLineEdit::setMaxLength(int maxLength)
{
    ChangeProperty("maxLength", maxLength);
}

void ZorvaLineEdit::setText(QString text)
{
    ChangeProperty("text", text);
}

void ZorvaLineEdit::setFocus()
{
    FocusControl(lineEdit);
}

void ZorvaLineEdit::forceFinishEditing()
{
    if (lineEdit)
        lineEdit->endEdit();
}

void ZorvaLineEdit::SlotTextEdited(QString text)
{
    if (MarkModified(false))
        Raise(&ZorvaLineEdit::textEdited, text);
}

void ZorvaLineEdit::SlotTextFinallyChanged(QString value)
{
    const auto take = [&] {
        ChangeProperty("text", value);
        if (textValue)
            textValue->SetValue(value, this);
    };
    if (Watched(take) && Raise(&ZorvaLineEdit::textEdited, value) && Raise(&ZorvaLineEdit::editingFinished))
        MarkModified();
}

void ZorvaLineEdit::SlotReturnPressed()
{
    // A script connected to the signal runs before the apply.
    ApplyAfter(&ZorvaLineEdit::returnPressed);
}

} // namespace Orvane
