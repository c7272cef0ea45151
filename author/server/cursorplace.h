#ifndef ZORVA_AUTHOR_CURSORPLACE_H
#define ZORVA_AUTHOR_CURSORPLACE_H

#include "opendocument.h"

#include <QString>

#include <optional>

namespace Orvane {
namespace Author {

/**
 * What is being written at a place of a text, whatever state the text is in: what stands
 * before the place decides, for what follows may not belong to it yet.
 */
class CursorPlace
{
public:
    enum Kind { Nothing, Content, TagName, EndTag, AttributeName, AttributeValue, Script, Comment };

    CursorPlace(const OpenDocument& document, int offset);

    Kind kind() const { return m_kind; }
    int offset() const { return m_offset; }
    /** The whole text. */
    const QString& text() const { return m_text; }
    /** What has been typed of the name, value or text that stands here, up to the place. */
    const Range& word() const { return m_word; }
    QString typed() const;
    /** The text up to the place; in a script, which has an end, the whole. */
    const Description& before() const { return m_before; }
    /** The whole text without what is being typed. */
    const Description& rest() const;

    /** The innermost element of before() that is open here; -1 outside of all. */
    int element() const { return m_element; }
    /** Its name; empty outside of all. */
    QString elementName() const;
    /** That element, or the next one around it, of that name, in before(); -1 if there is none. */
    int enclosing(const char* name) const;
    /** The same element in rest(); -1 if that has lost it. */
    int inRest(int element) const;
    /** The start tag that is being written, as far as it goes. */
    const SourceElement& tag() const { return m_before.textEnd().tag; }
    /** Name of the attribute whose value is being written. */
    const QString& attribute() const { return m_attribute; }
    /** True if the value has its opening quote. */
    bool isQuoted() const { return m_isQuoted; }
    /** The script up to the place. */
    QString codeBefore() const;

private:
    /** The script that the place is in, if its text is whole; -1 if it is in none. */
    static int wholeScript(const OpenDocument& document, int offset);
    void readTextEnd();
    void readStartTag();
    void readContent();
    int wordBegin() const;
    bool isTagSound(const Description& description) const;

    QString m_text;
    int m_offset;
    int m_script; // a whole one
    Description m_before;
    int m_element;
    Kind m_kind = Nothing;
    Range m_word;
    QString m_attribute;
    bool m_isQuoted = false;
    int m_hole = 0;                            // where that begins which is not part of rest()
    mutable std::optional<Description> m_rest; // made when somebody asks
};

/** True for what a name of XML or of a script may hold. */
bool isWordCharacter(QChar c);

} // namespace Author
} // namespace Orvane

#endif
