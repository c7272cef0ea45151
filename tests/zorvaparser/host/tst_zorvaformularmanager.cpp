#include <formfixture.h>
#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <velkappstartup/translationcenter.h>
#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvaparser.h>

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

using Orvane::ZorvaFormular;
using Orvane::ZorvaFormularManager;
using values::NumericInt;
using values::ValueString;

namespace {

QString named(const char* name)
{
    return QString::fromUtf8(name);
}

QString simpleForm(int value, const QList<FormProperty>& sheetProperties = {})
{
    return formXml(rowXml("Headline", "group", {{"text", "Group"}}) +
                       rowXml("SpinBox", "level", {{"value", value}}) +
                       rowXml("LineEdit", "text", {{"text", "abc"}}),
                   QString(), QString(), sheetProperties);
}

/// Does something when the widget it filters is hidden.
class HideFilter : public QObject
{
public:
    explicit HideFilter(const std::function<void()>& action)
        : onHide(action)
    {
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            onHide();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> onHide;
};

values::ValueBase* treeValue(const char* path)
{
    return values::Tree::Instance()->GetValue(named(path));
}

} // namespace

class TestZorvaFormularManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        guard->allow(QRegularExpression(QStringLiteral("propagateSizeHints")));
        manager = std::make_unique<ZorvaFormularManager>();
        manager->SetVTPath(named("/forms"));
        manager->DefineFormular(named("A"), simpleForm(1));
        manager->DefineFormular(named("B"), simpleForm(2));
    }
    void cleanup()
    {
        manager.reset();
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    void namesAreSortedAndOfDescriptionsOnly();
    void theLastDescriptionBeforeTheParseCounts();
    void parsesOnFirstUseOnly();
    void unknownAndBrokenTextsGiveNull_data();
    void unknownAndBrokenTextsGiveNull();
    void aBrokenTextCanBeReplaced();
    void nodeNamesKeepLettersAndDigits_data();
    void nodeNamesKeepLettersAndDigits();
    void sharedNodesKeepTheFirstFormsValues();
    void valueTreePathLosesOneSlash_data();
    void valueTreePathLosesOneSlash();
    void parsedFormsAreHidden();
    void namesAreTranslationContexts();
    void applyBarOnRequest();

    void showsAndHides();
    void atMostOneFormIsShown_data();
    void atMostOneFormIsShown();
    void showingAnUnparsedNameHidesTheCurrentOne_data();
    void showingAnUnparsedNameHidesTheCurrentOne();
    void showingTheCurrentOneAgain();
    void signalsOfTheCurrentFormOnly();
    void leavingStopsTheTimerAndKeepsTheMark();
    void autoApplyFollowsTheUser();
    void firstFormKeepsItsOwnAutoApply();
    void autoApplyMemorySurvivesReset();

    void formsOfTheHost();
    void aFormWithoutWidgetsCanBeCurrent();
    void resetForgetsEverything();
    void resetKeepsTheSettings();
    void resetLeavesASharedForm();
    void resetDuringTheSignal_data();
    void resetDuringTheSignal();
    void resetDuringAWriteOfTheHost_data();
    void resetDuringAWriteOfTheHost();
    void resetWhileLeaving();
    void formsWithDeletedWindows();

    void withoutACurrentFormNothingHappens();
    void forwardsParameterXml();
    void forwardsValues();
    void blanksValuesWithoutAForm_data();
    void blanksValuesWithoutAForm();
    void marksTheCurrentForm();
    void isWidgetModifiedClearsAnIdleMark();
    void configurationGoesToAllForms();
    void restoresTheCurrentForm();

private:
    bool getAndShow(const char* name)
    {
        return manager->GetFormular(named(name)) && manager->ShowFormular(named(name));
    }
    QWidget* window(const char* name) { return manager->GetFormular(named(name))->GetGUI(); }
    NumericInt* level(const char* name)
    {
        return dynamic_cast<NumericInt*>(manager->GetFormular(named(name))->GetVTValue(named("level")));
    }

    std::unique_ptr<MessageGuard> guard;
    std::unique_ptr<ZorvaFormularManager> manager;
};

void TestZorvaFormularManager::namesAreSortedAndOfDescriptionsOnly()
{
    manager->DefineFormular(named("0"), QString());
    auto* const own = new ZorvaFormular;
    own->SetName(named("own"));
    manager->AddFormular(own);
    QCOMPARE(manager->GetNames(), (QStringList{named("0"), named("A"), named("B")}));
    QCOMPARE(manager->GetFormular(named("own")).data(), own);
    QVERIFY(manager->GetZorva(named("own")).isEmpty());
}

void TestZorvaFormularManager::theLastDescriptionBeforeTheParseCounts()
{
    manager->DefineFormular(named("A"), simpleForm(5));
    QCOMPARE(manager->GetZorva(named("A")), simpleForm(5));
    QCOMPARE(level("A")->GetValue(), 5);
    manager->DefineFormular(named("A"), simpleForm(6));
    QCOMPARE(manager->GetZorva(named("A")), simpleForm(5));
    QCOMPARE(level("A")->GetValue(), 5);
}

void TestZorvaFormularManager::parsesOnFirstUseOnly()
{
    QVERIFY(values::Tree::Instance()->IsEmpty());
    const auto first = manager->GetFormular(named("A"));
    QCOMPARE(first->GetName(), named("A"));
    QVERIFY(treeValue("/forms/A/level"));
    QVERIFY(!treeValue("/forms/B/level"));
    QCOMPARE(manager->GetFormular(named("A")), first);
    QVERIFY(!manager->GetCurrentFormular());
}

void TestZorvaFormularManager::unknownAndBrokenTextsGiveNull_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("no root") << named("<Other><More/></Other>");
    QTest::newRow("no XML") << named("hello");
}

void TestZorvaFormularManager::unknownAndBrokenTextsGiveNull()
{
    QFETCH(QString, text);
    manager->DefineFormular(named("broken"), text);
    QVERIFY(!manager->GetFormular(named("broken")));
    QVERIFY(!manager->ShowFormular(named("broken")));
    QVERIFY(!manager->GetFormular(named("unknown")));
    QVERIFY(manager->GetZorva(named("unknown")).isEmpty());
}

void TestZorvaFormularManager::aBrokenTextCanBeReplaced()
{
    manager->DefineFormular(named("x"), named("<Other/>"));
    QVERIFY(!manager->GetFormular(named("x")));
    manager->DefineFormular(named("x"), simpleForm(8));
    QVERIFY(manager->GetFormular(named("x")));
    QCOMPARE(level("x")->GetValue(), 8);
}

void TestZorvaFormularManager::nodeNamesKeepLettersAndDigits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("blank") << named("Two Words") << named("/forms/TwoWords");
    QTest::newRow("punctuation") << named("a.b/c-d_1") << named("/forms/abcd1");
    QTest::newRow("letters of all scripts")
        << QStringLiteral("\u00c4\u03b2 2") << QStringLiteral("/forms/\u00c4\u03b22");
    QTest::newRow("nothing left") << named("!?") << named("/forms/");
}

void TestZorvaFormularManager::nodeNamesKeepLettersAndDigits()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    manager->DefineFormular(name, simpleForm(1));
    const auto formular = manager->GetFormular(name);
    QCOMPARE(formular->GetVTPath(), path);
    QCOMPARE(formular->GetName(), name);
    QVERIFY(values::Tree::Instance()->GetValue(path + named("/level")));
}

void TestZorvaFormularManager::sharedNodesKeepTheFirstFormsValues()
{
    manager->DefineFormular(named("A!"), simpleForm(9));
    QVERIFY(manager->GetFormular(named("A")));
    QVERIFY(manager->GetFormular(named("A!")));
    QCOMPARE(dynamic_cast<NumericInt*>(treeValue("/forms/A/level"))->GetValue(), 1);
    QVERIFY(!level("A!"));
}

void TestZorvaFormularManager::valueTreePathLosesOneSlash_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << named("/x") << named("/x/A");
    QTest::newRow("one slash") << named("/x/") << named("/x/A");
    QTest::newRow("two slashes") << named("/x//") << named("/x//A");
    QTest::newRow("empty") << QString() << named("/A");
    QTest::newRow("only a slash") << named("/") << named("/A");
}

void TestZorvaFormularManager::valueTreePathLosesOneSlash()
{
    QFETCH(QString, given);
    QFETCH(QString, path);
    manager->SetVTPath(given);
    QCOMPARE(manager->GetFormular(named("A"))->GetVTPath(), path);
}

void TestZorvaFormularManager::parsedFormsAreHidden()
{
    QVERIFY(window("A")->isHidden());
}

void TestZorvaFormularManager::namesAreTranslationContexts()
{
    QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(named("A")), 0);
    manager->GetFormular(named("A"));
    QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(named("A")), 1);
    manager->Reset();
    QCOMPARE(TranslationCenter::Instance().GetRegistrationCount(named("A")), 0);
}

void TestZorvaFormularManager::applyBarOnRequest()
{
    QVERIFY(window("A")->findChild<QPushButton*>(named("applyButton")));
    manager->EnableApplyUi(false);
    QVERIFY(!window("B")->findChild<QPushButton*>(named("applyButton")));
    QVERIFY(window("A")->findChild<QPushButton*>(named("applyButton")));
}

void TestZorvaFormularManager::showsAndHides()
{
    QVERIFY(getAndShow("A"));
    QCOMPARE(manager->GetCurrentName(), named("A"));
    QVERIFY(window("A")->isVisible());
    QVERIFY(getAndShow("B"));
    QCOMPARE(manager->GetCurrentName(), named("B"));
    QVERIFY(!window("A")->isVisible());
    QVERIFY(window("B")->isVisible());
}

void TestZorvaFormularManager::atMostOneFormIsShown_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("shown");
    QTest::newRow("another") << "B"
                             << "C"
                             << "C";
    QTest::newRow("the wanted one") << "B"
                                    << "B"
                                    << "B";
    QTest::newRow("the one that is left") << "B"
                                          << "A"
                                          << "A";
    QTest::newRow("none") << "B"
                          << "nobody"
                          << "B";
    QTest::newRow("one for none") << "nobody"
                                  << "C"
                                  << "C";
}

// A host answers what hiding raises by showing a form itself.
void TestZorvaFormularManager::atMostOneFormIsShown()
{
    QFETCH(QString, wanted);
    QFETCH(QString, answer);
    QFETCH(QString, shown);
    manager->DefineFormular(named("C"), simpleForm(3));
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->GetFormular(named("B")));
    QVERIFY(manager->GetFormular(named("C")));
    bool answered = false;
    HideFilter filter([&] {
        if (!std::exchange(answered, true))
            manager->ShowFormular(answer);
    });
    window("A")->installEventFilter(&filter);
    QCOMPARE(manager->ShowFormular(wanted), shown == wanted);
    QCOMPARE(manager->GetCurrentName(), shown);
    QSignalSpy spy(manager.get(), &ZorvaFormularManager::si_parametersModified);
    for (const char* name : {"A", "B", "C"}) {
        QCOMPARE(window(name)->isVisible(), shown == named(name));
        spy.clear();
        level(name)->SetValue(30, nullptr);
        manager->GetFormular(named(name))->applyNow();
        QCOMPARE(spy.count(), shown == named(name) ? 1 : 0);
    }
}

void TestZorvaFormularManager::showingAnUnparsedNameHidesTheCurrentOne_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("defined") << named("B");
    QTest::newRow("unknown") << named("nobody");
    QTest::newRow("empty") << QString();
}

void TestZorvaFormularManager::showingAnUnparsedNameHidesTheCurrentOne()
{
    QFETCH(QString, name);
    QVERIFY(getAndShow("A"));
    QVERIFY(!manager->ShowFormular(name));
    QVERIFY(!window("A")->isVisible());
    QVERIFY(!manager->GetCurrentFormular());
    QVERIFY(manager->GetCurrentName().isNull());
    QVERIFY(manager->ShowFormular(named("A")));
    QVERIFY(window("A")->isVisible());
}

void TestZorvaFormularManager::showingTheCurrentOneAgain()
{
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->ShowFormular(named("A")));
    QVERIFY(window("A")->isVisible());
    QSignalSpy spy(manager.get(), &ZorvaFormularManager::si_parametersModified);
    level("A")->SetValue(30, nullptr);
    manager->GetCurrentFormular()->applyNow();
    QCOMPARE(spy.count(), 1);
}

void TestZorvaFormularManager::signalsOfTheCurrentFormOnly()
{
    QSignalSpy spy(manager.get(), &ZorvaFormularManager::si_parametersModified);
    QVERIFY(getAndShow("A"));
    QVERIFY(getAndShow("B"));
    level("A")->SetValue(30, nullptr);
    manager->GetFormular(named("A"))->applyNow();
    QCOMPARE(spy.count(), 0);
    level("B")->SetValue(30, nullptr);
    manager->GetFormular(named("B"))->applyNow();
    QCOMPARE(spy.count(), 1);
    manager->ShowFormular(named("nobody"));
    manager->GetFormular(named("B"))->applyNow();
    QCOMPARE(spy.count(), 1);
}

void TestZorvaFormularManager::leavingStopsTheTimerAndKeepsTheMark()
{
    manager->DefineFormular(named("quick"), simpleForm(1, {{"autoApplyTimeout", 100}}));
    QVERIFY(getAndShow("quick"));
    const auto quick = manager->GetFormular(named("quick"));
    QSignalSpy spy(quick.data(), &ZorvaFormular::si_parametersModified);
    level("quick")->SetValue(30, nullptr);
    QVERIFY(quick->GetSheet().isModified());
    QVERIFY(getAndShow("A"));
    // Another form with the same delay, started later, fires; this one must not.
    manager->DefineFormular(named("later"), simpleForm(1, {{"autoApplyTimeout", 100}}));
    QVERIFY(getAndShow("later"));
    QSignalSpy later(manager.get(), &ZorvaFormularManager::si_parametersModified);
    level("later")->SetValue(30, nullptr);
    QTRY_COMPARE(later.count(), 1);
    QCOMPARE(spy.count(), 0);
    QVERIFY(quick->GetSheet().isModified());
}

void TestZorvaFormularManager::autoApplyFollowsTheUser()
{
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->GetFormular(named("B"))->GetSheet().isAutoApplyEnabled());
    auto* const box = window("A")->findChild<QCheckBox*>(named("autoApply"));
    QVERIFY(QTest::qWaitForWindowExposed(window("A")));
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isAutoApplyEnabled());
    QVERIFY(manager->ShowFormular(named("B")));
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isAutoApplyEnabled());
    QVERIFY(!window("B")->findChild<QCheckBox*>(named("autoApply"))->isChecked());
    manager->GetCurrentFormular()->GetSheet().setAutoApplyEnabled(true);
    QVERIFY(manager->ShowFormular(named("A")));
    QVERIFY(box->isChecked());
}

void TestZorvaFormularManager::firstFormKeepsItsOwnAutoApply()
{
    manager->DefineFormular(named("off"), simpleForm(1, {{"autoApplyEnabled", false}}));
    QVERIFY(getAndShow("off"));
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isAutoApplyEnabled());
    QVERIFY(getAndShow("A"));
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isAutoApplyEnabled());
}

void TestZorvaFormularManager::autoApplyMemorySurvivesReset()
{
    QVERIFY(getAndShow("A"));
    manager->GetCurrentFormular()->GetSheet().setAutoApplyEnabled(false);
    QVERIFY(getAndShow("B"));
    manager->Reset();
    manager->DefineFormular(named("C"), simpleForm(1));
    QVERIFY(getAndShow("C"));
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isAutoApplyEnabled());
}

void TestZorvaFormularManager::formsOfTheHost()
{
    QExplicitlySharedDataPointer<ZorvaFormular> own(Orvane::ZorvaParser().ParseZORVA(simpleForm(7)));
    own->SetName(named("A"));
    own->CreateValueTree(named("/own"));
    own->CreateGUI(true);
    manager->AddFormular(own.data());
    manager->AddFormular(own.data());
    manager->AddFormular(nullptr);
    QCOMPARE(manager->GetFormular(named("A")), own);
    QVERIFY(manager->ShowFormular(named("A")));
    QCOMPARE(manager->GetXmlString(false).contains(named("<level>7</level>")), true);
    // The text of a form that is there already cannot be changed.
    manager->DefineFormular(named("A"), QString());
    QCOMPARE(manager->GetZorva(named("A")), simpleForm(1));
    QExplicitlySharedDataPointer<ZorvaFormular> other(new ZorvaFormular);
    other->SetName(named("A"));
    manager->AddFormular(other.data());
    QCOMPARE(manager->GetFormular(named("A")), other);
    QCOMPARE(manager->GetCurrentFormular(), own);
    delete own->GetGUI();
}

void TestZorvaFormularManager::aFormWithoutWidgetsCanBeCurrent()
{
    auto* const bare = new ZorvaFormular;
    bare->SetName(named("bare"));
    manager->AddFormular(bare);
    QVERIFY(manager->ShowFormular(named("bare")));
    QCOMPARE(manager->GetCurrentName(), named("bare"));
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->ShowFormular(named("bare")));
    QVERIFY(!window("A")->isVisible());
}

void TestZorvaFormularManager::resetForgetsEverything()
{
    QVERIFY(getAndShow("A"));
    const QPointer<QWidget> top = window("A");
    manager->Reset();
    QVERIFY(manager->GetCurrentName().isNull());
    QVERIFY(!manager->GetCurrentFormular());
    QVERIFY(manager->GetNames().isEmpty());
    QVERIFY(!manager->GetFormular(named("A")));
    QVERIFY(values::Tree::Instance()->IsEmpty());
    // The window lives on to the next turn of the event loop.
    QVERIFY(top);
    QTRY_VERIFY(!top);
    manager->Reset();
}

void TestZorvaFormularManager::resetKeepsTheSettings()
{
    QObject config;
    config.setProperty("key-collapsed", named("group"));
    manager->EnableApplyUi(false);
    manager->SetConfigObject(&config, named("key"));
    manager->Reset();
    manager->DefineFormular(named("A"), simpleForm(1));
    QVERIFY(getAndShow("A"));
    QCOMPARE(manager->GetCurrentFormular()->GetVTPath(), named("/forms/A"));
    QVERIFY(!window("A")->findChild<QPushButton*>(named("applyButton")));
    QCOMPARE(manager->GetCurrentFormular()->GetSheet().GetCollapsed(), QStringList{named("group")});
}

void TestZorvaFormularManager::resetLeavesASharedForm()
{
    QVERIFY(getAndShow("A"));
    QExplicitlySharedDataPointer<ZorvaFormular> shared = manager->GetCurrentFormular();
    manager->Reset();
    QTRY_VERIFY(!shared->GetGUI());
    QVERIFY(treeValue("/forms/A/level"));
    QVERIFY(shared->SetVTValue(named("level"), named("44"), nullptr, true));
    QVERIFY(shared->GetXmlString(false).contains(named("<level>44</level>")));
    shared->SetXmlString(named("<Parameters><level>45</level></Parameters>"));
    QCOMPARE(shared->GetVTValue(named("level"))->GetStringValue(), named("45"));
    // The same name again gets a form of its own; the node is still taken.
    manager->DefineFormular(named("A"), simpleForm(3));
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->GetCurrentFormular() != shared);
    shared.reset();
}

void TestZorvaFormularManager::resetDuringTheSignal_data()
{
    QTest::addColumn<bool>("bar");
    QTest::addColumn<bool>("user");
    QTest::newRow("apply bar, code") << true << false;
    QTest::newRow("no bar, code") << false << false;
    QTest::newRow("apply bar, button") << true << true;
    QTest::newRow("no bar, keys") << false << true;
}

void TestZorvaFormularManager::resetDuringTheSignal()
{
    QFETCH(bool, bar);
    QFETCH(bool, user);
    manager->EnableApplyUi(bar);
    QVERIFY(getAndShow("A"));
    int count = 0;
    connect(manager.get(), &ZorvaFormularManager::si_parametersModified, this, [&] {
        ++count;
        manager->Reset();
    });
    QWidget* const top = window("A");
    if (user && bar) {
        level("A")->SetValue(30, nullptr);
        QTest::mousePress(top->findChild<QPushButton*>(named("applyButton")), Qt::LeftButton);
    } else if (user) {
        QTest::keyClick(top->findChild<QAbstractSpinBox*>(named("level")), Qt::Key_Up);
    } else {
        level("A")->SetValue(30, nullptr);
        if (bar)
            manager->GetCurrentFormular()->applyNow();
    }
    QCOMPARE(count, 1);
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

void TestZorvaFormularManager::resetDuringAWriteOfTheHost_data()
{
    QTest::addColumn<bool>("bar");
    QTest::newRow("apply bar") << true;
    QTest::newRow("no bar") << false;
}

void TestZorvaFormularManager::resetDuringAWriteOfTheHost()
{
    QFETCH(bool, bar);
    manager->EnableApplyUi(bar);
    QVERIFY(getAndShow("A"));
    connect(manager.get(), &ZorvaFormularManager::si_parametersModified, this, [&] { manager->Reset(); });
    NumericInt host(named("level"));
    host.SetValue(5, nullptr);
    QVERIFY(manager->SetVTValue(&host, nullptr));
    QVERIFY(!manager->GetCurrentFormular());
}

void TestZorvaFormularManager::resetWhileLeaving()
{
    QVERIFY(getAndShow("A"));
    QVERIFY(manager->GetFormular(named("B")));
    HideFilter filter([this] { manager->Reset(); });
    window("A")->installEventFilter(&filter);
    QVERIFY(!manager->ShowFormular(named("B")));
    QVERIFY(!manager->GetCurrentFormular());
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

void TestZorvaFormularManager::formsWithDeletedWindows()
{
    QVERIFY(getAndShow("A"));
    delete window("A");
    QVERIFY(getAndShow("B"));
    QVERIFY(manager->ShowFormular(named("A")));
    manager->SetXmlString(named("<Parameters><level>45</level></Parameters>"));
    QCOMPARE(level("A")->GetValue(), 45);
    manager->RestoreConfiguration();
    manager->Reset();
}

void TestZorvaFormularManager::withoutACurrentFormNothingHappens()
{
    NumericInt host(named("level"));
    host.SetValue(5, nullptr);
    QVERIFY(manager->GetEmptyXmlElement().isNull());
    QVERIFY(manager->GetXmlString(false).isNull());
    QVERIFY(manager->GetXmlString(true).isNull());
    manager->SetXmlString(named("<Parameters><level>45</level></Parameters>"));
    QVERIFY(!manager->SetVTValue(&host, nullptr));
    manager->SetCurrentModified(true);
    QVERIFY(!manager->isWidgetModified());
    manager->RestoreConfiguration();
    QVERIFY(manager->GetCurrentName().isNull());
    // Parsed is not current.
    manager->GetFormular(named("A"));
    QVERIFY(manager->GetXmlString(false).isNull());
    QCOMPARE(level("A")->GetValue(), 1);
}

void TestZorvaFormularManager::forwardsParameterXml()
{
    QVERIFY(getAndShow("A"));
    QCOMPARE(manager->GetEmptyXmlElement(), named("<Parameters/>"));
    QVERIFY(manager->GetXmlString(true).isNull());
    QVERIFY(manager->GetXmlString(false).contains(named("<level>1</level>")));
    manager->SetXmlString(named("<Parameters><level>45</level></Parameters>"));
    QCOMPARE(level("A")->GetValue(), 45);
    QVERIFY(getAndShow("B"));
    QVERIFY(manager->GetXmlString(false).contains(named("<level>2</level>")));
}

void TestZorvaFormularManager::forwardsValues()
{
    QVERIFY(getAndShow("A"));
    QSignalSpy spy(manager.get(), &ZorvaFormularManager::si_parametersModified);
    NumericInt host(named("level"));
    host.SetValue(5, nullptr);
    QVERIFY(manager->SetVTValue(&host, nullptr));
    QCOMPARE(level("A")->GetValue(), 5);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!manager->SetVTValue(&host, nullptr));
    QVERIFY(!manager->SetVTValue(nullptr, nullptr));
    QCOMPARE(spy.count(), 1);
    ValueString text(named("text"));
    manager->GetVTValues({&host, &text}, nullptr, false);
    QCOMPARE(text.GetValue(), named("abc"));
}

void TestZorvaFormularManager::blanksValuesWithoutAForm_data()
{
    QTest::addColumn<bool>("initialize");
    QTest::newRow("initialize") << true;
    QTest::newRow("do not") << false;
}

void TestZorvaFormularManager::blanksValuesWithoutAForm()
{
    QFETCH(bool, initialize);
    ValueString text(named("text"));
    NumericInt number(named("level"));
    text.SetValue(named("x"), nullptr);
    number.SetValue(5, nullptr);
    QStringList log;
    RecordingObserver first(named("text"), &log);
    RecordingObserver second(named("number"), &log);
    first.watch(&text);
    second.watch(&number);
    // Nobody is the originator, the caller is told too.
    manager->GetVTValues({&text, nullptr, &number}, &first, initialize);
    QCOMPARE(text.GetValue(), initialize ? QString() : named("x"));
    QCOMPARE(number.GetValue(), initialize ? 0 : 5);
    QCOMPARE(log, initialize ? (QStringList{named("number:3"), named("text:3")}) : QStringList());
}

void TestZorvaFormularManager::marksTheCurrentForm()
{
    QVERIFY(getAndShow("A"));
    manager->SetCurrentModified(false);
    QVERIFY(manager->GetCurrentFormular()->GetSheet().isModified());
    QVERIFY(window("A")->findChild<QPushButton*>(named("applyButton"))->isEnabled());
}

void TestZorvaFormularManager::isWidgetModifiedClearsAnIdleMark()
{
    QVERIFY(getAndShow("A"));
    QVERIFY(!manager->isWidgetModified());
    level("A")->SetValue(30, nullptr);
    QVERIFY(manager->isWidgetModified());
    QVERIFY(manager->GetCurrentFormular()->GetSheet().isModified());
    manager->GetCurrentFormular()->SelectWidgets({}, false);
    QVERIFY(!manager->isWidgetModified());
    QVERIFY(!manager->GetCurrentFormular()->GetSheet().isModified());
    QVERIFY(!window("A")->findChild<QPushButton*>(named("applyButton"))->isEnabled());
    QVERIFY(!manager->isWidgetModified());
}

void TestZorvaFormularManager::configurationGoesToAllForms()
{
    QObject config;
    config.setProperty("key-collapsed", named("group"));
    manager->GetFormular(named("A"));
    manager->SetConfigObject(&config, named("key"));
    QCOMPARE(manager->GetFormular(named("A"))->GetSheet().GetCollapsed(), QStringList{named("group")});
    // A form made later gets it when it is shown.
    QVERIFY(manager->GetFormular(named("B"))->GetSheet().GetCollapsed().isEmpty());
    QVERIFY(manager->ShowFormular(named("B")));
    QCOMPARE(manager->GetFormular(named("B"))->GetSheet().GetCollapsed(), QStringList{named("group")});
    // Showing again restores nothing that was restored before.
    manager->GetFormular(named("B"))->GetSheet().SetCollapsed({});
    QVERIFY(manager->ShowFormular(named("B")));
    QVERIFY(manager->GetFormular(named("B"))->GetSheet().GetCollapsed().isEmpty());
}

void TestZorvaFormularManager::restoresTheCurrentForm()
{
    QObject config;
    manager->SetConfigObject(&config, named("key"));
    QVERIFY(getAndShow("A"));
    manager->GetFormular(named("B"));
    config.setProperty("key-collapsed", named("group"));
    QVERIFY(QMetaObject::invokeMethod(manager.get(), "RestoreConfiguration"));
    QCOMPARE(manager->GetFormular(named("A"))->GetSheet().GetCollapsed(), QStringList{named("group")});
    QVERIFY(manager->GetFormular(named("B"))->GetSheet().GetCollapsed().isEmpty());
}

QTEST_MAIN(TestZorvaFormularManager)
#include "tst_zorvaformularmanager.moc"
