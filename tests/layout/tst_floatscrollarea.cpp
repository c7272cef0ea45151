#include <layout/floatgrouplayout.h>
#include <layout/floatscrollarea.h>

#include "fakeitem.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace {

class SizedBar : public QScrollBar
{
public:
    SizedBar(Qt::Orientation orientation, const QSize& hint)
        : QScrollBar(orientation)
        , m_hint(hint)
    {
    }
    QSize sizeHint() const override { return m_hint; }

private:
    QSize m_hint;
};

class CountingArea : public FloatScrollArea
{
public:
    using FloatScrollArea::FloatScrollArea;
    int resizes = 0;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        ++resizes;
        FloatScrollArea::resizeEvent(event);
    }
};

// How wide a widget was each time that it was painted.
class PaintedWidths : public QObject
{
public:
    explicit PaintedWidths(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            widths.append(static_cast<QWidget*>(watched)->width());
        return false;
    }

    QVector<int> widths;
};

// A window with an area full of sections, and a bar below as forms have it.
class Window : public QWidget
{
public:
    Window()
    {
        auto* box = new QVBoxLayout(this);
        box->setContentsMargins(0, 0, 0, 0);
        area->setWidget(content);
        layout = new FloatGroupLayout(area);
        box->addWidget(area);
    }

    void addSection(int count, int width = 100, int height = 20)
    {
        layout->addSection("section");
        for (int i = 0; i < count; ++i) {
            layout->addGroup();
            auto* row = new QFrame;
            row->setFixedSize(width, height);
            layout->addWidget(row);
            rows.append(row);
        }
        layout->addGroup();
    }

    // Runs what is posted; false if there is no end to it.
    bool settle()
    {
        const int limit = area->resizes + 200;
        for (int turn = 0; turn < 20; ++turn)
            QCoreApplication::processEvents();
        return area->resizes < limit;
    }

    // Empty, or what is wrong with what stands on the screen.
    QString flaw() const
    {
        const QSize room = area->viewport()->size();
        const bool vertical = area->verticalScrollBar()->isVisible();
        const bool horizontal = area->horizontalScrollBar()->isVisible();
        const int bar = area->verticalScrollBar()->sizeHint().width();
        if (room != QSize(area->width() - (vertical ? bar : 0), area->height() - (horizontal ? bar : 0)))
            return QStringLiteral("the viewport does not fill the area");
        if (vertical && content->height() <= room.height())
            return QStringLiteral("stale vertical bar");
        if (horizontal && content->width() <= room.width())
            return QStringLiteral("stale horizontal bar");
        if (!vertical && content->height() != room.height())
            return QStringLiteral("content and viewport differ in height");
        if (!horizontal && room.width() - content->width() > bar)
            return QStringLiteral("gap at the right");
        if (content->geometry().right() < 0 || content->x() > 0 || content->y() > 0)
            return QStringLiteral("content off the place");
        return arrangementFlaw();
    }

    CountingArea* area = new CountingArea;
    QWidget* content = new QWidget;
    FloatGroupLayout* layout;
    QVector<QWidget*> rows;

private:
    QString arrangementFlaw() const
    {
        QVector<QRect> shown;
        for (const QWidget* row : rows)
            shown.append(row->isHidden() ? QRect() : row->geometry());
        const QSize minimum = content->minimumSize();
        layout->invalidate();
        layout->setGeometry(QRect(QPoint(0, 0), content->size()));
        if (content->minimumSize() != minimum)
            return QStringLiteral("the minimum is not that of the arrangement");
        for (int i = 0; i < rows.count(); ++i) {
            if (!rows.at(i)->isHidden() && rows.at(i)->geometry() != shown.at(i))
                return QStringLiteral("row %1 is not where it belongs").arg(i);
        }
        return {};
    }
};

} // namespace

#define VERIFY_SETTLED(window)                                                                               \
    QVERIFY2((window).settle(), "no end to resizing");                                                       \
    QCOMPARE((window).flaw(), QString())

class tst_FloatScrollArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QVERIFY(QApplication::topLevelWidgets().isEmpty()); }

    void properties();
    void minimumSizeHint_data();
    void minimumSizeHint();
    void withoutContent();
    void resizeEventReleasesTheMinimum();
    void resize_data();
    void resize();
    void draggedWhileRowsComeAndGo();
    void shorterBesideTheBarThanAlone();
    void heldWidthEndsWithItsNeed();
    void equalsThePlainRuleAtRest();
    void wideRowBringsTheHorizontalBar();
    void hiddenAndResized();
    void itemsAreAskedSeldomPerResize_data();
    void itemsAreAskedSeldomPerResize();
    void paintedAtItsNewWidthOnly_data();
    void paintedAtItsNewWidthOnly();
    void itemsAreAskedOncePerChange_data();
    void itemsAreAskedOncePerChange();
    void itemThatChangesInItsPlaceIsAskedAgain();
};

void tst_FloatScrollArea::properties()
{
    FloatScrollArea area;
    QCOMPARE(area.focusPolicy(), Qt::NoFocus);
    QCOMPARE(area.frameShape(), QFrame::NoFrame);
    QCOMPARE(area.frameShadow(), QFrame::Plain);
    QVERIFY(area.widgetResizable());
}

void tst_FloatScrollArea::minimumSizeHint_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expected");
    QTest::newRow("below the limit") << 19 << 19;
    QTest::newRow("at the limit") << 20 << 20;
    QTest::newRow("cut") << 21 << 20;
}

void tst_FloatScrollArea::minimumSizeHint()
{
    QFETCH(int, height);
    QFETCH(int, expected);
    FloatScrollArea area;
    area.setVerticalScrollBar(new SizedBar(Qt::Vertical, QSize(5, 10)));
    area.setHorizontalScrollBar(new SizedBar(Qt::Horizontal, QSize(30, height - 10)));
    const QSize usual = area.QAbstractScrollArea::minimumSizeHint();
    QCOMPARE(usual.height(), height);
    QCOMPARE(area.minimumSizeHint(), QSize(usual.width(), expected));
}

void tst_FloatScrollArea::withoutContent()
{
    FloatScrollArea area;
    area.show();
    area.resize(100, 100);
    QCoreApplication::processEvents();
    area.setWidget(new QWidget);
    area.resize(200, 100);
    QCoreApplication::processEvents();
    QCOMPARE(area.widget()->size(), area.viewport()->size());
}

void tst_FloatScrollArea::resizeEventReleasesTheMinimum()
{
    FloatScrollArea area;
    auto* content = new QWidget;
    area.setWidget(content);
    content->setMinimumSize(500, 500);
    area.show();
    area.resize(200, 150);
    QCoreApplication::processEvents();
    QCOMPARE(content->minimumSize(), QSize(10, 10));
    QCOMPARE(content->size(), area.viewport()->size());
}

void tst_FloatScrollArea::resize_data()
{
    QTest::addColumn<QVector<QSize>>("sizes");
    using Sizes = QVector<QSize>;
    QTest::newRow("wider") << Sizes{{150, 400}, {1200, 400}};
    QTest::newRow("narrower") << Sizes{{1200, 400}, {150, 400}};
    QTest::newRow("taller") << Sizes{{300, 100}, {300, 900}};
    QTest::newRow("shorter") << Sizes{{300, 900}, {300, 100}};
    QTest::newRow("smaller both ways") << Sizes{{1200, 900}, {140, 60}};
    QTest::newRow("larger both ways") << Sizes{{140, 60}, {1200, 900}};
    QTest::newRow("to a strip and back") << Sizes{{600, 300}, {600, 20}, {600, 300}};
    QTest::newRow("to and fro") << Sizes{{600, 300}, {250, 300}, {600, 300}, {250, 700}, {900, 120}};
}

void tst_FloatScrollArea::resize()
{
    QFETCH(QVector<QSize>, sizes);
    Window window;
    for (int rows : {4, 7, 2, 9, 5})
        window.addSection(rows);
    window.resize(sizes.first());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    VERIFY_SETTLED(window);
    for (const QSize& size : qAsConst(sizes)) {
        window.resize(size);
        QTRY_COMPARE(window.size(), size);
        VERIFY_SETTLED(window);
    }
}

void tst_FloatScrollArea::draggedWhileRowsComeAndGo()
{
    Window window;
    for (int rows : {4, 7, 2, 9, 5, 3})
        window.addSection(rows);
    window.resize(100, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    int step = 0;
    const auto drag = [&](int width, int height) {
        window.resize(width, height);
        QWidget* row = window.rows.at(step % window.rows.count());
        row->setVisible(row->isHidden());
        ++step;
        QTRY_COMPARE(window.size(), QSize(width, height));
        VERIFY_SETTLED(window);
    };
    for (int width = 100; width < 800; width += 9)
        drag(width, 300 - width / 4);
    for (int width = 800; width > 100; width -= 13)
        drag(width, 60 + width / 3);
}

// Seven sections of which four columns are taller than three: at some widths
// the form needs a bar without a bar and none beside one.
void tst_FloatScrollArea::shorterBesideTheBarThanAlone()
{
    Window window;
    for (int height : {10, 10, 150, 150, 10, 10, 10})
        window.addSection(1, 92, height);
    window.resize(440, 220);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (int width = 450; width > 400; --width) {
        window.resize(width, 220);
        QTRY_COMPARE(window.width(), width);
        VERIFY_SETTLED(window);
    }
    window.resize(450, 220);
    QTRY_COMPARE(window.width(), 450);
    window.resize(425, 220);
    QTRY_COMPARE(window.width(), 425);
    VERIFY_SETTLED(window);
    QVERIFY(!window.area->verticalScrollBar()->isVisible());
    const int before = window.area->resizes;
    window.rows.first()->hide();
    VERIFY_SETTLED(window);
    QVERIFY(window.area->resizes - before < 10);
}

void tst_FloatScrollArea::heldWidthEndsWithItsNeed()
{
    Window window;
    for (int height : {10, 10, 150, 150, 10, 10, 10})
        window.addSection(1, 92, height);
    window.resize(425, 220);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    VERIFY_SETTLED(window);
    QVERIFY(window.content->width() < window.area->viewport()->width());
    window.rows.at(2)->hide();
    VERIFY_SETTLED(window);
    QCOMPARE(window.content->width(), window.area->viewport()->width());
    window.rows.at(2)->show();
    VERIFY_SETTLED(window);
    QVERIFY(!window.area->verticalScrollBar()->isVisible());
}

// Wherever the plain rule comes to rest, the area equals it: full width without
// a bar if the rows fit so.
void tst_FloatScrollArea::equalsThePlainRuleAtRest()
{
    Window window;
    for (int height : {10, 60, 150, 150, 10, 90, 10, 40})
        window.addSection(1, 92, height);
    window.resize(425, 220);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QRandomGenerator random(7);
    for (int step = 0; step < 300; ++step) {
        QWidget* row = window.rows.at(random.bounded(window.rows.count()));
        row->setVisible(row->isHidden());
        if (random.bounded(4) == 0)
            window.resize(150 + random.bounded(600), 60 + random.bounded(300));
        VERIFY_SETTLED(window);
        const QSize full = window.area->maximumViewportSize();
        window.layout->invalidate();
        const bool fits = window.content->heightForWidth(full.width()) <= full.height();
        window.layout->invalidate();
        if (fits && !window.area->horizontalScrollBar()->isVisible()) {
            QVERIFY2(!window.area->verticalScrollBar()->isVisible(), qPrintable(QString::number(step)));
            QCOMPARE(window.content->width(), full.width());
        }
    }
}

void tst_FloatScrollArea::wideRowBringsTheHorizontalBar()
{
    Window window;
    window.addSection(3, 500);
    window.addSection(3);
    window.resize(300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    VERIFY_SETTLED(window);
    QVERIFY(window.area->horizontalScrollBar()->isVisible());
    for (int i = 0; i < 3; ++i)
        window.rows.at(i)->hide();
    VERIFY_SETTLED(window);
    QVERIFY(!window.area->horizontalScrollBar()->isVisible());
    window.rows.first()->show();
    VERIFY_SETTLED(window);
    QVERIFY(window.area->horizontalScrollBar()->isVisible());
    window.resize(700, 200);
    QTRY_COMPARE(window.width(), 700);
    VERIFY_SETTLED(window);
    QVERIFY(!window.area->horizontalScrollBar()->isVisible());
}

void tst_FloatScrollArea::hiddenAndResized()
{
    Window window;
    for (int rows : {4, 7, 2})
        window.addSection(rows);
    window.resize(400, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.hide();
    window.resize(150, 100);
    window.rows.first()->hide();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    VERIFY_SETTLED(window);
}

void tst_FloatScrollArea::itemsAreAskedSeldomPerResize_data()
{
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::addColumn<int>("most"); // once more if the content gets its size ahead of the viewport
    QTest::newRow("without a bar") << QSize(1200, 900) << QSize(1300, 950) << 2;
    QTest::newRow("beside a bar") << QSize(300, 100) << QSize(330, 120) << 1;
    QTest::newRow("the bar comes") << QSize(1200, 900) << QSize(300, 100) << 2;
    QTest::newRow("the bar goes") << QSize(300, 100) << QSize(1200, 900) << 2;
    QTest::newRow("lower") << QSize(1200, 900) << QSize(1200, 60) << 2;
}

void tst_FloatScrollArea::itemsAreAskedSeldomPerResize()
{
    QFETCH(QSize, from);
    QFETCH(QSize, to);
    QFETCH(int, most);
    Window window;
    for (int rows : {4, 7, 2, 9, 5})
        window.addSection(rows);
    auto* counter = new FakeItem(QSize(0, 0));
    window.layout->addItem(counter);
    window.resize(from);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.settle());
    counter->queries = 0;
    window.resize(to);
    QTRY_COMPARE(window.size(), to);
    QVERIFY(window.settle());
    QVERIFY2(counter->queries <= most, QByteArray::number(counter->queries).constData());
}

// A bar that comes is another matter: Qt shows it a turn of the event loop later.
void tst_FloatScrollArea::paintedAtItsNewWidthOnly_data()
{
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::newRow("wider beside the bar") << QSize(300, 100) << QSize(330, 100);
    QTest::newRow("narrower beside the bar") << QSize(330, 100) << QSize(300, 100);
    QTest::newRow("the bar goes") << QSize(300, 100) << QSize(1200, 900);
    QTest::newRow("without a bar") << QSize(1200, 900) << QSize(1300, 950);
}

void tst_FloatScrollArea::paintedAtItsNewWidthOnly()
{
    QFETCH(const QSize, from);
    QFETCH(const QSize, to);
    Window window;
    for (int rows : {4, 7, 2, 9, 5})
        window.addSection(rows);
    window.resize(from);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.settle());
    const PaintedWidths painted(window.content);
    window.resize(to);
    QTRY_VERIFY(!painted.widths.isEmpty());
    QVERIFY(window.settle());
    QCOMPARE(painted.widths, QVector<int>(painted.widths.count(), window.content->width()));
}

void tst_FloatScrollArea::itemsAreAskedOncePerChange_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("without a bar") << QSize(1200, 900);
    QTest::newRow("beside a bar") << QSize(300, 100);
    QTest::newRow("the bar comes and goes") << QSize(140, 700);
}

void tst_FloatScrollArea::itemsAreAskedOncePerChange()
{
    QFETCH(const QSize, size);
    Window window;
    for (int rows : {4, 7, 2, 9, 5})
        window.addSection(rows);
    auto* counter = new FakeItem(QSize(0, 0));
    window.layout->addItem(counter);
    window.resize(size);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const bool shown : {false, true}) {
        QVERIFY(window.settle());
        counter->queries = 0;
        window.rows.first()->setVisible(shown);
        QVERIFY(window.settle());
        QCOMPARE(counter->queries, 1);
    }
}

// What an item answers to its new place counts for the same resize.
void tst_FloatScrollArea::itemThatChangesInItsPlaceIsAskedAgain()
{
    class Growing : public QFrame
    {
    protected:
        void resizeEvent(QResizeEvent* event) override
        {
            setFixedHeight(event->size().width() > 150 ? 60 : 20);
        }
    };
    Window window;
    window.addSection(3, 200);
    auto* growing = new Growing;
    growing->setFixedSize(100, 20);
    window.layout->addWidget(growing);
    window.resize(400, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    growing->setMaximumWidth(QWIDGETSIZE_MAX);
    growing->setMinimumWidth(200);
    window.resize(500, 300);
    QVERIFY(window.settle());
    QCOMPARE(growing->height(), 60);
    QVERIFY(window.settle());
    QCOMPARE(window.flaw(), QString());
}

QTEST_MAIN(tst_FloatScrollArea)
#include "tst_floatscrollarea.moc"
