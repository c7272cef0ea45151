#ifndef ZORVA_AUTHOR_TEMPLATES_H
#define ZORVA_AUTHOR_TEMPLATES_H

#include <QByteArray>
#include <QStringList>

namespace Orvane {
namespace Author {

/** The forms to begin with, by name. */
QStringList formTemplateNames();
/** The text of the form of that name, UTF-8; empty for an unknown name. */
QByteArray formTemplate(const QString& name);

} // namespace Author
} // namespace Orvane

#endif
