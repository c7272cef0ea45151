#include "rulestest.h"

class tst_namesrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        const auto enums = [](const char* what, const char* text, const char* places, const char* effects) {
            add(what,
                QStringLiteral("<KVParamGui>\n<Enums>\n%1</Enums>\n<Sheet name=\"sheet\">\n"
                               "<Widget name=\"row\" class=\"Separator\"/>\n</Sheet>\n<Script "
                               "language=\"QtScript\">E;</Script>\n</KVParamGui>\n")
                    .arg(QString::fromLatin1(text)),
                places, effects);
        };
#define ENUM(name)                                                                                           \
    "<Enum name=\"" name "\"><EnumValue><DisplayName>1</DisplayName><EnumIdentifier>ONE</EnumIdentifier>"    \
    "<Value>1</Value></EnumValue></Enum>\n"
        rows("two rows", "<Widget name=\"a\" class=\"Separator\"/>\n<Widget name=\"a\" class=\"Separator\"/>",
             "doubled-row 4:15");
        rows("rows that differ in case",
             "<Widget name=\"a\" class=\"Separator\"/>\n<Widget name=\"A\" class=\"Separator\"/>", "");
        rows("the sheet's name", "<Widget name=\"sheet\" class=\"Separator\"/>", "hidden-global 3:15");
        rows("a name of the language", "<Widget name=\"Math\" class=\"Separator\"/>", "hidden-global 3:15");
        rows("a property that renames",
             "<Widget name=\"a\" class=\"Separator\"><Property "
             "name=\"objectName\"><String>b</String></Property></Widget>",
             "property-name 3:52");
        rows("a property beyond bytes",
             "<Widget name=\"a\" class=\"Separator\"><Property "
             "name=\"&#x3a9;\"><String>b</String></Property></Widget>",
             "property-name 3:52");
        enums("two enumerations", ENUM("E") ENUM("E"), "doubled-enumeration 3:1",
              "because of this the form loses the enumeration E");
        enums("two enumerations without a name", ENUM("E") ENUM("") ENUM(""),
              "doubled-enumeration 4:1, nameless 4:1, nameless 5:1",
              "because of this the form loses the enumeration nameless");
    }
};

QTEST_MAIN(tst_namesrules)
#include "tst_namesrules.moc"
