#include "handform.h"

#include <layout/floatgrouplayout.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>

#include <algorithm>

FloorGuard::FloorGuard(QWidget* content)
    : m_content(content)
{
    m_content->layout()->setEnabled(false);
    m_content->setUpdatesEnabled(false);
}

FloorGuard::~FloorGuard()
{
    m_content->layout()->setEnabled(true);
    m_content->layout()->update();
    QCoreApplication::postEvent(m_content, new QEvent(QEvent::LayoutRequest));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    m_content->setAttribute(Qt::WA_UpdatesDisabled, false);
    m_content->setAttribute(Qt::WA_ForceUpdatesDisabled, false);
    for (QWidget* child : m_content->findChildren<QWidget*>())
        child->setAttribute(Qt::WA_UpdatesDisabled, false);
    m_content->update();
}

HandForm::HandForm(const FormGenerator& form, Layout layout)
    : m_limits(form.hasLimits())
{
    auto* const area = new QScrollArea;
    m_window.reset(area);
    area->setWidgetResizable(true);
    m_content = new QWidget;
    if (layout == FormLayout) {
        m_form = new QFormLayout(m_content);
        area->setWidget(m_content);
    } else {
        area->setWidget(m_content);
        m_float = new FloatGroupLayout(area);
    }
    m_rows.reserve(std::size_t(form.rowCount()));
    for (const RowPlan& plan : form.rows())
        add(plan);
}

HandForm::~HandForm() = default;

void HandForm::add(const RowPlan& plan)
{
    if (plan.kind == RowKind::Hidden)
        return;
    if (plan.kind == RowKind::Headline) {
        QGroupBox* box = nullptr;
        if (m_form) {
            box = new QGroupBox(plan.label, m_content);
            box->setFlat(true);
            m_form->addRow(box);
        } else {
            box = m_float->addHeadline(plan.label, 6, plan.name.toLatin1().constData());
        }
        box->setCheckable(true);
        m_rows.push_back({&plan, nullptr, box});
        return;
    }
    QWidget* const control = createControl(plan);
    control->setObjectName(plan.name);
    control->setToolTip(QStringLiteral("Tip of ") + plan.label);
    QLabel* label = nullptr;
    if (m_form) {
        label = new QLabel(plan.label, m_content);
        m_form->addRow(label, control);
    } else {
        label = m_float->addLabel(plan.label, plan.name.toLatin1().constData());
        m_float->addWidget(control);
        m_float->addGroup();
    }
    m_rows.push_back({&plan, label, control});
}

QWidget* HandForm::createControl(const RowPlan& plan)
{
    switch (plan.kind) {
    case RowKind::Choice: {
        auto* const box = new QComboBox(m_content);
        for (int i = 0; i < FormGenerator::choiceCount; ++i)
            box->addItem(FormGenerator::choiceName(i));
        box->setCurrentIndex(plan.value.toInt());
        return box;
    }
    case RowKind::Flag: {
        auto* const box = new QCheckBox(m_content);
        box->setChecked(plan.value == QLatin1String("true"));
        return box;
    }
    case RowKind::Text: {
        auto* const edit = new QLineEdit(plan.value, m_content);
        edit->setMaxLength(64);
        return edit;
    }
    case RowKind::Label:
        return new QLabel(plan.value, m_content);
    default:
        return createSpin(plan);
    }
}

QWidget* HandForm::createSpin(const RowPlan& plan)
{
    auto* const spin = new QDoubleSpinBox(m_content);
    spin->setDecimals(plan.kind == RowKind::Decimal ? 2 : 0);
    if (m_limits)
        spin->setRange(0.0, 1000.0);
    else
        spin->setRange(-1e18, 1e18);
    spin->setSuffix(QStringLiteral(" dB"));
    spin->setValue(plan.value.toDouble());
    return spin;
}

void HandForm::setGroupVisible(int headline, bool visible)
{
    int seen = -1;
    for (const Row& row : m_rows) {
        if (row.plan->kind == RowKind::Headline)
            ++seen;
        if (seen > headline)
            return;
        if (seen < headline || row.plan->kind == RowKind::Headline)
            continue;
        row.label->setVisible(visible);
        row.control->setVisible(visible);
    }
}

void HandForm::setGroupsVisible(bool visible)
{
    for (const Row& row : m_rows) {
        if (row.plan->kind == RowKind::Headline)
            continue;
        row.label->setVisible(visible);
        row.control->setVisible(visible);
    }
}

void HandForm::setControlsEnabled(bool enabled)
{
    for (const Row& row : m_rows) {
        if (row.plan->kind != RowKind::Headline)
            row.control->setEnabled(enabled);
    }
}

void HandForm::writeControl(const Row& row, const QString& value)
{
    switch (row.plan->kind) {
    case RowKind::Choice:
        static_cast<QComboBox*>(row.control)->setCurrentIndex(value.toInt());
        break;
    case RowKind::Flag: {
        // In a group that is not exclusive the box need not look for its siblings.
        QButtonGroup group;
        group.setExclusive(false);
        auto* const box = static_cast<QCheckBox*>(row.control);
        group.addButton(box);
        box->setChecked(value == QLatin1String("true"));
        group.removeButton(box);
        break;
    }
    case RowKind::Text:
        static_cast<QLineEdit*>(row.control)->setText(value);
        break;
    case RowKind::Headline:
    case RowKind::Hidden:
    case RowKind::Label:
        break;
    default:
        static_cast<QDoubleSpinBox*>(row.control)->setValue(value.toDouble());
        break;
    }
}

void HandForm::writeControls(bool changed)
{
    for (const Row& row : m_rows)
        writeControl(row, changed ? row.plan->newValue : row.plan->value);
}

QWidget* HandForm::firstControl(RowKind kind) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [kind](const Row& row) { return row.plan->kind == kind; });
    return found == m_rows.end() ? nullptr : found->control;
}

void HandForm::writeText(const QString& text)
{
    if (QWidget* const control = firstControl(RowKind::Text))
        static_cast<QLineEdit*>(control)->setText(text);
}

void HandForm::refillChoice(const QStringList& names)
{
    QWidget* const control = firstControl(RowKind::Choice);
    if (!control)
        return;
    auto* const box = static_cast<QComboBox*>(control);
    const int current = box->currentIndex();
    box->clear();
    box->addItems(names);
    box->setCurrentIndex(current);
}
