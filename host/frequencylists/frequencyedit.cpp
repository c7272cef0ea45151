#include "frequencyedit_p.h"

#include <valueframework/valuenumeric.h>

#include <QKeyEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double LeastWeight = 1e-3; // the resolution of what is shown

// Where the number ends: behind it stand the blank and the unit.
int numberLength(const QString& text)
{
    int length = 0;
    while (length < text.size() && !text.at(length).isSpace())
        ++length;
    return length;
}

int pointPosition(const QString& text)
{
    const int point = text.indexOf(QLatin1Char('.'));
    return point >= 0 ? point : numberLength(text);
}

// What "1" is worth in the text's unit, in hertz.
double unitOf(const QString& text)
{
    double hertz = 1.0;
    FrequencyText::Parse(QLatin1Char('1') + text.mid(numberLength(text)), &hertz);
    return hertz;
}

} // namespace

FrequencyEdit::FrequencyEdit(QWidget* parent, const char* name)
    : VCLineEdit(parent, name, ekFrequencyText)
{
    connect(this, &VCLineEdit::signalTextFinallyChanged, this, &FrequencyEdit::finished);
}

void FrequencyEdit::finished(const QString& shown)
{
    double hertz = 0.0;
    if (!m_entering && FrequencyText::Parse(shown, &hertz))
        Q_EMIT typed(hertz);
}

bool FrequencyEdit::currentFrequency(double* hertz) const
{
    const values::IValueNumeric* number = boundNumber();
    if (number)
        *hertz = number->GetValue();
    return number;
}

void FrequencyEdit::enterFrequency(double hertz)
{
    const QPointer<FrequencyEdit> alive(this);
    m_entering = true;
    commitFrequency(hertz);
    if (alive)
        m_entering = false;
}

void FrequencyEdit::showRange(bool show)
{
    m_rangeShown = show;
    setToolTip(show ? rangeText() : QString());
}

void FrequencyEdit::Update(Observable* observable, TChangeCode code)
{
    const QPointer<FrequencyEdit> alive(this);
    VCLineEdit::Update(observable, code);
    if (alive && code == ChangeCode::Limits && m_rangeShown)
        setToolTip(rangeText());
}

double FrequencyEdit::weightAtCursor() const
{
    const QString shown = text();
    int digit = qMin(cursorPosition(), numberLength(shown)) - 1;
    while (digit >= 0 && !shown.at(digit).isDigit())
        --digit;
    if (digit < 0)
        digit = shown.startsWith(QLatin1Char('-')) ? 1 : 0;
    const int point = pointPosition(shown);
    const int power = digit < point ? point - digit - 1 : point - digit;
    return qMax(LeastWeight, unitOf(shown) * std::pow(10.0, power));
}

void FrequencyEdit::placeCursor(double weight)
{
    const QString shown = text();
    const int power = qRound(std::log10(weight / unitOf(shown)));
    const int point = pointPosition(shown);
    const int behind = power >= 0 ? point - power : point - power + 1;
    m_weight = weight;
    m_weightCursor = qBound(shown.startsWith(QLatin1Char('-')) ? 2 : 1, behind, numberLength(shown));
    setCursorPosition(m_weightCursor);
}

void FrequencyEdit::turnDigit(int steps)
{
    const QPointer<FrequencyEdit> alive(this);
    const int cursor = cursorPosition();
    endEdit();
    double hertz = 0.0;
    if (!alive || isReadOnly() || !currentFrequency(&hertz))
        return;
    if (cursor != m_weightCursor || m_weight <= 0.0) {
        setCursorPosition(cursor);
        m_weight = weightAtCursor();
    }
    const double weight = m_weight;
    enterFrequency(hertz + steps * weight);
    if (alive)
        placeCursor(weight);
}

void FrequencyEdit::keyPressEvent(QKeyEvent* event)
{
    const bool up = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
    const bool down = event->key() == Qt::Key_Down || event->key() == Qt::Key_PageDown;
    if (!up && !down) {
        VCLineEdit::keyPressEvent(event);
        return;
    }
    if (isReadOnly())
        return;
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        turnDigit(up ? 1 : -1);
    else
        Q_EMIT wideStep(up ? 1 : -1);
}

void FrequencyEdit::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus() || isReadOnly()) {
        event->ignore();
        return;
    }
    m_wheelRest += event->angleDelta().y();
    const int steps = m_wheelRest / QWheelEvent::DefaultDeltasPerStep;
    m_wheelRest -= steps * QWheelEvent::DefaultDeltasPerStep;
    event->accept();
    if (steps)
        turnDigit(steps);
}
