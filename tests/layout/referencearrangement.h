#ifndef ZORVA_TESTS_LAYOUT_REFERENCEARRANGEMENT_H
#define ZORVA_TESTS_LAYOUT_REFERENCEARRANGEMENT_H

#include <QRect>
#include <QSize>
#include <QVector>

/// One item as the arrangement sees it.
struct ReferenceItem
{
    QSize hint;
    int flags = 0;
    int topMargin = 0;
};

struct ReferenceResult
{
    QVector<QRect> rectangles;
    QSize size;
};

/// Slow and obvious: rules told item by item over explicit rows, sections and
/// columns, with a regular expression for the section heads that count.
ReferenceResult referenceArrangement(const QVector<ReferenceItem>& items, int width, int columns,
                                     int horizontalSpacing = 4, int verticalSpacing = 4);

#endif
