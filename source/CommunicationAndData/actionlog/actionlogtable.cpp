#include "CommunicationAndData/actionlog/actionlogtable.h"

namespace {

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

}  // namespace ActionLogTable
