#ifndef ODBCCONNECTION_H
#define ODBCCONNECTION_H

#include <QStringList>
#include <QVariantMap>

class QSettings;
class QSqlDatabase;

/// How a set of connection parameters becomes a connection through the suite's ODBC driver.
namespace OdbcConnection {

/// The Qt driver of all online databases.
constexpr char kDriver[] = "QODBC3";

/// The connect options of a database that has none stored: two seconds for the login and for an answer.
const QStringList &defaultConnectOptions();

/// The database name of a connection: each parameter as its name, "=" and its value, in the order of the
/// names, joined by ";".
QString databaseName(const QVariantMap &parameters);

/// A database name for the audit trail and for logs: "*****" stands in place of a password among the
/// parameters.
QString withoutSecrets(QString databaseName);

/// Opens a connection whose database name is set.
///
/// A name or password with characters that mean something in a connection text is put in braces. A driver
/// that does not heed the option `SQL_ATTR_LOGIN_TIMEOUT` is given that time under its own name.
///
/// \param connectOptions  a list, or empty text
/// \return                what `QSqlDatabase::open` returned; the database's name is as before
bool open(QSqlDatabase &database, const QVariant &connectOptions, const QString &username,
          const QString &password);

/// Reads connection parameters, an array "params" of "key" and "value" in the present group.
QVariantMap readParameters(QSettings &settings);

/// Replaces the connection parameters in the present group.
void writeParameters(QSettings &settings, const QVariantMap &parameters);

}  // namespace OdbcConnection

#endif
