#ifndef SQLCIPHERBINDING_H
#define SQLCIPHERBINDING_H

#include "CommunicationAndData/sqlcipher/rowstore.h"

#include <QSqlError>
#include <QVariant>
#include <sqlite3.h>

/// Where a value meets SQLite: its storage classes on one side, Qt's types on the other.

/// Binds \p value to the parameter \p index (from 1) of \p statement.
///
/// Whole numbers become integers (an unsigned one above the 64-bit range, text), floating ones reals, byte
/// arrays blobs, dates and times ISO 8601 text with milliseconds, all others their text; a null value becomes
/// NULL. \return a SQLite result code; SQLITE_MISMATCH for a value that has no text form
int bindVariant(sqlite3_stmt *statement, int index, const QVariant &value);

/// A value as Qt has it: a 64-bit number, a text or bytes; NULL is a null text, and a real is cut to 64 or 32
/// bits where \p policy wants that.
QVariant valueToVariant(sqlite3_value *value, QSql::NumericalPrecisionPolicy policy);
/// The same of a value that was stored.
QVariant cellToVariant(const RowStore::Cell &cell, QSql::NumericalPrecisionPolicy policy);

/// Qt's type of a column that was declared with \p declaredType, in the way that QSQLITE tells it.
QVariant::Type declaredColumnType(const QString &declaredType);

/// Qt's type of a column without a declaration, from the storage class of its first value (0 for no value).
QVariant::Type storedColumnType(int storageClass);

/// The connection's latest error with its number and text behind \p text.
QSqlError sqlCipherError(sqlite3 *connection, const QString &text, QSqlError::ErrorType type);

#endif
