#include "sourcetext.h"

#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

constexpr int utf8Mib = 106;

struct Signature
{
    const char* bytes;
    int size;
    const char* codec;
    int markSize;
    int unitSize;
};

// The longer ones first: the mark of UTF-32 begins like the one of UTF-16.
const Signature signatures[] = {
    {"\xff\xfe\0\0", 4, "UTF-32LE", 4, 4}, {"\0\0\xfe\xff", 4, "UTF-32BE", 4, 4},
    {"\xef\xbb\xbf", 3, "UTF-8", 3, 1},    {"\xff\xfe", 2, "UTF-16LE", 2, 2},
    {"\xfe\xff", 2, "UTF-16BE", 2, 2},     {"<\0\0\0", 4, "UTF-32LE", 0, 4},
    {"\0\0\0<", 4, "UTF-32BE", 0, 4},      {"<\0", 2, "UTF-16LE", 0, 2},
    {"\0<", 2, "UTF-16BE", 0, 2},
};

const Signature* signatureOf(const QByteArray& bytes)
{
    for (const Signature& signature : signatures) {
        if (bytes.startsWith(QByteArray::fromRawData(signature.bytes, signature.size)))
            return &signature;
    }
    return nullptr;
}

/** The codec that an XML declaration asks for; null if there is none that Qt knows. */
QTextCodec* declaredCodec(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes.left(1024));
    reader.readNext();
    const QStringRef name = reader.documentEncoding();
    return name.isEmpty() ? nullptr : QTextCodec::codecForName(name.toLatin1());
}

} // namespace

SourceText::SourceText(const QByteArray& stored)
    : m_stored(stored)
    , m_engineBytes(stored)
{
    if (stored.contains('\r'))
        m_engineBytes.replace("\r", QByteArray());
    m_codec = QTextCodec::codecForMib(utf8Mib);
    if (const Signature* const signature = signatureOf(stored)) {
        m_codec = QTextCodec::codecForName(signature->codec);
        m_markSize = signature->markSize;
        m_unitSize = signature->unitSize;
    }
    if (m_unitSize == 1) {
        if (QTextCodec* const declared = declaredCodec(m_engineBytes))
            m_codec = declared;
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    m_text = m_codec->toUnicode(stored.constData() + m_markSize, stored.size() - m_markSize, &state);
    m_unsound = state.invalidChars > 0;
    findLines();
}

void SourceText::findLines()
{
    const int size = m_text.size();
    for (int i = 0; i < size; ++i) {
        const QChar c = m_text.at(i);
        if (c == QLatin1Char('\r')) {
            m_returns.append(i);
            if (i + 1 < size && m_text.at(i + 1) == QLatin1Char('\n'))
                continue;
        } else if (c != QLatin1Char('\n')) {
            continue;
        }
        m_lineStarts.append(i + 1);
    }
}

int SourceText::lineAt(int offset) const
{
    const auto behind = std::upper_bound(m_lineStarts.cbegin(), m_lineStarts.cend(), qMax(0, offset));
    return static_cast<int>(behind - m_lineStarts.cbegin());
}

Place SourceText::place(int offset) const
{
    offset = qBound(0, offset, m_text.size());
    const int line = lineAt(offset);
    // Places are mostly asked for in order, and a line may be the whole file.
    if (m_lastOffset > offset || m_lastOffset < lineStart(line)) {
        m_lastOffset = lineStart(line);
        m_lastColumn = 1;
    }
    for (; m_lastOffset < offset; ++m_lastOffset) {
        const bool isPair = m_text.at(m_lastOffset).isHighSurrogate() && m_lastOffset + 1 < m_text.size() &&
                            m_text.at(m_lastOffset + 1).isLowSurrogate();
        m_lastColumn += isPair ? 0 : 1;
    }
    return {line, m_lastColumn};
}

int SourceText::byteOffset(int offset) const
{
    if (!m_codec)
        return 0;
    const QStringRef before = m_text.leftRef(qBound(0, offset, m_text.size()));
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return m_markSize + m_codec->fromUnicode(before.constData(), before.size(), &state).size();
}

int SourceText::charOfByte(int byte) const
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const int size = qBound(0, byte, m_stored.size()) - m_markSize;
    return size <= 0 ? 0 : m_codec->toUnicode(m_stored.constData() + m_markSize, size, &state).size();
}

int SourceText::fromEngine(qint64 engineOffset) const
{
    const int wanted = static_cast<int>(qMin<qint64>(engineOffset, m_text.size()));
    if (m_engineBytes.size() == m_stored.size())
        return wanted;
    if (m_unitSize == 1) {
        // The first offset with that many characters before it which are no carriage returns.
        int offset = wanted;
        auto next = m_returns.cbegin();
        for (; next != m_returns.cend() && *next < offset; ++next)
            ++offset;
        return qMin(offset, m_text.size());
    }
    // Where characters are wide, the engine loses single bytes of them.
    int byte = m_markSize + wanted * m_unitSize;
    for (int i = m_markSize; i < m_stored.size() && i < byte; ++i)
        byte += m_stored.at(i) == '\r' ? 1 : 0;
    return charOfByte(byte);
}

QString SourceText::line(int number) const
{
    const Range range = lineRange(number);
    return m_text.mid(range.begin, range.end - range.begin);
}

Range SourceText::lineRange(int number) const
{
    if (number < 1 || number > lineCount())
        return {m_text.size(), m_text.size()};
    const int begin = lineStart(number);
    int end = number < lineCount() ? lineStart(number + 1) : m_text.size();
    while (end > begin &&
           (m_text.at(end - 1) == QLatin1Char('\n') || m_text.at(end - 1) == QLatin1Char('\r')))
        --end;
    return {begin, end};
}

int SourceText::firstUnreadable() const
{
    return m_unsound ? qMax(0, m_text.indexOf(QChar(QChar::ReplacementCharacter))) : -1;
}

QByteArray storedBytes(const QString& text)
{
    QTextCodec* const codec = declaredCodec(text.left(1024).toLatin1());
    if (!codec || codec->mibEnum() == utf8Mib)
        return text.toUtf8();
    if (codec->canEncode(text))
        return codec->fromUnicode(text);
    QString sound = text;
    for (QChar& c : sound) {
        if (!codec->canEncode(c))
            c = QLatin1Char('?');
    }
    return codec->fromUnicode(sound);
}

} // namespace Author
} // namespace Orvane
