#include "review.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace hostkit {

namespace {

enum Column { Setting, Present, Wanted, ColumnCount };

} // namespace

ReviewDialog::ReviewDialog(const QString& question, const QList<Difference>& differences, QWidget* parent)
    : QDialog(parent)
    , m_differences(differences)
    , m_rows(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("review"));
    setWindowTitle(tr("Review"));
    auto* const heading = new QLabel(question, this);
    heading->setWordWrap(true);
    m_rows->setObjectName(QStringLiteral("reviewRows"));
    m_rows->setAccessibleName(question);
    m_rows->setHeaderLabels({tr("Setting"), tr("Now"), tr("To be sent")});
    m_rows->setRootIsDecorated(false);
    fill();

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_send = buttons->addButton(tr("Send"), QDialogButtonBox::AcceptRole);
    m_send->setObjectName(QStringLiteral("reviewSend"));
    QPushButton* const all = buttons->addButton(tr("All"), QDialogButtonBox::ActionRole);
    QPushButton* const none = buttons->addButton(tr("None"), QDialogButtonBox::ActionRole);
    connect(all, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_rows, &QTreeWidget::itemChanged, this, &ReviewDialog::showCount);

    auto* const vertical = new QVBoxLayout(this);
    vertical->addWidget(heading);
    vertical->addWidget(m_rows, 1);
    vertical->addWidget(buttons);
    showCount();
    resize(640, 400);
}

ReviewDialog::~ReviewDialog() = default;

QString ReviewDialog::presentWords(const Difference& difference)
{
    return difference.present.isEmpty() ? tr("not known") : difference.present;
}

void ReviewDialog::fill()
{
    for (const Difference& difference : m_differences) {
        auto* const item = new QTreeWidgetItem(m_rows);
        const QString setting = difference.group.isEmpty()
                                    ? difference.caption
                                    : QStringLiteral("%1: %2").arg(difference.group, difference.caption);
        item->setText(Setting, setting);
        item->setText(Present, difference.sendable ? presentWords(difference) : tr("not in this form"));
        item->setText(Wanted, difference.wanted);
        item->setCheckState(Setting, difference.sendable ? Qt::Checked : Qt::Unchecked);
        item->setDisabled(!difference.sendable);
    }
    for (int column = 0; column < ColumnCount; ++column)
        m_rows->resizeColumnToContents(column);
}

QList<Difference> ReviewDialog::chosen() const
{
    QList<Difference> ticked;
    for (int i = 0; i < m_differences.size(); ++i) {
        if (m_differences.at(i).sendable && m_rows->topLevelItem(i)->checkState(Setting) == Qt::Checked)
            ticked.append(m_differences.at(i));
    }
    return ticked;
}

void ReviewDialog::tickAll(bool ticked)
{
    for (int i = 0; i < m_differences.size(); ++i) {
        if (m_differences.at(i).sendable)
            m_rows->topLevelItem(i)->setCheckState(Setting, ticked ? Qt::Checked : Qt::Unchecked);
    }
}

void ReviewDialog::showCount()
{
    const int count = chosen().size();
    m_send->setText(tr("Send (%1)").arg(count));
    m_send->setEnabled(count > 0);
}

} // namespace hostkit
