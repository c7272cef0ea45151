#ifndef ZORVAINT64SPINBOX_H
#define ZORVAINT64SPINBOX_H

#include "zorvaspinrow.h"

namespace Orvane {

/**
 * A row with one 64-bit number, a bandwidth or an offset in hertz. The value in
 * the tree is a double, so numbers above 2 to the 53rd lose digits there.
 * "unitScale" 1, 1000, 1000000 or 1000000000 chooses suffix and decimals.
 */
class ZorvaInt64SpinBox : public ZorvaSpinRow
{
    Q_OBJECT

public:
    explicit ZorvaInt64SpinBox(ZorvaWidget* widget);
    ~ZorvaInt64SpinBox() override;

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
    void unitChanged(QString unit);
    /** @p value is cut toward zero. */
    void valueChanged(qlonglong value);

public Q_SLOTS:
    void setMaxHistoryLength(int value) { ChangeProperty("maxHistoryLength", value); }
    void setMaximum(qlonglong value) { ChangeProperty("maximum", value); }
    void setMinimum(qlonglong value) { ChangeProperty("minimum", value); }
    void setUnitHidden(bool flag) { ChangeProperty("unitHidden", flag); }
    /** Resets the scale to 1 whatever the text says; an empty text does nothing. */
    void setUnitScale(QString value);
    void setUnitScale(qulonglong value) { ChangeProperty("unitScale", value); }
    void setUseHistory(bool flag) { ChangeProperty("useHistory", flag); }
    void setValue(qlonglong value) { ChangeProperty("value", value); }
    void setSingleStep(qlonglong value) { ChangeProperty("singleStep", value); }
    void setSuffix(QString value) { ChangeProperty("suffix", value); }
    void setWrapping(bool flag) { ChangeProperty("wrapping", flag); }
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    void ApplyUnitScale();

    values::NumericDouble* numericValue;      // owned; cleared when it goes away
    QPointer<VCNumericFloatSpin> spinControl; // owned by the widget tree
};

} // namespace Orvane

#endif
