#include <vkbase/observerlist.h>

#include <QList>
#include <QRandomGenerator>
#include <QTest>

#include <vector>

namespace {

class Deaf : public IObserver
{
public:
    void Update(Observable* /*observable*/, TChangeCode /*code*/) override {}
};

QList<IObserver*> inOrder(const ObserverList& list)
{
    QList<IObserver*> order;
    for (IObserver* const observer : list.GetPlaces()) {
        if (observer)
            order.append(observer);
    }
    return order;
}

} // namespace

class TestObserverList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void eachIsThereOnce_data();
    void eachIsThereOnce();
    void nobodyIsNotThere_data() { eachIsThereOnce_data(); }
    void nobodyIsNotThere();
    void placesOfThoseWhoLeftAreClosed();
    void lastToLeaveLeavesNothing_data() { eachIsThereOnce_data(); }
    void lastToLeaveLeavesNothing();
    void doesAsAPlainListDoes_data();
    void doesAsAPlainListDoes();

private:
    Deaf m_observers[100];
};

void TestObserverList::isEmptyAtFirst()
{
    const ObserverList list;
    QCOMPARE(list.Count(), 0);
    QVERIFY(!list.Contains(&m_observers[0]));
    QVERIFY(!list.Contains(nullptr));
    QVERIFY(list.GetPlaces().isEmpty());
}

void TestObserverList::eachIsThereOnce_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 3, 16, 17, 18, 100})
        QTest::addRow("%d observers", count) << count;
}

void TestObserverList::eachIsThereOnce()
{
    QFETCH(int, count);
    ObserverList list;
    QList<IObserver*> order;
    for (int i = 0; i < count; ++i) {
        QVERIFY(!list.Contains(&m_observers[i]));
        QVERIFY(!list.Remove(&m_observers[i]));
        QVERIFY(list.Append(&m_observers[i]));
        order.append(&m_observers[i]);
    }
    for (int i = 0; i < count; ++i) {
        QVERIFY(list.Contains(&m_observers[i]));
        QVERIFY(!list.Append(&m_observers[i]));
    }
    QCOMPARE(list.Count(), count);
    QCOMPARE(inOrder(list), order);
}

void TestObserverList::nobodyIsNotThere()
{
    QFETCH(int, count);
    ObserverList list;
    for (int i = 0; i < count; ++i)
        list.Append(&m_observers[i]);
    list.Remove(&m_observers[0]);
    QVERIFY(!list.Contains(nullptr));
    QVERIFY(!list.Remove(nullptr));
    QCOMPARE(list.Count(), count - 1);
}

void TestObserverList::placesOfThoseWhoLeftAreClosed()
{
    ObserverList list;
    for (Deaf& observer : m_observers)
        list.Append(&observer);
    for (int turn = 0; turn < 1000; ++turn) {
        Deaf& observer = m_observers[turn % 100];
        QVERIFY(list.Remove(&observer));
        QVERIFY(list.Append(&observer));
        QVERIFY(list.GetPlaces().size() <= 2 * list.Count() + 1);
    }
    for (int i = 0; i < 99; ++i) {
        list.Remove(&m_observers[i]);
        QVERIFY(list.GetPlaces().size() <= 2 * list.Count());
    }
    QCOMPARE(inOrder(list), QList<IObserver*>{&m_observers[99]});
}

void TestObserverList::lastToLeaveLeavesNothing()
{
    QFETCH(int, count);
    ObserverList list;
    for (int i = 0; i < count; ++i)
        list.Append(&m_observers[i]);
    for (int i = 0; i < count; ++i)
        QVERIFY(list.Remove(&m_observers[i]));
    QCOMPARE(list.Count(), 0);
    QVERIFY(list.GetPlaces().isEmpty());
    QVERIFY(list.Append(&m_observers[0]));
    QCOMPARE(inOrder(list), QList<IObserver*>{&m_observers[0]});
}

void TestObserverList::doesAsAPlainListDoes_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<quint32>("seed");
    for (const int most : {3, 20, 40, 100}) {
        for (quint32 seed = 1; seed <= 5; ++seed)
            QTest::addRow("%d observers, seed %u", most, seed) << most << seed;
    }
}

void TestObserverList::doesAsAPlainListDoes()
{
    QFETCH(int, most);
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    ObserverList list;
    QList<IObserver*> plain;
    for (int step = 0; step < 3000; ++step) {
        IObserver* const observer = &m_observers[random.bounded(most)];
        const bool isThere = plain.contains(observer);
        const int act = random.bounded(100);
        // A time of growing and a time of shrinking.
        const int shareOfComing = step / 300 % 2 ? 25 : 65;
        if (act == 0) {
            list.Clear();
            plain.clear();
        } else if (act < 8) {
            list.MoveToFront(observer);
            plain.removeOne(observer);
            plain.prepend(observer);
        } else if (act < shareOfComing) {
            QCOMPARE(list.Append(observer), !isThere);
            if (!isThere)
                plain.append(observer);
        } else {
            QCOMPARE(list.Remove(observer), isThere);
            plain.removeOne(observer);
        }
        QCOMPARE(list.Contains(observer), plain.contains(observer));
        QCOMPARE(list.Count(), plain.count());
        QCOMPARE(inOrder(list), plain);
    }
}

QTEST_APPLESS_MAIN(TestObserverList)
#include "tst_observerlist.moc"
