#include "processfigures.h"

#include <formtest.h>
#include <formtext.h>
#include <vkbase/errorhandler.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>

#include <QCoreApplication>

#include <functional>

using Orvane::ZorvaFormular;
using Orvane::ZorvaParser;

namespace {

using FormPointer = QExplicitlySharedDataPointer<ZorvaFormular>;

/// Long runs (at night) take larger numbers.
bool isFullRun()
{
    return qEnvironmentVariable("ZORVA_HOSTILE") == QLatin1String("full");
}

/// A form of foreign text and its window, through its whole life.
class LiveForm
{
public:
    explicit LiveForm(const QString& description)
        : form(ZorvaParser().ParseZORVA(description))
    {
        if (!form)
            return;
        form->CreateValueTree(QStringLiteral("/hostile"));
        form->CreateGUI(true);
        window = form->GetGUI();
    }
    LiveForm(const LiveForm&) = delete;
    LiveForm& operator=(const LiveForm&) = delete;
    ~LiveForm() { delete window; }

    /// Everything that a host asks of a form in its life.
    void use()
    {
        window->resize(500, 400);
        window->show();
        QCoreApplication::processEvents();
        exchange();
        window->resize(900, 700);
        QCoreApplication::processEvents();
        form->EnableInput(false);
        form->EnableInput(true);
        window->hide();
    }
    void exchange()
    {
        form->SetXmlString(form->GetXmlString(false));
        form->GetXmlString(true);
    }

    FormPointer form;
    QPointer<QWidget> window;
};

QString repeated(const char* text, int count)
{
    return QString::fromLatin1(text).repeated(count);
}

QString inSheet(const QString& content)
{
    return QStringLiteral("<KVParamGui version=\"1\"><Sheet name=\"s\">%1</Sheet></KVParamGui>").arg(content);
}

const char* const entityBomb = "<!DOCTYPE bomb [<!ENTITY a \"ha ha ha ha ha ha ha ha ha ha \">"
                               "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                               "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                               "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">"
                               "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">"
                               "<!ENTITY f \"&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;\">"
                               "<!ENTITY g \"&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;\">"
                               "<!ENTITY h \"&g;&g;&g;&g;&g;&g;&g;&g;&g;&g;\">"
                               "<!ENTITY i \"&h;&h;&h;&h;&h;&h;&h;&h;&h;&h;\">]>";

/// A row whose text is settable from outside: what the tests below look at.
QString textRow()
{
    return rowXml("LineEdit", "row", {{"text", "before"}, {"parameterXmlTag", "Group/Row"}});
}

const char* const allClasses[] = {"BandwidthEdit",
                                  "BaudRateSpinBox",
                                  "ChannelSpacingTable",
                                  "CheckBox",
                                  "ComboBox",
                                  "DoubleSpinBox",
                                  "DoubleSpinBoxList",
                                  "FixedSpacer",
                                  "FrequencyEdit",
                                  "FrequencyRangeEdit",
                                  "FrequencyOffsetEdit",
                                  "Headline",
                                  "HiddenList",
                                  "HiddenMap",
                                  "HiddenParameter",
                                  "HiddenTable",
                                  "IPEdit",
                                  "Label",
                                  "LineEdit",
                                  "PushButton",
                                  "ScriptControl",
                                  "Separator",
                                  "ShiftList",
                                  "SpecialObject_Audio",
                                  "SpecialObject_DSC",
                                  "SpecialObject_FFT",
                                  "SpecialObject_FHP",
                                  "SpecialObject_Generic",
                                  "SpecialObject_Tuner",
                                  "SpecialObject_WDE",
                                  "SpinBox",
                                  "SpinBoxList",
                                  "TableWidget"};

const char* const numericProperties[] = {"value",
                                         "minimum",
                                         "maximum",
                                         "singleStep",
                                         "decimals",
                                         "displayScalingFactor",
                                         "displayAdditiveOffset",
                                         "unitScale",
                                         "startFrequency",
                                         "stopFrequency",
                                         "startFrequencyMinimum",
                                         "startFrequencyMaximum",
                                         "startFrequencyUnitScale",
                                         "itemCount",
                                         "shiftCount",
                                         "spacingsCount",
                                         "rowCount",
                                         "columnCount",
                                         "margin",
                                         "height",
                                         "maxLength",
                                         "maxHistoryLength",
                                         "currentValue",
                                         "checked",
                                         "text"};

const char* const limitNumbers[] = {"0",
                                    "-1",
                                    "1",
                                    "2147483647",
                                    "-2147483648",
                                    "2147483648",
                                    "-9223372036854775808",
                                    "9223372036854775807",
                                    "18446744073709551616",
                                    "1.7976931348623157e308",
                                    "-1.7976931348623157e308",
                                    "4.9406564584124654e-324",
                                    "1e400",
                                    "nan",
                                    "-inf",
                                    "0x7f",
                                    ""};

} // namespace

class TestHostileInput : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void deepNestingIsWalkedThrough_data();
    void deepNestingIsWalkedThrough();
    void deepNestingInParameterXml_data();
    void deepNestingInParameterXml();
    void deepPathsAreWrittenAndReadBack();
    void manyProperties_data();
    void manyProperties();
    void longListOfChoices();
    void entityBombsDoNotGoOff_data();
    void entityBombsDoNotGoOff();
    void endlessText_data();
    void endlessText();
    void numbersAtEveryLimit_data();
    void numbersAtEveryLimit();
    void hugeTables_data();
    void hugeTables();
    void strangeNames_data();
    void strangeNames();
    void scriptErrors_data();
    void scriptErrors();
    void scriptsCannotDeleteRows();
    void handlersThatFeedThemselvesEnd_data();
    void handlersThatFeedThemselvesEnd();
};

void TestHostileInput::deepNestingIsWalkedThrough_data()
{
    QTest::addColumn<QString>("description");
    const int levels = 100000;
    const auto nested = [&](const char* open, const QString& inner, const char* close) {
        return repeated(open, levels) + inner + repeated(close, levels);
    };
    QTest::newRow("wrappers round the root") << nested("<w>", inSheet(textRow()), "</w>");
    QTest::newRow("elements in the root")
        << QStringLiteral("<KVParamGui>%1</KVParamGui>").arg(nested("<x>", QString(), "</x>"));
    QTest::newRow("elements in the sheet") << inSheet(nested("<x>", QString(), "</x>") + textRow());
    QTest::newRow("sheets in sheets") << QStringLiteral("<KVParamGui>%1</KVParamGui>")
                                             .arg(nested("<Sheet name=\"a\">", textRow(), "</Sheet>"));
    QTest::newRow("rows in rows") << inSheet(nested("<Widget class=\"LineEdit\">", QString(), "</Widget>"));
    QTest::newRow("blocks in blocks") << inSheet(
        nested("<CustomProperties>", QStringLiteral("<Property name=\"a\"><Int>1</Int></Property>"),
               "</CustomProperties>"));
    QTest::newRow("blocks in a row") << inSheet(
        QStringLiteral("<Widget name=\"w\" class=\"LineEdit\">%1</Widget>")
            .arg(nested("<CustomProperties>", QString(), "</CustomProperties>")));
    QTest::newRow("properties in properties")
        << inSheet(QStringLiteral("<Widget name=\"w\" class=\"LineEdit\">%1</Widget>")
                       .arg(nested("<Property name=\"a\">", QString(), "</Property>")));
    QTest::newRow("strangers in a row")
        << inSheet(QStringLiteral("<Widget name=\"w\" class=\"LineEdit\">%1</Widget>")
                       .arg(nested("<x>", QString(), "</x>")));
    QTest::newRow("enumerations in enumerations")
        << QStringLiteral("<KVParamGui>%1</KVParamGui>")
               .arg(nested("<Enums><Enum>", QString(), "</Enum></Enums>"));
    QTest::newRow("elements that never end") << inSheet(repeated("<CustomProperties>", levels));
}

void TestHostileInput::deepNestingIsWalkedThrough()
{
    QFETCH(QString, description);
    const CostMeter meter;
    {
        LiveForm live(description);
        if (live.form)
            live.use();
        // The same text as an overlay of an ordinary form.
        LiveForm ordinary(inSheet(textRow()));
        ordinary.form->SetChangedZORVA(description);
        ordinary.use();
    }
    QCOMPARE(meter.excess(20000, 500), QString());
}

void TestHostileInput::deepNestingInParameterXml_data()
{
    QTest::addColumn<QString>("parameters");
    QTest::addColumn<QString>("text");
    const int levels = 100000;
    const QString leaf = QStringLiteral("<Group><Row>after</Row></Group>");
    const QString root = QStringLiteral("<Parameters>%1</Parameters>");
    QTest::newRow("wrappers") << repeated("<w>", levels) + root.arg(leaf) + repeated("</w>", levels)
                              << "after";
    QTest::newRow("strangers first") << root.arg(repeated("<x>", levels) + repeated("</x>", levels) + leaf)
                                     << "after";
    QTest::newRow("groups in groups")
        << root.arg(repeated("<Group>", levels) + repeated("</Group>", levels)) << "before";
    QTest::newRow("roots in roots") << repeated("<Parameters>", levels) + leaf +
                                           repeated("</Parameters>", levels)
                                    << "before";
    QTest::newRow("roots in a row") << root.arg(leaf).repeated(20000) << "after";
    QTest::newRow("a leaf with elements in it")
        << root.arg(QStringLiteral("<Group><Row>%1</Row></Group>")
                        .arg(repeated("<x>", levels) + repeated("</x>", levels)))
        << QString();
}

void TestHostileInput::deepNestingInParameterXml()
{
    QFETCH(QString, parameters);
    QFETCH(QString, text);
    const CostMeter meter;
    {
        LiveForm live(inSheet(textRow()));
        live.form->SetXmlString(parameters);
        QCOMPARE(live.form->GetVTValue(QStringLiteral("Group/Row"))->GetStringValue(), text);
        live.use();
    }
    QCOMPARE(meter.excess(20000, 500), QString());
}

void TestHostileInput::deepPathsAreWrittenAndReadBack()
{
    const int levels = 100000;
    const QString path = repeated("a/", levels) + QLatin1Char('b');
    const CostMeter meter;
    {
        LiveForm live(
            inSheet(rowXml("LineEdit", "row", {{"text", "before"}, {"parameterXmlTag", path}}) + textRow()));
        const QString all = live.form->GetXmlString(false);
        QVERIFY(all.contains(QStringLiteral("<b>before</b>")));
        live.form->SetXmlString(QString(all).replace(QStringLiteral("before"), QStringLiteral("after")));
        QCOMPARE(live.form->GetVTValue(path)->GetStringValue(), QStringLiteral("after"));
        QCOMPARE(live.form->GetVTValue(QStringLiteral("Group/Row"))->GetStringValue(),
                 QStringLiteral("after"));
        QVERIFY(live.form->SetVTValue(path, QStringLiteral("host"), nullptr, false));
        QVERIFY(live.form->GetXmlString(true).contains(QStringLiteral("<b>host</b>")));
        live.use();
    }
    QCOMPARE(meter.excess(20000, 500), QString());
}

void TestHostileInput::manyProperties_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("behind");
    const QString row = QStringLiteral("<Widget name=\"w\" class=\"LineEdit\">");
    const QString rowEnd = QStringLiteral("</Widget>");
    const QString same = QStringLiteral("<Property name=\"text\"><S>%1</S></Property>");
    const QString distinct = QStringLiteral("<Property name=\"p%1\"><S>x</S></Property>");
    const int million = 1000000;
    QTest::newRow("one name in a row") << million << row << same << rowEnd;
    QTest::newRow("distinct names in a row") << million << row << distinct << rowEnd;
    QTest::newRow("distinct names in a block") << million << row + QStringLiteral("<CustomProperties>")
                                               << distinct << QStringLiteral("</CustomProperties>") + rowEnd;
    // Each becomes an attribute of the root, and Qt's reader compares each attribute with all others.
    QTest::newRow("distinct names in the sheet's block")
        << 20000 << QStringLiteral("<CustomProperties>")
        << QStringLiteral("<Property name=\"Attribute_p%1\"><S>x</S></Property>")
        << QStringLiteral("</CustomProperties>");
    QTest::newRow("distinct names in the sheet")
        << million << QStringLiteral("<Properties>") << distinct << QStringLiteral("</Properties>");
}

void TestHostileInput::manyProperties()
{
    QFETCH(int, count);
    QFETCH(QString, before);
    QFETCH(QString, property);
    QFETCH(QString, behind);
    QString text = before;
    for (int i = 0; i < count; ++i)
        text += property.arg(i);
    text += behind;
    const CostMeter meter;
    {
        LiveForm live(inSheet(text + textRow()));
        QCOMPARE(live.form->GetVTValue(QStringLiteral("Group/Row"))->GetStringValue(),
                 QStringLiteral("before"));
        live.use();
    }
    QCOMPARE(meter.excess(20000, 1000), QString());
}

void TestHostileInput::longListOfChoices()
{
    const int count = isFullRun() ? 1000000 : 50000;
    QString entries;
    for (int i = 0; i < count; ++i)
        entries += QStringLiteral("<EnumValue><DisplayName>n%1</DisplayName><EnumIdentifier>ID_%1"
                                  "</EnumIdentifier><Value>v%1</Value></EnumValue>")
                       .arg(i);
    const QString description =
        QStringLiteral("<KVParamGui><Enums><Enum name=\"e\">%1</Enum></Enums>"
                       "<Sheet name=\"s\">%2</Sheet></KVParamGui>")
            .arg(entries, rowXml("ComboBox", "choice", {{"enumName", "e"}, {"currentValue", "v17"}}));
    const CostMeter meter;
    {
        LiveForm live(description);
        QVERIFY(live.form->GetXmlString(false).contains(QStringLiteral("<choice>v17</choice>")));
        live.form->SetXmlString(
            QStringLiteral("<Parameters><choice>v%1</choice></Parameters>").arg(count - 1));
        QCOMPARE(live.form->GetVTValue(QStringLiteral("choice"))->GetStringValue(),
                 QStringLiteral("n%1").arg(count - 1));
        live.use();
    }
    QCOMPARE(meter.excess(isFullRun() ? 120000 : 15000, isFullRun() ? 6000 : 500), QString());
}

void TestHostileInput::entityBombsDoNotGoOff_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("overlay");
    QTest::addColumn<QString>("parameters");
    const QString bomb = QString::fromLatin1(entityBomb);
    const QString harmless = inSheet(textRow());
    const QString bombed =
        inSheet(QStringLiteral("<Widget name=\"row\" class=\"LineEdit\"><Property name=\"text\">"
                               "<String>&i;</String></Property></Widget>"));
    const QString script = QStringLiteral("<KVParamGui><Sheet name=\"s\">%1</Sheet><Script>&i;</Script>"
                                          "</KVParamGui>")
                               .arg(textRow());
    QTest::newRow("a property of the description") << bomb + bombed << QString() << QString();
    QTest::newRow("the script") << bomb + script << QString() << QString();
    QTest::newRow("an overlay") << harmless << bomb + bombed << QString();
    QTest::newRow("parameter XML") << harmless << QString()
                                   << bomb + QStringLiteral(
                                                 "<Parameters><Group><Row>&i;</Row></Group></Parameters>");
    QTest::newRow("parameter XML, in an attribute")
        << harmless << QString()
        << bomb + QStringLiteral("<Parameters type=\"&i;\"><Group><Row>after</Row></Group></Parameters>");
    QTest::newRow("an entity of itself")
        << harmless
        << QStringLiteral("<!DOCTYPE x [<!ENTITY a \"&a;\">]>") +
               QString(bombed).replace(QStringLiteral("&i;"), QStringLiteral("&a;"))
        << QString();
    QTest::newRow("a file of the machine")
        << QStringLiteral("<!DOCTYPE x [<!ENTITY i SYSTEM \"file:///etc/passwd\">]>") + bombed << QString()
        << QString();
}

void TestHostileInput::entityBombsDoNotGoOff()
{
    QFETCH(QString, description);
    QFETCH(QString, overlay);
    QFETCH(QString, parameters);
    const CostMeter meter;
    {
        LiveForm live(description);
        QVERIFY(live.form);
        live.form->SetChangedZORVA(overlay);
        live.form->SetXmlString(parameters);
        const QString all = live.form->GetXmlString(false);
        QVERIFY2(all.size() < 100000, qPrintable(QString::number(all.size())));
        QVERIFY(!all.contains(QStringLiteral("root:")));
        live.use();
    }
    QCOMPARE(meter.excess(10000, 300), QString());
}

void TestHostileInput::endlessText_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("isShown");
    const int length = 50 * 1024 * 1024;
    const QString text = repeated("x", length);
    const QString row =
        QStringLiteral("<Widget name=\"w\" class=\"%1\"><Property name=\"%2\"><S>%3</S></Property>"
                       "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>"
                       "</Widget>");
    const auto rowOf = [&](const char* kind, const char* property) {
        return inSheet(row.arg(QLatin1String(kind), QLatin1String(property), text));
    };
    QTest::newRow("text of a hidden row") << rowOf("HiddenParameter", "value") << true;
    QTest::newRow("text of an edit") << rowOf("LineEdit", "text") << false;
    QTest::newRow("number of a spin box") << rowOf("SpinBox", "value") << true;
    QTest::newRow("number of digits")
        << inSheet(row.arg(QStringLiteral("DoubleSpinBox"), QStringLiteral("value"), repeated("9", length)))
        << true;
    QTest::newRow("a frequency") << inSheet(row.arg(QStringLiteral("FrequencyEdit"), QStringLiteral("value"),
                                                    repeated("9", length)))
                                 << true;
    QTest::newRow("a caption") << rowOf("LineEdit", "labelText") << false;
    QTest::newRow("a name of a property")
        << inSheet(QStringLiteral("<Widget name=\"w\" class=\"LineEdit\"><Property name=\"%1\"><S>1</S>"
                                  "</Property></Widget>")
                       .arg(text))
        << true;
    QTest::newRow("a comment") << inSheet(QStringLiteral("<!--%1-->").arg(text) + textRow()) << true;
    QTest::newRow("a script") << QStringLiteral("<KVParamGui><Script>//%1</Script></KVParamGui>").arg(text)
                              << true;
    QTest::newRow("escapes in a script")
        << QStringLiteral("<KVParamGui><Script>%1</Script></KVParamGui>").arg(repeated("{{LF}}", length / 6))
        << true;
}

void TestHostileInput::endlessText()
{
    QFETCH(QString, description);
    QFETCH(bool, isShown);
    const CostMeter meter;
    {
        LiveForm live(description);
        QVERIFY(live.form);
        // Fifty megabytes on the screen are for the text engine to shape; they only must not be lost.
        if (isShown)
            live.use();
        else
            live.exchange();
    }
    QCOMPARE(meter.excess(30000, 2500), QString());
}

void TestHostileInput::numbersAtEveryLimit_data()
{
    QTest::addColumn<QString>("className");
    for (const char* const name : allClasses)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestHostileInput::numbersAtEveryLimit()
{
    QFETCH(QString, className);
    m_messages->allow(QRegularExpression(QStringLiteral("The largest allowed size is")));
    m_messages->allow(QRegularExpression(QStringLiteral("Negative sizes")));
    const QByteArray kind = className.toLatin1();
    const CostMeter meter;
    for (const char* const property : numericProperties) {
        QString rows;
        int i = 0;
        for (const char* const number : limitNumbers) {
            // A list has something to show, unless its length is what is tried.
            rows += rowXml(kind.constData(), qPrintable(QStringLiteral("r%1").arg(i++)),
                           {{"labelText", "caption"},
                            {"itemCount", 2},
                            {"rowCount", 2},
                            {"columnCount", 2},
                            {"spacingsCount", 2},
                            {"parameterListItemTag", "Item"},
                            {property, number}});
        }
        LiveForm live(inSheet(rows));
        live.use();
        for (const char* const number : limitNumbers) {
            const QString text = QString::fromLatin1(number);
            for (int row = 0; row < i; row += 5) {
                live.form->SetVTValue(QStringLiteral("r%1").arg(row), text, nullptr, false);
                live.form->EvaluateScript(QStringLiteral("r%1['%2'] = Number('%3'); r%1['%2'] = '%3'")
                                              .arg(QString::number(row), QLatin1String(property), text));
            }
            live.form->SetXmlString(
                QStringLiteral("<Parameters><r1>%1</r1><r2><Item index=\"%1\" row=\"%1\" column=\"%1\">%1"
                               "</Item></r2></Parameters>")
                    .arg(text));
        }
        live.exchange();
    }
    QCOMPARE(meter.excess(60000, 1500), QString());
}

void TestHostileInput::hugeTables_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    const char* const kinds[] = {"TableWidget", "HiddenTable",       "HiddenList",         "SpinBoxList",
                                 "ShiftList",   "DoubleSpinBoxList", "ChannelSpacingTable"};
    for (const char* const kind : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("%1, two billion rows").arg(QLatin1String(kind))))
            << QString::fromLatin1(kind) << 2000000000 << 2;
        QTest::newRow(qPrintable(QStringLiteral("%1, a product beyond 64 bits").arg(QLatin1String(kind))))
            << QString::fromLatin1(kind) << 2147483647 << 2147483647;
        QTest::newRow(qPrintable(QStringLiteral("%1, a million cells").arg(QLatin1String(kind))))
            << QString::fromLatin1(kind) << 1000 << 1000;
        QTest::newRow(qPrintable(QStringLiteral("%1, a million rows of no cell").arg(QLatin1String(kind))))
            << QString::fromLatin1(kind) << 1000000 << 0;
    }
}

void TestHostileInput::hugeTables()
{
    QFETCH(QString, className);
    QFETCH(int, rows);
    QFETCH(int, columns);
    const CostMeter meter;
    {
        LiveForm live(inSheet(rowXml(className.toLatin1().constData(), "table",
                                     {{"itemCount", rows},
                                      {"shiftCount", rows},
                                      {"spacingsCount", rows},
                                      {"rowCount", rows},
                                      {"columnCount", columns},
                                      {"parameterListItemTag", "Item"}}) +
                              textRow()));
        live.exchange();
        // The rest of the form works.
        QVERIFY(live.form->SetVTValue(QStringLiteral("Group/Row"), QStringLiteral("x"), nullptr, false));
    }
    QCOMPARE(meter.excess(30000, 1500), QString());
}

void TestHostileInput::strangeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("a\"b'c");
    QTest::newRow("blanks") << QStringLiteral(" a  b ");
    QTest::newRow("slashes") << QStringLiteral("//a//b///");
    QTest::newRow("only a slash") << QStringLiteral("/");
    QTest::newRow("angle brackets") << QStringLiteral("<a>&b</a>");
    QTest::newRow("percent signs") << QStringLiteral("%1 %2 %%n");
    QTest::newRow("dots") << QStringLiteral("../../a");
    QTest::newRow("digits first") << QStringLiteral("1a");
    QTest::newRow("a line feed") << QStringLiteral("a\nb");
    QTest::newRow("empty") << QString();
    QTest::newRow("Greek") << QStringLiteral(u"\u03b1\u03b2\u03b3");
    QTest::newRow("Chinese") << QStringLiteral(u"\u9891\u7387");
    QTest::newRow("beyond 16 bits") << QStringLiteral(u"\U0001F4E1\U0001F4FB");
    QTest::newRow("right to left") << QStringLiteral(u"\u05d0\u05d1\u200f");
    QTest::newRow("combining marks") << QStringLiteral(u"a\u0308\u0301\u0327");
    QTest::newRow("a name of the script language") << QStringLiteral("constructor");
    QTest::newRow("a chain of prototypes") << QStringLiteral("__proto__");
    QTest::newRow("a property of all objects") << QStringLiteral("objectName");
    QTest::newRow("a Qt internal name") << QStringLiteral("_q_a");
}

void TestHostileInput::strangeNames()
{
    QFETCH(QString, name);
    const QString escaped = name.toHtmlEscaped();
    QString rows;
    for (const char* const kind : allClasses) {
        rows += QStringLiteral("<Widget name=\"%1\" class=\"%2\"><Property name=\"visible\"><Bool>true</Bool>"
                               "</Property><Property name=\"generateParameterXml\"><Bool>true</Bool>"
                               "</Property><Property name=\"%1\"><S>%1</S></Property>"
                               "<Property name=\"labelText\"><S>%1</S></Property>"
                               "<Property name=\"enumName\"><S>%1</S></Property>"
                               "<CustomProperties><Property name=\"%1\"><S>%1</S></Property>"
                               "</CustomProperties></Widget>")
                    .arg(escaped, QLatin1String(kind));
    }
    const QString description =
        QStringLiteral("<KVParamGui><Enums><Enum name=\"%1\"><EnumValue><DisplayName>%1</DisplayName>"
                       "<EnumIdentifier>%1</EnumIdentifier><Value>%1</Value></EnumValue></Enum></Enums>"
                       "<Sheet name=\"%1\">%2%3</Sheet></KVParamGui>")
            .arg(escaped, rows, textRow());
    LiveForm live(description);
    live.form->SetName(name);
    live.form->SetVTValue(name, name, nullptr, true);
    live.form->ShowGroup(name, false);
    live.form->ShowGroup(name, true);
    live.form->SelectWidgets({name}, true);
    live.form->SelectWidgets({}, true);
    QObject configuration;
    live.form->SetConfigObject(&configuration, name);
    live.form->ApplyConfiguration();
    live.form->RestoreConfiguration();
    live.form->GetScriptValues();
    live.form->SetChangedZORVA(description);
    live.use();
    QVERIFY(live.form->SetVTValue(QStringLiteral("Group/Row"), QStringLiteral("x"), nullptr, false));
    QVERIFY(live.form->GetXmlString(true).contains(QStringLiteral("<Row>x</Row>")));
    live.form->SetConfigObject(nullptr, QString());
}

void TestHostileInput::scriptErrors_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("isTraced");
    QTest::newRow("syntax") << "var a = (;" << true;
    QTest::newRow("unknown name") << "nobody.setText('x')" << true;
    QTest::newRow("unknown method") << "row.fly()" << true;
    QTest::newRow("thrown text") << "throw 'words'" << true;
    QTest::newRow("thrown null") << "throw null" << true;
    QTest::newRow("thrown row") << "throw row" << true;
    QTest::newRow("thrown object that cannot be text")
        << "throw { toString: function() { throw 'again'; } }" << true;
    QTest::newRow("no end of calls") << "function f() { return f(); } f()" << true;
    QTest::newRow("no end of calls through a getter")
        << "var o = {}; o.__defineGetter__('a', function() { return o.a; }); o.a" << true;
    QTest::newRow("too few arguments") << "row.setText()" << true;
    QTest::newRow("too many arguments") << "row.setText('a', 'b', 'c')" << false;
    QTest::newRow("arguments of a wrong kind")
        << "row.setText({}); row.setVisible('x'); row.setEnabled(row)" << false;
    QTest::newRow("connected to nothing") << "row.textChanged.connect(null)" << true;
    QTest::newRow("connected to no function") << "row.textChanged.connect(17)" << true;
    QTest::newRow("properties of wrong kinds")
        << "row.text = {}; row.visible = []; row.enabled = null; row.labelText = undefined; row.toolTip = "
           "row;"
           "row.parameterXmlTag = 1; row.generateParameterXml = function() {}; row.text = NaN"
        << false;
    QTest::newRow("rows thrown away") << "row = null; s = undefined; delete row" << false;
    QTest::newRow("an array without end") << "var a = []; a[4294967294] = 1; a.length" << false;
    QTest::newRow("an array of a wrong length") << "new Array(-1)" << true;
    QTest::newRow("a deep literal")
        << QStringLiteral("var a = %1%2").arg(repeated("[", 20000), repeated("]", 20000)) << true;
    QTest::newRow("a deep term")
        << QStringLiteral("var a = %1 1 %2").arg(repeated("(", 100000), repeated(")", 100000)) << true;
    QTest::newRow("code in code") << "function f(n) { return eval('f(n + 1)'); } f(0)" << true;
    QTest::newRow("a broken pattern") << "new RegExp('(')" << true;
}

void TestHostileInput::scriptErrors()
{
    QFETCH(QString, script);
    QFETCH(bool, isTraced);
    if (isTraced)
        m_messages->expect(QStringLiteral("** ZorvaFormular Script Exception"));
    const QString description = QStringLiteral("<KVParamGui><Sheet name=\"s\">%1</Sheet><Script>%2</Script>"
                                               "</KVParamGui>")
                                    .arg(textRow(), script.toHtmlEscaped());
    const CostMeter meter;
    {
        LiveForm live(description);
        QVERIFY(live.form->GetSheet().isActive());
        live.form->EvaluateScript(script);
        live.form->SetVTValue(QStringLiteral("Group/Row"), QStringLiteral("x"), nullptr, true);
        live.use();
    }
    QCOMPARE(meter.excess(20000, 1000), QString());
}

void TestHostileInput::scriptsCannotDeleteRows()
{
    LiveForm live(inSheet(textRow() + rowXml("CheckBox", "box")));
    live.form->EvaluateScript(QStringLiteral("row.deleteLater(); box.deleteLater(); s.deleteLater();"));
    live.form->EvaluateScript(QStringLiteral("row['deleteLater()'](); s['deleteLater()']();"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(live.form->SetVTValue(QStringLiteral("Group/Row"), QStringLiteral("x"), nullptr, false));
    live.use();
}

void TestHostileInput::handlersThatFeedThemselvesEnd_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("a list that counts up")
        << "list.valueChanged.connect(function(i, v) { list.setItemValue(0, v + 1); });"
           "list.setItemValue(0, 1)";
    QTest::newRow("two lists that drive each other")
        << "list.valueChanged.connect(function(i, v) { other.setItemValue(0, v + 1); });"
           "other.valueChanged.connect(function(i, v) { list.setItemValue(0, v + 1); });"
           "list.setItemValue(0, 1)";
    QTest::newRow("a custom property that grows")
        << "row.customPropertyChanged.connect(function(n, v) { row.setCustomProperty(n, v + 1); });"
           "row.setCustomProperty('a', 1)";
    QTest::newRow("a choice that turns round")
        << "choice.currentValueChanged.connect(function(v) { choice.setCurrentIndex(v == 'a' ? 1 : 0); });"
           "choice.setCurrentIndex(1)";
    QTest::newRow("a sheet that applies itself")
        << "s.si_parametersModified.connect(function() { s.emitParametersXml(); }); s.emitParametersXml()";
}

void TestHostileInput::handlersThatFeedThemselvesEnd()
{
    QFETCH(QString, script);
    const QString rows =
        rowXml("SpinBoxList", "list", {{"itemCount", 2}, {"minimum", 0}, {"maximum", 2000000000}}) +
        rowXml("SpinBoxList", "other", {{"itemCount", 2}, {"minimum", 0}, {"maximum", 2000000000}}) +
        rowXml("ComboBox", "choice", {{"enumName", "e"}, {"currentValue", "a"}}) + textRow();
    const QString description = QStringLiteral("<KVParamGui><Enums>%1</Enums><Sheet name=\"s\">%2</Sheet>"
                                               "</KVParamGui>")
                                    .arg(enumXml("e", {{"A", "A", "a"}, {"B", "B", "b"}}), rows);
    const CostMeter meter;
    {
        LiveForm live(description);
        live.form->EvaluateScript(script);
        live.use();
        QVERIFY(live.form->SetVTValue(QStringLiteral("Group/Row"), QStringLiteral("x"), nullptr, false));
    }
    QCOMPARE(meter.excess(20000, 1000), QString());
}

QTEST_MAIN(TestHostileInput)
#include "tst_hostileinput.moc"
