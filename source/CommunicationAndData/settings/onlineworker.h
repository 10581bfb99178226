#ifndef ONLINEWORKER_H
#define ONLINEWORKER_H

#include "CommunicationAndData/settings/onlinesettings.h"

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QVariant>

#include <optional>

/// The store's hand in the settings database. It lives on the store's own thread; every operation runs there
/// and answers by a signal.
class OnlineWorker : public QObject
{
    Q_OBJECT

public:
    /// What a fetched configuration consists of, full key to value.
    using Configuration = QMap<QString, QVariant>;

    using Notes = QMap<int, SettingsAdditionalData>;

    void reconnect(const QMap<QString, QVariant> &settings);
    void list(bool withNotes);
    void deleteConfiguration(int id);
    void findActive();
    /// \param image  the stash image of the working settings
    void store(const SettingsAdditionalData &data, const QByteArray &image, bool informUser, bool distribute);
    /// A configuration of the database; nothing if it cannot be fetched.
    std::optional<Configuration> fetch(int id);

signals:
    void reconnected(bool connected);
    /// \param notes  empty when the list could not be read
    void listed(bool readable, OnlineWorker::Notes notes);
    void deleted(int id, OnlineSettings::QueryError error);
    void activeFound(int id);
    void stored(OnlineSettings::QueryError error);
};

#endif
