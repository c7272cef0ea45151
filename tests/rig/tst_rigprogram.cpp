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
    int run(const QStringList& arguments,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        QProcess program;
        program.setProcessEnvironment(environment);
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
        QTest::newRow("nothing to restore")
            << "--model 1 --restore /no/such/settings.xml" << 1 << QByteArray();
        QTest::newRow("no room for settings") << "--model 1 --save /dev/full" << 1 << QByteArray();
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

    void noDesktopIsAsked_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("list") << "--list dummy";
        QTest::newRow("form") << "--form -o - --model 1";
        QTest::newRow("settings") << "--model 1 --save -";
    }
    // Themes and styles of a desktop may look for a display, and end a program that has none.
    void noDesktopIsAsked()
    {
        QFETCH(QString, arguments);
        QProcessEnvironment desktop = QProcessEnvironment::systemEnvironment();
        desktop.remove(QStringLiteral("QT_QPA_PLATFORM"));
        desktop.insert(QStringLiteral("QT_STYLE_OVERRIDE"), QStringLiteral("of-the-desktop"));
        QCOMPARE(run(arguments.split(QLatin1Char(' ')), desktop), 0);
        QVERIFY2(!m_errors.contains("of-the-desktop"), m_errors.constData());
    }

    void damagedForm_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("said");
        const QString row =
            QStringLiteral("<KVParamGui>\n<Sheet>\n<Widget name=\"AF\" class=\"SpinBox\">\n"
                           "<Property name=\"parameterXmlTag\"><String>Level/AF</String></Property>"
                           "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>"
                           "</Widget>\n");
        QTest::newRow("no form") << "hello" << 1 << QByteArray("line 1, column");
        QTest::newRow("empty") << "" << 1 << QByteArray("Premature end");
        QTest::newRow("another document") << "<Parameters/>" << 1 << QByteArray("is no form");
        QTest::newRow("cut before the first row")
            << "<KVParamGui>\n<Sheet" << 1 << QByteArray("line 2, column");
        QTest::newRow("cut behind a row") << row << 0 << QByteArray("as far as it goes: line 5");
        QTest::newRow("whole") << row + QStringLiteral("</Sheet></KVParamGui>") << 0 << QByteArray();
    }
    void damagedForm()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, said);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("own.zorva"));
        QVERIFY(hostkit::saveText(file, text));
        const int code = run({QStringLiteral("--model"), QStringLiteral("1"), QStringLiteral("--save"),
                              QStringLiteral("-"), file});
        QTEST(code, "code");
        QVERIFY2(m_errors.contains(said), m_errors.constData());
        QCOMPARE(m_errors.contains("zorva-rig: "), !said.isEmpty());
        QCOMPARE(m_output.contains("<AF>"), code == 0);
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
