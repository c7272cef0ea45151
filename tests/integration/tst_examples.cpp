// The forms that people start from: each one loads and works, and the gallery
// leaves no kind of control out.
#include <formtest.h>
#include <valueframework/valuebase.h>
#include <velkappstartup/velkapplication.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser.h>
#include <zorvaparser/zorvatest.h>

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QToolButton>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;
using Orvane::ZorvaParser;
using Orvane::ZorvaTest;

namespace {

QString example(const char* name)
{
    return QStringLiteral(ZORVA_EXAMPLES_DIR "/") + QLatin1String(name);
}

/// An example as its host shows it.
class ExampleForm
{
public:
    explicit ExampleForm(const QString& path)
        : form(ZorvaParser().ParseZORVAFile(path))
    {
        if (!form)
            return;
        form->CreateValueTree(QStringLiteral("/example"));
        form->CreateGUI(true);
        window = form->GetGUI();
        window->resize(1200, 900);
        window->show();
        QCoreApplication::processEvents();
    }
    ExampleForm(const ExampleForm&) = delete;
    ExampleForm& operator=(const ExampleForm&) = delete;
    ~ExampleForm() { delete window; }

    ZorvaDelegate* row(const QString& name) const
    {
        for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i) {
            const auto widget = form->GetSheet().GetWidgetAt(i);
            if (widget->GetName() == name)
                return widget->GetDelegate();
        }
        return nullptr;
    }
    QString text(const char* name, const char* property) const
    {
        return row(QString::fromLatin1(name))->property(property).toString();
    }
    template <typename Control>
    Control* control(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    void click(const char* button) const { QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton); }
    /// Chooses the entry of a combo box as the user does with the keys.
    void choose(const char* name, const QString& entry) const
    {
        auto* const box = control<QComboBox>(name);
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < box->count() && box->currentText() != entry; ++i)
            QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentText(), entry);
    }
    /// Applies, as far as the marks go.
    void fetch() const { form->GetXmlString(true); }

    QExplicitlySharedDataPointer<ZorvaFormular> form;
    QPointer<QWidget> window;
};

/// The class names that the factory's table holds.
QStringList tableOfClasses()
{
    QFile source(QStringLiteral(ZORVA_SOURCE_DIR "/zorvaparser/zorvadelegatefactory.cpp"));
    if (!source.open(QIODevice::ReadOnly))
        return QStringList();
    const QRegularExpression entry(QStringLiteral("\\{QStringLiteral\\(\"([A-Za-z_]+)\"\\),"));
    QStringList names;
    auto found = entry.globalMatch(QString::fromUtf8(source.readAll()));
    while (found.hasNext())
        names << found.next().captured(1);
    return names;
}

} // namespace

class TestExamples : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyExampleLoads_data();
    void everyExampleLoads();
    void galleryShowsEveryClass();
    void classOfTheGalleryWorks_data();
    void classOfTheGalleryWorks();
    void galleryIsReadBackAsWritten_data();
    void galleryIsReadBackAsWritten();

    void demodulationLimitsTheBandwidth_data();
    void demodulationLimitsTheBandwidth();
    void presetSetsAndMarksRows_data();
    void presetSetsAndMarksRows();
    void resolutionIsComputed();
    void lockButtonLocks();
    void switchesEnableTheirRows();
    void componentsGiveThreeTabs();
};

void TestExamples::everyExampleLoads_data()
{
    QTest::addColumn<QString>("path");
    const QFileInfoList files =
        QDir(QStringLiteral(ZORVA_EXAMPLES_DIR)).entryInfoList({QStringLiteral("*.zorva")}, QDir::Files);
    QVERIFY(files.size() >= 3);
    for (const QFileInfo& file : files)
        QTest::newRow(qPrintable(file.fileName())) << file.filePath();
}

void TestExamples::everyExampleLoads()
{
    QFETCH(QString, path);
    const ExampleForm live(path);
    QVERIFY(live.form);
    QVERIFY(live.form->GetSheet().GetWidgetCount() > 0);
    QVERIFY(live.window->isVisible());
    // Neither defaults nor the script count as edits.
    QVERIFY(!live.form->GetSheet().isModified());
    // A hidden list does not read what it wrote: its entries are for scripts to fill.
    QStringList lists;
    for (const auto& widget : live.form->GetSheet().FindWidgetsOfClass(QStringLiteral("HiddenList")))
        lists << widget->GetDelegate()->GetXmlPath();
    live.form->SelectWidgets(lists, lists.isEmpty());
    const QString all = live.form->GetXmlString(false);
    QVERIFY(!all.isEmpty());
    live.form->SetXmlString(all);
    QCOMPARE(live.form->GetXmlString(false), all);
}

void TestExamples::galleryShowsEveryClass()
{
    const QStringList classes = tableOfClasses();
    QCOMPARE(classes.size(), 33);
    const ExampleForm live(example("gallery.zorva"));
    for (const QString& name : classes)
        QVERIFY2(live.form->GetSheet().FindWidget(name), qPrintable(name));
}

void TestExamples::classOfTheGalleryWorks_data()
{
    QTest::addColumn<QString>("className");
    const QStringList classes = tableOfClasses();
    for (const QString& name : classes)
        QTest::newRow(qPrintable(name)) << name;
}

void TestExamples::classOfTheGalleryWorks()
{
    QFETCH(QString, className);
    const ExampleForm live(example("gallery.zorva"));
    const auto rows = live.form->GetSheet().FindWidgetsOfClass(className);
    QVERIFY(!rows.isEmpty());
    for (const auto& widget : rows) {
        ZorvaDelegate* const row = widget->GetDelegate();
        // A row with a value has it where its path says.
        const values::ValueBase* const value = row->GetVTValue();
        if (value)
            QCOMPARE(live.form->GetVTValue(row->GetXmlPath()), value);
        // What stands on the screen follows the row's wish; of a list its entries do.
        QWidget* const control = live.window->findChild<QWidget*>(widget->GetName());
        if (!control || className == QLatin1String("ScriptControl"))
            continue;
        const bool isList = className.endsWith(QLatin1String("List"));
        const QWidget* const shown = isList ? control->findChild<QAbstractSpinBox*>() : control;
        QVERIFY(shown);
        row->setVisible(false);
        QVERIFY2(shown->isHidden(), qPrintable(widget->GetName()));
        row->setVisible(true);
        QVERIFY2(!shown->isHidden(), qPrintable(widget->GetName()));
    }
}

void TestExamples::galleryIsReadBackAsWritten_data()
{
    QTest::addColumn<QString>("className");
    QStringList classes = tableOfClasses();
    classes.removeOne(QStringLiteral("HiddenList"));
    for (const QString& name : qAsConst(classes))
        QTest::newRow(qPrintable(name)) << name;
}

void TestExamples::galleryIsReadBackAsWritten()
{
    QFETCH(QString, className);
    const ExampleForm live(example("gallery.zorva"));
    const auto rows = live.form->GetSheet().FindWidgetsOfClass(className);
    QStringList paths;
    for (const auto& widget : rows)
        paths << widget->GetDelegate()->GetXmlPath();
    live.form->SelectWidgets(paths, true);
    const QString before = live.form->GetXmlString(false);
    live.form->SetXmlString(before);
    QCOMPARE(live.form->GetXmlString(false), before);
    for (const auto& widget : rows)
        QVERIFY(!widget->isModified());
}

void TestExamples::demodulationLimitsTheBandwidth_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<double>("lowest");
    QTest::addColumn<double>("highest");
    QTest::addColumn<QString>("width");
    QTest::newRow("AM cuts the width") << "AM" << 1000.0 << 50000.0 << "50000";
    QTest::newRow("CW cuts it further") << "CW" << 100.0 << 2400.0 << "2400";
    QTest::newRow("USB") << "USB" << 500.0 << 6000.0 << "6000";
    QTest::newRow("pulses take all") << "Pulse" << 4000.0 << 20000000.0 << QString();
}

void TestExamples::demodulationLimitsTheBandwidth()
{
    QFETCH(QString, entry);
    QFETCH(double, lowest);
    QFETCH(double, highest);
    QFETCH(QString, width);
    const ExampleForm live(example("receiver.zorva"));
    live.choose("demodulation", entry);
    ZorvaDelegate* const bandwidth = live.row(QStringLiteral("bandwidth"));
    QCOMPARE(bandwidth->GetDouble(QStringLiteral("minimum"), -1), lowest);
    QCOMPARE(bandwidth->GetDouble(QStringLiteral("maximum"), -1), highest);
    if (!width.isEmpty())
        QCOMPARE(live.form->GetVTValue(QStringLiteral("Tuner/Bandwidth"))->GetStringValue(), width);
    // Only Morse code has a beat frequency, and only FM is de-emphasised.
    QCOMPARE(live.control<QWidget>("bfo") ? live.row(QStringLiteral("bfo"))->isEnabled() : false,
             entry == QLatin1String("CW"));
    QVERIFY(!live.control<QCheckBox>("deemphasis")->isEnabled());
}

void TestExamples::presetSetsAndMarksRows_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("frequency");
    QTest::addColumn<QString>("demodulation");
    QTest::addColumn<QString>("bandwidth");
    QTest::addColumn<QString>("step");
    QTest::newRow("air band") << "presetAirband"
                              << "121500000"
                              << "AM"
                              << "8000"
                              << "8333";
    QTest::newRow("short wave") << "presetShortwave"
                                << "6070000"
                                << "AM"
                                << "6000"
                                << "1000";
}

void TestExamples::presetSetsAndMarksRows()
{
    QFETCH(QString, button);
    QFETCH(QString, frequency);
    QFETCH(QString, demodulation);
    QFETCH(QString, bandwidth);
    QFETCH(QString, step);
    const ExampleForm live(example("receiver.zorva"));
    live.click(button.toLatin1().constData());
    QVERIFY(live.control<QPushButton>("applyButton")->isEnabled());
    const QString sent = live.form->GetXmlString(true);
    const auto has = [&sent](const char* tag, const QString& text) {
        return sent.contains(QRegularExpression(
            QStringLiteral("<%1[^>]*>%2</%1>").arg(QLatin1String(tag), QRegularExpression::escape(text))));
    };
    QVERIFY2(has("Frequency", frequency), qPrintable(sent));
    QVERIFY2(has("Demodulation", demodulation), qPrintable(sent));
    QVERIFY2(has("Bandwidth", bandwidth), qPrintable(sent));
    QVERIFY2(has("Step", step), qPrintable(sent));
    // What stays as it was is not sent.
    QVERIFY2(!sent.contains(QStringLiteral("<Volume")), qPrintable(sent));
    // Once more the same: nothing to send.
    live.click(button.toLatin1().constData());
    QVERIFY(live.form->GetXmlString(true).isNull());
}

void TestExamples::resolutionIsComputed()
{
    const ExampleForm live(example("receiver.zorva"));
    const QString before = live.text("frequencyResolution", "text");
    QVERIFY2(before.contains(QStringLiteral("Hz")), qPrintable(before));
    QCOMPARE(live.control<QLabel>("frequencyResolution")->text(), before);
    live.choose("fftLength", QStringLiteral("256"));
    const QString coarse = live.text("frequencyResolution", "text");
    QVERIFY2(coarse != before, qPrintable(coarse));
    // 1.28 million samples a second in 256 points: 5 kHz each, 0.2 ms a line.
    QVERIFY2(coarse.contains(QStringLiteral("5")) && coarse.contains(QStringLiteral("kHz")),
             qPrintable(coarse));
    const QString line = live.text("timeResolution", "text");
    live.choose("span", QStringLiteral("10 kHz"));
    QVERIFY(live.text("timeResolution", "text") != line);
    QCOMPARE(live.control<QLabel>("timeResolution")->text(), live.text("timeResolution", "text"));
}

void TestExamples::lockButtonLocks()
{
    const ExampleForm live(example("receiver.zorva"));
    auto* const button = live.control<QAbstractButton>("LockFrequency");
    auto* const box = live.control<QCheckBox>("tuningLock");
    QVERIFY(button);
    QVERIFY(live.row(QStringLiteral("frequency"))->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(box->isChecked());
    QVERIFY(live.row(QStringLiteral("tuningLock"))->isModified());
    QVERIFY(!live.row(QStringLiteral("frequency"))->isEnabled());
    // The check box opens it again.
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QVERIFY(!box->isChecked());
    QVERIFY(live.row(QStringLiteral("frequency"))->isEnabled());
}

void TestExamples::switchesEnableTheirRows()
{
    const ExampleForm live(example("receiver.zorva"));
    const auto click = [&live](const char* name) {
        auto* const box = live.control<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    };
    QVERIFY(live.row(QStringLiteral("squelchLevel"))->isEnabled());
    click("squelch");
    QVERIFY(!live.row(QStringLiteral("squelchLevel"))->isEnabled());
    QVERIFY(!live.row(QStringLiteral("attenuation"))->isEnabled());
    click("autoAttenuation");
    QVERIFY(live.row(QStringLiteral("attenuation"))->isEnabled());
    QVERIFY(!live.row(QStringLiteral("manualGain"))->isEnabled());
    live.choose("gainMode", QStringLiteral("Manual (MGC)"));
    QVERIFY(live.row(QStringLiteral("manualGain"))->isEnabled());
    QVERIFY(!live.row(QStringLiteral("agcTime"))->isEnabled());
    live.choose("audioSource", QStringLiteral("Off"));
    QVERIFY(!live.row(QStringLiteral("volume"))->isEnabled());
}

void TestExamples::componentsGiveThreeTabs()
{
    {
        const VelkApplication host(
            QStringList{QStringLiteral("host"), QString(), QString(), QString(), example("components.xml")});
        ZorvaTest shell(QStringLiteral("examples"));
        QVERIFY(shell.Start());
        const auto* const tabs = ZorvaTest::ShellWindows().last()->findChild<QTabWidget*>();
        QVERIFY(tabs);
        QCOMPARE(tabs->count(), 3);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Tuner"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("Audio"));
        QCOMPARE(tabs->tabText(2), QStringLiteral("Station"));
    }
    for (const auto& window : qAsConst(ZorvaTest::ShellWindows()))
        delete window.data();
    ZorvaTest::ShellWindows().clear();
    ZorvaTest::ShownForms().clear();
}

QTEST_MAIN(TestExamples)
#include "tst_examples.moc"
