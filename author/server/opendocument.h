#ifndef ZORVA_AUTHOR_OPENDOCUMENT_H
#define ZORVA_AUTHOR_OPENDOCUMENT_H

#include <author/check/subject.h>
#include <author/document/description.h>

#include <QString>
#include <QVector>

#include <memory>

namespace Orvane {
namespace Author {

/** Where an editor is: both count from 0, characters in UTF-16 units. */
struct EditorPosition
{
    int line = 0;
    int character = 0;
};

struct EditorRange
{
    EditorPosition begin;
    EditorPosition end;
};

/**
 * A description that is open in an editor, with every change that was made to it.
 * What is known of its text is worked out when somebody asks, once for each state of it.
 * Offsets are those of text(); positions that are nowhere count as the nearest that is.
 */
class OpenDocument
{
public:
    OpenDocument() = default;
    OpenDocument(const QString& uri, const QString& text, int version);

    const QString& uri() const { return m_uri; }
    int version() const { return m_version; }
    void setVersion(int version) { m_version = version; }

    /** Puts @p text in the place of what is in @p range. */
    void change(const EditorRange& range, const QString& text);
    void setText(const QString& text);

    /** Without a byte order mark. */
    const QString& text() const { return m_text; }
    /** The file that would be on the disk. */
    QByteArray stored() const { return storedBytes(m_hasMark ? QChar(0xfeff) + m_text : m_text); }
    const Description& description() const;
    /** The same text under the eyes of the rules, without its script run. */
    const Subject& subject() const;

    int offset(const EditorPosition& position) const;
    EditorPosition position(int offset) const;
    EditorRange range(const Range& range) const;
    int lineOf(int offset) const { return position(offset).line; }

private:
    int lineAt(int offset) const;
    /** A byte order mark counts as a character of the first line. */
    int markIn(int line) const { return m_hasMark && line == 0 ? 1 : 0; }
    void findLines(int from, int to, bool isEnd);
    void takeMark();
    void forget();

    QString m_uri;
    QString m_text;
    bool m_hasMark = false; // a byte order mark before it
    QVector<int> m_lineStarts{0};
    int m_version = 0;
    mutable std::shared_ptr<const Subject> m_subject;
    mutable std::shared_ptr<const Description> m_description;
};

} // namespace Author
} // namespace Orvane

#endif
