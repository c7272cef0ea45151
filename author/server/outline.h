#ifndef ZORVA_AUTHOR_OUTLINE_H
#define ZORVA_AUTHOR_OUTLINE_H

#include "protocol.h"

namespace Orvane {
namespace Author {

/**
 * Enumerations with their entries, the sheet with its rows (those below a headline
 * inside it), the script with its functions; flat for editors that know no tree.
 */
QJsonArray outlineOf(const OpenDocument& document, const ClientAbilities& abilities);

/** Elements, comments and blocks of the script that take several lines; the largest first given up last. */
QJsonArray foldingRangesOf(const OpenDocument& document, const ClientAbilities& abilities);

} // namespace Author
} // namespace Orvane

#endif
