#ifndef ZORVA_AUTHOR_HOVER_H
#define ZORVA_AUTHOR_HOVER_H

#include "protocol.h"

namespace Orvane {
namespace Author {

/** What is known of that which stands at @p offset; null if nothing is. */
QJsonValue hoverAt(const OpenDocument& document, int offset, const ClientAbilities& abilities);

} // namespace Author
} // namespace Orvane

#endif
