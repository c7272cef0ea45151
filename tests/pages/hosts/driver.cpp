// Loaded into a host: when its event loop turns, looks whether the host shows a
// window, and closes it as a person would. A host without a window ends with 3.
#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace {

void lookAndClose()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const bool shown = std::any_of(windows.cbegin(), windows.cend(), [](const QWidget* window) {
        return window->isVisible() && window->width() > 0;
    });
    if (!shown)
        QApplication::exit(3);
    QApplication::closeAllWindows();
}

void start()
{
    QTimer::singleShot(0, qApp, lookAndClose);
}
Q_COREAPP_STARTUP_FUNCTION(start)

} // namespace
