#ifndef ZORVA_AUTHOR_SCANNER_H
#define ZORVA_AUTHOR_SCANNER_H

#include "description.h"

#include <QHash>
#include <QSet>

namespace Orvane {
namespace Author {

/** Fills a description from its text, in one pass. */
class Scanner
{
public:
    explicit Scanner(Description& description);
    void scan();

private:
    bool at(const char* text) const;
    int find(const char* text, int from) const;
    void scanText();
    void scanMarkup();
    /** Moves behind @p closing; a missing one makes the rest of the text part of it. */
    Range scanSection(const char* opening, const char* closing, const QString& what);
    void scanStartTag();
    void scanAttributes(SourceElement& element);
    bool scanAttribute(SourceElement& element);
    void scanEndTag();
    void scanName();
    /** The name from @p begin up to here, one copy for all elements: a document has few names. */
    QString kept(int begin);
    void skipBlanks();
    void checkReferences(Range range);

    /** The element that is open here; -1 if none is. */
    int innermost() const;
    int append(const SourceElement& element);
    void open(int index);
    void close(int index, int contentEnd, int end);
    void closeThrough(int depth, Range endTag);
    /** The text ends before what begins at @p begin does. */
    void endWithin(TextEnd::Kind kind, int begin);
    void endOfText();
    void complain(Range range, const QString& message);

    Description& m_description;
    const QString m_text;
    int m_position = 0;
    QSet<QString> m_names;
    bool m_inTag = false;
    bool m_tagSlipped = false;       // the tag that is being read has been complained of
    QVector<int> m_open;             // elements that are not ended yet
    QHash<QString, int> m_openCount; // how many of them bear a name
};

} // namespace Author
} // namespace Orvane

#endif
