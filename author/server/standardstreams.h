#ifndef ZORVA_AUTHOR_STANDARDSTREAMS_H
#define ZORVA_AUTHOR_STANDARDSTREAMS_H

#include "languageserver.h"

namespace Orvane {
namespace Author {

/**
 * Serves an editor over the standard input and output until it says that it is enough,
 * closes the input, or dies. Needs an application object, a display at no time. Gives
 * the exit code: 0 after a proper farewell, 1 without.
 */
int serveStandardStreams(const LanguageServer::Settings& settings);

} // namespace Author
} // namespace Orvane

#endif
