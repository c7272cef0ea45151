#include "zorvadelegate.h"

#include <zorvaparser/zorvasheet.h>

#include <QStringBuilder>

namespace Orvane {

void ZorvaDelegate::SetXmlPath(const QString& path)
{
    const QString oldTag = xmlTagName;
    xmlPath = path.isEmpty() ? objectName() : path;
    xmlTagName = xmlPath.mid(xmlPath.lastIndexOf(QLatin1Char('/')) + 1);
    if (!path.isEmpty())
        allTags.append(xmlTagName);
    ZorvaSheet* const sheet = GetSheet();
    if (sheet && xmlTagName != oldTag)
        sheet->TagsChanged();
}

const QString& ZorvaDelegate::GetXmlPath() const
{
    return xmlPath;
}

const QString& ZorvaDelegate::GetXmlTagName() const
{
    return xmlTagName;
}

void ZorvaDelegate::AddXmlTag(QString tag)
{
    if (!ContainsXmlTag(tag))
        allTags.append(tag);
}

bool ZorvaDelegate::ContainsXmlTag(QString tag)
{
    return allTags.contains(tag, Qt::CaseInsensitive);
}

const QStringList& ZorvaDelegate::GetAllTags() const
{
    return allTags;
}

bool ZorvaDelegate::HasSeveralXmlTags()
{
    return allTags.count() > 1;
}

void ZorvaDelegate::SetVTPath(const QString& path)
{
    // An empty path counts as one that ends in a slash, and so gives no leading one.
    if (path.isEmpty() || path.endsWith(QLatin1Char('/')))
        vtPath = path + xmlPath;
    else
        vtPath = path % QLatin1Char('/') % xmlPath;
}

const QString& ZorvaDelegate::GetVTPath() const
{
    return vtPath;
}

QString ZorvaDelegate::GetVTName()
{
    const int slash = vtPath.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? vtPath.mid(slash + 1) : QString();
}

QString ZorvaDelegate::GetVTNodePath()
{
    const int slash = vtPath.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? vtPath.left(slash) : QString();
}

} // namespace Orvane
