#include <velkappstartup/translationcenter.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTest>

/// Says "hallo" for "hi" in the context "Ctx".
static const char translations[] =
    "3cb86418caef9c95cd211cbf60a1bddda70000000264654200000008000006e9000000006900000024030000000a00680061006c"
    "006c006f08000000000600000002686907000000034374780188000000020101";
static const char registered[] = "ZorvaCenterTest";

class TestTranslationCenter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void countsPerContext();
    void strayCallsAreHarmless();
    void installsWhileRegistered();
    void installsWhatCameBeforeTheApplication();

private:
    QString m_folder;
    QString m_file;
};

static QString context()
{
    return QString::fromLatin1(registered);
}

static QString said()
{
    return QCoreApplication::translate("Ctx", "hi");
}

// Registered before main: there is no application yet.
static const bool early = [] {
    TranslationCenter::Instance().Register(context());
    return true;
}();

void TestTranslationCenter::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    m_folder = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    QVERIFY(QDir().mkpath(m_folder));
    m_file = m_folder + QLatin1Char('/') + context() + QStringLiteral("_de.qm");
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromHex(translations));
    QVERIFY(early);
    TranslationCenter::Instance().Unregister(context());
}

void TestTranslationCenter::cleanupTestCase()
{
    QFile::remove(m_file);
    QDir().rmdir(m_folder); // fails if somebody else has files there
}

void TestTranslationCenter::cleanup()
{
    QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(context()), 0);
}

void TestTranslationCenter::countsPerContext()
{
    TranslationCenter& center = TranslationCenter::Instance();
    QCOMPARE(&center, &TranslationCenter::Instance());
    center.Register(context());
    center.Register(context());
    QCOMPARE(center.GetRegistrationCount(context()), 2);
    center.Unregister(context());
    QCOMPARE(center.GetRegistrationCount(context()), 1);
    center.Unregister(context());
}

void TestTranslationCenter::strayCallsAreHarmless()
{
    TranslationCenter& center = TranslationCenter::Instance();
    center.Unregister(QStringLiteral("never registered"));
    center.Register(QString());
    QCOMPARE(center.GetRegistrationCount(QString()), 0);
    center.Unregister(QString());
}

void TestTranslationCenter::installsWhileRegistered()
{
    TranslationCenter& center = TranslationCenter::Instance();
    QCOMPARE(said(), QStringLiteral("hi"));
    center.Register(context());
    center.Register(context());
    QCOMPARE(said(), QStringLiteral("hallo"));
    center.Unregister(context());
    QCOMPARE(said(), QStringLiteral("hallo"));
    center.Unregister(context());
    QCOMPARE(said(), QStringLiteral("hi"));
}

void TestTranslationCenter::installsWhatCameBeforeTheApplication()
{
    TranslationCenter& center = TranslationCenter::Instance();
    QFile::rename(m_file, m_file + QStringLiteral(".away"));
    center.Register(context());
    QCOMPARE(said(), QStringLiteral("hi"));
    QFile::rename(m_file + QStringLiteral(".away"), m_file);
    center.InstallAll();
    QCOMPARE(said(), QStringLiteral("hallo"));
    center.Unregister(context());
}

QTEST_GUILESS_MAIN(TestTranslationCenter)
#include "tst_translationcenter.moc"
