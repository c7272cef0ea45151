#include "zorvarun.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// The preview as a program: what it refuses, and what it needs.
class TestZorvaPreview : public QObject
{
    Q_OBJECT

    static QStringList words(const char* text)
    {
        return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void misuse_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("no form") << QByteArray("preview") << QStringLiteral("no form given");
        QTest::newRow("two") << QByteArray("preview a b") << QStringLiteral("one form at a time");
        QTest::newRow("none there") << QByteArray("preview none.zorva") << QStringLiteral("no such file");
        QTest::newRow("a folder") << QByteArray("preview .") << QStringLiteral("it is no file");
        QTest::newRow("width") << QByteArray("preview --width x a") << QStringLiteral("--width takes");
        QTest::newRow("font") << QByteArray("preview --font 1000 a") << QStringLiteral("--font takes");
        QTest::newRow("option") << QByteArray("preview --frobnicate a") << QStringLiteral("frobnicate");
    }
    void misuse()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QString, message);
        const ZorvaRun run = runZorva(words(arguments.constData()));
        QCOMPARE(run.code, 2);
        QVERIFY2(run.errors.contains(message), qPrintable(run.errors));
        QVERIFY(run.errors.startsWith(QLatin1String("zorva: preview: ")));
    }
    void withoutADisplay()
    {
        qputenv("QT_QPA_PLATFORM", "nowhere");
        const ZorvaRun run = runZorva(words("preview form.zorva"));
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QCOMPARE(run.code, 2);
        QVERIFY2(run.errors.contains(QLatin1String("no platform \"nowhere\"")), qPrintable(run.errors));
    }
};

QTEST_GUILESS_MAIN(TestZorvaPreview)
#include "tst_zorvapreview.moc"
