#ifndef ZORVA_AUTHOR_SCRIPTCOMPLETION_H
#define ZORVA_AUTHOR_SCRIPTCOMPLETION_H

namespace Orvane {
namespace Author {

class CompletionList;
class CursorPlace;

/** Offers what the script may go on with at @p place: globals, or what an object has. */
void completeScript(const CursorPlace& place, CompletionList& list);

} // namespace Author
} // namespace Orvane

#endif
