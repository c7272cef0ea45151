#include "enginetest.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;

namespace {

const QString twoRows = rowXml("LineEdit", "a") + rowXml("LineEdit", "b");

/// A form with an apply bar or without, and the announcements it makes.
struct Surface
{
    explicit Surface(bool withBar, const QList<FormProperty>& properties = {},
                     const QString& widgets = twoRows)
        : form(widgets, QString(), QString(), FormFixture::WithValues, properties)
        , announced(form.formular(), &ZorvaFormular::si_parametersModified)
    {
        form.formular()->CreateGUI(withBar);
        window.reset(form.formular()->GetGUI());
    }

    ZorvaDelegate* ui() const { return form.sheet().GetDelegate(); }
    QPushButton* button() const { return window->findChild<QPushButton*>(QStringLiteral("applyButton")); }
    QCheckBox* box() const { return window->findChild<QCheckBox*>(QStringLiteral("autoApply")); }
    QLineEdit* edit(const char* name) const
    {
        return window->findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    QScrollArea* area() const
    {
        auto* const self = qobject_cast<QScrollArea*>(window.get());
        return self ? self : window->findChild<QScrollArea*>();
    }
    /// Whether no timer of less than 250 ms that runs by now announces anything.
    bool staysSilent()
    {
        const int before = announced.count();
        ReferenceTimer(250).pass();
        return announced.count() == before;
    }
    /// What the sheet's delegate says, without the formular in between.
    void call(const char* slot) const { QVERIFY(QMetaObject::invokeMethod(ui(), slot)); }
    void call(const char* slot, bool argument) const
    {
        QVERIFY(QMetaObject::invokeMethod(ui(), slot, Q_ARG(bool, argument)));
    }

    FormFixture form;
    QSignalSpy announced;
    std::unique_ptr<QWidget> window;
};

/// Writes down the interval of each timer object that fires.
class FiredTimers : public QObject
{
public:
    FiredTimers() { qApp->installEventFilter(this); }
    QList<int> intervals;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const timer = event->type() == QEvent::Timer ? qobject_cast<QTimer*>(watched) : nullptr;
        if (timer && timer->isSingleShot())
            intervals << timer->interval();
        return false;
    }
};

/// Opens the right-button menu, hands its "Text size" submenu to `use` and closes it.
template <typename Use>
void withSizeMenu(QScrollArea* area, Use use)
{
    bool used = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu || used)
            return;
        used = true;
        use(menu);
        menu->close();
    });
    poll.start(5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), area->mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(area->viewport(), &event);
    QVERIFY(used);
}

QStringList describe(const QMenu* sizes)
{
    QStringList lines;
    for (const QAction* const action : sizes->actions()) {
        lines << QStringLiteral("%1 %2%3").arg(action->text(), action->data().toString(),
                                               action->isChecked() ? QStringLiteral(" checked") : QString());
    }
    return lines;
}

/// Sets the application's text size while it lives.
class ApplicationFont
{
public:
    explicit ApplicationFont(int size)
        : m_before(QApplication::font())
    {
        QFont font = m_before;
        font.setPointSize(size);
        QApplication::setFont(font);
    }
    ~ApplicationFont() { QApplication::setFont(m_before); }

private:
    QFont m_before;
};

} // namespace

class tst_zorvasheetui : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void surfaceWithABar()
    {
        const Surface surface(true);
        QCOMPARE(surface.window->objectName(), QStringLiteral("sheet"));
        QVERIFY(!surface.window->parentWidget());
        auto* const vertical = qobject_cast<QVBoxLayout*>(surface.window->layout());
        QVERIFY(vertical);
        QCOMPARE(vertical->contentsMargins(), QMargins());
        QCOMPARE(vertical->itemAt(0)->widget(), surface.area());
        QCOMPARE(surface.area()->widget()->objectName(), QStringLiteral("sheetArea"));
        QCOMPARE(surface.area()->objectName(), QString());
        QCOMPARE(surface.area()->contextMenuPolicy(), Qt::CustomContextMenu);
        QWidget* const bar = vertical->itemAt(1)->widget();
        QCOMPARE(bar->objectName(), QStringLiteral("applyButtonBox"));
        QCOMPARE(bar->layout()->contentsMargins(), QMargins());
        QCOMPARE(bar->layout()->itemAt(0)->widget(), surface.button());
        QCOMPARE(bar->layout()->itemAt(1)->widget(), surface.box());
        QCOMPARE(surface.button()->text(), QStringLiteral("Apply"));
        QCOMPARE(surface.button()->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(surface.button()->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QVERIFY(!surface.button()->isEnabled());
        QCOMPARE(surface.box()->text(), QStringLiteral("Auto Apply"));
        QVERIFY(surface.box()->isChecked());
    }

    void surfaceWithoutABar()
    {
        const Surface surface(false);
        QCOMPARE(surface.window.get(), surface.area());
        QCOMPARE(surface.window->objectName(), QStringLiteral("sheetArea"));
        QCOMPARE(surface.area()->widget()->objectName(), QString());
        QCOMPARE(surface.area()->contextMenuPolicy(), Qt::CustomContextMenu);
        QVERIFY(!surface.button());
        QVERIFY(!surface.box());
    }

    void surfaceIsBuiltOnce_data()
    {
        QTest::addColumn<bool>("first");
        QTest::addColumn<bool>("second");
        QTest::newRow("bar, bar") << true << true;
        QTest::newRow("bar, none") << true << false;
        QTest::newRow("none, bar") << false << true;
        QTest::newRow("none, none") << false << false;
    }

    void surfaceIsBuiltOnce()
    {
        QFETCH(bool, first);
        QFETCH(bool, second);
        const Surface surface(first);
        surface.form.formular()->CreateGUI(second);
        QCOMPARE(surface.form.formular()->GetGUI(), surface.window.get());
        QCOMPARE(bool(surface.button()), first);
        QCOMPARE(surface.window->findChildren<QLineEdit*>(QStringLiteral("a")).count(), 1);
    }

    void markMadeBeforeTheBarEnablesIt()
    {
        FormFixture form(twoRows, FormFixture::WithValues);
        form.row("a")->setModified(false);
        form.createGui();
        QVERIFY(form.control<QPushButton>("applyButton")->isEnabled());
    }

    void applyActsOnPressAndNotOnClick()
    {
        Surface surface(true, {{"autoApplyEnabled", false}});
        surface.window->show();
        QTest::keyClicks(surface.edit("a"), QStringLiteral("x"));
        QVERIFY(surface.button()->isEnabled());
        QCOMPARE(surface.announced.count(), 0);
        QTest::mousePress(surface.button(), Qt::LeftButton);
        QCOMPARE(surface.announced.count(), 1);
        // Let go beside the button: no click, and nothing to take back.
        QTest::mouseMove(surface.button(), QPoint(-50, -50));
        QTest::mouseRelease(surface.button(), Qt::LeftButton, Qt::NoModifier, QPoint(-50, -50));
        QCOMPARE(surface.announced.count(), 1);
        QTest::mouseClick(surface.button(), Qt::LeftButton);
        QCOMPARE(surface.announced.count(), 2);
    }

    void onlyFetchingTakesTheMark()
    {
        Surface surface(true, {{"autoApplyEnabled", false}});
        QTest::keyClicks(surface.edit("a"), QStringLiteral("x"));
        QTest::mouseClick(surface.button(), Qt::LeftButton);
        QVERIFY(surface.button()->isEnabled());
        QVERIFY(surface.form.sheet().isModified());
        QVERIFY(!surface.form.formular()->GetXmlString(true).isNull());
        QVERIFY(!surface.button()->isEnabled());
        QVERIFY(!surface.form.sheet().isModified());
        surface.form.formular()->applyNow();
        QCOMPARE(surface.announced.count(), 1);
    }

    void timerKeepsItsFloor_data()
    {
        QTest::addColumn<QString>("timeout");
        QTest::addColumn<int>("interval");
        QTest::newRow("zero") << "0" << 100;
        QTest::newRow("negative") << "-5000" << 100;
        QTest::newRow("just below") << "99" << 100;
        QTest::newRow("floor") << "100" << 100;
        QTest::newRow("above") << "130" << 130;
        QTest::newRow("unreadable") << "soon" << 1000;
        QTest::newRow("fraction is unreadable") << "0.5" << 1000;
    }

    void timerKeepsItsFloor()
    {
        QFETCH(QString, timeout);
        QFETCH(int, interval);
        Surface surface(true, {{"autoApplyTimeout", timeout}});
        FiredTimers fired;
        surface.form.row("a")->setModified(true);
        QCOMPARE(surface.announced.count(), 0);
        QTRY_COMPARE(surface.announced.count(), 1);
        QVERIFY(fired.intervals.contains(interval));
        // Once per burst of changes.
        QVERIFY(surface.staysSilent());
    }

    void missingTimeoutIsASecond()
    {
        Surface surface(true);
        FiredTimers fired;
        surface.form.row("a")->setModified(true);
        QTRY_COMPARE(surface.announced.count(), 1);
        QVERIFY(fired.intervals.contains(1000));
    }

    void timeoutChangedLaterHasNoEffect()
    {
        Surface surface(true, {{"autoApplyTimeout", 120}});
        QVERIFY(QMetaObject::invokeMethod(surface.ui(), "setAutoApplyTimeout", Q_ARG(int, 5000)));
        QCOMPARE(surface.ui()->property("autoApplyTimeout").toInt(), 5000);
        FiredTimers fired;
        surface.form.row("a")->setModified(true);
        QTRY_COMPARE(surface.announced.count(), 1);
        QVERIFY(fired.intervals.contains(120));
    }

    void everyChangeStartsTheIntervalAnew()
    {
        Surface surface(true, {{"autoApplyTimeout", 200}});
        // It lies between the ends of the two intervals.
        ReferenceTimer reference(260);
        QTimer::singleShot(130, Qt::PreciseTimer, &surface.announced,
                           [&] { surface.form.row("a")->setModified(true); });
        surface.form.row("a")->setModified(true);
        reference.pass();
        QCOMPARE(surface.announced.count(), 0);
        QTRY_COMPARE(surface.announced.count(), 1);
    }

    void withoutABarTheFirstChangeAnnouncesItself()
    {
        Surface surface(false, {{"autoApplyEnabled", false}, {"autoApplyTimeout", 0}});
        surface.form.row("a")->setModified(true);
        QCOMPARE(surface.announced.count(), 1);
        surface.form.row("b")->setModified(true);
        surface.form.row("a")->setModified(false);
        QCOMPARE(surface.announced.count(), 1);
        // And no timer stands behind it, not even when it is switched on later.
        surface.form.sheet().setAutoApplyEnabled(true);
        surface.form.row("b")->setModified(true);
        QVERIFY(surface.staysSilent());
        surface.form.sheet().resetModified();
        surface.form.row("b")->setModified(true);
        QCOMPARE(surface.announced.count(), 2);
    }

    void withoutABarTheTimerAnnouncesAgain()
    {
        Surface surface(false, {{"autoApplyTimeout", 0}});
        surface.form.row("a")->setModified(true);
        QCOMPARE(surface.announced.count(), 1);
        QTRY_COMPARE(surface.announced.count(), 2);
        QVERIFY(surface.form.sheet().isModified());
    }

    void fetchingStopsTheTimer()
    {
        Surface surface(false, {{"autoApplyTimeout", 0}});
        surface.form.row("a")->setModified(true);
        surface.form.formular()->GetXmlString(true);
        QVERIFY(surface.staysSilent());
        QCOMPARE(surface.announced.count(), 1);
    }

    void withAutoApplyOffOnlyTheButtonAnnounces()
    {
        Surface surface(true, {{"autoApplyEnabled", false}, {"autoApplyTimeout", 0}});
        QVERIFY(!surface.box()->isChecked());
        surface.form.row("a")->setModified(true);
        QVERIFY(surface.staysSilent());
        QTest::mousePress(surface.button(), Qt::LeftButton);
        QCOMPARE(surface.announced.count(), 1);
        QTest::mouseRelease(surface.button(), Qt::LeftButton);
    }

    void typingEnablesApplyWithoutTheTimer()
    {
        Surface surface(true, {{"autoApplyTimeout", 0}});
        QTest::keyClicks(surface.edit("a"), QStringLiteral("x"));
        QVERIFY(surface.button()->isEnabled());
        QVERIFY(surface.staysSilent());
    }

    void timerCanBeKilled()
    {
        Surface surface(true, {{"autoApplyTimeout", 0}});
        surface.form.row("a")->setModified(true);
        surface.form.sheet().killAutoApplyTimer();
        QVERIFY(surface.staysSilent());
        QVERIFY(surface.form.sheet().isModified());
    }

    void killingTheTimerBeforeThereIsOneIsFine()
    {
        FormFixture form(twoRows, FormFixture::Parsed);
        form.sheet().killAutoApplyTimer();
        form.sheet().applyNow();
        form.sheet().resetModified();
        QVERIFY(!form.sheet().isAutoApplyEnabled());
    }

    void switchingAutoApplyOffLeavesARunningTimer()
    {
        Surface surface(true, {{"autoApplyTimeout", 0}});
        surface.form.row("a")->setModified(true);
        surface.form.sheet().setAutoApplyEnabled(false);
        QTRY_COMPARE(surface.announced.count(), 1);
        surface.form.row("a")->setModified(true);
        QVERIFY(surface.staysSilent());
    }

    void boxAndPropertyFollowEachOther()
    {
        Surface surface(true);
        QVERIFY(surface.form.sheet().isAutoApplyEnabled());
        QTest::mouseClick(surface.box(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(8, surface.box()->height() / 2));
        QVERIFY(!surface.box()->isChecked());
        QCOMPARE(surface.ui()->property("autoApplyEnabled"), QVariant(false));
        QVERIFY(!surface.form.sheet().isAutoApplyEnabled());
        surface.form.evaluate(QStringLiteral("sheet.setAutoApplyEnabled(true)"));
        QVERIFY(surface.box()->isChecked());
        QVERIFY(surface.form.sheet().isAutoApplyEnabled());
        surface.ui()->setProperty("autoApplyEnabled", false);
        QVERIFY(!surface.box()->isChecked());
    }

    void resettingACleanSheetChangesNothing()
    {
        Surface surface(true);
        surface.form.sheet().resetModified();
        QVERIFY(!surface.button()->isEnabled());
        surface.form.sheet().setModified(false);
        QVERIFY(surface.button()->isEnabled());
        surface.form.sheet().resetModified();
        QVERIFY(!surface.button()->isEnabled());
    }

    void announcingFromTheSheet_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("modified");
        QTest::addColumn<int>("count");
        QTest::newRow("apply, clean") << "sheet.applyNow()" << false << 0;
        QTest::newRow("apply, modified") << "sheet.applyNow()" << true << 1;
        QTest::newRow("emit, clean") << "sheet['emitParametersXml()']()" << false << 1;
        QTest::newRow("emit, modified") << "sheet['emitParametersXml()']()" << true << 1;
        QTest::newRow("emit changes, clean") << "sheet['emitParametersXml(bool)'](true)" << false << 0;
        QTest::newRow("emit all, clean") << "sheet['emitParametersXml(bool)'](false)" << false << 0;
        QTest::newRow("emit all, modified") << "sheet['emitParametersXml(bool)'](false)" << true << 1;
        QTest::newRow("reset of one parameter") << "sheet.resetModifiedParameter(a)" << true << 0;
    }

    void announcingFromTheSheet()
    {
        QFETCH(QString, code);
        QFETCH(bool, modified);
        QFETCH(int, count);
        Surface surface(true, {{"autoApplyEnabled", false}});
        if (modified)
            surface.form.row("a")->setModified(true);
        surface.form.evaluate(code);
        QCOMPARE(surface.announced.count(), count);
        QCOMPARE(surface.form.sheet().isModified(), modified);
        QCOMPARE(surface.form.row("a")->isModified(), modified);
    }

    void propertiesForTheHostAreKept()
    {
        Surface surface(true);
        surface.form.evaluate(
            QStringLiteral("sheet.setApplyUiVisible(false); sheet.setErrorHighlightingXmlRootTag('Errors');"
                           "sheet.setQMBaseName('base'); sheet.setTranslationsSubDir('dir');"
                           "sheet.setEmitOnlyModifiedParameters(false);"));
        QCOMPARE(surface.ui()->property("applyUiVisible"), QVariant(false));
        QCOMPARE(surface.ui()->property("errorHighlightingXmlRootTag"), QVariant(QStringLiteral("Errors")));
        QCOMPARE(surface.ui()->property("qmBaseName"), QVariant(QStringLiteral("base")));
        QCOMPARE(surface.ui()->property("translationsSubDir"), QVariant(QStringLiteral("dir")));
        QCOMPARE(surface.ui()->property("emitOnlyModifiedParameters"), QVariant(false));
        QVERIFY(surface.button()->isVisibleTo(surface.window.get()));
    }

    void sheetIsShownAndHidden()
    {
        Surface surface(true);
        surface.form.evaluate(QStringLiteral("sheet.setVisible(true)"));
        QVERIFY(surface.window->isVisible());
        QCOMPARE(surface.ui()->property("visible"), QVariant(true));
        surface.form.evaluate(QStringLiteral("sheet.setVisible(false)"));
        QVERIFY(!surface.window->isVisible());
        surface.form.formular()->Show();
        QVERIFY(surface.window->isVisible());
        surface.form.formular()->Hide();
        QVERIFY(!surface.window->isVisible());
    }

    void closedInputSwitchesTheBarOnly()
    {
        Surface surface(true);
        surface.form.row("a")->setModified(false);
        surface.form.formular()->EnableInput(false);
        QVERIFY(!surface.button()->isEnabled());
        QVERIFY(!surface.ui()->property("enabled").isValid());
        QVERIFY(surface.area()->isEnabled());
        surface.form.formular()->EnableInput(true);
        QVERIFY(surface.button()->isEnabled());
    }

    void menuOffersSizesFromTheApplicationsFont_data()
    {
        QTest::addColumn<bool>("withBar");
        QTest::addColumn<int>("sheetSize"); // 0: the application's
        QTest::addColumn<QStringList>("expected");
        const auto sizes = [](const char* one, const char* two, const char* three) {
            return QStringList{QString::fromLatin1(one), QString::fromLatin1(two),
                               QString::fromLatin1(three)};
        };
        QTest::newRow("normal") << true << 0 << sizes("Normal 9 checked", "Medium 11", "Large 13");
        QTest::newRow("medium") << true << 11 << sizes("Normal 9", "Medium 11 checked", "Large 13");
        QTest::newRow("large") << true << 13 << sizes("Normal 9", "Medium 11", "Large 13 checked");
        QTest::newRow("none of them") << true << 20 << sizes("Normal 9", "Medium 11", "Large 13");
        QTest::newRow("without a bar") << false << 11 << sizes("Normal 9", "Medium 11 checked", "Large 13");
    }

    void menuOffersSizesFromTheApplicationsFont()
    {
        QFETCH(bool, withBar);
        QFETCH(int, sheetSize);
        QFETCH(QStringList, expected);
        const ApplicationFont font(9);
        Surface surface(withBar);
        surface.form.sheet().SetFontSize(sheetSize);
        surface.window->show();
        withSizeMenu(surface.area(), [&](QMenu* menu) {
            QCOMPARE(menu->actions().count(), 1);
            QMenu* const sizes = menu->actions().first()->menu();
            QCOMPARE(sizes->title(), QStringLiteral("Text size"));
            QCOMPARE(describe(sizes), expected);
            for (const QAction* const action : sizes->actions()) {
                QVERIFY(action->isCheckable());
                QCOMPARE(action->parent(), menu);
            }
        });
    }

    void fontInPixelsCountsWithItsPoints()
    {
        const QFont before = QApplication::font();
        QFont pixels = before;
        pixels.setPixelSize(17);
        QApplication::setFont(pixels);
        const int normal = QFontInfo(pixels).pointSize();
        QVERIFY(normal > 5);
        {
            Surface surface(true);
            QObject configuration;
            surface.form.formular()->SetConfigObject(&configuration, QStringLiteral("key"));
            surface.window->show();
            const auto size = [&](const char* text, int more, const char* mark) {
                return QStringLiteral("%1 %2%3")
                    .arg(QLatin1String(text))
                    .arg(normal + more)
                    .arg(QLatin1String(mark));
            };
            withSizeMenu(surface.area(), [&](QMenu* menu) {
                QCOMPARE(describe(menu->actions().first()->menu()),
                         (QStringList{size("Normal", 0, " checked"), size("Medium", 2, ""),
                                      size("Large", 4, "")}));
            });
            surface.form.formular()->ApplyConfiguration();
            QVERIFY(!configuration.property("key-fontsize").isValid());
            const auto choose = [&](int points) {
                QVERIFY(QMetaObject::invokeMethod(surface.form.sheet().GetDelegate(), "si_chooseFontSize",
                                                  Q_ARG(int, points)));
            };
            choose(normal + 4);
            QCOMPARE(configuration.property("key-fontsize"), QVariant(normal + 4));
            QCOMPARE(surface.window->font().pointSize(), normal + 4);
            // Back to the very size, which no number of points may give.
            choose(normal);
            QCOMPARE(surface.window->font().pixelSize(), 17);
            QVERIFY(!configuration.property("key-fontsize").isValid());
            surface.form.formular()->RestoreConfiguration();
            QCOMPARE(surface.window->font().pixelSize(), 17);
        }
        QApplication::setFont(before);
    }

    void chosenSizeIsTakenAndStored()
    {
        const ApplicationFont font(9);
        Surface surface(true);
        QObject configuration;
        surface.form.formular()->SetConfigObject(&configuration, QStringLiteral("key"));
        surface.window->show();
        const auto choose = [&](int downs) {
            withSizeMenu(surface.area(), [&](QMenu* menu) {
                QTest::keyClick(menu, Qt::Key_Down);
                QTest::keyClick(menu, Qt::Key_Right);
                QMenu* const sizes = menu->actions().first()->menu();
                QTRY_VERIFY(sizes->isVisible());
                for (int i = 0; i < downs; ++i)
                    QTest::keyClick(sizes, Qt::Key_Down);
                QTest::keyClick(sizes, Qt::Key_Return);
            });
        };
        choose(2);
        QCOMPARE(surface.window->font().pointSize(), 13);
        QCOMPARE(configuration.property("key-fontsize"), QVariant(13));
        // Measured from the application's font: a second choice does not creep.
        choose(1);
        QCOMPARE(surface.window->font().pointSize(), 11);
        QCOMPARE(configuration.property("key-fontsize"), QVariant(11));
        choose(0);
        QCOMPARE(surface.window->font().pointSize(), 9);
        QVERIFY(!configuration.property("key-fontsize").isValid());
    }

    void closedMenuChoosesNothing()
    {
        Surface surface(true);
        QSignalSpy chosen(surface.ui(), SIGNAL(si_chooseFontSize(int)));
        surface.window->show();
        withSizeMenu(surface.area(), [](QMenu* menu) { QTest::keyClick(menu, Qt::Key_Escape); });
        QCOMPARE(chosen.count(), 0);
    }

    void formMayDieWhileItsMenuIsOpen()
    {
        Surface surface(true);
        surface.window->show();
        withSizeMenu(surface.area(), [&](QMenu*) { surface.form.deleteForm(); });
    }

    void menuWithoutAWindowIsNotShown()
    {
        FormFixture form(twoRows, FormFixture::WithValues);
        QVERIFY(QMetaObject::invokeMethod(form.sheet().GetDelegate(), "showContextMenu",
                                          Q_ARG(QPoint, QPoint())));
        QVERIFY(!QApplication::activePopupWidget());
    }
};

QTEST_MAIN(tst_zorvasheetui)
#include "tst_zorvasheetui.moc"
