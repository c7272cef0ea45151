#ifndef ZORVAHIDDENLIST_H
#define ZORVAHIDDENLIST_H

#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QVariant>

namespace Orvane {

/** A list of texts in parameter XML that no control shows and no value holds. */
class ZorvaHiddenList : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaHiddenList(ZorvaWidget* widget);
    ~ZorvaHiddenList() override;

    void CreateValueTree() override;
    void GetXml(QXmlStreamWriter& writer) const override;
    /**
     * Empties the list and sets each entry as setItemValue() does, with the count
     * in "itemCount" as it was: entries that neither fit nor change the count are lost.
     */
    void ReadXml(QXmlStreamReader& reader) override;

Q_SIGNALS:
    void itemValueChanged(int index, QString value);

public Q_SLOTS:
    /** Empties the list; "itemCount" keeps its number, nothing is marked or told. */
    void clear();
    /** Nothing if "itemCount" holds @p count already. */
    void setItemCount(int count);

public:
    /** Empty if @p index is out of range. */
    Q_INVOKABLE QString itemValue(int index);
    /** Grows the list for an @p index beyond its size; one equal to the size is dropped. */
    Q_INVOKABLE void setItemValue(int index, QString value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    QList<QVariant> items;
};

} // namespace Orvane

#endif
