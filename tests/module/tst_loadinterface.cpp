#include <leftovers.h>
#include <messageguard.h>
#include <velkappstartup/translationcenter.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <vkbase/vkexception.h>
#include <zorvaparser/loadinterface.h>
#include <zorvaparser/loadinterface_p.h>
#include <zorvaparser/zorvatest.h>

#include <QApplication>
#include <QtTest>

#include <memory>
#include <stdexcept>

using Orvane::ZorvaTest;

namespace {

QStringList traceLines;

void recordTrace(const QString& message, const QString& file, unsigned short)
{
    traceLines.append(file + QStringLiteral(": ") + message);
}

void deleteShellWindows()
{
    for (const auto& window : qAsConst(ZorvaTest::ShellWindows()))
        delete window.data();
    ZorvaTest::ShellWindows().clear();
    ZorvaTest::ShownForms().clear();
}

IDllInstance* throwHostException()
{
    throw VKException(QStringLiteral("no device"), QStringLiteral("somefile"), QStringLiteral("SomeClass"),
                      QStringLiteral("someMethod"), 5, 7);
}

IDllInstance* throwStandardException()
{
    throw std::runtime_error("out of tape");
}

using Maker = IDllInstance* (*)();

} // namespace

Q_DECLARE_METATYPE(Maker)

class TestLoadInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void baseInstanceDoesNothing();
    void createMakesAnInstanceOfThatName_data();
    void createMakesAnInstanceOfThatName();
    void destroyOfNothingIsHarmless();
    void destroyLeavesTheWindow();
    void createdInstancePassesThrough();
    void exceptionsBecomeNull_data();
    void exceptionsBecomeNull();
    void standardExceptionIsReportedWithFixedWords();
    void withoutTraceMaskNothingIsTracedByTheCatchBlock();
    void contextsAreRegisteredInOrderOnce();

private:
    int maskBefore = 0;
    std::unique_ptr<MessageGuard> messages;
};

void TestLoadInterface::init()
{
    messages = std::make_unique<MessageGuard>();
    // The tests read the trace themselves.
    messages->allow(
        QRegularExpression(QStringLiteral("caught in standard catch-block|no device|out of tape")));
    maskBefore = ErrorHandler::Instance().GetTraceMask();
    ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceErrors);
    traceLines.clear();
    SetTraceSink(recordTrace);
}

void TestLoadInterface::cleanup()
{
    SetTraceSink(TraceSink());
    ErrorHandler::Instance().SetTraceMask(maskBefore);
    deleteShellWindows();
    messages.reset();
    QCOMPARE(leftovers(), QString());
}

void TestLoadInterface::baseInstanceDoesNothing()
{
    IDllInstance instance(QStringLiteral("plain"));
    QVERIFY(instance.Start());
    instance.Stop();
    instance.Shutdown();
    QCOMPARE(instance.GetInstanceName(), QStringLiteral("plain"));
}

void TestLoadInterface::createMakesAnInstanceOfThatName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("ZorvaTest");
    QTest::newRow("empty") << QString();
    QTest::newRow("beyond Latin-1") << QString::fromUtf8("Empf\xC3\xA4nger \xE2\x82\xAC");
}

void TestLoadInterface::createMakesAnInstanceOfThatName()
{
    QFETCH(QString, name);
    IDllInstance* instance = VKCreate(name.toStdWString().c_str());
    QVERIFY(instance);
    QCOMPARE(instance->GetInstanceName(), name);
    QVERIFY(dynamic_cast<ZorvaTest*>(instance));
    QVERIFY(!ZorvaTest::ShellWindows().last()->isVisible());
    VKDestroy(instance);

    IDllInstance* nameless = VKCreate(nullptr);
    QVERIFY(nameless);
    QCOMPARE(nameless->GetInstanceName(), QString());
    VKDestroy(nameless);
}

void TestLoadInterface::destroyOfNothingIsHarmless()
{
    VKDestroy(nullptr);
    QCOMPARE(traceLines, QStringList());
}

void TestLoadInterface::destroyLeavesTheWindow()
{
    IDllInstance* instance = VKCreate(L"x");
    const QPointer<Orvane::ZorvaTestMain> window = ZorvaTest::ShellWindows().last();
    const QPointer<ZorvaTest> shell = dynamic_cast<ZorvaTest*>(instance);
    VKDestroy(instance);
    QVERIFY(!shell);
    QVERIFY(window);
}

void TestLoadInterface::createdInstancePassesThrough()
{
    const auto instance = std::make_unique<IDllInstance>(QStringLiteral("x"));
    QCOMPARE(Orvane::createReported([&instance] { return instance.get(); }), instance.get());
    QCOMPARE(traceLines, QStringList());
}

void TestLoadInterface::exceptionsBecomeNull_data()
{
    QTest::addColumn<Maker>("create");
    QTest::addColumn<QString>("firstLine");
    QTest::addColumn<QString>("message");
    QTest::newRow("the host's exception")
        << Maker(throwHostException)
        << QStringLiteral("loadinterface: VKException caught in standard catch-block")
        << QStringLiteral("no device");
    QTest::newRow("a standard exception")
        << Maker(throwStandardException)
        << QStringLiteral("loadinterface: Standard C++ Exception caught in standard catch-block")
        << QStringLiteral("out of tape");
}

void TestLoadInterface::exceptionsBecomeNull()
{
    QFETCH(Maker, create);
    QFETCH(QString, firstLine);
    QFETCH(QString, message);
    QVERIFY(!Orvane::createReported(create));

    // One line of the catch block, then one for each operation of the error handler.
    QCOMPARE(traceLines.size(), 3);
    QCOMPARE(traceLines.first(), firstLine);
    QVERIFY2(traceLines.at(1).contains(message), qPrintable(traceLines.at(1)));
    QVERIFY2(traceLines.at(2).contains(message), qPrintable(traceLines.at(2)));
}

void TestLoadInterface::standardExceptionIsReportedWithFixedWords()
{
    QVERIFY(!Orvane::createReported(throwStandardException));
    QCOMPARE(traceLines.size(), 3);
    QVERIFY2(traceLines.at(1).contains(QStringLiteral("loadinterface")), qPrintable(traceLines.at(1)));
}

void TestLoadInterface::withoutTraceMaskNothingIsTracedByTheCatchBlock()
{
    ErrorHandler::Instance().SetTraceMask(0);
    QVERIFY(!Orvane::createReported(throwHostException));
    QVERIFY(traceLines.filter(QStringLiteral("catch-block")).isEmpty());
}

void TestLoadInterface::contextsAreRegisteredInOrderOnce()
{
    const QStringList expected = {
        QStringLiteral("ZorvaParser"),
        QStringLiteral("ZORvaTranslationsFFP"),
        QStringLiteral("ZORvaTranslationsMCP"),
        QStringLiteral("ZORvaTranslations"),
        QStringLiteral("KDEMTranslations"),
        QStringLiteral("GeneralSettings"),
        QStringLiteral("ScanSettings"),
        QStringLiteral("KDR550AudioSettings"),
        QStringLiteral("KDR550DFSettings"),
        QStringLiteral("KDR550FFTSettings"),
        QStringLiteral("KDR550ScanSettings"),
        QStringLiteral("KDR550TunerSettings"),
        QStringLiteral("SignalDescriptionsComponent"),
    };
    QCOMPARE(Orvane::moduleTranslationContexts(), expected);
    for (const QString& context : expected)
        QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(context), 1);
}

QTEST_MAIN(TestLoadInterface)
#include "tst_loadinterface.moc"
