#include <formfixture.h>
#include <formtest.h>

#include <zorvaparser/widgets/zorvachannelspacingtable.h>
#include <zorvaparser/widgets/zorvaheadline.h>
#include <zorvaparser/widgets/zorvaspinboxlist.h>
#include <zorvaparser/widgets/zorvatable.h>
#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvawidget.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTimer>

// A host that found the controls of a form, and answers their own signals.
class TestControlSignals : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTypedControlOutlivesItsRow_data();
    void aTypedControlOutlivesItsRow();
    void spacingsEndWithTheirForm();
    void aGroupEndsWithItsForm();
    void aTableShrinksWhileItIsCleared();
    void aManagerEndsWhileAFormIsLeft();
    void anEarlierWindowLeavesNoTimer();
    void manyItemsAreToldInOrder();
    void placesHoldWhenValuesGo();
};

void TestControlSignals::aTypedControlOutlivesItsRow_data()
{
    QTest::addColumn<QString>("row");
    QTest::newRow("list") << rowXml("SpinBoxList", "row", {{"itemCount", 2}});
    QTest::newRow("list with decimals") << rowXml("DoubleSpinBoxList", "row", {{"itemCount", 2}});
    QTest::newRow("table") << rowXml("ChannelSpacingTable", "row", {{"spacingsCount", 3}});
}

/// Qt is still at work on a control while a key's signal is heard.
void TestControlSignals::aTypedControlOutlivesItsRow()
{
    QFETCH(QString, row);
    FormFixture form(row);
    form.show();
    QApplication::setActiveWindow(form.window());
    auto* const spin = form.window()->findChild<QDoubleSpinBox*>();
    auto* const table = form.window()->findChild<QTableWidget*>();
    const QPointer<QWidget> control = spin ? static_cast<QWidget*>(spin) : table;
    bool wasThere = false;
    const auto letGo = [&] {
        if (!form.formular())
            return;
        form.deleteForm();
        wasThere = control;
    };
    if (spin) {
        connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, letGo);
    } else {
        table->setCurrentCell(0, 0);
        connect(table, &QTableWidget::itemSelectionChanged, this, letGo);
    }
    control->setFocus();
    QVERIFY(control->hasFocus());
    QTest::keyClick(control, spin ? Qt::Key_Up : Qt::Key_Down);
    QVERIFY(!form.formular());
    QVERIFY(wasThere);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!control);
}

void TestControlSignals::spacingsEndWithTheirForm()
{
    FormFixture form(rowXml("ChannelSpacingTable", "row", {{"spacingsCount", 5}}));
    auto* const row = form.delegate<Orvane::ZorvaChannelSpacingTable>("row");
    int heard = 0;
    connect(form.window()->findChild<QTableWidget*>(), &QTableWidget::cellChanged, this, [&] {
        ++heard;
        form.deleteForm();
    });
    row->setAllSpacingValues(4.0);
    QCOMPARE(heard, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestControlSignals::aGroupEndsWithItsForm()
{
    FormFixture form(rowXml("Headline", "row", {{"text", "Group"}}) + rowXml("LineEdit", "other"));
    auto* const row = form.delegate<Orvane::ZorvaHeadline>("row");
    bool heard = false;
    connect(form.window()->findChild<QGroupBox*>(), &QGroupBox::toggled, this, [&] {
        heard = true;
        form.deleteForm();
    });
    row->setGroupVisible(false);
    QVERIFY(heard);
}

void TestControlSignals::aTableShrinksWhileItIsCleared()
{
    FormFixture form(rowXml("TableWidget", "row", {{"rowCount", 2}, {"columnCount", 2}}));
    form.show();
    auto* const table = form.window()->findChild<QTableWidget*>();
    table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("x")));
    connect(table, &QTableWidget::cellChanged, this, [&] { form.row("row")->setProperty("rowCount", 0); });
    form.delegate<Orvane::ZorvaTable>("row")->clear();
    QCOMPARE(table->rowCount(), 0);
}

void TestControlSignals::aManagerEndsWhileAFormIsLeft()
{
    auto manager = std::make_unique<Orvane::ZorvaFormularManager>();
    manager->SetVTPath(QStringLiteral("/test"));
    manager->EnableApplyUi(false);
    const QList<FormProperty> withoutPause{{"autoApplyEnabled", false}};
    for (const char* const name : {"a", "b"}) {
        manager->DefineFormular(QString::fromLatin1(name),
                                formXml(rowXml("LineEdit", name), QString(), QString(), withoutPause));
        manager->GetFormular(QString::fromLatin1(name));
    }
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> left(manager->GetFormular(QStringLiteral("a")));
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> next(manager->GetFormular(QStringLiteral("b")));
    manager->ShowFormular(QStringLiteral("a"));
    QApplication::setActiveWindow(left->GetGUI());
    auto* const edit = left->GetGUI()->findChild<QLineEdit*>();
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_X);
    manager->GetXmlString(true);
    connect(manager.get(), &Orvane::ZorvaFormularManager::si_parametersModified, this,
            [&] { delete manager.release(); });
    // Leaving the form ends the text that is being typed.
    QVERIFY(!manager->ShowFormular(QStringLiteral("b")));
    QVERIFY(!manager);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete left->GetGUI();
    delete next->GetGUI();
}

void TestControlSignals::anEarlierWindowLeavesNoTimer()
{
    FormFixture form(rowXml("LineEdit", "row"));
    const auto timers = [&] { return form.sheet().GetDelegate()->findChildren<QTimer*>().count(); };
    QCOMPARE(timers(), 1);
    form.deleteWindow();
    form.sheet().setAutoApplyEnabled(false);
    form.formular()->CreateGUI(false);
    QCOMPARE(timers(), 0);
    delete form.formular()->GetGUI();
}

void TestControlSignals::manyItemsAreToldInOrder()
{
    constexpr int count = 300;
    FormFixture form(rowXml("SpinBoxList", "row", {{"itemCount", count}}), FormFixture::WithValues);
    auto* const row = form.delegate<Orvane::ZorvaSpinBoxList>("row");
    QList<int> told;
    connect(row, &Orvane::ZorvaSpinBoxList::valueChanged, this, [&](int index, int) { told << index; });
    for (int i = 0; i < count; ++i)
        row->setItemValue(i, i + 1);
    QCOMPARE(told.count(), count);
    for (int i = 0; i < count; ++i)
        QCOMPARE(told.at(i), i);
    // The list of another time is another list.
    form.createValues();
    told.clear();
    row->setItemValue(count - 1, 7);
    QCOMPARE(told, QList<int>{count - 1});
}

void TestControlSignals::placesHoldWhenValuesGo()
{
    FormFixture form(rowXml("SpinBoxList", "row", {{"itemCount", 6}}), FormFixture::WithValues);
    auto* const row = form.delegate<Orvane::ZorvaSpinBoxList>("row");
    QList<int> told;
    connect(row, &Orvane::ZorvaSpinBoxList::valueChanged, this, [&](int index, int) { told << index; });
    row->setItemValue(5, 1);
    values::Tree* const tree = values::Tree::Instance();
    QStringList paths = tree->GetPathNames().filter(QStringLiteral("/test/"));
    QCOMPARE(paths.count(), 6);
    paths.sort();
    for (const int gone : {4, 0})
        tree->RemoveValue(paths.takeAt(gone));
    told.clear();
    // Of 1, 2, 3 and 5, by the tree and by the row.
    for (const QString& path : qAsConst(paths))
        tree->GetValue(path)->SetStringValue(QStringLiteral("9"), nullptr);
    QCOMPARE(told, (QList<int>{0, 1, 2, 3}));
    told.clear();
    row->setItemValue(3, 4);
    QCOMPARE(told, QList<int>{3});
}

QTEST_MAIN(TestControlSignals)
#include "tst_controlsignals.moc"
