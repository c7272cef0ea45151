#ifndef ZORVA_AUTHOR_STATEMENTLINES_H
#define ZORVA_AUTHOR_STATEMENTLINES_H

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/**
 * The lines of a script, from 1 on and in order, in which a statement begins that the
 * interpreter reports as it runs: blocks, declarations of functions, labels,
 * empty statements and variables without a value are none.
 * Sound for code that compiles.
 */
QVector<int> statementLines(const QString& code);

} // namespace Author
} // namespace Orvane

#endif
