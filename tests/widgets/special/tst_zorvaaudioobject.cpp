#include "guardedtest.h"

#include <formfixture.h>
#include <zorvaparser/widgets/zorvaaudioobject.h>

#include <QSignalSpy>

using Orvane::ZorvaAudioObject;

class tst_ZorvaAudioObject : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void eachCallIsRelayed_data();
    void eachCallIsRelayed();
    void genericObjectIsALabelAtMost_data();
    void genericObjectIsALabelAtMost();
};

void tst_ZorvaAudioObject::eachCallIsRelayed_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QByteArray>("signalName");
    QTest::newRow("analog") << "audio.setAudioSourceToAnalog()" << QByteArray(SIGNAL(si_audioSourceAnalog()));
    QTest::newRow("digital") << "audio.setAudioSourceToDigital()"
                             << QByteArray(SIGNAL(si_audioSourceDigital()));
    QTest::newRow("none") << "audio.setAudioSourceToNone()" << QByteArray(SIGNAL(si_audioSourceNone()));
}

void tst_ZorvaAudioObject::eachCallIsRelayed()
{
    QFETCH(QString, call);
    QFETCH(QByteArray, signalName);
    FormFixture form(widgetXml("SpecialObject_Audio", "audio"));
    QSignalSpy spy(form.row("audio"), signalName.constData());
    form.evaluate(call);
    form.evaluate(call);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(form.writtenBy("audio"), QString());
}

void tst_ZorvaAudioObject::genericObjectIsALabelAtMost_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("generic") << QByteArray("SpecialObject_Generic");
    QTest::newRow("wde") << QByteArray("SpecialObject_WDE");
}

void tst_ZorvaAudioObject::genericObjectIsALabelAtMost()
{
    QFETCH(QByteArray, className);
    FormFixture form(rowXml(className.constData(), "thing", {{"labelText", "A thing"}}));
    QCOMPARE(form.row("thing")->metaObject(), &Orvane::ZorvaDelegate::staticMetaObject);
    QVERIFY(form.control<QLabel>("labelthing"));
    QCOMPARE(form.control<QLabel>("labelthing")->text(), QStringLiteral("A thing"));
    QVERIFY(!form.control<QWidget>("thing"));
    QCOMPARE(form.writtenBy("thing"), QString());
}

QTEST_MAIN(tst_ZorvaAudioObject)
#include "tst_zorvaaudioobject.moc"
