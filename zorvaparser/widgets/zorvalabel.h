#ifndef ZORVALABEL_H
#define ZORVALABEL_H

#include <zorvaparser/zorvadelegate.h>

#include <QLabel>
#include <QPointer>

namespace Orvane {

/** A row that shows a text. It has a value only if it writes parameter XML. */
class ZorvaLabel : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaLabel(ZorvaWidget* widget);
    ~ZorvaLabel() override;

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    /** Changes the text shown, not the value. */
    void ReadXml(QXmlStreamReader& reader) override;
    void Update(Observable* observable, TChangeCode code) override;

public Q_SLOTS:
    void setText(QString text);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;
    void Retranslate() override;

private:
    values::ValueString* textValue; // owned; cleared when it goes away
    QPointer<QLabel> textLabel;     // owned by the widget tree
};

} // namespace Orvane

#endif
