#include <recordingobserver.h>

#include <valueframework/valuenumeric.h>

#include <QTest>

#include <limits>
#include <memory>
#include <type_traits>

using namespace values;

static_assert(
    std::is_same<NumericDouble,
                 ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>>::value,
    "");
static_assert(std::is_same<decltype(std::declval<NumericInt>().GetMin()), int>::value, "typed reads");
static_assert(std::is_same<decltype(std::declval<IValueNumeric>().GetMin()), double>::value,
              "type-free reads");

class TestValueNumeric : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void limitsSpanTheType();
    void valuesAreClamped_data();
    void valuesAreClamped();
    void clampedEqualWritesAreSilent();
    void textIsClamped();
    void limitChanges_data();
    void limitChanges();
    void limitChangesLeaveTheOriginatorOut();
    void setMinMaxTellsOnce();
    void minimumAboveMaximumIsStored();
    void notANumberIsIgnored();
    void infiniteLimitsAreTheWidest();
    void typesConvertWithoutAmbiguity();
    void outOfRangeSaturates();
    void typeFreeInterface_data();
    void typeFreeInterface();
    void writesThroughTheBaseClampToo();
    void assignTakesLimitsToo();
    void observersMayDeleteTheValueOnALimitChange();
    void transactionOfScope();
};

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Codes = QList<TChangeCode>;

} // namespace

void TestValueNumeric::limitsSpanTheType()
{
    const NumericInt whole(QStringLiteral("v"));
    QCOMPARE(whole.GetMin(), std::numeric_limits<int>::min());
    QCOMPARE(whole.GetMax(), std::numeric_limits<int>::max());
    QCOMPARE(whole.GetStep(), 1);
    const NumericDouble floating(QStringLiteral("v"));
    QCOMPARE(floating.GetMin(), std::numeric_limits<double>::lowest());
    QCOMPARE(floating.GetMax(), std::numeric_limits<double>::max());
}

void TestValueNumeric::valuesAreClamped_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("stored");
    QTest::newRow("inside") << 5.5 << 5.5;
    QTest::newRow("at the minimum") << 1.0 << 1.0;
    QTest::newRow("below") << -3.0 << 1.0;
    QTest::newRow("above") << 11.0 << 10.0;
    QTest::newRow("infinity") << infinity << 10.0;
    QTest::newRow("minus infinity") << -infinity << 1.0;
}

void TestValueNumeric::valuesAreClamped()
{
    QFETCH(double, given);
    QFETCH(double, stored);
    NumericDouble value(QStringLiteral("v"));
    value.SetMinMax(1.0, 10.0, 1.0, nullptr);
    value.SetValue(2.0, nullptr);
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(value.SetValue(given, nullptr));
    QCOMPARE(value.GetValue(), stored);
    QCOMPARE(observer.codes(), Codes{ChangeCode::Content});
}

void TestValueNumeric::clampedEqualWritesAreSilent()
{
    NumericInt value(QStringLiteral("v"));
    value.SetMinMax(0, 10, 1, nullptr);
    value.SetValue(10, nullptr);
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(!value.SetValue(99, nullptr));
    QVERIFY(observer.codes().isEmpty());
}

void TestValueNumeric::textIsClamped()
{
    NumericInt value(QStringLiteral("v"));
    value.SetMinMax(1, 10, 1, nullptr);
    QVERIFY(value.SetStringValue(QStringLiteral("1e99"), nullptr));
    QCOMPARE(value.GetStringValue(), QStringLiteral("10"));
    QVERIFY(value.SetStringValue(QString(), nullptr)); // empty is 0, and that is below
    QCOMPARE(value.GetValue(), 1);
}

void TestValueNumeric::limitChanges_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("content");
    QTest::addColumn<Codes>("codes");
    QTest::newRow("nothing new") << 0.0 << 10.0 << 1.0 << 5.0 << Codes{};
    QTest::newRow("minimum") << 2.0 << 10.0 << 1.0 << 5.0 << Codes{6};
    QTest::newRow("minimum moves the content") << 7.0 << 10.0 << 1.0 << 7.0 << Codes{6, 3};
    QTest::newRow("maximum") << 0.0 << 20.0 << 1.0 << 5.0 << Codes{6};
    QTest::newRow("maximum moves the content") << 0.0 << 3.0 << 1.0 << 3.0 << Codes{6, 3};
    QTest::newRow("step") << 0.0 << 10.0 << 2.0 << 5.0 << Codes{6};
}

void TestValueNumeric::limitChanges()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, step);
    QFETCH(double, content);
    QFETCH(Codes, codes);
    NumericDouble value(QStringLiteral("v"));
    value.SetMinMax(0.0, 10.0, 1.0, nullptr);
    value.SetValue(5.0, nullptr);
    RecordingObserver observer;
    observer.watch(&value);
    value.SetMin(min, nullptr);
    value.SetMax(max, nullptr);
    value.SetStep(step, nullptr);
    QCOMPARE(value.GetMin(), min);
    QCOMPARE(value.GetMax(), max);
    QCOMPARE(value.GetStep(), step);
    QCOMPARE(value.GetValue(), content);
    QCOMPARE(observer.codes(), codes);
}

void TestValueNumeric::limitChangesLeaveTheOriginatorOut()
{
    NumericDouble value(QStringLiteral("v"));
    RecordingObserver originator, other;
    originator.watch(&value);
    other.watch(&value);
    value.SetMin(5.0, &originator);
    QCOMPARE(value.GetValue(), 5.0);
    QVERIFY(originator.codes().isEmpty());
    QCOMPARE(other.codes(), (Codes{6, 3}));
}

void TestValueNumeric::setMinMaxTellsOnce()
{
    NumericDouble value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(value.SetMinMax(5.0, 6.0, 0.5, nullptr));
    QCOMPARE(observer.takeCodes(), (Codes{6, 3}));
    QVERIFY(!value.SetMinMax(5.0, 6.0, 0.5, nullptr));
    QVERIFY(observer.codes().isEmpty());
}

void TestValueNumeric::minimumAboveMaximumIsStored()
{
    NumericInt value(QStringLiteral("v"));
    value.SetMinMax(10, 5, 1, nullptr);
    QCOMPARE(value.GetMin(), 10);
    QCOMPARE(value.GetMax(), 5);
    QCOMPARE(value.GetValue(), 10);
    value.SetValue(7, nullptr);
    QCOMPARE(value.GetValue(), 10);
}

void TestValueNumeric::notANumberIsIgnored()
{
    NumericDouble value(QStringLiteral("v"));
    value.SetMinMax(1.0, 9.0, 2.0, nullptr);
    value.SetValue(4.0, nullptr);
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(!value.SetValue(notANumber, nullptr));
    QVERIFY(!value.SetMin(notANumber, nullptr));
    QVERIFY(!value.SetMax(notANumber, nullptr));
    QVERIFY(!value.SetStep(notANumber, nullptr));
    NumericInt whole(QStringLiteral("w"));
    whole.SetValue(3, nullptr);
    QVERIFY(!whole.SetValue(notANumber, nullptr));
    QVERIFY(!whole.SetMin(notANumber, nullptr));
    QCOMPARE(value.GetValue(), 4.0);
    QCOMPARE(value.GetMin(), 1.0);
    QCOMPARE(whole.GetValue(), 3);
    QVERIFY(observer.codes().isEmpty());
}

void TestValueNumeric::infiniteLimitsAreTheWidest()
{
    NumericDouble value(QStringLiteral("v"));
    value.SetMinMax(0.0, 1.0, 1.0, nullptr);
    value.SetMin(-infinity, nullptr);
    value.SetMax(infinity, nullptr);
    QCOMPARE(value.GetMin(), std::numeric_limits<double>::lowest());
    QCOMPARE(value.GetMax(), std::numeric_limits<double>::max());
}

void TestValueNumeric::typesConvertWithoutAmbiguity()
{
    NumericInt whole(QStringLiteral("w"));
    whole.SetValue(7.9, nullptr);
    QCOMPARE(whole.GetValue(), 7);
    whole.SetValue(Q_INT64_C(8), nullptr);
    whole.SetMin(1.0, nullptr);
    whole.SetMax(20u, nullptr);
    whole.SetStep(2L, nullptr);
    whole.SetMinMax(1.5, 21, 3.0f, nullptr);
    QCOMPARE(whole.GetValue(), 8);
    QCOMPARE(whole.GetMin(), 1);
    QCOMPARE(whole.GetMax(), 21);
    QCOMPARE(whole.GetStep(), 3);
    NumericDouble floating(QStringLiteral("f"));
    floating.SetValue(3, nullptr);
    floating.SetMinMax(0, 10.5, 1, nullptr);
    QCOMPARE(floating.GetValue(), 3.0);
    QCOMPARE(floating.GetMax(), 10.5);
}

void TestValueNumeric::outOfRangeSaturates()
{
    NumericInt value(QStringLiteral("v"));
    value.SetMin(-1e308, nullptr);
    value.SetMax(1e308, nullptr);
    QCOMPARE(value.GetMin(), std::numeric_limits<int>::min());
    QCOMPARE(value.GetMax(), std::numeric_limits<int>::max());
    value.SetValue(Q_INT64_C(5000000000), nullptr);
    QCOMPARE(value.GetValue(), std::numeric_limits<int>::max());
}

namespace {

struct AnyNumeric
{
    std::shared_ptr<ValueBase> owner;
    IValueNumeric* numeric = nullptr;
};

template <typename T>
AnyNumeric makeNumeric()
{
    const auto value = std::make_shared<T>(QStringLiteral("v"));
    return {value, value.get()};
}

} // namespace

Q_DECLARE_METATYPE(AnyNumeric)

void TestValueNumeric::typeFreeInterface_data()
{
    QTest::addColumn<AnyNumeric>("any");
    QTest::addColumn<double>("fraction");
    QTest::newRow("int") << makeNumeric<NumericInt>() << 0.0;
    QTest::newRow("int64") << makeNumeric<NumericInt64>() << 0.0;
    QTest::newRow("double") << makeNumeric<NumericDouble>() << 0.5;
}

void TestValueNumeric::typeFreeInterface()
{
    QFETCH(AnyNumeric, any);
    QFETCH(double, fraction);
    IValueNumeric& numeric = *any.numeric;
    QCOMPARE(numeric.AsValueBase(), any.owner.get());
    QCOMPARE(static_cast<const IValueNumeric&>(numeric).AsValueBase(), any.owner.get());
    RecordingObserver observer;
    observer.watch(numeric.AsValueBase());
    QVERIFY(numeric.SetMin(1.5, nullptr));
    QVERIFY(numeric.SetMax(9.5, nullptr));
    QVERIFY(numeric.SetStep(2.5, nullptr));
    QCOMPARE(observer.takeCodes(), (Codes{6, 3, 6, 6}));
    QCOMPARE(numeric.GetMin(), 1.0 + fraction);
    QCOMPARE(numeric.GetMax(), 9.0 + fraction);
    QCOMPARE(numeric.GetStep(), 2.0 + fraction);
    QVERIFY(numeric.SetValue(4.5, nullptr));
    QCOMPARE(numeric.GetValue(), 4.0 + fraction);
    QVERIFY(!numeric.SetValue(notANumber, nullptr));
    QVERIFY(numeric.SetValue(1e300, nullptr));
    QCOMPARE(numeric.GetValue(), 9.0 + fraction);
    QCOMPARE(observer.codes(), (Codes{3, 3}));
}

void TestValueNumeric::writesThroughTheBaseClampToo()
{
    NumericInt value(QStringLiteral("v"));
    value.SetMax(10, nullptr);
    ValueInt& base = value;
    base.SetValue(99, nullptr);
    QCOMPARE(value.GetValue(), 10);
}

void TestValueNumeric::assignTakesLimitsToo()
{
    NumericInt from(QStringLiteral("from")), to(QStringLiteral("to"));
    from.SetMinMax(10, 20, 5, nullptr);
    from.SetValue(15, nullptr);
    QVERIFY(to.Assign(from));
    QCOMPARE(to.GetMin(), 10);
    QCOMPARE(to.GetMax(), 20);
    QCOMPARE(to.GetStep(), 5);
    QVERIFY(to.Compare(&from));
    NumericDouble other(QStringLiteral("other"));
    QVERIFY(other.Assign(from));
    QCOMPARE(other.GetValue(), 15.0);
    QVERIFY(other.GetMax() > 20.0);
}

void TestValueNumeric::observersMayDeleteTheValueOnALimitChange()
{
    auto value = std::make_unique<NumericInt>(QStringLiteral("v"));
    RecordingObserver killer;
    killer.watch(value.get());
    killer.onUpdate = [&](Observable*, TChangeCode code) {
        if (code == ChangeCode::Limits)
            value.reset();
    };
    QVERIFY(value->SetMin(5, nullptr));
    QCOMPARE(killer.codes(), (Codes{6, 2}));
}

void TestValueNumeric::transactionOfScope()
{
    NumericDouble value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    {
        const ValueTransaction transaction = value.CreateTransaction({6, 3}, nullptr);
        value.SetMinMax(1.0, 2.0, 1.0, nullptr);
        value.SetValue(2.0, nullptr);
        QVERIFY(observer.codes().isEmpty());
    }
    QCOMPARE(observer.codes(), (Codes{6, 3}));
}

QTEST_APPLESS_MAIN(TestValueNumeric)
#include "tst_valuenumeric.moc"
