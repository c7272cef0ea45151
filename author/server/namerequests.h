#ifndef ZORVA_AUTHOR_NAMEREQUESTS_H
#define ZORVA_AUTHOR_NAMEREQUESTS_H

#include "protocol.h"

namespace Orvane {
namespace Author {

/** Where the thing is made that is named at @p offset: a list of locations, empty if nothing is named there.
 */
QJsonArray definitionsAt(const OpenDocument& document, int offset);
/** Every place where it is named. */
QJsonArray referencesAt(const OpenDocument& document, int offset, bool withDefinitions);
/** The same for the editor to mark them. */
QJsonArray highlightsAt(const OpenDocument& document, int offset);

/** The name at @p offset with its range, or why it cannot be renamed. */
Reply renamableAt(const OpenDocument& document, int offset);
/**
 * Gives what is named at @p offset another name in the description and the script. Paths
 * in parameter XML stay as they are: devices and stored settings know them. Fails with a
 * sentence if the form would mean something else by it.
 */
Reply renameAt(const OpenDocument& document, int offset, const QString& newName);

} // namespace Author
} // namespace Orvane

#endif
