#include <hostkit/formrows.h>

#include <QTest>

using namespace hostkit;

class TestFormRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsThatSayTheSame_data()
    {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::addColumn<bool>("same");
        QTest::newRow("letter by letter") << "hill"
                                          << "hill" << true;
        QTest::newRow("other words") << "hill"
                                     << "dale" << false;
        QTest::newRow("a word and a number") << "5"
                                             << "five" << false;
        QTest::newRow("a number and nothing") << "0"
                                              << "" << false;
        QTest::newRow("zeros behind the point") << "5"
                                                << "5.0" << true;
        QTest::newRow("an exponent") << "26500000000"
                                     << "2.65e10" << true;
        QTest::newRow("neighbours at 26.5 GHz") << "26500000000"
                                                << "26500000001" << false;
        QTest::newRow("neighbours, one with a point") << "26500000000"
                                                      << "26500000001.0" << false;
        QTest::newRow("neighbours beyond what a double holds") << "9007199254740992"
                                                               << "9007199254740993" << false;
        QTest::newRow("the sign") << "-7"
                                  << "7" << false;
        QTest::newRow("what calculating costs") << "0.3"
                                                << "0.30000000000000004" << true;
        QTest::newRow("what calculating costs, near a whole number") << "12"
                                                                     << "12.000000000000002" << true;
        QTest::newRow("a hundredth at 1 GHz") << "1000000000"
                                              << "1000000000.01" << false;
        QTest::newRow("a small step") << "0.196078"
                                      << "0.196079" << false;
        QTest::newRow("nothing is near infinity") << "0.5"
                                                  << "inf" << false;
        QTest::newRow("no number equals itself alone") << "nan"
                                                       << "inf" << false;
    }
    void textsThatSayTheSame()
    {
        QFETCH(QString, left);
        QFETCH(QString, right);
        QTEST(saysTheSame(left, right), "same");
        QTEST(saysTheSame(right, left), "same");
    }
};

QTEST_APPLESS_MAIN(TestFormRows)

#include "tst_formrows.moc"
