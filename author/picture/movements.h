#ifndef ZORVA_AUTHOR_MOVEMENTS_H
#define ZORVA_AUTHOR_MOVEMENTS_H

#include "geometry.h"

#include <QStringList>

namespace Orvane {
namespace Author {

/**
 * What stands otherwise than in an earlier picture, in words: rows that came and went
 * first, then columns and sections, places, sizes and texts. Neighbours that changed
 * alike are told in one line. Empty if nothing moved.
 */
QStringList movements(const FormGeometry& before, const FormGeometry& now);

/** The same for all pictures of a form, which are paired by width and text size. */
QStringList movements(const QVector<FormGeometry>& before, const QVector<FormGeometry>& now);

} // namespace Author
} // namespace Orvane

#endif
