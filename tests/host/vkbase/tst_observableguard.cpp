#include <vkbase/observable.h>

#include <QTest>

#include <memory>

class TestObservableGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsWhenTheObservableIsGone();
    void severalGuardsMayLeaveInAnyOrder();
    void resetChangesWhatIsGuarded();
};

void TestObservableGuard::knowsWhenTheObservableIsGone()
{
    QVERIFY(!ObservableGuard().Get());
    auto observable = std::make_unique<Observable>();
    const ObservableGuard guard(observable.get());
    QCOMPARE(guard.Get(), observable.get());
    observable.reset();
    QVERIFY(!guard.Get());
}

void TestObservableGuard::severalGuardsMayLeaveInAnyOrder()
{
    auto observable = std::make_unique<Observable>();
    auto first = std::make_unique<ObservableGuard>(observable.get());
    auto second = std::make_unique<ObservableGuard>(observable.get());
    auto third = std::make_unique<ObservableGuard>(observable.get());
    second.reset();
    third.reset();
    auto fourth = std::make_unique<ObservableGuard>(observable.get());
    first.reset();
    observable.reset();
    QVERIFY(!fourth->Get());
}

void TestObservableGuard::resetChangesWhatIsGuarded()
{
    auto one = std::make_unique<Observable>();
    Observable other;
    ObservableGuard guard(one.get());
    guard.Reset(&other);
    one.reset();
    QCOMPARE(guard.Get(), &other);
    guard.Reset(nullptr);
    QVERIFY(!guard.Get());
}

QTEST_APPLESS_MAIN(TestObservableGuard)
#include "tst_observableguard.moc"
