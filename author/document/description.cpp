#include "description.h"

#include "references.h"
#include "scanner.h"

#include <QtAlgorithms>

#include <algorithm>
#include <vector>

namespace Orvane {
namespace Author {

const SourceAttribute* SourceElement::attribute(const char* attributeName) const
{
    for (const SourceAttribute& candidate : attributes) {
        if (candidate.name == QLatin1String(attributeName))
            return &candidate;
    }
    return nullptr;
}

QString SourceElement::value(const char* attributeName) const
{
    const SourceAttribute* const found = attribute(attributeName);
    return found ? found->value : QString();
}

Description::Description(const SourceText& source)
    : m_source(source)
{
    Scanner(*this).scan();
}

int Description::elementEndingAt(int offset) const
{
    const auto found =
        std::lower_bound(m_elements.cbegin(), m_elements.cend(), offset,
                         [](const SourceElement& element, int wanted) { return element.tag.end < wanted; });
    if (found == m_elements.cend() || found->tag.end != offset)
        return -1;
    return static_cast<int>(found - m_elements.cbegin());
}

QVector<int> Description::elementsNamed(const char* name) const
{
    QVector<int> found;
    const QLatin1String wanted(name);
    for (int i = 0; i < m_elements.size(); ++i) {
        if (m_elements.at(i).name == wanted)
            found.append(i);
    }
    return found;
}

int Description::elementBeginningAt(int offset) const
{
    const auto found =
        std::lower_bound(m_elements.cbegin(), m_elements.cend(), offset,
                         [](const SourceElement& element, int wanted) { return element.tag.begin < wanted; });
    if (found == m_elements.cend() || found->tag.begin != offset)
        return -1;
    return static_cast<int>(found - m_elements.cbegin());
}

int Description::elementAt(int offset) const
{
    const auto behind =
        std::upper_bound(m_elements.cbegin(), m_elements.cend(), offset,
                         [](int wanted, const SourceElement& element) { return wanted < element.tag.begin; });
    int index = static_cast<int>(behind - m_elements.cbegin()) - 1;
    while (index >= 0 && offset >= element(index).end)
        index = element(index).parent;
    return index;
}

QVector<int> Description::children(int index) const
{
    QVector<int> found;
    for (int i = index < 0 ? m_firstRoot : element(index).firstChild; i >= 0; i = element(i).nextSibling)
        found.append(i);
    return found;
}

int Description::child(int index, const char* name) const
{
    for (int i = index < 0 ? m_firstRoot : element(index).firstChild; i >= 0; i = element(i).nextSibling) {
        if (element(i).name == QLatin1String(name))
            return i;
    }
    return -1;
}

template <typename Visit>
void Description::visitText(int index, Visit visit) const
{
    const SourceElement& owner = element(index);
    auto piece = std::lower_bound(m_texts.cbegin(), m_texts.cend(), owner.tag.end,
                                  [](const TextPiece& left, int begin) { return left.range.begin < begin; });
    for (; piece != m_texts.cend() && piece->range.begin < owner.contentEnd; ++piece) {
        const QString raw = m_source.text().mid(piece->range.begin, piece->range.end - piece->range.begin);
        QString text = raw;
        if (piece->isCData)
            text.remove(QLatin1Char('\r'));
        else
            text = resolved(raw, false);
        if (!visit(*piece, text))
            return;
    }
}

QString Description::textOf(int index) const
{
    QString whole;
    visitText(index, [&whole](const TextPiece&, const QString& text) {
        whole += text;
        return true;
    });
    return whole;
}

int Description::offsetInText(int index, int position) const
{
    int before = 0;
    int offset = element(index).tag.end;
    visitText(index, [&](const TextPiece& piece, const QString& text) {
        const Range range = piece.range;
        offset = range.begin;
        if (before + text.size() <= position) {
            before += text.size();
            offset = range.end;
            return true;
        }
        // A reference or a carriage return takes more room in the file than in the text.
        for (int left = position - before; left > 0 && offset < range.end; ++offset, --left) {
            const QChar c = m_source.text().at(offset);
            if (c == QLatin1Char('\r'))
                ++left;
            else if (c == QLatin1Char('&'))
                offset = referenceAt(m_source.text(), offset).end - 1;
        }
        return false;
    });
    return offset;
}

QVector<int> Description::textOffsets(int index) const
{
    QVector<int> offsets;
    int end = element(index).tag.end;
    const QString& whole = m_source.text();
    visitText(index, [&](const TextPiece& piece, const QString&) {
        end = piece.range.end;
        for (int offset = piece.range.begin; offset < end;) {
            const QChar c = whole.at(offset);
            const bool mayRefer = c == QLatin1Char('&') && !piece.isCData;
            const Reference reference = mayRefer ? referenceAt(whole, offset) : Reference();
            if (!reference.isKnown()) {
                if (c != QLatin1Char('\r'))
                    offsets.append(offset);
                ++offset;
                continue;
            }
            offsets.insert(offsets.size(), reference.text.size(), offset);
            offset = reference.end;
        }
        return true;
    });
    offsets.append(end);
    return offsets;
}

Range Description::contentRange(int index) const
{
    const SourceElement& owner = element(index);
    return trimmed({owner.tag.end, qMax(owner.tag.end, owner.contentEnd)});
}

Range Description::trimmed(Range range) const
{
    const QString& text = m_source.text();
    while (range.begin < range.end && text.at(range.begin).isSpace())
        ++range.begin;
    while (range.end > range.begin && text.at(range.end - 1).isSpace())
        --range.end;
    return range;
}

bool Description::isComment(int offset) const
{
    const auto behind =
        std::upper_bound(m_comments.cbegin(), m_comments.cend(), offset,
                         [](int wanted, const Comment& comment) { return wanted < comment.range.begin; });
    return behind != m_comments.cbegin() && std::prev(behind)->range.contains(offset);
}

bool Description::isInside(int index, int ancestor) const
{
    const SourceElement& outer = element(ancestor);
    const int begin = element(index).tag.begin;
    return begin >= outer.tag.begin && begin < outer.end;
}

namespace {

/** Letters to insert, remove or exchange, or neighbours to swap, between two short texts. */
int editDistance(const QString& left, const QString& right)
{
    const int width = right.size() + 1;
    std::vector<int> cells(static_cast<size_t>((left.size() + 1) * width));
    const auto cost = [&cells, width](int i, int j) -> int& {
        return cells[static_cast<size_t>(i * width + j)];
    };
    for (int i = 0; i <= left.size(); ++i) {
        for (int j = 0; j <= right.size(); ++j) {
            if (i == 0 || j == 0) {
                cost(i, j) = i + j;
                continue;
            }
            const int change = left.at(i - 1) == right.at(j - 1) ? 0 : 1;
            int best = qMin(qMin(cost(i - 1, j), cost(i, j - 1)) + 1, cost(i - 1, j - 1) + change);
            if (i > 1 && j > 1 && left.at(i - 1) == right.at(j - 2) && left.at(i - 2) == right.at(j - 1))
                best = qMin(best, cost(i - 2, j - 2) + 1);
            cost(i, j) = best;
        }
    }
    return cost(left.size(), right.size());
}

constexpr int longestCompared = 64;

/** One bit for each letter that stands in the text, case not counted; some letters share one. */
quint64 lettersOf(const QString& text)
{
    quint64 letters = 0;
    for (const QChar c : text)
        letters |= quint64(1) << (c.toLower().unicode() % 64);
    return letters;
}

/** How far @p written is from @p meant, case not counted; a large number if it is not near. */
int missDistance(const QString& written, const QString& meant)
{
    constexpr int far = 1000;
    if (written == meant || written.size() > longestCompared || qAbs(written.size() - meant.size()) > 2)
        return far;
    const int allowed = meant.size() < 4 ? 1 : 2;
    // Each exchange of a letter changes two bits at most; so most texts need no closer look.
    if (qPopulationCount(lettersOf(written) ^ lettersOf(meant)) > static_cast<uint>(2 * allowed))
        return far;
    const int distance = editDistance(written.toLower(), meant.toLower());
    return distance <= allowed && distance < meant.size() ? distance : far;
}

} // namespace

bool isNearMiss(const QString& written, const QString& meant)
{
    return missDistance(written, meant) < 1000;
}

QString nearest(const QString& written, const QStringList& known)
{
    QString best;
    int bestDistance = 1000;
    for (const QString& candidate : known) {
        const int distance = missDistance(written, candidate);
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace Author
} // namespace Orvane
