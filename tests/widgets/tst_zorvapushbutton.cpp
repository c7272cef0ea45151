#include <formtest.h>

#include <zorvaparser/widgets/zorvapushbutton.h>

#include <QPushButton>

using namespace Orvane;

namespace {

QString startRow(const QList<FormProperty>& more = {})
{
    return rowXml("PushButton", "start", QList<FormProperty>{{"text", "Start"}} + more);
}

} // namespace

class TestZorvaPushButton : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsText();
    void userClicks();
    void scriptHearsTheClick();
    void animatedClick();
    void keepsItsWidth();
    void clearedIconStaysOnTheButton();
    void missingIconFileStoresANullIcon();
    void iconSizeReachesTheButton();
    void emptiedTextLeavesTheToolTip();
    void writesNothing();
};

void TestZorvaPushButton::showsItsText()
{
    FormFixture form(startRow({{"toolTip", "own"}}));
    const auto* const button = form.control<QPushButton>("start");
    QCOMPARE(button->text(), QStringLiteral("Start"));
    QCOMPARE(button->toolTip(), QStringLiteral("Start"));
}

void TestZorvaPushButton::userClicks()
{
    FormFixture form(startRow());
    form.show();
    auto* const row = form.delegate<ZorvaPushButton>("start");
    QStringList order;
    connect(row, &ZorvaPushButton::pressed, this, [&order] { order << QStringLiteral("pressed"); });
    connect(row, &ZorvaPushButton::released, this, [&order] { order << QStringLiteral("released"); });
    connect(row, &ZorvaPushButton::clicked, this, [&order] { order << QStringLiteral("clicked"); });
    QTest::mouseClick(form.control<QPushButton>("start"), Qt::LeftButton);
    QCOMPARE(order,
             (QStringList{QStringLiteral("pressed"), QStringLiteral("released"), QStringLiteral("clicked")}));
}

void TestZorvaPushButton::scriptHearsTheClick()
{
    FormFixture form(startRow(), QString(),
                     QStringLiteral("start.clicked.connect(function() { start.setText('Stop'); });"));
    form.show();
    QTest::mouseClick(form.control<QPushButton>("start"), Qt::LeftButton);
    QCOMPARE(form.control<QPushButton>("start")->text(), QStringLiteral("Stop"));
}

void TestZorvaPushButton::animatedClick()
{
    FormFixture form(startRow(), FormFixture::WithValues);
    auto* const row = form.delegate<ZorvaPushButton>("start");
    QSignalSpy clicked(row, &ZorvaPushButton::clicked);
    row->animateClick();
    form.createGui();
    form.show();
    QCOMPARE(clicked.count(), 0);
    row->animateClick();
    QTRY_COMPARE(clicked.count(), 1);
}

void TestZorvaPushButton::keepsItsWidth()
{
    FormFixture form(
        rowXml("PushButton", "go", {{"text", "Go"}, {"labelText", "Start"}}) +
        rowXml("Label", "wide",
               {{"labelText", "Text"}, {"text", "a field that is very much wider than the button"}}));
    form.show();
    const auto* const button = form.control<QPushButton>("go");
    QTRY_VERIFY(button->width() > 0 && button->isVisible());
    QCOMPARE(button->width(), button->sizeHint().width());
}

void TestZorvaPushButton::clearedIconStaysOnTheButton()
{
    FormFixture form(startRow());
    auto* const row = form.delegate<ZorvaPushButton>("start");
    const auto* const button = form.control<QPushButton>("start");
    row->setIcon(QStringLiteral(":/ZorvaParser/Loaded_ON.png"));
    QVERIFY(!button->icon().isNull());
    row->clearIcon();
    QVERIFY(!row->property("icon").isValid());
    QVERIFY(!button->icon().isNull());
}

void TestZorvaPushButton::missingIconFileStoresANullIcon()
{
    FormFixture form(startRow());
    auto* const row = form.delegate<ZorvaPushButton>("start");
    row->setIcon(QStringLiteral(":/ZorvaParser/Nothing.png"));
    QVERIFY(row->property("icon").isValid());
    QVERIFY(row->property("icon").value<QIcon>().isNull());
}

void TestZorvaPushButton::iconSizeReachesTheButton()
{
    FormFixture form(startRow());
    auto* const row = form.delegate<ZorvaPushButton>("start");
    row->setIconSize(40, 20);
    QCOMPARE(form.control<QPushButton>("start")->iconSize(), QSize(40, 20));
    row->setIconSize(QSize(8, 8));
    QCOMPARE(form.control<QPushButton>("start")->iconSize(), QSize(8, 8));
    form.evaluate(QStringLiteral("start.setIconSize(30, 10); start.setIcon(':/ZorvaParser/Loaded_ON.png');"));
    QCOMPARE(form.control<QPushButton>("start")->iconSize(), QSize(30, 10));
    QVERIFY(!form.control<QPushButton>("start")->icon().isNull());
}

void TestZorvaPushButton::emptiedTextLeavesTheToolTip()
{
    FormFixture form(startRow());
    form.delegate<ZorvaPushButton>("start")->setText(QString());
    QCOMPARE(form.control<QPushButton>("start")->text(), QString());
    QCOMPARE(form.control<QPushButton>("start")->toolTip(), QStringLiteral("Start"));
}

void TestZorvaPushButton::writesNothing()
{
    FormFixture form(startRow());
    QCOMPARE(form.writtenBy("start"), QString());
    QCOMPARE(form.row("start")->GetVTValue(), nullptr);
}

QTEST_MAIN(TestZorvaPushButton)
#include "tst_zorvapushbutton.moc"
