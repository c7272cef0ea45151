#include <formtest.h>

#include <zorvaparser/widgets/zorvaseparator.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>

using namespace Orvane;

namespace {

QString textRow(const char* name)
{
    return rowXml("Label", name, {{"text", "some text"}, {"labelText", "Caption"}});
}

} // namespace

class TestZorvaSeparator : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void lineHasTheHeightOfItsMargin_data();
    void lineHasTheHeightOfItsMargin();
    void spacerHasItsHeight();
    void onlyALineStartsAColumn_data();
    void onlyALineStartsAColumn();
    void spacerWithoutHeightTakesNoSpace();
    void laterChangesDoNotShow();
    void visibilityReachesIt();
    void absurdSizesAreSilent_data();
    void absurdSizesAreSilent();
};

void TestZorvaSeparator::lineHasTheHeightOfItsMargin_data()
{
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("topMargin");
    QTest::newRow("odd") << 9 << 9 << 5;
    QTest::newRow("none") << 0 << 5 << 0;
}

void TestZorvaSeparator::lineHasTheHeightOfItsMargin()
{
    QFETCH(int, margin);
    QFETCH(int, height);
    QFETCH(int, topMargin);
    FormFixture form(rowXml("Separator", "line", {{"margin", margin}, {"labelText", "unused"}}));
    const auto* const line = form.control<QGroupBox>("line");
    QVERIFY(line);
    QCOMPARE(line->maximumHeight(), height);
    QCOMPARE(line->contentsMargins().top(), topMargin);
    QVERIFY(!form.control<QLabel>("labelline"));
}

void TestZorvaSeparator::spacerHasItsHeight()
{
    FormFixture form(rowXml("FixedSpacer", "gap", {{"height", 17}}));
    QVERIFY(!form.control<QGroupBox>("gap"));
    QCOMPARE(form.control<QWidget>("gap")->maximumHeight(), 17);
}

void TestZorvaSeparator::onlyALineStartsAColumn_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("newColumn");
    QTest::newRow("line") << "Separator" << true;
    QTest::newRow("spacer") << "FixedSpacer" << false;
}

void TestZorvaSeparator::onlyALineStartsAColumn()
{
    QFETCH(QString, kind);
    QFETCH(bool, newColumn);
    QString rows;
    for (int i = 0; i < 10; ++i)
        rows += textRow(qPrintable(QStringLiteral("upper%1").arg(i)));
    rows += rowXml(qPrintable(kind), "cut", {{"height", 5}, {"margin", 5}});
    for (int i = 0; i < 10; ++i)
        rows += textRow(qPrintable(QStringLiteral("lower%1").arg(i)));
    FormFixture form(rows);
    form.show();
    form.window()->resize(900, 160);
    const auto* const upper = form.control<QLabel>("upper0");
    const auto* const lower = form.control<QLabel>("lower0");
    QTRY_COMPARE(lower->x() > upper->x() + upper->width(), newColumn);
}

void TestZorvaSeparator::spacerWithoutHeightTakesNoSpace()
{
    FormFixture plain(textRow("upper") + textRow("lower"));
    plain.show();
    const int distance = plain.control<QLabel>("lower")->y() - plain.control<QLabel>("upper")->y();
    plain.deleteWindow();
    plain.deleteForm();
    FormFixture form(textRow("upper") + rowXml("FixedSpacer", "gap") + textRow("lower"));
    form.show();
    QTRY_COMPARE(form.control<QLabel>("lower")->y() - form.control<QLabel>("upper")->y(), distance);
}

void TestZorvaSeparator::laterChangesDoNotShow()
{
    FormFixture form(rowXml("FixedSpacer", "gap", {{"height", 17}}));
    form.delegate<ZorvaSeparator>("gap")->setHeight(30);
    form.delegate<ZorvaSeparator>("gap")->setMargin(3);
    QCOMPARE(form.row("gap")->property("height").toInt(), 30);
    QCOMPARE(form.control<QWidget>("gap")->maximumHeight(), 17);
}

void TestZorvaSeparator::visibilityReachesIt()
{
    FormFixture form(rowXml("Separator", "line"));
    form.show();
    QVERIFY(form.control<QWidget>("line")->isVisible());
    form.row("line")->setVisible(false);
    QVERIFY(!form.control<QWidget>("line")->isVisible());
}

void TestZorvaSeparator::absurdSizesAreSilent_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("size");
    for (const char* kind : {"Separator", "FixedSpacer"}) {
        for (const int size : {-2147483647, -5, -1, 16777214, 16777215, 16777216, 33554432, 2147483647})
            QTest::addRow("%s %d", kind, size) << QString::fromLatin1(kind) << size;
    }
}

// The message guard hears every complaint of Qt.
void TestZorvaSeparator::absurdSizesAreSilent()
{
    QFETCH(QString, kind);
    QFETCH(int, size);
    FormFixture form(
        textRow("upper") + rowXml(qPrintable(kind), "one", {{"height", size}, {"margin", size}}) +
        textRow("lower") + rowXml(qPrintable(kind), "two", {{"height", size}, {"margin", size}}));
    form.show();
    QApplication::processEvents();
    const int height = form.control<QWidget>("one")->maximumHeight();
    QVERIFY(height >= 0 && height <= QWIDGETSIZE_MAX);
    if (kind == QLatin1String("FixedSpacer"))
        QCOMPARE(height, qBound(0, size, QWIDGETSIZE_MAX));
    QCOMPARE(form.row("one")->property("height").toInt(), size);
}

QTEST_MAIN(TestZorvaSeparator)
#include "tst_zorvaseparator.moc"
