#include "basicvaluewidgets/vclineedit.h"

#include "basicvaluewidgets/entryhint_p.h"
#include "basicvaluewidgets/fieldsize.h"
#include "basicvaluewidgets/readonlylook_p.h"
#include "basicvaluewidgets/refreshguard_p.h"
#include "basicvaluewidgets/sizehintcache_p.h"

#include <valueframework/valuebase.h>
#include <valueframework/valuenumeric.h>

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <cmath>
#include <limits>

VCLineEdit::VCLineEdit(QWidget* parent, const char* name, LineEditType type)
    : QLineEdit(parent)
    , m_binding(this, this)
    , m_type(type)
{
    setObjectName(QString::fromLatin1(name));
    connect(this, &QLineEdit::textEdited, this, &VCLineEdit::showReading);
}

VCLineEdit::~VCLineEdit() = default;

values::IValueNumeric* VCLineEdit::boundNumber() const
{
    return dynamic_cast<values::IValueNumeric*>(m_binding.Value());
}

void VCLineEdit::SetValueBase(values::ValueBase* value)
{
    ClearUndo();
    m_binding.Bind(value);
    describeRange();
    refresh();
}

void VCLineEdit::Update(Observable* observable, TChangeCode code)
{
    if (!m_binding.Concerns(observable, code))
        return;
    if (code == ChangeCode::Limits)
        describeRange();
    const bool typing = m_type == ekFrequencyText && hasFocus() && isModified() && !m_finishing;
    if (code == ChangeCode::Content && !typing)
        refresh();
}

void VCLineEdit::SetFrequencyUnit(FrequencyText::Unit unit)
{
    m_unit = unit;
    if (!isModified())
        refresh();
}

void VCLineEdit::setEnabled(bool enabled)
{
    m_binding.RequestEnabled(enabled);
}

QString VCLineEdit::valueText() const
{
    const values::IValueNumeric* number = m_type == ekFrequencyText ? boundNumber() : nullptr;
    return number ? FrequencyText::Format(number->GetValue(), m_unit) : boundValue()->GetStringValue();
}

void VCLineEdit::refresh()
{
    if (boundValue())
        showText(valueText());
}

void VCLineEdit::showText(const QString& shown)
{
    const bool changed = shown != text();
    if (changed) {
        // Told below: a listener may delete this control, and Qt goes on with it.
        const QSignalBlocker later(this);
        const int cursor = cursorPosition();
        const bool allSelected = hasSelectedText() && selectedText() == text();
        setText(shown);
        // A value on the move leaves the cursor where the user put it.
        if (hasFocus())
            setCursorPosition(cursor);
        if (allSelected)
            selectAll();
    }
    setModified(false);
    m_finalText = text();
    if (changed)
        Q_EMIT textChanged(text());
}

bool VCLineEdit::shownFrequency(double* hertz) const
{
    return FrequencyText::Parse(text(), hertz);
}

void VCLineEdit::endEdit()
{
    if (!isModified() || m_finishing)
        return;
    const RefreshGuard guard(this, &m_finishing);
    if (m_type == ekFrequencyText)
        commitTypedFrequency();
    else if (hasAcceptableInput())
        commitText(text());
    else
        refuse(QCoreApplication::translate("VCLineEdit", "The text is not complete"));
}

void VCLineEdit::commitTypedFrequency()
{
    using FrequencyText::Verdict;
    double hertz = 0.0;
    const Verdict verdict = readTyped(&hertz);
    if (verdict == Verdict::Good) {
        if (m_hint)
            m_hint->Hide();
        commitFrequency(hertz);
    } else if (verdict == Verdict::NoFrequency) {
        refuse(QCoreApplication::translate("VCLineEdit", "Not a frequency. Examples: 98.5 MHz, 8k, 500"));
    } else {
        const bool tooLow = verdict == Verdict::TooLow;
        refuse(EntryHint::OutOfRange(FrequencyText::Format(tooLow ? lowest() : highest()), tooLow));
    }
}

double VCLineEdit::lowest() const
{
    const values::IValueNumeric* number = boundNumber();
    return number ? number->GetMin() : std::numeric_limits<double>::lowest();
}

double VCLineEdit::highest() const
{
    const values::IValueNumeric* number = boundNumber();
    return number ? number->GetMax() : std::numeric_limits<double>::max();
}

// By the unit that stood there when the typing began.
FrequencyText::Verdict VCLineEdit::readTyped(double* hertz) const
{
    FrequencyText::Unit unit = m_unit;
    const values::IValueNumeric* number = boundNumber();
    double before = number ? number->GetValue() : 0.0;
    const bool known = number || FrequencyText::Parse(m_finalText, &before);
    if (unit == FrequencyText::Unit::Automatic && known)
        unit = FrequencyText::AutomaticUnit(before);
    return FrequencyText::Read(text(), unit, lowest(), highest(), hertz);
}

QString VCLineEdit::rangeText() const
{
    constexpr double farthest = 1e15; // hertz; no device tunes that far
    const auto textOf = [](double hertz) {
        return std::fabs(hertz) < farthest ? FrequencyText::Format(hertz) : QString();
    };
    const QString from = textOf(lowest());
    const QString to = textOf(highest());
    return from.isEmpty() && to.isEmpty() ? QString() : from + QLatin1String(" ... ") + to;
}

void VCLineEdit::describeRange()
{
    if (m_type == ekFrequencyText)
        setAccessibleDescription(rangeText());
}

void VCLineEdit::showReading()
{
    if (m_type != ekFrequencyText)
        return;
    if (!m_hint)
        m_hint = std::make_unique<EntryHint>(this);
    double hertz = 0.0;
    const bool isGood = readTyped(&hertz) == FrequencyText::Verdict::Good;
    m_hint->ShowReading(isGood ? FrequencyText::Format(hertz, m_unit) : QString());
}

QVariant VCLineEdit::entered() const
{
    if (const values::IValueNumeric* number = boundNumber())
        return number->GetValue();
    double hertz = 0.0;
    return FrequencyText::Parse(m_finalText, &hertz) ? QVariant(hertz) : QVariant();
}

void VCLineEdit::ApplyRecordedState(const QVariant& state)
{
    if (state.isValid())
        commitFrequency(state.toDouble());
}

void VCLineEdit::commitFrequency(double hertz)
{
    const RefreshGuard guard(this, &m_finishing);
    const QPointer<VCLineEdit> alive(this);
    const QVariant before = entered();
    const double wanted = qMax(lowest(), qMin(highest(), hertz));
    const QString shown = FrequencyText::Format(wanted, m_unit);
    showText(shown);
    if (!alive)
        return;
    // What rounds to the same text is no new frequency.
    const bool changed = boundValue() && shown != valueText();
    announce(shown, [this, wanted, changed] {
        if (!changed)
            return;
        if (values::IValueNumeric* number = boundNumber())
            number->SetValue(wanted, this);
        else
            boundValue()->SetStringValue(text(), this);
    });
    if (alive)
        RecordEdit(before, entered());
}

void VCLineEdit::commitText(const QString& typed)
{
    setModified(false);
    m_finalText = typed;
    announce(typed, [this, typed] {
        if (boundValue()->GetStringValue() != typed)
            boundValue()->SetStringValue(typed, this);
    });
}

// A receiver of the signal may write to the value; then its word stands. It
// may also delete the value or this control.
void VCLineEdit::announce(const QString& finalText, const std::function<void()>& write)
{
    const QPointer<VCLineEdit> alive(this);
    const values::ValueBase* value = boundValue();
    const QString before = value ? value->GetStringValue() : QString();
    Q_EMIT signalTextFinallyChanged(finalText);
    if (!alive || !boundValue())
        return;
    if (boundValue() == value && value->GetStringValue() == before)
        write();
    if (alive)
        refresh(); // the value may have taken less than all of it
}

void VCLineEdit::restore()
{
    if (boundValue())
        refresh();
    else
        showText(m_finalText);
}

void VCLineEdit::refuse(const QString& hint)
{
    const QPointer<VCLineEdit> alive(this);
    restore();
    if (!alive)
        return;
    if (!m_hint)
        m_hint = std::make_unique<EntryHint>(this);
    m_hint->ShowRefusal(hint);
}

// What is half typed has an undo of its own.
bool VCLineEdit::event(QEvent* event)
{
    const bool walks = m_type == ekFrequencyText && !isModified() && !isReadOnly();
    return (walks && ClaimUndoShortcut(event)) || QLineEdit::event(event);
}

void VCLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isModified()) {
        if (m_hint)
            m_hint->Hide();
        restore();
        return;
    }
    if (m_type == ekFrequencyText && !isModified() && IsUndoKey(event)) {
        if (!isReadOnly())
            HandleUndoKey(event);
        return;
    }
    const QPointer<VCLineEdit> alive(this);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn)
        endEdit();
    if (alive)
        QLineEdit::keyPressEvent(event);
    // The next frequency can be typed over the last one.
    if (alive && isReturn && m_type == ekFrequencyText)
        selectAll();
}

void VCLineEdit::focusOutEvent(QFocusEvent* event)
{
    const QPointer<VCLineEdit> alive(this);
    if (m_hint)
        m_hint->Hide();
    if (event->reason() != Qt::PopupFocusReason)
        endEdit();
    if (!alive)
        return;
    QLineEdit::focusOutEvent(event);
    if (alive && m_type == ekFrequencyText && !isModified())
        refresh();
}

QSize VCLineEdit::sizeHint() const
{
    const QMargins around = textMargins();
    const QChar contents[] = {QChar(ushort(hasFrame())), QChar(ushort(around.top())),
                              QChar(ushort(around.bottom()))};
    return SizeHintCache::Hint(this, QString(contents, 3), [this] {
        const int height = qMax(QLineEdit::sizeHint().height(), FieldSize::CommonHeight(this));
        return QSize(FieldSize::CommonWidth(this), height);
    });
}

void VCLineEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        SizeHintCache::Forget();
    if (event->type() == QEvent::ReadOnlyChange)
        ReadOnlyLook::Apply(this, isReadOnly());
    QLineEdit::changeEvent(event);
    m_binding.ControlChanged(event);
}
