#include <formtest.h>

#include <basicvaluewidgets/vccheckbox.h>
#include <zorvaparser/widgets/zorvaheadline.h>

#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QTranslator>

using namespace Orvane;

namespace {

QString gainGroup(const QList<FormProperty>& more = {})
{
    return rowXml("Headline", "head", QList<FormProperty>{{"text", "Gain"}} + more) +
           rowXml("CheckBox", "agc", {{"labelText", "AGC"}});
}

/// In @p ratio device pixels for each of the box.
QImage imageOf(QWidget* box, qreal ratio = 1)
{
    QImage image(box->size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    box->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

void clickTitle(QGroupBox* box)
{
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(10, box->contentsMargins().top() / 2 + 4));
}

} // namespace

class TestZorvaHeadline : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextMakesNoHeadline();
    void toolTipFollowsTheState();
    void ownToolTipLastsUntilTheToggle();
    void userCollapsesTheGroup();
    void staysUsableWhileInputIsOff();
    void setEnabledDoesNotReachTheBox();
    void collapsedBeforeTheControlExists();
    void keepsItsMargin();
    void writesNothing();
    void emptyTranslationHasAHead();
    void indicatorIsPaintedAsTheStyleWould_data();
    void indicatorIsPaintedAsTheStyleWould();
    void indicatorFollowsOtherSheets_data();
    void indicatorFollowsOtherSheets();
};

void TestZorvaHeadline::emptyTextMakesNoHeadline()
{
    FormFixture form(rowXml("Headline", "head", {{"labelText", "unused"}}) + rowXml("CheckBox", "agc"));
    QVERIFY(!form.control<QWidget>("head"));
    QVERIFY(!form.control<QWidget>("labelhead"));
    form.row("head")->setGroupVisible(false);
    QVERIFY(!form.row("head")->isGroupVisible());
}

void TestZorvaHeadline::toolTipFollowsTheState()
{
    FormFixture form(gainGroup());
    const auto* const box = form.control<QGroupBox>("head");
    QCOMPARE(box->title(), QStringLiteral("Gain"));
    QVERIFY(box->isChecked());
    QCOMPARE(box->toolTip(), QStringLiteral("Hide Gain"));
    form.row("head")->setGroupVisible(false);
    QVERIFY(!box->isChecked());
    QCOMPARE(box->toolTip(), QStringLiteral("Show Gain"));
}

void TestZorvaHeadline::ownToolTipLastsUntilTheToggle()
{
    FormFixture form(gainGroup({{"toolTip", "own"}}));
    const auto* const box = form.control<QGroupBox>("head");
    QCOMPARE(box->toolTip(), QStringLiteral("own"));
    form.row("head")->setGroupVisible(false);
    QCOMPARE(box->toolTip(), QStringLiteral("Show Gain"));
}

void TestZorvaHeadline::userCollapsesTheGroup()
{
    FormFixture form(gainGroup());
    form.show();
    auto* const box = form.control<QGroupBox>("head");
    const auto* const inside = form.control<VCCheckBox>("agc");
    QVERIFY(inside->isVisible());
    clickTitle(box);
    QVERIFY(!box->isChecked());
    QVERIFY(!inside->isVisible());
    QVERIFY(box->isVisible());
    QCOMPARE(box->toolTip(), QStringLiteral("Show Gain"));
    clickTitle(box);
    QVERIFY(inside->isVisible());
    QCOMPARE(box->toolTip(), QStringLiteral("Hide Gain"));
}

void TestZorvaHeadline::staysUsableWhileInputIsOff()
{
    FormFixture form(gainGroup());
    form.show();
    auto* const box = form.control<QGroupBox>("head");
    form.formular()->EnableInput(false);
    QVERIFY(!form.control<VCCheckBox>("agc")->isEnabled());
    QVERIFY(box->isEnabled());
    clickTitle(box);
    QVERIFY(!box->isChecked());
}

void TestZorvaHeadline::setEnabledDoesNotReachTheBox()
{
    FormFixture form(gainGroup());
    form.row("head")->setEnabled(false);
    QVERIFY(form.control<QGroupBox>("head")->isEnabled());
}

void TestZorvaHeadline::collapsedBeforeTheControlExists()
{
    FormFixture form(gainGroup(), FormFixture::WithValues);
    form.row("head")->setGroupVisible(false);
    form.createGui();
    QVERIFY(!form.control<QGroupBox>("head")->isChecked());
    QCOMPARE(form.control<QGroupBox>("head")->toolTip(), QStringLiteral("Show Gain"));
}

void TestZorvaHeadline::keepsItsMargin()
{
    FormFixture form(gainGroup({{"margin", 9}}));
    form.show();
    QCOMPARE(form.control<QGroupBox>("head")->contentsMargins().top(), 9);
    form.sheet().SetFontSize(14);
    QCOMPARE(form.control<QGroupBox>("head")->contentsMargins().top(), 9);
}

void TestZorvaHeadline::writesNothing()
{
    FormFixture form(gainGroup());
    QCOMPARE(form.writtenBy("head"), QString());
    QVERIFY(!form.value<values::ValueBase>("head"));
}

void TestZorvaHeadline::emptyTranslationHasAHead()
{
    class Silent : public QTranslator
    {
    public:
        QString translate(const char*, const char* text, const char*, int) const override
        {
            return qstrcmp(text, "Gain") == 0 ? QStringLiteral("") : QString();
        }
        bool isEmpty() const override { return false; }
    } translator;
    QCoreApplication::installTranslator(&translator);
    FormFixture form(rowXml("Headline", "head", {{"text", "Gain"}}) + rowXml("LineEdit", "a"));
    QCoreApplication::removeTranslator(&translator);
    const auto* const box = form.control<QGroupBox>("head");
    QVERIFY(box);
    QVERIFY(box->isCheckable());
    QCOMPARE(box->title(), QString());
    FormFixture none(rowXml("Headline", "head", {{"text", ""}}));
    QVERIFY(!none.control<QGroupBox>("head"));
}

void TestZorvaHeadline::indicatorIsPaintedAsTheStyleWould_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("leftToRight");
    QTest::addColumn<qreal>("ratio");
    for (int bits = 0; bits < 8; ++bits) {
        for (const qreal ratio : {1.0, 1.25, 2.0})
            QTest::addRow("%d at %g", bits, ratio) << !(bits & 1) << !(bits & 2) << !(bits & 4) << ratio;
    }
}

void TestZorvaHeadline::indicatorIsPaintedAsTheStyleWould()
{
    QFETCH(const bool, open);
    QFETCH(const bool, enabled);
    QFETCH(const bool, leftToRight);
    QFETCH(const qreal, ratio);
    FormFixture form(gainGroup());
    form.show();
    auto* const box = form.control<QGroupBox>("head");
    box->setLayoutDirection(leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
    box->setChecked(open);
    box->setEnabled(enabled);
    const QImage painted = imageOf(box, ratio);
    box->setStyleSheet(box->styleSheet() + QLatin1Char(' ')); // which the style alone can read
    const QImage byStyle = imageOf(box, ratio);
    QCOMPARE(painted, byStyle);
    box->setStyleSheet(QString());
    QVERIFY(imageOf(box, ratio) != byStyle);
}

void TestZorvaHeadline::indicatorFollowsOtherSheets_data()
{
    QTest::addColumn<bool>("ofTheProgram");
    QTest::newRow("program") << true;
    QTest::newRow("window") << false;
}

void TestZorvaHeadline::indicatorFollowsOtherSheets()
{
    QFETCH(const bool, ofTheProgram);
    FormFixture form(gainGroup());
    form.show();
    auto* const box = form.control<QGroupBox>("head");
    const QImage before = imageOf(box);
    const QString sheet = QStringLiteral("QGroupBox::indicator {background: #ff0000;}");
    if (ofTheProgram)
        qApp->setStyleSheet(sheet);
    else
        box->window()->setStyleSheet(sheet);
    const QColor shown = imageOf(box).pixelColor(1, box->height() / 2);
    qApp->setStyleSheet(QString());
    box->window()->setStyleSheet(QString());
    QCOMPARE(shown, QColor(0xff, 0, 0));
    QCOMPARE(imageOf(box), before);
}

QTEST_MAIN(TestZorvaHeadline)
#include "tst_zorvaheadline.moc"
