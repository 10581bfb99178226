#include "settingsupdate.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/filesystempath.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <system_error>

namespace {

constexpr int kNoConfiguration = 0;

constexpr const char *kOfTheWorkstation[] = {SettingsKeys::kGeometry, SettingsKeys::kDefaultRights};
constexpr const char *kDatabaseGroups[] = {SettingsKeys::kActionDbGroup, SettingsKeys::kPersonDbGroup,
                                           SettingsKeys::kStudyDbGroup, SettingsKeys::kSupportDbGroup};

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString below(const QString &group, const char *name)
{
    return group + QLatin1Char('/') + QLatin1String(name);
}

/// Asks the store, and waits for the signal that answers.
template<typename Answer, typename Signal, typename Ask>
Answer answerTo(Signal signal, Ask ask)
{
    Answer answer{};
    QEventLoop loop;
    QObject::connect(
        store(), signal, &loop,
        [&](Answer given) {
            answer = given;
            loop.quit();
        },
        Qt::QueuedConnection);
    ask();
    loop.exec();
    return answer;
}

/// The release notes of the configuration that is being fetched, if users are to be told of it.
struct Announcement
{
    bool isForUsers = false;
    QString notes;
};

bool fetch(int id, Announcement &announcement)
{
    QEventLoop loop;
    bool isFetched = false;
    QObject::connect(store(), &SettingsHandler::onlineSettingsReady, &loop,
                     [&](bool success, bool informUser, const QString &notes) {
                         isFetched = success;
                         announcement = {informUser, notes.simplified()};
                         loop.quit();
                     });
    store()->getOnlineSettings(id);
    loop.exec();
    return isFetched;
}

}  // namespace

SettingsUpdate::SettingsUpdate(const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_stagingPath(m_path + QStringLiteral(".update"))
{
    store()->changeSettingsFile(m_path);
}

SettingsUpdate::~SettingsUpdate()
{
    QFile::remove(m_stagingPath);
}

SettingsUpdate::Outcome SettingsUpdate::run()
{
    if (!isUpdatingOn())
        return end(Done, QStringLiteral("Updating is off, the settings stay as they are."));
    if (!connectToDatabase())
        return end(NoConnection, QStringLiteral("There is no connection to the settings database."));
    const int id = answerTo<int>(&SettingsHandler::activeOnlineId, [] { emit store()->requestActiveId(); });
    if (id == kNoConfiguration)
        return end(NoActiveConfiguration, QStringLiteral("No configuration is active."));
    return takeOver(id);
}

bool SettingsUpdate::isUpdatingOn() const
{
    return store()->value(QLatin1String(SettingsKeys::kSettingsUpdating), false).toBool();
}

bool SettingsUpdate::connectToDatabase() const
{
    const QString group = QLatin1String(SettingsKeys::kSupportDbGroup);
    const QString params = QLatin1String(SettingsKeys::kParams);
    Settings connection{{params, store()->databaseSettings(group).value(params)}};
    for (const char *name :
         {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams, SettingsKeys::kSqlType}) {
        const QString key = below(group, name);
        if (store()->generalSettings()->contains(key))
            connection.insert(key, store()->value(key));
    }
    for (const char *name : {SettingsKeys::kUsername, SettingsKeys::kPassword})
        connection.insert(below(group, name), store()->safeValue(below(group, name)));
    return answerTo<bool>(&SettingsHandler::onlineReconnected, [&connection] {
        store()->callOnlineInit();
        emit store()->reconnectOnline(connection);
    });
}

SettingsUpdate::Outcome SettingsUpdate::takeOver(int id)
{
    const QStringList keys = store()->generalSettings()->allKeys();
    for (const QString &key : keys)
        m_former.insert(key, store()->generalSettings()->value(key));
    QFile::remove(m_stagingPath);
    store()->changeSettingsFile(m_stagingPath);
    Announcement announcement;
    if (!fetch(id, announcement)) {
        store()->changeSettingsFile(m_path);
        return end(NotFetched, QStringLiteral("Configuration %1 cannot be taken over.").arg(id));
    }
    keepWorkstation();
    if (!replaceFile())
        return end(NotWritten, QStringLiteral("%1 cannot be written.").arg(m_path));
    QString message = QStringLiteral("Configuration %1 was taken over.").arg(id);
    if (announcement.isForUsers)
        message += QStringLiteral(" Users are to be told: %1").arg(announcement.notes);
    return end(Done, message);
}

void SettingsUpdate::keepWorkstation()
{
    QStringList groups;
    for (const char *group : kDatabaseGroups) {
        if (!store()->generalSettings()->childGroups().contains(QLatin1String(group)))
            groups.append(QLatin1String(group) + QLatin1Char('/'));
    }
    for (auto setting = m_former.cbegin(); setting != m_former.cend(); ++setting) {
        bool isKept = false;
        for (const char *key : kOfTheWorkstation)
            isKept = isKept || setting.key() == QLatin1String(key);
        for (const QString &group : groups)
            isKept = isKept || setting.key().startsWith(group);
        if (isKept)
            store()->generalSettings()->setValue(setting.key(), setting.value());
    }
}

/// Puts the new file, whole and on disk, in the place of the former one.
bool SettingsUpdate::replaceFile() const
{
    const bool isWritten = store()->flushSettingsFile();
    store()->changeSettingsFile(m_path);
    if (!isWritten || !QFile::setPermissions(m_stagingPath, QFile::permissions(m_path)))
        return false;
    std::error_code error;
    std::filesystem::rename(filesystemPath(m_stagingPath), filesystemPath(m_path), error);
    return !error;
}

SettingsUpdate::Outcome SettingsUpdate::end(Outcome outcome, const QString &message)
{
    m_message = message;
    return outcome;
}
