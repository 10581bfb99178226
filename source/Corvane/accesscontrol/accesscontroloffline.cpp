#include "Corvane/accesscontrol/accesscontroloffline.h"

#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QDir>
#include <QSqlError>
#include <QSqlQuery>

namespace {

const char *const kRolesTable = "roles";

// Widths of the text columns, in characters.
constexpr int kIdWidth = 36;
constexpr int kPersonNameWidth = 100;
constexpr int kUserIdWidth = 20;
constexpr int kUsernameWidth = 255;
constexpr int kSaltWidth = 16;
constexpr int kUnitNameWidth = 50;
constexpr int kAddressWidth = 50;

QString text(int width)
{
    return QStringLiteral("VARCHAR(%1)").arg(width);
}

QString idColumn(const QString &name)
{
    return name + QLatin1Char(' ') + text(kIdWidth) +
           QStringLiteral(" PRIMARY KEY DEFAULT '00000000-0000-0000-0000-000000000000' NOT NULL");
}

QString createTable(const QString &name, const QStringList &columns)
{
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(name, columns.join(QLatin1Char(',')));
}

QString operatorStatement()
{
    const QString personName = text(kPersonNameWidth);
    return createTable(
        QStringLiteral("operator"),
        {idColumn(QStringLiteral("operator_id")), QStringLiteral("last_name ") + personName,
         QStringLiteral("middle_name ") + personName, QStringLiteral("first_name ") + personName,
         QStringLiteral("organization_id ") + text(kIdWidth),
         QStringLiteral("department_id ") + text(kIdWidth), QStringLiteral("user_id ") + text(kUserIdWidth),
         QStringLiteral("username ") + text(kUsernameWidth), QStringLiteral("password TEXT"),
         QStringLiteral("salt ") + text(kSaltWidth), QStringLiteral("date_created DATE NULL"),
         QStringLiteral("date_updated DATE NULL"), QStringLiteral("deleted INTEGER NULL"),
         QStringLiteral("operator_type INTEGER")});
}

QString operatorRolesStatement()
{
    return createTable(QStringLiteral("operator_roles"),
                       {QStringLiteral("operator_roles_id INTEGER PRIMARY KEY NOT NULL"),
                        QStringLiteral("operator_id ") + text(kIdWidth) + QStringLiteral(" NOT NULL"),
                        QStringLiteral("role_id INTEGER NOT NULL"),
                        QStringLiteral("FOREIGN KEY(operator_id) REFERENCES operator(operator_id) "
                                       "ON DELETE CASCADE ON UPDATE CASCADE")});
}

/// The columns that organisations and departments have in common.
QStringList unitColumns()
{
    return {idColumn(QStringLiteral("id")) + QStringLiteral(" UNIQUE"),
            QStringLiteral("deleted INTEGER NULL"),
            QStringLiteral("name ") + text(kUnitNameWidth) + QStringLiteral(" UNIQUE")};
}

}  // namespace

AccessControlOffline::AccessControlOffline(QString connectionName, QObject *parent)
    : QObject(parent)
    , m_connectionName(std::move(connectionName))
{}

AccessControlOffline::~AccessControlOffline()
{
    closeOfflineDatabase();
}

bool AccessControlOffline::openOfflineDatabase(QString location, QString &errorMessage)
{
    if (location.isEmpty())
        location = defaultOfflineLocation();
    if (location.isEmpty()) {
        errorMessage = QStringLiteral("Offline access control Database location empty.");
        return false;
    }
    if (!QDir(location).exists() && !QDir().mkpath(location)) {
        errorMessage = QStringLiteral("Offline access control Database location cannot be created.");
        return false;
    }
    closeOfflineDatabase();
    connectTo(nativePath(location + QLatin1Char('/') + QLatin1String(kOfflineAccessFile)));
    if (!m_database.open()) {
        errorMessage = QStringLiteral("Failed to open offline access control database");
        closeOfflineDatabase();
        return false;
    }
    unlock();
    if (!createMissingTables(errorMessage))
        return false;
    createIndex();
    return true;
}

void AccessControlOffline::closeOfflineDatabase()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlDatabase &AccessControlOffline::database()
{
    return m_database;
}

QMap<QString, QString> AccessControlOffline::offlineTableStatements()
{
    QStringList departmentColumns = unitColumns();
    departmentColumns.append(QStringLiteral("address ") + text(kAddressWidth));
    return {
        {QLatin1String(kRolesTable),
         QStringLiteral("CREATE TABLE roles (role_id INTEGER PRIMARY KEY AUTOINCREMENT,title TEXT,"
                        "actions INTEGER,deleted INTEGER)")},
        {QStringLiteral("operator"), operatorStatement()},
        {QStringLiteral("operator_roles"), operatorRolesStatement()},
        {QStringLiteral("organization"), createTable(QStringLiteral("organization"), unitColumns())},
        {QStringLiteral("department"), createTable(QStringLiteral("department"), departmentColumns)},
    };
}

QStringList AccessControlOffline::defaultRoleStatements()
{
    const QString insert = QStringLiteral("INSERT INTO roles ([title], [actions], [deleted]) VALUES");
    return {insert + QStringLiteral("('Nurse',3633152,0)"), insert + QStringLiteral("('Doctor',331776,0)"),
            insert + QStringLiteral("('Admin',4190263,0)")};
}

QString AccessControlOffline::defaultOfflineLocation()
{
    return nativePath(QString::fromLocal8Bit(qgetenv("ProgramData")) + QStringLiteral("/Halvorn/Databases"));
}

void AccessControlOffline::connectTo(const QString &path)
{
    if (QSqlDatabase::contains(m_connectionName)) {
        m_database = QSqlDatabase::database(m_connectionName, true);
        return;
    }
    m_database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), m_connectionName);
    m_database.setDatabaseName(path);
}

// Whether the key fits shows at the first table, so the results tell nothing.
void AccessControlOffline::unlock()
{
    QSqlQuery query(m_database);
    for (const QString &statement : databaseKeyStatements())
        query.exec(statement);
}

bool AccessControlOffline::createMissingTables(QString &errorMessage)
{
    const QStringList present = m_database.tables(QSql::Tables);
    const QMap<QString, QString> statements = offlineTableStatements();
    for (auto table = statements.begin(); table != statements.end(); ++table) {
        if (present.contains(table.key()))
            continue;
        if (table.key() == QLatin1String(kRolesTable)) {
            if (!createRoles(errorMessage))
                return false;
        } else if (!run({table.value()})) {
            errorMessage = QStringLiteral("Failed to create offline access control table");
            return false;
        }
    }
    return true;
}

// The roles are only ever filled when their table is made. One transaction keeps a process that dies, or a
// disk that is full, from leaving an empty or half-filled table behind for good.
bool AccessControlOffline::createRoles(QString &errorMessage)
{
    const bool begun = m_database.transaction();
    const bool created = run({offlineTableStatements().value(QLatin1String(kRolesTable))});
    const bool filled = created && run(defaultRoleStatements());
    const bool kept = filled && (!begun || m_database.commit());
    if (begun && !kept)
        m_database.rollback();
    if (!created)
        errorMessage = QStringLiteral("Failed to create offline access control table");
    else if (!kept)
        errorMessage = QStringLiteral("Failed to add default roles to offline access control table");
    return kept;
}

// The links of each operator are asked for one by one, which without an index takes the square of their
// number. A file that can't be written is read without one.
void AccessControlOffline::createIndex()
{
    run({QStringLiteral(
        "CREATE INDEX IF NOT EXISTS operator_roles_operator ON operator_roles (operator_id)")});
}

bool AccessControlOffline::run(const QStringList &statements)
{
    QSqlQuery query(m_database);
    for (const QString &statement : statements) {
        query.exec(statement);
        if (query.lastError().type() != QSqlError::NoError)
            return false;
    }
    return true;
}
