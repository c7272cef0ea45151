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
#include <iterator>

using namespace Orvane::Author;

namespace {

/// Findings of the checker about what stands where, which a grammar sees as well. The others are
/// about what is said twice, what one text says about another, and what the script says.
const char* const grammatical[] = {
    "no-form",        "root-in-wrapper", "several-roots",      "not-well-formed",
    "not-read",       "cut-script",      "unknown-element",    "stray-element",
    "second-value",   "element-in-text", "misplaced-property", "property-without-type",
    "nameless",       "unknown-class",   "properties-in-row",  "unknown-attribute",
    "doubled-part",   "entry-part",      "misspelt-property",  "unknown-property",
    "several-sheets", "several-scripts", "type-name",          "number-text",
    "bool-text",
};

QStringList grammaticalIn(const QByteArray& bytes)
{
    QStringList ids;
    const CheckedFile checked = check(QString(), bytes);
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

} // namespace

/// The schema beside the checker, on the same damaged forms.
class TestSchemaOfDamages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rejectsWhatAGrammarSees_data() { addTextsToDamage(); }
    void rejectsWhatAGrammarSees();
};

void TestSchemaOfDamages::rejectsWhatAGrammarSees()
{
    QFETCH(QString, text);
    const QTemporaryDir folder;
    const QString schema = folder.filePath(QStringLiteral("zorva.rng"));
    QVERIFY(store(schema, relaxNgSchema(KindTable::instance())));
    QStringList paths;
    QStringList what;
    const QString fault = faultOfDamages(text, 60, [&](const QByteArray& bytes) {
        const QStringList ids = grammaticalIn(bytes);
        if (ids.isEmpty())
            return QString();
        paths += folder.filePath(QStringLiteral("%1.zorva").arg(paths.size()));
        what += ids.join(QLatin1Char(' '));
        return store(paths.last(), bytes) ? QString() : QStringLiteral("cannot write");
    });
    QCOMPARE(fault, QString());

    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(QStringLiteral("xmllint"),
                    QStringList{QStringLiteral("--noout"), QStringLiteral("--relaxng"), schema} + paths);
    QVERIFY(validator.waitForFinished(-1));
    const QStringList said = QString::fromLocal8Bit(validator.readAll()).split(QLatin1Char('\n'));
    QVERIFY(said.filter(QStringLiteral(" fails to validate")).size() > 10);
    const QSet<QString> lines(said.begin(), said.end());
    for (int i = 0; i < paths.size(); ++i)
        QVERIFY2(!lines.contains(paths.at(i) + QLatin1String(" validates")), qPrintable(what.at(i)));
}

QTEST_MAIN(TestSchemaOfDamages)
#include "tst_schemaofdamages.moc"
