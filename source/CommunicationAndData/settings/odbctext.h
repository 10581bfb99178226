#ifndef ODBCTEXT_H
#define ODBCTEXT_H

#include <QSqlDriver>
#include <QString>
#include <QVariant>

/// Free text over ODBC, letter by letter.
///
/// MariaDB's driver, version 3.1.15 at least, miscounts a text that holds a letter whose last byte in UTF-16
/// is D8 to DB, as in "Øst" or in much of Arabic, Hebrew, Georgian and Chinese: it adds stray bytes to what
/// is bound and cuts off the end of what is read. Bytes it leaves alone, so texts go to and come from such a
/// server as the bytes of their UTF-8.
namespace OdbcText {

/// A text as it is bound to a placeholder; never null.
QVariant toBind(QSqlDriver::DbmsType server, const QString &text);

/// What to select in place of a column that holds free text.
QString column(QSqlDriver::DbmsType server, const QString &name);

/// The text of such a column's value.
QString read(const QVariant &value);

}  // namespace OdbcText

#endif
