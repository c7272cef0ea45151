#include <formfixture.h>
#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvaparser.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using Orvane::ZorvaFormular;
using Orvane::ZorvaFormularManager;
using values::NumericInt;
using values::ValueString;

namespace {

QString named(const char* name)
{
    return QString::fromUtf8(name);
}

/// Rows of many kinds, a group, and a script that holds on to rows.
QString richForm()
{
    const QString modes = enumXml("Modes", {{"Slow", "MODE_SLOW", "1"}, {"Fast", "MODE_FAST", "2"}});
    const QString rows =
        rowXml("Headline", "group", {{"text", "Group"}}) +
        rowXml("SpinBox", "level", {{"labelText", "Level"}, {"value", 20}, {"maximum", 100}}) +
        rowXml("DoubleSpinBox", "gain", {{"value", "1.5"}}) + rowXml("BandwidthEdit", "bandwidth") +
        rowXml("CheckBox", "flag") + rowXml("LineEdit", "text", {{"text", "abc"}}) +
        rowXml("ComboBox", "mode", {{"enumName", "Modes"}}) +
        rowXml("FrequencyEdit", "frequency", {{"frequency", "98500000"}}) +
        rowXml("FrequencyRangeEdit", "range") + rowXml("HiddenParameter", "hidden", {{"value", "1"}}) +
        rowXml("SpinBoxList", "list", {{"count", 3}}) + rowXml("TableWidget", "table") +
        rowXml("PushButton", "button", {{"text", "Go"}}) + rowXml("Label", "note", {{"text", "Note"}}) +
        rowXml("SpecialObject_FHP", "fhp") + rowXml("SpecialObject_FFT", "fft");
    return formXml(rows, modes, named("level.valueChanged.connect(function(v) { text.setText('' + v) });"));
}

/// A host with one form and everything that can belong to it, each to be
/// destroyed by its number.
class Host
{
public:
    enum Part { Form, Window, Manager, Config, Values, Inserted, PartCount };

    Host()
        : manager(new ZorvaFormularManager)
        , config(new QObject)
        , inserted(new QLineEdit)
        , form(Orvane::ZorvaParser().ParseZORVA(richForm()))
    {
        form->SetName(named("form"));
        form->GetSheet().InsertWidget(named("extra"), named("Extra"), inserted, -1);
        form->CreateValueTree(named("/form"));
        form->CreateGUI(true);
        manager->AddFormular(form.data());
        manager->SetConfigObject(config.get(), named("key"));
        manager->ShowFormular(named("form"));
        window = form->GetGUI();
        hostNumber = std::make_unique<NumericInt>(named("level"));
        hostText = std::make_unique<ValueString>(named("text"));
        numberWatch.watch(hostNumber.get());
        level = form->GetVTValue(named("level"));
        levelWatch.watch(level);
    }

    ~Host() { destroyAll(); }

    void destroyAll()
    {
        for (int part = 0; part < PartCount; ++part)
            destroy(part);
    }

    void destroy(int part)
    {
        switch (part) {
        case Form:
            form.reset();
            break;
        case Window:
            delete window;
            break;
        case Manager:
            manager.reset();
            break;
        case Config:
            config.reset();
            break;
        case Values:
            hostNumber.reset();
            hostText.reset();
            break;
        case Inserted:
            delete inserted;
            break;
        default:
            break;
        }
    }

    /// Does what a host and a user do, with whatever is left.
    void use()
    {
        const int number = ++round + 20;
        if (hostNumber)
            hostNumber->SetValue(number, nullptr);
        useManager();
        useForm(number);
        if (config)
            config->setProperty("key-collapsed", round % 2 ? QVariant(named("group")) : QVariant());
        if (inserted)
            inserted->setText(QString::number(number));
        useWindow();
    }

private:
    void useManager()
    {
        if (!manager)
            return;
        manager->SetVTValue(hostNumber.get(), &numberWatch);
        manager->GetVTValues({hostNumber.get(), hostText.get()}, nullptr, true);
        manager->SetCurrentModified(true);
        manager->isWidgetModified();
        manager->RestoreConfiguration();
        manager->SetXmlString(manager->GetXmlString(false));
        manager->ShowFormular(named("form"));
    }

    void useForm(int number)
    {
        if (!form)
            return;
        form->SetVTValue(named("level"), QString::number(number), nullptr, true);
        form->InitVTValue(named("level"), hostNumber.get());
        form->SetChangedZORVA(QStringLiteral("<KVParamGui><Sheet>%1</Sheet></KVParamGui>")
                                  .arg(widgetXml("", "level", {{"labelText", QString::number(number)}}) +
                                       widgetXml("", "extra", {{"enabled", number % 2 == 0}})));
        form->EvaluateScript(named("text.setText('x'); mode.setCurrentIndex(1); level.setFocus()"));
        form->EnableInput(number % 2 == 0);
        form->GetSheet().SetCollapsed({number % 2 ? named("group") : QString()});
        form->GetSheet().GetWidget(named("extra"))->GetDelegate()->setFocus();
        form->ApplyConfiguration();
        form->RestoreConfiguration();
    }

    void useWindow()
    {
        if (!window)
            return;
        for (QLineEdit* edit : window->findChildren<QLineEdit*>())
            QTest::keyClick(edit, Qt::Key_1);
        window->setFont(QApplication::font());
        QCoreApplication::sendPostedEvents();
    }

public:
    std::unique_ptr<ZorvaFormularManager> manager;
    std::unique_ptr<QObject> config;
    QPointer<QLineEdit> inserted;
    QExplicitlySharedDataPointer<ZorvaFormular> form;
    QPointer<QWidget> window;
    std::unique_ptr<NumericInt> hostNumber;
    std::unique_ptr<ValueString> hostText;
    values::ValueBase* level = nullptr; // the form's
    RecordingObserver numberWatch;
    RecordingObserver levelWatch;

private:
    int round = 0;
};

QString title(const std::vector<int>& order)
{
    const char* const names[] = {"form", "window", "manager", "config", "values", "inserted"};
    QStringList words;
    for (const int part : order)
        words << QLatin1String(names[part]);
    return words.join(QLatin1Char(' '));
}

} // namespace

class TestLifetimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        guard->allow(QRegularExpression(QStringLiteral("propagateSizeHints")));
    }
    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    void everyOrder();
    void everyOrderInUse();
    void theFormLeavesNoObserverBehind();
    void theFormsValuesMayBeRemovedByTheHost();
    void theWindowIsTheHosts();
    void theWindowCanBeBuiltAgain();
    void controlsMayDieOneByOne();
    void valuesCanBeCreatedAgain();
    void signalsMayDestroyTheForm_data();
    void signalsMayDestroyTheForm();
    void hundredForms();

    void insertedWidgetIsLaidOutLikeAnyRow();
    void insertedWidgetStaysTheHostsUntilLaidOut();
    void insertedWidgetMayDieBeforeItIsLaidOut();
    void insertedWidgetPositions();
    void insertedWidgetFollowsItsRow();
    void insertedWidgetTakesNoPartInParameterXml();
    void nullWidgetGivesAnEmptyRow();

private:
    std::unique_ptr<MessageGuard> guard;
};

void TestLifetimes::everyOrder()
{
    std::vector<int> order{0, 1, 2, 3, 4, 5};
    do {
        Host host;
        for (const int part : order)
            host.destroy(part);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(leftovers().isEmpty(), qPrintable(title(order) + QLatin1Char('\n') + leftovers()));
    } while (std::next_permutation(order.begin(), order.end()));
}

void TestLifetimes::everyOrderInUse()
{
    // What is left must go on working after each loss; the last two losses add nothing new.
    std::vector<int> order{0, 1, 2, 3, 4, 5};
    int count = 0;
    do {
        // Each set of four in each order once.
        if (order[4] > order[5] || ++count % 5 != 0)
            continue;
        Host host;
        host.use();
        for (const int part : order) {
            host.destroy(part);
            host.use();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(leftovers().isEmpty(), qPrintable(title(order) + QLatin1Char('\n') + leftovers()));
    } while (std::next_permutation(order.begin(), order.end()));
}

void TestLifetimes::theFormLeavesNoObserverBehind()
{
    Host host;
    host.use();
    // Only the test's own watcher is on the host's value: the form observes nothing of the host.
    QCOMPARE(host.hostNumber->GetObserverCount(), 1);
    // Row, control and the test's watcher.
    QCOMPARE(host.level->GetObserverCount(), 3);
    host.destroy(Host::Window);
    QCOMPARE(host.level->GetObserverCount(), 2);
    host.destroy(Host::Manager);
    host.levelWatch.takeCodes();
    host.destroy(Host::Form);
    QCOMPARE(host.levelWatch.takeCodes(), QList<TChangeCode>{ChangeCode::State});
    QVERIFY(values::Tree::Instance()->IsEmpty());
    QCOMPARE(host.hostNumber->GetObserverCount(), 1);
}

void TestLifetimes::theFormsValuesMayBeRemovedByTheHost()
{
    Host host;
    values::Tree* const tree = values::Tree::Instance();
    for (const QString& path : tree->GetPathNames())
        tree->RemoveValue(path);
    QVERIFY(!host.form->GetVTValue(named("level")));
    QVERIFY(!host.form->SetVTValue(named("level"), named("3"), nullptr, true));
    host.use();
    host.form->CreateValueTree(named("/form"));
    QVERIFY(host.form->GetVTValue(named("level")));
    host.use();
}

void TestLifetimes::theWindowIsTheHosts()
{
    Host host;
    QWidget frame;
    host.window->setParent(&frame);
    host.destroy(Host::Manager);
    host.destroy(Host::Form);
    QVERIFY(host.window);
    QCOMPARE(host.window->parentWidget(), &frame);
    QVERIFY(!host.window->findChild<QAbstractButton*>(named("flag"))->isEnabled());
    for (const QWidget* control : host.window->findChildren<QWidget*>())
        QVERIFY(control->updatesEnabled());
    host.use();
}

void TestLifetimes::theWindowCanBeBuiltAgain()
{
    Host host;
    host.destroy(Host::Window);
    host.form->CreateGUI(true);
    host.window = host.form->GetGUI();
    QVERIFY(host.window);
    QVERIFY(host.window->findChild<QLabel*>(named("labellevel")));
    QVERIFY(!host.window->findChild<QLineEdit*>(named("extra")));
    host.use();
    QCOMPARE(host.level->GetObserverCount(), 3);
}

void TestLifetimes::controlsMayDieOneByOne()
{
    Host host;
    const QList<QWidget*> all = host.window->findChildren<QWidget*>();
    QList<QPointer<QWidget>> controls;
    for (QWidget* control : all)
        controls << QPointer<QWidget>(control);
    for (const QPointer<QWidget>& control : controls) {
        delete control;
        host.form->SetVTValue(named("level"), named("5"), nullptr, true);
        host.form->EvaluateScript(named("level.setMaximum(50); mode.setFocus(); text.setVisible(false)"));
    }
    host.use();
}

void TestLifetimes::valuesCanBeCreatedAgain()
{
    Host host;
    const int count = values::Tree::Instance()->GetValueCount();
    host.form->CreateValueTree(named("/form"));
    QCOMPARE(values::Tree::Instance()->GetValueCount(), count);
    host.use();
    host.form->CreateValueTree(named("/elsewhere"));
    QVERIFY(values::Tree::Instance()->GetValue(named("/elsewhere/level")));
    QVERIFY(!values::Tree::Instance()->GetValue(named("/form/level")));
    host.use();
}

void TestLifetimes::signalsMayDestroyTheForm_data()
{
    QTest::addColumn<int>("part");
    QTest::newRow("manager and form") << int(Host::Form);
    QTest::newRow("window") << int(Host::Window);
    QTest::newRow("configuration") << int(Host::Config);
}

void TestLifetimes::signalsMayDestroyTheForm()
{
    QFETCH(int, part);
    Host host;
    int count = 0;
    connect(host.form.data(), &ZorvaFormular::si_parametersModified, this, [&] {
        ++count;
        if (part == Host::Form)
            host.manager->Reset();
        host.destroy(part);
    });
    host.form->SetVTValue(named("level"), named("77"), nullptr, true);
    QCOMPARE(count, 1);
}

void TestLifetimes::hundredForms()
{
    ZorvaFormularManager manager;
    for (int i = 0; i < 100; ++i)
        manager.DefineFormular(QString::number(i), richForm());
    for (const QString& name : manager.GetNames()) {
        QVERIFY(manager.GetFormular(name));
        QVERIFY(manager.ShowFormular(name));
    }
    manager.Reset();
    QVERIFY(values::Tree::Instance()->IsEmpty());
}

void TestLifetimes::insertedWidgetIsLaidOutLikeAnyRow()
{
    FormFixture form(rowXml("LineEdit", "text", {{"labelText", "Caption"}}), FormFixture::WithValues);
    auto* const own = new QPushButton(named("Own"));
    const auto row = form.sheet().InsertWidget(named("own"), named("Caption"), own, -1);
    QCOMPARE(row->GetClass(), named("QPushButton"));
    QCOMPARE(row->GetName(), named("own"));
    QCOMPARE(row->GetDelegate()->objectName(), named("own"));
    QVERIFY(!own->parentWidget());
    form.createGui();
    QCOMPARE(own->parentWidget(), form.control<QWidget>("text")->parentWidget());
    QCOMPARE(form.control<QLabel>("labelown")->text(), named("Caption"));
    form.show();
    QVERIFY(own->isVisible());
    QCOMPARE(own->x(), form.control<QWidget>("text")->x());
    QCOMPARE(own->width(), form.control<QWidget>("text")->width());
    QVERIFY(!form.formular()->GetScriptValues().contains(named("own")));
}

void TestLifetimes::insertedWidgetStaysTheHostsUntilLaidOut()
{
    QPushButton own;
    {
        FormFixture form(rowXml("LineEdit", "text"), FormFixture::Parsed);
        form.sheet().InsertWidget(named("own"), named("Caption"), &own, 0);
    }
    QVERIFY(!own.parentWidget());
}

void TestLifetimes::insertedWidgetMayDieBeforeItIsLaidOut()
{
    FormFixture form(rowXml("LineEdit", "text"), FormFixture::Parsed);
    auto* const own = new QPushButton;
    const auto row = form.sheet().InsertWidget(named("own"), named("Caption"), own, -1);
    delete own;
    form.createValues();
    form.createGui();
    QVERIFY(!form.control<QLabel>("labelown"));
    row->GetDelegate()->setVisible(false);
    row->GetDelegate()->setFocus();
}

void TestLifetimes::insertedWidgetPositions()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "Head"}}) + rowXml("LineEdit", "text"),
                     FormFixture::Parsed);
    Orvane::ZorvaSheet& sheet = form.sheet();
    sheet.InsertWidget(named("last"), QString(), new QWidget, -1);
    sheet.InsertWidget(named("first"), QString(), new QWidget, 0);
    sheet.InsertWidget(named("middle"), QString(), new QWidget, 2);
    sheet.InsertWidget(named("beyond"), QString(), new QWidget, 1000);
    QStringList names;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        names << sheet.GetWidgetAt(i)->GetName();
    QCOMPARE(names, (QStringList{named("first"), named("head"), named("middle"), named("text"), named("last"),
                                 named("beyond")}));
    form.createValues();
    form.createGui();
    // Ahead of the first headline there is no group.
    sheet.SetCollapsed({named("head")});
    QVERIFY(sheet.GetWidgetAt(0)->GetDelegate()->isGroupVisible());
    QVERIFY(!sheet.GetWidgetAt(2)->GetDelegate()->isGroupVisible());
}

void TestLifetimes::insertedWidgetFollowsItsRow()
{
    FormFixture form(rowXml("LineEdit", "text"), FormFixture::WithValues);
    auto* const own = new QLineEdit;
    own->setEnabled(false);
    Orvane::ZorvaDelegate* const row =
        form.sheet().InsertWidget(named("own"), named("Caption"), own, -1)->GetDelegate();
    form.createGui();
    form.show();
    QVERIFY(own->isEnabled());
    row->setFocus();
    QTRY_VERIFY(own->hasFocus());
    row->setVisible(false);
    QVERIFY(own->isHidden());
    QVERIFY(form.control<QLabel>("labelown")->isHidden());
    row->setVisible(true);
    QVERIFY(!own->isHidden());
    form.formular()->EnableInput(false);
    QVERIFY(!own->isEnabled());
    form.formular()->EnableInput(true);
    QVERIFY(own->isEnabled());
    row->setReadOnly(true);
    QVERIFY(own->isReadOnly());
}

void TestLifetimes::insertedWidgetTakesNoPartInParameterXml()
{
    FormFixture form(QString(), FormFixture::Parsed);
    form.sheet().InsertWidget(named("own"), QString(), new QWidget, -1);
    form.createValues();
    QVERIFY(!form.formular()->GetXmlString(false).contains(named("own")));
    QVERIFY(!form.formular()->GetVTValue(QString()));
    QVERIFY(form.sheet().GetWidget(QString()));
    form.createGui();
}

void TestLifetimes::nullWidgetGivesAnEmptyRow()
{
    FormFixture form(QString(), FormFixture::Parsed);
    const auto row = form.sheet().InsertWidget(named("own"), named("Caption"), nullptr, -1);
    form.createValues();
    form.createGui();
    QVERIFY(!form.control<QLabel>("labelown"));
    row->GetDelegate()->setFocus();
    row->GetDelegate()->setVisible(false);
}

QTEST_MAIN(TestLifetimes)
#include "tst_lifetimes.moc"
