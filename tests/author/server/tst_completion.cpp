#include "servertalk.h"

#include <QFile>
#include <QTest>

namespace {

QString receiver()
{
    QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QJsonObject snippetAbility()
{
    return {{QStringLiteral("textDocument"),
             QJsonObject{{QStringLiteral("completion"),
                          QJsonObject{{QStringLiteral("completionItem"),
                                       QJsonObject{{QStringLiteral("snippetSupport"), true}}}}}}}};
}

} // namespace

/// What is offered where: in a form that is cut at a place, and in one that goes on behind it.
class TestCompletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cut_data();
    void cut();
    void inTheMiddle_data();
    void inTheMiddle();
    void whatAnItemMakesOfTheText_data();
    void whatAnItemMakesOfTheText();
    void snippets_data();
    void snippets();
    void everyPrefixIsAnswered();
    void helpIsInTheItems();
    void badPlaces_data();
    void badPlaces();

private:
    QJsonArray itemsAt(int offset);
    QStringList labelsAt(int offset);
    QJsonObject item(int offset, const QString& label);

    ServerTalk m_talk;
};

void TestCompletion::initTestCase()
{
    const QJsonObject capabilities = m_talk.initialize(snippetAbility());
    QVERIFY(capabilities.contains(QStringLiteral("completionProvider")));
    QVERIFY(receiver().size() > 30000);
}

QJsonArray TestCompletion::itemsAt(int offset)
{
    return m_talk.askAt("textDocument/completion", offset)
        .toObject()
        .value(QStringLiteral("items"))
        .toArray();
}

QStringList TestCompletion::labelsAt(int offset)
{
    QStringList labels;
    const QJsonArray items = itemsAt(offset);
    for (const QJsonValue& entry : items)
        labels.append(entry.toObject().value(QStringLiteral("label")).toString());
    return labels;
}

QJsonObject TestCompletion::item(int offset, const QString& label)
{
    const QJsonArray items = itemsAt(offset);
    for (const QJsonValue& entry : items) {
        if (entry.toObject().value(QStringLiteral("label")).toString() == label)
            return entry.toObject();
    }
    return QJsonObject();
}

// Cut behind the first occurrence of a text, with what is being typed there.
void TestCompletion::cut_data()
{
    QTest::addColumn<QString>("behind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("offered");
    QTest::addColumn<QStringList>("others");
    const auto row = [](const char* title, const char* behind, const char* typed, const char* offered,
                        const char* others) {
        QTest::newRow(title) << QString::fromUtf8(behind) << QString::fromUtf8(typed) << words(offered)
                             << words(others);
    };
    // Elements
    row("an empty text", "", "", "KVParamGui", "Sheet Widget");
    row("a bracket in an empty text", "", "<", "KVParamGui", "Sheet Enums");
    row("within the declaration", "<?xml vers", "", "", "KVParamGui");
    row("behind the declaration", "encoding=\"UTF-8\"?>", "\n<", "KVParamGui", "Widget Sheet");
    row("within a comment", "monitoring receiver", "", "", "KVParamGui Sheet");
    row("behind the root's tag", "<KVParamGui version=\"1.0\">", "", "Enums Sheet Script </KVParamGui",
        "Enum Widget Property KVParamGui");
    row("a bracket in the root", "<KVParamGui version=\"1.0\">", "<", "Enums Sheet Script /KVParamGui",
        "Enum Widget");
    row("half a name in the root", "<KVParamGui version=\"1.0\">", "<She", "Sheet", "Widget");
    row("enumerations", "<Enums>", "<", "Enum /Enums", "EnumValue Sheet Widget");
    row("an enumeration", "<Enum name=\"TuningSteps\">", "<En", "EnumValue /Enum", "Enum Value");
    row("an entry", "<EnumValue>", "<", "DisplayName EnumIdentifier Value /EnumValue", "EnumValue Property");
    row("an entry with its first part", "<DisplayName>10 Hz</DisplayName>", "<", "EnumIdentifier Value",
        "DisplayName");
    row("an entry with two parts", "<EnumIdentifier>STEP_10</EnumIdentifier>", "<", "Value",
        "DisplayName EnumIdentifier");
    row("the shown text of an entry", "<DisplayName>10", "", "", "Value DisplayName true");
    row("behind the enumerations", "</Enums>", "<", "Enums Sheet Script", "Enum Widget");
    row("the sheet", "<Sheet name=\"receiver\">", "<", "Properties CustomProperties Widget /Sheet",
        "Property Enum Script");
    row("the sheet has its properties", "</CustomProperties>", "<", "Widget",
        "Properties CustomProperties Property");
    row("behind a row", "</Widget>", "\n  <", "Widget /Sheet", "Property Properties");
    row("a row", "<Widget name=\"tuningGroup\" class=\"Headline\">", "<", "Property CustomProperties /Widget",
        "Properties Widget Sheet Bool");
    row("a row, half a name", "<Widget name=\"tuningGroup\" class=\"Headline\">", "<Pro", "Property",
        "Widget");
    row("behind the sheet", "</Sheet>", "<", "Script Enums", "Sheet Widget Property");
    row("behind the form", "</KVParamGui>", "<", "", "KVParamGui Sheet");
    // End tags
    row("the end of a row", "<Widget name=\"tuningGroup\" class=\"Headline\">", "</", "Widget",
        "Sheet KVParamGui Property");
    row("half the end of the sheet", "</Widget>", "</Sh", "Sheet", "Widget KVParamGui");
    row("the end of a value", "<String>Tuning", "</", "String", "Property Widget");
    row("the end of a property", "<String>Tuning</String>", "</", "Property", "Widget String");
    // Attributes
    row("attributes of the root", "<KVParamGui ", "", "version", "name class");
    row("attributes of an enumeration", "<Enum ", "", "name", "class version");
    row("attributes of a row", "<Widget ", "", "name class", "version language");
    row("half an attribute of a row", "<Widget ", "cl", "class", "Property");
    row("a row with a name", "<Widget name=\"tuningGroup\" ", "", "class", "name version");
    row("a row with all", "<Widget name=\"tuningGroup\" class=\"Headline\"", " ", "", "name class");
    row("attributes of an entry", "<EnumValue", " ", "", "name class");
    row("attributes of a property", "<Property ", "", "name", "class type");
    row("attributes of the script", "<Script ", "", "language", "name");
    row("without a blank before", "<Widget name=\"tuningGroup\"", "", "", "class name");
    // Values of attributes
    row("a class", "<Widget name=\"tuningGroup\" class=\"", "", "Headline SpinBox ComboBox FrequencyEdit",
        "labelText Widget frequency");
    row("half a class", "<Widget name=\"tuningGroup\" class=\"", "Sp", "SpinBox SpinBoxList DoubleSpinBox",
        "labelText");
    row("a class in other quotes", "<Widget name=\"tuningGroup\" class=", "'", "Headline", "labelText");
    row("a class without its quote", "<Widget name=\"tuningGroup\" class=", "", "Headline SpinBox",
        "labelText");
    row("the name of a row", "<Widget name=\"", "", "", "frequency Headline labelText");
    row("language of the script", "<Script language=\"", "", "QtScript", "name");
    row("property of a headline", "<Widget name=\"tuningGroup\" class=\"Headline\">\n      <Property name=\"",
        "", "text margin enabled visible", "enumName currentValue minimum autoApplyEnabled");
    row("property of a frequency", "<Widget name=\"frequency\" class=\"FrequencyEdit\">", "<Property name=\"",
        "labelText MainFreqEdit value minimum singleStep FrequencyLock", "enumName checked autoApplyTimeout");
    row("property of a choice", "<Widget name=\"tuningStep\" class=\"ComboBox\">", "<Property name=\"",
        "enumName currentValue labelText toolTip", "minimum checked MainFreqEdit");
    row("property of a choice, half a name", "<Widget name=\"tuningStep\" class=\"ComboBox\">",
        "<Property name=\"lab", "labelText", "minimum");
    row("property that is there already",
        "<Property name=\"enumName\"><String>TuningSteps</String></Property>", "<Property name=\"",
        "currentValue unit", "enumName labelText checked");
    row("property of a check box", "<Widget name=\"tuningLock\" class=\"CheckBox\">", "<Property name=\"",
        "checked checkedValue uncheckedValue", "enumName minimum");
    row("property of an unknown class", "<Widget name=\"tuningLock\" class=\"", "Tick\"><Property name=\"",
        "labelText enabled visible", "checked enumName");
    row("property of the sheet", "<Properties>", "<Property name=\"",
        "autoApplyEnabled autoApplyTimeout parametersXmlRootTag Attribute_", "labelText visible enumName");
    row("custom property of the sheet", "<CustomProperties>", "<Property name=\"", "Attribute_",
        "autoApplyEnabled labelText");
    row("custom property of a row", "<Widget name=\"exclusions\" class=\"SpecialObject_FHP\">",
        "<CustomProperties><Property name=\"", "customXmlTag toolTip", "labelText enabled");
    row("property directly in the sheet", "<Sheet name=\"receiver\">", "<Property name=\"", "",
        "labelText autoApplyEnabled");
    // Whole properties where they stand
    row("a row offers its properties whole", "<Widget name=\"tuningStep\" class=\"ComboBox\">", "",
        "enumName labelText Property </Widget", "checked minimum autoApplyTimeout");
    row("the block of the sheet offers them whole", "<Properties>", "aut", "autoApplyEnabled Property",
        "labelText");
    // Types and values
    row("the type of a property", "<Property name=\"autoApplyEnabled\">", "<",
        "Bool Int String Double Int64 UInt64 /Property", "Property Widget");
    row("a property has one value", "<Property name=\"autoApplyEnabled\"><Bool>true</Bool>", "<", "/Property",
        "Bool Int String");
    row("a truth", "<Property name=\"autoApplyEnabled\"><Bool>", "", "true false", "Bool autoApplyEnabled");
    row("half a truth", "<Property name=\"autoApplyEnabled\"><Bool>", "fa", "true false", "Int");
    row("an enumeration's name", "<Property name=\"enumName\"><String>", "",
        "TuningSteps Demodulations GainModes Palettes", "STEP_10 frequency true");
    row("half an enumeration's name", "<Property name=\"enumName\"><String>", "Tun", "TuningSteps",
        "frequency");
    row("a choice of the enumeration", "<Property name=\"currentValue\"><String>", "",
        "10 100 1000 8333 25000", "FM STEP_10 TuningSteps");
    row("a choice of another", "<Widget name=\"demodulation\" class=\"ComboBox\">",
        "<Property name=\"enumName\"><String>Demodulations</String></Property>"
        "<Property name=\"currentValue\"><String>",
        "FM AM USB IQ", "10 DEMOD_FM");
    row("a path", "<Widget name=\"bfo\" class=\"FrequencyOffsetEdit\">",
        "<Property name=\"parameterXmlTag\"><String>", "Tuner/ bfo", "Scan/ true Tuner/Frequency");
    row("half a path", "<Widget name=\"gainMode\" class=\"ComboBox\">",
        "<Property name=\"parameterXmlTag\"><String>Tuner/", "Tuner/ Tuner/Squelch/", "Scan/");
    row("a number with a default", "<Property name=\"autoApplyTimeout\"><Int>", "", "1000",
        "true TuningSteps");
    row("a text", "<Property name=\"labelText\"><String>", "", "", "true TuningSteps frequency");
    // The script
    row("globals", "<Script language=\"QtScript\"><![CDATA[", "\n",
        "frequency demodulation Demodulations receiver Math parseInt print function var true",
        "setValue labelText Widget DEMOD_FM STEP_10");
    row("half a global", "<![CDATA[\n", "fre", "frequency frequencyResolution", "setValue");
    row("slots, signals and properties of a row", "<![CDATA[\n", "frequency.",
        "setValue valueChanged setMinimum setEnabled labelText FrequencyLock objectName",
        "frequency setCurrentValue parseInt Math function");
    row("half a slot of a choice", "<![CDATA[\n", "demodulation.setC", "setCurrentValue setCurrentIndex",
        "setMinimum frequency");
    row("identifiers of an enumeration", "<![CDATA[\n", "if (demodulation.currentValue == Demodulations.",
        "DEMOD_FM DEMOD_CW DEMOD_IQ", "FM STEP_10 setValue");
    row("the sheet's object", "<![CDATA[\n", "receiver.",
        "applyNow si_parametersModified setAutoApplyEnabled", "setCurrentValue frequency");
    row("a signal's functions", "<![CDATA[\n", "squelch.toggled.", "connect disconnect",
        "setChecked toggled");
    row("a slot has none", "<![CDATA[\n", "squelch.setChecked.", "", "connect setChecked");
    row("members of what nobody knows", "<![CDATA[\n", "nobody.", "", "setValue connect frequency");
    row("an argument hides a row", "<![CDATA[\n", "function f(frequency) { frequency.", "",
        "setValue valueChanged");
    row("what the script declares", "var wanted = Number(bandwidth.value);", "\n",
        "wanted range mode limits put choose bandwidth", "setMinimum step hertz");
    row("within an argument list", "<![CDATA[\n", "tuningLock.toggled.connect(fo", "frequency function",
        "setEnabled");
    row("a comment of the script", "// Widest and narrowest", "", "", "frequency function");
    row("a text of the script", "preset(98500000, \"", "", "", "frequency function");
    row("an escape", "<![CDATA[\n", "print('a{{", "{{CR}} {{LF}}", "frequency");
    row("behind the script", "]]>", "</", "Script", "KVParamGui");
    // Comments that allow
    row("a rule", "<Sheet name=\"receiver\">", "<!-- zorva: allow name", "nameless unknown-class", "Widget");
    row("a reason", "<Sheet name=\"receiver\">", "<!-- zorva: allow nameless be", "", "nameless Widget");
}

void TestCompletion::cut()
{
    QFETCH(QString, behind);
    QFETCH(QString, typed);
    QFETCH(QStringList, offered);
    QFETCH(QStringList, others);
    const QString whole = receiver();
    const int begin = whole.indexOf(behind);
    QVERIFY(begin >= 0);
    const QString text = whole.left(begin + behind.size()) + typed;
    m_talk.open(text);
    const QStringList labels = labelsAt(text.size());
    for (const QString& label : offered)
        QVERIFY2(labels.contains(label),
                 qPrintable(label + QStringLiteral(" is not in: ") + labels.join(QLatin1Char(' '))));
    for (const QString& label : others)
        QVERIFY2(!labels.contains(label),
                 qPrintable(label + QStringLiteral(" is in: ") + labels.join(QLatin1Char(' '))));
}

// The same with the rest of the form behind it.
void TestCompletion::inTheMiddle_data()
{
    QTest::addColumn<QString>("behind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("offered");
    QTest::addColumn<QStringList>("others");
    const auto row = [](const char* title, const char* behind, const char* typed, const char* offered,
                        const char* others) {
        QTest::newRow(title) << QString::fromUtf8(behind) << QString::fromUtf8(typed) << words(offered)
                             << words(others);
    };
    row("a property further down is there already", "<Widget name=\"tuningStep\" class=\"ComboBox\">",
        "\n<Property name=\"", "readOnly", "enumName currentValue toolTip labelText");
    row("a whole one", "<Widget name=\"tuningStep\" class=\"ComboBox\">", "\n", "readOnly Property",
        "enumName toolTip");
    row("the half-written one itself does not count", "<Widget name=\"tuningStep\" class=\"ComboBox\">",
        "\n<Property name=\"readOnl", "readOnly", "enumName");
    row("half a tag", "<Widget name=\"tuningStep\" class=\"ComboBox\">", "\n<Pro", "Property", "Widget");
    row("rows behind are globals", "// Widest and", "\n", "frequency missionScript Demodulations preset",
        "Widget");
    row("enumerations behind", "<Enums>", "<Enum name=\"", "", "TuningSteps");
    row("the sheet is there further down", "<KVParamGui version=\"1.0\">", "<", "Enums", "Sheet Script");
    row("an attribute behind is there already", "<Widget ", "", "", "name class");
    row("the class is not yet what it becomes", "<Widget name=\"tuningStep\" class=\"", "Spin",
        "SpinBox ComboBox", "labelText");
    row("paths of rows further down", "<Widget name=\"bfo\" class=\"FrequencyOffsetEdit\">",
        "<Property name=\"parameterXmlTag\"><String>", "Tuner/ Scan/ Level/Gain/", "Tuner/Bfo");
}

void TestCompletion::inTheMiddle()
{
    QFETCH(QString, behind);
    QFETCH(QString, typed);
    QFETCH(QStringList, offered);
    QFETCH(QStringList, others);
    QString text = receiver();
    const int place = text.indexOf(behind) + behind.size();
    text.insert(place, typed);
    m_talk.open(text);
    const QStringList labels = labelsAt(place + typed.size());
    for (const QString& label : offered)
        QVERIFY2(labels.contains(label),
                 qPrintable(label + QStringLiteral(" is not in: ") + labels.join(QLatin1Char(' '))));
    for (const QString& label : others)
        QVERIFY2(!labels.contains(label),
                 qPrintable(label + QStringLiteral(" is in: ") + labels.join(QLatin1Char(' '))));
}

void TestCompletion::whatAnItemMakesOfTheText_data()
{
    QTest::addColumn<QString>("text"); // with the place marked by |
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* title, const char* text, const char* label, const char* result) {
        QTest::newRow(title) << QString::fromUtf8(text) << QString::fromUtf8(label)
                             << QString::fromUtf8(result);
    };
    const char* const clefs = "<KVParamGui><Sheet><Widget name=\"\xf0\x9d\x84\x9e\" class=\"Sp|\"";
    row("a class", "<KVParamGui><Sheet><Widget class=\"Sp|\"", "SpinBox",
        "<KVParamGui><Sheet><Widget class=\"SpinBox\"");
    row("a class behind a letter of two units", clefs, "SpinBox",
        "<KVParamGui><Sheet><Widget name=\"\xf0\x9d\x84\x9e\" class=\"SpinBox\"");
    row("a class without quotes", "<KVParamGui><Sheet><Widget class=Sp|", "SpinBox",
        "<KVParamGui><Sheet><Widget class=\"SpinBox\"");
    row("the name of a tag that goes on", "<KVParamGui><Sheet><Wid| name=\"a\"/>", "Widget",
        "<KVParamGui><Sheet><Widget name=\"a\"/>");
    row("an end tag", "<KVParamGui><Sheet></Sh|", "Sheet", "<KVParamGui><Sheet></Sheet>");
    row("an end tag with its end", "<KVParamGui><Sheet></Sh|>", "Sheet", "<KVParamGui><Sheet></Sheet>");
    row("the whole path",
        "<KVParamGui><Sheet><Widget name=\"b\" class=\"Label\"><Property name=\"parameterXmlTag\"><String>x|",
        "b",
        "<KVParamGui><Sheet><Widget name=\"b\" class=\"Label\"><Property name=\"parameterXmlTag\"><String>b");
    row("an escape", "<KVParamGui><Script>print('{{C|", "{{CR}}", "<KVParamGui><Script>print('{{CR}}");
    row("letters that XML writes otherwise",
        "<KVParamGui><Enums><Enum name=\"a&amp;b\"/></Enums><Sheet><Widget class=\"ComboBox\">"
        "<Property name=\"enumName\"><String>|",
        "a&b",
        "<KVParamGui><Enums><Enum name=\"a&amp;b\"/></Enums><Sheet><Widget class=\"ComboBox\">"
        "<Property name=\"enumName\"><String>a&amp;b");
}

void TestCompletion::whatAnItemMakesOfTheText()
{
    QFETCH(QString, text);
    QFETCH(QString, label);
    QFETCH(QString, result);
    const int place = text.indexOf(QLatin1Char('|'));
    m_talk.open(text.remove(place, 1));
    const QJsonObject found = item(place, label);
    QVERIFY(!found.isEmpty());
    QCOMPARE(m_talk.edited({found.value(QStringLiteral("textEdit"))}), result);
}

void TestCompletion::snippets_data()
{
    QTest::addColumn<bool>("able");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("inserted");
    QTest::newRow("a row") << true << QStringLiteral("Widget")
                           << QStringLiteral("Widget name=\"$1\" class=\"$2\">\n\t$0\n</Widget>");
    QTest::newRow("a row for an editor that knows no stops")
        << false << QStringLiteral("Widget") << QStringLiteral("Widget");
}

void TestCompletion::snippets()
{
    QFETCH(bool, able);
    QFETCH(QString, label);
    QFETCH(QString, inserted);
    ServerTalk talk;
    talk.initialize(able ? snippetAbility() : QJsonObject());
    const QString text = QStringLiteral("<KVParamGui><Sheet><");
    talk.open(text);
    const QJsonArray items = talk.askAt("textDocument/completion", text.size())
                                 .toObject()
                                 .value(QStringLiteral("items"))
                                 .toArray();
    for (const QJsonValue& entry : items) {
        if (entry.toObject().value(QStringLiteral("label")).toString() != label)
            continue;
        QCOMPARE(entry.toObject()
                     .value(QStringLiteral("textEdit"))
                     .toObject()
                     .value(QStringLiteral("newText"))
                     .toString(),
                 inserted);
        return;
    }
    QFAIL("not offered");
}

// Outside of texts that are the author's own there is always something to go on with.
void TestCompletion::everyPrefixIsAnswered()
{
    const QString whole = receiver();
    const int step = qEnvironmentVariableIsSet("ZORVA_DAMAGES") ? 7 : 997;
    for (int size = 0; size <= whole.size(); size += step) {
        m_talk.open(whole.left(size));
        const QJsonValue answer = m_talk.askAt("textDocument/completion", size);
        QVERIFY2(answer.toObject().value(QStringLiteral("items")).isArray(),
                 qPrintable(QString::number(size)));
        m_talk.open(whole.left(size) + QStringLiteral("<"));
        const bool isInText =
            whole.left(size).lastIndexOf(QLatin1Char('<')) > whole.left(size).lastIndexOf(QLatin1Char('>'));
        const bool isInCode =
            size > whole.indexOf(QStringLiteral("<![CDATA[")) && size < whole.indexOf(QStringLiteral("]]>"));
        if (!isInText && !isInCode && size > 0 && size < whole.trimmed().size())
            QVERIFY2(!labelsAt(size + 1).isEmpty(), qPrintable(QString::number(size)));
    }
}

void TestCompletion::helpIsInTheItems()
{
    const QString text = QStringLiteral("<KVParamGui><Sheet><Widget class=\"SpinBox\"><Property name=\"");
    m_talk.open(text);
    const QJsonObject step = item(text.size(), QStringLiteral("singleStep"));
    QVERIFY(textOfMarkup(step.value(QStringLiteral("documentation"))).contains(QStringLiteral("above 0")));
    QVERIFY(step.value(QStringLiteral("detail")).toString().startsWith(QStringLiteral("Int")));
    const QJsonObject inert = item(text.size(), QStringLiteral("applyMode"));
    QVERIFY(inert.value(QStringLiteral("sortText")).toString() >
            step.value(QStringLiteral("sortText")).toString());
}

void TestCompletion::badPlaces_data()
{
    QTest::addColumn<QJsonObject>("params");
    const QJsonObject document{{QStringLiteral("uri"), ServerTalk::uri()}};
    QTest::newRow("nothing") << QJsonObject();
    QTest::newRow("no document") << QJsonObject{
        {QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), QStringLiteral("x:y")}}}};
    QTest::newRow("no position") << QJsonObject{{QStringLiteral("textDocument"), document}};
    QTest::newRow("position of another kind")
        << QJsonObject{{QStringLiteral("textDocument"), document}, {QStringLiteral("position"), 7}};
    QTest::newRow("a negative line") << QJsonObject{
        {QStringLiteral("textDocument"), document},
        {QStringLiteral("position"),
         QJsonObject{{QStringLiteral("line"), -1}, {QStringLiteral("character"), 0}}}};
}

void TestCompletion::badPlaces()
{
    QFETCH(QJsonObject, params);
    m_talk.open(QStringLiteral("<KVParamGui/>"));
    const QJsonObject answer = m_talk.ask("textDocument/completion", params);
    QCOMPARE(answer.value(QStringLiteral("error")).toObject().value(QStringLiteral("code")).toInt(), -32602);
}

QTEST_GUILESS_MAIN(TestCompletion)
#include "tst_completion.moc"
