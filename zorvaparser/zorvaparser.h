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
 * "KVParamGui". Damaged text yields the part read so far and no message, but
 * bytes that are no text in their encoding yield null, wherever they stand.
 */
class ZORVAPARSER_EXPORT ZorvaParser
{
public:
    ZorvaParser() = default;
    /** Parsers hold nothing; they may be copied at will. */
    ZorvaParser(const ZorvaParser&) = default;
    ZorvaParser& operator=(const ZorvaParser&) = default; ///< Likewise.
    virtual ~ZorvaParser() = default;

    /**
     * The form that @p reader or @p text holds; null if there is no root element. See the class on who owns
     * it.
     */
    ZorvaFormular* ParseZORVA(QXmlStreamReader& reader);
    /** The document's own encoding declaration counts. */
    ZorvaFormular* ParseZORVA(const QByteArray& bytes); ///< Likewise.
    ZorvaFormular* ParseZORVA(const QString& text);     ///< Likewise.
    /** Null also for a file that is missing, unreadable or empty. */
    ZorvaFormular* ParseZORVAFile(const QString& fileName);
};

} // namespace Orvane

#endif
