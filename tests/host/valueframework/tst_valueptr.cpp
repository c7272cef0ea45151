#include <leftovers.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <valueframework/valuecommentedrangemap.h>
#include <valueframework/valuenumeric.h>
#include <valueframework/valueptr.h>
#include <valueframework/valueselection.h>

#include <QTest>

#include <memory>

using namespace values;

class TestValuePtr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void watchesAndLeaves();
    void becomesNullWhenTheValueGoes();
    void otherCodesAreIgnored();
    void locate();
    void locateTakesOnlyItsType();
    void create_data();
    void create();
    void createPointsToWhatIsThere();
    void createStaysOutsideWhereAnotherTypeIs();
    void ownerIsAttached();
    void ownerIsDetachedFromTheOldValue();
    void ownerIsTold();
    void ownerAttachesToWhatIsCreated();
    void goingValueDetachesTheOwner();
    void anObserverIsNeededByNobody();
    void goingValueIsNotTaken();
    void createMakesEveryType();
    void createWithoutAName_data();
    void createWithoutAName();
    void twoPointersOfOneOwner_data();
    void twoPointersOfOneOwner();
};

namespace {

using MapPtr = ValuePtr<ValueCommentedRangeMap>;
using ObservingMapPtr = ValueObservingPtr<ValueCommentedRangeMap>;

const QString path = QStringLiteral("/form/Ranges");

} // namespace

void TestValuePtr::cleanup()
{
    Tree::Instance()->RemoveValue(path);
    QCOMPARE(leftovers(), QString());
}

void TestValuePtr::watchesAndLeaves()
{
    ValueCommentedRangeMap first, second;
    {
        MapPtr pointer(&first);
        QVERIFY(pointer);
        QCOMPARE(pointer.Get(), &first);
        QCOMPARE(&*pointer, &first);
        QVERIFY(pointer->data().empty());
        QVERIFY(first.HasObserver(&pointer));
        pointer.Set(&second);
        pointer.Set(&second);
        QVERIFY(!first.HasObserver(&pointer));
        QCOMPARE(second.GetObserverCount(), 1);
    }
    QCOMPARE(second.GetObserverCount(), 0);
}

void TestValuePtr::becomesNullWhenTheValueGoes()
{
    auto map = std::make_unique<ValueCommentedRangeMap>();
    const MapPtr pointer(map.get());
    map.reset();
    QVERIFY(!pointer);
    QVERIFY(!pointer.Get());
}

void TestValuePtr::otherCodesAreIgnored()
{
    ValueCommentedRangeMap map, other;
    MapPtr pointer(&map);
    map.NotifyObservers(ChangeCode::Content);
    map.SetState(5, nullptr);
    pointer.Update(&other, ChangeCode::State);
    QCOMPARE(pointer.Get(), &map);
    map.SetState(ValueState::GoingAway, nullptr);
    QVERIFY(!pointer);
    QCOMPARE(map.GetObserverCount(), 0);
}

void TestValuePtr::locate()
{
    ValueCommentedRangeMap map(QStringLiteral("Ranges"));
    ValueCommentedRangeMap other;
    MapPtr pointer(&other);
    QVERIFY(!pointer.Locate(path));
    QVERIFY(!pointer);
    QCOMPARE(other.GetObserverCount(), 0);
    Tree::Instance()->AddValue(QStringLiteral("/form"), &map);
    QVERIFY(pointer.Locate(path));
    QCOMPARE(pointer.Get(), &map);
}

void TestValuePtr::locateTakesOnlyItsType()
{
    ValueBool value(QStringLiteral("Ranges"));
    Tree::Instance()->AddValue(QStringLiteral("/form"), &value);
    MapPtr pointer;
    QVERIFY(!pointer.Locate(path));
    QCOMPARE(value.GetObserverCount(), 0);
}

void TestValuePtr::create_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("made");
    QTest::newRow("below a node") << path << path;
    QTest::newRow("slash behind") << "/form/Ranges/" << path;
    QTest::newRow("doubled slashes") << "//form//Ranges//" << path;
    QTest::newRow("without slash") << "Ranges"
                                   << "/Ranges";
}

void TestValuePtr::create()
{
    QFETCH(QString, given);
    QFETCH(QString, made);
    MapPtr pointer;
    QVERIFY(pointer.Create(given));
    QVERIFY(pointer);
    QCOMPARE(pointer->GetPathName(), made);
    QCOMPARE(Tree::Instance()->GetValue(made), pointer.Get());
    QVERIFY(Tree::Instance()->RemoveValue(made));
    QVERIFY(!pointer);
}

void TestValuePtr::createPointsToWhatIsThere()
{
    ValueCommentedRangeMap map(QStringLiteral("Ranges"));
    Tree::Instance()->AddValue(QStringLiteral("/form"), &map);
    MapPtr pointer;
    QVERIFY(!pointer.Create(path));
    QCOMPARE(pointer.Get(), &map);
}

void TestValuePtr::createStaysOutsideWhereAnotherTypeIs()
{
    ValueBool value(QStringLiteral("Ranges"));
    Tree::Instance()->AddValue(QStringLiteral("/form"), &value);
    MapPtr pointer;
    QVERIFY(pointer.Create(path));
    QVERIFY(pointer);
    QCOMPARE(pointer->GetName(), QStringLiteral("Ranges"));
    QCOMPARE(pointer->GetPathName(), QString());
    QCOMPARE(Tree::Instance()->GetValueCount(), 1);
    delete pointer.Get();
    QVERIFY(!pointer);
}

void TestValuePtr::ownerIsAttached()
{
    ValueCommentedRangeMap map;
    RecordingObserver owner;
    {
        const ObservingMapPtr pointer(&owner, &map);
        QVERIFY(map.HasObserver(&owner));
        QCOMPARE(map.GetObserverCount(), 2);
    }
    QCOMPARE(map.GetObserverCount(), 0);
}

void TestValuePtr::ownerIsDetachedFromTheOldValue()
{
    ValueCommentedRangeMap first, second;
    RecordingObserver owner;
    ObservingMapPtr pointer(&owner, &first);
    pointer.Set(&second);
    QCOMPARE(first.GetObserverCount(), 0);
    QVERIFY(second.HasObserver(&owner));
    pointer.Set(nullptr);
    QCOMPARE(second.GetObserverCount(), 0);
}

void TestValuePtr::ownerIsTold()
{
    ValueCommentedRangeMap map;
    RecordingObserver owner;
    const ObservingMapPtr pointer(&owner, &map);
    map.SetAt(0, CommentedRange(), nullptr);
    QCOMPARE(owner.takeCodes(), QList<TChangeCode>{ChangeCode::ItemChanged});
    map.SetAt(1, CommentedRange(), &owner);
    QVERIFY(owner.codes().isEmpty());
}

void TestValuePtr::ownerAttachesToWhatIsCreated()
{
    RecordingObserver owner;
    ObservingMapPtr pointer(&owner);
    QVERIFY(pointer.Create(path));
    QVERIFY(pointer->HasObserver(&owner));
    QVERIFY(pointer.Locate(path));
    QVERIFY(pointer->HasObserver(&owner));
    QCOMPARE(pointer->GetObserverCount(), 2);
}

void TestValuePtr::goingValueDetachesTheOwner()
{
    auto map = std::make_unique<ValueCommentedRangeMap>();
    RecordingObserver owner;
    const ObservingMapPtr pointer(&owner, map.get());
    map->SetState(ValueState::GoingAway, nullptr);
    QVERIFY(!pointer);
    QCOMPARE(map->GetObserverCount(), 0);
    QCOMPARE(owner.takeCodes(), QList<TChangeCode>{ChangeCode::State});
    map.reset();
    QVERIFY(owner.codes().isEmpty());
}

void TestValuePtr::anObserverIsNeededByNobody()
{
    ValueCommentedRangeMap map;
    const ObservingMapPtr pointer(nullptr, &map);
    QCOMPARE(map.GetObserverCount(), 1);
}

void TestValuePtr::goingValueIsNotTaken()
{
    auto* const map = new ValueCommentedRangeMap;
    RecordingObserver listener, owner;
    MapPtr pointer;
    ObservingMapPtr observing(&owner);
    listener.onUpdate = [&](Observable*, TChangeCode) {
        pointer.Set(map);
        observing.Set(map);
    };
    listener.watch(map);
    delete map;
    QVERIFY(!pointer);
    QVERIFY(!observing);
    QVERIFY(owner.codes().isEmpty());
}

template <typename T>
static void makeOne()
{
    ValuePtr<T> pointer;
    QVERIFY(pointer.Create(path));
    QCOMPARE(pointer->GetName(), QStringLiteral("Ranges"));
    QVERIFY(Tree::Instance()->RemoveValue(path));
}

void TestValuePtr::createMakesEveryType()
{
    makeOne<ValueBool>();
    makeOne<ValueString>();
    makeOne<NumericInt>();
    makeOne<NumericInt64>();
    makeOne<NumericDouble>();
    makeOne<ValueSelection>();
    makeOne<ValueCommentedRangeMap>();
}

void TestValuePtr::createWithoutAName_data()
{
    QTest::addColumn<QString>("given");
    QTest::newRow("empty") << QString();
    QTest::newRow("slashes") << "//";
}

void TestValuePtr::createWithoutAName()
{
    QFETCH(QString, given);
    MapPtr pointer;
    QVERIFY(!pointer.Create(given));
    QVERIFY(!pointer);
    QVERIFY(Tree::Instance()->IsEmpty());
}

void TestValuePtr::twoPointersOfOneOwner_data()
{
    QTest::addColumn<bool>("firstGoes");
    QTest::newRow("the first goes") << true;
    QTest::newRow("the second goes") << false;
}

void TestValuePtr::twoPointersOfOneOwner()
{
    QFETCH(bool, firstGoes);
    ValueCommentedRangeMap map;
    RecordingObserver owner;
    auto first = std::make_unique<ObservingMapPtr>(&owner, &map);
    auto second = std::make_unique<ObservingMapPtr>(&owner, &map);
    (firstGoes ? first : second).reset();
    map.SetAt(0, CommentedRange(), nullptr);
    QCOMPARE(owner.takeCodes(), QList<TChangeCode>{ChangeCode::ItemChanged});
    (firstGoes ? second : first).reset();
    map.SetAt(1, CommentedRange(), nullptr);
    QVERIFY(owner.codes().isEmpty());
    QCOMPARE(map.GetObserverCount(), 0);
}

QTEST_APPLESS_MAIN(TestValuePtr)
#include "tst_valueptr.moc"
