#ifndef ZORVA_VCNUMERICFLOATSPIN_H
#define ZORVA_VCNUMERICFLOATSPIN_H

#include <basicvaluewidgets/valuebinding.h>
#include <guibase/undorecordingcontrolbase.h>
#include <vkbase/iobserver.h>

#include <QDoubleSpinBox>

#include <functional>
#include <memory>

namespace values {
class IValueNumeric;
}
class EntryHint;

/// A spin box over a numeric value. It works on display numbers,
///   shown = (value * factor + offset) / unitScale,
/// which are what value(), setValue(), minimum() and maximum() of the class
/// speak of; the *properties* minimum and maximum are in value units, so that a
/// form row can hand its own limits through.
//
/// Typed text is written on Return and on leaving, a step at once, always with
/// the control as originator. Rounding to the decimals shown never writes. A
/// step stops at the limits or wraps; typed text that is no number or out of
/// range brings the old number back, and a bubble says what would be right.
/// While the user is typing, a change of the value waits. The decimal point is
/// "." as in all texts of a form; a comma is read as well.
//
/// A side without a limit ends at +-1e18 display numbers: wider bounds make
/// each control dear to build, and no such number can be typed sensibly. The
/// value keeps its own limits, and a number beyond is shown as it is.
class BASICVALUEWIDGETS_EXPORT VCNumericFloatSpin : public QDoubleSpinBox,
                                                    public IObserver,
                                                    public UndoRecordingControlBase
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(double minimum READ valueMinimum WRITE setValueMinimum)
    Q_PROPERTY(double maximum READ valueMaximum WRITE setValueMaximum)
    Q_PROPERTY(double displayAdditiveOffset READ displayAdditiveOffset WRITE SetDisplayAdditveOffset)
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)

public:
    /// How numbers are shown: what the setters take, and what holds before they are called.
    struct Display
    {
        QString suffix;         ///< setSuffix()
        int decimals = 0;       ///< setAdditionalPrecision()
        double offset = 0.0;    ///< SetDisplayAdditveOffset()
        double factor = 1.0;    ///< SetDisplayScalingFactor()
        double unitScale = 1.0; ///< SetUnitScale()
    };

    /// name is the object name, null for none. withButtons false leaves the
    /// step buttons out.
    VCNumericFloatSpin(QWidget* parent, const char* name, bool withButtons);
    /// As with the setters and SetNumericValue(), but its text is written once: laying it
    /// out is what a control costs most. The value may be null and is not owned.
    VCNumericFloatSpin(QWidget* parent, bool withButtons, const Display& display,
                       values::IValueNumeric* value);
    ~VCNumericFloatSpin() override;

    /// Null unbinds and leaves a plain spin box. The value is not owned.
    void SetNumericValue(values::IValueNumeric* value);
    /// Binds the numeric value at a tree path; false, and unbound, if there is
    /// none.
    bool SetNumeric_ValuePath(const QString& path);
    void Update(Observable* observable, TChangeCode code) override;

    /// A suffix that begins with a letter is shown one blank off the number;
    /// the getter gives what was set.
    void setSuffix(const QString& suffix);
    /// The text behind the number, as set.
    QString suffix() const { return m_suffix; }
    /// Decimals shown, 0 to 15.
    void setAdditionalPrecision(int decimals);
    /// Stepping on from one limit comes to the other.
    void EnableWrapAround(bool enable);
    /// The divisor for the unit in which the number is shown; 0 counts as 1.
    void SetUnitScale(double scale);
    /// The multiplier from value to display; with 0 nothing can be typed.
    void SetDisplayScalingFactor(double factor);
    /// Another name of SetDisplayScalingFactor.
    void SetFactor(double factor) { SetDisplayScalingFactor(factor); }
    /// Added to the number for display, after the factor.
    void SetDisplayAdditveOffset(double offset);
    double displayAdditiveOffset() const { return m_offset; } ///< Likewise.
    /// Makes final what is being typed; nothing on untouched text.
    void endEdit() { commitTyped(); }
    /// True leaves typing as the only way to change the number.
    void disableStep(bool disable);
    /// Names the line edit within as well.
    void setObjectName(const QString& name);
    /// QWIDGETSIZE_MAX and above lift an earlier fixed width; the control then
    /// reports its ordinary width.
    void setFixedWidth(int width);

    /// Limits in value units. With a value bound they can narrow its limits,
    /// not widen them, and last until the value tells of new limits.
    double valueMinimum() const { return m_minimum; }
    /// The limits in value units, as a row propagates them.
    double valueMaximum() const { return m_maximum; }
    void setValueMinimum(double minimum); ///< Likewise.
    void setValueMaximum(double maximum); ///< Likewise.

    /// "0 ... 40 dB" in display numbers; a side without a limit is left out.
    QString RangeText() const;

    /// Measured once for equal controls.
    QSize sizeHint() const override;
    /// Wide enough for the common width of all controls.
    QSize minimumSizeHint() const override;
    /// Qt's own, on display numbers: stepping within the limits, reading and writing text, refusing with a
    /// hint.
    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& position) const override; ///< Likewise.
    double valueFromText(const QString& text) const override;                 ///< Likewise.
    QString textFromValue(double number) const override;                      ///< Likewise.
    void fixup(QString& input) const override;                                ///< Likewise.

public Q_SLOTS:
    /// The host's gate; a control whose value is gone stays disabled.
    void setEnabled(bool enabled);

protected:
    void ApplyRecordedState(const QVariant& state) override;
    /// Qt's own: when a number that is being typed is committed, and which steps the limits leave.
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;        ///< Likewise.
    void keyPressEvent(QKeyEvent* event) override;   ///< Likewise.
    void focusOutEvent(QFocusEvent* event) override; ///< Likewise.
    StepEnabled stepEnabled() const override;        ///< Likewise.
    /// Steps only with the focus; otherwise the form below scrolls.
    void wheelEvent(QWheelEvent* event) override;

private:
    values::IValueNumeric* number() const;
    double toDisplay(double value) const;
    double toValue(double display) const;
    static double withoutNoise(double value);
    double rounded(double display) const;
    bool isTyping() const;
    bool readLimits();
    bool applyLimits();
    void changeQuietly(const std::function<void()>& change);
    void rescale();
    void refresh();
    void displayChanged(double display);
    void write(double value);
    void commitTyped();
    void dropTyped();
    QString refusalOf(const QString& typed) const;
    void refuse(const QString& why);
    void showReading();
    void updateButtons();
    void writeText();
    EntryHint* hint();
    QString shownText(double display) const;
    double displayStep() const;
    double stepTarget(int steps) const;
    QString withoutFrame(QString text) const;
    bool parse(const QString& text, double* display) const;
    QSize measuredHint(bool least) const;
    QSize contentsSize(bool least) const;

    ValueBinding m_binding;
    values::IValueNumeric* m_number = nullptr; // the bound value's other face
    QString m_suffix;
    double m_factor;
    double m_offset;
    double m_unitScale;
    double m_minimum;     // value units
    double m_maximum;     // value units
    double m_shown = 0.0; // display number before rounding to the decimals
    bool m_stepDisabled = false;
    const bool m_withButtons;
    std::unique_ptr<EntryHint> m_hint; // made with the first text that is typed
    bool m_refreshing = false;
    bool m_hasText = false; // not before all that the text depends on is there
};

#endif
