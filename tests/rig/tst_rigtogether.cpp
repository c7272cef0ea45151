#include "livetest.h"

#include <QProcess>

#include <algorithm>

using hostkit::RowState;

namespace {

/// A second program with a window of its own; it goes with this object.
class OtherProgram
{
public:
    ~OtherProgram()
    {
        m_process.kill();
        m_process.waitForFinished(longest);
    }
    bool start(const QString& address)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(ZORVA_OTHER_PROGRAM), {address});
        return m_process.waitForStarted(longest);
    }
    /// What it answers; null if it does not.
    QString ask(const QString& line)
    {
        m_process.write(line.toUtf8() + '\n');
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(longest))
                return QString();
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    QString shown(const char* path) { return ask(QStringLiteral("shown ") + QLatin1String(path)); }
    bool isConfirmed(const char* path)
    {
        return ask(QStringLiteral("state ") + QLatin1String(path)) ==
               hostkit::RowStates::word(RowState::Confirmed);
    }
    /// True if it ended by itself, and well.
    bool quit()
    {
        ask(QStringLiteral("quit"));
        return m_process.waitForFinished(longest) && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() == 0;
    }

private:
    static constexpr int longest = 30000; // milliseconds
    QProcess m_process;
};

bool isAscending(const QStringList& numbers)
{
    return std::is_sorted(numbers.begin(), numbers.end(), [](const QString& left, const QString& right) {
        return left.toDouble() < right.toDouble();
    });
}

} // namespace

/// Several windows and a client of Hamlib's at one radio.
class TestRigTogether : public LiveTest
{
    Q_OBJECT

    void openBoth(OtherProgram& other)
    {
        startDaemon();
        QVERIFY(other.start(m_daemon->address()));
        openWindow(m_daemon->address());
        QTRY_VERIFY_WITH_TIMEOUT(other.isConfirmed("Level/AF"), longTime);
    }
    double atTheRadio(const char* level) const
    {
        return m_daemon->rigctl({QStringLiteral("l"), QString::fromLatin1(level)}).toDouble();
    }

private Q_SLOTS:
    void twoWindowsOfOneProgram()
    {
        startDaemon();
        Operator second;
        QCOMPARE(second.prepare(m_daemon->address()), QString());
        openWindow(m_daemon->address());
        showAndRead(second);
        QCOMPARE(second.shown(QStringLiteral("Tuning/Frequency")), QStringLiteral("145000000"));
        type("level_AF", "45\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(second.shown(QStringLiteral("Level/AF")).toDouble(), 45.0, longTime);
        QVERIFY(second.type(QStringLiteral("level_SQL"), QStringLiteral("30\r")));
        second.apply();
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/SQL").toDouble(), 30.0, longTime);
        QCOMPARE(atTheRadio("AF"), 0.45);
        QCOMPARE(atTheRadio("SQL"), 0.3);
        QVERIFY(second.leave(longTime));
        type("level_AF", "46\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(atTheRadio("AF"), 0.46, longTime);
        closeAll();
    }

    void editsGoBothWays()
    {
        OtherProgram other;
        openBoth(other);
        type("level_AF", "45\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(other.shown("Level/AF").toDouble(), 45.0, longTime);
        QCOMPARE(other.ask(QStringLiteral("enter level_SQL 30")), QStringLiteral("done"));
        QCOMPARE(other.ask(QStringLiteral("apply")), QStringLiteral("done"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/SQL").toDouble(), 30.0, longTime);
        QCOMPARE(m_daemon->rigctl({QStringLiteral("F"), QStringLiteral("7100000")}), QString());
        QTRY_COMPARE_WITH_TIMEOUT(shown("Tuning/Frequency"), QStringLiteral("7100000"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(other.shown("Tuning/Frequency"), QStringLiteral("7100000"), longTime);
        QCOMPARE(atTheRadio("AF"), 0.45);
        QCOMPARE(atTheRadio("SQL"), 0.3);
        QVERIFY(other.isConfirmed("Level/AF"));
        QVERIFY(other.quit());
        closeAll();
    }

    // The same row in both windows: what is being typed stands, whatever the other one sends.
    void whatIsBeingTypedStands()
    {
        OtherProgram other;
        openBoth(other);
        type("level_AF", "4");
        QCOMPARE(other.ask(QStringLiteral("enter level_AF 90")), QStringLiteral("done"));
        QCOMPARE(other.ask(QStringLiteral("apply")), QStringLiteral("done"));
        QTRY_COMPARE_WITH_TIMEOUT(atTheRadio("AF"), 0.9, longTime);
        // A row that comes later in the turn has been read by now.
        QCOMPARE(other.ask(QStringLiteral("enter level_SQL 50")), QStringLiteral("done"));
        QCOMPARE(other.ask(QStringLiteral("apply")), QStringLiteral("done"));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/SQL").toDouble(), 50.0, longTime);
        QAbstractSpinBox* const box = m_operator.box(QStringLiteral("level_AF"));
        QVERIFY2(box->text().startsWith(QLatin1Char('4')), qPrintable(box->text()));
        QTest::keyClicks(box, QStringLiteral("2\r"));
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(atTheRadio("AF"), 0.42, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(other.shown("Level/AF").toDouble(), 42.0, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Level/AF").toDouble(), 42.0, longTime);
        QVERIFY(other.quit());
        closeAll();
    }

    // Two operators, a row each, and a third client at a third row: nobody sees an older value again.
    void noRowJumpsBack()
    {
        OtherProgram other;
        openBoth(other);
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        for (const char* path : {"Level/AF", "Level/SQL", "Level/RF"}) {
            m_operator.watch(QString::fromLatin1(path));
            QCOMPARE(other.ask(QStringLiteral("watch ") + QLatin1String(path)), QStringLiteral("done"));
        }
        for (int i = 1; i <= 40; ++i) {
            type("level_AF", qPrintable(QStringLiteral("%1\r").arg(i)));
            apply();
            QCOMPARE(other.ask(QStringLiteral("enter level_SQL %1").arg(i)), QStringLiteral("done"));
            QCOMPARE(other.ask(QStringLiteral("apply")), QStringLiteral("done"));
            client.ask(QStringLiteral("set_level RF %1").arg(i / 100.0));
            QCoreApplication::processEvents();
        }
        for (const char* path : {"Level/AF", "Level/SQL", "Level/RF"}) {
            QTRY_COMPARE_WITH_TIMEOUT(shown(path).toDouble(), 40.0, longTime);
            QTRY_COMPARE_WITH_TIMEOUT(other.shown(path).toDouble(), 40.0, longTime);
            QCOMPARE(client.value(QStringLiteral("get_level ") + QLatin1String(path + 6)).toDouble(), 0.4);
            const QStringList here = m_operator.seen(QString::fromLatin1(path));
            const QStringList there =
                other.ask(QStringLiteral("seen ") + QLatin1String(path)).split(QLatin1Char(' '));
            QVERIFY2(isAscending(here), qPrintable(here.join(QLatin1Char(' '))));
            QVERIFY2(isAscending(there), qPrintable(there.join(QLatin1Char(' '))));
        }
        QVERIFY(other.quit());
        closeAll();
    }

    // Both ask for one row at once: whoever was second, all say the same in the end.
    void sameRowAtOnceEndsEqual()
    {
        OtherProgram other;
        openBoth(other);
        RigctlClient client;
        QVERIFY(client.open(m_daemon->port()));
        for (int i = 0; i < 20; ++i) {
            type("level_AF", qPrintable(QStringLiteral("%1\r").arg(10 + i)));
            QCOMPARE(other.ask(QStringLiteral("enter level_AF %1").arg(60 + i)), QStringLiteral("done"));
            apply();
            QCOMPARE(other.ask(QStringLiteral("apply")), QStringLiteral("done"));
        }
        const auto areEqual = [&] {
            const double volume = client.value(QStringLiteral("get_level AF")).toDouble() * 100.0;
            return qFuzzyCompare(shown("Level/AF").toDouble(), volume) &&
                   qFuzzyCompare(other.shown("Level/AF").toDouble(), volume);
        };
        QTRY_VERIFY_WITH_TIMEOUT(state("Level/AF") != RowState::Requested, longTime);
        const auto report = [&] {
            return QStringLiteral("here %1, there %2, at the radio %3")
                .arg(shown("Level/AF"), other.shown("Level/AF"),
                     client.value(QStringLiteral("get_level AF")));
        };
        QTRY_VERIFY2_WITH_TIMEOUT(areEqual(), qPrintable(report()), longTime);
        QCOMPARE(shown("Level/AF"), other.shown("Level/AF"));
        QVERIFY(other.quit());
        closeAll();
    }

    // One program dies while its requests are under way: the other one goes on.
    void otherProgramMayDie()
    {
        auto other = std::make_unique<OtherProgram>();
        openBoth(*other);
        other->ask(QStringLiteral("enter level_AF 70"));
        other->ask(QStringLiteral("apply"));
        other.reset();
        type("level_SQL", "20\r");
        apply();
        QTRY_COMPARE_WITH_TIMEOUT(state("Level/SQL"), RowState::Confirmed, longTime);
        QCOMPARE(m_window->link().link().state(), hostkit::LinkState::Up);
        closeAll();
    }
};

QTEST_MAIN(TestRigTogether)

#include "tst_rigtogether.moc"
