#include "templates.h"

#include <QDir>
#include <QFile>

static void initializeTemplateResource()
{
    Q_INIT_RESOURCE(templates);
}

namespace Orvane {
namespace Author {

QStringList formTemplateNames()
{
    initializeTemplateResource();
    return QDir(QStringLiteral(":/author/templates"))
        .entryList(QDir::Files, QDir::Name)
        .replaceInStrings(QStringLiteral(".zorva"), QString());
}

QByteArray formTemplate(const QString& name)
{
    if (!formTemplateNames().contains(name))
        return QByteArray();
    QFile file(QStringLiteral(":/author/templates/%1.zorva").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace Author
} // namespace Orvane
