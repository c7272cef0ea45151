#include "scanner.h"

#include "references.h"

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
           c == QLatin1Char('\r');
}

bool isNameStart(QChar c)
{
    if (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        return true;
    return c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char(':') || c.isHighSurrogate();
}

bool isNamePart(QChar c)
{
    return isNameStart(c) || c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.') ||
           c.isLowSurrogate() || c.isMark();
}

QString withoutPrefix(const QString& name)
{
    return name.mid(name.indexOf(QLatin1Char(':')) + 1);
}

} // namespace

Scanner::Scanner(Description& description)
    : m_description(description)
    , m_text(description.m_source.text())
{
}

void Scanner::scan()
{
    while (m_position < m_text.size()) {
        if (m_text.at(m_position) == QLatin1Char('<'))
            scanMarkup();
        else
            scanText();
    }
    endOfText();
}

bool Scanner::at(const char* text) const
{
    const QChar* c = m_text.constData() + m_position;
    const QChar* const end = m_text.constData() + m_text.size();
    for (; *text; ++text, ++c) {
        if (c == end || *c != QLatin1Char(*text))
            return false;
    }
    return true;
}

int Scanner::find(const char* text, int from) const
{
    return m_text.indexOf(QLatin1String(text), from);
}

void Scanner::complain(Range range, const QString& message)
{
    // Behind the first slip in a tag its quotes and blanks mean anything.
    if (m_inTag && m_tagSlipped)
        return;
    m_tagSlipped = m_inTag;
    m_description.m_problems.append({range, message, qMax(range.end, m_position)});
}

void Scanner::scanText()
{
    const int next = find("<", m_position);
    const Range range{m_position, next < 0 ? m_text.size() : next};
    m_description.m_texts.append({range, innermost(), false});
    checkReferences(range);
    m_position = range.end;
}

void Scanner::checkReferences(Range range)
{
    for (int i = range.begin; i < range.end; ++i) {
        if (m_text.at(i) != QLatin1Char('&'))
            continue;
        const Reference reference = referenceAt(m_text, i);
        if (!reference.isKnown())
            complain({i, reference.end}, QStringLiteral("`%1` is no reference that XML knows; write `&amp;` "
                                                        "for the character itself")
                                             .arg(m_text.mid(i, reference.end - i)));
    }
}

void Scanner::scanMarkup()
{
    if (at("<!--")) {
        const Range range = scanSection("<!--", "-->", QStringLiteral("comment"));
        const int closing =
            m_text.midRef(range.begin, range.end - range.begin).endsWith(QLatin1String("-->")) &&
                    range.end - range.begin >= 7
                ? 3
                : 0;
        m_description.m_comments.append({range, {range.begin + 4, range.end - closing}});
        if (closing == 0)
            endWithin(TextEnd::Comment, range.begin);
    } else if (at("<![CDATA[")) {
        const int begin = m_position + 9;
        const bool ends = find("]]>", begin) >= 0;
        const Range range = scanSection("<![CDATA[", "]]>", QStringLiteral("CDATA section"));
        if (ends)
            m_description.m_texts.append({{begin, range.end - 3}, innermost(), true});
        else
            endWithin(TextEnd::CData, range.begin);
    } else if (at("<?")) {
        const bool ends = find("?>", m_position + 2) >= 0;
        const Range range = scanSection("<?", "?>", QStringLiteral("processing instruction"));
        if (!ends)
            endWithin(TextEnd::Instruction, range.begin);
    } else if (at("</")) {
        scanEndTag();
    } else if (m_position + 1 < m_text.size() && isNameStart(m_text.at(m_position + 1))) {
        scanStartTag();
    } else {
        if (!at("<!"))
            complain({m_position, m_position + 1},
                     QStringLiteral("`<` begins no tag here; write `&lt;` for the character itself"));
        ++m_position;
    }
}

Range Scanner::scanSection(const char* opening, const char* closing, const QString& what)
{
    const int begin = m_position;
    const int inside = begin + static_cast<int>(qstrlen(opening));
    const int end = find(closing, inside);
    if (end < 0) {
        m_position = m_text.size();
        complain({begin, inside},
                 QStringLiteral("the %1 that begins here has no end (`%2`), so all behind it "
                                "counts as part of it")
                     .arg(what, QString::fromLatin1(closing)));
    } else {
        m_position = end + static_cast<int>(qstrlen(closing));
    }
    return {begin, m_position};
}

void Scanner::scanName()
{
    while (m_position < m_text.size() && isNamePart(m_text.at(m_position)))
        ++m_position;
}

void Scanner::skipBlanks()
{
    while (m_position < m_text.size() && isBlank(m_text.at(m_position)))
        ++m_position;
}

int Scanner::innermost() const
{
    return m_open.isEmpty() ? -1 : m_open.constLast();
}

QString Scanner::kept(int begin)
{
    // A view on the text is enough to look for the copy.
    const QString name = QString::fromRawData(m_text.constData() + begin, m_position - begin);
    const auto found = m_names.constFind(name);
    return found != m_names.cend() ? *found : *m_names.insert(QString(name.constData(), name.size()));
}

void Scanner::scanStartTag()
{
    SourceElement element;
    element.tag.begin = m_position++;
    const int nameBegin = m_position;
    scanName();
    element.qualifiedName = kept(nameBegin);
    const bool hasPrefix = element.qualifiedName.contains(QLatin1Char(':'));
    element.name = hasPrefix ? withoutPrefix(element.qualifiedName) : element.qualifiedName;
    m_inTag = true;
    m_tagSlipped = false;
    scanAttributes(element);
    element.tag.end = m_position;
    const bool slipped = m_tagSlipped;
    m_inTag = false;
    element.sound = element.closed && !slipped;
    if (!element.closed && m_position >= m_text.size()) {
        m_description.m_textEnd.tag = element;
        endWithin(TextEnd::StartTag, element.tag.begin);
        complain(element.tag,
                 QStringLiteral("the text ends within the tag `<%1`").arg(element.qualifiedName));
        return;
    }
    if (!element.closed && !slipped)
        complain({element.tag.begin, element.tag.begin + 1 + element.qualifiedName.size()},
                 QStringLiteral("the tag `<%1` is not closed by `>`").arg(element.qualifiedName));
    const int index = append(element);
    if (element.empty)
        close(index, m_position, m_position);
    else
        open(index);
}

void Scanner::scanAttributes(SourceElement& element)
{
    element.closed = false;
    bool spaced = true;
    while (m_position < m_text.size()) {
        const int before = m_position;
        skipBlanks();
        spaced = m_position > before;
        if (m_position >= m_text.size() || at("<"))
            return;
        if (at("/>") || at(">")) {
            element.closed = true;
            element.empty = at("/>");
            m_position += element.empty ? 2 : 1;
            return;
        }
        if (!isNameStart(m_text.at(m_position))) {
            complain({m_position, m_position + 1},
                     QStringLiteral("`%1` does not belong into a tag").arg(m_text.at(m_position)));
            ++m_position;
            continue;
        }
        if (!spaced)
            complain({m_position, m_position + 1},
                     QStringLiteral("a blank is missing before this, or a quote further ahead"));
        if (!scanAttribute(element))
            return;
    }
}

bool Scanner::scanAttribute(SourceElement& element)
{
    SourceAttribute attribute;
    attribute.nameRange.begin = m_position;
    scanName();
    attribute.nameRange.end = m_position;
    attribute.name = kept(attribute.nameRange.begin);
    skipBlanks();
    if (!at("=")) {
        complain(attribute.nameRange, QStringLiteral("the attribute `%1` has no value").arg(attribute.name));
        return true;
    }
    ++m_position;
    skipBlanks();
    if (!at("\"") && !at("'")) {
        complain(attribute.nameRange,
                 QStringLiteral("the value of `%1` must stand in quotes").arg(attribute.name));
        return true;
    }
    const QChar quote = m_text.at(m_position++);
    attribute.valueRange.begin = m_position;
    while (m_position < m_text.size() && m_text.at(m_position) != quote && !at("<"))
        ++m_position;
    attribute.valueRange.end = m_position;
    attribute.value =
        resolved(m_text.mid(attribute.valueRange.begin, m_position - attribute.valueRange.begin), true);
    checkReferences(attribute.valueRange);
    const auto isSame = [&attribute](const SourceAttribute& other) { return other.name == attribute.name; };
    if (std::any_of(element.attributes.cbegin(), element.attributes.cend(), isSame))
        complain(attribute.nameRange,
                 QStringLiteral("the attribute `%1` is given twice").arg(attribute.name));
    element.attributes.append(attribute);
    if (m_position >= m_text.size() || m_text.at(m_position) != quote) {
        complain({attribute.valueRange.begin - 1, attribute.valueRange.begin},
                 QStringLiteral("the value of `%1` has no closing quote").arg(attribute.name));
        return false;
    }
    ++m_position;
    return true;
}

void Scanner::scanEndTag()
{
    const int begin = m_position;
    m_position += 2;
    const int nameBegin = m_position;
    scanName();
    const QString name = m_text.mid(nameBegin, m_position - nameBegin);
    skipBlanks();
    const bool closed = at(">");
    if (closed)
        ++m_position;
    const Range range{begin, m_position};
    if (!closed && m_position >= m_text.size())
        endWithin(TextEnd::EndTag, begin);
    if (!closed)
        complain(range, QStringLiteral("the end tag `</%1` is not closed by `>`").arg(name));
    if (m_open.isEmpty()) {
        complain(range, QStringLiteral("`</%1>` ends nothing: no element is open here").arg(name));
        return;
    }
    int depth = m_open.size() - 1;
    const QString& innermost = m_description.element(m_open.at(depth)).qualifiedName;
    if (m_openCount.value(name) == 0) {
        complain(range,
                 QStringLiteral("`</%1>` ends nothing: the open element is `%2`").arg(name, innermost));
        if (isNearMiss(name, innermost))
            close(m_open.at(depth), begin, m_position);
        return;
    }
    while (m_description.element(m_open.at(depth)).qualifiedName != name)
        --depth;
    closeThrough(depth, range);
}

void Scanner::closeThrough(int depth, Range endTag)
{
    while (m_open.size() - 1 > depth) {
        const SourceElement& element = m_description.element(m_open.constLast());
        complain(endTag,
                 QStringLiteral("`</%1>` comes before `</%2>`: the `%2` that begins in line %3 is not ended")
                     .arg(m_description.element(m_open.at(depth)).qualifiedName, element.qualifiedName)
                     .arg(m_description.source().lineAt(element.tag.begin)));
        close(m_open.constLast(), endTag.begin, endTag.begin);
    }
    close(m_open.constLast(), endTag.begin, endTag.end);
}

void Scanner::endWithin(TextEnd::Kind kind, int begin)
{
    m_description.m_textEnd.kind = kind;
    m_description.m_textEnd.begin = begin;
    m_description.m_textEnd.element = innermost();
}

void Scanner::endOfText()
{
    const int end = m_text.size();
    if (m_description.m_textEnd.kind == TextEnd::Content)
        endWithin(TextEnd::Content, end);
    if (!m_open.isEmpty()) {
        const SourceElement& element = m_description.element(m_open.constLast());
        complain({end, end}, QStringLiteral("the text ends within the `%1` that begins in line %2")
                                 .arg(element.qualifiedName)
                                 .arg(m_description.source().lineAt(element.tag.begin)));
    }
    while (!m_open.isEmpty())
        close(m_open.constLast(), end, end);
}

int Scanner::append(const SourceElement& element)
{
    QVector<SourceElement>& elements = m_description.m_elements;
    const int index = elements.size();
    elements.append(element);
    const int parent = innermost();
    elements[index].parent = parent;
    int& first = parent < 0 ? m_description.m_firstRoot : elements[parent].firstChild;
    int& last = parent < 0 ? m_description.m_lastRoot : elements[parent].lastChild;
    if (last >= 0)
        elements[last].nextSibling = index;
    else
        first = index;
    last = index;
    return index;
}

void Scanner::open(int index)
{
    m_open.append(index);
    ++m_openCount[m_description.element(index).qualifiedName];
}

void Scanner::close(int index, int contentEnd, int end)
{
    SourceElement& element = m_description.m_elements[index];
    element.contentEnd = contentEnd;
    element.end = end;
    if (m_open.isEmpty() || m_open.constLast() != index)
        return;
    m_open.removeLast();
    --m_openCount[element.qualifiedName];
}

} // namespace Author
} // namespace Orvane
