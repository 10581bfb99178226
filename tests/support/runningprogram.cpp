#include "support/runningprogram.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

namespace {

constexpr int kPoll = 20;              // milliseconds
constexpr qint64 kMostShown = 20000;   // bytes of what a program has written
constexpr int kAnswerPatience = 5000;  // milliseconds; a program that waits for something else answers late

QJsonObject request(const QString &what, const QString &name = QString())
{
    return {{QStringLiteral("do"), what}, {QStringLiteral("name"), name}};
}

}  // namespace

RunningProgram::RunningProgram(const QProcessEnvironment &environment, const QString &program,
                               const QStringList &arguments)
{
    QProcessEnvironment withRemoteControl = environment;
    withRemoteControl.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(CORVANE_TEST_PLUGINS));
    withRemoteControl.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"),
                             QStringLiteral("corvaneremote:") + m_folder.filePath(QStringLiteral("remote")));
    m_process.setProcessEnvironment(withRemoteControl);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program.isEmpty() ? builtProgram() : program, arguments);
    m_process.waitForStarted();
}

RunningProgram::~RunningProgram()
{
    kill();
}

QString RunningProgram::builtProgram()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/Corvane");
}

QJsonObject RunningProgram::ask(const QJsonObject &request)
{
    if (!connectToProgram())
        return {};
    m_socket.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
    m_socket.flush();
    QElapsedTimer timer;
    timer.start();
    while (!m_socket.canReadLine()) {
        if (!m_socket.waitForReadyRead(kPoll) &&
            (m_socket.state() != QLocalSocket::ConnectedState || timer.elapsed() > kAnswerPatience)) {
            m_socket.abort();
            return {};
        }
    }
    return QJsonDocument::fromJson(m_socket.readLine()).object();
}

QJsonObject RunningProgram::widget(const QString &name)
{
    return waitFor(request(QStringLiteral("describe"), name), QStringLiteral("visible"));
}

bool RunningProgram::isVisible(const QString &name)
{
    return ask(request(QStringLiteral("describe"), name))[QLatin1String("visible")].toBool();
}

QJsonObject RunningProgram::box()
{
    return waitFor(request(QStringLiteral("box")), QStringLiteral("title"));
}

bool RunningProgram::hasBox()
{
    return !ask(request(QStringLiteral("box"))).isEmpty();
}

void RunningProgram::answerBox()
{
    click(QStringLiteral("box_button"));
}

void RunningProgram::click(const QString &name)
{
    ask(request(QStringLiteral("click"), name));
}

void RunningProgram::choose(const QString &name, int index)
{
    QJsonObject choice = request(QStringLiteral("choose"), name);
    choice[QLatin1String("index")] = index;
    ask(choice);
}

void RunningProgram::type(const QString &name, const QString &text)
{
    QJsonObject typing = request(QStringLiteral("type"), name);
    typing[QLatin1String("text")] = text;
    ask(typing);
}

void RunningProgram::invoke(const QString &name, const QString &slot)
{
    QJsonObject call = request(QStringLiteral("invoke"), name);
    call[QLatin1String("text")] = slot;
    ask(call);
}

void RunningProgram::close()
{
    ask(request(QStringLiteral("close")));
}

QStringList RunningProgram::shownWindows()
{
    QStringList names;
    for (const QJsonValue &name : ask(request(QStringLiteral("windows")))[QLatin1String("shown")].toArray())
        names.append(name.toString());
    return names;
}

bool RunningProgram::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

int RunningProgram::exitCode()
{
    if (isRunning() && !m_process.waitForFinished(Patience))
        return -1;
    const int code = m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    // What a sanitizer has to say, beside the test's own failure.
    if (const QByteArray said = m_process.peek(kMostShown); code != 0 && !said.isEmpty())
        qWarning("The program ended with %d: %s", code, said.constData());
    return code;
}

QByteArray RunningProgram::output()
{
    return m_process.readAll();
}

void RunningProgram::kill()
{
    m_socket.abort();
    m_process.kill();
    m_process.waitForFinished();
}

bool RunningProgram::connectToProgram()
{
    if (m_socket.state() == QLocalSocket::ConnectedState)
        return true;
    m_socket.connectToServer(m_folder.filePath(QStringLiteral("remote")));
    return m_socket.waitForConnected(kPoll);
}

/// Asks until the entry of the answer is neither missing nor false.
QJsonObject RunningProgram::waitFor(const QJsonObject &request, const QString &entry)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < Patience) {
        const QJsonObject answer = ask(request);
        const QJsonValue value = answer[entry];
        if (!value.isUndefined() && value != QJsonValue(false))
            return answer;
        if (m_process.waitForFinished(kPoll) || !isRunning())
            break;
    }
    return {};
}
