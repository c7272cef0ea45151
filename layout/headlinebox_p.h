#ifndef ZORVA_LAYOUT_HEADLINEBOX_P_H
#define ZORVA_LAYOUT_HEADLINEBOX_P_H

#include <QGroupBox>

class QStyleOptionGroupBox;
class QStylePainter;

/// The box of a headline: its title and a hairline behind it, which without a
/// title is all there is. Its contents margins carry the distance to the row
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
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void paintIndicator(QStylePainter& painter, const QStyleOptionGroupBox& option) const;
    /// Returns where the hairline may begin.
    int paintTitle(QStylePainter& painter, const QStyleOptionGroupBox& option) const;

    QMargins m_margins;
};

#endif
