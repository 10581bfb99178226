#ifndef CONNECTIONCACHE_H
#define CONNECTIONCACHE_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// The connection to one database as this workstation remembers it in `local_cache`: everything but user name
/// and password, which are never written to a file.
///
/// All maps are connection parameter maps as `DatabaseGroupSettings` edits them.
class ConnectionCache
{
public:
    /// \param dataPath       directory of `local_cache`, with its trailing separator
    /// \param cacheGroup     the group in `local_cache`, one of `LocalCache`
    /// \param databaseGroup  the database's group in the settings, one of `SettingsKeys`
    ConnectionCache(const QString &dataPath, const char *cacheGroup, const char *databaseGroup);

    /// The remembered connection; where there is none, that of the working settings. User name and password
    /// are in neither.
    ///
    /// \param defaultOptions  connect options of a database that has none stored
    QMap<QString, QVariant> connection(const QStringList &defaultOptions) const;
    bool isRemembered() const;
    /// Replaces what is remembered, on disk too.
    void remember(const QMap<QString, QVariant> &connection) const;

    /// The key of a value in a connection, as `supportdb/username`.
    QString key(const char *name) const;

private:
    QString m_file;
    QString m_cacheGroup;
    QString m_databaseGroup;
};

#endif
