#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "Corvane/accesscontrol/storenames.h"
#include "ZephanShared/toolkit/plaintime.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

namespace {

const char *const kTimeFormat = "yyyy-MM-dd hh:mm:ss";
const char *const kUser = "User from access.supportdb";
const char *const kOperator = "Operator from access.supportdb :";
const char *const kRoles = "Roles from access.supportdb :";

QString idColumn()
{
    return QStringLiteral("operator_id");
}

QString roleColumn()
{
    return QStringLiteral("role_id");
}

QVariant text(const QString &value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

/// The id that an operator points to; null for none.
QVariant reference(const MappedStrings &target)
{
    return target.key.isNull() ? QVariant(QVariant::String) : QVariant(target.key.toString());
}

OperatorModel readOperator(const QSqlRecord &row)
{
    const auto value = [&row](const char *column) {
        return row.value(QLatin1String(column)).toString();
    };
    return OperatorModel::create(
        UuidString(value("operator_id")), value("user_id"), value("username"), QList<uint>(), QStringList(),
        value("first_name"), value("middle_name"), value("last_name"),
        MappedStrings{UuidString(value("organization_id")), QStringList()},
        MappedStrings{UuidString(value("department_id")), QStringList()}, value("password"), value("salt"),
        row.value(QStringLiteral("operator_type")).toUInt());
}

/// The elements of a list that another one lacks, in their order.
QList<uint> without(const QList<uint> &list, const QList<uint> &other)
{
    QList<uint> rest;
    std::copy_if(list.begin(), list.end(), std::back_inserter(rest),
                 [&other](uint element) { return !other.contains(element); });
    return rest;
}

QString joined(const QList<uint> &numbers)
{
    QStringList texts;
    for (uint number : numbers)
        texts.append(QString::number(number));
    return texts.join(QLatin1Char(','));
}

}  // namespace

bool SupportConnectionHandler::insertRow(QString table, QVariantMap values)
{
    QSqlQuery query(m_database);
    return insertWith(query, table, values);
}

bool SupportConnectionHandler::updateRow(QString table, QVariantMap values, QVariantMap where)
{
    const auto assignments = [](const QVariantMap &columns) {
        return QStringList(columns.keys()).join(QLatin1String(" = ?, ")) + QLatin1String(" = ?");
    };
    QSqlQuery query(m_database);
    return run(
        query,
        QStringLiteral("UPDATE %1 SET %2 WHERE %3").arg(table, assignments(values), assignments(where)),
        values.values() + where.values());
}

QVariantMap SupportConnectionHandler::operatorToRow(QSharedPointer<OperatorModelData> op, bool omitCreated)
{
    const QString now = plainText(QDateTime::currentDateTimeUtc(), QLatin1String(kTimeFormat));
    QVariantMap row{{idColumn(), op->operatorID().toString()},
                    {QStringLiteral("last_name"), text(op->lastName())},
                    {QStringLiteral("middle_name"), text(op->middleName())},
                    {QStringLiteral("first_name"), text(op->firstName())},
                    {QStringLiteral("organization_id"), reference(op->organization())},
                    {QStringLiteral("department_id"), reference(op->department())},
                    {QStringLiteral("user_id"), text(op->userID())},
                    {QStringLiteral("username"), text(op->username())},
                    {QStringLiteral("password"), text(op->passwordHash())},
                    {QStringLiteral("salt"), text(op->salt())},
                    {QStringLiteral("date_updated"), now},
                    {QStringLiteral("deleted"), 0},
                    {QStringLiteral("operator_type"), op->operatorType()}};
    if (!omitCreated)
        row.insert(QStringLiteral("date_created"), now);
    return row;
}

QSharedPointer<OperatorModelData> SupportConnectionHandler::getOperatorByUsername(QString username)
{
    if (username.isEmpty() || !isConnected())
        return {};
    OperatorModel found;
    {
        QSqlQuery query(m_database);
        const bool done = run(
            query, QStringLiteral("SELECT * FROM operator WHERE deleted = 0 AND username = ?"), {username});
        if (done && query.next())
            found = readOperator(query.record());
        if (!done || !isReadToTheEnd(query)) {
            logFailure(Actions::GetOperator, QLatin1String(kOperator), query);
            return {};
        }
    }
    if (!found || !readRoles(found))
        return {};
    logStore(Actions::GetOperator, Actions::Automatic, found->operatorID(),
             QStringLiteral("Corvane check existing username"));
    return found;
}

QList<QSharedPointer<OperatorModelData>> SupportConnectionHandler::getOperators(UuidString id)
{
    QString statement = QStringLiteral("SELECT * FROM operator WHERE deleted = 0");
    QVariantList values;
    if (!id.isNull()) {
        statement += QLatin1String(" AND operator_id = ?");
        values.append(id.toString());
    }
    // All rows are read before the first roles: not every server answers two statements at a time.
    QList<OperatorModel> rows;
    QSqlQuery query(m_database);
    bool complete = run(query, statement, values);
    while (complete && query.next())
        rows.append(readOperator(query.record()));
    complete = complete && isReadToTheEnd(query);
    if (!complete && rows.isEmpty()) {
        logFailure(Actions::GetOperator, QLatin1String(kOperator), query);
        return {};
    }
    const QString failure = failureText(QLatin1String(kOperator), query);
    query.clear();

    QList<OperatorModel> operators;
    for (const OperatorModel &op : qAsConst(rows)) {
        if (!readRoles(op))
            return operators;
        operators.append(op);
    }
    if (complete)
        logStore(Actions::GetOperator, Actions::Human, id, QLatin1String(kProgram));
    else
        emit logError(Actions::GetOperator, ZephanErrors::kStatementFailed, failure);
    return operators;
}

QList<QSharedPointer<OperatorModelData>> SupportConnectionHandler::getOperators()
{
    if (isConnected())
        return getOperators(UuidString());
    emit logError(Actions::GetOperator, ZephanErrors::kNoConnection, QLatin1String(kUser));
    return {};
}

bool SupportConnectionHandler::saveOperator(QSharedPointer<OperatorModelData> op)
{
    if (!op)
        return failSaving(ZephanErrors::kNoData);
    if (!ensureConnection())
        return failSaving(ZephanErrors::kNoConnection);
    const UuidString id = op->operatorID();
    const OperatorModel existing = getOperatorByUsername(op->username());
    if (existing && existing->operatorID() != id)
        return failSaving(ZephanErrors::kStatementFailed);
    const bool saved =
        existing || !getOperators(id).isEmpty()
            ? updateRow(QStringLiteral("operator"), operatorToRow(op, false), {{idColumn(), id.toString()}})
            : insertRow(QStringLiteral("operator"), operatorToRow(op, true));
    if (!saved)
        return failSaving(ZephanErrors::kStatementFailed);
    updateOperatorRoles(op);
    logStore(Actions::AddOperator, Actions::Human, id, QLatin1String(kProgram));
    return true;
}

bool SupportConnectionHandler::deleteOperator(QSharedPointer<OperatorModelData> op)
{
    if (!op)
        return failDeleting(ZephanErrors::kNoData);
    if (!ensureConnection())
        return failDeleting(ZephanErrors::kNoConnection);
    const UuidString id = op->operatorID();
    if (!isLive(id))
        return failDeleting(ZephanErrors::kStatementFailed);
    op->setUsername(op->username() + deletedSuffix());
    if (!updateRow(QStringLiteral("operator"),
                   {{QStringLiteral("deleted"), 1}, {QStringLiteral("username"), op->username()}},
                   {{idColumn(), id.toString()}}))
        return failDeleting(ZephanErrors::kStatementFailed);
    logStore(Actions::DeleteOperator, Actions::Human, id, QLatin1String(kProgram));
    return true;
}

bool SupportConnectionHandler::updateOperatorRoles(QSharedPointer<OperatorModelData> op)
{
    if (!isConnected())
        return false;
    const UuidString id = op->operatorID();
    const QList<uint> wanted = op->operatorRoleIDList();
    QList<uint> current;
    if (!readLinks(id, current))
        return false;
    const QList<uint> toRemove = without(current, wanted);
    const QList<uint> toAdd = without(wanted, current);
    if (!(toRemove.isEmpty() && toAdd.isEmpty()) && !changeLinks(id, toRemove, toAdd))
        return false;
    logStore(Actions::UpdateOperator, Actions::Automatic, id,
             QStringLiteral("Updating operator roles. Current roles: ") + joined(wanted));
    return true;
}

bool SupportConnectionHandler::prepare(QSqlQuery &query, const QString &statement) const
{
    query.setForwardOnly(true);
    return isConnected() && query.prepare(statement);
}

bool SupportConnectionHandler::run(QSqlQuery &query, const QString &statement,
                                   const QVariantList &values) const
{
    if (!prepare(query, statement))
        return false;
    for (const QVariant &value : values)
        query.addBindValue(value);
    return query.exec();
}

/// Whether the rows ended because there are no more; a connection may be lost between two of them.
bool SupportConnectionHandler::isReadToTheEnd(const QSqlQuery &query)
{
    return query.lastError().type() == QSqlError::NoError;
}

bool SupportConnectionHandler::insertWith(QSqlQuery &query, const QString &table,
                                          const QVariantMap &values) const
{
    QString marks = QStringLiteral("?, ").repeated(values.size());
    marks.chop(2);
    return run(query,
               QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                   .arg(table, QStringList(values.keys()).join(QLatin1Char(',')), marks),
               values.values());
}

QString SupportConnectionHandler::failureText(const QString &what, const QSqlQuery &query) const
{
    return what + query.lastError().text() + QLatin1String(" :") + m_database.lastError().text();
}

// The query goes first: the signal closes the connection.
void SupportConnectionHandler::logFailure(Actions::Action action, const QString &what, QSqlQuery &query)
{
    const QString failure = failureText(what, query);
    query.clear();
    emit logError(action, ZephanErrors::kStatementFailed, failure);
}

void SupportConnectionHandler::logStore(Actions::Action action, Actions::ActionType type,
                                        const UuidString &id, const QString &info)
{
    emit logAction(action, type, id, QLatin1String(kStoreKey),
                   OdbcConnection::withoutSecrets(m_database.databaseName()), info);
}

bool SupportConnectionHandler::ensureConnection()
{
    return isConnected() || connectOnline();
}

/// Runs the query for the roles of an operator. Databases differ in what a backslash between quotes means:
/// an id with one, which none of this program's own has, is bound.
bool SupportConnectionHandler::runRoles(QSqlQuery &query, QString id) const
{
    const QString statement = QStringLiteral("SELECT * FROM operator_roles INNER JOIN roles on roles.role_id "
                                             "= operator_roles.role_id WHERE operator_id =");
    if (id.contains(QLatin1Char('\\')))
        return run(query, statement + QLatin1String(" ?"), {id});
    return run(query, statement + QLatin1Char('\'') + id.replace(QLatin1Char('\''), QLatin1String("''")) +
                          QLatin1Char('\''));
}

// The titles come along; a deleted role counts while it is linked.
bool SupportConnectionHandler::readRoles(const OperatorModel &op)
{
    QSqlQuery query(m_database);
    QList<uint> ids;
    QStringList titles;
    bool complete = runRoles(query, op->operatorID().toString());
    while (complete && query.next()) {
        const QSqlRecord row = query.record();
        ids.append(row.value(roleColumn()).toUInt());
        titles.append(row.value(QStringLiteral("title")).toString());
    }
    if (!complete || !isReadToTheEnd(query)) {
        logFailure(Actions::GetOperator, QLatin1String(kOperator), query);
        return false;
    }
    op->setOperatorRoleIDList(ids);
    op->setOperatorRoleNames(titles);
    return true;
}

bool SupportConnectionHandler::isLive(const UuidString &id)
{
    const QList<OperatorModel> operators = getOperators(id);
    return std::any_of(operators.begin(), operators.end(),
                       [&id](const OperatorModel &op) { return op->operatorID() == id; });
}

bool SupportConnectionHandler::failSaving(ZephanError code)
{
    const QString cause = isConnected() ? m_database.lastError().text() : QString();
    emit logError(Actions::AddOperator, code,
                  QStringLiteral("%1; Error: %2").arg(QLatin1String(kUser), cause));
    return false;
}

bool SupportConnectionHandler::failDeleting(ZephanError code)
{
    emit logError(Actions::DeleteOperator, code, QLatin1String(kUser));
    return false;
}

bool SupportConnectionHandler::readLinks(const UuidString &id, QList<uint> &roles)
{
    QSqlQuery query(m_database);
    if (!run(query, QStringLiteral("SELECT * from operator_roles WHERE operator_id = ?"), {id.toString()}) ||
        !query.isActive())
        return failLinks(Actions::LoadOperatorRoles, id, query);
    logStore(Actions::LoadOperatorRoles, Actions::Automatic, id,
             QStringLiteral("Loading current roles to update operator roles"));
    while (query.next())
        roles.append(query.record().value(roleColumn()).toUInt());
    return isReadToTheEnd(query) || failLinks(Actions::LoadOperatorRoles, id, query);
}

bool SupportConnectionHandler::changeLinks(const UuidString &id, const QList<uint> &toRemove,
                                           const QList<uint> &toAdd)
{
    if (!beginTransaction())
        return false;
    QSqlQuery query(m_database);
    for (uint role : toRemove) {
        if (!run(query, QStringLiteral("DELETE from operator_roles WHERE operator_id = ? AND role_id = ?"),
                 {id.toString(), role}))
            return failLinks(Actions::DeleteOperatorRole, id, query);
    }
    for (uint role : toAdd) {
        if (!insertWith(query, QStringLiteral("operator_roles"),
                        {{idColumn(), id.toString()}, {roleColumn(), role}}))
            return failLinks(Actions::AddOperatorRole, id, query);
    }
    query.clear();
    commitTransaction();
    return true;
}

bool SupportConnectionHandler::failLinks(Actions::Action action, const UuidString &id, QSqlQuery &query)
{
    const QString failure =
        failureText(QStringLiteral("%1%2 : ").arg(QLatin1String(kRoles), id.toString()), query);
    query.clear();
    if (action != Actions::LoadOperatorRoles)
        rollbackTransaction();
    emit logError(action, ZephanErrors::kStatementFailed, failure);
    return false;
}
