#ifndef ZORVAFREQUENCYEDIT_H
#define ZORVAFREQUENCYEDIT_H

#include <basicvaluewidgets/vclineedit.h>
#include <frequencylists/vcfrequency.h>
#include <zorvaparser/zorvadelegate.h>

#include <QPushButton>

namespace Orvane {

/**
 * One frequency in hertz: a double in the value tree, a whole number in the
 * property "value". Shown by the main frequency control with a lock button, or
 * by a plain line edit; which one is decided when the row is built. Units and
 * their letters are the controls' affair: the unit properties stay here.
 */
class ZorvaFrequencyEdit : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaFrequencyEdit(ZorvaWidget* widget);
    ~ZorvaFrequencyEdit() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    /** Tells of the number before the text reaches the value. */
    void ReadXml(QXmlStreamReader& reader) override;
    values::ValueBase* GetVTValue() const override;
    /** @p restricted leaves the lock button as it is. */
    void EnableInput(bool enable, bool restricted) override;

Q_SIGNALS:
    /** By the user; the look follows only the property "FrequencyLock". */
    void si_lockButtonToggled(bool checked);
    void editingFinished();
    /** Never emitted: scripts connect to it. */
    void unitChanged(QString unit);
    void valueChanged(qlonglong value);
    void returnPressed();

public Q_SLOTS:
    /** Does nothing: scripts call it. */
    void autosetUnitScale();
    void setDisplayOutOfRangeValues(bool flag);
    void setMaxHistoryLength(int value);
    void setMaximum(qlonglong value);
    void setMinimum(qlonglong value);
    void setUnitHidden(bool flag);
    void setUnitScale(QString value);
    void setUnitScale(qulonglong value);
    void setUseHistory(bool flag);
    void setUseUniformHeights(bool flag);
    void setValue(qlonglong value);
    void setFocus() override;
    void forceFinishEditing() override;

private Q_SLOTS:
    void SlotTextEdited(QString text);
    /** Reached through the meta-object only. */
    void SlotReturnPressed();
    void SlotLockButtonChecked(bool checked);

public:
    void Update(Observable* observable, TChangeCode code) override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    bool IsMainForm() const;
    void BindControls();
    void CreateMainForm(FloatGroupLayout* layout);
    void CreatePlainForm(FloatGroupLayout* layout);
    void CreateFrequencyControl(QWidget* parent);
    void CreateLockButton(QWidget* parent);
    void ApplyInput();
    void ShowLock(bool locked);

    values::NumericDouble* frequencyValue;  // owned; null once the tree deleted it
    QPointer<VCFrequency> frequencyControl; // main form; owned by its parent widget
    QPointer<VCLineEdit> frequencyLineEdit; // plain form; owned by its parent widget
    QPointer<QPushButton> lockButton;       // main form; owned by its parent widget
    bool lockButtonShown;                   // from the first "FrequencyLock" on, for good
    bool updatingLockButton;                // the toggle is ours, not the user's
};

} // namespace Orvane

#endif
