#include <layout/bulkchange.h>
#include <layout/floatgrouplayout.h>
#include <layout/floatscrollarea.h>

#include "fakeitem.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>
#include <memory>

namespace {

class Form
{
public:
    Form()
    {
        area.setWidget(content);
        layout = new FloatGroupLayout(&area);
        for (int i = 0; i < 40; ++i)
            addRow(i);
        counter = new FakeItem(QSize(0, 0));
        layout->addItem(counter);
        area.resize(520, 420);
        area.show();
    }

    void settle()
    {
        for (int turn = 0; turn < 10; ++turn)
            QCoreApplication::processEvents();
    }

    FloatScrollArea area;
    QWidget* content = new QWidget;
    FloatGroupLayout* layout;
    FakeItem* counter; // asked once per arrangement
    QVector<QWidget*> controls;

private:
    void addRow(int i)
    {
        if (i % 10 == 0)
            layout->addHeadline(QStringLiteral("Group %1").arg(i / 10), 6, "head");
        layout->addLabel(QStringLiteral("Row %1").arg(i), "label");
        QWidget* control = nullptr;
        if (i % 3 == 0)
            control = new QSpinBox;
        else if (i % 3 == 1)
            control = new QLineEdit(QStringLiteral("text"));
        else
            control = new QCheckBox(QStringLiteral("on"));
        layout->addWidget(control);
        layout->addGroup();
        controls.append(control);
    }
};

using Change = std::function<void(Form&)>;

void hideSome(Form& form)
{
    for (int i = 0; i < form.controls.count(); i += 2)
        form.controls.at(i)->hide();
}

void showAll(Form& form)
{
    for (QWidget* control : qAsConst(form.controls))
        control->show();
}

// What stands on the screen, not what a fresh painting would give.
QImage onScreen(const QWidget& window)
{
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

// A display server maps and paints a window when it comes to it, later than
// Qt calls it exposed; what is still old in the end was never asked for.
bool allOnScreen(QWidget& window)
{
    return QTest::qWaitFor([&window] {
        const QImage screen = onScreen(window);
        return screen == window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    });
}

// Without a focus to pass on, which scrolls to wherever its next holder stands
// at that moment.
void disableAll(Form& form)
{
    if (QWidget* holder = form.content->focusWidget())
        holder->clearFocus();
    for (QWidget* control : qAsConst(form.controls))
        control->setEnabled(false);
}

void fillAll(Form& form)
{
    for (QWidget* control : qAsConst(form.controls)) {
        if (auto* edit = qobject_cast<QLineEdit*>(control))
            edit->setText(QStringLiteral("changed"));
        else if (auto* spin = qobject_cast<QSpinBox*>(control))
            spin->setValue(42);
        else if (auto* box = qobject_cast<QCheckBox*>(control))
            box->setChecked(true);
    }
}

void enlargeText(Form& form)
{
    QFont font = form.content->font();
    font.setPointSize(font.pointSize() + 4);
    form.content->setFont(font);
}

// Counts the requests for painting that a widget hears while it would follow them.
class RequestCounter : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::UpdateLater && static_cast<QWidget*>(watched)->updatesEnabled())
            ++followed;
        return false;
    }

    int followed = 0;
};

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_BulkChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A caret that blinks would repaint what the form itself failed to.
    void initTestCase() { QApplication::setCursorFlashTime(0); }
    void cleanup() { QVERIFY(QApplication::topLevelWidgets().isEmpty()); }

    void samePicture_data();
    void samePicture();
    void shownChildIsPainted();
    void oneArrangement();
    void onlyTheOutermostActs();
    void contentsAreApart();
    void nullAndHiddenContent();
    void contentDies();
    void layoutDies();
    void switchedOffByTheHost();
    void switchedOffMeanwhile();
    void childrenSwitchedOffStaySo();
    void layoutSwitchedOffByTheHost();
    void requestDeliveredMeanwhile();
    void theLoopTurnsMeanwhile();
    void paintingAlone();
    void layoutInsideOfPainting();
    void shownAgain_data();
    void shownAgain();
    void shownAgainAsTheHostLeftIt();
    void shownAgainInATab();
    void comingOnScreen_data() { shownAgain_data(); }
    void comingOnScreen();
    void comingOnScreenWhileVisible();
    void comingOnScreenIsCalledOff();
};

void tst_BulkChange::samePicture_data()
{
    QTest::addColumn<Change>("before");
    QTest::addColumn<Change>("change");
    const Change nothing = [](Form&) {};
    QTest::newRow("hide") << nothing << Change(hideSome);
    QTest::newRow("show") << Change(hideSome) << Change(showAll);
    QTest::newRow("hide and show") << nothing << Change([](Form& form) {
        hideSome(form);
        showAll(form);
    });
    QTest::newRow("disable") << nothing << Change(disableAll);
    QTest::newRow("fill") << nothing << Change(fillAll);
    QTest::newRow("larger text") << nothing << Change(enlargeText);
    QTest::newRow("everything") << Change(hideSome) << Change([](Form& form) {
        fillAll(form);
        showAll(form);
        enlargeText(form);
        disableAll(form);
    });
}

void tst_BulkChange::samePicture()
{
    QFETCH(Change, before);
    QFETCH(Change, change);
    QImage pictures[2];
    for (int guarded = 0; guarded < 2; ++guarded) {
        Form form;
        QVERIFY(QTest::qWaitForWindowExposed(&form.area));
        before(form);
        form.settle();
        {
            BulkChange bulk(guarded ? form.content : nullptr);
            change(form);
        }
        form.settle();
        QVERIFY(allOnScreen(form.area));
        pictures[guarded] = onScreen(form.area);
    }
    QCOMPARE(pictures[0], pictures[1]);
}

void tst_BulkChange::shownChildIsPainted()
{
    Form form;
    QVERIFY(QTest::qWaitForWindowExposed(&form.area));
    QWidget* control = form.controls.first();
    control->hide();
    form.settle();
    QVERIFY(allOnScreen(form.area));
    const QImage without = onScreen(form.area);
    {
        BulkChange bulk(form.content);
        control->show();
        QVERIFY(control->isVisible());
    }
    form.settle();
    QVERIFY(allOnScreen(form.area));
    const QImage with = onScreen(form.area);
    QVERIFY(control->isVisible());
    QVERIFY(control->updatesEnabled());
    const QRect place(control->mapTo(&form.area, QPoint(0, 0)), control->size());
    QVERIFY(with.copy(place) != without.copy(place));
}

void tst_BulkChange::oneArrangement()
{
    Form form;
    QVERIFY(QTest::qWaitForWindowExposed(&form.area));
    form.area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    hideSome(form);
    form.settle();
    form.counter->queries = 0;
    {
        BulkChange bulk(form.content);
        showAll(form);
        QCOMPARE(form.counter->queries, 0);
    }
    QCOMPARE(form.counter->queries, 0);
    form.settle();
    QCOMPARE(form.counter->queries, 1);
}

void tst_BulkChange::onlyTheOutermostActs()
{
    Form form;
    BulkChange outer(form.content);
    {
        BulkChange inner(form.content);
        QVERIFY(!form.layout->isEnabled());
    }
    QVERIFY(!form.layout->isEnabled());
    QVERIFY(!form.content->updatesEnabled());
}

void tst_BulkChange::contentsAreApart()
{
    Form one;
    Form other;
    BulkChange outer(one.content);
    {
        BulkChange inner(other.content);
        QVERIFY(!other.layout->isEnabled());
    }
    QVERIFY(other.layout->isEnabled());
    QVERIFY(other.controls.first()->updatesEnabled());
    QVERIFY(!one.layout->isEnabled());
}

void tst_BulkChange::nullAndHiddenContent()
{
    BulkChange none(nullptr);
    Form form;
    form.area.hide();
    BulkChange bulk(form.content);
    QVERIFY(form.layout->isEnabled());
    QVERIFY(form.content->updatesEnabled());
}

void tst_BulkChange::contentDies()
{
    auto form = std::make_unique<Form>();
    BulkChange outer(form->content);
    BulkChange inner(form->content);
    form.reset();
    Form next;
    BulkChange other(next.content);
    QVERIFY(!next.layout->isEnabled());
}

void tst_BulkChange::layoutDies()
{
    Form form;
    {
        BulkChange bulk(form.content);
        delete form.layout;
    }
    QVERIFY(form.content->updatesEnabled());
}

void tst_BulkChange::switchedOffByTheHost()
{
    Form form;
    form.content->setUpdatesEnabled(false);
    {
        BulkChange bulk(form.content);
    }
    QVERIFY(!form.content->updatesEnabled());
    QVERIFY(!form.controls.first()->updatesEnabled());
    form.content->setUpdatesEnabled(true);
    QVERIFY(form.controls.first()->updatesEnabled());
    form.area.setUpdatesEnabled(false);
    {
        BulkChange bulk(form.content);
    }
    QVERIFY(!form.controls.first()->updatesEnabled());
    form.area.setUpdatesEnabled(true);
    QVERIFY(form.controls.first()->updatesEnabled());
}

void tst_BulkChange::switchedOffMeanwhile()
{
    Form form;
    {
        BulkChange bulk(form.content);
        form.content->setUpdatesEnabled(false);
    }
    QVERIFY(!form.content->updatesEnabled());
    form.content->setUpdatesEnabled(true);
    QVERIFY(form.controls.first()->updatesEnabled());
    {
        BulkChange bulk(form.content);
        form.area.setUpdatesEnabled(false);
    }
    QVERIFY(!form.content->updatesEnabled());
    form.area.setUpdatesEnabled(true);
    QVERIFY(form.content->updatesEnabled());
    QVERIFY(form.controls.first()->updatesEnabled());
}

void tst_BulkChange::childrenSwitchedOffStaySo()
{
    Form form;
    form.controls.first()->setUpdatesEnabled(false);
    {
        BulkChange bulk(form.content);
        form.controls.last()->setUpdatesEnabled(false);
    }
    QVERIFY(!form.controls.first()->updatesEnabled());
    QVERIFY(!form.controls.last()->updatesEnabled());
    QVERIFY(form.controls.at(1)->updatesEnabled());
}

void tst_BulkChange::layoutSwitchedOffByTheHost()
{
    Form form;
    form.layout->setEnabled(false);
    {
        BulkChange bulk(form.content);
    }
    QVERIFY(!form.layout->isEnabled());
}

void tst_BulkChange::requestDeliveredMeanwhile()
{
    Form form;
    QVERIFY(QTest::qWaitForWindowExposed(&form.area));
    form.settle();
    QWidget* below = form.controls.at(1);
    const int top = below->y();
    {
        BulkChange bulk(form.content);
        form.content->findChild<QGroupBox*>()->hide();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCOMPARE(below->y(), top);
    }
    form.settle();
    QVERIFY(below->y() < top);
}

// A host may answer a change with a dialog of its own.
void tst_BulkChange::theLoopTurnsMeanwhile()
{
    Form form;
    form.settle();
    const int arranged = form.counter->queries;
    const BulkChange bulk(form.content);
    hideSome(form);
    QVERIFY(!form.content->updatesEnabled());
    form.settle();
    QVERIFY(form.content->updatesEnabled());
    QVERIFY(form.controls.at(1)->updatesEnabled());
    QVERIFY(form.layout->isEnabled());
    QVERIFY(form.counter->queries > arranged);
    // What changes behind the turn is no part of the bulk any more.
    showAll(form);
    QVERIFY(form.content->updatesEnabled());
}

void tst_BulkChange::paintingAlone()
{
    Form form;
    {
        BulkChange bulk(form.content, BulkChange::Painting);
        QVERIFY(form.layout->isEnabled());
        QVERIFY(!form.controls.first()->updatesEnabled());
    }
    QVERIFY(form.controls.first()->updatesEnabled());
}

void tst_BulkChange::layoutInsideOfPainting()
{
    Form form;
    BulkChange outer(form.content, BulkChange::Painting);
    {
        BulkChange inner(form.content);
        QVERIFY(!form.layout->isEnabled());
    }
    QVERIFY(form.layout->isEnabled());
    QVERIFY(!form.content->updatesEnabled());
}

void tst_BulkChange::shownAgain_data()
{
    QTest::addColumn<Change>("whileHidden");
    QTest::newRow("unchanged") << Change([](Form&) {});
    QTest::newRow("rows hidden") << Change(hideSome);
    QTest::newRow("new content") << Change(fillAll);
    QTest::newRow("disabled") << Change(disableAll);
    QTest::newRow("larger text") << Change(enlargeText);
}

void tst_BulkChange::shownAgain()
{
    QFETCH(Change, whileHidden);
    Form form;
    QVERIFY(QTest::qWaitForWindowExposed(&form.area));
    form.settle();
    RequestCounter requests;
    for (QWidget* control : qAsConst(form.controls))
        control->installEventFilter(&requests);
    form.area.hide();
    form.settle();
    whileHidden(form);
    form.area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form.area));
    form.settle();
    QCOMPARE(requests.followed, 0);
    QVERIFY(allOnScreen(form.area));
    for (QWidget* control : qAsConst(form.controls))
        QVERIFY(control->updatesEnabled());
}

void tst_BulkChange::shownAgainAsTheHostLeftIt()
{
    Form form;
    form.area.hide();
    form.controls.first()->setUpdatesEnabled(false);
    form.controls.last()->hide();
    form.area.show();
    QVERIFY(!form.controls.first()->updatesEnabled());
    QVERIFY(!form.controls.last()->isVisible());
    QVERIFY(form.layout->isEnabled());
    form.area.hide();
    form.content->setUpdatesEnabled(false);
    form.area.show();
    QVERIFY(!form.content->updatesEnabled());
    QVERIFY(!form.controls.at(1)->updatesEnabled());
}

void tst_BulkChange::shownAgainInATab()
{
    QTabWidget tabs;
    Form form;
    tabs.addTab(&form.area, QStringLiteral("form"));
    tabs.addTab(new QWidget, QStringLiteral("other"));
    tabs.resize(560, 480);
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    form.settle();
    tabs.setCurrentIndex(1);
    QVERIFY(!form.content->isVisible());
    tabs.setCurrentIndex(0);
    QVERIFY(form.content->isVisible());
    QVERIFY(form.content->updatesEnabled());
    form.settle();
    QVERIFY(allOnScreen(tabs));
    form.area.setParent(nullptr);
}

void tst_BulkChange::comingOnScreen()
{
    QFETCH(Change, whileHidden);
    QImage pictures[2];
    for (int guarded = 0; guarded < 2; ++guarded) {
        Form form;
        QVERIFY(QTest::qWaitForWindowExposed(&form.area));
        form.area.hide();
        form.settle();
        whileHidden(form);
        {
            BulkChange bulk(guarded ? form.content : nullptr, BulkChange::ComingOnScreen);
            form.area.show();
            QCOMPARE(form.controls.at(1)->updatesEnabled(), !guarded);
        }
        QVERIFY(QTest::qWaitForWindowExposed(&form.area));
        QVERIFY(form.content->updatesEnabled());
        for (QWidget* control : qAsConst(form.controls))
            QVERIFY(control->updatesEnabled());
        form.settle();
        QVERIFY(allOnScreen(form.area));
        pictures[guarded] = onScreen(form.area);
    }
    QCOMPARE(pictures[0], pictures[1]);
}

void tst_BulkChange::comingOnScreenWhileVisible()
{
    Form form;
    BulkChange bulk(form.content, BulkChange::ComingOnScreen);
    QVERIFY(form.content->updatesEnabled());
    QVERIFY(form.controls.first()->updatesEnabled());
    QVERIFY(form.layout->isEnabled());
}

void tst_BulkChange::comingOnScreenIsCalledOff()
{
    Form form;
    form.area.hide();
    form.controls.first()->setUpdatesEnabled(false);
    {
        BulkChange bulk(form.content, BulkChange::ComingOnScreen);
        QVERIFY(!form.content->updatesEnabled());
    }
    QVERIFY(form.content->updatesEnabled());
    QVERIFY(!form.controls.first()->updatesEnabled());
    QVERIFY(form.controls.at(1)->updatesEnabled());
}

QTEST_MAIN(tst_BulkChange)
#include "tst_bulkchange.moc"
