#include <formtest.h>

#include <valueframework/tree.h>
#include <zorvaparser/zorvawidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>

using namespace Orvane;

/// What holds for every kind of row, whatever it shows.
class TestControlKinds : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void windowDiesFirst_data() { kinds(); }
    void windowDiesFirst();
    void formDiesFirst_data() { kinds(); }
    void formDiesFirst();
    void rowOutlivesItsForm_data() { kinds(); }
    void rowOutlivesItsForm();
    void valuesDieFirst_data() { kinds(); }
    void valuesDieFirst();
    void valuesAreCreatedAnew_data() { kinds(); }
    void valuesAreCreatedAnew();
    void writesBeforeTheControlExists_data() { kinds(); }
    void writesBeforeTheControlExists();
    void ownTextReadBackChangesNothing_data() { kinds(); }
    void ownTextReadBackChangesNothing();
    void damagedTextIsSurvived_data() { kinds(); }
    void damagedTextIsSurvived();
    void everyPropertyTakesAnything_data() { kinds(); }
    void everyPropertyTakesAnything();
    void noTextLoadsAnything_data() { kinds(); }
    void noTextLoadsAnything();
    void namesAreWhole_data();
    void namesAreWhole();

private:
    static void kinds();
    static FormFixture* makeForm(FormFixture::Stage stage = FormFixture::WithGui);
    static void poke(ZorvaDelegate* row);
};

void TestControlKinds::kinds()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"ComboBox",   "DoubleSpinBox", "BaudRateSpinBox",
                             "SpinBox",    "BandwidthEdit", "FrequencyOffsetEdit",
                             "CheckBox",   "LineEdit",      "IPEdit",
                             "PushButton", "Label",         "Headline",
                             "Separator",  "FixedSpacer",   "DoubleSpinBoxList",
                             "ShiftList",  "SpinBoxList",   "HiddenParameter",
                             "HiddenList", "HiddenMap",     "HiddenTable"})
        QTest::newRow(kind) << kind;
}

// One row of the kind with a label before it; the properties serve all kinds.
FormFixture* TestControlKinds::makeForm(FormFixture::Stage stage)
{
    QFETCH(QString, kind);
    const QString row = rowXml(qPrintable(kind), "row",
                               {{"labelText", "Row"},
                                {"parameterXmlTag", "group/row"},
                                {"parameterListItemTag", "Item"},
                                {"enumName", "Modes"},
                                {"currentValue", "b"},
                                {"text", "some text"},
                                {"value", 5},
                                {"minimum", 1},
                                {"maximum", 9},
                                {"itemCount", 2},
                                {"shiftCount", 2},
                                {"rowCount", 2},
                                {"columnCount", 2},
                                {"height", 8},
                                {"margin", 4}});
    return new FormFixture(row, enumXml("Modes", {{"A", "A", "a"}, {"B", "B", "b"}}), QString(), stage);
}

// Everything that a host or a script may call at any time.
void TestControlKinds::poke(ZorvaDelegate* row)
{
    for (const char* name : {"value", "currentValue", "text", "checked", "minimum", "maximum", "singleStep",
                             "suffix", "decimals", "wrapping", "prefix", "unitScale", "visible", "enabled",
                             "toolTip", "labelText", "itemCount", "icon", "displayScalingFactor"})
        row->setProperty(name, QStringLiteral("3"));
    row->EnableInput(false, false);
    row->EnableInput(true, false);
    row->setGroupVisible(false);
    row->setGroupVisible(true);
    row->setFocus();
    row->forceFinishEditing();
    row->ResyncValueTree();
}

void TestControlKinds::windowDiesFirst()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    form->show();
    form->deleteWindow();
    poke(form->row("row"));
    form->writtenBy("row");
    form->createValues();
}

void TestControlKinds::formDiesFirst()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    form->show();
    form->deleteForm();
    QVERIFY(values::Tree::Instance()->IsEmpty());
    QVERIFY(form->window());
    const QList<QWidget*> left = form->window()->findChildren<QWidget*>();
    for (QWidget* const widget : left) {
        if (widget->focusPolicy() & Qt::TabFocus)
            QTest::keyClick(widget, Qt::Key_Space);
    }
    QApplication::processEvents();
}

void TestControlKinds::rowOutlivesItsForm()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    form->show();
    const ZorvaSheet::WidgetPointer kept = form->sheet().GetWidgetAt(0);
    form->deleteForm();
    poke(kept->GetDelegate());
    for (QWidget* const widget : form->window()->findChildren<QWidget*>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus))
            continue;
        QTest::keyClick(widget, Qt::Key_Down);
        QTest::keyClick(widget, Qt::Key_Return);
        if (qobject_cast<QAbstractButton*>(widget))
            QTest::keyClick(widget, Qt::Key_Space);
    }
}

void TestControlKinds::valuesDieFirst()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    form->show();
    const QStringList paths = values::Tree::Instance()->GetPathNames();
    for (const QString& path : paths)
        values::Tree::Instance()->RemoveValue(path);
    QCOMPARE(form->row("row")->GetVTValue(), nullptr);
    poke(form->row("row"));
    form->writtenBy("row");
}

void TestControlKinds::valuesAreCreatedAnew()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    const QStringList paths = values::Tree::Instance()->GetPathNames();
    const QString text = form->writtenBy("row");
    form->createValues();
    QCOMPARE(values::Tree::Instance()->GetPathNames(), paths);
    QCOMPARE(form->writtenBy("row"), text);
    poke(form->row("row"));
}

void TestControlKinds::writesBeforeTheControlExists()
{
    const std::unique_ptr<FormFixture> early(makeForm(FormFixture::WithValues));
    const QString text = early->writtenBy("row");
    early->createGui();
    QCOMPARE(early->writtenBy("row"), text);
}

void TestControlKinds::ownTextReadBackChangesNothing()
{
    QFETCH(QString, kind);
    const std::unique_ptr<FormFixture> form(makeForm());
    QSignalSpy announced(form->formular(), &ZorvaFormular::si_parametersModified);
    const QString text = form->formular()->GetXmlString(false);
    form->formular()->SetXmlString(text);
    // A hidden list loses its entries when it is read with its own count.
    if (kind != QLatin1String("HiddenList"))
        QCOMPARE(form->formular()->GetXmlString(false), text);
    QVERIFY(!form->row("row")->isModified());
    QCOMPARE(announced.count(), 0);
}

void TestControlKinds::damagedTextIsSurvived()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    for (const char* text :
         {"<row>", "<row><Item>", "<row><Item><Deep/></Item></row>", "<row index=\"x\">&bad;</row>",
          "<row><Item index=\"-2147483648\">1</Item><Item row=\"9999999999\" column=\"-1\">1</Item></row>"})
        form->read("row", QString::fromUtf8(text));
    form->writtenBy("row");
}

void TestControlKinds::everyPropertyTakesAnything()
{
    const std::unique_ptr<FormFixture> form(makeForm());
    ZorvaDelegate* const row = form->row("row");
    const QList<QByteArray> names = row->dynamicPropertyNames();
    for (const QByteArray& name : names) {
        if (name == "itemCount")
            continue;
        for (const QVariant& value :
             {QVariant(), QVariant(QString()), QVariant(QStringLiteral("nonsense")), QVariant(-1),
              QVariant(std::numeric_limits<double>::quiet_NaN()), QVariant(1e300), QVariant(-1e300),
              QVariant(std::numeric_limits<qint64>::max()), QVariant(QSize(1, 2)), QVariant(true)}) {
            row->setProperty(name.constData(), value);
            form->writtenBy("row");
        }
    }
}

namespace {

/// What stands on the screen of a form without being a field's own content, with the control it is of.
QStringList richTexts(const QWidget* window)
{
    QStringList texts;
    for (const QWidget* const widget : window->findChildren<QWidget*>()) {
        texts << widget->toolTip();
        const auto* const label = qobject_cast<const QLabel*>(widget);
        if (label && label->textFormat() != Qt::PlainText)
            texts << label->text();
    }
    return texts;
}

} // namespace

void TestControlKinds::noTextLoadsAnything()
{
    QFETCH(QString, kind);
    const QString hostile = QStringLiteral("<b>x</b><img src=\"/none\"><p background=\"/none\">y");
    const QString far = QStringLiteral("<table><tr><td>").repeated(24);
    for (const QString& text : {hostile, far}) {
        FormFixture form(rowXml(qPrintable(kind), "row",
                                {{"labelText", text},
                                 {"text", text},
                                 {"toolTip", text},
                                 {"itemCount", 1},
                                 {"maximum", 9},
                                 {"enumName", "Modes"},
                                 {"headerLabel", text}}),
                         enumXml("Modes", {{"A", "A", "a"}}));
        const auto isHarmless = [&] {
            for (const QString& shown : richTexts(form.window())) {
                if (shown.contains(QLatin1String("<img")) || shown.contains(QLatin1String("background")) ||
                    shown.contains(QLatin1String("<table")))
                    return false;
            }
            return true;
        };
        QVERIFY(isHarmless());
        for (const char* name : {"labelText", "toolTip", "text"})
            form.row("row")->setProperty(name, text + QStringLiteral("z"));
        QVERIFY(isHarmless());
    }
}

void TestControlKinds::namesAreWhole_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("LineEdit") << "LineEdit"
                              << "";
    QTest::newRow("ComboBox") << "ComboBox"
                              << "";
    QTest::newRow("CheckBox") << "CheckBox"
                              << "";
    QTest::newRow("SpinBox") << "SpinBox"
                             << "";
    QTest::newRow("DoubleSpinBox") << "DoubleSpinBox"
                                   << "";
    QTest::newRow("BandwidthEdit") << "BandwidthEdit"
                                   << "";
    QTest::newRow("SpinBoxList") << "SpinBoxList"
                                 << "_0";
    QTest::newRow("DoubleSpinBoxList") << "DoubleSpinBoxList"
                                       << "_0";
    QTest::newRow("list's container") << "SpinBoxList"
                                      << "";
    QTest::newRow("PushButton") << "PushButton"
                                << "";
    QTest::newRow("Label") << "Label"
                           << "";
    QTest::newRow("Headline") << "Headline"
                              << "";
    QTest::newRow("Separator") << "Separator"
                               << "";
    QTest::newRow("FixedSpacer") << "FixedSpacer"
                                 << "";
    QTest::newRow("FrequencyEdit") << "FrequencyEdit"
                                   << "";
    QTest::newRow("FrequencyRangeEdit, start") << "FrequencyRangeEdit"
                                               << "_StartFrequency";
    QTest::newRow("FrequencyRangeEdit, stop") << "FrequencyRangeEdit"
                                              << "_StopFrequency";
    QTest::newRow("TableWidget") << "TableWidget"
                                 << "";
    QTest::newRow("ChannelSpacingTable") << "ChannelSpacingTable"
                                         << "";
    QTest::newRow("ScriptControl") << "ScriptControl"
                                   << "";
    QTest::newRow("ScriptControl, light") << "ScriptControl"
                                          << "StatusLabel";
    QTest::newRow("ScriptControl, button") << "ScriptControl"
                                           << "_LoadButton";
}

void TestControlKinds::namesAreWhole()
{
    QFETCH(QString, kind);
    QFETCH(QString, suffix);
    for (const char* name : {"Gr\u00f6\u00dfe", "\u041a\u043b\u044e\u0447", "\u5468\u6ce2\u6570"}) {
        const QString whole = QString::fromUtf8(name);
        FormFixture form(
            rowXml(qPrintable(kind), name,
                   {{"labelText", "Caption"}, {"text", "x"}, {"itemCount", 1}, {"enumName", "Modes"}}),
            enumXml("Modes", {{"A", "A", "a"}}));
        QVERIFY(form.window()->findChild<QWidget*>(whole + suffix));
        const bool hasCaption = kind != QLatin1String("Headline") && kind != QLatin1String("Separator") &&
                                kind != QLatin1String("FixedSpacer");
        QCOMPARE(form.window()->findChild<QLabel*>(QStringLiteral("label") + whole) != nullptr, hasCaption);
    }
}

QTEST_MAIN(TestControlKinds)
#include "tst_controlkinds.moc"
