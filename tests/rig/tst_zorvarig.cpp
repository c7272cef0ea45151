#include "livetest.h"
#include "proxy.h"

#include <hostkit/settingsstore.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeWidget>

using hostkit::LinkState;
using hostkit::RowState;

/// The program's window in front of a real daemon, with a bad line in between
/// where need be.
class TestZorvaRig : public LiveTest
{
    Q_OBJECT

    /// The offscreen platform's words on windows of hints and lists.
    const QRegularExpression aboutWindows{QStringLiteral("This plugin does not support")};
    std::unique_ptr<Proxy> m_proxy;

    void openThroughProxy(int patience = 2000)
    {
        startDaemon();
        m_proxy = std::make_unique<Proxy>(m_daemon->port());
        openWindow(QStringLiteral("127.0.0.1:%1").arg(m_proxy->port()), QString(), patience);
    }
    LinkState linkState() const { return m_window->link().link().state(); }
    QString linkText() const { return m_window->findChild<QLabel*>(QStringLiteral("linkState"))->text(); }

private Q_SLOTS:
    void end()
    {
        closeAll();
        m_proxy.reset();
    }

    void showsThePresentState()
    {
        startDaemon();
        QCOMPARE(m_daemon->rigctl({QStringLiteral("F"), QStringLiteral("145500000")}), QString());
        openWindow(m_daemon->address());
        QCOMPARE(shown("Tuning/Frequency"), QStringLiteral("145500000"));
        QCOMPARE(shown("Mode/Mode"), QStringLiteral("FM"));
        QCOMPARE(state("Tuning/Frequency"), RowState::Confirmed);
        QCOMPARE(state("Level/AF"), RowState::Confirmed);
        QVERIFY(control("mode_Passband_FM")->isVisibleTo(m_window.get()));
        QVERIFY(!control("mode_Passband_USB")->isVisibleTo(m_window.get()));
        QCOMPARE(linkText(), QStringLiteral("Connected"));
        end();
    }

    void editByKeysIsThere()
    {
        startDaemon();
        openWindow(m_daemon->address());
        type("level_AF", "45\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Confirmed, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("l"), QStringLiteral("AF")}).toDouble(), 0.45);

        auto* const mode = m_window->findChild<QComboBox*>(QStringLiteral("mode_Mode"));
        mode->setFocus();
        QTest::keyClicks(mode, QStringLiteral("USB"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Mode/Mode"), RowState::Confirmed, longTime);
        QVERIFY(m_daemon->rigctl({QStringLiteral("m")}).startsWith(QLatin1String("USB")));
        QVERIFY(control("mode_Passband_USB")->isVisibleTo(m_window.get()));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Mode/Passband_USB"), QStringLiteral("2400"), longTime);

        auto* const blanker = control("function_NB");
        blanker->setFocus();
        QTest::keyClick(blanker, Qt::Key_Space);
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Function/NB"), RowState::Confirmed, longTime);
        QCOMPARE(shown("Function/NB"), QStringLiteral("1"));
        QCOMPARE(m_daemon->rigctl({QStringLiteral("u"), QStringLiteral("NB")}), QStringLiteral("1"));

        auto* const frequency = control("FrequencyControl")->findChild<QLineEdit*>();
        frequency->setFocus();
        frequency->selectAll();
        QTest::keyClicks(frequency, QStringLiteral("98.5 MHz\r"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/Frequency"), RowState::Confirmed, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("f")}), QStringLiteral("98500000"));
        end();
    }

    void changeByAnotherClientArrives()
    {
        startDaemon();
        openWindow(m_daemon->address());
        QCOMPARE(m_daemon->rigctl({QStringLiteral("F"), QStringLiteral("7100000")}), QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/Frequency"), QStringLiteral("7100000"), longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("L"), QStringLiteral("SQL"), QStringLiteral("0.25")}),
                 QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/SQL").toDouble(), 25.0, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("U"), QStringLiteral("NB"), QStringLiteral("1")}),
                 QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Function/NB"), QStringLiteral("1"), longTime);
        QVERIFY(!m_session.form->GetSheet().isWidgetModified());
        end();
    }

    void changeArrivesWithTheNextPoll_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QByteArray>("poll");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("text");
        QTest::newRow("frequency") << "F 7100000" << QByteArray("get_freq") << "Tuning/Frequency"
                                   << "7100000";
        QTest::newRow("mode") << "M USB 2400" << QByteArray("get_mode") << "Mode/Mode"
                              << "USB";
        QTest::newRow("level") << "L SQL 0.25" << QByteArray("get_level SQL") << "Level/SQL"
                               << "25";
        QTest::newRow("function") << "U NB 1" << QByteArray("get_func NB") << "Function/NB"
                                  << "1";
    }

    // The radio is asked once more and then never again: what took a second poll would not come.
    void changeArrivesWithTheNextPoll()
    {
        QFETCH(QString, command);
        QFETCH(QByteArray, poll);
        QFETCH(QString, path);
        QFETCH(QString, text);
        openThroughProxy();
        QVERIFY(shown(qPrintable(path)) != text);
        QCOMPARE(m_daemon->rigctl(command.split(QLatin1Char(' '))), QString());
        m_proxy->passOn(poll, 1);
        QTRY_COMPARE_WITH_TIMEOUT(shown(qPrintable(path)), text, longTime);
        QVERIFY(5 * radio::Window::roundTime <= 1000); // what is live is polled five times a second
        end();
    }

    // A width that no filter of the list has is shown as it is, not as the nearest one.
    void widthBesideTheListIsShown()
    {
        startDaemon();
        openWindow(m_daemon->address());
        QCOMPARE(m_daemon->rigctl({QStringLiteral("M"), QStringLiteral("FM"), QStringLiteral("12345")}),
                 QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Mode/Passband_FM"), QStringLiteral("12345"), longTime);
        QCOMPARE(state("Mode/Passband_FM"), RowState::Confirmed);
        end();
    }

    void typingIsNotDisturbed()
    {
        startDaemon();
        openWindow(m_daemon->address());
        type("level_AF", "4");
        auto* const meter = m_window->findChild<QLabel*>(QStringLiteral("level_STRENGTH"));
        const QString before = meter->text();
        QCOMPARE(m_daemon->rigctl({QStringLiteral("L"), QStringLiteral("AF"), QStringLiteral("0.9")}),
                 QString());
        QTRY_VERIFY_WITH_TIMEOUT(meter->text() != before, longTime);
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        client.ask(QStringLiteral("set_level SQL 0.5"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/SQL").toDouble(), 50.0, longTime);
        auto* const box = m_window->findChild<QAbstractSpinBox*>(QStringLiteral("level_AF"));
        QVERIFY2(box->text().startsWith(QLatin1Char('4')), qPrintable(box->text()));
        QTest::keyClicks(box, QStringLiteral("2\r"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(client.value(QStringLiteral("get_level AF")).toDouble(), 0.42, longTime);
        end();
    }

    void typedText_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("question");
        QTest::addColumn<double>("answer");
        QTest::newRow("number") << "level_AF"
                                << "62.5"
                                << "get_level AF" << 0.625;
        QTest::newRow("frequency") << "FrequencyControl"
                                   << "7.155 MHz"
                                   << "get_freq" << 7155000.0;
    }

    // Between two keys the readings go on, and neither text nor cursor nor focus are other than the
    // operator's.
    void typedText()
    {
        QFETCH(QString, field);
        QFETCH(QString, keys);
        QFETCH(QString, question);
        startDaemon();
        openWindow(m_daemon->address());
        m_messages->allow(aboutWindows);
        auto* const edit = control(qPrintable(field))->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        const auto* const meter = m_window->findChild<QLabel*>(QStringLiteral("level_STRENGTH"));
        QString typed;
        for (const QChar key : qAsConst(keys)) {
            typed += key;
            QTest::keyClick(edit, key.toLatin1());
            const QString text = edit->text();
            const int cursor = edit->cursorPosition();
            QVERIFY2(text.startsWith(typed), qPrintable(text));
            const QString before = meter->text();
            QTRY_VERIFY_WITH_TIMEOUT(meter->text() != before, longTime);
            QCOMPARE(edit->text(), text);
            QCOMPARE(edit->cursorPosition(), cursor);
            QVERIFY(edit->hasFocus());
        }
        QTest::keyClick(edit, Qt::Key_Return);
        apply();
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        QFETCH(double, answer);
        QTRY_VERIFY_WITH_TIMEOUT(qFuzzyCompare(client.value(question).toDouble(), answer), longTime);
        end();
    }

    // A list that is open while readings come stays open, with the entry that the operator is at.
    void openListStays()
    {
        startDaemon();
        openWindow(m_daemon->address());
        m_messages->allow(aboutWindows);
        auto* const box = m_window->findChild<QComboBox*>(QStringLiteral("mode_Mode"));
        box->showPopup();
        QTest::keyClick(box->view(), Qt::Key_Home);
        const QModelIndex entry = box->view()->currentIndex();
        const auto* const meter = m_window->findChild<QLabel*>(QStringLiteral("level_STRENGTH"));
        for (int i = 0; i < 3; ++i) {
            const QString before = meter->text();
            QTRY_VERIFY_WITH_TIMEOUT(meter->text() != before, longTime);
        }
        QVERIFY(box->view()->isVisible());
        QCOMPARE(box->view()->currentIndex(), entry);
        box->hidePopup();
        end();
    }

    void extrasOfTheModel()
    {
        startDaemon();
        openWindow(m_daemon->address());
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        type("setting_MGP", "0.125\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Setting/MGP"), RowState::Confirmed, longTime);
        QCOMPARE(client.value(QStringLiteral("get_parm MGP")), QStringLiteral("0.125000"));
        client.ask(QStringLiteral("set_func MGEF 1"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Function/MGEF"), QStringLiteral("1"), longTime);
        end();
    }

    // The dummy, asked for VFOB, answers that it is at Sub, which is the same.
    void vfoByItsOtherName()
    {
        startDaemon();
        openWindow(m_daemon->address());
        auto* const vfo = m_window->findChild<QComboBox*>(QStringLiteral("tuning_VFO"));
        vfo->setFocus();
        QTest::keyClicks(vfo, QStringLiteral("VFOB"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/VFO"), RowState::Confirmed, longTime);
        QCOMPARE(shown("Tuning/VFO"), QStringLiteral("VFOB"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/Frequency"), QStringLiteral("146000000"), longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("V"), QStringLiteral("VFOA")}), QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/Frequency"), QStringLiteral("145000000"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/VFO"), QStringLiteral("Main"), longTime);
        end();
    }

    void splitOperation()
    {
        startDaemon();
        openWindow(m_daemon->address());
        QCOMPARE(shown("Tuning/Split"), QStringLiteral("Off"));
        QVERIFY(!control("mode_TransmitMode")->isVisibleTo(m_window.get()));
        QCOMPARE(state("Tuning/TransmitFrequency"), RowState::Unread);
        write("Tuning/TransmitFrequency", QStringLiteral("7100000"));
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/TransmitFrequency"), RowState::Refused, longTime);
        auto* const split = m_window->findChild<QComboBox*>(QStringLiteral("tuning_Split"));
        split->setFocus();
        QTest::keyClick(split, Qt::Key_Home);
        QTest::keyClick(split, Qt::Key_Down);
        QTest::keyClick(split, Qt::Key_Down);
        QCOMPARE(split->currentText(), QStringLiteral("Transmit on VFOB"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/Split"), RowState::Confirmed, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("s")}), QStringLiteral("1\nVFOB"));
        QVERIFY(control("mode_TransmitMode")->isVisibleTo(m_window.get()));
        write("Tuning/TransmitFrequency", QStringLiteral("7155000"));
        write("Mode/TransmitMode", QStringLiteral("LSB (lower sideband)"));
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/TransmitFrequency"), RowState::Confirmed, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(state("Mode/TransmitMode"), RowState::Confirmed, longTime);
        // Hamlib's client has notions of its own of the transmitter's frequency.
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        QCOMPARE(client.value(QStringLiteral("get_split_freq")), QStringLiteral("7155000"));
        QCOMPARE(client.value(QStringLiteral("get_split_mode")), QStringLiteral("LSB"));
        QCOMPARE(m_daemon->rigctl({QStringLiteral("f")}), QStringLiteral("145000000")); // the receiver stays
        QCOMPARE(m_daemon->rigctl({QStringLiteral("S"), QStringLiteral("0"), QStringLiteral("VFOA")}),
                 QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/Split"), QStringLiteral("Off"), longTime);
        split->setFocus();
        QTest::keyClick(split, Qt::Key_Home);
        QTest::keyClick(split, Qt::Key_Down);
        QTest::keyClick(split, Qt::Key_Down);
        QCOMPARE(split->currentText(), QStringLiteral("Transmit on VFOB"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/Split"), RowState::Confirmed, longTime);
        split->setFocus();
        QTest::keyClick(split, Qt::Key_Home);
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Tuning/Split"), RowState::Confirmed, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("s")}), QStringLiteral("0\nVFOA"));
        end();
    }

    void frozenDaemonTurnsRowsStaleAndComesBack()
    {
        startDaemon();
        openWindow(m_daemon->address());
        m_daemon->freeze();
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Stale, longTime);
        type("level_AF", "30\r"); // the form stays usable
        QCOMPARE(shown("Level/AF").toDouble(), 30.0);
        m_daemon->thaw();
        QTRY_COMPARE_WITH_TIMEOUT(linkState(), LinkState::Up, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/SQL"), RowState::Confirmed, longTime);
        QCOMPARE(shown("Level/AF").toDouble(), 30.0);
        end();
    }

    void killedAndRestartedDaemonIsAskedAbout()
    {
        startDaemon();
        openWindow(m_daemon->address());
        m_daemon->kill();
        QTRY_COMPARE_WITH_TIMEOUT(linkState(), LinkState::Down, longTime);
        QCOMPARE(state("Level/AF"), RowState::Stale);
        QVERIFY(linkText().startsWith(QLatin1String("No radio")));
        type("level_AF", "60\r");
        apply();
        QVERIFY(m_daemon->start());
        QTRY_VERIFY_WITH_TIMEOUT(m_window->review(), longTime);
        QCOMPARE(linkState(), LinkState::Up);
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        QCOMPARE(client.value(QStringLiteral("get_level AF")).toDouble(), 0.0); // nothing was sent blindly
        auto* const rows = m_window->review()->findChild<QTreeWidget*>(QStringLiteral("reviewRows"));
        QCOMPARE(rows->topLevelItemCount(), 1);
        QCOMPARE(rows->topLevelItem(0)->text(0), QStringLiteral("Audio and noise: Volume"));
        QCOMPARE(rows->topLevelItem(0)->text(2), QStringLiteral("60.0 %"));
        QTest::mouseClick(m_window->review()->findChild<QPushButton*>(QStringLiteral("reviewSend")),
                          Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Confirmed, longTime);
        QCOMPARE(client.value(QStringLiteral("get_level AF")).toDouble(), 0.6);
        end();
    }

    void slowLineConfirmsInTheEnd()
    {
        openThroughProxy();
        m_proxy->setDelay(60);
        type("level_AF", "10\r");
        apply();
        QCOMPARE(state("Level/AF"), RowState::Requested);
        type("level_AF", "70\r");
        apply();
        QCOMPARE(shown("Level/AF").toDouble(), 70.0);
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Confirmed, longTime);
        QCOMPARE(shown("Level/AF").toDouble(), 70.0);
        QCOMPARE(linkState(), LinkState::Up);
        end();
    }

    void refusalShowsAtTheRow()
    {
        openThroughProxy();
        m_proxy->answer("set_level AF", "set_level: AF 0.200000\nRPRT -9\n");
        type("level_AF", "20\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Refused, longTime);
        const QString why = m_window->link().states().why(QStringLiteral("Level/AF"));
        QVERIFY2(why.contains(QLatin1String("rejected")), qPrintable(why));
        QVERIFY(control("level_AF")->accessibleDescription().contains(why));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/AF").toDouble(), 0.0, longTime);
        QCOMPARE(state("Level/AF"), RowState::Refused);
        end();
    }

    void otherValueTakenIsSaid()
    {
        openThroughProxy();
        m_proxy->answer("set_level AF", "set_level: AF 0.200000\nRPRT 0\n");
        m_proxy->answer("get_level AF", "get_level: AF\n0.196078\nRPRT 0\n");
        type("level_AF", "20\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Differing, longTime);
        QCOMPARE(shown("Level/AF").toDouble(), 19.6);
        QCOMPARE(m_window->link().states().why(QStringLiteral("Level/AF")),
                 QStringLiteral("asked for 20.0 %, the device took 19.6 %"));
        end();
    }

    void badLine_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("an answer to something else") << QByteArray("get_level: SQL\n0.5\nRPRT 0\n");
        QTest::newRow("garbage") << QByteArray("\xff\x00\xfe\n", 4);
        QTest::newRow("an endless line") << QByteArray(100000, 'x');
        QTest::newRow("an endless answer") << "get_level: AF\n" + QByteArray("1\n").repeated(5000);
    }
    void badLine()
    {
        QFETCH(QByteArray, answer);
        openThroughProxy();
        m_proxy->answer("get_level AF", answer);
        QTRY_COMPARE_WITH_TIMEOUT(linkState(), LinkState::Down, longTime);
        m_proxy->answer("get_level AF", "get_level: AF\n0.250000\nRPRT 0\n");
        QTRY_COMPARE_WITH_TIMEOUT(linkState(), LinkState::Up, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/AF").toDouble(), 25.0, longTime);
        end();
    }

    void cutLineIsMadeAnew()
    {
        openThroughProxy();
        const int before = m_proxy->connections();
        m_proxy->cut();
        QTRY_VERIFY_WITH_TIMEOUT(m_proxy->connections() > before, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Confirmed, longTime);
        end();
    }

    void closingEndsAHangingCall()
    {
        openThroughProxy(2 * longTime); // who waits for the call is not back in time
        m_proxy->setMute(true);
        QTRY_COMPARE_WITH_TIMEOUT(linkState(), LinkState::Slow, longTime);
        m_window->close();
        QVERIFY(m_window->stop()); // within the second that it may take
        QCOMPARE(linkState(), LinkState::Closed);
        end();
    }

    void formOfTheHostsOwn()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("small.zorva"));
        QVERIFY(hostkit::saveText(
            file,
            formXml(rowXml("FrequencyEdit", "tune",
                           {{"labelText", "Tune"}, {"parameterXmlTag", "Tuning/Frequency"}}) +
                    rowXml("SpinBox", "volume",
                           {{"labelText", "Volume"}, {"parameterXmlTag", "Level/AF"}, {"maximum", 100}}) +
                    rowXml("LineEdit", "note", {{"labelText", "Note"}}))));
        startDaemon();
        openWindow(m_daemon->address(), file);
        QCOMPARE(shown("Tuning/Frequency"), QStringLiteral("145000000"));
        write("Level/AF", QStringLiteral("33"));
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/AF"), RowState::Confirmed, longTime);
        write("note", QStringLiteral("hello"));
        QTRY_COMPARE_WITH_TIMEOUT(state("note"), RowState::Refused, longTime);
        end();
    }

    void settingsAreReviewedAndRestored()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        startDaemon();
        openWindow(m_daemon->address());
        QVERIFY(hostkit::saveText(file, m_window->link().settings()));
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        client.ask(QStringLiteral("set_level AF 0.8"));
        client.ask(QStringLiteral("set_func NB 1"));
        client.ask(QStringLiteral("set_level AGC 3"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/AF").toDouble(), 80.0, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Function/NB"), QStringLiteral("1"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/AGC"), QStringLiteral("3"), longTime);
        m_window->restore(file);
        QVERIFY(m_window->review());
        auto* const rows = m_window->review()->findChild<QTreeWidget*>(QStringLiteral("reviewRows"));
        QCOMPARE(rows->topLevelItemCount(), 3);
        QCOMPARE(rows->topLevelItem(0)->text(0), QStringLiteral("Receiver: AGC"));
        QCOMPARE(rows->topLevelItem(0)->text(1), QStringLiteral("Slow"));
        QCOMPARE(rows->topLevelItem(0)->text(2), QStringLiteral("Off"));
        QCOMPARE(rows->topLevelItem(2)->text(1), QStringLiteral("on"));
        auto* const send = m_window->review()->findChild<QPushButton*>(QStringLiteral("reviewSend"));
        rows->setFocus();
        QTest::keyClick(rows, Qt::Key_Home);
        QTest::keyClick(rows, Qt::Key_Space);
        QCOMPARE(rows->topLevelItem(0)->checkState(0), Qt::Unchecked);
        QCOMPARE(send->text(), QStringLiteral("Send (2)"));
        QTest::keyClick(rows, Qt::Key_Down);
        QTest::keyClick(rows, Qt::Key_Space);
        QCOMPARE(send->text(), QStringLiteral("Send (1)"));
        QTest::keyClick(rows, Qt::Key_Space);
        QTest::mouseClick(send, Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(client.value(QStringLiteral("get_level AF")).toDouble(), 0.0, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(client.value(QStringLiteral("get_func NB")), QStringLiteral("0"), longTime);
        QCOMPARE(client.value(QStringLiteral("get_level AGC")), QStringLiteral("3"));
        end();
    }
};

QTEST_MAIN(TestZorvaRig)

#include "tst_zorvarig.moc"
