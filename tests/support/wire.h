#ifndef TESTS_SUPPORT_WIRE_H
#define TESTS_SUPPORT_WIRE_H

#include <QObject>
#include <QThread>

#include <atomic>
#include <memory>

class QTcpServer;
class QTcpSocket;

/// The line between a program and a server on this machine, to be cut or held up at a chosen moment. It works
/// on a thread of its own, so that it can be cut while the program waits.
class Wire : public QObject
{
    Q_OBJECT

public:
    explicit Wire(quint16 serverPort);
    ~Wire() override;

    /// Where the program connects to.
    quint16 port() const
    {
        return m_port;
    }
    /// Ends all connections, and each new one at once.
    void cut();
    /// Lets nothing through any more, while all connections stay.
    void hold();
    /// Lets everything through again that comes from now on or was held up.
    void mend();
    /// Lets that many more requests through to the server and then cuts the line.
    void cutAfter(int requests);
    /// Whether the line is cut.
    bool isCut() const
    {
        return m_state == Cut;
    }

private:
    enum State { Open, Held, Cut };

    void listen();
    void takeConnection();
    void pass(QTcpSocket *from, QTcpSocket *to, bool isRequest);
    void set(State state);
    void apply();

    const quint16 m_serverPort;
    quint16 m_port = 0;
    QThread m_thread;
    std::unique_ptr<QTcpServer> m_server;
    std::atomic<State> m_state{Open};
    std::atomic<int> m_requests{-1};  ///< that may pass before the line is cut; -1 for all
};

#endif
