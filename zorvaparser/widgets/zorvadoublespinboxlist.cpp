#include "zorvadoublespinboxlist.h"

#include "listxml_p.h"
#include "spincontrol.h"
#include "valuelist_p.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/numbertext_p.h>
#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaDoubleSpinBoxList::ZorvaDoubleSpinBoxList(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
    , inputEnabled(true)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("specialValueText"));
}

ZorvaDoubleSpinBoxList::~ZorvaDoubleSpinBoxList()
{
    ZorvaDoubleSpinBoxList::LetValuesGo();
    DropLater(container);
}

int ZorvaDoubleSpinBoxList::ItemCount() const
{
    const QString name =
        property("itemCount").isNull() ? QStringLiteral("shiftCount") : QStringLiteral("itemCount");
    return SpinListCount(GetInt(name, 0));
}

void ZorvaDoubleSpinBoxList::LetValuesGo()
{
    ReleaseValues(values, this);
}

void ZorvaDoubleSpinBoxList::CreateValueTree()
{
    LetValuesGo();
    const int count = ItemCount();
    for (int i = 0; i < count; ++i) {
        if (auto* const value = ObserveValue(CreateValueNumericFloat(QStringLiteral("value"), i)))
            values.append(value);
    }
    BindSpinControls(controls, values);
}

void ZorvaDoubleSpinBoxList::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    controls.clear();
    enabledStates.clear();
    container = CreateSpinContainer(widget->GetName());
    for (int i = 0; i < values.count(); ++i) {
        const QString name = ControlName() + QLatin1Char('_') + QString::number(i);
        auto* const control = CreateSpinControl(*this, values.at(i), layout->parentWidget(), name);
        PropagateProperties(control);
        SetDoubleTooltip(control);
        container->layout()->addWidget(control);
        NameControl(control, QString::number(i + 1));
        controls.append(control);
        enabledStates.append(true);
    }
    layout->addList();
    PlaceControl(layout, container);
}

void ZorvaDoubleSpinBoxList::EnableInput(bool enable, bool restricted)
{
    ZorvaDelegate::EnableInput(enable, restricted);
    inputEnabled = enable;
    if (!enable)
        return;
    for (int i = 0; i < enabledStates.count(); ++i)
        setEnabled(i, enabledStates.at(i));
}

void ZorvaDoubleSpinBoxList::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithUnit);
    const int decimals = DecimalsOf(*this);
    for (int i = 0; i < values.count(); ++i) {
        const QString text = fixedText(values.at(i)->GetValue(), decimals);
        itemWriter.write({{QLatin1String("index"), QString::number(i)}}, text);
    }
    writer.writeEndElement();
}

void ZorvaDoubleSpinBoxList::ReadXml(QXmlStreamReader& reader)
{
    const RowWatch row(*this);
    readIndexedItems(reader,
                     [this](int index, const QString& text) { setItemValue(index, text.toDouble()); });
}

void ZorvaDoubleSpinBoxList::Update(Observable* observable, TChangeCode code)
{
    const int index = PositionOf(values, observable);
    if (index < 0)
        return;
    if (code != ChangeCode::Content) {
        ForgetValueAt(values, index, code, this);
        return;
    }
    const double number = values.at(index)->GetValue();
    if (Raise(&ZorvaDoubleSpinBoxList::valueChanged, index, number) &&
        Raise(&ZorvaDoubleSpinBoxList::shiftValueChanged, index, number))
        MarkModified();
}

void ZorvaDoubleSpinBoxList::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    for (const auto& control : qAsConst(controls))
        PropagateProperty(name, control);
}

bool ZorvaDoubleSpinBoxList::isEnabled(int index)
{
    const auto control = controls.value(index);
    return control && control->isEnabled();
}

void ZorvaDoubleSpinBoxList::setEnabled(int index, bool flag)
{
    if (index < 0 || index >= controls.count())
        return;
    if (inputEnabled && controls.at(index))
        controls.at(index)->setEnabled(flag);
    enabledStates[index] = flag;
}

double ZorvaDoubleSpinBoxList::itemValue(int index)
{
    const auto* const value = values.value(index);
    return value ? value->GetValue() : 0.0;
}

void ZorvaDoubleSpinBoxList::setItemValue(int index, double number)
{
    // Without an originator this row hears of the change and marks itself.
    if (auto* const value = values.value(index))
        value->SetValue(number, nullptr);
}

double ZorvaDoubleSpinBoxList::shiftValue(int index)
{
    return itemValue(index);
}

void ZorvaDoubleSpinBoxList::setShiftValue(int index, double value)
{
    setItemValue(index, value);
}

void ZorvaDoubleSpinBoxList::setDecimals(int value)
{
    ChangeProperty("decimals", value);
}

void ZorvaDoubleSpinBoxList::setDisplayScalingFactor(double value)
{
    ChangeProperty("displayScalingFactor", value);
}

void ZorvaDoubleSpinBoxList::setItemCount(int value)
{
    ChangeProperty("itemCount", value);
}

void ZorvaDoubleSpinBoxList::setShiftCount(int value)
{
    ChangeProperty("shiftCount", value);
}

void ZorvaDoubleSpinBoxList::setMaximum(double value)
{
    ChangeProperty("maximum", value);
}

void ZorvaDoubleSpinBoxList::setMinimum(double value)
{
    ChangeProperty("minimum", value);
}

void ZorvaDoubleSpinBoxList::setPrefix(QString value)
{
    ChangeProperty("prefix", value);
}

void ZorvaDoubleSpinBoxList::setSingleStep(double value)
{
    ChangeProperty("singleStep", value);
}

void ZorvaDoubleSpinBoxList::setSpecialValueText(QString value)
{
    ChangeProperty("specialValueText", value);
}

void ZorvaDoubleSpinBoxList::setSuffix(QString value)
{
    ChangeProperty("suffix", value);
}

void ZorvaDoubleSpinBoxList::setUnit(QString value)
{
    ChangeProperty("unit", value);
}

void ZorvaDoubleSpinBoxList::setValue(double value)
{
    ChangeProperty("value", value);
}

void ZorvaDoubleSpinBoxList::setWrapping(bool flag)
{
    ChangeProperty("wrapping", flag);
}

void ZorvaDoubleSpinBoxList::setFocus()
{
    FocusControl(controls.value(0));
}

} // namespace Orvane
