#ifndef ZORVA_AUTHOR_EFFECTIVEVALUE_H
#define ZORVA_AUTHOR_EFFECTIVEVALUE_H

#include <author/check/subject.h>
#include <author/check/writtenrow.h>

namespace Orvane {
namespace Author {

/** What the live form makes of a property that a row or the sheet has, in a sentence (Markdown). */
QString effectiveValue(const Subject& subject, const WrittenRow& row, const WrittenProperty& property);

} // namespace Author
} // namespace Orvane

#endif
