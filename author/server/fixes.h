#ifndef ZORVA_AUTHOR_FIXES_H
#define ZORVA_AUTHOR_FIXES_H

#include "protocol.h"

#include <author/check/finding.h>

namespace Orvane {
namespace Author {

/**
 * What can be done about the findings that touch @p range: the near name in place of a
 * misspelt one, and for what is no error a comment that allows it.
 */
QJsonArray fixesFor(const OpenDocument& document, const QVector<Finding>& findings, const Range& range,
                    const ClientAbilities& abilities);

/** Edits that lay the text out as "zorva format" does; fails where that refuses. */
Reply layoutOf(const OpenDocument& document);

} // namespace Author
} // namespace Orvane

#endif
