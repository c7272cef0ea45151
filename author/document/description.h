#ifndef ZORVA_AUTHOR_DESCRIPTION_H
#define ZORVA_AUTHOR_DESCRIPTION_H

#include "sourcetext.h"

#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

struct SourceAttribute
{
    QString name; // with its prefix: the engine compares whole names
    QString value;
    Range nameRange;
    Range valueRange; // between the quotes
};

/** One start tag and what belongs to it. Elements refer to each other by index; -1 is none. */
struct SourceElement
{
    QString name; // without its prefix, as the engine takes it
    QString qualifiedName;
    Range tag;          // the start tag
    int contentEnd = 0; // where the content ends: at the end tag, or where that is missing
    int end = 0;        // behind the end tag
    bool closed = true; // the start tag has its ">"
    bool empty = false; // "/>"
    bool sound = true;  // nothing in the start tag is broken
    int parent = -1;
    int firstChild = -1;
    int lastChild = -1;
    int nextSibling = -1;
    QVector<SourceAttribute> attributes;

    /** Null if there is none of that name. */
    const SourceAttribute* attribute(const char* name) const;
    /** Empty also for an attribute that is not there. */
    QString value(const char* name) const;
    /** The element's name within the start tag. */
    Range nameRange() const { return {tag.begin + 1, tag.begin + 1 + qualifiedName.size()}; }
};

struct Comment
{
    Range range;  // with its marks
    Range inside; // without
};

/** A stretch of text without tags and comments in it. */
struct TextPiece
{
    Range range;
    int element = -1;     // the element that it stands in directly; -1 if in none
    bool isCData = false; // no references in it
};

/** What keeps a text from being well-formed, in the words of an author. */
struct Problem
{
    Range range; // what the mark goes below
    QString message;
    int until = 0; // how far a reader may get before it notices
};

/** What a text ends within, as it does while somebody is writing it. */
struct TextEnd
{
    enum Kind { Content, StartTag, EndTag, Comment, CData, Instruction };

    Kind kind = Content;
    int begin = 0;     // where that begins; for content the end of the text
    int element = -1;  // the innermost element that is open there
    SourceElement tag; // of a start tag, as far as it goes
};

/**
 * A description as its author meant it: elements, attributes, texts and comments,
 * with positions, whatever state the text is in. Reads on behind every error: a
 * start tag counts wherever it stands outside comments, CDATA sections and
 * processing instructions, and an element that is never ended ends with the one
 * around it.
 */
class Description
{
public:
    explicit Description(const SourceText& source);

    const SourceText& source() const { return m_source; }
    const QVector<SourceElement>& elements() const { return m_elements; }
    const SourceElement& element(int index) const { return m_elements.at(index); }
    const QVector<Comment>& comments() const { return m_comments; }
    /** All text between tags, blank or not, in order of place. */
    const QVector<TextPiece>& texts() const { return m_texts; }
    /** In order of place. Guesses: only a reader of XML knows whether a text is well-formed. */
    const QVector<Problem>& problems() const { return m_problems; }

    const TextEnd& textEnd() const { return m_textEnd; }

    /** Elements of that name wherever they stand, in order of place. */
    QVector<int> elementsNamed(const char* name) const;
    /** The element whose start tag ends at @p offset; -1 if none does. */
    int elementEndingAt(int offset) const;
    /** The element whose start tag begins at @p offset; -1 if none does. */
    int elementBeginningAt(int offset) const;
    /** The innermost element that has @p offset in its tags or its content; -1 if none has. */
    int elementAt(int offset) const;
    /** The child elements of @p index; of -1 the ones that stand in no other. */
    QVector<int> children(int index) const;
    /** First child of that name; -1 if there is none. */
    int child(int index, const char* name) const;
    /** All that stands in the element as text: also in CDATA and in elements inside, references resolved. */
    QString textOf(int index) const;
    /** The stretch of the element's content that is not blank at its ends. */
    Range contentRange(int index) const;
    /** @p range without the blanks at its ends. */
    Range trimmed(Range range) const;
    /** True if @p offset lies in a comment. */
    bool isComment(int offset) const;
    /** Place in the text of the character @p position of textOf(index). */
    int offsetInText(int index, int position) const;
    /** The same for each character of textOf(index), and for its end. */
    QVector<int> textOffsets(int index) const;
    /** True if @p ancestor is @p index or has it somewhere inside. */
    bool isInside(int index, int ancestor) const;

private:
    friend class Scanner;

    template <typename Visit>
    void visitText(int index, Visit visit) const;

    SourceText m_source;
    QVector<SourceElement> m_elements;
    QVector<TextPiece> m_texts;
    QVector<Comment> m_comments;
    QVector<Problem> m_problems;
    TextEnd m_textEnd;
    int m_firstRoot = -1;
    int m_lastRoot = -1;
};

/** True for texts that a quick or tired writer takes for each other; equal ones are not. */
bool isNearMiss(const QString& written, const QString& meant);
/** The one of @p known that @p written comes nearest to; empty if none is near. */
QString nearest(const QString& written, const QStringList& known);

} // namespace Author
} // namespace Orvane

#endif
