#include <vkbase/observerlist.h>

#include <algorithm>

namespace {

constexpr int few = 16;

} // namespace

ObserverList::ObserverList() noexcept = default;

ObserverList::~ObserverList() = default;

int ObserverList::find(const IObserver* observer) const
{
    if (!m_placeOf.isEmpty())
        return m_placeOf.value(observer, -1);
    const auto found = std::find(m_places.begin(), m_places.end(), observer);
    return found == m_places.end() ? -1 : int(found - m_places.begin());
}

bool ObserverList::Append(IObserver* observer)
{
    if (m_placeOf.isEmpty()) {
        if (Contains(observer))
            return false;
        m_places.append(observer);
        if (m_places.size() > few)
            reindex();
        return true;
    }
    const int count = m_placeOf.size();
    int& place = m_placeOf[observer];
    if (m_placeOf.size() == count)
        return false;
    place = m_places.size();
    m_places.append(observer);
    return true;
}

void ObserverList::MoveToFront(IObserver* observer)
{
    const int place = find(observer);
    if (place < 0)
        m_places.prepend(observer);
    else
        std::rotate(m_places.begin(), m_places.begin() + place, m_places.begin() + place + 1);
    reindex();
}

bool ObserverList::Remove(const IObserver* observer)
{
    if (m_placeOf.isEmpty()) {
        const int place = find(observer);
        if (place >= 0)
            m_places.erase(m_places.begin() + place);
        return place >= 0;
    }
    const auto found = m_placeOf.find(observer);
    if (found == m_placeOf.end())
        return false;
    m_places[*found] = nullptr;
    m_placeOf.erase(found);
    // As many gaps as observers have to come together first, so that closing
    // them is paid for.
    if (m_places.size() > 2 * m_placeOf.size())
        reindex();
    return true;
}

void ObserverList::Clear()
{
    m_places.clear();
    m_placeOf.clear();
}

void ObserverList::reindex()
{
    m_places.erase(std::remove(m_places.begin(), m_places.end(), nullptr), m_places.end());
    if (m_places.size() <= few) {
        m_placeOf.clear();
        return;
    }
    m_placeOf.reserve(m_places.size());
    for (int i = 0; i < m_places.size(); ++i)
        m_placeOf.insert(m_places.at(i), i);
}
