#ifndef ZORVA_AUTHOR_COMPLETION_H
#define ZORVA_AUTHOR_COMPLETION_H

#include "protocol.h"

namespace Orvane {
namespace Author {

/** What may stand at @p offset: a list of completion items. Whatever state the text is in. */
QJsonObject completionAt(const OpenDocument& document, int offset, const ClientAbilities& abilities);

} // namespace Author
} // namespace Orvane

#endif
