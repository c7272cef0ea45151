// The classes of the recipes, as their pages show them.
#include <configuration-1.cpp>
#include <live-readings-1.cpp>
#include <presets-1.cpp>
#include <requested-and-confirmed-1.cpp>
#include <translating-3.cpp>
#include <worker-threads-1.cpp>

#include "formtest.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <thread>

class tst_Recipes : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void liveReadings();
    void requestedAndConfirmed();
    void presets();
    void configuration();
    void workerThreads();
    void translating();
};

namespace {

QString widget(const char* name, const char* kind, const QString& properties = QString())
{
    return QStringLiteral(
               "<Widget name=\"%1\" class=\"%2\"><Property name=\"labelText\"><String>%1</String></Property>"
               "<Property name=\"visible\"><Bool>true</Bool></Property>"
               "<Property name=\"enabled\"><Bool>true</Bool></Property>"
               "<Property name=\"generateParameterXml\"><Bool>true</Bool></Property>%3</Widget>")
        .arg(QLatin1String(name), QLatin1String(kind), properties);
}

QExplicitlySharedDataPointer<Orvane::ZorvaFormular> shared(const FormFixture& fixture)
{
    return QExplicitlySharedDataPointer<Orvane::ZorvaFormular>(fixture.formular());
}

QString labelText(const FormFixture& fixture, const char* name)
{
    const auto* label = fixture.control<QLabel>(name);
    return label ? label->text() : QString();
}

} // namespace

/// Readings come in all the time, and the operator's edit is applied after its pause all the same.
void tst_Recipes::liveReadings()
{
    FormFixture fixture(widget("gain", "SpinBox") + widget("meter", "SpinBox") + widget("level", "Label"),
                        QString(), QString(), FormFixture::WithGui, {{"autoApplyTimeout", 100}});
    Orvane::ZorvaFormular* form = fixture.formular();
    QString sent;
    connect(form, &Orvane::ZorvaFormular::si_parametersModified, this,
            [&] { sent = form->GetXmlString(true); });
    LiveReadings readings(*form);
    int count = 0;
    QTimer device;
    connect(&device, &QTimer::timeout, this, [&] {
        ++count;
        readings.showText(QStringLiteral("level"), QString::number(count));
        readings.showParameters(QStringLiteral("<Parameters><meter>%1</meter></Parameters>").arg(count));
    });
    device.start(5);
    QVERIFY(form->SetVTValue(QStringLiteral("gain"), QStringLiteral("7"), nullptr, false));
    QTRY_VERIFY(!sent.isEmpty());
    device.stop();
    QVERIFY(count > 0);
    QVERIFY2(sent.contains(QStringLiteral("<gain>7</gain>")), qPrintable(sent));
    QVERIFY2(!sent.contains(QStringLiteral("<meter>")), qPrintable(sent));
    QCOMPARE(labelText(fixture, "level"), QString::number(count));
    QCOMPARE(form->GetVTValue(QStringLiteral("meter"))->GetStringValue(), QString::number(count));
}

void tst_Recipes::requestedAndConfirmed()
{
    FormFixture fixture(widget("gain", "SpinBox") + widget("mode", "LineEdit"));
    Orvane::ZorvaFormular* form = fixture.formular();
    Confirmation confirmation(*form);
    QVERIFY(confirmation.request().isNull());
    form->SetVTValue(QStringLiteral("gain"), QStringLiteral("7"), nullptr, false);
    form->SetVTValue(QStringLiteral("mode"), QStringLiteral("FM"), nullptr, false);
    QVERIFY(confirmation.request().contains(QStringLiteral("<gain>7</gain>")));
    QCOMPARE(confirmation.unconfirmed(), QStringList({QStringLiteral("gain"), QStringLiteral("mode")}));
    QVERIFY(!form->GetSheet().IsInputEnabled(Orvane::ZorvaSheet::ekHostEnableScope));

    QCOMPARE(confirmation.confirm(QStringLiteral("<Parameters><gain>6</gain></Parameters>")),
             QStringList(QStringLiteral("gain")));
    QCOMPARE(form->GetVTValue(QStringLiteral("gain"))->GetStringValue(), QStringLiteral("6"));
    QCOMPARE(confirmation.unconfirmed(), QStringList(QStringLiteral("mode")));
    QCOMPARE(confirmation.confirm(QStringLiteral("<Parameters><mode>FM</mode></Parameters>")), QStringList());
    QVERIFY(form->GetSheet().IsInputEnabled(Orvane::ZorvaSheet::ekHostEnableScope));
}

void tst_Recipes::presets()
{
    FormFixture fixture(widget("gain", "SpinBox"));
    Orvane::ZorvaFormular* form = fixture.formular();
    QStringList announced;
    connect(form, &Orvane::ZorvaFormular::si_parametersModified, this,
            [&] { announced += form->GetXmlString(true); });
    form->SetVTValue(QStringLiteral("gain"), QStringLiteral("7"), nullptr, false);
    Presets presets(*form);
    presets.store(QStringLiteral("night"));
    QCOMPARE(announced.size(), 1);

    form->SetVTValue(QStringLiteral("gain"), QStringLiteral("9"), nullptr, true);
    QVERIFY(presets.recall(QStringLiteral("day")).isNull());
    QVERIFY(presets.recall(QStringLiteral("night")).contains(QStringLiteral("<gain>7</gain>")));
    QCOMPARE(form->GetVTValue(QStringLiteral("gain"))->GetStringValue(), QStringLiteral("7"));
    QVERIFY(form->GetXmlString(true).isNull());
    QCOMPARE(announced.size(), 2);
}

void tst_Recipes::configuration()
{
    Orvane::ZorvaFormularManager manager;
    manager.SetVTPath(QStringLiteral("/recipes"));
    const QString description = QStringLiteral("<KVParamGui><Sheet name=\"s\">%1%2</Sheet></KVParamGui>")
                                    .arg(widget("group", "Headline"), widget("gain", "SpinBox"));
    manager.DefineFormular(QStringLiteral("a"), description);
    manager.DefineFormular(QStringLiteral("b"), description);

    FormConfigurations configurations(manager);
    QVERIFY(configurations.show(QStringLiteral("a")));
    QVERIFY(!configurations.show(QStringLiteral("c")));
    QVERIFY(configurations.show(QStringLiteral("a")));
    manager.GetCurrentFormular()->GetSheet().SetCollapsed({QStringLiteral("group")});
    manager.GetCurrentFormular()->ApplyConfiguration();
    QVERIFY(configurations.show(QStringLiteral("b")));
    manager.GetCurrentFormular()->ApplyConfiguration();

    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("forms.ini")), QSettings::IniFormat);
    configurations.save(QStringLiteral("a"), settings);
    configurations.save(QStringLiteral("b"), settings);
    QCOMPARE(settings.value(QStringLiteral("a/form-collapsed")).toString(), QStringLiteral("group"));
    QVERIFY(!settings.contains(QStringLiteral("b/form-collapsed")));

    FormConfigurations next(manager);
    next.load(QStringLiteral("a"), settings);
    next.save(QStringLiteral("a"), settings);
    QCOMPARE(settings.value(QStringLiteral("a/form-collapsed")).toString(), QStringLiteral("group"));
    manager.Reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_Recipes::workerThreads()
{
    FormFixture fixture(widget("level", "Label"));
    Readings readings(shared(fixture), QStringLiteral("level"));
    std::thread worker([&] {
        for (int i = 0; i <= 1000; ++i)
            readings.post(i);
    });
    worker.join();
    QTRY_COMPARE(labelText(fixture, "level"), QStringLiteral("1000.0"));
}

void tst_Recipes::translating()
{
    const QString folder = QStringLiteral(ZORVA_TEST_DATA_DIR "/pages");
    QVERIFY(!translateForm(QStringLiteral("neverthere"), QLocale(QLocale::German), folder));
    QVERIFY(translateForm(QStringLiteral("audio"), QLocale(QLocale::German), folder));
    FormFixture fixture(QStringLiteral(
        "<Widget name=\"volume\" class=\"SpinBox\"><Property name=\"labelText\"><String>Volume</String>"
        "</Property><Property name=\"visible\"><Bool>true</Bool></Property></Widget>"));
    QStringList captions;
    const auto labels = fixture.window()->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        captions += label->text();
    QVERIFY2(captions.contains(QStringLiteral("Lautstärke")), qPrintable(captions.join(QLatin1Char('|'))));
    delete QCoreApplication::instance()->findChild<QTranslator*>();
}

QTEST_MAIN(tst_Recipes)
#include "tst_recipes.moc"
