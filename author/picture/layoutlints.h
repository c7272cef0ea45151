#ifndef ZORVA_AUTHOR_LAYOUTLINTS_H
#define ZORVA_AUTHOR_LAYOUTLINTS_H

#include "geometry.h"

namespace Orvane {
namespace Author {

/**
 * What an operator would stumble over, in the order of the rows: "clipped-caption",
 * "clipped-text" (of a button, a label or the choices of a box), "overlap",
 * "wide-row" (beyond the area), "empty-column".
 */
QVector<LayoutFinding> layoutFindings(const FormGeometry& geometry);

} // namespace Author
} // namespace Orvane

#endif
