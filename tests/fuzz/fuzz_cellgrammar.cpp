// Texts typed into the cells of the range table.
#include "harness.h"

#include <zorvaparser/widgets/freqrangetable.h>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::ensureApplication();
    Orvane::FreqRangeTable table(nullptr);
    table.setRowCount(1);
    table.setItem(0, 0, new QTableWidgetItem(fuzz::textOf(data, size)));
    const QString first = table.item(0, 0)->text();
    table.item(0, 0)->setText(first);
    fuzz::require(table.item(0, 0)->text() == table.item(0, 0)->text().simplified(),
                  "what a cell shows is normalised");
    table.SlotSortByStartFrequencies();
    return 0;
}
