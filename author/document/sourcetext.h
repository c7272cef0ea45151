#ifndef ZORVA_AUTHOR_SOURCETEXT_H
#define ZORVA_AUTHOR_SOURCETEXT_H

#include <QByteArray>
#include <QString>
#include <QVector>

class QTextCodec;

namespace Orvane {
namespace Author {

/** Where an editor shows a character: both count from 1, columns in code points. */
struct Place
{
    int line = 1;
    int column = 1;
};

/** A half-open stretch of a text, in UTF-16 units. */
struct Range
{
    int begin = 0;
    int end = 0;

    bool contains(int offset) const { return offset >= begin && offset < end; }
};

/**
 * The text of a description file with its positions. The engine opens files as
 * text and so never sees a carriage return; this keeps the file as it is stored
 * and knows where each character of the engine's text stands in it.
 */
class SourceText
{
public:
    SourceText() = default;
    /** @p stored is the file as it is on the disk. Any bytes will do. */
    explicit SourceText(const QByteArray& stored);

    /** The decoded text, without a byte order mark. */
    const QString& text() const { return m_text; }
    int size() const { return m_text.size(); }
    const QByteArray& stored() const { return m_stored; }
    /** What the engine reads of the file. */
    const QByteArray& engineBytes() const { return m_engineBytes; }

    /** Beyond the end counts as the end. Quickest in order of place. */
    Place place(int offset) const;
    /** The line of place(), quick in any order. */
    int lineAt(int offset) const;
    /** Byte of the file at which the character begins. */
    int byteOffset(int offset) const;
    /** The place in the text where the engine is after @p engineOffset characters. */
    int fromEngine(qint64 engineOffset) const;

    int lineCount() const { return m_lineStarts.size(); }
    /** Line @p number from 1 on, without its end; empty if there is none. */
    QString line(int number) const;
    /** Where that line stands, without its end; empty at the end of the text if there is none. */
    Range lineRange(int number) const;
    /** Offset of the first character of line @p number. */
    int lineStart(int number) const { return m_lineStarts.at(number - 1); }

    /** First character that the encoding cannot hold; -1 if all bytes are sound. */
    int firstUnreadable() const;

private:
    void findLines();
    int charOfByte(int byte) const;

    QByteArray m_stored;
    QByteArray m_engineBytes;
    QString m_text;
    QTextCodec* m_codec = nullptr; // not owned: Qt keeps its codecs
    int m_markSize = 0;            // bytes of the byte order mark
    int m_unitSize = 1;            // bytes of the smallest character
    bool m_unsound = false;
    QVector<int> m_lineStarts{0};
    QVector<int> m_returns; // offsets of carriage returns
    // The place that was asked for last.
    mutable int m_lastOffset = 0;
    mutable int m_lastColumn = 1;
};

/** The file that an editor stores for @p text: in the encoding that it declares, else UTF-8. What that
 * encoding does not have becomes "?", one for each UTF-16 unit. */
QByteArray storedBytes(const QString& text);

} // namespace Author
} // namespace Orvane

#endif
