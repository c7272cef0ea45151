#ifndef ZORVACHECKBOX_H
#define ZORVACHECKBOX_H

#include <zorvaparser/zorvadelegate.h>

#include <QPointer>

class VCCheckBox;

namespace Orvane {

/** A row with a two-state choice, whose texts in parameter XML each row may choose. */
class ZorvaCheckBox : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaCheckBox(ZorvaWidget* widget);
    ~ZorvaCheckBox() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    /** Every text but the checked one means unchecked. */
    void ReadXml(QXmlStreamReader& reader) override;
    values::ValueBase* GetVTValue() const override;
    void Update(Observable* observable, TChangeCode code) override;

Q_SIGNALS:
    void toggled(bool checked);

public Q_SLOTS:
    void setChecked(bool checked);
    /** An empty text means "true". */
    void setCheckedValue(QString checkedValue);
    /** An empty text means "false". */
    void setUncheckedValue(QString uncheckedValue);
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    QString CheckedText() const;

    values::ValueBool* booleanValue; // owned; cleared when it goes away
    QPointer<VCCheckBox> checkBox;   // owned by the widget tree
};

} // namespace Orvane

#endif
