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
        rows("nothing is lost by it, and rows by another",
             "<Widget name=\"a\" class=\"LineEdit\">" SHOWN_AND_SENT "</Widget>"
             "\n<Widget name=\"c\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"d\" "
             "class=\"Separator\"/>\n<Widget name=\"e\" class=\"Separator\"/>",
             "no-caption 3:1, stray-element 6:1", "because of this the form loses 2 rows (d, e)");
    }
};

QTEST_MAIN(tst_reachrules)
#include "tst_reachrules.moc"
