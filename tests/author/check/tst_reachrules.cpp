#include "checktest.h"

#include <QTest>

class tst_reachrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("places");
        const auto rows = [](const char* what, const char* text, const char* places) {
            QTest::newRow(what) << formOf(text) << QString::fromLatin1(places);
        };
        rows("no caption",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "
             "name=\"visible\"><Bool>true</Bool></Property><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "no-caption 3:1");
        rows("a tool tip for a caption",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"toolTip\"><String>A</String></Property>\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "
             "name=\"visible\"><Bool>true</Bool></Property><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "");
        rows("no range",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "
             "name=\"visible\"><Bool>true</Bool></Property><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "untold-range 3:1");
        rows("no unit to see",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"minimum\"><Int>1</Int></Property>\n"
             "<Property name=\"maximum\"><Int>2</Int></Property>\n"
             "<Property name=\"unit\"><String>dB</String></Property>\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "
             "name=\"visible\"><Bool>true</Bool></Property><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "untold-unit 3:1");
        rows("the unit in the caption",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A (dB)</String></Property>\n"
             "<Property name=\"minimum\"><Int>1</Int></Property>\n"
             "<Property name=\"maximum\"><Int>2</Int></Property>\n"
             "<Property name=\"unit\"><String>dB</String></Property>\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property><Property "
             "name=\"visible\"><Bool>true</Bool></Property><Property "
             "name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "");
        rows("never open",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"enabled\"><Bool>false</Bool></Property>\n"
             "<Property name=\"visible\"><Bool>true</Bool></Property>\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "unreachable 3:1");
    }

    void rules()
    {
        QFETCH(QString, text);
        QFETCH(QString, places);
        QCOMPARE(placesIn(text), places);
    }
};

QTEST_MAIN(tst_reachrules)
#include "tst_reachrules.moc"
