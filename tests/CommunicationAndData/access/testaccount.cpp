#include "testaccount.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QThread>

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kAttempts = 20;  // the account files are locked while somebody else changes them

QString systemProgram(const QString &name)
{
    return QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin"),
                                                 QStringLiteral("/usr/bin"), QStringLiteral("/bin")});
}

bool runOnce(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(systemProgram(program), arguments);
    process.write(input);
    process.closeWriteChannel();
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

bool run(const QString &program, const QStringList &arguments, const QByteArray &input = {})
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (runOnce(program, arguments, input))
            return true;
        QThread::msleep(100);
    }
    return false;
}

QString randomText(const QString &prefix)
{
    return prefix + QString::number(QRandomGenerator::system()->generate64(), 36);
}

}  // namespace

TestAccount::TestAccount(const QStringList &groups)
    : m_name(randomText(QStringLiteral("cvt")))
    , m_password(randomText(QStringLiteral("Pä$ ")))
{
    startGuardian();
    QStringList arguments{QStringLiteral("--no-create-home"), QStringLiteral("--user-group")};
    if (!groups.isEmpty())
        arguments << QStringLiteral("--groups") << groups.join(QLatin1Char(','));
    run(QStringLiteral("useradd"), arguments << m_name);
    setPassword(m_password);
}

TestAccount::~TestAccount()
{
    close(m_guardianInput);
    waitpid(m_guardian, nullptr, 0);
}

/// A process that waits until nobody holds the other end of its input, and then removes the account.
void TestAccount::startGuardian()
{
    constexpr const char *script = "PATH=$PATH:/usr/sbin:/sbin; cat; for i in 1 2 3 4 5 6 7 8 9 10; do "
                                   "userdel \"$1\" && break; sleep 0.2; done";
    const QByteArray name = m_name.toLatin1();
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_guardian = fork();
    if (m_guardian == 0) {
        setsid();
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(ends[0], STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execl("/bin/sh", "sh", "-c", script, "guardian", name.constData(), nullptr);
        _exit(1);
    }
    close(ends[0]);
    m_guardianInput = ends[1];
}

QString TestAccount::obstacle()
{
    if (geteuid() != 0)
        return QStringLiteral("only root can make accounts");
    if (systemProgram(QStringLiteral("useradd")).isEmpty() ||
        systemProgram(QStringLiteral("chpasswd")).isEmpty())
        return QStringLiteral("useradd or chpasswd is not installed");
    return QString();
}

bool TestAccount::exists() const
{
    return getpwnam(m_name.toLocal8Bit().constData()) != nullptr;
}

QString TestAccount::name() const
{
    return m_name;
}

QString TestAccount::password() const
{
    return m_password;
}

quint32 TestAccount::user() const
{
    const passwd *entry = getpwnam(m_name.toLocal8Bit().constData());
    return entry ? entry->pw_uid : 0;
}

bool TestAccount::change(const QString &program, const QStringList &arguments)
{
    return run(program, QStringList(arguments) << m_name);
}

bool TestAccount::setPassword(const QString &password)
{
    m_password = password;
    return run(QStringLiteral("chpasswd"), {},
               (m_name + QLatin1Char(':') + password + QLatin1Char('\n')).toUtf8());
}

QByteArray inOwnProcess(const std::function<QByteArray()> &body)
{
    int ends[2];
    if (pipe(ends) != 0)
        return QByteArray();
    const pid_t child = fork();
    if (child == 0) {
        const QByteArray result = body();
        const bool written = write(ends[1], result.constData(), size_t(result.size())) == result.size();
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    QByteArray result;
    char buffer[4096];
    for (ssize_t got = 0; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        result.append(buffer, int(got));
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return result;
}

void inOwnThread(const std::function<void()> &body)
{
    std::thread(body).join();
}

bool becomeUser(quint32 user, const QVector<quint32> &groups)
{
    return setgroups(size_t(groups.size()), groups.constData()) == 0 && setresgid(user, user, user) == 0 &&
           setresuid(user, user, user) == 0;
}
