#include "zorvacombobox.h"

#include <basicvaluewidgets/vccomboboxclassic.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvawidget.h>

#include <QStandardItemModel>
#include <QXmlStreamReader>

namespace Orvane {

ZorvaComboBox::ZorvaComboBox(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , selectionValue(nullptr)
{
}

ZorvaComboBox::~ZorvaComboBox()
{
    ZorvaComboBox::LetValuesGo();
}

void ZorvaComboBox::LetValuesGo()
{
    ReleaseValue(selectionValue);
}

void ZorvaComboBox::CreateValueTree()
{
    LetValuesGo();
    TakeEnumeration();
    selectionValue = ObserveValue(CreateValueSelection(QStringLiteral("currentValue"), enumeration));
    if (selectionValue)
        selectionValue->SetTranslationNamespace(PropertyText("enumName").toLatin1(), nullptr);
    if (comboBox)
        comboBox->SetValueSelection(selectionValue);
}

void ZorvaComboBox::ResyncValueTree()
{
    TakeEnumeration();
    if (selectionValue)
        RefillSelection();
}

// A row that outlives its form keeps what it had.
void ZorvaComboBox::TakeEnumeration()
{
    if (ZorvaFormular* const formular = GetFormular())
        enumeration = formular->GetEnum(PropertyText("enumName"));
}

void ZorvaComboBox::RefillSelection()
{
    const QString current = selectionValue->GetStringValue();
    // One notice for the whole refill: a control rebuilds its list at each.
    selectionValue->StartTransaction(this);
    selectionValue->DeleteItems(this);
    selectionValue->Reserve(enumeration->GetValueCount());
    for (int i = 0; i < enumeration->GetValueCount(); ++i) {
        const ZorvaEnumValue& entry = enumeration->GetValueAt(i);
        selectionValue->AddItem(entry.GetDisplayName(), entry.GetDoubleValue(i), i + 1, nullptr);
    }
    selectionValue->SetStringValue(current, this);
    selectionValue->EndTransaction(ChangeCode::BulkEnd, this);
}

void ZorvaComboBox::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    comboBox = new VCComboBoxClassic(layout->parentWidget(), nullptr);
    comboBox->setObjectName(widget->GetName());
    comboBox->SetValueSelection(selectionValue);
    comboBox->setToolTip(FallbackToolTip());
    PropagateProperties(comboBox);
    PlaceControl(layout, comboBox);
}

void ZorvaComboBox::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, PropertyText("currentValue"), true);
}

void ZorvaComboBox::ReadXml(QXmlStreamReader& reader)
{
    const QString text = reader.readElementText();
    if (SetProperty("currentValue", text))
        Raise(&ZorvaComboBox::currentValueChanged, text);
}

values::ValueBase* ZorvaComboBox::GetVTValue() const
{
    return selectionValue;
}

void ZorvaComboBox::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(selectionValue, observable, code))
        return;
    const QString text = enumeration->FindName(selectionValue->GetStringValue()).GetValue();
    AnswerChange("currentValue", text, Signal(&ZorvaComboBox::currentValueChanged, text));
}

void ZorvaComboBox::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("currentValue") && selectionValue) {
        bool found = false;
        const ZorvaEnumValue& entry = enumeration->FindValue(VariantText(value), &found);
        if (found)
            selectionValue->Select(entry.GetDisplayName(), this);
        else if (SelectNumber(value))
            return;
    }
    PropagateProperty(name, comboBox);
}

// A text that is no value of the enumeration chooses by number; the property then
// takes the value text of what was chosen.
bool ZorvaComboBox::SelectNumber(const QVariant& value)
{
    if (!value.canConvert(QMetaType::Double) || !selectionValue->Select(value.toDouble(), this, false))
        return false;
    // An observer of the choice may have removed the value.
    if (selectionValue)
        setProperty("currentValue", enumeration->FindName(selectionValue->GetStringValue()).GetValue());
    return true;
}

QString ZorvaComboBox::getCurrentEnumValue()
{
    return PropertyText("currentValue");
}

int ZorvaComboBox::getCurrentIndex() const
{
    return selectionValue ? static_cast<int>(selectionValue->GetCurrentIndex()) : -1;
}

double ZorvaComboBox::getCurrentValue() const
{
    return selectionValue ? selectionValue->GetCurrentValue() : 0.0;
}

quint64 ZorvaComboBox::getValueCount() const
{
    return enumeration ? static_cast<quint64>(enumeration->GetValueCount()) : 0;
}

QString ZorvaComboBox::itemValue(int index)
{
    return enumeration ? enumeration->GetValueAt(index).GetValue() : QString();
}

int ZorvaComboBox::firstIndexOfValue(QString value)
{
    return enumeration ? enumeration->firstIndexOfValue(value) : -1;
}

void ZorvaComboBox::setItemEnabled(const QString& value, bool enabled)
{
    const int index = firstIndexOfValue(value);
    if (index >= 0)
        setItemEnabled(index, enabled);
}

void ZorvaComboBox::setItemEnabled(int index, bool enabled)
{
    const auto model = comboBox ? qobject_cast<QStandardItemModel*>(comboBox->model()) : nullptr;
    QStandardItem* const item = model ? model->item(index, 0) : nullptr;
    if (item)
        item->setFlags(item->flags().setFlag(Qt::ItemIsEnabled, enabled));
}

bool ZorvaComboBox::setMinValueGreaterThanOrEqualTo(double value)
{
    return selectionValue && selectionValue->Select(value, nullptr, false);
}

void ZorvaComboBox::clearCurrentValue()
{
    setCurrentValue(QString());
}

void ZorvaComboBox::setCurrentValue(QString value)
{
    ChangeProperty("currentValue", value);
}

bool ZorvaComboBox::setCurrentIndex(int index)
{
    if (!enumeration || index < 0 || index >= enumeration->GetValueCount())
        return false;
    // Without an originator this row hears of the change like everybody else.
    if (selectionValue)
        selectionValue->SelectIndex(index, nullptr);
    return true;
}

void ZorvaComboBox::setEnumName(QString value)
{
    ChangeProperty("enumName", value);
}

void ZorvaComboBox::setDisplayUnknownValues(bool flag)
{
    ChangeProperty("displayUnknownValues", flag);
}

void ZorvaComboBox::setDisplayAsUnknown(bool flag)
{
    ChangeProperty("displayAsUnknown", flag);
}

void ZorvaComboBox::setFirstValueAsCurrent(QString value)
{
    setCurrentValue(value);
}

void ZorvaComboBox::setFocus()
{
    FocusControl(comboBox);
}

} // namespace Orvane
