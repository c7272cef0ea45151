#include "damage.h"

#include <author/compatibility/overlaytrial.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

const char* const form = R"(<KVParamGui>
<Enums><Enum name="Modes">
<EnumValue><DisplayName>Wide</DisplayName><EnumIdentifier>M_FM</EnumIdentifier><Value>FM</Value></EnumValue>
<EnumValue><DisplayName>Narrow</DisplayName><EnumIdentifier>M_AM</EnumIdentifier><Value>AM</Value></EnumValue>
</Enum></Enums>
<Sheet name="station">
<Widget name="gain" class="SpinBox"><Property name="maximum"><Int>100</Int></Property>
<Property name="value"><Int>40</Int></Property><Property name="suffix"><String> dB</String></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="remark" class="LineEdit"><CustomProperties><Property name="note"><String>a</String></Property>
</CustomProperties></Widget>
</Sheet>
</KVParamGui>
)";

QByteArray overlay(const QByteArray& content)
{
    return "<KVParamGui>\n" + content + "\n</KVParamGui>\n";
}

QString changesOf(const OverlayTrial& trial)
{
    QStringList texts;
    for (const OverlayChange& change : trial.changes())
        texts.append(QStringLiteral("%1.%2 %3>%4 @%5")
                         .arg(change.row, change.name, change.before, change.after)
                         .arg(change.line));
    return texts.join(QLatin1String("; "));
}

QString lossesOf(const OverlayTrial& trial)
{
    QStringList texts;
    for (const OverlayLoss& loss : trial.losses())
        texts.append(QStringLiteral("%1 @%2").arg(loss.what).arg(loss.line));
    return texts.join(QLatin1String("; "));
}

} // namespace

/// What an overlay does to a live form, and what of it is lost.
class TestOverlayTrial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
    void losses_data();
    void losses();
    void enumerations();
    void scriptIsStored();
    void aScriptWithoutAnEndIsStopped_data();
    void aScriptWithoutAnEndIsStopped();
    void text();
    void anyDamageEnds();
};

void TestOverlayTrial::changes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("changes");
    const auto row = [](const char* name, const char* content, const char* changes) {
        QTest::newRow(name) << QByteArray(content) << QString::fromLatin1(changes);
    };
    row("nothing", "", "");
    row("a property",
        "<Sheet><Widget name=\"gain\"><Property name=\"suffix\"><String> "
        "V</String></Property></Widget></Sheet>",
        "gain.suffix  dB> V @2");
    row("one that it did not have",
        "<Sheet><Widget name=\"gain\"><Property "
        "name=\"toolTip\"><String>x</String></Property></Widget></Sheet>",
        "gain.toolTip >x @2");
    row("the same text",
        "<Sheet><Widget name=\"gain\"><Property name=\"suffix\"><String> "
        "dB</String></Property></Widget></Sheet>",
        "");
    row("a custom property",
        "<Sheet><Widget name=\"remark\">\n<CustomProperties><Property "
        "name=\"note\"><String>b</String></Property>"
        "</CustomProperties></Widget></Sheet>",
        "remark.note a>b @3");
    row("what follows",
        "<Sheet><Widget name=\"gain\"><Property name=\"value\"><Int>41</Int></Property></Widget></Sheet>",
        "gain.value 40>41 @2; gain. 40>41 @0");
    row("the sheet's own",
        "<Sheet><Properties><Property "
        "name=\"applyUiVisible\"><Bool>false</Bool></Property></Properties></Sheet>",
        "");
}

void TestOverlayTrial::changes()
{
    QFETCH(QByteArray, content);
    const OverlayTrial trial(form, overlay(content));
    QTEST(changesOf(trial), "changes");
}

void TestOverlayTrial::losses_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("losses");
    const auto row = [](const char* name, const char* content, const char* losses) {
        QTest::newRow(name) << QByteArray(content) << QString::fromLatin1(losses);
    };
    row("nothing", "<Sheet><Widget name=\"gain\"/></Sheet>", "");
    row("a row that is not there",
        "<Sheet>\n<Widget name=\"gian\"><Property name=\"suffix\"><String/></Property></Widget>\n"
        "<Widget name=\"remark\"/>\n</Sheet>\n<Script>1</Script>",
        "row `gian` @3; property `suffix` @3; row `remark` @4; the script @6");
    row("what stands before stays",
        "<Script>1</Script>\n<Sheet>\n<Widget name=\"gain\"/><Widget name=\"gian\"/>\n</Sheet>",
        "row `gian` @4");
    row("a property without a type",
        "<Sheet>\n<Widget name=\"gain\"><Property name=\"suffix\"/>\n<Property "
        "name=\"prefix\"><String/></Property>"
        "</Widget>\n<Widget name=\"remark\"/></Sheet>",
        "property `suffix` @3; property `prefix` @4; row `remark` @5");
    row("the sheet's own",
        "<Sheet>\n<Properties><Property name=\"a\"><String/></Property></Properties></Sheet>",
        "property `a` @3");
    row("not well-formed", "<Sheet><Widget name=\"gain\"></Sheet>\n<Script>1</Script>", "the script @3");
    row("an unknown element", "<Sheets>\n<Widget name=\"gain\"/></Sheets>", "row `gain` @3");
}

void TestOverlayTrial::losses()
{
    QFETCH(QByteArray, content);
    QTEST(lossesOf(OverlayTrial(form, overlay(content))), "losses");
}

// Scripts keep the identifiers of the first reading.
void TestOverlayTrial::enumerations()
{
    const OverlayTrial trial(
        form,
        overlay("<Enums><Enum name=\"Modes\"><EnumValue><DisplayName>Slim</DisplayName>"
                "<EnumIdentifier>M_AM</EnumIdentifier><Value>SLIM</Value></EnumValue></Enum>\n"
                "<Enum "
                "name=\"More\"><EnumValue><DisplayName>One</DisplayName><EnumIdentifier>ONE</EnumIdentifier>"
                "<Value>1</Value></EnumValue></Enum></Enums>"));
    QCOMPARE(trial.enumerations().size(), 2);
    const OverlayEnumeration& modes = trial.enumerations().first();
    QCOMPARE(modes.before, (QStringList{QStringLiteral("Wide (FM)"), QStringLiteral("Narrow (AM)")}));
    QCOMPARE(modes.after, QStringList{QStringLiteral("Slim (SLIM)")});
    QCOMPARE(modes.stale, (QStringList{QStringLiteral("M_FM = \"FM\""), QStringLiteral("M_AM = \"AM\"")}));
    const OverlayEnumeration& more = trial.enumerations().last();
    QVERIFY(more.isNew);
    QCOMPARE(more.line, 3);
    QCOMPARE(more.stale, QStringList());
}

void TestOverlayTrial::scriptIsStored()
{
    QCOMPARE(OverlayTrial(form, overlay("\n<Script>1</Script>")).scriptLine(), 3);
    QCOMPARE(OverlayTrial(form, overlay("")).scriptLine(), 0);
    QVERIFY(!OverlayTrial("nothing", overlay("")).exists());
}

void TestOverlayTrial::aScriptWithoutAnEndIsStopped_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<bool>("isStopped");
    QTest::newRow("at start") << QByteArray("while (true);") << true;
    QTest::newRow("when the overlay changes a property")
        << QByteArray("remark.textChanged.connect(function() { for (;;) {} });") << true;
    QTest::newRow("one that ends") << QByteArray("remark.textChanged.connect(function() {});") << false;
}

void TestOverlayTrial::aScriptWithoutAnEndIsStopped()
{
    QFETCH(QByteArray, code);
    QFETCH(bool, isStopped);
    constexpr int longest = 50;
    const QByteArray scripted =
        QByteArray(form).replace("</KVParamGui>", "<Script>" + code + "</Script></KVParamGui>");
    const OverlayTrial trial(scripted,
                             overlay("<Sheet><Widget name=\"remark\"><Property name=\"text\">"
                                     "<String>b</String></Property></Widget></Sheet>"),
                             longest);
    QCOMPARE(trial.wasStopped(), isStopped);
    QCOMPARE(changesOf(trial), QStringLiteral("remark.text >b @2; remark. >b @0"));
}

void TestOverlayTrial::text()
{
    const OverlayTrial trial(form, overlay("<Sheet>\n<Widget name=\"gain\"><Property "
                                           "name=\"suffix\"><String> V</String></Property></Widget>\n"
                                           "<Widget name=\"gian\"/>\n</Sheet>"));
    QCOMPARE(overlayText(QStringLiteral("o"), trial),
             QStringLiteral("o:3: gain, property suffix: \" dB\" -> \" V\"\n"
                            "o:4: lost: row `gian`: the form has no such row; all behind it is cut off\n"
                            "1 changes, 0 enumerations, 1 lost\n"));
    const QByteArray json = overlayJson(trial);
    for (const char* part : {"\"version\": 1", "\"row\": \"gain\"", "\"before\": \" dB\"",
                             "\"what\": \"row `gian`\"", "\"script\": 0", "\"line\": 4"})
        QVERIFY2(json.contains(part), json.constData());
}

// Whatever the overlay is, what is said to be lost left no trace, and what is not was taken.
void TestOverlayTrial::anyDamageEnds()
{
    const QString text = QString::fromLatin1(form);
    for (quint32 seed = 0; seed < 60; ++seed) {
        Damage damage(seed);
        const OverlayTrial trial(form, damage.apply(damage.apply(text)).toUtf8());
        QVERIFY(trial.exists());
    }
}

QTEST_MAIN(TestOverlayTrial)
#include "tst_overlaytrial.moc"
