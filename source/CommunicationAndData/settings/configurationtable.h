#ifndef CONFIGURATIONTABLE_H
#define CONFIGURATIONTABLE_H

#include "CommunicationAndData/settings/configurationimage.h"
#include "CommunicationAndData/settings/odbcdiagnosis.h"
#include "CommunicationAndData/settings/onlinesettings.h"

#include <QMap>
#include <QSqlDatabase>
#include <QVariantList>

#include <functional>
#include <optional>

/// One row of the table of online configurations, without its id.
struct ConfigurationRecord
{
    SettingsAdditionalData data;
    bool informUsers = false;
    bool active = false;
    ConfigurationImage image;
};

/// The table of the online configurations, through an open connection and on the thread that this belongs to.
///
/// The database itself sees to it that no second row becomes active: a unique index stands on the column. Who
/// activates takes the mark from the former row and adds a new one in one transaction, and begins again when
/// somebody else was faster; so everybody sees the former active configuration or the new one.
class ConfigurationTable
{
public:
    explicit ConfigurationTable(const QSqlDatabase &database);

    /// Keeps waiting for other people's locks within bounds, and makes the table if it is missing and the
    /// account may do so. False if it is not there in the end.
    bool prepare();

    /// The configurations by id, with empty notes unless these are asked for; nothing if they cannot be read.
    std::optional<QMap<int, SettingsAdditionalData>> list(bool withNotes);
    /// The active configuration's id, 0 if none is; nothing if that cannot be read.
    std::optional<int> active();
    /// Nothing if there is no such row or it cannot be read.
    std::optional<ConfigurationRecord> find(int id);

    OnlineSettings::QueryError insert(const ConfigurationRecord &record);
    /// Never removes the active configuration.
    OnlineSettings::QueryError remove(int id);

    /// False if the server doesn't answer any more.
    bool isAlive();

    /// Why the last operation failed, for the log.
    QString errorText() const;

private:
    using Attempt = std::function<bool()>;

    QString text(const char *column) const;
    bool exists();
    bool run(QSqlQuery &query, const QString &statement, const QVariantList &values = {});
    bool run(const QString &statement, const QVariantList &values = {});
    bool begin();
    bool commit();
    void rollBack();
    bool tryToInsert(const ConfigurationRecord &record);
    bool tryToRemove(int id, int *removed);
    bool repeat(const Attempt &attempt);
    OnlineSettings::QueryError whyNotRemoved(int id);

    QSqlDatabase m_database;
    QSqlDriver::DbmsType m_server;
    OdbcDiagnosis m_diagnosis;
};

#endif
