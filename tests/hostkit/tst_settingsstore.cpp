#include <hostkit/settingsstore.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace hostkit;

class TestSettingsStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedTextIsLoaded()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("ä.xml"));
        QVERIFY(saveText(file, QStringLiteral("<Größe/>")));
        QString text;
        QVERIFY(loadText(file, &text));
        QCOMPARE(text, QStringLiteral("<Größe/>"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    void failureKeepsTheOldText()
    {
        const QTemporaryDir folder;
        QString error;
        QVERIFY(
            !saveText(folder.filePath(QStringLiteral("no/such/folder.xml")), QStringLiteral("x"), &error));
        QVERIFY(!error.isEmpty());
        QString text = QStringLiteral("old");
        QVERIFY(!loadText(folder.filePath(QStringLiteral("missing.xml")), &text, &error));
        QCOMPARE(text, QStringLiteral("old"));
        QVERIFY(!loadText(folder.path(), &text, &error));
        QCOMPARE(text, QStringLiteral("old"));
    }

    void propertiesComeBack()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        {
            ConfigurationStore store(file);
            QVERIFY(!QFile::exists(file));
            store.setProperty("form-collapsed", QStringLiteral("a,b"));
            store.setProperty("form-fontsize", 12);
            store.setProperty("gone", 1);
            store.setProperty("gone", QVariant());
        }
        const ConfigurationStore again(file);
        QCOMPARE(again.property("form-collapsed").toString(), QStringLiteral("a,b"));
        QCOMPARE(again.property("form-fontsize").toInt(), 12);
        QVERIFY(!again.property("gone").isValid());
    }

    void changesAreWrittenSoon()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        ConfigurationStore store(file);
        store.setProperty("a", 1);
        QTRY_VERIFY(QFile::exists(file));
    }

    void damagedFileCountsAsFarAsItGoes()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        QVERIFY(saveText(file, QStringLiteral("<Configuration><Property name=\"a\">1</Property><Prop")));
        const ConfigurationStore store(file);
        QCOMPARE(store.property("a").toInt(), 1);
    }
};

QTEST_GUILESS_MAIN(TestSettingsStore)

#include "tst_settingsstore.moc"
