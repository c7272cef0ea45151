#ifndef ZORVACHANNELSPACINGTABLE_H
#define ZORVACHANNELSPACINGTABLE_H

#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QPoint>
#include <QStyledItemDelegate>
#include <QTableWidget>

namespace Orvane {

/** Gives the cell editor the limits that its owner's properties have when it opens. */
class ChannelSpacingItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /** @p owner is the row, never null; the delegate may outlive it. */
    explicit ChannelSpacingItemDelegate(ZorvaDelegate* owner);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

private:
    QPointer<ZorvaDelegate> owner; // not owned
};

/**
 * One column of channel spacings, numbered from 1. What the user types stays in
 * the grid until sl_cellChanged() is called; the list is what scripts and
 * parameter XML see. At most 100000 entries.
 */
class ZorvaChannelSpacingTable : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaChannelSpacingTable(ZorvaWidget* widget);
    /** Deletes the table as well. */
    ~ZorvaChannelSpacingTable() override;

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;

Q_SIGNALS:
    void currentSpacingChanged(int currentRow, int previousRow);
    void spacingActivated(int row);
    void spacingChanged(int row);
    void spacingClicked(int row);
    void spacingDoubleClicked(int row);
    void spacingEntered(int row);
    void spacingPressed(int row);
    void spacingValueChanged(int row, double value);

public Q_SLOTS:
    void setAllSpacingValues(double value);
    void setHeaderLabel(QString value);
    void setSpacingsCount(int value);
    void setDecimals(int value);
    void setMaximum(double value);
    void setMinimum(double value);
    void setSingleStep(double value);
    void setFocus() override;

private Q_SLOTS:
    /** Takes the grid's number into the list; a row that the list does not have is ignored. */
    void sl_cellChanged(int row, int column);
    void sl_currentCellChanged(int currentRow, int currentColumn, int previousRow, int previousColumn);
    void sl_cellActivated(int row, int column);
    void sl_cellClicked(int row, int column);
    void sl_cellDoubleClicked(int row, int column);
    void sl_cellEntered(int row, int column);
    void sl_cellPressed(int row, int column);
    void sl_customContextMenuRequested(QPoint pt);
    void sl_setToAll();

public:
    /** The entry, 0 if @p index is out of range. */
    Q_INVOKABLE double spacingValue(int index);
    /** Silent; nothing if @p index is out of range. */
    Q_INVOKABLE void setSpacingValue(int index, double value);

    void Update(Observable* observable, TChangeCode code) override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    bool HasSpacing(int index) const { return index >= 0 && index < spacings.count(); }
    void Resize(int count);
    void Refill();
    void ConnectTable();
    void ShowHeaderLabel();

    QList<double> spacings;
    QPointer<QTableWidget> tableWidget; // deleted by the destructor, unless its window died before
    int menuRow;
    bool updating;
};

} // namespace Orvane

#endif
