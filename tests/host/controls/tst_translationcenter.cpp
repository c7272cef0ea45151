#include <translationfile.h>
#include <velkappstartup/translationcenter.h>

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

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
    void addedFoldersComeFirst();
    void namesAreTriedInQtsOrder_data();
    void namesAreTriedInQtsOrder();
    void namesMayBeWholePaths();
    void damagedFilesGiveWayToTheNextFolder();
    void languageChangesAtRunTime();
    void manyAreRegisteredInOneCall();
    void widgetsAreToldOnceForMany();
    void lastRegisteredSpeaksFirst();
    void textsAreFound_data();
    void textsAreFound();
    void applicationsMayFollowEachOther();

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

static void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

/// How often the application was told that texts have changed, while one lives.
class LanguageChanges : public QObject
{
public:
    LanguageChanges() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == QCoreApplication::instance() && event->type() == QEvent::LanguageChange)
            ++count;
        return false;
    }
    int count = 0;
};

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
    QVERIFY(TranslationCenter::Instance().GetFolders().isEmpty());
    QCoreApplication::processEvents();
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

void TestTranslationCenter::addedFoldersComeFirst()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir first;
    const QTemporaryDir second;
    write(first.filePath(context() + QStringLiteral("_de.qm")),
          translationFile({{"Ctx", "hi", "", QStringLiteral("servus")}}));
    write(second.filePath(context() + QStringLiteral("_de.qm")),
          translationFile({{"Ctx", "hi", "", QStringLiteral("moin")}}));
    center.Register(context());
    QCOMPARE(said(), QStringLiteral("hallo"));
    QCoreApplication::processEvents();
    {
        const LanguageChanges changes;
        center.AddFolder(first.path());
        QCOMPARE(said(), QStringLiteral("servus"));
        QCOMPARE(changes.count, 1);
    }
    center.AddFolder(second.path());
    QCOMPARE(said(), QStringLiteral("moin"));
    QCOMPARE(center.GetFolders(), (QStringList{second.path(), first.path()}));
    center.AddFolder(first.path());
    QCOMPARE(said(), QStringLiteral("servus"));
    QCOMPARE(center.GetFolders(), (QStringList{first.path(), second.path()}));
    QVERIFY(center.RemoveFolder(first.path()));
    QCOMPARE(said(), QStringLiteral("moin"));
    QVERIFY(center.RemoveFolder(second.path()));
    QCOMPARE(said(), QStringLiteral("hallo"));
    QVERIFY(!center.RemoveFolder(second.path()));
    center.AddFolder(QString());
    center.Unregister(context());
    QCOMPARE(said(), QStringLiteral("hi"));
}

void TestTranslationCenter::namesAreTriedInQtsOrder_data()
{
    QTest::addColumn<QString>("endings"); // of the files that are there
    const auto row = [](const char* name, const char* endings) {
        QTest::newRow(name) << QString::fromLatin1(endings);
    };
    row("language and country", "_de_DE.qm,_de_DE,_de.qm");
    row("country", "_de_DE.qm,_de_DE,_de_de.qm,.qm");
    row("country, no suffix", "_de_DE,_de_de.qm,.qm");
    row("language, no suffix", "_de,_de_de.qm,.qm");
    row("lower case", "_de_de.qm,_de_Latn_DE.qm,.qm");
    row("script", "_de_Latn_DE.qm,.qm,_");
    row("script without country", "_de_Latn.qm,.qm");
    row("no language", ".qm,_,");
    row("no language but its line", "_,");
    row("nothing but the name", "");
    row("others", "_fr.qm,_de-DE.qm,_deDE.qm,_de_AT.qm,_de_DE.qm.qm");
}

void TestTranslationCenter::namesAreTriedInQtsOrder()
{
    QFETCH(QString, endings);

    const QTemporaryDir folder;
    const QString name = QStringLiteral("Named_by_test");
    for (const QString& ending : endings.split(QLatin1Char(',')))
        write(folder.filePath(name + ending),
              translationFile({{"Ctx", "hi", "", QStringLiteral("file") + ending}}));
    QTranslator qts;
    const bool found = qts.load(QLocale(), name, QStringLiteral("_"), folder.path(), QStringLiteral(".qm"));
    const QString expected = found ? qts.translate("Ctx", "hi") : QStringLiteral("hi");

    TranslationCenter& center = TranslationCenter::Instance();
    center.AddFolder(folder.path());
    center.Register(name);
    QCOMPARE(said(), expected);
    center.Unregister(name);
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::namesMayBeWholePaths()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir elsewhere;
    const QString name = elsewhere.filePath(QStringLiteral("Form"));
    write(name + QStringLiteral("_de.qm"), translationFile({{"Ctx", "hi", "", QStringLiteral("servus")}}));
    center.Register(name);
    QCOMPARE(said(), QStringLiteral("servus"));
    center.Unregister(name);
}

void TestTranslationCenter::damagedFilesGiveWayToTheNextFolder()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir folder;
    write(folder.filePath(context() + QStringLiteral("_de.qm")), "this is no file of translations");
    center.AddFolder(folder.path());
    center.Register(context());
    QCOMPARE(said(), QStringLiteral("hallo"));
    center.Unregister(context());
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::languageChangesAtRunTime()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir folder;
    write(folder.filePath(context() + QStringLiteral("_fr.qm")),
          translationFile({{"Ctx", "hi", "", QStringLiteral("salut")}}));
    center.AddFolder(folder.path());
    center.Register(context());
    QCOMPARE(center.GetLocale(), QLocale());
    QCOMPARE(said(), QStringLiteral("hallo"));
    QCoreApplication::processEvents();
    const LanguageChanges changes;
    center.SetLocale(QLocale(QLocale::French, QLocale::France));
    QCOMPARE(said(), QStringLiteral("salut"));
    QCOMPARE(changes.count, 1);
    center.SetLocale(QLocale(QLocale::Italian));
    QCOMPARE(said(), QStringLiteral("hi"));
    center.SetLocale(QLocale());
    QCOMPARE(said(), QStringLiteral("hallo"));
    QCOMPARE(changes.count, 3);
    center.Unregister(context());
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::manyAreRegisteredInOneCall()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QString other = QStringLiteral("nothing there");
    center.Register(QStringList{context(), QString(), other, context()});
    QCOMPARE(said(), QStringLiteral("hallo"));
    QCOMPARE(center.GetRegistrationCount(context()), 2);
    QCOMPARE(center.GetRegistrationCount(other), 1);
    QCOMPARE(center.GetRegistrationCount(QString()), 0);
    center.Register(QStringList());
    for (const QString& registration : {context(), context(), other})
        center.Unregister(registration);
    QCOMPARE(said(), QStringLiteral("hi"));
}

void TestTranslationCenter::widgetsAreToldOnceForMany()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir folder;
    center.AddFolder(folder.path());
    QStringList contexts;
    for (int i = 0; i < 50; ++i) {
        contexts << QStringLiteral("Form%1").arg(i);
        write(folder.filePath(contexts.last() + QStringLiteral("_de.qm")),
              translationFile({{"Row", contexts.last().toLatin1(), "", QString::number(i)}}));
    }
    const LanguageChanges changes;
    for (const QString& form : qAsConst(contexts)) {
        center.Register(form);
        QVERIFY(QCoreApplication::translate("Row", qPrintable(form)) != form); // at once
    }
    QCOMPARE(changes.count, 0);
    QTRY_COMPARE(changes.count, 1);
    center.Register(QStringLiteral("nothing there"));
    center.Register(contexts.first());
    center.Unregister(contexts.first());
    center.Unregister(QStringLiteral("nothing there"));
    QCoreApplication::processEvents();
    QCOMPARE(changes.count, 1);
    for (const QString& form : qAsConst(contexts)) {
        center.Unregister(form);
        QCOMPARE(QCoreApplication::translate("Row", qPrintable(form)), form);
    }
    QTRY_COMPARE(changes.count, 2);
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::lastRegisteredSpeaksFirst()
{
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir folder;
    center.AddFolder(folder.path());
    QStringList contexts;
    for (int i = 0; i < 7; ++i) {
        contexts << QStringLiteral("Form%1").arg(i);
        write(folder.filePath(contexts.last() + QStringLiteral("_de.qm")),
              translationFile({{"Ctx", "hi", "", contexts.last()}}));
        center.Register(contexts.last());
        QCOMPARE(said(), contexts.last());
    }
    // From the middle outwards, so that the last one changes only at times.
    for (const int gone : {3, 2, 4, 6, 1, 5}) {
        center.Unregister(contexts.at(gone));
        contexts[gone].clear();
        QStringList standing = contexts;
        standing.removeAll(QString());
        QCOMPARE(said(), standing.last());
    }
    center.Unregister(contexts.first());
    QCOMPARE(said(), QStringLiteral("hi"));
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::textsAreFound_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("comment");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("said");
    const QByteArray umlaut("Gr\xc3\xb6\xc3\x9f"
                            "e");
    const QByteArray plain = translationFile({{"Ctx", "size", "", QStringLiteral("plain")}});
    const QByteArray both = translationFile({{"Ctx", "size", "", QStringLiteral("plain")},
                                             {"Ctx", "size", "of a disk", QStringLiteral("special")},
                                             {"Other", "size", "", QStringLiteral("other")}});
    const auto row = [](const char* name, const QByteArray& content, const char* comment,
                        const QByteArray& source, const char* text) {
        QTest::newRow(name) << content << QByteArray(comment) << source << QString::fromUtf8(text);
    };
    row("plain", plain, "", "size", "plain");
    row("with a comment that is there", both, "of a disk", "size", "special");
    row("with a comment that is not there", both, "of a shoe", "size", "plain");
    row("without a comment", both, "", "size", "plain");
    row("beyond ASCII", translationFile({{"Ctx", umlaut, "", QStringLiteral("size")}}), "", umlaut, "size");
    row("nothing to hash", translationFile({{"Ctx", "", "", QStringLiteral("empty")}}), "", "", "empty");
    row("unknown text", plain, "", "sizes", "sizes");
    row("other context", translationFile({{"Other", "size", "", QStringLiteral("other")}}), "", "size",
        "size");
    row("a file that names others",
        translationFile({{"Ctx", "size", "", QStringLiteral("plain")}}, QByteArray::fromHex("9600000000")),
        "", "size", "plain");
    row("a damaged file", plain.left(30), "", "size", "size");
}

void TestTranslationCenter::textsAreFound()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, comment);
    QFETCH(QByteArray, source);
    TranslationCenter& center = TranslationCenter::Instance();
    const QTemporaryDir folder;
    write(folder.filePath(context() + QStringLiteral("_de.qm")), content);
    center.AddFolder(folder.path());
    QFile::rename(m_file, m_file + QStringLiteral(".away"));
    center.Register(context());
    QTEST(QCoreApplication::translate("Ctx", source.constData(),
                                      comment.isEmpty() ? nullptr : comment.constData()),
          "said");
    center.Unregister(context());
    QFile::rename(m_file + QStringLiteral(".away"), m_file);
    center.RemoveFolder(folder.path());
}

void TestTranslationCenter::applicationsMayFollowEachOther()
{
    TranslationCenter& center = TranslationCenter::Instance();
    center.Register(context());
    for (int i = 0; i < 3; ++i) {
        center.InstallAll();
        QCOMPARE(said(), QStringLiteral("hallo"));
    }
    center.Unregister(context());
    QCOMPARE(said(), QStringLiteral("hi"));
}

QTEST_GUILESS_MAIN(TestTranslationCenter)
#include "tst_translationcenter.moc"
