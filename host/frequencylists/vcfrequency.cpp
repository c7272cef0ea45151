#include "frequencylists/vcfrequency.h"

#include "frequencyedit_p.h"

#include <valueframework/tree.h>
#include <valueframework/valuenumeric.h>

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

#include <cmath>

namespace {

constexpr int MaximumHistory = 10;

values::IValueNumeric* numberAt(const QString& path)
{
    if (path.isEmpty())
        return nullptr;
    return dynamic_cast<values::IValueNumeric*>(values::Tree::Instance()->GetValue(path));
}

values::IValueNumeric* numberOf(const ValueBinding& binding)
{
    return dynamic_cast<values::IValueNumeric*>(binding.Value());
}

} // namespace

VCFrequency::VCFrequency(QWidget* parent, const char* name, bool compact, QWidget* popupOwner,
                         bool withHistory)
    : QWidget(parent)
    , m_frequency(this, this)
    , m_bandwidth(nullptr, this)
    , m_edit(new FrequencyEdit(this, "Frequency"))
    , m_popupOwner(popupOwner)
{
    setObjectName(QString::fromLatin1(name));
    setFocusProxy(m_edit);
    QHBoxLayout* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(m_edit);
    makeButtons(compact, withHistory);
    connect(m_edit, &FrequencyEdit::wideStep, this, &VCFrequency::stepBy);
    connect(m_edit, &FrequencyEdit::typed, this, &VCFrequency::slotAddToHistory);
}

// What a menu's entry changes may end this control while the menu is still at work.
VCFrequency::~VCFrequency()
{
    if (!m_menu)
        return;
    m_menu->hide();
    m_menu->setParent(nullptr);
    m_menu->deleteLater();
}

void VCFrequency::makeButtons(bool compact, bool withHistory)
{
    m_frequencyButton = new VCMiniFrequency(this, "FrequencyButton");
    m_frequencyButton->setArrowType(Qt::DownArrow);
    m_frequencyButton->setToolTip(tr("Unit shown"));
    m_historyButton = new VCMiniFrequency(this, "HistoryButton");
    m_historyButton->setText(QString(QChar(0x2026)));
    m_historyButton->setToolTip(tr("Last frequencies"));
    m_tuneButton = new VCButton(this, "TuneButton");
    m_tuneButton->setText(tr("Tune"));
    for (QWidget* button : {static_cast<QWidget*>(m_frequencyButton), static_cast<QWidget*>(m_historyButton),
                            static_cast<QWidget*>(m_tuneButton)}) {
        layout()->addWidget(button);
        button->setAccessibleName(button->toolTip());
        button->setVisible(!compact && (withHistory || button != m_historyButton));
    }
    connect(m_frequencyButton, &QAbstractButton::clicked, this, &VCFrequency::openUnitMenu);
    connect(m_historyButton, &QAbstractButton::clicked, this, &VCFrequency::openHistoryMenu);
    connect(m_tuneButton, &QAbstractButton::clicked, this, &VCFrequency::tune);
}

bool VCFrequency::SetFrequency_ValuePath(const QString& path)
{
    m_frequencyPath = path;
    values::IValueNumeric* number = numberAt(path);
    values::ValueBase* value = number ? number->AsValueBase() : nullptr;
    m_frequency.Bind(value);
    m_edit->SetValueBase(value);
    m_edit->showRange(toolTip().isEmpty());
    return value;
}

bool VCFrequency::SetBandwidth_ValuePath(const QString& path)
{
    m_bandwidthPath = path;
    values::IValueNumeric* number = numberAt(path);
    // One observer joins a value once: the frequency is no bandwidth of its own.
    const bool usable = number && number->AsValueBase() != m_frequency.Value();
    m_bandwidth.Bind(usable ? number->AsValueBase() : nullptr);
    return usable;
}

void VCFrequency::showEvent(QShowEvent* event)
{
    if (!m_frequencyPath.isEmpty() && !m_frequency.Value())
        SetFrequency_ValuePath(m_frequencyPath);
    if (!m_bandwidthPath.isEmpty() && !m_bandwidth.Value())
        SetBandwidth_ValuePath(m_bandwidthPath);
    QWidget::showEvent(event);
}

// The edit shows the value itself; here only a value that goes away counts.
void VCFrequency::Update(Observable* observable, TChangeCode code)
{
    if (!m_frequency.Concerns(observable, code))
        m_bandwidth.Concerns(observable, code);
}

void VCFrequency::setEnabled(bool enabled)
{
    m_frequency.RequestEnabled(enabled);
}

// The edit's own tool tip would hide that of the control.
bool VCFrequency::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange)
        m_edit->showRange(toolTip().isEmpty());
    return QWidget::event(event);
}

void VCFrequency::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    m_frequency.ControlChanged(event);
}

bool VCFrequency::inputAllowed() const
{
    return m_inputEnabled && !m_readOnly;
}

void VCFrequency::EnableInput(bool enable)
{
    m_inputEnabled = enable;
    m_edit->setReadOnly(!inputAllowed());
}

void VCFrequency::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    m_edit->setReadOnly(!inputAllowed());
}

void VCFrequency::EnableButtons(bool enable)
{
    m_frequencyButton->enable(enable);
    m_historyButton->enable(enable);
    m_tuneButton->setEnabled(enable);
}

void VCFrequency::SetUnit(FrequencyText::Unit unit)
{
    m_edit->SetFrequencyUnit(unit);
}

void VCFrequency::slotSetFrequencyValue(double hertz)
{
    if (!std::isfinite(hertz))
        return;
    const QPointer<VCFrequency> alive(this);
    m_edit->enterFrequency(hertz);
    if (!alive)
        return;
    double standing = hertz;
    m_edit->currentFrequency(&standing);
    slotAddToHistory(standing);
}

void VCFrequency::slotIncrement()
{
    stepBy(1);
}

void VCFrequency::slotDecrement()
{
    stepBy(-1);
}

double VCFrequency::stepWidth() const
{
    const values::IValueNumeric* bandwidth = numberOf(m_bandwidth);
    if (bandwidth && bandwidth->GetValue() > 0.0)
        return bandwidth->GetValue();
    const values::IValueNumeric* frequency = numberOf(m_frequency);
    return frequency && frequency->GetStep() > 0.0 ? frequency->GetStep() : 1.0;
}

void VCFrequency::stepBy(int steps)
{
    const QPointer<VCFrequency> alive(this);
    m_edit->endEdit();
    double hertz = 0.0;
    if (alive && m_edit->currentFrequency(&hertz))
        m_edit->enterFrequency(hertz + steps * stepWidth());
}

void VCFrequency::slotAddToHistory(double hertz)
{
    if (!std::isfinite(hertz))
        return;
    m_history.removeAll(hertz);
    m_history.prepend(hertz);
    if (m_history.size() > MaximumHistory)
        m_history.resize(MaximumHistory);
}

void VCFrequency::tune()
{
    const QPointer<VCFrequency> alive(this);
    m_edit->endEdit();
    double hertz = 0.0;
    if (!alive || !m_edit->currentFrequency(&hertz))
        return;
    slotAddToHistory(hertz);
    Q_EMIT signalTune(hertz);
}

QMenu* VCFrequency::makeMenu()
{
    delete m_menu.data();
    m_menu = new QMenu(m_popupOwner ? m_popupOwner.data() : this);
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    return m_menu;
}

void VCFrequency::popUp(const QWidget* button)
{
    m_menu->popup(button->mapToGlobal(button->rect().bottomLeft()));
    if (!m_menu->actions().isEmpty())
        m_menu->setActiveAction(m_menu->actions().first());
}

void VCFrequency::openUnitMenu()
{
    using FrequencyText::Unit;
    QMenu* menu = makeMenu();
    auto* units = new QActionGroup(menu); // one of them is always chosen
    for (const Unit unit :
         {Unit::Automatic, Unit::Hertz, Unit::Kilohertz, Unit::Megahertz, Unit::Gigahertz}) {
        const QString name = FrequencyText::Name(unit);
        QAction* action = menu->addAction(name.isEmpty() ? tr("Automatic") : name);
        units->addAction(action);
        action->setCheckable(true);
        action->setChecked(unit == m_edit->GetFrequencyUnit());
        connect(action, &QAction::triggered, this, [this, unit] { SetUnit(unit); });
    }
    popUp(m_frequencyButton);
}

void VCFrequency::openHistoryMenu()
{
    QMenu* menu = makeMenu();
    if (m_history.isEmpty())
        menu->addAction(tr("No frequency yet"))->setEnabled(false);
    for (const double hertz : qAsConst(m_history)) {
        QAction* action = menu->addAction(FrequencyText::Format(hertz, m_edit->GetFrequencyUnit()));
        action->setEnabled(inputAllowed());
        connect(action, &QAction::triggered, this, [this, hertz] { slotSetFrequencyValue(hertz); });
    }
    popUp(m_historyButton);
}

void VCFrequency::EnableContextMenu(bool enable)
{
    Control::EnableContextMenu(enable);
    // Off hands the event of the edit on to this control.
    m_edit->setContextMenuPolicy(enable ? Qt::NoContextMenu : Qt::DefaultContextMenu);
}

void VCFrequency::contextMenuEvent(QContextMenuEvent* event)
{
    if (hasEnabledContextMenu())
        GetContextMenu()->popup(event->globalPos());
    else
        event->ignore();
}

QWidget* VCFrequency::MakePropertyPage(QWidget* parent)
{
    QWidget* page = new QWidget(parent);
    QFormLayout* form = new QFormLayout(page);
    const auto addRow = [form, page](const QString& caption, const QString& text) {
        QLabel* label = new QLabel(text, page);
        label->setTextFormat(Qt::PlainText); // a path is what others named it
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form->addRow(caption, label);
    };
    addRow(tr("Frequency"), m_frequencyPath);
    addRow(tr("Bandwidth"), m_bandwidthPath);
    addRow(tr("Step"), FrequencyText::Format(stepWidth()));
    return page;
}
