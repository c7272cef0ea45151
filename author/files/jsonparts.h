#ifndef ZORVA_AUTHOR_JSONPARTS_H
#define ZORVA_AUTHOR_JSONPARTS_H

#include <QJsonObject>
#include <QString>

namespace Orvane {
namespace Author {

/** What @p object has under @p key; empty or false if that is missing or of another type. */
QJsonObject objectIn(const QJsonObject& object, const char* key);
QString textIn(const QJsonObject& object, const char* key);
bool flagIn(const QJsonObject& object, const char* key);

} // namespace Author
} // namespace Orvane

#endif
