#include "zorvaspinboxlist.h"

#include "listxml_p.h"

#include <zorvaparser/rowwatch_p.h>

#include <QXmlStreamWriter>

namespace Orvane {

ZorvaSpinBoxList::ZorvaSpinBoxList(ZorvaWidget* owner)
    : ZorvaSpinRow(owner)
{
    DefineProperty(QStringLiteral("prefix"));
    DefineProperty(QStringLiteral("specialValueText"));
}

ZorvaSpinBoxList::~ZorvaSpinBoxList()
{
    const bool isAtWork = MayBeAtWork(container);
    ZorvaSpinBoxList::LetValuesGo();
    Drop(container, isAtWork);
}

void ZorvaSpinBoxList::LetValuesGo()
{
    ReleaseValues(values, this);
}

void ZorvaSpinBoxList::CreateValueTree()
{
    places.clear();
    MakeValues(values, controls, GetInt("itemCount", 0));
}

void ZorvaSpinBoxList::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    PlaceSpins(layout, container, controls, values, &ZorvaSpinBoxList::SetIntTooltip);
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
    const int index = places.of(values, observable);
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
    FollowProperty(name, controls);
}

bool ZorvaSpinBoxList::isEnabled(int index)
{
    return IsEnabledAt(controls, index);
}

void ZorvaSpinBoxList::setEnabled(int index, bool flag)
{
    if (const auto control = controls.value(index))
        control->setEnabled(flag);
}

int ZorvaSpinBoxList::itemValue(int index)
{
    return NumberAt(values, index);
}

void ZorvaSpinBoxList::setItemValue(int index, int number)
{
    SetNumberAt(values, index, number);
}

void ZorvaSpinBoxList::setFocus()
{
    FocusControl(controls.value(0));
}

} // namespace Orvane
