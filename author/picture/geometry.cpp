#include "geometry.h"

#include "formstage.h"

#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvadelegate.h>

#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/**
 * Finds the row of each widget of the layout by object names, which controls have of their rows. Rows and
 * widgets come in the same order, so that rows of one name are told apart.
 */
class RowFinder
{
public:
    explicit RowFinder(ZorvaSheet& sheet)
    {
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
            enter(QStringLiteral("label") + row->GetName(), i);
            enter(row->GetName(), i);
            enter(row->GetDelegate()->GetVTName(), i);
            // The main control of a receiver's frequency is a container with a name of its own.
            if (row->GetClass() == QLatin1String("FrequencyEdit"))
                enter(QStringLiteral("FrequencyWidget"), i);
        }
    }

    /** The row of the next widget; -1 for one that no row has made. */
    int next(const QString& name, bool isCaption)
    {
        int row = find(name, isCaption);
        if (row < 0)
            row = find(name.left(name.lastIndexOf(QLatin1Char('_'))), isCaption);
        m_hasControl = row == m_current ? m_hasControl || !isCaption : !isCaption;
        return m_current = row < 0 ? m_current : row;
    }

private:
    void enter(const QString& name, int row)
    {
        QVector<int>& rows = m_rows[name];
        if (!name.isEmpty() && (rows.isEmpty() || rows.last() != row))
            rows.append(row);
    }

    // A caption behind a control begins another row.
    int find(const QString& name, bool isCaption) const
    {
        const auto rows = m_rows.constFind(name);
        if (rows == m_rows.constEnd())
            return -1;
        const int from = isCaption && m_hasControl ? m_current + 1 : qMax(m_current, 0);
        const auto row = std::lower_bound(rows->cbegin(), rows->cend(), from);
        return row == rows->cend() ? -1 : *row;
    }

    QHash<QString, QVector<int>> m_rows;
    int m_current = -1;
    bool m_hasControl = false;
};

/** The width of the widest choice, with what the box has around it. */
int neededWidth(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect field =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    int widest = 0;
    for (int i = 0; i < box.count(); ++i)
        widest = qMax(widest, box.fontMetrics().horizontalAdvance(box.itemText(i)));
    return widest + box.width() - field.width();
}

/** Its text, and the room that it asks for; not bounded as the hints of the engine's own widgets are. */
PlacedPart textOf(const QWidget& widget)
{
    PlacedPart part;
    QSize hint;
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        part.text = label->text();
        hint = part.text.isEmpty() || !label->pixmap(Qt::ReturnByValue).isNull() ? QSize()
                                                                                 : label->QLabel::sizeHint();
    } else if (const auto* const button = qobject_cast<const QPushButton*>(&widget)) {
        part.text = button->text();
        hint = part.text.isEmpty() ? QSize() : button->QPushButton::sizeHint();
    } else if (const auto* const box = qobject_cast<const QGroupBox*>(&widget)) {
        part.text = box->title();
        hint = part.text.isEmpty() ? QSize() : box->minimumSizeHint();
    } else if (const auto* const choices = qobject_cast<const QComboBox*>(&widget)) {
        part.text = choices->currentText();
        hint.setWidth(neededWidth(*choices));
    }
    part.needed = qMax(0, hint.width());
    part.tall = qMax(0, hint.height());
    return part;
}

PlacedPart partOf(const QWidget& widget, const QWidget& window)
{
    PlacedPart part = textOf(widget);
    if (widget.isVisibleTo(&window) && !widget.size().isEmpty())
        part.place = QRect(widget.mapTo(&window, QPoint()), widget.size());
    return part;
}

bool isCaption(const QWidget& widget)
{
    return widget.inherits("QLabel") && widget.objectName().startsWith(QLatin1String("label"));
}

void addControl(PlacedRow& row, const PlacedPart& part)
{
    const QRect whole = row.control.place.united(part.place);
    if (row.parts.isEmpty())
        row.control = part;
    row.control.place = whole;
    row.parts.append(part);
}

/** Walks over the layout's items and notes each with its row and section. */
class Survey
{
public:
    Survey(const FormStage& stage, FormGeometry& geometry)
        : m_stage(stage)
        , m_geometry(geometry)
        , m_finder(stage.form().GetSheet())
    {
    }

    void run()
    {
        enterRows();
        m_geometry.sections.append(PlacedSection());
        const FloatGroupLayout* const layout = m_stage.layout();
        for (int i = 0; i < layout->count(); ++i) {
            QLayoutItem* const item = layout->itemAt(i);
            if (const QWidget* const widget = item ? item->widget() : nullptr)
                enter(*widget);
        }
        for (const PlacedRow& row : qAsConst(m_geometry.rows))
            noteEdge(row);
        numberColumns();
    }

private:
    void enterRows()
    {
        ZorvaSheet& sheet = m_stage.form().GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            const ZorvaSheet::WidgetPointer widget = sheet.GetWidgetAt(i);
            PlacedRow row;
            row.name = widget->GetName();
            row.className = widget->GetClass();
            row.path = widget->GetDelegate()->GetXmlPath();
            row.section = -1;
            m_geometry.rows.append(row);
        }
    }

    void enter(const QWidget& widget)
    {
        const bool caption = isCaption(widget);
        const int index = m_finder.next(widget.objectName(), caption);
        if (index < 0)
            return;
        PlacedRow& row = m_geometry.rows[index];
        const PlacedPart part = partOf(widget, *m_stage.window());
        if (widget.inherits("QGroupBox"))
            beginSection(index, part);
        row.section = m_geometry.sections.size() - 1;
        if (caption)
            row.caption = part;
        else
            addControl(row, part);
    }

    void beginSection(int row, const PlacedPart& head)
    {
        PlacedSection section;
        const ZorvaSheet::WidgetPointer widget = m_stage.form().GetSheet().GetWidgetAt(row);
        section.name = widget->GetName();
        section.head = head;
        section.collapsed = widget->IsHeadline() && !widget->GetDelegate()->isGroupVisible();
        m_geometry.sections.append(section);
        m_edges.resize(m_geometry.sections.size());
    }

    // A head stands at the left edge of its column; where there is none, the first row does.
    void noteEdge(const PlacedRow& row)
    {
        m_edges.resize(m_geometry.sections.size());
        if (row.section < 0 || !row.isSeen())
            return;
        Edge& edge = m_edges[row.section];
        const PlacedSection& section = m_geometry.sections.at(row.section);
        if (!edge.known)
            edge = {section.head.isSeen() ? section.head.place.left() : row.place().left(), true};
    }

    void numberColumns()
    {
        QVector<int> lefts;
        for (const Edge& edge : qAsConst(m_edges)) {
            if (edge.known)
                lefts.append(edge.left);
        }
        std::sort(lefts.begin(), lefts.end());
        lefts.erase(std::unique(lefts.begin(), lefts.end()), lefts.end());
        m_geometry.columns = lefts.size();
        for (int i = 0; i < m_edges.size(); ++i) {
            if (m_edges.at(i).known)
                m_geometry.sections[i].column = 1 + lefts.indexOf(m_edges.at(i).left);
        }
    }

    struct Edge
    {
        int left = 0;
        bool known = false;
    };

    const FormStage& m_stage;
    FormGeometry& m_geometry;
    RowFinder m_finder;
    QVector<Edge> m_edges; // of the sections
};

} // namespace

int FormGeometry::columnOf(const PlacedRow& row) const
{
    return row.section < 0 || !row.isSeen() ? 0 : sections.at(row.section).column;
}

QString FormGeometry::title() const
{
    return QStringLiteral("%1 pixels wide, %2 points").arg(size.width()).arg(fontSize);
}

FormGeometry geometryOf(const FormStage& stage)
{
    FormGeometry geometry;
    geometry.size = stage.window()->size();
    const QWidget* const view = stage.area()->viewport();
    geometry.area = QRect(view->mapTo(stage.window(), QPoint()), view->size());
    geometry.fontSize = stage.window()->font().pointSize();
    Survey(stage, geometry).run();
    return geometry;
}

} // namespace Author
} // namespace Orvane
