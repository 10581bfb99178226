#ifndef SQLSCHEMA_H
#define SQLSCHEMA_H

#include <QSqlDriver>
#include <QStringList>

class QSqlDatabase;

/// The schemas of the suite's own tables, one script a kind of server: `resources/sql/<server>/<name>.sql`,
/// which a database administrator can read and run.
namespace SqlSchema {

/// The kind of server behind a connection: SQLite, MySqlServer (MariaDB too), PostgreSQL or MSSqlServer.
/// Where the driver doesn't tell, the server is asked. UnknownDbms for any other.
QSqlDriver::DbmsType serverOf(const QSqlDatabase &database);

/// The statements of a script, without comments, in their order; empty where the server has none.
///
/// \param name  as "action_log"
QStringList statements(QSqlDriver::DbmsType server, const QString &name);

}  // namespace SqlSchema

#endif
