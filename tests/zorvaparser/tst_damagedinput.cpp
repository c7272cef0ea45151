#include "enginetest.h"

#include <zorvaparser/zorvaparser.h>

#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollArea>

using Orvane::ZorvaFormular;
using Orvane::ZorvaParser;

namespace {

const char* const allClasses[] = {"ComboBox",
                                  "CheckBox",
                                  "Headline",
                                  "FrequencyEdit",
                                  "FrequencyRangeEdit",
                                  "SpinBox",
                                  "DoubleSpinBox",
                                  "BandwidthEdit",
                                  "ChannelSpacingTable",
                                  "DoubleSpinBoxList",
                                  "HiddenList",
                                  "ScriptControl",
                                  "HiddenMap",
                                  "HiddenParameter",
                                  "HiddenTable",
                                  "LineEdit",
                                  "PushButton",
                                  "Label",
                                  "Separator",
                                  "FixedSpacer",
                                  "SpinBoxList",
                                  "TableWidget",
                                  "SpecialObject_Audio",
                                  "SpecialObject_DSC",
                                  "SpecialObject_FFT",
                                  "SpecialObject_Generic",
                                  "SpecialObject_Tuner",
                                  "SpecialObject_FHP"};

/// One row of every kind in a short description.
QString oneOfEach()
{
    QString widgets;
    for (const char* const className : allClasses)
        widgets += rowXml(className, className, {{"labelText", "x"}, {"enumName", "E"}, {"text", "t"}});
    return formXml(widgets, enumXml("E", {{"one", "ONE", "1"}, {"two", "TWO", "2"}}),
                   QStringLiteral("var ran = true;"));
}

/// Takes a form, if there is one, through all steps of its life.
void live(const FormPointer& form)
{
    if (!form)
        return;
    form->CreateValueTree(QStringLiteral("/test"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    form->SetXmlString(form->GetXmlString(false));
    form->GetSheet().SetCollapsed({QStringLiteral("Headline")});
    form->EnableInput(false);
}

QString nested(int depth, const char* element, const QString& inside = QString())
{
    const QString name = QString::fromLatin1(element);
    return QStringLiteral("<%1>").arg(name).repeated(depth) + inside +
           QStringLiteral("</%1>").arg(name).repeated(depth);
}

} // namespace

class tst_damagedinput : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void descriptionMayEndAnywhere()
    {
        messages().allow(QRegularExpression(QStringLiteral(".*")));
        const QString whole = oneOfEach();
        for (int length = 0; length < whole.size(); length += 3) {
            const FormPointer form = parsed(whole.left(length));
            if (form && length % 97 == 0)
                live(form);
        }
    }

    void descriptionMayBeWrongAnywhere_data()
    {
        QTest::addColumn<QString>("damage");
        for (const char* const damage : {"<", ">", "&", "\"", "</Widget>", "</Property>", "<Property/>",
                                         "<x/>", "<Widget>", "]]>", "<!--", "\x01"})
            QTest::newRow(*damage == '\x01' ? "control character" : damage) << QString::fromLatin1(damage);
    }

    void descriptionMayBeWrongAnywhere()
    {
        QFETCH(QString, damage);
        messages().allow(QRegularExpression(QStringLiteral(".*")));
        const QString whole = oneOfEach();
        for (int place = 0; place < whole.size(); place += 29) {
            QString text = whole;
            const FormPointer form = parsed(text.insert(place, damage));
            if (form && place % 5 == 0) {
                form->CreateValueTree(QStringLiteral("/test"));
                form->GetXmlString(false);
            }
        }
    }

    void overlayMayBeWrongAnywhere()
    {
        const QString whole = oneOfEach();
        const FormPointer form = parsed(whole);
        form->CreateValueTree(QStringLiteral("/test"));
        for (int place = 0; place < whole.size(); place += 31) {
            QString text = whole;
            form->SetChangedZORVA(text.left(place));
            form->SetChangedZORVA(text.insert(place, QStringLiteral("<x/>")));
        }
    }

    void parametersMayBeWrongAnywhere()
    {
        const FormPointer form = parsed(oneOfEach());
        form->CreateValueTree(QStringLiteral("/test"));
        const QString whole = form->GetXmlString(false);
        for (int place = 0; place < whole.size(); ++place) {
            for (const char* const damage : {"", "<", "<x/>", "</x>", "&none;", "</Parameters>"}) {
                QString text = whole;
                form->SetXmlString(text.insert(place, QString::fromLatin1(damage)));
                QVERIFY(form->GetSheet().isActive());
            }
            form->SetXmlString(whole.left(place));
        }
    }

    void bytesMayBeAnything()
    {
        QRandomGenerator random(1);
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes =
                round % 2 ? QByteArray("<KVParamGui><Sheet><Widget name=\"a\">") : QByteArray();
            for (int i = 0; i < 200; ++i)
                bytes += static_cast<char>(random.bounded(256));
            const FormPointer form(ZorvaParser().ParseZORVA(bytes));
            if (form)
                form->CreateValueTree(QStringLiteral("/test"));
        }
    }

    void entitiesMayNotGrow()
    {
        QString text = QStringLiteral("<!DOCTYPE x [<!ENTITY e0 \"0123456789\">");
        for (int i = 1; i < 12; ++i) {
            const QString previous = QStringLiteral("&e%1;").arg(i - 1);
            text += QStringLiteral("<!ENTITY e%1 \"%2\">").arg(i).arg(previous.repeated(10));
        }
        text += QStringLiteral("]>");
        const FormPointer form = parsed(
            text + sheetXml(QStringLiteral("<Widget name=\"a\">%1</Widget>").arg(propertyXml("x", "&e11;"))));
        QVERIFY(form);
        QVERIFY(delegateNamed(form->GetSheet(), "a")->property("x").toString().size() < 100000);
        form->SetXmlString(text + QStringLiteral("<Parameters><a>&e11;</a></Parameters>"));
    }

    void nestingMayBeDeep_data()
    {
        QTest::addColumn<int>("depth");
        QTest::newRow("thousand") << 1000;
        QTest::newRow("hundred thousand") << 100000;
    }

    void nestingMayBeDeep()
    {
        QFETCH(int, depth);
        const QString last = QStringLiteral("<Widget name=\"last\"/>");
        const auto namesOf = [](const QString& text) {
            const FormPointer form = parsed(text);
            return form ? widgetNames(form->GetSheet()).join(QLatin1Char(' ')) : QStringLiteral("no form");
        };
        // A root deep inside others is found; strays that are skipped do no harm.
        QCOMPARE(namesOf(nested(depth, "w", sheetXml(last))), QStringLiteral("last"));
        QCOMPARE(namesOf(rootXml(nested(depth, "Stray") + QStringLiteral("<Sheet>%1</Sheet>").arg(last))),
                 QStringLiteral("last"));
        QCOMPARE(namesOf(sheetXml(nested(depth, "Stray") + last)), QStringLiteral("last"));
        QCOMPARE(namesOf(rootXml(nested(depth, "Enums") + QStringLiteral("<Sheet>%1</Sheet>").arg(last))),
                 QStringLiteral("last"));
        QCOMPARE(
            namesOf(rootXml(nested(depth, "KVParamGui") + QStringLiteral("<Sheet>%1</Sheet>").arg(last))),
            QStringLiteral("last"));
        // In a widget the first end tag ends the row, and the next one the sheet.
        QCOMPARE(namesOf(sheetXml(
                     QStringLiteral("<Widget name=\"a\">%1</Widget>").arg(nested(depth, "Stray")) + last)),
                 QStringLiteral("a"));
        QCOMPARE(namesOf(sheetXml(nested(depth, "Widget") + last)), QStringLiteral("_0"));
        // Custom blocks nest as they like, in rows and in the sheet.
        const QString custom = nested(depth, "CustomProperties");
        QCOMPARE(namesOf(sheetXml(QStringLiteral("<Widget name=\"a\">%1</Widget>").arg(custom) + last)),
                 QStringLiteral("a last"));
        QCOMPARE(namesOf(sheetXml(custom + last)), QStringLiteral("last"));
        // Never closed.
        const QString open = QStringLiteral("<CustomProperties>").repeated(depth);
        QCOMPARE(namesOf(QStringLiteral("<KVParamGui><Sheet><Widget name=\"a\">") + open),
                 QStringLiteral("a"));
        QCOMPARE(namesOf(QStringLiteral("<w>").repeated(depth)), QStringLiteral("no form"));
    }

    void parametersMayBeDeep_data() { nestingMayBeDeep_data(); }

    void parametersMayBeDeep()
    {
        QFETCH(int, depth);
        FormFixture form(rowXml("LineEdit", "a") + rowXml("HiddenList", "list") + rowXml("ComboBox", "box"),
                         FormFixture::WithValues);
        const QString root = QStringLiteral("<Parameters>%1<a>%2</a></Parameters>");
        form.formular()->SetXmlString(root.arg(nested(depth, "x"), QStringLiteral("1")));
        QCOMPARE(form.row("a")->property("text").toString(), QStringLiteral("1"));
        form.formular()->SetXmlString(nested(depth, "w", root.arg(QString(), QStringLiteral("2"))));
        QCOMPARE(form.row("a")->property("text").toString(), QStringLiteral("2"));
        for (const char* const row : {"a", "list", "box", "Parameters"})
            form.formular()->SetXmlString(root.arg(nested(depth, row), QStringLiteral("3")));
        form.formular()->SetXmlString(root.arg(QStringLiteral("<list>").repeated(depth), QString()));
        QVERIFY(form.sheet().isActive());
    }

    void pathsMayBeDeep()
    {
        const QString groups = QStringLiteral("g/").repeated(100000);
        FormFixture form(rowXml("LineEdit", "a", {{"parameterXmlTag", groups + QStringLiteral("a")}}) +
                             rowXml("LineEdit", "b", {{"parameterXmlTag", groups + QStringLiteral("b")}}),
                         FormFixture::Parsed);
        const auto widget = form.sheet().GetWidget(groups + QStringLiteral("b"));
        QVERIFY(widget);
        QCOMPARE(widget->GetName(), QStringLiteral("b"));
        form.row("b")->setModified(false);
        form.formular()->SetXmlString(QStringLiteral("<Parameters>%1</Parameters>")
                                          .arg(nested(100000, "g", QStringLiteral("<a>1</a>"))));
        QCOMPARE(form.row("a")->property("text").toString(), QStringLiteral("1"));
        QCOMPARE(form.sheet().GetWidget(QStringLiteral("a"))->GetName(), QStringLiteral("a"));
    }

    void numbersMayBeAbsurd_data()
    {
        QTest::addColumn<QString>("number");
        for (const char* const number : {"",
                                         "0",
                                         "-1",
                                         "1e400",
                                         "-1e400",
                                         "nan",
                                         "inf",
                                         "1e308",
                                         "-1e308",
                                         "1e-320",
                                         "2147483647",
                                         "2147483648",
                                         "-2147483648",
                                         "9223372036854775807",
                                         "9223372036854775808",
                                         "-9223372036854775808",
                                         "18446744073709551616",
                                         "0x10",
                                         "1,5",
                                         "1.5",
                                         "x",
                                         "true",
                                         "99999999999999999999999999999999999999999999999999"})
            QTest::newRow(*number ? number : "empty") << QString::fromLatin1(number);
    }

    void numbersMayBeAbsurd()
    {
        QFETCH(QString, number);
        messages().allow(QRegularExpression(QStringLiteral(".*")));
        QString widgets;
        for (const char* const className : allClasses) {
            QString properties;
            for (const char* const property :
                 {"value", "minimum", "maximum", "singleStep", "decimals", "unitScale",
                  "displayScalingFactor", "displayAdditiveOffset", "maxLength", "maxHistoryLength",
                  "frequency", "startFrequency", "stopFrequency", "text", "margin", "height"})
                properties += propertyXml(property, number.toLatin1().constData());
            widgets += QStringLiteral("<Widget name=\"%1\" class=\"%1\">%2%3%4</Widget>")
                           .arg(QString::fromLatin1(className), properties,
                                propertyXml("generateParameterXml", "true", "Bool"),
                                propertyXml("visible", "true", "Bool"));
        }
        const QString sheet = QStringLiteral("<Properties>%1</Properties>")
                                  .arg(propertyXml("autoApplyTimeout", number.toLatin1().constData()));
        const FormPointer form = parsed(sheetXml(sheet + widgets));
        QVERIFY(form);
        live(form);
        QString parameters;
        for (const char* const className : allClasses)
            parameters += QStringLiteral("<%1>%2</%1>").arg(QString::fromLatin1(className), number);
        form->SetXmlString(QStringLiteral("<Parameters>%1</Parameters>").arg(parameters));
        form->GetXmlString(false);
    }

    void namesMayBeAnything_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("slashes") << "//";
        QTest::newRow("blank") << " ";
        QTest::newRow("comma") << "a,b";
        QTest::newRow("word of the language") << "function";
        QTest::newRow("built-in") << "Math";
        QTest::newRow("prototype") << "__proto__";
        QTest::newRow("number") << "0";
        QTest::newRow("beyond Latin-1") << QStringLiteral("\u9891\u7387");
        QTest::newRow("percent") << "%1%2";
        QTest::newRow("long") << QString(100000, QLatin1Char('n'));
    }

    void namesMayBeAnything()
    {
        QFETCH(QString, name);
        const QString escaped = name.toHtmlEscaped();
        const FormPointer form = parsed(
            QStringLiteral(
                "<KVParamGui><Enums><Enum name=\"%1\"><EnumValue><EnumIdentifier>%1"
                "</EnumIdentifier></EnumValue></Enum></Enums><Sheet name=\"%1\">"
                "<Widget name=\"%1\" class=\"LineEdit\"><Property name=\"%1\"><Int>1</Int></Property>%2"
                "</Widget></Sheet></KVParamGui>")
                .arg(escaped, propertyXml("visible", "true", "Bool")));
        QCOMPARE(form->GetSheet().GetWidgetAt(0)->GetName(), name);
        form->CreateValueTree(QStringLiteral("/test"));
        form->CreateGUI(true);
        delete form->GetGUI();
        form->GetSheet().GetWidget(name);
    }

    void tenThousandRows()
    {
        constexpr int count = 10000;
        QString widgets;
        for (int i = 0; i < count; ++i) {
            if (i % 100 == 0)
                widgets += QStringLiteral("<Widget name=\"h%1\" class=\"Headline\">%2%3</Widget>")
                               .arg(i)
                               .arg(propertyXml("text", "Head"), propertyXml("visible", "true", "Bool"));
            widgets += QStringLiteral("<Widget name=\"w%1\" class=\"LineEdit\">%2%3%4</Widget>")
                           .arg(i)
                           .arg(propertyXml("generateParameterXml", "true", "Bool"),
                                propertyXml("visible", "true", "Bool"),
                                QStringLiteral(
                                    "<Property name=\"parameterXmlTag\"><String>g%1/t%2</String></Property>")
                                    .arg(i / 100)
                                    .arg(i));
        }
        const FormPointer form = parsed(sheetXml(widgets));
        QCOMPARE(form->GetSheet().GetWidgetCount(), count + count / 100);
        form->CreateValueTree(QStringLiteral("/test"));
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        for (int i = 0; i < count; ++i) {
            QVERIFY(form->GetSheet().GetWidget(QStringLiteral("t%1").arg(i)));
            QVERIFY(form->GetSheet().GetWidget(QStringLiteral("g%1/t%2").arg(i / 100).arg(i)));
        }
        QStringList collapsed;
        for (int i = 0; i < count; i += 100)
            collapsed << QStringLiteral("h%1").arg(i);
        form->GetSheet().SetCollapsed(collapsed);
        QCOMPARE(form->GetSheet().GetCollapsed(), collapsed);
        form->GetSheet().SetCollapsed({});
        form->EnableInput(false);
        form->EnableInput(true);
        const QString text = form->GetXmlString(false);
        form->SetXmlString(text);
        QCOMPARE(form->GetXmlString(false), text);
        QVERIFY(form->GetXmlString(true).isNull());
    }

    void tenThousandEnumerationEntries()
    {
        QString entries;
        for (int i = 0; i < 10000; ++i)
            entries +=
                QStringLiteral("<EnumValue><DisplayName>n%1</DisplayName><EnumIdentifier>I%1</EnumIdentifier>"
                               "<Value>%1</Value></EnumValue>")
                    .arg(i);
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Enums><Enum name=\"E\">%1</Enum></Enums>").arg(entries)));
        const auto enumeration = form->GetEnum(QStringLiteral("E"));
        QCOMPARE(enumeration->GetValueCount(), 10000);
        for (int i = 0; i < 10000; ++i)
            QCOMPARE(enumeration->firstIndexOfName(QStringLiteral("n%1").arg(i)), i);
    }
};

QTEST_MAIN(tst_damagedinput)
#include "tst_damagedinput.moc"
