#include "CommunicationAndData/settings/onlinethread.h"

#include "ZephanShared/toolkit/logger.h"

#include <QThread>
#include <QTimer>

#include <atomic>
#include <openssl/crypto.h>
#include <utility>

namespace {

constexpr char kConnectionName[] = "settings.online";

// Longer than any operation takes at a server that answers, trying again for a while included.
constexpr std::chrono::milliseconds kLongestAnswer(30000);

// The window stands still while a configuration is fetched.
constexpr std::chrono::milliseconds kLongestWait(15000);

constexpr unsigned long kLongestEnding = 5000;  // milliseconds

/// A connection's name belongs to one thread, also one that was given up.
QString connectionName(int crew)
{
    const QString name = QLatin1String(kConnectionName);
    return crew == 0 ? name : QStringLiteral("%1.%2").arg(name).arg(crew);
}

}  // namespace

const std::chrono::milliseconds OnlineThread::s_longestWait = kLongestWait;

/// A worker and its thread. Both end by themselves once the thread is told to quit.
struct OnlineThread::Crew
{
    QThread *thread = nullptr;
    OnlineWorker *worker = nullptr;
    std::mutex mutex;
    OnlineThread *home = nullptr;  ///< null when the crew has nobody to answer
    std::atomic<bool> isGivenUp{false};

    /// Called by the worker's thread.
    void tell(int number, const Telling &answer)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        OnlineThread *const to = home;
        if (to)
            QMetaObject::invokeMethod(
                to, [to, number, answer] { to->deliver(number, answer); }, Qt::QueuedConnection);
    }

    void leaveHome()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        home = nullptr;
    }
};

OnlineThread::OnlineThread()
    : OnlineThread(kLongestAnswer)
{}

OnlineThread::OnlineThread(std::chrono::milliseconds longestAnswer)
    : m_longestAnswer(longestAnswer)
{}

OnlineThread::~OnlineThread()
{
    stop();
}

void OnlineThread::start()
{
    if (m_crew)
        return;
    m_crew = std::make_shared<Crew>();
    m_crew->home = this;
    m_crew->thread = new QThread;
    m_crew->worker = new OnlineWorker(connectionName(m_crews));
    m_crew->worker->moveToThread(m_crew->thread);
    connect(m_crew->thread, &QThread::finished, m_crew->worker, &QObject::deleteLater);
    // What the library of ciphers keeps for the thread goes with its connection and not at the thread's very
    // end, where a process that ends frees it as well.
    connect(m_crew->worker, &QObject::destroyed, [] { OPENSSL_thread_stop(); });
    m_crew->thread->setObjectName(QLatin1String(kConnectionName));
    m_crew->thread->start();
}

void OnlineThread::forgetQuestions()
{
    ++m_round;
}

void OnlineThread::stop()
{
    if (!m_crew)
        return;
    m_crew->leaveHome();
    m_crew->thread->quit();
    // A thread that a server holds up ends with the process.
    if (m_crew->thread->wait(kLongestEnding))
        delete m_crew->thread;
    m_crew.reset();
    m_open.clear();
}

void OnlineThread::put(const std::function<Telling(OnlineWorker &)> &question, const Telling &unanswered)
{
    const int number = ++m_asked;
    m_open.insert(number, {unanswered, m_round});
    start();
    post([crew = m_crew, question, number](OnlineWorker &worker) {
        if (!crew->isGivenUp)
            crew->tell(number, question(worker));
    });
    QTimer::singleShot(m_longestAnswer, this, [this, number] { giveUpIfOpen(number); });
}

void OnlineThread::post(const std::function<void(OnlineWorker &)> &task)
{
    start();
    QMetaObject::invokeMethod(
        m_crew->worker, [worker = m_crew->worker, task] { task(*worker); }, Qt::QueuedConnection);
}

void OnlineThread::deliver(int number, const Telling &answer)
{
    if (m_open.contains(number))
        tell(m_open.take(number).round, answer);
}

void OnlineThread::tell(int round, const Telling &answer) const
{
    if (round == m_round)
        answer();
}

void OnlineThread::giveUpIfOpen(int number)
{
    if (m_open.contains(number))
        giveUp();
}

void OnlineThread::giveUp()
{
    CORVANE_LOG(Logger::Warning, Logger::Console, "OnlineThread::giveUp",
                QStringLiteral("The settings database does not answer, its connection is given up"));
    m_crew->isGivenUp = true;
    m_crew->leaveHome();
    connect(m_crew->thread, &QThread::finished, m_crew->thread, &QObject::deleteLater);
    m_crew->thread->quit();
    m_crew.reset();
    ++m_crews;
    // They are closed at once: questions that were put together run out of time together, and the next worker
    // is not to be given up for them.
    const QMap<int, Open> unanswered = std::exchange(m_open, {});
    for (const Open &question : unanswered) {
        QMetaObject::invokeMethod(
            this, [this, question] { tell(question.round, question.unanswered); }, Qt::QueuedConnection);
    }
}
