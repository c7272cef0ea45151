#ifndef ZORVA_LAYOUT_FLOATGROUPLAYOUT_H
#define ZORVA_LAYOUT_FLOATGROUPLAYOUT_H

#include <layout/layout_export.h>

#include <QLayout>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QVector>

class CaptionOverflow;
class QGroupBox;
class QLabel;
class QScrollArea;

/// One section of rows, or one column of sections. All lengths in pixels.
struct FloatGroupColumn
{
    int first = 0;        ///< index of its first item
    int x = 0;            ///< left edge; 0 in a section
    int labelWidth = 0;   ///< widest label
    int fieldWidth = 0;   ///< widest item standing directly after the first of a row
    int rowWidth = 0;     ///< widest row without its label, spacing after each item included
    int sectionWidth = 0; ///< widest section head, spacing included
    int y = 0;            ///< where the column goes on
};

/// Lays out the rows of a form. Items are added in reading order; marks cut
/// them into rows and rows into sections, and the sections flow into as many
/// columns side by side as the width allows: labels of a column are aligned to
/// one width, fields widened to another.
///
/// A size query on a fresh layout settles the arrangement until the next
/// invalidate(), whatever width later queries name. The layout is emptied as a
/// whole: marks belong to positions and do not move when an item is taken out.
class LAYOUT_EXPORT FloatGroupLayout : public QLayout
{
    Q_OBJECT

public:
    /// Marks of an item; they combine.
    enum Flag {
        FlagNewRow = 1,      ///< starts a row
        FlagSectionHead = 2, ///< heads a section, may start a column, spans it
        FlagLabel = 4,       ///< a row's label: gets the label width of the column
        FlagSpecial = 8,     ///< keeps its width and counts not towards the field width
        FlagList = 16        ///< a container whose widgets become as wide as itself
    };

    /// Lays out the widget of \a scrollArea, which must be set already. The
    /// area is not owned; its width limits the layout, its resizes renew it.
    explicit FloatGroupLayout(QScrollArea* scrollArea);
    /// Lays out \a parent, which nothing but its own width limits.
    explicit FloatGroupLayout(QWidget* parent);
    /// Deletes the items, not their widgets.
    ~FloatGroupLayout() override;

    /// Renews the arrangement on, and consumes, a resize of the scroll area.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Appends \a item and takes it over.
    void addItem(QLayoutItem* item) override;
    /// Null when \a index is out of range.
    QLayoutItem* itemAt(int index) const override;
    /// Hands the item over to the caller; null when \a index is out of range.
    QLayoutItem* takeAt(int index) override;
    /** How many items there are, labels and controls counted one by one. */
    int count() const override;

    /// Size in one column, at a width that never wraps.
    QSize sizeHint() const override;
    /// Size of the first item alone.
    QSize minimumSize() const override;
    /** Horizontal: more width makes room for more columns. */
    Qt::Orientations expandingDirections() const override;
    /// Places all items from the top left corner of the widget on; of \a rect
    /// only the width counts.
    void setGeometry(const QRect& rect) override;
    /** The height depends on how many columns fit into @p width, in pixels. */
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override; ///< Likewise.
    /** Forgets what was measured; the next question measures again. */
    void invalidate() override;

    /// Adds a label named "label" and the name of \a widget, then \a widget.
    /// Does not end the row. A null widget leaves the label alone.
    void addRow(const QString& label, QWidget* widget);
    /// Starts a row with a label. A text that Qt finds rich is shown so, without
    /// images and within bounds. Names are Latin-1 here and below; null is "".
    QLabel* addLabel(const QString& text, const char* name);
    /// Starts a section under a flat box that stands \a margin pixels below the
    /// row above. Without a text it is a line: fixed height margin / 2 + 5, as far
    /// as a widget can be so high.
    QGroupBox* addHeadline(const QString& text, int margin, const char* name);
    /// Starts a section under an empty widget 2 pixels high.
    void addSection(const char* name);
    /// Starts a row that holds an empty widget \a height pixels high, as far as a
    /// widget can be.
    QWidget* addSeparator(int height, const char* name);
    /// The next item starts a row.
    void addGroup();
    /// The next item is a list: widgets in its layout become as wide as it is.
    void addList();
    /// The next item keeps its own width.
    void addSpecial();
    /// Adds one of the fields that share a row. Each asks for at least the width
    /// of the widest first field of the form, so that the row is measured as
    /// wide as it becomes when its column widens its fields.
    void addFieldOfSeveral(QWidget* field);
    /// Size in one column whatever the width of the scroll area is; the
    /// arrangement stays as it is.
    QSize columnSize() const;
    /// Settles the arrangement at another width, from the hints that the items gave
    /// last, unless the layout was invalidated meanwhile.
    int rearrange(int width) const;
    /// Stands for the hints of all items as the last arrangement found them: equal
    /// as long as they are, whatever the width was.
    uint hintsKey() const { return m_hintsKey; }

    /// Held while nothing but the width changes, which no item's hint depends on: Qt
    /// invalidates a layout for each step of a resize, and the items need not be
    /// asked anew for each. Ends if an item answers its new place with a change.
    class LAYOUT_EXPORT WidthChange
    {
        Q_DISABLE_COPY(WidthChange)

    public:
        /// Null and layouts of another kind are left alone; the layout may go first.
        explicit WidthChange(QLayout* layout);
        ~WidthChange();

    private:
        QPointer<FloatGroupLayout> m_layout;
        bool m_before = false;
    };

    /// Pixels after each item of a row, from the next arrangement on.
    void setHorizontalSpacing(int spacing);
    /// Pixels below each row of any height, from the next arrangement on.
    void setVerticalSpacing(int spacing);
    /// Empties the layout and deletes the widgets in it. The size hint stays
    /// until something is added.
    void removeAllWidgets();

private:
    class FieldOfSeveral;
    class Placer;
    class SectionScan;
    friend class FloatGroupLayoutProbe; // what tests see of items, marks and columns

    template <typename Widget>
    Widget* addNamed(Widget* widget, const char* name);
    void initialize();
    void setFlag(int index, int flag);
    void clearHints() const;
    QSize sizeHint(int width, int columns) const;
    bool scanItems(QList<FloatGroupColumn>& sections) const;
    void gatherHints() const;
    void askItems() const;
    int widestFirstField() const;
    void remeasureHeads() const;
    QSize arrange(int width, int columns) const;
    int scanSections(QList<FloatGroupColumn>& columns, QList<FloatGroupColumn>& sections, int columnCount,
                     int width) const;
    void arrangeItems(QList<FloatGroupColumn>& columns, int sectionsPerColumn, int width) const;
    int getSectionIndex(QList<FloatGroupColumn>& columns, int item) const;
    bool skipSection(int item) const;
    void setListGeometry(QLayoutItem* item);
    void levelCaption(int field);

    int m_verticalSpacing = 4;
    int m_horizontalSpacing = 4;
    QScrollArea* m_scrollArea = nullptr; // not owned; cleared when it dies
    QList<QLayoutItem*> m_items;         // owned
    QList<int> m_flags;                  // by item index; may be longer than m_items
    mutable QVector<QRect> m_hints;      // the arrangement; valid if as long as m_items
    mutable QSize m_sizeHint{0, 0};      // of the last arrangement
    mutable int m_generation = 0;        // counts the changes of m_hints
    mutable int m_widestFirst = -1;      // of the arrangement; -1 until asked for
    mutable uint m_hintsKey = 0;
    mutable QVector<QSize> m_itemHints;    // what the arrangement was made from
    mutable bool m_itemHintsStand = false; // nothing was invalidated since they were asked for
    bool m_isWidthChange = false;
    CaptionOverflow* m_overflow = nullptr; // owned as a child
};

#endif
