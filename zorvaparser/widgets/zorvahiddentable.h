#ifndef ZORVAHIDDENTABLE_H
#define ZORVAHIDDENTABLE_H

#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QVariant>

namespace Orvane {

/**
 * A table of texts in parameter XML that no control shows and no value holds.
 * A table that starts without cells stays so: the description gives both counts.
 */
class ZorvaHiddenTable : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaHiddenTable(ZorvaWidget* widget);
    ~ZorvaHiddenTable() override;

    void CreateValueTree() override;
    /** Writes every cell, empty ones too. */
    void GetXml(QXmlStreamWriter& writer) const override;
    /** Clears the table first; cells outside its shape are dropped. */
    void ReadXml(QXmlStreamReader& reader) override;

Q_SIGNALS:
    void tableCleared();
    void itemValueChanged(int row, int column, QString value);

public Q_SLOTS:
    /** Empties every cell and keeps the shape; nothing is marked. */
    void clear();
    /** Refused, like setRowCount(), when the number of cells would stay the same. */
    void setColumnCount(int columns);
    void setRowCount(int rows);

public:
    /** Empty if there is no such cell. */
    Q_INVOKABLE QString itemValue(int row, int column);
    Q_INVOKABLE void setItemValue(int row, int column, QString value);

private:
    QList<QVariant> items; // row by row
    int rowCount;
    int columnCount;
};

} // namespace Orvane

#endif
