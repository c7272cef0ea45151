#ifndef ZORVADOUBLESPINBOX_H
#define ZORVADOUBLESPINBOX_H

#include "zorvaspinrow.h"

namespace Orvane {

/** A row with one floating-point number. Parameter XML holds "value" with "decimals" digits. */
class ZorvaDoubleSpinBox : public ZorvaSpinRow
{
    Q_OBJECT

public:
    explicit ZorvaDoubleSpinBox(ZorvaWidget* widget);
    ~ZorvaDoubleSpinBox() override;

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
    void valueChanged(double value);

public Q_SLOTS:
    void setDecimals(int value) { ChangeProperty("decimals", value); }
    void setDisplayScalingFactor(double value) { ChangeProperty("displayScalingFactor", value); }
    void setMaximum(double value) { ChangeProperty("maximum", value); }
    void setMinimum(double value) { ChangeProperty("minimum", value); }
    void setPrefix(QString value) { ChangeProperty("prefix", value); }
    void setSingleStep(double value) { ChangeProperty("singleStep", value); }
    void setSpecialValueText(QString value) { ChangeProperty("specialValueText", value); }
    void setSuffix(QString value) { ChangeProperty("suffix", value); }
    void setUnit(QString value) { ChangeProperty("unit", value); }
    void setValue(double value) { ChangeProperty("value", value); }
    void setWrapping(bool flag) { ChangeProperty("wrapping", flag); }
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    values::NumericDouble* numericValue;      // owned; cleared when it goes away
    QPointer<VCNumericFloatSpin> spinControl; // owned by the widget tree
};

} // namespace Orvane

#endif
