#include "damage.h"

#include <author/compatibility/comparison.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

/// A form whose texts can each be put another way.
const char* const plain = R"(<KVParamGui>
<Enums><Enum name="Modes">
<EnumValue><DisplayName>Wide</DisplayName><EnumIdentifier>M_FM</EnumIdentifier><Value>FM</Value></EnumValue>
<EnumValue><DisplayName>Narrow</DisplayName><EnumIdentifier>M_AM</EnumIdentifier><Value>AM</Value></EnumValue>
</Enum></Enums>
<Sheet name="station">
<Properties><Property name="parametersXmlRootTag"><String>Parameters</String></Property></Properties>
<Widget name="mode" class="ComboBox"><Property name="enumName"><String>Modes</String></Property>
<Property name="currentValue"><String>FM</String></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="gain" class="SpinBox"><Property name="minimum"><Int>0</Int></Property>
<Property name="maximum"><Int>100</Int></Property><Property name="value"><Int>40</Int></Property>
<Property name="unit"><String>dB</String></Property>
<Property name="parameterXmlTag"><String>Level/Gain</String></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="width" class="BandwidthEdit"><Property name="unitScale"><Int>1000</Int></Property>
<Property name="maximum"><Int64>500000</Int64></Property><Property name="value"><Int64>1000</Int64></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="mute" class="CheckBox"><Property name="checkedValue"><String>on</String></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="remark" class="LineEdit"><Property name="maxLength"><Int>40</Int></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
<Widget name="level" class="DoubleSpinBox"><Property name="decimals"><Int>2</Int></Property>
<Property name="maximum"><Double>9</Double></Property>
<Property name="generateParameterXml"><Bool>true</Bool></Property></Widget>
</Sheet>
<Script>var table = { a: 1 }; function follow() {}</Script>
</KVParamGui>
)";

QString told(const QByteArray& before, const QByteArray& after)
{
    QStringList ids;
    for (const FormChange& change : compareForms(FormInventory(before), FormInventory(after)))
        ids.append(QLatin1String(change.breaking ? "!" : "") + change.id);
    return ids.join(QLatin1Char(' '));
}

} // namespace

/// What a new form takes from those who rely on an old one.
class TestComparison : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plantedChanges_data();
    void plantedChanges();
    void nothingChanged_data();
    void nothingChanged();
    void places();
    void reports();
};

void TestComparison::plantedChanges_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("there"); // "!" before what breaks
    QTest::addColumn<QString>("back");
    const auto row = [](const char* name, const char* from, const char* to, const char* there,
                        const char* back) {
        QTest::newRow(name) << QByteArray(from) << QByteArray(to) << QString::fromLatin1(there)
                            << QString::fromLatin1(back);
    };
    row("row gone",
        "<Widget name=\"remark\" class=\"LineEdit\"><Property name=\"maxLength\"><Int>40</Int></Property>\n"
        "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property></Widget>\n",
        "", "!row-gone", "row-added");
    row("path moved", "Level/Gain", "Amplifier/Gain", "!path-moved", "!path-moved");
    row("row renamed in its place", "<Widget name=\"gain\"", "<Widget name=\"amplification\"",
        "!script-object-gone", "!script-object-gone");
    row("no longer sent",
        "<Int>40</Int></Property>\n<Property name=\"generateParameterXml\"><Bool>true</Bool>",
        "<Int>40</Int></Property>\n<Property name=\"generateParameterXml\"><Bool>false</Bool>",
        "!no-longer-sent", "newly-sent");
    row("class changed", "name=\"gain\" class=\"SpinBox\"", "name=\"gain\" class=\"LineEdit\"",
        "!class-changed default-changed", "!class-changed default-changed");
    row("class of another name", "class=\"BandwidthEdit\"", "class=\"FrequencyOffsetEdit\"", "class-changed",
        "class-changed");
    row("limits", "<Int>100</Int>", "<Int>50</Int>", "!limits-narrowed", "limits-widened");
    row("limits moved", "<Int>0</Int></Property>\n<Property name=\"maximum\"><Int>100</Int>",
        "<Int>10</Int></Property>\n<Property name=\"maximum\"><Int>110</Int>",
        "!limits-narrowed limits-widened", "!limits-narrowed limits-widened");
    row("letters", "<Int>40</Int></Property>\n<Property name=\"generateParameterXml\"><Bool>true</Bool>",
        "<Int>20</Int></Property>\n<Property name=\"generateParameterXml\"><Bool>true</Bool>",
        "!limits-narrowed", "limits-widened");
    row("choice gone",
        "<EnumValue><DisplayName>Narrow</DisplayName><EnumIdentifier>M_AM</EnumIdentifier><Value>AM</Value>"
        "</EnumValue>\n",
        "", "!choice-gone", "choice-added");
    row("choice renamed", "<DisplayName>Narrow</DisplayName>", "<DisplayName>Slim</DisplayName>",
        "choice-renamed", "choice-renamed");
    row("choice with another identifier", "M_AM", "M_SLIM", "!choice-identifier-changed",
        "!choice-identifier-changed");
    row("choices reordered",
        "<EnumValue><DisplayName>Wide</DisplayName><EnumIdentifier>M_FM</EnumIdentifier><Value>FM</Value>"
        "</EnumValue>\n<EnumValue><DisplayName>Narrow</DisplayName><EnumIdentifier>M_AM</EnumIdentifier>"
        "<Value>AM</Value></EnumValue>\n",
        "<EnumValue><DisplayName>Narrow</DisplayName><EnumIdentifier>M_AM</EnumIdentifier><Value>AM</Value>"
        "</EnumValue>\n<EnumValue><DisplayName>Wide</DisplayName><EnumIdentifier>M_FM</EnumIdentifier>"
        "<Value>FM</Value></EnumValue>\n",
        "choices-reordered", "choices-reordered");
    row("unit", "<String>dB</String>", "<String>dBuV</String>", "!unit-changed", "!unit-changed");
    row("scale", "<Int>1000</Int>", "<Int>1000000</Int>", "scale-changed", "scale-changed");
    row("decimals", "<Int>2</Int>", "<Int>1</Int>", "!decimals-fewer default-changed", "default-changed");
    row("default", "<Int>40</Int></Property>\n<Property name=\"unit\">",
        "<Int>41</Int></Property>\n<Property name=\"unit\">", "default-changed", "default-changed");
    row("texts of a box", "<String>on</String>", "<String>yes</String>", "!states-changed",
        "!states-changed");
    row("enumeration renamed", "Modes", "Kinds", "!script-object-gone enumeration-added",
        "!script-object-gone enumeration-added");
    row("sheet renamed", "<Sheet name=\"station\">", "<Sheet name=\"radio\">", "!script-object-gone",
        "!script-object-gone");
    row("function gone", "function follow() {}", "", "!script-object-gone", "");
    row("root", "<String>Parameters</String>", "<String>Settings</String>", "!root-changed", "!root-changed");
}

void TestComparison::plantedChanges()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const QByteArray before = plain;
    QByteArray after = plain;
    const int at = QLatin1String(QTest::currentDataTag()) == QLatin1String("letters")
                       ? after.lastIndexOf(from)
                       : after.indexOf(from);
    QVERIFY(at >= 0);
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String("enumeration renamed"))
        after.replace(from, to);
    else
        after.replace(at, from.size(), to);
    QTEST(told(before, after), "there");
    QTEST(told(after, before), "back");
}

void TestComparison::nothingChanged_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::newRow("plain") << QByteArray(plain);
    for (const char* name : {"receiver.zorva", "gallery.zorva", "minimal.zorva"})
        QTest::newRow(name) << exampleText(name).toUtf8();
}

void TestComparison::nothingChanged()
{
    QFETCH(QByteArray, form);
    QCOMPARE(told(form, form), QString());
}

void TestComparison::places()
{
    QByteArray after = plain;
    after.replace("<Int>100</Int>", "<Int>50</Int>").prepend("\n");
    const auto changes = compareForms(FormInventory(plain), FormInventory(after));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.first().oldLine, 11);
    QCOMPARE(changes.first().newLine, 12);
    QCOMPARE(changes.first().name, QStringLiteral("gain"));
}

void TestComparison::reports()
{
    QByteArray after = plain;
    after.replace("<Int>100</Int>", "<Int>50</Int>").replace("<Int>2</Int>", "<Int>3</Int>");
    const auto changes = compareForms(FormInventory(plain), FormInventory(after));
    QCOMPARE(changesText(QStringLiteral("a"), QStringLiteral("b"), changes),
             QStringLiteral("b:11: breaking: row `gain`: was 0 to 100 and is 0 to 50 [limits-narrowed]\n"
                            "b:23: compatible: row `level`: comes up with \"0.000\" instead of \"0.00\" "
                            "[default-changed]\n"
                            "1 breaking, 1 compatible\n"));
    const QByteArray json = changesJson(changes);
    for (const char* part :
         {"\"version\": 1", "\"id\": \"limits-narrowed\"", "\"breaking\": true", "\"newLine\": 11"})
        QVERIFY2(json.contains(part), json.constData());
}

QTEST_MAIN(TestComparison)
#include "tst_comparison.moc"
