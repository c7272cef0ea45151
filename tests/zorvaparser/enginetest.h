#ifndef ZORVA_TESTS_ENGINETEST_H
#define ZORVA_TESTS_ENGINETEST_H

#include "formfixture.h"
#include "messageguard.h"

#include <QEventLoop>
#include <QTimer>
#include <QtTest>

#include <memory>

using FormPointer = QExplicitlySharedDataPointer<Orvane::ZorvaFormular>;

/// What every test of the engine does around each function: no unexpected
/// message while it runs, and nothing left in the process afterwards.
class EngineTest : public QObject
{
    Q_OBJECT

protected:
    MessageGuard& messages() const { return *m_messages; }

private Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<MessageGuard> m_messages;
};

/// A timer to hold others against. Timers fire in the order of their ends, on a slow
/// machine too: once this one has fired, all that were to end before it have.
class ReferenceTimer
{
public:
    /// Starts now; `interval` in milliseconds.
    explicit ReferenceTimer(int interval);
    /// Turns the event loop until it has fired.
    void pass();

private:
    QTimer m_timer;
    QEventLoop m_loop;
};

/// The formular made from a description's text; null if there is none in it.
FormPointer parsed(const QString& description);
/// `content` inside the root element.
QString rootXml(const QString& content);
/// `content` inside a sheet named "sheet" inside the root element.
QString sheetXml(const QString& content);
/// "<Property>" with that child element.
QString propertyXml(const char* name, const char* text, const char* type = "String");

/// The names of all rows, in list order.
QStringList widgetNames(Orvane::ZorvaSheet& sheet);
/// The delegate of the row of that name; null if there is none.
Orvane::ZorvaDelegate* delegateNamed(Orvane::ZorvaSheet& sheet, const char* name);
/// A global of the form's script as text.
QString scriptText(Orvane::ZorvaFormular* formular, const char* global);
/// What an expression gives in the form's script, as text.
QString evaluated(Orvane::ZorvaFormular* formular, const QString& expression);

#endif
