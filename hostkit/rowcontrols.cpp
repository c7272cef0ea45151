#include "rowcontrols.h"

#include <zorvaparser/zorvadelegate.h>

#include <QHash>
#include <QLayout>
#include <QStringList>

namespace hostkit {

using Orvane::ZorvaFormular;
using Orvane::ZorvaSheet;
using Orvane::ZorvaWidget;

namespace {

QString captionName(const ZorvaWidget& row)
{
    return QLatin1String("label") + row.GetName();
}

/** What the widgets of a row may be called. */
QStringList namesOf(const ZorvaWidget& row)
{
    QStringList names{captionName(row), row.GetName()};
    if (row.GetDelegate())
        names.append(row.GetDelegate()->GetVTName());
    return names;
}

/** Tells widgets, which come in the order of the layout, which row they belong to. */
class RowFinder
{
public:
    explicit RowFinder(ZorvaSheet& sheet)
        : m_sheet(sheet)
    {
        for (int i = sheet.GetWidgetCount() - 1; i >= 0; --i) {
            const QStringList names = namesOf(*sheet.GetWidgetAt(i));
            for (const QString& name : names)
                m_rows[name].append(i);
        }
    }

    /** -1 before the first row. */
    int rowOf(const QWidget& widget)
    {
        const auto named = m_rows.find(widget.objectName());
        if (named == m_rows.end())
            return m_current;
        // Names may come twice, but the rows stand in the layout in their own order.
        while (!named->isEmpty() && named->last() < m_current)
            named->removeLast();
        const bool isOwn =
            m_current >= 0 && namesOf(*m_sheet.GetWidgetAt(m_current)).contains(widget.objectName());
        if (!named->isEmpty() && !isOwn)
            m_current = named->last();
        return m_current;
    }

private:
    ZorvaSheet& m_sheet;
    QHash<QString, QVector<int>> m_rows; // by name, the last one first
    int m_current = -1;
};

} // namespace

QVector<RowControl> rowControls(ZorvaFormular& form)
{
    ZorvaSheet& sheet = form.GetSheet();
    QVector<RowControl> rows(sheet.GetWidgetCount());
    const QWidget* const content = sheet.Content();
    const QLayout* const layout = content ? content->layout() : nullptr;
    RowFinder finder(sheet);
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem* const item = layout->itemAt(i);
        QWidget* const widget = item ? item->widget() : nullptr;
        const int row = widget ? finder.rowOf(*widget) : -1;
        if (row < 0)
            continue;
        auto* const label = qobject_cast<QLabel*>(widget);
        if (label && label->objectName() == captionName(*sheet.GetWidgetAt(row)))
            rows[row].caption = label;
        else
            rows[row].widgets.append(widget);
    }
    return rows;
}

} // namespace hostkit
