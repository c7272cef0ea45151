#include "forms.h"
#include "servertalk.h"

#include <QTest>

/// What is told about the thing under the cursor.
class TestHover : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hover_data();
    void hover();
    void rangeIsThatOfTheWord();
    void plainTextForPlainEditors();
    void anywhere();

private:
    ServerTalk m_talk;
};

void TestHover::initTestCase()
{
    m_talk.initialize(
        {{QStringLiteral("textDocument"),
          QJsonObject{{QStringLiteral("hover"), QJsonObject{{QStringLiteral("contentFormat"),
                                                             QJsonArray{QStringLiteral("markdown")}}}}}}});
}

void TestHover::hover_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QStringList>("told"); // nothing at all if empty
    const auto row = [](const char* title, const char* where, const char* mark, const char* told) {
        QTest::newRow(title) << QString::fromUtf8(where) << QString::fromUtf8(mark)
                             << QString::fromUtf8(told).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("an element", "<Sheet name", "heet", "**Sheet**: the one sheet");
    row("an end tag", "</Sheet>", "heet", "**Sheet**");
    row("an attribute", "<Widget name=\"gain\" class", "ame=", "**name**: name of the row");
    row("a class", "class=\"SpinBox\"", "pin", "**SpinBox**: A whole number|Parameter XML");
    row("the name of a row", "name=\"gain\"", "ain\"",
        "**gain**: SpinBox, \"Gain\"|Parameter XML: `Level/gain`");
    row("the name of an enumeration", "name=\"Modes\"", "odes", "Broad (`MODE_FM`): `FM`|Used by `mode`");
    row("a property with effect, type and unit", "\"maximum\"", "axi",
        "**maximum** (`Int`): upper limit|Unit: display units|Effective: `30`");
    row("a property with a default", "\"generateParameterXml\"", "ara", "Default: false|Effective: `true`");
    row("a number beyond its limit", "<Int>40</Int>", "40", "Effective: `30`, the upper limit");
    row("a truth that is none", "<Bool>TRUE</Bool>", "TRUE", "Effective: `false`");
    row("a type", "<Int>40</Int>", "nt>", "**Int**");
    row("a choice", "<String>AM</String>", "AM", "Effective: `AM`, shown as \"Narrow\"");
    row("an enumeration of a row", "<String>Modes</String>", "odes", "Narrow (`MODE_AM`): `AM`");
    row("what the script sets", "<Property name=\"maximum\">", "imum", "until the script sets it");
    row("a part of an entry", "<Value>FM</Value>", "FM", "**Value**");
    row("a row in the script", "gain.setMaximum", "ain", "**gain**: SpinBox");
    row("a slot", "gain.setMaximum", "etMax", "**setMaximum(value)** (slot)");
    row("a signal", "mode.currentValueChanged", "rrent", "(signal)");
    row("an enumeration in the script", "Modes.MODE_FM", "odes", "Broad (`MODE_FM`)");
    row("an identifier", "Modes.MODE_FM", "ODE_FM", "`FM`, shown as \"Broad\"");
    row("a function of the language", "print(\"gain\")", "rint", "**print(text)**");
    row("a variable that hides a row", "print(gain)", "ain)", "");
    row("a comment", "A tuner", "uner", "");
    row("the declaration", "<?xml", "xml", "");
    row("between rows", "</Widget>\n    <Widget name=\"mode\"", "  <Widget", "");
}

void TestHover::hover()
{
    QFETCH(QString, where);
    QFETCH(QString, mark);
    QFETCH(QStringList, told);
    m_talk.open(smallForm());
    const int place = placeOf(smallForm(), where.toUtf8().constData(), mark.toUtf8().constData());
    QVERIFY(place >= 0);
    const QString text =
        textOfMarkup(m_talk.askAt("textDocument/hover", place).toObject().value(QStringLiteral("contents")));
    for (const QString& part : told)
        QVERIFY2(text.contains(part), qPrintable(text));
    if (told.isEmpty())
        QCOMPARE(text, QString());
}

void TestHover::rangeIsThatOfTheWord()
{
    m_talk.open(smallForm());
    const int place = placeOf(smallForm(), "gain.setMaximum", "etMaximum");
    const QJsonObject range =
        m_talk.askAt("textDocument/hover", place).toObject().value(QStringLiteral("range")).toObject();
    QCOMPARE(range.value(QStringLiteral("start")).toObject(), m_talk.position(place - 1));
    QCOMPARE(range.value(QStringLiteral("end")).toObject(), m_talk.position(place + 9));
}

void TestHover::plainTextForPlainEditors()
{
    ServerTalk talk;
    talk.initialize();
    talk.open(smallForm());
    const QJsonObject contents =
        talk.askAt("textDocument/hover", placeOf(smallForm(), "class=\"SpinBox\"", "pin"))
            .toObject()
            .value(QStringLiteral("contents"))
            .toObject();
    QCOMPARE(contents.value(QStringLiteral("kind")).toString(), QStringLiteral("plaintext"));
    QVERIFY(
        contents.value(QStringLiteral("value")).toString().startsWith(QStringLiteral("SpinBox: A whole")));
}

void TestHover::anywhere()
{
    m_talk.open(smallForm());
    for (int place = 0; place <= smallForm().size(); place += 17) {
        const QJsonValue hover = m_talk.askAt("textDocument/hover", place);
        QVERIFY2(hover.isNull() || hover.isObject(), qPrintable(QString::number(place)));
    }
}

QTEST_GUILESS_MAIN(TestHover)
#include "tst_hover.moc"
