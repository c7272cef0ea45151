#ifndef ZORVA_VCLINEEDIT_H
#define ZORVA_VCLINEEDIT_H

#include <basicvaluewidgets/frequencytext.h>
#include <basicvaluewidgets/valuebinding.h>
#include <guibase/undorecordingcontrolbase.h>
#include <vkbase/iobserver.h>

#include <QLineEdit>

#include <functional>
#include <memory>

namespace values {
class IValueNumeric;
}
class EntryHint;

/// A line edit over a value. Text that the user typed is final on Return, on
/// leaving the control and by endEdit(); only then the value is written. Escape
/// brings the value's text back.
//
/// The plain type takes any text that the input mask allows. The frequency type
/// reads and shows hertz by the rules of FrequencyText: while somebody types, a
/// bubble says what the text is read as; wrong text and a frequency out of range
/// bring the old one back, and the bubble says what would be right. While the
/// user is typing a frequency, a change of the value waits, so that a receiver
/// on the move does not overwrite the entry. Ctrl+Z and Ctrl+Y walk the
/// frequencies that were entered.
class BASICVALUEWIDGETS_EXPORT VCLineEdit : public QLineEdit,
                                            public IObserver,
                                            public UndoRecordingControlBase
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)

public:
    /// What the text is: as it stands, or a frequency with its unit.
    enum LineEditType { ekPlainText = 0, ekFrequencyText = 1 };

    /// name is the object name, null for none.
    VCLineEdit(QWidget* parent, const char* name, LineEditType type);
    ~VCLineEdit() override;

    /// Null unbinds and keeps the text. The value is not owned. The frequency
    /// type wants a numeric value in hertz; of any other it shows the text.
    void SetValueBase(values::ValueBase* value);
    void Update(Observable* observable, TChangeCode code) override;

    /// The unit in which the frequency type shows its number.
    void SetFrequencyUnit(FrequencyText::Unit unit);
    /// The unit that the shown frequency has.
    FrequencyText::Unit GetFrequencyUnit() const { return m_unit; }

    /// As wide as every field; measured once for equal controls.
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Makes typed text final at once; nothing on text that nobody touched.
    void endEdit();
    /// The host's gate; a control whose value is gone stays disabled.
    void setEnabled(bool enabled);

Q_SIGNALS:
    /// The text as it stands, once per edit and before the value is written.
    /// What a receiver writes to the value itself stands.
    void signalTextFinallyChanged(const QString& text);

protected:
    void ApplyRecordedState(const QVariant& state) override;
    /// Qt's own: when text that is being typed becomes final.
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;        ///< Likewise.
    void focusOutEvent(QFocusEvent* event) override; ///< Likewise.
    void keyPressEvent(QKeyEvent* event) override;   ///< Likewise.

    /// The value this edit is bound to, not owned; null without one.
    values::ValueBase* boundValue() const { return m_binding.Value(); }
    /// Null unless a numeric value is bound.
    values::IValueNumeric* boundNumber() const;
    /// Shows the value again and drops what was typed.
    void refresh();
    /// The hertz that are shown; false if the text is no frequency.
    bool shownFrequency(double* hertz) const;
    /// Writes hertz, clamped to the value's limits, as the user's edit.
    void commitFrequency(double hertz);
    /// "8 kHz ... 26.5 GHz"; empty without limits.
    QString rangeText() const;

private:
    QString valueText() const;
    void commitText(const QString& text);
    void commitTypedFrequency();
    void announce(const QString& finalText, const std::function<void()>& write);
    double lowest() const;
    double highest() const;
    FrequencyText::Verdict readTyped(double* hertz) const;
    void showReading();
    void describeRange();
    QVariant entered() const;
    void refuse(const QString& hint);
    void restore();
    void showText(const QString& text);

    ValueBinding m_binding;
    const LineEditType m_type;
    FrequencyText::Unit m_unit = FrequencyText::Unit::Automatic;
    QString m_finalText; // what comes back when typed text is dropped and no value is bound
    bool m_finishing = false;
    std::unique_ptr<EntryHint> m_hint; // made with the first text that is typed
};

#endif
