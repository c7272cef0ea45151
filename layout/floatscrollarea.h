#ifndef ZORVA_LAYOUT_FLOATSCROLLAREA_H
#define ZORVA_LAYOUT_FLOATSCROLLAREA_H

#include <layout/layout_export.h>

#include <QScrollArea>

/// Frameless scroll area round a content widget that carries a
/// FloatGroupLayout. It lets the content follow the area down again, which the
/// minimum size set by the last arrangement would prevent.
class LAYOUT_EXPORT FloatScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    /** An empty area; @p parent owns it and may be null. */
    explicit FloatScrollArea(QWidget* parent = nullptr);
    ~FloatScrollArea() override;

    /// The usual hint with a height of at most 20 pixels: a form may be
    /// squeezed to a strip.
    QSize minimumSizeHint() const override;
    /// One whole column beside a scroll bar, as tall as the rows and the screen
    /// allow, whatever size the area has.
    QSize sizeHint() const override;

protected:
    /// On a change of the content: a width that was held, or a bar that stands,
    /// ends with its need.
    bool event(QEvent* event) override;
    /// Called for each new size of the viewport: has the content arranged anew.
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange(const QSize& room);
    void reconsider();
    bool settle();
    bool fits(int width);

    uint m_settledHints = 0; // of the content when its width was settled
};

#endif
