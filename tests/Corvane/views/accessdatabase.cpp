#include "accessdatabase.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

const auto kConnection = QStringLiteral("test.accessdatabase");

const char *const kTables[] = {
    "CREATE TABLE operator (operator_id VARCHAR(36) PRIMARY KEY, last_name VARCHAR(100), "
    "middle_name VARCHAR(100), first_name VARCHAR(100), organization_id VARCHAR(36), "
    "department_id VARCHAR(36), user_id VARCHAR(20), username VARCHAR(255), password TEXT, "
    "salt VARCHAR(16), date_created DATE, date_updated DATE, deleted INTEGER, operator_type INTEGER)",
    "CREATE TABLE roles (role_id INTEGER PRIMARY KEY, title VARCHAR(50), actions INTEGER, deleted INTEGER)",
    "CREATE TABLE operator_roles (operator_roles_id INTEGER PRIMARY KEY, operator_id VARCHAR(36), "
    "role_id INTEGER)",
    "CREATE TABLE organization (id VARCHAR(36) PRIMARY KEY, name VARCHAR(50), deleted INTEGER)",
    "CREATE TABLE department (id VARCHAR(36) PRIMARY KEY, name VARCHAR(50), address VARCHAR(50), "
    "deleted INTEGER)",
};

}  // namespace

std::unique_ptr<AccessControl> accessControlWith(int rights)
{
    auto access =
        std::make_unique<AccessControl>(nullptr, QStringLiteral("none"), nullptr, SqlStorage::UnknownType);
    SettingsHandler *settings = SettingsHandler::getInstance();
    const QVariant stored = settings->safeValue(SettingsKeys::kDefaultRights, 0);
    settings->setSafeValue(SettingsKeys::kDefaultRights, rights);
    access->login(QStringLiteral("tester"), QString());
    settings->setSafeValue(SettingsKeys::kDefaultRights, stored);
    return access;
}

AccessDatabase::AccessDatabase(const QString &path)
    : m_path(path)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QODBC3"), kConnection);
    database.setDatabaseName(QStringLiteral("Driver=SQLite3;Database=") + m_path);
    database.open();
    for (const char *statement : kTables)
        run(QString::fromLatin1(statement));
}

AccessDatabase::~AccessDatabase()
{
    QSqlDatabase::database(kConnection, false).close();
    QSqlDatabase::removeDatabase(kConnection);
}

void AccessDatabase::configure(const QString &dataDirectory) const
{
    const auto localCache = openSettingsFile(dataDirectory + LocalCache::kFileName);
    localCache->beginGroup(LocalCache::kSupportDbOnlineGroup);
    localCache->beginWriteArray(SettingsKeys::kParams, 2);
    localCache->setArrayIndex(0);
    localCache->setValue(SettingsKeys::kParamKey, QStringLiteral("Driver"));
    localCache->setValue(SettingsKeys::kParamValue, QStringLiteral("SQLite3"));
    localCache->setArrayIndex(1);
    localCache->setValue(SettingsKeys::kParamKey, QStringLiteral("Database"));
    localCache->setValue(SettingsKeys::kParamValue, m_path);
    localCache->endArray();
}

UuidString AccessDatabase::addOperator(OperatorModelData::OperatorType type, const QString &name, int rights,
                                       const QString &password)
{
    const UuidString id(QUuid::createUuid().toString());
    const QString salt = PasswordHelper::generateSalt(PasswordHelper::SaltLength);
    const QString hash = password.isEmpty() ? QString() : PasswordHelper::hashPassword(password, salt);
    const int number = ++m_operators;
    run(QStringLiteral("INSERT INTO operator (operator_id, username, password, salt, deleted, operator_type) "
                       "VALUES (?, ?, ?, ?, 0, ?)"),
        {id.toString(), name, hash, salt, static_cast<uint>(type)});
    run(QStringLiteral("INSERT INTO roles VALUES (?, ?, ?, 0)"), {number, QStringLiteral("role"), rights});
    run(QStringLiteral("INSERT INTO operator_roles VALUES (?, ?, ?)"), {number, id.toString(), number});
    return id;
}

void AccessDatabase::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(QSqlDatabase::database(kConnection));
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qWarning("%s", qPrintable(query.lastError().text()));
}
