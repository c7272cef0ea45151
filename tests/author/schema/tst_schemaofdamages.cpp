#include "checktest.h"
#include "damage.h"

#include <author/kinds/kindtable.h>
#include <author/schema/relaxng.h>

#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <iterator>

using namespace Orvane::Author;

namespace {

/// Findings of the checker about what stands where, which a grammar sees as well. The others are
/// about what is said twice, what one text says about another, and what the script says.
const char* const grammatical[] = {
    "no-form",         "root-in-wrapper",   "several-roots",      "not-well-formed",
    "not-read",        "cut-script",        "unknown-element",    "stray-element",
    "second-value",    "element-in-text",   "misplaced-property", "property-without-type",
    "stray-text",      "nested-block",      "foreign-namespace",  "nameless",
    "unknown-class",   "properties-in-row", "unknown-attribute",  "doubled-part",
    "entry-part",      "misspelt-property", "unknown-property",   "several-sheets",
    "several-scripts", "type-name",         "number-text",        "bool-text",
};

QStringList grammaticalIn(const CheckedFile& checked)
{
    QStringList ids;
    for (const Finding& finding : checked.findings) {
        const auto isOf = [&finding](const char* id) { return finding.id == QLatin1String(id); };
        if (std::any_of(std::begin(grammatical), std::end(grammatical), isOf))
            ids += finding.id;
    }
    return ids;
}

bool store(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Descriptions with what the checker says of them, and what a validator does.
class Judged
{
public:
    void add(const QByteArray& bytes, const QString& what)
    {
        m_paths += m_folder.filePath(QStringLiteral("%1.zorva").arg(m_paths.size()));
        m_isStored = store(m_paths.last(), bytes) && m_isStored;
        m_what += what;
        m_texts += bytes;
    }

    /// Those of the damaged texts for which `choice` says what they are.
    void addDamages(const QString& text, int count, const std::function<QString(const CheckedFile&)>& choice)
    {
        faultOfDamages(text, count, [&](const QByteArray& bytes) {
            const QString chosen = choice(check(QString(), bytes));
            if (!chosen.isEmpty())
                add(bytes, chosen);
            return QString();
        });
    }

    /// False if the validator could not be asked.
    bool validate()
    {
        const QString schema = m_folder.filePath(QStringLiteral("zorva.rng"));
        if (!m_isStored || !store(schema, relaxNgSchema(KindTable::instance())))
            return false;
        QProcess validator;
        validator.setProcessChannelMode(QProcess::MergedChannels);
        validator.start(QStringLiteral("xmllint"),
                        QStringList{QStringLiteral("--noout"), QStringLiteral("--relaxng"), schema} +
                            m_paths);
        if (!validator.waitForFinished(-1))
            return false;
        const QStringList lines = QString::fromLocal8Bit(validator.readAll()).split(QLatin1Char('\n'));
        m_said = QSet<QString>(lines.cbegin(), lines.cend());
        return true;
    }

    int count() const { return m_paths.size(); }
    const QString& what(int index) const { return m_what.at(index); }
    const QByteArray& text(int index) const { return m_texts.at(index); }
    bool isAccepted(int index) const
    {
        return m_said.contains(m_paths.at(index) + QLatin1String(" validates"));
    }
    bool isRejected(int index) const
    {
        return m_said.contains(m_paths.at(index) + QLatin1String(" fails to validate"));
    }

private:
    QTemporaryDir m_folder;
    bool m_isStored = true;
    QStringList m_paths;
    QStringList m_what;
    QByteArrayList m_texts;
    QSet<QString> m_said;
};

/// The line in which a damaged text begins to differ.
QString firstDifference(const QString& text, const QByteArray& damaged)
{
    const QStringList before = text.split(QLatin1Char('\n'));
    const QStringList after = QString::fromUtf8(damaged).split(QLatin1Char('\n'));
    int line = 0;
    while (line < before.size() && line < after.size() && before.at(line) == after.at(line))
        ++line;
    return QStringLiteral("line %1: %2").arg(line + 1).arg(after.value(line));
}

/// Every type element around every text, as the value of properties of each type.
QStringList propertiesOfAllTypes()
{
    const char* const names[] = {"enabled",        "decimals",  "minimum",  "toolTip",
                                 "startFrequency", "unitScale", "applyMode"};
    const char* const types[] = {"Bool", "Int", "Int64", "UInt64", "Double", "String"};
    const char* const texts[] = {"true", "1",   "-7", "2.5", "1e300", "5000000000", "inf", "INF", "nan",
                                 "",     " 4 ", "+4", ".5",  "5.",    "4,5",        "0x1", "wide"};
    QStringList properties;
    for (const char* const name : names) {
        for (const char* const type : types) {
            for (const char* const text : texts)
                properties += QStringLiteral("<Property name=\"%1\"><%2>%3</%2></Property>")
                                  .arg(QLatin1String(name), QLatin1String(type), QLatin1String(text));
        }
    }
    return properties;
}

} // namespace

/// The schema beside the checker, on the same damaged forms.
class TestSchemaOfDamages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rejectsWhatAGrammarSees_data() { addTextsToDamage(); }
    void rejectsWhatAGrammarSees();
    void acceptsWhatHasNoFinding_data() { addTextsToDamage(); }
    void acceptsWhatHasNoFinding();
    void agreesOnValues();
};

void TestSchemaOfDamages::rejectsWhatAGrammarSees()
{
    QFETCH(QString, text);
    Judged judged;
    judged.addDamages(
        text, 60, [](const CheckedFile& checked) { return grammaticalIn(checked).join(QLatin1Char(' ')); });
    QVERIFY(judged.validate());
    int rejected = 0;
    for (int i = 0; i < judged.count(); ++i) {
        QVERIFY2(!judged.isAccepted(i), qPrintable(judged.what(i)));
        rejected += judged.isRejected(i) ? 1 : 0;
    }
    QVERIFY(rejected > 10);
}

void TestSchemaOfDamages::acceptsWhatHasNoFinding()
{
    QFETCH(QString, text);
    Judged judged;
    judged.addDamages(text, 400, [](const CheckedFile& checked) {
        return checked.findings.isEmpty() ? QStringLiteral("no finding") : QString();
    });
    QVERIFY(judged.validate());
    QVERIFY(judged.count() > 10);
    for (int i = 0; i < judged.count(); ++i)
        QVERIFY2(judged.isAccepted(i), qPrintable(firstDifference(text, judged.text(i))));
}

void TestSchemaOfDamages::agreesOnValues()
{
    Judged judged;
    for (const QString& property : propertiesOfAllTypes()) {
        const char* const className =
            property.contains(QLatin1String("\"startF")) ? "FrequencyRangeEdit" : "BandwidthEdit";
        const QByteArray bytes = QStringLiteral("<KVParamGui><Sheet name=\"s\"><Widget name=\"a\" "
                                                "class=\"%1\">%2</Widget></Sheet></KVParamGui>")
                                     .arg(QLatin1String(className), property)
                                     .toUtf8();
        judged.add(bytes, grammaticalIn(check(QString(), bytes)).join(QLatin1Char(' ')));
    }
    QVERIFY(judged.validate());
    for (int i = 0; i < judged.count(); ++i)
        QVERIFY2(judged.isAccepted(i) == judged.what(i).isEmpty(),
                 qPrintable(QString::fromUtf8(judged.text(i)) + judged.what(i)));
}

QTEST_MAIN(TestSchemaOfDamages)
#include "tst_schemaofdamages.moc"
