#ifndef ZORVA_TESTS_LIVETEST_H
#define ZORVA_TESTS_LIVETEST_H

#include "formtest.h"
#include "operator.h"
#include "rigctld.h"

#include <hostkit/formrows.h>
#include <rig/rigctlddevice.h>

#include <QAbstractSpinBox>
#include <QPushButton>

#include <memory>

/// Base of a test of the program's window on a form, in front of a daemon that
/// drives Hamlib's dummy.
class LiveTest : public FormTest
{
    Q_OBJECT

protected:
    std::unique_ptr<Rigctld> m_daemon;
    Operator m_operator;
    radio::Session& m_session = m_operator.session;
    std::unique_ptr<radio::Window>& m_window = m_operator.window;

    void startDaemon()
    {
        m_daemon = std::make_unique<Rigctld>();
        QVERIFY(m_daemon->start());
    }
    /// Opens a window for the radio at `address`; an empty `form` is the made one. `patience` is
    /// for each answer, in milliseconds.
    void openWindow(const QString& address, const QString& form = QString(), int patience = 2000)
    {
        QCOMPARE(m_operator.prepare(address, form), QString());
        radio::Endpoint endpoint;
        QVERIFY(radio::Endpoint::parse(address, &endpoint));
        showAndRead(m_operator, std::make_shared<radio::RigctldDevice>(
                                    endpoint, radio::parametersOf(*m_session.model.capabilities), patience));
    }
    /// Shows the window of somebody who is prepared, and waits until the radio is read.
    static void showAndRead(Operator& somebody, const std::shared_ptr<radio::RigDevice>& device = nullptr)
    {
        somebody.show(device);
        QVERIFY(QTest::qWaitForWindowExposed(somebody.window.get()));
        QSignalSpy all(&somebody.window->link(), &hostkit::FormLink::readAll);
        somebody.window->start();
        QTRY_COMPARE_WITH_TIMEOUT(all.count(), 1, longTime);
    }
    void closeAll()
    {
        QVERIFY(m_operator.leave(longTime));
        m_daemon.reset();
    }

    QString shown(const char* path) const { return m_operator.shown(QString::fromLatin1(path)); }
    hostkit::RowState state(const char* path) const { return m_operator.state(QString::fromLatin1(path)); }
    QWidget* control(const char* name) const
    {
        return m_window->findChild<QWidget*>(QString::fromLatin1(name));
    }
    /// Types into a row of a number, from its beginning.
    void type(const char* name, const char* keys) const
    {
        QVERIFY(m_operator.type(QString::fromLatin1(name), QString::fromLatin1(keys)));
    }
    void apply() const { m_operator.apply(); }
    void write(const char* path, const QString& text) const
    {
        m_session.form->SetVTValue(QString::fromLatin1(path), text, nullptr, true);
    }

    static constexpr int longTime = 30000; // milliseconds, on a machine with other work
};

#endif
