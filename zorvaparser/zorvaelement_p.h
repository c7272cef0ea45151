#ifndef ZORVAELEMENT_P_H
#define ZORVAELEMENT_P_H

#include <zorvaparser/zorvawidget.h>

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QStringView>
#include <QVector>

#include <functional>

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
    /** Called on the root: the same for a path of one part; null for an empty one. */
    WidgetPointer childWidget(const QString& tag) const;
    /** Writes the groups and leaves below this element, without the element itself. */
    void writeChildren(QXmlStreamWriter& writer, bool modifiedOnly) const;
    /**
     * Entered on this element's start tag; hands known elements to their widgets, as long
     * as @p goOn says after each that this tree is still wanted.
     */
    void readChildren(QXmlStreamReader& reader, const std::function<bool()>& goOn) const;
    /** Called on the leaf of a row that was just marked. */
    void noteModified();

private:
    using Children = QList<ZorvaElement*>;
    using Branches = QHash<const ZorvaElement*, Children>;

    /** Keeps @p row meanwhile, which may lose its tree. */
    static bool readWidget(WidgetPointer row, QXmlStreamReader& reader, const std::function<bool()>& goOn);
    ZorvaElement* child(QStringView tag) const;
    ZorvaElement* append(const QStringList& childTags);
    /** Called on the root: what to write of the root and each group that a modified row stands below. */
    Branches modifiedBranches() const;
    void takeDescendants(Children& taken);

    QStringList tags;
    WidgetPointer widget;
    Children children;                                 // owned
    QHash<QStringView, ZorvaElement*> firstChildByTag; // keys: the children's own tags
    ZorvaElement* parent = nullptr;
    int place = 0;        // among the parent's children
    bool isNoted = false; // in the list below
    // The root's alone: leaves whose rows were marked since they were last looked for.
    mutable QVector<ZorvaElement*> noted;
};

} // namespace Orvane

#endif
