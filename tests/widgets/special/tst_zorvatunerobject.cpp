#include "guardedtest.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvatunerobject.h>

#include <QSignalSpy>

using Orvane::ZorvaTunerObject;

class tst_ZorvaTunerObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void segmentPassesUnchanged();
    void switchesAreRelayed();
};

void tst_ZorvaTunerObject::segmentPassesUnchanged()
{
    FormFixture form(widgetXml("SpecialObject_Tuner", "tuner"));
    auto* const tuner = form.delegate<ZorvaTunerObject>("tuner");
    QSignalSpy spy(tuner, &ZorvaTunerObject::si_segmentChanged);
    tuner->emitSegment(-1, 0);
    form.evaluate(QStringLiteral("tuner.emitSegment(26500000000, 4294967295)"));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0), QVariantList({qlonglong(-1), 0u}));
    QCOMPARE(spy.at(1), QVariantList({26500000000LL, 4294967295u}));
}

void tst_ZorvaTunerObject::switchesAreRelayed()
{
    FormFixture form(widgetXml("SpecialObject_Tuner", "tuner"));
    auto* const tuner = form.delegate<ZorvaTunerObject>("tuner");
    QSignalSpy ifPan(tuner, &ZorvaTunerObject::si_IFPanSpectrumEnabled);
    QSignalSpy pifPan(tuner, &ZorvaTunerObject::si_PIFPanSpectrumEnabled);
    form.evaluate(QStringLiteral("tuner.setIFPanSpectrumEnabled(true); tuner.setIFPanSpectrumEnabled(true);"
                                 "tuner.setPIFPanSpectrumEnabled(false);"));
    QCOMPARE(ifPan.count(), 2);
    QCOMPARE(ifPan.at(1).at(0).toBool(), true);
    QCOMPARE(pifPan.count(), 1);
    QCOMPARE(pifPan.at(0).at(0).toBool(), false);
}

QTEST_MAIN(tst_ZorvaTunerObject)
#include "tst_zorvatunerobject.moc"
