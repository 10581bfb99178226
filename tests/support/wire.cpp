#include "support/wire.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

Wire::Wire(quint16 serverPort)
    : m_serverPort(serverPort)
{
    moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(this, &Wire::listen, Qt::BlockingQueuedConnection);
}

Wire::~Wire()
{
    QMetaObject::invokeMethod(
        this, [this] { m_server.reset(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void Wire::cut()
{
    set(Cut);
}

void Wire::hold()
{
    set(Held);
}

void Wire::mend()
{
    m_requests = -1;
    set(Open);
}

void Wire::cutAfter(int requests)
{
    m_requests = requests;
}

void Wire::listen()
{
    m_server = std::make_unique<QTcpServer>();
    connect(m_server.get(), &QTcpServer::newConnection, this, &Wire::takeConnection);
    m_server->listen(QHostAddress::LocalHost);
    m_port = m_server->serverPort();
}

void Wire::takeConnection()
{
    QTcpSocket *const program = m_server->nextPendingConnection();
    auto *const server = new QTcpSocket(program);
    server->connectToHost(QHostAddress::LocalHost, m_serverPort);
    connect(program, &QTcpSocket::readyRead, this, [=] { pass(program, server, true); });
    connect(server, &QTcpSocket::readyRead, this, [=] { pass(server, program, false); });
    connect(server, &QTcpSocket::disconnected, program, &QTcpSocket::disconnectFromHost);
    connect(program, &QTcpSocket::disconnected, program, &QTcpSocket::deleteLater);
    apply();
}

void Wire::pass(QTcpSocket *from, QTcpSocket *to, bool isRequest)
{
    if (m_state != Open)
        return;
    if (isRequest && m_requests >= 0 && m_requests-- == 0) {
        set(Cut);
        return;
    }
    to->write(from->readAll());
}

void Wire::set(State state)
{
    m_state = state;
    if (QThread::currentThread() == thread())
        apply();
    else
        QMetaObject::invokeMethod(this, &Wire::apply, Qt::BlockingQueuedConnection);
}

void Wire::apply()
{
    const auto programs = m_server->findChildren<QTcpSocket *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTcpSocket *const program : programs) {
        QTcpSocket *const server = program->findChild<QTcpSocket *>();
        if (m_state == Cut) {
            server->abort();
            program->abort();
        } else if (m_state == Open) {
            pass(program, server, false);
            pass(server, program, false);
        }
    }
}
