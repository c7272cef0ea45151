#ifndef ZORVA_AUTHOR_DIAGNOSER_H
#define ZORVA_AUTHOR_DIAGNOSER_H

#include <author/check/checker.h>

#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>

namespace Orvane {
namespace Author {

/**
 * Checks descriptions in a thread of its own, with their scripts run, so that nobody
 * waits for it. Of each document only the latest state counts: it takes the place of
 * one that still waits, and a script that takes its time with an earlier one is given up.
 */
class Diagnoser : public QObject
{
    Q_OBJECT

public:
    using Result = std::shared_ptr<const CheckedFile>;
    /** Called in the thread that the diagnoser lives in. */
    using Deliver = std::function<void(const QString& uri, int number, const Result& result)>;

    /** @p program with @p arguments serves scripts; an empty one leaves them unrun. */
    Diagnoser(const QString& program, const QStringList& arguments, Deliver deliver);
    ~Diagnoser() override;

    /** Gives the number under which the result will be delivered, unless it is overtaken. */
    int submit(const QString& uri, const QByteArray& stored);
    /** Nothing of the document that is not checked yet needs to be. */
    void forget(const QString& uri);

private:
    struct Task
    {
        QString uri;
        int number = 0;
        QByteArray stored;
    };

    void work();
    bool takeTask();
    void dropWaiting(const QString& uri);

    const QString m_program;
    const QStringList m_arguments;
    const Deliver m_deliver;
    QMutex m_mutex; // for all that follows
    QWaitCondition m_awake;
    std::deque<Task> m_waiting;
    Task m_current; // empty while there is nothing to do
    std::atomic<bool> m_isUnwanted{false};
    bool m_isOver = false;
    int m_lastNumber = 0;
    std::unique_ptr<QThread> m_thread;
};

} // namespace Author
} // namespace Orvane

#endif
