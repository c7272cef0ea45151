#include <vkbase/velk.h>

#include <QTest>

class TestVelk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toDoubleEx_data();
    void toDoubleEx();
    void theFlagMayBeNull();
};

void TestVelk::toDoubleEx_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<double>("number");
    const auto good = [](const char* name, const QString& text, double number) {
        QTest::newRow(name) << text << true << number;
    };
    const auto bad = [](const char* name, const QString& text) {
        QTest::newRow(name) << text << false << 0.0;
    };

    good("digits", QStringLiteral("100"), 100.0);
    good("surrounding blanks", QStringLiteral("  7 \t"), 7.0);
    good("point", QStringLiteral("98.5"), 98.5);
    good("comma as point", QStringLiteral("98,5"), 98.5);
    good("point first", QStringLiteral(".5"), 0.5);
    good("point last", QStringLiteral("5."), 5.0);
    good("comma groups, dot is the point", QStringLiteral("1,234.5"), 1234.5);
    good("dot groups, comma is the point", QStringLiteral("1.234,5"), 1234.5);
    good("many groups and a point", QStringLiteral("1.234.567,8"), 1234567.8);
    good("several dots group", QStringLiteral("1.234.567"), 1234567.0);
    good("several commas group", QStringLiteral("1,234,567"), 1234567.0);
    good("blanks group", QStringLiteral("1 234 567"), 1234567.0);
    good("no-break blanks group", QStringLiteral("1\u00a0234\u202f567"), 1234567.0);
    good("apostrophes group", QStringLiteral("1'234\u2019567"), 1234567.0);
    good("blanks and comma", QStringLiteral("26 500,25"), 26500.25);
    good("minus", QStringLiteral("-3.5"), -3.5);
    good("plus", QStringLiteral("+3.5"), 3.5);
    good("exponent", QStringLiteral("1e3"), 1000.0);
    good("signed exponent", QStringLiteral("-2,5E-3"), -0.0025);
    good("zero", QStringLiteral("0"), 0.0);
    bad("null", QString());
    bad("empty", QStringLiteral(""));
    bad("blanks only", QStringLiteral("   "));
    bad("word", QStringLiteral("abc"));
    bad("rest behind", QStringLiteral("5x"));
    bad("rest in front", QStringLiteral("x5"));
    bad("sign alone", QStringLiteral("-"));
    bad("two signs", QStringLiteral("--5"));
    bad("point alone", QStringLiteral("."));
    bad("exponent alone", QStringLiteral("e5"));
    bad("exponent without digits", QStringLiteral("5e"));
    bad("exponent with a point", QStringLiteral("5e1.5"));
    bad("two exponents", QStringLiteral("1e2e3"));
    bad("apostrophe at the end", QStringLiteral("5'"));
    bad("two blanks", QStringLiteral("1  000"));
    bad("two points together", QStringLiteral("1..5"));
    bad("not a number", QStringLiteral("nan"));
    bad("infinity", QStringLiteral("inf"));
    bad("hexadecimal", QStringLiteral("0x10"));
    bad("too large", QStringLiteral("1e999"));
    bad("digits of another script", QStringLiteral("\u0661"));
}

void TestVelk::toDoubleEx()
{
    QFETCH(QString, text);
    QFETCH(bool, readable);
    QFETCH(double, number);
    bool ok = !readable;
    QCOMPARE(Velk::toDoubleEx(text, &ok), number);
    QCOMPARE(ok, readable);
}

void TestVelk::theFlagMayBeNull()
{
    QCOMPARE(Velk::toDoubleEx(QStringLiteral("12"), nullptr), 12.0);
    QCOMPARE(Velk::toDoubleEx(QStringLiteral("x"), nullptr), 0.0);
}

QTEST_APPLESS_MAIN(TestVelk)
#include "tst_velk.moc"
