#include "basicvaluewidgets/vclineedit.h"

#include "basicvaluewidgets/fieldsize.h"
#include "basicvaluewidgets/refreshguard_p.h"
#include "basicvaluewidgets/sizehintcache_p.h"

#include <valueframework/valuebase.h>
#include <valueframework/valuenumeric.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QToolTip>

VCLineEdit::VCLineEdit(QWidget* parent, const char* name, LineEditType type)
    : QLineEdit(parent)
    , m_binding(this, this)
    , m_type(type)
{
    setObjectName(QString::fromUtf8(name));
}

VCLineEdit::~VCLineEdit() = default;

values::IValueNumeric* VCLineEdit::boundNumber() const
{
    return dynamic_cast<values::IValueNumeric*>(m_binding.Value());
}

void VCLineEdit::SetValueBase(values::ValueBase* value)
{
    m_binding.Bind(value);
    refresh();
}

void VCLineEdit::Update(Observable* observable, TChangeCode code)
{
    if (!m_binding.Concerns(observable, code))
        return;
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
    if (shown != text()) {
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
    double hertz = 0.0;
    if (shownFrequency(&hertz))
        commitFrequency(hertz);
    else
        refuse(QCoreApplication::translate("VCLineEdit", "Not a frequency. Examples: 98.5 MHz, 8k, 500"));
}

double VCLineEdit::clamped(double hertz) const
{
    const values::IValueNumeric* number = boundNumber();
    return number ? qMax(number->GetMin(), qMin(number->GetMax(), hertz)) : hertz;
}

void VCLineEdit::commitFrequency(double hertz)
{
    const RefreshGuard guard(this, &m_finishing);
    const double wanted = clamped(hertz);
    const QString shown = FrequencyText::Format(wanted, m_unit);
    showText(shown);
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
    restore();
    if (!isVisible())
        return;
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), hint, this);
    setAccessibleDescription(hint);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void VCLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isModified()) {
        restore();
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
        return QSize(FieldSize::CommonWidth(this), QLineEdit::sizeHint().height());
    });
}

void VCLineEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        SizeHintCache::Forget();
    QLineEdit::changeEvent(event);
    m_binding.ControlChanged(event);
}
