#include <formfixture.h>
#include <leftovers.h>
#include <messageguard.h>

#include <zorvaparser/zorvasheet.h>

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QTest>

#include <memory>

using Orvane::ZorvaSheet;

namespace {

QString named(const char* name)
{
    return QString::fromUtf8(name);
}

QString groups()
{
    return rowXml("LineEdit", "top", {{"labelText", "Top"}}) +
           rowXml("Headline", "first", {{"text", "First"}}) +
           rowXml("LineEdit", "one", {{"labelText", "One"}}) +
           rowXml("Headline", "second", {{"text", "Second"}}) + rowXml("LineEdit", "two") +
           rowXml("Headline", "with,comma", {{"text", "Third"}}) + rowXml("LineEdit", "three");
}

int normalSize()
{
    return QApplication::font().pointSize();
}

} // namespace

class TestConfiguration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        // The offscreen platform says so for each window of a fixed size.
        guard->allow(QRegularExpression(QStringLiteral("propagateSizeHints")));
        form = std::make_unique<FormFixture>(groups());
        config = std::make_unique<QObject>();
    }
    void cleanup()
    {
        form.reset();
        config.reset();
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    void defaultsLeaveNoTrace();
    void fontSizeIsStoredAndRestored();
    void normalFontSizeIsRemoved();
    void uselessSizesCountAsAbsent_data();
    void uselessSizesCountAsAbsent();
    void withoutAnObjectTheSizeStillChanges();
    void collapsedGroupsAreStored();
    void collapsedGroupsAreRestored_data();
    void collapsedGroupsAreRestored();
    void namesWithACommaOpenAgain();
    void aClickOnAHeadlineStores();
    void inputDisabledIsOnlyRead_data();
    void inputDisabledIsOnlyRead();
    void inputDisabledHasNoKey();
    void equalArgumentsRestoreOnce();
    void anotherKeyRestores();
    void anotherObjectRestores();
    void keysKeepFormsApart();
    void noObjectDoesNothing();
    void restoredBeforeAndAfterTheWidgets();
    void groupsCollapsedBeforeTheWidgetsComeUpCollapsed();
    void inputSwitchedOffBeforeTheWidgetsComesUpOff();
    void theObjectMayDieFirst();
    void aNewObjectAtTheSamePlaceIsNew();
    void sizeOutlivesAStyleSheet_data();
    void sizeOutlivesAStyleSheet();

private:
    int fontSize() const { return form->window()->font().pointSize(); }
    void chooseSize(int size)
    {
        QVERIFY(
            QMetaObject::invokeMethod(form->sheet().GetDelegate(), "si_chooseFontSize", Q_ARG(int, size)));
    }

    std::unique_ptr<MessageGuard> guard;
    std::unique_ptr<FormFixture> form;
    std::unique_ptr<QObject> config;
};

void TestConfiguration::defaultsLeaveNoTrace()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->formular()->ApplyConfiguration();
    QVERIFY(config->dynamicPropertyNames().isEmpty());
}

void TestConfiguration::fontSizeIsStoredAndRestored()
{
    const int size = normalSize() + 4;
    form->formular()->SetConfigObject(config.get(), named("key"));
    chooseSize(size);
    QCOMPARE(fontSize(), size);
    QCOMPARE(config->property("key-fontsize"), QVariant(size));
    QCOMPARE(config->property("key-fontsize").userType(), int(QMetaType::Int));
    FormFixture other(groups(), FormFixture::Parsed);
    other.formular()->SetConfigObject(config.get(), named("key"));
    other.formular()->CreateValueTree(named("/other"));
    other.createGui();
    QCOMPARE(other.window()->font().pointSize(), size);
}

void TestConfiguration::normalFontSizeIsRemoved()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    chooseSize(normalSize() + 2);
    QVERIFY(config->property("key-fontsize").isValid());
    chooseSize(normalSize());
    QVERIFY(config->dynamicPropertyNames().isEmpty());
}

void TestConfiguration::uselessSizesCountAsAbsent_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("absent") << QVariant();
    QTest::newRow("zero") << QVariant(0);
    QTest::newRow("negative") << QVariant(-3);
    QTest::newRow("no number") << QVariant(named("large"));
}

void TestConfiguration::uselessSizesCountAsAbsent()
{
    QFETCH(QVariant, stored);
    form->sheet().SetFontSize(normalSize() + 6);
    config->setProperty("key-fontsize", stored);
    form->formular()->SetConfigObject(config.get(), named("key"));
    QCOMPARE(fontSize(), normalSize());
}

void TestConfiguration::withoutAnObjectTheSizeStillChanges()
{
    chooseSize(normalSize() + 2);
    QCOMPARE(fontSize(), normalSize() + 2);
    form->formular()->RestoreConfiguration();
    form->formular()->ApplyConfiguration();
    QCOMPARE(fontSize(), normalSize() + 2);
    QVERIFY(config->dynamicPropertyNames().isEmpty());
}

void TestConfiguration::collapsedGroupsAreStored()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->sheet().SetCollapsed({named("second"), named("first"), named("one")});
    form->formular()->ApplyConfiguration();
    QCOMPARE(config->property("key-collapsed"), QVariant(named("first,second")));
    form->sheet().SetCollapsed({});
    form->formular()->ApplyConfiguration();
    QVERIFY(!config->property("key-collapsed").isValid());
}

void TestConfiguration::collapsedGroupsAreRestored_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QStringList>("collapsed");
    QTest::newRow("one") << QVariant(named("second")) << QStringList{named("second")};
    QTest::newRow("two, in another order")
        << QVariant(named("second,first")) << QStringList{named("first"), named("second")};
    QTest::newRow("unknown ones") << QVariant(named("nobody,second,one")) << QStringList{named("second")};
    QTest::newRow("empty parts") << QVariant(named(",,first,")) << QStringList{named("first")};
    QTest::newRow("other case") << QVariant(named("First")) << QStringList();
    QTest::newRow("blank in front") << QVariant(named(" first")) << QStringList();
    QTest::newRow("empty") << QVariant(named("")) << QStringList();
    QTest::newRow("absent") << QVariant() << QStringList();
}

void TestConfiguration::collapsedGroupsAreRestored()
{
    QFETCH(QVariant, stored);
    QFETCH(QStringList, collapsed);
    form->sheet().SetCollapsed({named("first"), named("with,comma")});
    config->setProperty("key-collapsed", stored);
    form->formular()->SetConfigObject(config.get(), named("key"));
    QCOMPARE(form->sheet().GetCollapsed(), collapsed);
    QCOMPARE(form->control<QWidget>("two")->isHidden(), collapsed.contains(named("second")));
    QVERIFY(!form->control<QWidget>("top")->isHidden());
}

void TestConfiguration::namesWithACommaOpenAgain()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->sheet().SetCollapsed({named("with,comma")});
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("with,comma")});
    form->formular()->ApplyConfiguration();
    QCOMPARE(config->property("key-collapsed"), QVariant(named("with,comma")));
    form->formular()->RestoreConfiguration();
    QVERIFY(form->sheet().GetCollapsed().isEmpty());
}

void TestConfiguration::aClickOnAHeadlineStores()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->show();
    QTest::keyClick(form->control<QGroupBox>("first"), Qt::Key_Space);
    QCOMPARE(config->property("key-collapsed"), QVariant(named("first")));
    QVERIFY(form->control<QWidget>("one")->isHidden());
    QTest::keyClick(form->control<QGroupBox>("first"), Qt::Key_Space);
    QVERIFY(!config->property("key-collapsed").isValid());
}

void TestConfiguration::inputDisabledIsOnlyRead_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("absent keeps off") << QVariant() << false << false;
    QTest::newRow("absent keeps on") << QVariant() << true << true;
    QTest::newRow("true") << QVariant(true) << true << false;
    QTest::newRow("false enables") << QVariant(false) << false << true;
    QTest::newRow("text") << QVariant(named("yes")) << true << false;
    QTest::newRow("number") << QVariant(0) << false << true;
}

void TestConfiguration::inputDisabledIsOnlyRead()
{
    QFETCH(QVariant, stored);
    QFETCH(bool, before);
    QFETCH(bool, after);
    form->formular()->EnableInput(before);
    config->setProperty("input-disabled", stored);
    form->formular()->SetConfigObject(config.get(), named("key"));
    QCOMPARE(form->formular()->IsInputEnabled(), after);
    QCOMPARE(form->control<QWidget>("top")->isEnabled(), after);
    form->formular()->EnableInput(!after);
    form->formular()->ApplyConfiguration();
    QCOMPARE(config->property("input-disabled"), stored);
}

void TestConfiguration::inputDisabledHasNoKey()
{
    FormFixture other(groups());
    config->setProperty("input-disabled", true);
    form->formular()->SetConfigObject(config.get(), named("a"));
    other.formular()->SetConfigObject(config.get(), named("b"));
    QVERIFY(!form->formular()->IsInputEnabled());
    QVERIFY(!other.formular()->IsInputEnabled());
}

void TestConfiguration::equalArgumentsRestoreOnce()
{
    config->setProperty("key-collapsed", named("first"));
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->sheet().SetCollapsed({named("second")});
    form->formular()->SetConfigObject(config.get(), named("key"));
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("second")});
    form->formular()->RestoreConfiguration();
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("first")});
}

void TestConfiguration::anotherKeyRestores()
{
    config->setProperty("a-collapsed", named("first"));
    config->setProperty("b-collapsed", named("second"));
    form->formular()->SetConfigObject(config.get(), named("a"));
    form->formular()->SetConfigObject(config.get(), named("b"));
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("second")});
}

void TestConfiguration::anotherObjectRestores()
{
    QObject other;
    other.setProperty("key-collapsed", named("second"));
    form->formular()->SetConfigObject(config.get(), named("key"));
    form->formular()->SetConfigObject(&other, named("key"));
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("second")});
}

void TestConfiguration::keysKeepFormsApart()
{
    FormFixture other(groups());
    form->formular()->SetConfigObject(config.get(), named("a"));
    other.formular()->SetConfigObject(config.get(), named("b"));
    form->sheet().SetCollapsed({named("first")});
    form->formular()->ApplyConfiguration();
    other.formular()->ApplyConfiguration();
    QCOMPARE(config->dynamicPropertyNames(), QList<QByteArray>{"a-collapsed"});
}

void TestConfiguration::noObjectDoesNothing()
{
    form->sheet().SetCollapsed({named("first")});
    form->formular()->SetConfigObject(nullptr, named("key"));
    form->formular()->RestoreConfiguration();
    form->formular()->ApplyConfiguration();
    QCOMPARE(form->sheet().GetCollapsed(), QStringList{named("first")});
}

void TestConfiguration::restoredBeforeAndAfterTheWidgets()
{
    config->setProperty("key-collapsed", named("first"));
    config->setProperty("key-fontsize", normalSize() + 3);
    FormFixture early(groups(), FormFixture::Parsed);
    early.formular()->SetConfigObject(config.get(), named("key"));
    QCOMPARE(early.sheet().GetCollapsed(), QStringList{named("first")});
    early.formular()->CreateValueTree(named("/early"));
    config->setProperty("key-collapsed", named("second"));
    early.createGui();
    QCOMPARE(early.sheet().GetCollapsed(), QStringList{named("second")});
    QCOMPARE(early.window()->font().pointSize(), normalSize() + 3);
}

void TestConfiguration::groupsCollapsedBeforeTheWidgetsComeUpCollapsed()
{
    config->setProperty("key-collapsed", named("first"));
    FormFixture early(groups(), FormFixture::Parsed);
    early.formular()->SetConfigObject(config.get(), named("key"));
    early.formular()->CreateValueTree(named("/early"));
    early.createGui();
    QVERIFY(early.control<QWidget>("one")->isHidden());
    QVERIFY(early.control<QWidget>("labelone")->isHidden());
    QVERIFY(!early.control<QGroupBox>("first")->isChecked());
    early.sheet().SetCollapsed({});
    QVERIFY(!early.control<QWidget>("one")->isHidden());
    QVERIFY(!early.control<QWidget>("labelone")->isHidden());
}

void TestConfiguration::inputSwitchedOffBeforeTheWidgetsComesUpOff()
{
    config->setProperty("input-disabled", true);
    FormFixture early(groups(), FormFixture::Parsed);
    early.formular()->SetConfigObject(config.get(), named("key"));
    early.formular()->CreateValueTree(named("/early"));
    early.createGui();
    QVERIFY(!early.control<QWidget>("top")->isEnabled());
    QVERIFY(early.row("top")->isEnabled());
    early.formular()->EnableInput(true);
    QVERIFY(early.control<QWidget>("top")->isEnabled());
}

void TestConfiguration::theObjectMayDieFirst()
{
    form->formular()->SetConfigObject(config.get(), named("key"));
    config.reset();
    form->formular()->RestoreConfiguration();
    form->formular()->ApplyConfiguration();
    chooseSize(normalSize() + 2);
    QCOMPARE(fontSize(), normalSize() + 2);
}

void TestConfiguration::aNewObjectAtTheSamePlaceIsNew()
{
    alignas(QObject) unsigned char place[sizeof(QObject)];
    auto* object = new (place) QObject;
    form->formular()->SetConfigObject(object, named("key"));
    object->~QObject();
    object = new (place) QObject;
    object->setProperty("key-collapsed", named("first"));
    form->formular()->SetConfigObject(object, named("key"));
    const QStringList collapsed = form->sheet().GetCollapsed();
    object->~QObject();
    QCOMPARE(collapsed, QStringList{named("first")});
}

void TestConfiguration::sizeOutlivesAStyleSheet_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("place"); // 0 the form's window, 1 a frame around it, 2 a window around that
    for (const char* sheet : {"color: red;", "font-size: 12pt;", "QWidget { font-size: 12pt }",
                              "* { font: 12pt \"Sans\" }", "QLabel { color: red }"}) {
        QTest::addRow("window, %s", sheet) << QString::fromUtf8(sheet) << 0;
        QTest::addRow("frame, %s", sheet) << QString::fromUtf8(sheet) << 1;
        QTest::addRow("window around, %s", sheet) << QString::fromUtf8(sheet) << 2;
    }
}

void TestConfiguration::sizeOutlivesAStyleSheet()
{
    QFETCH(QString, sheet);
    QFETCH(int, place);
    for (const bool isStoredFirst : {true, false}) {
        FormFixture own(groups());
        config->setProperty("key-fontsize", 18);
        auto window = std::make_unique<QWidget>();
        auto* const frame = new QWidget(window.get());
        if (place > 0)
            own.window()->setParent(frame);
        QWidget* const styled = place == 0 ? own.window() : place == 1 ? frame : window.get();
        if (isStoredFirst)
            own.formular()->SetConfigObject(config.get(), named("key"));
        styled->setStyleSheet(sheet);
        own.formular()->SetConfigObject(config.get(), named("key"));
        own.formular()->RestoreConfiguration();
        own.formular()->ApplyConfiguration();
        QCOMPARE(config->property("key-fontsize"), QVariant(18));
        (place > 0 ? window.get() : own.window())->show();
        own.window()->show();
        QCOMPARE(own.window()->font().pointSize(), 18);
        QCOMPARE(own.control<QLineEdit>("one")->font().pointSize(), 18);
        own.formular()->ApplyConfiguration();
        QCOMPARE(config->property("key-fontsize"), QVariant(18));
        own.deleteWindow();
    }
}

QTEST_MAIN(TestConfiguration)
#include "tst_configuration.moc"
