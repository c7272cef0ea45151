#ifndef ZORVALISTXML_P_H
#define ZORVALISTXML_P_H

#include <zorvaparser/xmlwalk_p.h>

#include <QLatin1String>
#include <QString>

#include <initializer_list>
#include <limits>
#include <utility>

class QXmlStreamWriter;

namespace Orvane {

class ZorvaDelegate;

/** Writes the item elements of one row that is a list; tag and unit are read from the row once. */
class ListItemWriter
{
public:
    using Attributes = std::initializer_list<std::pair<QLatin1String, QString>>;
    enum UnitUse { WithUnit, WithoutUnit };

    ListItemWriter(QXmlStreamWriter& writer, const ZorvaDelegate& row, UnitUse unitUse);
    /** The unit, if there is one, goes before @p attributes. */
    void write(Attributes attributes, const QString& text);

private:
    QXmlStreamWriter& writer;
    const QString tag;
    const QString unit;
};

/**
 * Entered on a list's start tag: gives each child's text to @p take(index, text).
 * A child without the attribute "index" has the place after the one before.
 */
template <typename Take>
void readIndexedItems(QXmlStreamReader& reader, Take take)
{
    int index = 0;
    walkChildren(reader, [&] {
        const QXmlStreamAttributes attributes = reader.attributes();
        if (attributes.hasAttribute(QLatin1String("index")))
            index = attributes.value(QLatin1String("index")).toInt();
        take(index, reader.readElementText());
        if (index < std::numeric_limits<int>::max())
            ++index;
    });
}

} // namespace Orvane

#endif
