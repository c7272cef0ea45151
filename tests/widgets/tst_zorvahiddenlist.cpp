#include <formtest.h>

#include <zorvaparser/widgets/zorvahiddenlist.h>

using namespace Orvane;

namespace {

QString namesRow(int count)
{
    return rowXml("HiddenList", "names",
                  {{"itemCount", count}, {"parameterListItemTag", "Name"}, {"unit", "x"}});
}

} // namespace

class TestZorvaHiddenList : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesEveryEntry();
    void growsBeyondItsSizeOnly();
    void storedTextIsSilent();
    void clearKeepsTheCount();
    void countAfterClearDoesNotResize();
    void newCountResizes();
    void readKeepsOnlyWhatFits_data();
    void readKeepsOnlyWhatFits();
    void indicesOutOfRangeAreDropped();
};

void TestZorvaHiddenList::writesEveryEntry()
{
    FormFixture form(namesRow(2), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    form.evaluate(QStringLiteral("names.setItemValue(1, 'b')"));
    QCOMPARE(form.writtenBy("names"), QStringLiteral("<names><Name unit=\"x\" index=\"0\"></Name>"
                                                     "<Name unit=\"x\" index=\"1\">b</Name></names>"));
    row->clear();
    QCOMPARE(form.writtenBy("names"), QStringLiteral("<names/>"));
    row->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("names"), QString());
}

void TestZorvaHiddenList::growsBeyondItsSizeOnly()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    row->setItemValue(5, QStringLiteral("five"));
    QCOMPARE(row->property("itemCount").toInt(), 6);
    QCOMPARE(row->itemValue(5), QStringLiteral("five"));
    row->setItemValue(6, QStringLiteral("six"));
    QCOMPARE(row->property("itemCount").toInt(), 6);
    QCOMPARE(row->itemValue(6), QString());
    row->setItemValue(7, QStringLiteral("seven"));
    QCOMPARE(row->property("itemCount").toInt(), 8);
    QCOMPARE(row->itemValue(7), QStringLiteral("seven"));
    QCOMPARE(row->itemValue(5), QStringLiteral("five"));
}

void TestZorvaHiddenList::storedTextIsSilent()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    row->setItemValue(1, QStringLiteral("b"));
    QVERIFY(row->isModified());
    row->resetModified();
    QSignalSpy changed(row, &ZorvaHiddenList::itemValueChanged);
    row->setItemValue(1, QStringLiteral("b"));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
    row->setItemValue(1, QStringLiteral("c"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 1);
    QCOMPARE(changed.at(0).at(1).toString(), QStringLiteral("c"));
}

void TestZorvaHiddenList::clearKeepsTheCount()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    QSignalSpy changed(row, &ZorvaHiddenList::itemValueChanged);
    row->clear();
    QCOMPARE(form.writtenBy("names"), QStringLiteral("<names/>"));
    QCOMPARE(row->property("itemCount").toInt(), 3);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!row->isModified());
}

void TestZorvaHiddenList::countAfterClearDoesNotResize()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    row->clear();
    row->setItemCount(3);
    row->setItemValue(0, QStringLiteral("a"));
    QCOMPARE(row->itemValue(0), QString());
}

void TestZorvaHiddenList::newCountResizes()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    row->setItemValue(0, QStringLiteral("a"));
    row->setItemCount(1);
    QCOMPARE(row->itemValue(0), QStringLiteral("a"));
    row->setItemValue(1, QStringLiteral("b"));
    QCOMPARE(row->itemValue(1), QString());
    row->setItemCount(-1);
    QCOMPARE(row->itemValue(0), QStringLiteral("a"));
}

void TestZorvaHiddenList::readKeepsOnlyWhatFits_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("kept");
    QTest::newRow("first entry is lost") << 0 << "<N>a</N>"
                                         << "";
    QTest::newRow("second one makes the list") << 0 << "<N>a</N><N>b</N>"
                                               << "|b";
    QTest::newRow("third one is lost again") << 0 << "<N>a</N><N>b</N><N>c</N>"
                                             << "|b";
    QTest::newRow("fourth one grows it") << 0 << "<N>a</N><N>b</N><N>c</N><N>d</N>"
                                         << "|b||d";
    QTest::newRow("same count as before stays empty") << 2 << "<N>a</N><N>b</N>"
                                                      << "";
    QTest::newRow("index beyond, then counting on") << 0 << "<N index=\"3\">d</N><N>e</N>"
                                                    << "|||d";
}

void TestZorvaHiddenList::readKeepsOnlyWhatFits()
{
    QFETCH(int, count);
    QFETCH(QString, entries);
    QFETCH(QString, kept);
    FormFixture form(namesRow(count), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    QVERIFY(form.read("names", QStringLiteral("<names>%1</names>").arg(entries)));
    QStringList texts;
    const int size = form.writtenBy("names").count(QStringLiteral("</Name>"));
    for (int i = 0; i < size; ++i)
        texts << row->itemValue(i);
    QCOMPARE(texts.join(QLatin1Char('|')), kept);
}

void TestZorvaHiddenList::indicesOutOfRangeAreDropped()
{
    FormFixture form(namesRow(3), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaHiddenList>("names");
    row->setItemValue(-1, QStringLiteral("x"));
    row->setItemValue(2147483647, QStringLiteral("x"));
    row->setItemValue(2147483646, QStringLiteral("x"));
    QCOMPARE(row->itemValue(-1), QString());
    QCOMPARE(row->itemValue(2147483647), QString());
    QVERIFY(!row->isModified());
}

QTEST_MAIN(TestZorvaHiddenList)
#include "tst_zorvahiddenlist.moc"
