#include "damage.h"
#include "servertalk.h"

#include <author/check/checker.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

/// A finding in the words of the protocol, worked out here a second time.
QJsonArray expected(const QString& text)
{
    const CheckedFile checked = check(QString(), text.toUtf8());
    const auto place = [&text](int offset) {
        const QString before = text.left(offset);
        return QJsonObject{{QStringLiteral("line"), before.count(QLatin1Char('\n'))},
                           {QStringLiteral("character"), offset - 1 - before.lastIndexOf(QLatin1Char('\n'))}};
    };
    QJsonArray findings;
    for (const Finding& finding : checked.findings) {
        const int severity = finding.severity == Severity::Error     ? 1
                             : finding.severity == Severity::Warning ? 2
                                                                     : 3;
        findings.append(QJsonObject{
            {QStringLiteral("range"), QJsonObject{{QStringLiteral("start"), place(finding.range.begin)},
                                                  {QStringLiteral("end"), place(finding.range.end)}}},
            {QStringLiteral("severity"), severity},
            {QStringLiteral("code"), finding.id},
            {QStringLiteral("source"), QStringLiteral("zorva")},
            {QStringLiteral("message"), finding.message},
            {QStringLiteral("data"),
             QJsonObject{{QStringLiteral("effect"), finding.effect}, {QStringLiteral("fix"), finding.fix}}}});
    }
    return findings;
}

} // namespace

/// What the server says of a document is what the check says of it.
class TestDiagnostics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_talk.initialize(); }
    void examples_data();
    void examples();
    void damages_data();
    void damages();
    void lettersOfTwoUnits();
    void effectsStandBeside();

private:
    ServerTalk m_talk;
};

void TestDiagnostics::examples_data()
{
    QTest::addColumn<QString>("text");
    for (const char* const name :
         {"receiver.zorva", "gallery.zorva", "minimal.zorva", "embedding/receiver.zorva",
          "embedding/recorder.zorva", "embedding/wideband.zorva", "embedding/alarm.zorva"})
        QTest::newRow(name) << exampleText(name);
}

void TestDiagnostics::examples()
{
    QFETCH(QString, text);
    m_talk.open(text);
    QCOMPARE(m_talk.diagnostics(), expected(text));
}

void TestDiagnostics::damages_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("receiver") << exampleText("receiver.zorva");
    QTest::newRow("gallery") << exampleText("gallery.zorva");
}

void TestDiagnostics::damages()
{
    QFETCH(QString, text);
    bool given = false;
    const int count = qEnvironmentVariableIntValue("ZORVA_DAMAGES", &given);
    for (int seed = 0; seed < (given ? count / 2 : 30); ++seed) {
        Damage damage(static_cast<quint32>(seed));
        const QString damaged = damage.apply(text);
        m_talk.open(damaged);
        const QJsonArray said = m_talk.diagnostics();
        QVERIFY2(said == expected(damaged),
                 qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(damage.what())));
    }
}

void TestDiagnostics::lettersOfTwoUnits()
{
    const QString text =
        QString::fromUtf8("<KVParamGui version=\"1.0\"><!-- \xf0\x9f\x93\xbb\xf0\x9f\x93\xbb -->"
                          "<Enum/></KVParamGui>");
    m_talk.open(text);
    const QJsonArray said = m_talk.diagnostics();
    QCOMPARE(said, expected(text));
    const QJsonObject start = said.first()
                                  .toObject()
                                  .value(QStringLiteral("range"))
                                  .toObject()
                                  .value(QStringLiteral("start"))
                                  .toObject();
    QCOMPARE(start.value(QStringLiteral("character")).toInt(), text.indexOf(QStringLiteral("<Enum")));
}

void TestDiagnostics::effectsStandBeside()
{
    ServerTalk talk;
    talk.initialize({{QStringLiteral("textDocument"),
                      QJsonObject{{QStringLiteral("publishDiagnostics"),
                                   QJsonObject{{QStringLiteral("relatedInformation"), true}}}}}});
    talk.open(QStringLiteral("<KVParamGui version=\"1.0\"><Enum name=\"a\"/></KVParamGui>"));
    const QJsonObject finding = talk.diagnostics().first().toObject();
    const QJsonArray related = finding.value(QStringLiteral("relatedInformation")).toArray();
    QCOMPARE(related.size(), 1);
    QVERIFY(related.first()
                .toObject()
                .value(QStringLiteral("message"))
                .toString()
                .contains(QStringLiteral("because of this the form loses")));
}

QTEST_GUILESS_MAIN(TestDiagnostics)
#include "tst_diagnostics.moc"
