#include "referencearrangement.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace {

enum { NewRow = 1, Head = 2, Label = 4, Special = 8 };

struct Range
{
    int begin;
    int end; // one past the last item
};

struct Widths
{
    int label = 0;
    int field = 0;
    int row = 0;
    int head = 0;
};

struct Setting
{
    QVector<ReferenceItem> items;
    int gapX;
    int gapY;
};

bool isBoundary(const QString& kinds, int item)
{
    static const QRegularExpression before(QStringLiteral("(^|v)\\.*$"));
    static const QRegularExpression behind(QStringLiteral("^\\.*[Hv]"));
    return item > 0 && kinds.at(item) == QLatin1Char('H') && before.match(kinds.left(item)).hasMatch() &&
           behind.match(kinds.mid(item + 1)).hasMatch();
}

QString kindsOf(const Setting& setting)
{
    QString kinds;
    for (const ReferenceItem& item : setting.items) {
        const bool head = item.flags & Head;
        kinds += QLatin1Char(head ? 'H' : item.hint.height() > 0 ? 'v' : '.');
    }
    return kinds;
}

QVector<Range> sectionsOf(const Setting& setting)
{
    const QString kinds = kindsOf(setting);
    QVector<int> starts{0};
    for (int i = 1; i < kinds.size(); ++i) {
        if (isBoundary(kinds, i))
            starts.append(i);
    }
    starts.append(kinds.size());
    QVector<Range> sections;
    for (int s = 0; s + 1 < starts.size(); ++s)
        sections.append({starts.at(s), starts.at(s + 1)});
    return sections;
}

// The rows of a range; a range that starts inside a row starts a row for itself.
QVector<Range> rowsOf(const Setting& setting, Range range)
{
    QVector<Range> rows;
    for (int i = range.begin; i < range.end; ++i) {
        if (rows.isEmpty() || (setting.items.at(i).flags & NewRow))
            rows.append({i, i});
        rows.last().end = i + 1;
    }
    return rows;
}

Widths widthsOf(const Setting& setting, Range range)
{
    Widths widths;
    for (const Range& row : rowsOf(setting, range)) {
        int fields = 0;
        for (int i = row.begin; i < row.end; ++i) {
            const ReferenceItem& item = setting.items.at(i);
            const int w = item.hint.width();
            const bool counts = !(item.flags & (Label | Head));
            if (item.flags & Label)
                widths.label = std::max(widths.label, w);
            else if (item.flags & Head)
                widths.head = std::max(widths.head, w + setting.gapX);
            if (counts)
                fields += w + setting.gapX;
            if (counts && i == row.begin + 1 && !(item.flags & Special))
                widths.field = std::max(widths.field, w);
        }
        widths.row = std::max(widths.row, fields);
    }
    return widths;
}

int spanOf(const Setting& setting, const Widths& widths)
{
    return std::max(widths.row + 2 * setting.gapX + widths.label, widths.head);
}

// The sections of each of a number of columns, some of them perhaps empty.
QVector<Range> pack(const Setting& setting, const QVector<Range>& sections, int columns)
{
    const int each = (sections.size() + columns - 1) / columns;
    QVector<Range> packed;
    for (int c = 0; c < columns; ++c) {
        const int from = std::min(c * each, sections.size());
        const int to = std::min(from + each, sections.size());
        const int end = setting.items.size();
        packed.append(from < to ? Range{sections.at(from).begin, sections.at(to - 1).end} : Range{end, end});
    }
    return packed;
}

// The column at which a packing runs over, or 0.
int overflowingColumn(const Setting& setting, const QVector<Range>& packed, int width)
{
    int right = 0;
    for (int c = 0; c < packed.size(); ++c) {
        right += spanOf(setting, widthsOf(setting, packed.at(c)));
        if (c > 0 && right >= width)
            return c;
    }
    return 0;
}

QVector<Range> columnsOf(const Setting& setting, int width, int wanted)
{
    const QVector<Range> sections = sectionsOf(setting);
    int columns = wanted <= 0 ? sections.size() : std::min(wanted, sections.size());
    while (int overflow = overflowingColumn(setting, pack(setting, sections, columns), width))
        columns = overflow;
    return pack(setting, sections, columns);
}

class Drawing
{
public:
    Drawing(const Setting& setting, int width)
        : m_setting(setting)
        , m_width(width)
    {
    }

    ReferenceResult draw(const QVector<Range>& columns)
    {
        int left = 0;
        for (const Range& column : columns) {
            const Widths widths = widthsOf(m_setting, column);
            for (const Range& row : rowsOf(m_setting, column))
                drawRow(row, left, widths, &column != &columns.first() && row.begin == column.begin);
            left += spanOf(m_setting, widths);
        }
        m_result.size = QSize(m_right, m_bottom + 1);
        return m_result;
    }

private:
    void drawRow(Range row, int left, const Widths& widths, bool topOfColumn)
    {
        int x = left;
        int height = 0;
        int label = -1;
        const ReferenceItem& first = m_setting.items.at(row.begin);
        if (topOfColumn)
            m_y = 0;
        else if ((first.flags & Head) && row.begin > 0)
            m_y += first.topMargin;
        for (int i = row.begin; i < row.end; ++i) {
            const ReferenceItem& item = m_setting.items.at(i);
            const int w = widthOf(item, widths);
            if (item.flags & Label)
                label = i;
            if (x > 0 && x + w > m_width) {
                x = 0;
                m_y += height;
                height = 0;
            }
            put(QRect(x, m_y, w, item.hint.height()));
            if (item.hint.height() > 0)
                height = std::max(height, item.hint.height() + m_setting.gapY);
            x += w + m_setting.gapX;
        }
        if (label >= 0)
            m_result.rectangles[label].setHeight(std::min(height, 24));
        m_y += height;
    }

    int widthOf(const ReferenceItem& item, const Widths& widths) const
    {
        if (item.flags & Head) {
            const int span = std::max(widths.row + widths.label, widths.head);
            return span > m_width ? std::max(m_width, m_right) : span;
        }
        if (item.flags & Label)
            return widths.label;
        return item.flags & Special ? item.hint.width() : std::max(item.hint.width(), widths.field);
    }

    void put(const QRect& rect)
    {
        m_result.rectangles.append(rect);
        m_right = std::max(m_right, rect.x() + rect.width() - 1);
        m_bottom = std::max(m_bottom, rect.y() + rect.height() - 1);
    }

    const Setting& m_setting;
    const int m_width;
    ReferenceResult m_result;
    int m_y = 0;
    int m_right = 0;
    int m_bottom = 0;
};

} // namespace

ReferenceResult referenceArrangement(const QVector<ReferenceItem>& items, int width, int columns,
                                     int horizontalSpacing, int verticalSpacing)
{
    if (items.isEmpty())
        return {{}, QSize(0, 0)};
    const Setting setting{items, horizontalSpacing, verticalSpacing};
    return Drawing(setting, width).draw(columnsOf(setting, width, columns));
}
