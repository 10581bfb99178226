#include "CommunicationAndData/sqlcipher/sqlcipherresult.h"

#include "CommunicationAndData/sqlcipher/sqlcipherbinding.h"
#include "CommunicationAndData/sqlcipher/sqlcipherdriver.h"

#include <QCoreApplication>
#include <QHash>
#include <QSqlField>
#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("SqlCipherResult", text);
}

const char *skipLine(const char *text)
{
    while (*text && *text != '\n')
        ++text;
    return text;
}

const char *skipBlockComment(const char *text)
{
    const char *end = std::strstr(text + 2, "*/");
    return end ? end + 2 : text + std::strlen(text);
}

/// Whether nothing but space, comments and semicolons follows a statement.
bool holdsNoStatement(const char *text)
{
    while (*text) {
        if (std::strncmp(text, "--", 2) == 0)
            text = skipLine(text);
        else if (std::strncmp(text, "/*", 2) == 0)
            text = skipBlockComment(text);
        else if (*text == ';' || std::isspace(static_cast<unsigned char>(*text)))
            ++text;
        else
            return false;
    }
    return true;
}

QString columnText(const char *utf8)
{
    return QString::fromUtf8(utf8).remove(QLatin1Char('"'));
}

}  // namespace

SqlCipherResult::SqlCipherResult(const SqlCipherDriver *driver)
    : QSqlResult(driver)
    , m_driver(driver)
{
    m_driver->addResult(this);
}

SqlCipherResult::~SqlCipherResult()
{
    finalizeStatement();
    if (m_driver)
        m_driver->removeResult(this);
}

QVariant SqlCipherResult::handle() const
{
    return QVariant::fromValue(m_statement);
}

bool SqlCipherResult::reset(const QString &query)
{
    return prepare(query) && exec();
}

/// Qt hands over a text in which it has made names of question marks. SQLite knows both, so the statement
/// goes to it as it was written.
bool SqlCipherResult::prepare(const QString &)
{
    finalizeStatement();
    setActive(false);
    setSelect(false);
    setAt(QSql::BeforeFirstRow);
    if (!connection()) {
        setLastError(QSqlError(tr("Unable to execute statement"), tr("The connection is closed"),
                               QSqlError::ConnectionError));
        return false;
    }

    const QByteArray sql = lastQuery().toUtf8();
    const char *rest = nullptr;
    if (sqlite3_prepare_v2(connection(), sql.constData(), sql.size() + 1, &m_statement, &rest) != SQLITE_OK)
        return fail(tr("Unable to execute statement"), QSqlError::StatementError);
    if (!holdsNoStatement(rest)) {
        finalizeStatement();
        setLastError(QSqlError(tr("Unable to execute multiple statements at a time"), QString(),
                               QSqlError::StatementError, QString::number(SQLITE_MISUSE)));
        return false;
    }
    locatePlaceholders();
    return true;
}

bool SqlCipherResult::exec()
{
    setLastError(QSqlError());
    setActive(false);
    setAt(QSql::BeforeFirstRow);
    forgetRows();
    if (!m_statement) {
        setLastError(QSqlError(tr("Unable to fetch row"), tr("No query"), QSqlError::ConnectionError));
        return false;
    }
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
    return bindValues() && start();
}

bool SqlCipherResult::execBatch(bool)
{
    const QVector<QVariant> columns = boundValues();
    QVector<QVariantList> lists;
    for (const QVariant &column : columns)
        lists.append(column.toList());
    const auto isShorter = [&](const QVariantList &list) {
        return list.size() != lists.first().size();
    };
    if (lists.isEmpty() || std::any_of(lists.cbegin(), lists.cend(), isShorter)) {
        setLastError(QSqlError(tr("Parameter count mismatch"), QString(), QSqlError::StatementError));
        return false;
    }
    bool isDone = true;
    for (int row = 0; isDone && row < lists.first().size(); ++row) {
        for (int column = 0; column < lists.size(); ++column)
            boundValues()[column] = lists.at(column).at(row);
        isDone = exec();
    }
    boundValues() = columns;
    return isDone;
}

void SqlCipherResult::setAt(int row)
{
    QSqlResult::setAt(row);
    const bool isStatementRow = row >= 0 && row == m_statementRow;
    m_readsStatement = isStatementRow && !m_atEnd;
    if (m_keepsRows)
        m_storedRow = row < m_rows.count() ? row : -1;
    else
        m_storedRow = isStatementRow && m_rows.count() > 0 ? 0 : -1;
}

QVariant SqlCipherResult::data(int column)
{
    if (column < 0 || column >= m_columns)
        return QVariant();
    if (m_readsStatement)
        return valueToVariant(statementValue(column), numericalPrecisionPolicy());
    if (m_storedRow >= 0)
        return cellToVariant(m_rows.cell(m_storedRow, column), numericalPrecisionPolicy());
    return QVariant();
}

bool SqlCipherResult::isNull(int column)
{
    if (column < 0 || column >= m_columns)
        return true;
    if (m_readsStatement)
        return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
    return m_storedRow < 0 || m_rows.cell(m_storedRow, column).kind == RowStore::Kind::Null;
}

bool SqlCipherResult::fetch(int row)
{
    if (row < 0 || !isActive())
        return false;
    if (row == at())
        return true;
    const bool isThere = m_keepsRows ? fetchStored(row) : fetchForward(row);
    setAt(isThere ? row : static_cast<int>(QSql::AfterLastRow));
    return isThere;
}

bool SqlCipherResult::fetchNext()
{
    return fetch(at() + 1);
}

bool SqlCipherResult::fetchPrevious()
{
    return fetch(at() - 1);
}

bool SqlCipherResult::fetchFirst()
{
    return fetch(0);
}

bool SqlCipherResult::fetchLast()
{
    if (!isActive())
        return false;
    if (!m_keepsRows)
        return fetchLastForward();
    while (step())
        storeRow();
    setAt(m_rows.count() > 0 ? m_rows.count() - 1 : static_cast<int>(QSql::AfterLastRow));
    return m_rows.count() > 0;
}

void SqlCipherResult::detachFromResultSet()
{
    if (m_statement)
        sqlite3_reset(m_statement);
    forgetRows();
}

int SqlCipherResult::size()
{
    return -1;
}

int SqlCipherResult::numRowsAffected()
{
    return m_affectedRows;
}

QVariant SqlCipherResult::lastInsertId() const
{
    return isActive() ? m_lastInsertId : QVariant();
}

QSqlRecord SqlCipherResult::record() const
{
    return isActive() && isSelect() ? m_record : QSqlRecord();
}

void SqlCipherResult::invalidate()
{
    finalizeStatement();
    setActive(false);
    setAt(QSql::BeforeFirstRow);
}

void SqlCipherResult::leaveDriver()
{
    m_driver = nullptr;
}

sqlite3 *SqlCipherResult::connection() const
{
    return m_driver ? m_driver->m_connection : nullptr;
}

void SqlCipherResult::finalizeStatement()
{
    sqlite3_finalize(m_statement);
    m_statement = nullptr;
    forgetRows();
}

void SqlCipherResult::forgetRows()
{
    m_rows.reset(0);
    m_columns = 0;
    m_atEnd = true;
    m_statementRow = -1;
    m_readsStatement = false;
    m_storedRow = -1;
    m_affectedRows = -1;
    m_lastInsertId.clear();
}

bool SqlCipherResult::fail(const QString &text, QSqlError::ErrorType type)
{
    setLastError(sqlCipherError(connection(), text, type));
    return false;
}

/// Finds where the values of SQLite's parameters stand among those that Qt binds.
///
/// SQLite counts a name once, Qt each time that it occurs; the first occurrence stands for all.
void SqlCipherResult::locatePlaceholders()
{
    const int colons = lastQuery().count(QLatin1Char(':'));
    QHash<QString, int> positions;
    for (int position = colons - 1; position >= 0; --position)
        positions.insert(boundValueName(position), position);

    const int parameters = sqlite3_bind_parameter_count(m_statement);
    m_valuePositions.clear();
    m_mostValues = parameters;
    for (int parameter = 1; parameter <= parameters; ++parameter) {
        const QString name = QString::fromUtf8(sqlite3_bind_parameter_name(m_statement, parameter));
        if (positions.contains(name))
            m_mostValues = colons;
        m_valuePositions.append(positions.value(name, parameter - 1));
    }
}

bool SqlCipherResult::isBoundInOrder() const
{
    return bindingSyntax() == PositionalBinding && boundValueCount() == m_valuePositions.size();
}

bool SqlCipherResult::valuesFit() const
{
    const auto isMissing = [this](int position) {
        return position >= boundValueCount();
    };
    return isBoundInOrder() || (boundValueCount() <= m_mostValues &&
                                std::none_of(m_valuePositions.cbegin(), m_valuePositions.cend(), isMissing));
}

bool SqlCipherResult::bindValues()
{
    if (!valuesFit()) {
        setLastError(QSqlError(tr("Parameter count mismatch"), QString(), QSqlError::StatementError));
        return false;
    }
    const bool isInOrder = isBoundInOrder();
    for (int i = 0; i < m_valuePositions.size(); ++i) {
        const QVariant &value = boundValues().at(isInOrder ? i : m_valuePositions.at(i));
        const int result = bindVariant(m_statement, i + 1, value);
        if (result != SQLITE_OK) {
            setLastError(QSqlError(tr("Unable to bind parameters"), QString::fromUtf8(sqlite3_errstr(result)),
                                   QSqlError::StatementError, QString::number(result)));
            return false;
        }
    }
    return true;
}

/// Runs the statement up to its first row or its end.
bool SqlCipherResult::start()
{
    m_atEnd = false;
    const int changesBefore = sqlite3_total_changes(connection());
    const bool hasRow = step();
    if (lastError().isValid())
        return false;

    describeColumns(hasRow);
    m_keepsRows = !isForwardOnly();
    m_rows.reset(m_columns);
    setSelect(m_columns > 0);
    setActive(true);
    if (hasRow && m_keepsRows)
        storeRow();
    else if (hasRow)
        m_statementRow = 0;
    if (!isSelect())
        noteChanges(changesBefore);
    return true;
}

/// The statement may have been compiled anew for a changed schema, so its columns are told after its first
/// step.
void SqlCipherResult::describeColumns(bool hasRow)
{
    m_columns = sqlite3_column_count(m_statement);
    m_record.clear();
    for (int i = 0; i < m_columns; ++i) {
        const QString declared = QString::fromUtf8(sqlite3_column_decltype(m_statement, i));
        const int stored = hasRow ? sqlite3_column_type(m_statement, i) : -1;
        QSqlField field(columnText(sqlite3_column_name(m_statement, i)),
                        declared.isEmpty() ? storedColumnType(stored) : declaredColumnType(declared),
                        columnText(sqlite3_column_table_name(m_statement, i)));
        field.setSqlType(stored);
        m_record.append(field);
    }
}

void SqlCipherResult::noteChanges(int changesBefore)
{
    // SQLite keeps the number of the latest statement that changed rows, also while others change none.
    const bool changedRows = sqlite3_total_changes(connection()) != changesBefore;
    m_affectedRows = changedRows ? sqlite3_changes(connection()) : 0;
    const qint64 id = sqlite3_last_insert_rowid(connection());
    if (id != 0)
        m_lastInsertId = id;
}

/// Moves the statement to its next row. At its end, and after an error, it lets go of its locks.
bool SqlCipherResult::step()
{
    if (m_atEnd)
        return false;
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW)
        return true;
    m_atEnd = true;
    if (sqlite3_reset(m_statement) != SQLITE_OK)
        return fail(tr("Unable to fetch row"), QSqlError::StatementError);
    return false;
}

void SqlCipherResult::storeRow()
{
    for (int column = 0; column < m_columns; ++column) {
        sqlite3_value *value = statementValue(column);
        switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            m_rows.addInteger(sqlite3_value_int64(value));
            break;
        case SQLITE_FLOAT:
            m_rows.addReal(sqlite3_value_double(value));
            break;
        case SQLITE_TEXT: {
            const unsigned char *text = sqlite3_value_text(value);
            m_rows.addText(reinterpret_cast<const char *>(text), sqlite3_value_bytes(value));
            break;
        }
        case SQLITE_BLOB: {
            const void *bytes = sqlite3_value_blob(value);
            m_rows.addBlob(static_cast<const char *>(bytes), sqlite3_value_bytes(value));
            break;
        }
        default:
            m_rows.addNull();
        }
    }
    m_rows.endRow();
}

/// A connection without a mutex knows no difference between values of columns and others, so that one look-up
/// does for a cell's type, bytes and length.
sqlite3_value *SqlCipherResult::statementValue(int column) const
{
    return sqlite3_column_value(m_statement, column);
}

bool SqlCipherResult::fetchStored(int row)
{
    while (m_rows.count() <= row && step())
        storeRow();
    return row < m_rows.count();
}

bool SqlCipherResult::fetchForward(int row)
{
    if (row < m_statementRow || m_atEnd)
        return false;
    while (m_statementRow < row) {
        if (!step())
            return false;
        ++m_statementRow;
    }
    return true;
}

/// The last row is known to be it only when the statement has moved on, so it is kept.
bool SqlCipherResult::fetchLastForward()
{
    if (m_atEnd) {
        if (m_statementRow >= 0 && at() == m_statementRow)
            return true;
        setAt(QSql::AfterLastRow);
        return false;
    }
    do {
        m_rows.reset(m_columns);
        storeRow();
        ++m_statementRow;
    } while (step());
    --m_statementRow;
    if (lastError().isValid())
        return false;
    setAt(m_statementRow);
    return true;
}
