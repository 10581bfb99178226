#ifndef TESTS_SUPPORT_REMOTECONTROL_H
#define TESTS_SUPPORT_REMOTECONTROL_H

#include <QJsonArray>
#include <QJsonObject>
#include <QLocalServer>
#include <QObject>

#include <functional>

class QLocalSocket;
class QMessageBox;
class QWidget;

/// Works the widgets of the program that it is loaded into, for a test in another process: each line that
/// comes in over a local socket is a JSON object with the entry "do", and is answered by one.
class RemoteControl : public QObject
{
    Q_OBJECT

public:
    /// \param socketPath  where to listen
    explicit RemoteControl(const QString &socketPath);

    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void acceptTest();
    void answerRequests();

private:
    QJsonObject answer(const QJsonObject &request);
    QJsonObject describeBox() const;
    static QJsonObject describeWidget(const QWidget *widget);
    static void later(const std::function<void()> &work);

    QLocalServer m_server;
    QJsonArray m_shownWindows;
};

#endif
