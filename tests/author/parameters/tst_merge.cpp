#include "parametertest.h"

#include <author/parameters/parameterreports.h>

#include <QTest>

using namespace Orvane::Author;

/// Two sets that came of one, made one again.
class TestMerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void merges_data();
    void merges();
    void conflicts_data();
    void conflicts();
    void conflictsAreTold();
    void listsStayTogether();

private:
    ParameterSet set(const QString& content) const { return m_form.read(stationParameters(content)); }
    Merge merged(const QString& base, const QString& ours, const QString& theirs,
                 Preference preference = Preference::Neither) const
    {
        return merge(m_form, set(base), set(ours), set(theirs), preference);
    }

    const SettingsForm m_form{stationForm()};
};

namespace {

const QString none;
const QString am = QStringLiteral("<Tuner><Mode>AM</Mode></Tuner>");
const QString fm = QStringLiteral("<Tuner><Mode>FM</Mode></Tuner>");
const QString other = QStringLiteral("<Tuner><Mode>XX</Mode></Tuner>");

QString level(const char* text)
{
    return QStringLiteral("<Audio><Level>%1</Level></Audio>").arg(QLatin1String(text));
}

} // namespace

void TestMerge::merges_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("ours");
    QTest::addColumn<QString>("theirs");
    QTest::addColumn<QString>("result");
    const QString step = QStringLiteral("<Tuner><Step>5000</Step></Tuner>");
    const QString both = QStringLiteral("<Tuner><Mode>AM</Mode><Step>5000</Step></Tuner>");
    const QString unknown = QStringLiteral("<X><Y>1</Y></X>");
    QTest::newRow("nothing changed") << am << am << am << am;
    QTest::newRow("one changed") << am << fm << am << fm;
    QTest::newRow("alike") << am << fm << fm << fm;
    QTest::newRow("added by one") << none << am << none << am;
    QTest::newRow("dropped by one") << both << both << am << am;
    QTest::newRow("dropped by both") << am << none << none << none;
    QTest::newRow("unknown to the form") << none << none << unknown << unknown;
    QTest::newRow("a number written otherwise") << level("5") << level("5.0") << level("6") << level("6");
    QTest::newRow("both, in different rows") << none << am << am + step << both;
}

void TestMerge::merges()
{
    QFETCH(QString, base);
    QFETCH(QString, ours);
    QFETCH(QString, theirs);
    QFETCH(QString, result);
    const QString wanted = parameterXml(m_form.emptyRoot(), set(result).settings());
    for (const Merge& one : {merged(base, ours, theirs), merged(base, theirs, ours)}) {
        QVERIFY(one.conflicts.isEmpty());
        QCOMPARE(one.xml, wanted);
    }
}

void TestMerge::conflicts_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("ours");
    QTest::addColumn<QString>("theirs");
    QTest::newRow("changed by both") << other << am << fm;
    QTest::newRow("changed and dropped") << am << fm << none;
    QTest::newRow("dropped and changed") << am << none << fm;
    QTest::newRow("added by both") << none << am << fm;
}

void TestMerge::conflicts()
{
    QFETCH(QString, base);
    QFETCH(QString, ours);
    QFETCH(QString, theirs);
    QCOMPARE(merged(base, ours, theirs).conflicts.size(), 1);
    const auto written = [this](const QString& content) {
        return parameterXml(m_form.emptyRoot(), set(content).settings());
    };
    QCOMPARE(merged(base, ours, theirs, Preference::Ours).xml, written(ours));
    QCOMPARE(merged(base, ours, theirs, Preference::Theirs).xml, written(theirs));
}

void TestMerge::conflictsAreTold()
{
    const Merge one = merged(none, am, fm);
    QCOMPARE(conflictsText(one.conflicts),
             QStringLiteral("conflict  Tuning / Mode: Amplitude in A, Frequency modulation in B, "
                            "nothing in BASE\n"));
    const QByteArray json = conflictsJson(one.conflicts);
    for (const char* part : {"\"base\": null", "\"ours\": \"AM\"", "\"theirs\": \"FM\"",
                             "\"wordsOurs\": \"Amplitude\"", "\"path\": \"Tuner/Mode\""})
        QVERIFY2(json.contains(part), json.constData());
}

// A list that is read in two halves keeps the second one only.
void TestMerge::listsStayTogether()
{
    const auto item = [](int index) {
        return QStringLiteral("<Scan><Shifts><Shift index=\"%1\">4</Shift></Shifts></Scan>").arg(index);
    };
    const QString xml =
        merged(item(0) + level("5"), item(0) + level("5"), item(0) + level("5") + item(2)).xml;
    QCOMPARE(xml.count(QStringLiteral("<Shifts>")), 1);
    QCOMPARE(xml.count(QStringLiteral("<Shift ")), 2);
}

QTEST_MAIN(TestMerge)
#include "tst_merge.moc"
