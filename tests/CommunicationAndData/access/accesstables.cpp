#include "accesstables.h"

#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/settings/settingshandler.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

const QString kNone = QStringLiteral("none");
const QString kInternal = QStringLiteral("Internal users");
const QString kGroups = QStringLiteral("Windows group based");
const QString kUsers = QStringLiteral("Windows user based");
const QString kSalt = QStringLiteral("abcdefghijklmnop");

QString id(int number)
{
    return QStringLiteral("00000000-0000-0000-0000-%1").arg(number, 12, 10, QLatin1Char('0'));
}

SignIn::SignIn(const QString &method, QSqlDatabase *database)
    : control(nullptr, method, database, SqlStorage::Sqlite)
    , results(&control, &AccessControl::loginResult)
{}

uint SignIn::login(const QString &user, const QString &password)
{
    control.login(user, password);
    if (results.isEmpty())
        results.wait();
    return results.takeLast().at(0).toUInt();
}

void AccessTables::initTestCase_data()
{
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("databaseName");

    QTest::newRow("QSQLCIPHER") << "QSQLCIPHER"
                                << "%1";
    QTest::newRow("QSQLITE") << "QSQLITE"
                             << "%1";
    QTest::newRow("QODBC3") << "QODBC3"
                            << "Driver=SQLite3;Database=%1";
}

void AccessTables::init()
{
    QFETCH_GLOBAL(QString, driver);
    QFETCH_GLOBAL(QString, databaseName);
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    m_database = QSqlDatabase::addDatabase(driver, QStringLiteral("access"));
    m_database.setDatabaseName(
        databaseName.arg(m_workstation.path(QStringLiteral("access%1.db").arg(m_run))));
    QVERIFY2(m_database.open(), qPrintable(m_database.lastError().text()));
    run(QStringLiteral("PRAGMA synchronous = OFF"));
    run(QStringLiteral("CREATE TABLE roles (role_id INTEGER PRIMARY KEY, title TEXT, actions INTEGER, "
                       "deleted INTEGER)"));
    run(QStringLiteral(
        "CREATE TABLE operator (operator_id VARCHAR(36) PRIMARY KEY, last_name VARCHAR(100), "
        "middle_name VARCHAR(100), first_name VARCHAR(100), organization_id VARCHAR(36), "
        "department_id VARCHAR(36), user_id VARCHAR(20), username VARCHAR(255), password TEXT, "
        "salt VARCHAR(16), date_created DATE, date_updated DATE, deleted INTEGER, "
        "operator_type INTEGER)"));
    run(QStringLiteral("CREATE TABLE operator_roles (operator_roles_id INTEGER PRIMARY KEY, "
                       "operator_id VARCHAR(36) NOT NULL, role_id INTEGER NOT NULL)"));
}

void AccessTables::cleanup()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("access"));
}

void AccessTables::cleanupTestCase()
{
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(!log.isEmpty());
    QVERIFY(!log.contains("pass-word"));
}

void AccessTables::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
}

void AccessTables::addOperator(int number, int type, const QString &name, const QVariant &deleted)
{
    run(QStringLiteral("INSERT INTO operator (operator_id, username, operator_type, deleted, password, salt) "
                       "VALUES (?, ?, ?, ?, '', '')"),
        {id(number), name, type, deleted});
}

void AccessTables::addInternalUser(int number, const QString &name, const QString &password,
                                   const QVariant &deleted)
{
    addOperator(number, OperatorModelData::InternalUser, name, deleted);
    run(QStringLiteral("UPDATE operator SET password = ?, salt = ? WHERE operator_id = ?"),
        {PasswordHelper::hashPassword(password, kSalt), kSalt, id(number)});
}

void AccessTables::addRole(int operatorNumber, int role, const QVariant &rights, const QVariant &deleted)
{
    run(QStringLiteral("INSERT INTO roles (role_id, title, actions, deleted) VALUES (?, ?, ?, ?)"),
        {role, QStringLiteral("Role %1").arg(role), rights, deleted});
    run(QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) VALUES (?, ?)"),
        {id(operatorNumber), role});
}
