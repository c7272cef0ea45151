#ifndef ZORVATABLEFIELD_P_H
#define ZORVATABLEFIELD_P_H

#include <QTableWidget>

namespace Orvane {

/**
 * The table of a row: as wide as every field, or as its columns need. The arrows walk its
 * cells and Tab leaves it. Numbers have "." as point, as in all texts of a form.
 */
class TableField : public QTableWidget
{
public:
    TableField(int rows, int columns, QWidget* parent);

    QSize sizeHint() const override;
};

} // namespace Orvane

#endif
