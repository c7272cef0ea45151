#ifndef ZORVACOMBOBOX_H
#define ZORVACOMBOBOX_H

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>
#include <zorvaparser/zorvaparser_export.h>

#include <QExplicitlySharedDataPointer>
#include <QPointer>

class VCComboBoxClassic;

namespace Orvane {

/**
 * A row that offers a choice from an enumeration of the form. The property
 * "currentValue" and parameter XML hold the value text of the choice; the value
 * in the tree and the control show its display name.
 */
class ZORVAPARSER_EXPORT ZorvaComboBox : public ZorvaDelegate
{
    Q_OBJECT

public:
    /** @p widget is the owning row, never owned nor null. */
    explicit ZorvaComboBox(ZorvaWidget* widget);
    ~ZorvaComboBox() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    /** Refills the selection from the enumeration that "enumName" names now; keeps the shown name. */
    void ResyncValueTree() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    /** The selection; null without one. */
    values::ValueBase* GetVTValue() const override;
    void Update(Observable* observable, TChangeCode code) override;

    /** The chosen entry's Value; empty without one. */
    QString getCurrentEnumValue();
    /** -1 without a selection or a choice. */
    int getCurrentIndex() const;
    /** Number of the chosen item; 0 without a selection. */
    double getCurrentValue() const;
    /** How many entries there are to choose from. */
    quint64 getValueCount() const;
    /** Greys one entry of the control's list; the value can still select it. */
    void setItemEnabled(const QString& value, bool enabled);
    /** Greys the entry at @p index out in the control, if there is one. */
    void setItemEnabled(int index, bool enabled);
    /** Selects the item with the smallest number not below @p value; false if there is none. */
    bool setMinValueGreaterThanOrEqualTo(double value);

Q_SIGNALS:
    /** The user, the tree, parameters or setCurrentIndex() chose another entry; @p value is its Value. */
    void currentValueChanged(QString value);

public Q_SLOTS:
    /** Chooses by the number 0. */
    void clearCurrentValue();
    /** Chooses the entry of that Value, or the first at or above it as a number; no signal, no mark. */
    void setCurrentValue(QString value);
    /** False for an index outside the enumeration. Counts as a user's change. */
    bool setCurrentIndex(int index);
    /** Takes effect when the values are created or resynchronised. */
    void setEnumName(QString value);
    /** Stored for scripts. */
    void setDisplayUnknownValues(bool flag);
    void setDisplayAsUnknown(bool flag); ///< Likewise.
    /** The same as setCurrentValue(). */
    void setFirstValueAsCurrent(QString value);
    /** Gives the control the keyboard focus, once there is one. */
    void setFocus() override;

public:
    /** Value text at @p index; empty if out of range. */
    Q_INVOKABLE QString itemValue(int index);
    /** -1 if no entry has that value text. */
    Q_INVOKABLE int firstIndexOfValue(QString value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    bool SelectNumber(const QVariant& value);
    void TakeEnumeration();
    void RefillSelection();

    QExplicitlySharedDataPointer<ZorvaEnum> enumeration;
    values::ValueSelection* selectionValue; // owned; cleared when it goes away
    QPointer<VCComboBoxClassic> comboBox;   // owned by the widget tree
};

} // namespace Orvane

#endif
