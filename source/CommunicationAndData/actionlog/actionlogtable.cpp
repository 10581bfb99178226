#include "CommunicationAndData/actionlog/actionlogtable.h"

#include <QFile>
#include <QRegularExpression>

/// Makes the resources of this static library known to the program that it is linked into.
static void initResources()
{
    Q_INIT_RESOURCE(actionlog);
}

namespace {

QString scriptFolder(QSqlDriver::DbmsType type)
{
    switch (type) {
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

QString withoutComments(QString script)
{
    static const QRegularExpression comment(QStringLiteral("--[^\n]*"));
    return script.remove(comment);
}

/// A null text would become a null value, and no column takes one.
QString notNull(const QString &text)
{
    return text.isNull() ? QLatin1String("") : text;
}

}  // namespace

QVariantList ActionLogEntry::values() const
{
    return {time.toUTC().toString(QLatin1String(ActionLogTable::kTimeFormat)),
            category,
            level,
            action,
            actionType,
            operatorId.toString(),
            notNull(operatorName),
            notNull(system),
            databaseKey.toString(),
            notNull(info),
            notNull(targetDatabase),
            notNull(targetServer)};
}

namespace ActionLogTable {

const QStringList &columns()
{
    static const QStringList names = {QStringLiteral("timestamp_action"), QStringLiteral("category"),
                                      QStringLiteral("action_level"),     QStringLiteral("action"),
                                      QStringLiteral("action_type"),      QStringLiteral("operator"),
                                      QStringLiteral("operator_name"),    QStringLiteral("system"),
                                      QStringLiteral("database_key"),     QStringLiteral("info"),
                                      QStringLiteral("target_database"),  QStringLiteral("target_server")};
    return names;
}

QString insertStatement()
{
    QStringList placeholders;
    for (int i = 0; i < columns().size(); ++i)
        placeholders.append(QStringLiteral("?"));
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(QLatin1String(kTable), columns().join(QLatin1String(", ")),
             placeholders.join(QLatin1String(", ")));
}

QString probeStatement()
{
    return QStringLiteral("SELECT %1 FROM %2 WHERE 1 = 0")
        .arg(columns().join(QLatin1String(", ")), QLatin1String(kTable));
}

QStringList creationStatements(QSqlDriver::DbmsType type)
{
    initResources();
    QFile script(QStringLiteral(":/sql/%1/action_log.sql").arg(scriptFolder(type)));
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

}  // namespace ActionLogTable
