#include "CommunicationAndData/settings/settingshandler.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

// What a process does with the store; the first argument says what, the others with which file and how often.

namespace {

constexpr int kFillers = 200;

QString argument(int index)
{
    return QCoreApplication::arguments().value(index);
}

/// Writes a number again and again and says each one that is on disk.
int writeNumbers()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->changeSettingsFile(argument(2));
    const QString key = argument(3);
    const int count = argument(4).toInt();
    for (int i = 0; i < kFillers; ++i)
        store->setValue(QStringLiteral("%1/filler_%2").arg(key).arg(i), QString(20, QLatin1Char('x')));
    for (int i = 1; count == 0 || i <= count; ++i) {
        store->setValue(key + QStringLiteral("/number"), i);
        if (!store->flushSettingsFile())
            return EXIT_FAILURE;
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
    return 0;
}

/// Asks for the list of configurations and ends at the answer, in one of the ways in which programs end.
int ask(QCoreApplication &application, bool abruptly)
{
    SettingsHandler *store = SettingsHandler::getInstance();
    QObject::connect(store, &SettingsHandler::onlineNotesReady, &application, [abruptly] {
        if (abruptly)
            std::exit(7);
        QCoreApplication::exit(7);
    });
    QTimer::singleShot(0, store, [store] {
        store->callOnlineInit();
        emit store->requestIDs(0, true);
    });
    return QCoreApplication::exec();
}

/// Leaves a value pending when the process ends.
int leavePending()
{
    SettingsHandler::getInstance()->changeSettingsFile(argument(2));
    SettingsHandler::getInstance()->setValue(QStringLiteral("ui/pending"), 1);
    return 0;
}

/// Leaves values pending for a file in whose place something else comes, after another file like that.
int losePlace()
{
    const auto other = openSettingsFile(argument(3));
    SettingsHandler::getInstance()->changeSettingsFile(argument(2));
    SettingsHandler::getInstance()->setValue(QStringLiteral("ui/pending"), 1);
    return QDir().mkpath(argument(2)) ? 0 : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char **argv)
{
    // Before there is an application object.
    SettingsHandler::getInstance()->setValue(QStringLiteral("ui/early"), 1);
    QCoreApplication application(argc, argv);
    if (argument(1) == QLatin1String("write"))
        return writeNumbers();
    if (argument(1) == QLatin1String("ask"))
        return ask(application, argument(2) == QLatin1String("abruptly"));
    if (argument(1) == QLatin1String("pending"))
        return leavePending();
    if (argument(1) == QLatin1String("displaced"))
        return losePlace();
    return EXIT_FAILURE;
}
