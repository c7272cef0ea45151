#include <author/strings/tsfile.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

TsMessage message(const char* source, const char* translation = "",
                  TsMessage::State state = TsMessage::Unfinished)
{
    TsMessage result;
    result.context = QStringLiteral("row");
    result.source = QString::fromUtf8(source);
    result.translation = QString::fromUtf8(translation);
    result.state = state;
    return result;
}

QString stateNames(const TsFile& file)
{
    static const char* const names[] = {"finished", "unfinished", "vanished", "obsolete"};
    QStringList words;
    for (const TsMessage& each : file.messages)
        words << each.source + QLatin1Char(' ') + QLatin1String(names[each.state]) + QLatin1Char(' ') +
                     each.translation;
    return words.join(QLatin1String(", "));
}

const QByteArray text = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
    <context>
        <name>row</name>
        <message>
            <location filename="form.zorva" line="7"/>
            <source>Volume &amp; tone</source>
            <translatorcomment>of the loudspeaker</translatorcomment>
            <translation>Lautstärke</translation>
        </message>
        <message>
            <source>Old</source>
            <translation type="vanished">Alt</translation>
        </message>
    </context>
</TS>
)";

} // namespace

Q_DECLARE_METATYPE(Orvane::Author::TsMessage::State)

/// Files of translations are read, brought up to date and written.
class TestTsFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsReadIsWritten();
    void updating_data();
    void updating();
    void whatElseStandsInAMessageStays();
    void openPointsAreTold();
    void languages_data();
    void languages();
    void damage_data();
    void damage();
};

void TestTsFile::whatIsReadIsWritten()
{
    const TsFile file = readTs(text);
    QCOMPARE(file.problem, QString());
    QCOMPARE(file.language, QStringLiteral("de"));
    QCOMPARE(file.messages.size(), 2);
    QCOMPARE(file.messages.first().source, QStringLiteral("Volume & tone"));
    QCOMPARE(file.messages.first().places.first().second, 7);
    QCOMPARE(writeTs(file), text);
}

void TestTsFile::updating_data()
{
    QTest::addColumn<TsMessage::State>("state");
    QTest::addColumn<QString>("translation");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, TsMessage::State state, const char* translation, bool wanted,
                        const char* expected) {
        QTest::newRow(name) << state << QString::fromUtf8(translation) << wanted
                            << QString::fromUtf8(expected);
    };
    row("translated stays", TsMessage::Finished, "eins", true, "one finished eins");
    row("begun stays", TsMessage::Unfinished, "ei", true, "one unfinished ei");
    row("translated and gone", TsMessage::Finished, "eins", false, "one vanished eins");
    row("begun and gone", TsMessage::Unfinished, "ei", false, "one obsolete ei");
    row("never begun and gone", TsMessage::Unfinished, "", false, "");
    row("gone before", TsMessage::Vanished, "eins", false, "one vanished eins");
    row("back again", TsMessage::Vanished, "eins", true, "one finished eins");
    row("back again, not finished", TsMessage::Obsolete, "ei", true, "one unfinished ei");
}

void TestTsFile::updating()
{
    QFETCH(TsMessage::State, state);
    QFETCH(QString, translation);
    QFETCH(bool, wanted);
    QFETCH(QString, expected);
    TsFile file;
    file.messages = {message("one", translation.toUtf8().constData(), state)};
    const QVector<TsMessage> texts = wanted ? QVector<TsMessage>{message("one")} : QVector<TsMessage>();
    const TsFile updated = updatedTs(file, texts);
    QCOMPARE(stateNames(updated), expected);
    QCOMPARE(stateNames(updatedTs(updated, texts)), expected);
}

void TestTsFile::whatElseStandsInAMessageStays()
{
    TsFile file = readTs(text);
    TsMessage wanted = message("Volume & tone");
    wanted.places = {{QStringLiteral("form.zorva"), 9}};
    const TsFile updated = updatedTs(file, {wanted, message("New")});
    QCOMPARE(stateNames(updated), QString::fromUtf8("Volume & tone finished Lautstärke, New unfinished , "
                                                    "Old vanished Alt"));
    const QByteArray written = writeTs(updated);
    QVERIFY(written.contains("<translatorcomment>of the loudspeaker</translatorcomment>"));
    QVERIFY(written.contains("line=\"9\"") && !written.contains("line=\"7\""));
}

void TestTsFile::openPointsAreTold()
{
    TsFile file;
    file.messages = {message("done", "x", TsMessage::Finished), message("begun", "x"),
                     message("away", "x", TsMessage::Finished),
                     message("long gone", "x", TsMessage::Vanished),
                     message("back", "x", TsMessage::Vanished)};
    QCOMPARE(openPoints(file, {message("done"), message("begun"), message("new"), message("back")}),
             QStringList({QStringLiteral("row: \"begun\" is not translated"),
                          QStringLiteral("row: \"new\" is not in the file"),
                          QStringLiteral("row: \"back\" is not in the file"),
                          QStringLiteral("row: \"away\" is in no form any more")}));
    QCOMPARE(openPoints(updatedTs(TsFile(), {}), {}), QStringList());
}

void TestTsFile::languages_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("receiver_de.ts") << QStringLiteral("de");
    QTest::newRow("my_receiver_pt_BR.ts") << QStringLiteral("pt_BR");
    QTest::newRow("receiver.ts") << QString();
    QTest::newRow("receiver_zz.ts") << QString();
    QTest::newRow("-") << QString();
}

void TestTsFile::languages()
{
    QFETCH(QString, language);
    QCOMPARE(languageOfFile(QString::fromLatin1(QTest::currentDataTag())), language);
}

void TestTsFile::damage_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("something else") << QByteArray("<form/>");
    QTest::newRow("cut off") << text.left(300);
}

void TestTsFile::damage()
{
    QFETCH(QByteArray, xml);
    QVERIFY(!readTs(xml).problem.isEmpty());
}

QTEST_APPLESS_MAIN(TestTsFile)
#include "tst_tsfile.moc"
