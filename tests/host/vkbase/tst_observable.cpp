#include <recordingobserver.h>

#include <vkbase/notifying.h>
#include <vkbase/observable.h>

#include <QTest>

#include <memory>
#include <vector>

class TestObservable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addRefusesNullAndDoubles();
    void deleteReportsWhetherThere();
    void tellsInOrderOfAdding();
    void makeFirstMovesToTheHead_data();
    void makeFirstMovesToTheHead();
    void originatorIsLeftOut();
    void removedMeanwhileIsSkipped();
    void removedAndAddedAgainMeanwhileIsSkipped();
    void addedMeanwhileWaits();
    void allRemovedMeanwhileEndsTheRound();
    void selfRemovalKeepsTheOthers();
    void observersMayDestroyOthers();
    void observersMayDestroyTheObservable();
    void nestedRoundsRunToTheirEndInside();
    void removalInANestedRoundReachesTheOuterOne();
    void manyObserversAreEachToldOnce();
    void manyMayLeaveMeanwhile();
    void claimsAreCounted();
    void claimsEndWithTheObserver();
    void newsAreUnderWayWhileSomebodyIsTold();
};

void TestObservable::addRefusesNullAndDoubles()
{
    Observable observable;
    RecordingObserver observer;
    QVERIFY(!observable.AddObserver(nullptr));
    QVERIFY(observable.AddObserver(&observer));
    QVERIFY(!observable.AddObserver(&observer));
    QCOMPARE(observable.GetObserverCount(), 1);
    QVERIFY(observable.NotifyObservers(3));
    QCOMPARE(observer.codes(), QList<TChangeCode>{3});
}

void TestObservable::deleteReportsWhetherThere()
{
    Observable observable;
    RecordingObserver observer;
    QVERIFY(!observable.DeleteObserver(&observer));
    QVERIFY(!observable.DeleteObserver(nullptr));
    observable.AddObserver(&observer);
    QVERIFY(observable.HasObserver(&observer));
    QVERIFY(observable.DeleteObserver(&observer));
    QVERIFY(!observable.HasObserver(&observer));
    observable.NotifyObservers(3);
    QVERIFY(observer.codes().isEmpty());
}

void TestObservable::tellsInOrderOfAdding()
{
    QStringList log;
    Observable observable;
    RecordingObserver a(QStringLiteral("a"), &log), b(QStringLiteral("b"), &log),
        c(QStringLiteral("c"), &log);
    for (RecordingObserver* observer : {&b, &c, &a})
        observer->watch(&observable);
    observable.NotifyObservers(3);
    QCOMPARE(log, (QStringList{QStringLiteral("b:3"), QStringLiteral("c:3"), QStringLiteral("a:3")}));
}

void TestObservable::makeFirstMovesToTheHead_data()
{
    QTest::addColumn<int>("moved");
    QTest::addColumn<QString>("order");
    QTest::newRow("already first") << 0 << "a:3 b:3 c:3";
    QTest::newRow("from the middle") << 1 << "b:3 a:3 c:3";
    QTest::newRow("from the end") << 2 << "c:3 a:3 b:3";
    QTest::newRow("not there yet") << 3 << "d:3 a:3 b:3 c:3";
}

void TestObservable::makeFirstMovesToTheHead()
{
    QFETCH(int, moved);
    QFETCH(QString, order);
    QStringList log;
    Observable observable;
    RecordingObserver observers[] = {
        RecordingObserver{QStringLiteral("a"), &log}, RecordingObserver{QStringLiteral("b"), &log},
        RecordingObserver{QStringLiteral("c"), &log}, RecordingObserver{QStringLiteral("d"), &log}};
    for (int i = 0; i < 3; ++i)
        observable.AddObserver(&observers[i]);
    QVERIFY(observable.MakeFirstObserver(&observers[moved]));
    QVERIFY(!observable.MakeFirstObserver(nullptr));
    observable.NotifyObservers(3);
    QCOMPARE(log.join(QLatin1Char(' ')), order);
}

void TestObservable::originatorIsLeftOut()
{
    Observable observable;
    RecordingObserver originator, other;
    originator.watch(&observable);
    other.watch(&observable);
    observable.NotifyObservers(3, &originator);
    QVERIFY(originator.codes().isEmpty());
    QCOMPARE(other.codes(), QList<TChangeCode>{3});
}

void TestObservable::removedMeanwhileIsSkipped()
{
    Observable observable;
    RecordingObserver remover, victim, last;
    for (RecordingObserver* observer : {&remover, &victim, &last})
        observer->watch(&observable);
    remover.onUpdate = [&](Observable*, TChangeCode) { victim.leave(); };
    observable.NotifyObservers(3);
    QVERIFY(victim.codes().isEmpty());
    QCOMPARE(last.codes(), QList<TChangeCode>{3});
}

void TestObservable::removedAndAddedAgainMeanwhileIsSkipped()
{
    Observable observable;
    RecordingObserver remover, victim;
    remover.watch(&observable);
    victim.watch(&observable);
    remover.onUpdate = [&](Observable*, TChangeCode) {
        victim.leave();
        victim.watch(&observable);
    };
    observable.NotifyObservers(3);
    QVERIFY(victim.codes().isEmpty());
}

void TestObservable::addedMeanwhileWaits()
{
    Observable observable;
    RecordingObserver adder, late;
    adder.watch(&observable);
    adder.onUpdate = [&](Observable*, TChangeCode) {
        if (!observable.HasObserver(&late))
            late.watch(&observable);
    };
    observable.NotifyObservers(3);
    QVERIFY(late.codes().isEmpty());
    observable.NotifyObservers(4);
    QCOMPARE(late.codes(), QList<TChangeCode>{4});
}

void TestObservable::allRemovedMeanwhileEndsTheRound()
{
    Observable observable;
    RecordingObserver remover, victim;
    remover.watch(&observable);
    victim.watch(&observable);
    remover.onUpdate = [&](Observable*, TChangeCode) { observable.DeleteObservers(); };
    QVERIFY(observable.NotifyObservers(3));
    QVERIFY(victim.codes().isEmpty());
    QCOMPARE(observable.GetObserverCount(), 0);
}

void TestObservable::selfRemovalKeepsTheOthers()
{
    Observable observable;
    RecordingObserver a, b, c;
    for (RecordingObserver* observer : {&a, &b, &c}) {
        observer->watch(&observable);
        observer->onUpdate = [observer](Observable*, TChangeCode) { observer->leave(); };
    }
    observable.NotifyObservers(3);
    for (RecordingObserver* observer : {&a, &b, &c})
        QCOMPARE(observer->codes(), QList<TChangeCode>{3});
    QCOMPARE(observable.GetObserverCount(), 0);
}

void TestObservable::observersMayDestroyOthers()
{
    Observable observable;
    RecordingObserver killer;
    killer.watch(&observable);
    auto victim = std::make_unique<RecordingObserver>();
    victim->watch(&observable);
    killer.onUpdate = [&](Observable*, TChangeCode) { victim.reset(); };
    QVERIFY(observable.NotifyObservers(3));
    QCOMPARE(observable.GetObserverCount(), 1);
}

void TestObservable::observersMayDestroyTheObservable()
{
    auto observable = std::make_unique<Observable>();
    RecordingObserver killer, later;
    killer.watch(observable.get());
    later.watch(observable.get());
    killer.onUpdate = [&](Observable*, TChangeCode) { observable.reset(); };
    QVERIFY(!observable->NotifyObservers(3));
    QVERIFY(later.codes().isEmpty());
}

void TestObservable::nestedRoundsRunToTheirEndInside()
{
    QStringList log;
    Observable observable;
    RecordingObserver a(QStringLiteral("a"), &log), b(QStringLiteral("b"), &log);
    a.watch(&observable);
    b.watch(&observable);
    a.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == 3)
            observable.NotifyObservers(6);
    };
    observable.NotifyObservers(3);
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a:3 a:6 b:6 b:3"));
}

void TestObservable::removalInANestedRoundReachesTheOuterOne()
{
    Observable observable;
    RecordingObserver a, b, c;
    for (RecordingObserver* observer : {&a, &b, &c})
        observer->watch(&observable);
    a.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == 3)
            observable.NotifyObservers(6);
    };
    b.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == 6)
            c.leave();
    };
    observable.NotifyObservers(3);
    QVERIFY(c.codes().isEmpty());
    QCOMPARE(b.codes(), (QList<TChangeCode>{6, 3}));
}

void TestObservable::manyObserversAreEachToldOnce()
{
    Observable observable;
    std::vector<RecordingObserver> observers(100);
    for (RecordingObserver& observer : observers)
        observer.watch(&observable);
    observable.NotifyObservers(3);
    for (const RecordingObserver& observer : observers)
        QCOMPARE(observer.codes(), QList<TChangeCode>{3});
}

void TestObservable::manyMayLeaveMeanwhile()
{
    Observable observable;
    std::vector<RecordingObserver> observers(100);
    for (RecordingObserver& observer : observers)
        observer.watch(&observable);
    observers[0].onUpdate = [&](Observable*, TChangeCode code) {
        if (code != 3)
            return;
        for (std::size_t i = 0; i < observers.size(); i += 2)
            observers[i].leave();
        observers[50].watch(&observable);
    };
    observable.NotifyObservers(3);
    observable.NotifyObservers(4);
    QCOMPARE(observable.GetObserverCount(), 51);
    QCOMPARE(observers[0].codes(), QList<TChangeCode>{3});
    QCOMPARE(observers[1].codes(), (QList<TChangeCode>{3, 4}));
    QVERIFY(observers[2].codes().isEmpty());
    QCOMPARE(observers[50].codes(), QList<TChangeCode>{4});
    QCOMPARE(observers[99].codes(), (QList<TChangeCode>{3, 4}));
}

void TestObservable::claimsAreCounted()
{
    Observable observable;
    RecordingObserver observer;
    QVERIFY(!observable.ClaimObserver(nullptr));
    observable.ReleaseObserver(nullptr);
    QVERIFY(observable.ClaimObserver(&observer));
    QVERIFY(observable.ClaimObserver(&observer));
    QVERIFY(observable.ClaimObserver(&observer));
    QCOMPARE(observable.GetObserverCount(), 1);
    observable.ReleaseObserver(&observer);
    observable.ReleaseObserver(&observer);
    observable.NotifyObservers(3);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{3});
    observable.ReleaseObserver(&observer);
    QVERIFY(!observable.HasObserver(&observer));
    observable.ReleaseObserver(&observer);
    QVERIFY(observable.ClaimObserver(&observer));
    observable.ReleaseObserver(&observer);
    QCOMPARE(observable.GetObserverCount(), 0);
}

void TestObservable::claimsEndWithTheObserver()
{
    Observable observable;
    RecordingObserver observer;
    for (const bool all : {false, true}) {
        observable.ClaimObserver(&observer);
        observable.ClaimObserver(&observer);
        if (all)
            observable.DeleteObservers();
        else
            observable.DeleteObserver(&observer);
        QVERIFY(observable.ClaimObserver(&observer));
        observable.ReleaseObserver(&observer);
        QVERIFY(!observable.HasObserver(&observer));
    }
}

void TestObservable::newsAreUnderWayWhileSomebodyIsTold()
{
    auto observable = std::make_unique<Observable>();
    Observable inner;
    RecordingObserver observer;
    RecordingObserver innerObserver;
    observer.watch(observable.get());
    innerObserver.watch(&inner);
    QList<bool> underWay;
    innerObserver.onUpdate = [&](Observable*, TChangeCode) { underWay << isNotifying(); };
    observer.onUpdate = [&](Observable*, TChangeCode) {
        inner.NotifyObservers(3);
        underWay << isNotifying();
        observable.reset();
        underWay << isNotifying();
    };
    QVERIFY(!isNotifying());
    observable->NotifyObservers(3);
    QCOMPARE(underWay, QList<bool>({true, true, true}));
    QVERIFY(!isNotifying());
}

QTEST_APPLESS_MAIN(TestObservable)
#include "tst_observable.moc"
