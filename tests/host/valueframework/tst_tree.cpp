#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <vkbase/errorhandler.h>

#include <QTest>

#include <memory>
#include <vector>

using namespace values;

class TestTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void thereIsOne();
    void pathsAreNormalised_data();
    void pathsAreNormalised();
    void caseCounts();
    void emptyPathsFindNothing();
    void aNodePathIsNoValue();
    void valuesAndNodesMayShareAPath();
    void secondValueOfANameIsRefused();
    void nullAndValuesInTheTreeAreRefused();
    void unnamedValuesNeverCollide();
    void deletingTakesOut();
    void removingDeletesAndTells();
    void observersMeetAWholeValueThatHasLeft();
    void goingValuesAreRefused();
    void renaming_data();
    void renaming();
    void renamingNamesWithNodes_data();
    void renamingNamesWithNodes();
    void renamingToATakenNameIsRefused();
    void partsOfPaths_data();
    void partsOfPaths();
    void renamingToNothingHides();
    void renamedPlaceCanBeTaken();
    void listing_data();
    void listing();
    void removingANode_data();
    void removingANode();
    void removingANodeWhileObserversRemoveAndAdd();
    void takenPlaceIsTraced_data();
    void takenPlaceIsTraced();
    void nodesGoWithTheirLastValue();
    void manyValuesInOneNodeStayCheap();

private:
    static ValueBool* add(const QString& node, const QString& name);
    static Tree* tree() { return Tree::Instance(); }
};

ValueBool* TestTree::add(const QString& node, const QString& name)
{
    auto value = std::make_unique<ValueBool>(name);
    return tree()->AddValue(node, value.get()) ? value.release() : nullptr;
}

void TestTree::cleanup()
{
    for (const QString& path : tree()->GetPathNames())
        tree()->RemoveValue(path);
    QCOMPARE(leftovers(), QString());
    QVERIFY(tree()->IsEmpty());
}

void TestTree::thereIsOne()
{
    QVERIFY(tree());
    QCOMPARE(Tree::Instance(), Tree::Instance());
    QVERIFY(tree()->IsEmpty());
    add(QStringLiteral("/a"), QStringLiteral("v"));
    QVERIFY(!tree()->IsEmpty());
    QCOMPARE(tree()->GetValueCount(), 1);
    QCOMPARE(tree()->GetPathNames(), QStringList{QStringLiteral("/a/v")});
}

void TestTree::pathsAreNormalised_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("lookup");
    QTest::newRow("plain") << "/a/b"
                           << "v"
                           << "/a/b/v"
                           << "/a/b/v";
    QTest::newRow("no leading slash") << "a/b"
                                      << "v"
                                      << "/a/b/v"
                                      << "a/b/v";
    QTest::newRow("trailing slash") << "/a/b/"
                                    << "v"
                                    << "/a/b/v"
                                    << "/a/b/v/";
    QTest::newRow("doubled slashes") << "//a///b"
                                     << "v"
                                     << "/a/b/v"
                                     << "/a//b/v//";
    QTest::newRow("root as nothing") << ""
                                     << "v"
                                     << "/v"
                                     << "v";
    QTest::newRow("root as slash") << "/"
                                   << "v"
                                   << "/v"
                                   << "/v";
    QTest::newRow("name with a path") << "/a"
                                      << "b/v"
                                      << "/a/b/v"
                                      << "/a/b/v";
    QTest::newRow("name with slashes round it") << "/a"
                                                << "/v/"
                                                << "/a/v"
                                                << "/a/v";
    QTest::newRow("blank in a name") << "/a b"
                                     << "v w"
                                     << "/a b/v w"
                                     << "a b/v w";
}

void TestTree::pathsAreNormalised()
{
    QFETCH(QString, node);
    QFETCH(QString, name);
    QFETCH(QString, path);
    QFETCH(QString, lookup);
    ValueBool* const value = add(node, name);
    QVERIFY(value);
    QCOMPARE(value->GetPathName(), path);
    QCOMPARE(value->GetName(), name);
    QCOMPARE(tree()->GetValue(lookup), value);
    QCOMPARE(tree()->GetValue(path), value);
    QVERIFY(tree()->RemoveValue(lookup));
    QVERIFY(!tree()->GetValue(path));
}

void TestTree::caseCounts()
{
    ValueBool* const lower = add(QStringLiteral("/a"), QStringLiteral("v"));
    ValueBool* const upper = add(QStringLiteral("/a"), QStringLiteral("V"));
    ValueBool* const other = add(QStringLiteral("/A"), QStringLiteral("v"));
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/v")), lower);
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/V")), upper);
    QCOMPARE(tree()->GetValue(QStringLiteral("/A/v")), other);
}

void TestTree::emptyPathsFindNothing()
{
    add(QStringLiteral("/a"), QStringLiteral("v"));
    for (const QString& path : {QString(), QStringLiteral(""), QStringLiteral("/"), QStringLiteral("//")}) {
        QVERIFY(!tree()->GetValue(path));
        QVERIFY(!tree()->RemoveValue(path));
    }
}

void TestTree::aNodePathIsNoValue()
{
    add(QStringLiteral("/a/b"), QStringLiteral("v"));
    QVERIFY(!tree()->GetValue(QStringLiteral("/a/b")));
    QVERIFY(!tree()->GetValue(QStringLiteral("/a")));
    QVERIFY(!tree()->GetValue(QStringLiteral("/a/b/w")));
}

void TestTree::valuesAndNodesMayShareAPath()
{
    ValueBool* const outer = add(QStringLiteral("/a"), QStringLiteral("b"));
    ValueBool* const inner = add(QStringLiteral("/a/b"), QStringLiteral("c"));
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/b")), outer);
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/b/c")), inner);
    delete outer;
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/b/c")), inner);
}

void TestTree::secondValueOfANameIsRefused()
{
    ValueBool* const first = add(QStringLiteral("/a"), QStringLiteral("v"));
    ValueBool second(QStringLiteral("v"));
    QVERIFY(!tree()->AddValue(QStringLiteral("a/"), &second));
    QCOMPARE(second.GetPathName(), QString());
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/v")), first);
    QVERIFY(tree()->AddValue(QStringLiteral("/b"), &second));
}

void TestTree::nullAndValuesInTheTreeAreRefused()
{
    QVERIFY(!tree()->AddValue(QStringLiteral("/a"), nullptr));
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    QVERIFY(!tree()->AddValue(QStringLiteral("/b"), value));
    QCOMPARE(value->GetPathName(), QStringLiteral("/a/v"));
    QCOMPARE(tree()->GetValueCount(), 1);
}

void TestTree::unnamedValuesNeverCollide()
{
    ValueBool null{QString()};
    ValueBool empty{QStringLiteral("")};
    QVERIFY(tree()->AddValue(QString(), &null));
    QVERIFY(tree()->AddValue(QString(), &empty));
    QCOMPARE(tree()->GetValueCount(), 2);
    QCOMPARE(null.GetPathName(), QString());
    QVERIFY(!tree()->GetValue(QString()));
    QVERIFY(!tree()->RemoveValue(null.GetPathName()));
    QCOMPARE(tree()->GetValueCount(), 2);
}

void TestTree::deletingTakesOut()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    delete value;
    QVERIFY(!tree()->GetValue(QStringLiteral("/a/v")));
    QVERIFY(tree()->IsEmpty());
    QVERIFY(add(QStringLiteral("/a"), QStringLiteral("v")));
}

void TestTree::removingDeletesAndTells()
{
    RecordingObserver observer;
    TValueState state = ValueState::Normal;
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    observer.watch(value);
    observer.onUpdate = [&](Observable* observable, TChangeCode) {
        if (observable == value)
            state = value->GetState();
        observer.leave();
    };
    QVERIFY(tree()->RemoveValue(QStringLiteral("/a/v")));
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::State});
    QCOMPARE(state, ValueState::GoingAway);
    QVERIFY(!tree()->RemoveValue(QStringLiteral("/a/v")));
}

void TestTree::observersMeetAWholeValueThatHasLeft()
{
    RecordingObserver observer;
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    value->SetValue(true, nullptr);
    observer.watch(value);
    bool whole = false;
    observer.onUpdate = [&](Observable* observable, TChangeCode) {
        const auto* typed = dynamic_cast<ValueBool*>(observable);
        whole = typed && typed->GetValue() && typed->GetStringValue() == QLatin1String("true") &&
                typed->GetPathName().isEmpty() && !tree()->RemoveValue(QStringLiteral("/a/v"));
    };
    delete value;
    QVERIFY(whole);
}

void TestTree::goingValuesAreRefused()
{
    RecordingObserver observer;
    auto value = std::make_unique<ValueBool>(QStringLiteral("v"));
    observer.watch(value.get());
    bool added = true;
    observer.onUpdate = [&](Observable* observable, TChangeCode) {
        added = tree()->AddValue(QStringLiteral("/a"), static_cast<ValueBase*>(observable));
    };
    value.reset();
    QVERIFY(!added);
}

void TestTree::renaming_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("other name") << "w"
                                << "/a/w";
    QTest::newRow("other case") << "V"
                                << "/a/V";
    QTest::newRow("below") << "b/w"
                           << "/a/b/w";
    QTest::newRow("same place, other writing") << "/v"
                                               << "/a/v";
}

void TestTree::renaming()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(value);
    QVERIFY(value->SetName(name, nullptr));
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Name});
    QCOMPARE(value->GetName(), name);
    QCOMPARE(value->GetPathName(), path);
    QCOMPARE(tree()->GetValue(path), value);
    QCOMPARE(tree()->GetPathNames(), QStringList{path});
}

void TestTree::renamingNamesWithNodes_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("path");
    QTest::newRow("in the same node") << ""
                                      << "a/b"
                                      << "a/c"
                                      << "/a/c";
    QTest::newRow("below another node") << "/form"
                                        << "a/b"
                                        << "x/b"
                                        << "/form/x/b";
    QTest::newRow("up") << "/form"
                        << "a/b/c"
                        << "c"
                        << "/form/c";
    QTest::newRow("further down") << "/form"
                                  << "a/b"
                                  << "a/b/c"
                                  << "/form/a/b/c";
    QTest::newRow("the node's own name again") << "/a"
                                               << "a/b"
                                               << "b"
                                               << "/a/b";
    QTest::newRow("written with slashes round it") << "/form"
                                                   << "//a//b/"
                                                   << "/a/c"
                                                   << "/form/a/c";
}

void TestTree::renamingNamesWithNodes()
{
    QFETCH(QString, node);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QString, path);
    ValueBool* const value = add(node, before);
    QVERIFY(value->SetName(after, nullptr));
    QCOMPARE(value->GetPathName(), path);
    QCOMPARE(tree()->GetPathNames(), QStringList{path});
    const QString first = node + QLatin1Char('/') + before;
    QVERIFY(value->SetName(before, nullptr));
    QCOMPARE(tree()->GetValue(first), value);
}

void TestTree::partsOfPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "/a/b/v"
                           << "/a/b"
                           << "v";
    QTest::newRow("slashes") << "a//b/v/"
                             << "/a/b"
                             << "v";
    QTest::newRow("in the root") << "v"
                                 << ""
                                 << "v";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("nothing but slashes") << "//"
                                         << ""
                                         << "";
}

void TestTree::partsOfPaths()
{
    QFETCH(QString, path);
    QTEST(Tree::NodePathIn(path), "node");
    QTEST(Tree::NameIn(path), "name");
}

void TestTree::renamingToATakenNameIsRefused()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    ValueBool* const other = add(QStringLiteral("/a"), QStringLiteral("w"));
    RecordingObserver observer;
    observer.watch(value);
    QVERIFY(!value->SetName(QStringLiteral("w"), nullptr));
    QVERIFY(observer.codes().isEmpty());
    QCOMPARE(value->GetName(), QStringLiteral("v"));
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/v")), value);
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/w")), other);
}

void TestTree::renamingToNothingHides()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    QVERIFY(value->SetName(QString(), nullptr));
    QVERIFY(!tree()->GetValue(QStringLiteral("/a/v")));
    QCOMPARE(tree()->GetValueCount(), 1);
    QVERIFY(value->SetName(QStringLiteral("w"), nullptr));
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/w")), value);
}

void TestTree::renamedPlaceCanBeTaken()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    value->SetName(QStringLiteral("w"), nullptr);
    ValueBool* const next = add(QStringLiteral("/a"), QStringLiteral("v"));
    QVERIFY(next);
    QCOMPARE(tree()->GetValue(QStringLiteral("/a/v")), next);
}

void TestTree::listing_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QStringList>("nodeNames");
    QTest::addColumn<QStringList>("valueNames");
    QTest::addColumn<int>("valuesBelow");
    const auto words = [](const char* text) {
        return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QTest::newRow("root") << "" << words("b form form-2") << words("top") << 8;
    QTest::newRow("root as slash") << "/" << words("b form form-2") << words("top") << 8;
    QTest::newRow("node") << "form/" << words("row") << words("z a") << 5;
    QTest::newRow("node with siblings of its name in front") << "/form/row" << words("") << words("v") << 2;
    QTest::newRow("nodes alone") << "/b" << words("c") << words("") << 1;
    QTest::newRow("other case") << "/Form" << words("") << words("") << 0;
    QTest::newRow("a value") << "/top" << words("") << words("") << 0;
    QTest::newRow("nothing") << "/nowhere" << words("") << words("") << 0;
}

void TestTree::listing()
{
    QFETCH(QString, node);
    for (const char* path : {"form/z", "form-2/v", "form/row/v", "top", "b/c/v", "form/a"})
        add(QString(), QString::fromLatin1(path));
    add(QStringLiteral("form"), QString());
    add(QStringLiteral("form/row"), QString());
    QTEST(tree()->GetNodeNames(node), "nodeNames");
    QTEST(tree()->GetValueNames(node), "valueNames");
    QTEST(int(tree()->GetValues(node, Tree::Reach::Subtree).size()), "valuesBelow");
    for (const ValueBase* value : tree()->GetValues(QString(), Tree::Reach::Subtree)) {
        if (value->GetName().isEmpty())
            delete value;
    }
}

void TestTree::removingANode_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<int>("removed");
    QTest::addColumn<QStringList>("left");
    const QString v = QStringLiteral("/form/v");
    const QString row = QStringLiteral("/form/row/v");
    const QString other = QStringLiteral("/form-2/v");
    QTest::newRow("all") << "/" << 4 << QStringList();
    QTest::newRow("node") << "/form" << 3 << QStringList{other};
    QTest::newRow("leaf") << "form/row/" << 2 << QStringList{other, v};
    QTest::newRow("nothing there") << "/nowhere" << 0 << QStringList{other, row, v};
}

void TestTree::removingANode()
{
    QFETCH(QString, node);
    for (const char* path : {"form/v", "form-2/v", "form/row/v"})
        add(QString(), QString::fromLatin1(path));
    ObservableGuard nameless(add(QStringLiteral("form/row"), QString()));
    QTEST(tree()->RemoveNode(node), "removed");
    QTEST(tree()->GetPathNames(), "left");
    delete nameless.Get();
}

void TestTree::removingANodeWhileObserversRemoveAndAdd()
{
    ValueBool* const first = add(QStringLiteral("/form"), QStringLiteral("a"));
    add(QStringLiteral("/form"), QStringLiteral("b"));
    RecordingObserver observer;
    observer.watch(first);
    observer.onUpdate = [](Observable*, TChangeCode) {
        tree()->RemoveValue(QStringLiteral("/form/b"));
        add(QStringLiteral("/form"), QStringLiteral("c"));
    };
    QCOMPARE(tree()->RemoveNode(QStringLiteral("/form")), 1);
    QCOMPARE(tree()->GetPathNames(), QStringList{QStringLiteral("/form/c")});
}

void TestTree::takenPlaceIsTraced_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<bool>("traced");
    QTest::newRow("errors only") << ErrorHandler::TraceErrors << false;
    QTest::newRow("notes") << ErrorHandler::TraceNotes << true;
}

void TestTree::takenPlaceIsTraced()
{
    QFETCH(int, mask);
    QFETCH(bool, traced);
    const int before = ErrorHandler::Instance().GetTraceMask();
    ErrorHandler::Instance().SetTraceMask(mask);
    add(QStringLiteral("/form"), QStringLiteral("v"));
    MessageGuard guard;
    if (traced)
        guard.expect(QStringLiteral("A value is refused: its place /form/v is taken"));
    QVERIFY(!add(QStringLiteral("form"), QStringLiteral("v")));
    QVERIFY(!tree()->AddValue(QStringLiteral("form"), nullptr));
    QCOMPARE(guard.complaints(), QString());
    ErrorHandler::Instance().SetTraceMask(before);
}

void TestTree::nodesGoWithTheirLastValue()
{
    ValueBool* const a = add(QStringLiteral("/n"), QStringLiteral("a"));
    ValueBool* const b = add(QStringLiteral("/n"), QStringLiteral("b"));
    delete a;
    QCOMPARE(tree()->GetValue(QStringLiteral("/n/b")), b);
    delete b;
    QVERIFY(!tree()->GetValue(QStringLiteral("/n/b")));
    QVERIFY(add(QStringLiteral("/n"), QStringLiteral("a")));
}

void TestTree::manyValuesInOneNodeStayCheap()
{
    // A walk over the values of a node for each would outlast any test run.
    constexpr int count = 300000;
    std::vector<std::unique_ptr<ValueBool>> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(std::make_unique<ValueBool>(QStringLiteral("value%1").arg(i)));
        QVERIFY(tree()->AddValue(QStringLiteral("/form/group"), values.back().get()));
    }
    for (int i = 0; i < count; ++i)
        QCOMPARE(tree()->GetValue(QStringLiteral("/form/group/value%1").arg(i)), values[i].get());
}

QTEST_APPLESS_MAIN(TestTree)
#include "tst_tree.moc"
