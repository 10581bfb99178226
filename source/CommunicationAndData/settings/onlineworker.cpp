#include "CommunicationAndData/settings/onlineworker.h"

#include "CommunicationAndData/settings/configurationtable.h"
#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/logger.h"

#include <QSqlDatabase>
#include <QSqlError>

namespace {

constexpr int kNoConfiguration = 0;

QVariant groupValue(const QMap<QString, QVariant> &settings, const char *name,
                    const QVariant &otherwise = QVariant())
{
    const QString key = QLatin1String(SettingsKeys::kSupportDbGroup) + QLatin1Char('/') + QLatin1String(name);
    return settings.value(key, otherwise);
}

}  // namespace

OnlineWorker::OnlineWorker(const QString &connectionName)
    : m_connectionName(connectionName)
{}

OnlineWorker::~OnlineWorker()
{
    close();
}

bool OnlineWorker::reconnect(const QMap<QString, QVariant> &settings)
{
    close();
    if (!open(settings)) {
        close();
        return false;
    }
    m_table = std::make_unique<ConfigurationTable>(QSqlDatabase::database(m_connectionName, false));
    if (!m_table->prepare())
        report("prepare");
    return m_table != nullptr;
}

std::optional<OnlineWorker::Notes> OnlineWorker::list(bool withNotes)
{
    if (!m_table)
        return std::nullopt;
    const std::optional<Notes> notes = m_table->list(withNotes);
    if (!notes)
        report("list");
    return notes;
}

OnlineSettings::QueryError OnlineWorker::deleteConfiguration(int id)
{
    if (!m_table)
        return OnlineSettings::ConnectionFailure;
    const OnlineSettings::QueryError error = m_table->remove(id);
    if (error == OnlineSettings::NoRights || error == OnlineSettings::ConnectionFailure)
        report("deleteConfiguration");
    return error;
}

int OnlineWorker::activeId()
{
    if (!m_table)
        return kNoConfiguration;
    const std::optional<int> id = m_table->active();
    if (!id)
        report("activeId");
    return id.value_or(kNoConfiguration);
}

OnlineSettings::QueryError OnlineWorker::store(const SettingsAdditionalData &data,
                                               const ConfigurationImage &image, bool informUsers,
                                               bool distribute)
{
    if (!m_table)
        return OnlineSettings::ConnectionFailure;
    const OnlineSettings::QueryError error = m_table->insert({data, informUsers, distribute, image});
    if (error != OnlineSettings::Success)
        report("store");
    return error;
}

std::optional<OnlineWorker::Configuration> OnlineWorker::fetch(int id)
{
    if (!m_table)
        return std::nullopt;
    const std::optional<ConfigurationRecord> record = m_table->find(id);
    if (!record) {
        report("fetch");
        return std::nullopt;
    }
    const auto settings = record->image.decode();
    if (!settings) {
        CORVANE_LOG(Logger::Error, Logger::Console, "OnlineWorker::fetch",
                    QStringLiteral("The image of configuration %1 is damaged or of an unknown kind and is "
                                   "not taken over")
                        .arg(id));
        return std::nullopt;
    }
    return Configuration{*settings, record->informUsers, record->data.notes};
}

bool OnlineWorker::open(const QMap<QString, QVariant> &settings)
{
    QSqlDatabase database =
        QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), m_connectionName);
    database.setDatabaseName(
        OdbcConnection::databaseName(settings.value(QLatin1String(SettingsKeys::kParams)).toMap()));
    const bool isOpen = OdbcConnection::open(
        database,
        groupValue(settings, SettingsKeys::kConnectOptions, OdbcConnection::defaultConnectOptions()),
        groupValue(settings, SettingsKeys::kUsername).toString(),
        groupValue(settings, SettingsKeys::kPassword).toString());
    if (!isOpen) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "OnlineWorker::open",
                    QStringLiteral("No connection to %1: %2")
                        .arg(OdbcConnection::withoutSecrets(database.databaseName()),
                             database.lastError().text().simplified()));
    }
    return isOpen;
}

void OnlineWorker::close()
{
    m_table.reset();
    if (QSqlDatabase::contains(m_connectionName))
        QSqlDatabase::removeDatabase(m_connectionName);
}

/// Leaves the cause in the log, and lets go of a connection that is lost, so that the next operation doesn't
/// wait for it.
void OnlineWorker::report(const char *operation)
{
    CORVANE_LOG(Logger::Warning, Logger::Console, "OnlineWorker::report",
                QStringLiteral("%1: %2").arg(QLatin1String(operation), m_table->errorText()));
    if (!m_table->isAlive())
        close();
}
