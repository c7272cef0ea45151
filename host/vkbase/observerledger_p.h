#ifndef ZORVA_VKBASE_OBSERVERLEDGER_P_H
#define ZORVA_VKBASE_OBSERVERLEDGER_P_H

#include <QtGlobal>

class IObserver;
class Observable;
class ObserverList;

/// Debug builds remember who observes what, so that an observer that died
/// without leaving is named where it would have been told, instead of the heap
/// being damaged there. Nothing is kept or asked otherwise.
namespace ObserverLedger {

#ifdef QT_NO_DEBUG
inline void joined(const Observable*, const IObserver*) {}
inline void left(const Observable*, const IObserver*) {}
inline void ended(const Observable*, const ObserverList&) {}
inline void died(const IObserver*) {}
inline void expectAlive(const Observable*, const IObserver*) {}
#else
/// Again for a pair that is known does no harm.
void joined(const Observable* observable, const IObserver* observer);
void left(const Observable* observable, const IObserver* observer);
/// All of `observers` are rid of `observable`.
void ended(const Observable* observable, const ObserverList& observers);
void died(const IObserver* observer);
/// Stops the program if `observer` has died while it observed `observable`.
void expectAlive(const Observable* observable, const IObserver* observer);
#endif

} // namespace ObserverLedger

#endif
