#include <formtest.h>

#include <zorvaparser/widgets/zorvahiddenmap.h>

using namespace Orvane;

namespace {

QString tableRow()
{
    return rowXml("HiddenMap", "map", {{"parameterListItemTag", "Entry"}, {"unit", "x"}});
}

} // namespace

class TestZorvaHiddenMap : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesSortedWithoutUnit();
    void addingAndChangingTell();
    void equalTextTellsAndMarks();
    void removeTells();
    void removeOfAMissingKeyIsSilent();
    void clearIsSilent();
    void readReplacesSilently();
    void scriptSeesTheKeys();
};

void TestZorvaHiddenMap::writesSortedWithoutUnit()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    QCOMPARE(form.writtenBy("map"), QStringLiteral("<map/>"));
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    row->setValue(QStringLiteral("b"), QStringLiteral("2"));
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(form.writtenBy("map"),
             QStringLiteral("<map><Entry key=\"a\">1</Entry><Entry key=\"b\">2</Entry></map>"));
    row->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("map"), QString());
}

void TestZorvaHiddenMap::addingAndChangingTell()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    QSignalSpy added(row, &ZorvaHiddenMap::valueAdded);
    QSignalSpy changed(row, &ZorvaHiddenMap::valueChanged);
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(added.count(), 1);
    QCOMPARE(changed.count(), 0);
    row->setValue(QStringLiteral("a"), QStringLiteral("2"));
    QCOMPARE(added.count(), 1);
    QCOMPARE(changed.takeFirst(), (QVariantList{QStringLiteral("a"), QStringLiteral("2")}));
    QVERIFY(row->contains(QStringLiteral("a")));
    QCOMPARE(row->value(QStringLiteral("a")), QStringLiteral("2"));
}

void TestZorvaHiddenMap::equalTextTellsAndMarks()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    row->resetModified();
    QSignalSpy changed(row, &ZorvaHiddenMap::valueChanged);
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(row->isModified());
}

void TestZorvaHiddenMap::removeTells()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    row->resetModified();
    QSignalSpy removed(row, &ZorvaHiddenMap::valueRemoved);
    row->remove(QStringLiteral("a"));
    QCOMPARE(removed.takeFirst(), (QVariantList{QStringLiteral("a"), QStringLiteral("1")}));
    QVERIFY(!row->contains(QStringLiteral("a")));
    QVERIFY(row->isModified());
}

void TestZorvaHiddenMap::removeOfAMissingKeyIsSilent()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    QSignalSpy removed(row, &ZorvaHiddenMap::valueRemoved);
    row->remove(QStringLiteral("a"));
    QCOMPARE(removed.count(), 0);
    QVERIFY(!row->isModified());
    QCOMPARE(row->value(QStringLiteral("a")), QString());
}

void TestZorvaHiddenMap::clearIsSilent()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    row->setValue(QStringLiteral("a"), QStringLiteral("1"));
    row->resetModified();
    QSignalSpy removed(row, &ZorvaHiddenMap::valueRemoved);
    row->clear();
    QCOMPARE(row->keys(), QList<QString>());
    QCOMPARE(removed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHiddenMap::readReplacesSilently()
{
    FormFixture form(tableRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenMap>("map");
    row->setValue(QStringLiteral("old"), QStringLiteral("1"));
    row->resetModified();
    QSignalSpy added(row, &ZorvaHiddenMap::valueAdded);
    QVERIFY(form.read("map", QStringLiteral("<map><E key=\"b\">1</E><E key=\"a\">2</E><E key=\"b\">3</E>"
                                            "<E>4</E></map>")));
    QCOMPARE(row->keys(), (QList<QString>{QString(), QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(row->value(QStringLiteral("b")), QStringLiteral("3"));
    QCOMPARE(added.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHiddenMap::scriptSeesTheKeys()
{
    FormFixture form(tableRow() + rowXml("HiddenParameter", "out"), FormFixture::WithValues);
    form.evaluate(QStringLiteral("map.setValue('b', '2'); map.setValue('a', '1');"
                                 "out.setValue(map.keys().join('+') + map.value('b') + map.contains('c'));"));
    QCOMPARE(form.row("out")->property("value").toString(), QStringLiteral("a+b2false"));
}

QTEST_MAIN(TestZorvaHiddenMap)
#include "tst_zorvahiddenmap.moc"
