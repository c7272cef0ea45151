#include <formfixture.h>
#include <leftovers.h>
#include <messageguard.h>

#include <vkbase/errorhandler.h>
#include <zorvaparser/zorvaenum.h>
#include <zorvaparser/zorvaparser.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QXmlStreamReader>

#include <memory>

using values::NumericInt;
using values::ValueSelection;

namespace {

QString named(const char* name)
{
    return QString::fromUtf8(name);
}

QString baseWidgets()
{
    return rowXml("SpinBox", "level",
                  {{"minimum", 0}, {"maximum", 100}, {"value", 20}, {"labelText", "Level"}}) +
           rowXml("ComboBox", "mode", {{"enumName", "Modes"}, {"currentValue", "2"}}) +
           rowXml("LineEdit", "text", {{"text", "abc"}}) + rowXml("LineEdit", "last", {{"text", "z"}});
}

QString baseEnums()
{
    return enumXml("Modes", {{"Slow", "MODE_SLOW", "1"}, {"Fast", "MODE_FAST", "2"}});
}

QString overlay(const QString& content)
{
    return QStringLiteral("<KVParamGui version=\"7\">%1</KVParamGui>").arg(content);
}

QString sheetOverlay(const QString& widgets)
{
    return overlay(QStringLiteral("<Sheet name=\"other\">%1</Sheet>").arg(widgets));
}

QString enumOverlay(const QString& enums)
{
    return overlay(QStringLiteral("<Enums>%1</Enums>").arg(enums));
}

QString scriptXml(const char* code)
{
    return QStringLiteral("<Script language=\"other\">%1</Script>").arg(QLatin1String(code));
}

} // namespace

class TestOverlay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        form = std::make_unique<FormFixture>(baseWidgets(), baseEnums(), named("text.setEnabled(false)"),
                                             FormFixture::WithValues);
    }
    void cleanup()
    {
        form.reset();
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    void propertiesReachValueAndControl();
    void propertiesRunBeforeTheResync();
    void customPropertiesAreTaken();
    void whatAnOverlayIgnores();
    void aChangeCanMarkTheForm();
    void changedTagKeepsTreeAndOldTag();
    void namelessWidgetByItsGeneratedName();
    void firstOfEqualNames();
    void existingEnumerationIsRefilledInPlace();
    void existingEnumerationKeepsItsScriptObject();
    void newEnumerationIsPublished();
    void emptiedEnumerationStays();
    void resyncIsTheCallersAfterProcess();
    void resyncInAnyCase_data();
    void resyncInAnyCase();
    void rootInsideAWrapper();
    void scriptIsStoredAndNotRun();
    void scriptRunsWithTheNextValues();
    void unknownWidgetCutsTheOverlayOff();
    void unknownWidgetLeavesWhatCameBefore();
    void emptyUnknownWidgetCutsOffToo();
    void strayElementCutsTheOverlayOff_data();
    void strayElementCutsTheOverlayOff();
    void unknownChildrenAreSkipped();
    void brokenTextAppliesUpToTheDamage();
    void everyPrefixIsHarmless();
    void worksBeforeTheValues();

private:
    QString textOf(const char* row) const { return form->row(row)->property("text").toString(); }
    QString modeObject(const char* identifier) const
    {
        return form->formular()
            ->GetScriptValues()
            .value(named("Modes"))
            .property(named(identifier))
            .toString();
    }
    void apply(const QString& text) { form->formular()->SetChangedZORVA(text); }

    std::unique_ptr<MessageGuard> guard;
    std::unique_ptr<FormFixture> form;
};

void TestOverlay::propertiesReachValueAndControl()
{
    form->createGui();
    apply(
        sheetOverlay(widgetXml("SpinBox", "level", {{"maximum", 50}, {"value", 33}, {"labelText", "Gain"}}) +
                     widgetXml("LineEdit", "last", {{"text", "new"}})));
    QCOMPARE(form->value<NumericInt>("level")->GetMax(), 50);
    QCOMPARE(form->value<NumericInt>("level")->GetValue(), 33);
    QCOMPARE(form->control<QLabel>("labellevel")->text(), named("Gain"));
    QCOMPARE(textOf("last"), named("new"));
}

void TestOverlay::propertiesRunBeforeTheResync()
{
    // The row's own enumeration changes, and the resync already follows the new one.
    apply(overlay(QStringLiteral("<Enums>%1</Enums><Sheet>%2</Sheet>")
                      .arg(enumXml("Others", {{"Fast", "O_FAST", "9"}, {"Turbo", "O_TURBO", "10"}}),
                           widgetXml("ComboBox", "mode", {{"enumName", "Others"}}))));
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QCOMPARE(selection->GetItemCount(), 2L);
    QCOMPARE(selection->GetItemIndex(1)->GetName(), named("Turbo"));
    QCOMPARE(selection->GetStringValue(), named("Fast"));
}

void TestOverlay::customPropertiesAreTaken()
{
    apply(
        sheetOverlay(QStringLiteral("<Widget name=\"text\"><CustomProperties>%1</CustomProperties></Widget>")
                         .arg(FormProperty("hint", "custom").xml())));
    QCOMPARE(form->row("text")->customProperty(named("hint")).toString(), named("custom"));
}

void TestOverlay::whatAnOverlayIgnores()
{
    const Orvane::ZorvaDelegate* const row = form->row("text");
    apply(overlay(QStringLiteral("<Sheet name=\"other\"><Properties>%1</Properties><CustomProperties>%2"
                                 "</CustomProperties>%3</Sheet>")
                      .arg(FormProperty("parametersXmlRootTag", "Other").xml(),
                           FormProperty("Attribute_x", "1").xml(),
                           widgetXml("CheckBox", "text", {{"text", "new"}}))));
    QCOMPARE(form->row("text"), row);
    QCOMPARE(form->sheet().GetWidget(named("text"))->GetClass(), named("LineEdit"));
    QCOMPARE(textOf("text"), named("new"));
    QCOMPARE(form->sheet().GetName(), named("sheet"));
    QCOMPARE(form->formular()->GetVersion(), named("1"));
    QVERIFY(form->formular()->GetEmptyXmlElement().startsWith(named("<Parameters")));
    QVERIFY(!form->formular()->GetEmptyXmlElement().contains(named("x=")));
    QCOMPARE(form->sheet().GetWidgetCount(), 4);
}

void TestOverlay::aChangeCanMarkTheForm()
{
    FormFixture hidden(rowXml("HiddenParameter", "hidden", {{"value", "1"}}), FormFixture::Parsed);
    hidden.formular()->CreateValueTree(named("/other"));
    QVERIFY(!hidden.sheet().isModified());
    hidden.formular()->SetChangedZORVA(
        sheetOverlay(widgetXml("HiddenParameter", "hidden", {{"value", "2"}})));
    QVERIFY(hidden.row("hidden")->isModified());
    QVERIFY(hidden.sheet().isModified());
}

void TestOverlay::changedTagKeepsTreeAndOldTag()
{
    apply(sheetOverlay(widgetXml("LineEdit", "text", {{"parameterXmlTag", "group/renamed"}})));
    Orvane::ZorvaDelegate* const row = form->row("text");
    QCOMPARE(row->GetXmlPath(), named("group/renamed"));
    QCOMPARE(row->GetXmlTagName(), named("renamed"));
    QVERIFY(row->ContainsXmlTag(named("renamed")));
    QCOMPARE(row->GetVTPath(), named("/test/text"));
    // The tree finds the old place, the list the new bare tag, nothing the new path.
    QCOMPARE(form->sheet().GetWidget(named("text"))->GetDelegate(), row);
    QCOMPARE(form->sheet().GetWidget(named("renamed"))->GetDelegate(), row);
    QVERIFY(!form->sheet().GetWidget(named("group/renamed")));
}

void TestOverlay::namelessWidgetByItsGeneratedName()
{
    FormFixture nameless(rowXml("LineEdit", "first") + rowXml("LineEdit", ""), FormFixture::Parsed);
    nameless.formular()->SetChangedZORVA(sheetOverlay(widgetXml("", "LineEdit_1", {{"text", "new"}})));
    QCOMPARE(nameless.row("LineEdit_1")->property("text").toString(), named("new"));
}

void TestOverlay::firstOfEqualNames()
{
    FormFixture twins(rowXml("LineEdit", "twin") + rowXml("LineEdit", "twin"), FormFixture::Parsed);
    twins.formular()->SetChangedZORVA(
        sheetOverlay(widgetXml("", "twin", {{"text", "one"}}) + widgetXml("", "twin", {{"text", "two"}})));
    QCOMPARE(twins.sheet().GetWidgetAt(0)->GetDelegate()->property("text").toString(), named("two"));
    QVERIFY(!twins.sheet().GetWidgetAt(1)->GetDelegate()->property("text").isValid());
}

void TestOverlay::existingEnumerationIsRefilledInPlace()
{
    const auto held = form->formular()->GetEnum(named("Modes"));
    apply(enumOverlay(enumXml("Modes", {{"Fast", "MODE_FAST", "5"}, {"Turbo", "MODE_TURBO", "6"}})));
    QCOMPARE(form->formular()->GetEnum(named("Modes")), held);
    QCOMPARE(held->GetValueCount(), 2);
    QCOMPARE(held->GetValueAt(1).GetValue(), named("6"));
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QCOMPARE(selection->GetItemIndex(1)->GetName(), named("Turbo"));
    QCOMPARE(selection->GetStringValue(), named("Fast"));
}

void TestOverlay::existingEnumerationKeepsItsScriptObject()
{
    apply(enumOverlay(enumXml("Modes", {{"Fast", "MODE_FAST", "5"}, {"Turbo", "MODE_TURBO", "6"}})));
    QCOMPARE(modeObject("MODE_FAST"), named("2"));
    QCOMPARE(modeObject("MODE_SLOW"), named("1"));
    QCOMPARE(modeObject("MODE_TURBO"), QString());
}

void TestOverlay::newEnumerationIsPublished()
{
    apply(enumOverlay(enumXml("Fresh", {{"One", "F_ONE", "1"}}) + named("<Other/>") +
                      enumXml("Fresh", {{"Two", "F_TWO", "2"}})));
    const auto fresh = form->formular()->GetEnum(named("Fresh"));
    QVERIFY(fresh != form->formular()->GetEmptyEnum());
    QCOMPARE(fresh->GetValueAt(0).GetDisplayName(), named("Two"));
    // The second mention finds an existing one.
    const QScriptValue object = form->formular()->GetScriptValues().value(named("Fresh"));
    QCOMPARE(object.property(named("F_ONE")).toString(), named("1"));
    QVERIFY(!object.property(named("F_TWO")).isValid());
    QCOMPARE(form->formular()->GetEmptyEnum()->GetValueCount(), 0);
}

void TestOverlay::emptiedEnumerationStays()
{
    apply(enumOverlay(enumXml("Modes", {})));
    const auto modes = form->formular()->GetEnum(named("Modes"));
    QCOMPARE(modes->GetValueCount(), 0);
    QVERIFY(modes != form->formular()->GetEmptyEnum());
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QCOMPARE(selection->GetItemCount(), 0L);
    apply(enumOverlay(baseEnums()));
    QCOMPARE(selection->GetItemCount(), 2L);
}

void TestOverlay::resyncIsTheCallersAfterProcess()
{
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QXmlStreamReader reader(enumOverlay(enumXml("Modes", {{"Fast", "MODE_FAST", "2"}})));
    reader.readNextStartElement();
    form->formular()->ProcessChangedZORVA(reader);
    QCOMPARE(form->formular()->GetEnum(named("Modes"))->GetValueCount(), 1);
    QCOMPARE(selection->GetItemCount(), 2L);
    form->sheet().ResyncValueTree();
    QCOMPARE(selection->GetItemCount(), 1L);
}

void TestOverlay::resyncInAnyCase_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("no root") << named("<other/>");
    QTest::newRow("no XML") << named("hello");
    QTest::newRow("damaged at once") << named("<KVParamGui><<");
    QTest::newRow("empty root") << overlay(QString());
}

void TestOverlay::resyncInAnyCase()
{
    QFETCH(QString, text);
    form->formular()->GetEnum(named("Modes"))->ClearValues();
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QCOMPARE(selection->GetItemCount(), 2L);
    apply(text);
    QCOMPARE(selection->GetItemCount(), 0L);
}

void TestOverlay::rootInsideAWrapper()
{
    apply(QStringLiteral("<wrapper><inner>%1</inner></wrapper>")
              .arg(sheetOverlay(widgetXml("", "text", {{"text", "new"}}))));
    QCOMPARE(textOf("text"), named("new"));
}

void TestOverlay::scriptIsStoredAndNotRun()
{
    apply(overlay(scriptXml("text.setText('run'){{CR}}{{LF}}")));
    QCOMPARE(textOf("text"), named("abc"));
    QCOMPARE(form->formular()->GetScript().GetCode(), named("text.setText('run')\r\n"));
    QCOMPARE(form->formular()->GetScript().GetLanguage(), named("other"));
    form->formular()->EvaluateScript(form->formular()->GetScript().GetCode());
    QCOMPARE(textOf("text"), named("run"));
}

void TestOverlay::scriptRunsWithTheNextValues()
{
    apply(overlay(scriptXml("text.setText('run')")));
    form->createValues();
    QCOMPARE(textOf("text"), named("run"));
}

void TestOverlay::unknownWidgetCutsTheOverlayOff()
{
    const QString code = form->formular()->GetScript().GetCode();
    apply(overlay(QStringLiteral("<Sheet>%1</Sheet><Enums>%2</Enums>%3")
                      .arg(widgetXml("LineEdit", "nobody", {{"text", "x"}, {"other", "y"}}) +
                               widgetXml("LineEdit", "last", {{"text", "new"}}),
                           enumXml("Fresh", {{"One", "F_ONE", "1"}}), scriptXml("1"))));
    QCOMPARE(textOf("last"), named("z"));
    QCOMPARE(form->formular()->GetEnum(named("Fresh")), form->formular()->GetEmptyEnum());
    QCOMPARE(form->formular()->GetScript().GetCode(), code);
    QCOMPARE(form->sheet().GetWidgetCount(), 4);
}

void TestOverlay::unknownWidgetLeavesWhatCameBefore()
{
    const auto* const selection = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    apply(overlay(QStringLiteral("<Enums>%1</Enums><Sheet>%2</Sheet>")
                      .arg(enumXml("Modes", {{"Fast", "MODE_FAST", "2"}}),
                           widgetXml("LineEdit", "text", {{"text", "new"}}) + widgetXml("", "nobody", {}) +
                               widgetXml("LineEdit", "last", {{"text", "new"}}))));
    QCOMPARE(textOf("text"), named("new"));
    QCOMPARE(textOf("last"), named("z"));
    QCOMPARE(selection->GetItemCount(), 1L);
}

void TestOverlay::emptyUnknownWidgetCutsOffToo()
{
    apply(sheetOverlay(named("<Widget name=\"nobody\"/>") + widgetXml("", "last", {{"text", "new"}})));
    QCOMPARE(textOf("last"), named("z"));
}

void TestOverlay::strayElementCutsTheOverlayOff_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("property without a type") << named("<Property name=\"text\"/>");
    QTest::newRow("stray element") << named(
        "<Properties><Property name=\"text\"><String>in</String></Property>"
        "</Properties>");
}

void TestOverlay::strayElementCutsTheOverlayOff()
{
    QFETCH(QString, content);
    apply(overlay(QStringLiteral("<Sheet><Widget name=\"text\">%1%2</Widget>%3</Sheet><Enums>%4</Enums>")
                      .arg(content, FormProperty("unit", "late").xml(),
                           widgetXml("", "last", {{"text", "new"}}), enumXml("Fresh", {}))));
    QVERIFY(!form->row("text")->property("unit").isValid());
    QCOMPARE(textOf("last"), named("z"));
    QCOMPARE(form->formular()->GetEnum(named("Fresh")), form->formular()->GetEmptyEnum());
}

void TestOverlay::unknownChildrenAreSkipped()
{
    const QString junk =
        named("<Junk name=\"text\"><Widget name=\"last\"><Property name=\"text\"><String>bad</String>"
              "</Property></Widget></Junk>");
    apply(overlay(junk + QStringLiteral("<Sheet>%1%2%1</Sheet>%1%3")
                             .arg(junk, widgetXml("", "text", {{"text", "new"}}), scriptXml("2"))));
    QCOMPARE(textOf("text"), named("new"));
    QCOMPARE(textOf("last"), named("z"));
    QCOMPARE(form->formular()->GetScript().GetCode(), named("2"));
}

void TestOverlay::brokenTextAppliesUpToTheDamage()
{
    apply(named("<KVParamGui><Sheet>") + widgetXml("", "text", {{"text", "new"}}) +
          named("<Widget name=\"last\"><Property name=\"unit\"><String>dB</String></Property>"
                "<Property name=\"text\"><String>n"));
    QCOMPARE(textOf("text"), named("new"));
    QCOMPARE(form->row("last")->property("unit").toString(), named("dB"));
}

void TestOverlay::everyPrefixIsHarmless()
{
    form->createGui();
    const QString whole =
        overlay(QStringLiteral("<Enums>%1</Enums><Sheet>%2</Sheet>%3")
                    .arg(enumXml("Modes", {{"Fast", "MODE_FAST", "2"}}),
                         widgetXml("", "level", {{"maximum", 30}, {"parameterXmlTag", "a/b"}}) +
                             widgetXml("", "mode", {{"currentValue", "2"}}) + widgetXml("", "nobody", {}),
                         scriptXml("3")));
    for (int length = 0; length <= whole.size(); ++length)
        apply(whole.left(length));
    QCOMPARE(form->sheet().GetWidgetCount(), 4);
    QCOMPARE(form->value<NumericInt>("level")->GetMax(), 30);
}

void TestOverlay::worksBeforeTheValues()
{
    FormFixture parsed(baseWidgets(), baseEnums(), QString(), FormFixture::Parsed);
    parsed.formular()->SetChangedZORVA(overlay(
        QStringLiteral("<Enums>%1</Enums><Sheet>%2</Sheet>")
            .arg(enumXml("Modes", {{"Turbo", "MODE_TURBO", "3"}}), widgetXml("", "level", {{"value", 40}}))));
    parsed.formular()->CreateValueTree(named("/other"));
    QCOMPARE(parsed.formular()->GetVTValue(named("level"))->GetStringValue(), named("40"));
    QCOMPARE(parsed.formular()->GetVTValue(named("mode"))->GetStringValue(), named("Turbo"));
}

QTEST_MAIN(TestOverlay)
#include "tst_overlay.moc"
