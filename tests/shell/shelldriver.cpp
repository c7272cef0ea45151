// What a person does with the running program, done from inside it: Qt loads
// this as a generic plugin, so that the program itself is the one that is
// shipped. The steps come in the variable ZORVA_SHELL_STEPS, divided by ";".
// Each is said on stderr when it is due, and "driver: done" after the last.
//   click NAME      a mouse click in the middle of the control
//   toggle NAME     a click on the mark of a check box
//   ask NAME        a request for the control's context menu
//   tell NAME       says the text of the label
//   go on           the action "Continue" of the script debugger
//   await WHAT      until there is a dialog, menu, debugger or main window
//   await no WHAT   until there is none
//   shape WHAT      makes it 780 x 560 pixels
//   measure WHAT    says its size
//   close WHAT      as code would: nothing stands in the way
//   request WHAT    as the display would: a modal dialog stands in the way
//   close all       all windows
//   hammer NAME     clicks the check box and applies, again and again
//   say texts       all that the main window has to read, each text on a line of stderr behind "text: "
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGenericPlugin>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <QToolBar>
#include <QWindow>
#include <QtTest>

#include <cstdio>

namespace {

QAction* continueAction(const QWidget* window)
{
    const QList<QToolBar*> bars = window->findChildren<QToolBar*>();
    for (const QToolBar* bar : bars) {
        const QList<QAction*> actions = bar->actions();
        for (QAction* action : actions) {
            if (action->text() == QLatin1String("Continue"))
                return action;
        }
    }
    return nullptr;
}

QWidget* visibleWindow(bool ofDebugger)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        const bool isFrame = window->isVisible() && qobject_cast<QMainWindow*>(window);
        if (isFrame && bool(continueAction(window)) == ofDebugger)
            return window;
    }
    return nullptr;
}

QWidget* windowOfKind(const QString& kind)
{
    if (kind == QLatin1String("dialog"))
        return QApplication::activeModalWidget();
    if (kind == QLatin1String("menu"))
        return QApplication::activePopupWidget();
    return visibleWindow(kind == QLatin1String("debugger"));
}

QWidget* control(const QString& name)
{
    const QWidget* const window = visibleWindow(false);
    return window ? window->findChild<QWidget*>(name) : nullptr;
}

void clickMark(QWidget* box)
{
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

void tellText(const QWidget* label)
{
    std::fprintf(stderr, "driver: text %s\n", qPrintable(static_cast<const QLabel*>(label)->text()));
}

class ShellDriver : public QObject
{
public:
    explicit ShellDriver(const QStringList& steps)
        : m_steps(steps)
    {
        wait();
    }

private:
    // A new shot each time: a step may not return before the next ones are done.
    void wait()
    {
        QTimer::singleShot(10, this, [this] { look(); });
    }

    void look()
    {
        if (m_steps.isEmpty()) {
            std::fputs("driver: done\n", stderr);
            return;
        }
        const QString step = m_steps.first().trimmed();
        m_looksDue = isDue(step) ? m_looksDue + 1 : 0;
        // The debugger shows its window once more some turns after a stop, even
        // if it was closed meanwhile.
        const int looksWanted = step == QLatin1String("await debugger") ? 10 : 1;
        const bool isPossible = m_looksDue >= looksWanted;
        if (isPossible) {
            m_looksDue = 0;
            m_steps.removeFirst();
            std::fprintf(stderr, "driver: %s\n", qPrintable(step));
        }
        wait();
        if (isPossible)
            perform(step.section(QLatin1Char(' '), 0, 0), step.section(QLatin1Char(' '), 1));
    }

    static bool isDue(const QString& step)
    {
        const QString object = step.section(QLatin1Char(' '), 1);
        if (step.startsWith(QLatin1String("await no ")))
            return !windowOfKind(object.section(QLatin1Char(' '), 1));
        if (step == QLatin1String("go on"))
            return visibleWindow(true) && continueAction(visibleWindow(true))->isEnabled();
        if (step == QLatin1String("close all"))
            return true;
        if (step == QLatin1String("say texts"))
            return visibleWindow(false);
        for (const char* verb : {"await", "close", "request", "shape", "measure"}) {
            if (step.startsWith(QLatin1String(verb)))
                return windowOfKind(object);
        }
        return control(object);
    }

    void perform(const QString& verb, const QString& object)
    {
        if (verb == QLatin1String("click"))
            QTest::mouseClick(control(object), Qt::LeftButton);
        else if (verb == QLatin1String("toggle"))
            clickMark(control(object));
        else if (verb == QLatin1String("ask"))
            askForMenu(control(object));
        else if (verb == QLatin1String("tell"))
            tellText(control(object));
        else if (verb == QLatin1String("go"))
            continueAction(visibleWindow(true))->trigger();
        else if (verb == QLatin1String("shape"))
            windowOfKind(object)->resize(780, 560);
        else if (verb == QLatin1String("measure"))
            sayMeasures(windowOfKind(object));
        else if (verb == QLatin1String("close") && object == QLatin1String("all"))
            QApplication::closeAllWindows();
        else if (verb == QLatin1String("close"))
            windowOfKind(object)->close();
        else if (verb == QLatin1String("request"))
            windowOfKind(object)->windowHandle()->close();
        else if (verb == QLatin1String("hammer"))
            hammer(object);
        else if (verb == QLatin1String("say"))
            sayTexts();
    }

    static void sayTexts()
    {
        QStringList texts;
        for (const QWidget* const widget : visibleWindow(false)->findChildren<QWidget*>()) {
            for (const char* const property : {"text", "title"})
                texts << widget->property(property).toString();
            const auto* const choices = qobject_cast<const QComboBox*>(widget);
            for (int i = 0; choices && i < choices->count(); ++i)
                texts << choices->itemText(i);
        }
        for (const QString& text : qAsConst(texts))
            std::fprintf(stderr, "text: %s\n", text.toUtf8().constData());
    }

    static void sayMeasures(const QWidget* window)
    {
        std::fprintf(stderr, "driver: it is %d x %d\n", window->width(), window->height());
    }

    static void askForMenu(QWidget* widget)
    {
        const QPoint middle = widget->rect().center();
        QContextMenuEvent request(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
        QCoreApplication::sendEvent(widget, &request);
    }

    void hammer(const QString& name)
    {
        auto* const timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [name] {
            clickMark(control(name));
            QTest::mouseClick(control(QStringLiteral("applyButton")), Qt::LeftButton);
        });
        timer->start(0);
    }

    QStringList m_steps;
    int m_looksDue = 0; // in a row, for the first step
};

} // namespace

class ShellDriverPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "shelldriver.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override
    {
        const QString steps = qEnvironmentVariable("ZORVA_SHELL_STEPS");
        return new ShellDriver(steps.split(QLatin1Char(';'), Qt::SkipEmptyParts));
    }
};

#include "shelldriver.moc"
