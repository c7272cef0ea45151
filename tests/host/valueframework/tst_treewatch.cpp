#include <leftovers.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <valueframework/treewatch.h>
#include <valueframework/value.h>

#include <QTest>

#include <memory>
#include <utility>

using namespace values;

class TestTreeWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void comesAndGoes();
    void watchesANodeAndBelow_data();
    void watchesANodeAndBelow();
    void renaming();
    void refusedAndNamelessValuesAreNotTold();
    void leftIsToldBeforeTheObservers();
    void endsWithTheWatch();
    void callbackMayEndIt();
    void callbackMayUseTheTree();

private:
    TreeWatch::Callback note(char sign);
    static ValueBool* add(const QString& node, const QString& name);
    QStringList takeNotes() { return std::exchange(m_notes, {}); }

    QStringList m_notes;
};

void TestTreeWatch::init()
{
    m_notes.clear();
}

void TestTreeWatch::cleanup()
{
    Tree::Instance()->RemoveNode(QString());
    QCOMPARE(leftovers(), QString());
}

TreeWatch::Callback TestTreeWatch::note(char sign)
{
    return [this, sign](ValueBase* value, const QString& path) {
        QVERIFY(value);
        m_notes << QLatin1Char(sign) + path;
    };
}

ValueBool* TestTreeWatch::add(const QString& node, const QString& name)
{
    auto value = std::make_unique<ValueBool>(name);
    return Tree::Instance()->AddValue(node, value.get()) ? value.release() : nullptr;
}

void TestTreeWatch::comesAndGoes()
{
    const TreeWatch watch(QString(), note('+'), note('-'));
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    QCOMPARE(takeNotes(), QStringList{QStringLiteral("+/a/v")});
    delete value;
    QCOMPARE(takeNotes(), QStringList{QStringLiteral("-/a/v")});
    const TreeWatch silent(QString(), nullptr, nullptr);
    delete add(QStringLiteral("/a"), QStringLiteral("v"));
    QCOMPARE(takeNotes().size(), 2);
}

void TestTreeWatch::watchesANodeAndBelow_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("told");
    QTest::newRow("in it") << "/form"
                           << "v" << true;
    QTest::newRow("below it") << "/form/row"
                              << "v" << true;
    QTest::newRow("by the name") << ""
                                 << "form/v" << true;
    QTest::newRow("beside it") << "/formula"
                               << "v" << false;
    QTest::newRow("a value of its name") << ""
                                         << "form" << false;
    QTest::newRow("above it") << ""
                              << "v" << false;
}

void TestTreeWatch::watchesANodeAndBelow()
{
    QFETCH(QString, node);
    QFETCH(QString, name);
    QFETCH(bool, told);
    const TreeWatch watch(QStringLiteral("form/"), note('+'), note('-'));
    delete add(node, name);
    QCOMPARE(takeNotes().size(), told ? 2 : 0);
}

void TestTreeWatch::renaming()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    const TreeWatch watch(QString(), note('+'), note('-'));
    value->SetName(QStringLiteral("w"), nullptr);
    QCOMPARE(takeNotes(), (QStringList{QStringLiteral("-/a/v"), QStringLiteral("+/a/w")}));
    value->SetName(QStringLiteral("/w"), nullptr); // the same place
    QCOMPARE(takeNotes(), QStringList());
    value->SetName(QString(), nullptr);
    QCOMPARE(takeNotes(), QStringList{QStringLiteral("-/a/w")});
    value->SetName(QStringLiteral("v"), nullptr);
    QCOMPARE(takeNotes(), QStringList{QStringLiteral("+/a/v")});
}

void TestTreeWatch::refusedAndNamelessValuesAreNotTold()
{
    add(QStringLiteral("/a"), QStringLiteral("v"));
    const TreeWatch watch(QString(), note('+'), note('-'));
    QVERIFY(!add(QStringLiteral("/a"), QStringLiteral("v")));
    delete add(QStringLiteral("/a"), QString());
    QCOMPARE(takeNotes(), QStringList());
}

void TestTreeWatch::leftIsToldBeforeTheObservers()
{
    ValueBool* const value = add(QStringLiteral("/a"), QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(value);
    observer.onUpdate = [this](Observable*, TChangeCode) { m_notes << QStringLiteral("observer"); };
    const TreeWatch watch(QString(), nullptr, [this](ValueBase* going, const QString& path) {
        QCOMPARE(going->GetState(), ValueState::GoingAway);
        QCOMPARE(going->GetName(), QStringLiteral("v"));
        QVERIFY(!Tree::Instance()->GetValue(path));
        m_notes << QStringLiteral("watch");
    });
    delete value;
    QCOMPARE(takeNotes(), (QStringList{QStringLiteral("watch"), QStringLiteral("observer")}));
}

void TestTreeWatch::endsWithTheWatch()
{
    {
        const TreeWatch watch(QString(), note('+'), note('-'));
    }
    add(QStringLiteral("/a"), QStringLiteral("v"));
    QCOMPARE(takeNotes(), QStringList());
}

void TestTreeWatch::callbackMayEndIt()
{
    std::unique_ptr<TreeWatch> watch;
    const QString kept(QStringLiteral("told"));
    watch = std::make_unique<TreeWatch>(
        QString(),
        [this, &watch, kept](ValueBase*, const QString&) {
            watch.reset();
            m_notes << kept;
        },
        nullptr);
    const TreeWatch other(QString(), note('+'), nullptr);
    add(QStringLiteral("/a"), QStringLiteral("v"));
    QCOMPARE(takeNotes(), (QStringList{QStringLiteral("told"), QStringLiteral("+/a/v")}));
}

void TestTreeWatch::callbackMayUseTheTree()
{
    const TreeWatch adding(
        QStringLiteral("/a"),
        [](ValueBase* value, const QString&) { add(QStringLiteral("/b"), value->GetName()); },
        [](ValueBase* value, const QString&) {
            Tree::Instance()->RemoveValue(QStringLiteral("/b/") + value->GetName());
        });
    const TreeWatch watch(QString(), note('+'), note('-'));
    delete add(QStringLiteral("/a"), QStringLiteral("v"));
    QCOMPARE(takeNotes(), (QStringList{QStringLiteral("+/b/v"), QStringLiteral("+/a/v"),
                                       QStringLiteral("-/b/v"), QStringLiteral("-/a/v")}));
}

QTEST_APPLESS_MAIN(TestTreeWatch)
#include "tst_treewatch.moc"
