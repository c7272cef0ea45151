#include "rulestest.h"

#define ROW(name) "<Widget name=\"" name "\" class=\"Separator\"/>\n"
#define ROW_A ROW("a")
#define ROW_B ROW("b")
#define ROW_C ROW("c")

namespace {

QString root(const char* content)
{
    return QStringLiteral("<KVParamGui version=\"1.0\">\n%1\n</KVParamGui>\n")
        .arg(QString::fromUtf8(content));
}

} // namespace

class tst_documentrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        const auto inRoot = [](const char* what, const char* text, const char* places, const char* effects) {
            add(what, root(text), places, effects);
        };
        whole("empty", "", "no-form 1:1", "");
        whole("root of another name", "<KVParamGUI><Sheet name=\"s\">" ROW_A "</Sheet></KVParamGUI>",
              "no-form 1:1", "because of this the form loses the row a");
        whole("root in a wrapper", "<x>\n<KVParamGui version=\"1\"><Sheet name=\"s\"/></KVParamGui>\n</x>",
              "root-in-wrapper 2:1", "");
        whole("two roots in a wrapper",
              "<x>\n<KVParamGui><Sheet name=\"s\">" ROW_A
              "</Sheet></KVParamGui>\n<KVParamGui><Sheet name=\"s\"/></KVParamGui>\n</x>",
              "several-roots 2:1, root-in-wrapper 4:1", "because of this the form loses the row a");
        whole("cut in a row",
              "<KVParamGui><Sheet name=\"s\">\n" ROW_A "<Widget name=\"b\" class=\"Separator\">",
              "not-well-formed 3:36", "");
        rows("an end tag is missing",
             "<Widget name=\"a\" class=\"Separator\">\n<Property name=\"toolTip\"><String>1</Property>\n"
             "</Widget>\n" ROW_B ROW_C,
             "not-well-formed 4:35", "because of this the form loses 2 rows (b, c)");
        rows("ampersand",
             "<Widget name=\"a\" class=\"Separator\">\n<Property name=\"toolTip\"><String>1 & "
             "2</String></Property>\n"
             "</Widget>\n" ROW_B,
             "not-well-formed 4:36", "because of this the form loses the row b");
        rows("a quote is missing", "<Widget name=\"a class=\"Separator\">\n</Widget>\n" ROW_B,
             "not-well-formed 3:24", "because of this the form loses 2 rows (a class=, b)");
        rows("an open comment", "<!-- note\n" ROW_B, "not-well-formed 3:1", "");
        inRoot("unknown element",
               "<Enumerations>\n<Enum "
               "name=\"E\"><EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier>"
               "<Value>1</Value></EnumValue></Enum>\n"
               "</Enumerations>",
               "unknown-element 2:1", "because of this the form loses the enumeration E");
        inRoot("stray element",
               "<Sheet name=\"s\">\n<Widget name=\"a\" class=\"Separator\">\n<x/>\n</Widget>\n" ROW_B
               "</Sheet><Script language=\"QtScript\">var a;</Script>",
               "stray-element 4:1", "because of this the form loses the row b and the script");
        rows("properties in a row",
             "<Widget name=\"a\" class=\"Separator\">\n<Properties/>\n</Widget>\n" ROW_B,
             "properties-in-row 4:1", "because of this the form loses the row b");
        rows("property in the sheet", "<Property name=\"autoApplyEnabled\"><Bool>true</Bool></Property>",
             "misplaced-property 3:1", "because of this the form loses the property autoApplyEnabled");
        rows("property without a type",
             "<Widget name=\"a\" class=\"Separator\">\n<Property "
             "name=\"toolTip\">1</Property>\n</Widget>\n" ROW_B,
             "property-without-type 4:1",
             "because of this the form loses the row b and the property toolTip");
        rows("element in a text",
             "<Widget name=\"a\" class=\"Separator\">\n<Property "
             "name=\"toolTip\"><String>1<b/></String></Property>\n"
             "</Widget>\n" ROW_B,
             "element-in-text 4:35", "because of this the form loses the row b");
        rows("second value",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"toolTip\"><String>1</String><String>2</String></Property>\n</Widget>",
             "second-value 4:44", "");
        rows("doubled property",
             "<Widget name=\"a\" class=\"Separator\">\n<Property "
             "name=\"toolTip\"><String>1</String></Property>\n"
             "<Property name=\"toolTip\"><String>2</String></Property>\n</Widget>",
             "doubled-property 4:1", "because of this the form loses the property toolTip");
        inRoot("two scripts",
               "<Sheet name=\"s\"/>\n<Script language=\"QtScript\">var a;</Script>\n"
               "<Script language=\"QtScript\">var b;</Script>",
               "several-scripts 3:1", "because of this the form loses the script");
        inRoot("two sheets", "<Sheet name=\"s\"/>\n<Sheet name=\"t\"/>", "several-sheets 3:1", "");
        rows("nameless", "<Widget class=\"Separator\"/>", "nameless 3:1", "");
        rows("unknown attribute", "<Widget name=\"a\" class=\"Separator\" id=\"1\"/>",
             "unknown-attribute 3:36", "");
        rows("text between rows", ROW_A "  over\n" ROW_B, "stray-text 4:3", "");
        rows("text beside a value",
             "<Widget name=\"a\" class=\"Separator\">\n<Property "
             "name=\"toolTip\">1<String>2</String></Property>/\n"
             "</Widget>\n" ROW_B,
             "stray-text 4:26, stray-text 4:56", "");
        rows("text in a CDATA section", "<![CDATA[over]]>" ROW_A, "stray-text 3:10", "");
        inRoot("text in the form", "<Sheet name=\"s\"/>\n&lt;!-- over --&gt;", "stray-text 3:1", "");
        inRoot("text in an entry",
               "<Enums>\n<Enum "
               "name=\"E\"><EnumValue>=<DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier>"
               "<Value>1</Value></EnumValue></Enum>\n</Enums><Script language=\"QtScript\">E;</Script>",
               "stray-text 3:27", "");
        rows("blanks, comments and an empty section between rows",
             ROW_A "\t <!-- over --> <![CDATA[ ]]>\n<?over there?>" ROW_B, "", "");
        rows("a block in a block",
             "<Widget name=\"a\" class=\"Separator\"><CustomProperties>\n<CustomProperties><Property "
             "name=\"b\">"
             "<String>1</String></Property></CustomProperties></CustomProperties></Widget>",
             "nested-block 4:1", "");
        rows("a block in the block of the sheet",
             "<Properties>\n<CustomProperties><Property name=\"b\"><String>1</String></Property>"
             "</CustomProperties></Properties>",
             "nested-block 4:1", "");
        whole("a namespace", "<KVParamGui xmlns=\"urn:x\"><Sheet name=\"s\"/></KVParamGui>",
              "foreign-namespace 1:13", "");
        whole("a prefix", "<x:KVParamGui xmlns:x=\"urn:x\">\n<x:Sheet name=\"s\"/></x:KVParamGui>",
              "foreign-namespace 1:2", "");
        whole("a prefix for nothing", "<KVParamGui xmlns:x=\"urn:x\"><Sheet name=\"s\"/></KVParamGui>", "",
              "");
        whole("an encoding that nobody has", "<?xml version=\"1.0\" encoding=\"ISO-99\"?>\n<KVParamGui/>",
              "unreadable-encoding 1:31, no-form 2:1", "");
        whole("a prefix that nothing explains", "<x:KVParamGui/>", "no-form 1:1, not-well-formed 1:15", "");
        rows("two mistakes, one behind the other",
             "<Widget name=\"a\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"b\" "
             "class=\"Separator\">\n<y/>\n"
             "</Widget>",
             "stray-element 4:1, stray-element 7:1", "because of this the form loses the row b");
    }

private Q_SLOTS:
    void encodings_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("form");
        const auto declaring = [](const char* encoding) {
            return QString::fromUtf8("<?xml version=\"1.0\" encoding=\"%1\"?>\n<KVParamGui version=\"1.0\">"
                                     "<Sheet name=\"s\"><Widget name=\"\xc3\xa4\" class=\"Separator\"/>"
                                     "</Sheet></KVParamGui>\n")
                .arg(QLatin1String(encoding));
        };
        const QString wide = QChar(QChar::ByteOrderMark) + declaring("UTF-16");
        QTest::newRow("UTF-8") << declaring("UTF-8").toUtf8() << true;
        QTest::newRow("UTF-8 with a mark") << "\xef\xbb\xbf" + declaring("UTF-8").toUtf8() << true;
        QTest::newRow("Latin-1") << declaring("ISO-8859-1").toLatin1() << true;
        QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char*>(wide.utf16()), 2 * wide.size())
                                << true;
        QTest::newRow("bytes of another encoding") << declaring("UTF-8").toLatin1() << false;
        QTest::newRow("an encoding that nobody has") << declaring("KOI-99").toUtf8() << false;
    }

    void encodings()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, form);
        const Orvane::Author::CheckedFile checked = Orvane::Author::check(QStringLiteral("f"), bytes);
        QCOMPARE(checked.form, form);
        QCOMPARE(checked.findings.isEmpty(), form);
        QCOMPARE(checked.lost.rows.size(), form ? 0 : 1);
    }

    void anyBytesGiveFindings_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("zeros") << QByteArray(5000, '\0');
        QByteArray all;
        for (int i = 0; i < 70000; ++i)
            all += static_cast<char>(i * 7);
        QTest::newRow("all bytes") << all;
        QTest::newRow("deep") << QByteArray("<a>").repeated(100000);
        QTest::newRow("deep rows") << "<KVParamGui><Sheet>" + QByteArray("<Widget>").repeated(50000);
        QTest::newRow("open brackets") << QByteArray("<").repeated(100000);
        QTest::newRow("marks") << QByteArray("\xff\xfe");
    }

    void anyBytesGiveFindings()
    {
        QFETCH(QByteArray, bytes);
        const Orvane::Author::CheckedFile checked = Orvane::Author::check(QStringLiteral("f"), bytes);
        QVERIFY(checked.has(Orvane::Author::Severity::Error));
    }
};

QTEST_MAIN(tst_documentrules)
#include "tst_documentrules.moc"
