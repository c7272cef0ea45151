#include <formtest.h>

#include <zorvaparser/widgets/zorvapushbutton.h>

#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include <sys/stat.h>

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
    void iconSizeIsBounded();
    void onlyImagesOfRegularFilesAreTaken_data();
    void onlyImagesOfRegularFilesAreTaken();
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

void TestZorvaPushButton::iconSizeIsBounded()
{
    FormFixture form(startRow());
    auto* const row = form.delegate<ZorvaPushButton>("start");
    const auto* const button = form.control<QPushButton>("start");
    row->setIcon(QStringLiteral(":/ZorvaParser/Open.svg"));
    const auto isBounded = [&] {
        const QSize size = button->iconSize();
        return size.width() <= 1024 && size.height() <= 1024 && row->property("iconSize").toSize() == size;
    };
    row->setIconSize(40000, 40000);
    QVERIFY(isBounded());
    QCOMPARE(button->iconSize(), QSize(1024, 1024));
    row->setIconSize(QSize(2147483647, 16));
    QVERIFY(isBounded());
    QCOMPARE(button->iconSize().height(), 16);
    row->setProperty("iconSize", QSize(16, 100000));
    QVERIFY(isBounded());
    form.evaluate(QStringLiteral("start.setIconSize(50000, 50000)"));
    QVERIFY(isBounded());
    form.show();
    FormFixture early(startRow(), FormFixture::Parsed);
    early.row("start")->setProperty("iconSize", QSize(40000, 40000));
    early.createValues();
    early.createGui();
    QCOMPARE(early.control<QPushButton>("start")->iconSize(), QSize(1024, 1024));
}

void TestZorvaPushButton::onlyImagesOfRegularFilesAreTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // null: something that is no file
    QTest::addColumn<bool>("isTaken");

    const QByteArray drawing =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"8\" height=\"8\">%1</svg>";
    const auto with = [&](const char* element) { return QByteArray(drawing).replace("%1", element); };
    QTest::newRow("drawing") << "a.svg" << with("<rect width=\"5\" height=\"5\"/>") << true;
    QTest::newRow("drawing with a picture inside")
        << "a.svg"
        << with("<image width=\"1\" height=\"1\" "
                "xlink:href=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB"
                "CAAAAAA6fptVAAAACklEQVR4nGNgAAAAAgABSK+kcQAAAABJRU5ErkJggg==\"/>")
        << true;
    QTest::newRow("drawing with a link") << "a.svg" << with("<a xlink:href=\"/dev/zero\"/>") << true;
    QTest::newRow("drawing that names a file")
        << "a.svg" << with("<image width=\"5\" height=\"5\" xlink:href=\"/dev/zero\"/>") << false;
    QTest::newRow("drawing under another name")
        << "a.png" << with("<image width=\"5\" height=\"5\" xlink:href=\"/dev/zero\"/>") << false;
    QTest::newRow("compressed drawing") << "a.svgz" << QByteArray("\x1f\x8b\x08") << false;
    QTest::newRow("drawing that hides a name")
        << "a.svg"
        << "<!DOCTYPE svg [<!ENTITY f \"/dev/zero\">]>" + with("<image xlink:href='&f;'/>") << false;
    QTest::newRow("pipe") << "pipe.png" << QByteArray() << false;
    QTest::newRow("folder") << "" << QByteArray() << false;
}

void TestZorvaPushButton::onlyImagesOfRegularFilesAreTaken()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(bool, isTaken);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    if (content.isNull()) {
        if (!name.isEmpty())
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    FormFixture form(startRow());
    auto* const row = form.delegate<ZorvaPushButton>("start");
    row->setIcon(path);
    QCOMPARE(!row->property("icon").value<QIcon>().isNull(), isTaken);
    form.evaluate(QStringLiteral("start.setIcon('%1')").arg(path));
    QCOMPARE(!row->property("icon").value<QIcon>().isNull(), isTaken);
    form.show();
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
