#ifndef ZORVA_AUTHOR_FORMATTER_H
#define ZORVA_AUTHOR_FORMATTER_H

#include <QByteArray>
#include <QString>

namespace Orvane {
namespace Author {

/** What formatting made of a document. */
struct FormattedText
{
    QByteArray bytes; // in the encoding of the original; empty if it was refused
    QString problem;  // why it was refused, one sentence; empty if it was not
    int line = 0;     // place of the problem, from 1; 0 without one
    int column = 0;

    bool isRefused() const { return !problem.isEmpty(); }
};

/**
 * Lays out the XML text of a form description: one element a line, two blanks of
 * indentation a level, a "Property" with its value on one line. Everything that can
 * have a meaning stays byte for byte: names, attribute values, texts, comments,
 * their order, the encoding, the line ends. Comments stay on the line where they
 * stand, and a blank line between elements stays. Formatting twice is formatting once.
 * A document that is not well-formed is refused.
 */
FormattedText formatDescription(const QByteArray& bytes);

} // namespace Author
} // namespace Orvane

#endif
