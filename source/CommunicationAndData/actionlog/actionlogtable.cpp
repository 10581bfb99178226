#include "CommunicationAndData/actionlog/actionlogtable.h"

#include "ZephanShared/toolkit/plaintime.h"

namespace {

constexpr char kSeparator[] = ", ";

/// A null text would become a null value, and no column takes one.
QString notNull(const QString &text)
{
    return text.isNull() ? QLatin1String("") : text;
}

QString insertInto()
{
    return QStringLiteral("INSERT INTO %1 (%2) ")
        .arg(QLatin1String(ActionLogTable::kTable),
             ActionLogTable::columns().join(QLatin1String(kSeparator)));
}

/// The text once for each column.
QString repeated(const QString &text)
{
    QStringList texts;
    for (int i = 0; i < ActionLogTable::columns().size(); ++i)
        texts.append(text);
    return texts.join(QLatin1String(kSeparator));
}

}  // namespace

QVariantList ActionLogEntry::values() const
{
    return {plainText(time.toUTC(), QLatin1String(ActionLogTable::kTimeFormat)),
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
    return insertInto() + QStringLiteral("VALUES (%1)").arg(repeated(QStringLiteral("?")));
}

QString probeStatement()
{
    return insertInto() + QStringLiteral("SELECT %1 WHERE 1 = 0").arg(repeated(QStringLiteral("NULL")));
}

}  // namespace ActionLogTable
