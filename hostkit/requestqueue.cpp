#include "requestqueue.h"

namespace hostkit {

quint64 RequestQueue::put(const QString& parameter, const QString& text)
{
    auto place = m_places.find(parameter);
    if (place == m_places.end())
        place = m_places.insert(parameter, ++m_lastPlace);
    m_waiting.insert(*place, Request{parameter, text, ++m_lastNumber});
    return m_lastNumber;
}

bool RequestQueue::take(Request* request)
{
    if (m_waiting.isEmpty())
        return false;
    *request = m_waiting.take(m_waiting.firstKey());
    m_places.remove(request->parameter);
    return true;
}

QList<Request> RequestQueue::withdraw()
{
    const QList<Request> all = m_waiting.values();
    m_waiting.clear();
    m_places.clear();
    return all;
}

} // namespace hostkit
