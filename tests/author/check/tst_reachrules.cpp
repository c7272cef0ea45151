#include "rulestest.h"

class tst_reachrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        rows("no caption", "<Widget name=\"a\" class=\"LineEdit\">\n" SHOWN_AND_SENT "</Widget>",
             "no-caption 3:1");
        rows("a tool tip for a caption",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"toolTip\"><String>A</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "");
        rows("no range",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "untold-range 3:1");
        rows("no unit to see",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"minimum\"><Int>1</Int></Property>\n"
             "<Property name=\"maximum\"><Int>2</Int></Property>\n"
             "<Property name=\"unit\"><String>dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "untold-unit 3:1");
        rows("the unit in the caption",
             "<Widget name=\"a\" class=\"SpinBox\">\n"
             "<Property name=\"labelText\"><String>A (dB)</String></Property>\n"
             "<Property name=\"minimum\"><Int>1</Int></Property>\n"
             "<Property name=\"maximum\"><Int>2</Int></Property>\n"
             "<Property name=\"unit\"><String>dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
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
};

QTEST_MAIN(tst_reachrules)
#include "tst_reachrules.moc"
