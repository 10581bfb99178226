// Writes numbered events, for tests that end, limit or double the process that writes.
//
// usage: eventwriter LOCATION NAME COUNT [LARGEST_FILE]
// Prints "ready" once the engine is there, "<number>" after each event, "critical <code>" for a critical
// error, and at the end "done". LARGEST_FILE, in bytes, is the size at which the disk is full.

#include "CommunicationAndData/settings/settingshandler.h"
#include "enginerun.h"
#include "support/workstation.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace {

void say(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void limitFiles(quint64 size)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {size, size};
    setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

int main(int argc, char *argv[])
{
    const Workstation workstation;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    SettingsHandler::getInstance()->changeSettingsFile(workstation.path(QStringLiteral("corvane.ini")));
    EngineRun::useLocation(arguments.value(1));

    EngineRun run;
    const ZephanError error = run.start();
    if (error != ZephanErrors::kNone) {
        say(QStringLiteral("error %1").arg(error));
        return 1;
    }
    say(QStringLiteral("ready"));
    if (arguments.size() > 4)
        limitFiles(arguments.at(4).toULongLong());

    const int count = arguments.value(3).toInt();
    for (int i = 0; i < count; ++i) {
        run.log(QStringLiteral("%1 %2").arg(arguments.value(2)).arg(i));
        QCoreApplication::processEvents();
        if (!run.critical.isEmpty()) {
            say(QStringLiteral("critical %1").arg(run.critical.first().at(1).toUInt()));
            return 2;
        }
        say(QString::number(i));
    }
    run.engine.shutdownEngine();
    say(QStringLiteral("done"));
    return 0;
}
