#include "zorvaelement_p.h"

#include "bounds_p.h"

#include <zorvaparser/zorvadelegate.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <vector>

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

/** The row's own list where that says the same: it is shared then. */
QStringList tagsOf(ZorvaDelegate& row)
{
    const QStringList& all = row.GetAllTags();
    const bool isAll = row.HasSeveralXmlTags() || (!all.isEmpty() && all.constFirst() == row.GetXmlTagName());
    return isAll ? all : QStringList{row.GetXmlTagName()};
}

} // namespace

ZorvaElement::~ZorvaElement()
{
    if (widget)
        widget->LeaveElement();
    Children descendants;
    takeDescendants(descendants);
    while (!descendants.isEmpty())
        delete descendants.takeLast();
}

void ZorvaElement::takeDescendants(Children& taken)
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
    element->place = children.count();
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
    ZorvaElement* const leaf = current->append(tagsOf(*delegate));
    leaf->widget = newWidget;
    if (isWritten)
        newWidget->TakeElement(leaf);
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

ZorvaElement::WidgetPointer ZorvaElement::childWidget(const QString& tag) const
{
    const ZorvaElement* const element = tag.isEmpty() ? nullptr : child(tag);
    return element ? element->widget : WidgetPointer();
}

void ZorvaElement::noteModified()
{
    if (isNoted)
        return;
    isNoted = true;
    ZorvaElement* root = this;
    while (root->parent)
        root = root->parent;
    root->noted.append(this);
}

ZorvaElement::Branches ZorvaElement::modifiedBranches() const
{
    const auto isDone = [](ZorvaElement* leaf) {
        leaf->isNoted = leaf->widget->isModified();
        return !leaf->isNoted;
    };
    noted.erase(std::remove_if(noted.begin(), noted.end(), isDone), noted.end());
    Branches branches;
    for (ZorvaElement* const leaf : qAsConst(noted)) {
        bool isOpen = false;
        for (ZorvaElement* element = leaf; element->parent && !isOpen; element = element->parent) {
            isOpen = branches.contains(element->parent);
            branches[element->parent].append(element);
        }
    }
    for (Children& branch : branches)
        std::sort(branch.begin(), branch.end(), [](const ZorvaElement* left, const ZorvaElement* right) {
            return left->place < right->place;
        });
    return branches;
}

void ZorvaElement::writeChildren(QXmlStreamWriter& writer, bool modifiedOnly) const
{
    struct Open
    {
        const Children children;
        int next;
    };
    const Branches branches = modifiedOnly ? modifiedBranches() : Branches();
    const auto wanted = [&](const ZorvaElement* group) {
        return modifiedOnly ? branches.value(group) : group->children;
    };
    const bool isIndented = writer.autoFormatting();
    std::vector<Open> open{{wanted(this), 0}};
    while (!open.empty()) {
        Open& group = open.back();
        if (group.next == group.children.count()) {
            open.pop_back();
            if (!open.empty())
                writer.writeEndElement();
            if (open.size() == deepestIndent)
                writer.setAutoFormatting(isIndented);
            continue;
        }
        const ZorvaElement* const element = group.children.at(group.next++);
        if (element->widget) {
            element->widget->GetXml(writer, modifiedOnly);
        } else {
            writer.writeStartElement(element->tags.first());
            open.push_back({wanted(element), 0});
            if (open.size() > deepestIndent)
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
