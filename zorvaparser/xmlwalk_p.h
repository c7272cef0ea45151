#ifndef ZORVAXMLWALK_P_H
#define ZORVAXMLWALK_P_H

#include <QXmlStreamReader>

namespace Orvane {

/**
 * The one shape of every element handler: entered on an element's start tag,
 * hands each child's start tag to @p handleChild, and ends at the first end tag
 * it meets, whichever element that tag closes. @p handleChild must return with
 * the reader on the child's end tag; one that returns early makes this walk take
 * that end tag for its own, which cuts the levels above short as well.
 */
template <typename Handler>
void walkChildren(QXmlStreamReader& reader, Handler handleChild)
{
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            return;
        if (token == QXmlStreamReader::StartElement)
            handleChild();
    }
}

} // namespace Orvane

#endif
