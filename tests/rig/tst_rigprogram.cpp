#include "rigctld.h"

#include <hamlib/rig.h>
#include <hostkit/parametertext.h>
#include <hostkit/settingsstore.h>

#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

/// The program as a person starts it.
class TestRigProgram : public QObject
{
    Q_OBJECT

    static constexpr int longestRun = 45000; // milliseconds
    QByteArray m_output;
    QByteArray m_errors;

    /// The exit code; -1 if it crashed or did not end.
    int run(const QStringList& arguments)
    {
        QProcess program;
        program.start(QStringLiteral(ZORVA_RIG_PROGRAM), arguments);
        const bool ended =
            program.waitForFinished(longestRun) && program.exitStatus() == QProcess::NormalExit;
        m_output = program.readAllStandardOutput();
        m_errors = program.readAllStandardError();
        return ended ? program.exitCode() : -1;
    }
    static QStringList words(const char* arguments)
    {
        return QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void answers_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("output");
        QTest::newRow("help") << "--help" << 0 << QByteArray("Usage: zorva-rig");
        QTest::newRow("version") << "--version" << 0 << " (" + QByteArray(hamlib_version) + ")\n";
        QTest::newRow("list") << "--list dummy" << 0 << QByteArray("Dummy No VFO");
        QTest::newRow("nothing to list") << "--list nosuchradio" << 1 << QByteArray();
        QTest::newRow("form") << "--form -o - --model 1" << 0 << QByteArray("<KVParamGui");
        QTest::newRow("no such model") << "--form -o - --model 999999" << 1 << QByteArray();
        QTest::newRow("nowhere to write")
            << "--form -o /no/such/folder/a.zorva --model 1" << 1 << QByteArray();
        QTest::newRow("usage") << "--nonsense" << 2 << QByteArray();
        QTest::newRow("dummy's settings")
            << "--model 1 --save -" << 0 << QByteArray("<Frequency>145000000</Frequency>");
        QTest::newRow("no form") << "--model 1 --save - /no/such/form.zorva" << 1 << QByteArray();
        QTest::newRow("no daemon") << "--rigctld 127.0.0.1:1 --save -" << 1 << QByteArray();
        QTest::newRow("no port") << "--model 1018 --device /no/such/port --save -" << 1 << QByteArray();
        QTest::newRow("no such setting") << "--model 1 --set nonsense=1 --save -" << 1 << QByteArray();
    }
    void answers()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, output);
        const int code = run(arguments.split(QLatin1Char(' ')));
        QVERIFY2(m_output.contains(output), m_output.left(1000).constData());
        QTEST(code, "code");
        QCOMPARE(code != 0, m_errors.contains("zorva-rig: "));
    }

    void settingsOfADaemonAreSaved()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        Rigctld daemon;
        QVERIFY(daemon.start());
        QCOMPARE(daemon.rigctl(words("F 7050000")), QString());
        QCOMPARE(run({QStringLiteral("--rigctld"), daemon.address(), QStringLiteral("--save"), file}), 0);
        QString xml;
        QVERIFY(hostkit::loadText(file, &xml));
        QVERIFY(hostkit::parametersOf(xml).size() > 100);
        QVERIFY(xml.contains(QLatin1String("<Frequency>7050000</Frequency>")));
    }

    // Hamlib's own patience with its network driver is a minute, which run() does not have.
    void endsAlthoughACallHangs()
    {
        QTcpServer mute;
        QVERIFY(mute.listen(QHostAddress::LocalHost));
        const int code = run({QStringLiteral("--model"), QStringLiteral("2"), QStringLiteral("--device"),
                              QStringLiteral("127.0.0.1:%1").arg(mute.serverPort()), QStringLiteral("--save"),
                              QStringLiteral("-")});
        QCOMPARE(code, 1);
    }
};

QTEST_GUILESS_MAIN(TestRigProgram)

#include "tst_rigprogram.moc"
