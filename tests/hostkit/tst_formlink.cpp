#include "fakedevice.h"
#include "formtest.h"
#include "recordingobserver.h"

#include <hostkit/formlink.h>
#include <hostkit/formrows.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>

#include <memory>

using namespace hostkit;

namespace {

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

QString formRows()
{
    return widgetXml("Headline", "tuning", {{"text", "Tuning"}, {"visible", true}, {"enabled", true}}) +
           rowXml("SpinBox", "gain",
                  {{"labelText", "Gain"}, {"value", 1}, {"minimum", 0}, {"maximum", 50}, {"suffix", " dB"}}) +
           rowXml("ComboBox", "mode",
                  {{"labelText", "Mode"}, {"enumName", "Modes"}, {"currentValue", "AM"}}) +
           rowXml("LineEdit", "name", {{"labelText", "Name"}, {"text", "x"}}) +
           widgetXml("Label", "level",
                     {{"labelText", "Level"}, {"text", "-"}, {"visible", true}, {"enabled", true}});
}

QString modes()
{
    return enumXml("Modes", {{"Amplitude", "AM", "AM"}, {"Frequency", "FM", "FM"}});
}

} // namespace

class TestFormLink : public FormTest
{
    Q_OBJECT

    std::shared_ptr<FakeDevice> m_device;
    std::unique_ptr<FormFixture> m_form;
    std::unique_ptr<FormLink> m_link;
    QList<Difference> m_unconfirmed;

    void start()
    {
        m_device = std::make_shared<FakeDevice>();
        for (const char* entry : {"gain=10", "mode=FM", "name=hill", "level=S9"})
            m_device->set(text(entry).section(QLatin1Char('='), 0, 0),
                          text(entry).section(QLatin1Char('='), 1));
        m_form = std::make_unique<FormFixture>(formRows(), modes());
        m_form->show();
        m_link = std::make_unique<FormLink>(FormLink::Form(m_form->formular()), m_device);
        m_link->link().setPolled({text("level")}, {text("gain"), text("mode"), text("name")}, 20);
        m_link->link().setPauses(10, 40);
        m_unconfirmed.clear();
        connect(m_link.get(), &FormLink::unconfirmed, this,
                [this](const QList<Difference>& differences) { m_unconfirmed = differences; });
        QSignalSpy all(m_link.get(), &FormLink::readAll);
        m_link->link().start();
        QTRY_COMPARE(all.count(), 1);
    }
    QString shown(const char* parameter) const { return shownText(*m_form->formular(), text(parameter)); }
    RowState state(const char* parameter) const { return m_link->states().state(text(parameter)); }
    void enter(const char* keys)
    {
        auto* const control = m_form->control<QAbstractSpinBox>("gain");
        control->setFocus();
        control->selectAll();
        QTest::keyClicks(control, text(keys));
    }
    void apply() { QTest::mouseClick(m_form->control<QPushButton>("applyButton"), Qt::LeftButton); }
    void waitForTheOld()
    {
        m_device->set(text("level"), shownLevel() + QLatin1Char('+'));
        const QString wanted = m_device->value(text("level"));
        QTRY_COMPARE(shownLevel(), wanted);
    }
    QString shownLevel() const { return m_form->control<QLabel>("level")->text(); }

private Q_SLOTS:
    void end()
    {
        m_link.reset();
        m_form.reset();
    }

    void presentStateGoesIntoTheRows()
    {
        start();
        QCOMPARE(shown("gain"), text("10"));
        QCOMPARE(m_form->control<QComboBox>("mode")->currentText(), text("Frequency"));
        QCOMPARE(m_form->control<QLineEdit>("name")->text(), text("hill"));
        QCOMPARE(shownLevel(), text("S9"));
        for (const char* parameter : {"gain", "mode", "name", "level"})
            QCOMPARE(state(parameter), RowState::Confirmed);
        QVERIFY(!m_form->sheet().isWidgetModified());
        QCOMPARE(m_device->writes(), QStringList());
        end();
    }

    void editIsConfirmedByReadingOnly()
    {
        start();
        m_device->hold();
        enter("42\r");
        apply();
        QCOMPARE(state("gain"), RowState::Requested);
        QVERIFY(m_device->waitForCall());
        QCOMPARE(state("gain"), RowState::Requested);
        m_device->release();
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_device->value(text("gain")), text("42"));
        end();
    }

    void changeAtTheDeviceArrives()
    {
        start();
        m_device->set(text("gain"), text("33"));
        m_device->set(text("mode"), text("AM"));
        QTRY_COMPARE(shown("gain"), text("33"));
        QTRY_COMPARE(m_form->control<QComboBox>("mode")->currentText(), text("Amplitude"));
        QCOMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_device->writes(), QStringList());
        end();
    }

    void otherValueTakenShowsAndIsSaid()
    {
        start();
        m_device->bend(text("42"), text("40"));
        enter("42\r");
        apply();
        QTRY_COMPARE(state("gain"), RowState::Differing);
        QCOMPARE(shown("gain"), text("40"));
        QCOMPARE(m_link->states().why(text("gain")), text("asked for 42 dB, the device took 40 dB"));
        QVERIFY(m_form->control<QWidget>("gain")->accessibleDescription().contains(
            text("the device took 40 dB")));
        m_device->set(text("gain"), text("41"));
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        end();
    }

    void refusalShowsTheDevicesWords()
    {
        start();
        m_device->refuse(text("gain"), text("too hot"));
        enter("42\r");
        apply();
        QTRY_COMPARE(state("gain"), RowState::Refused);
        QTRY_COMPARE(shown("gain"), text("10"));
        QCOMPARE(state("gain"), RowState::Refused);
        QCOMPARE(m_link->states().why(text("gain")), text("42 dB: too hot"));
        end();
    }

    void unsentEditStands()
    {
        start();
        enter("42\r");
        m_device->set(text("gain"), text("20"));
        waitForTheOld();
        QCOMPARE(shown("gain"), text("42"));
        apply();
        QTRY_COMPARE(m_device->value(text("gain")), text("42"));
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        end();
    }

    void typedTextStands()
    {
        start();
        enter("4");
        m_device->set(text("gain"), text("20"));
        waitForTheOld();
        auto* const control = m_form->control<QAbstractSpinBox>("gain");
        QVERIFY2(control->text().startsWith(QLatin1Char('4')), qPrintable(control->text()));
        QTest::keyClicks(control, text("5\r"));
        apply();
        QTRY_COMPARE(m_device->value(text("gain")), text("45"));
        end();
    }

    // The reading that was on its way when the operator asked must not bring the old value back.
    void requestedEditNeverJumpsBack()
    {
        start();
        QStringList seen;
        auto* const value = m_form->formular()->GetVTValue(text("gain"));
        RecordingObserver observer;
        observer.onUpdate = [&](Observable*, TChangeCode) { seen.append(value->GetStringValue()); };
        observer.watch(value);
        for (int i = 11; i < 50; ++i) {
            enter(qPrintable(QString::number(i) + QLatin1Char('\r')));
            apply();
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_device->value(text("gain")), text("49"));
        QStringList sorted = seen;
        sorted.sort();
        QCOMPARE(seen, sorted);
        observer.leave();
        end();
    }

    void unknownChoiceIsOfferedNotGuessed()
    {
        start();
        m_device->set(text("mode"), text("WFM"));
        auto* const box = m_form->control<QComboBox>("mode");
        QTRY_COMPARE(box->currentText(), text("WFM"));
        QCOMPARE(box->count(), 3);
        QCOMPARE(state("mode"), RowState::Confirmed);
        end();
    }

    void valueOutOfRangeIsSaid()
    {
        start();
        m_device->set(text("gain"), text("99"));
        QTRY_COMPARE(state("gain"), RowState::Differing);
        QVERIFY(m_link->states().why(text("gain")).contains(text("99")));
        end();
    }

    void lostLinkTurnsRowsStale()
    {
        start();
        m_device->breakDown();
        QTRY_COMPARE(state("gain"), RowState::Stale);
        QCOMPARE(state("level"), RowState::Stale);
        m_device->repair();
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_unconfirmed.size(), 0);
        end();
    }

    void unconfirmedIsAskedAbout_data()
    {
        QTest::addColumn<bool>("again");
        QTest::newRow("send again") << true;
        QTest::newRow("take what the device has") << false;
    }
    void unconfirmedIsAskedAbout()
    {
        QFETCH(bool, again);
        start();
        m_device->breakDown();
        QTRY_COMPARE(state("gain"), RowState::Stale);
        enter("42\r");
        apply();
        m_device->repair();
        QTRY_COMPARE(m_unconfirmed.size(), 1);
        QCOMPARE(m_unconfirmed.first().caption, text("Gain"));
        QCOMPARE(m_unconfirmed.first().group, text("Tuning"));
        QCOMPARE(m_unconfirmed.first().present, text("10 dB"));
        QCOMPARE(m_unconfirmed.first().wanted, text("42 dB"));
        QCOMPARE(shown("gain"), text("42"));
        QCOMPARE(state("gain"), RowState::Requested);
        QCOMPARE(m_device->writes(), QStringList());
        m_link->settleUnconfirmed(again ? m_unconfirmed : QList<Difference>());
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(shown("gain"), again ? text("42") : text("10"));
        QCOMPARE(m_device->value(text("gain")), shown("gain"));
        m_device->set(text("gain"), text("5"));
        QTRY_COMPARE(shown("gain"), text("5"));
        end();
    }

    void whatTheDeviceHasAnywayIsNotAskedAbout()
    {
        start();
        m_device->breakDown();
        QTRY_COMPARE(state("gain"), RowState::Stale);
        enter("42\r");
        apply();
        m_device->set(text("gain"), text("42"));
        m_device->repair();
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_unconfirmed.size(), 0);
        end();
    }

    void settingsComeBackAfterReview()
    {
        start();
        const QList<Parameter> saved = parametersOf(m_link->settings());
        QCOMPARE(saved.size(), 3);
        m_device->set(text("gain"), text("1"));
        m_device->set(text("mode"), text("AM"));
        QTRY_COMPARE(shown("mode"), text("AM"));
        QTRY_COMPARE(shown("gain"), text("1"));
        const QList<Difference> differences =
            m_link->differences(saved + QList<Parameter>{{text("elsewhere"), text("1")}});
        QCOMPARE(differences.size(), 3);
        ReviewDialog review(text("Send?"), differences);
        QCOMPARE(review.chosen().size(), 2);
        auto* const rows = review.findChild<QTreeWidget*>(text("reviewRows"));
        QCOMPARE(rows->topLevelItem(0)->text(0), text("Tuning: Gain"));
        QCOMPARE(rows->topLevelItem(1)->text(2), text("Frequency"));
        QCOMPARE(rows->topLevelItem(2)->text(1), text("not in this form"));
        rows->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        m_link->send(review.chosen());
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(m_device->value(text("gain")), text("10"));
        QCOMPARE(m_device->value(text("mode")), text("AM"));
        end();
    }

    void parameterBelongsToOnePlace()
    {
        start();
        QVERIFY(rowOf(*m_form->formular(), text("gain")));
        QVERIFY(!rowOf(*m_form->formular(), text("elsewhere/gain")));
        end();
    }

    void windowAndFormMayGoFirst()
    {
        start();
        m_form->deleteWindow();
        m_device->set(text("gain"), text("33"));
        QTRY_COMPARE(shown("gain"), text("33"));
        end();
    }
};

QTEST_MAIN(TestFormLink)

#include "tst_formlink.moc"
