#include "checktest.h"

#include <QTest>

class tst_enumerationsrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("places");
        const auto whole = [](const char* what, const char* text, const char* places) {
            QTest::newRow(what) << QString::fromUtf8(text) << QString::fromLatin1(places);
        };
        whole("all is well",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>B</EnumIdentifier><Value>2</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "");
        whole("a part is missing",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><Value>2</Value></EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "entry-part 5:1");
        whole("an empty part",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>B</EnumIdentifier><Value></Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "entry-part 5:1");
        whole("no entries",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "empty-enumeration 3:1");
        whole("an identifier with a minus",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A-B</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "entry-identifier 4:56");
        whole("a shown text twice",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>B</EnumIdentifier><Value>2</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "doubled-entry 5:25");
        whole("a value twice",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>B</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "doubled-entry 5:81");
        whole("an identifier twice",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>2</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "doubled-entry 5:56");
        whole("a part twice",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>2</DisplayName><DisplayName>1</DisplayName><EnumIdentifier>A</"
              "EnumIdentifier><Value>2</Value></EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "doubled-part 4:40");
        whole("another enumeration",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>F</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "unused-enumeration 3:1, unknown-enumeration 9:35");
        whole("a start that is not there",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>B</EnumIdentifier><Value>2</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property><Property "
              "name=\"currentValue\"><String>3</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "start-value 10:94");
        whole("a start that is there",
              "<KVParamGui version=\"1.0\">\n"
              "<Enums>\n"
              "<Enum name=\"E\">\n"
              "<EnumValue><DisplayName>1</DisplayName><EnumIdentifier>A</EnumIdentifier><Value>1</Value></"
              "EnumValue>\n"
              "<EnumValue><DisplayName>2</DisplayName><EnumIdentifier>B</EnumIdentifier><Value>2</Value></"
              "EnumValue>\n"
              "</Enum>\n"
              "</Enums>\n"
              "<Sheet name=\"sheet\">\n"
              "<Widget name=\"row\" class=\"ComboBox\">\n"
              "<Property name=\"enumName\"><String>E</String></Property><Property "
              "name=\"currentValue\"><String>2</String></Property>\n"
              "<Property name=\"labelText\"><String>A</String></Property><Property "
              "name=\"enabled\"><Bool>true</Bool></Property><Property "
              "name=\"visible\"><Bool>true</Bool></Property><Property "
              "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
              "</Widget>\n"
              "</Sheet>\n"
              "</KVParamGui>",
              "");
    }

    void rules()
    {
        QFETCH(QString, text);
        QFETCH(QString, places);
        QCOMPARE(placesIn(text), places);
    }
};

QTEST_MAIN(tst_enumerationsrules)
#include "tst_enumerationsrules.moc"
