#ifndef ZORVA_AUTHOR_RELAXNG_H
#define ZORVA_AUTHOR_RELAXNG_H

#include <QByteArray>

namespace Orvane {
namespace Author {

class KindTable;

/**
 * The language as a RELAX NG schema in XML syntax, UTF-8, made from @p table: the
 * content of a "Widget" depends on its class. It is stricter than the engine, which
 * takes everything: what it rejects loses something or does nothing. What a grammar
 * cannot see (doubled properties, names that point nowhere) it accepts.
 */
QByteArray relaxNgSchema(const KindTable& table);

} // namespace Author
} // namespace Orvane

#endif
