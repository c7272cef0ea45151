#include <author/files/wholefile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Orvane::Author;

/// Files are read whole, and replaced by whole ones.
class TestWholeFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsWrittenIsRead();
    void replacesAndLeavesNothingBeside();
    void aFailureLeavesTheOldOne();
    void saysWhatCannotBeRead();
    void isNotFloodedByWhatIsTooLarge();
    void doesNotWaitAtAPipe();
};

void TestWholeFile::whatIsWrittenIsRead()
{
    const QTemporaryDir folder;
    const QByteArray bytes("\0a\r\n\xff", 5);
    const QString path = folder.filePath(QStringLiteral("Größe.xml"));
    QCOMPARE(writeWhole(path, bytes), QString());
    const FileContent content = readWhole(path);
    QVERIFY(content.isRead());
    QCOMPARE(content.bytes, bytes);
    QCOMPARE(content.name, path);
}

void TestWholeFile::doesNotWaitAtAPipe()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QCOMPARE(readStored(path).problem, QStringLiteral("it is no file"));
    QVERIFY(readStored(folder.path()).problem.contains(QLatin1String("folder")));
    QCOMPARE(writeWhole(folder.filePath(QStringLiteral("file")), "x"), QString());
    QCOMPARE(readStored(folder.filePath(QStringLiteral("file"))).bytes, QByteArray("x"));
}

void TestWholeFile::replacesAndLeavesNothingBeside()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a"));
    QCOMPARE(writeWhole(path, "a long first text"), QString());
    QCOMPARE(writeWhole(path, "short"), QString());
    QCOMPARE(readWhole(path).bytes, QByteArray("short"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("a")));
}

void TestWholeFile::aFailureLeavesTheOldOne()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("folder"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    QVERIFY(!writeWhole(path, "text").isEmpty());
    QVERIFY(!writeWhole(folder.filePath(QStringLiteral("nowhere/a")), "text").isEmpty());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestWholeFile::saysWhatCannotBeRead()
{
    const QTemporaryDir folder;
    QCOMPARE(readWhole(folder.path()).problem, QStringLiteral("it is a folder"));
    QVERIFY(!readWhole(folder.filePath(QStringLiteral("nowhere"))).isRead());
}

void TestWholeFile::isNotFloodedByWhatIsTooLarge()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(largestFile));
    QCOMPARE(readWhole(file.fileName()).bytes.size(), largestFile);
    QVERIFY(file.resize(largestFile + 1));
    const FileContent content = readWhole(file.fileName());
    QCOMPARE(content.problem, QStringLiteral("it is larger than 16 MB"));
    QVERIFY(content.bytes.isEmpty());
    QCOMPARE(readWhole(QStringLiteral("/dev/zero")).problem, content.problem);
}

QTEST_APPLESS_MAIN(TestWholeFile)
#include "tst_wholefile.moc"
