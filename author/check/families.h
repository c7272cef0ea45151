#ifndef ZORVA_AUTHOR_FAMILIES_H
#define ZORVA_AUTHOR_FAMILIES_H

#include "rule.h"

#include <QStringList>

namespace Orvane {
namespace Author {

/** In the order of the page of rules. */
const QVector<const Family*>& families();

/** Null if no rule has that id. */
const Rule* findRule(const QString& id);
QStringList ruleIds();

extern const Family documentFamily;
extern const Family typesFamily;
extern const Family namesFamily;
extern const Family enumerationsFamily;
extern const Family rowsFamily;
extern const Family pathsFamily;
extern const Family scriptFamily;
extern const Family reachFamily;
extern const Family suppressionFamily;

} // namespace Author
} // namespace Orvane

#endif
