#ifndef ONLINETHREAD_H
#define ONLINETHREAD_H

#include "CommunicationAndData/settings/onlineworker.h"

#include <QThread>

#include <functional>
#include <memory>

/// The thread of the online worker, and the only way to it. It runs from the first use until `stop`, and
/// again from the next use.
class OnlineThread : public QObject
{
    Q_OBJECT

public:
    OnlineThread() = default;
    ~OnlineThread() override;

    void start();
    /// Ends the thread and the worker with it. Safe to call at any time, also without an application object.
    void stop();

    /// Lets the worker do something on its thread, in its turn.
    void post(const std::function<void(OnlineWorker &)> &task);
    /// The same, and waits for it.
    void run(const std::function<void(OnlineWorker &)> &task);

signals:
    /// A new worker has been made and may be connected to, before it does anything.
    void workerMade(OnlineWorker *worker);

private:
    QThread m_thread;
    OnlineWorker *m_worker = nullptr;
};

#endif
