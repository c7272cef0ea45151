#include "observerledger_p.h"

#ifndef QT_NO_DEBUG

#include <vkbase/iobserver.h>
#include <vkbase/observerlist.h>

#include <QHash>
#include <QSet>

#include <mutex>
#include <typeinfo>

namespace {

struct Watcher
{
    const char* typeName = nullptr; // lives as long as the type's code
    QSet<const Observable*> watched;
};

struct Ledger
{
    std::mutex mutex; // observables that threads keep to themselves share the ledger
    QHash<const IObserver*, Watcher> watchers;
    QHash<const Observable*, QHash<const IObserver*, const char*>> dead; // to the type's name
};

Ledger& ledger()
{
    static auto* const instance = new Ledger; // observers may die after main()
    return *instance;
}

void forget(Ledger* all, const Observable* observable, const IObserver* observer)
{
    const auto watcher = all->watchers.find(observer);
    if (watcher == all->watchers.end() || !watcher->watched.remove(observable))
        return;
    if (watcher->watched.isEmpty())
        all->watchers.erase(watcher);
}

} // namespace

void ObserverLedger::joined(const Observable* observable, const IObserver* observer)
{
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    Watcher& watcher = ledger().watchers[observer];
    watcher.typeName = typeid(*observer).name();
    watcher.watched.insert(observable);
    // A new observer may stand where one died.
    const auto dead = ledger().dead.find(observable);
    if (dead != ledger().dead.end())
        dead->remove(observer);
}

void ObserverLedger::left(const Observable* observable, const IObserver* observer)
{
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    forget(&ledger(), observable, observer);
    const auto dead = ledger().dead.find(observable);
    if (dead != ledger().dead.end())
        dead->remove(observer);
}

void ObserverLedger::ended(const Observable* observable, const ObserverList& observers)
{
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    for (const IObserver* observer : observers.GetPlaces()) {
        if (observer)
            forget(&ledger(), observable, observer);
    }
    ledger().dead.remove(observable);
}

void ObserverLedger::died(const IObserver* observer)
{
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    const Watcher watcher = ledger().watchers.take(observer);
    for (const Observable* observable : watcher.watched)
        ledger().dead[observable].insert(observer, watcher.typeName);
}

void ObserverLedger::expectAlive(const Observable* observable, const IObserver* observer)
{
    const char* deadType = nullptr;
    {
        const std::lock_guard<std::mutex> lock(ledger().mutex);
        const auto dead = ledger().dead.constFind(observable);
        if (dead != ledger().dead.constEnd())
            deadType = dead->value(observer);
    }
    if (deadType)
        qFatal("An observer (class %s) was destroyed while it observed; it has to leave first.", deadType);
}

#endif
