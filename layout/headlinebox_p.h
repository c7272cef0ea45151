#ifndef ZORVA_LAYOUT_HEADLINEBOX_P_H
#define ZORVA_LAYOUT_HEADLINEBOX_P_H

#include <QGroupBox>

class QStyleOptionGroupBox;
class QStylePainter;

/// The box of a headline: its title, a shade stronger than the rows and in their
/// size, at the leading edge in every style, and a hairline behind it, which
/// without a title is all there is. A click anywhere on the line toggles it. As
/// in captions, "&" is a character like any other. Its contents margins carry the distance to the row
/// above, so they stay as given, whereas a plain group box computes its own on
/// every new size, font, style sheet and check box. Without a meta-object of
/// its own: to style sheets and look-ups it is a QGroupBox.
class HeadlineBox final : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

    void keepMargins(const QMargins& margins);
    /// As high as the title: a headline has no content of its own.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFont titleFont() const;
    QSize indicatorSize() const;
    /// Rectangles as in a layout from left to right.
    QRect indicatorRect() const;
    QRect titleRect() const;
    QColor lineColor() const;
    void paintIndicator(QStylePainter& painter, const QStyleOptionGroupBox& option) const;
    void paintTitle(QStylePainter& painter, const QStyleOptionGroupBox& option, const QRect& place) const;
    /// From \a left, as in a layout from left to right, to the end of the box.
    void paintLine(QStylePainter& painter, int left) const;

    QMargins m_margins;
    bool m_pressed = false;
};

#endif
