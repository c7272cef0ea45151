#include "rulestest.h"

class tst_suppressionrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        rows("before the element", "<!-- zorva: allow nameless made so -->\n<Widget class=\"Separator\"/>",
             "");
        rows("on the line", "<Widget class=\"Separator\"/> <!-- zorva: allow nameless made so -->", "");
        rows("for all in the element",
             "<!-- zorva: allow doubled-property kept -->\n<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"toolTip\"><String>1</String></Property>\n"
             "<Property name=\"toolTip\"><String>2</String></Property>\n</Widget>",
             "");
        rows("not for the line behind",
             "<Widget name=\"a\" class=\"Separator\"/> <!-- zorva: allow nameless made so -->\n<Widget "
             "class=\"Separator\"/>",
             "unused-allow 3:38, nameless 4:1");
        rows("of another rule", "<!-- zorva: allow doubled-property no -->\n<Widget class=\"Separator\"/>",
             "unused-allow 3:1, nameless 4:1");
        rows("without a reason", "<!-- zorva: allow nameless -->\n<Widget class=\"Separator\"/>",
             "bad-allow 3:1, nameless 4:1");
        rows("of no rule", "<!-- zorva: allow namless yes -->\n<Widget name=\"a\" class=\"Separator\"/>",
             "bad-allow 3:1");
        rows("an ordinary comment", "<!-- zorva is fine -->\n<Widget name=\"a\" class=\"Separator\"/>", "");
        rows("nothing is lost by it, and rows by another",
             "<Widget name=\"a\" class=\"Separator\"/><!-- zorva: allow nameless -->"
             "\n<Widget name=\"c\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"d\" "
             "class=\"Separator\"/>\n<Widget name=\"e\" class=\"Separator\"/>",
             "bad-allow 3:37, stray-element 5:1", "because of this the form loses 2 rows (d, e)");
    }
};

QTEST_MAIN(tst_suppressionrules)
#include "tst_suppressionrules.moc"
