#ifndef ZORVAHIDDENMAP_H
#define ZORVAHIDDENMAP_H

#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QMap>

namespace Orvane {

/** A map from key to text in parameter XML that no control shows and no value holds. */
class ZorvaHiddenMap : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaHiddenMap(ZorvaWidget* widget);
    ~ZorvaHiddenMap() override;

    void GetXml(QXmlStreamWriter& writer) const override;
    /** Replaces all entries; nothing is marked or told. */
    void ReadXml(QXmlStreamReader& reader) override;

Q_SIGNALS:
    void valueAdded(QString key, QString value);
    /** Also for an equal text. */
    void valueChanged(QString key, QString value);
    void valueRemoved(QString key, QString value);

public Q_SLOTS:
    /** Nothing is marked or told. */
    void clear();

public:
    /** In ascending order. */
    Q_INVOKABLE QList<QString> keys();
    /** Empty if there is no such key. */
    Q_INVOKABLE QString value(QString key);
    Q_INVOKABLE bool contains(QString key);
    Q_INVOKABLE void remove(QString key);
    Q_INVOKABLE void setValue(QString key, QString value);

private:
    QMap<QString, QString> items;
};

} // namespace Orvane

#endif
