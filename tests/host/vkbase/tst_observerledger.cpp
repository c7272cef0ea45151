#include <vkbase/observable.h>

#include <QProcess>
#include <QTest>

#include <cstring>
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

struct Scene
{
    const char* name;
    void (*play)();
    bool stops;
};

const Scene scenes[] = {
    {"dies while it observes", diesWhileObserving, true},
    {"dies at the head", diesAtTheHead, true},
    {"leaves first", leavesFirst, false},
    {"is dismissed first", isDismissedFirst, false},
    {"is never told again", isNeverToldAgain, false},
    {"another takes its place", anotherTakesItsPlace, false},
};

int play(const char* name)
{
    for (const Scene& scene : scenes) {
        if (std::strcmp(scene.name, name) == 0)
            scene.play();
    }
    return 0;
}

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
    QTest::addColumn<bool>("stops");
    for (const Scene& scene : scenes) {
#ifdef QT_NO_DEBUG
        if (scene.stops)
            continue; // nobody looks there
#endif
        QTest::newRow(scene.name) << scene.stops;
    }
}

void TestObserverLedger::observersThatDie()
{
    QFETCH(bool, stops);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--play"), QString::fromLatin1(QTest::currentDataTag())});
    QVERIFY(process.waitForFinished());
    const QByteArray errors = process.readAllStandardError();
    QCOMPARE(process.exitStatus(), stops ? QProcess::CrashExit : QProcess::NormalExit);
    QCOMPARE(errors.contains("was destroyed while it observed"), stops);
    QVERIFY2(!stops || errors.contains("Forgetful"), errors.constData());
}

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--play") == 0)
        return play(argv[2]);
    QCoreApplication application(argc, argv);
    TestObserverLedger test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_observerledger.moc"
