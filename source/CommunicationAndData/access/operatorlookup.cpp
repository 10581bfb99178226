#include "CommunicationAndData/access/operatorlookup.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace {

constexpr char kOperators[] = "SELECT operator_id, user_id, username, first_name, middle_name, last_name, "
                              "organization_id, department_id, password, salt "
                              "FROM operator WHERE deleted = 0 AND operator_type = ?";
constexpr char kWithName[] = " AND username = ?";
constexpr char kOrder[] = " ORDER BY operator_id";
constexpr char kRoles[] = "SELECT roles.role_id, roles.title, roles.actions FROM operator_roles "
                          "INNER JOIN roles ON roles.role_id = operator_roles.role_id "
                          "WHERE operator_roles.operator_id = ? AND roles.deleted = 0 "
                          "ORDER BY roles.role_id";

// Columns of `kOperators`.
enum OperatorColumn {
    IdColumn,
    UserIdColumn,
    UsernameColumn,
    FirstNameColumn,
    MiddleNameColumn,
    LastNameColumn,
    OrganizationColumn,
    DepartmentColumn,
    PasswordColumn,
    SaltColumn
};

// Columns of `kRoles`.
enum RoleColumn { RoleIdColumn, TitleColumn, ActionsColumn };

OperatorModel readOperator(const QSqlQuery &query, OperatorModelData::OperatorType type)
{
    const auto text = [&query](int column) {
        return query.value(column).toString();
    };
    return OperatorModel::create(UuidString(text(IdColumn)), text(UserIdColumn), text(UsernameColumn),
                                 QList<uint>(), QStringList(), text(FirstNameColumn), text(MiddleNameColumn),
                                 text(LastNameColumn),
                                 MappedStrings{UuidString(text(OrganizationColumn)), QStringList()},
                                 MappedStrings{UuidString(text(DepartmentColumn)), QStringList()},
                                 text(PasswordColumn), text(SaltColumn), type);
}

}  // namespace

OperatorLookup::OperatorLookup(const QSqlDatabase &database)
    : m_database(database)
{}

QList<OperatorModel> OperatorLookup::operators(OperatorModelData::OperatorType type)
{
    QSqlQuery query(m_database);
    if (!run(query, QLatin1String(kOperators) + QLatin1String(kOrder), {type}))
        return {};
    return readOperators(query, type);
}

QList<OperatorModel> OperatorLookup::operators(OperatorModelData::OperatorType type, const QString &username)
{
    QSqlQuery query(m_database);
    const QString statement = QLatin1String(kOperators) + QLatin1String(kWithName) + QLatin1String(kOrder);
    if (!run(query, statement, {type, username}))
        return {};
    // Some servers compare texts without regard to case or blanks at the end; a name is meant as it stands.
    QList<OperatorModel> exact;
    for (const OperatorModel &candidate : readOperators(query, type)) {
        if (candidate->username() == username)
            exact.append(candidate);
    }
    return exact;
}

int OperatorLookup::rights(const QList<OperatorModel> &operators, const OperatorModel &bearer)
{
    int rights = 0;
    QList<uint> ids;
    QStringList titles;
    for (const OperatorModel &candidate : operators) {
        QSqlQuery query(m_database);
        if (!run(query, QLatin1String(kRoles), {candidate->operatorID().toString()}))
            return 0;
        while (query.next()) {
            rights |= static_cast<int>(query.value(ActionsColumn).toLongLong());
            const uint id = query.value(RoleIdColumn).toUInt();
            if (ids.contains(id))
                continue;
            ids.append(id);
            titles.append(query.value(TitleColumn).toString());
        }
        if (!readToTheEnd(query))
            return 0;
    }
    bearer->setOperatorRoleIDList(ids);
    bearer->setOperatorRoleNames(titles);
    return rights;
}

bool OperatorLookup::failed() const
{
    return m_failed;
}

QString OperatorLookup::errorText() const
{
    return m_errorText;
}

QList<OperatorModel> OperatorLookup::readOperators(QSqlQuery &query, OperatorModelData::OperatorType type)
{
    QList<OperatorModel> operators;
    while (query.next())
        operators.append(readOperator(query, type));
    return readToTheEnd(query) ? operators : QList<OperatorModel>();
}

bool OperatorLookup::run(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    query.setForwardOnly(true);
    const bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (done && query.exec())
        return true;
    fail(query);
    return false;
}

bool OperatorLookup::readToTheEnd(const QSqlQuery &query)
{
    if (query.lastError().type() == QSqlError::NoError)
        return true;
    fail(query);
    return false;
}

void OperatorLookup::fail(const QSqlQuery &query)
{
    m_failed = true;
    m_errorText = query.lastError().text().trimmed();
    // Some drivers fail without a word, as when the connection is gone.
    if (m_errorText.isEmpty())
        m_errorText = QStringLiteral("The access database gave no answer");
}
