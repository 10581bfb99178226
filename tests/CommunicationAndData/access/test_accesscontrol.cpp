#include "CommunicationAndData/access/accesscontrol.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/zephanerror.h"
#include "support/workstation.h"

#include <QPointer>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString kNone = QStringLiteral("none");
const QString kInternal = QStringLiteral("Internal users");
const QString kGroups = QStringLiteral("Windows group based");
const QString kUsers = QStringLiteral("Windows user based");
const QString kSalt = QStringLiteral("abcdefghijklmnop");

QString id(int number)
{
    return QStringLiteral("00000000-0000-0000-0000-%1").arg(number, 12, 10, QLatin1Char('0'));
}

QString currentAccount()
{
    QString sid;
    QString error;
    return currentUsername(sid, error);
}

QString withoutPrefix(const QString &account)
{
    return account.section(QLatin1Char('\\'), -1);
}

/// An access control with its answers.
class SignIn
{
public:
    SignIn(const QString &method, QSqlDatabase *database)
        : control(nullptr, method, database, SqlStorage::Sqlite)
        , results(&control, &AccessControl::loginResult)
    {}

    uint login(const QString &user = QString(), const QString &password = QString())
    {
        control.login(user, password);
        if (results.isEmpty())
            results.wait();
        return results.takeLast().at(0).toUInt();
    }

    AccessControl control;
    QSignalSpy results;
};

}  // namespace

class TestAccessControl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void cleanupTestCase();

    void givenUserIsTakenAsItIs_data();
    void givenUserIsTakenAsItIs();
    void defaultRightsAreReadInsideLogin();
    void defaultRightsCountForNoneAlone();
    void internalUserSignsInWithThePassword_data();
    void internalUserSignsInWithThePassword();
    void internalUserIsRefused_data();
    void internalUserIsRefused();
    void internalUserHasTheFieldsOfTheRow();
    void liveRowOfADeletedNameCounts();
    void oneOfTwoRowsOfANameHasThePassword();
    void windowsGroupSignsIn_data();
    void windowsGroupSignsIn();
    void allGroupsOfTheAccountCount();
    void groupMemberIsTheAccountItself();
    void windowsUserSignsIn_data();
    void windowsUserSignsIn();
    void rightsAreTheUnionOfLiveRoles_data();
    void rightsAreTheUnionOfLiveRoles();
    void rightIsAllowedWhenAllItsBitsAre();
    void unknownMethodIsRefused();
    void missingDatabaseIsNoConnection_data();
    void missingDatabaseIsNoConnection();
    void missingTableIsAFailedStatement_data();
    void missingTableIsAFailedStatement();
    void failureLeavesNobodySignedIn();
    void resultNeverComesFromInsideLogin();
    void objectCanBeDeletedInTheSlot();
    void objectCanBeDeletedBeforeTheResult();
    void failedAttemptNamesTheUserAndNotThePassword();

private:
    void run(const QString &statement, const QVariantList &values = {});
    void addOperator(int number, int type, const QString &name, const QVariant &deleted = 0);
    void addInternalUser(int number, const QString &name, const QString &password,
                         const QVariant &deleted = 0);
    void addRole(int operatorNumber, int role, const QVariant &rights, const QVariant &deleted = 0);

    Workstation m_workstation;
    QSqlDatabase m_database;
    int m_run = 0;
};

void TestAccessControl::initTestCase_data()
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

void TestAccessControl::init()
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

void TestAccessControl::cleanup()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("access"));
}

void TestAccessControl::cleanupTestCase()
{
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(!log.isEmpty());
    QVERIFY(!log.contains("pass-word"));
}

void TestAccessControl::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_database);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
}

void TestAccessControl::addOperator(int number, int type, const QString &name, const QVariant &deleted)
{
    run(QStringLiteral("INSERT INTO operator (operator_id, username, operator_type, deleted, password, salt) "
                       "VALUES (?, ?, ?, ?, '', '')"),
        {id(number), name, type, deleted});
}

void TestAccessControl::addInternalUser(int number, const QString &name, const QString &password,
                                        const QVariant &deleted)
{
    addOperator(number, OperatorModelData::InternalUser, name, deleted);
    run(QStringLiteral("UPDATE operator SET password = ?, salt = ? WHERE operator_id = ?"),
        {PasswordHelper::hashPassword(password, kSalt), kSalt, id(number)});
}

void TestAccessControl::addRole(int operatorNumber, int role, const QVariant &rights, const QVariant &deleted)
{
    run(QStringLiteral("INSERT INTO roles (role_id, title, actions, deleted) VALUES (?, ?, ?, ?)"),
        {role, QStringLiteral("Role %1").arg(role), rights, deleted});
    run(QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) VALUES (?, ?)"),
        {id(operatorNumber), role});
}

void TestAccessControl::givenUserIsTakenAsItIs_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QVariant>("defaultRights");
    QTest::addColumn<int>("rights");

    QTest::newRow("with all rights") << "DOMAIN\\admin" << QVariant(-1) << -1;
    QTest::newRow("with some rights") << "admin" << QVariant(0x14) << 0x14;
    QTest::newRow("with no rights") << "admin" << QVariant(0) << 0;
    QTest::newRow("with no rights where none are set") << "admin" << QVariant() << 0;
    QTest::newRow("with no rights where they are no number") << "admin" << QVariant("all") << 0;
    QTest::newRow("without a name") << "" << QVariant(1) << 1;
    QTest::newRow("with letters of many scripts") << QString::fromUtf8("Größe 日本") << QVariant(1) << 1;
}

void TestAccessControl::givenUserIsTakenAsItIs()
{
    QFETCH(QString, user);
    QFETCH(QVariant, defaultRights);
    QFETCH(int, rights);
    if (defaultRights.isValid()) {
        SettingsHandler::getInstance()->setSafeValue(QLatin1String(SettingsKeys::kDefaultRights),
                                                     defaultRights);
    }

    SignIn signIn(kNone, nullptr);
    QCOMPARE(signIn.login(user), 0U);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), rights);
    QCOMPARE(signIn.control.getOperator()->username(), user);
    QVERIFY(signIn.control.getOperator()->operatorID().isNull());
    QVERIFY(signIn.control.getOperator()->operatorRoleIDList().isEmpty());
}

void TestAccessControl::defaultRightsAreReadInsideLogin()
{
    const QString key = QLatin1String(SettingsKeys::kDefaultRights);
    SettingsHandler::getInstance()->setSafeValue(key, -1);
    SignIn signIn(kNone, nullptr);
    signIn.control.login(QStringLiteral("admin"), QString());
    SettingsHandler::getInstance()->setSafeValue(key, 0);
    QTRY_COMPARE(signIn.results.size(), 1);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), -1);
}

void TestAccessControl::defaultRightsCountForNoneAlone()
{
    SettingsHandler::getInstance()->setSafeValue(QLatin1String(SettingsKeys::kDefaultRights), -1);
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    addOperator(2, OperatorModelData::WindowsUser, currentAccount());
    addRole(1, 1, 0x1000);
    for (const QString &method : {kInternal, kUsers}) {
        SignIn signIn(method, &m_database);
        QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")), 0U);
        QCOMPARE(int(signIn.control.allowedAccessTypes()), method == kInternal ? 0x1000 : 0);
    }
}

void TestAccessControl::internalUserSignsInWithThePassword_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");

    QTest::newRow("of letters") << "nurse"
                                << "pass-word";
    QTest::newRow("of many scripts") << QString::fromUtf8("Schwester Größe")
                                     << QString::fromUtf8("Пароль日本😀");
    QTest::newRow("that is empty") << "nurse"
                                   << "";
    QTest::newRow("of blanks") << " nurse "
                               << "  ";
    QTest::newRow("with quotes in name and password") << "O'Hara \"x\"; --"
                                                      << "' OR '1'='1";
    QTest::newRow("of a thousand letters") << "nurse" << QString(1000, QLatin1Char('p'));
    QTest::newRow("of a name with wildcards") << "n%_?"
                                              << "pass-word";
}

void TestAccessControl::internalUserSignsInWithThePassword()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    addInternalUser(1, user, password);
    addInternalUser(2, QStringLiteral("other"), QStringLiteral("other"));
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(user, password), 0U);
    QCOMPARE(signIn.control.getOperator()->operatorID().toString(), id(1));
    QCOMPARE(signIn.control.getOperator()->username(), user);
}

void TestAccessControl::internalUserIsRefused_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");

    QTest::newRow("with a wrong password") << ""
                                           << "nurse"
                                           << "passw0rd";
    QTest::newRow("with an empty password") << ""
                                            << "nurse"
                                            << "";
    QTest::newRow("with a password in other letters") << ""
                                                      << "nurse"
                                                      << "PASS-WORD";
    QTest::newRow("with a blank more") << ""
                                       << "nurse"
                                       << "pass-word ";
    QTest::newRow("with the hash as the password")
        << ""
        << "nurse" << PasswordHelper::hashPassword(QStringLiteral("pass-word"), kSalt);
    QTest::newRow("with another name") << ""
                                       << "doctor"
                                       << "pass-word";
    QTest::newRow("with the name in other letters") << ""
                                                    << "NURSE"
                                                    << "pass-word";
    QTest::newRow("with a blank behind the name") << ""
                                                  << "nurse "
                                                  << "pass-word";
    QTest::newRow("with an empty name") << ""
                                        << ""
                                        << "pass-word";
    QTest::newRow("with a wildcard for the name") << ""
                                                  << "%"
                                                  << "pass-word";
    QTest::newRow("with a condition for the name") << ""
                                                   << "' OR '1'='1"
                                                   << "pass-word";
    QTest::newRow("with a comment behind the name") << ""
                                                    << "nurse' --"
                                                    << "x";
    QTest::newRow("with a union for the name") << ""
                                               << "' UNION SELECT operator_id FROM operator --"
                                               << "pass-word";
    QTest::newRow("when deleted") << "deleted = 1"
                                  << "nurse"
                                  << "pass-word";
    QTest::newRow("when the deletion is unknown") << "deleted = NULL"
                                                  << "nurse"
                                                  << "pass-word";
    QTest::newRow("without a hash") << "password = NULL"
                                    << "nurse"
                                    << "pass-word";
    QTest::newRow("with an empty hash") << "password = ''"
                                        << "nurse"
                                        << "pass-word";
    QTest::newRow("with an empty hash and an empty password") << "password = ''"
                                                              << "nurse"
                                                              << "";
    QTest::newRow("without a salt") << "salt = NULL"
                                    << "nurse"
                                    << "pass-word";
    QTest::newRow("with an empty salt and the hash of the password alone")
        << QStringLiteral("salt = '', password = '%1'")
               .arg(PasswordHelper::hashPassword(QStringLiteral("pass-word"), QString()))
        << "nurse"
        << "pass-word";
    QTest::newRow("with a hash in capitals") << "password = upper(password)"
                                             << "nurse"
                                             << "pass-word";
    QTest::newRow("with a hash that is cut") << "password = substr(password, 1, 63)"
                                             << "nurse"
                                             << "pass-word";
    QTest::newRow("with a hash that goes on") << "password = password || '0'"
                                              << "nurse"
                                              << "pass-word";
    QTest::newRow("when the row is a Windows user's") << "operator_type = 3"
                                                      << "nurse"
                                                      << "pass-word";
    QTest::newRow("when the row is a Windows group's") << "operator_type = 2"
                                                       << "nurse"
                                                       << "pass-word";
}

void TestAccessControl::internalUserIsRefused()
{
    QFETCH(QString, change);
    QFETCH(QString, user);
    QFETCH(QString, password);
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    addRole(1, 1, -1);
    if (!change.isEmpty())
        run(QStringLiteral("UPDATE operator SET ") + change);

    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(user, password), ZephanErrors::kLoginFailed);
    QVERIFY(signIn.control.getOperator().isNull());
    QCOMPARE(int(signIn.control.allowedAccessTypes()), 0);
}

void TestAccessControl::internalUserHasTheFieldsOfTheRow()
{
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    run(QStringLiteral("UPDATE operator SET user_id = 'u7', first_name = 'Ann', middle_name = 'B.', "
                       "last_name = ?, organization_id = ?, department_id = NULL"),
        {QString::fromUtf8("Größe"), id(9)});
    addRole(1, 4, 0x1000);
    addRole(1, 7, 0x2000);

    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")), 0U);
    const OperatorModel nurse = signIn.control.getOperator();
    QCOMPARE(nurse->userID(), QStringLiteral("u7"));
    QCOMPARE(nurse->firstName(), QStringLiteral("Ann"));
    QCOMPARE(nurse->middleName(), QStringLiteral("B."));
    QCOMPARE(nurse->lastName(), QString::fromUtf8("Größe"));
    QCOMPARE(nurse->organization().key.toString(), id(9));
    QVERIFY(nurse->department().key.isNull());
    QCOMPARE(nurse->operatorType(), 1U);
    QCOMPARE(nurse->operatorRoleIDList(), QList<uint>({4, 7}));
    QCOMPARE(nurse->operatorRoleNames(), QStringList({"Role 4", "Role 7"}));
}

void TestAccessControl::liveRowOfADeletedNameCounts()
{
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("old"), 1);
    addInternalUser(2, QStringLiteral("nurse"), QStringLiteral("new"));
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("old")), ZephanErrors::kLoginFailed);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("new")), 0U);
    QCOMPARE(signIn.control.getOperator()->operatorID().toString(), id(2));
}

void TestAccessControl::oneOfTwoRowsOfANameHasThePassword()
{
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("first"));
    addInternalUser(2, QStringLiteral("nurse"), QStringLiteral("second"));
    addRole(1, 1, 0x1);
    addRole(2, 2, 0x2);
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("second")), 0U);
    QCOMPARE(signIn.control.getOperator()->operatorID().toString(), id(2));
    QCOMPARE(int(signIn.control.allowedAccessTypes()), 0x2);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("first")), 0U);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), 0x1);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("third")), ZephanErrors::kLoginFailed);
}

void TestAccessControl::windowsGroupSignsIn_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("deleted");
    QTest::addColumn<uint>("result");

    const QString group = currentUserGroups().value(0);
    QVERIFY(!group.isEmpty());
    const uint refused = ZephanErrors::kLoginFailed;
    QTest::newRow("as it is") << group << 2 << 0 << 0U;
    QTest::newRow("in capitals") << group.toUpper() << 2 << 0 << 0U;
    QTest::newRow("in small letters") << group.toLower() << 2 << 0 << 0U;
    QTest::newRow("without its prefix") << withoutPrefix(group).toUpper() << 2 << 0 << 0U;
    QTest::newRow("of another computer is refused")
        << "ELSEWHERE\\" + withoutPrefix(group) << 2 << 0 << refused;
    QTest::newRow("that the account isn't in is refused") << group + "x" << 2 << 0 << refused;
    QTest::newRow("with a part of the name is refused") << group.chopped(1) << 2 << 0 << refused;
    QTest::newRow("with a wildcard is refused") << "%" << 2 << 0 << refused;
    QTest::newRow("without a name is refused") << "" << 2 << 0 << refused;
    QTest::newRow("that is deleted is refused") << group << 2 << 1 << refused;
    QTest::newRow("that is the name of a user is refused") << group << 3 << 0 << refused;
}

void TestAccessControl::windowsGroupSignsIn()
{
    QFETCH(QString, stored);
    QFETCH(int, type);
    QFETCH(int, deleted);
    QFETCH(uint, result);
    addOperator(1, type, stored, deleted);
    addRole(1, 1, 0x30);
    SignIn signIn(kGroups, &m_database);
    QCOMPARE(signIn.login(currentAccount()), result);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), result == 0 ? 0x30 : 0);
}

void TestAccessControl::allGroupsOfTheAccountCount()
{
    const QString group = currentUserGroups().value(0);
    addOperator(1, OperatorModelData::WindowsGroup, group);
    addOperator(2, OperatorModelData::WindowsGroup, withoutPrefix(group).toUpper());
    addOperator(3, OperatorModelData::WindowsGroup, QStringLiteral("ELSEWHERE\\others"));
    addOperator(4, OperatorModelData::WindowsGroup, group.toUpper(), 1);
    addRole(1, 1, 0x1000);
    addRole(2, 2, 0x10000);
    addRole(3, 3, 0x1);
    addRole(4, 4, 0x2);
    SignIn signIn(kGroups, &m_database);
    QCOMPARE(signIn.login(currentAccount()), 0U);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), 0x11000);
    QCOMPARE(signIn.control.getOperator()->operatorRoleIDList(), QList<uint>({1, 2}));
}

void TestAccessControl::groupMemberIsTheAccountItself()
{
    addOperator(1, OperatorModelData::WindowsGroup, currentUserGroups().value(0));
    SignIn signIn(kGroups, &m_database);
    QCOMPARE(signIn.login(currentAccount()), 0U);
    QString sid;
    QString error;
    const QString account = currentUsername(sid, error);
    QCOMPARE(signIn.control.getOperator()->username(), account);
    QCOMPARE(signIn.control.getOperator()->operatorID(), getUuidFromSid(sid, error));
    QCOMPARE(signIn.control.getOperator()->operatorType(), 2U);
}

void TestAccessControl::windowsUserSignsIn_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("deleted");
    QTest::addColumn<uint>("result");

    const QString account = currentAccount();
    const uint refused = ZephanErrors::kLoginFailed;
    QTest::newRow("as it is") << account << 3 << 0 << 0U;
    QTest::newRow("in capitals") << account.toUpper() << 3 << 0 << 0U;
    QTest::newRow("in small letters") << account.toLower() << 3 << 0 << 0U;
    QTest::newRow("without its prefix") << withoutPrefix(account) << 3 << 0 << 0U;
    QTest::newRow("of another computer is refused")
        << "ELSEWHERE\\" + withoutPrefix(account) << 3 << 0 << refused;
    QTest::newRow("that is another is refused") << account + "x" << 3 << 0 << refused;
    QTest::newRow("that is deleted is refused") << account << 3 << 1 << refused;
    QTest::newRow("that is an internal user is refused") << account << 1 << 0 << refused;
    QTest::newRow("that is a group is refused") << account << 2 << 0 << refused;
}

void TestAccessControl::windowsUserSignsIn()
{
    QFETCH(QString, stored);
    QFETCH(int, type);
    QFETCH(int, deleted);
    QFETCH(uint, result);
    addOperator(1, type, stored, deleted);
    addRole(1, 1, 0x30);
    SignIn signIn(kUsers, &m_database);
    QCOMPARE(signIn.login(currentAccount()), result);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), result == 0 ? 0x30 : 0);
    if (result == 0)
        QCOMPARE(signIn.control.getOperator()->operatorID().toString(), id(1));
}

void TestAccessControl::rightsAreTheUnionOfLiveRoles_data()
{
    QTest::addColumn<QVariantList>("rights");
    QTest::addColumn<QVariantList>("deleted");
    QTest::addColumn<int>("expected");

    const QVariant null(QVariant::Int);
    QTest::newRow("none without roles") << QVariantList() << QVariantList() << 0;
    QTest::newRow("those of one role") << QVariantList{0x377000} << QVariantList{0} << 0x377000;
    QTest::newRow("those of two roles") << QVariantList{0x1003, 0x2001} << QVariantList{0, 0} << 0x3003;
    QTest::newRow("without a deleted role") << QVariantList{0x1000, 0x2000} << QVariantList{0, 1} << 0x1000;
    QTest::newRow("without a role whose deletion is unknown")
        << QVariantList{0x1000, 0x2000} << QVariantList{0, null} << 0x1000;
    QTest::newRow("without those of a role that has none")
        << QVariantList{null, 0x2000} << QVariantList{0, 0} << 0x2000;
    QTest::newRow("all of a role with all bits") << QVariantList{-1} << QVariantList{0} << -1;
}

void TestAccessControl::rightsAreTheUnionOfLiveRoles()
{
    QFETCH(QVariantList, rights);
    QFETCH(QVariantList, deleted);
    QFETCH(int, expected);
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    addInternalUser(2, QStringLiteral("other"), QStringLiteral("pass-word"));
    addRole(2, 100, 0x80000);
    for (int i = 0; i < rights.size(); ++i)
        addRole(1, i + 1, rights.at(i), deleted.at(i));
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")), 0U);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), expected);
}

void TestAccessControl::rightIsAllowedWhenAllItsBitsAre()
{
    SettingsHandler::getInstance()->setSafeValue(QLatin1String(SettingsKeys::kDefaultRights), 0x1010);
    SignIn signIn(kNone, nullptr);
    QVERIFY(!signIn.control.isAllowed(ReadPerson));
    QCOMPARE(signIn.login(QStringLiteral("admin")), 0U);
    QVERIFY(signIn.control.isAllowed(ReadPerson));
    QVERIFY(signIn.control.isAllowed(DistributeSettings));
    QVERIFY(signIn.control.isAllowed(AccessType(ReadPerson | DistributeSettings)));
    QVERIFY(!signIn.control.isAllowed(AccessType(ReadPerson | ModifyPerson)));
    QVERIFY(!signIn.control.isAllowed(AccessControlManagement));
}

void TestAccessControl::unknownMethodIsRefused()
{
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    for (const QString &method : {QString(), QStringLiteral("internal users"), QStringLiteral("None")}) {
        SignIn signIn(method, &m_database);
        QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")),
                 ZephanErrors::kLoginFailed);
    }
}

void TestAccessControl::missingDatabaseIsNoConnection_data()
{
    QTest::addColumn<QString>("method");
    QTest::newRow("for internal users") << kInternal;
    QTest::newRow("for groups") << kGroups;
    QTest::newRow("for users") << kUsers;
}

void TestAccessControl::missingDatabaseIsNoConnection()
{
    QFETCH(QString, method);
    QSqlDatabase invalid;
    m_database.close();
    for (QSqlDatabase *database : {static_cast<QSqlDatabase *>(nullptr), &invalid, &m_database}) {
        SignIn signIn(method, database);
        QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")),
                 ZephanErrors::kNoConnection);
        QVERIFY(signIn.control.getOperator().isNull());
    }
}

void TestAccessControl::missingTableIsAFailedStatement_data()
{
    QTest::addColumn<QString>("table");
    QTest::newRow("of the operators") << "operator";
    QTest::newRow("of the links") << "operator_roles";
    QTest::newRow("of the roles") << "roles";
}

void TestAccessControl::missingTableIsAFailedStatement()
{
    QFETCH(QString, table);
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    run(QStringLiteral("DROP TABLE ") + table);
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")),
             ZephanErrors::kStatementFailed);
    QVERIFY(signIn.control.getOperator().isNull());
    QCOMPARE(int(signIn.control.allowedAccessTypes()), 0);
}

void TestAccessControl::failureLeavesNobodySignedIn()
{
    addInternalUser(1, QStringLiteral("nurse"), QStringLiteral("pass-word"));
    addRole(1, 1, -1);
    SignIn signIn(kInternal, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("pass-word")), 0U);
    QVERIFY(signIn.control.isAllowed(AccessControlManagement));
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("x")), ZephanErrors::kLoginFailed);
    QVERIFY(signIn.control.getOperator().isNull());
    QVERIFY(!signIn.control.isAllowed(AccessControlManagement));
}

void TestAccessControl::resultNeverComesFromInsideLogin()
{
    for (const QString &method : {kNone, kInternal, kGroups, kUsers}) {
        SignIn signIn(method, &m_database);
        signIn.control.login(QStringLiteral("nurse"), QStringLiteral("pass-word"));
        QVERIFY(signIn.results.isEmpty());
        QTRY_COMPARE(signIn.results.size(), 1);
        QCoreApplication::processEvents();
        QCOMPARE(signIn.results.size(), 1);
    }
}

void TestAccessControl::objectCanBeDeletedInTheSlot()
{
    QPointer<AccessControl> control = new AccessControl(nullptr, kInternal, &m_database, SqlStorage::Sqlite);
    uint seenCode = 0;
    QString seenUser;
    connect(control, &AccessControl::loginResult,
            [&control, &seenCode, &seenUser](uint code, const QVariant &data, const QString &message) {
                delete control;
                seenCode = code;
                seenUser = data.toString();
                QVERIFY(!message.isEmpty());
            });
    control->login(QStringLiteral("nurse"), QStringLiteral("pass-word"));
    QTRY_VERIFY(control.isNull());
    QCOMPARE(seenCode, ZephanErrors::kLoginFailed);
    QCOMPARE(seenUser, QStringLiteral("nurse"));
}

void TestAccessControl::objectCanBeDeletedBeforeTheResult()
{
    auto *control = new AccessControl(nullptr, kInternal, &m_database, SqlStorage::Sqlite);
    QSignalSpy results(control, &AccessControl::loginResult);
    control->login(QStringLiteral("nurse"), QStringLiteral("pass-word"));
    delete control;
    QCoreApplication::processEvents();
    QVERIFY(results.isEmpty());
}

void TestAccessControl::failedAttemptNamesTheUserAndNotThePassword()
{
    SignIn signIn(kInternal, &m_database);
    signIn.control.login(QStringLiteral("nurse"), QStringLiteral("pass-word"));
    QTRY_COMPARE(signIn.results.size(), 1);
    const QList<QVariant> result = signIn.results.first();
    QCOMPARE(result.at(1).toString(), QStringLiteral("nurse"));
    QVERIFY(!result.at(2).toString().contains(QLatin1String("pass-word")));
}

QTEST_GUILESS_MAIN(TestAccessControl)
#include "test_accesscontrol.moc"
