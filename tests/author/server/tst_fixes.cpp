#include "forms.h"
#include "servertalk.h"

#include <QTest>

namespace {

QJsonObject abilities()
{
    return {{QStringLiteral("textDocument"),
             QJsonObject{{QStringLiteral("codeAction"),
                          QJsonObject{{QStringLiteral("codeActionLiteralSupport"), QJsonObject()}}}}}};
}

} // namespace

/// What can be done about a finding, and layout.
class TestFixes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_talk.initialize(abilities()); }
    void nearMisses_data();
    void nearMisses();
    void permission();
    void errorsAreNotAllowed();
    void rightBehindAChange();
    void onlyWhatIsAskedFor();
    void layout_data();
    void layout();
    void layoutOfWhatIsBroken();
    void layoutKeepsWhatItNeedNotTouch();

private:
    QJsonArray actionsAt(int place, const QJsonObject& context = QJsonObject());
    QJsonObject action(int place, const QString& title);

    ServerTalk m_talk;
};

QJsonArray TestFixes::actionsAt(int place, const QJsonObject& context)
{
    const QJsonObject position = m_talk.position(place);
    return m_talk
        .ask("textDocument/codeAction",
             QJsonObject{
                 {QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}},
                 {QStringLiteral("range"),
                  QJsonObject{{QStringLiteral("start"), position}, {QStringLiteral("end"), position}}},
                 {QStringLiteral("context"), context}})
        .value(QStringLiteral("result"))
        .toArray();
}

QJsonObject TestFixes::action(int place, const QString& title)
{
    const QJsonArray actions = actionsAt(place);
    for (const QJsonValue& candidate : actions) {
        if (candidate.toObject().value(QStringLiteral("title")).toString() == title)
            return candidate.toObject();
    }
    return QJsonObject();
}

void TestFixes::nearMisses_data()
{
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, const char* right, const char* wrong, const char* mark,
                        const char* name) {
        QTest::newRow(title) << QString::fromUtf8(right) << QString::fromUtf8(wrong)
                             << QString::fromUtf8(mark) << QString::fromUtf8(name);
    };
    row("a property", "<Property name=\"labelText\"><String>Gain",
        "<Property name=\"labeltext\"><String>Gain", "beltext", "labelText");
    row("a class", "class=\"SpinBox\"", "class=\"Spinbox\"", "pinbox", "SpinBox");
    row("an attribute", "<Widget name=\"gain\" class", "<Widget name=\"gain\" clas", "clas", "class");
    row("an element with its end tag", "<Value>FM</Value>", "<Valeu>FM</Valeu>", "aleu", "Value");
    row("a type with its end tag", "<Int>40</Int>", "<Imt>40</Imt>", "Imt", "Int");
    row("an enumeration", "<String>Modes</String>", "<String>Mode</String>", "ode<", "Modes");
    row("a truth", "<Bool>TRUE</Bool>", "<Bool>True</Bool>", "rue", "true");
    row("a row in the script", "gain.setMaximum", "gian.setMaximum", "ian", "gain");
    row("a slot", "mode.setEnabled", "mode.setenabled", "etena", "setEnabled");
}

void TestFixes::nearMisses()
{
    QFETCH(QString, right);
    QFETCH(QString, wrong);
    QFETCH(QString, mark);
    QFETCH(QString, name);
    const QString good =
        smallForm().replace(QStringLiteral("<Bool>TRUE</Bool>"), QStringLiteral("<Bool>true</Bool>"));
    right.replace(QStringLiteral("TRUE"), QStringLiteral("true"));
    QVERIFY(good.contains(right));
    const int begin = good.indexOf(right);
    QString bad = good;
    bad.replace(begin, right.size(), wrong);
    m_talk.open(bad);
    m_talk.diagnostics();
    const QJsonObject fix = action(begin + wrong.indexOf(mark), QStringLiteral("Change to %1").arg(name));
    QVERIFY(!fix.isEmpty());
    QCOMPARE(fix.value(QStringLiteral("kind")).toString(), QStringLiteral("quickfix"));
    QCOMPARE(fix.value(QStringLiteral("diagnostics")).toArray().size(), 1);
    QCOMPARE(m_talk.edited(ServerTalk::editsOf(fix.value(QStringLiteral("edit")))), good);
}

// What is allowed is not found any more.
void TestFixes::permission()
{
    m_talk.open(smallForm());
    const int before = m_talk.diagnostics().size();
    const QJsonObject allow =
        action(placeOf(smallForm(), "<Bool>TRUE", "TRUE"), QStringLiteral("Allow bool-text here"));
    QVERIFY(!allow.isEmpty());
    const QString text = m_talk.edited(ServerTalk::editsOf(allow.value(QStringLiteral("edit"))));
    QVERIFY(text.contains(QStringLiteral("\n      <!-- zorva: allow bool-text it is meant so -->\n      "
                                         "<Property name=\"enabled\"><Bool>TRUE")));
    m_talk.open(text);
    QCOMPARE(m_talk.diagnostics().size(), before - 1);
}

void TestFixes::errorsAreNotAllowed()
{
    const QString text =
        smallForm().replace(QStringLiteral("class=\"SpinBox\""), QStringLiteral("class=\"Nonsense\""));
    m_talk.open(text);
    const QJsonArray actions = actionsAt(text.indexOf(QStringLiteral("Nonsense")));
    for (const QJsonValue& candidate : actions)
        QVERIFY(candidate.toObject().value(QStringLiteral("title")) !=
                QStringLiteral("Allow unknown-class here"));
}

void TestFixes::rightBehindAChange()
{
    ServerTalk talk(60000); // nothing is checked by itself
    talk.initialize(abilities());
    talk.open(smallForm());
    const QString text = smallForm().replace(QStringLiteral("SpinBox"), QStringLiteral("Spinbox"));
    talk.change({QJsonObject{{QStringLiteral("text"), text}}});
    const QJsonObject position = talk.position(text.indexOf(QStringLiteral("Spinbox")));
    const QJsonArray actions =
        talk.ask("textDocument/codeAction",
                 QJsonObject{{QStringLiteral("textDocument"),
                              QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}},
                             {QStringLiteral("range"), QJsonObject{{QStringLiteral("start"), position},
                                                                   {QStringLiteral("end"), position}}}})
            .value(QStringLiteral("result"))
            .toArray();
    QCOMPARE(actions.first().toObject().value(QStringLiteral("title")).toString(),
             QStringLiteral("Change to SpinBox"));
}

void TestFixes::onlyWhatIsAskedFor()
{
    m_talk.open(smallForm());
    m_talk.diagnostics();
    const int place = placeOf(smallForm(), "<Bool>TRUE", "TRUE");
    const auto only = [](const char* kind) {
        return QJsonObject{{QStringLiteral("only"), QJsonArray{QLatin1String(kind)}}};
    };
    QVERIFY(!actionsAt(place, only("quickfix")).isEmpty());
    QVERIFY(actionsAt(place, only("refactor")).isEmpty());
    QVERIFY(actionsAt(0).isEmpty());
}

void TestFixes::layout_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("laidOut");
    QTest::newRow("already laid out")
        << QStringLiteral("<KVParamGui version=\"1.0\">\n</KVParamGui>\n") << QString();
    QTest::newRow("without lines") << QStringLiteral(
                                          "<KVParamGui  version=\"1.0\"><Sheet   name=\"a\"/></KVParamGui>")
                                   << QString();
    QTest::newRow("with line ends of two")
        << QStringLiteral("<KVParamGui>\r\n<Sheet name=\"a\"/>\r\n</KVParamGui>\r\n") << QString();
}

void TestFixes::layout()
{
    QFETCH(QString, text);
    m_talk.open(text);
    const QJsonObject params{
        {QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}},
        {QStringLiteral("options"), QJsonObject{{QStringLiteral("tabSize"), 8}}}};
    const QJsonArray edits =
        m_talk.ask("textDocument/formatting", params).value(QStringLiteral("result")).toArray();
    const QString laidOut = m_talk.edited(edits);
    m_talk.open(laidOut);
    QCOMPARE(m_talk.ask("textDocument/formatting", params).value(QStringLiteral("result")).toArray(),
             QJsonArray());
    QString plain = laidOut;
    QCOMPARE(plain.remove(QLatin1Char(' ')).remove(QLatin1Char('\r')).remove(QLatin1Char('\n')),
             QString(text).remove(QLatin1Char(' ')).remove(QLatin1Char('\r')).remove(QLatin1Char('\n')));
    QVERIFY(laidOut.count(QLatin1Char('\n')) >= 2 || !text.contains(QStringLiteral("Sheet")));
}

void TestFixes::layoutOfWhatIsBroken()
{
    m_talk.open(QStringLiteral("<KVParamGui>\n<Sheet>\n</KVParamGui>"));
    const QJsonObject error = m_talk
                                  .ask("textDocument/formatting",
                                       QJsonObject{{QStringLiteral("textDocument"),
                                                    QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}}})
                                  .value(QStringLiteral("error"))
                                  .toObject();
    QVERIFY(error.value(QStringLiteral("message")).toString().endsWith(QStringLiteral("left as it is")));
}

// One line that is out of place is one edit, so that the cursor stays where it is.
void TestFixes::layoutKeepsWhatItNeedNotTouch()
{
    const QString text = smallForm().replace(QStringLiteral("\n    <Widget name=\"mode\""),
                                             QStringLiteral("\n <Widget name=\"mode\""));
    m_talk.open(text);
    const QJsonArray edits = m_talk
                                 .ask("textDocument/formatting",
                                      QJsonObject{{QStringLiteral("textDocument"),
                                                   QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}}})
                                 .value(QStringLiteral("result"))
                                 .toArray();
    QCOMPARE(edits.size(), 1);
    QCOMPARE(m_talk.edited(edits), smallForm());
}

QTEST_GUILESS_MAIN(TestFixes)
#include "tst_fixes.moc"
