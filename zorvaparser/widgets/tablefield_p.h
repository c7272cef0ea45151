#ifndef ZORVATABLEFIELD_P_H
#define ZORVATABLEFIELD_P_H

#include <QTableWidget>

namespace Orvane {

/** The table of a row: as wide as every field, or as its columns need. */
class TableField : public QTableWidget
{
public:
    using QTableWidget::QTableWidget;

    QSize sizeHint() const override;
};

} // namespace Orvane

#endif
