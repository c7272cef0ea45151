#include "exclusionrangesdialog.h"

#include "freqrangetable.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace Orvane {

namespace {

/** What exclusionrangesdialog shows in the user's language. */
struct DialogText
{
    Q_DECLARE_TR_FUNCTIONS(ExclusionRangesDialog)
};

QDialogButtonBox* createButtons(QDialog* dialog, FreqRangeTable* table)
{
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, dialog);
    QPushButton* const sort = buttons->addButton(DialogText::tr("&Sort"), QDialogButtonBox::ActionRole);
    sort->setToolTip(DialogText::tr("Sort entries by start frequency in ascending order"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(sort, &QPushButton::clicked, table, &FreqRangeTable::SlotSortByStartFrequencies);
    return buttons;
}

} // namespace

void editExclusionRanges(QWidget* parent, const QString& mapPath)
{
    // Not on the stack: the parent may take the dialog with it while it is open.
    const QPointer<QDialog> dialog = new QDialog(parent);
    dialog->setWindowTitle(DialogText::tr("Excluded ranges (kHz)"));
    dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowContextHelpButtonHint);
    auto* const layout = new QVBoxLayout(dialog);
    auto* const table = new FreqRangeTable(dialog);
    table->attachValue(mapPath, false);
    layout->addWidget(table);
    layout->addWidget(createButtons(dialog, table));

    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    if (accepted)
        table->applyToValue();
    delete dialog.data();
}

} // namespace Orvane
