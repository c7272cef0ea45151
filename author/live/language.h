#ifndef ZORVA_AUTHOR_LANGUAGE_H
#define ZORVA_AUTHOR_LANGUAGE_H

#include <QString>
#include <QStringList>

namespace Orvane {
namespace Author {

/**
 * Lets forms speak @p language ("de", "de_CH"), with files of translations from @p folders, the
 * last one first; an empty language leaves it as it is. The
 * library's own words come from where they are installed. Gives why that cannot be; empty if it can.
 */
QString speak(const QString& language, const QStringList& folders);

} // namespace Author
} // namespace Orvane

#endif
