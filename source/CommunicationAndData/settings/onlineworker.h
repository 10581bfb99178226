#ifndef ONLINEWORKER_H
#define ONLINEWORKER_H

#include "CommunicationAndData/settings/configurationimage.h"
#include "CommunicationAndData/settings/onlinesettings.h"

#include <QMap>
#include <QObject>
#include <QVariant>

#include <memory>
#include <optional>

class ConfigurationTable;

/// The store's hand in the settings database: a connection of its own, used on the store's own thread alone.
/// Each operation takes as long as the server does.
class OnlineWorker : public QObject
{
    Q_OBJECT

public:
    /// A configuration as it was fetched.
    struct Configuration
    {
        QMap<QString, QVariant> settings;  ///< full key to value
        bool informUsers = false;          ///< users are to be told of the change
        QString notes;
    };

    /// Configurations by id.
    using Notes = QMap<int, SettingsAdditionalData>;

    explicit OnlineWorker(const QString &connectionName);
    ~OnlineWorker() override;

    /// Closes the connection and opens another. A missing table is made if the account may do so.
    ///
    /// \param settings  connection parameter map of the group `supportdb`
    bool reconnect(const QMap<QString, QVariant> &settings);
    /// Nothing if the list cannot be read.
    std::optional<Notes> list(bool withNotes);
    OnlineSettings::QueryError deleteConfiguration(int id);
    /// 0 if none is active or it cannot be found out.
    int activeId();
    /// Adds a configuration and makes it the active one if asked, all or nothing.
    OnlineSettings::QueryError store(const SettingsAdditionalData &data, const ConfigurationImage &image,
                                     bool informUsers, bool distribute);
    /// Nothing if there is no such configuration, or its image is damaged or of another kind.
    std::optional<Configuration> fetch(int id);

private:
    bool open(const QMap<QString, QVariant> &settings);
    void close();
    void report(const char *operation);

    const QString m_connectionName;
    std::unique_ptr<ConfigurationTable> m_table;  ///< null without a connection
};

#endif
