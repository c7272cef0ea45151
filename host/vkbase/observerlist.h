#ifndef ZORVA_VKBASE_OBSERVERLIST_H
#define ZORVA_VKBASE_OBSERVERLIST_H

#include <vkbase/iobserver.h>
#include <vkbase/vkbase_export.h>

#include <QHash>
#include <QVarLengthArray>

/// The observers of one object, each once, in the order in which they are told.
/// Adding, removing and finding one cost the same however many there are.
class VKBASE_EXPORT ObserverList
{
public:
    // A value mostly has two observers, its row and its control.
    /// The observers in order; null where one has left during a round.
    using Places = QVarLengthArray<IObserver*, 2>;

    ObserverList() noexcept;
    ObserverList(const ObserverList&) = delete;
    ObserverList& operator=(const ObserverList&) = delete;
    ~ObserverList();

    /// How many observers there are.
    int Count() const { return m_placeOf.isEmpty() ? m_places.size() : m_placeOf.size(); }
    /// Whether @p observer is in the list.
    bool Contains(const IObserver* observer) const { return find(observer) >= 0; }
    /// In order; null where one has left.
    const Places& GetPlaces() const { return m_places; }

    /// False if `observer`, which must not be null, is there already.
    bool Append(IObserver* observer);
    /// Adds `observer`, which must not be null, if need be. Takes time with each that is there.
    void MoveToFront(IObserver* observer);
    /// False if `observer` is not there.
    bool Remove(const IObserver* observer);
    /// Forgets all observers.
    void Clear();

private:
    int find(const IObserver* observer) const; // -1: not there
    void reindex();

    Places m_places;                        // not owned; all filled while there is no index
    QHash<const IObserver*, int> m_placeOf; // empty while a look at each is faster
};

#endif
