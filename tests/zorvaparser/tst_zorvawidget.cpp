#include "enginetest.h"

#include <layout/floatgrouplayout.h>

#include <QGroupBox>
#include <QLabel>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaSheet;
using Orvane::ZorvaWidget;

namespace {

QString tagged(const char* name, const char* path)
{
    return rowXml("LineEdit", name, {{"parameterXmlTag", path}});
}

QString found(ZorvaSheet& sheet, const char* path)
{
    const auto widget = sheet.GetWidget(QString::fromLatin1(path));
    return widget ? widget->GetName() : QString();
}

QString markup(const FormFixture& form)
{
    QString text = form.formular()->GetXmlString(false);
    return text.remove(QLatin1Char('\n')).remove(QLatin1Char(' '));
}

} // namespace

class tst_zorvawidget : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void newRecordIsSelectedAndHasNoDelegate()
    {
        const FormPointer form = parsed(rootXml(QString()));
        ZorvaWidget widget(&form->GetSheet());
        QCOMPARE(widget.GetName(), QString());
        QCOMPARE(widget.GetClass(), QString());
        QVERIFY(!widget.GetDelegate());
        QVERIFY(widget.IsSelected());
        QCOMPARE(widget.GetSheet(), &form->GetSheet());
        QCOMPARE(widget.GetFormular(), form.data());
        // These two bear a missing delegate.
        widget.CreateValueTree(QStringLiteral("/test"));
        widget.ResyncValueTree();
    }

    void classChoosesTheDelegate_data()
    {
        QTest::addColumn<QByteArray>("delegateClass");
        const QList<QPair<const char*, const char*>> rows{
            {"ComboBox", "ZorvaComboBox"},
            {"CheckBox", "ZorvaCheckBox"},
            {"Headline", "ZorvaHeadline"},
            {"FrequencyEdit", "ZorvaFrequencyEdit"},
            {"FrequencyRangeEdit", "ZorvaFrequencyRangeEdit"},
            {"SpinBox", "ZorvaSpinBox"},
            {"DoubleSpinBox", "ZorvaDoubleSpinBox"},
            {"BandwidthEdit", "ZorvaInt64SpinBox"},
            {"BaudRateSpinBox", "ZorvaDoubleSpinBox"},
            {"ChannelSpacingTable", "ZorvaChannelSpacingTable"},
            {"DoubleSpinBoxList", "ZorvaDoubleSpinBoxList"},
            {"FrequencyOffsetEdit", "ZorvaInt64SpinBox"},
            {"HiddenList", "ZorvaHiddenList"},
            {"ScriptControl", "ZorvaScriptControl"},
            {"HiddenMap", "ZorvaHiddenMap"},
            {"HiddenParameter", "ZorvaHidden"},
            {"HiddenTable", "ZorvaHiddenTable"},
            {"IPEdit", "ZorvaLineEdit"},
            {"LineEdit", "ZorvaLineEdit"},
            {"PushButton", "ZorvaPushButton"},
            {"Label", "ZorvaLabel"},
            {"Separator", "ZorvaSeparator"},
            {"FixedSpacer", "ZorvaSeparator"},
            {"ShiftList", "ZorvaDoubleSpinBoxList"},
            {"SpinBoxList", "ZorvaSpinBoxList"},
            {"TableWidget", "ZorvaTable"},
            {"SpecialObject_Audio", "ZorvaAudioObject"},
            {"SpecialObject_DSC", "ZorvaDSCObject"},
            {"SpecialObject_FFT", "ZorvaFFTObject"},
            {"SpecialObject_Generic", "ZorvaDelegate"},
            {"SpecialObject_Tuner", "ZorvaTunerObject"},
            {"SpecialObject_WDE", "ZorvaDelegate"},
            {"SpecialObject_FHP", "ZorvaFHPObject"},
            {"Gadget", "ZorvaDelegate"},
            {"lineedit", "ZorvaDelegate"},
            {"LINEEDIT", "ZorvaDelegate"},
            {"LineEdit ", "ZorvaDelegate"},
            {"ZorvaLineEdit", "ZorvaDelegate"},
            {"Int64SpinBox", "ZorvaDelegate"},
            {"", "ZorvaDelegate"},
        };
        for (const auto& row : rows)
            QTest::newRow(*row.first ? row.first : "empty") << "Orvane::" + QByteArray(row.second);
    }

    void classChoosesTheDelegate()
    {
        QFETCH(QByteArray, delegateClass);
        const QByteArray tag = QTest::currentDataTag();
        const QByteArray className = tag == "empty" ? QByteArray() : tag;
        FormFixture form(widgetXml(className.constData(), "w"), FormFixture::Parsed);
        const auto widget = form.sheet().GetWidgetAt(0);
        QCOMPARE(QByteArray(widget->GetDelegate()->metaObject()->className()), delegateClass);
        QCOMPARE(widget->GetClass(), QString::fromLatin1(className));
        QCOMPARE(widget->IsHeadline(), className == "Headline");
        // Every kind goes through all steps of a form's life with no property at all.
        form.createValues();
        form.createGui();
        form.formular()->GetXmlString(false);
        form.formular()->SetXmlString(QStringLiteral("<Parameters><w>1</w></Parameters>"));
    }

    void rowsHaveCommonNamesAndTextsInOnePlace()
    {
        const auto spin = [](const char* name, const char* tip) {
            return widgetXml("SpinBox", name, {{"unit", "dBm"}, {"minimum", -30}, {"toolTip", tip}});
        };
        FormFixture form(spin("a", "One") + spin("b", "Other"), FormFixture::WithValues);
        const QList<QByteArray> names = form.row("a")->dynamicPropertyNames();
        const QList<QByteArray> others = form.row("b")->dynamicPropertyNames();
        QCOMPARE(names, others);
        QVERIFY(names.contains("unit") && names.contains("q_internalLastMinimum"));
        for (int i = 0; i < names.count(); ++i)
            QVERIFY2(names.at(i).constData() == others.at(i).constData(), names.at(i).constData());
        const QString unit = form.row("a")->property("unit").toString();
        QCOMPARE(unit.constData(), form.row("b")->property("unit").toString().constData());
        // What one row is given later is its own.
        form.row("b")->setProperty("unit", QStringLiteral("mW"));
        form.row("b")->setProperty("late", 1);
        QCOMPARE(form.row("a")->property("unit").toString(), QStringLiteral("dBm"));
        QCOMPARE(form.row("a")->property("toolTip").toString(), QStringLiteral("One"));
        QVERIFY(!form.row("a")->property("late").isValid());
    }

    // More than are kept in one place, and of every length.
    void uncommonNamesAndTextsStayTheirRows()
    {
        QString rows;
        for (int row = 0; row < 4; ++row) {
            QString properties;
            for (int i = 0; i < 400; ++i)
                properties += propertyXml(QByteArray("own" + QByteArray::number(400 * row + i)).constData(),
                                          QByteArray(i % 80, char('a' + row)).constData());
            rows += QStringLiteral("<Widget name=\"r%1\" class=\"LineEdit\">%2</Widget>")
                        .arg(row)
                        .arg(properties);
        }
        FormFixture form(rows);
        for (int row = 0; row < 4; ++row) {
            const QByteArray name = "r" + QByteArray::number(row);
            for (int i = 0; i < 400; ++i)
                QCOMPARE(form.row(name.constData())
                             ->property(QByteArray("own" + QByteArray::number(400 * row + i)).constData())
                             .toString(),
                         QString(i % 80, QLatin1Char(char('a' + row))));
        }
    }

    void lineAndSpacerAreOneClass()
    {
        FormFixture form(widgetXml("Separator", "line", {{"visible", true}}) +
                         widgetXml("FixedSpacer", "gap", {{"visible", true}, {"height", 12}}));
        QVERIFY(form.control<QGroupBox>("line"));
        QVERIFY(form.control<QWidget>("gap"));
        QVERIFY(!form.control<QGroupBox>("gap"));
    }

    void unknownClassMakesAWorkingRow()
    {
        FormFixture form(rowXml("Gadget", "w", {{"labelText", "Caption"}}));
        QCOMPARE(form.row("w")->objectName(), QStringLiteral("w"));
        QCOMPARE(evaluated(form.formular(), QStringLiteral("w.labelText")), QStringLiteral("Caption"));
        QVERIFY(form.control<QLabel>("labelw"));
        QVERIFY(!form.control<QWidget>("w"));
        QVERIFY(!form.row("w")->GetVTValue());
        form.row("w")->setModified(true);
        QCOMPARE(markup(form), QStringLiteral("<Parameters/>"));
    }

    void nameIsSetBeforeTheProperties()
    {
        // The global stands under the widget's name; a property then renames the
        // object, and the default tag follows that.
        FormFixture form(widgetXml("LineEdit", "w", {{"objectName", "renamed"}}), FormFixture::Parsed);
        QCOMPARE(form.row("renamed")->objectName(), QStringLiteral("renamed"));
        QCOMPARE(form.sheet().GetWidgetAt(0)->GetName(), QStringLiteral("w"));
        QCOMPARE(evaluated(form.formular(), QStringLiteral("w.objectName")), QStringLiteral("renamed"));
        QVERIFY(!form.formular()->GetScriptValues().contains(QStringLiteral("renamed")));
    }

    void pathsShareTheirGroups()
    {
        FormFixture form(tagged("w1", "a/b/c") + tagged("w2", "top") + tagged("w3", "a/b/d") +
                         tagged("w4", "a/e"));
        QCOMPARE(found(form.sheet(), "a/b/c"), QStringLiteral("w1"));
        QCOMPARE(found(form.sheet(), "a/b/d"), QStringLiteral("w3"));
        QCOMPARE(found(form.sheet(), "a/e"), QStringLiteral("w4"));
        QCOMPARE(markup(form),
                 QStringLiteral("<Parameters><a><b><c></c><d></d></b><e></e></a><top></top></Parameters>"));
    }

    void pathIsSplitAtSlashes_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("search");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty parts are dropped") << "//a//b/c"
                                                 << "a/b/c"
                                                 << "<Parameters><a><b><c></c></b></a></Parameters>";
        QTest::newRow("one part") << "c"
                                  << "c"
                                  << "<Parameters><c></c></Parameters>";
        QTest::newRow("empty means the name") << ""
                                              << "w"
                                              << "<Parameters><w></w></Parameters>";
    }

    void pathIsSplitAtSlashes()
    {
        QFETCH(QString, path);
        QFETCH(QString, search);
        QFETCH(QString, expected);
        FormFixture form(rowXml("LineEdit", "w", {{"parameterXmlTag", path}}));
        QCOMPARE(found(form.sheet(), search.toLatin1().constData()), QStringLiteral("w"));
        QCOMPARE(markup(form), expected);
    }

    void equalPathsGetTwoLeavesAndTheFirstIsFound()
    {
        FormFixture form(tagged("first", "a/b") + tagged("second", "a/b"));
        QCOMPARE(found(form.sheet(), "a/b"), QStringLiteral("first"));
        form.formular()->SetXmlString(QStringLiteral("<Parameters><a><b>x</b></a></Parameters>"));
        QCOMPARE(markup(form), QStringLiteral("<Parameters><a><b>x</b><b></b></a></Parameters>"));
    }

    void leafAheadOfAGroupOfItsTagWins()
    {
        // The second row hangs below the first one's leaf, where only look-ups find it.
        FormFixture form(tagged("leaf", "a") + tagged("below", "a/b"));
        QCOMPARE(found(form.sheet(), "a"), QStringLiteral("leaf"));
        QCOMPARE(found(form.sheet(), "a/b"), QStringLiteral("below"));
        QCOMPARE(markup(form), QStringLiteral("<Parameters><a></a></Parameters>"));
    }

    void groupAheadOfALeafOfItsTagWins()
    {
        FormFixture form(tagged("below", "a/b") + tagged("leaf", "a"));
        QCOMPARE(found(form.sheet(), "a/b"), QStringLiteral("below"));
        // The path ends at the group, but as a bare tag it finds the row in the list.
        QCOMPARE(found(form.sheet(), "a"), QStringLiteral("leaf"));
        QCOMPARE(markup(form), QStringLiteral("<Parameters><a><b></b></a><a></a></Parameters>"));
    }

    void rowIsReachedThroughAnyOfItsTags()
    {
        FormFixture form(rowXml("FrequencyRangeEdit", "range",
                                {{"startFrequencyParameterXmlTag", "Start"},
                                 {"stopFrequencyParameterXmlTag", "Stop"},
                                 {"parameterXmlTag", "band/Range"}}),
                         FormFixture::Parsed);
        const auto widget = form.sheet().GetWidgetAt(0);
        QVERIFY(widget->GetDelegate()->HasSeveralXmlTags());
        QCOMPARE(widget->GetXmlTagName(), QStringLiteral("Range"));
        for (const char* path : {"band/Start", "band/Stop", "band/Range", "Range"})
            QCOMPARE(found(form.sheet(), path), QStringLiteral("range"));
        QCOMPARE(found(form.sheet(), "band/start"), QString());
        QCOMPARE(found(form.sheet(), "Start"), QString());
    }

    void readingClearsTheMark()
    {
        FormFixture form(rowXml("LineEdit", "w"));
        form.row("w")->setModified(true);
        QXmlStreamReader reader(QStringLiteral("<w>new</w>"));
        reader.readNextStartElement();
        form.sheet().GetWidgetAt(0)->ReadXml(reader);
        QVERIFY(reader.isEndElement());
        QVERIFY(!form.sheet().GetWidgetAt(0)->isModified());
        QCOMPARE(form.row("w")->property("text").toString(), QStringLiteral("new"));
    }

    void writingFollowsMarkAndSelection_data()
    {
        QTest::addColumn<bool>("modified");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<bool>("modifiedOnly");
        QTest::addColumn<bool>("isWritten");
        QTest::addColumn<bool>("isModifiedAfterwards");
        QTest::newRow("modified, changes wanted") << true << true << true << true << false;
        QTest::newRow("modified, all wanted") << true << true << false << true << false;
        QTest::newRow("clean, changes wanted") << false << true << true << false << false;
        QTest::newRow("clean, all wanted") << false << true << false << true << false;
        QTest::newRow("deselected and modified, all wanted") << true << false << false << false << true;
        QTest::newRow("deselected and modified, changes wanted") << true << false << true << false << true;
        QTest::newRow("deselected and clean") << false << false << false << false << false;
    }

    void writingFollowsMarkAndSelection()
    {
        QFETCH(bool, modified);
        QFETCH(bool, selected);
        QFETCH(bool, modifiedOnly);
        QFETCH(bool, isWritten);
        QFETCH(bool, isModifiedAfterwards);
        FormFixture form(rowXml("LineEdit", "w"));
        const auto widget = form.sheet().GetWidgetAt(0);
        if (modified)
            form.row("w")->setModified(false);
        widget->SetSelected(selected);
        QString text;
        QXmlStreamWriter writer(&text);
        widget->GetXml(writer, modifiedOnly);
        QCOMPARE(!text.isEmpty(), isWritten);
        QCOMPARE(widget->isModified(), isModifiedAfterwards);
    }

    void externalRowIsNamedByItsWidget()
    {
        FormFixture form(QString(), FormFixture::Parsed);
        QLabel label;
        const auto widget =
            form.sheet().InsertWidget(QStringLiteral("ext"), QStringLiteral("Caption"), &label, -1);
        ZorvaDelegate* const delegate = widget->GetDelegate();
        QCOMPARE(widget->GetName(), QStringLiteral("ext"));
        QCOMPARE(widget->GetClass(), QStringLiteral("QLabel"));
        QCOMPARE(delegate->objectName(), QStringLiteral("ext"));
        QCOMPARE(delegate->dynamicPropertyNames(), (QList<QByteArray>{"labelText", "visible", "enabled"}));
        QCOMPARE(delegate->property("labelText"), QVariant(QStringLiteral("Caption")));
        QCOMPARE(delegate->property("visible"), QVariant(true));
        QCOMPARE(delegate->property("enabled"), QVariant(true));
        QCOMPARE(widget->GetXmlTagName(), QString());
    }

    void externalRowWithoutAWidgetIsHarmless()
    {
        FormFixture form(QString(), FormFixture::WithValues);
        const auto widget = form.sheet().InsertWidget(QStringLiteral("ext"), QString(), nullptr, -1);
        QCOMPARE(widget->GetClass(), QString());
        form.createGui();
        widget->GetDelegate()->setFocus();
        form.sheet().EnableInput(false, ZorvaSheet::ekHostEnableScope);
    }

    void externalWidgetMayDieFirst()
    {
        FormFixture form(QString(), FormFixture::WithValues);
        auto* const label = new QLabel;
        const auto widget = form.sheet().InsertWidget(QStringLiteral("ext"), QString(), label, -1);
        delete label;
        form.createGui();
        widget->GetDelegate()->setVisible(false);
    }
};

QTEST_MAIN(tst_zorvawidget)
#include "tst_zorvawidget.moc"
