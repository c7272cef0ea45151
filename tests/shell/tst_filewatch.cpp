#include <shell/filewatch.h>

#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

class TestFileWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savesAreTold_data();
    void savesAreTold();
    void equalContentIsNotTold();
    void everyFileCounts();
    void nothingToWatch();

private:
    static void write(const QString& path, const QByteArray& content);
    static void save(const QString& path, const QByteArray& content, const QString& way);
};

void TestFileWatch::write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void TestFileWatch::save(const QString& path, const QByteArray& content, const QString& way)
{
    if (way == QLatin1String("in place")) {
        write(path, content);
        return;
    }
    write(path + QStringLiteral("~"), content);
    if (way == QLatin1String("removed first"))
        QVERIFY(QFile::remove(path));
    QCOMPARE(std::rename(qPrintable(path + QStringLiteral("~")), qPrintable(path)), 0);
}

void TestFileWatch::savesAreTold_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"in place", "new file", "removed first"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestFileWatch::savesAreTold()
{
    QFETCH(QString, way);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("form.zorva"));
    write(path, "0");
    const FileWatch watch({path});
    const QSignalSpy changed(&watch, &FileWatch::changed);
    for (int i = 1; i <= 3; ++i) {
        save(path, QByteArray::number(i), way);
        QTRY_COMPARE(changed.count(), i);
    }
}

void TestFileWatch::equalContentIsNotTold()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("form.zorva"));
    const QString other = folder.filePath(QStringLiteral("other.zorva"));
    write(path, "0");
    write(other, "0");
    const FileWatch watch({path, other});
    const QSignalSpy changed(&watch, &FileWatch::changed);
    save(path, "0", QStringLiteral("new file"));
    write(folder.filePath(QStringLiteral("unrelated")), "1");
    save(other, "1", QStringLiteral("in place"));
    QTRY_COMPARE(changed.count(), 1);
}

void TestFileWatch::everyFileCounts()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first"));
    const QString second = folder.filePath(QStringLiteral("second"));
    write(first, "0");
    const FileWatch watch({first, second});
    const QSignalSpy changed(&watch, &FileWatch::changed);
    write(second, "comes later");
    QTRY_COMPARE(changed.count(), 1);
    write(first, "1");
    QTRY_COMPARE(changed.count(), 2);
}

void TestFileWatch::nothingToWatch()
{
    const FileWatch watch({});
    const QSignalSpy changed(&watch, &FileWatch::changed);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 0);
}

QTEST_GUILESS_MAIN(TestFileWatch)
#include "tst_filewatch.moc"
