#include "compoundtranslator_p.h"

#include <QFile>
#include <QSet>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace {

// A .qm file: a mark, then sections, each with a tag, a length and that many
// bytes; numbers have the high byte first.
constexpr int markSize = 16;
constexpr int sectionHeadSize = 5;
constexpr int hashEntrySize = 8; // hash, offset of the message
constexpr uchar hashesTag = 0x42;
constexpr uchar dependenciesTag = 0x96;

/** The hashes of the texts in the file @p content, each once; false if it does not say all of them. */
bool readHashes(const QByteArray& content, QSet<quint32>* hashes)
{
    const auto* const bytes = reinterpret_cast<const uchar*>(content.constData());
    qint64 at = markSize;
    while (at + sectionHeadSize <= content.size()) {
        const uchar tag = bytes[at];
        const qint64 begin = at + sectionHeadSize;
        const qint64 end = begin + qFromBigEndian<quint32>(bytes + at + 1);
        if (end > content.size() || tag == dependenciesTag)
            return false;
        for (qint64 entry = begin; tag == hashesTag && entry + hashEntrySize <= end; entry += hashEntrySize)
            hashes->insert(qFromBigEndian<quint32>(bytes + entry));
        at = end;
    }
    return !hashes->isEmpty();
}

quint32 addToHash(quint32 hash, const char* text)
{
    for (; text && *text; ++text) {
        hash = (hash << 4) + static_cast<uchar>(*text);
        const quint32 high = hash & 0xf0000000;
        hash ^= high >> 24;
        hash &= ~high;
    }
    return hash;
}

/** How the files count a text: no hash is 0. */
quint32 hashOf(const char* sourceText, const char* disambiguation)
{
    return qMax(addToHash(addToHash(0, sourceText), disambiguation), 1U);
}

/** The largest number at the end of one of @p lists, taken off there; -1 if all are empty. */
template <std::size_t Count>
int takeLast(std::pair<const QVector<int>*, int> (&lists)[Count])
{
    int last = -1;
    for (const auto& list : lists) {
        if (list.second > 0)
            last = std::max(last, list.first->at(list.second - 1));
    }
    for (auto& list : lists) {
        if (list.second > 0 && list.first->at(list.second - 1) == last)
            --list.second;
    }
    return last;
}

} // namespace

void CompoundTranslator::Add(const Part& part)
{
    m_parts.append(part);
    enter(m_parts.size() - 1);
}

void CompoundTranslator::enter(int place)
{
    const QTranslator* const part = m_parts.at(place).get();
    m_places.insert(part, place);
    QFile file(part->filePath());
    QSet<quint32> hashes;
    if (!file.open(QIODevice::ReadOnly) || !readHashes(file.readAll(), &hashes)) {
        m_alwaysAsked.append(place);
        return;
    }
    for (const quint32 hash : qAsConst(hashes))
        m_placesOfHash[hash].append(place);
}

void CompoundTranslator::Remove(const Part& part)
{
    const auto place = m_places.find(part.get());
    if (place == m_places.end())
        return;
    m_parts[*place].reset();
    m_places.erase(place);
    // As many gaps as parts have to come together first, so that closing them is paid for.
    if (m_parts.size() > 2 * m_places.size())
        closeGaps();
}

void CompoundTranslator::closeGaps()
{
    m_parts.erase(std::remove(m_parts.begin(), m_parts.end(), nullptr), m_parts.end());
    m_places.clear();
    m_placesOfHash.clear();
    m_alwaysAsked.clear();
    for (int place = 0; place < m_parts.size(); ++place)
        enter(place);
}

QString CompoundTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                      int n) const
{
    // A text that nobody has with its comment may be there without one.
    const Places exact = m_placesOfHash.value(hashOf(sourceText, disambiguation));
    const Places plain = m_placesOfHash.value(hashOf(sourceText, nullptr));
    std::pair<const Places*, int> lists[] = {{&exact, int(exact.size())},
                                             {&plain, int(plain.size())},
                                             {&m_alwaysAsked, int(m_alwaysAsked.size())}};
    for (int place = takeLast(lists); place >= 0; place = takeLast(lists)) {
        const Part part = m_parts.at(place);
        const QString text = part ? part->translate(context, sourceText, disambiguation, n) : QString();
        if (!text.isNull())
            return text;
    }
    return QString();
}
