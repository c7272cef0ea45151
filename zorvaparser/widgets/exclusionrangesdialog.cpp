#include "exclusionrangesdialog.h"

#include "freqrangetable.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace Orvane {

namespace {

QDialogButtonBox* createButtons(QDialog* dialog, FreqRangeTable* table, const ExclusionRangesWords& words)
{
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, dialog);
    QPushButton* const sort = buttons->addButton(words.sort, QDialogButtonBox::ActionRole);
    sort->setToolTip(words.sortToolTip);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(sort, &QPushButton::clicked, table, &FreqRangeTable::SlotSortByStartFrequencies);
    return buttons;
}

} // namespace

void editExclusionRanges(QWidget* parent, values::ValueCommentedRangeMap* map,
                         const ExclusionRangesWords& words)
{
    // Not on the stack: the parent may take the dialog with it while it is open.
    const QPointer<QDialog> dialog = new QDialog(parent);
    dialog->setWindowTitle(words.title);
    dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowContextHelpButtonHint);
    auto* const layout = new QVBoxLayout(dialog);
    auto* const table = new FreqRangeTable(dialog);
    table->setAccessibleName(words.title);
    table->attachMap(map, false);
    layout->addWidget(table);
    layout->addWidget(createButtons(dialog, table, words));

    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    if (accepted)
        table->applyToValue();
    delete dialog.data();
}

} // namespace Orvane
