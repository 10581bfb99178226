#include "CommunicationAndData/settings/onlinethread.h"

OnlineThread::~OnlineThread()
{
    stop();
}

void OnlineThread::start()
{
    if (m_worker)
        return;
    m_worker = new OnlineWorker;
    emit workerMade(m_worker);
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("settings.online"));
    m_thread.start();
}

void OnlineThread::stop()
{
    if (!m_worker)
        return;
    m_worker = nullptr;
    m_thread.quit();
    m_thread.wait();
}

void OnlineThread::post(const std::function<void(OnlineWorker &)> &task)
{
    start();
    QMetaObject::invokeMethod(
        m_worker, [worker = m_worker, task] { task(*worker); }, Qt::QueuedConnection);
}

void OnlineThread::run(const std::function<void(OnlineWorker &)> &task)
{
    start();
    QMetaObject::invokeMethod(
        m_worker, [worker = m_worker, &task] { task(*worker); }, Qt::BlockingQueuedConnection);
}
