#include <hostkit/settingsstore.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace hostkit;

namespace {

/// While it lives no file of this process may hold a byte.
class FullDisk
{
public:
    FullDisk()
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit none{0, m_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_limit = {};
    void (*m_handler)(int) = SIG_DFL;
};

} // namespace

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

    // A disk that is full shows only when what was buffered is written.
    void fullDiskKeepsTheOldText()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.xml"));
        QVERIFY(saveText(file, QStringLiteral("old")));
        QString error;
        {
            const FullDisk disk;
            QVERIFY(!saveText(file, QStringLiteral("new text"), &error));
        }
        QVERIFY(!error.isEmpty());
        QString text;
        QVERIFY(loadText(file, &text));
        QCOMPARE(text, QStringLiteral("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    void pipeIsWrittenTo()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(file.toLocal8Bit().constData(), 0600), 0);
        QFile reader(file);
        const int end = ::open(file.toLocal8Bit().constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader.open(end, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
        QVERIFY(saveText(file, QStringLiteral("through")));
        QCOMPARE(reader.read(100), QByteArray("through"));
        QVERIFY(!QFileInfo(file).isFile());
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
