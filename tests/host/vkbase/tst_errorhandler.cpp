#include <messageguard.h>

#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <vkbase/vkexception.h>

#include <QProcess>
#include <QTest>

#include <cstdio>
#include <cstring>

class TestErrorHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void thereIsOne();
    void maskCanBeSet();
    void maskComesFromTheEnvironment_data();
    void maskComesFromTheEnvironment();
    void handledExceptionsAreLogged();
    void reportsAreLogged_data();
    void reportsAreLogged();
};

static VKException makeException()
{
    return VKException(QStringLiteral("bad luck"), QStringLiteral("file"), QStringLiteral("Class"),
                       QStringLiteral("method"), 17, 255);
}

void TestErrorHandler::cleanup()
{
    ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceErrors);
    SetTraceSink({});
}

void TestErrorHandler::thereIsOne()
{
    QCOMPARE(&ErrorHandler::Instance(), &ErrorHandler::Instance());
    QCOMPARE(ErrorHandler::Interface(), static_cast<IErrorHandler*>(&ErrorHandler::Instance()));
}

void TestErrorHandler::maskCanBeSet()
{
    ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceErrors | ErrorHandler::TraceNotes);
    QCOMPARE(ErrorHandler::Interface()->GetTraceMask(), 0x60);
}

void TestErrorHandler::maskComesFromTheEnvironment_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<int>("mask");
    QTest::newRow("unset") << QString() << 0x20;
    QTest::newRow("decimal") << "96" << 96;
    QTest::newRow("hexadecimal") << "0x40" << 0x40;
    QTest::newRow("decimal with a zero in front") << "040" << 40;
    QTest::newRow("hexadecimal in capitals") << "0X60" << 0x60;
    QTest::newRow("blanks around it") << " 64 " << 64;
    QTest::newRow("hexadecimal without its mark") << "4f" << 0x20;
    QTest::newRow("nothing wanted") << "0" << 0;
    QTest::newRow("unreadable") << "all" << 0x20;
}

void TestErrorHandler::maskComesFromTheEnvironment()
{
    // The variable is read once in a process, so each case asks one of its own.
    QFETCH(QString, variable);
    QFETCH(int, mask);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("VELK_TRACE_MASK"));
    if (!variable.isNull())
        environment.insert(QStringLiteral("VELK_TRACE_MASK"), variable);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--print-mask")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput().toInt(), mask);
}

void TestErrorHandler::handledExceptionsAreLogged()
{
    MessageGuard guard;
    guard.expect(QStringLiteral("file:17: Exception in Class::method, code 0xff: bad luck"));
    ErrorHandler::Interface()->HandleException(makeException());
    QCOMPARE(guard.complaints(), QString());
}

void TestErrorHandler::reportsAreLogged_data()
{
    QTest::addColumn<bool>("log");
    QTest::newRow("to the log") << true;
    QTest::newRow("kept out of the log") << false;
}

void TestErrorHandler::reportsAreLogged()
{
    QFETCH(bool, log);
    MessageGuard guard;
    if (log)
        guard.expect(QStringLiteral("Exception report (severity 0, category -1) in Class::method"));
    ErrorHandler::Interface()->ReportException(makeException(), 0, -1, log, false);
    QCOMPARE(guard.complaints(), QString());
}

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--print-mask") == 0) {
        std::printf("%d", ErrorHandler::Instance().GetTraceMask());
        return 0;
    }
    QCoreApplication application(argc, argv);
    TestErrorHandler test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_errorhandler.moc"
