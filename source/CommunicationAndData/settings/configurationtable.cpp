#include "CommunicationAndData/settings/configurationtable.h"

#include "CommunicationAndData/settings/odbctext.h"
#include "CommunicationAndData/settings/sqlschema.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

namespace {

constexpr char kSchema[] = "configurations";
constexpr qint64 kLongestTrying = 15000;  // milliseconds
constexpr int kLongestPause = 50;         // milliseconds

constexpr int kActive = 1;

// Characters in the columns.
constexpr int kRoomForTime = 19;
constexpr int kRoomForName = 255;

/// How long a statement waits for a row or a file that somebody else holds: five seconds.
QString lockLimit(QSqlDriver::DbmsType server)
{
    switch (server) {
    case QSqlDriver::SQLite:
        return QStringLiteral("PRAGMA busy_timeout = 5000");
    case QSqlDriver::MySqlServer:
        return QStringLiteral("SET SESSION innodb_lock_wait_timeout = 5");
    case QSqlDriver::PostgreSQL:
        return QStringLiteral("SET lock_timeout = 5000");
    case QSqlDriver::MSSqlServer:
        return QStringLiteral("SET LOCK_TIMEOUT 5000");
    default:
        return QString();
    }
}

/// A text as every server takes it: without zero characters and halves of characters.
QString storable(const QString &text, int room = -1)
{
    const QByteArray bytes = text.left(room).toUtf8();
    return QString::fromUtf8(bytes.constData(), bytes.size()).remove(QChar::Null);
}

QVariantList valuesOf(const ConfigurationRecord &record, QSqlDriver::DbmsType server)
{
    return {OdbcText::toBind(server, storable(record.data.notes)),
            OdbcText::toBind(server, storable(record.data.timestamp, kRoomForTime)),
            OdbcText::toBind(server, storable(record.data.user, kRoomForName)),
            record.informUsers ? 1 : 0,
            record.active ? QVariant(kActive) : QVariant(QVariant::Int),
            record.image.checksum,
            record.image.text};
}

bool mayWorkLater(OdbcCause cause)
{
    return cause == OdbcCause::Conflict || cause == OdbcCause::Taken;
}

}  // namespace

ConfigurationTable::ConfigurationTable(const QSqlDatabase &database)
    : m_database(database)
    , m_server(SqlSchema::serverOf(database))
{}

bool ConfigurationTable::prepare()
{
    const QString limit = lockLimit(m_server);
    if (!limit.isEmpty())
        run(limit);
    if (exists())
        return true;
    const QStringList statements = SqlSchema::statements(m_server, QLatin1String(kSchema));
    const OdbcDiagnosis why = m_diagnosis;
    for (const QString &statement : statements)
        run(statement);
    const bool isThere = exists();
    if (!isThere && statements.isEmpty())
        m_diagnosis = why;
    return isThere;
}

std::optional<QMap<int, SettingsAdditionalData>> ConfigurationTable::list(bool withNotes)
{
    QSqlQuery query(m_database);
    const QString notes = withNotes ? text("notes") : QStringLiteral("''");
    if (!run(query, QStringLiteral("SELECT id, created, %1, %2 FROM configurations ORDER BY id")
                        .arg(text("creator"), notes)))
        return std::nullopt;
    QMap<int, SettingsAdditionalData> all;
    while (query.next()) {
        SettingsAdditionalData data;
        data.timestamp = query.value(1).toString();
        data.user = OdbcText::read(query.value(2));
        data.notes = OdbcText::read(query.value(3));
        all.insert(query.value(0).toInt(), data);
    }
    if (query.lastError().isValid()) {
        m_diagnosis = OdbcDiagnosis::of(query);
        return std::nullopt;
    }
    return all;
}

std::optional<int> ConfigurationTable::active()
{
    QSqlQuery query(m_database);
    if (!run(query, QStringLiteral("SELECT id FROM configurations WHERE active = 1")))
        return std::nullopt;
    return query.next() ? query.value(0).toInt() : 0;
}

std::optional<ConfigurationRecord> ConfigurationTable::find(int id)
{
    QSqlQuery query(m_database);
    if (!run(query,
             QStringLiteral("SELECT %1, created, %2, inform_users, active, checksum, image "
                            "FROM configurations WHERE id = ?")
                 .arg(text("notes"), text("creator")),
             {id}))
        return std::nullopt;
    if (!query.next()) {
        m_diagnosis = OdbcDiagnosis::of(query);
        return std::nullopt;
    }
    ConfigurationRecord record;
    record.data.notes = OdbcText::read(query.value(0));
    record.data.timestamp = query.value(1).toString();
    record.data.user = OdbcText::read(query.value(2));
    record.informUsers = query.value(3).toInt() != 0;
    record.active = query.value(4).toInt() == kActive;
    record.image.checksum = query.value(5).toString();
    record.image.text = query.value(6).toString();
    return record;
}

OnlineSettings::QueryError ConfigurationTable::insert(const ConfigurationRecord &record)
{
    if (repeat([this, &record] { return tryToInsert(record); }))
        return OnlineSettings::Success;
    switch (m_diagnosis.cause(m_server)) {
    case OdbcCause::NoRights:
    case OdbcCause::NoTable:  // which the account was not allowed to make
        return OnlineSettings::NoRights;
    case OdbcCause::Taken:
        return OnlineSettings::UnusableId;
    default:
        return OnlineSettings::ConnectionFailure;
    }
}

OnlineSettings::QueryError ConfigurationTable::remove(int id)
{
    int removed = 0;
    if (repeat([this, id, &removed] { return tryToRemove(id, &removed); }))
        return removed > 0 ? OnlineSettings::Success : whyNotRemoved(id);
    switch (m_diagnosis.cause(m_server)) {
    case OdbcCause::NoRights:
        return OnlineSettings::NoRights;
    case OdbcCause::NoTable:
        return OnlineSettings::UnusableId;
    default:
        return OnlineSettings::ConnectionFailure;
    }
}

bool ConfigurationTable::isAlive()
{
    return run(QStringLiteral("SELECT 1"));
}

QString ConfigurationTable::errorText() const
{
    return QStringLiteral("[%1, %2] %3")
        .arg(m_diagnosis.state)
        .arg(m_diagnosis.native)
        .arg(m_diagnosis.message.simplified());
}

QString ConfigurationTable::text(const char *column) const
{
    return OdbcText::column(m_server, QLatin1String(column));
}

bool ConfigurationTable::exists()
{
    return run(QStringLiteral("SELECT id FROM configurations WHERE 1 = 0"));
}

bool ConfigurationTable::run(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    if (done) {
        for (const QVariant &value : values)
            query.addBindValue(value);
        done = query.exec();
    }
    if (!done)
        m_diagnosis = OdbcDiagnosis::of(query);
    return done;
}

bool ConfigurationTable::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    return run(query, statement, values);
}

bool ConfigurationTable::begin()
{
    const bool done = m_database.transaction();
    if (!done)
        m_diagnosis = OdbcDiagnosis::of(m_database);
    return done;
}

/// PostgreSQL's driver calls a commit done that was lost together with its connection.
bool ConfigurationTable::commit()
{
    const bool done = m_database.commit();
    if (!done)
        m_diagnosis = OdbcDiagnosis::of(m_database);
    return done && isAlive();
}

void ConfigurationTable::rollBack()
{
    m_database.rollback();
}

bool ConfigurationTable::tryToInsert(const ConfigurationRecord &record)
{
    const bool done =
        begin() &&
        (!record.active || run(QStringLiteral("UPDATE configurations SET active = NULL WHERE active = 1"))) &&
        run(QStringLiteral("INSERT INTO configurations "
                           "(notes, created, creator, inform_users, active, checksum, image) "
                           "VALUES (?, ?, ?, ?, ?, ?, ?)"),
            valuesOf(record, m_server)) &&
        commit();
    if (!done)
        rollBack();
    return done;
}

bool ConfigurationTable::tryToRemove(int id, int *removed)
{
    QSqlQuery query(m_database);
    if (!run(query, QStringLiteral("DELETE FROM configurations WHERE id = ? AND active IS NULL"), {id}))
        return false;
    *removed = query.numRowsAffected();
    return true;
}

/// Two administrators at the same moment get in each other's way for milliseconds.
bool ConfigurationTable::repeat(const Attempt &attempt)
{
    QElapsedTimer trying;
    trying.start();
    while (!attempt()) {
        if (!mayWorkLater(m_diagnosis.cause(m_server)) || trying.elapsed() > kLongestTrying)
            return false;
        QThread::msleep(1 + QRandomGenerator::system()->bounded(kLongestPause));
    }
    return true;
}

OnlineSettings::QueryError ConfigurationTable::whyNotRemoved(int id)
{
    QSqlQuery query(m_database);
    if (!run(query, QStringLiteral("SELECT id FROM configurations WHERE id = ?"), {id}))
        return OnlineSettings::ConnectionFailure;
    return query.next() ? OnlineSettings::ConfigurationActive : OnlineSettings::UnusableId;
}
