#include <velkappstartup/velkapplication.h>

#include <QTest>

#include <memory>

static QStringList words(const char* separated)
{
    return QString::fromLatin1(separated).split(QLatin1Char('|'));
}

class TestVelkApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standInAnswersWithQtsArguments();
    void hostsObjectAnswers();
    void takesACommandLine();
    void destroyedOutOfOrder();
};

void TestVelkApplication::standInAnswersWithQtsArguments()
{
    QVERIFY(VelkApplication::m_pThis);
    QCOMPARE(VelkApplication::m_pThis->Arguments(), QCoreApplication::arguments());
    QCOMPARE(&VelkApplication::Instance(), VelkApplication::m_pThis);
}

void TestVelkApplication::hostsObjectAnswers()
{
    {
        const VelkApplication host(words("program|a|b"));
        QCOMPARE(VelkApplication::m_pThis->Arguments(), words("program|a|b"));
    }
    QCOMPARE(VelkApplication::m_pThis->Arguments(), QCoreApplication::arguments());
}

void TestVelkApplication::takesACommandLine()
{
    const char* const line[] = {"program", "form.zorva"};
    const VelkApplication host(2, line);
    QCOMPARE(host.Arguments(), words("program|form.zorva"));
    const VelkApplication none(QStringList{});
    QCOMPARE(none.Arguments(), QStringList());
}

void TestVelkApplication::destroyedOutOfOrder()
{
    auto first = std::make_unique<VelkApplication>(words("first"));
    auto second = std::make_unique<VelkApplication>(words("second"));
    first.reset();
    QCOMPARE(VelkApplication::m_pThis->Arguments(), words("second"));
    second.reset();
    QCOMPARE(VelkApplication::m_pThis->Arguments(), QCoreApplication::arguments());
}

QTEST_GUILESS_MAIN(TestVelkApplication)
#include "tst_velkapplication.moc"
