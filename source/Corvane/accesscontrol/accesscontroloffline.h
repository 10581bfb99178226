#ifndef ACCESSCONTROLOFFLINE_H
#define ACCESSCONTROLOFFLINE_H

#include <QMap>
#include <QObject>
#include <QSqlDatabase>
#include <QStringList>

/// File name of the offline access database.
constexpr char kOfflineAccessFile[] = "offline.access.db";

/// The access database of a single workstation: the encrypted file `offline.access.db` in a directory.
///
/// Opening it creates what is missing, so that an empty directory becomes a working access database with
/// three default roles. While a copy of `database()` is in use, this object has to live.
class AccessControlOffline : public QObject
{
    Q_OBJECT

public:
    /// \param connectionName  keeps the connections of several users of this class apart
    explicit AccessControlOffline(QString connectionName, QObject *parent = nullptr);
    /// Closes the database.
    ~AccessControlOffline() override;

    /// Opens the file in a directory, which is made when it is missing, and creates the missing tables and
    /// an index. Data, further columns and further tables of an existing file stay as they are.
    ///
    /// \param location      the directory; empty for `defaultOfflineLocation()`
    /// \param errorMessage  set to the reason of a failure, else left alone
    /// \return              false on failure. When tables or roles could not be made, as with a damaged file
    ///                      or a foreign key, the connection stays open nevertheless, with the tables made so
    ///                      far; the roles' own table is there with its three roles or not at all
    bool openOfflineDatabase(QString location, QString &errorMessage);
    void closeOfflineDatabase();
    QSqlDatabase &database();

    /// The statement that creates each table, by the table's name.
    static QMap<QString, QString> offlineTableStatements();
    /// The statements that add the default roles Nurse, Doctor and Admin, in this order.
    static QStringList defaultRoleStatements();
    /// `Halvorn/Databases` below the folder of the environment variable `ProgramData`, in native separators.
    static QString defaultOfflineLocation();

private:
    void connectTo(const QString &path);
    void unlock();
    bool createMissingTables(QString &errorMessage);
    bool createRoles(QString &errorMessage);
    void createIndex();
    bool run(const QStringList &statements);

    QSqlDatabase m_database;
    QString m_connectionName;
};

#endif
