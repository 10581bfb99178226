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

long long readRows(sqlite3 *connection, const char *select)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(connection, select, -1, &statement, nullptr) != SQLITE_OK)
        return -1;
    const int columns = sqlite3_column_count(statement);
    long long sum = 0;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column)
            sum += readCell(statement, column);
    }
    sqlite3_finalize(statement);
    return result == SQLITE_DONE ? sum : -1;
}

}  // namespace

long long rawReadAll(const char *path, const char *const *keyStatements, const char *select)
{
    sqlite3 *connection = nullptr;
    long long sum = -1;
    if (sqlite3_open_v2(path, &connection, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) ==
        SQLITE_OK) {
        for (; *keyStatements; ++keyStatements)
            sqlite3_exec(connection, *keyStatements, nullptr, nullptr, nullptr);
        sum = readRows(connection, select);
    }
    sqlite3_close(connection);
    return sum;
}
