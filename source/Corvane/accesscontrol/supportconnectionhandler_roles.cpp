#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include "Corvane/accesscontrol/storenames.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace {

using Role = QSharedPointer<AccessRoleModelData>;

const char *const kRole = "Role from access.supportdb";
const char *const kRoles = "Roles from access.supportdb :";

QString table()
{
    return QStringLiteral("roles");
}

QVariantMap whereRole(uint id)
{
    return {{QStringLiteral("role_id"), id}};
}

QVariantMap withDeleted(QVariantMap row, int deleted)
{
    row.insert(QStringLiteral("deleted"), deleted);
    return row;
}

QString infoOf(uint id)
{
    return QStringLiteral("id='%1'. %2").arg(id).arg(QLatin1String(kProgram));
}

Role readRole(const QSqlRecord &row)
{
    return Role::create(row.value(QStringLiteral("role_id")).toUInt(),
                        row.value(QStringLiteral("title")).toString(),
                        static_cast<int>(row.value(QStringLiteral("actions")).toUInt()));
}

}  // namespace

QVariantMap SupportConnectionHandler::roleToRow(QSharedPointer<AccessRoleModelData> role)
{
    return {{QStringLiteral("title"), role->roleName()}, {QStringLiteral("actions"), role->accessTypes()}};
}

bool SupportConnectionHandler::saveRole(QSharedPointer<AccessRoleModelData> role)
{
    if (!role)
        return failRole(Actions::ModifyRole, ZephanErrors::kNoData);
    if (!ensureConnection())
        return failRole(Actions::ModifyRole, ZephanErrors::kNoConnection);
    const QVariantMap row = withDeleted(roleToRow(role), 0);
    if (role->roleID() != 0) {
        if (!updateRow(table(), row, whereRole(role->roleID())))
            return failRole(Actions::ModifyRole, ZephanErrors::kStatementFailed);
        logStore(Actions::ModifyRole, Actions::Human, UuidString(), infoOf(role->roleID()));
        return true;
    }
    // The database gives the id.
    const Role stored = insertRow(table(), row) ? getRoleByTitle(role->roleName()) : Role();
    if (!stored)
        return failRole(Actions::ModifyRole, ZephanErrors::kStatementFailed);
    role->setRoleID(stored->roleID());
    logStore(Actions::AddRole, Actions::Human, UuidString(), infoOf(role->roleID()));
    return true;
}

bool SupportConnectionHandler::deleteRole(QSharedPointer<AccessRoleModelData> role)
{
    if (!role)
        return failRole(Actions::DeleteRole, ZephanErrors::kNoData);
    if (!ensureConnection())
        return failRole(Actions::DeleteRole, ZephanErrors::kNoConnection);
    const uint id = role->roleID();
    if (id == 0 || !updateRow(table(), withDeleted({}, 1), whereRole(id)))
        return failRole(Actions::DeleteRole, ZephanErrors::kStatementFailed);
    logStore(Actions::DeleteRole, Actions::Human, UuidString(), infoOf(id));
    return true;
}

QSharedPointer<AccessRoleModelData> SupportConnectionHandler::getRoleByTitle(QString title)
{
    if (title.isEmpty() || !isConnected())
        return {};
    Role found;
    {
        QSqlQuery query(m_database);
        if (!prepare(query, QStringLiteral("SELECT * FROM roles WHERE deleted = 0 AND title = ?")))
            return {};
        query.addBindValue(title);
        const bool done = query.exec();
        if (done && query.next())
            found = readRole(query.record());
        if (!done || !isReadToTheEnd(query)) {
            logFailure(Actions::LoadRoles, QLatin1String(kRoles), query);
            return {};
        }
    }
    if (found)
        logStore(Actions::LoadRoles, Actions::Automatic, UuidString(),
                 QStringLiteral("Corvane checks new operator id"));
    return found;
}

QList<QSharedPointer<AccessRoleModelData>> SupportConnectionHandler::getRoles()
{
    if (!isConnected()) {
        emit logError(Actions::LoadOperatorRoles, ZephanErrors::kNoConnection, QLatin1String(kRole));
        return {};
    }
    QSqlQuery query(m_database);
    if (!run(query, QStringLiteral("SELECT * FROM roles WHERE deleted = 0"))) {
        logFailure(Actions::LoadRoles, QLatin1String(kRoles), query);
        return {};
    }
    logStore(Actions::LoadRoles, Actions::Automatic, UuidString(), QLatin1String(kProgram));
    QList<Role> roles;
    while (query.next())
        roles.append(readRole(query.record()));
    if (isReadToTheEnd(query))
        return roles;
    // Some of the roles would pass for all: who is saved with what is shown would lose the others.
    logFailure(Actions::LoadRoles, QLatin1String(kRoles), query);
    return {};
}

bool SupportConnectionHandler::failRole(Actions::Action action, ZephanError code)
{
    emit logError(action, code, QLatin1String(kRole));
    return false;
}
