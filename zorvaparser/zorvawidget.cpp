#include "zorvawidget.h"

#include "zorvadelegatefactory_p.h"
#include "zorvaelement_p.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvasheet.h>

#include <QWidget>
#include <QXmlStreamReader>

namespace Orvane {

ZorvaWidget::ZorvaWidget(ZorvaSheet* owningSheet)
    : sheet(owningSheet)
    , delegate(nullptr)
    , selected(true)
    , headline(false)
{
}

ZorvaWidget::~ZorvaWidget()
{
    delete delegate;
}

void ZorvaWidget::ParseZORVA(QXmlStreamReader& reader, int index)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    name = attributes.value(QLatin1String("name")).toString();
    SetClass(attributes.value(QLatin1String("class")).toString());
    if (name.isEmpty())
        name = className + QLatin1Char('_') + QString::number(index);
    createDelegate();
    // The script sees the object under its name before the properties arrive, and
    // the default tag of the row is its object name.
    GetFormular()->NameForScript(name, delegate);
    delegate->setObjectName(name);
    delegate->ParseProperties(reader, false);
}

void ZorvaWidget::createDelegate()
{
    delete delegate; // of an earlier parse
    delegate = createDelegateOfClass(className, this);
}

void ZorvaWidget::SetClass(const QString& newClass)
{
    className = newClass;
    headline = className == QLatin1String("Headline");
}

void ZorvaWidget::CreateValueTree(const QString& vtPath)
{
    if (!delegate)
        return;
    delegate->SetVTPath(vtPath);
    delegate->CreateValueTree();
}

void ZorvaWidget::CreateGUI(FloatGroupLayout* layout)
{
    delegate->CreateGUI(layout);
}

void ZorvaWidget::ResyncValueTree()
{
    if (delegate)
        delegate->ResyncValueTree();
}

void ZorvaWidget::GetXml(QXmlStreamWriter& writer, bool modifiedOnly) const
{
    if (!selected)
        return;
    if (delegate->isModified()) {
        delegate->GetXml(writer);
        delegate->resetModified();
    } else if (!modifiedOnly) {
        delegate->GetXml(writer);
    }
}

void ZorvaWidget::ReadXml(QXmlStreamReader& reader)
{
    delegate->ReadXml(reader);
    delegate->resetModified();
}

void ZorvaWidget::SetExtWidget(QString newName, QString labelText, QWidget* extWidget)
{
    name = newName;
    className = extWidget ? QString::fromLatin1(extWidget->metaObject()->className()) : QString();
    headline = false; // whatever the host calls its classes
    delete delegate;
    delegate = createExternalDelegate(this, extWidget);
    delegate->setProperty("labelText", labelText);
    delegate->setProperty("visible", true);
    delegate->setProperty("enabled", true);
    if (sheet)
        sheet->RowsChanged();
}

void ZorvaWidget::TakeElement(ZorvaElement* leaf)
{
    element = leaf;
    if (isModified())
        NoteModified();
}

void ZorvaWidget::LeaveElement()
{
    element = nullptr;
}

void ZorvaWidget::NoteModified()
{
    if (element)
        element->noteModified();
}

bool ZorvaWidget::isModified()
{
    return delegate->isModified();
}

void ZorvaWidget::resetModified()
{
    delegate->resetModified();
}

void ZorvaWidget::SetSelected(bool select)
{
    selected = select;
}

const QString& ZorvaWidget::GetXmlTagName() const
{
    return delegate->GetXmlTagName();
}

QStringList ZorvaWidget::GetKnownClasses()
{
    return delegateClasses();
}

ZorvaFormular* ZorvaWidget::GetFormular() const
{
    return sheet ? sheet->GetFormular() : nullptr;
}

} // namespace Orvane
