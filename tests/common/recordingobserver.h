#ifndef ZORVA_TESTS_RECORDINGOBSERVER_H
#define ZORVA_TESTS_RECORDINGOBSERVER_H

#include <vkbase/iobserver.h>
#include <vkbase/observable.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// Writes down what it is told. It leaves what it watches when it is destroyed,
/// and when that goes away.
class RecordingObserver : public IObserver
{
public:
    /// Entries of `log` (may be null, not owned) are "name:code", so that several
    /// observers can share one to show their order.
    explicit RecordingObserver(const QString& name = QString(), QStringList* log = nullptr);
    RecordingObserver(const RecordingObserver&) = delete;
    RecordingObserver& operator=(const RecordingObserver&) = delete;
    ~RecordingObserver() override;

    /// Adds this to `observable`, which must outlive the observer or say goodbye.
    void watch(Observable* observable);
    /// Leaves the observable watched.
    void leave();

    /// The codes heard so far, in order.
    const QList<TChangeCode>& codes() const { return m_codes; }
    /// The codes heard since the last call.
    QList<TChangeCode> takeCodes();

    /// Called on each notice, after it was written down.
    std::function<void(Observable*, TChangeCode)> onUpdate;

    void Update(Observable* observable, TChangeCode code) override;

private:
    ObservableGuard m_watched;
    QString m_name;
    QStringList* m_log;
    QList<TChangeCode> m_codes;
};

#endif
