#ifndef ZORVAPARSER_H
#define ZORVAPARSER_H

#include <zorvaparser/zorvaparser_export.h>

class QByteArray;
class QString;
class QXmlStreamReader;

namespace Orvane {

class ZorvaFormular;

/**
 * Turns the text of a form description into a formular. The result has a
 * reference count of zero and is the caller's; null if there is no root element
 * "KVParamGui". Damaged text yields the part read so far and no message.
 */
class ZORVAPARSER_EXPORT ZorvaParser
{
public:
    ZorvaParser() = default;
    ZorvaParser(const ZorvaParser&) = default;
    ZorvaParser& operator=(const ZorvaParser&) = default;
    virtual ~ZorvaParser() = default;

    ZorvaFormular* ParseZORVA(QXmlStreamReader& reader);
    /** The document's own encoding declaration counts. */
    ZorvaFormular* ParseZORVA(const QByteArray& bytes);
    ZorvaFormular* ParseZORVA(const QString& text);
    /** Null also for a file that is missing, unreadable or empty. */
    ZorvaFormular* ParseZORVAFile(const QString& fileName);
};

} // namespace Orvane

#endif
