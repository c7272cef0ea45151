#include "rulestest.h"

#define ENTRY(shown, identifier, value)                                                                      \
    "<EnumValue><DisplayName>" shown "</DisplayName><EnumIdentifier>" identifier                             \
    "</EnumIdentifier><Value>" value "</Value></EnumValue>"
#define ENUM_NAME(name) "<Property name=\"enumName\"><String>" name "</String></Property>"
#define START(value) "<Property name=\"currentValue\"><String>" value "</String></Property>"

class tst_enumerationsrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        // The entries begin in line 4.
        const auto choice = [](const char* what, const char* entries, const char* places,
                               const char* properties = ENUM_NAME("E")) {
            add(what,
                QStringLiteral(
                    "<KVParamGui version=\"1.0\">\n<Enums>\n<Enum name=\"E\">\n%1\n</Enum>\n</Enums>\n"
                    "<Sheet name=\"sheet\">\n<Widget name=\"row\" class=\"ComboBox\">\n%2\n"
                    "<Property name=\"labelText\"><String>A</String></Property>" SHOWN_AND_SENT
                    "</Widget>\n</Sheet>\n</KVParamGui>")
                    .arg(QString::fromLatin1(entries), QString::fromLatin1(properties)),
                places);
        };
        choice("all is well", ENTRY("1", "A", "1") "\n" ENTRY("2", "B", "2"), "");
        choice("a part is missing",
               ENTRY("1", "A", "1") "\n"
                                    "<EnumValue><DisplayName>2</DisplayName><Value>2</Value></EnumValue>",
               "entry-part 5:1");
        choice("an empty part", ENTRY("1", "A", "1") "\n" ENTRY("2", "B", ""), "entry-part 5:1");
        choice("no entries", "", "empty-enumeration 3:1");
        choice("an identifier with a minus", ENTRY("1", "A-B", "1"), "entry-identifier 4:56");
        choice("a shown text twice", ENTRY("1", "A", "1") "\n" ENTRY("1", "B", "2"), "doubled-entry 5:25");
        choice("a value twice", ENTRY("1", "A", "1") "\n" ENTRY("2", "B", "1"), "doubled-entry 5:81");
        choice("an identifier twice", ENTRY("1", "A", "1") "\n" ENTRY("2", "A", "2"), "doubled-entry 5:56");
        choice("a part twice",
               "<EnumValue><DisplayName>2</DisplayName><DisplayName>1</DisplayName><EnumIdentifier>A</"
               "EnumIdentifier><Value>2</Value></EnumValue>",
               "doubled-part 4:40");
        choice("another enumeration", ENTRY("1", "A", "1"),
               "unused-enumeration 3:1, unknown-enumeration 9:35", ENUM_NAME("F"));
        choice("a start that is not there", ENTRY("1", "A", "1") "\n" ENTRY("2", "B", "2"),
               "start-value 10:94", ENUM_NAME("E") START("3"));
        choice("a start that is there", ENTRY("1", "A", "1") "\n" ENTRY("2", "B", "2"), "",
               ENUM_NAME("E") START("2"));
        whole("entries are lost",
              "<KVParamGui version=\"1.0\">\n<Enums>\n<Enum name=\"E\">\n" ENTRY("1", "A", "1") "\n<x>" ENTRY(
                  "2", "B", "2")
                  ENTRY("3", "C", "3") "</x>\n</Enum>\n</Enums>\n<Sheet name=\"s\"/>\n</KVParamGui>",
              "unused-enumeration 3:1, unknown-element 5:1",
              "because of this the form loses 2 entries (2, 3)");
    }
};

QTEST_MAIN(tst_enumerationsrules)
#include "tst_enumerationsrules.moc"
