#ifndef ZORVA_TESTS_FORMTEST_H
#define ZORVA_TESTS_FORMTEST_H

#include "formfixture.h"
#include "leftovers.h"
#include "messageguard.h"

#include <QObject>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

/// Base of a test of live forms: unexpected messages fail a test, and so do
/// values and windows that it leaves behind.
class FormTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<MessageGuard> m_messages;

private Q_SLOTS:
    void init()
    {
        m_messages = std::make_unique<MessageGuard>();
        // The offscreen platform's word on every window with limits of size.
        m_messages->allow(QRegularExpression(QStringLiteral("does not support propagateSizeHints")));
    }
    void cleanup()
    {
        m_messages.reset();
        QCOMPARE(leftovers(), QString());
    }
};

#endif
