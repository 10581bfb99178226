#include "CommunicationAndData/settings/odbcdiagnosis.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>
#include <QVariant>

// The calls by their own names: with UNICODE defined the headers would put those of wide characters in their
// place.
#define SQL_NOUNICODEMAP
#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <initializer_list>
#include <type_traits>

namespace {

constexpr int kStateSize = 5;

static_assert(std::is_same_v<SQLHANDLE, void *>, "Qt's driver hands its handles out as what they are");

SQLHANDLE handleIn(const QVariant &value)
{
    return value.userType() == QMetaType::VoidStar ? *static_cast<const SQLHANDLE *>(value.constData())
                                                   : nullptr;
}

OdbcDiagnosis diagnosis(SQLSMALLINT type, const QVariant &handle, const QSqlError &error)
{
    OdbcDiagnosis result;
    result.message = error.driverText() + QLatin1Char(' ') + error.databaseText();
    result.native = error.nativeErrorCode().toInt();
    SQLCHAR state[kStateSize + 1] = {};
    SQLINTEGER native = 0;
    const SQLHANDLE of = handleIn(handle);
    if (of && SQL_SUCCEEDED(SQLGetDiagRec(type, of, 1, state, &native, nullptr, 0, nullptr))) {
        result.state = QString::fromLatin1(reinterpret_cast<const char *>(state), kStateSize);
        result.native = native;
    }
    return result;
}

/// What a kind of server tells by numbers of its own.
struct ServerNumbers
{
    std::initializer_list<int> noRights;
    std::initializer_list<int> noTable;
    std::initializer_list<int> conflict;
    std::initializer_list<int> taken;
};

OdbcCause causeOfNumber(int native, const ServerNumbers &numbers)
{
    const auto isOneOf = [native](const std::initializer_list<int> &candidates) {
        return std::find(candidates.begin(), candidates.end(), native) != candidates.end();
    };
    if (isOneOf(numbers.noRights))
        return OdbcCause::NoRights;
    if (isOneOf(numbers.noTable))
        return OdbcCause::NoTable;
    if (isOneOf(numbers.conflict))
        return OdbcCause::Conflict;
    return isOneOf(numbers.taken) ? OdbcCause::Taken : OdbcCause::Other;
}

OdbcCause causeOnSqlite(int native)
{
    constexpr int kResultCode = 0xff;  // the rest of the number says more than is asked here
    constexpr int kError = 1;
    switch (native & kResultCode) {
    case 5:  // busy
    case 6:  // locked
        return OdbcCause::Conflict;
    case 3:   // permission
    case 8:   // read-only
    case 23:  // authorization
        return OdbcCause::NoRights;
    case 19:  // constraint
        return OdbcCause::Taken;
    case kError:
        return OdbcCause::NoTable;
    default:
        return OdbcCause::Other;
    }
}

OdbcCause causeOnMySql(int native)
{
    // Access denied to a database, a command, a column, a procedure, without a privilege; read-only server,
    // read-only transaction.
    const std::initializer_list<int> noRights = {1044, 1142, 1143, 1370, 1227, 1290, 1792, 1836};
    const std::initializer_list<int> noTable = {1146};
    // Record changed since, lock wait time-out, lock table full, deadlock.
    const std::initializer_list<int> conflict = {1020, 1205, 1206, 1213};
    const std::initializer_list<int> taken = {1062, 1586};
    return causeOfNumber(native, {noRights, noTable, conflict, taken});
}

OdbcCause causeOnMsSql(int native)
{
    // Permission denied on an object, a column, in a database; database read-only.
    const std::initializer_list<int> noRights = {229, 230, 262, 300, 3906};
    const std::initializer_list<int> noTable = {208};
    // Deadlock, lock time-out, snapshot conflict.
    const std::initializer_list<int> conflict = {1205, 1222, 3960};
    const std::initializer_list<int> taken = {2601, 2627};
    return causeOfNumber(native, {noRights, noTable, conflict, taken});
}

/// PostgreSQL tells everything by the state and nothing by the number.
OdbcCause causeOfState(const QString &state)
{
    // Insufficient privilege, read-only transaction.
    if (state == QLatin1String("42501") || state == QLatin1String("25006"))
        return OdbcCause::NoRights;
    if (state == QLatin1String("42P01") || state == QLatin1String("42S02"))
        return OdbcCause::NoTable;
    if (state == QLatin1String("23505"))
        return OdbcCause::Taken;
    // Serialization failure, deadlock, lock not available.
    const bool isConflict = state.startsWith(QLatin1String("40")) || state == QLatin1String("55P03");
    return isConflict ? OdbcCause::Conflict : OdbcCause::Other;
}

}  // namespace

OdbcDiagnosis OdbcDiagnosis::of(const QSqlQuery &query)
{
    return diagnosis(SQL_HANDLE_STMT, query.result()->handle(), query.lastError());
}

OdbcDiagnosis OdbcDiagnosis::of(const QSqlDatabase &database)
{
    return diagnosis(SQL_HANDLE_DBC, database.driver()->handle(), database.lastError());
}

OdbcCause OdbcDiagnosis::cause(QSqlDriver::DbmsType server) const
{
    switch (server) {
    case QSqlDriver::SQLite:
        return causeOnSqlite(native);
    case QSqlDriver::MySqlServer:
        return causeOnMySql(native);
    case QSqlDriver::MSSqlServer:
        return causeOnMsSql(native);
    default:
        return causeOfState(state);
    }
}
