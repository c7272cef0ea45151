#ifndef ZORVA_RIG_FORMWRITER_H
#define ZORVA_RIG_FORMWRITER_H

#include "parameter.h"

#include <QList>
#include <QString>

namespace radio {

/** A form description for a radio: one row for each parameter, in groups. */
QString formFor(const QString& title, const QList<Parameter>& parameters);

} // namespace radio

#endif
