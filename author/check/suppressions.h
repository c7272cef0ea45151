#ifndef ZORVA_AUTHOR_SUPPRESSIONS_H
#define ZORVA_AUTHOR_SUPPRESSIONS_H

namespace Orvane {
namespace Author {

class Subject;

/**
 * Takes out the findings that the description allows by comments of the form
 * `<!-- zorva: allow ID reason -->`. A comment holds for its own lines, and where
 * nothing stands before it on its line, for the element that follows with all it holds.
 * One that allows nothing, names no rule or gives no reason is reported itself.
 */
void applySuppressions(Subject& subject);

} // namespace Author
} // namespace Orvane

#endif
