#include "parametertest.h"

#include <author/parameters/parameterreports.h>

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

using namespace Orvane::Author;

namespace {

/// Says a text with the context in front.
class Parrot : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QStringLiteral("%1:%2").arg(QString::fromUtf8(context), QString::fromUtf8(text));
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// The operator's words for settings.
class TestSettingWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
    void language();
    void json();

private:
    const SettingsForm m_form{stationForm()};
};

void TestSettingWords::words_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("words");
    const auto row = [](const char* name, const char* content, const char* words) {
        QTest::newRow(name) << QString::fromLatin1(content) << QString::fromLatin1(words);
    };
    row("frequency", "<Tuner><Frequency>145000000</Frequency></Tuner>", "Tuning / Frequency: 145 MHz\n");
    row("choice", "<Tuner><Mode>AM</Mode></Tuner>", "Tuning / Mode: Amplitude\n");
    row("unit with prefix", "<Tuner><Width>12500</Width></Tuner>", "Tuning / Bandwidth: 12.500 kHz\n");
    row("state", "<Audio><Mute>on</Mute></Audio>", "Audio / Mute: on\n");
    row("number with unit", "<Audio><Level>2.5</Level></Audio>", "Audio / Level: 2.5 dB\n");
    row("text", "<Audio><Remark>x y</Remark></Audio>", "Audio / Remark: x y\n");
    row("end of a range", "<Scan><Stop>137000000</Stop></Scan>", "Audio / Range (Stop): 137 MHz\n");
    row("item", "<Scan><Shifts><Shift index=\"1\">4</Shift></Shifts></Scan>",
        "Audio / Shifts (index 1): 4 Hz\n");
    row("ranges",
        "<Scan><Exclusions><ExclusionRange><StartFreq>1000000</StartFreq><StopFreq>2500000</StopFreq>"
        "</ExclusionRange></Exclusions></Scan>",
        "Audio / Exclusions: 1 MHz to 2.5 MHz\n");
    row("no ranges", "<Scan><Exclusions/></Scan>", "Audio / Exclusions: none\n");
    row("unknown", "<Display><Contrast>7</Contrast></Display>", "unknown to the form: Display/Contrast: 7\n");
}

void TestSettingWords::words()
{
    QFETCH(QString, content);
    QTEST(explanationText(m_form, m_form.read(stationParameters(content))), "words");
}

// Group, caption and choice are those of the running form, each in its own context.
void TestSettingWords::language()
{
    Parrot parrot;
    QCoreApplication::installTranslator(&parrot);
    const SettingsForm form(stationForm());
    const QString text =
        explanationText(form, form.read(stationParameters(QStringLiteral("<Tuner><Mode>AM</Mode></Tuner>"))));
    QCoreApplication::removeTranslator(&parrot);
    QCOMPARE(text, QStringLiteral("first:Tuning / mode:Mode: Modes:Amplitude\n"));
}

void TestSettingWords::json()
{
    const QByteArray json = explanationJson(
        m_form, m_form.read(QStringLiteral("<Parameters>\n  <Tuner><Mode>AM</Mode></Tuner></Parameters>")));
    for (const char* part :
         {"\"version\": 1", "\"path\": \"Tuner/Mode\"", "\"group\": \"Tuning\"", "\"caption\": \"Mode\"",
          "\"text\": \"AM\"", "\"words\": \"Amplitude\"", "\"known\": true", "\"line\": 2", "\"column\": 10"})
        QVERIFY2(json.contains(part), json.constData());
}

QTEST_MAIN(TestSettingWords)
#include "tst_settingwords.moc"
