#include "tablefield_p.h"

#include <basicvaluewidgets/fieldsize.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHeaderView>

namespace Orvane {

TableField::TableField(int rows, int columns, QWidget* parent)
    : QTableWidget(rows, columns, parent)
{
    setTabKeyNavigation(false);
    setLocale(QLocale::c());
    // The corner between the headers selects all.
    if (auto* const corner = findChild<QAbstractButton*>())
        corner->setAccessibleName(QCoreApplication::translate("TableField", "Select all"));
}

QSize TableField::sizeHint() const
{
    constexpr int lettersPerColumn = 7;
    const int columns = columnCount() * lettersPerColumn * fontMetrics().horizontalAdvance(QLatin1Char('x'));
    const int needed = columns + verticalHeader()->sizeHint().width() + 2 * frameWidth();
    return {FieldSize::WidthFor(this, needed), QTableWidget::sizeHint().height()};
}

} // namespace Orvane
