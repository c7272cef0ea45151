#include <formtest.h>

#include <valueframework/value.h>
#include <zorvaparser/widgets/zorvalabel.h>

#include <QLabel>

#include <functional>

using namespace Orvane;

namespace {

/// Calls back when a property of the watched object changes.
class PropertyWatch : public QObject
{
public:
    std::function<void()> changed;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange)
            changed();
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class TestZorvaLabel : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsAndWritesItsText();
    void hasNoValueWithoutParameterXml();
    void readChangesTheTextOnly();
    void valueFromOutsideMarks();
    void scriptChangesTheText();
    void textOfTheDescriptionIsRich();
    void reportsAreShownLetterByLetter_data();
    void reportsAreShownLetterByLetter();
    void reportBeforeTheControl();
    void scriptAfterAReport();
    void hostMayLetTheFormGoWhileTheTextChanges_data();
    void hostMayLetTheFormGoWhileTheTextChanges();
};

void TestZorvaLabel::showsAndWritesItsText()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}, {"unit", "x"}, {"labelText", "State"}}));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("idle"));
    QCOMPARE(form.control<QLabel>("labelstate")->text(), QStringLiteral("State"));
    QCOMPARE(form.writtenBy("state"), QStringLiteral("<state>idle</state>"));
}

void TestZorvaLabel::hasNoValueWithoutParameterXml()
{
    FormFixture form(widgetXml("Label", "state", {{"text", "idle"}}));
    QVERIFY(!form.value<values::ValueBase>("state"));
    QCOMPARE(form.writtenBy("state"), QString());
}

void TestZorvaLabel::readChangesTheTextOnly()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    QVERIFY(form.read("state", QStringLiteral("<state>busy</state>")));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("busy"));
    QCOMPARE(form.value<values::ValueString>("state")->GetValue(), QStringLiteral("idle"));
    QVERIFY(!form.row("state")->isModified());
}

void TestZorvaLabel::valueFromOutsideMarks()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    form.value<values::ValueString>("state")->SetValue(QStringLiteral("busy"), nullptr);
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("busy"));
    QVERIFY(form.row("state")->isModified());
}

void TestZorvaLabel::scriptChangesTheText()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    form.evaluate(QStringLiteral("state.setText('scan')"));
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("scan"));
    QVERIFY(!form.row("state")->isModified());
}

void TestZorvaLabel::textOfTheDescriptionIsRich()
{
    FormFixture form(rowXml("Label", "state", {{"text", "<b>idle</b><img src='/none'/>"}}));
    const auto* const label = form.control<QLabel>("state");
    QCOMPARE(label->text(), QStringLiteral("<b>idle</b>"));
    QVERIFY(label->textFormat() != Qt::PlainText);
    form.evaluate(QStringLiteral("state.setText('<i>scan</i>')"));
    QCOMPARE(label->text(), QStringLiteral("<i>scan</i>"));
    QVERIFY(label->textFormat() != Qt::PlainText);
}

void TestZorvaLabel::reportsAreShownLetterByLetter_data()
{
    QTest::addColumn<QString>("report");

    QTest::newRow("bold") << QStringLiteral("<b>busy</b>");
    QTest::newRow("image") << QStringLiteral("<img src='/none'/>");
    QTest::newRow("entity") << QStringLiteral("a &lt; b");
    QTest::newRow("tables") << QStringLiteral("<table><tr><td>").repeated(24);
    QTest::newRow("wide table") << QStringLiteral("<table width=2000000000><tr><td>x");
    QTest::newRow("document") << QStringLiteral("<?xml version=\"1.0\"?><p>x</p>");
}

void TestZorvaLabel::reportsAreShownLetterByLetter()
{
    QFETCH(QString, report);
    const QString row = rowXml("Label", "state", {{"text", "idle"}});
    const QString xml = QStringLiteral("<state>%1</state>").arg(report.toHtmlEscaped());
    const auto isPlain = [&](const FormFixture& form) {
        const auto* const label = form.control<QLabel>("state");
        return label->text() == report && label->textFormat() == Qt::PlainText;
    };
    FormFixture direct(row);
    direct.read("state", xml);
    QVERIFY(isPlain(direct));
    direct.deleteForm();
    FormFixture whole(row);
    whole.formular()->SetXmlString(QStringLiteral("<Parameters>%1</Parameters>").arg(xml));
    QVERIFY(isPlain(whole));
    whole.deleteForm();
    FormFixture tree(row);
    tree.value<values::ValueString>("state")->SetStringValue(report, nullptr);
    QVERIFY(isPlain(tree));
    tree.show();
}

void TestZorvaLabel::reportBeforeTheControl()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}), FormFixture::WithValues);
    form.read("state", QStringLiteral("<state>&lt;b&gt;busy&lt;/b&gt;</state>"));
    form.createGui();
    QCOMPARE(form.control<QLabel>("state")->text(), QStringLiteral("<b>busy</b>"));
    QCOMPARE(form.control<QLabel>("state")->textFormat(), Qt::PlainText);
    form.createValues();
    QCOMPARE(form.control<QLabel>("state")->textFormat(), Qt::PlainText);
}

void TestZorvaLabel::scriptAfterAReport()
{
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    form.read("state", QStringLiteral("<state>&lt;b&gt;busy&lt;/b&gt;</state>"));
    form.evaluate(QStringLiteral("state.setText('<b>idle</b>')"));
    QVERIFY(form.control<QLabel>("state")->textFormat() != Qt::PlainText);
    form.read("state", QStringLiteral("<state>idle</state>"));
    QCOMPARE(form.control<QLabel>("state")->textFormat(), Qt::PlainText);
}

void TestZorvaLabel::hostMayLetTheFormGoWhileTheTextChanges_data()
{
    QTest::addColumn<bool>("read");
    QTest::newRow("read") << true;
    QTest::newRow("value") << false;
}

void TestZorvaLabel::hostMayLetTheFormGoWhileTheTextChanges()
{
    QFETCH(bool, read);
    FormFixture form(rowXml("Label", "state", {{"text", "idle"}}));
    const QPointer<QObject> row = form.row("state");
    PropertyWatch watch;
    watch.changed = [&] { form.deleteForm(); };
    row->installEventFilter(&watch);
    if (read)
        form.read("state", QStringLiteral("<state>busy</state>"));
    else
        form.value<values::ValueString>("state")->SetValue(QStringLiteral("busy"), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!row);
}

QTEST_MAIN(TestZorvaLabel)
#include "tst_zorvalabel.moc"
