#include "CommunicationAndData/sqlcipher/sqlcipherdriver.h"

#include "CommunicationAndData/sqlcipher/sqlcipherbinding.h"
#include "CommunicationAndData/sqlcipher/sqlcipherresult.h"
#include "CommunicationAndData/sqlcipher/sqlidentifier.h"

#include <QDateTime>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>
#include <algorithm>
#include <cmath>
#include <openssl/crypto.h>
#include <sqlite3.h>

namespace {

constexpr int kBusyTimeout = 5000;  // milliseconds

// Columns of "PRAGMA table_info".
constexpr int kInfoName = 1;
constexpr int kInfoType = 2;
constexpr int kInfoNotNull = 3;
constexpr int kInfoDefault = 4;
constexpr int kInfoKeyPosition = 5;  // from 1; 0 for a column outside the primary key

struct OpenOptions
{
    int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    int busyTimeout = kBusyTimeout;
};

void readOption(const QString &text, OpenOptions &options)
{
    const QString name = text.section(QLatin1Char('='), 0, 0).trimmed();
    if (name == QLatin1String("QSQLITE_BUSY_TIMEOUT")) {
        bool isNumber = false;
        const int timeout = text.section(QLatin1Char('='), 1).trimmed().toInt(&isNumber);
        if (isNumber)
            options.busyTimeout = timeout;
    } else if (name == QLatin1String("QSQLITE_OPEN_READONLY")) {
        options.flags &= ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        options.flags |= SQLITE_OPEN_READONLY;
    } else if (name == QLatin1String("QSQLITE_OPEN_URI")) {
        options.flags |= SQLITE_OPEN_URI;
    } else {
        qWarning("QSQLCIPHER: the connect option %s is not known", qPrintable(name));
    }
}

OpenOptions readOptions(const QString &text)
{
    OpenOptions options;
    const QStringList parts = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts)
        readOption(part, options);
    // A connection belongs to one thread, as Qt asks of it, so SQLite needs no lock of its own around it.
    options.flags |= SQLITE_OPEN_NOMUTEX;
    return options;
}

/// The text of a default that is a text literal; any other expression as it stands.
QString defaultText(const QString &expression)
{
    const QLatin1Char quote('\'');
    if (expression.size() < 2 || !expression.startsWith(quote) || !expression.endsWith(quote))
        return expression;
    return expression.mid(1, expression.size() - 2).replace(QLatin1String("''"), QString(quote));
}

QSqlField columnOf(const QSqlQuery &info, const QString &tableName)
{
    QSqlField column(info.value(kInfoName).toString(), declaredColumnType(info.value(kInfoType).toString()),
                     tableName);
    column.setRequired(info.value(kInfoNotNull).toInt() != 0);
    column.setDefaultValue(defaultText(info.value(kInfoDefault).toString()));
    return column;
}

struct KeyColumn
{
    int position;
    QSqlField column;
};

/// What a table is made of.
struct TableInfo
{
    std::vector<QSqlField> columns;
    std::vector<KeyColumn> key;
};

TableInfo readTableInfo(const SqlCipherDriver &driver, const QString &tableName)
{
    const QualifiedName name = splitTableName(tableName);
    const QString owner = isDelimitedIdentifier(tableName) ? name.table : tableName;
    const QString schema =
        name.schema.isEmpty() ? QString() : quotedIdentifier(name.schema) + QLatin1Char('.');
    TableInfo table;
    QSqlQuery info(driver.createResult());
    info.setForwardOnly(true);
    info.exec(QStringLiteral("PRAGMA %1table_info(%2)").arg(schema, quotedIdentifier(name.table)));
    QStringList keyTypes;
    while (info.next()) {
        table.columns.push_back(columnOf(info, owner));
        const int position = info.value(kInfoKeyPosition).toInt();
        if (position > 0) {
            table.key.push_back({position, table.columns.back()});
            keyTypes.append(info.value(kInfoType).toString().toLower());
        }
    }
    // A lone INTEGER PRIMARY KEY is the row's own number, which SQLite gives; an INT PRIMARY KEY isn't.
    if (keyTypes == QStringList{QStringLiteral("integer")}) {
        const QString key = table.key.front().column.name();
        table.key.front().column.setAutoValue(true);
        for (QSqlField &column : table.columns)
            column.setAutoValue(column.name() == key);
    }
    return table;
}

QString blobLiteral(const QByteArray &bytes)
{
    return QStringLiteral("X'%1'").arg(QString::fromLatin1(bytes.toHex()));
}

QString textLiteral(const QString &text)
{
    // A statement ends at a zero character, so a text with one goes by its bytes.
    if (text.contains(QChar(0)))
        return QStringLiteral("CAST(%1 AS TEXT)").arg(blobLiteral(text.toUtf8()));
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

QString realLiteral(double value)
{
    if (std::isnan(value))
        return QStringLiteral("NULL");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-9e999") : QStringLiteral("9e999");
    const QString digits = QString::number(value, 'g', 17);
    const bool looksWhole = !digits.contains(QLatin1Char('.')) && !digits.contains(QLatin1Char('e'));
    return looksWhole ? digits + QLatin1String(".0") : digits;
}

QString trimmedAtEnd(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

}  // namespace

SqlCipherDriver::SqlCipherDriver(QObject *parent)
    : QSqlDriver(parent)
{}

SqlCipherDriver::~SqlCipherDriver()
{
    close();
    for (SqlCipherResult *result : m_results)
        result->leaveDriver();
}

bool SqlCipherDriver::hasFeature(DriverFeature feature) const
{
    switch (feature) {
    case BLOB:
    case Transactions:
    case Unicode:
    case LastInsertId:
    case PreparedQueries:
    case NamedPlaceholders:
    case PositionalPlaceholders:
    case SimpleLocking:
    case FinishQuery:
    case LowPrecisionNumbers:
        return true;
    case QuerySize:
    case BatchOperations:
    case EventNotifications:
    case MultipleResultSets:
    case CancelQuery:
        return false;
    }
    return false;
}

bool SqlCipherDriver::open(const QString &db, const QString &, const QString &, const QString &, int,
                           const QString &connOpts)
{
    close();
    const OpenOptions options = readOptions(connOpts);
    if (sqlite3_open_v2(db.toUtf8().constData(), &m_connection, options.flags, nullptr) != SQLITE_OK) {
        setLastError(sqlCipherError(m_connection, tr("Error opening database"), QSqlError::ConnectionError));
        sqlite3_close(m_connection);
        m_connection = nullptr;
        setOpenError(true);
        return false;
    }
    sqlite3_busy_timeout(m_connection, options.busyTimeout);
    setOpen(true);
    setOpenError(false);
    return true;
}

void SqlCipherDriver::close()
{
    if (!m_connection)
        return;
    for (SqlCipherResult *result : m_results)
        result->invalidate();
    if (sqlite3_close(m_connection) != SQLITE_OK) {
        setLastError(sqlCipherError(m_connection, tr("Error closing database"), QSqlError::ConnectionError));
        sqlite3_close_v2(m_connection);  // goes when the last statement made through handle() does
    }
    m_connection = nullptr;
    setOpen(false);
    setOpenError(false);
    // What the library of ciphers keeps for this thread would otherwise be freed when the thread has told
    // that it is done, and a process that ends at that moment frees it as well.
    OPENSSL_thread_stop();
}

QSqlResult *SqlCipherDriver::createResult() const
{
    return new SqlCipherResult(this);
}

bool SqlCipherDriver::beginTransaction()
{
    return runTransactionStatement("BEGIN", tr("Unable to begin transaction"));
}

bool SqlCipherDriver::commitTransaction()
{
    return runTransactionStatement("COMMIT", tr("Unable to commit transaction"));
}

bool SqlCipherDriver::rollbackTransaction()
{
    return runTransactionStatement("ROLLBACK", tr("Unable to rollback transaction"));
}

QStringList SqlCipherDriver::tables(QSql::TableType tableType) const
{
    QStringList types;
    if (tableType & QSql::Tables)
        types.append(QStringLiteral("(type = 'table' AND name NOT LIKE 'sqlite~_%' ESCAPE '~')"));
    if (tableType & QSql::Views)
        types.append(QStringLiteral("type = 'view'"));
    if (tableType & QSql::SystemTables)
        types.append(QStringLiteral("(type = 'table' AND name LIKE 'sqlite~_%' ESCAPE '~')"));
    if (types.isEmpty() || !isOpen())
        return {};

    QSqlQuery names(createResult());
    names.setForwardOnly(true);
    names.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE %1 "
                              "UNION ALL SELECT name FROM sqlite_temp_master WHERE %1")
                   .arg(types.join(QLatin1String(" OR "))));
    QStringList result;
    while (names.next())
        result.append(names.value(0).toString());
    // The table of all tables doesn't list itself.
    if (tableType & QSql::SystemTables)
        result.append(QStringLiteral("sqlite_master"));
    return result;
}

QSqlRecord SqlCipherDriver::record(const QString &tableName) const
{
    QSqlRecord record;
    if (!isOpen())
        return record;
    const TableInfo table = readTableInfo(*this, tableName);
    for (const QSqlField &column : table.columns)
        record.append(column);
    return record;
}

QSqlIndex SqlCipherDriver::primaryIndex(const QString &tableName) const
{
    QSqlIndex index;
    if (!isOpen())
        return index;
    TableInfo table = readTableInfo(*this, tableName);
    std::sort(table.key.begin(), table.key.end(),
              [](const KeyColumn &left, const KeyColumn &right) { return left.position < right.position; });
    for (const KeyColumn &key : table.key)
        index.append(key.column);
    return index;
}

QString SqlCipherDriver::formatValue(const QSqlField &field, bool trimStrings) const
{
    if (field.isNull())
        return QStringLiteral("NULL");
    const QVariant value = field.value();
    switch (value.userType()) {
    case QMetaType::QByteArray:
        return blobLiteral(value.toByteArray());
    case QMetaType::Bool:
        return QString::number(value.toInt());
    case QMetaType::Float:
    case QMetaType::Double:
        return realLiteral(value.toDouble());
    case QMetaType::QTime:
        return textLiteral(value.toTime().toString(Qt::ISODateWithMs));
    case QMetaType::QDateTime:
        return textLiteral(value.toDateTime().toString(Qt::ISODateWithMs));
    case QMetaType::QString:
        return textLiteral(trimStrings ? trimmedAtEnd(value.toString()) : value.toString());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toString();
    default:
        return textLiteral(value.toString());
    }
}

QString SqlCipherDriver::escapeIdentifier(const QString &identifier, IdentifierType type) const
{
    if (type != TableName || isDelimitedIdentifier(identifier))
        return quotedIdentifier(identifier);
    const QualifiedName name = splitTableName(identifier);
    const QString table = quotedIdentifier(name.table);
    return name.schema.isEmpty() ? table : quotedIdentifier(name.schema) + QLatin1Char('.') + table;
}

bool SqlCipherDriver::isIdentifierEscaped(const QString &identifier, IdentifierType) const
{
    return isDelimitedIdentifier(identifier);
}

QString SqlCipherDriver::stripDelimiters(const QString &identifier, IdentifierType) const
{
    return strippedIdentifier(identifier);
}

QVariant SqlCipherDriver::handle() const
{
    return QVariant::fromValue(m_connection);
}

bool SqlCipherDriver::runTransactionStatement(const char *sql, const QString &failure)
{
    if (!isOpen() || isOpenError())
        return false;
    if (sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    setLastError(sqlCipherError(m_connection, failure, QSqlError::TransactionError));
    return false;
}

void SqlCipherDriver::addResult(SqlCipherResult *result) const
{
    m_results.push_back(result);
}

void SqlCipherDriver::removeResult(SqlCipherResult *result) const
{
    m_results.erase(std::remove(m_results.begin(), m_results.end(), result), m_results.end());
}
