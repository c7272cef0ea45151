#ifndef ZORVA_AUTHOR_ROWCONTROLS_H
#define ZORVA_AUTHOR_ROWCONTROLS_H

#include <QPointer>
#include <QVector>
#include <QWidget>

class QLabel;

namespace Orvane {

class ZorvaFormular;

namespace Author {

/** What the user sees of one row. Whatever is missing is null or empty; the widgets belong to the form. */
struct RowControl
{
    QPointer<QLabel> caption;
    QVector<QPointer<QWidget>> widgets; // as they stand in the layout
};

/**
 * The widgets of each row of a form that has its surface, in the order of the rows: in the
 * layout a caption is followed by its row's widgets, and a row without one bears its name.
 */
QVector<RowControl> rowControls(ZorvaFormular& form);

} // namespace Author
} // namespace Orvane

#endif
