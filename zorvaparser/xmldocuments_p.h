#ifndef ZORVAXMLDOCUMENTS_P_H
#define ZORVAXMLDOCUMENTS_P_H

#include <QString>

namespace Orvane {

/**
 * Cuts text in which whole XML documents stand one behind the other, as devices
 * send them, into documents. Looks for where elements begin and end only; what
 * is wrong inside of one is found by whoever reads it. Linear in the text.
 */
class XmlDocuments
{
public:
    /** @p glued outlives this. */
    explicit XmlDocuments(const QString& glued);

    /**
     * The next document, from its document type, if it has one, or its root's start
     * tag on; to the end of the text if its root has no end. Null if there is none.
     */
    QString next();
    /** Where the last document ends. */
    int position() const { return at; }

private:
    bool startsWith(QLatin1String markup) const;
    bool skipWithoutContent();
    void skipBehind(QLatin1String end);
    void skipDocumentType();
    void skipTag();

    const QString& text;
    int at = 0;
    int depth = 0;
};

} // namespace Orvane

#endif
