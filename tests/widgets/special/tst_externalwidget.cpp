#include "guardedtest.h"

#include <formfixture.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/widgets/externalwidget.h>
#include <zorvaparser/zorvawidget.h>

#include <QLineEdit>
#include <QProgressBar>

using Orvane::ExternalWidget;
using Orvane::ZorvaWidget;

namespace {

/// A form with a line edit and, in front of it, a host's progress bar.
struct FormWithBar
{
    FormWithBar()
        : form(rowXml("LineEdit", "Name", {{"labelText", "Name"}}), FormFixture::WithValues)
        , bar(new QProgressBar)
    {
        bar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        row = form.sheet().InsertWidget(QStringLiteral("bar"), QStringLiteral("Progress"), bar, 0);
    }
    ~FormWithBar()
    {
        if (bar && !bar->parent())
            delete bar;
    }

    Orvane::ZorvaDelegate* delegate() const { return row->GetDelegate(); }

    FormFixture form;
    QPointer<QProgressBar> bar;
    Orvane::ZorvaSheet::WidgetPointer row;
};

} // namespace

class tst_ExternalWidget : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void isReparentedOnlyWhenLaidOut();
    void visibleReachesWidgetAndLabel();
    void windowOfItsOwnIsHiddenAtOnce();
    void classOfTheWidgetHeadsNoGroup();
    void laterNamesAreFound();
    void enabledReachesWidget();
    void widgetIsAFieldLikeOthers();
    void takesTheFocus();
    void nullWidgetGivesNoRow();
    void hostMayDeleteItsWidget();
    void windowMayDieFirst();
};

void tst_ExternalWidget::isReparentedOnlyWhenLaidOut()
{
    FormWithBar host;
    QVERIFY(!host.bar->parent());
    QVERIFY(host.bar->isHidden());
    QCOMPARE(host.delegate()->objectName(), QStringLiteral("bar"));
    host.form.createGui();
    QVERIFY(host.form.window()->isAncestorOf(host.bar));
    QCOMPARE(host.form.control<QLabel>("labelbar")->text(), QStringLiteral("Progress"));
    QCOMPARE(host.row->GetClass(), QStringLiteral("QProgressBar"));
    QVERIFY(!host.delegate()->GetVTValue());
}

void tst_ExternalWidget::visibleReachesWidgetAndLabel()
{
    FormWithBar host;
    host.form.createGui();
    host.form.show();
    QVERIFY(host.bar->isVisible());
    host.delegate()->setVisible(false);
    QVERIFY(!host.bar->isVisible());
    QVERIFY(!host.form.control<QLabel>("labelbar")->isVisible());
    host.delegate()->setVisible(true);
    QVERIFY(host.bar->isVisible());
}

void tst_ExternalWidget::windowOfItsOwnIsHiddenAtOnce()
{
    FormWithBar host;
    host.bar->show();
    host.delegate()->setVisible(false);
    QVERIFY(!host.bar->isVisible());
    // Shown is it by its row only.
    host.delegate()->setVisible(true);
    QVERIFY(!host.bar->isVisible());
    host.form.createGui();
    host.form.show();
    QVERIFY(host.bar->isVisible());
}

class Headline : public QWidget
{
    Q_OBJECT
};

void tst_ExternalWidget::classOfTheWidgetHeadsNoGroup()
{
    FormFixture form(rowXml("Headline", "first", {{"text", "First"}}) + rowXml("LineEdit", "a"),
                     FormFixture::WithValues);
    const auto row = form.sheet().InsertWidget(QStringLiteral("first2"), QString(), new Headline, 1);
    form.sheet().InsertWidget(QStringLiteral("bar"), QString(), new QProgressBar, -1);
    QCOMPARE(row->GetClass(), QStringLiteral("Headline"));
    QVERIFY(!row->IsHeadline());
    form.createGui();
    form.sheet().SetCollapsed({QStringLiteral("first")});
    QVERIFY(!form.row("a")->isGroupVisible());
    QVERIFY(!form.row("bar")->isGroupVisible());
    QCOMPARE(form.sheet().GetCollapsed(), QStringList{QStringLiteral("first")});
}

void tst_ExternalWidget::laterNamesAreFound()
{
    FormFixture form(rowXml("LineEdit", "a") + rowXml("LineEdit", "b"), FormFixture::WithValues);
    const auto overlay = [&](const char* name) {
        form.formular()->SetChangedZORVA(formXml(widgetXml("LineEdit", name, {{"labelText", "overlaid"}})));
    };
    overlay("a"); // the index of names is made
    QProgressBar bar;
    form.sheet().GetWidgetAt(1)->SetExtWidget(QStringLiteral("renamed"), QString(), &bar);
    overlay("renamed");
    QCOMPARE(form.sheet().GetWidgetAt(1)->GetDelegate()->property("labelText").toString(),
             QStringLiteral("overlaid"));
}

void tst_ExternalWidget::enabledReachesWidget()
{
    FormWithBar host;
    host.delegate()->setEnabled(false);
    QVERIFY(!host.bar->isEnabled());
    host.form.createGui();
    QVERIFY(!host.bar->isEnabled());
    host.delegate()->setEnabled(true);
    QVERIFY(host.bar->isEnabled());
}

void tst_ExternalWidget::widgetIsAFieldLikeOthers()
{
    FormWithBar host;
    host.form.createGui();
    host.form.show();
    QTRY_COMPARE(host.bar->width(), host.form.control<QLineEdit>("Name")->width());
    QCOMPARE(host.form.writtenBy("bar"), QString());
}

void tst_ExternalWidget::takesTheFocus()
{
    FormWithBar host;
    host.bar->setFocusPolicy(Qt::StrongFocus);
    host.form.createGui();
    host.form.show();
    host.delegate()->setFocus();
    QTRY_VERIFY(host.bar->hasFocus());
}

void tst_ExternalWidget::nullWidgetGivesNoRow()
{
    FormFixture form(rowXml("LineEdit", "Name", {{"labelText", "Name"}}), FormFixture::Parsed);
    const Orvane::ZorvaSheet::WidgetPointer record(new ZorvaWidget(&form.sheet()));
    ExternalWidget external(record.data(), nullptr);
    external.setLabelText(QStringLiteral("Nothing"));
    QWidget window;
    auto* const layout = new FloatGroupLayout(&window);
    external.CreateGUI(layout);
    external.setFocus();
    QCOMPARE(layout->count(), 0);
}

void tst_ExternalWidget::hostMayDeleteItsWidget()
{
    FormWithBar host;
    host.form.createGui();
    delete host.bar;
    host.delegate()->setEnabled(false);
    host.delegate()->setFocus();
    QCOMPARE(host.delegate()->property("enabled").toBool(), false);
}

void tst_ExternalWidget::windowMayDieFirst()
{
    FormWithBar host;
    host.form.createGui();
    host.form.deleteWindow();
    QVERIFY(!host.bar);
    host.delegate()->setVisible(false);
}

QTEST_MAIN(tst_ExternalWidget)
#include "tst_externalwidget.moc"
