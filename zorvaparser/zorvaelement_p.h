#ifndef ZORVAELEMENT_P_H
#define ZORVAELEMENT_P_H

#include <zorvaparser/zorvawidget.h>

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QList>
#include <QStringList>

class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orvane {

/**
 * A node in the sheet's tree of XML tags: the root, a group with one tag, or the
 * leaf of a widget. Children keep their order of creation, and the first child
 * that has a tag is the one that the tag finds.
 */
class ZorvaElement
{
public:
    using WidgetPointer = QExplicitlySharedDataPointer<ZorvaWidget>;

    ZorvaElement() = default;
    virtual ~ZorvaElement();
    ZorvaElement(const ZorvaElement&) = delete;
    ZorvaElement& operator=(const ZorvaElement&) = delete;

    /** Called on the root: hangs a leaf for @p widget below the groups of its XML path. */
    void addWidget(const WidgetPointer& widget);
    /** Called on the root: null if the path ends nowhere or at a group. */
    WidgetPointer findWidget(const QString& path) const;
    /** Writes the groups and leaves below this element, without the element itself. */
    void writeChildren(QXmlStreamWriter& writer, bool modifiedOnly) const;
    /** Entered on this element's start tag; hands known elements to their widgets. */
    void readChildren(QXmlStreamReader& reader) const;

private:
    ZorvaElement* child(const QString& tag) const;
    ZorvaElement* append(const QStringList& childTags);
    void noteModified() const;
    void takeDescendants(QList<ZorvaElement*>& taken);

    QStringList tags;
    WidgetPointer widget;
    QList<ZorvaElement*> children; // owned
    QHash<QString, ZorvaElement*> firstChildByTag;
    // Scratch of one writing pass: a leaf below is modified.
    mutable bool modifiedBelow = false;
};

} // namespace Orvane

#endif
