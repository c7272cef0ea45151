#ifndef ZORVA_TESTS_GUARDEDTEST_H
#define ZORVA_TESTS_GUARDEDTEST_H

#include <leftovers.h>
#include <messageguard.h>

#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include <memory>

/// Each test function runs under a message guard and has to clean up behind itself.
class GuardedTest : public QObject
{
    Q_OBJECT

protected:
    /// Only inside a test function.
    MessageGuard& messages() { return *guard; }

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        // The offscreen platform says so of every dialog and menu.
        guard->allow(QRegularExpression(QStringLiteral("This plugin does not support")));
    }
    void cleanup()
    {
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

private:
    std::unique_ptr<MessageGuard> guard;
};

#endif
