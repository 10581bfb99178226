#include "rawreader.h"

#include <sqlite3.h>

namespace {

long long readCell(sqlite3_stmt *statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return sqlite3_column_int64(statement, column);
    case SQLITE_FLOAT:
        return static_cast<long long>(sqlite3_column_double(statement, column));
    case SQLITE_TEXT: {
        const unsigned char *text = sqlite3_column_text(statement, column);
        return text[0] + sqlite3_column_bytes(statement, column);
    }
    case SQLITE_BLOB: {
        const void *bytes = sqlite3_column_blob(statement, column);
        return (bytes ? 1 : 0) + sqlite3_column_bytes(statement, column);
    }
    default:
        return 0;
    }
}

long long readRows(sqlite3 *connection, const char *select, long long rows)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(connection, select, -1, &statement, nullptr) != SQLITE_OK)
        return -1;
    const int columns = sqlite3_column_count(statement);
    long long sum = 0;
    int result = SQLITE_ROW;
    while (rows != 0 && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        --rows;
        for (int column = 0; column < columns; ++column)
            sum += readCell(statement, column);
    }
    sqlite3_finalize(statement);
    return result == SQLITE_DONE || rows == 0 ? sum : -1;
}

sqlite3 *openFile(const char *path, const char *const *keyStatements)
{
    sqlite3 *connection = nullptr;
    if (sqlite3_open_v2(path, &connection, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) !=
        SQLITE_OK) {
        sqlite3_close(connection);
        return nullptr;
    }
    for (; *keyStatements; ++keyStatements)
        sqlite3_exec(connection, *keyStatements, nullptr, nullptr, nullptr);
    return connection;
}

constexpr long long kAllRows = -1;

}  // namespace

long long rawReadAll(const char *path, const char *const *keyStatements, const char *select)
{
    sqlite3 *connection = openFile(path, keyStatements);
    const long long sum = connection ? readRows(connection, select, kAllRows) : -1;
    sqlite3_close(connection);
    return sum;
}

void *rawOpen(const char *path, const char *const *keyStatements)
{
    sqlite3 *connection = openFile(path, keyStatements);
    if (connection && readRows(connection, "SELECT count(*) FROM sqlite_master", kAllRows) >= 0)
        return connection;
    sqlite3_close(connection);
    return nullptr;
}

long long rawRead(void *connection, const char *select, long long rows)
{
    return readRows(static_cast<sqlite3 *>(connection), select, rows);
}

void rawClose(void *connection)
{
    sqlite3_close(static_cast<sqlite3 *>(connection));
}
