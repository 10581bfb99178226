#ifndef SUPPORTCONNECTIONHANDLER_H
#define SUPPORTCONNECTIONHANDLER_H

#include "CommunicationAndData/access/accessrolemodeldata.h"
#include "CommunicationAndData/access/operatormodeldata.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QDialog>
#include <QList>
#include <QMap>
#include <QMultiMap>
#include <QPair>
#include <QPointer>
#include <QSharedPointer>
#include <QSqlDatabase>
#include <QVariantMap>

#include <memory>

class AccessControlOffline;
class DatabaseGroupSettings;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSettings;
class QSqlQuery;
class QVBoxLayout;

/// The one connection through which everything that belongs to access control passes, the dialog in which
/// its parameters are edited, and the store of operators, roles, organisations and departments.
///
/// It works on the online access database over ODBC or on the encrypted offline file; both have the same
/// tables. One instance lives as long as the program. Every failure that it logs drops the connection; the
/// next operation opens the online one again, with the user name and password last given in the dialog. These
/// two live in memory alone.
class SupportConnectionHandler : public QDialog
{
    Q_OBJECT

public:
    /// Reads the connection parameters and connects to nothing. They come from the first that is there of:
    /// what this program used last (`local_cache`), the working settings, the local application settings.
    ///
    /// \param dataPath  the data directory with its trailing separator
    SupportConnectionHandler(QString dataPath, QWidget *parent);
    /// Writes the parameters last used to `local_cache` and closes the connection.
    ~SupportConnectionHandler() override;

    /// Opens the online database in place of whatever is open. A database without the five access tables
    /// counts as a failure, and so does one whose access tables may not be read. The call blocks as long as
    /// the connect options allow.
    ///
    /// \return  false after a failure, which has been logged
    bool connectOnline();
    /// Closes and forgets the connection, online or offline.
    void closeConnection();
    bool isConnected() const;
    /// Whether the offline file may be chosen: only by someone who is signed in.
    void setOfflineAllowed(bool allowed);
    /// A new button and label, kept up to date with the connection's state. The caller owns the layout.
    QVBoxLayout *createConnectionRow();

    /// The connection in use, for `AccessControl`; its address stays the same.
    QSqlDatabase *database();
    QString dataPath() const;
    /// `supportdb/sqltype` of the connection parameters.
    QVariant sqlType() const;

    // False without a connection. A failure is logged, which drops the connection.
    bool beginTransaction();
    bool commitTransaction();
    bool rollbackTransaction();

    /// Adds a row, its columns in the order of their names. False without a connection and when the statement
    /// failed; neither is logged here.
    bool insertRow(QString table, QVariantMap values);
    /// Changes the rows of one value.
    ///
    /// \param where  exactly one column and its value
    /// \return       as `insertRow`; a row that is not there is no failure
    bool updateRow(QString table, QVariantMap values, QVariantMap where);

    // Operators. Each failure is logged, which drops the connection; what is saved or deleted first connects
    // online where there is no connection.

    /// The columns of an operator, with the present time as UTC text.
    ///
    /// \param omitCreated  leaves the column `date_created` out
    QVariantMap operatorToRow(QSharedPointer<OperatorModelData> op, bool omitCreated);
    /// The live operator of a name with its roles; null without one, without a connection and on a failure.
    QSharedPointer<OperatorModelData> getOperatorByUsername(QString username);
    /// The live operator of an id, or all live ones for the nil UUID, with their roles; what was read so far
    /// when a statement failed.
    QList<QSharedPointer<OperatorModelData>> getOperators(UuidString id);
    /// All live operators. A missing connection is a failure.
    QList<QSharedPointer<OperatorModelData>> getOperators();
    /// Adds or changes an operator, and then its links to roles. The name of another live operator is
    /// refused. A failure in the links is logged and leaves the operator saved.
    bool saveOperator(QSharedPointer<OperatorModelData> op);
    /// Marks a live operator as deleted and changes its name, also in `op`, so that the name is free again.
    bool deleteOperator(QSharedPointer<OperatorModelData> op);
    /// Adds and removes links until the operator has the roles of its list, in one transaction.
    bool updateOperatorRoles(QSharedPointer<OperatorModelData> op);

    // Roles. Failures and connections are as for operators.

    /// Title and rights of a role, as columns.
    QVariantMap roleToRow(QSharedPointer<AccessRoleModelData> role);
    /// Changes a role, or adds the one whose id is 0 and gives it the id of its row.
    bool saveRole(QSharedPointer<AccessRoleModelData> role);
    /// Marks a role as deleted. Its title and its links stay.
    bool deleteRole(QSharedPointer<AccessRoleModelData> role);
    /// The first live role of a title; null without one, without a connection and on a failure.
    QSharedPointer<AccessRoleModelData> getRoleByTitle(QString title);
    /// All live roles in the order of the database. A missing connection is a failure.
    QList<QSharedPointer<AccessRoleModelData>> getRoles();

    // Organisations and departments. Failures and connections are as for operators.

    /// Whether there is a row of that id, live or deleted.
    bool organizationExists(UuidString id);
    bool departmentExists(UuidString id);
    /// Adds, changes or makes live again. Texts longer than 50 characters are cut; a null name is refused.
    bool saveOrganization(UuidString id, QString name);
    bool saveDepartment(UuidString id, QString name, QString address);
    /// Marks as deleted and replaces the name, so that it is free again. False, without a log entry, for an
    /// id that is not there.
    bool deleteOrganization(UuidString id);
    bool deleteDepartment(UuidString id);
    /// Reads the live organisations and departments.
    ///
    /// \param organizations  names by id
    /// \param departments    two texts for each id, of which `values` gives the address before the name
    /// \return               empty, or the errors joined by " | "; one table is read also when the other
    /// fails
    QString getOrganizationInfo(QMap<UuidString, QString> &organizations,
                                QMultiMap<UuidString, QString> &departments);

signals:
    /// The connection may have changed: the options dialog is over, or a failure dropped it.
    void reconnected();
    void logAction(Actions::Action action, Actions::ActionType actionType, UuidString operatorID,
                   QString databaseKey, QString databaseName, QVariant info);
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);

public slots:
    /// Lets the user edit the connection parameters, and connects with them.
    void connectionOptions();
    /// Closes the dialog with acceptance, unless the offline file is chosen without a location.
    void acceptDatabaseSettings();
    /// Drops the connection; runs after each `logError` of this object.
    void error();

protected:
    void changeEvent(QEvent *event) override;

private:
    using ConnectionRow = QPair<QPointer<QPushButton>, QPointer<QLabel>>;
    struct Unit;  // what tells organisations and departments apart

    void readConnectionSettings();
    void readParametersOfStore();
    void readParametersOfGroup(QSettings &settings, const QString &group);
    void readOfflineChoice();
    void writeConnectionSettings();
    void refreshCredentials();
    void refreshParameters();

    QVariantMap parameters() const;
    bool openOnline();
    bool hasAccessTables() const;
    void forgetConnection();
    void logConnection(Actions::Action action, Actions::ActionType type, const QString &key);
    void updateConnectionState();
    bool endTransaction(bool done, const QString &failure);
    bool checkTransaction(bool done, const QString &failure);

    bool prepare(QSqlQuery &query, const QString &statement) const;
    bool run(QSqlQuery &query, const QString &statement, const QVariantList &values = {}) const;
    static bool isReadToTheEnd(const QSqlQuery &query);
    bool insertWith(QSqlQuery &query, const QString &table, const QVariantMap &values) const;
    QString failureText(const QString &what, const QSqlQuery &query) const;
    void logFailure(Actions::Action action, const QString &what, QSqlQuery &query);
    void logStore(Actions::Action action, Actions::ActionType type, const UuidString &id,
                  const QString &info);
    bool ensureConnection();

    bool runRoles(QSqlQuery &query, QString id) const;
    bool readRoles(const OperatorModel &op);
    bool isLive(const UuidString &id);
    bool failSaving(ZephanError code);
    bool failDeleting(ZephanError code);
    bool readLinks(const UuidString &id, QList<uint> &roles);
    bool changeLinks(const UuidString &id, const QList<uint> &toRemove, const QList<uint> &toAdd);
    bool failLinks(Actions::Action action, const UuidString &id, QSqlQuery &query);

    bool failRole(Actions::Action action, ZephanError code);

    bool unitExists(const Unit &unit, const UuidString &id);
    bool saveUnit(const Unit &unit, const UuidString &id, QString name, QString address);
    bool deleteUnit(const Unit &unit, const UuidString &id);
    bool failUnit(const Unit &unit, Actions::Action action, ZephanError code);

    QHBoxLayout *addEditor();
    void removeEditor(QHBoxLayout *buttonRow);
    bool connectAsChosen();
    bool connectOffline();
    void showFailure();

    QList<ConnectionRow> m_connectionRows;
    std::unique_ptr<QSettings> m_settings;
    QString m_dataPath;
    QString m_username;
    QString m_password;
    QVariantMap m_connectionValues;
    QVariant m_connectOptions;
    QVariant m_driverParams;
    QVariant m_sqlType;
    std::unique_ptr<AccessControlOffline> m_offline;  ///< made when the offline file is first chosen
    QSqlDatabase m_database;
    bool m_inTransaction = false;
    bool m_offlineAllowed = false;
    DatabaseGroupSettings *m_groupEditor = nullptr;  ///< exists while the options dialog is open
};

#endif
