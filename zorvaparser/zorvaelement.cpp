#include "zorvaelement_p.h"

#include "bounds_p.h"

#include <zorvaparser/zorvadelegate.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {

// A path has as many levels as its author likes, so no walk here calls itself.

namespace {

/** Takes the first part that is not empty off @p path; an empty one is its end. */
QStringView takePart(QStringView& path)
{
    constexpr QLatin1Char slash('/');
    qsizetype begin = 0;
    while (begin < path.size() && path.at(begin) == slash)
        ++begin;
    qsizetype end = begin;
    while (end < path.size() && path.at(end) != slash)
        ++end;
    const QStringView part = path.mid(begin, end - begin);
    path = path.mid(end);
    return part;
}

} // namespace

ZorvaElement::~ZorvaElement()
{
    QList<ZorvaElement*> descendants;
    takeDescendants(descendants);
    while (!descendants.isEmpty())
        delete descendants.takeLast();
}

void ZorvaElement::takeDescendants(QList<ZorvaElement*>& taken)
{
    taken.append(children);
    children.clear();
    for (int i = 0; i < taken.count(); ++i) {
        taken.append(taken.at(i)->children);
        taken.at(i)->children.clear();
    }
}

ZorvaElement* ZorvaElement::child(QStringView tag) const
{
    return firstChildByTag.value(tag, nullptr);
}

ZorvaElement* ZorvaElement::append(const QStringList& childTags)
{
    auto* const element = new ZorvaElement;
    element->tags = childTags;
    element->parent = this;
    children.append(element);
    for (const QString& tag : qAsConst(element->tags)) {
        if (!firstChildByTag.contains(tag))
            firstChildByTag.insert(tag, element);
    }
    return element;
}

void ZorvaElement::addWidget(const WidgetPointer& newWidget)
{
    ZorvaDelegate* const delegate = newWidget->GetDelegate();
    QStringView path(delegate->GetXmlPath());
    ZorvaElement* current = this;
    bool isWritten = true;
    QStringView tag = takePart(path);
    for (QStringView next = takePart(path); !next.isEmpty(); next = takePart(path)) {
        ZorvaElement* const group = current->child(tag);
        current = group ? group : current->append({tag.toString()});
        isWritten = isWritten && !current->widget;
        tag = next;
    }
    const QStringList leafTags =
        delegate->HasSeveralXmlTags() ? delegate->GetAllTags() : QStringList{delegate->GetXmlTagName()};
    current->append(leafTags)->widget = newWidget;
    if (isWritten)
        leaves.append({newWidget.data(), current});
}

ZorvaElement::WidgetPointer ZorvaElement::findWidget(const QString& path) const
{
    const ZorvaElement* current = this;
    QStringView rest(path);
    for (QStringView part = takePart(rest); !part.isEmpty(); part = takePart(rest)) {
        current = current->child(part);
        if (!current)
            return WidgetPointer();
    }
    return current->widget;
}

ZorvaElement::Groups ZorvaElement::modifiedGroups() const
{
    Groups groups;
    for (const Leaf& leaf : leaves) {
        if (!leaf.widget->isModified())
            continue;
        for (const ZorvaElement* group = leaf.group; group && !groups.contains(group); group = group->parent)
            groups.insert(group);
    }
    return groups;
}

void ZorvaElement::writeChildren(QXmlStreamWriter& writer, bool modifiedOnly) const
{
    struct Open
    {
        const ZorvaElement* element;
        int next;
    };
    const Groups wanted = modifiedOnly ? modifiedGroups() : Groups();
    const bool isIndented = writer.autoFormatting();
    QVector<Open> open{{this, 0}};
    while (!open.isEmpty()) {
        Open& group = open.last();
        if (group.next == group.element->children.count()) {
            open.removeLast();
            if (!open.isEmpty())
                writer.writeEndElement();
            if (open.count() == deepestIndent)
                writer.setAutoFormatting(isIndented);
            continue;
        }
        const ZorvaElement* const element = group.element->children.at(group.next++);
        if (element->widget) {
            element->widget->GetXml(writer, modifiedOnly);
        } else if (!modifiedOnly || wanted.contains(element)) {
            writer.writeStartElement(element->tags.first());
            open.append({element, 0});
            if (open.count() > deepestIndent)
                writer.setAutoFormatting(false);
        }
    }
}

bool ZorvaElement::readWidget(WidgetPointer row, QXmlStreamReader& reader, const std::function<bool()>& goOn)
{
    row->ReadXml(reader);
    return goOn();
}

void ZorvaElement::readChildren(QXmlStreamReader& reader, const std::function<bool()>& goOn) const
{
    QVector<const ZorvaElement*> open{this};
    while (!open.isEmpty() && !reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement) {
            open.removeLast();
        } else if (token == QXmlStreamReader::StartElement) {
            const ZorvaElement* const element = open.last()->child(reader.name());
            if (!element)
                reader.skipCurrentElement();
            else if (!element->widget)
                open.append(element);
            else if (!readWidget(element->widget, reader, goOn))
                return;
        }
    }
}

} // namespace Orvane
