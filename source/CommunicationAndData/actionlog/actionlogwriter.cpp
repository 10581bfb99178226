#include "CommunicationAndData/actionlog/actionlogwriter.h"

#include "CommunicationAndData/settings/sqlschema.h"

#include <QRandomGenerator>
#include <QUuid>

#include <array>

namespace {

constexpr int kHashWords = 8;  // of 32 bits: 64 characters

constexpr char kSelectHash[] = "SELECT hash FROM hash";

QString randomHash()
{
    std::array<quint32, kHashWords> words;
    QRandomGenerator::system()->fillRange(words.data(), kHashWords);
    const QByteArray bytes(reinterpret_cast<const char *>(words.data()), sizeof words);
    return QString::fromLatin1(bytes.toHex());
}

}  // namespace

ActionLogWriter::ActionLogWriter(const char *driver)
    : m_driver(QLatin1String(driver))
    , m_connectionName(QStringLiteral("actionlog.engine.") + QUuid::createUuid().toString(QUuid::Id128))
{}

ActionLogWriter::~ActionLogWriter()
{
    ActionLogWriter::close();
}

QSqlDatabase ActionLogWriter::addDatabase(const QString &databaseName)
{
    m_database = QSqlDatabase::addDatabase(m_driver, m_connectionName);
    m_database.setDatabaseName(databaseName);
    return m_database;
}

bool ActionLogWriter::isOpened()
{
    return keepResult(m_database.isOpen(), m_database.lastError());
}

void ActionLogWriter::close()
{
    m_insert.reset();
    if (!m_database.isValid())
        return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

bool ActionLogWriter::write(const ActionLogEntry &entry)
{
    if (!m_insert && !prepareInsert())
        return false;
    const QVariantList values = entry.values();
    for (int i = 0; i < values.size(); ++i)
        m_insert->bindValue(i, values.at(i));
    const bool done = m_insert->exec();
    const bool written = keepResult(done, m_insert->lastError());
    m_insert->finish();
    return written;
}

QString ActionLogWriter::errorText() const
{
    return m_errorText;
}

void ActionLogWriter::setErrorText(const QString &text)
{
    m_errorText = text;
}

QString ActionLogWriter::run(const QString &statement)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    const bool done = query.exec(statement);
    if (!keepResult(done, query.lastError()))
        return QString();
    QString value;
    if (query.isSelect() && query.next())
        value = query.value(0).toString();
    keepResult(true, query.lastError());
    return value;
}

/// A journal that is removed, as a log without a write-ahead one has it, has to be gone from its folder on
/// disk as well: one that a power failure brings back would take the event away again.
void ActionLogWriter::syncAtEachEvent()
{
    run(QStringLiteral("PRAGMA synchronous = EXTRA"));
}

bool ActionLogWriter::completeTables(QSqlDriver::DbmsType server)
{
    if (!hasTables()) {
        const QSqlError cause = createTables(server);
        // Another program may have made them at the same moment: what counts is that they are there.
        if (!hasTables()) {
            if (cause.type() != QSqlError::NoError)
                keepResult(false, cause);
            return false;
        }
    }
    completeHash();
    return hasTables();
}

QSqlError ActionLogWriter::createTables(QSqlDriver::DbmsType server)
{
    const QStringList statements = SqlSchema::statements(server, QLatin1String(ActionLogTable::kTable));
    for (const QString &statement : statements) {
        run(statement);
        if (!succeeded())
            break;
    }
    return error();
}

bool ActionLogWriter::hasTables()
{
    run(ActionLogTable::probeStatement());
    if (!succeeded())
        return false;
    run(QLatin1String(kSelectHash));
    return succeeded();
}

void ActionLogWriter::completeHash()
{
    const QString hash = run(QLatin1String(kSelectHash));
    if (succeeded() && hash.isEmpty())
        run(QStringLiteral("INSERT INTO hash (hash) VALUES ('%1')").arg(randomHash()));
}

bool ActionLogWriter::prepareInsert()
{
    m_insert = std::make_unique<QSqlQuery>(m_database);
    const bool done = m_insert->prepare(ActionLogTable::insertStatement());
    if (keepResult(done, m_insert->lastError()))
        return true;
    m_insert.reset();
    return false;
}

/// Some drivers fail without a word, as when the connection is gone: only both together mean success.
bool ActionLogWriter::keepResult(bool done, const QSqlError &error)
{
    m_error = error;
    if (!done && error.type() == QSqlError::NoError)
        m_error =
            QSqlError(QString(), QStringLiteral("The database gave no answer"), QSqlError::UnknownError);
    m_errorText = m_error.text().trimmed();
    return succeeded();
}
