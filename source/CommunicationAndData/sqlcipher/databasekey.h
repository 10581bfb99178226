#ifndef DATABASEKEY_H
#define DATABASEKEY_H

#include <QStringList>

class QSqlDatabase;

/// The Qt SQL driver of the suite's encrypted SQLite files.
constexpr char kEncryptedDriver[] = "QSQLCIPHER";

/// The key that all encrypted database files of the suite share, 16 characters of Base64.
///
/// It is built at run time from a seed and a base byte and stands nowhere whole.
QString databaseKey();

/// The statements that unlock an encrypted file, to be run in this order directly after it was opened.
QStringList databaseKeyStatements();

#endif
