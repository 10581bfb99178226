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

/// How long an answer is waited for once a connection is open.
enum AnswerTime {
    AnyTime,       ///< as long as the driver waits: for searches and for what must not be given up
    AsOptionsSay,  ///< the seconds of `SQL_ATTR_CONNECTION_TIMEOUT`: for short statements on the GUI thread
};

/// Opens a connection whose database name is set.
///
/// A name or password with characters that mean something in a connection text is put in braces. A driver
/// that does not heed the options `SQL_ATTR_LOGIN_TIMEOUT` and `SQL_ATTR_CONNECTION_TIMEOUT` is given these
/// times under its own names, unless they stand among the parameters. PostgreSQL's driver knows no limit of
/// an answer; it is given the time after which a host that is out of reach counts as lost.
///
/// \param connectOptions  a list, or empty text
/// \return                what `QSqlDatabase::open` returned; the database's name is as before
bool open(QSqlDatabase &database, const QVariant &connectOptions, const QString &username,
          const QString &password, AnswerTime answerTime = AnyTime);

/// Reads connection parameters, an array "params" of "key" and "value" in the present group.
QVariantMap readParameters(QSettings &settings);

/// Replaces the connection parameters in the present group.
void writeParameters(QSettings &settings, const QVariantMap &parameters);

}  // namespace OdbcConnection

#endif
