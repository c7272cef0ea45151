#include "recordingobserver.h"

#include <utility>

RecordingObserver::RecordingObserver(const QString& name, QStringList* log)
    : m_name(name)
    , m_log(log)
{
}

RecordingObserver::~RecordingObserver()
{
    leave();
}

void RecordingObserver::watch(Observable* observable)
{
    leave();
    m_watched.Reset(observable);
    observable->AddObserver(this);
}

void RecordingObserver::leave()
{
    if (m_watched.Get())
        m_watched.Get()->DeleteObserver(this);
    m_watched.Reset(nullptr);
}

QList<TChangeCode> RecordingObserver::takeCodes()
{
    return std::exchange(m_codes, {});
}

void RecordingObserver::Update(Observable* observable, TChangeCode code)
{
    m_codes << code;
    if (m_log)
        *m_log << QStringLiteral("%1:%2").arg(m_name).arg(code);
    // A copy: what is called may replace it.
    const auto call = onUpdate;
    if (call)
        call(observable, code);
}
