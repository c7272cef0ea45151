#include "cursorplace.h"

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

Description descriptionOf(const QString& text)
{
    return Description(SourceText(storedBytes(text)));
}

/** @p text with blanks in the place of a half-written piece. */
QString without(QString text, int begin, int end)
{
    return text.replace(begin, end - begin, QString(end - begin, QLatin1Char(' ')));
}

} // namespace

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c.isSurrogate() || c.isMark() || c == QLatin1Char('_') ||
           c == QLatin1Char('$');
}

CursorPlace::CursorPlace(const OpenDocument& document, int offset)
    : m_text(document.text())
    , m_offset(offset)
    , m_script(wholeScript(document, offset))
    , m_before(m_script >= 0 ? document.description() : descriptionOf(m_text.left(offset)))
    , m_element(m_script >= 0 ? m_script : m_before.textEnd().element)
    , m_word{offset, offset}
    , m_hole(offset)
{
    if (m_script < 0) {
        readTextEnd();
        return;
    }
    m_kind = Script;
    m_word.begin = wordBegin();
    m_rest = m_before;
}

// What stands before a place is read alike with and without what follows, so the text need not be read twice.
int CursorPlace::wholeScript(const OpenDocument& document, int offset)
{
    const QLatin1String opening("<![CDATA[");
    const QString& text = document.text();
    const int begin = text.lastIndexOf(opening, offset - opening.size());
    if (begin < 0 || offset < begin + opening.size() || text.indexOf(QLatin1String("]]>"), begin) < offset)
        return -1;
    const int element = document.description().elementAt(offset);
    const bool isScript = element >= 0 && begin >= document.description().element(element).tag.end &&
                          document.description().element(element).name == QLatin1String("Script") &&
                          !document.description().isComment(begin);
    return isScript ? element : -1;
}

void CursorPlace::readTextEnd()
{
    const TextEnd& end = m_before.textEnd();
    switch (end.kind) {
    case TextEnd::Content:
        readContent();
        m_hole = m_kind == TagName ? m_offset - 1 : m_word.begin;
        break;
    case TextEnd::StartTag:
        readStartTag();
        m_hole = m_kind == TagName ? end.begin : m_word.begin;
        break;
    case TextEnd::EndTag:
        m_kind = EndTag;
        m_word.begin = end.begin + 2;
        m_hole = end.begin;
        break;
    case TextEnd::Comment:
        m_kind = Comment;
        m_word.begin = wordBegin();
        break;
    case TextEnd::CData:
        m_kind = elementName() == QLatin1String("Script") ? Script : Nothing;
        m_word.begin = wordBegin();
        break;
    case TextEnd::Instruction:
        break;
    }
}

const Description& CursorPlace::rest() const
{
    if (m_rest)
        return *m_rest;
    m_rest = descriptionOf(m_kind == Script ? m_text : without(m_text, m_hole, m_offset));
    const TextEnd& end = m_before.textEnd();
    if (end.kind == TextEnd::StartTag && !isTagSound(*m_rest))
        m_rest = descriptionOf(without(m_text, end.begin, m_offset));
    return *m_rest;
}

/** False if the tag that is being written swallows what stands behind it. */
bool CursorPlace::isTagSound(const Description& description) const
{
    const int same = description.elementBeginningAt(m_before.textEnd().begin);
    return same >= 0 && description.element(same).sound;
}

QString CursorPlace::typed() const
{
    return m_text.mid(m_word.begin, m_word.end - m_word.begin);
}

int CursorPlace::wordBegin() const
{
    const QString& text = m_text;
    const bool isName = m_before.textEnd().kind != TextEnd::CData && elementName() != QLatin1String("Script");
    int begin = m_offset;
    while (begin > 0 &&
           (isWordCharacter(text.at(begin - 1)) || (isName && text.at(begin - 1) == QLatin1Char('-'))))
        --begin;
    return begin;
}

void CursorPlace::readContent()
{
    const QString& text = m_before.source().text();
    m_kind = Content;
    m_word.begin = wordBegin();
    if (elementName() == QLatin1String("Script"))
        m_kind = Script;
    else if (text.endsWith(QLatin1Char('<')))
        m_kind = TagName;
}

void CursorPlace::readStartTag()
{
    const QString& text = m_before.source().text();
    if (tag().nameRange().end == m_offset) {
        m_kind = TagName;
        m_word.begin = tag().tag.begin + 1;
        return;
    }
    if (!tag().attributes.isEmpty() && tag().attributes.constLast().valueRange.end == m_offset) {
        m_kind = AttributeValue;
        m_isQuoted = true;
        m_attribute = tag().attributes.constLast().name;
        m_word = tag().attributes.constLast().valueRange;
        return;
    }
    m_word.begin = wordBegin();
    int before = m_word.begin;
    while (before > 0 && text.at(before - 1).isSpace())
        --before;
    if (text.at(before - 1) == QLatin1Char('=')) {
        int end = before - 1;
        while (end > 0 && text.at(end - 1).isSpace())
            --end;
        int begin = end;
        while (begin > 0 && isWordCharacter(text.at(begin - 1)))
            --begin;
        m_kind = AttributeValue;
        m_attribute = text.mid(begin, end - begin);
    } else if (before < m_word.begin) {
        m_kind = AttributeName;
    }
}

QString CursorPlace::elementName() const
{
    return element() < 0 ? QString() : m_before.element(element()).name;
}

int CursorPlace::enclosing(const char* name) const
{
    int index = element();
    while (index >= 0 && m_before.element(index).name != QLatin1String(name))
        index = m_before.element(index).parent;
    return index;
}

int CursorPlace::inRest(int element) const
{
    return element < 0 ? -1 : rest().elementBeginningAt(m_before.element(element).tag.begin);
}

QString CursorPlace::codeBefore() const
{
    if (m_script >= 0) {
        const QVector<int> offsets = m_before.textOffsets(m_script);
        const auto place = std::lower_bound(offsets.cbegin(), offsets.cend(), m_offset);
        return m_before.textOf(m_script).left(static_cast<int>(place - offsets.cbegin()));
    }
    constexpr int markSize = 9; // of "<![CDATA["
    const QString code = m_before.textOf(element());
    if (m_before.textEnd().kind != TextEnd::CData)
        return code;
    return code + m_before.source().text().mid(m_before.textEnd().begin + markSize).remove(QLatin1Char('\r'));
}

} // namespace Author
} // namespace Orvane
