#ifndef ZORVADOUBLESPINBOXLIST_H
#define ZORVADOUBLESPINBOXLIST_H

#include "zorvaspinrow.h"

namespace Orvane {

/**
 * A row of spin boxes above each other, each with a value of its own. The number
 * of items is "itemCount", or "shiftCount" if that is not given, at the time the
 * values are created. Reading parameter XML marks the row as modified.
 */
class ZorvaDoubleSpinBoxList : public ZorvaSpinRow
{
    Q_OBJECT

public:
    explicit ZorvaDoubleSpinBoxList(ZorvaWidget* widget);
    /** Deletes the container with the controls in it. */
    ~ZorvaDoubleSpinBoxList() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    void EnableInput(bool enable, bool restricted) override;
    void Update(Observable* observable, TChangeCode code) override;

    using ZorvaDelegate::isEnabled;
    using ZorvaDelegate::setEnabled;

Q_SIGNALS:
    /** For scripts, as the next one; never emitted here. */
    void editingFinished(int index);
    void returnPressed(int index);
    void valueChanged(int index, double value);
    /** Follows each valueChanged(). */
    void shiftValueChanged(int index, double value);

public Q_SLOTS:
    // Only prefix and special text reach controls that exist.
    void setDecimals(int value) { ChangeProperty("decimals", value); }
    void setDisplayScalingFactor(double value) { ChangeProperty("displayScalingFactor", value); }
    void setItemCount(int value) { ChangeProperty("itemCount", value); }
    void setShiftCount(int value) { ChangeProperty("shiftCount", value); }
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

public:
    /** False if @p index is out of range. */
    Q_INVOKABLE bool isEnabled(int index);
    /** Kept as a wish while the row's input is switched off. */
    Q_INVOKABLE void setEnabled(int index, bool flag);
    /** 0 if @p index is out of range. */
    Q_INVOKABLE double itemValue(int index);
    Q_INVOKABLE void setItemValue(int index, double value);
    Q_INVOKABLE double shiftValue(int index);
    Q_INVOKABLE void setShiftValue(int index, double value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    int ItemCount() const;

    bool inputEnabled;                            // what EnableInput() was told last
    QList<values::NumericDouble*> values;         // owned; a value that goes away leaves the list
    QList<QPointer<VCNumericFloatSpin>> controls; // owned by the widget tree
    QList<bool> enabledStates;                    // by control: the wish of setEnabled()
    QPointer<QWidget> container;                  // deleted with this row unless its window was first
    ValuePlaces places;                           // in values
};

} // namespace Orvane

#endif
