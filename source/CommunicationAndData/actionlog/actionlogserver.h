#ifndef ACTIONLOGSERVER_H
#define ACTIONLOGSERVER_H

#include "CommunicationAndData/actionlog/actionlogwriter.h"

/// The audit trail of the site: the `actiondb` connection of the settings store, over ODBC.
///
/// The tables are made when they are missing and the account may do so. A connection that was lost, as an
/// idle one is overnight, is opened once more before an event counts as not written.
class ActionLogServer : public ActionLogWriter
{
public:
    /// Reads the connection from the settings store.
    ActionLogServer();

    Opening open() override;
    bool write(const ActionLogEntry &entry) override;

private:
    bool connect();
    bool isConnectionLost();

    const QString m_databaseName;
    const QVariant m_connectOptions;
    const QString m_username;
    const QString m_password;
    QSqlDriver::DbmsType m_server = QSqlDriver::UnknownDbms;
};

#endif
