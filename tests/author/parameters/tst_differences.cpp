#include "parametertest.h"

#include <author/parameters/parameterreports.h>

#include <QTest>

using namespace Orvane::Author;

/// Two sets of parameters, setting by setting.
class TestDifferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void classes_data();
    void classes();
    void text();
    void json();

private:
    QVector<Difference> between(const QString& a, const QString& b) const
    {
        return differences(m_form, m_form.read(stationParameters(a)), m_form.read(stationParameters(b)));
    }

    const SettingsForm m_form{stationForm()};
};

void TestDifferences::classes_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("differs");
    const QString none;
    const QString am = QStringLiteral("<Tuner><Mode>AM</Mode></Tuner>");
    const QString fm = QStringLiteral("<Tuner><Mode>FM</Mode></Tuner>");
    const QString five = QStringLiteral("<Audio><Level>5</Level></Audio>");
    const QString fiveAgain = QStringLiteral("<Audio><Level>5.0</Level></Audio>");
    const QString unknown = QStringLiteral("<Display><Contrast>7</Contrast></Display>");
    const QString secret = QStringLiteral("<Secret>x</Secret>");
    QTest::newRow("equal") << am << am << QStringLiteral("equal") << false;
    QTest::newRow("equal numbers") << five << fiveAgain << QStringLiteral("equal") << false;
    QTest::newRow("changed") << am << fm << QStringLiteral("changed") << true;
    QTest::newRow("only in A") << am << none << QStringLiteral("only-in-a") << true;
    QTest::newRow("only in B") << none << am << QStringLiteral("only-in-b") << true;
    QTest::newRow("unknown") << unknown << none << QStringLiteral("unknown") << true;
    QTest::newRow("unknown on both sides") << unknown << unknown << QStringLiteral("unknown") << false;
    QTest::newRow("not sent") << none << secret << QStringLiteral("not-sent") << true;
    QTest::newRow("not sent, on both sides") << secret << secret << QStringLiteral("not-sent") << false;
}

void TestDifferences::classes()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    const QVector<Difference> found = between(a, b);
    QCOMPARE(found.size(), 1);
    QTEST(kindName(found.first().kind), "kind");
    QTEST(found.first().isDifferent, "differs");
}

void TestDifferences::text()
{
    const QVector<Difference> found = between(
        QStringLiteral("<Tuner><Frequency>98500000</Frequency><Mode>AM</Mode><Width>1000</Width></Tuner>"),
        QStringLiteral("<Tuner><Frequency>145000000</Frequency><Mode>AM</Mode></Tuner><X>7</X>"
                       "<Audio><Remark></Remark></Audio>"));
    QCOMPARE(differencesText(found, false),
             QStringLiteral("changed    Tuning / Frequency: 98.5 MHz -> 145 MHz\n"
                            "only in A  Tuning / Bandwidth: 1.000 kHz\n"
                            "unknown    X: nothing -> 7\n"
                            "only in B  Audio / Remark: \"\"\n"
                            "1 equal, 1 changed, 1 only in A, 1 only in B, 1 unknown, 0 not sent\n"));
    QVERIFY(differencesText(found, true).contains(QStringLiteral("equal      Tuning / Mode: Amplitude\n")));
}

void TestDifferences::json()
{
    const QByteArray json =
        differencesJson(between(QStringLiteral("<Tuner><Mode>AM</Mode></Tuner>"), QString()));
    for (const char* part :
         {"\"kind\": \"only-in-a\"", "\"a\": \"AM\"", "\"b\": null", "\"wordsA\": \"Amplitude\"",
          "\"name\": \"Tuning / Mode\"", "\"path\": \"Tuner/Mode\"", "\"differs\": true"})
        QVERIFY2(json.contains(part), json.constData());
}

QTEST_MAIN(TestDifferences)
#include "tst_differences.moc"
