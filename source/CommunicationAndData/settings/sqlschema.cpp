#include "CommunicationAndData/settings/sqlschema.h"

#include <QFile>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

/// Makes the scripts in this static library known to the program that it is linked into.
static void initResources()
{
    Q_INIT_RESOURCE(sqlschema);
}

namespace {

QString scriptFolder(QSqlDriver::DbmsType server)
{
    switch (server) {
    case QSqlDriver::SQLite:
        return QStringLiteral("sqlite");
    case QSqlDriver::MySqlServer:
        return QStringLiteral("mysql");
    case QSqlDriver::PostgreSQL:
        return QStringLiteral("postgresql");
    case QSqlDriver::MSSqlServer:
        return QStringLiteral("mssql");
    default:
        return QString();
    }
}

/// The one value that a statement gives; null where the server refuses the statement.
QString answer(const QSqlDatabase &database, const char *statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(QLatin1String(statement)) || !query.next())
        return QString();
    return query.value(0).toString();
}

QSqlDriver::DbmsType askedServer(const QSqlDatabase &database)
{
    if (!answer(database, "SELECT sqlite_version()").isNull())
        return QSqlDriver::SQLite;
    const QString version = answer(database, "SELECT version()");
    if (!version.isNull()) {
        return version.contains(QLatin1String("PostgreSQL")) ? QSqlDriver::PostgreSQL
                                                             : QSqlDriver::MySqlServer;
    }
    if (answer(database, "SELECT @@VERSION").contains(QLatin1String("Microsoft")))
        return QSqlDriver::MSSqlServer;
    return QSqlDriver::UnknownDbms;
}

QString withoutComments(QString script)
{
    static const QRegularExpression comment(QStringLiteral("--[^\n]*"));
    return script.remove(comment);
}

}  // namespace

namespace SqlSchema {

QSqlDriver::DbmsType serverOf(const QSqlDatabase &database)
{
    const QSqlDriver::DbmsType told = database.driver()->dbmsType();
    return scriptFolder(told).isEmpty() ? askedServer(database) : told;
}

QStringList statements(QSqlDriver::DbmsType server, const QString &name)
{
    initResources();
    QFile script(QStringLiteral(":/sql/%1/%2.sql").arg(scriptFolder(server), name));
    if (!script.open(QIODevice::ReadOnly))
        return {};
    QStringList statements;
    const QStringList parts =
        withoutComments(QString::fromUtf8(script.readAll())).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (!part.trimmed().isEmpty())
            statements.append(part.trimmed());
    }
    return statements;
}

}  // namespace SqlSchema
