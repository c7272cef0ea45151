#include "formatter.h"

#include <QList>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace Orvane {
namespace Author {

namespace {

/** A piece of markup or the text between two of them, exactly as written. */
struct Piece
{
    enum Kind { StartTag, EndTag, EmptyTag, Comment, Other, Verbatim, Text };

    Kind kind = Text;
    QString text;
};

bool isBlank(const QString& text)
{
    for (const QChar letter : text) {
        if (letter != QLatin1Char(' ') && letter != QLatin1Char('\t') && letter != QLatin1Char('\n') &&
            letter != QLatin1Char('\r'))
            return false;
    }
    return true;
}

/** Behind the end of a tag that begins at @p start: a '>' in quotes ends nothing. */
int endOfTag(const QString& text, int start)
{
    QChar quote;
    for (int i = start; i < text.size(); ++i) {
        const QChar letter = text.at(i);
        if (!quote.isNull()) {
            if (letter == quote)
                quote = QChar();
        } else if (letter == QLatin1Char('"') || letter == QLatin1Char('\'')) {
            quote = letter;
        } else if (letter == QLatin1Char('>')) {
            return i + 1;
        }
    }
    return text.size();
}

/** Behind the next @p mark, or the end of the text. */
int behind(const QString& text, const char* mark, int from)
{
    const QLatin1String wanted(mark);
    const int found = text.indexOf(wanted, from);
    return found < 0 ? text.size() : found + wanted.size();
}

/** A document type may hold declarations in brackets, with quotes and comments of their own. */
int endOfDocumentType(const QString& text, int start)
{
    int i = start;
    int depth = 0;
    while (i < text.size()) {
        const QChar letter = text.at(i);
        if (text.midRef(i, 4) == QLatin1String("<!--")) {
            i = behind(text, "-->", i);
            continue;
        }
        if (letter == QLatin1Char('"') || letter == QLatin1Char('\'')) {
            const int close = text.indexOf(letter, i + 1);
            i = close < 0 ? text.size() : close + 1;
            continue;
        }
        if (letter == QLatin1Char('['))
            ++depth;
        else if (letter == QLatin1Char(']'))
            --depth;
        else if (letter == QLatin1Char('>') && depth == 0)
            return i + 1;
        ++i;
    }
    return text.size();
}

/** A start tag with one blank between its parts; quotes and what is in them stay. */
QString tidyTag(const QString& tag)
{
    QString tidy;
    QChar quote;
    bool blank = false;
    for (const QChar letter : tag) {
        if (!quote.isNull()) {
            tidy += letter;
            if (letter == quote)
                quote = QChar();
            continue;
        }
        if (letter.isSpace()) {
            blank = true;
            continue;
        }
        const bool closes = letter == QLatin1Char('>') || letter == QLatin1Char('/');
        const bool joins = letter == QLatin1Char('=') || tidy.endsWith(QLatin1Char('='));
        if (blank && !closes && !joins)
            tidy += QLatin1Char(' ');
        blank = false;
        tidy += letter;
        if (letter == QLatin1Char('"') || letter == QLatin1Char('\''))
            quote = letter;
    }
    return tidy;
}

Piece tagPiece(const QString& tag)
{
    if (tag.startsWith(QLatin1String("</")))
        return {Piece::EndTag, tidyTag(tag)};
    return {tag.endsWith(QLatin1String("/>")) ? Piece::EmptyTag : Piece::StartTag, tidyTag(tag)};
}

Piece markupAt(const QString& text, int start, int& end)
{
    if (text.midRef(start, 4) == QLatin1String("<!--")) {
        end = behind(text, "-->", start + 4);
        return {Piece::Comment, text.mid(start, end - start)};
    }
    if (text.midRef(start, 9) == QLatin1String("<![CDATA[")) {
        end = behind(text, "]]>", start);
        return {Piece::Verbatim, text.mid(start, end - start)};
    }
    if (text.midRef(start, 2) == QLatin1String("<?")) {
        end = behind(text, "?>", start);
        return {Piece::Other, text.mid(start, end - start)};
    }
    if (text.midRef(start, 2) == QLatin1String("<!")) {
        end = endOfDocumentType(text, start + 2);
        return {Piece::Other, text.mid(start, end - start)};
    }
    end = endOfTag(text, start);
    return tagPiece(text.mid(start, end - start));
}

QList<Piece> piecesOf(const QString& text)
{
    QList<Piece> pieces;
    int place = 0;
    while (place < text.size()) {
        int end = text.indexOf(QLatin1Char('<'), place);
        if (end != place) {
            end = end < 0 ? text.size() : end;
            const QString between = text.mid(place, end - place);
            pieces.append({isBlank(between) ? Piece::Text : Piece::Verbatim, between});
        } else {
            pieces.append(markupAt(text, place, end));
        }
        place = end;
    }
    return pieces;
}

/** For each start tag the position of its end tag, and whether what is between may be laid out. */
struct Span
{
    int end = -1;
    bool free = false; // holds elements and no text of its own, so that blanks mean nothing
};

bool preservesSpace(const QString& tag)
{
    return tag.contains(QLatin1String("xml:space"));
}

QList<Span> spansOf(const QList<Piece>& pieces)
{
    struct Open
    {
        int start;
        bool hasElements;
        bool hasText;
    };
    QList<Span> spans;
    for (int i = 0; i < pieces.size(); ++i)
        spans.append(Span());
    QList<Open> open;
    for (int i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces.at(i);
        const bool opens = piece.kind == Piece::StartTag;
        if ((opens || piece.kind == Piece::EmptyTag) && !open.isEmpty())
            open.last().hasElements = true;
        if (piece.kind == Piece::Verbatim && !open.isEmpty())
            open.last().hasText = true;
        if (opens)
            open.append({i, false, preservesSpace(piece.text)});
        if (piece.kind == Piece::EndTag && !open.isEmpty()) {
            const Open closed = open.takeLast();
            spans[closed.start] = {i, closed.hasElements && !closed.hasText};
        }
    }
    return spans;
}

QString localName(const QString& tag)
{
    int end = 1;
    while (end < tag.size() && !tag.at(end).isSpace() && tag.at(end) != QLatin1Char('>') &&
           tag.at(end) != QLatin1Char('/'))
        ++end;
    return tag.mid(1, end - 1).section(QLatin1Char(':'), -1);
}

/** Writes the pieces in their new lines. */
class Layout
{
public:
    explicit Layout(const QString& text)
        : m_pieces(piecesOf(text))
        , m_spans(spansOf(m_pieces))
        , m_lineEnd(text.contains(QLatin1String("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n"))
    {
    }

    QString written()
    {
        for (int i = 0; i < m_pieces.size(); ++i)
            i = write(i);
        return m_result + m_lineEnd;
    }

private:
    /** Writes the piece at @p i, and what belongs to it as it stands; the last position written. */
    int write(int i)
    {
        const Piece& piece = m_pieces.at(i);
        if (piece.kind == Piece::Text) {
            m_gap += piece.text;
            return i;
        }
        if (piece.kind == Piece::EndTag)
            --m_depth;
        separate(piece);
        if (piece.kind == Piece::StartTag && !m_spans.at(i).free)
            return writeWhole(i, false);
        if (piece.kind == Piece::StartTag && isOneLine(i))
            return writeWhole(i, true);
        m_result += piece.text;
        if (piece.kind == Piece::StartTag)
            ++m_depth;
        finish(piece);
        return i;
    }

    /** From a start tag to its end tag; blanks between go, or stay as they are. */
    int writeWhole(int start, bool withoutBlanks)
    {
        const int end = m_spans.at(start).end;
        bool inText = false;
        for (int i = start; i <= end; ++i) {
            const Piece& piece = m_pieces.at(i);
            if (withoutBlanks && piece.kind == Piece::StartTag && i != start)
                inText = true;
            if (!withoutBlanks || inText || piece.kind != Piece::Text)
                m_result += piece.text;
            if (piece.kind == Piece::EndTag)
                inText = false;
        }
        finish(m_pieces.at(end));
        return end;
    }

    /** A "Property" around one value without line ends or comments. */
    bool isOneLine(int start) const
    {
        if (localName(m_pieces.at(start).text) != QLatin1String("Property"))
            return false;
        int elements = 0;
        for (int i = start + 1; i < m_spans.at(start).end; ++i) {
            const Piece& piece = m_pieces.at(i);
            const bool opens = piece.kind == Piece::StartTag;
            const bool isValue = i > start + 1 && m_pieces.at(i - 1).kind == Piece::StartTag;
            if (piece.kind == Piece::Comment || piece.kind == Piece::Other)
                return false;
            if ((piece.kind == Piece::Verbatim || isValue) && piece.text.contains(QLatin1Char('\n')))
                return false;
            if ((opens && m_spans.at(i).free) || ((opens || piece.kind == Piece::EmptyTag) && ++elements > 1))
                return false;
        }
        return elements == 1;
    }

    /** Ends the line before @p piece, unless a comment on the same line keeps it there. */
    void separate(const Piece& piece)
    {
        const int lines = m_gap.count(QLatin1Char('\n'));
        const bool beside = lines == 0 && (piece.kind == Piece::Comment || m_lastWasComment);
        const bool closes = piece.kind == Piece::EndTag;
        m_gap.clear();
        if (m_result.isEmpty())
            return;
        if (beside) {
            m_result += QLatin1Char(' ');
            return;
        }
        m_result += m_lineEnd;
        if (lines > 1 && !closes && !m_lastOpened)
            m_result += m_lineEnd;
        m_result += QString(2 * m_depth, QLatin1Char(' '));
    }

    void finish(const Piece& piece)
    {
        m_lastWasComment = piece.kind == Piece::Comment;
        m_lastOpened = piece.kind == Piece::StartTag;
    }

    QList<Piece> m_pieces;
    QList<Span> m_spans;
    QString m_lineEnd;
    QString m_result;
    QString m_gap; // blanks since the last piece
    int m_depth = 0;
    bool m_lastWasComment = false;
    bool m_lastOpened = false;
};

/** What a reader gets of a document, without the blanks between elements. */
QStringList meaningOf(const QByteArray& bytes)
{
    QStringList meaning;
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isCharacters() && reader.isWhitespace() && !reader.isCDATA())
            continue;
        // The reader counts blanks ahead of a document type as part of it.
        const QString text = reader.isDTD() ? reader.text().trimmed().toString() : reader.text().toString();
        QString line =
            QString::number(reader.tokenType()) + reader.qualifiedName().toString() + QLatin1Char('|') + text;
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            line += QLatin1Char('|') + attribute.qualifiedName() + QLatin1Char('=') + attribute.value();
        meaning.append(line);
    }
    return meaning;
}

FormattedText refusal(const QString& problem, int line, int column)
{
    FormattedText result;
    result.problem = problem;
    result.line = line;
    result.column = column;
    return result;
}

QTextCodec* codecOf(const QByteArray& bytes, const QString& declared)
{
    QTextCodec* const marked = QTextCodec::codecForUtfText(bytes, nullptr);
    if (marked)
        return marked;
    return QTextCodec::codecForName(declared.isEmpty() ? QByteArray("UTF-8") : declared.toLatin1());
}

QByteArray encode(QTextCodec& codec, const QString& text, bool withMark)
{
    QTextCodec::ConverterState state(withMark ? QTextCodec::DefaultConversion : QTextCodec::IgnoreHeader);
    return codec.fromUnicode(text.constData(), text.size(), &state);
}

} // namespace

FormattedText formatDescription(const QByteArray& bytes)
{
    QString encoding;
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartDocument)
            encoding = reader.documentEncoding().toString();
    }
    if (reader.hasError())
        return refusal(QStringLiteral("not well-formed: %1").arg(reader.errorString()),
                       static_cast<int>(reader.lineNumber()), static_cast<int>(reader.columnNumber()) + 1);

    QTextCodec* const codec = codecOf(bytes, encoding);
    if (!codec)
        return refusal(QStringLiteral("the encoding %1 is not known").arg(encoding), 1, 1);
    QString text = codec->toUnicode(bytes);
    const bool isMarked = QTextCodec::codecForUtfText(bytes, nullptr) != nullptr;
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    if (encode(*codec, text, isMarked) != bytes)
        return refusal(QStringLiteral("some of its bytes are no text of its encoding"), 1, 1);

    FormattedText result;
    result.bytes = encode(*codec, Layout(text).written(), isMarked);
    // Whatever the layout could get wrong, the author's text is worth more.
    if (meaningOf(result.bytes) != meaningOf(bytes))
        return refusal(QStringLiteral("it cannot be laid out without changing what it means"), 1, 1);
    return result;
}

} // namespace Author
} // namespace Orvane
