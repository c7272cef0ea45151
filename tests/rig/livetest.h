#ifndef ZORVA_TESTS_LIVETEST_H
#define ZORVA_TESTS_LIVETEST_H

#include "formtest.h"
#include "rigctld.h"

#include <hostkit/formrows.h>
#include <rig/rigctlddevice.h>
#include <rig/session.h>
#include <rig/window.h>

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
    radio::Session m_session;
    std::unique_ptr<radio::Window> m_window;

    /// Starts daemon, form and window, with `address` in place of the daemon's if given.
    void startDaemon()
    {
        m_daemon = std::make_unique<Rigctld>();
        QVERIFY(m_daemon->start());
    }
    /// Opens a window for the radio at `address`; an empty `form` is the made one. `patience` is
    /// for each answer, in milliseconds.
    void openWindow(const QString& address, const QString& form = QString(), int patience = 2000)
    {
        radio::CommandLine commandLine;
        commandLine.rigctld = address;
        commandLine.form = form;
        commandLine.model = RIG_MODEL_DUMMY;
        QString error;
        QVERIFY2(m_session.prepare(commandLine, &error), qPrintable(error));
        radio::Endpoint endpoint;
        QVERIFY(radio::Endpoint::parse(address, &endpoint));
        m_session.device = std::make_shared<radio::RigctldDevice>(
            endpoint, radio::parametersOf(*m_session.model.capabilities), patience);
        m_window = std::make_unique<radio::Window>(m_session.model.title(), m_session.form, m_session.device);
        m_window->link().link().setPauses(20, 100);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QSignalSpy all(&m_window->link(), &hostkit::FormLink::readAll);
        m_window->start();
        QTRY_COMPARE_WITH_TIMEOUT(all.count(), 1, longTime);
    }
    void closeAll()
    {
        if (m_window)
            QVERIFY(m_window->link().link().stop(longTime));
        m_window.reset();
        m_session = radio::Session();
        m_daemon.reset();
    }

    QString shown(const char* path) const
    {
        return hostkit::shownText(*m_session.form, QString::fromLatin1(path));
    }
    hostkit::RowState state(const char* path) const
    {
        return m_window->link().states().state(QString::fromLatin1(path));
    }
    QWidget* control(const char* name) const
    {
        return m_window->findChild<QWidget*>(QString::fromLatin1(name));
    }
    /// Types into a row of a number, from its beginning, and leaves it on Return.
    void type(const char* name, const char* keys) const
    {
        auto* const box = m_window->findChild<QAbstractSpinBox*>(QString::fromLatin1(name));
        QVERIFY(box);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(keys));
    }
    void apply() const
    {
        QTest::mouseClick(m_window->findChild<QPushButton*>(QStringLiteral("applyButton")), Qt::LeftButton);
    }
    void write(const char* path, const QString& text) const
    {
        m_session.form->SetVTValue(QString::fromLatin1(path), text, nullptr, true);
    }

    static constexpr int longTime = 30000; // milliseconds, on a machine with other work
};

#endif
