#ifndef SUPPORTCONNECTIONHANDLER_H
#define SUPPORTCONNECTIONHANDLER_H

#include "CommunicationAndData/actionlog/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QDialog>
#include <QList>
#include <QPair>
#include <QSqlDatabase>
#include <QVariantMap>

class AccessControlOffline;
class DatabaseGroupSettings;
class QLabel;
class QPushButton;
class QSettings;
class QVBoxLayout;

/// The one connection through which everything that belongs to access control passes, and the dialog in which
/// its parameters are edited.
///
/// It works on the online access database over ODBC or on the encrypted offline file; both have the same
/// tables. One instance lives as long as the program. Every failure that it logs drops the connection; the
/// next operation opens the online one again.
class SupportConnectionHandler : public QDialog
{
    Q_OBJECT

public:
    /// \param dataPath  the data directory with its trailing separator
    SupportConnectionHandler(QString dataPath, QWidget *parent);
    ~SupportConnectionHandler() override;

    bool connectOnline();
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

    bool beginTransaction();
    bool commitTransaction();
    bool rollbackTransaction();

signals:
    void reconnected();
    void logAction(Actions::Action action, Actions::ActionType actionType, UuidString operatorID,
                   QString databaseKey, QString databaseName, QVariant info);
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);

public slots:
    void connectionOptions();
    void acceptDatabaseSettings();
    void error();

private:
    QList<QPair<QPushButton *, QLabel *>> m_connectionRows;
    QSettings *m_settings = nullptr;
    QString m_dataPath;
    QString m_username;
    QString m_password;
    QVariantMap m_connectionValues;
    QVariant m_connectOptions;
    QVariant m_driverParams;
    QVariant m_sqlType;
    AccessControlOffline *m_offline = nullptr;
    QSqlDatabase m_database;
    bool m_offlineAllowed = false;
    DatabaseGroupSettings *m_groupEditor = nullptr;
};

#endif
