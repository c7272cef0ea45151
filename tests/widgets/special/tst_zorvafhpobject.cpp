#include "customrow.h"
#include "guardedtest.h"
#include "rangemaps.h"

#include <formfixture.h>
#include <recordingobserver.h>
#include <vkbase/errorhandler.h>
#include <zorvaparser/widgets/zorvafhpobject.h>

#include <QSignalSpy>

using Orvane::ZorvaFHPObject;

namespace {

const QString mapPath = QStringLiteral("/test/ExclusionRanges");

/// A form with one object under its default tag.
struct ObjectForm
{
    ObjectForm()
        : form(customRowXml("SpecialObject_FHP", "fhp", {}), FormFixture::WithGui)
        , map(rangeMapAt(mapPath))
    {
    }

    QString text() const { return rangesText(map); }
    void read(const QString& ranges) const
    {
        form.read("fhp", QStringLiteral("<ExclusionRanges>%1</ExclusionRanges>").arg(ranges));
    }

    FormFixture form;
    values::ValueCommentedRangeMap* map;
};

/// Switches the notes for developers on while it lives.
class NotesOn
{
public:
    NotesOn()
        : m_before(ErrorHandler::Instance().GetTraceMask())
    {
        ErrorHandler::Instance().SetTraceMask(m_before | ErrorHandler::TraceNotes);
    }
    ~NotesOn() { ErrorHandler::Instance().SetTraceMask(m_before); }

private:
    const int m_before;
};

} // namespace

class tst_ZorvaFHPObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void tag_data();
    void tag();
    void parameterXmlIsForcedOn();
    void mapLeftBehindIsReusedAndEmptied();
    void mapLeftBehindIsNoNewsOtherwise();
    void placeTakenByAnotherValue();
    void mapWithoutAName();
    void mapGoesWithTheForm();
    void twoFormsShareTheMap();
    void secondCreationOfValuesStartsAnew();
    void writes();
    void reads_data();
    void reads();
    void readingTellsTheOthers();
    void unknownElementEndsTheList();
    void withoutAMapNothingIsRead();
    void changesMarkTheRow();
    void asksByScript();
    void hasNoRow();
};

void tst_ZorvaFHPObject::tag_data()
{
    QTest::addColumn<QString>("widgets");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariant>("property");
    QTest::newRow("no block") << widgetXml("SpecialObject_FHP", "fhp") << "/test/fhp" << QVariant();
    QTest::newRow("empty block") << customRowXml("SpecialObject_FHP", "fhp", {}) << "/test/ExclusionRanges"
                                 << QVariant(QStringLiteral("ExclusionRanges"));
    QTest::newRow("told") << customRowXml("SpecialObject_FHP", "fhp", {{"customXmlTag", "Foo"}})
                          << "/test/Foo" << QVariant(QStringLiteral("Foo"));
    QTest::newRow("another custom property")
        << customRowXml("SpecialObject_FHP", "fhp", {{"other", "Foo"}}) << "/test/ExclusionRanges"
        << QVariant(QStringLiteral("ExclusionRanges"));
}

void tst_ZorvaFHPObject::tag()
{
    QFETCH(QString, widgets);
    QFETCH(QString, path);
    FormFixture form(widgets, FormFixture::WithValues);
    QVERIFY(rangeMapAt(path));
    QTEST(form.row("fhp")->property("parameterXmlTag"), "property");
    QCOMPARE(form.writtenBy("fhp"), QStringLiteral("<%1/>").arg(path.mid(6)));
    QVERIFY(!form.row("fhp")->GetVTValue());
}

void tst_ZorvaFHPObject::parameterXmlIsForcedOn()
{
    FormFixture form(customRowXml("SpecialObject_FHP", "fhp", {}, {{"generateParameterXml", false}}),
                     FormFixture::WithValues);
    QCOMPARE(form.row("fhp")->property("generateParameterXml").toBool(), false);
    form.row("fhp")->setModified(true);
    QVERIFY(form.row("fhp")->isModified());
    form.row("fhp")->setGenerateParameterXml(true);
    form.row("fhp")->setGenerateParameterXml(false);
    QCOMPARE(form.writtenBy("fhp"), QStringLiteral("<ExclusionRanges/>"));
}

void tst_ZorvaFHPObject::mapLeftBehindIsReusedAndEmptied()
{
    auto* const left = new values::ValueCommentedRangeMap(QStringLiteral("ExclusionRanges"));
    values::Tree::Instance()->AddValue(QStringLiteral("/test"), left);
    setRange(left, 3, 1, 2);
    const NotesOn notes;
    messages().expect(
        QStringLiteral("ZorvaFHPObject::CreateValueTree: exclusion ranges map already existing in VT"));
    messages().allow(QRegularExpression(QStringLiteral("ResyncValueTree")));
    ObjectForm f;
    QCOMPARE(f.map, left);
    QCOMPARE(f.text(), QString());
    QVERIFY(!f.form.row("fhp")->isModified());
}

void tst_ZorvaFHPObject::mapLeftBehindIsNoNewsOtherwise()
{
    values::Tree::Instance()->AddValue(QStringLiteral("/test"),
                                       new values::ValueCommentedRangeMap(QStringLiteral("ExclusionRanges")));
    ObjectForm f;
    QVERIFY(f.map);
}

void tst_ZorvaFHPObject::placeTakenByAnotherValue()
{
    values::Tree::Instance()->AddValue(QStringLiteral("/test"),
                                       new values::ValueString(QStringLiteral("ExclusionRanges")));
    {
        const NotesOn notes;
        // The tree says so of each value; the row says whose it is.
        messages().allow(QRegularExpression(QStringLiteral("A value is refused")));
        messages().expect(QStringLiteral("The place /test/ExclusionRanges in the value tree is taken"));
        FormFixture form(customRowXml("SpecialObject_FHP", "fhp", {}) + rowXml("LineEdit", "behind"));
        QVERIFY(!rangeMapAt(mapPath));
        QCOMPARE(form.writtenBy("fhp"), QStringLiteral("<ExclusionRanges/>"));
        const QString ranges = QStringLiteral("<ExclusionRanges><ExclusionRange><StartFreq>1.00</StartFreq>"
                                              "<StopFreq>2.00</StopFreq></ExclusionRange></ExclusionRanges>");
        form.formular()->SetXmlString(
            QStringLiteral("<Parameters>%1<behind>text</behind></Parameters>").arg(ranges));
        QCOMPARE(form.writtenBy("fhp"), ranges);
        QCOMPARE(form.writtenBy("behind"), QStringLiteral("<behind>text</behind>"));
        messages().expect(QStringLiteral("The place /test/ExclusionRanges in the value tree is taken"));
        form.createValues();
        QCOMPARE(form.writtenBy("fhp"), QStringLiteral("<ExclusionRanges/>"));
    }
    QCOMPARE(values::Tree::Instance()->GetValueCount(), 1);
    values::Tree::Instance()->RemoveValue(mapPath);
}

// Neither the tree nor the leak checker keeps anything of it.
void tst_ZorvaFHPObject::mapWithoutAName()
{
    FormFixture form(customRowXml("SpecialObject_FHP", "fhp", {{"customXmlTag", "a/"}}),
                     FormFixture::WithValues);
    const int once = values::Tree::Instance()->GetValueCount();
    for (int i = 0; i < 3; ++i)
        form.createValues();
    QCOMPARE(values::Tree::Instance()->GetValueCount(), once);
}

void tst_ZorvaFHPObject::mapGoesWithTheForm()
{
    ObjectForm f;
    f.form.deleteForm();
    QVERIFY(!rangeMapAt(mapPath));
}

void tst_ZorvaFHPObject::twoFormsShareTheMap()
{
    auto first = std::make_unique<ObjectForm>();
    ObjectForm second;
    QCOMPARE(first->map, second.map);
    first->form.resetModified();
    second.read(QStringLiteral("<ExclusionRange><StartFreq>1</StartFreq></ExclusionRange>"));
    QVERIFY(first->form.row("fhp")->isModified());
    first.reset();
    QCOMPARE(second.form.writtenBy("fhp"), QString());
    second.form.evaluate(QStringLiteral("fhp.emitEditExclusionRangesBtnClicked()"));
}

void tst_ZorvaFHPObject::secondCreationOfValuesStartsAnew()
{
    const NotesOn notes;
    messages().allow(QRegularExpression(QStringLiteral("ResyncValueTree")));
    ObjectForm f;
    setRange(f.map, 0, 1, 2);
    f.form.createValues();
    QCOMPARE(rangesText(rangeMapAt(mapPath)), QString());
    QCOMPARE(values::Tree::Instance()->GetValueCount(), 1);
}

void tst_ZorvaFHPObject::writes()
{
    ObjectForm f;
    QCOMPARE(f.form.writtenBy("fhp"), QStringLiteral("<ExclusionRanges/>"));
    setRange(f.map, 7, 26500000000.0, 26500000000.126);
    setRange(f.map, 2, 5000000, 6000000);
    QCOMPARE(f.form.writtenBy("fhp"),
             QStringLiteral("<ExclusionRanges>"
                            "<ExclusionRange><StartFreq>5000000.00</StartFreq><StopFreq>6000000.00</StopFreq>"
                            "</ExclusionRange>"
                            "<ExclusionRange><StartFreq>26500000000.00</StartFreq>"
                            "<StopFreq>26500000000.13</StopFreq></ExclusionRange>"
                            "</ExclusionRanges>"));
}

void tst_ZorvaFHPObject::reads_data()
{
    QTest::addColumn<QString>("ranges");
    QTest::addColumn<QString>("stored");
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("two in order")
        << "<ExclusionRange><StartFreq>5</StartFreq><StopFreq>6.5</StopFreq></ExclusionRange>"
           "<ExclusionRange><StopFreq>2</StopFreq><StartFreq>1</StartFreq></ExclusionRange>"
        << "0:5-6.5 1:1-2";
    QTest::newRow("stop alone") << "<ExclusionRange><StopFreq>6</StopFreq></ExclusionRange>"
                                << "0:0-6";
    QTest::newRow("no number")
        << "<ExclusionRange><StartFreq>x</StartFreq><StopFreq>6</StopFreq></ExclusionRange>"
        << "0:0-6";
    QTest::newRow("more inside a range")
        << "<ExclusionRange><Note><a/>b</Note><StartFreq>1</StartFreq></ExclusionRange><ExclusionRange/>"
        << "0:1-0 1:0-0";
    QTest::newRow("index is nothing here")
        << "<ExclusionRange index='7'><StartFreq>1</StartFreq></ExclusionRange>"
        << "0:1-0";
    QTest::newRow("damaged")
        << "<ExclusionRange><StartFreq>1</StartFreq></ExclusionRange><ExclusionRange><StartF"
        << "0:1-0 1:0-0";
}

void tst_ZorvaFHPObject::reads()
{
    QFETCH(QString, ranges);
    ObjectForm f;
    setRange(f.map, 9, 1, 2);
    f.form.resetModified();
    f.read(ranges);
    QTEST(f.text(), "stored");
    QVERIFY(!f.form.row("fhp")->isModified());
}

void tst_ZorvaFHPObject::readingTellsTheOthers()
{
    ObjectForm f;
    RecordingObserver observer;
    observer.watch(f.map);
    f.read(QStringLiteral("<ExclusionRange/><ExclusionRange/>"));
    f.read(QString());
    QCOMPARE(observer.codes(), QList<TChangeCode>({ChangeCode::BulkEnd, ChangeCode::Content,
                                                   ChangeCode::BulkEnd, ChangeCode::Content}));
}

void tst_ZorvaFHPObject::unknownElementEndsTheList()
{
    ObjectForm f;
    QVERIFY(!f.form.read("fhp", QStringLiteral("<ExclusionRanges><ExclusionRange/><Other/>"
                                               "<ExclusionRange><StartFreq>1</StartFreq></ExclusionRange>"
                                               "</ExclusionRanges>")));
    QCOMPARE(f.text(), QStringLiteral("0:0-0"));
}

void tst_ZorvaFHPObject::withoutAMapNothingIsRead()
{
    ObjectForm f;
    values::Tree::Instance()->RemoveValue(mapPath);
    QVERIFY(!f.form.read("fhp", QStringLiteral("<ExclusionRanges/>")));
    QCOMPARE(f.form.writtenBy("fhp"), QString());
}

void tst_ZorvaFHPObject::changesMarkTheRow()
{
    ObjectForm f;
    setRange(f.map, 0, 1, 2);
    QVERIFY(!f.form.row("fhp")->isModified());
    f.map->Set({values::CommentedRange(), values::CommentedRange()}, true, false, nullptr);
    QVERIFY(f.form.row("fhp")->isModified());
    QVERIFY(f.form.sheet().isModified());
}

void tst_ZorvaFHPObject::asksByScript()
{
    // The signal alone, before there is a surface: no dialog.
    FormFixture form(widgetXml("SpecialObject_FHP", "fhp"), FormFixture::WithValues);
    QSignalSpy spy(form.delegate<ZorvaFHPObject>("fhp"),
                   &ZorvaFHPObject::si_editEditExclusionRangesBtnClicked);
    form.evaluate(QStringLiteral("fhp.emitEditExclusionRangesBtnClicked()"));
    QCOMPARE(spy.count(), 1);
}

void tst_ZorvaFHPObject::hasNoRow()
{
    FormFixture form(rowXml("SpecialObject_FHP", "fhp", {{"labelText", "Ranges"}}));
    QVERIFY(!form.control<QLabel>("labelfhp"));
}

QTEST_MAIN(tst_ZorvaFHPObject)
#include "tst_zorvafhpobject.moc"
