#ifndef ZORVAEXCLUSIONRANGES_P_H
#define ZORVAEXCLUSIONRANGES_P_H

#include <valueframework/valuecommentedrangemap.h>
#include <zorvaparser/xmlwalk_p.h>

#include <QLatin1String>
#include <QXmlStreamReader>

namespace Orvane {

/** How one kind of object writes exclusion ranges in parameter XML. */
struct ExclusionRangeNames
{
    QLatin1String item;
    QLatin1String start;
    QLatin1String stop;
    bool indexed; // the item's attribute "index" is its key in the map
};

/** Entered on an item's start tag; frequencies are hertz, unreadable ones 0. */
inline values::CommentedRange readExclusionRange(QXmlStreamReader& reader, const ExclusionRangeNames& names)
{
    values::CommentedRange range;
    walkChildren(reader, [&] {
        if (reader.name() == names.start)
            range.SetRangeStart(reader.readElementText().toDouble());
        else if (reader.name() == names.stop)
            range.SetRangeStop(reader.readElementText().toDouble());
        else
            reader.skipCurrentElement();
    });
    return range;
}

/**
 * Replaces what @p map holds by the items that the reader's element has, up to
 * the first end tag: an unknown child is not skipped and so ends the list.
 * @p originator is not told.
 */
inline void readExclusionRanges(QXmlStreamReader& reader, values::ValueCommentedRangeMap* map,
                                const ExclusionRangeNames& names, IObserver* originator)
{
    const ObservableGuard there(map);
    map->StartTransaction(originator);
    map->Clear(originator);
    unsigned int key = 0;
    walkChildren(reader, [&] {
        if (reader.name() != names.item)
            return;
        const QString index = reader.attributes().value(QLatin1String("index")).toString();
        if (names.indexed && !index.isEmpty())
            key = index.toUInt();
        map->SetAt(key, readExclusionRange(reader, names), originator);
        ++key;
    });
    map->EndTransaction(ChangeCode::BulkEnd, originator);
    if (there.Get())
        map->NotifyObservers(ChangeCode::Content, originator);
}

/** The tag that a description chose for a map of ranges, or the kind's own. */
inline QVariant exclusionRangesTag(const QVariant& customTag, QLatin1String fallback)
{
    return customTag.isValid() ? customTag : QVariant(QString(fallback));
}

} // namespace Orvane

#endif
