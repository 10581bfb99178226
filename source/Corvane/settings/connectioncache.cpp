#include "Corvane/settings/connectioncache.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QSettings>

namespace {

/// What is remembered beside the connection parameters.
constexpr const char *kRememberedNames[] = {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams,
                                            SettingsKeys::kSqlType};

}  // namespace

ConnectionCache::ConnectionCache(const QString &dataPath, const char *cacheGroup, const char *databaseGroup)
    : m_file(dataPath + QLatin1String(LocalCache::kFileName))
    , m_cacheGroup(QLatin1String(cacheGroup))
    , m_databaseGroup(QLatin1String(databaseGroup))
{}

QMap<QString, QVariant> ConnectionCache::connection(const QStringList &defaultOptions) const
{
    QMap<QString, QVariant> values;
    const QString params = QLatin1String(SettingsKeys::kParams);
    const QString options = key(SettingsKeys::kConnectOptions);
    if (isRemembered()) {
        const auto cache = openSettingsFile(m_file);
        cache->beginGroup(m_cacheGroup);
        values.insert(params, OdbcConnection::readParameters(*cache));
        for (const char *name : kRememberedNames)
            values.insert(key(name), cache->value(QLatin1String(name)));
        values.insert(options, cache->value(QLatin1String(SettingsKeys::kConnectOptions), defaultOptions));
        return values;
    }
    SettingsHandler *store = SettingsHandler::getInstance();
    values.insert(params, store->databaseSettings(m_databaseGroup).value(params));
    for (const char *name : kRememberedNames)
        values.insert(key(name), store->value(key(name), QString()));
    values.insert(options, store->value(options, defaultOptions));
    return values;
}

bool ConnectionCache::isRemembered() const
{
    return openSettingsFile(m_file)->childGroups().contains(m_cacheGroup);
}

void ConnectionCache::remember(const QMap<QString, QVariant> &connection) const
{
    const auto cache = openSettingsFile(m_file);
    cache->beginGroup(m_cacheGroup);
    OdbcConnection::writeParameters(*cache, connection.value(QLatin1String(SettingsKeys::kParams)).toMap());
    for (const char *name : kRememberedNames)
        cache->setValue(QLatin1String(name), connection.value(key(name)));
    cache->endGroup();
    syncSettingsFile(*cache);
}

QString ConnectionCache::key(const char *name) const
{
    return m_databaseGroup + QLatin1Char('/') + QLatin1String(name);
}
