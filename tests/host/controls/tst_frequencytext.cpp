#include <basicvaluewidgets/frequencytext.h>

#include <QTest>

#include <limits>

using FrequencyText::Unit;

class TestFrequencyText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void refuse_data();
    void refuse();
    void format_data();
    void format();
    void roundTrip();
};

void TestFrequencyText::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("hertz");
    QTest::newRow("bare number is hertz") << "500" << 500.0;
    QTest::newRow("MHz") << "98.5 MHz" << 98.5e6;
    QTest::newRow("no rounding on the way") << "98.1 MHz" << 98100000.0;
    QTest::newRow("letter") << "98.5M" << 98.5e6;
    QTest::newRow("m is mega") << "5m" << 5e6;
    QTest::newRow("any case") << "8 KHZ" << 8000.0;
    QTest::newRow("k without blank") << "8k" << 8000.0;
    QTest::newRow("g") << "26.5g" << 26.5e9;
    QTest::newRow("GHz") << "1GHz" << 1e9;
    QTest::newRow("Hz") << "12 hz" << 12.0;
    QTest::newRow("comma is a point") << "98,5 MHz" << 98.5e6;
    QTest::newRow("both signs") << "1.234,5 k" << 1234500.0;
    QTest::newRow("blanks group") << " 98 500 000 " << 98.5e6;
    QTest::newRow("no-break blank groups") << QStringLiteral("98\u00a0500 kHz") << 98.5e6;
    QTest::newRow("apostrophe groups") << "98'500'000" << 98.5e6;
    QTest::newRow("exponent") << "1e3" << 1000.0;
    QTest::newRow("exponent and unit") << "1.5E3 kHz" << 1.5e6;
    QTest::newRow("negative") << "-5 kHz" << -5000.0;
    QTest::newRow("plus") << "+5" << 5.0;
    QTest::newRow("millihertz stay") << "0.001" << 0.001;
    QTest::newRow("finer is rounded") << "1.0004" << 1.0;
}

void TestFrequencyText::parse()
{
    QFETCH(QString, text);
    double hertz = 0.0;
    QVERIFY(FrequencyText::Parse(text, &hertz));
    QTEST(hertz, "hertz");
}

void TestFrequencyText::refuse_data()
{
    QTest::addColumn<QString>("text");
    const char* const texts[] = {"",     " ",   "abc", "MHz",  "5 THz", "5 x", "5 MHzz", "1-2",
                                 "5 dB", "--5", "e3",  "5 kk", "nan",   "inf", "1e999",  "5 M 3"};
    for (const char* text : texts)
        QTest::newRow(*text ? text : "empty") << QString::fromLatin1(text);
}

void TestFrequencyText::refuse()
{
    QFETCH(QString, text);
    double hertz = 17.0;
    QVERIFY(!FrequencyText::Parse(text, &hertz));
    QCOMPARE(hertz, 17.0);
}

void TestFrequencyText::format_data()
{
    QTest::addColumn<double>("hertz");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, double hertz, Unit unit, const char* text) {
        QTest::newRow(name) << hertz << int(unit) << QString::fromLatin1(text);
    };
    row("megahertz", 98.5e6, Unit::Automatic, "98.5 MHz");
    row("kilohertz", 8000, Unit::Automatic, "8 kHz");
    row("hertz", 500, Unit::Automatic, "500 Hz");
    row("gigahertz", 26.5e9, Unit::Automatic, "26.5 GHz");
    row("zero", 0, Unit::Automatic, "0 Hz");
    row("no hertz lost", 26499999999.0, Unit::Automatic, "26.499999999 GHz");
    row("no millihertz lost", 98500000.001, Unit::Automatic, "98.500000001 MHz");
    row("rounding changes the unit", 999.9996, Unit::Automatic, "1 kHz");
    row("negative", -98.5e6, Unit::Automatic, "-98.5 MHz");
    row("no zero with a sign", -0.0001, Unit::Automatic, "0 Hz");
    row("below 1 Hz", 0.25, Unit::Automatic, "0.25 Hz");
    row("fixed kHz", 98.5e6, Unit::Kilohertz, "98500 kHz");
    row("fixed GHz", 8000, Unit::Gigahertz, "0.000008 GHz");
    row("fixed Hz", 26.5e9, Unit::Hertz, "26500000000 Hz");
    row("beyond 64 bits", 1e21, Unit::Automatic, "1000000000000 GHz");
    row("infinite", std::numeric_limits<double>::infinity(), Unit::Automatic, "");
}

void TestFrequencyText::format()
{
    QFETCH(double, hertz);
    QFETCH(int, unit);
    QTEST(FrequencyText::Format(hertz, static_cast<Unit>(unit)), "text");
}

void TestFrequencyText::roundTrip()
{
    double frequency = 8000.0;
    while (frequency < 26.5e9) {
        for (const Unit unit :
             {Unit::Automatic, Unit::Hertz, Unit::Kilohertz, Unit::Megahertz, Unit::Gigahertz}) {
            double back = 0.0;
            QVERIFY(FrequencyText::Parse(FrequencyText::Format(frequency, unit), &back));
            QCOMPARE(qRound64(back * 1000), qRound64(frequency * 1000));
        }
        frequency = frequency * 1.0937 + 0.137;
    }
}

QTEST_APPLESS_MAIN(TestFrequencyText)
#include "tst_frequencytext.moc"
