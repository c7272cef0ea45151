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
    void hostsHandlerIsInCharge();
    void hostsHandlerMayHandOn();
};

static VKException makeException()
{
    return VKException(QStringLiteral("bad luck"), QStringLiteral("file"), QStringLiteral("Class"),
                       QStringLiteral("method"), 17, 255);
}

/// A host's own handler.
class HostHandler : public IErrorHandler
{
public:
    int GetTraceMask() const override { return mask; }
    void HandleException(const VKException& exception) override
    {
        calls << QStringLiteral("handle %1").arg(exception.GetMessage());
        if (handsOn)
            ErrorHandler::Instance().HandleException(exception);
    }
    void ReportException(const VKException& exception, int severity, int category, bool log,
                         bool notify) override
    {
        calls << QStringLiteral("report %1 %2 %3 %4 %5")
                     .arg(exception.GetMessage())
                     .arg(severity)
                     .arg(category)
                     .arg(log)
                     .arg(notify);
    }

    int mask = 0;
    bool handsOn = false;
    QStringList calls;
};

void TestErrorHandler::cleanup()
{
    ErrorHandler::SetInterface(nullptr);
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

void TestErrorHandler::hostsHandlerIsInCharge()
{
    HostHandler host;
    host.mask = ErrorHandler::TraceScripts;
    QVERIFY(!ErrorHandler::Traces(ErrorHandler::TraceScripts));
    ErrorHandler::SetInterface(&host);
    QCOMPARE(ErrorHandler::Interface(), static_cast<IErrorHandler*>(&host));
    QVERIFY(ErrorHandler::Traces(ErrorHandler::TraceScripts | ErrorHandler::TraceNotes));
    QVERIFY(!ErrorHandler::Traces(ErrorHandler::TraceErrors));

    MessageGuard guard;
    ErrorHandler::Interface()->HandleException(makeException());
    ErrorHandler::Interface()->ReportException(makeException(), 2, 7, false, true);
    QCOMPARE(host.calls,
             (QStringList{QStringLiteral("handle bad luck"), QStringLiteral("report bad luck 2 7 0 1")}));
    QCOMPARE(guard.complaints(), QString());

    ErrorHandler::SetInterface(nullptr);
    QCOMPARE(ErrorHandler::Interface(), static_cast<IErrorHandler*>(&ErrorHandler::Instance()));
    QVERIFY(ErrorHandler::Traces(ErrorHandler::TraceErrors));
}

void TestErrorHandler::hostsHandlerMayHandOn()
{
    HostHandler host;
    host.handsOn = true;
    ErrorHandler::SetInterface(&host);
    MessageGuard guard;
    guard.expect(QStringLiteral("Exception in Class::method"));
    ErrorHandler::Interface()->HandleException(makeException());
    QCOMPARE(guard.complaints(), QString());
    QCOMPARE(host.calls.size(), 1);
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
