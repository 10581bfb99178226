#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSettings>

#include <cstdio>

#include <unistd.h>

// What a process does with the settings database that its settings file names, again and again. The arguments
// say what, with which file, and how often or with which configurations. Each answer is a line.

namespace {

constexpr unsigned kLongestLife = 300;  // seconds; whoever started it may have died

using Connection = QMap<QString, QVariant>;

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString argument(int index)
{
    return QCoreApplication::arguments().value(index);
}

void say(int number)
{
    std::printf("%d\n", number);
    std::fflush(stdout);
}

/// The group `supportdb` of the working settings.
Connection connection()
{
    const QString group = QLatin1String(SettingsKeys::kSupportDbGroup);
    const QString username = group + QLatin1Char('/') + QLatin1String(SettingsKeys::kUsername);
    const QString password = group + QLatin1Char('/') + QLatin1String(SettingsKeys::kPassword);
    const QString params = QLatin1String(SettingsKeys::kParams);
    return {{params, store()->databaseSettings(group).value(params)},
            {username, store()->safeValue(username)},
            {password, store()->safeValue(password)}};
}

/// Asks, and waits for the answer that the signal brings.
template<typename Answer, typename Signal, typename Ask>
Answer answer(Signal signal, Ask ask)
{
    Answer result{};
    QEventLoop loop;
    QObject::connect(store(), signal, &loop, [&](Answer given) {
        result = given;
        loop.quit();
    });
    ask();
    loop.exec();
    return result;
}

bool connectToDatabase()
{
    return answer<bool>(&SettingsHandler::onlineReconnected, [] {
        store()->callOnlineInit();
        emit store()->reconnectOnline(connection());
    });
}

int distribute()
{
    const int count = argument(3).toInt();
    for (int i = 1; count == 0 || i <= count; ++i) {
        store()->setValue(QStringLiteral("ui/round"), i);
        say(answer<OnlineSettings::QueryError>(&SettingsHandler::settingsOnlineStoredReady, [i] {
            store()->storeSettingsOnline({QString::number(i), QString(), argument(4)}, 0, false, true);
        }));
    }
    return 0;
}

int load()
{
    for (int i = 0;; ++i) {
        const int id = argument(3 + i % 2).toInt();
        if (!store()->getOnlineSettings(id))
            return EXIT_FAILURE;
        say(id);
    }
}

}  // namespace

int main(int argc, char **argv)
{
    alarm(kLongestLife);
    QCoreApplication application(argc, argv);
    store()->changeSettingsFile(argument(2));
    if (!connectToDatabase())
        return EXIT_FAILURE;
    say(0);
    if (argument(1) == QLatin1String("distribute"))
        return distribute();
    if (argument(1) == QLatin1String("load"))
        return load();
    return EXIT_FAILURE;
}
