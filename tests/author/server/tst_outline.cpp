#include "forms.h"
#include "servertalk.h"

#include <QTest>

namespace {

QJsonObject documentParams()
{
    return {{QStringLiteral("textDocument"), QJsonObject{{QStringLiteral("uri"), ServerTalk::uri()}}}};
}

QJsonObject abilities(const char* feature, const QJsonObject& ability)
{
    return {{QStringLiteral("textDocument"), QJsonObject{{QLatin1String(feature), ability}}}};
}

/// Names of a tree: "a(b c(d))".
QString names(const QJsonArray& nodes)
{
    QStringList list;
    for (const QJsonValue& value : nodes) {
        const QJsonArray children = value.toObject().value(QStringLiteral("children")).toArray();
        list.append(value.toObject().value(QStringLiteral("name")).toString() +
                    (children.isEmpty() ? QString() : QStringLiteral("(%1)").arg(names(children))));
    }
    return list.join(QLatin1Char(' '));
}

int lineOf(const QJsonObject& node, const char* range, const char* end)
{
    return node.value(QLatin1String(range))
        .toObject()
        .value(QLatin1String(end))
        .toObject()
        .value(QStringLiteral("line"))
        .toInt();
}

} // namespace

/// Outline and folding.
class TestOutline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree();
    void flat();
    void namelessThingsHaveNames();
    void folds();
    void foldsWithinALimit();
};

void TestOutline::tree()
{
    ServerTalk talk;
    talk.initialize(
        abilities("documentSymbol", {{QStringLiteral("hierarchicalDocumentSymbolSupport"), true}}));
    talk.open(smallForm());
    const QJsonArray nodes =
        talk.ask("textDocument/documentSymbol", documentParams()).value(QStringLiteral("result")).toArray();
    QCOMPARE(names(nodes), QStringLiteral("Modes(MODE_FM MODE_AM) tuner(head(gain mode)) Script(follow)"));
    const QJsonObject head =
        nodes.at(1).toObject().value(QStringLiteral("children")).toArray().first().toObject();
    QCOMPARE(head.value(QStringLiteral("detail")).toString(), QStringLiteral("Headline, \"Tuning\""));
    // The group reaches to the end of its last row.
    const QString before = smallForm().section(QStringLiteral("  </Sheet>"), 0, 0);
    QCOMPARE(lineOf(head, "range", "end"), before.count(QLatin1Char('\n')) - 1);
    const QJsonObject function =
        nodes.last().toObject().value(QStringLiteral("children")).toArray().first().toObject();
    QCOMPARE(lineOf(function, "range", "end") - lineOf(function, "range", "start"), 4);
}

void TestOutline::flat()
{
    ServerTalk talk;
    talk.initialize();
    talk.open(smallForm());
    const QJsonArray list =
        talk.ask("textDocument/documentSymbol", documentParams()).value(QStringLiteral("result")).toArray();
    QCOMPARE(names(list), QStringLiteral("Modes MODE_FM MODE_AM tuner head gain mode Script follow"));
    QCOMPARE(list.at(5).toObject().value(QStringLiteral("containerName")).toString(), QStringLiteral("head"));
    QVERIFY(list.at(5).toObject().value(QStringLiteral("location")).isObject());
}

void TestOutline::namelessThingsHaveNames()
{
    ServerTalk talk;
    talk.initialize(
        abilities("documentSymbol", {{QStringLiteral("hierarchicalDocumentSymbolSupport"), true}}));
    talk.open(QStringLiteral(
        "<KVParamGui><Enums><Enum><EnumValue/></Enum></Enums><Sheet name=''><Widget/><Widget"));
    const QJsonArray nodes =
        talk.ask("textDocument/documentSymbol", documentParams()).value(QStringLiteral("result")).toArray();
    QCOMPARE(names(nodes), QStringLiteral("Enum(EnumValue) Sheet(Widget)"));
}

void TestOutline::folds()
{
    ServerTalk talk;
    talk.initialize();
    talk.open(smallForm());
    const QJsonArray ranges =
        talk.ask("textDocument/foldingRange", documentParams()).value(QStringLiteral("result")).toArray();
    const QStringList lines = smallForm().split(QLatin1Char('\n'));
    QStringList found;
    for (const QJsonValue& value : ranges) {
        const QJsonObject range = value.toObject();
        found.append(lines.at(range.value(QStringLiteral("startLine")).toInt()).trimmed().left(20) +
                     QStringLiteral(" +%1 ").arg(range.value(QStringLiteral("endLine")).toInt() -
                                                 range.value(QStringLiteral("startLine")).toInt()) +
                     range.value(QStringLiteral("kind")).toString());
    }
    QVERIFY(found.contains(QStringLiteral("<!-- A tuner +1 comment")));
    QVERIFY(found.contains(QStringLiteral("<Enum name=\"Modes\"> +10 ")));
    QVERIFY(found.contains(QStringLiteral("<Widget name=\"head\"  +3 ")));
    QVERIFY(found.contains(QStringLiteral("function follow(valu +3 ")));
    QVERIFY(found.first().startsWith(QStringLiteral("<!-- A tuner")));
    for (const QString& line : qAsConst(found))
        QVERIFY2(!line.startsWith(QStringLiteral("<Property")), qPrintable(line));
}

void TestOutline::foldsWithinALimit()
{
    ServerTalk talk;
    talk.initialize(abilities("foldingRange", {{QStringLiteral("rangeLimit"), 2}}));
    talk.open(smallForm());
    const QJsonArray ranges =
        talk.ask("textDocument/foldingRange", documentParams()).value(QStringLiteral("result")).toArray();
    QCOMPARE(ranges.size(), 2);
    QCOMPARE(ranges.first().toObject().value(QStringLiteral("startLine")).toInt(), 3);
}

QTEST_GUILESS_MAIN(TestOutline)
#include "tst_outline.moc"
