#include "actionlogreader.h"

#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>
#include <QVariant>

namespace {

QString joinedValues(const QSqlQuery &query)
{
    QStringList values;
    for (int column = 0; column < query.record().count(); ++column)
        values.append(query.value(column).toString());
    return values.join(QLatin1Char('|'));
}

}  // namespace

TestDatabase::TestDatabase(const QString &driver, const QString &databaseName)
    : m_name(QUuid::createUuid().toString())
{
    QSqlDatabase database = QSqlDatabase::addDatabase(driver, m_name);
    database.setDatabaseName(databaseName);
    database.open();
}

TestDatabase::~TestDatabase()
{
    connection().close();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase TestDatabase::connection() const
{
    return QSqlDatabase::database(m_name, false);
}

QStringList TestDatabase::run(const QString &statement)
{
    QSqlQuery query(connection());
    if (!query.exec(statement))
        return {QStringLiteral("failed: ") + query.lastError().text()};
    QStringList rows;
    while (query.next())
        rows.append(joinedValues(query));
    return rows;
}

EncryptedFile::EncryptedFile(const QString &path, const QString &key)
    : TestDatabase(QLatin1String(kEncryptedDriver), path)
{
    QStringList statements = databaseKeyStatements();
    if (!key.isNull())
        statements.replace(0, QStringLiteral("PRAGMA key = '%1'").arg(key));
    for (const QString &statement : statements)
        run(statement);
}

QStringList readActionLog(const QString &path, const QString &columns)
{
    EncryptedFile database(path);
    return database.run(QStringLiteral("SELECT %1 FROM action_log ORDER BY rowid").arg(columns));
}
