#include "support/workstation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <unistd.h>

namespace {

/// What the settings store still writes when the process ends, after the workstation has gone. It is older
/// than the store and so goes after it.
class LateFiles
{
public:
    ~LateFiles()
    {
        // A process that was split off ends while the workstation is in use.
        if (getpid() != m_owner)
            return;
        for (const QString &folder : qAsConst(m_folders))
            QDir(folder).removeRecursively();
    }
    void add(const QString &folder)
    {
        m_folders.append(folder);
    }

private:
    const pid_t m_owner = getpid();
    QStringList m_folders;
};

LateFiles g_lateFiles;

}  // namespace

Workstation::Workstation()
{
    g_lateFiles.add(m_root.path());
    QDir root(m_root.path());
    root.mkpath(QStringLiteral("ProgramData/Halvorn"));
    root.mkpath(QStringLiteral("tmp"));
    root.mkpath(QStringLiteral("xdg"));
    root.mkpath(QStringLiteral("home"));
    qputenv("ProgramData", path(QStringLiteral("ProgramData")).toLocal8Bit());
    qputenv("TEMP", path(QStringLiteral("tmp")).toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS", path(QStringLiteral("xdg")).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", path(QStringLiteral("home")).toLocal8Bit());
}

QString Workstation::dataDirectory() const
{
    return path(QStringLiteral("ProgramData/Halvorn/"));
}

QString Workstation::temporaryDirectory() const
{
    return path(QStringLiteral("tmp"));
}

QString Workstation::localApplicationSettings() const
{
    return path(QStringLiteral("xdg/Halvorn/Halvorn.ini"));
}

QString Workstation::runtimeLog() const
{
    return path(QStringLiteral("tmp/CORVANE_runtime.log"));
}

QString Workstation::path(const QString &name) const
{
    return m_root.path() + QLatin1Char('/') + name;
}

QProcessEnvironment Workstation::environment() const
{
    return QProcessEnvironment::systemEnvironment();
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
