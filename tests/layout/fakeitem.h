#ifndef ZORVA_TESTS_LAYOUT_FAKEITEM_H
#define ZORVA_TESTS_LAYOUT_FAKEITEM_H

#include <QLayoutItem>

/// A layout item that declares a size hint and records what it is given.
class FakeItem : public QLayoutItem
{
public:
    /// \a widget is not owned and gives nothing but its contents margins.
    explicit FakeItem(const QSize& hint, QWidget* widget = nullptr)
        : m_hint(hint)
        , m_widget(widget)
    {
    }

    QSize sizeHint() const override
    {
        ++queries;
        return m_hint;
    }
    QSize minimumSize() const override { return m_hint; }
    QSize maximumSize() const override { return m_hint; }
    Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect& rect) override
    {
        ++placements;
        m_geometry = rect;
    }
    QRect geometry() const override { return m_geometry; }
    bool isEmpty() const override { return false; }
    QWidget* widget() override { return m_widget; }

    mutable int queries = 0;
    int placements = 0;

private:
    QSize m_hint;
    QWidget* m_widget;
    QRect m_geometry;
};

#endif
