#include "rulestest.h"

class tst_typesrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        rows("a truth in another case",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"enabled\"><Bool>True</Bool></Property>\n"
             "</Widget>",
             "bool-text 4:32");
        rows("a truth with a blank",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"enabled\"><Bool> true</Bool></Property>\n"
             "</Widget>",
             "bool-text 4:33");
        rows("a number for a truth",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"enabled\"><Bool>1</Bool></Property>\n"
             "</Widget>",
             "bool-text 4:32");
        rows("a truth as text",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"enabled\"><String>yes</String></Property>\n"
             "</Widget>",
             "bool-text 4:34");
        rows("a truth as text that works",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"enabled\"><String>true</String></Property>\n"
             "</Widget>",
             "");
        rows("a decimal comma",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>0,5</Double></Property>\n"
             "<Property name=\"maximum\"><Double>1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "number-text 4:34");
        rows("no number",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Int>wide</Int></Property>\n"
             "</Widget>",
             "number-text 4:30");
        rows("a number that overflows",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Int>99999999999</Int></Property>\n"
             "</Widget>",
             "number-text 4:30");
        rows("a fraction for a whole number",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Double>1.5</Double></Property>\n"
             "</Widget>",
             "number-text 4:33");
        rows("a number with an exponent",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>-1e3</Double></Property>\n"
             "<Property name=\"maximum\"><Double>1e3</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "");
        rows("no finite number",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>0</Double></Property>\n"
             "<Property name=\"maximum\"><Double>inf</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "number-text 5:34");
        rows("a truth for a number",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "number-text 4:31");
        rows("a text as a number",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"toolTip\"><Int>wide</Int></Property>\n"
             "</Widget>",
             "number-text 4:31");
        rows("a number as text, a truth as text",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><String>4</String></Property>\n"
             "<Property name=\"toolTip\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "");
        rows("an empty number",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Int></Int></Property>\n"
             "</Widget>",
             "number-text 4:30");
        rows("an unknown type",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"margin\"><Integer>4</Integer></Property>\n"
             "</Widget>",
             "type-name 4:26");
        rows("a type in another case",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"toolTip\"><string>4</string></Property>\n"
             "</Widget>",
             "type-name 4:27");
        rows("nothing is lost by it, and rows by another",
             "<Widget name=\"a\" class=\"Separator\"><Property "
             "name=\"margin\"><Int>wide</Int></Property></Widget>"
             "\n<Widget name=\"c\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"d\" "
             "class=\"Separator\"/>\n<Widget name=\"e\" class=\"Separator\"/>",
             "number-text 3:65, stray-element 5:1", "because of this the form loses 2 rows (d, e)");
    }
};

QTEST_MAIN(tst_typesrules)
#include "tst_typesrules.moc"
