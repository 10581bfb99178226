#ifndef ODBCDIAGNOSIS_H
#define ODBCDIAGNOSIS_H

#include <QSqlDriver>
#include <QString>

class QSqlDatabase;
class QSqlQuery;

/// What lies behind a failure, whatever server and driver it came from.
enum class OdbcCause {
    NoRights,  ///< the account, or the whole database, may not do this
    NoTable,   ///< a table that is named is not there
    Conflict,  ///< somebody else was at it at the same time; it may work when it is tried again
    Taken,     ///< a value that must be unique is there already
    Other      ///< anything else, a lost connection included
};

/// Why a statement or a commit failed, as the ODBC driver tells it. Qt's own error has the driver's number
/// and text; the SQL state, which some drivers tell everything by, has to be asked for.
struct OdbcDiagnosis
{
    QString state;    ///< SQL state, five characters; empty where the driver gives none
    int native = 0;   ///< the server's number
    QString message;  ///< the driver's text

    /// To be made before the query or the connection is used again.
    static OdbcDiagnosis of(const QSqlQuery &query);
    static OdbcDiagnosis of(const QSqlDatabase &database);

    OdbcCause cause(QSqlDriver::DbmsType server) const;
};

#endif
