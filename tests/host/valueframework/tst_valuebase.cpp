#include <recordingobserver.h>

#include <valueframework/value.h>

#include <QTest>

#include <memory>

using namespace values;

class TestValueBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateChangesAreTold();
    void nameChangesAreTold();
    void translationNamespaceChangesAreTold();
    void transactionHoldsWritesBack();
    void transactionsNest();
    void transactionEndAlwaysSendsItsCode();
    void transactionEndLeavesItsOriginatorOut();
    void endWithoutStartDoesNothing();
    void notifyIsNeverHeldBack();
    void deletionTellsEverybody_data();
    void deletionTellsEverybody();
    void observersThatStayAreNoTrouble();
    void nobodyJoinsAGoingValue();
    void observersMayDeleteTheValue();
    void deleteObserverIsTold();
    void triggerIsNeededWhileSomebodyListens();
    void timerCallbackDoesNothing();
    void interfacesReachTheValue();
};

void TestValueBase::stateChangesAreTold()
{
    ValueBool value(QStringLiteral("v"), 5);
    RecordingObserver originator, other;
    originator.watch(&value);
    other.watch(&value);
    QCOMPARE(value.GetState(), 5);
    value.SetState(5, nullptr);
    QVERIFY(other.codes().isEmpty());
    value.SetState(ValueState::Normal, &originator);
    QCOMPARE(other.codes(), QList<TChangeCode>{ChangeCode::State});
    QVERIFY(originator.codes().isEmpty());
}

void TestValueBase::nameChangesAreTold()
{
    ValueBool value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(value.SetName(QStringLiteral("v"), nullptr));
    QVERIFY(observer.codes().isEmpty());
    QVERIFY(value.SetName(QStringLiteral("w"), nullptr));
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Name});
    QCOMPARE(value.GetName(), QStringLiteral("w"));
    QCOMPARE(value.GetPathName(), QString());
}

void TestValueBase::translationNamespaceChangesAreTold()
{
    ValueBool value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.SetTranslationNamespace(nullptr, nullptr);
    QVERIFY(observer.codes().isEmpty());
    value.SetTranslationNamespace("Form", nullptr);
    value.SetTranslationNamespace("Form", nullptr);
    value.SetTranslationNamespace(QByteArray("Form"), nullptr);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Name});
    QCOMPARE(value.GetTranslationNamespace(), QByteArray("Form"));
    value.SetTranslationNamespace(nullptr, nullptr);
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Name});
    QVERIFY(value.GetTranslationNamespace().isEmpty());
}

void TestValueBase::transactionHoldsWritesBack()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.StartTransaction(nullptr);
    QVERIFY(value.IsTransactionActive());
    value.SetValue(1, nullptr);
    value.SetState(3, nullptr);
    value.SetName(QStringLiteral("w"), nullptr);
    value.HasChanged(ChangeCode::Limits, nullptr);
    QVERIFY(observer.codes().isEmpty());
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QVERIFY(!value.IsTransactionActive());
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::BulkEnd});
}

void TestValueBase::transactionsNest()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.StartTransaction(nullptr);
    value.StartTransaction(nullptr);
    value.SetValue(1, nullptr);
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QVERIFY(value.IsTransactionActive());
    value.SetValue(2, nullptr);
    QVERIFY(observer.codes().isEmpty());
    value.EndTransaction(ChangeCode::Content, nullptr);
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestValueBase::transactionEndAlwaysSendsItsCode()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.StartTransaction(nullptr);
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::BulkEnd});
}

void TestValueBase::transactionEndLeavesItsOriginatorOut()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver originator;
    originator.watch(&value);
    value.StartTransaction(&originator);
    value.EndTransaction(ChangeCode::BulkEnd, &originator);
    QVERIFY(originator.codes().isEmpty());
}

void TestValueBase::endWithoutStartDoesNothing()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QVERIFY(observer.codes().isEmpty());
    value.SetValue(1, nullptr);
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestValueBase::notifyIsNeverHeldBack()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    value.StartTransaction(nullptr);
    value.NotifyObservers(ChangeCode::Content, nullptr);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::BulkEnd});
}

void TestValueBase::deletionTellsEverybody_data()
{
    QTest::addColumn<bool>("inTransaction");
    QTest::addColumn<int>("state");
    QTest::newRow("plainly") << false << 0;
    QTest::newRow("in a transaction") << true << 0;
    QTest::newRow("state set before") << false << 1;
}

void TestValueBase::deletionTellsEverybody()
{
    QFETCH(bool, inTransaction);
    QFETCH(int, state);
    QStringList log;
    RecordingObserver a(QStringLiteral("a"), &log), b(QStringLiteral("b"), &log);
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"), state);
    for (RecordingObserver* observer : {&a, &b}) {
        observer->watch(value.get());
        observer->onUpdate = [&log, observer](Observable* observable, TChangeCode) {
            log << QString::number(static_cast<ValueBase*>(observable)->GetState());
            observer->leave();
        };
    }
    if (inTransaction)
        value->StartTransaction(&a);
    value.reset();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a:2 1 b:2 1"));
}

void TestValueBase::observersThatStayAreNoTrouble()
{
    RecordingObserver observer;
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    observer.watch(value.get());
    value.reset();
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::State});
}

void TestValueBase::nobodyJoinsAGoingValue()
{
    RecordingObserver observer, late;
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    observer.watch(value.get());
    bool joined = true;
    observer.onUpdate = [&](Observable* observable, TChangeCode) {
        joined = observable->AddObserver(&late) || observable->MakeFirstObserver(&late);
    };
    value.reset();
    QVERIFY(!joined);
    QVERIFY(late.codes().isEmpty());
}

void TestValueBase::observersMayDeleteTheValue()
{
    RecordingObserver killer, later;
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    killer.watch(value.get());
    later.watch(value.get());
    killer.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == ChangeCode::Content)
            value.reset();
    };
    QVERIFY(value->SetValue(1, nullptr));
    QCOMPARE(later.codes(), QList<TChangeCode>{ChangeCode::State});
}

void TestValueBase::deleteObserverIsTold()
{
    struct Item : ITreeItem
    {
        void ValueDeleted(ValueBase* value) override { deleted = value; }
        ValueBase* deleted = nullptr;
    } item;
    auto value = std::make_unique<ValueInt>(QStringLiteral("v"));
    ValueBase* const address = value.get();
    QVERIFY(!value->GetDeleteObserver());
    value->SetDeleteObserver(&item);
    QCOMPARE(value->GetDeleteObserver(), &item);
    value.reset();
    QCOMPARE(item.deleted, address);
}

void TestValueBase::triggerIsNeededWhileSomebodyListens()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    QVERIFY(!value.IsTriggerNeeded());
    observer.watch(&value);
    QVERIFY(value.IsTriggerNeeded());
    value.StartTransaction(nullptr);
    QVERIFY(!value.IsTriggerNeeded());
    value.EndTransaction(ChangeCode::BulkEnd, nullptr);
}

void TestValueBase::timerCallbackDoesNothing()
{
    ValueInt value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    static_cast<IHasTimerCallback&>(value).TimerCallback(1);
    QVERIFY(observer.codes().isEmpty());
}

void TestValueBase::interfacesReachTheValue()
{
    ValueInt value(QStringLiteral("v"));
    IValue& plain = value;
    QVERIFY(plain.SetStringValue(QStringLiteral("7"), nullptr));
    QCOMPARE(plain.GetStringValue(), QStringLiteral("7"));
    QCOMPARE(plain.GetName(), QStringLiteral("v"));
    QCOMPARE(plain.GetType(), TypeInt);
    ISupportTransaction& transactional = value;
    transactional.StartTransaction(nullptr);
    QVERIFY(transactional.IsTransactionActive());
    transactional.EndTransaction(ChangeCode::BulkEnd, nullptr);
    QVERIFY(!value.IsTransactionActive());
}

QTEST_APPLESS_MAIN(TestValueBase)
#include "tst_valuebase.moc"
