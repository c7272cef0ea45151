#include "fakedevice.h"

#include <hostkit/devicelink.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace hostkit;

class TestDeviceLink : public QObject
{
    Q_OBJECT

    std::shared_ptr<FakeDevice> m_device;
    std::unique_ptr<DeviceLink> m_link;
    QMap<QString, Reading> m_read;
    QStringList m_refused;
    QList<Request> m_givenBack;

    void start(const QStringList& live = {}, const QStringList& others = {})
    {
        m_link->setPolled(live, others, 20);
        m_link->setPauses(10, 40);
        m_link->setPatience(100);
        connect(m_link.get(), &DeviceLink::read, this, [this](const QList<Reading>& readings) {
            for (const Reading& reading : readings)
                m_read.insert(reading.parameter, reading);
        });
        connect(m_link.get(), &DeviceLink::refused, this,
                [this](const QString& parameter, const QString& why, quint64) {
                    m_refused.append(parameter + QLatin1Char(':') + why);
                });
        connect(m_link.get(), &DeviceLink::givenBack, this,
                [this](const QList<Request>& requests) { m_givenBack += requests; });
        m_link->start();
    }
    QString read(const char* parameter) const
    {
        return m_read.value(QString::fromLatin1(parameter)).answer.text;
    }

private Q_SLOTS:
    void init()
    {
        m_device = std::make_shared<FakeDevice>();
        m_link = std::make_unique<DeviceLink>(m_device);
        m_device->set(QStringLiteral("a"), QStringLiteral("1"));
        m_device->set(QStringLiteral("b"), QStringLiteral("2"));
    }
    void cleanup()
    {
        m_link.reset();
        m_read.clear();
        m_refused.clear();
        m_givenBack.clear();
    }

    void readsAllAndWhatChanges()
    {
        QSignalSpy all(m_link.get(), &DeviceLink::readAll);
        start({QStringLiteral("a")}, {QStringLiteral("b")});
        QCOMPARE(m_link->state(), LinkState::Opening);
        QTRY_COMPARE(all.count(), 1);
        QCOMPARE(m_link->state(), LinkState::Up);
        QCOMPARE(read("a"), QStringLiteral("1"));
        QCOMPARE(read("b"), QStringLiteral("2"));
        m_device->set(QStringLiteral("b"), QStringLiteral("3"));
        QTRY_COMPARE(read("b"), QStringLiteral("3"));
        QCOMPARE(all.count(), 1);
    }

    void requestIsSentAndReadBack()
    {
        start();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        const quint64 number = m_link->request(QStringLiteral("a"), QStringLiteral("9"));
        QTRY_COMPARE(read("a"), QStringLiteral("9"));
        QCOMPARE(m_read.value(QStringLiteral("a")).number, number);
    }

    void newerRequestReplacesUnsentOne()
    {
        start();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        m_device->hold();
        m_link->request(QStringLiteral("b"), QStringLiteral("5"));
        QVERIFY(m_device->waitForCall());
        for (int i = 0; i < 1000; ++i)
            m_link->request(QStringLiteral("a"), QString::number(i));
        m_device->release();
        QTRY_COMPARE(read("a"), QStringLiteral("999"));
        QCOMPARE(m_device->writes(), (QStringList{QStringLiteral("b=5"), QStringLiteral("a=999")}));
    }

    void refusalIsToldAndReadingFollows()
    {
        start();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        m_device->refuse(QStringLiteral("a"), QStringLiteral("too hot"));
        m_link->request(QStringLiteral("a"), QStringLiteral("9"));
        QTRY_COMPARE(read("a"), QStringLiteral("1"));
        QCOMPARE(m_refused, QStringList{QStringLiteral("a:too hot")});
    }

    void unreadableIsToldOnce()
    {
        start({QStringLiteral("nothing")});
        QTRY_COMPARE(m_read.value(QStringLiteral("nothing")).answer.outcome, Answer::Refused);
        QCOMPARE(m_link->state(), LinkState::Up);
    }

    void unreadableIsTriedAgain_data()
    {
        QTest::addColumn<bool>("isLive");
        QTest::newRow("live") << true;
        QTest::newRow("in its turn") << false;
    }
    void unreadableIsTriedAgain()
    {
        QFETCH(bool, isLive);
        const QStringList late{QStringLiteral("late")};
        start(isLive ? late : QStringList(), isLive ? QStringList() : late);
        QTRY_COMPARE(m_read.value(QStringLiteral("late")).answer.outcome, Answer::Refused);
        m_device->set(QStringLiteral("late"), QStringLiteral("1"));
        QTRY_COMPARE(read("late"), QStringLiteral("1"));
        m_device->set(QStringLiteral("late"), QStringLiteral("2"));
        QTRY_COMPARE(read("late"), QStringLiteral("2"));
    }

    void slowCallShowsAndPasses()
    {
        start({QStringLiteral("a")});
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        m_device->hold();
        QTRY_COMPARE(m_link->state(), LinkState::Slow);
        m_device->release();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
    }

    void slowOpeningShowsAndPasses()
    {
        m_device->hold();
        start({QStringLiteral("a")});
        QTRY_COMPARE(m_link->state(), LinkState::Slow);
        m_link->request(QStringLiteral("a"), QStringLiteral("7"));
        m_device->release();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        QTRY_COMPARE(m_givenBack.size(), 1);
        QCOMPARE(m_device->writes(), QStringList());
    }

    void lostLinkComesBackAndSendsNothingByItself()
    {
        start({QStringLiteral("a")});
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        m_device->hold();
        QVERIFY(m_device->waitForCall());
        m_link->request(QStringLiteral("a"), QStringLiteral("7"));
        m_link->request(QStringLiteral("b"), QStringLiteral("8"));
        m_device->breakDown();
        m_device->release();
        QTRY_COMPARE(m_link->state(), LinkState::Down);
        QVERIFY(!m_link->reason().isEmpty());
        QTRY_COMPARE(m_givenBack.size(), 2);
        const int opens = m_device->opens();
        QTRY_VERIFY(m_device->opens() >= opens + 3); // it keeps trying
        m_device->repair();
        m_read.clear();
        QTRY_COMPARE(m_link->state(), LinkState::Up);
        QTRY_COMPARE(read("a"), QStringLiteral("1"));
        QCOMPARE(m_device->writes(), QStringList());
    }

    // A pause may be longer than asked for, never shorter: seven of them, doubled from 2, take 254
    // milliseconds.
    void pausesGrow()
    {
        m_device->breakDown();
        m_link->setPauses(2, 1000);
        QElapsedTimer clock;
        clock.start();
        m_link->start();
        QTRY_VERIFY(m_device->opens() >= 8);
        QVERIFY(clock.elapsed() >= 250);
    }

    void requestMadeWhileDownIsGivenBack()
    {
        m_device->breakDown();
        start();
        QTRY_COMPARE(m_link->state(), LinkState::Down);
        m_link->request(QStringLiteral("a"), QStringLiteral("7"));
        m_device->repair();
        QTRY_COMPARE(m_givenBack.size(), 1);
        QCOMPARE(m_device->writes(), QStringList());
    }

    void stopInterruptsAHangingCall()
    {
        start({QStringLiteral("a")});
        m_device->hold();
        QVERIFY(m_device->waitForCall());
        QVERIFY(m_link->stop());
        QCOMPARE(m_link->state(), LinkState::Closed);
    }

    void stubbornCallIsLeftToItself()
    {
        start({QStringLiteral("a")});
        m_device->hold(true);
        QVERIFY(m_device->waitForCall());
        QVERIFY(!m_link->stop(50));
        m_link.reset();
        // The thread still uses the device, and shares it.
        m_device->release();
        QTRY_COMPARE(m_device.use_count(), 1L);
    }
};

QTEST_GUILESS_MAIN(TestDeviceLink)

#include "tst_devicelink.moc"
