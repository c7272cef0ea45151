#include "zorvaspinboxlist.h"

#include "listxml_p.h"
#include "spincontrol.h"
#include "valuelist_p.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaSpinBoxList::ZorvaSpinBoxList(ZorvaWidget* owner)
    : ZorvaDelegate(owner)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("specialValueText"));
}

ZorvaSpinBoxList::~ZorvaSpinBoxList()
{
    ZorvaSpinBoxList::LetValuesGo();
    DropLater(container);
}

void ZorvaSpinBoxList::LetValuesGo()
{
    ReleaseValues(values, this);
}

void ZorvaSpinBoxList::CreateValueTree()
{
    LetValuesGo();
    const int count = SpinListCount(GetInt("itemCount", 0));
    for (int i = 0; i < count; ++i) {
        if (auto* const value = ObserveValue(CreateValueNumericInt(QStringLiteral("value"), i)))
            values.append(value);
    }
    BindSpinControls(controls, values);
}

void ZorvaSpinBoxList::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    controls.clear();
    container = CreateSpinContainer(widget->GetName());
    for (int i = 0; i < values.count(); ++i) {
        const QString name = ControlName() + QLatin1Char('_') + QString::number(i);
        auto* const control = CreateSpinControl(*this, values.at(i), layout->parentWidget(), name);
        PropagateProperties(control);
        SetIntTooltip(control);
        container->layout()->addWidget(control);
        NameControl(control, QString::number(i + 1));
        controls.append(control);
    }
    layout->addList();
    PlaceControl(layout, container);
}

void ZorvaSpinBoxList::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithUnit);
    for (int i = 0; i < values.count(); ++i)
        itemWriter.write({{QLatin1String("index"), QString::number(i)}}, values.at(i)->GetStringValue());
    writer.writeEndElement();
}

void ZorvaSpinBoxList::ReadXml(QXmlStreamReader& reader)
{
    const RowWatch row(*this);
    readIndexedItems(reader, [this](int index, const QString& text) { setItemValue(index, text.toInt()); });
}

void ZorvaSpinBoxList::Update(Observable* observable, TChangeCode code)
{
    const int index = PositionOf(values, observable);
    if (index < 0)
        return;
    if (code != ChangeCode::Content)
        ForgetValueAt(values, index, code, this);
    else if (Raise(&ZorvaSpinBoxList::valueChanged, index, values.at(index)->GetValue()))
        MarkModified();
}

void ZorvaSpinBoxList::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    for (const auto& control : qAsConst(controls))
        PropagateProperty(name, control);
}

bool ZorvaSpinBoxList::isEnabled(int index)
{
    const auto control = controls.value(index);
    return control && control->isEnabled();
}

void ZorvaSpinBoxList::setEnabled(int index, bool flag)
{
    if (const auto control = controls.value(index))
        control->setEnabled(flag);
}

int ZorvaSpinBoxList::itemValue(int index)
{
    const auto* const value = values.value(index);
    return value ? value->GetValue() : 0;
}

void ZorvaSpinBoxList::setItemValue(int index, int number)
{
    // Without an originator this row hears of the change and marks itself.
    if (auto* const value = values.value(index))
        value->SetValue(number, nullptr);
}

void ZorvaSpinBoxList::setDisplayAdditiveOffset(int value)
{
    ChangeProperty("displayAdditiveOffset", value);
}

void ZorvaSpinBoxList::setMaximum(int value)
{
    ChangeProperty("maximum", value);
}

void ZorvaSpinBoxList::setMinimum(int value)
{
    ChangeProperty("minimum", value);
}

void ZorvaSpinBoxList::setPrefix(QString value)
{
    ChangeProperty("prefix", value);
}

void ZorvaSpinBoxList::setSingleStep(int value)
{
    ChangeProperty("singleStep", value);
}

void ZorvaSpinBoxList::setSpecialValueText(QString value)
{
    ChangeProperty("specialValueText", value);
}

void ZorvaSpinBoxList::setSuffix(QString value)
{
    ChangeProperty("suffix", value);
}

void ZorvaSpinBoxList::setUnit(QString value)
{
    ChangeProperty("unit", value);
}

void ZorvaSpinBoxList::setValue(int value)
{
    ChangeProperty("value", value);
}

void ZorvaSpinBoxList::setWrapping(bool flag)
{
    ChangeProperty("wrapping", flag);
}

void ZorvaSpinBoxList::setFocus()
{
    FocusControl(controls.value(0));
}

} // namespace Orvane
