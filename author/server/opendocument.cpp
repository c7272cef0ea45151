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

void OpenDocument::setText(const QString& text)
{
    m_text = text;
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
    int begin = rawOffset(range.begin);
    int end = rawOffset(range.end);
    if (end < begin)
        std::swap(begin, end);
    // Lines around the change may be joined by it or parted: only those further off merely move.
    const int first = qMax(0, rawLineAt(begin) - 1);
    const int behind = qMin(rawLineAt(end) + 2, m_lineStarts.size());
    QVector<int> rest = m_lineStarts.mid(behind);
    for (int& start : rest)
        start += text.size() - (end - begin);
    m_text.replace(begin, end - begin, text);
    m_lineStarts.resize(first + 1);
    findLines(m_lineStarts.constLast(), rest.isEmpty() ? m_text.size() : rest.constFirst(), rest.isEmpty());
    m_lineStarts += rest;
    forget();
}

int OpenDocument::rawLineAt(int offset) const
{
    const auto behind = std::upper_bound(m_lineStarts.cbegin(), m_lineStarts.cend(), offset);
    return static_cast<int>(behind - m_lineStarts.cbegin()) - 1;
}

int OpenDocument::rawOffset(const EditorPosition& position) const
{
    if (position.line < 0)
        return 0;
    if (position.line >= m_lineStarts.size())
        return m_text.size();
    const int begin = m_lineStarts.at(position.line);
    int end = position.line + 1 < m_lineStarts.size() ? m_lineStarts.at(position.line + 1) : m_text.size();
    while (end > begin && isLineEnd(m_text.at(end - 1)))
        --end;
    const int offset = begin + qBound(0, position.character, end - begin);
    const bool isInPair = offset > begin && offset < end && m_text.at(offset).isLowSurrogate() &&
                          m_text.at(offset - 1).isHighSurrogate();
    return isInPair ? offset - 1 : offset;
}

int OpenDocument::markSize() const
{
    return m_text.startsWith(byteOrderMark) ? 1 : 0;
}

int OpenDocument::offset(const EditorPosition& position) const
{
    return qBound(0, rawOffset(position) - markSize(), text().size());
}

EditorPosition OpenDocument::position(int offset) const
{
    const int raw = qBound(0, offset + markSize(), m_text.size());
    const int line = rawLineAt(raw);
    return {line, raw - m_lineStarts.at(line)};
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
        m_subject = std::make_shared<const Subject>(SourceText(stored()));
    return *m_subject;
}

} // namespace Author
} // namespace Orvane
