#include <recordingobserver.h>

#include <valueframework/value.h>
#include <valueframework/valuetransaction.h>

#include <QTest>

#include <memory>
#include <type_traits>
#include <utility>

using namespace values;

static_assert(!std::is_copy_constructible<ValueTransaction>::value, "a transaction ends once");

class TestValueTransaction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sendsItsCodesAtTheEnd();
    void leavesItsOriginatorOut();
    void endsOnce();
    void innerOnesAreSilent();
    void mayEndOutOfOrder();
    void mayEndOutOfOrderAroundADyingValue();
    void movingHandsItOn();
    void moveAssignmentEndsTheOldOne();
    void valueMayDieFirst();
    void valueMayDieOnTheFirstCode();
    void nullIsAllowed();
};

void TestValueTransaction::sendsItsCodesAtTheEnd()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    {
        const ValueTransaction transaction(&value, {7, 3}, nullptr);
        QVERIFY(value.IsTransactionActive());
        value.SetValue(1, nullptr);
        QVERIFY(observer.codes().isEmpty());
    }
    QVERIFY(!value.IsTransactionActive());
    QCOMPARE(observer.codes(), (QList<TChangeCode>{7, 3}));
}

void TestValueTransaction::leavesItsOriginatorOut()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver originator, other;
    originator.watch(&value);
    other.watch(&value);
    ValueTransaction(&value, {3}, &originator).End();
    QVERIFY(originator.codes().isEmpty());
    QCOMPARE(other.codes(), QList<TChangeCode>{3});
}

void TestValueTransaction::endsOnce()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    {
        ValueTransaction transaction(&value, {3}, nullptr);
        transaction.End();
        transaction.End();
    }
    QCOMPARE(observer.codes(), QList<TChangeCode>{3});
}

void TestValueTransaction::innerOnesAreSilent()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    {
        const ValueTransaction outer(&value, {7}, nullptr);
        ValueTransaction(&value, {3}, nullptr).End();
        QVERIFY(observer.codes().isEmpty());
    }
    QCOMPARE(observer.codes(), QList<TChangeCode>{7});
}

void TestValueTransaction::mayEndOutOfOrder()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    const auto made = [&](TChangeCode code) {
        return std::make_unique<ValueTransaction>(&value, std::initializer_list<TChangeCode>{code}, nullptr);
    };
    auto first = made(3);
    auto second = made(5);
    auto third = made(7);
    second.reset();
    first.reset();
    QVERIFY(value.IsTransactionActive());
    value.SetValue(1, nullptr);
    QVERIFY(observer.codes().isEmpty());
    third.reset();
    QVERIFY(!value.IsTransactionActive());
    QCOMPARE(observer.codes(), QList<TChangeCode>{7});
}

// Each has to learn of the end of the value, whichever of its neighbours are gone.
void TestValueTransaction::mayEndOutOfOrderAroundADyingValue()
{
    for (int gone = 0; gone < 4; ++gone) {
        auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
        std::unique_ptr<ValueTransaction> transactions[4];
        for (auto& transaction : transactions)
            transaction = std::make_unique<ValueTransaction>(value.get(),
                                                             std::initializer_list<TChangeCode>{3}, nullptr);
        transactions[gone].reset();
        transactions[(gone + 2) % 4].reset();
        value.reset();
        for (auto& transaction : transactions)
            transaction.reset();
    }
}

void TestValueTransaction::movingHandsItOn()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    auto first = std::make_unique<ValueTransaction>(&value, std::initializer_list<TChangeCode>{3}, nullptr);
    ValueTransaction second(std::move(*first));
    first.reset();
    QVERIFY(value.IsTransactionActive());
    QVERIFY(observer.codes().isEmpty());
    second.End();
    QCOMPARE(observer.codes(), QList<TChangeCode>{3});
}

void TestValueTransaction::moveAssignmentEndsTheOldOne()
{
    ValueInt a(QStringLiteral("a")), b(QStringLiteral("b"));
    RecordingObserver atA, atB;
    atA.watch(&a);
    atB.watch(&b);
    ValueTransaction transaction(&a, {3}, nullptr);
    transaction = ValueTransaction(&b, {7}, nullptr);
    QCOMPARE(atA.codes(), QList<TChangeCode>{3});
    QVERIFY(b.IsTransactionActive());
    transaction.End();
    QCOMPARE(atB.codes(), QList<TChangeCode>{7});
}

void TestValueTransaction::valueMayDieFirst()
{
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    ValueTransaction transaction(value.get(), {3}, nullptr);
    ValueTransaction moved(std::move(transaction));
    value.reset();
    moved.End();
}

void TestValueTransaction::valueMayDieOnTheFirstCode()
{
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    RecordingObserver killer;
    killer.watch(value.get());
    killer.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == 7)
            value.reset();
    };
    ValueTransaction(value.get(), {7, 3}, nullptr).End();
    QCOMPARE(killer.codes(), (QList<TChangeCode>{7, ChangeCode::State}));
}

void TestValueTransaction::nullIsAllowed()
{
    ValueTransaction transaction(nullptr, {3}, nullptr);
    transaction.End();
}

QTEST_APPLESS_MAIN(TestValueTransaction)
#include "tst_valuetransaction.moc"
