#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include "Corvane/accesscontrol/storenames.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <functional>

struct SupportConnectionHandler::Unit
{
    const char *table;
    const char *word;
    Actions::Action add;
    Actions::Action update;
    Actions::Action load;
    bool hasAddress;

    QString tableName() const
    {
        return QLatin1String(table);
    }
    QString fromStore() const
    {
        return QStringLiteral("%1 from %2").arg(QLatin1String(word), QLatin1String(kStoreKey));
    }
    static const Unit &organization();
    static const Unit &department();
};

namespace {

constexpr int kWidth = 50;  // characters of a name and of an address

/// A text as its column holds it. Half a character at the end would be none that a database takes.
QString fitting(QString text)
{
    text.truncate(kWidth);
    if (!text.isEmpty() && text.at(text.size() - 1).isHighSurrogate())
        text.chop(1);
    return text;
}

QVariantMap whereUnit(const UuidString &id)
{
    return {{QStringLiteral("id"), id.toString()}};
}

QString textOf(const QSqlRecord &row, const char *column)
{
    return row.value(QLatin1String(column)).toString();
}

}  // namespace

const SupportConnectionHandler::Unit &SupportConnectionHandler::Unit::organization()
{
    static const Unit unit{"organization",
                           "Organization",
                           Actions::AddOrganization,
                           Actions::UpdateOrganization,
                           Actions::LoadOrganization,
                           false};
    return unit;
}

const SupportConnectionHandler::Unit &SupportConnectionHandler::Unit::department()
{
    static const Unit unit{"department",
                           "Department",
                           Actions::AddDepartment,
                           Actions::UpdateDepartment,
                           Actions::LoadDepartment,
                           true};
    return unit;
}

bool SupportConnectionHandler::organizationExists(UuidString id)
{
    return unitExists(Unit::organization(), id);
}

bool SupportConnectionHandler::departmentExists(UuidString id)
{
    return unitExists(Unit::department(), id);
}

bool SupportConnectionHandler::saveOrganization(UuidString id, QString name)
{
    return saveUnit(Unit::organization(), id, name, QString());
}

bool SupportConnectionHandler::saveDepartment(UuidString id, QString name, QString address)
{
    return saveUnit(Unit::department(), id, name, address);
}

bool SupportConnectionHandler::deleteOrganization(UuidString id)
{
    return deleteUnit(Unit::organization(), id);
}

bool SupportConnectionHandler::deleteDepartment(UuidString id)
{
    return deleteUnit(Unit::department(), id);
}

QString SupportConnectionHandler::getOrganizationInfo(QMap<UuidString, QString> &organizations,
                                                      QMultiMap<UuidString, QString> &departments)
{
    QStringList errors;
    const auto read = [&](const Unit &unit,
                          const std::function<void(const UuidString &, const QSqlRecord &)> &take) {
        QSqlQuery query(m_database);
        bool complete =
            run(query, QStringLiteral("SELECT * FROM %1 WHERE deleted = 0").arg(QLatin1String(unit.table)));
        while (complete && query.next()) {
            const QSqlRecord row = query.record();
            const UuidString id(textOf(row, "id"));
            if (!id.isNull())
                take(id, row);
        }
        complete = complete && isReadToTheEnd(query);
        if (!complete)
            errors << query.lastError().text() << m_database.lastError().text();
    };
    if (isConnected()) {
        read(Unit::organization(), [&](const UuidString &id, const QSqlRecord &row) {
            organizations.insert(id, textOf(row, "name"));
        });
        read(Unit::department(), [&](const UuidString &id, const QSqlRecord &row) {
            departments.insert(id, textOf(row, "name"));
            departments.insert(id, textOf(row, "address"));
        });
    } else {
        errors << m_database.lastError().text();
    }
    if (!errors.isEmpty())
        emit logError(Actions::LoadOrganization, ZephanErrors::kStatementFailed,
                      QStringLiteral("Info from access.supportdb"));
    return errors.join(QLatin1String(" | "));
}

bool SupportConnectionHandler::unitExists(const Unit &unit, const UuidString &id)
{
    if (id.isNull() || !isConnected())
        return false;
    QSqlQuery query(m_database);
    const bool done =
        run(query, QStringLiteral("SELECT 1 FROM %1 WHERE id = ?").arg(unit.tableName()), {id.toString()});
    if (done && query.next())
        return true;
    if (done && isReadToTheEnd(query))
        return false;
    logFailure(unit.load, unit.fromStore() + QLatin1String(" :"), query);
    return false;
}

bool SupportConnectionHandler::saveUnit(const Unit &unit, const UuidString &id, QString name, QString address)
{
    if (id.isNull() || name.isNull())
        return failUnit(unit, unit.add, ZephanErrors::kNoData);
    if (!ensureConnection())
        return failUnit(unit, unit.add, ZephanErrors::kNoConnection);
    name = fitting(name);
    QVariantMap values{{QStringLiteral("deleted"), 0}, {QStringLiteral("name"), name}};
    if (unit.hasAddress)
        values.insert(QStringLiteral("address"), fitting(address));
    const bool exists = unitExists(unit, id);
    if (!exists)
        values.insert(QStringLiteral("id"), id.toString());
    const bool saved =
        exists ? updateRow(unit.tableName(), values, whereUnit(id)) : insertRow(unit.tableName(), values);
    if (!saved)
        return failUnit(unit, unit.add, ZephanErrors::kStatementFailed);
    logStore(exists ? unit.update : unit.add, Actions::Human, id,
             QStringLiteral("%1: %2").arg(QLatin1String(unit.word), name));
    return true;
}

bool SupportConnectionHandler::deleteUnit(const Unit &unit, const UuidString &id)
{
    if (!unitExists(unit, id))
        return false;
    return updateRow(unit.tableName(),
                     {{QStringLiteral("deleted"), 1}, {QStringLiteral("name"), deletedSuffix()}},
                     whereUnit(id)) ||
           failUnit(unit, unit.update, ZephanErrors::kStatementFailed);
}

bool SupportConnectionHandler::failUnit(const Unit &unit, Actions::Action action, ZephanError code)
{
    emit logError(action, code, unit.fromStore());
    return false;
}
