#ifndef ZORVALABEL_H
#define ZORVALABEL_H

#include <zorvaparser/zorvadelegate.h>

#include <QLabel>
#include <QPointer>

namespace Orvane {

/**
 * A row that shows a text. It has a value only if it writes parameter XML. The
 * description's own text is shown rich where it looks rich; what parameter XML
 * or the value brings is shown letter by letter.
 */
class ZorvaLabel : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaLabel(ZorvaWidget* widget);
    ~ZorvaLabel() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
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
    bool TakeReport(const QString& text);
    void ShowText();

    values::ValueString* textValue; // owned; cleared when it goes away
    QPointer<QLabel> textLabel;     // owned by the widget tree
    bool takesReport = false;       // the property is being set to what was reported
    bool isReport = false;          // what the property holds was reported
};

} // namespace Orvane

#endif
