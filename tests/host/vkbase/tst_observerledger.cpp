#include <scenes.h>

#include <vkbase/observable.h>

#include <memory>

namespace {

class Forgetful : public IObserver
{
public:
    void Update(Observable*, TChangeCode) override {}
};

// What a program of its own does; the last thing is to tell an observer.

void diesWhileObserving()
{
    Observable observable;
    auto observer = std::make_unique<Forgetful>();
    observable.AddObserver(observer.get());
    observer.reset();
    observable.NotifyObservers(ChangeCode::Content);
}

void diesAtTheHead()
{
    Observable observable;
    auto observer = std::make_unique<Forgetful>();
    observable.MakeFirstObserver(observer.get());
    observer.reset();
    observable.NotifyObservers(ChangeCode::Content);
}

void leavesFirst()
{
    Observable observable;
    auto observer = std::make_unique<Forgetful>();
    observable.AddObserver(observer.get());
    observable.DeleteObserver(observer.get());
    observer.reset();
    observable.NotifyObservers(ChangeCode::Content);
}

void isDismissedFirst()
{
    Observable observable;
    auto observer = std::make_unique<Forgetful>();
    observable.AddObserver(observer.get());
    observable.DeleteObservers();
    observer.reset();
    observable.NotifyObservers(ChangeCode::Content);
}

void isNeverToldAgain()
{
    Observable observable;
    const Forgetful observer;
    observable.AddObserver(const_cast<Forgetful*>(&observer));
}

void anotherTakesItsPlace()
{
    Observable observable;
    alignas(Forgetful) unsigned char place[sizeof(Forgetful)];
    auto* observer = new (place) Forgetful;
    observable.AddObserver(observer);
    observer->~Forgetful();
    observer = new (place) Forgetful;
    observable.AddObserver(observer);
    observable.NotifyObservers(ChangeCode::Content);
    observable.DeleteObserver(observer);
    observer->~Forgetful();
}

const QVector<Scene> scenes{
    {"dies while it observes", diesWhileObserving, true},
    {"dies at the head", diesAtTheHead, true},
    {"leaves first", leavesFirst, false},
    {"is dismissed first", isDismissedFirst, false},
    {"is never told again", isNeverToldAgain, false},
    {"another takes its place", anotherTakesItsPlace, false},
};

} // namespace

class TestObserverLedger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void observersThatDie_data();
    void observersThatDie();
};

void TestObserverLedger::observersThatDie_data()
{
    addScenes(scenes);
}

void TestObserverLedger::observersThatDie()
{
    QFETCH(bool, stops);
    const QByteArray errors = playedApart(stops);
    QCOMPARE(errors.contains("was destroyed while it observed"), stops);
    QVERIFY2(!stops || errors.contains("Forgetful"), errors.constData());
}

int main(int argc, char** argv)
{
    return runWithScenes<TestObserverLedger>(scenes, argc, argv);
}

#include "tst_observerledger.moc"
