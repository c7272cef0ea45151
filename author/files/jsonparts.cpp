#include "jsonparts.h"

namespace Orvane {
namespace Author {

QJsonObject objectIn(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toObject();
}

QString textIn(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

bool flagIn(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toBool();
}

} // namespace Author
} // namespace Orvane
