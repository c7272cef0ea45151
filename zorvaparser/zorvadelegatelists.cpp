#include "zorvadelegate.h"

#include "bounds_p.h"

namespace Orvane {

QVariant ZorvaDelegate::GetListValue(const QList<QVariant>& list, int row, int column, int columnCount)
{
    const qint64 index = qint64(row) * columnCount + column;
    if (row < 0 || column < 0 || index < 0 || index >= list.size())
        return QVariant();
    return list.at(static_cast<int>(index));
}

bool ZorvaDelegate::SetListValue(QList<QVariant>& list, QVariant value, int row, int column, int columnCount)
{
    const qint64 index = qint64(row) * columnCount + column;
    if (row < 0 || column < 0 || index < 0 || index >= list.size())
        return false;
    QVariant& cell = list[static_cast<int>(index)];
    if (value == cell)
        return false;
    cell = value;
    return true;
}

bool ZorvaDelegate::ResizeList(QList<QVariant>& list, int rows, int columns, int oldColumns)
{
    if (rows < 0 || columns < 0 || oldColumns < 0)
        return false;
    const qint64 size = qint64(rows) * columns;
    if (size == list.size() || size > mostCells)
        return false;
    if (columns == oldColumns) {
        // Every cell keeps its place; growing a list by one at a time stays cheap.
        list.erase(list.begin() + static_cast<int>(qMin<qint64>(size, list.size())), list.end());
        while (list.size() < size)
            list.append(QVariant());
        return true;
    }
    const QList<QVariant> old = list;
    list.clear();
    list.reserve(static_cast<int>(size));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            list.append(GetListValue(old, row, column, oldColumns));
    }
    return true;
}

} // namespace Orvane
