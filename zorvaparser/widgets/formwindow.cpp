#include "formwindow_p.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace Orvane {

FormWindow::FormWindow(QWidget* top)
    : QObject(top)
    , window(top)
{
    window->installEventFilter(this);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window && event->type() == QEvent::Show && !event->spontaneous())
        opening();
    return QObject::eventFilter(watched, event);
}

void FormWindow::opening()
{
    if (!window->isWindow() || window->testAttribute(Qt::WA_Resized))
        return;
    const int titleBar = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    const QSize room = window->screen()->availableSize() - QSize(0, titleBar);
    window->resize(window->sizeHint().boundedTo(room).expandedTo(window->size()));
}

} // namespace Orvane
