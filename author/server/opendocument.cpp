#include "opendocument.h"

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

constexpr QChar byteOrderMark(0xfeff);

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

} // namespace

OpenDocument::OpenDocument(const QString& uri, const QString& text, int version)
    : m_uri(uri)
    , m_version(version)
{
    setText(text);
}

void OpenDocument::forget()
{
    m_subject.reset();
    m_description.reset();
}

void OpenDocument::takeMark()
{
    m_hasMark = m_text.startsWith(byteOrderMark);
    if (m_hasMark)
        m_text.remove(0, 1);
}

void OpenDocument::setText(const QString& text)
{
    m_text = text;
    takeMark();
    m_lineStarts = {0};
    findLines(0, m_text.size(), true);
    forget();
}

void OpenDocument::findLines(int from, int to, bool isEnd)
{
    for (int i = from; i < to; ++i) {
        const QChar c = m_text.at(i);
        const bool isPair =
            c == QLatin1Char('\r') && i + 1 < m_text.size() && m_text.at(i + 1) == QLatin1Char('\n');
        if (isLineEnd(c) && !isPair && (isEnd || i + 1 < to))
            m_lineStarts.append(i + 1);
    }
}

void OpenDocument::change(const EditorRange& range, const QString& text)
{
    int begin = offset(range.begin);
    int end = offset(range.end);
    if (end < begin)
        std::swap(begin, end);
    const bool isAtMark = range.begin.line <= 0 && range.begin.character <= 0;
    if (isAtMark && (m_hasMark || text.startsWith(byteOrderMark))) {
        // The mark itself may come or go.
        const bool keepsMark = m_hasMark && range.end.line <= 0 && range.end.character <= 0;
        setText((keepsMark ? text + byteOrderMark : text) + m_text.mid(end));
        return;
    }
    // Lines around the change may be joined by it or parted: only those further off merely move.
    const int first = qMax(0, lineAt(begin) - 1);
    const int behind = qMin(lineAt(end) + 2, m_lineStarts.size());
    QVector<int> rest = m_lineStarts.mid(behind);
    for (int& start : rest)
        start += text.size() - (end - begin);
    m_text.replace(begin, end - begin, text);
    m_lineStarts.resize(first + 1);
    findLines(m_lineStarts.constLast(), rest.isEmpty() ? m_text.size() : rest.constFirst(), rest.isEmpty());
    m_lineStarts += rest;
    forget();
}

int OpenDocument::lineAt(int offset) const
{
    const auto behind = std::upper_bound(m_lineStarts.cbegin(), m_lineStarts.cend(), offset);
    return static_cast<int>(behind - m_lineStarts.cbegin()) - 1;
}

int OpenDocument::offset(const EditorPosition& position) const
{
    if (position.line < 0)
        return 0;
    if (position.line >= m_lineStarts.size())
        return m_text.size();
    const int begin = m_lineStarts.at(position.line);
    int end = position.line + 1 < m_lineStarts.size() ? m_lineStarts.at(position.line + 1) : m_text.size();
    while (end > begin && isLineEnd(m_text.at(end - 1)))
        --end;
    const int offset = begin + qBound(0, position.character - markIn(position.line), end - begin);
    const bool isInPair = offset > begin && offset < end && m_text.at(offset).isLowSurrogate() &&
                          m_text.at(offset - 1).isHighSurrogate();
    return isInPair ? offset - 1 : offset;
}

EditorPosition OpenDocument::position(int offset) const
{
    const int place = qBound(0, offset, m_text.size());
    const int line = lineAt(place);
    return {line, place - m_lineStarts.at(line) + markIn(line)};
}

EditorRange OpenDocument::range(const Range& range) const
{
    return {position(range.begin), position(range.end)};
}

const Description& OpenDocument::description() const
{
    if (!m_description)
        m_description = std::make_shared<const Description>(SourceText(stored()));
    return *m_description;
}

const Subject& OpenDocument::subject() const
{
    if (!m_subject)
        m_subject = std::make_shared<const Subject>(description());
    return *m_subject;
}

} // namespace Author
} // namespace Orvane
