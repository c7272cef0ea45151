#include "zorvadoublespinboxlist.h"

#include "listxml_p.h"

#include <zorvaparser/numbertext_p.h>
#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaDoubleSpinBoxList::ZorvaDoubleSpinBoxList(ZorvaWidget* owner)
    : ZorvaSpinRow(owner)
    , inputEnabled(true)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("specialValueText"));
}

ZorvaDoubleSpinBoxList::~ZorvaDoubleSpinBoxList()
{
    const bool isAtWork = MayBeAtWork(container);
    ZorvaDoubleSpinBoxList::LetValuesGo();
    Drop(container, isAtWork);
}

int ZorvaDoubleSpinBoxList::ItemCount() const
{
    const QString name =
        property("itemCount").isNull() ? QStringLiteral("shiftCount") : QStringLiteral("itemCount");
    return GetInt(name, 0);
}

void ZorvaDoubleSpinBoxList::LetValuesGo()
{
    ReleaseValues(values, this);
}

void ZorvaDoubleSpinBoxList::CreateValueTree()
{
    places.clear();
    MakeValues(values, controls, ItemCount());
}

void ZorvaDoubleSpinBoxList::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    enabledStates = QVector<bool>(values.count(), true).toList();
    PlaceSpins(layout, container, controls, values, &ZorvaDoubleSpinBoxList::SetDoubleTooltip);
}

void ZorvaDoubleSpinBoxList::EnableInput(bool enable, bool restricted)
{
    const RowWatch row(*this);
    ZorvaDelegate::EnableInput(enable, restricted);
    if (!row)
        return;
    inputEnabled = enable;
    for (int i = 0; row && enable && i < enabledStates.count(); ++i)
        setEnabled(i, enabledStates.at(i));
}

void ZorvaDoubleSpinBoxList::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    ListItemWriter itemWriter(writer, *this, ListItemWriter::WithUnit);
    const int decimals = Decimals();
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
    const int index = places.of(values, observable);
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
    FollowProperty(name, controls);
}

bool ZorvaDoubleSpinBoxList::isEnabled(int index)
{
    return IsEnabledAt(controls, index);
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
    return NumberAt(values, index);
}

void ZorvaDoubleSpinBoxList::setItemValue(int index, double number)
{
    SetNumberAt(values, index, number);
}

double ZorvaDoubleSpinBoxList::shiftValue(int index)
{
    return itemValue(index);
}

void ZorvaDoubleSpinBoxList::setShiftValue(int index, double value)
{
    setItemValue(index, value);
}

void ZorvaDoubleSpinBoxList::setFocus()
{
    FocusControl(controls.value(0));
}

} // namespace Orvane
