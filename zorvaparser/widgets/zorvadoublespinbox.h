#ifndef ZORVADOUBLESPINBOX_H
#define ZORVADOUBLESPINBOX_H

#include <zorvaparser/zorvadelegate.h>

#include <QPointer>

class VCNumericFloatSpin;

namespace Orvane {

/** A row with one floating-point number. Parameter XML holds "value" with "decimals" digits. */
class ZorvaDoubleSpinBox : public ZorvaDelegate
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
    void setDecimals(int value);
    void setDisplayScalingFactor(double value);
    void setMaximum(double value);
    void setMinimum(double value);
    void setPrefix(QString value);
    void setSingleStep(double value);
    void setSpecialValueText(QString value);
    void setSuffix(QString value);
    void setUnit(QString value);
    void setValue(double value);
    void setWrapping(bool flag);
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    values::NumericDouble* numericValue;      // owned; cleared when it goes away
    QPointer<VCNumericFloatSpin> spinControl; // owned by the widget tree
};

} // namespace Orvane

#endif
