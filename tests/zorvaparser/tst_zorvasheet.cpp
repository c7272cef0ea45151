#include "enginetest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaSheet;
using Orvane::ZorvaWidget;

using Change = std::function<void(FormFixture&)>;

Q_DECLARE_METATYPE(Orvane::ZorvaSheet::eEnableScope)
Q_DECLARE_METATYPE(Change)

namespace {

const auto formScope = ZorvaSheet::ekFormularEnableScope;
const auto hostScope = ZorvaSheet::ekHostEnableScope;
const auto valuesScope = ZorvaSheet::ekValuesEnableScope;

QString headline(const char* name, const char* text = "Head")
{
    return widgetXml("Headline", name, {{"text", text}, {"visible", true}});
}

QString edit(const char* name)
{
    return rowXml("LineEdit", name, {{"labelText", "Label"}});
}

QString tagged(const char* name, const char* path)
{
    return rowXml("LineEdit", name, {{"parameterXmlTag", path}});
}

/// Two groups behind a row that belongs to none.
QString grouped()
{
    return edit("loose") + headline("one") + edit("a") + edit("b") + headline("two") + edit("c");
}

/// Whether a control may ask for its painting when it hears events of one type.
class PaintingWatch : public QObject
{
public:
    PaintingWatch(QWidget* control, QEvent::Type type)
        : m_type(type)
    {
        control->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == m_type) {
            ++heard;
            isHeld = isHeld && !static_cast<QWidget*>(watched)->updatesEnabled();
        }
        return false;
    }

    int heard = 0;
    bool isHeld = true;

private:
    QEvent::Type m_type;
};

/// The names of the rows for which `holds` is true, joined.
template <typename Condition>
QString rowsWith(ZorvaSheet& sheet, Condition holds)
{
    QStringList names;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (holds(sheet.GetWidgetAt(i)))
            names << sheet.GetWidgetAt(i)->GetName();
    }
    return names.join(QLatin1Char(' '));
}

QString openRows(ZorvaSheet& sheet)
{
    return rowsWith(sheet, [](const ZorvaSheet::WidgetPointer& widget) {
        return widget->GetDelegate()->isGroupVisible();
    });
}

QString visibleRows(ZorvaSheet& sheet)
{
    return rowsWith(sheet, [](const ZorvaSheet::WidgetPointer& widget) {
        return widget->GetDelegate()->property("visible").toBool();
    });
}

QString selectedRows(ZorvaSheet& sheet)
{
    return rowsWith(sheet, [](const ZorvaSheet::WidgetPointer& widget) { return widget->IsSelected(); });
}

/// Writes down how a control is switched on and off.
class EnabledLog : public QObject
{
public:
    explicit EnabledLog(QWidget* control)
        : m_control(control)
    {
        control->installEventFilter(this);
    }
    QString text;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange)
            text += m_control->isEnabled() ? QLatin1String("on ") : QLatin1String("off ");
        return false;
    }

private:
    QWidget* m_control;
};

} // namespace

class tst_zorvasheet : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void newSheetIsEmptyAndOpen()
    {
        const FormPointer form = parsed(rootXml(QString()));
        ZorvaSheet& sheet = form->GetSheet();
        QCOMPARE(sheet.GetName(), QString());
        QCOMPARE(sheet.GetVTPath(), QString());
        QCOMPARE(sheet.GetWidgetCount(), 0);
        QCOMPARE(sheet.GetFormular(), form.data());
        QVERIFY(sheet.GetDelegate());
        QVERIFY(!sheet.GetGUI());
        QVERIFY(sheet.isActive());
        QVERIFY(!sheet.isModified());
        for (const auto scope : {formScope, hostScope, valuesScope})
            QVERIFY(sheet.IsInputEnabled(scope));
        QVERIFY(!sheet.IsInputEnabled(static_cast<ZorvaSheet::eEnableScope>(3)));
    }

    void valuesGetTheSheetsPath()
    {
        FormFixture form(edit("a") + tagged("b", "g/h"), FormFixture::WithValues);
        QCOMPARE(form.sheet().GetVTPath(), QStringLiteral("/test"));
        QCOMPARE(form.row("a")->GetVTPath(), QStringLiteral("/test/a"));
        QCOMPARE(form.row("b")->GetVTPath(), QStringLiteral("/test/g/h"));
    }

    void widgetIsFoundByPathOrBareTag_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected"); // null: none
        QTest::newRow("whole path") << "x/y/deep"
                                    << "d";
        QTest::newRow("bare tag") << "deep"
                                  << "d";
        QTest::newRow("last two levels") << "y/deep" << QString();
        QTest::newRow("first two levels") << "x/y" << QString();
        QTest::newRow("group") << "x" << QString();
        QTest::newRow("other case") << "DEEP" << QString();
        QTest::newRow("leading slash") << "/x/y/deep"
                                       << "d";
        QTest::newRow("doubled and trailing slashes") << "x//y/deep/"
                                                      << "d";
        QTest::newRow("bare tag behind a slash") << "/deep" << QString();
        QTest::newRow("own name, other tag") << "d" << QString();
        QTest::newRow("name as tag") << "plain"
                                     << "plain";
        QTest::newRow("beyond a leaf") << "plain/more" << QString();
        QTest::newRow("unknown") << "none" << QString();
        QTest::newRow("empty") << "" << QString();
        QTest::newRow("slash") << "/" << QString();
        QTest::newRow("first of equals") << "twice"
                                         << "first";
        QTest::newRow("leaf below the root before a deeper one") << "both"
                                                                 << "top";
    }

    void widgetIsFoundByPathOrBareTag()
    {
        QFETCH(QString, path);
        QFETCH(QString, expected);
        FormFixture form(tagged("d", "x/y/deep") + edit("plain") + tagged("first", "p/twice") +
                             tagged("second", "q/twice") + tagged("low", "x/both") + tagged("top", "both"),
                         FormFixture::Parsed);
        const auto widget = form.sheet().GetWidget(path);
        QCOMPARE(widget ? widget->GetName() : QString(), expected);
        QCOMPARE(form.sheet().IndexOfWidget(path),
                 expected.isNull() ? -1 : widgetNames(form.sheet()).indexOf(expected));
    }

    void indexOfAStrangeWidgetIsMinusOne()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        FormFixture other(edit("a"), FormFixture::Parsed);
        QCOMPARE(form.sheet().IndexOfWidget(form.sheet().GetWidgetAt(0)), 0);
        QCOMPARE(form.sheet().IndexOfWidget(other.sheet().GetWidgetAt(0)), -1);
        QCOMPARE(form.sheet().IndexOfWidget(ZorvaSheet::WidgetPointer()), -1);
    }

    void findWidgetComparesTheClass()
    {
        FormFixture form(widgetXml("Label", "LineEdit") + edit("a") + edit("b"), FormFixture::Parsed);
        QCOMPARE(form.sheet().FindWidget(QStringLiteral("LineEdit"))->GetName(), QStringLiteral("a"));
        QVERIFY(!form.sheet().FindWidget(QStringLiteral("a")));
        QVERIFY(!form.sheet().FindWidget(QStringLiteral("lineedit")));
        const auto all = form.sheet().FindWidgetsOfClass(QStringLiteral("LineEdit"));
        QCOMPARE(all.count(), 2);
        QCOMPARE(all.at(1)->GetName(), QStringLiteral("b"));
        QVERIFY(form.sheet().FindWidgetsOfClass(QStringLiteral("a")).isEmpty());
    }

    void insertedWidgetTakesItsPlace_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("expected");
        QTest::newRow("negative appends") << -1 << "one a ext";
        QTest::newRow("very negative appends") << std::numeric_limits<int>::min() << "one a ext";
        QTest::newRow("first") << 0 << "ext one a";
        QTest::newRow("middle") << 1 << "one ext a";
        QTest::newRow("behind the last") << 2 << "one a ext";
        QTest::newRow("out of range appends") << 99 << "one a ext";
    }

    void insertedWidgetTakesItsPlace()
    {
        QFETCH(int, index);
        QFETCH(QString, expected);
        FormFixture form(headline("one") + edit("a"), FormFixture::WithValues);
        auto* const button = new QPushButton;
        const auto widget =
            form.sheet().InsertWidget(QStringLiteral("ext"), QStringLiteral("Caption"), button, index);
        QCOMPARE(widgetNames(form.sheet()).join(QLatin1Char(' ')), expected);
        QCOMPARE(form.sheet().IndexOfWidget(widget),
                 expected.split(QLatin1Char(' ')).indexOf(QStringLiteral("ext")));
        form.createGui();
        QVERIFY(form.window()->isAncestorOf(button));
        // A widget ahead of the first headline belongs to no group.
        form.sheet().SetCollapsed({QStringLiteral("one")});
        QCOMPARE(widget->GetDelegate()->isGroupVisible(), index == 0);
    }

    void insertedWidgetHasNoTagAndNoGlobal()
    {
        FormFixture form(edit("a"), FormFixture::Parsed);
        QVERIFY(!form.sheet().GetWidget(QString()));
        QPushButton button;
        const auto widget = form.sheet().InsertWidget(QStringLiteral("ext"), QString(), &button, -1);
        QCOMPARE(form.sheet().GetWidget(QString()), widget);
        QVERIFY(!form.formular()->GetScriptValues().contains(QStringLiteral("ext")));
    }

    void widgetInsertedBehindTheRowsWaits()
    {
        FormFixture form(edit("a"));
        QPushButton button;
        form.sheet().InsertWidget(QStringLiteral("ext"), QString(), &button, -1);
        QVERIFY(!button.parentWidget());
    }

    void tagChangedLaterIsFoundInTheListOnly()
    {
        FormFixture form(tagged("a", "old") + edit("b"), FormFixture::Parsed);
        QVERIFY(!form.sheet().GetWidget(QStringLiteral("new")));
        form.formular()->SetChangedZORVA(sheetXml(tagged("a", "deep/new")));
        const auto widget = form.sheet().GetWidgetAt(0);
        QCOMPARE(widget->GetXmlTagName(), QStringLiteral("new"));
        // The tree keeps the row where it was.
        QCOMPARE(form.sheet().GetWidget(QStringLiteral("old")), widget);
        QCOMPARE(form.sheet().GetWidget(QStringLiteral("new")), widget);
        QVERIFY(!form.sheet().GetWidget(QStringLiteral("deep/new")));
    }

    void selectionCoversAllRows_data()
    {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<bool>("select");
        QTest::addColumn<QString>("expected");
        QTest::newRow("all") << QStringList() << true << "a b c";
        QTest::newRow("none") << QStringList() << false << "";
        QTest::newRow("only the listed") << QStringList{QStringLiteral("a")} << true << "a";
        QTest::newRow("all but the listed") << QStringList{QStringLiteral("a")} << false << "b c";
        QTest::newRow("by whole path") << QStringList{QStringLiteral("g/tag")} << true << "b";
        QTest::newRow("bare tag does not count") << QStringList{QStringLiteral("tag")} << true << "";
        QTest::newRow("name does not count") << QStringList{QStringLiteral("b")} << true << "";
        QTest::newRow("other case does not count") << QStringList{QStringLiteral("A")} << true << "";
        QTest::newRow("nothing that exists") << QStringList{QStringLiteral("none")} << true << "";
        QTest::newRow("nothing that exists, deselected")
            << QStringList{QStringLiteral("none")} << false << "a b c";
    }

    void selectionCoversAllRows()
    {
        QFETCH(QStringList, list);
        QFETCH(bool, select);
        QFETCH(QString, expected);
        FormFixture form(edit("a") + tagged("b", "g/tag") + edit("c"), FormFixture::Parsed);
        for (const bool before : {true, false}) {
            for (int i = 0; i < 3; ++i)
                form.sheet().GetWidgetAt(i)->SetSelected(before);
            form.formular()->SelectWidgets(list, select);
            QCOMPARE(selectedRows(form.sheet()), expected);
        }
    }

    void rowsAreBuiltByName_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("exclude");
        QTest::addColumn<QString>("expected");
        QTest::newRow("only by name") << QStringList{QStringLiteral("a")} << false << "a";
        QTest::newRow("only by tag") << QStringList{QStringLiteral("tag")} << false << "b";
        QTest::newRow("not by path") << QStringList{QStringLiteral("g/tag")} << false << "";
        QTest::newRow("not by other case") << QStringList{QStringLiteral("A")} << false << "";
        QTest::newRow("all but") << QStringList{QStringLiteral("a"), QStringLiteral("tag")} << true << "c";
        QTest::newRow("empty list, excluded") << QStringList() << true << "a b c";
        QTest::newRow("empty list, kept") << QStringList() << false << "";
    }

    void rowsAreBuiltByName()
    {
        QFETCH(QStringList, names);
        QFETCH(bool, exclude);
        QFETCH(QString, expected);
        FormFixture form(edit("a") + tagged("b", "g/tag") + edit("c"), FormFixture::WithValues);
        form.formular()->CreateGUI(true, names, exclude);
        const std::unique_ptr<QWidget> window(form.formular()->GetGUI());
        QStringList built;
        for (const char* name : {"a", "b", "c"}) {
            if (window->findChild<QLineEdit*>(QString::fromLatin1(name)))
                built << QString::fromLatin1(name);
        }
        QCOMPARE(built.join(QLatin1Char(' ')), expected);
        QCOMPARE(selectedRows(form.sheet()), expected);
        // One left out keeps its value and its place in the script.
        QVERIFY(form.row("a")->GetVTValue());
        QCOMPARE(evaluated(form.formular(), QStringLiteral("a.objectName")), QStringLiteral("a"));
    }

    void secondBuildingAddsNoRows()
    {
        FormFixture form(grouped());
        QWidget* const window = form.window();
        form.formular()->CreateGUI(true);
        form.formular()->CreateGUI(false);
        form.formular()->CreateGUI(true, {QStringLiteral("a")}, true);
        QCOMPARE(form.formular()->GetGUI(), window);
        QCOMPARE(window->findChildren<QLineEdit*>(QStringLiteral("a")).count(), 1);
        QCOMPARE(window->findChildren<QPushButton*>(QStringLiteral("applyButton")).count(), 1);
        QCOMPARE(selectedRows(form.sheet()), QStringLiteral("loose one a b two c"));
    }

    void windowIsBuiltAnewOnceItIsGone()
    {
        FormFixture form(grouped());
        form.deleteWindow();
        QVERIFY(!form.formular()->GetGUI());
        form.createGui();
        QVERIFY(form.control<QLineEdit>("a"));
        QTest::keyClicks(form.control<QLineEdit>("a"), QStringLiteral("x"));
        QVERIFY(form.row("a")->isModified());
    }

    void showAndHideDoNothingWithoutAWindow_data()
    {
        QTest::addColumn<int>("stage");
        QTest::newRow("never built") << int(FormFixture::WithValues);
        QTest::newRow("gone") << int(FormFixture::WithGui);
    }
    void showAndHideDoNothingWithoutAWindow()
    {
        QFETCH(int, stage);
        FormFixture form(grouped(), static_cast<FormFixture::Stage>(stage));
        form.deleteWindow();
        form.formular()->Show();
        form.formular()->Hide();
        form.formular()->Show();
        QVERIFY(!form.formular()->GetGUI());
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
        // What is built afterwards waits to be shown, too.
        form.createGui();
        QVERIFY(form.window()->isHidden());
        form.formular()->Show();
        QVERIFY(form.window()->isVisible());
    }

    void paintingWaitsForAllRows_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("event");
        QTest::newRow("shown again") << Change([](FormFixture& form) {
            form.formular()->Hide();
            form.formular()->Show();
        }) << int(QEvent::Show);
        QTest::newRow("new values") << Change([](FormFixture& form) { form.createValues(); })
                                    << int(QEvent::EnabledChange);
        QTest::newRow("form gone below its window")
            << Change([](FormFixture& form) { form.deleteForm(); }) << int(QEvent::EnabledChange);
    }
    void paintingWaitsForAllRows()
    {
        QFETCH(Change, change);
        QFETCH(int, event);
        FormFixture form(grouped());
        form.show();
        auto* const control = form.control<QLineEdit>("b");
        PaintingWatch watch(control, QEvent::Type(event));
        change(form);
        QVERIFY(watch.heard > 0);
        QVERIFY(watch.isHeld);
        QVERIFY(control->isVisible());
        QVERIFY(control->updatesEnabled());
    }

    void groupIsShownAndHidden_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("stillVisible");
        QTest::newRow("first group") << "one"
                                     << "loose two c";
        QTest::newRow("last group runs to the end") << "two"
                                                    << "loose one a b";
        QTest::newRow("unknown") << "three"
                                 << "loose one a b two c";
        QTest::newRow("no headline") << "a"
                                     << "loose one a b two c";
        QTest::newRow("other case") << "ONE"
                                    << "loose one a b two c";
    }

    void groupIsShownAndHidden()
    {
        QFETCH(QString, name);
        QFETCH(QString, stillVisible);
        FormFixture form(grouped());
        form.formular()->ShowGroup(name, false);
        QCOMPARE(visibleRows(form.sheet()), stillVisible);
        // The collapse of the group is another matter.
        QCOMPARE(openRows(form.sheet()), QStringLiteral("loose one a b two c"));
        form.formular()->ShowGroup(name, true);
        QCOMPARE(visibleRows(form.sheet()), QStringLiteral("loose one a b two c"));
    }

    void firstOfTwoHeadlinesOfANameIsMeant()
    {
        FormFixture form(headline("same") + edit("a") + headline("same") + edit("b"), FormFixture::Parsed);
        form.sheet().ShowGroup(QStringLiteral("same"), false);
        QVERIFY(!form.row("a")->property("visible").toBool());
        QVERIFY(form.row("b")->property("visible").toBool());
    }

    void groupIsCollapsedUpToTheNextHeadline()
    {
        FormFixture form(grouped());
        form.sheet().setGroupVisible(form.sheet().GetWidgetAt(1).data(), false);
        QCOMPARE(openRows(form.sheet()), QStringLiteral("loose two c"));
        QCOMPARE(form.sheet().GetCollapsed(), QStringList{QStringLiteral("one")});
        QCOMPARE(visibleRows(form.sheet()), QStringLiteral("loose one a b two c"));
        form.sheet().setGroupVisible(form.sheet().GetWidgetAt(4).data(), false);
        QCOMPARE(form.sheet().GetCollapsed(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
        form.sheet().setGroupVisible(form.sheet().GetWidgetAt(1).data(), true);
        QCOMPARE(openRows(form.sheet()), QStringLiteral("loose one a b"));
    }

    void strangeHeadlineCollapsesNothing()
    {
        FormFixture form(grouped());
        FormFixture other(headline("one"), FormFixture::Parsed);
        form.sheet().setGroupVisible(other.sheet().GetWidgetAt(0).data(), false);
        form.sheet().setGroupVisible(nullptr, false);
        QCOMPARE(openRows(form.sheet()), QStringLiteral("loose one a b two c"));
    }

    void collapsedGroupsAreSet_data()
    {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<QString>("open");
        QTest::newRow("none") << QStringList() << "loose one a b two c";
        QTest::newRow("one") << QStringList{QStringLiteral("one")} << "loose two c";
        QTest::newRow("both") << QStringList{QStringLiteral("two"), QStringLiteral("one")} << "loose";
        QTest::newRow("unknown opens all")
            << QStringList{QStringLiteral("a"), QString()} << "loose one a b two c";
        QTest::newRow("other case opens all") << QStringList{QStringLiteral("One")} << "loose one a b two c";
    }

    void collapsedGroupsAreSet()
    {
        QFETCH(QStringList, list);
        QFETCH(QString, open);
        FormFixture form(grouped());
        form.sheet().SetCollapsed({QStringLiteral("two")});
        form.sheet().SetCollapsed(list);
        QCOMPARE(openRows(form.sheet()), open);
    }

    void collapsedGroupHoldsVisibleBack()
    {
        FormFixture form(grouped());
        QWidget* const control = form.control<QWidget>("a");
        form.sheet().SetCollapsed({QStringLiteral("one")});
        QVERIFY(!control->isVisibleTo(form.window()));
        form.row("a")->setVisible(true);
        QVERIFY(!control->isVisibleTo(form.window()));
        form.row("b")->setVisible(false);
        form.sheet().SetCollapsed({});
        QVERIFY(control->isVisibleTo(form.window()));
        QVERIFY(!form.control<QWidget>("b")->isVisibleTo(form.window()));
    }

    void visibleIsAlwaysPassedOn()
    {
        FormFixture form(edit("a"));
        QWidget* const control = form.control<QWidget>("a");
        control->hide();
        // Equal for the row, but not for the control.
        form.row("a")->EnableProperty(QStringLiteral("visible"), true, nullptr);
        QVERIFY(control->isVisibleTo(form.window()));
    }

    void rowsCollapsedBeforeTheControlsComeUpCollapsed()
    {
        FormFixture form(grouped(), FormFixture::WithValues);
        form.sheet().SetCollapsed({QStringLiteral("one")});
        form.createGui();
        QVERIFY(!form.control<QWidget>("a")->isVisibleTo(form.window()));
        QVERIFY(!form.control<QWidget>("labela")->isVisibleTo(form.window()));
        QVERIFY(form.control<QWidget>("one")->isVisibleTo(form.window()));
        QVERIFY(form.control<QWidget>("c")->isVisibleTo(form.window()));
        form.sheet().SetCollapsed({});
        QVERIFY(form.control<QWidget>("a")->isVisibleTo(form.window()));
        QVERIFY(form.control<QWidget>("labela")->isVisibleTo(form.window()));
    }

    void rowsSwitchedOffBeforeTheControlsComeUpOff_data()
    {
        QTest::addColumn<ZorvaSheet::eEnableScope>("scope");
        QTest::newRow("form") << formScope;
        QTest::newRow("host") << hostScope;
        QTest::newRow("values") << valuesScope;
    }

    void rowsSwitchedOffBeforeTheControlsComeUpOff()
    {
        QFETCH(ZorvaSheet::eEnableScope, scope);
        FormFixture form(grouped() + rowXml("FrequencyEdit", "f"), FormFixture::WithValues);
        form.sheet().EnableInput(false, scope);
        form.createGui();
        QVERIFY(!form.control<QWidget>("a")->isEnabled());
        QVERIFY(!form.control<QWidget>("applyButtonBox")->isEnabled());
        // A headline opens its group on a form that is switched off, too.
        QVERIFY(form.control<QWidget>("one")->isEnabled());
        QVERIFY(form.row("a")->isEnabled());
        form.sheet().EnableInput(true, scope);
        QVERIFY(form.control<QWidget>("a")->isEnabled());
        QVERIFY(form.control<QWidget>("applyButtonBox")->isEnabled());
    }

    void everyGateSwitchesAllRows_data() { rowsSwitchedOffBeforeTheControlsComeUpOff_data(); }

    void everyGateSwitchesAllRows()
    {
        QFETCH(ZorvaSheet::eEnableScope, scope);
        FormFixture form(grouped());
        form.sheet().EnableInput(false, scope);
        QVERIFY(!form.sheet().IsInputEnabled(scope));
        QCOMPARE(form.formular()->IsInputEnabled(), scope != formScope);
        for (const char* name : {"loose", "a", "b", "c", "applyButtonBox"})
            QVERIFY(!form.control<QWidget>(name)->isEnabled());
        QVERIFY(form.control<QWidget>("one")->isEnabled());
        form.sheet().EnableInput(true, scope);
        QVERIFY(form.sheet().IsInputEnabled(scope));
        for (const char* name : {"loose", "a", "b", "c", "applyButtonBox"})
            QVERIFY(form.control<QWidget>(name)->isEnabled());
    }

    void rowIsOnWhileAllGatesAreOpen_data()
    {
        QTest::addColumn<int>("gates");
        for (int gates = 0; gates < 8; ++gates)
            QTest::addRow("gates %d%d%d", gates & 1, (gates >> 1) & 1, (gates >> 2) & 1) << gates;
    }

    /// From every state of the gates to every other, one gate at a time, in both orders.
    void rowIsOnWhileAllGatesAreOpen()
    {
        QFETCH(int, gates);
        FormFixture form(edit("a"));
        const QList<ZorvaSheet::eEnableScope> scopes{formScope, hostScope, valuesScope};
        const auto setGates = [&](int wanted, bool backwards) {
            for (int i = 0; i < 3; ++i) {
                const int scope = backwards ? 2 - i : i;
                form.sheet().EnableInput(wanted & (1 << scope), scopes.at(scope));
            }
        };
        for (int next = 0; next < 8; ++next) {
            for (const bool backwards : {false, true}) {
                setGates(gates, false);
                QCOMPARE(form.control<QWidget>("a")->isEnabled(), gates == 7);
                setGates(next, backwards);
                QCOMPARE(form.control<QWidget>("a")->isEnabled(), next == 7);
                for (int scope = 0; scope < 3; ++scope)
                    QCOMPARE(form.sheet().IsInputEnabled(scopes.at(scope)), bool(next & (1 << scope)));
            }
        }
    }

    void gateBehindAClosedOneIsOnlyStored()
    {
        FormFixture form(edit("a"));
        form.formular()->EnableInput(false);
        form.sheet().EnableInput(false, hostScope);
        form.formular()->EnableInput(true);
        QVERIFY(form.formular()->IsInputEnabled());
        QVERIFY(!form.control<QWidget>("a")->isEnabled());
        form.sheet().EnableInput(true, hostScope);
        QVERIFY(form.control<QWidget>("a")->isEnabled());
    }

    void openingBeforeAClosedValuesGateSwitchesTwice()
    {
        FormFixture form(edit("a"));
        form.sheet().EnableInput(false, formScope);
        form.sheet().EnableInput(false, valuesScope);
        EnabledLog log(form.control<QWidget>("a"));
        form.sheet().EnableInput(true, formScope);
        QCOMPARE(log.text, QStringLiteral("on off "));
        form.sheet().EnableInput(true, formScope);
        QCOMPARE(log.text, QStringLiteral("on off "));
    }

    void unknownScopeDoesNothing()
    {
        FormFixture form(edit("a"));
        form.sheet().EnableInput(false, static_cast<ZorvaSheet::eEnableScope>(7));
        QVERIFY(form.control<QWidget>("a")->isEnabled());
    }

    void wishSurvivesAClosedGate()
    {
        FormFixture form(edit("a") + edit("b"));
        form.formular()->EnableInput(false);
        form.row("a")->setEnabled(false);
        form.row("b")->setEnabled(true);
        QVERIFY(!form.control<QWidget>("b")->isEnabled());
        form.formular()->EnableInput(true);
        QVERIFY(!form.control<QWidget>("a")->isEnabled());
        QVERIFY(form.control<QWidget>("b")->isEnabled());
    }

    void textSizeGoesToTheTopWidget_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<bool>("isTaken");
        QTest::newRow("usual") << 15 << true;
        QTest::newRow("one") << 1 << true;
        QTest::newRow("zero") << 0 << false;
        QTest::newRow("negative") << -1 << false;
        QTest::newRow("lowest") << std::numeric_limits<int>::min() << false;
    }

    void textSizeGoesToTheTopWidget()
    {
        QFETCH(int, size);
        QFETCH(bool, isTaken);
        FormFixture form(edit("a"));
        const int before = form.window()->font().pointSize();
        form.sheet().SetFontSize(size);
        QCOMPARE(form.window()->font().pointSize(), isTaken ? size : before);
        QCOMPARE(form.control<QWidget>("a")->font().pointSize(), isTaken ? size : before);
    }

    void textSizeWithoutAWindowDoesNothing()
    {
        FormFixture form(edit("a"), FormFixture::WithValues);
        form.sheet().SetFontSize(15);
        form.createGui();
        QVERIFY(form.window()->font().pointSize() != 15);
    }

    void textSizeGoesToTheParentOfTheWindow()
    {
        FormFixture form(edit("a"));
        QWidget frame;
        form.window()->setParent(&frame);
        form.sheet().SetFontSize(15);
        QCOMPARE(frame.font().pointSize(), 15);
        QCOMPARE(form.window()->font().pointSize(), 15);
        form.window()->setParent(nullptr);
    }

    void textSizeReplacesAStyleSheet()
    {
        FormFixture form(edit("a"));
        form.window()->setStyleSheet(QStringLiteral("color: red;"));
        form.sheet().SetFontSize(15);
        QCOMPARE(form.window()->styleSheet(), QStringLiteral("font-size: 15pt;"));
    }

    void hostsInactivityOutlivesNewValues()
    {
        FormFixture form(edit("a"));
        form.sheet().setActive(false);
        form.createValues();
        QVERIFY(!form.sheet().isActive());
        form.sheet().setActive(true);
        form.createValues();
        QVERIFY(form.sheet().isActive());
    }

    void inactiveSheetTakesNoMark()
    {
        FormFixture form(edit("a"));
        form.sheet().setActive(false);
        form.row("a")->setModified(true);
        QVERIFY(form.row("a")->isModified());
        QVERIFY(!form.sheet().isModified());
        form.sheet().setActive(true);
        form.row("a")->setModified(true);
        QVERIFY(form.sheet().isModified());
    }

    void sheetCountsAsModifiedWithASelectedRowBehindIt()
    {
        FormFixture form(edit("a") + edit("b"));
        QVERIFY(!form.sheet().isWidgetModified());
        form.sheet().setModified(false);
        QVERIFY(form.sheet().isModified());
        QVERIFY(!form.sheet().isWidgetModified());
        form.row("b")->setModified(false);
        QVERIFY(form.sheet().isWidgetModified());
        form.sheet().GetWidget(QStringLiteral("b"))->SetSelected(false);
        QVERIFY(!form.sheet().isWidgetModified());
        form.sheet().GetWidget(QStringLiteral("b"))->SetSelected(true);
        form.sheet().resetModified();
        QVERIFY(!form.sheet().isWidgetModified());
        // The rows keep their own marks.
        QVERIFY(form.row("b")->isModified());
    }

    void rowWithoutParameterXmlTellsNobody()
    {
        FormFixture form(widgetXml("LineEdit", "a", {{"visible", true}}));
        form.row("a")->setModified(true);
        QVERIFY(!form.row("a")->isModified());
        QVERIFY(!form.sheet().isModified());
    }

    void creatingValuesIsNoChangeByTheUser()
    {
        FormFixture form(edit("a"), QString(), QStringLiteral("a.setText('preset')"), FormFixture::Parsed);
        QSignalSpy announced(form.formular(), &Orvane::ZorvaFormular::si_parametersModified);
        form.createValues();
        QVERIFY(form.sheet().isActive());
        QVERIFY(!form.sheet().isModified());
        QCOMPARE(announced.count(), 0);
        QCOMPARE(form.row("a")->GetVTValue()->GetStringValue(), QStringLiteral("preset"));
    }

    void windowMayDieBeforeTheForm()
    {
        FormFixture form(grouped());
        form.show();
        form.deleteWindow();
        form.row("a")->setEnabled(false);
        form.row("a")->setLabelText(QStringLiteral("other"));
        form.row("a")->setFocus();
        form.sheet().SetCollapsed({QStringLiteral("one")});
        form.sheet().SetFontSize(15);
        form.sheet().EnableInput(false, hostScope);
        form.row("a")->setModified(true);
        form.sheet().applyNow();
        QVERIFY(form.formular()->GetXmlString(true).contains(QStringLiteral("<a>")));
    }

    void formMayDieBeforeItsWindow()
    {
        FormFixture form(grouped());
        form.show();
        QPointer<QWidget> control = form.control<QWidget>("a");
        form.deleteForm();
        QVERIFY(form.window());
        QTest::keyClicks(control, QStringLiteral("text"));
        QTest::keyClick(control, Qt::Key_Return);
        QTest::mouseClick(form.control<QWidget>("one"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        QTest::mouseClick(form.control<QWidget>("applyButton"), Qt::LeftButton);
        QTest::mouseClick(form.control<QWidget>("autoApply"), Qt::LeftButton);
        form.window()->resize(300, 900);
    }

    void rowMayOutliveItsForm()
    {
        FormFixture form(edit("a"));
        const auto widget = form.sheet().GetWidget(QStringLiteral("a"));
        form.deleteForm();
        QCOMPARE(widget->GetName(), QStringLiteral("a"));
        QVERIFY(!widget->GetSheet());
        QVERIFY(!widget->GetFormular());
        widget->GetDelegate()->setModified(true);
        widget->GetDelegate()->setProperty("parameterXmlTag", QStringLiteral("b"));
        QVERIFY(widget->isModified());
    }
};

QTEST_MAIN(tst_zorvasheet)
#include "tst_zorvasheet.moc"
