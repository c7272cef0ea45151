#include "parametertest.h"

#include <author/parameters/parametercheck.h>

#include <QTest>

using namespace Orvane::Author;

/// What a form does not take, or takes for something else.
class TestParameterCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findings_data();
    void findings();
    void whatIsExportedIsSettled_data();
    void whatIsExportedIsSettled();
};

void TestParameterCheck::findings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("places");
    QTest::addColumn<QString>("effect");
    const auto row = [](const char* name, const char* content, const char* places, const char* effect) {
        QTest::newRow(name) << stationParameters(QString::fromLatin1(content)) << QString::fromLatin1(places)
                            << QString::fromUtf8(effect);
    };
    row("nothing wrong", "<Tuner><Mode>AM</Mode></Tuner>", "", "");
    row("unknown path", "<Tuner><Volume>7</Volume></Tuner>", "error unknown-path 1:20", "the form skips it");
    row("no number", "<Audio><Level>high</Level></Audio>", "error no-number 1:27",
        "the row takes `0` (0.0 dB)");
    row("fraction for a whole number", "<Tuner><Width>12.5</Width></Tuner>", "error no-number 1:27",
        "the row takes `0` (0.000 kHz)");
    row("above the range", "<Audio><Level>200</Level></Audio>", "warning clamped 1:27",
        "the control shows 130.0 dB, the form sends `200` (200.0 dB)");
    row("below the range", "<Tuner><Width>50</Width></Tuner>", "warning clamped 1:27",
        "the control shows 0.100 kHz, the form sends `50` (0.050 kHz)");
    row("choice that is not listed", "<Tuner><Mode>USB</Mode></Tuner>", "error choice-not-listed 1:26",
        "the row takes `FM` (Frequency modulation)");
    row("number that is not listed", "<Tuner><Step>1001</Step></Tuner>", "error choice-not-listed 1:26",
        "the row takes `5000` (5 kHz)");
    row("state", "<Audio><Mute>true</Mute></Audio>", "error no-state 1:26", "the row takes `off`");
    row("doubled", "<Tuner><Mode>AM</Mode></Tuner><Tuner><Mode>FM</Mode></Tuner>", "warning doubled 1:20",
        "");
    row("not sent", "<Secret>x</Secret>", "note not-sent 1:13", "");
    row("element in a value", "<Tuner><Mode><b>AM</b></Mode></Tuner>", "error element-in-value 1:20", "");
    QTest::newRow("wrong root") << QStringLiteral("<Settings/>") << QStringLiteral("error wrong-root 1:1")
                                << QStringLiteral("nothing is read");
    QTest::newRow("not well-formed") << QStringLiteral("<Parameters>\n<Tuner><Mode>AM</Mode></Parameters>")
                                     << QStringLiteral("error not-well-formed 2:36")
                                     << QStringLiteral("what stands before is read, what follows is not");
}

void TestParameterCheck::findings()
{
    QFETCH(QString, text);
    QFETCH(QString, effect);
    const SettingsForm form(stationForm());
    const CheckedFile checked = checkParameters(form, QStringLiteral("P.xml"), text.toUtf8());
    QStringList places;
    QStringList effects;
    for (const Finding& finding : checked.findings) {
        const Place place = checked.source.place(finding.range.begin);
        places.append(QStringLiteral("%1 %2 %3:%4")
                          .arg(severityName(finding.severity), finding.id)
                          .arg(place.line)
                          .arg(place.column));
        effects.append(finding.effect);
    }
    QTEST(places.join(QLatin1String(", ")), "places");
    QCOMPARE(effects.join(QString()), effect);
}

void TestParameterCheck::whatIsExportedIsSettled_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("message");
    QTest::newRow("no script") << QString() << QString();
    QTest::newRow("a script that answers")
        << QStringLiteral("level.valueChanged.connect(function(v) { level.value = v + 1; });")
        << QStringLiteral("Audio / Level is exported as `6` and, read again, as `7`");
}

void TestParameterCheck::whatIsExportedIsSettled()
{
    QFETCH(QString, script);
    QFETCH(QString, message);
    const SettingsForm form(stationForm(script));
    const CheckedFile checked =
        checkParameters(form, QStringLiteral("P.xml"),
                        stationParameters(QStringLiteral("<Audio><Level>5</Level></Audio>")).toUtf8());
    QString messages;
    for (const Finding& finding : checked.findings) {
        QCOMPARE(finding.id, QStringLiteral("not-settled"));
        messages += finding.message;
    }
    QCOMPARE(messages, message);
}

QTEST_MAIN(TestParameterCheck)
#include "tst_parametercheck.moc"
