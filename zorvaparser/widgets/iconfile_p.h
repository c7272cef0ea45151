#ifndef ZORVAICONFILE_P_H
#define ZORVAICONFILE_P_H

#include <QIcon>
#include <QString>
#include <QVariant>

namespace Orvane {

/**
 * The icon at @p path, which a script may choose. Null if that is no regular file
 * (a pipe would never end), too large for a button, or a drawing that wants
 * further files.
 */
QIcon iconFromFile(const QString& path);

/** What @p size, a QSize, may be of a button's icon; anything else comes back as it is. */
QVariant boundedIconSize(const QVariant& size);

} // namespace Orvane

#endif
