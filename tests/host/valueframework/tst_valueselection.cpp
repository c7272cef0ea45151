#include <recordingobserver.h>

#include <valueframework/value.h>
#include <valueframework/valueselection.h>

#include <QTest>

#include <memory>

using namespace values;

class TestValueSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingIsCurrentAtFirst();
    void typeHasItsNumber();
    void addingTellsOfItems();
    void addingListsTellsOnce();
    void reservingTellsNobody();
    void addingItselfDoubles();
    void nullItemIsIgnored();
    void itemsCompareByAllFields();
    void selectByName();
    void selectByWideName();
    void selectByValue_data();
    void selectByValue();
    void selectByKey();
    void selectByIndex();
    void selectingTheCurrentItemIsSilent();
    void lookups();
    void firstOfEqualNamesAndKeysWins_data();
    void firstOfEqualNamesAndKeysWins();
    void textChooses();
    void itemWithAnEmptyName();
    void deletingOneItem();
    void deletingAllItems();
    void deletedNameComesBackSilently_data();
    void deletedNameComesBackSilently();
    void anotherChoiceForgetsTheDeletedName();
    void vanishedNameLeavesTheChoiceBlank();
    void assignCopiesItemsAndChoice();
    void compare();
    void transactionCoversARefill();

private:
    std::unique_ptr<ValueSelection> m_selection; // "a" 1.0 key 1, "b" 5.0 key 2, "c" 3.0 key 3
    RecordingObserver m_observer;
};

namespace {

using Codes = QList<TChangeCode>;

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

} // namespace

void TestValueSelection::init()
{
    m_observer.leave();
    m_selection = std::make_unique<ValueSelection>(QStringLiteral("v"));
    m_selection->AddItem(a, 1.0, 1, nullptr);
    m_selection->AddItem(b, 5.0, 2, nullptr);
    m_selection->AddItem(c, 3.0, 3, nullptr);
    m_observer.watch(m_selection.get());
    m_observer.takeCodes();
}

void TestValueSelection::nothingIsCurrentAtFirst()
{
    QVERIFY(!m_selection->GetCurrentItem());
    QCOMPARE(m_selection->GetCurrentIndex(), -1L);
    QCOMPARE(m_selection->GetCurrentValue(), 0.0);
    QCOMPARE(m_selection->GetStringValue(), QString());
}

void TestValueSelection::typeHasItsNumber()
{
    QCOMPARE(static_cast<int>(m_selection->GetType()), 9);
    QCOMPARE(m_selection->GetTypeName(), QStringLiteral("selection"));
}

void TestValueSelection::addingTellsOfItems()
{
    m_selection->AddItem(QStringLiteral("d"), 4.0, 4, nullptr);
    m_selection->AddItem(new SelectionItem(QStringLiteral("e"), 5.0, 5), nullptr);
    QCOMPARE(m_observer.takeCodes(), (Codes{5, 5}));
    QCOMPARE(m_selection->GetItemCount(), 5L);
    QCOMPARE(m_selection->GetItemIndex(4)->GetName(), QStringLiteral("e"));
    m_selection->AddItem(QStringLiteral("f"), 6.0, 6, &m_observer);
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::addingListsTellsOnce()
{
    m_selection->AddItems({QStringLiteral("d"), QStringLiteral("e")}, nullptr);
    QCOMPARE(m_observer.takeCodes(), Codes{5});
    QVERIFY(*m_selection->GetItemIndex(4) == SelectionItem(QStringLiteral("e"), 4.0, 5));
    ValueSelection other(QStringLiteral("w"));
    other.AddItemsFrom(*m_selection, nullptr);
    QCOMPARE(other.GetItemCount(), 5L);
    QVERIFY(*other.GetItemIndex(1) == *m_selection->GetItemIndex(1));
    m_selection->AddItemsFrom(other, nullptr);
    QCOMPARE(m_observer.takeCodes(), Codes{5});
    m_selection->AddItems({}, nullptr);
    m_selection->AddItemsFrom(ValueSelection(QString()), nullptr);
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::reservingTellsNobody()
{
    const SelectionItem* const first = m_selection->GetItemIndex(0);
    for (const long count : {1000L, 0L, -1L})
        m_selection->Reserve(count);
    QVERIFY(m_observer.codes().isEmpty());
    QCOMPARE(m_selection->GetItemCount(), 3L);
    QCOMPARE(static_cast<const SelectionItem*>(m_selection->GetItemIndex(0)), first);
}

void TestValueSelection::addingItselfDoubles()
{
    m_selection->AddItemsFrom(*m_selection, nullptr);
    QCOMPARE(m_selection->GetItemCount(), 6L);
    QCOMPARE(m_selection->GetItemIndex(5)->GetName(), c);
}

void TestValueSelection::nullItemIsIgnored()
{
    m_selection->AddItem(nullptr, nullptr);
    QCOMPARE(m_selection->GetItemCount(), 3L);
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::itemsCompareByAllFields()
{
    const SelectionItem item(a, 1.0, 1);
    const SelectionItem copy(item);
    QVERIFY(copy == item);
    QVERIFY(SelectionItem(b, 1.0, 1) != item);
    QVERIFY(SelectionItem(a, 2.0, 1) != item);
    QVERIFY(SelectionItem(a, 1.0, 2) != item);
}

void TestValueSelection::selectByName()
{
    QVERIFY(m_selection->Select(b, nullptr));
    QCOMPARE(m_selection->GetStringValue(), b);
    QCOMPARE(m_selection->GetCurrentIndex(), 1L);
    QCOMPARE(m_selection->GetCurrentValue(), 5.0);
    QCOMPARE(m_selection->GetCurrentItem(), m_selection->GetItemIndex(1));
    QCOMPARE(m_observer.takeCodes(), Codes{3});
    QVERIFY(!m_selection->Select(QStringLiteral("B"), nullptr));
    QVERIFY(!m_selection->Select(QStringLiteral("x"), nullptr));
    QCOMPARE(m_selection->GetStringValue(), b);
    QVERIFY(m_observer.codes().isEmpty());
    QVERIFY(m_selection->Select(c, &m_observer));
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::selectByWideName()
{
    QVERIFY(m_selection->Select(L"c", nullptr));
    QCOMPARE(m_selection->GetStringValue(), c);
    QVERIFY(!m_selection->Select(L"x", nullptr));
    QVERIFY(!m_selection->Select(static_cast<const wchar_t*>(nullptr), nullptr));
}

void TestValueSelection::selectByValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("exact");
    QTest::addColumn<QString>("name");
    QTest::newRow("exact") << 3.0 << true << "c";
    QTest::newRow("exact, between") << 2.0 << true << QString();
    QTest::newRow("at least, hit") << 3.0 << false << "c";
    QTest::newRow("at least, between takes the smallest above") << 1.5 << false << "c";
    QTest::newRow("at least, below all") << -1e9 << false << "a";
    QTest::newRow("at least, above all") << 5.1 << false << QString();
    QTest::newRow("first of equals") << 4.0 << false << "b";
    QTest::newRow("not a number") << qQNaN() << false << QString();
}

void TestValueSelection::selectByValue()
{
    QFETCH(double, value);
    QFETCH(bool, exact);
    QFETCH(QString, name);
    m_selection->AddItem(QStringLiteral("twin of b"), 5.0, 9, nullptr);
    QCOMPARE(m_selection->Select(value, nullptr, exact), !name.isNull());
    QCOMPARE(m_selection->GetStringValue(), name);
}

void TestValueSelection::selectByKey()
{
    QVERIFY(m_selection->Select(3L, nullptr));
    QCOMPARE(m_selection->GetStringValue(), c);
    QVERIFY(m_selection->Select(1, nullptr));
    QCOMPARE(m_selection->GetStringValue(), a);
    QVERIFY(!m_selection->Select(0, nullptr));
    QCOMPARE(m_selection->GetStringValue(), a);
}

void TestValueSelection::selectByIndex()
{
    QVERIFY(m_selection->SelectIndex(2, nullptr));
    QCOMPARE(m_selection->GetStringValue(), c);
    QVERIFY(!m_selection->SelectIndex(3, nullptr));
    QVERIFY(!m_selection->SelectIndex(-1, nullptr));
    QCOMPARE(m_selection->GetStringValue(), c);
    QCOMPARE(m_observer.codes(), Codes{3});
}

void TestValueSelection::selectingTheCurrentItemIsSilent()
{
    m_selection->Select(b, nullptr);
    m_observer.takeCodes();
    QVERIFY(m_selection->Select(b, nullptr));
    QVERIFY(m_selection->Select(2L, nullptr));
    QVERIFY(m_selection->Select(4.0, nullptr, false));
    QVERIFY(m_selection->SelectIndex(1, nullptr));
    QVERIFY(m_selection->SetStringValue(b, nullptr));
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::lookups()
{
    QCOMPARE(m_selection->GetItem(b), m_selection->GetItemIndex(1));
    QCOMPARE(m_selection->GetItem(3.0), m_selection->GetItemIndex(2));
    QCOMPARE(m_selection->GetItem(2L), m_selection->GetItemIndex(1));
    QCOMPARE(m_selection->GetItem(2), m_selection->GetItemIndex(1));
    QVERIFY(!m_selection->GetItem(QStringLiteral("x")));
    QVERIFY(!m_selection->GetItem(2.0));
    QVERIFY(!m_selection->GetItem(7L));
    QVERIFY(!m_selection->GetItemIndex(-1));
    QVERIFY(!m_selection->GetItemIndex(3));
    QCOMPARE(m_selection->GetKeyForItemName(c), 3L);
    QCOMPARE(m_selection->GetKeyForItemName(QStringLiteral("x")), -1L);
    QCOMPARE(m_selection->GetItemNameForKey(3), c);
    QVERIFY(m_selection->GetItemNameForKey(7).isNull());
}

void TestValueSelection::firstOfEqualNamesAndKeysWins_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("short list") << 4;
    QTest::newRow("long list") << 100;
}

void TestValueSelection::firstOfEqualNamesAndKeysWins()
{
    QFETCH(int, count);
    ValueSelection selection(QStringLiteral("v"));
    const auto name = [](int i) { return QStringLiteral("item%1").arg(i); };
    for (int i = 0; i < count; ++i)
        selection.AddItem(name(i), i, i, nullptr);
    QCOMPARE(selection.GetItem(name(count - 1)), selection.GetItemIndex(count - 1));
    // These come after a long list has its index.
    selection.AddItem(name(1), 1.0, 2, nullptr);
    selection.AddItem(QStringLiteral("new"), 1.0, 1000, nullptr);
    QCOMPARE(selection.GetItem(name(1)), selection.GetItemIndex(1));
    QCOMPARE(selection.GetItem(2L), selection.GetItemIndex(2));
    QCOMPARE(selection.GetItem(QStringLiteral("new")), selection.GetItemIndex(count + 1));
    QCOMPARE(selection.GetItem(1000L), selection.GetItemIndex(count + 1));
    QVERIFY(selection.DeleteItem(selection.GetItemIndex(1), nullptr));
    QCOMPARE(selection.GetItem(name(1)), selection.GetItemIndex(count - 1));
    selection.DeleteItems(nullptr);
    QVERIFY(!selection.GetItem(name(0)));
    QVERIFY(!selection.GetItem(0L));
}

void TestValueSelection::textChooses()
{
    QVERIFY(m_selection->SetStringValue(b, nullptr));
    QCOMPARE(m_observer.takeCodes(), Codes{3});
    QVERIFY(!m_selection->SetStringValue(QStringLiteral("x"), nullptr));
    QCOMPARE(m_selection->GetStringValue(), b);
    QVERIFY(m_observer.codes().isEmpty());
    QVERIFY(m_selection->SetStringValue(QString(), nullptr));
    QCOMPARE(m_selection->GetCurrentIndex(), -1L);
    QCOMPARE(m_observer.takeCodes(), Codes{3});
    QVERIFY(m_selection->SetStringValue(QStringLiteral(""), nullptr));
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::itemWithAnEmptyName()
{
    m_selection->AddItem(QString(), 9.0, 9, nullptr);
    QVERIFY(m_selection->SetStringValue(QStringLiteral(""), nullptr));
    QCOMPARE(m_selection->GetCurrentIndex(), 3L);
}

void TestValueSelection::deletingOneItem()
{
    m_selection->Select(c, nullptr);
    m_observer.takeCodes();
    QVERIFY(m_selection->DeleteItem(m_selection->GetItem(a), nullptr));
    QCOMPARE(m_observer.takeCodes(), Codes{8});
    QCOMPARE(m_selection->GetStringValue(), c);
    QCOMPARE(m_selection->GetCurrentIndex(), 1L);
    QVERIFY(m_selection->DeleteItem(m_selection->GetItem(c), nullptr));
    QCOMPARE(m_selection->GetCurrentIndex(), -1L);
    QCOMPARE(m_observer.takeCodes(), Codes{8});
    const SelectionItem stranger(b, 5.0, 2);
    QVERIFY(!m_selection->DeleteItem(nullptr, nullptr));
    QVERIFY(!m_selection->DeleteItem(const_cast<SelectionItem*>(&stranger), nullptr));
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::deletingAllItems()
{
    m_selection->Select(b, nullptr);
    m_observer.takeCodes();
    m_selection->DeleteItems(nullptr);
    QCOMPARE(m_observer.takeCodes(), Codes{8});
    QCOMPARE(m_selection->GetItemCount(), 0L);
    QCOMPARE(m_selection->GetCurrentIndex(), -1L);
    QCOMPARE(m_selection->GetStringValue(), QString());
    m_selection->DeleteItems(nullptr);
    QVERIFY(m_observer.codes().isEmpty());
}

void TestValueSelection::deletedNameComesBackSilently_data()
{
    QTest::addColumn<bool>("oneByOne");
    QTest::newRow("all items deleted") << false;
    QTest::newRow("that item deleted") << true;
}

void TestValueSelection::deletedNameComesBackSilently()
{
    QFETCH(bool, oneByOne);
    m_selection->Select(b, nullptr);
    if (oneByOne)
        m_selection->DeleteItem(m_selection->GetCurrentItem(), nullptr);
    else
        m_selection->DeleteItems(nullptr);
    m_observer.takeCodes();
    m_selection->AddItem(QStringLiteral("d"), 1.0, 1, nullptr);
    QCOMPARE(m_selection->GetCurrentIndex(), -1L);
    m_selection->AddItem(b, 7.0, 2, nullptr);
    QCOMPARE(m_selection->GetStringValue(), b);
    QCOMPARE(m_selection->GetCurrentValue(), 7.0);
    QCOMPARE(m_observer.codes(), (Codes{5, 5}));
    m_selection->AddItem(b, 8.0, 3, nullptr);
    QCOMPARE(m_selection->GetCurrentValue(), 7.0);
}

void TestValueSelection::anotherChoiceForgetsTheDeletedName()
{
    m_selection->Select(b, nullptr);
    m_selection->DeleteItems(nullptr);
    m_selection->AddItem(a, 1.0, 1, nullptr);
    m_selection->Select(a, nullptr);
    m_selection->AddItem(b, 5.0, 2, nullptr);
    QCOMPARE(m_selection->GetStringValue(), a);
}

void TestValueSelection::vanishedNameLeavesTheChoiceBlank()
{
    m_selection->Select(b, nullptr);
    const QString before = m_selection->GetStringValue();
    m_selection->DeleteItems(nullptr);
    m_selection->AddItems({a, c}, nullptr);
    QVERIFY(!m_selection->SetStringValue(before, nullptr));
    QVERIFY(!m_selection->GetCurrentItem());
}

void TestValueSelection::assignCopiesItemsAndChoice()
{
    ValueSelection from(QStringLiteral("from"));
    from.AddItems({QStringLiteral("x"), QStringLiteral("y")}, nullptr);
    from.Select(QStringLiteral("y"), nullptr);
    m_selection->Select(a, nullptr);
    m_observer.takeCodes();
    QVERIFY(m_selection->Assign(from));
    QVERIFY(m_selection->Compare(&from));
    QCOMPARE(m_observer.takeCodes(), (Codes{8, 5, 3}));
    QVERIFY(m_selection->Assign(from));
    QVERIFY(m_observer.codes().isEmpty());
    from.Select(QStringLiteral("x"), nullptr);
    QVERIFY(m_selection->Assign(from));
    QCOMPARE(m_observer.takeCodes(), Codes{3});

    ValueString text(QStringLiteral("text"));
    text.SetValue(QStringLiteral("y"), nullptr);
    QVERIFY(m_selection->Assign(text));
    QCOMPARE(m_selection->GetStringValue(), QStringLiteral("y"));
    text.SetValue(QStringLiteral("z"), nullptr);
    QVERIFY(!m_selection->Assign(text));
}

void TestValueSelection::compare()
{
    ValueSelection other(QStringLiteral("other"));
    QVERIFY(!m_selection->Compare(nullptr));
    QVERIFY(!m_selection->Compare(&other));
    other.AddItemsFrom(*m_selection, nullptr);
    QVERIFY(m_selection->Compare(&other));
    other.Select(a, nullptr);
    QVERIFY(!m_selection->Compare(&other));
}

void TestValueSelection::transactionCoversARefill()
{
    {
        const ValueTransaction transaction = m_selection->CreateTransaction({5}, nullptr);
        m_selection->DeleteItems(nullptr);
        m_selection->AddItems({a, b}, nullptr);
        m_selection->Select(a, nullptr);
        QVERIFY(m_observer.codes().isEmpty());
    }
    QCOMPARE(m_observer.codes(), Codes{5});
}

QTEST_APPLESS_MAIN(TestValueSelection)
#include "tst_valueselection.moc"
