#include <leftovers.h>

#include <valueframework/scopedobserver.h>
#include <valueframework/valuenumeric.h>

#include <QTest>

#include <memory>
#include <utility>

using namespace values;

class TestScopedObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tellsAsLongAsItLives();
    void observesNothing();
    void originatorIsNotTold();
    void movesWithItsPlace();
    void assignmentLeavesTheOldValue();
    void isToldThatTheValueGoes();
    void goingValueIsNotObserved();
    void callbackMayEndIt_data();
    void callbackMayEndIt();

private:
    ScopedObserver::Callback record();
    QList<TChangeCode> takeCodes() { return std::exchange(m_codes, {}); }

    QList<TChangeCode> m_codes;
};

using Codes = QList<TChangeCode>;

static std::unique_ptr<NumericInt> makeValue()
{
    return std::make_unique<NumericInt>(QStringLiteral("gain"), ValueState::Normal);
}

void TestScopedObserver::init()
{
    m_codes.clear();
}

ScopedObserver::Callback TestScopedObserver::record()
{
    return [this](ValueBase& value, TChangeCode code) {
        QCOMPARE(value.GetName(), QStringLiteral("gain"));
        m_codes << code;
    };
}

void TestScopedObserver::tellsAsLongAsItLives()
{
    const auto value = makeValue();
    {
        const ScopedObserver observer(value.get(), record());
        QCOMPARE(observer.Get(), value.get());
        value->SetValue(3, nullptr);
        value->SetMax(100, nullptr);
        QCOMPARE(takeCodes(), (Codes{ChangeCode::Content, ChangeCode::Limits}));
    }
    QCOMPARE(value->GetObserverCount(), 0);
    value->SetValue(4, nullptr);
    QCOMPARE(takeCodes(), Codes());
}

void TestScopedObserver::observesNothing()
{
    ScopedObserver none;
    QVERIFY(!none.Get());
    QVERIFY(!none.Originator());
    none.Reset();
    const ScopedObserver null(nullptr, record());
    QVERIFY(!null.Get());
    const auto value = makeValue();
    const ScopedObserver silent(value.get(), ScopedObserver::Callback());
    value->SetValue(3, nullptr);
}

void TestScopedObserver::originatorIsNotTold()
{
    const auto value = makeValue();
    const ScopedObserver observer(value.get(), record());
    value->SetValue(3, observer.Originator());
    QCOMPARE(takeCodes(), Codes());
}

void TestScopedObserver::movesWithItsPlace()
{
    const auto value = makeValue();
    ScopedObserver first(value.get(), record());
    const ScopedObserver second(std::move(first));
    QCOMPARE(second.Get(), value.get());
    QCOMPARE(value->GetObserverCount(), 1);
    value->SetValue(3, nullptr);
    QCOMPARE(takeCodes(), Codes{ChangeCode::Content});
}

void TestScopedObserver::assignmentLeavesTheOldValue()
{
    const auto value = makeValue();
    const auto other = makeValue();
    ScopedObserver observer(value.get(), record());
    observer = ScopedObserver(other.get(), record());
    QCOMPARE(value->GetObserverCount(), 0);
    QCOMPARE(observer.Get(), other.get());
    observer.Reset();
    QCOMPARE(other->GetObserverCount(), 0);
    QVERIFY(!observer.Get());
}

void TestScopedObserver::isToldThatTheValueGoes()
{
    auto value = makeValue();
    ScopedObserver observer(value.get(), record());
    value.reset();
    QCOMPARE(takeCodes(), Codes{ChangeCode::State});
    QVERIFY(!observer.Get());
    QVERIFY(!observer.Originator());
}

void TestScopedObserver::goingValueIsNotObserved()
{
    auto* const value = makeValue().release();
    ScopedObserver late;
    const ScopedObserver observer(value, [&](ValueBase& going, TChangeCode) {
        late = ScopedObserver(&going, record());
        QVERIFY(!late.Get());
    });
    delete value;
    QCOMPARE(takeCodes(), Codes());
}

void TestScopedObserver::callbackMayEndIt_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("destroys the observer") << 0;
    QTest::newRow("resets it") << 1;
    QTest::newRow("observes another value") << 2;
    QTest::newRow("deletes the value") << 3;
    QTest::newRow("deletes both") << 4;
}

void TestScopedObserver::callbackMayEndIt()
{
    QFETCH(int, way);
    auto* const value = makeValue().release();
    const auto other = makeValue();
    std::unique_ptr<ScopedObserver> observer;
    const QString kept(QStringLiteral("the function's own state lives to its end"));
    QString seen;
    observer = std::make_unique<ScopedObserver>(
        value, [&observer, &seen, value, other = other.get(), way, kept](ValueBase&, TChangeCode code) {
            if (code != ChangeCode::Content)
                return;
            if (way == 1)
                observer->Reset();
            else if (way == 2)
                *observer = ScopedObserver(other, ScopedObserver::Callback());
            if (way == 3 || way == 4)
                delete value;
            if (way == 0 || way == 4)
                observer.reset();
            seen = kept;
        });
    value->SetValue(3, nullptr);
    QVERIFY(!seen.isEmpty());
    if (way < 3)
        delete value;
    QCOMPARE(other->GetObserverCount(), way == 2 ? 1 : 0);
    observer.reset();
    QCOMPARE(leftovers(), QString());
}

QTEST_APPLESS_MAIN(TestScopedObserver)
#include "tst_scopedobserver.moc"
