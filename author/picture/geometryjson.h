#ifndef ZORVA_AUTHOR_GEOMETRYJSON_H
#define ZORVA_AUTHOR_GEOMETRYJSON_H

#include "geometry.h"

#include <QByteArray>

namespace Orvane {
namespace Author {

/** The pictures of one form as one JSON object, version 1, one row a line; for people's diffs, too. */
QByteArray geometryJson(const QString& form, const QVector<FormGeometry>& pictures);

struct ReadGeometry
{
    QVector<FormGeometry> pictures; // what takes part in comparisons
    QString problem;                // empty if it could be read
};

/** Reads what geometryJson() has written. */
ReadGeometry readGeometryJson(const QByteArray& json);

} // namespace Author
} // namespace Orvane

#endif
