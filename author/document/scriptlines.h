#ifndef ZORVA_AUTHOR_SCRIPTLINES_H
#define ZORVA_AUTHOR_SCRIPTLINES_H

#include "description.h"

#include <QVector>

namespace Orvane {
namespace Author {

/**
 * Where line @p line of the code, from 1 on, begins in the text of the script, whose
 * escapes are line ends in the code; blanks in front are passed over.
 */
int offsetOfScriptLine(const QString& text, int line);

/** For each line of the code of the script @p element, from 0 on, its line in the description. */
QVector<int> scriptLinesInFile(const Description& description, int element);

} // namespace Author
} // namespace Orvane

#endif
