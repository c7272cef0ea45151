#ifndef ZORVATABLE_H
#define ZORVATABLE_H

#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QTableWidget>

namespace Orvane {

/**
 * A grid of texts. The list of cells is the truth: it is what scripts read and
 * what parameter XML carries. The grid is looked up by pixel, so that it shows a
 * change of the list only where an item stands at that pixel.
 */
class ZorvaTable : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaTable(ZorvaWidget* widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;

Q_SIGNALS:
    void cellActivated(int row, int column);
    /** The user changed what the first cell shows. */
    void cellChanged(int row, int column);
    void cellClicked(int row, int column);
    void cellDoubleClicked(int row, int column);
    void cellEntered(int row, int column);
    void cellPressed(int row, int column);
    void currentCellChanged(int currentRow, int currentColumn, int previousRow, int previousColumn);
    void tableCleared();

public Q_SLOTS:
    /** Empties every cell; the size stays. */
    void clear();
    void setColumnCount(int columns);
    void setRowCount(int rows);
    void setFocus() override;

private Q_SLOTS:
    void sl_cellChanged(int row, int column);

public:
    /** The cell; invalid if the flat index is out of the list. */
    Q_INVOKABLE QVariant itemValue(int row, int column);
    /** Silent, and without a modified mark; nothing if the flat index is out of the list. */
    Q_INVOKABLE void setItemValue(int row, int column, QVariant value);

    void Update(Observable* observable, TChangeCode code) override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    bool Resize(int newRows, int newColumns, int oldColumns);
    void Refill();
    QTableWidgetItem* ItemAtPixel(int row, int column) const;
    void ShowCell(int row, int column, const QVariant& value);

    QList<QVariant> cells;              // row-major
    QPointer<QTableWidget> tableWidget; // owned by its parent widget
    int rows;
    int columns;
    bool suppressSignals;
};

} // namespace Orvane

#endif
