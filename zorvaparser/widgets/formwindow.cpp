#include "formwindow_p.h"

#include <QEvent>
#include <QGroupBox>
#include <QLayout>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWidget>

namespace Orvane {

namespace {

/** What takes the focus in @p widget, compound controls part by part. */
void collectControls(QWidget* widget, QWidgetList& found)
{
    if (widget->focusPolicy() & Qt::TabFocus) {
        found.append(widget);
        return;
    }
    for (QObject* const child : widget->children()) {
        if (child->isWidgetType() && !static_cast<QWidget*>(child)->isWindow())
            collectControls(static_cast<QWidget*>(child), found);
    }
}

} // namespace

FormWindow::FormWindow(QWidget* top, QWidget* rowsContent, QWidget* applyBar)
    : QObject(top)
    , window(top)
    , content(rowsContent)
    , bar(applyBar)
{
    window->installEventFilter(this);
    content->installEventFilter(this);
    if (!bar)
        return;
    // Not in the layout, which holds the rows and the bar alone.
    line = new QFrame(window);
    line->setObjectName(QStringLiteral("applyLine"));
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    bar->installEventFilter(this);
}

// In the middle of the gap that the layout leaves.
void FormWindow::placeLine()
{
    const int gap = window->layout() ? qMax(window->layout()->spacing(), 0) : 0;
    line->setGeometry(0, bar->y() - gap / 2 - 1, window->width(), 1);
    line->setVisible(!bar->isHidden());
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == content && event->type() == QEvent::ChildAdded)
        orderLater();
    else if (watched == bar && line && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        placeLine();
    else if (watched == window && event->type() == QEvent::Show && !event->spontaneous())
        opening();
    return QObject::eventFilter(watched, event);
}

// Until the form is seen nobody walks it.
void FormWindow::orderLater()
{
    orderDue = true;
    if (orderPosted || !window->isVisible())
        return;
    orderPosted = true;
    QTimer::singleShot(0, this, [this] {
        orderPosted = false;
        order();
    });
}

QWidgetList FormWindow::controlsInReadingOrder() const
{
    QWidgetList controls;
    const QLayout* const layout = content ? content->layout() : nullptr;
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (QWidget* const widget = layout->itemAt(i)->widget())
            collectControls(widget, controls);
    }
    if (bar)
        collectControls(bar, controls);
    return controls;
}

void FormWindow::order()
{
    if (!orderDue)
        return;
    orderDue = false;
    const QWidgetList controls = controlsInReadingOrder();
    for (int i = 1; i < controls.count(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

// A headline takes the focus in its turn, but a first Space is not meant to collapse a group.
void FormWindow::focusFirstRow() const
{
    const QWidgetList controls = controlsInReadingOrder();
    for (QWidget* const control : controls) {
        if (control->isEnabled() && control->isVisibleTo(window) && !qobject_cast<QGroupBox*>(control)) {
            control->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void FormWindow::opening()
{
    order();
    if (!window->window()->focusWidget())
        focusFirstRow();
    if (!window->isWindow() || window->testAttribute(Qt::WA_Resized))
        return;
    const int titleBar = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    const QSize room = window->screen()->availableSize() - QSize(0, titleBar);
    window->resize(window->sizeHint().boundedTo(room).expandedTo(window->size()));
}

} // namespace Orvane
