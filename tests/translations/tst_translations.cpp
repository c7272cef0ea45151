#include <velkappstartup/translationcenter.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QCheckBox>
#include <QExplicitlySharedDataPointer>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const char* const languages[] = {"de", "fr"};

QString sourceFile(const QString& language)
{
    return QStringLiteral(ZORVA_SOURCE_DIR "/resources/translations/ZorvaParser_%1.ts").arg(language);
}

QString read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

int places(const QString& text)
{
    return text.count(QRegularExpression(QStringLiteral("%[0-9]")));
}

} // namespace

/// The library speaks German and French, completely.
class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void completeAndUpToDate_data();
    void completeAndUpToDate();
    void placesOfArgumentsAreKept_data();
    void placesOfArgumentsAreKept();
    void formsSpeakThem_data();
    void formsSpeakThem();
};

void TestTranslations::completeAndUpToDate_data()
{
    QTest::addColumn<QString>("language");
    for (const char* const language : languages)
        QTest::newRow(language) << QString::fromLatin1(language);
}

// What Qt's own tool finds in the sources is in the files, translated, and nothing else is.
void TestTranslations::completeAndUpToDate()
{
    QFETCH(QString, language);
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.ts"));
    QVERIFY(QFile::copy(sourceFile(language), copy));
    QFile(copy).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    QProcess tool;
    tool.start(QStringLiteral(ZORVA_SOURCE_DIR "/tools/renew-translations"), {copy});
    QVERIFY(tool.waitForFinished() && tool.exitCode() == 0);
    QCOMPARE(read(copy), read(sourceFile(language)));
    QVERIFY(!read(copy).contains(QLatin1String("type=")));
}

void TestTranslations::placesOfArgumentsAreKept_data()
{
    completeAndUpToDate_data();
}

void TestTranslations::placesOfArgumentsAreKept()
{
    QFETCH(QString, language);
    const QRegularExpression message(
        QStringLiteral("<source>(.*?)</source>\\s*<translation>(.*?)</translation>"));
    auto found = message.globalMatch(read(sourceFile(language)));
    int count = 0;
    for (; found.hasNext(); ++count) {
        const QRegularExpressionMatch match = found.next();
        QCOMPARE(places(match.captured(2)), places(match.captured(1)));
        QCOMPARE(match.captured(2).count(QLatin1String("&amp;")),
                 match.captured(1).count(QLatin1String("&amp;")));
    }
    QVERIFY(count > 50);
}

void TestTranslations::formsSpeakThem_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("apply");
    QTest::addColumn<QString>("autoApply");
    QTest::newRow("de") << QStringLiteral("de") << QStringLiteral("Anwenden")
                        << QStringLiteral("Automatisch anwenden");
    QTest::newRow("de_AT") << QStringLiteral("de_AT") << QStringLiteral("Anwenden")
                           << QStringLiteral("Automatisch anwenden");
    QTest::newRow("fr") << QStringLiteral("fr") << QStringLiteral("Appliquer")
                        << QStringLiteral("Appliquer automatiquement");
    QTest::newRow("it") << QStringLiteral("it") << QStringLiteral("Apply") << QStringLiteral("Auto Apply");
}

void TestTranslations::formsSpeakThem()
{
    QFETCH(QString, language);
    QFETCH(QString, apply);
    QFETCH(QString, autoApply);
    TranslationCenter::Instance().AddFolder(QStringLiteral(ZORVA_TRANSLATIONS));
    TranslationCenter::Instance().SetLocale(QLocale(language));
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(
        Orvane::ZorvaParser().ParseZORVA(QByteArray("<KVParamGui><Sheet name='s'/></KVParamGui>")));
    form->CreateValueTree(QStringLiteral("/test"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    QCOMPARE(window->findChild<QPushButton*>(QStringLiteral("applyButton"))->text(), apply);
    QCOMPARE(window->findChild<QCheckBox*>(QStringLiteral("autoApply"))->text(), autoApply);
    TranslationCenter::Instance().RemoveFolder(QStringLiteral(ZORVA_TRANSLATIONS));
}

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
