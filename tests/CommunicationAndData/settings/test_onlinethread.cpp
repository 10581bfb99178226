#include "CommunicationAndData/settings/onlinethread.h"

#include <QTest>
#include <QThread>

#include <atomic>
#include <chrono>
#include <future>

namespace {

constexpr std::chrono::milliseconds kLongestAnswer(500);
constexpr unsigned long kBusyTime = 700;  // milliseconds

}  // namespace

/// A worker that a server holds up, and the questions that wait for it.
class TestOnlineThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void questionsThatRunOutOfTimeTogetherAreAllAnswered();
    void aQuestionThatWasForgottenIsNotAnsweredWhenItsWorkerIsGivenUp();
    void theAnswerOfAWorkerThatWasGivenUpComesToNobody();
    void whatAWorkerThatWasGivenUpHasNotBegunIsNeverDone();

private:
    void askHeldUp(int number);
    void ask(int number);
    /// Lets the questions' time pass while the window is busy, so that it is over for all of them at once.
    static void letTimePass()
    {
        QThread::msleep(kBusyTime);
    }

    std::unique_ptr<OnlineThread> m_thread;
    std::promise<void> m_release;
    std::shared_future<void> m_released;
    QList<int> m_answers;  ///< the number of what was answered, below zero in place of the worker
};

void TestOnlineThread::init()
{
    m_thread = std::make_unique<OnlineThread>(kLongestAnswer);
    m_release = std::promise<void>();
    m_released = m_release.get_future().share();
    m_answers.clear();
}

void TestOnlineThread::cleanup()
{
    m_thread.reset();
}

void TestOnlineThread::askHeldUp(int number)
{
    m_thread->ask(
        [released = m_released, number](OnlineWorker &) {
            released.wait();
            return number;
        },
        [this](int answer) { m_answers.append(answer); }, -number);
}

void TestOnlineThread::ask(int number)
{
    m_thread->ask([number](OnlineWorker &) { return number; },
                  [this](int answer) { m_answers.append(answer); }, -number);
}

void TestOnlineThread::questionsThatRunOutOfTimeTogetherAreAllAnswered()
{
    askHeldUp(1);
    ask(2);
    letTimePass();
    QTRY_COMPARE(m_answers, QList<int>({-1, -2}));
    ask(3);
    QTRY_COMPARE(m_answers, QList<int>({-1, -2, 3}));
    m_release.set_value();
}

void TestOnlineThread::aQuestionThatWasForgottenIsNotAnsweredWhenItsWorkerIsGivenUp()
{
    askHeldUp(1);
    m_thread->forgetQuestions();
    ask(2);
    letTimePass();
    QTRY_COMPARE(m_answers, QList<int>{-2});
    m_release.set_value();
}

void TestOnlineThread::theAnswerOfAWorkerThatWasGivenUpComesToNobody()
{
    askHeldUp(1);
    QTRY_COMPARE(m_answers, QList<int>{-1});
    m_release.set_value();
    ask(2);
    QTRY_COMPARE(m_answers, QList<int>({-1, 2}));
}

void TestOnlineThread::whatAWorkerThatWasGivenUpHasNotBegunIsNeverDone()
{
    askHeldUp(1);
    const auto done = std::make_shared<std::atomic<bool>>(false);
    m_thread->ask(
        [done](OnlineWorker &) {
            *done = true;
            return 2;
        },
        [this](int answer) { m_answers.append(answer); }, -2);
    letTimePass();
    QTRY_COMPARE(m_answers, QList<int>({-1, -2}));
    m_release.set_value();
    // The question has left the thread.
    QTRY_COMPARE(done.use_count(), 1L);
    QVERIFY(!*done);
}

QTEST_GUILESS_MAIN(TestOnlineThread)
#include "test_onlinethread.moc"
