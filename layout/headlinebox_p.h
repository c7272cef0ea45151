#ifndef ZORVA_LAYOUT_HEADLINEBOX_P_H
#define ZORVA_LAYOUT_HEADLINEBOX_P_H

#include <QEvent>
#include <QGroupBox>

/// The box of a headline. Its contents margins carry the distance to the row
/// above, so they stay as given, whereas a plain group box computes its own on
/// every new size, font, style sheet and check box. Without a meta-object of
/// its own: to style sheets and look-ups it is a QGroupBox.
class HeadlineBox final : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

    void keepMargins(const QMargins& margins)
    {
        m_margins = margins;
        setContentsMargins(margins);
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ContentsRectChange && contentsMargins() != m_margins)
            setContentsMargins(m_margins);
        return QGroupBox::event(event);
    }

    // The group box would compute its margins here and nothing else. As each
    // change of them invalidates the layout that is just placing the box, the
    // arrangement would be made anew for every headline.
    void resizeEvent(QResizeEvent* event) override { QWidget::resizeEvent(event); }

private:
    QMargins m_margins;
};

#endif
