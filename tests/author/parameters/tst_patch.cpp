#include "parametertest.h"

#include <author/parameters/differences.h>

#include <zorvaparser/zorvadelegate.h>

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

using namespace Orvane::Author;

namespace {

/// Parameters of a form as hosts, people and older versions may have stored them.
class RandomParameters
{
public:
    RandomParameters(const SettingsForm& form, quint32 seed)
        : m_form(form)
        , m_random(seed)
    {
    }

    QString make()
    {
        const ParameterSet all = m_form.read(m_form.exportedAfter({}));
        QVector<Setting> chosen;
        for (Setting setting : all.settings()) {
            if (m_random.bounded(4) == 0)
                continue;
            for (SettingLeaf& leaf : setting.leaves)
                leaf.text = text(setting, leaf.text);
            chosen.append(setting);
        }
        return parameterXml(m_form.emptyRoot(), chosen);
    }

private:
    QString text(const Setting& setting, const QString& present)
    {
        const int choice = m_random.bounded(4);
        return choice == 0 ? present : choice == 1 ? number() : choice == 2 ? word() : fitting(setting);
    }

    QString fitting(const Setting& setting)
    {
        const Orvane::ZorvaDelegate& row = *m_form.form().GetSheet().GetWidgetAt(setting.row)->GetDelegate();
        const auto choices = m_form.form().GetEnum(row.GetString("enumName", QString()));
        if (choices->GetValueCount() > 0)
            return choices->GetValueAt(m_random.bounded(choices->GetValueCount())).GetValue();
        if (m_form.rows().kind(setting.row).delegate == QLatin1String("ZorvaCheckBox"))
            return row.GetString(m_random.bounded(2) ? "checkedValue" : "uncheckedValue", QString());
        return number();
    }

    QString number()
    {
        const double value = (m_random.generateDouble() - 0.3) * (m_random.bounded(2) ? 1e3 : 1e9);
        return m_random.bounded(3) == 0 ? QString::number(value, 'f', 2) : QString::number(qint64(value));
    }

    QString word() { return QStringLiteral("text %1 <&>").arg(m_random.bounded(5)); }

    const SettingsForm& m_form;
    QRandomGenerator m_random;
};

QByteArray example(const char* name)
{
    QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/%1").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// What is printed as the difference makes, through the engine, one state of the other.
class TestPatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void patchOfAGivesB_data();
    void patchOfAGivesB();
    void onlyWhatDiffersIsInIt();
    void whatTheScriptChangesOnTheWayIsInIt();
    void whatNobodyCanReachIsTold();
};

void TestPatch::patchOfAGivesB_data()
{
    QTest::addColumn<QByteArray>("description");
    for (const char* name : {"receiver.zorva", "gallery.zorva", "minimal.zorva"})
        QTest::newRow(name) << example(name);
    QTest::newRow("one row of each sort") << stationForm();
}

void TestPatch::patchOfAGivesB()
{
    QFETCH(QByteArray, description);
    const SettingsForm form(description);
    QVERIFY(form.exists());
    bool isSet = false;
    const int wish = qEnvironmentVariableIntValue("ZORVA_PATCHES", &isSet);
    for (int i = 0; i < (isSet ? wish : 12); ++i) {
        RandomParameters random(form, quint32(i));
        const QString a = random.make();
        const QString b = random.make();
        const Patch made = patch(form, a, b);
        QCOMPARE(made.unreachable, QStringList());
        const bool isReached = form.exportedAfter({a, made.xml}) == form.exportedAfter({b});
        QVERIFY2(isReached, qPrintable(QStringLiteral("set %1\n%2\n%3\n%4").arg(i).arg(a, b, made.xml)));
    }
}

void TestPatch::onlyWhatDiffersIsInIt()
{
    const SettingsForm form(stationForm());
    const QString text = QStringLiteral("<Tuner><Mode>%1</Mode><Step>5000</Step></Tuner>");
    const Patch made = patch(form, stationParameters(text.arg(QStringLiteral("AM"))),
                             stationParameters(text.arg(QStringLiteral("FM"))));
    QCOMPARE(made.xml, QStringLiteral("<Parameters>\n    <Tuner>\n        <Mode>FM</Mode>\n    </Tuner>\n"
                                      "</Parameters>\n"));
}

// The receiver narrows the bandwidth when the demodulation changes.
void TestPatch::whatTheScriptChangesOnTheWayIsInIt()
{
    const SettingsForm form(example("receiver.zorva"));
    const QString text =
        QStringLiteral("<Tuner><Demodulation>%1</Demodulation><Bandwidth>120000</Bandwidth></Tuner>");
    const Patch made = patch(form, stationParameters(text.arg(QStringLiteral("FM"))),
                             stationParameters(text.arg(QStringLiteral("AM"))));
    QVERIFY2(made.xml.contains(QStringLiteral(">120000</Bandwidth>")), qPrintable(made.xml));
}

void TestPatch::whatNobodyCanReachIsTold()
{
    const SettingsForm restless(
        stationForm(QStringLiteral("level.valueChanged.connect(function(v) { level.value = v + 1; });")));
    const Patch made = patch(restless, stationParameters(QString()),
                             stationParameters(QStringLiteral("<Audio><Level>5</Level></Audio>")));
    QCOMPARE(made.unreachable, QStringList{QStringLiteral("Audio / Level")});
}

QTEST_MAIN(TestPatch)
#include "tst_patch.moc"
