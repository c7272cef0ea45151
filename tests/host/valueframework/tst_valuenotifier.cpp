#include <valueframework/valuenotifier.h>
#include <valueframework/valuenumeric.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace values;

class TestValueNotifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesAreSignals();
    void originatorIsNotTold();
    void endOfTheValue();
    void noValue();
    void receiverMayEndIt_data();
    void receiverMayEndIt();
};

static std::unique_ptr<NumericInt> makeValue()
{
    return std::make_unique<NumericInt>(QStringLiteral("gain"), ValueState::Normal);
}

void TestValueNotifier::changesAreSignals()
{
    const auto value = makeValue();
    const ValueNotifier notifier(value.get());
    const QSignalSpy changed(&notifier, &ValueNotifier::changed);
    const QSignalSpy content(&notifier, &ValueNotifier::contentChanged);
    const QSignalSpy gone(&notifier, &ValueNotifier::gone);
    value->SetValue(3, nullptr);
    value->SetValue(3, nullptr);
    value->SetMax(100, nullptr);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0), QVariantList{ChangeCode::Content});
    QCOMPARE(changed.at(1), QVariantList{ChangeCode::Limits});
    QCOMPARE(content.count(), 1);
    QCOMPARE(content.first(), QVariantList{QStringLiteral("3")});
    QCOMPARE(gone.count(), 0);
    QCOMPARE(notifier.GetValue(), value.get());
}

void TestValueNotifier::originatorIsNotTold()
{
    const auto value = makeValue();
    const ValueNotifier notifier(value.get());
    const QSignalSpy changed(&notifier, &ValueNotifier::changed);
    value->SetValue(3, notifier.Originator());
    QCOMPARE(changed.count(), 0);
}

void TestValueNotifier::endOfTheValue()
{
    auto value = makeValue();
    const ValueNotifier notifier(value.get());
    const QSignalSpy changed(&notifier, &ValueNotifier::changed);
    const QSignalSpy gone(&notifier, &ValueNotifier::gone);
    value->SetState(5, nullptr);
    QCOMPARE(gone.count(), 0);
    value.reset();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(gone.count(), 1);
    QVERIFY(!notifier.GetValue());
}

void TestValueNotifier::noValue()
{
    const ValueNotifier notifier(nullptr);
    QVERIFY(!notifier.GetValue());
    QVERIFY(!notifier.Originator());
}

void TestValueNotifier::receiverMayEndIt_data()
{
    QTest::addColumn<bool>("notifierGoes");
    QTest::addColumn<bool>("valueGoes");
    QTest::newRow("the notifier") << true << false;
    QTest::newRow("the value") << false << true;
    QTest::newRow("both") << true << true;
}

void TestValueNotifier::receiverMayEndIt()
{
    QFETCH(bool, notifierGoes);
    QFETCH(bool, valueGoes);
    auto* const value = makeValue().release();
    const QPointer<ValueNotifier> notifier(new ValueNotifier(value));
    connect(notifier, &ValueNotifier::changed, this, [&](int code) {
        if (code != ChangeCode::Content)
            return;
        if (notifierGoes)
            delete notifier.data();
        if (valueGoes)
            delete value;
    });
    value->SetValue(3, nullptr);
    QCOMPARE(notifier.isNull(), notifierGoes);
    delete notifier.data();
    if (!valueGoes)
        delete value;
}

QTEST_APPLESS_MAIN(TestValueNotifier)
#include "tst_valuenotifier.moc"
