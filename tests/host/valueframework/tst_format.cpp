#include <valueframework/format.h>

#include <QTest>

#include <limits>

using namespace values;

Q_DECLARE_METATYPE(qint64)

class TestFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doubleToText_data();
    void doubleToText();
    void textToDouble_data();
    void textToDouble();
    void textToInt_data();
    void textToInt();
    void textToInt64_data();
    void textToInt64();
    void textToBool_data();
    void textToBool();
    void textStaysText();
    void conversionSaturates();
};

namespace {

using StreamDouble = StreamFormat<double, FormatFloat<double>>;
using StreamInt = StreamFormat<int, FormatInt<int>>;
using StreamInt64 = StreamFormat<qint64, FormatInt<qint64>>;
using StreamBool = StreamFormat<bool, FormatBool<bool>>;
using StreamString = StreamFormat<QString, FormatString<QString>>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

void TestFormat::doubleToText_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("minus zero") << -0.0 << "0";
    QTest::newRow("whole") << 12.0 << "12";
    QTest::newRow("shortest") << 0.1 << "0.1";
    QTest::newRow("all digits it needs") << 0.1 + 0.2 << "0.30000000000000004";
    QTest::newRow("negative") << -2.5 << "-2.5";
    QTest::newRow("no exponent for round numbers") << 26500000000.0 << "26500000000";
    QTest::newRow("no exponent up to 1e17") << 1e17 << "100000000000000000";
    QTest::newRow("exponent above") << 1e18 << "1e+18";
    QTest::newRow("no exponent down to 1e-6") << 0.000001 << "0.000001";
    QTest::newRow("exponent below") << 1e-7 << "1e-07";
    QTest::newRow("widest limit") << 1e308 << "1e+308";
}

void TestFormat::doubleToText()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(StreamDouble::write(number), text);
    double back = 1.0;
    QVERIFY(StreamDouble::read(text, &back));
    QVERIFY(back == number);
}

void TestFormat::textToDouble_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<double>("number");
    QTest::newRow("null is zero") << QString() << true << 0.0;
    QTest::newRow("empty is zero") << "" << true << 0.0;
    QTest::newRow("blanks are zero") << "  " << true << 0.0;
    QTest::newRow("blanks round it") << " 2.5 " << true << 2.5;
    QTest::newRow("exponent") << "2.65e+10" << true << 26500000000.0;
    QTest::newRow("infinity is the largest") << "inf" << true << std::numeric_limits<double>::max();
    QTest::newRow("minus infinity") << "-inf" << true << std::numeric_limits<double>::lowest();
    QTest::newRow("overflow is the largest") << "1e999" << true << std::numeric_limits<double>::max();
    QTest::newRow("word") << "abc" << false << 7.0;
    QTest::newRow("not a number") << "nan" << false << 7.0;
    QTest::newRow("grouping") << "1,000" << false << 7.0;
    QTest::newRow("rest behind") << "5 Hz" << false << 7.0;
}

void TestFormat::textToDouble()
{
    QFETCH(QString, text);
    QFETCH(bool, readable);
    QFETCH(double, number);
    double read = 7.0;
    QCOMPARE(StreamDouble::read(text, &read), readable);
    QVERIFY(read == number);
}

void TestFormat::textToInt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<int>("number");
    QTest::newRow("empty") << "" << true << 0;
    QTest::newRow("negative") << "-12" << true << -12;
    QTest::newRow("exponent") << "1e3" << true << 1000;
    QTest::newRow("fraction is cut off") << "2.9" << true << 2;
    QTest::newRow("negative fraction is cut off") << "-2.9" << true << -2;
    QTest::newRow("too large") << "2147483648" << true << std::numeric_limits<int>::max();
    QTest::newRow("too small") << "-1e300" << true << std::numeric_limits<int>::min();
    QTest::newRow("word") << "ten" << false << 7;
    QTest::newRow("not a number") << "nan" << false << 7;
}

void TestFormat::textToInt()
{
    QFETCH(QString, text);
    QFETCH(bool, readable);
    QFETCH(int, number);
    int read = 7;
    QCOMPARE(StreamInt::read(text, &read), readable);
    QCOMPARE(read, number);
    QCOMPARE(StreamInt::write(number), QString::number(number));
}

void TestFormat::textToInt64_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("number");
    QTest::newRow("more digits than a double holds") << "9007199254740993" << Q_INT64_C(9007199254740993);
    QTest::newRow("largest") << "9223372036854775807" << std::numeric_limits<qint64>::max();
    QTest::newRow("above the largest") << "9223372036854775808" << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << "-9223372036854775808" << std::numeric_limits<qint64>::min();
}

void TestFormat::textToInt64()
{
    QFETCH(QString, text);
    QFETCH(qint64, number);
    qint64 read = 7;
    QVERIFY(StreamInt64::read(text, &read));
    QCOMPARE(read, number);
}

void TestFormat::textToBool_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<bool>("flag");
    QTest::newRow("true") << "true" << true << true;
    QTest::newRow("any case") << "TRUE" << true << true;
    QTest::newRow("false") << "False" << true << false;
    QTest::newRow("one") << "1" << true << true;
    QTest::newRow("zero") << "0" << true << false;
    QTest::newRow("empty") << "" << true << false;
    QTest::newRow("word changes nothing") << "maybe" << false << true;
}

void TestFormat::textToBool()
{
    QFETCH(QString, text);
    QFETCH(bool, readable);
    QFETCH(bool, flag);
    bool read = true;
    QCOMPARE(StreamBool::read(text, &read), readable);
    QCOMPARE(read, flag);
    QCOMPARE(StreamBool::write(flag), flag ? QStringLiteral("true") : QStringLiteral("false"));
}

void TestFormat::textStaysText()
{
    QString read = QStringLiteral("old");
    QVERIFY(StreamString::read(QStringLiteral("  new "), &read));
    QCOMPARE(read, QStringLiteral("  new "));
    QVERIFY(StreamString::read(QString(), &read));
    QCOMPARE(read, QString());
}

void TestFormat::conversionSaturates()
{
    int small = 7;
    QVERIFY(!convertNumber(notANumber, &small));
    QCOMPARE(small, 7);
    QVERIFY(convertNumber(infinity, &small));
    QCOMPARE(small, std::numeric_limits<int>::max());
    QVERIFY(convertNumber(std::numeric_limits<quint64>::max(), &small));
    QCOMPARE(small, std::numeric_limits<int>::max());
    QVERIFY(convertNumber(std::numeric_limits<qint64>::min(), &small));
    QCOMPARE(small, std::numeric_limits<int>::min());
    qint64 large = 7;
    QVERIFY(convertNumber(9223372036854775808.0, &large));
    QCOMPARE(large, std::numeric_limits<qint64>::max());
    QVERIFY(convertNumber(-1e30, &large));
    QCOMPARE(large, std::numeric_limits<qint64>::min());
    double number = 7.0;
    QVERIFY(convertNumber(-infinity, &number));
    QCOMPARE(number, std::numeric_limits<double>::lowest());
}

QTEST_APPLESS_MAIN(TestFormat)
#include "tst_format.moc"
