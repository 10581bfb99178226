#ifndef SETTINGSHANDLER_H
#define SETTINGSHANDLER_H

#include "CommunicationAndData/settings/onlinesettings.h"

#include <QMap>
#include <QObject>
#include <QVariant>

#include <memory>

class QSettings;

/// The settings store: the working settings, and the way to the online configurations.
///
/// There is one in the process. Callers fetch it at each use and never keep the pointer. No operation throws;
/// a missing key gives the default.
class SettingsHandler : public QObject
{
    Q_OBJECT

public:
    static SettingsHandler *getInstance();

    /// A plain value, or the default when there is none.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant());
    /// Writes a plain value through to the working settings. A key without a name, as "" or "/", is passed
    /// over.
    void setValue(const QString &key, const QVariant &value);

    /// The deciphered value of a safe key. A damaged or foreign stored form counts as absent: it gives the
    /// default, leaves one warning in the run-time log, and stays in the file.
    QVariant safeValue(const QString &key, const QVariant &defaultValue = QVariant());
    /// Writes a value in a form that cannot be read and that stays valid when it is copied between files.
    void setSafeValue(const QString &key, const QVariant &value);

    /// A database group as a map; its entry "params" holds the connection parameters, name to value. The
    /// group's other plain keys are in it where they are set; user name and password never are.
    QMap<QString, QVariant> databaseSettings(const QString &group);
    /// Replaces the connection parameters of a database group by the entry "params" of the map.
    void setDatabaseSettings(const QString &group, const QMap<QString, QVariant> &settings);

    /// Remembers the whole of the working settings.
    bool store();
    /// Puts the working settings back to what the last `store` remembered. Doing it again changes nothing.
    bool restore();
    /// Lets what is changed from now on stay in memory until the next `restore` takes it back: a process that
    /// is killed meanwhile leaves the file as it was.
    void holdChanges();

    /// Gives a `QDataStream` image of all settings as `QMap<QString, QVariant>`, keyed by the full key. A
    /// safe value in it has an empty `toString` and a non-empty `toByteArray`.
    ///
    /// \param image  is set to bytes that the store owns, valid until the next `stash`
    void stash(QByteArray *&image);

    /// Writes everything that is pending to the present file, lets go of it, and makes the file at `path` the
    /// working settings. A file that does not exist gives empty settings. Afterwards the former file can be
    /// moved, copied or replaced.
    void changeSettingsFile(QString path);
    /// Writes what is pending to the working settings' file. False if it cannot be written; it stays in
    /// memory then.
    bool flushSettingsFile();

    /// The working settings for direct use. The object may change at `changeSettingsFile`.
    QSettings *generalSettings();

    /// Prepares the online worker. To be called each time before a connection is made. Whoever asked
    /// something before has gone: what is still open then is done, and is not answered any more.
    void callOnlineInit();
    /// Stores the working settings, as they are at this moment, as a new configuration;
    /// `settingsOnlineStoredReady` answers.
    ///
    /// \param id          0; the database gives a new configuration its id, and no other can be used
    /// \param informUser  users are to be told of the change
    /// \param distribute  makes it the active configuration
    void storeSettingsOnline(SettingsAdditionalData data, int id, bool informUser, bool distribute);
    /// Fetches a configuration into the working settings and waits for it, within bounds;
    /// `onlineSettingsReady` answers as well, later. The former settings are remembered as by `store`, so
    /// that `restore` brings them back. On failure the working settings stay as they were.
    bool getOnlineSettings(int id);
    /// The configurations of the last `requestIDs`.
    QMap<int, SettingsAdditionalData> getOnlineNotesList();

    /// Reads the audit-trail setting again after the working settings were replaced.
    void initAuditTrailSetting();
    /// Switches the online audit trail on or off for the database with this hash. The state is kept together
    /// with the hash, so that no other database's state is changed or claimed.
    void enableAuditTrailSetting(QString databaseHash);
    void disableAuditTrailSetting(QString databaseHash);
    bool isAuditTrailSettingEnabled(QString databaseHash);

signals:
    // Requests, emitted from outside by queued connections.
    void reconnectOnline(QMap<QString, QVariant> settings);
    void requestIDs(int first, bool withNotes);
    void requestDelete(int id);
    void requestActiveId();

    // Answers.
    void onlineReconnected(bool connected);
    void onlineNotesReady(bool listReadable);
    void activeOnlineId(int id);
    void settingsDeletedOnline(int id, OnlineSettings::QueryError error);
    void settingsOnlineStoredReady(OnlineSettings::QueryError error);
    /// \param informUser  users are to be told of the change
    /// \param notes       the configuration's release notes
    void onlineSettingsReady(bool success, bool informUser, QString notes);

private:
    SettingsHandler();
    ~SettingsHandler() override;
    Q_DISABLE_COPY(SettingsHandler)

    static void endOnline();
    void reconnect(const QMap<QString, QVariant> &settings);
    void listConfigurations(bool withNotes);
    void deleteConfiguration(int id);
    void findActiveConfiguration();
    bool takeOver(const QMap<QString, QVariant> &settings);

    class Private;
    std::unique_ptr<Private> d;
};

/// Opens the local application settings, the system-scope ini file of the suite. The caller owns the object.
std::unique_ptr<QSettings> openLocalApplicationSettings();

/// False if the local application settings are there and their file, or the way to it, is barred. Opened,
/// they are empty then, whatever they hold.
bool canReadLocalApplicationSettings();

/// Opens an ini file with the encoding that all settings files of the suite have, UTF-8.
std::unique_ptr<QSettings> openSettingsFile(const QString &path);

/// Writes what is pending in settings that one of these two opened, and takes in what others wrote. False if
/// it could not be written: it is tried once more at the end, and the file stays as it was.
bool syncSettingsFile(QSettings &settings);

/// Whether a file can be a settings file: an ordinary file that can be read, no larger than one can be, and
/// text in which there is a setting or nothing to misread. A file that is damaged in places is one.
bool isSettingsFile(const QString &path);

#endif
