#include "checktest.h"

#include <author/check/families.h>
#include <author/check/ruletexts.h>

#include <QFile>
#include <QSet>
#include <QTest>

using namespace Orvane::Author;

/// Every rule has its texts, its snippets show what they claim, and the page of rules is up to date.
class tst_ruletexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRuleExplainsItself_data()
    {
        QTest::addColumn<QString>("id");
        for (const QString& id : ruleIds())
            QTest::newRow(qPrintable(id)) << id;
    }

    void everyRuleExplainsItself()
    {
        QFETCH(QString, id);
        const Rule* const rule = findRule(id);
        QVERIFY(rule);
        QVERIFY(qstrlen(rule->title) > 0);
        QVERIFY(qstrlen(rule->explanation) > 40);
        QVERIFY(rule->bad && rule->good);
        const QString whole = explanation(*rule);
        QVERIFY(whole.contains(id));
        for (const QString& line : whole.section(QStringLiteral("\nNot so:"), 0, 0).split(QLatin1Char('\n')))
            QVERIFY2(line.size() <= 100, qPrintable(line));
    }

    void badSnippetsHaveTheFinding_data() { everyRuleExplainsItself_data(); }

    void badSnippetsHaveTheFinding()
    {
        QFETCH(QString, id);
        const Rule* const rule = findRule(id);
        // What comes of running them is seen where they are run.
        static const QStringList run{QStringLiteral("script-crash"), QStringLiteral("script-endless"),
                                     QStringLiteral("script-exception"), QStringLiteral("script-memory")};
        const CheckedFile checked = check(id, wholeDescription(rule->bad).toUtf8());
        QStringList ids;
        for (const Finding& finding : checked.findings)
            ids += finding.id;
        QVERIFY2(ids.contains(id) || run.contains(id), qPrintable(ids.join(QLatin1Char(' '))));
    }

    void goodSnippetsAreClean_data() { everyRuleExplainsItself_data(); }

    void goodSnippetsAreClean()
    {
        QFETCH(QString, id);
        const Rule* const rule = findRule(id);
        QCOMPARE(placesIn(wholeDescription(rule->good)), QString());
    }

    void noIdIsUsedTwice()
    {
        const QStringList ids = ruleIds();
        QCOMPARE(QSet<QString>(ids.cbegin(), ids.cend()).size(), ids.size());
    }

    void thePageOfRulesIsUpToDate()
    {
        QFile file(QStringLiteral(ZORVA_SOURCE_DIR "/docs/checker.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString page = QString::fromUtf8(file.readAll());
        const int rules = page.indexOf(QLatin1String("<!-- rules, made by zorva check --rules -->\n"));
        QVERIFY(rules >= 0);
        const QString made = page.mid(page.indexOf(QLatin1Char('\n'), rules) + 1);
        QVERIFY2(made == rulePage(),
                 "docs/checker.md is stale; renew it with tools/renew-checker-page BUILD/bin/zorva");
    }
};

QTEST_MAIN(tst_ruletexts)
#include "tst_ruletexts.moc"
