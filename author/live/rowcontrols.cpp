#include "rowcontrols.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>

#include <QLayout>

namespace Orvane {
namespace Author {

namespace {

bool bearsNameOf(const QWidget& widget, const ZorvaWidget& row)
{
    const QString& name = widget.objectName();
    return name == QLatin1String("label") + row.GetName() || name == row.GetName() ||
           name == row.GetDelegate()->GetVTName();
}

} // namespace

QVector<RowControl> rowControls(ZorvaFormular& form)
{
    ZorvaSheet& sheet = form.GetSheet();
    QVector<RowControl> rows(sheet.GetWidgetCount());
    const QWidget* const content = sheet.Content();
    const QLayout* const layout = content ? content->layout() : nullptr;
    // Names may come twice, but the rows stand in the layout in their own order.
    QHash<QString, QVector<int>> byName;
    for (int i = rows.size() - 1; i >= 0; --i) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
        byName[QLatin1String("label") + row->GetName()].append(i);
        byName[row->GetName()].append(i);
        byName[row->GetDelegate()->GetVTName()].append(i);
    }
    int current = -1;
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem* const item = layout->itemAt(i);
        QWidget* const widget = item ? item->widget() : nullptr;
        if (!widget)
            continue;
        QVector<int>& named = byName[widget->objectName()];
        while (!named.isEmpty() && named.last() < current)
            named.removeLast();
        const int next = named.isEmpty() ? -1 : named.last();
        const bool isOwn = current >= 0 && bearsNameOf(*widget, *sheet.GetWidgetAt(current));
        if (next >= 0 && !isOwn)
            current = next;
        if (current < 0)
            continue;
        auto* const label = qobject_cast<QLabel*>(widget);
        const QString caption = QLatin1String("label") + sheet.GetWidgetAt(current)->GetName();
        if (label && label->objectName() == caption)
            rows[current].caption = label;
        else
            rows[current].widgets.append(widget);
    }
    return rows;
}

} // namespace Author
} // namespace Orvane
