#include <guibase/suffixeddouble.h>

#include <QTest>

#include <limits>

class TestSuffixedDouble : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getString_data();
    void getString();
    void keepsZeros();
    void otherBase();
};

void TestSuffixedDouble::getString_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("suffix");
    QTest::addColumn<QString>("text");
    QTest::newRow("kilo fixed") << 100000.0 << 2 << "100 kHz";
    QTest::newRow("mega fixed") << 98500000.0 << 3 << "98.5 MHz";
    QTest::newRow("giga fixed, below 1") << 500000.0 << 4 << "0.0005 GHz";
    QTest::newRow("no prefix, three decimals") << 1.23456 << 1 << "1.235 Hz";
    QTest::newRow("zero has no point") << 0.0 << 2 << "0 kHz";
    QTest::newRow("no zero with a sign") << -0.0001 << 1 << "0 Hz";
    QTest::newRow("negative") << -5000.0 << 2 << "-5 kHz";
    QTest::newRow("automatic below 1000") << 999.0 << 0 << "999 Hz";
    QTest::newRow("automatic at 1000") << 1000.0 << 0 << "1 kHz";
    QTest::newRow("automatic mega") << 2500000.0 << 0 << "2.5 MHz";
    QTest::newRow("automatic ends at giga") << 5e12 << 0 << "5000 GHz";
    QTest::newRow("unknown suffix is automatic") << 1000.0 << 17 << "1 kHz";
    QTest::newRow("no hertz lost in GHz") << 26123456789.0 << 4 << "26.123456789 GHz";
    QTest::newRow("rounding reaches kilo") << 999.9996 << 0 << "1 kHz";
    QTest::newRow("rounding does not reach kilo") << 999.9994 << 0 << "999.999 Hz";
    QTest::newRow("rounding reaches mega") << 999999.9999999 << 0 << "1 MHz";
    QTest::newRow("rounding reaches giga") << -999999999.9999999 << 0 << "-1 GHz";
    QTest::newRow("rounding with a fixed prefix") << 999999.9999999 << 2 << "1000 kHz";
    QTest::newRow("rounding past the last prefix") << 999999999999.9999999 << 0 << "1000 GHz";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 2 << "inf Hz";
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 0 << "nan Hz";
}

void TestSuffixedDouble::getString()
{
    QFETCH(double, number);
    QFETCH(int, suffix);
    SuffixedDouble format(QStringLiteral("Hz"), 1000, false);
    format.SetSuffix(static_cast<SuffixedDouble::ESuffix>(suffix));
    QTEST(format.GetString(number), "text");
}

void TestSuffixedDouble::keepsZeros()
{
    SuffixedDouble format(QStringLiteral("Hz"), 1000, true);
    format.SetSuffix(SuffixedDouble::ekKilo);
    QCOMPARE(format.GetString(1500), QStringLiteral("1.500000 kHz"));
}

void TestSuffixedDouble::otherBase()
{
    QCOMPARE(SuffixedDouble(QStringLiteral("B"), 1024, false).GetString(2048), QStringLiteral("2 kB"));
    QCOMPARE(SuffixedDouble(QStringLiteral("B"), 1024, false).GetString(1023.9999), QStringLiteral("1 kB"));
    QCOMPARE(SuffixedDouble(QString(), 0, false).GetString(5), QStringLiteral("5"));
}

QTEST_APPLESS_MAIN(TestSuffixedDouble)
#include "tst_suffixeddouble.moc"
