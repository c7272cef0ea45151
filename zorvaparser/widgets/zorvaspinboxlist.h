#ifndef ZORVASPINBOXLIST_H
#define ZORVASPINBOXLIST_H

#include "zorvaspinrow.h"

namespace Orvane {

/**
 * A row of integer spin boxes above each other, each with a value of its own.
 * The number of items is "itemCount" at the time the values are created.
 * Reading parameter XML marks the row as modified.
 */
class ZorvaSpinBoxList : public ZorvaSpinRow
{
    Q_OBJECT

public:
    explicit ZorvaSpinBoxList(ZorvaWidget* widget);
    /** Deletes the container with the controls in it. */
    ~ZorvaSpinBoxList() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    void Update(Observable* observable, TChangeCode code) override;

    using ZorvaDelegate::isEnabled;
    using ZorvaDelegate::setEnabled;

Q_SIGNALS:
    /** For scripts, as the next one; never emitted here. */
    void editingFinished(int index);
    void returnPressed(int index);
    void valueChanged(int index, int value);

public Q_SLOTS:
    // Only prefix and special text reach controls that exist.
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

public:
    /** False if @p index is out of range. */
    Q_INVOKABLE bool isEnabled(int index);
    Q_INVOKABLE void setEnabled(int index, bool flag);
    /** 0 if @p index is out of range. */
    Q_INVOKABLE int itemValue(int index);
    Q_INVOKABLE void setItemValue(int index, int value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    QList<values::NumericInt*> values;            // owned; a value that goes away leaves the list
    QList<QPointer<VCNumericFloatSpin>> controls; // owned by the widget tree
    QPointer<QWidget> container;                  // deleted with this row unless its window was first
    ValuePlaces places;                           // in values
};

} // namespace Orvane

#endif
