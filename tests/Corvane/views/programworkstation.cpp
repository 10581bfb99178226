#include "programworkstation.h"

#include "actionlogreader.h"
#include "support/runningprogram.h"

#include <QDir>
#include <QSettings>

namespace {

const auto kLoginBox = QStringLiteral("windows_administrator_combo");

}  // namespace

ProgramWorkstation::ProgramWorkstation()
{
    const QString runtimeFolder = path(QStringLiteral("run"));
    QDir().mkpath(runtimeFolder);
    QFile::setPermissions(runtimeFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QProcessEnvironment ProgramWorkstation::environment() const
{
    QProcessEnvironment environment = Workstation::environment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path(QStringLiteral("run")));
    return environment;
}

QString ProgramWorkstation::actionLog() const
{
    return dataDirectory() + QStringLiteral("CorvaneActions/actionlog.db");
}

QString ProgramWorkstation::lockFile() const
{
    return dataDirectory() + QStringLiteral("cv.lock");
}

QStringList ProgramWorkstation::events() const
{
    return eventsOf(actionLog());
}

QVariant ProgramWorkstation::setting(const QString &file, const QString &key) const
{
    return QSettings(dataDirectory() + file, QSettings::IniFormat).value(key);
}

QList<QByteArray> ProgramWorkstation::logLines(const QByteArray &message) const
{
    QList<QByteArray> found;
    for (const QByteArray &line : readFile(runtimeLog()).split('\n')) {
        if (line.endsWith('\t' + message))
            found.append(line);
    }
    return found;
}

QStringList eventsOf(const QString &actionLog)
{
    QStringList events = readActionLog(actionLog, QStringLiteral("printf('%x', action), info"));
    events.removeAll(QStringLiteral("5101|Corvane access connection"));
    return events;
}

bool showsLogin(RunningProgram &program)
{
    return !program.widget(kLoginBox).isEmpty();
}

bool signIn(RunningProgram &program)
{
    if (!showsLogin(program))
        return false;
    program.choose(kLoginBox, 0);
    return !program.widget(QStringLiteral("settings_button")).isEmpty();
}
