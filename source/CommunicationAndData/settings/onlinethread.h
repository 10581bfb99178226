#ifndef ONLINETHREAD_H
#define ONLINETHREAD_H

#include "CommunicationAndData/settings/onlineworker.h"

#include <QMap>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <mutex>

class QThread;

/// The thread of the online worker, and the only way to it. It runs from the first use until `stop`, and
/// again from the next use.
///
/// Every question is answered, in the order in which they were put and from the event loop of the thread that
/// this object lives on. A worker that stays away too long is given up together with its thread: all open
/// questions are then answered in its place, and the next question finds another worker. What it has not
/// begun by then, it leaves: what was told as failed is not done later.
class OnlineThread : public QObject
{
    Q_OBJECT

public:
    OnlineThread();
    /// \param longestAnswer  how long a question may stay open before the worker is given up
    explicit OnlineThread(std::chrono::milliseconds longestAnswer);
    ~OnlineThread() override;

    void start();
    /// Begins anew: questions that are open have no answer any more, whoever put them has gone.
    void forgetQuestions();
    /// Ends the thread and the worker with it. Safe to call at any time, also without an application object.
    void stop();

    /// Lets the worker do something in its turn.
    ///
    /// \param question   called with the worker, on its thread
    /// \param answer     called with the result, on this object's thread
    /// \param otherwise  the result when the worker is given up
    template<typename Question, typename Answer, typename Result>
    void ask(const Question &question, const Answer &answer, const Result &otherwise);

    /// The same, and waits for the result.
    template<typename Question, typename Result>
    Result askAndWait(const Question &question, const Result &otherwise);

private:
    struct Crew;
    using Telling = std::function<void()>;
    struct Open
    {
        Telling unanswered;
        int round = 0;
    };

    void put(const std::function<Telling(OnlineWorker &)> &question, const Telling &unanswered);
    void post(const std::function<void(OnlineWorker &)> &task);
    void deliver(int number, const Telling &answer);
    void tell(int round, const Telling &answer) const;
    void giveUpIfOpen(int number);
    void giveUp();

    const std::chrono::milliseconds m_longestAnswer;
    std::shared_ptr<Crew> m_crew;
    int m_crews = 0;
    QMap<int, Open> m_open;
    int m_asked = 0;
    int m_round = 0;

    static const std::chrono::milliseconds s_longestWait;
};

template<typename Question, typename Answer, typename Result>
void OnlineThread::ask(const Question &question, const Answer &answer, const Result &otherwise)
{
    put(
        [question, answer](OnlineWorker &worker) -> Telling {
            const Result result = question(worker);
            return [answer, result] {
                answer(result);
            };
        },
        [answer, otherwise] { answer(otherwise); });
}

template<typename Question, typename Result>
Result OnlineThread::askAndWait(const Question &question, const Result &otherwise)
{
    const auto promise = std::make_shared<std::promise<Result>>();
    std::future<Result> result = promise->get_future();
    post([promise, question](OnlineWorker &worker) { promise->set_value(question(worker)); });
    if (result.wait_for(s_longestWait) == std::future_status::ready)
        return result.get();
    giveUp();
    return otherwise;
}

#endif
