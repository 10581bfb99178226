#ifndef SQLCIPHERBINDING_H
#define SQLCIPHERBINDING_H

#include <QSqlError>
#include <QVariant>

struct sqlite3;
struct sqlite3_stmt;

/// Where a value meets SQLite: its storage classes on one side, Qt's types on the other.

/// Binds \p value to the parameter \p index (from 1) of \p statement.
///
/// Whole numbers become integers (an unsigned one above the 64-bit range, text), floating ones reals, byte
/// arrays blobs, dates and times ISO 8601 text with milliseconds, all others their text; a null value becomes
/// NULL. \return a SQLite result code; SQLITE_MISMATCH for a value that has no text form
int bindVariant(sqlite3_stmt *statement, int index, const QVariant &value);

/// A real as \p policy wants it read: double, or cut to 64 or 32 bits.
QVariant realToVariant(double value, QSql::NumericalPrecisionPolicy policy);

/// Qt's type of a column that was declared with \p declaredType, in the way that QSQLITE tells it.
QVariant::Type declaredColumnType(const QString &declaredType);

/// Qt's type of a column without a declaration, from the storage class of its first value (0 for no value).
QVariant::Type storedColumnType(int storageClass);

/// The connection's latest error with its number and text behind \p text.
QSqlError sqlCipherError(sqlite3 *connection, const QString &text, QSqlError::ErrorType type);

#endif
