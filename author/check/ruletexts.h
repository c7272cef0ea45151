#ifndef ZORVA_AUTHOR_RULETEXTS_H
#define ZORVA_AUTHOR_RULETEXTS_H

#include "rule.h"

#include <QString>

namespace Orvane {
namespace Author {

/** A rule's snippet as a whole description. */
QString wholeDescription(const char* snippet);
/** All about a rule, for a terminal. */
QString explanation(const Rule& rule);
/** All about all rules: docs/checker.md from its first rule on. */
QString rulePage();

} // namespace Author
} // namespace Orvane

#endif
