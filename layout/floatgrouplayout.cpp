// An arrangement is a chain of passes: gather the hint of every item once, cut
// the items into sections, pack the sections into the most columns that fit,
// and walk over the items to place them. All passes are linear in the items.

#include <layout/floatgrouplayout.h>

#include <layout/markup.h>

#include "bulkshow_p.h"
#include "captionlabel_p.h"
#include "headlinebox_p.h"
#include "viewportrequest_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace {

constexpr int unlimitedWidth = 1000000;
constexpr int maximumLabelHeight = 24;
constexpr int sectionHeight = 2;

// Sums stop here: items of the largest height Qt knows, 150 of them, would
// otherwise run over.
constexpr int farthest = 1 << 29;

int sum(int position, int length)
{
    return qMin(position + length, farthest);
}

void grow(int& widest, int width)
{
    widest = qMax(widest, width);
}

bool isVisible(const QRect& hint)
{
    return hint.height() > 0;
}

// Qt complains aloud of what a widget cannot be.
int possibleHeight(int height)
{
    return qBound(0, height, QWIDGETSIZE_MAX);
}

// How high the first line of a field is: of a list its first control, of a table
// its head, of anything else that is tall its top.
int firstLineHeight(QLayoutItem* item, int flags, int height)
{
    QWidget* field = item ? item->widget() : nullptr;
    const QLayout* list = field && (flags & FloatGroupLayout::FlagList) ? field->layout() : nullptr;
    if (list && list->count() > 0)
        return list->itemAt(0)->sizeHint().height();
    const auto* table = qobject_cast<QTableView*>(field);
    if (table && !table->horizontalHeader()->isHidden())
        return 2 * table->frameWidth() + table->horizontalHeader()->sizeHint().height();
    constexpr int mostLines = 3; // that a field of one line is high
    return field && height > mostLines * field->fontMetrics().height() ? maximumLabelHeight : height;
}

void widenBySection(FloatGroupColumn& column, const FloatGroupColumn& section)
{
    grow(column.labelWidth, section.labelWidth);
    grow(column.fieldWidth, section.fieldWidth);
    grow(column.rowWidth, section.rowWidth);
    grow(column.sectionWidth, section.sectionWidth);
}

} // namespace

// Collects the widths of one section after the other.
class FloatGroupLayout::SectionScan
{
public:
    SectionScan(QList<FloatGroupColumn>& sections, int spacing)
        : m_sections(sections)
        , m_spacing(spacing)
    {
    }

    void begin(int first)
    {
        m_section = FloatGroupColumn();
        m_section.first = first;
    }
    void end() { m_sections.append(m_section); }
    void add(int flags, int width);

private:
    void addField(int flags, int width);

    QList<FloatGroupColumn>& m_sections;
    const int m_spacing;
    FloatGroupColumn m_section;
    int m_rowWidth = 0; // of the running row
    int m_position = 0; // of the item in its row
};

void FloatGroupLayout::SectionScan::add(int flags, int width)
{
    if (flags & FlagNewRow) {
        m_position = 0;
        m_rowWidth = 0;
    }
    if (flags & FlagLabel)
        grow(m_section.labelWidth, width);
    else if (flags & FlagSectionHead)
        grow(m_section.sectionWidth, width + m_spacing);
    else
        addField(flags, width);
    ++m_position;
}

void FloatGroupLayout::SectionScan::addField(int flags, int width)
{
    m_rowWidth = sum(m_rowWidth, width + m_spacing);
    grow(m_section.rowWidth, m_rowWidth);
    if (!(flags & FlagSpecial) && m_position == 1)
        grow(m_section.fieldWidth, width);
}

// Its hint is not cached as that of other items is: it depends on theirs.
class FloatGroupLayout::FieldOfSeveral : public QWidgetItem
{
public:
    FieldOfSeveral(const FloatGroupLayout* layout, QWidget* field)
        : QWidgetItem(field)
        , m_layout(layout)
    {
    }

    QSize ownHint() const { return QWidgetItem::sizeHint(); }
    QSize sizeHint() const override
    {
        const QSize own = ownHint();
        return isEmpty() || !m_layout ? own : own.expandedTo(QSize(m_layout->widestFirstField(), 0));
    }

private:
    QPointer<const FloatGroupLayout> m_layout; // an item that was taken out may outlive it
};

// Walks over the items and turns each hint into the final rectangle.
class FloatGroupLayout::Placer
{
public:
    Placer(const FloatGroupLayout& layout, QList<FloatGroupColumn>& columns, int width)
        : m_layout(layout)
        , m_columns(columns)
        , m_width(width)
        , m_rects(layout.m_hints.data())
        , m_column(&columns[0])
    {
    }

    void place(int index);
    QSize finish();

private:
    void startRow();
    void settleLabel();
    void setWidth(int index, int flags);
    void startSection(int index);
    void wrap(const QRect& rect);
    void putDown(QRect& rect);

    const FloatGroupLayout& m_layout;
    QList<FloatGroupColumn>& m_columns;
    const int m_width;
    QRect* const m_rects;
    FloatGroupColumn* m_column;
    int m_x = 0;
    int m_y = 0;
    int m_rowHeight = 0;
    int m_advance = 0; // from the left edge of the last item to the next
    int m_maxRight = 0;
    int m_maxBottom = 0;
    int m_pendingLabel = -1; // its height is known when its row ends
};

void FloatGroupLayout::Placer::place(int index)
{
    const int flags = m_layout.m_flags.at(index);
    if (flags & FlagNewRow)
        startRow();
    else
        m_x = sum(m_x, m_advance);
    setWidth(index, flags);
    if (flags & FlagSectionHead)
        startSection(index);
    wrap(m_rects[index]);
    putDown(m_rects[index]);
}

QSize FloatGroupLayout::Placer::finish()
{
    settleLabel();
    return QSize(m_maxRight, m_maxBottom + 1);
}

void FloatGroupLayout::Placer::startRow()
{
    settleLabel();
    m_x = m_column->x;
    m_y = sum(m_y, m_rowHeight);
    m_rowHeight = 0;
}

void FloatGroupLayout::Placer::settleLabel()
{
    if (m_pendingLabel < 0)
        return;
    m_rects[m_pendingLabel].setHeight(qMin(m_rowHeight, maximumLabelHeight));
    m_pendingLabel = -1;
}

void FloatGroupLayout::Placer::setWidth(int index, int flags)
{
    QRect& rect = m_rects[index];
    if (flags & FlagLabel) {
        rect.setWidth(m_column->labelWidth);
        m_pendingLabel = index;
    } else if (!(flags & FlagSpecial) && rect.width() < m_column->fieldWidth) {
        rect.setWidth(m_column->fieldWidth);
    }
}

// The head's distance to the row above stays with the column that it leaves.
void FloatGroupLayout::Placer::startSection(int index)
{
    QLayoutItem* item = m_layout.m_items.at(index);
    const QWidget* head = item ? item->widget() : nullptr;
    if (index > 0 && head)
        m_y = sum(m_y, head->contentsMargins().top());
    m_column->y = m_y;
    m_column = &m_columns[m_layout.getSectionIndex(m_columns, index)];
    int span = qMax(m_column->rowWidth + m_column->labelWidth, m_column->sectionWidth);
    if (span > m_width)
        span = qMax(m_width, m_maxRight);
    m_rects[index].setWidth(span);
    m_x = m_column->x;
    m_y = m_column->y;
}

// Back to the edge of the layout, not of the column: only a single column is
// meant to hold rows wider than the width.
void FloatGroupLayout::Placer::wrap(const QRect& rect)
{
    if (m_x <= 0 || m_x + rect.width() <= m_width)
        return;
    m_x = 0;
    m_y = sum(m_y, m_rowHeight);
    m_rowHeight = 0;
}

void FloatGroupLayout::Placer::putDown(QRect& rect)
{
    rect.moveTo(m_x, m_y);
    m_advance = rect.width() + m_layout.m_horizontalSpacing;
    if (isVisible(rect))
        grow(m_rowHeight, rect.height() + m_layout.m_verticalSpacing);
    grow(m_maxRight, rect.right());
    grow(m_maxBottom, rect.bottom());
}

FloatGroupLayout::FloatGroupLayout(QScrollArea* scrollArea)
    : QLayout(scrollArea ? scrollArea->widget() : nullptr)
    , m_scrollArea(scrollArea)
{
    initialize();
    if (!m_scrollArea)
        return;
    m_scrollArea->installEventFilter(this);
    if (QWidget* content = m_scrollArea->widget())
        new BulkShow(content, this); // which the layout owns
    // The content may be taken off the area and outlive it.
    connect(m_scrollArea, &QObject::destroyed, this, [this] { m_scrollArea = nullptr; });
}

FloatGroupLayout::FloatGroupLayout(QWidget* parent)
    : QLayout(parent)
{
    initialize();
}

FloatGroupLayout::~FloatGroupLayout()
{
    while (!m_items.isEmpty()) {
        QLayoutItem* item = m_items.takeFirst();
        if (!item)
            break;
        delete item;
    }
    m_flags.clear();
    m_hints.clear();
}

void FloatGroupLayout::initialize()
{
    setSizeConstraint(QLayout::SetNoConstraint);
    QLayoutItem::setAlignment(Qt::AlignTop);
    if (QWidget* content = parentWidget())
        m_overflow = new CaptionOverflow(content, this);
}

bool FloatGroupLayout::eventFilter(QObject* watched, QEvent* event)
{
    if (m_scrollArea && watched == m_scrollArea && event->type() == QEvent::FontChange)
        remeasureHeads();
    if (m_scrollArea && watched == m_scrollArea && event->type() == QEvent::Resize) {
        // Ahead of the content, which would be arranged, and painted, at a width that it
        // is about to lose.
        QCoreApplication::postEvent(m_scrollArea, new QEvent(viewportRequest()));
        invalidate();
        QLayout::update();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

// Their titles are in the font of the sheet, of which a box with a style sheet of
// its own hears nothing.
void FloatGroupLayout::remeasureHeads() const
{
    for (int i = 0; i < m_items.count(); ++i) {
        QWidget* head =
            (m_flags.at(i) & FlagSectionHead) && m_items.at(i) ? m_items.at(i)->widget() : nullptr;
        if (head)
            head->updateGeometry();
    }
}

void FloatGroupLayout::addItem(QLayoutItem* item)
{
    clearHints();
    m_itemHintsStand = false;
    m_items.append(item);
    m_flags.append(0);
}

QLayoutItem* FloatGroupLayout::itemAt(int index) const
{
    return index < 0 || index >= m_items.count() ? nullptr : m_items.at(index);
}

QLayoutItem* FloatGroupLayout::takeAt(int index)
{
    return index < 0 || index >= m_items.count() ? nullptr : m_items.takeAt(index);
}

int FloatGroupLayout::count() const
{
    return m_items.count();
}

QSize FloatGroupLayout::sizeHint() const
{
    return sizeHint(unlimitedWidth, 1);
}

QSize FloatGroupLayout::minimumSize() const
{
    const QLayoutItem* first = itemAt(0);
    return first ? first->sizeHint() : QSize(m_horizontalSpacing, m_verticalSpacing);
}

Qt::Orientations FloatGroupLayout::expandingDirections() const
{
    return Qt::Vertical;
}

void FloatGroupLayout::setGeometry(const QRect& rect)
{
    const QSize size = sizeHint(rect.width(), 0);
    const int generation = m_generation;
    const bool isWidthChange = std::exchange(m_isWidthChange, false);
    if (m_scrollArea && m_scrollArea->widget())
        m_scrollArea->widget()->setMinimumSize(size.boundedTo({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}));
    QLayout::setGeometry(rect);
    const CaptionOverflow::Gathering gathering(m_overflow);
    // Anything that a child does about its new geometry may invalidate the
    // arrangement; a fresh pass is under way then.
    for (int i = 0; generation == m_generation && i < qMin(m_items.count(), m_hints.count()); ++i) {
        QLayoutItem* item = m_items.at(i);
        if (!item)
            continue;
        item->setGeometry(m_hints.at(i));
        if (generation != m_generation)
            break;
        if (m_flags.at(i) & FlagLabel)
            levelCaption(i + 1);
        if (m_flags.at(i) & FlagList)
            setListGeometry(item);
    }
    m_isWidthChange = isWidthChange && generation == m_generation;
}

// Has the caption ahead of a field stand level with its first line. One that has
// a line to itself stands at the top of it.
void FloatGroupLayout::levelCaption(int field)
{
    if (field == 0 || !(m_flags.at(field - 1) & FlagLabel))
        return;
    QLayoutItem* labelItem = m_items.at(field - 1);
    auto* caption = labelItem ? dynamic_cast<CaptionLabel*>(labelItem->widget()) : nullptr;
    if (!caption)
        return;
    const bool hasField = field < m_items.count() && !(m_flags.at(field) & FlagNewRow);
    const QRect place = hasField ? m_hints.at(field) : QRect();
    const bool beside = isVisible(place) && place.top() == m_hints.at(field - 1).top();
    caption->setLevel(beside ? firstLineHeight(m_items.at(field), m_flags.at(field), place.height()) : 0,
                      m_overflow);
}

bool FloatGroupLayout::hasHeightForWidth() const
{
    return true;
}

int FloatGroupLayout::heightForWidth(int width) const
{
    return sizeHint(width, 0).height();
}

void FloatGroupLayout::invalidate()
{
    clearHints();
    m_itemHintsStand = m_itemHintsStand && m_isWidthChange;
    QLayout::invalidate();
}

FloatGroupLayout::WidthChange::WidthChange(QLayout* layout)
    : m_layout(qobject_cast<FloatGroupLayout*>(layout))
{
    if (m_layout)
        m_before = std::exchange(m_layout->m_isWidthChange, true);
}

FloatGroupLayout::WidthChange::~WidthChange()
{
    if (m_layout)
        m_layout->m_isWidthChange = m_before;
}

void FloatGroupLayout::addRow(const QString& label, QWidget* widget)
{
    const QString name = widget ? widget->objectName() : QString();
    addLabel(label, nullptr)->setObjectName(QStringLiteral("label") + name);
    if (widget)
        QLayout::addWidget(widget);
}

QLabel* FloatGroupLayout::addLabel(const QString& text, const char* name)
{
    setFlag(m_items.count(), FlagNewRow | FlagLabel);
    auto* const label = new CaptionLabel(QLayout::parentWidget());
    Markup::show(label, text);
    return addNamed(label, name);
}

QGroupBox* FloatGroupLayout::addHeadline(const QString& text, int margin, const char* name)
{
    setFlag(m_items.count(), FlagNewRow | FlagSectionHead);
    auto* box = new HeadlineBox(text, QLayout::parentWidget());
    box->setAlignment(Qt::AlignHCenter);
    box->setFlat(true);
    int topMargin = margin;
    if (text.isEmpty()) {
        box->setFixedHeight(possibleHeight(margin / 2 + 5));
        topMargin = margin - margin / 2;
    }
    box->keepMargins(QMargins(0, topMargin, 0, 0));
    return addNamed(box, name);
}

void FloatGroupLayout::addSection(const char* name)
{
    setFlag(m_items.count(), FlagNewRow | FlagSectionHead);
    auto* head = new QWidget(QLayout::parentWidget());
    head->setFixedHeight(sectionHeight);
    addNamed(head, name);
}

QWidget* FloatGroupLayout::addSeparator(int height, const char* name)
{
    setFlag(m_items.count(), FlagNewRow);
    auto* separator = new QWidget(QLayout::parentWidget());
    separator->setFixedHeight(possibleHeight(height));
    return addNamed(separator, name);
}

void FloatGroupLayout::addGroup()
{
    setFlag(m_items.count(), FlagNewRow);
}

void FloatGroupLayout::addList()
{
    setFlag(m_items.count(), FlagList);
}

void FloatGroupLayout::addSpecial()
{
    setFlag(m_items.count(), FlagSpecial);
}

void FloatGroupLayout::addFieldOfSeveral(QWidget* field)
{
    addChildWidget(field);
    addItem(new FieldOfSeveral(this, field));
}

void FloatGroupLayout::setHorizontalSpacing(int spacing)
{
    m_horizontalSpacing = spacing;
}

void FloatGroupLayout::setVerticalSpacing(int spacing)
{
    m_verticalSpacing = spacing;
}

// All items leave before the first widget is deleted: otherwise Qt looks among
// the remaining ones for every widget that goes. A widget may take others with
// it, hence the guarded pointers.
void FloatGroupLayout::removeAllWidgets()
{
    QVector<std::pair<QLayoutItem*, QPointer<QWidget>>> taken;
    taken.reserve(m_items.count());
    while (QLayoutItem* item = takeAt(0))
        taken.append({item, item->widget()});
    for (const auto& [item, widget] : qAsConst(taken)) {
        delete widget.data();
        delete item;
    }
    m_flags.clear();
    m_hints.clear();
    // A null item ends the walk, and those behind it stay.
    while (m_flags.count() < m_items.count())
        m_flags.append(0);
}

template <typename Widget>
Widget* FloatGroupLayout::addNamed(Widget* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    QLayout::addWidget(widget);
    return widget;
}

void FloatGroupLayout::setFlag(int index, int flag)
{
    while (m_flags.count() <= index)
        m_flags.append(0);
    m_flags[index] |= flag;
}

void FloatGroupLayout::clearHints() const
{
    ++m_generation;
    m_hints.clear();
    m_widestFirst = -1;
}

QSize FloatGroupLayout::sizeHint(int width, int columns) const
{
    if (m_hints.count() == m_items.count())
        return m_sizeHint;
    if (m_scrollArea && m_scrollArea->width() > 0)
        width = qMin(width, m_scrollArea->width());
    return arrange(width, columns);
}

QSize FloatGroupLayout::columnSize() const
{
    const QVector<QRect> hints = m_hints;
    const QSize size = m_sizeHint;
    const int generation = m_generation;
    const QSize column = arrange(unlimitedWidth, 1);
    m_sizeHint = size;
    // Unless a control that was asked for its hint gave notice of a change.
    const bool unchanged = m_generation == generation + 1;
    m_hints = unchanged ? hints : QVector<QRect>();
    if (unchanged)
        m_generation = generation;
    return column;
}

QSize FloatGroupLayout::arrange(int width, int columns) const
{
    QList<FloatGroupColumn> sections;
    if (!scanItems(sections))
        return m_sizeHint;
    if (columns <= 0 || columns > sections.count())
        columns = sections.count();
    QList<FloatGroupColumn> columnList;
    const int sectionsPerColumn = scanSections(columnList, sections, columns, width);
    arrangeItems(columnList, sectionsPerColumn, width);
    return m_sizeHint;
}

bool FloatGroupLayout::scanItems(QList<FloatGroupColumn>& sections) const
{
    clearHints();
    m_sizeHint = QSize(0, 0);
    if (m_items.isEmpty())
        return false;
    gatherHints();
    SectionScan scan(sections, m_horizontalSpacing);
    scan.begin(0);
    for (int i = 0; i < m_items.count(); ++i) {
        const int flags = m_flags.at(i);
        if (i > 0 && (flags & FlagSectionHead) && !skipSection(i)) {
            scan.end();
            scan.begin(i);
        }
        scan.add(flags, m_hints.at(i).width());
    }
    scan.end();
    return true;
}

void FloatGroupLayout::gatherHints() const
{
    // Kept apart until complete: a hint may be computed by a control that
    // invalidates the layout while it is asked.
    if (!m_itemHintsStand || m_itemHints.count() != m_items.count())
        askItems();
    QVector<QRect> hints(m_itemHints.count());
    std::transform(m_itemHints.cbegin(), m_itemHints.cend(), hints.begin(),
                   [](const QSize& hint) { return QRect(QPoint(0, 0), hint); });
    m_hints = std::move(hints);
}

void FloatGroupLayout::askItems() const
{
    QVector<QSize> hints(m_items.count());
    QSize* place = hints.data();
    const int generation = m_generation;
    uint key = 1;
    for (const QLayoutItem* item : m_items) {
        const QSize hint = item ? item->sizeHint() : QSize(0, 0);
        *place++ = hint;
        key = (key * 31 + uint(hint.width())) * 31 + uint(hint.height());
    }
    m_itemHints = std::move(hints);
    m_hintsKey = key;
    m_itemHintsStand = generation == m_generation;
}

int FloatGroupLayout::rearrange(int width) const
{
    clearHints();
    return sizeHint(width, 0).height();
}

int FloatGroupLayout::widestFirstField() const
{
    if (m_widestFirst >= 0)
        return m_widestFirst;
    int widest = 0;
    int position = 0;
    for (int i = 0; i < m_items.count(); ++i, ++position) {
        const int flags = m_flags.at(i);
        if (flags & FlagNewRow)
            position = 0;
        if (position != 1 || (flags & (FlagSectionHead | FlagLabel | FlagSpecial)))
            continue;
        const QLayoutItem* item = m_items.at(i);
        const auto* several = dynamic_cast<const FieldOfSeveral*>(item);
        const QSize hint = several ? several->ownHint() : item ? item->sizeHint() : QSize();
        grow(widest, hint.width());
    }
    m_widestFirst = widest;
    return widest;
}

// From the most columns downward: a column that runs over is counted out and
// all sections are packed anew, by their number alone.
int FloatGroupLayout::scanSections(QList<FloatGroupColumn>& columns, QList<FloatGroupColumn>& sections,
                                   int columnCount, int width) const
{
    while (true) {
        const int perColumn = (columnCount - 1 + sections.count()) / columnCount;
        int section = 0;
        int total = 0;
        bool fits = true;
        for (int c = 0; fits && c < columnCount; ++c) {
            FloatGroupColumn column;
            column.first = section < sections.count() ? sections.at(section).first : m_items.count();
            column.x = total;
            const int end = qMin(section + perColumn, sections.count());
            for (; section < end; ++section)
                widenBySection(column, sections.at(section));
            columns.append(column);
            total = sum(total, qMax(column.rowWidth + 2 * m_horizontalSpacing + column.labelWidth,
                                    column.sectionWidth));
            if (c >= 1 && total >= width) {
                columns.clear();
                columnCount = c;
                fits = false;
            }
        }
        if (fits)
            return perColumn;
    }
}

void FloatGroupLayout::arrangeItems(QList<FloatGroupColumn>& columns, int sectionsPerColumn, int width) const
{
    Q_UNUSED(sectionsPerColumn)
    Placer placer(*this, columns, width);
    for (int i = 0; i < m_hints.count(); ++i)
        placer.place(i);
    m_sizeHint = placer.finish();
}

// The last column that does not begin behind the item.
int FloatGroupLayout::getSectionIndex(QList<FloatGroupColumn>& columns, int item) const
{
    const auto behind =
        std::upper_bound(columns.cbegin(), columns.cend(), item,
                         [](int index, const FloatGroupColumn& column) { return index < column.first; });
    return qMax(0, int(behind - columns.cbegin()) - 1);
}

// A head is no boundary when nothing visible stands before it up to the head
// before, or nothing at all behind it.
bool FloatGroupLayout::skipSection(int item) const
{
    for (int i = item - 1; i >= 0; --i) {
        if (m_flags.at(i) & FlagSectionHead)
            return true;
        if (isVisible(m_hints.at(i)))
            break;
    }
    for (int i = item + 1; i < m_hints.count(); ++i) {
        if ((m_flags.at(i) & FlagSectionHead) || isVisible(m_hints.at(i)))
            return false;
    }
    return true;
}

void FloatGroupLayout::setListGeometry(QLayoutItem* item)
{
    QLayout* list = item && item->widget() ? item->widget()->layout() : nullptr;
    if (!list)
        return;
    const int width = item->geometry().width();
    for (int i = 0; i < list->count(); ++i) {
        QLayoutItem* inner = list->itemAt(i);
        if (inner && inner->widget())
            inner->widget()->setMinimumWidth(width);
    }
}
