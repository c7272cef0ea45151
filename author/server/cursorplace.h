#ifndef ZORVA_AUTHOR_CURSORPLACE_H
#define ZORVA_AUTHOR_CURSORPLACE_H

#include <author/document/description.h>

#include <QString>

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

    CursorPlace(const QString& text, int offset);

    Kind kind() const { return m_kind; }
    int offset() const { return m_offset; }
    /** What has been typed of the name, value or text that stands here, up to the place. */
    const Range& word() const { return m_word; }
    QString typed() const;
    /** The text up to the place. */
    const Description& before() const { return m_before; }
    /** The whole text without what is being typed. */
    const Description& rest() const { return m_rest; }

    /** The innermost element of before() that is open here; -1 outside of all. */
    int element() const { return m_before.textEnd().element; }
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
    void readStartTag();
    void readContent();
    int wordBegin() const;
    bool isTagSound() const;

    int m_offset;
    Description m_before;
    Kind m_kind = Nothing;
    Range m_word;
    QString m_attribute;
    bool m_isQuoted = false;
    Description m_rest;
};

/** True for what a name of XML or of a script may hold. */
bool isWordCharacter(QChar c);

} // namespace Author
} // namespace Orvane

#endif
