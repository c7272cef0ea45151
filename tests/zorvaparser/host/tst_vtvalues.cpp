#include <formfixture.h>
#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <vkbase/errorhandler.h>
#include <zorvaparser/zorvaenum.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <stdexcept>

using Orvane::ZorvaFormular;
using values::NumericDouble;
using values::NumericInt;
using values::NumericInt64;
using values::ValueBool;
using values::ValueSelection;
using values::ValueString;

namespace {

const QList<TChangeCode> noCodes;
const QList<TChangeCode> onlyContent{ChangeCode::Content};

/// One row of each kind of value, in one form.
QString allKinds()
{
    return rowXml("SpinBox", "whole", {{"minimum", 0}, {"maximum", 100}, {"singleStep", 5}, {"value", 20}}) +
           rowXml("DoubleSpinBox", "real", {{"minimum", 0}, {"maximum", 10}, {"value", "2.5"}}) +
           rowXml("BandwidthEdit", "wide",
                  {{"minimum", 0}, {"maximum", "5000000000"}, {"value", "4000000000"}}) +
           rowXml("CheckBox", "flag", {{"checked", true}}) + rowXml("LineEdit", "text", {{"text", "abc"}}) +
           rowXml("ComboBox", "mode", {{"enumName", "Modes"}, {"currentValue", "2"}}) +
           rowXml("HiddenParameter", "hidden", {{"value", "7"}}) +
           rowXml("SpinBox", "deep", {{"parameterXmlTag", "group/inner/deep"}, {"value", 3}}) +
           rowXml("PushButton", "button", {{"text", "Go"}});
}

QString modes()
{
    return enumXml("Modes",
                   {{"Slow", "MODE_SLOW", "1"}, {"Fast", "MODE_FAST", "2"}, {"Off", "MODE_OFF", "3"}});
}

FormFixture* newForm(FormFixture::Stage stage = FormFixture::WithValues)
{
    return new FormFixture(allKinds(), modes(), QString(), stage);
}

QString named(const char* name)
{
    return QString::fromUtf8(name);
}

QStringList itemNames(const ValueSelection& selection)
{
    QStringList names;
    for (long i = 0; i < selection.GetItemCount(); ++i)
        names << selection.GetItemIndex(i)->GetName();
    return names;
}

QStringList valueTexts(const Orvane::ZorvaEnum& enumeration)
{
    QStringList texts;
    for (int i = 0; i < enumeration.GetValueCount(); ++i)
        texts << enumeration.GetValueAt(i).GetValue();
    return texts;
}

/// A number that refuses each new minimum by an exception.
class ThrowingNumber : public NumericInt
{
public:
    using NumericInt::NumericInt;

protected:
    bool setMinFromDouble(double, IObserver*) override { throw std::runtime_error("no"); }
};

} // namespace

class TestVTValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<MessageGuard>();
        form.reset(newForm());
    }
    void cleanup()
    {
        form.reset();
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    void valueByPath_data();
    void valueByPath();
    void writingText_data();
    void writingText();
    void writingAppliesOnRequest_data();
    void writingAppliesOnRequest();
    void equalTextNeverApplies();
    void writingLeavesOutTheOriginator();
    void writingAHostValue();
    void clampedTextCountsAsWritten();

    void copyingToAHostValue_data();
    void copyingToAHostValue();
    void copyOfAnUnknownName_data();
    void copyOfAnUnknownName();
    void copyFromAGivenSource();
    void copyOfAnEqualTextIsSilentWithoutInitialize();
    void initializeTellsOfAnEqualContent();
    void initializeTellsOnceWhenTheRangeBringsTheContent();
    void initializeBetweenDifferentTypesStillCopies();
    void aSelectionShrinksToWhatTheFormHas();
    void aSelectionThatHasTheItemOnlyChooses();
    void aSelectionTakesASelectionByText();
    void textTheTargetCannotReadChangesNothing();
    void listsGoFromLastToFirst();
    void listsPassOverUnknownAndNull();

    void rangeIntoAHostValue();
    void rangeNeedsEqualTypes();
    void itemsIntoAHostSelection();
    void equalItemsLeaveASelectionAlone();
    void otherTypesAreNotInitialized_data();
    void otherTypesAreNotInitialized();
    void nothingIntoNothing();
    void exceptionsAreTraced_data();
    void exceptionsAreTraced();

    void rangeIntoTheForm_data();
    void rangeIntoTheForm();
    void rangeIntoTheFormGoesThroughTheDisplay();
    void itemsIntoTheForm();
    void emptySelectionsLeaveTheFormAlone();
    void itemsForARowOfAnotherKind();
    void otherTypesIntoTheForm();
    void unknownPathIntoTheForm();
    void exceptionsFromTheFormAreTraced();

    void enumerationFromASelection_data();
    void enumerationFromASelection();
    void enumerationKeepsItsScriptObject();
    void enumerationReachesRowsAtTheNextResync();
    void unknownEnumerationIsNotFilled();

private:
    std::unique_ptr<MessageGuard> guard;
    std::unique_ptr<FormFixture> form;
};

void TestVTValues::valueByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("valueName");
    const auto add = [](const char* title, const char* path, const char* valueName) {
        QTest::newRow(title) << QString::fromLatin1(path) << QString::fromLatin1(valueName);
    };
    add("tag", "whole", "whole");
    add("selection", "mode", "mode_Modes");
    add("bare tag of a deep row", "deep", "deep");
    add("whole path", "group/inner/deep", "deep");
    add("part of a path", "inner/deep", "");
    add("group", "group", "");
    add("row without a value", "button", "");
    add("unknown", "nothing", "");
    add("other case", "Whole", "");
    add("empty", "", "");
    add("value-tree path", "/test/whole", "");
}

void TestVTValues::valueByPath()
{
    QFETCH(QString, path);
    QFETCH(QString, valueName);
    const values::ValueBase* const value = form->formular()->GetVTValue(path);
    QCOMPARE(value ? value->GetName() : QString(), valueName);
}

void TestVTValues::writingText_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("written");
    QTest::addColumn<QString>("content");
    const auto add = [](const char* title, const char* path, const char* text, bool written,
                        const char* content) {
        QTest::newRow(title) << QString::fromLatin1(path) << QString::fromLatin1(text) << written
                             << QString::fromLatin1(content);
    };
    add("number", "whole", "30", true, "30");
    add("equal number", "whole", "20", false, "20");
    add("fraction", "real", "3.25", true, "3.25");
    add("64 bits", "wide", "4500000000", true, "4500000000");
    add("flag", "flag", "false", true, "false");
    add("text", "text", "xyz", true, "xyz");
    add("selection", "mode", "Off", true, "Off");
    add("equal selection", "mode", "Fast", false, "Fast");
    add("hidden", "hidden", "8", true, "8");
    // Different text is a write, whatever the value makes of it.
    add("unknown item", "mode", "Unheard of", true, "Fast");
    add("unreadable number", "whole", "x", true, "20");
}

void TestVTValues::writingText()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    QFETCH(bool, written);
    QFETCH(QString, content);
    QCOMPARE(form->formular()->SetVTValue(path, text, nullptr, false), written);
    QCOMPARE(form->formular()->GetVTValue(path)->GetStringValue(), content);
}

void TestVTValues::writingAppliesOnRequest_data()
{
    QTest::addColumn<bool>("apply");
    QTest::newRow("apply") << true;
    QTest::newRow("do not") << false;
}

void TestVTValues::writingAppliesOnRequest()
{
    QFETCH(bool, apply);
    form->createGui();
    QSignalSpy spy(form->formular(), &ZorvaFormular::si_parametersModified);
    QVERIFY(form->formular()->SetVTValue(named("whole"), named("30"), nullptr, apply));
    QVERIFY(form->sheet().isModified());
    QCOMPARE(spy.count(), apply ? 1 : 0);
}

void TestVTValues::equalTextNeverApplies()
{
    form->createGui();
    form->formular()->SetVTValue(named("whole"), named("30"), nullptr, false);
    QVERIFY(form->sheet().isModified());
    QSignalSpy spy(form->formular(), &ZorvaFormular::si_parametersModified);
    QVERIFY(!form->formular()->SetVTValue(named("whole"), named("30"), nullptr, true));
    QVERIFY(!form->formular()->SetVTValue(named("nothing"), named("30"), nullptr, true));
    QCOMPARE(spy.count(), 0);
}

void TestVTValues::writingLeavesOutTheOriginator()
{
    RecordingObserver host;
    RecordingObserver other;
    values::ValueBase* const value = form->formular()->GetVTValue(named("whole"));
    value->AddObserver(&host);
    other.watch(value);
    form->formular()->SetVTValue(named("whole"), named("30"), &host, false);
    value->DeleteObserver(&host);
    QCOMPARE(host.codes(), noCodes);
    QCOMPARE(other.codes(), onlyContent);
    QCOMPARE(form->row("whole")->GetInt(named("value"), 0), 30);
}

void TestVTValues::writingAHostValue()
{
    NumericInt host(named("whole"));
    host.SetValue(40, nullptr);
    QVERIFY(form->formular()->SetVTValue(&host, nullptr, false));
    QCOMPARE(form->value<NumericInt>("whole")->GetValue(), 40);
    QVERIFY(!form->formular()->SetVTValue(&host, nullptr, false));
    QVERIFY(!form->formular()->SetVTValue(nullptr, nullptr, true));
    const std::unique_ptr<ValueString> unknown(new ValueString(named("nothing")));
    QVERIFY(!form->formular()->SetVTValue(unknown.get(), nullptr, true));
}

void TestVTValues::clampedTextCountsAsWritten()
{
    QVERIFY(form->formular()->SetVTValue(named("whole"), named("100"), nullptr, false));
    QVERIFY(form->formular()->SetVTValue(named("whole"), named("900"), nullptr, false));
    QCOMPARE(form->value<NumericInt>("whole")->GetValue(), 100);
}

void TestVTValues::copyingToAHostValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("initialize");
    QTest::addColumn<QString>("content");
    const QStringList names{named("whole"), named("real"), named("flag"), named("text"), named("hidden")};
    const QStringList contents{named("20"), named("2.5"), named("true"), named("abc"), named("7")};
    for (int i = 0; i < names.size(); ++i) {
        for (const bool initialize : {false, true})
            QTest::addRow("%s%s", qPrintable(names.at(i)), initialize ? ", initialize" : "")
                << names.at(i) << initialize << contents.at(i);
    }
}

void TestVTValues::copyingToAHostValue()
{
    QFETCH(QString, name);
    QFETCH(bool, initialize);
    QFETCH(QString, content);
    ValueString host(name);
    RecordingObserver observer;
    observer.watch(&host);
    const values::ValueBase* const source = form->formular()->GetVTValue(&host, nullptr, initialize, nullptr);
    QCOMPARE(source, form->formular()->GetVTValue(name));
    QCOMPARE(host.GetValue(), content);
    QCOMPARE(observer.codes(), onlyContent);
}

void TestVTValues::copyOfAnUnknownName_data()
{
    QTest::addColumn<bool>("initialize");
    QTest::addColumn<QString>("content");
    QTest::newRow("left alone") << false << named("before");
    QTest::newRow("blanked") << true << QString();
}

void TestVTValues::copyOfAnUnknownName()
{
    QFETCH(bool, initialize);
    QFETCH(QString, content);
    ValueString host(named("nothing"));
    host.SetValue(named("before"), nullptr);
    QVERIFY(!form->formular()->GetVTValue(&host, nullptr, initialize, nullptr));
    QCOMPARE(host.GetValue(), content);
    QVERIFY(!form->formular()->GetVTValue(nullptr, nullptr, initialize, nullptr));
}

void TestVTValues::copyFromAGivenSource()
{
    ValueString host(named("nothing"));
    NumericInt source(named("whole"));
    source.SetValue(9, nullptr);
    QCOMPARE(form->formular()->GetVTValue(&host, nullptr, false, &source),
             static_cast<values::ValueBase*>(&source));
    QCOMPARE(host.GetValue(), named("9"));
}

void TestVTValues::copyOfAnEqualTextIsSilentWithoutInitialize()
{
    NumericInt host(named("whole"));
    host.SetValue(20, nullptr);
    RecordingObserver observer;
    observer.watch(&host);
    form->formular()->GetVTValue(&host, nullptr, false, nullptr);
    QCOMPARE(observer.codes(), noCodes);
}

void TestVTValues::initializeTellsOfAnEqualContent()
{
    ValueString host(named("text"));
    host.SetValue(named("abc"), nullptr);
    RecordingObserver observer;
    RecordingObserver originator;
    observer.watch(&host);
    originator.watch(&host);
    form->formular()->GetVTValue(&host, &originator, true, nullptr);
    QCOMPARE(observer.codes(), onlyContent);
    QCOMPARE(originator.codes(), noCodes);
}

void TestVTValues::initializeTellsOnceWhenTheRangeBringsTheContent()
{
    NumericInt host(named("whole"));
    RecordingObserver observer;
    observer.watch(&host);
    form->formular()->GetVTValue(&host, nullptr, true, nullptr);
    QCOMPARE(host.GetMin(), 0);
    QCOMPARE(host.GetMax(), 100);
    QCOMPARE(host.GetStep(), 5);
    QCOMPARE(host.GetValue(), 20);
    // Minimum, maximum, step, the content that came with them, and the news that it stands.
    QCOMPARE(observer.codes(), (QList<TChangeCode>{ChangeCode::Limits, ChangeCode::Limits, ChangeCode::Limits,
                                                   ChangeCode::Content, ChangeCode::Content}));
}

void TestVTValues::initializeBetweenDifferentTypesStillCopies()
{
    NumericDouble host(named("whole"));
    form->formular()->GetVTValue(&host, nullptr, true, nullptr);
    QCOMPARE(host.GetValue(), 20.0);
    QVERIFY(host.GetMax() > 100.0);
}

void TestVTValues::aSelectionShrinksToWhatTheFormHas()
{
    ValueSelection host(named("whole"));
    host.AddItems({named("10"), named("30")}, nullptr);
    RecordingObserver observer;
    observer.watch(&host);
    form->formular()->GetVTValue(&host, nullptr, false, nullptr);
    QCOMPARE(itemNames(host), QStringList{named("20")});
    QCOMPARE(host.GetCurrentValue(), 20.0);
    QCOMPARE(host.GetItemIndex(0)->GetKey(), 0L);
    QCOMPARE(observer.codes(),
             (QList<TChangeCode>{ChangeCode::ItemsRemoved, ChangeCode::ItemChanged, ChangeCode::Content}));
}

void TestVTValues::aSelectionThatHasTheItemOnlyChooses()
{
    ValueSelection host(named("whole"));
    host.AddItems({named("10"), named("20"), named("30")}, nullptr);
    RecordingObserver observer;
    observer.watch(&host);
    form->formular()->GetVTValue(&host, nullptr, false, nullptr);
    QCOMPARE(itemNames(host), (QStringList{named("10"), named("20"), named("30")}));
    QCOMPARE(host.GetStringValue(), named("20"));
    QCOMPARE(observer.codes(), onlyContent);
}

void TestVTValues::aSelectionTakesASelectionByText()
{
    ValueSelection host(named("mode"));
    host.AddItems({named("Slow"), named("Fast")}, nullptr);
    form->formular()->GetVTValue(&host, nullptr, false, nullptr);
    QCOMPARE(host.GetStringValue(), named("Fast"));
    QCOMPARE(host.GetItemCount(), 2L);
    host.DeleteItems(nullptr);
    host.AddItems({named("Other")}, nullptr);
    form->formular()->GetVTValue(&host, nullptr, false, nullptr);
    QCOMPARE(itemNames(host), QStringList{named("Other")});
    form->formular()->GetVTValue(&host, nullptr, true, nullptr);
    QCOMPARE(itemNames(host), (QStringList{named("Slow"), named("Fast"), named("Off")}));
    QCOMPARE(host.GetStringValue(), named("Fast"));
}

void TestVTValues::textTheTargetCannotReadChangesNothing()
{
    NumericInt host(named("text"));
    host.SetValue(5, nullptr);
    QVERIFY(form->formular()->GetVTValue(&host, nullptr, true, nullptr));
    QCOMPARE(host.GetValue(), 5);
}

void TestVTValues::listsGoFromLastToFirst()
{
    ValueString first(named("whole"));
    ValueString second(named("text"));
    ValueString third(named("flag"));
    QStringList log;
    RecordingObserver one(named("1"), &log);
    RecordingObserver two(named("2"), &log);
    RecordingObserver three(named("3"), &log);
    one.watch(&first);
    two.watch(&second);
    three.watch(&third);
    form->formular()->GetVTValues({&first, &second, &third}, nullptr, false);
    QCOMPARE(log, (QStringList{named("3:3"), named("2:3"), named("1:3")}));
}

void TestVTValues::listsPassOverUnknownAndNull()
{
    ValueString known(named("text"));
    ValueString unknown(named("nothing"));
    unknown.SetValue(named("before"), nullptr);
    form->formular()->GetVTValues({&known, nullptr, &unknown}, nullptr, true);
    QCOMPARE(known.GetValue(), named("abc"));
    QCOMPARE(unknown.GetValue(), QString());
    form->formular()->GetVTValues({}, nullptr, true);
}

void TestVTValues::rangeIntoAHostValue()
{
    NumericDouble source(named("a"));
    source.SetMinMax(-1.0, 8.0, 0.5, nullptr);
    source.SetValue(4.0, nullptr);
    NumericDouble target(named("b"));
    RecordingObserver observer;
    RecordingObserver originator;
    observer.watch(&target);
    originator.watch(&target);
    ZorvaFormular::InitVTValue(&target, &source, &originator);
    QCOMPARE(target.GetMin(), -1.0);
    QCOMPARE(target.GetMax(), 8.0);
    QCOMPARE(target.GetStep(), 0.5);
    QCOMPARE(target.GetValue(), 4.0);
    QVERIFY(!observer.codes().isEmpty());
    QCOMPARE(originator.codes(), noCodes);
}

void TestVTValues::rangeNeedsEqualTypes()
{
    NumericInt source(named("a"));
    source.SetMinMax(1, 8, 2, nullptr);
    NumericInt64 target(named("b"));
    RecordingObserver observer;
    observer.watch(&target);
    ZorvaFormular::InitVTValue(&target, &source, nullptr);
    QCOMPARE(observer.codes(), noCodes);
    QCOMPARE(target.GetStep(), Q_INT64_C(1));
}

void TestVTValues::itemsIntoAHostSelection()
{
    ValueSelection source(named("a"));
    source.AddItem(named("x"), 1.5, 7, nullptr);
    source.AddItem(named("y"), 2.5, 8, nullptr);
    source.Select(named("x"), nullptr);
    ValueSelection target(named("b"));
    target.AddItems({named("y"), named("z")}, nullptr);
    target.Select(named("y"), nullptr);
    RecordingObserver observer;
    observer.watch(&target);
    ZorvaFormular::InitVTValue(&target, &source, nullptr);
    QCOMPARE(itemNames(target), (QStringList{named("x"), named("y")}));
    QVERIFY(*target.GetItemIndex(1) == *source.GetItemIndex(1));
    // Its own choice, if the new list has it.
    QCOMPARE(target.GetStringValue(), named("y"));
    QCOMPARE(observer.codes(), (QList<TChangeCode>{ChangeCode::ItemsRemoved, ChangeCode::ItemChanged,
                                                   ChangeCode::ItemChanged}));
}

void TestVTValues::equalItemsLeaveASelectionAlone()
{
    ValueSelection source(named("a"));
    source.AddItems({named("x"), named("y")}, nullptr);
    source.Select(named("x"), nullptr);
    ValueSelection target(named("b"));
    target.AddItems({named("x"), named("y")}, nullptr);
    target.Select(named("y"), nullptr);
    const values::SelectionItem* const item = target.GetItemIndex(0);
    RecordingObserver observer;
    observer.watch(&target);
    ZorvaFormular::InitVTValue(&target, &source, nullptr);
    QCOMPARE(observer.codes(), noCodes);
    QCOMPARE(target.GetStringValue(), named("y"));
    QCOMPARE(target.GetItemIndex(0), item);
}

void TestVTValues::otherTypesAreNotInitialized_data()
{
    QTest::addColumn<bool>("text");
    QTest::newRow("text") << true;
    QTest::newRow("flag") << false;
}

void TestVTValues::otherTypesAreNotInitialized()
{
    QFETCH(bool, text);
    ValueString textSource(named("a"));
    ValueString textTarget(named("b"));
    ValueBool flagSource(named("a"));
    ValueBool flagTarget(named("b"));
    textSource.SetValue(named("x"), nullptr);
    flagSource.SetValue(true, nullptr);
    values::ValueBase* const source = text ? static_cast<values::ValueBase*>(&textSource) : &flagSource;
    values::ValueBase* const target = text ? static_cast<values::ValueBase*>(&textTarget) : &flagTarget;
    const QString before = target->GetStringValue();
    ZorvaFormular::InitVTValue(target, source, nullptr);
    QCOMPARE(target->GetStringValue(), before);
}

void TestVTValues::nothingIntoNothing()
{
    NumericInt number(named("whole"));
    ZorvaFormular::InitVTValue(nullptr, &number, nullptr);
    ZorvaFormular::InitVTValue(&number, nullptr, nullptr);
    ZorvaFormular::InitVTValue(nullptr, nullptr, nullptr);
    form->formular()->InitVTValue(named("whole"), nullptr);
    form->formular()->InitEnumeration(named("Modes"), nullptr, nullptr);
    QCOMPARE(form->value<NumericInt>("whole")->GetMax(), 100);
    QCOMPARE(form->formular()->GetEnum(named("Modes"))->GetValueCount(), 3);
}

void TestVTValues::exceptionsAreTraced_data()
{
    QTest::addColumn<int>("mask");
    QTest::newRow("errors traced") << ErrorHandler::TraceErrors;
    QTest::newRow("not traced") << 0;
}

void TestVTValues::exceptionsAreTraced()
{
    QFETCH(int, mask);
    const int before = ErrorHandler::Instance().GetTraceMask();
    ErrorHandler::Instance().SetTraceMask(mask);
    if (mask != 0)
        guard->expect(named("Exception in ZorvaFormular::InitVTValue"));
    NumericInt source(named("a"));
    ThrowingNumber target(named("b"));
    ZorvaFormular::InitVTValue(&target, &source, nullptr);
    ErrorHandler::Instance().SetTraceMask(before);
}

void TestVTValues::rangeIntoTheForm_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("hostType");
    QTest::addColumn<int>("variantType");
    QTest::newRow("int") << named("whole") << int(values::TypeInt) << int(QMetaType::Int);
    QTest::newRow("64 bits") << named("wide") << int(values::TypeInt64) << int(QMetaType::LongLong);
    QTest::newRow("double") << named("real") << int(values::TypeDouble) << int(QMetaType::Double);
    QTest::newRow("another number type")
        << named("whole") << int(values::TypeDouble) << int(QMetaType::Double);
    QTest::newRow("a row without limits") << named("text") << int(values::TypeInt) << int(QMetaType::Int);
}

void TestVTValues::rangeIntoTheForm()
{
    QFETCH(QString, path);
    QFETCH(int, hostType);
    QFETCH(int, variantType);
    NumericInt whole(named("x"));
    NumericInt64 wide(named("x"));
    NumericDouble real(named("x"));
    whole.SetMinMax(3, 8, 2, nullptr);
    wide.SetMinMax(3, 8, 2, nullptr);
    real.SetMinMax(3, 8, 2, nullptr);
    values::ValueBase* source = &whole;
    if (hostType == values::TypeInt64)
        source = &wide;
    else if (hostType == values::TypeDouble)
        source = &real;
    form->formular()->InitVTValue(path, source);
    const Orvane::ZorvaDelegate* const row = form->row(path.toLatin1().constData());
    QCOMPARE(row->GetInt(named("minimum"), 0), 3);
    QCOMPARE(row->GetInt(named("maximum"), 0), 8);
    QCOMPARE(row->GetInt(named("singleStep"), 0), 2);
    if (path == named("text"))
        QCOMPARE(row->property("minimum").userType(), variantType);
    const auto* const number = dynamic_cast<values::IValueNumeric*>(form->formular()->GetVTValue(path));
    if (number) {
        QCOMPARE(number->GetMin(), 3.0);
        QCOMPARE(number->GetMax(), 8.0);
        QCOMPARE(number->GetStep(), 2.0);
    }
}

void TestVTValues::rangeIntoTheFormGoesThroughTheDisplay()
{
    FormFixture scaled(rowXml("DoubleSpinBox", "scaled", {{"displayScalingFactor", 10}, {"value", 1}}),
                       QString(), QString(), FormFixture::Parsed);
    scaled.formular()->CreateValueTree(named("/other"));
    NumericDouble source(named("x"));
    source.SetMinMax(20.0, 50.0, 10.0, nullptr);
    scaled.formular()->InitVTValue(named("scaled"), &source);
    const auto* const number = dynamic_cast<NumericDouble*>(scaled.formular()->GetVTValue(named("scaled")));
    QCOMPARE(number->GetMin(), 2.0);
    QCOMPARE(number->GetMax(), 5.0);
    QCOMPARE(number->GetStep(), 1.0);
}

void TestVTValues::itemsIntoTheForm()
{
    ValueSelection source(named("x"));
    source.AddItems({named("Off"), named("Fast"), named("Turbo")}, nullptr);
    source.Select(named("Turbo"), nullptr);
    auto* const own = dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    RecordingObserver observer;
    observer.watch(own);
    form->formular()->InitVTValue(named("mode"), &source);
    QCOMPARE(itemNames(*own), (QStringList{named("Off"), named("Fast"), named("Turbo")}));
    QCOMPARE(own->GetStringValue(), named("Fast"));
    // Equal items are written all the same.
    observer.takeCodes();
    form->formular()->InitVTValue(named("mode"), &source);
    QVERIFY(observer.codes().contains(ChangeCode::ItemsRemoved));
}

void TestVTValues::emptySelectionsLeaveTheFormAlone()
{
    const ValueSelection* const own =
        dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    ValueSelection source(named("x"));
    form->formular()->InitVTValue(named("mode"), &source);
    QCOMPARE(own->GetItemCount(), 3L);
}

void TestVTValues::itemsForARowOfAnotherKind()
{
    ValueSelection source(named("x"));
    source.AddItems({named("a")}, nullptr);
    for (const char* path : {"whole", "text", "flag", "button"})
        form->formular()->InitVTValue(named(path), &source);
    QCOMPARE(form->value<NumericInt>("whole")->GetValue(), 20);
}

void TestVTValues::otherTypesIntoTheForm()
{
    ValueString source(named("x"));
    source.SetValue(named("other"), nullptr);
    form->formular()->InitVTValue(named("text"), &source);
    QCOMPARE(form->value<ValueString>("text")->GetValue(), named("abc"));
}

void TestVTValues::unknownPathIntoTheForm()
{
    NumericInt source(named("x"));
    form->formular()->InitVTValue(named("nothing"), &source);
    QVERIFY(!form->formular()->GetVTValue(named("nothing")));
}

void TestVTValues::exceptionsFromTheFormAreTraced()
{
    guard->expect(named("Exception in ZorvaFormular::InitVTValue"));
    ValueSelection source(named("x"));
    source.AddItems({named("a")}, nullptr);
    RecordingObserver observer;
    observer.onUpdate = [](Observable*, TChangeCode) { throw std::runtime_error("no"); };
    observer.watch(form->formular()->GetVTValue(named("mode")));
    form->formular()->InitVTValue(named("mode"), &source);
    observer.leave();
}

void TestVTValues::enumerationFromASelection_data()
{
    QTest::addColumn<bool>("withTexts");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("numbers") << false << QStringList() << QStringList{named("2.00"), named("1.50")};
    QTest::newRow("texts") << true << QStringList{named("a"), named("b")}
                           << QStringList{named("a"), named("b")};
    QTest::newRow("too few texts") << true << QStringList{named("a")}
                                   << QStringList{named("a"), named("1.50")};
    QTest::newRow("too many texts") << true << QStringList{named("a"), named("b"), named("c")}
                                    << QStringList{named("a"), named("b")};
}

void TestVTValues::enumerationFromASelection()
{
    QFETCH(bool, withTexts);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, expected);
    ValueSelection source(named("x"));
    source.AddItem(named("Two"), 2.0, 1, nullptr);
    source.AddItem(named("More"), 1.5, 2, nullptr);
    form->formular()->InitEnumeration(named("Modes"), &source, withTexts ? &texts : nullptr);
    const auto enumeration = form->formular()->GetEnum(named("Modes"));
    QCOMPARE(valueTexts(*enumeration), expected);
    QCOMPARE(enumeration->GetValueAt(1).GetDisplayName(), named("More"));
    QCOMPARE(enumeration->GetValueAt(1).GetEnumIdentifier(), named("MODES_") + expected.at(1));
}

void TestVTValues::enumerationKeepsItsScriptObject()
{
    ValueSelection source(named("x"));
    source.AddItem(named("Two"), 2.0, 1, nullptr);
    form->formular()->InitEnumeration(named("Modes"), &source, nullptr);
    const QScriptValue object = form->formular()->GetScriptValues().value(named("Modes"));
    QCOMPARE(object.property(named("MODE_FAST")).toString(), named("2"));
    QVERIFY(!object.property(named("MODES_2.00")).isValid());
}

void TestVTValues::enumerationReachesRowsAtTheNextResync()
{
    ValueSelection source(named("x"));
    source.AddItems({named("Fast"), named("Two")}, nullptr);
    form->formular()->InitEnumeration(named("Modes"), &source, nullptr);
    const ValueSelection* const own =
        dynamic_cast<ValueSelection*>(form->formular()->GetVTValue(named("mode")));
    QCOMPARE(own->GetItemCount(), 3L);
    form->sheet().ResyncValueTree();
    QCOMPARE(itemNames(*own), (QStringList{named("Fast"), named("Two")}));
    QCOMPARE(own->GetStringValue(), named("Fast"));
}

void TestVTValues::unknownEnumerationIsNotFilled()
{
    ValueSelection source(named("x"));
    source.AddItems({named("Two")}, nullptr);
    form->formular()->InitEnumeration(named("Unknown"), &source, nullptr);
    form->formular()->InitEnumeration(QString(), &source, nullptr);
    QCOMPARE(form->formular()->GetEmptyEnum()->GetValueCount(), 0);
    QCOMPARE(form->formular()->GetEnum(named("Unknown")), form->formular()->GetEmptyEnum());
}

QTEST_MAIN(TestVTValues)
#include "tst_vtvalues.moc"
