#include "devicelink.h"

#include <QHash>
#include <QMetaObject>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

namespace hostkit {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/** How long a round may go on with the parameters that are not live, as a share of its time. */
constexpr int restShare = 2;

/** How many turns a parameter that cannot be read is let out at first, and at most. */
constexpr int firstTurnsOut = 16;
constexpr int mostTurnsOut = 512;

} // namespace

/**
 * The thread's side. Everything that both threads touch is below the lock; the
 * device is called without it, so that the GUI never waits for a call.
 */
class DeviceLink::Worker
{
public:
    struct News
    {
        LinkState state = LinkState::Closed;
        QString reason;
        QHash<QString, Reading> readings; // the newest of each parameter
        QList<QPair<Request, QString>> refusals;
        QList<Request> givenBack;
        bool readAll = false;
    };

    Worker(std::shared_ptr<Device> sharedDevice, DeviceLink* link)
        : device(std::move(sharedDevice))
        , m_link(link)
    {
    }

    void run();
    /** From the GUI's thread; the link hears nothing any more. */
    void quit();
    bool waitUntilEnded(int wait);
    quint64 put(const QString& parameter, const QString& text);
    News takeNews();
    /** Milliseconds since the call under way began; 0 if none is. */
    qint64 callAge() const;

    // Settled before the thread starts.
    QStringList live;
    QStringList others;
    int interval = 200;
    int firstPause = 250;
    int lastPause = 8000;

    const std::shared_ptr<Device> device;

private:
    /** A parameter that was refused is let out for some turns, twice as many each time. */
    struct Unreadable
    {
        int pause = 0; // in turns
        int left = 0;
    };

    template <typename Call>
    Answer call(Call&& deviceCall);
    bool hasItsTurn(const QString& parameter);
    void noteAnswer(const QString& parameter, Answer::Outcome outcome);
    bool quitting() const;
    bool pause(int duration);
    bool takeRequest(Request* request);
    Answer open();
    void serve();
    bool carryOut(const Request& request);
    bool readOne(const QString& parameter, bool always);
    bool serveRequests();
    bool readRound();
    bool readRest(Clock::time_point end);
    void tell(const std::function<void(News&)>& change);
    void comeUp();
    void lose(const QString& why);

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    DeviceLink* m_link; // null once it hears nothing any more
    bool m_quit = false;
    bool m_ended = false;
    bool m_noticePosted = false;
    bool m_calling = false;
    Clock::time_point m_callBegan;
    RequestQueue m_queue;
    News m_news;

    // The thread's own.
    QHash<QString, QString> m_lastRead;
    QHash<QString, quint64> m_lastNumber;
    QHash<QString, Unreadable> m_unreadable;
    QString m_lostBecause;
    int m_nextOther = 0;
    bool m_allRead = false;
};

template <typename Call>
Answer DeviceLink::Worker::call(Call&& deviceCall)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calling = true;
        m_callBegan = Clock::now();
    }
    const Answer answer = deviceCall();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calling = false;
    return answer;
}

void DeviceLink::Worker::run()
{
    int wait = firstPause;
    while (!quitting()) {
        const Answer answer = open();
        if (answer.outcome == Answer::Done) {
            comeUp();
            serve();
            // A link that breaks again before all was read is no better than none.
            if (m_allRead)
                wait = firstPause;
        } else {
            lose(answer.text);
        }
        call([this] {
            device->close();
            return Answer();
        });
        if (!pause(wait))
            break;
        wait = std::min(wait * 2, lastPause);
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_ended = true;
    m_wake.notify_all();
}

Answer DeviceLink::Worker::open()
{
    m_lastRead.clear();
    m_unreadable.clear();
    m_allRead = false;
    m_nextOther = 0;
    return call([this] { return device->open(); });
}

// Ends when the link is lost, or by quit().
void DeviceLink::Worker::serve()
{
    while (!quitting()) {
        const Clock::time_point end = Clock::now() + milliseconds(interval);
        if (!serveRequests() || !readRound()) {
            lose(m_lostBecause);
            return;
        }
        std::unique_lock<std::mutex> lock(m_mutex);
        m_wake.wait_until(lock, end, [this] { return m_quit || !m_queue.isEmpty(); });
    }
}

bool DeviceLink::Worker::serveRequests()
{
    Request request;
    while (!quitting() && takeRequest(&request)) {
        if (!carryOut(request))
            return false;
    }
    return true;
}

bool DeviceLink::Worker::carryOut(const Request& request)
{
    const Answer answer = call([&] { return device->write(request.parameter, request.text); });
    if (answer.outcome == Answer::Lost) {
        m_lostBecause = answer.text;
        // Nobody knows whether it got through.
        tell([&](News& news) { news.givenBack.append(request); });
        return false;
    }
    m_lastNumber.insert(request.parameter, request.number);
    if (answer.outcome == Answer::Refused)
        tell([&](News& news) { news.refusals.append({request, answer.text}); });
    if (!readOne(request.parameter, true))
        return false;
    const QStringList affected = device->affectedBy(request.parameter);
    return std::all_of(affected.begin(), affected.end(),
                       [this](const QString& other) { return readOne(other, false); });
}

// One time round: what is live, and of the rest as much as there is time for.
bool DeviceLink::Worker::readRound()
{
    const Clock::time_point restEnd = Clock::now() + milliseconds(interval / restShare);
    for (const QString& parameter : qAsConst(live)) {
        if (!serveRequests())
            return false;
        if (!quitting() && hasItsTurn(parameter) && !readOne(parameter, false))
            return false;
    }
    return readRest(restEnd);
}

bool DeviceLink::Worker::readRest(Clock::time_point end)
{
    for (int done = 0; done < others.size() && !quitting(); ++done) {
        if (done > 0 && m_allRead && Clock::now() >= end)
            return true;
        if (!serveRequests())
            return false;
        const QString parameter = others.at(m_nextOther);
        m_nextOther = (m_nextOther + 1) % others.size();
        if (hasItsTurn(parameter) && !readOne(parameter, false))
            return false;
    }
    if (!std::exchange(m_allRead, true))
        tell([](News& news) { news.readAll = true; });
    return true;
}

bool DeviceLink::Worker::hasItsTurn(const QString& parameter)
{
    const auto unreadable = m_unreadable.find(parameter);
    return unreadable == m_unreadable.end() || --unreadable->left < 0;
}

// A device that cannot tell in one mode may be able to in another, but each vain call can cost seconds.
void DeviceLink::Worker::noteAnswer(const QString& parameter, Answer::Outcome outcome)
{
    if (outcome != Answer::Refused) {
        m_unreadable.remove(parameter);
        return;
    }
    Unreadable& unreadable = m_unreadable[parameter];
    unreadable.pause = qBound(firstTurnsOut, unreadable.pause * 2, mostTurnsOut);
    unreadable.left = unreadable.pause;
}

bool DeviceLink::Worker::readOne(const QString& parameter, bool always)
{
    const Answer answer = call([&] { return device->read(parameter); });
    if (answer.outcome == Answer::Lost) {
        m_lostBecause = answer.text;
        return false;
    }
    noteAnswer(parameter, answer.outcome);
    const auto last = m_lastRead.constFind(parameter);
    if (!always && last != m_lastRead.constEnd() && *last == answer.text)
        return true;
    m_lastRead.insert(parameter, answer.text);
    const Reading reading{parameter, answer, m_lastNumber.value(parameter)};
    tell([&](News& news) { news.readings.insert(parameter, reading); });
    return true;
}

void DeviceLink::Worker::lose(const QString& why)
{
    // In one go, so that nobody puts a request between the two.
    tell([&](News& news) {
        news.state = LinkState::Down;
        news.reason = why;
        news.readAll = false;
        news.givenBack += m_queue.withdraw();
    });
}

void DeviceLink::Worker::comeUp()
{
    tell([this](News& news) {
        news.state = LinkState::Up;
        news.reason.clear();
        // Whoever asked in between did not know that the link was down.
        news.givenBack += m_queue.withdraw();
    });
}

// One notice is on its way at a time; what comes meanwhile goes with it.
void DeviceLink::Worker::tell(const std::function<void(News&)>& change)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    change(m_news);
    if (!m_link || std::exchange(m_noticePosted, true))
        return;
    QMetaObject::invokeMethod(m_link, &DeviceLink::takeNews, Qt::QueuedConnection);
}

DeviceLink::Worker::News DeviceLink::Worker::takeNews()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_noticePosted = false;
    News next;
    next.state = m_news.state;
    next.reason = m_news.reason;
    return std::exchange(m_news, next);
}

void DeviceLink::Worker::quit()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_quit = true;
        m_link = nullptr;
    }
    m_wake.notify_all();
    device->interrupt();
}

bool DeviceLink::Worker::waitUntilEnded(int wait)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_wake.wait_for(lock, milliseconds(wait), [this] { return m_ended; });
}

bool DeviceLink::Worker::quitting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_quit;
}

// False if it is time to quit.
bool DeviceLink::Worker::pause(int duration)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return !m_wake.wait_for(lock, milliseconds(duration), [this] { return m_quit; });
}

bool DeviceLink::Worker::takeRequest(Request* request)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_queue.take(request);
}

quint64 DeviceLink::Worker::put(const QString& parameter, const QString& text)
{
    quint64 number = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        number = m_queue.put(parameter, text);
    }
    m_wake.notify_all();
    return number;
}

qint64 DeviceLink::Worker::callAge() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_calling)
        return 0;
    return std::chrono::duration_cast<milliseconds>(Clock::now() - m_callBegan).count();
}

DeviceLink::DeviceLink(std::shared_ptr<Device> device, QObject* parent)
    : QObject(parent)
    , m_worker(std::make_shared<Worker>(std::move(device), this))
{
    connect(&m_watch, &QTimer::timeout, this, &DeviceLink::watchCall);
}

DeviceLink::~DeviceLink()
{
    stop();
}

void DeviceLink::setPolled(const QStringList& live, const QStringList& others, int interval)
{
    m_worker->live = live;
    m_worker->others = others;
    m_worker->interval = interval;
}

void DeviceLink::setPauses(int first, int last)
{
    m_worker->firstPause = first;
    m_worker->lastPause = last;
}

void DeviceLink::setPatience(int patience)
{
    m_patience = patience;
}

void DeviceLink::start()
{
    if (m_thread.joinable() || m_state != LinkState::Closed)
        return;
    setState(LinkState::Opening, QString());
    m_watch.start(qMax(20, m_patience / 4));
    m_thread = std::thread([worker = m_worker] { worker->run(); });
}

bool DeviceLink::stop(int wait)
{
    if (!m_thread.joinable())
        return true;
    m_watch.stop();
    m_worker->quit();
    const bool ended = m_worker->waitUntilEnded(wait);
    if (ended)
        m_thread.join();
    else
        m_thread.detach();
    setState(LinkState::Closed, QString());
    return ended;
}

quint64 DeviceLink::request(const QString& parameter, const QString& text)
{
    return m_worker->put(parameter, text);
}

void DeviceLink::takeNews()
{
    const Worker::News news = m_worker->takeNews();
    const bool wasUp = m_state == LinkState::Up || m_state == LinkState::Slow;
    // What was heard before the link went, first; what was heard since it came, after.
    const auto tellReadings = [&] {
        for (const auto& refusal : news.refusals)
            Q_EMIT refused(refusal.first.parameter, refusal.second, refusal.first.number);
        if (!news.readings.isEmpty())
            Q_EMIT read(news.readings.values());
        if (news.readAll)
            Q_EMIT readAll();
    };
    if (news.state == LinkState::Down && wasUp)
        tellReadings();
    if (news.state != LinkState::Closed)
        setState(news.state, news.reason);
    if (!news.givenBack.isEmpty())
        Q_EMIT givenBack(news.givenBack);
    if (news.state == LinkState::Up)
        tellReadings();
}

void DeviceLink::setState(LinkState state, const QString& reason)
{
    if (state == m_state && reason == m_reason)
        return;
    m_state = state;
    m_reason = reason;
    Q_EMIT stateChanged(state, reason);
}

// A call that hangs says nothing by itself, so somebody has to look.
void DeviceLink::watchCall()
{
    const bool slow = m_worker->callAge() > m_patience;
    if (slow && (m_state == LinkState::Up || m_state == LinkState::Opening)) {
        m_beforeSlow = m_state;
        setState(LinkState::Slow, tr("no answer"));
    } else if (!slow && m_state == LinkState::Slow) {
        setState(m_beforeSlow, QString());
    }
}

} // namespace hostkit
