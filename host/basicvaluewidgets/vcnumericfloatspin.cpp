#include "basicvaluewidgets/vcnumericfloatspin.h"

#include "basicvaluewidgets/entryhint_p.h"
#include "basicvaluewidgets/fieldsize.h"
#include "basicvaluewidgets/readonlylook_p.h"
#include "basicvaluewidgets/refreshguard_p.h"
#include "basicvaluewidgets/sizehintcache_p.h"
#include "basicvaluewidgets/spinaccess_p.h"
#include "basicvaluewidgets/unittext_p.h"

#include <guibase/typednumber.h>
#include <valueframework/tree.h>
#include <valueframework/valuenumeric.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double DisplayLimit = 1e18;
constexpr int MaximumDecimals = 15;
// The width of an unlimited side; as wide as the frequencies of a receiver.
constexpr double UnlimitedSample = 9999999999.0;
constexpr int SampleLength = 18;

double usableDivisor(double number)
{
    return number == 0.0 || !std::isfinite(number) ? 1.0 : number;
}

double finiteOr(double number, double otherwise)
{
    return std::isfinite(number) ? number : otherwise;
}

int usableDecimals(int count)
{
    return qBound(0, count, MaximumDecimals);
}

double cappedDisplay(double display)
{
    return std::isnan(display) ? 0.0 : qBound(-DisplayLimit, display, DisplayLimit);
}

} // namespace

VCNumericFloatSpin::VCNumericFloatSpin(QWidget* parent, const char* name, bool withButtons)
    : VCNumericFloatSpin(parent, withButtons, Display(), nullptr)
{
    setObjectName(QString::fromLatin1(name));
}

VCNumericFloatSpin::VCNumericFloatSpin(QWidget* parent, bool withButtons, const Display& display,
                                       values::IValueNumeric* value)
    : QDoubleSpinBox(parent)
    , m_binding(this, this)
    , m_suffix(display.suffix)
    , m_factor(finiteOr(display.factor, 1.0))
    , m_offset(finiteOr(display.offset, 0.0))
    , m_unitScale(usableDivisor(display.unitScale))
    , m_minimum(std::numeric_limits<double>::lowest())
    , m_maximum(std::numeric_limits<double>::max())
    , m_withButtons(withButtons)
{
    SpinAccess::Install(); // before anything asks for the interface
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(false);
    setLocale(QLocale::c());
    updateButtons();
    setDecimals(usableDecimals(display.decimals));
    SetNumericValue(value);
    writeText();
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &VCNumericFloatSpin::displayChanged);
    connect(lineEdit(), &QLineEdit::textEdited, this, &VCNumericFloatSpin::showReading);
}

VCNumericFloatSpin::~VCNumericFloatSpin() = default;

values::IValueNumeric* VCNumericFloatSpin::number() const
{
    return m_binding.Value() ? m_number : nullptr;
}

void VCNumericFloatSpin::SetNumericValue(values::IValueNumeric* value)
{
    ClearUndo();
    m_number = m_binding.Bind(value ? value->AsValueBase() : nullptr) ? value : nullptr;
    if (!readLimits())
        refresh();
}

bool VCNumericFloatSpin::SetNumeric_ValuePath(const QString& path)
{
    values::IValueNumeric* found =
        dynamic_cast<values::IValueNumeric*>(values::Tree::Instance()->GetValue(path));
    SetNumericValue(found);
    return found;
}

void VCNumericFloatSpin::Update(Observable* observable, TChangeCode code)
{
    if (!m_binding.Concerns(observable, code))
        return;
    if (code == ChangeCode::Limits)
        readLimits();
    else if (code == ChangeCode::Content && !isTyping())
        refresh();
}

void VCNumericFloatSpin::setEnabled(bool enabled)
{
    m_binding.RequestEnabled(enabled);
}

double VCNumericFloatSpin::toDisplay(double value) const
{
    return (value * m_factor + m_offset) / m_unitScale;
}

double VCNumericFloatSpin::toValue(double display) const
{
    return (display * m_unitScale - m_offset) / m_factor;
}

// A write to a whole-number value cuts fractions off, so that the noise of the
// way back from the display must not turn 3 into 2.999...
double VCNumericFloatSpin::withoutNoise(double value)
{
    const double whole = std::round(value);
    return std::fabs(value - whole) <= 1e-12 * std::fabs(value) ? whole : value;
}

double VCNumericFloatSpin::rounded(double display) const
{
    return QString::number(display, 'f', decimals()).toDouble();
}

bool VCNumericFloatSpin::isTyping() const
{
    return hasFocus() && lineEdit()->isModified();
}

bool VCNumericFloatSpin::readLimits()
{
    if (number()) {
        m_minimum = number()->GetMin();
        m_maximum = number()->GetMax();
    }
    return applyLimits();
}

void VCNumericFloatSpin::setValueMinimum(double minimum)
{
    if (std::isnan(minimum))
        return;
    m_minimum = number() ? qMax(minimum, number()->GetMin()) : minimum;
    applyLimits();
}

void VCNumericFloatSpin::setValueMaximum(double maximum)
{
    if (std::isnan(maximum))
        return;
    m_maximum = number() ? qMin(maximum, number()->GetMax()) : maximum;
    applyLimits();
}

// True if the range changed and the value was shown again in it.
bool VCNumericFloatSpin::applyLimits()
{
    double low = cappedDisplay(toDisplay(m_minimum));
    double high = cappedDisplay(toDisplay(m_maximum));
    if (m_factor / m_unitScale < 0.0)
        std::swap(low, high);
    if (low == minimum() && high == maximum())
        return false;
    const QString typed = lineEdit()->text();
    const bool typing = isTyping();
    changeQuietly([&] {
        setRange(low, high);
        if (!typing) {
            refresh();
            return;
        }
        lineEdit()->setText(typed);
        lineEdit()->setModified(true);
    });
    return !typing;
}

// For changes after which Qt goes on with the control: a listener may delete it,
// and hears of the value at the end.
void VCNumericFloatSpin::changeQuietly(const std::function<void()>& change)
{
    const RefreshGuard guard(this, &m_refreshing);
    const double before = value();
    {
        const QSignalBlocker later(this);
        change();
    }
    if (value() != before)
        Q_EMIT valueChanged(value());
}

void VCNumericFloatSpin::refresh()
{
    if (!number())
        return;
    const RefreshGuard guard(this, &m_refreshing);
    const QPointer<VCNumericFloatSpin> alive(this);
    m_shown = toDisplay(number()->GetValue());
    setValue(cappedDisplay(m_shown));
    if (alive)
        lineEdit()->setModified(false);
}

void VCNumericFloatSpin::rescale()
{
    const QPointer<VCNumericFloatSpin> alive(this);
    if (!applyLimits())
        refresh();
    if (alive)
        updateGeometry();
}

void VCNumericFloatSpin::SetUnitScale(double scale)
{
    m_unitScale = usableDivisor(scale);
    rescale();
}

void VCNumericFloatSpin::SetDisplayScalingFactor(double factor)
{
    m_factor = finiteOr(factor, 1.0);
    rescale();
}

void VCNumericFloatSpin::SetDisplayAdditveOffset(double offset)
{
    m_offset = finiteOr(offset, 0.0);
    rescale();
}

void VCNumericFloatSpin::setAdditionalPrecision(int decimalCount)
{
    const int wanted = usableDecimals(decimalCount);
    if (wanted == decimals())
        return;
    const QPointer<VCNumericFloatSpin> alive(this);
    changeQuietly([&] {
        setDecimals(wanted);
        refresh();
    });
    if (alive)
        updateGeometry();
}

void VCNumericFloatSpin::setSuffix(const QString& suffix)
{
    if (suffix == m_suffix)
        return;
    m_suffix = suffix;
    writeText();
}

// With the suffix Qt writes the whole text anew.
void VCNumericFloatSpin::writeText()
{
    m_hasText = true;
    const bool isWord = !m_suffix.isEmpty() && m_suffix.at(0).isLetter();
    QDoubleSpinBox::setSuffix(isWord ? QLatin1Char(' ') + m_suffix : m_suffix);
}

void VCNumericFloatSpin::EnableWrapAround(bool enable)
{
    setWrapping(enable);
}

void VCNumericFloatSpin::disableStep(bool disable)
{
    m_stepDisabled = disable;
    updateButtons();
}

// Buttons that would do nothing are not shown.
void VCNumericFloatSpin::updateButtons()
{
    setButtonSymbols(m_withButtons && !m_stepDisabled && !isReadOnly() ? UpDownArrows : NoButtons);
}

void VCNumericFloatSpin::setObjectName(const QString& name)
{
    QDoubleSpinBox::setObjectName(name);
}

void VCNumericFloatSpin::setFixedWidth(int width)
{
    if (width < QWIDGETSIZE_MAX) {
        QDoubleSpinBox::setFixedWidth(width);
        return;
    }
    setMinimumWidth(0);
    setMaximumWidth(QWIDGETSIZE_MAX);
}

void VCNumericFloatSpin::displayChanged(double display)
{
    SpinAccess::TellValue(this);
    if (m_refreshing)
        return;
    if (number()) {
        write(toValue(display));
        return;
    }
    RecordEdit(m_shown, display);
    m_shown = display;
}

void VCNumericFloatSpin::write(double value)
{
    if (!std::isfinite(value)) {
        refresh();
        return;
    }
    const QPointer<VCNumericFloatSpin> alive(this);
    const double before = number()->GetValue();
    lineEdit()->setModified(false);
    number()->SetValue(withoutNoise(value), this);
    if (!alive || !number())
        return;
    RecordEdit(before, number()->GetValue());
    refresh(); // the value may have taken less than all of it
}

void VCNumericFloatSpin::ApplyRecordedState(const QVariant& state)
{
    if (number())
        write(state.toDouble());
    else
        setValue(state.toDouble());
}

// The value may have moved while the text was being typed, and the text counts
// against what it is now.
void VCNumericFloatSpin::commitTyped()
{
    if (!lineEdit()->isModified())
        return;
    const QPointer<VCNumericFloatSpin> alive(this);
    const QString typed = lineEdit()->text();
    const QString why = refusalOf(typed);
    if (!why.isEmpty()) {
        refuse(why);
        return;
    }
    if (m_hint)
        m_hint->Hide();
    refresh();
    if (!alive)
        return;
    lineEdit()->setText(typed);
    interpretText();
    if (alive)
        lineEdit()->setModified(false);
}

EntryHint* VCNumericFloatSpin::hint()
{
    if (!m_hint)
        m_hint = std::make_unique<EntryHint>(this);
    return m_hint.get();
}

QString VCNumericFloatSpin::shownText(double display) const
{
    return (prefix() + textFromValue(display) + QDoubleSpinBox::suffix()).trimmed();
}

QString VCNumericFloatSpin::RangeText() const
{
    const auto textOf = [this](double limit) {
        return std::fabs(limit) < DisplayLimit ? textFromValue(limit) : QString();
    };
    const QString from = textOf(minimum());
    const QString to = textOf(maximum());
    if (from.isEmpty() && to.isEmpty())
        return QString();
    return QStringLiteral("%1 ... %2%3").arg(from, to, QDoubleSpinBox::suffix()).trimmed();
}

// Empty if the text can be taken.
QString VCNumericFloatSpin::refusalOf(const QString& typed) const
{
    double display = 0.0;
    if (!parse(typed, &display))
        return QCoreApplication::translate("VCNumericFloatSpin", "Not a number that fits. Example: %1")
            .arg(shownText(value()));
    display = rounded(display);
    if (display < minimum())
        return EntryHint::OutOfRange(shownText(minimum()), true);
    return display > maximum() ? EntryHint::OutOfRange(shownText(maximum()), false) : QString();
}

void VCNumericFloatSpin::refuse(const QString& why)
{
    const QPointer<VCNumericFloatSpin> alive(this);
    dropTyped();
    if (alive)
        hint()->ShowRefusal(why);
}

// A number without a unit reads as it stands.
void VCNumericFloatSpin::showReading()
{
    double display = 0.0;
    const QString typed = lineEdit()->text();
    const bool hasUnit = !TypedNumber(withoutFrame(typed)).Unit().isEmpty();
    const bool isGood = hasUnit && refusalOf(typed).isEmpty() && parse(typed, &display);
    hint()->ShowReading(isGood ? shownText(rounded(display)) : QString());
}

double VCNumericFloatSpin::displayStep() const
{
    const double step = number() ? std::fabs(number()->GetStep() * m_factor / m_unitScale) : singleStep();
    return std::isfinite(step) && step > 0.0 ? step : std::pow(10.0, -decimals());
}

// A step that the decimals can show goes from what is shown to a number that
// can be shown; a finer one goes from the exact number, so that it counts.
double VCNumericFloatSpin::stepTarget(int steps) const
{
    const double step = displayStep();
    const bool showable = std::fabs(rounded(step) - step) <= 1e-9 * step;
    const double target =
        showable ? rounded(value() + steps * step) : (number() ? m_shown : value()) + steps * step;
    if (target > maximum())
        return wrapping() && value() >= maximum() ? minimum() : maximum();
    if (target < minimum())
        return wrapping() && value() <= minimum() ? maximum() : minimum();
    return target;
}

void VCNumericFloatSpin::stepBy(int steps)
{
    const QPointer<VCNumericFloatSpin> alive(this);
    commitTyped();
    if (!alive || m_stepDisabled || !steps)
        return;
    const double target = stepTarget(steps);
    if (number())
        write(toValue(target));
    else
        setValue(target);
    if (alive)
        selectAll();
}

QAbstractSpinBox::StepEnabled VCNumericFloatSpin::stepEnabled() const
{
    return m_stepDisabled ? StepEnabled(StepNone) : QDoubleSpinBox::stepEnabled();
}

// Prefix and suffix stand round what is typed, also behind a typed unit.
QString VCNumericFloatSpin::withoutFrame(QString text) const
{
    if (text.startsWith(prefix()))
        text.remove(0, prefix().size());
    if (text.endsWith(QDoubleSpinBox::suffix()))
        text.chop(QDoubleSpinBox::suffix().size());
    return text;
}

// *display stays if the text is no number.
bool VCNumericFloatSpin::parse(const QString& text, double* display) const
{
    if (!specialValueText().isEmpty() && text == specialValueText()) {
        *display = minimum();
        return true;
    }
    const TypedNumber typed(withoutFrame(text));
    double ratio = 1.0;
    if (!typed.IsNumber() || !UnitText::Ratio(typed.Unit(), m_suffix.trimmed(), &ratio))
        return false;
    const double number = typed.Value() * ratio;
    if (!std::isfinite(number))
        return false;
    *display = number;
    return true;
}

QValidator::State VCNumericFloatSpin::validate(QString& input, int& position) const
{
    Q_UNUSED(position)
    double display = 0.0;
    if (parse(input, &display))
        return QValidator::Acceptable;
    const QString known =
        QStringLiteral("0123456789.,'+- \u00a0\u202f\u2019") + prefix() + m_suffix + specialValueText();
    for (const QChar character : qAsConst(input)) {
        // A unit that is not known here is told when the text is final.
        if (!character.isLetter() && !known.contains(character, Qt::CaseInsensitive))
            return QValidator::Invalid;
    }
    return QValidator::Intermediate;
}

double VCNumericFloatSpin::valueFromText(const QString& text) const
{
    double display = value();
    return parse(text, &display) ? rounded(cappedDisplay(display)) : value();
}

QString VCNumericFloatSpin::textFromValue(double display) const
{
    if (!m_hasText)
        return QString();
    if (std::fabs(m_shown) > DisplayLimit && display == cappedDisplay(m_shown))
        return locale().toString(m_shown, 'g', MaximumDecimals);
    return QDoubleSpinBox::textFromValue(display == 0.0 ? 0.0 : display); // no "-0"
}

void VCNumericFloatSpin::fixup(QString& input) const
{
    Q_UNUSED(input) // text that is no number is refused, not guessed at
}

bool VCNumericFloatSpin::event(QEvent* event)
{
    if (!lineEdit()->isModified() && !isReadOnly() && ClaimUndoShortcut(event))
        return true;
    return QDoubleSpinBox::event(event);
}

void VCNumericFloatSpin::keyPressEvent(QKeyEvent* event)
{
    const bool typing = lineEdit()->isModified();
    if (event->key() == Qt::Key_Escape && typing) {
        dropTyped();
        return;
    }
    if (!typing && IsUndoKey(event)) {
        if (!isReadOnly())
            HandleUndoKey(event);
        return;
    }
    const QPointer<VCNumericFloatSpin> alive(this);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        commitTyped();
    if (alive)
        QDoubleSpinBox::keyPressEvent(event);
}

void VCNumericFloatSpin::dropTyped()
{
    const QPointer<VCNumericFloatSpin> alive(this);
    const RefreshGuard guard(this, &m_refreshing);
    if (m_hint)
        m_hint->Hide();
    refresh();
    if (!alive || number())
        return;
    lineEdit()->setText(QString());
    interpretText(); // the empty text is no number: the old one comes back
    lineEdit()->setModified(false);
}

void VCNumericFloatSpin::focusOutEvent(QFocusEvent* event)
{
    const QPointer<VCNumericFloatSpin> alive(this);
    if (m_hint)
        m_hint->Hide();
    if (event->reason() != Qt::PopupFocusReason)
        commitTyped();
    if (alive)
        QDoubleSpinBox::focusOutEvent(event);
}

void VCNumericFloatSpin::wheelEvent(QWheelEvent* event)
{
    if (hasFocus() && !isReadOnly())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void VCNumericFloatSpin::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        SizeHintCache::Forget();
    if (event->type() == QEvent::ReadOnlyChange) {
        ReadOnlyLook::Apply(this, isReadOnly());
        updateButtons();
    }
    QDoubleSpinBox::changeEvent(event);
    m_binding.ControlChanged(event);
}

QSize VCNumericFloatSpin::contentsSize(bool least) const
{
    const QFontMetrics metrics = fontMetrics();
    const QString around = prefix() + (least ? QString() : QDoubleSpinBox::suffix()) + QLatin1Char(' ');
    int width = specialValueText().isEmpty() ? 0 : metrics.horizontalAdvance(specialValueText());
    for (const double limit : {minimum(), maximum()}) {
        const double sample = std::fabs(limit) < DisplayLimit ? limit : std::copysign(UnlimitedSample, limit);
        const QString text = QDoubleSpinBox::textFromValue(sample).left(SampleLength) + around;
        width = qMax(width, metrics.horizontalAdvance(text));
    }
    const QSize edit = least ? lineEdit()->minimumSizeHint() : lineEdit()->sizeHint();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    constexpr int CursorSpace = 2;
    QSize size = style()->sizeFromContents(QStyle::CT_SpinBox, &option,
                                           QSize(width + CursorSpace, edit.height()), this);
    if (!least)
        size = QSize(FieldSize::WidthFor(this, size.width()),
                     qMax(size.height(), FieldSize::CommonHeight(this)));
    return size;
}

QSize VCNumericFloatSpin::measuredHint(bool least) const
{
    const double numbers[] = {double(least), double(buttonSymbols()), double(hasFrame()), minimum(),
                              maximum(),     double(decimals())};
    // The numbers enter as they lie in memory: printing them would cost more
    // than the rest of the look-up.
    QString contents(static_cast<int>(sizeof(numbers)) / 2, Qt::Uninitialized);
    std::memcpy(contents.data(), numbers, sizeof(numbers));
    for (const QString& text : {prefix(), QDoubleSpinBox::suffix(), specialValueText(), locale().name()})
        contents += text + QChar(0x1f);
    return SizeHintCache::Hint(this, contents, [this, least] { return contentsSize(least); });
}

QSize VCNumericFloatSpin::sizeHint() const
{
    return measuredHint(false);
}

QSize VCNumericFloatSpin::minimumSizeHint() const
{
    return measuredHint(true);
}
