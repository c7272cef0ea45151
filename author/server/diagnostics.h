#ifndef ZORVA_AUTHOR_DIAGNOSTICS_H
#define ZORVA_AUTHOR_DIAGNOSTICS_H

#include "protocol.h"

#include <author/check/finding.h>

namespace Orvane {
namespace Author {

/** One finding as an editor shows it: its message as it is, its effect beside it. */
QJsonObject diagnosticJson(const OpenDocument& document, const Finding& finding,
                           const ClientAbilities& abilities);
QJsonArray diagnosticsJson(const OpenDocument& document, const QVector<Finding>& findings,
                           const ClientAbilities& abilities);

} // namespace Author
} // namespace Orvane

#endif
