#ifndef SUPPORTCONNECTIONHANDLER_H
#define SUPPORTCONNECTIONHANDLER_H

#include "CommunicationAndData/actionlog/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QDialog>
#include <QList>
#include <QPair>
#include <QPointer>
#include <QSqlDatabase>
#include <QVariantMap>

#include <memory>

class AccessControlOffline;
class DatabaseGroupSettings;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSettings;
class QVBoxLayout;

/// The one connection through which everything that belongs to access control passes, and the dialog in which
/// its parameters are edited.
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
    bool checkTransaction(bool done, const QString &failure);

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
    bool m_offlineAllowed = false;
    DatabaseGroupSettings *m_groupEditor = nullptr;  ///< exists while the options dialog is open
};

#endif
