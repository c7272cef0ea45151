#ifndef ZORVASPINBOX_H
#define ZORVASPINBOX_H

#include "zorvaspinrow.h"

namespace Orvane {

/** A row with one 32-bit number. */
class ZorvaSpinBox : public ZorvaSpinRow
{
    Q_OBJECT

public:
    explicit ZorvaSpinBox(ZorvaWidget* widget);
    ~ZorvaSpinBox() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    /** An unreadable text counts as 0. */
    void ReadXml(QXmlStreamReader& reader) override;
    values::ValueBase* GetVTValue() const override;
    void Update(Observable* observable, TChangeCode code) override;

Q_SIGNALS:
    void editingFinished();
    /** For scripts; never emitted here. */
    void returnPressed();
    void valueChanged(int value);

public Q_SLOTS:
    void setDisplayAdditiveOffset(int value) { ChangeProperty("displayAdditiveOffset", value); }
    void setMaximum(int value) { ChangeProperty("maximum", value); }
    void setMinimum(int value) { ChangeProperty("minimum", value); }
    void setPrefix(QString value) { ChangeProperty("prefix", value); }
    void setSingleStep(int value) { ChangeProperty("singleStep", value); }
    void setSpecialValueText(QString value) { ChangeProperty("specialValueText", value); }
    void setSuffix(QString value) { ChangeProperty("suffix", value); }
    void setUnit(QString value) { ChangeProperty("unit", value); }
    void setValue(int value) { ChangeProperty("value", value); }
    void setWrapping(bool flag) { ChangeProperty("wrapping", flag); }
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    values::NumericInt* numericValue;         // owned; cleared when it goes away
    QPointer<VCNumericFloatSpin> spinControl; // owned by the widget tree
};

} // namespace Orvane

#endif
