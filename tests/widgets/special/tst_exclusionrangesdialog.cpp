#include "dialoguser.h"
#include "guardedtest.h"
#include "rangemaps.h"
#include "tableuser.h"

#include <formfixture.h>
#include <valueframework/value.h>
#include <zorvaparser/widgets/exclusionrangesdialog.h>
#include <zorvaparser/widgets/freqrangetable.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QTranslator>
#include <QVBoxLayout>

using Orvane::FreqRangeTable;

// Both objects that have exclusion ranges open the same dialog: every test runs for each.
class tst_ExclusionRangesDialog : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsBuilt_data() { bothObjects(); }
    void looksAsBuilt();
    void acceptedEditsAreWritten_data() { bothObjects(); }
    void acceptedEditsAreWritten();
    void cancelledEditsAreNot_data() { bothObjects(); }
    void cancelledEditsAreNot();
    void acceptedEmptyMapGetsOneRange_data() { bothObjects(); }
    void acceptedEmptyMapGetsOneRange();
    void sortButtonSorts_data() { bothObjects(); }
    void sortButtonSorts();
    void keyboardAlone_data() { bothObjects(); }
    void keyboardAlone();
    void tabWalksTheDialog_data() { bothObjects(); }
    void tabWalksTheDialog();
    void formMayDieUnderIt_data() { bothObjects(); }
    void formMayDieUnderIt();
    void speaksTheWordsOfItsRow_data() { bothObjects(); }
    void speaksTheWordsOfItsRow();
    void mapOutsideOfTheTree_data() { bothObjects(); }
    void mapOutsideOfTheTree();
    void windowMayDieUnderIt_data() { bothObjects(); }
    void windowMayDieUnderIt();
    void withoutAMapNothingOpens_data() { bothObjects(); }
    void withoutAMapNothingOpens();
    void withoutAWindow();

private:
    static void bothObjects();
};

namespace {

/// A shown form with one object that has the ranges 3 to 4 kHz and 1 to 2 kHz.
struct ObjectForm
{
    ObjectForm()
        : form(widgetXml(QTest::currentDataTag(), "ranges"), FormFixture::WithGui)
        , map(rangeMapAt(QStringLiteral("/test/ranges")))
    {
        setRange(map, 0, 3000, 4000);
        setRange(map, 1, 1000, 2000);
        form.show();
        form.resetModified();
    }

    void ask() const { form.evaluate(QStringLiteral("ranges.emitEditExclusionRangesBtnClicked()")); }

    FormFixture form;
    values::ValueCommentedRangeMap* map;
};

FreqRangeTable* tableOf(QDialog* dialog)
{
    return dialog->findChild<FreqRangeTable*>();
}

const QString asItWas = QStringLiteral("0:3000-4000 1:1000-2000");

} // namespace

void tst_ExclusionRangesDialog::bothObjects()
{
    QTest::addColumn<int>("nothing");
    QTest::newRow("SpecialObject_FHP") << 0;
    QTest::newRow("SpecialObject_DSC") << 0;
}

void tst_ExclusionRangesDialog::looksAsBuilt()
{
    ObjectForm f;
    bool came = false;
    whenDialogOpens([&](QDialog* dialog) {
        came = true;
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Excluded ranges (kHz)"));
        QCOMPARE(dialog->parentWidget(), f.form.window());
        QVERIFY(!(dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
        QVERIFY(qobject_cast<QVBoxLayout*>(dialog->layout()));
        QCOMPARE(tableOf(dialog)->rowCount(), 2);
        const auto* const box = dialog->findChild<QDialogButtonBox*>();
        QCOMPARE(box->orientation(), Qt::Horizontal);
        QCOMPARE(box->buttons().count(), 3);
        const QPushButton* const sort = dialogButton(dialog, QDialogButtonBox::ActionRole);
        QCOMPARE(sort->text(), QStringLiteral("&Sort"));
        QCOMPARE(sort->toolTip(), QStringLiteral("Sort entries by start frequency in ascending order"));
        pressButton(dialog, QDialogButtonBox::RejectRole);
    });
    f.ask();
    QVERIFY(came);
    QVERIFY(!f.form.window()->findChild<QDialog*>());
}

void tst_ExclusionRangesDialog::acceptedEditsAreWritten()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        typeIntoCell<QLineEdit>(tableOf(dialog), 0, 1, QStringLiteral("5 MHz"));
        QCOMPARE(rangesText(f.map), asItWas);
        pressButton(dialog, QDialogButtonBox::AcceptRole);
    });
    f.ask();
    QCOMPARE(rangesText(f.map), QStringLiteral("0:1000-2000 1:3000-5000000"));
    QVERIFY(f.form.row("ranges")->isModified());
}

void tst_ExclusionRangesDialog::cancelledEditsAreNot()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        typeIntoCell<QLineEdit>(tableOf(dialog), 0, 1, QStringLiteral("5 MHz"));
        pressButton(dialog, QDialogButtonBox::RejectRole);
    });
    f.ask();
    QCOMPARE(rangesText(f.map), asItWas);
    QVERIFY(!f.form.row("ranges")->isModified());
}

void tst_ExclusionRangesDialog::acceptedEmptyMapGetsOneRange()
{
    ObjectForm f;
    f.map->Clear(nullptr);
    whenDialogOpens([](QDialog* dialog) { pressButton(dialog, QDialogButtonBox::AcceptRole); });
    f.ask();
    QCOMPARE(rangesText(f.map), QStringLiteral("0:0-0"));
}

void tst_ExclusionRangesDialog::sortButtonSorts()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        QCOMPARE(tableOf(dialog)->item(0, 0)->text(), QStringLiteral("3 kHz"));
        pressButton(dialog, QDialogButtonBox::ActionRole);
        QCOMPARE(tableOf(dialog)->item(0, 0)->text(), QStringLiteral("1 kHz"));
        QVERIFY(dialog->isVisible());
        pressButton(dialog, QDialogButtonBox::RejectRole);
    });
    f.ask();
    QCOMPARE(rangesText(f.map), asItWas);
}

void tst_ExclusionRangesDialog::keyboardAlone()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        FreqRangeTable* const table = tableOf(dialog);
        table->setFocus();
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(table->rowCount(), 3);
        table->setCurrentCell(2, 0);
        QTest::keyClick(table, Qt::Key_F2);
        QWidget* const editor = QApplication::focusWidget();
        QVERIFY(qobject_cast<QLineEdit*>(editor));
        QTest::keyClicks(editor, QStringLiteral("8"));
        QTest::keyClick(editor, Qt::Key_Return);
        // Return ends the edit, not the dialog.
        QTRY_COMPARE(table->item(2, 0)->text(), QStringLiteral("8 kHz"));
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    f.ask();
    QCOMPARE(rangesText(f.map), asItWas);
}

// The arrows walk the cells, Tab goes to the buttons and comes back.
void tst_ExclusionRangesDialog::tabWalksTheDialog()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        FreqRangeTable* const table = tableOf(dialog);
        QCOMPARE(QApplication::focusWidget(), table);
        table->setCurrentCell(0, 0);
        QTest::keyClick(table, Qt::Key_Right);
        QTest::keyClick(table, Qt::Key_Down);
        QCOMPARE(table->currentColumn(), 1);
        QCOMPARE(table->currentRow(), 1);
        QWidgetList walk;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            walk.append(QApplication::focusWidget());
        }
        for (const QDialogButtonBox::ButtonRole role :
             {QDialogButtonBox::AcceptRole, QDialogButtonBox::RejectRole, QDialogButtonBox::ActionRole})
            QVERIFY(walk.contains(dialogButton(dialog, role)));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), table);
        QVERIFY(!table->accessibleName().isEmpty());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    f.ask();
}

void tst_ExclusionRangesDialog::formMayDieUnderIt()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) {
        f.form.deleteForm();
        pressButton(dialog, QDialogButtonBox::AcceptRole);
    });
    // Not from the script: its engine would die while it runs.
    QMetaObject::invokeMethod(f.form.row("ranges"), "sl_editExclusionRanges");
    QVERIFY(!f.form.formular());
}

void tst_ExclusionRangesDialog::windowMayDieUnderIt()
{
    ObjectForm f;
    whenDialogOpens([&](QDialog*) { f.form.deleteWindow(); });
    f.ask();
    QVERIFY(!f.form.window());
    QCOMPARE(rangesText(f.map), asItWas);
}

void tst_ExclusionRangesDialog::speaksTheWordsOfItsRow()
{
    /// Remembers which context each word of the dialog is asked for in.
    class Listener : public QTranslator
    {
    public:
        QString translate(const char* context, const char* text, const char*, int) const override
        {
            if (qstrncmp(text, "Excluded", 8) == 0 || qstrcmp(text, "&Sort") == 0 ||
                qstrncmp(text, "Sort ", 5) == 0)
                contexts << QString::fromUtf8(context);
            return QString();
        }
        bool isEmpty() const override { return false; }
        mutable QStringList contexts;
    } listener;
    QCoreApplication::installTranslator(&listener);
    ObjectForm f;
    whenDialogOpens([&](QDialog* dialog) { pressButton(dialog, QDialogButtonBox::RejectRole); });
    f.ask();
    QCoreApplication::removeTranslator(&listener);
    const QString own = QString::fromLatin1(f.form.row("ranges")->metaObject()->className());
    QCOMPARE(listener.contexts, (QStringList{own, own, own}));
}

// Beside a value of another kind the row works on a map that no path leads to.
void tst_ExclusionRangesDialog::mapOutsideOfTheTree()
{
    values::Tree::Instance()->AddValue(QStringLiteral("/test"),
                                       new values::ValueString(QStringLiteral("ranges")));
    {
        FormFixture form(widgetXml(QTest::currentDataTag(), "ranges"), FormFixture::WithGui);
        form.show();
        whenDialogOpens([&](QDialog* dialog) {
            QVERIFY(tableOf(dialog)->isEnabled());
            typeIntoCell<QLineEdit>(tableOf(dialog), 0, 1, QStringLiteral("5 MHz"));
            pressButton(dialog, QDialogButtonBox::AcceptRole);
        });
        form.evaluate(QStringLiteral("ranges.emitEditExclusionRangesBtnClicked()"));
        QVERIFY(form.writtenBy("ranges").contains(QStringLiteral("5000000")));
        QVERIFY(form.row("ranges")->isModified());
    }
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/ranges"));
}

void tst_ExclusionRangesDialog::withoutAMapNothingOpens()
{
    ObjectForm f;
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/ranges"));
    f.ask();
    QVERIFY(!f.form.window()->findChild<QDialog*>());
}

void tst_ExclusionRangesDialog::withoutAWindow()
{
    auto* const map = new values::ValueCommentedRangeMap(QStringLiteral("ranges"));
    values::Tree::Instance()->AddValue(QStringLiteral("/test"), map);
    setRange(map, 0, 1000, 2000);
    whenDialogOpens([](QDialog* dialog) {
        typeIntoCell<QLineEdit>(tableOf(dialog), 0, 0, QStringLiteral("1.5"));
        pressButton(dialog, QDialogButtonBox::AcceptRole);
    });
    Orvane::editExclusionRanges(nullptr, map, {});
    QCOMPARE(rangesText(map), QStringLiteral("0:1500-2000"));
    values::Tree::Instance()->RemoveValue(QStringLiteral("/test/ranges"));
}

QTEST_MAIN(tst_ExclusionRangesDialog)
#include "tst_exclusionrangesdialog.moc"
