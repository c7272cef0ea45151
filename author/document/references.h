#ifndef ZORVA_AUTHOR_REFERENCES_H
#define ZORVA_AUTHOR_REFERENCES_H

#include <QString>

namespace Orvane {
namespace Author {

/** One "&...;" of a text. */
struct Reference
{
    int end = 0;  // behind it
    QString text; // what it stands for; null if XML itself does not know it

    bool isKnown() const { return !text.isNull(); }
};

/** The reference that begins with the "&" at @p offset. */
Reference referenceAt(const QString& text, int offset);
/** @p text with known references replaced; in an @p attribute every blank is a space, as XML has it. */
QString resolved(const QString& text, bool attribute);

} // namespace Author
} // namespace Orvane

#endif
