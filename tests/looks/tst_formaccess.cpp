// What assistive tools and the keyboard find in whole forms.
#include "controlroles.h"
#include "generatedform.h"

#include <basicvaluewidgets/vclineedit.h>
#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <formtest.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/zorvaparser.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QTextDocument>

namespace {

/// The controls below an interface that have no name, or mark-up in what they say.
QStringList faultsBelow(QAccessibleInterface* iface)
{
    QStringList faults;
    if (!iface || !iface->isValid())
        return faults;
    const QString name = iface->text(QAccessible::Name);
    const QString description = iface->text(QAccessible::Description);
    if (!controlRole(iface->role()).isEmpty()) {
        const QString object = iface->object() ? iface->object()->objectName() : QString();
        if (name.isEmpty())
            faults.append(QStringLiteral("%1 has no name").arg(object));
        if (Qt::mightBeRichText(name) || Qt::mightBeRichText(description))
            faults.append(QStringLiteral("%1 says %2, %3").arg(object, name, description));
        return faults;
    }
    for (int i = 0; i < iface->childCount(); ++i)
        faults.append(faultsBelow(iface->child(i)));
    return faults;
}

QString nameOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

QString descriptionOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
}

} // namespace

class tst_FormAccess : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasAName_data();
    void everyControlHasAName();
    void namesFollowTheCaption();
    void namesAreWhatIsShown();
    void choiceIsNoName();
    void partsOfARowAreToldApart();
    void valueAndLimitsInOneUnit();
    void walkBeginsInTheFirstRowAndEndsInTheBar();
    void tabLeavesATable();
    void openedGroupIsInOrder();
    void insertedRowIsInOrder();
    void embeddedFormLeavesTheFocus();
    void windowOfAHostBeginsInTheFirstRow();

private:
    static void pressTab() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); }
    static QString focused()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
};

void tst_FormAccess::everyControlHasAName_data()
{
    QTest::addColumn<QString>("description");
    for (const char* example : {"receiver", "gallery"}) {
        QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/%1.zorva").arg(QLatin1String(example)));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTest::newRow(example) << QString::fromUtf8(file.readAll());
    }
    for (quint32 seed = 1; seed <= 40; ++seed)
        QTest::addRow("generated %u", seed) << generatedForm(seed);
}

void tst_FormAccess::everyControlHasAName()
{
    QFETCH(const QString, description);
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(
        Orvane::ZorvaParser().ParseZORVA(description));
    form->CreateValueTree(QStringLiteral("/test"));
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    window->show();
    const QStringList faults = faultsBelow(QAccessible::queryAccessibleInterface(window.get()));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void tst_FormAccess::namesFollowTheCaption()
{
    FormFixture form(rowXml("SpinBox", "gain", {{"labelText", "Gain & more"}}) +
                     rowXml("PushButton", "go", {{"labelText", "Scan"}, {"text", "&Start"}}) +
                     rowXml("PushButton", "bare", {{"text", "Stop"}}));
    QCOMPARE(nameOf(form.control<QWidget>("gain")), QStringLiteral("Gain & more"));
    form.evaluate(QStringLiteral("gain.setLabelText('Level')"));
    QCOMPARE(nameOf(form.control<QWidget>("gain")), QStringLiteral("Level"));
    QCOMPARE(nameOf(form.control<QWidget>("go")), QStringLiteral("Scan, Start"));
    form.evaluate(QStringLiteral("go.setText('Again')"));
    QCOMPARE(nameOf(form.control<QWidget>("go")), QStringLiteral("Scan, Again"));
    QCOMPARE(nameOf(form.control<QWidget>("bare")), QStringLiteral("Stop"));
}

void tst_FormAccess::namesAreWhatIsShown()
{
    FormFixture form(rowXml("PushButton", "both", {{"labelText", " "}, {"text", "Signal && &Noise"}}) +
                     rowXml("ScriptControl", "script", {{"labelText", "Mission"}, {"visibleLoad", true}}));
    QCOMPARE(nameOf(form.control<QWidget>("both")), QStringLiteral("Signal & Noise"));
    QCOMPARE(nameOf(form.control<QWidget>("script_LoadButton")), QStringLiteral("Mission, Load"));
    form.evaluate(QStringLiteral("script.setLabelText('Macro')"));
    QCOMPARE(nameOf(form.control<QWidget>("scriptClearButton")), QStringLiteral("Macro, Clear"));
}

// Qt itself gives the choice for a name.
void tst_FormAccess::choiceIsNoName()
{
    FormFixture form(
        rowXml("ComboBox", "step", {{"labelText", "Step"}, {"enumName", "Steps"}, {"value", "Fine"}}),
        enumXml("Steps", {{"Fine", "Fine", "1"}, {"Coarse", "Coarse", "2"}}));
    auto* box = form.control<QComboBox>("step");
    box->setCurrentIndex(0);
    QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(box);
    QCOMPARE(iface->role(), QAccessible::ComboBox);
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("Step"));
    QCOMPARE(iface->text(QAccessible::Value), QStringLiteral("Fine"));
    QAccessibleTextInterface* text = iface->textInterface();
    QVERIFY(text);
    QCOMPARE(text->text(0, text->characterCount()), QStringLiteral("Fine"));
    QCOMPARE(iface->childCount(), 1);
    QCOMPARE(iface->indexOfChild(iface->child(0)), 0);
    QVERIFY(iface->state().expandable && !iface->state().expanded);
}

void tst_FormAccess::partsOfARowAreToldApart()
{
    FormFixture form(rowXml("FrequencyRangeEdit", "range", {{"labelText", "Range"}}) +
                     rowXml("SpinBoxList", "list", {{"labelText", "List"}, {"itemCount", 2}}) +
                     rowXml("FrequencyEdit", "main", {{"labelText", "Frequency"}, {"MainFreqEdit", true}}));
    QCOMPARE(nameOf(form.control<QWidget>("range_StartFrequency")), QStringLiteral("Range, Start Frequency"));
    QCOMPARE(nameOf(form.control<QWidget>("range_StopFrequency")), QStringLiteral("Range, Stop Frequency"));
    QCOMPARE(descriptionOf(form.control<QWidget>("range_StartFrequency")),
             QStringLiteral("8 kHz ... 26.499999999 GHz"));
    QCOMPARE(nameOf(form.control<QWidget>("list_0")), QStringLiteral("List, 1"));
    QCOMPARE(nameOf(form.control<QWidget>("list_1")), QStringLiteral("List, 2"));
    QCOMPARE(nameOf(form.control<QWidget>("Frequency")), QStringLiteral("Frequency"));
    auto* unit = form.control<QAbstractButton>("FrequencyButton");
    QCOMPARE(nameOf(unit), unit->toolTip());
    auto* lock = form.control<QAbstractButton>("LockFrequency");
    form.evaluate(QStringLiteral("main.setProperty('FrequencyLock', true)"));
    QVERIFY(!nameOf(lock).isEmpty());
}

void tst_FormAccess::valueAndLimitsInOneUnit()
{
    FormFixture form(rowXml("DoubleSpinBox", "width",
                            {{"labelText", "Width"},
                             {"minimum", 1000},
                             {"maximum", 50000},
                             {"value", 2000},
                             {"unitScale", 1000},
                             {"suffix", "kHz"}}));
    auto* spin = form.control<VCNumericFloatSpin>("width");
    QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(spin);
    QAccessibleValueInterface* value = iface->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 2.0);
    QCOMPARE(value->minimumValue().toDouble(), 1.0);
    QCOMPARE(value->maximumValue().toDouble(), 50.0);
    QCOMPARE(iface->text(QAccessible::Description), QStringLiteral("1 ... 50 kHz"));
    QCOMPARE(iface->text(QAccessible::Value), QStringLiteral("2 kHz"));
    QVERIFY(iface->textInterface());
    value->setCurrentValue(3.0);
    QCOMPARE(form.value<values::NumericDouble>("width")->GetValue(), 3000.0);
}

void tst_FormAccess::walkBeginsInTheFirstRowAndEndsInTheBar()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "Group"}}) +
                     rowXml("LineEdit", "first", {{"labelText", "A"}}) +
                     rowXml("CheckBox", "second", {{"labelText", "B"}}) +
                     rowXml("SpinBoxList", "third", {{"labelText", "C"}, {"itemCount", 2}}));
    form.show();
    QTRY_COMPARE(focused(), QStringLiteral("first"));
    const auto* automatic = form.control<QCheckBox>("autoApply");
    const bool before = automatic->isChecked();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(automatic->isChecked(), before);
    QStringList walk;
    for (int i = 0; i < 6; ++i) {
        pressTab();
        walk.append(focused());
    }
    form.control<QPushButton>("applyButton")->setEnabled(true);
    QCOMPARE(walk.mid(0, 3), QStringLiteral("second third_0 third_1").split(QLatin1Char(' ')));
    QVERIFY(walk.indexOf(QStringLiteral("autoApply")) > 2);
    QVERIFY(walk.indexOf(QStringLiteral("head")) > walk.indexOf(QStringLiteral("autoApply")));
}

void tst_FormAccess::tabLeavesATable()
{
    FormFixture form(
        rowXml("TableWidget", "table", {{"labelText", "T"}, {"rowCount", 2}, {"columnCount", 2}}) +
        rowXml("LineEdit", "next", {{"labelText", "N"}}));
    form.show();
    auto* table = form.control<QTableWidget>("table");
    QTRY_COMPARE(QApplication::focusWidget(), table);
    table->setCurrentCell(0, 0);
    QTest::keyClick(table, Qt::Key_Right);
    QCOMPARE(table->currentColumn(), 1);
    pressTab();
    QCOMPARE(focused(), QStringLiteral("next"));
}

void tst_FormAccess::openedGroupIsInOrder()
{
    FormFixture form(rowXml("LineEdit", "before", {{"labelText", "A"}}) +
                     rowXml("Headline", "head", {{"text", "Group"}}) +
                     rowXml("LineEdit", "inside", {{"labelText", "B"}}));
    form.formular()->ShowGroup(QStringLiteral("head"), false);
    form.show();
    form.formular()->ShowGroup(QStringLiteral("head"), true);
    QTRY_COMPARE(focused(), QStringLiteral("before"));
    pressTab();
    pressTab();
    QCOMPARE(focused(), QStringLiteral("inside"));
}

// In the place where the row is seen, also after all rows were built anew.
void tst_FormAccess::insertedRowIsInOrder()
{
    FormFixture form(rowXml("LineEdit", "first", {{"labelText", "A"}}) +
                         rowXml("LineEdit", "last", {{"labelText", "Z"}}),
                     FormFixture::WithValues);
    const auto insert = [&form](const char* name) {
        auto* edit = new QLineEdit;
        edit->setObjectName(QString::fromLatin1(name));
        form.sheet().InsertWidget(edit->objectName(), QStringLiteral("Inserted"), edit, 1);
    };
    const auto walk = [&form] {
        form.control<QWidget>("first")->setFocus();
        QStringList names;
        for (int i = 0; i < 2; ++i) {
            pressTab();
            names.append(focused());
        }
        return names;
    };
    insert("early");
    form.createGui();
    form.show();
    QCOMPARE(walk(), (QStringList{QStringLiteral("early"), QStringLiteral("last")}));
    insert("late");
    qobject_cast<FloatGroupLayout*>(form.control<QWidget>("sheetArea")->layout())->removeAllWidgets();
    form.formular()->CreateGUI(true);
    QTRY_COMPARE(walk(), (QStringList{QStringLiteral("late"), QStringLiteral("last")}));
}

void tst_FormAccess::embeddedFormLeavesTheFocus()
{
    FormFixture form(rowXml("LineEdit", "row", {{"labelText", "A"}}));
    QWidget host;
    auto* own = new QLineEdit(&host);
    own->setObjectName(QStringLiteral("own"));
    form.window()->setParent(&host);
    own->setFocus();
    host.show();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    QCOMPARE(focused(), QStringLiteral("own"));
    form.window()->setParent(nullptr);
}

void tst_FormAccess::windowOfAHostBeginsInTheFirstRow()
{
    FormFixture form(rowXml("Headline", "head", {{"text", "Group"}}) +
                     rowXml("LineEdit", "row", {{"labelText", "A"}}));
    QMainWindow host;
    host.setCentralWidget(form.window());
    host.show();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    QCOMPARE(focused(), QStringLiteral("row"));
    host.takeCentralWidget();
    form.window()->hide();
}

QTEST_MAIN(tst_FormAccess)
#include "tst_formaccess.moc"
