#include <recordingobserver.h>

#include <QTest>

#include <memory>

class TestRecordingObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesDownCodes();
    void leavesWhenDestroyed();
    void survivesWhatItWatches();
};

void TestRecordingObserver::writesDownCodes()
{
    Observable observable;
    RecordingObserver observer;
    observer.watch(&observable);
    observable.NotifyObservers(3);
    observable.NotifyObservers(6);
    QCOMPARE(observer.takeCodes(), (QList<TChangeCode>{3, 6}));
    QVERIFY(observer.codes().isEmpty());
}

void TestRecordingObserver::leavesWhenDestroyed()
{
    Observable observable;
    {
        RecordingObserver observer;
        observer.watch(&observable);
    }
    QCOMPARE(observable.GetObserverCount(), 0);
}

void TestRecordingObserver::survivesWhatItWatches()
{
    auto observable = std::make_unique<Observable>();
    RecordingObserver observer;
    observer.watch(observable.get());
    observable.reset();
    observer.leave();
    QVERIFY(observer.codes().isEmpty());
}

QTEST_APPLESS_MAIN(TestRecordingObserver)
#include "tst_recordingobserver.moc"
