#include <rig/commandline.h>
#include <rig/rigctlddevice.h>

#include <QTest>

using radio::CommandLine;
using radio::Endpoint;

class TestRigCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void understood_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("task");
        QTest::newRow("list") << "--list" << int(CommandLine::List);
        QTest::newRow("list some") << "--list ft-8" << int(CommandLine::List);
        QTest::newRow("form") << "--form -o a.zorva --model 1" << int(CommandLine::WriteForm);
        QTest::newRow("operate") << "--model=1" << int(CommandLine::Operate);
        QTest::newRow("device and settings")
            << "--model 3073 --device /dev/ttyUSB0 --set serial_speed=19200 --set retry=1 my.zorva"
            << int(CommandLine::Operate);
        QTest::newRow("daemon") << "--rigctld localhost:4532" << int(CommandLine::Operate);
        QTest::newRow("save") << "--model 1 --save -" << int(CommandLine::Save);
        QTest::newRow("restore") << "--model 1 --restore a.xml" << int(CommandLine::Operate);
        QTest::newRow("help wins") << "--model --help" << int(-1);
        QTest::newRow("help") << "--help --nonsense" << int(CommandLine::Help);
        QTest::newRow("version") << "--version" << int(CommandLine::Version);
        QTest::newRow("no radio") << "" << int(-1);
        QTest::newRow("no number") << "--model x" << int(-1);
        QTest::newRow("no value") << "--model" << int(-1);
        QTest::newRow("unknown") << "--nonsense 1" << int(-1);
        QTest::newRow("form to nowhere") << "--form --model 1" << int(-1);
        QTest::newRow("two forms") << "--model 1 a.zorva b.zorva" << int(-1);
        QTest::newRow("setting without a value") << "--model 1 --set speed" << int(-1);
        QTest::newRow("here and there") << "--rigctld a:1 --device b" << int(-1);
    }
    void understood()
    {
        QFETCH(QString, arguments);
        CommandLine result;
        QString error;
        const bool ok = CommandLine::parse(QStringList{QStringLiteral("zorva-rig")} +
                                               arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts),
                                           &result, &error);
        QTEST(ok ? int(result.task) : -1, "task");
        QCOMPARE(ok, error.isEmpty());
    }

    void valuesArrive()
    {
        CommandLine result;
        QString error;
        QVERIFY(
            CommandLine::parse({QStringLiteral("zorva-rig"), QStringLiteral("-m"), QStringLiteral("3073"),
                                QStringLiteral("-r"), QStringLiteral("/dev/ttyUSB0"), QStringLiteral("--set"),
                                QStringLiteral("a=b=c"), QStringLiteral("f.zorva")},
                               &result, &error));
        QCOMPARE(result.model, 3073u);
        QCOMPARE(result.device, QStringLiteral("/dev/ttyUSB0"));
        QCOMPARE(result.settings.value(0).second, QStringLiteral("b=c"));
        QCOMPARE(result.form, QStringLiteral("f.zorva"));
    }

    void endpoints_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("port");
        QTest::newRow("host and port") << "radio:4533"
                                       << "radio" << 4533;
        QTest::newRow("host") << "radio"
                              << "radio" << 4532;
        QTest::newRow("port") << ":4533"
                              << "127.0.0.1" << 4533;
        QTest::newRow("address of version 6") << "[::1]:4533"
                                              << "::1" << 4533;
        QTest::newRow("port too large") << "radio:99999"
                                        << "" << 0;
        QTest::newRow("no port behind the colon") << "radio:"
                                                  << "" << 0;
        QTest::newRow("nothing") << ""
                                 << "" << 0;
    }
    void endpoints()
    {
        QFETCH(QString, text);
        QFETCH(int, port);
        Endpoint endpoint;
        const bool ok = Endpoint::parse(text, &endpoint);
        QCOMPARE(ok, port != 0);
        if (ok) {
            QTEST(endpoint.host, "host");
            QCOMPARE(int(endpoint.port), port);
        }
    }
};

QTEST_APPLESS_MAIN(TestRigCommandLine)

#include "tst_rigcommandline.moc"
