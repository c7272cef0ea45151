#include "parametertest.h"

#include <QTest>

using namespace Orvane::Author;

/// Parameter XML as a form reads it.
class TestParameterSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data();
    void keys();
    void lastTwinStays();
    void ends_data();
    void ends();
    void writtenIsReadAgain();
    void meansTheSame_data();
    void meansTheSame();
    void deepTextEnds();

private:
    const SettingsForm m_form{stationForm()};
};

void TestParameterSet::keys_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("keys"); // each with its text; "?" before what the form does not know
    const auto row = [](const char* name, const char* text, const char* keys) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(keys);
    };
    row("leaf", "<Parameters><Tuner><Mode>AM</Mode></Tuner></Parameters>", "Tuner/Mode=AM");
    row("empty leaf", "<Parameters><Audio><Remark/></Audio></Parameters>", "Audio/Remark=");
    row("pair", "<Parameters><Scan><Start>1</Start><Stop>2</Stop></Scan></Parameters>",
        "Scan/Start=1 Scan/Stop=2");
    row("list", "<Parameters><Scan><Shifts><Shift index=\"1\">4</Shift></Shifts></Scan></Parameters>",
        "Scan/Shifts/Shift[index=1]=4");
    row("ranges",
        "<Parameters><Scan><Exclusions><ExclusionRange><StartFreq>1</StartFreq><StopFreq>2</StopFreq>"
        "</ExclusionRange><ExclusionRange><StartFreq>3</StartFreq><StopFreq>4</StopFreq></ExclusionRange>"
        "</Exclusions></Scan></Parameters>",
        "Scan/Exclusions=1 2 3 4");
    row("no ranges", "<Parameters><Scan><Exclusions/></Scan></Parameters>", "Scan/Exclusions=");
    row("unknown", "<Parameters><A><B>1</B><B>2</B></A><Tuner><C>3</C></Tuner></Parameters>",
        "?A/B=1 ?A/B[#2]=2 ?Tuner/C=3");
    row("group in two parts",
        "<Parameters><Tuner><Mode>AM</Mode></Tuner><Tuner><Step>1</Step></Tuner></Parameters>",
        "Tuner/Mode=AM Tuner/Step=1");
    row("in an answer", "<Reply><Parameters><Tuner><Mode>AM</Mode></Tuner></Parameters></Reply>",
        "Tuner/Mode=AM");
    row("two roots",
        "<Parameters><Tuner><Mode>AM</Mode></Tuner></Parameters>"
        "<Parameters><Tuner><Step>1</Step></Tuner></Parameters>",
        "Tuner/Mode=AM Tuner/Step=1");
    row("another root", "<Settings><Tuner><Mode>AM</Mode></Tuner></Settings>", "");
    row("group alone", "<Parameters><Tuner/></Parameters>", "");
}

void TestParameterSet::keys()
{
    QFETCH(QString, text);
    QFETCH(QString, keys);
    const ParameterSet set = m_form.read(text);
    QStringList found;
    for (const Setting& setting : set.settings()) {
        found.append(QLatin1String(setting.row < 0 ? "?" : "") + setting.key + QLatin1Char('=') +
                     setting.text());
        QVERIFY(set.find(setting.key));
    }
    QCOMPARE(found.join(QLatin1Char(' ')), keys);
}

void TestParameterSet::lastTwinStays()
{
    const ParameterSet set = m_form.read(
        stationParameters(QStringLiteral("<Tuner><Mode>AM</Mode><Step>1</Step><Mode>FM</Mode></Tuner>")));
    QCOMPARE(set.find(QStringLiteral("Tuner/Mode"))->text(), QStringLiteral("FM"));
    QCOMPARE(set.replaced().size(), 1);
    QCOMPARE(set.replaced().first().text(), QStringLiteral("AM"));
}

void TestParameterSet::ends_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ends");
    QTest::newRow("whole") << QStringLiteral("<Parameters/>\n") << false;
    QTest::newRow("two roots") << QStringLiteral("<Parameters/>\n<Parameters/>\n") << false;
    QTest::newRow("cut") << QStringLiteral("<Parameters><Tuner>") << true;
    QTest::newRow("wrong end tag") << QStringLiteral("<Parameters><Tuner></Parameters>") << true;
    QTest::newRow("text behind the root") << QStringLiteral("<Parameters/>text") << true;
    QTest::newRow("nothing") << QString() << false;
}

void TestParameterSet::ends()
{
    QFETCH(QString, text);
    QFETCH(bool, ends);
    QCOMPARE(m_form.read(text).end().at >= 0, ends);
}

void TestParameterSet::writtenIsReadAgain()
{
    const QString source = m_form.exportedAfter({stationParameters(QStringLiteral(
        "<Scan><Exclusions><ExclusionRange><StartFreq>1000000</StartFreq><StopFreq>2000000</StopFreq>"
        "</ExclusionRange><ExclusionRange><StartFreq>3000000</StartFreq><StopFreq>4000000</StopFreq>"
        "</ExclusionRange></Exclusions></Scan><Audio><Remark>a &lt; b</Remark></Audio>"))});
    const QString written = parameterXml(m_form.emptyRoot(), m_form.read(source).settings());
    QCOMPARE(written.trimmed(), source.trimmed());
}

void TestParameterSet::meansTheSame_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<bool>("same");
    const auto row = [](const char* className, const char* left, const char* right, bool same) {
        QTest::addRow("%s %s %s", className, left, right)
            << QString::fromLatin1(className) << QString::fromLatin1(left) << QString::fromLatin1(right)
            << same;
    };
    row("DoubleSpinBox", "5", "5.0", true);
    row("DoubleSpinBox", "5", "5.1", false);
    row("DoubleSpinBox", "five", "six", false);
    row("LineEdit", "5", "5.0", false);
    row("FrequencyEdit", "26500000000", "26500000001", false);
    row("BandwidthEdit", "9007199254740992", "9007199254740993", false);
}

void TestParameterSet::meansTheSame()
{
    QFETCH(QString, className);
    QFETCH(QString, left);
    QFETCH(QString, right);
    QTEST(Orvane::Author::meansTheSame(*KindTable::instance().findClass(className), left, right), "same");
}

void TestParameterSet::deepTextEnds()
{
    const QString deep = QStringLiteral("<a>").repeated(20000) + QStringLiteral("</a>").repeated(20000);
    QCOMPARE(m_form.read(stationParameters(deep)).settings().size(), 0);
}

QTEST_MAIN(TestParameterSet)
#include "tst_parameterset.moc"
