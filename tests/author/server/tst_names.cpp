#include "forms.h"
#include "servertalk.h"

#include <QTest>

namespace {

QString errorOf(const QJsonObject& answer)
{
    return answer.value(QStringLiteral("error")).toObject().value(QStringLiteral("message")).toString();
}

} // namespace

/// Names that are written in several places: where they are made, where they are used, and other names for
/// them.
class TestNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_talk.open(smallForm()); }
    void definitions_data();
    void definitions();
    void references_data();
    void references();
    void highlights();
    void rename_data();
    void rename();
    void renameIsRefused_data();
    void renameIsRefused();
    void preparation();
    void renameInScriptsThatAreEscaped();

private:
    QStringList linesOf(const QJsonValue& locations) const;
    QJsonObject askRename(int place, const QString& name);

    ServerTalk m_talk;
};

void TestNames::initTestCase()
{
    const QJsonObject capabilities = m_talk.initialize(
        {{QStringLiteral("textDocument"),
          QJsonObject{{QStringLiteral("rename"), QJsonObject{{QStringLiteral("prepareSupport"), true}}}}}});
    QVERIFY(capabilities.value(QStringLiteral("renameProvider")).isObject());
}

/// "LINE: TEXT" for each location, the text being what stands there.
QStringList TestNames::linesOf(const QJsonValue& locations) const
{
    QStringList found;
    const QStringList lines = m_talk.text().split(QLatin1Char('\n'));
    const QJsonArray array = locations.toArray();
    for (const QJsonValue& value : array) {
        const QJsonObject range = value.toObject().value(QStringLiteral("range")).toObject();
        const QJsonObject begin = range.value(QStringLiteral("start")).toObject();
        const int line = begin.value(QStringLiteral("line")).toInt();
        const int from = begin.value(QStringLiteral("character")).toInt();
        const int to =
            range.value(QStringLiteral("end")).toObject().value(QStringLiteral("character")).toInt();
        found.append(
            QStringLiteral("%1: %2").arg(lines.at(line).trimmed(), lines.at(line).mid(from, to - from)));
    }
    return found;
}

void TestNames::definitions_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QStringList>("places");
    const auto row = [](const char* title, const char* where, const char* mark, const char* place) {
        QTest::newRow(title) << QString::fromUtf8(where) << QString::fromUtf8(mark)
                             << QString::fromUtf8(place).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("an enumeration of a row", "<String>Modes</String>", "odes", "<Enum name=\"Modes\">: Modes");
    row("an enumeration in the script", "Modes.MODE", "odes", "<Enum name=\"Modes\">: Modes");
    row("an identifier in the script", ".MODE_FM", "ODE",
        "<EnumIdentifier>MODE_FM</EnumIdentifier>: MODE_FM");
    row("an entry of a row", "<String>AM</String>", "AM", "<Value>AM</Value>: AM");
    row("a row in the script", "gain.setMaximum", "gain", "<Widget name=\"gain\" class=\"SpinBox\">: gain");
    row("behind a row in the script", "gain.setMaximum", ".setMaximum",
        "<Widget name=\"gain\" class=\"SpinBox\">: gain");
    row("a row in a path", "Level/gain", "ain", "<Widget name=\"gain\" class=\"SpinBox\">: gain");
    row("another part of the path", "Level/gain", "evel", "");
    row("a row at its own place", "name=\"gain\"", "ain\"", "<Widget name=\"gain\" class=\"SpinBox\">: gain");
    row("a function of the script", "connect(follow)", "ollow", "function follow(value) {: follow");
    row("a variable that hides a row", "print(gain)", "ain)", "var gain = 3; // no row: gain");
    row("a key", "{ gain: 1 }", "ain", "");
    row("a member of something else", "table.gain", "gain", "");
    row("a text of the script", "\"gain\");", "ain", "");
    row("a slot", "setMaximum", "etM", "");
    row("an element", "<Sheet", "heet", "");
}

void TestNames::definitions()
{
    QFETCH(QString, where);
    QFETCH(QString, mark);
    QFETCH(QStringList, places);
    const int place = placeOf(m_talk.text(), where.toUtf8().constData(), mark.toUtf8().constData());
    QVERIFY(place >= 0);
    QCOMPARE(linesOf(m_talk.askAt("textDocument/definition", place)), places);
}

void TestNames::references_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QStringList>("places");
    const auto row = [](const char* title, const char* where, const char* mark, const char* place) {
        QTest::newRow(title) << QString::fromUtf8(where) << QString::fromUtf8(mark)
                             << QString::fromUtf8(place).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("a row", "name=\"gain\"", "ain\"",
        "<Property name=\"parameterXmlTag\"><String>Level/gain</String></Property>: "
        "gain|gain.setMaximum(20);: gain");
    row("an enumeration", "Modes.MODE", "odes",
        "<Property name=\"enumName\"><String>Modes</String></Property>: Modes|"
        "mode.setEnabled(value == Modes.MODE_FM);: Modes");
    row("an identifier", "<EnumIdentifier>MODE_FM", "ODE_FM",
        "mode.setEnabled(value == Modes.MODE_FM);: MODE_FM");
    row("an argument", "function follow(value)", "alue", "mode.setEnabled(value == Modes.MODE_FM);: value");
    row("nothing", "A tuner", "uner", "");
}

void TestNames::references()
{
    QFETCH(QString, where);
    QFETCH(QString, mark);
    QFETCH(QStringList, places);
    const int place = placeOf(m_talk.text(), where.toUtf8().constData(), mark.toUtf8().constData());
    const auto ask = [&](bool with) {
        return linesOf(m_talk.askAt(
            "textDocument/references", place,
            {{QStringLiteral("context"), QJsonObject{{QStringLiteral("includeDeclaration"), with}}}}));
    };
    QCOMPARE(ask(false), places);
    QCOMPARE(ask(true).size(), places.isEmpty() ? 0 : places.size() + 1);
}

void TestNames::highlights()
{
    const QJsonArray found =
        m_talk.askAt("textDocument/documentHighlight", placeOf(m_talk.text(), "gain.setMaximum", "gain"))
            .toArray();
    QCOMPARE(found.size(), 3);
    QCOMPARE(found.first().toObject().value(QStringLiteral("kind")).toInt(), 3);
    QCOMPARE(found.last().toObject().value(QStringLiteral("kind")).toInt(), 2);
}

QJsonObject TestNames::askRename(int place, const QString& name)
{
    return m_talk.ask(
        "textDocument/rename",
        QJsonObject{{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}},
                    {QStringLiteral("position"), m_talk.position(place)},
                    {QStringLiteral("newName"), name}});
}

void TestNames::rename_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("changes"); // old and new texts in turn
    const auto row = [](const char* title, const char* where, const char* mark, const char* name,
                        const char* changes) {
        QTest::newRow(title) << QString::fromUtf8(where) << QString::fromUtf8(mark) << QString::fromUtf8(name)
                             << QString::fromUtf8(changes).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("a row, and not its path", "name=\"gain\"", "ain\"", "level",
        "name=\"gain\"|name=\"level\"|gain.setMaximum|level.setMaximum");
    row("a row from the script", "gain.setMaximum", "gain", "level",
        "name=\"gain\"|name=\"level\"|gain.setMaximum|level.setMaximum");
    row("a row with letters of two units", "gain.setMaximum", "gain",
        "gr\xc3\xb6\xc3\x9f"
        "e",
        "name=\"gain\"|name=\"gr\xc3\xb6\xc3\x9f"
        "e\"|gain.setMaximum|gr\xc3\xb6\xc3\x9f"
        "e.setMaximum");
    row("an enumeration", "name=\"Modes\"", "odes", "Kinds",
        "name=\"Modes\"|name=\"Kinds\"|<String>Modes|<String>Kinds|Modes.MODE|Kinds.MODE");
    row("a row that the script does not know", "name=\"head\"", "ead", "a & \"b\"",
        "name=\"head\"|name=\"a &amp; &quot;b&quot;\"");
    row("the sheet", "name=\"tuner\"", "uner", "radio", "name=\"tuner\"|name=\"radio\"");
    row("an identifier", "MODE_FM</", "ODE", "BROAD", "MODE_FM</|BROAD</|Modes.MODE_FM|Modes.BROAD");
    row("a function", "function follow", "ollow", "obey",
        "function follow|function obey|connect(follow|connect(obey");
    row("the same name", "name=\"gain\"", "ain\"", "gain", "");
}

void TestNames::rename()
{
    QFETCH(QString, where);
    QFETCH(QString, mark);
    QFETCH(QString, name);
    QFETCH(QStringList, changes);
    const int place = placeOf(m_talk.text(), where.toUtf8().constData(), mark.toUtf8().constData());
    const QJsonObject answer = askRename(place, name);
    QCOMPARE(errorOf(answer), QString());
    QString expected = m_talk.text();
    for (int i = 0; i + 1 < changes.size(); i += 2) {
        QCOMPARE(expected.count(changes.at(i)), 1);
        expected.replace(changes.at(i), changes.at(i + 1));
    }
    QCOMPARE(m_talk.edited(ServerTalk::editsOf(answer.value(QStringLiteral("result")))), expected);
}

void TestNames::renameIsRefused_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* title, const char* where, const char* mark, const char* name,
                        const char* message) {
        QTest::newRow(title) << QString::fromUtf8(where) << QString::fromUtf8(mark) << QString::fromUtf8(name)
                             << QString::fromUtf8(message);
    };
    row("nothing there", "A tuner", "uner", "x", "nothing here has a name");
    row("no name", "name=\"gain\"", "ain\"", " ", "no name");
    row("a line end", "name=\"gain\"", "ain\"", "a\nb", "no name");
    row("another row's name", "name=\"gain\"", "ain\"", "mode", "there is a `mode` already");
    row("an enumeration's name", "name=\"gain\"", "ain\"", "Modes", "there is a `Modes` already");
    row("a name of the language", "name=\"gain\"", "ain\"", "Math", "there is a `Math` already");
    row("no name for a script", "name=\"gain\"", "ain\"", "my gain", "is no name for a script");
    row("a word of the language", "name=\"gain\"", "ain\"", "while", "is no name for a script");
    row("a name of the script", "name=\"gain\"", "ain\"", "table", "has a `table` of its own");
    row("an argument where it is used", "name=\"mode\"", "ode\"", "value", "has a `value` of its own");
    row("another identifier", "MODE_FM</", "ODE", "MODE_AM", "there is a `MODE_AM` already");
    row("a value", "<Value>FM", "FM", "X", "stored settings know the value");
    row("an enumeration that is nowhere", "<String>Nowhere</String>", "owhere", "X",
        "nothing is called `Nowhere`");
    row("two rows of one name", "name=\"twin\" class=\"Label\"", "win", "x", "is there 2 times");
}

void TestNames::renameIsRefused()
{
    QFETCH(QString, where);
    QFETCH(QString, mark);
    QFETCH(QString, name);
    QFETCH(QString, message);
    QString text = smallForm();
    text.replace(
        QStringLiteral("  </Sheet>"),
        QStringLiteral("<Widget name=\"twin\" class=\"Label\"/><Widget name=\"twin\" class=\"ComboBox\">"
                       "<Property name=\"enumName\"><String>Nowhere</String></Property></Widget></Sheet>"));
    m_talk.open(text);
    const int place = placeOf(text, where.toUtf8().constData(), mark.toUtf8().constData());
    const QJsonObject answer = askRename(place, name);
    QVERIFY2(errorOf(answer).contains(message), qPrintable(errorOf(answer)));
    QVERIFY(!answer.contains(QStringLiteral("result")));
}

void TestNames::preparation()
{
    const int place = placeOf(m_talk.text(), "gain.setMaximum", "gain");
    const QJsonObject prepared = m_talk.askAt("textDocument/prepareRename", place + 2).toObject();
    QCOMPARE(prepared.value(QStringLiteral("placeholder")).toString(), QStringLiteral("gain"));
    QCOMPARE(prepared.value(QStringLiteral("range")).toObject().value(QStringLiteral("start")).toObject(),
             m_talk.position(place));
    QVERIFY(m_talk.askAt("textDocument/prepareRename", 3).isUndefined());
}

void TestNames::renameInScriptsThatAreEscaped()
{
    const QString text =
        QStringLiteral("<KVParamGui><Sheet name='s'><Widget name='gain' class='SpinBox'/></Sheet>"
                       "<Script>if (1 &lt; 2 &amp;&amp; gain.value) {\r\n gain.setValue(&#49;); }"
                       "<![CDATA[ gain.x(); ]]></Script></KVParamGui>");
    m_talk.open(text);
    const QJsonObject answer = askRename(text.indexOf(QStringLiteral("gain")), QStringLiteral("it"));
    QCOMPARE(m_talk.edited(ServerTalk::editsOf(answer.value(QStringLiteral("result")))),
             QString(text).replace(QStringLiteral("gain"), QStringLiteral("it")));
}

QTEST_GUILESS_MAIN(TestNames)
#include "tst_names.moc"
