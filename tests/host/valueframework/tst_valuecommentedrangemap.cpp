#include <recordingobserver.h>

#include <valueframework/value.h>
#include <valueframework/valuecommentedrangemap.h>

#include <QTest>

#include <limits>

using namespace values;

class TestValueCommentedRangeMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangesStartAtZero();
    void rangesSortByStartThenStop();
    void rangesIgnoreWhatIsNoNumber();
    void typeAndNames();
    void setAtStoresAndTells();
    void dataIsOrderedByKey();
    void eraseAndClear();
    void setReplaces();
    void setAppends();
    void setKeepsIds();
    void newKeysAreFree();
    void equalWritesAreSilent();
    void bulkRewrite();
    void textRoundTrip();
    void unreadableText_data();
    void unreadableText();
    void assignAndCompare();
};

namespace {

using Codes = QList<TChangeCode>;
using Keys = QList<unsigned int>;

CommentedRange range(double start, double stop, unsigned int id = 0)
{
    CommentedRange result;
    result.SetID(id);
    result.SetRangeStart(start);
    result.SetRangeStop(stop);
    return result;
}

Keys keys(const ValueCommentedRangeMap& map)
{
    Keys result;
    for (const auto& entry : map.data())
        result << entry.first;
    return result;
}

} // namespace

void TestValueCommentedRangeMap::rangesStartAtZero()
{
    const CommentedRange fresh;
    QCOMPARE(fresh.GetRangeStart(), 0.0);
    QCOMPARE(fresh.GetRangeStop(), 0.0);
    QCOMPARE(fresh.GetFrequency(), 0.0);
    QCOMPARE(fresh.GetBandwidth(), 0.0);
    QCOMPARE(fresh.GetID(), 0u);
}

void TestValueCommentedRangeMap::rangesSortByStartThenStop()
{
    QVERIFY(range(1, 9) < range(2, 3));
    QVERIFY(range(1, 2) < range(1, 3));
    QVERIFY(!(range(1, 2, 7) < range(1, 2, 8)));
    QVERIFY(range(1, 2, 7) != range(1, 2, 8));
    std::list<CommentedRange> ranges{range(3, 4), range(1, 5), range(1, 2)};
    ranges.sort();
    QVERIFY(ranges == (std::list<CommentedRange>{range(1, 2), range(1, 5), range(3, 4)}));
}

void TestValueCommentedRangeMap::rangesIgnoreWhatIsNoNumber()
{
    CommentedRange one = range(1, 2);
    one.SetRangeStart(qQNaN());
    one.SetRangeStop(qInf());
    one.SetFrequency(4.0);
    one.SetFrequency(qQNaN());
    one.SetBandwidth(5.0);
    QCOMPARE(one.GetRangeStart(), 1.0);
    QCOMPARE(one.GetRangeStop(), std::numeric_limits<double>::max());
    QCOMPARE(one.GetFrequency(), 4.0);
    QCOMPARE(one.GetBandwidth(), 5.0);
}

void TestValueCommentedRangeMap::typeAndNames()
{
    ValueCommentedRangeMap unnamed;
    QCOMPARE(unnamed.GetName(), QString());
    const ValueCommentedRangeMap named(QStringLiteral("map"), ValueState::Normal);
    QCOMPARE(named.GetName(), QStringLiteral("map"));
    QCOMPARE(static_cast<int>(named.GetType()), 10);
    QCOMPARE(named.GetTypeName(), QStringLiteral("rangemap"));
    QVERIFY(named.data().empty());
}

void TestValueCommentedRangeMap::setAtStoresAndTells()
{
    ValueCommentedRangeMap map;
    RecordingObserver observer;
    observer.watch(&map);
    QCOMPARE(map.SetAt(5, range(1, 2), nullptr), 5u);
    QCOMPARE(observer.takeCodes(), Codes{ChangeCode::ItemChanged});
    QCOMPARE(map.data().at(5).GetRangeStop(), 2.0);
    QCOMPARE(map.data().at(5).GetID(), 5u);
    map.SetAt(5, range(3, 4), nullptr);
    QCOMPARE(map.GetItemCount(), 1);
    QCOMPARE(map.data().at(5).GetRangeStart(), 3.0);
    observer.takeCodes();
    map.SetAt(6, range(3, 4), &observer);
    QVERIFY(observer.codes().isEmpty());
}

void TestValueCommentedRangeMap::dataIsOrderedByKey()
{
    ValueCommentedRangeMap map;
    for (const unsigned int key : {5u, 2u, 3u, 0u})
        map.SetAt(key, range(key, key), nullptr);
    QCOMPARE(keys(map), (Keys{0, 2, 3, 5}));
}

void TestValueCommentedRangeMap::eraseAndClear()
{
    ValueCommentedRangeMap map;
    map.SetAt(1, range(1, 2), nullptr);
    map.SetAt(2, range(1, 2), nullptr);
    RecordingObserver observer;
    observer.watch(&map);
    QVERIFY(!map.EraseAt(9, nullptr));
    QVERIFY(observer.codes().isEmpty());
    QVERIFY(map.EraseAt(1, nullptr));
    QCOMPARE(keys(map), Keys{2});
    map.Clear(nullptr);
    QVERIFY(map.data().empty());
    map.Clear(nullptr);
    QCOMPARE(observer.codes(), (Codes{ChangeCode::ItemsRemoved, ChangeCode::ItemsRemoved}));
}

void TestValueCommentedRangeMap::setReplaces()
{
    ValueCommentedRangeMap map;
    map.SetAt(9, range(1, 2), nullptr);
    RecordingObserver observer;
    observer.watch(&map);
    map.Set({range(5, 6, 70), range(3, 4, 80)}, true, false, nullptr);
    QCOMPARE(observer.takeCodes(), Codes{ChangeCode::Content});
    QCOMPARE(keys(map), (Keys{0, 1}));
    QCOMPARE(map.data().at(0).GetRangeStart(), 5.0);
    QCOMPARE(map.data().at(1).GetID(), 1u);
    map.Set({}, true, false, &observer);
    QVERIFY(map.data().empty());
    QVERIFY(observer.codes().isEmpty());
}

void TestValueCommentedRangeMap::setAppends()
{
    ValueCommentedRangeMap map;
    map.SetAt(4, range(1, 2), nullptr);
    map.Set({range(5, 6), range(7, 8)}, false, false, nullptr);
    QCOMPARE(keys(map), (Keys{4, 5, 6}));
}

void TestValueCommentedRangeMap::setKeepsIds()
{
    ValueCommentedRangeMap map;
    map.SetAt(4, range(1, 2), nullptr);
    map.Set({range(5, 6, 4), range(7, 8, 2)}, false, true, nullptr);
    QCOMPARE(keys(map), (Keys{2, 4}));
    QCOMPARE(map.data().at(4).GetRangeStart(), 5.0);
}

void TestValueCommentedRangeMap::newKeysAreFree()
{
    ValueCommentedRangeMap map;
    QCOMPARE(map.CreateNewUniqueKey(), 0u);
    map.SetAt(0, range(1, 2), nullptr);
    map.SetAt(7, range(1, 2), nullptr);
    QCOMPARE(map.CreateNewUniqueKey(), 8u);
    map.SetAt(std::numeric_limits<unsigned int>::max(), range(1, 2), nullptr);
    QCOMPARE(map.CreateNewUniqueKey(), 1u);
}

void TestValueCommentedRangeMap::equalWritesAreSilent()
{
    ValueCommentedRangeMap map;
    map.SetAt(0, range(1, 2), nullptr);
    RecordingObserver observer;
    observer.watch(&map);
    map.SetAt(0, range(1, 2, 77), nullptr);
    map.Set({range(1, 2)}, true, false, nullptr);
    QVERIFY(map.SetStringValue(map.GetStringValue(), nullptr));
    QVERIFY(observer.codes().isEmpty());
}

void TestValueCommentedRangeMap::bulkRewrite()
{
    ValueCommentedRangeMap map;
    map.SetAt(9, range(1, 2), nullptr);
    RecordingObserver writer, reader;
    writer.watch(&map);
    reader.watch(&map);
    map.StartTransaction(&writer);
    map.Clear(&writer);
    map.SetAt(0, range(3, 4), &writer);
    QVERIFY(reader.codes().isEmpty());
    map.EndTransaction(ChangeCode::BulkEnd, &writer);
    map.NotifyObservers(ChangeCode::Content, &writer);
    QCOMPARE(reader.codes(), (Codes{ChangeCode::BulkEnd, ChangeCode::Content}));
    QVERIFY(writer.codes().isEmpty());
    QCOMPARE(keys(map), Keys{0});
}

void TestValueCommentedRangeMap::textRoundTrip()
{
    ValueCommentedRangeMap map;
    map.SetAt(3, range(5e6, 6.5e6), nullptr);
    map.SetAt(1, range(0.5, 1e9), nullptr);
    QCOMPARE(map.GetStringValue(), QStringLiteral("1=0.5 1000000000 0 0;3=5000000 6500000 0 0"));
    ValueCommentedRangeMap other;
    RecordingObserver observer;
    observer.watch(&other);
    QVERIFY(other.SetStringValue(map.GetStringValue(), nullptr));
    QVERIFY(other.Compare(&map));
    QCOMPARE(observer.takeCodes(), Codes{ChangeCode::Content});
    QVERIFY(other.SetStringValue(QString(), nullptr));
    QVERIFY(other.data().empty());
    QCOMPARE(observer.codes(), Codes{ChangeCode::Content});
}

void TestValueCommentedRangeMap::unreadableText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("word") << "abc";
    QTest::newRow("no key") << "1 2 0 0";
    QTest::newRow("negative key") << "-1=1 2 0 0";
    QTest::newRow("number missing") << "1=1 2 0";
    QTest::newRow("word for a number") << "1=1 x 0 0";
    QTest::newRow("second entry bad") << "1=1 2 0 0;x";
}

void TestValueCommentedRangeMap::unreadableText()
{
    QFETCH(QString, text);
    ValueCommentedRangeMap map;
    map.SetAt(7, range(1, 2), nullptr);
    RecordingObserver observer;
    observer.watch(&map);
    QVERIFY(!map.SetStringValue(text, nullptr));
    QCOMPARE(keys(map), Keys{7});
    QVERIFY(observer.codes().isEmpty());
}

void TestValueCommentedRangeMap::assignAndCompare()
{
    ValueCommentedRangeMap from, to;
    from.SetAt(7, range(1, 2), nullptr);
    QVERIFY(!to.Compare(&from));
    QVERIFY(!to.Compare(nullptr));
    QVERIFY(to.Assign(from));
    QVERIFY(to.Compare(&from));
    ValueString text(QStringLiteral("text"));
    text.SetValue(QStringLiteral("bad"), nullptr);
    QVERIFY(!to.Assign(text));
    QVERIFY(to.Compare(&from));
}

QTEST_APPLESS_MAIN(TestValueCommentedRangeMap)
#include "tst_valuecommentedrangemap.moc"
