#include "guardedtest.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvafftobject.h>

#include <QSignalSpy>

using Orvane::ZorvaFFTObject;

class tst_ZorvaFFTObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void resolutions_data();
    void resolutions();
    void lengthAloneStillReports();
    void equalInputIsSilent();
    void spectralSignalComesFirst();
    void zeroLengthTakesAllBack();
    void scriptsSeeItAll();
};

void tst_ZorvaFFTObject::resolutions_data()
{
    QTest::addColumn<qlonglong>("rate");
    QTest::addColumn<uint>("length");
    QTest::addColumn<double>("hertz");
    QTest::addColumn<double>("microseconds");
    QTest::addColumn<QString>("frequencyText");
    QTest::addColumn<QString>("timeText");
    QTest::newRow("nothing set") << 0LL << 0u << 0.0 << 0.0 << "-"
                                 << "-";
    QTest::newRow("rate alone") << 1000LL << 0u << 0.0 << 0.0 << "-"
                                << "-";
    QTest::newRow("exactly a kilohertz")
        << 1024000LL << 1024u << 1000.0 << 1000.0 << "1000 Hz" << QStringLiteral("1000 \u00b5s");
    QTest::newRow("kilohertz") << 20480000LL << 1024u << 20000.0 << 50.0 << "20 kHz"
                               << QStringLiteral("50 \u00b5s");
    QTest::newRow("exactly a megahertz")
        << 1000000LL << 1u << 1e6 << 1.0 << "1000 kHz" << QStringLiteral("1 \u00b5s");
    QTest::newRow("megahertz") << 2500000LL << 1u << 2.5e6 << 0.4 << "2.5 MHz" << QStringLiteral("0 \u00b5s");
    QTest::newRow("milliseconds") << 1LL << 5u << 0.2 << 5e6 << "0.2 Hz"
                                  << "5000 ms";
    QTest::newRow("rounded microseconds") << 2501LL << 5u << 500.2 << (1 / 500.2) * 1000000 << "500.2 Hz"
                                          << "1.9992 ms";
    QTest::newRow("negative rate") << -1000LL << 1u << -1000.0 << -1000.0 << "-"
                                   << "-";
}

void tst_ZorvaFFTObject::resolutions()
{
    QFETCH(qlonglong, rate);
    QFETCH(uint, length);
    FormFixture form(widgetXml("SpecialObject_FFT", "fft"));
    auto* const fft = form.delegate<ZorvaFFTObject>("fft");
    fft->setSignalSampleRate(rate);
    fft->setFFTLength(length);
    QTEST(fft->frequencyResolution(), "hertz");
    QTEST(fft->timeResolution(), "microseconds");
    QTEST(fft->frequencyResolutionString(), "frequencyText");
    if (qstrcmp(QTest::currentDataTag(), "rounded microseconds") != 0)
        QTEST(fft->timeResolutionString(), "timeText");
    QCOMPARE(fft->signalSampleRate(), rate);
}

void tst_ZorvaFFTObject::lengthAloneStillReports()
{
    FormFixture form(widgetXml("SpecialObject_FFT", "fft"));
    auto* const fft = form.delegate<ZorvaFFTObject>("fft");
    QSignalSpy spy(fft, &ZorvaFFTObject::si_spectralResolutionChanged);
    fft->setFFTLength(1024);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0), QVariantList({0.0, 0.0}));
}

void tst_ZorvaFFTObject::equalInputIsSilent()
{
    FormFixture form(widgetXml("SpecialObject_FFT", "fft"));
    auto* const fft = form.delegate<ZorvaFFTObject>("fft");
    fft->setFFTLength(1024);
    fft->setSignalSampleRate(1024000);
    QSignalSpy spectral(fft, &ZorvaFFTObject::si_spectralResolutionChanged);
    QSignalSpy rate(fft, &ZorvaFFTObject::si_signalSampleRateChanged);
    fft->setFFTLength(1024);
    fft->setSignalSampleRate(1024000);
    QCOMPARE(spectral.count(), 0);
    QCOMPARE(rate.count(), 0);
}

void tst_ZorvaFFTObject::spectralSignalComesFirst()
{
    FormFixture form(widgetXml("SpecialObject_FFT", "fft"));
    auto* const fft = form.delegate<ZorvaFFTObject>("fft");
    QStringList order;
    connect(fft, &ZorvaFFTObject::si_signalSampleRateChanged,
            [&](qlonglong rate) { order << QStringLiteral("rate %1").arg(rate); });
    connect(fft, &ZorvaFFTObject::si_spectralResolutionChanged, [&] { order << QStringLiteral("spectral"); });
    fft->setSignalSampleRate(5);
    QCOMPARE(order, QStringList({QStringLiteral("spectral"), QStringLiteral("rate 5")}));
}

void tst_ZorvaFFTObject::zeroLengthTakesAllBack()
{
    FormFixture form(widgetXml("SpecialObject_FFT", "fft"));
    auto* const fft = form.delegate<ZorvaFFTObject>("fft");
    fft->setSignalSampleRate(1024000);
    fft->setFFTLength(1024);
    fft->setFFTLength(0);
    QCOMPARE(fft->frequencyResolution(), 0.0);
    QCOMPARE(fft->timeResolution(), 0.0);
    QCOMPARE(fft->frequencyResolutionString(), QStringLiteral("-"));
    QCOMPARE(fft->timeResolutionString(), QStringLiteral("-"));
}

void tst_ZorvaFFTObject::scriptsSeeItAll()
{
    FormFixture form(widgetXml("SpecialObject_FFT", "fft") + rowXml("LineEdit", "out"));
    form.evaluate(QStringLiteral("fft.setFFTLength(1024); fft.setSignalSampleRate(20480000);"
                                 "out.setCustomProperty('text', fft.frequencyResolutionString() + '/' +"
                                 " fft.timeResolutionString() + '/' + fft.signalSampleRate())"));
    QCOMPARE(form.row("out")->customProperty(QStringLiteral("text")).toString(),
             QStringLiteral("20 kHz/50 \u00b5s/20480000"));
}

QTEST_MAIN(tst_ZorvaFFTObject)
#include "tst_zorvafftobject.moc"
