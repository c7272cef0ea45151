#include "rulestest.h"

class tst_rowsrules : public RulesTest
{
    Q_OBJECT

protected:
    void addCases() override
    {
        rows("a class in another case",
             "<Widget name=\"a\" class=\"separator\">\n"
             "\n"
             "</Widget>",
             "unknown-class 3:25");
        rows("no class", "<Widget name=\"a\"/>", "unknown-class 3:1");
        rows("a property in another case",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"ToolTip\"><String>x</String></Property>\n"
             "</Widget>",
             "misspelt-property 4:17");
        rows("an unknown property",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"colour\"><String>x</String></Property>\n"
             "</Widget>",
             "unknown-property 4:17");
        whole("an unknown property called like a row",
              "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\">\n"
              "<Widget name=\"a\" class=\"Separator\"/>\n<Widget name=\"b\" class=\"Separator\">\n"
              "<Property name=\"a\"><String>x</String></Property>\n</Widget>\n</Sheet>\n"
              "<Script language=\"QtScript\">a.setVisible(true);</Script></KVParamGui>",
              "unknown-property 5:17");
        whole("an unknown property that a script reads, written nearly like another",
              "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\">\n<Widget name=\"b\" class=\"Separator\">\n"
              "<Property name=\"margins\"><String>x</String></Property>\n</Widget>\n</Sheet>\n"
              "<Script language=\"QtScript\">print(b.margins);</Script></KVParamGui>",
              "unknown-property 4:17");
        rows("an unknown custom property",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<CustomProperties><Property name=\"colour\"><String>x</String></Property></CustomProperties>\n"
             "</Widget>",
             "");
        rows("a property without effect",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"applyMode\"><String>x</String></Property>\n"
             "</Widget>",
             "inert-property 4:17");
        rows("a choice without an enumeration",
             "<Widget name=\"a\" class=\"ComboBox\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "missing-property 3:1");
        rows("a caption without visible",
             "<Widget name=\"a\" class=\"Separator\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "</Widget>",
             "no-visible 3:1");
        rows("an input without enabled",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"visible\"><Bool>true</Bool></Property>\n"
             "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "no-enabled 3:1");
        rows("an input that goes nowhere",
             "<Widget name=\"a\" class=\"LineEdit\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"visible\"><Bool>true</Bool></Property>\n"
             "<Property name=\"enabled\"><Bool>true</Bool></Property>\n"
             "</Widget>",
             "not-exported 3:1");
        for (const char* const code : {"function f(a) { return a.text; }", "var b = 1; // a.text"})
            add(code,
                QStringLiteral(
                    "<KVParamGui version=\"1.0\">\n<Sheet name=\"s\">\n<Widget name=\"a\" "
                    "class=\"LineEdit\">\n"
                    "<Property name=\"labelText\"><String>A</String></Property>\n"
                    "<Property name=\"visible\"><Bool>true</Bool></Property>\n"
                    "<Property name=\"enabled\"><Bool>true</Bool></Property>\n"
                    "</Widget>\n</Sheet>\n<Script language=\"QtScript\">%1\n</Script></KVParamGui>")
                    .arg(QLatin1String(code)),
                "not-exported 3:1");
        rows("limits the wrong way round",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "empty-range 4:34");
        rows("a start below the minimum",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "start-outside 6:32");
        rows("a start above the maximum",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>5</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "start-outside 6:32");
        rows("a start inside in display units",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>30</Double></Property>\n"
             "<Property name=\"displayScalingFactor\"><Double>0.1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "");
        rows("a start outside in display units",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>3</Double></Property>\n"
             "<Property name=\"displayScalingFactor\"><Double>10</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "start-outside 6:32");
        rows("a step of nothing",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"singleStep\"><Double>0</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "bad-step 6:37");
        rows("a step back",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"singleStep\"><Double>-1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "bad-step 6:37");
        rows("a factor of nothing",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"displayScalingFactor\"><Double>0</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "zero-factor 6:47");
        rows("a step that does not show",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"singleStep\"><Double>0.1</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "few-decimals 6:37");
        rows("a step that shows",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"singleStep\"><Double>0.1</Double></Property>\n"
             "<Property name=\"decimals\"><Int>1</Int></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "");
        rows("a start that does not show",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>2.25</Double></Property>\n"
             "<Property name=\"decimals\"><Int>1</Int></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "few-decimals 6:32");
        rows("a scaled unit",
             "<Widget name=\"a\" class=\"BandwidthEdit\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"minimum\"><Int64>1</Int64></Property>\n"
             "<Property name=\"maximum\"><Int64>2</Int64></Property>\n"
             "<Property name=\"unitScale\"><UInt64>1000</UInt64></Property>\n"
             "<Property name=\"unit\"><String>kHz</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "unit-scale 8:31");
        rows("a scale without a unit",
             "<Widget name=\"a\" class=\"BandwidthEdit\">\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"minimum\"><Int64>1</Int64></Property>\n"
             "<Property name=\"maximum\"><Int64>2</Int64></Property>\n"
             "<Property name=\"unitScale\"><UInt64>1000</UInt64></Property>\n" SHOWN_AND_SENT "</Widget>",
             "unit-scale 7:36");
        rows("a short pause",
             "<Properties><Property name=\"autoApplyTimeout\"><Int>99</Int></Property></Properties>",
             "short-pause 3:52");
        rows("two mistakes in one row",
             "<Widget name=\"a\" class=\"DoubleSpinBox\">\n"
             "<Property name=\"minimum\"><Double>2</Double></Property>\n"
             "<Property name=\"maximum\"><Double>4</Double></Property>\n"
             "<Property name=\"value\"><Double>9</Double></Property>\n"
             "<Property name=\"singleStep\"><Double>0</Double></Property>\n"
             "<Property name=\"labelText\"><String>A</String></Property>\n"
             "<Property name=\"suffix\"><String> dB</String></Property>\n" SHOWN_AND_SENT "</Widget>",
             "start-outside 6:32, bad-step 7:37");
        rows("nothing is lost by it, and rows by another",
             "<Widget name=\"a\" class=\"separator\"/>"
             "\n<Widget name=\"c\" class=\"Separator\">\n<x/>\n</Widget>\n<Widget name=\"d\" "
             "class=\"Separator\"/>\n<Widget name=\"e\" class=\"Separator\"/>",
             "unknown-class 3:25, stray-element 5:1", "because of this the form loses 2 rows (d, e)");
    }
};

QTEST_MAIN(tst_rowsrules)
#include "tst_rowsrules.moc"
