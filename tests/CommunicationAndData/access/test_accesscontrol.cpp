#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/zephanerror.h"
#include "accesstables.h"

#include <QPointer>
#include <QTest>

/// Internal users, the rights of their roles, and how a sign-in ends in every other case.
class TestAccessControl : public AccessTables
{
    Q_OBJECT

private slots:
    void internalUserSignsInWithThePassword_data();
    void internalUserSignsInWithThePassword();
    void internalUserIsRefused_data();
    void internalUserIsRefused();
    void internalUserHasTheFieldsOfTheRow();
    void liveRowOfADeletedNameCounts();
    void oneOfTwoRowsOfANameHasThePassword();
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
    void refusalIsNotLogged_data();
    void refusalIsNotLogged();
    void faultIsLoggedOnce();

private:
    int warnings() const
    {
        return readFile(m_workstation.runtimeLog()).count("AccessControl::login");
    }
};

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

void TestAccessControl::refusalIsNotLogged_data()
{
    QTest::addColumn<QString>("method");
    QTest::newRow("of an internal user") << kInternal;
    QTest::newRow("of an account whose groups are unknown") << kGroups;
    QTest::newRow("of an account that is unknown") << kUsers;
    QTest::newRow("by a method that there is not") << QStringLiteral("by card");
}

void TestAccessControl::refusalIsNotLogged()
{
    QFETCH(QString, method);
    const int before = warnings();
    SignIn signIn(method, &m_database);
    QCOMPARE(signIn.login(QStringLiteral("nurse"), QStringLiteral("x")), ZephanErrors::kLoginFailed);
    QCOMPARE(warnings(), before);
}

void TestAccessControl::faultIsLoggedOnce()
{
    const int before = warnings();
    SignIn failing(kInternal, &m_database);
    run(QStringLiteral("DROP TABLE operator"));
    QCOMPARE(failing.login(QStringLiteral("nurse"), QStringLiteral("x")), ZephanErrors::kStatementFailed);
    QCOMPARE(warnings(), before + 1);
    SignIn unconnected(kInternal, nullptr);
    QCOMPARE(unconnected.login(QStringLiteral("nurse"), QStringLiteral("x")), ZephanErrors::kNoConnection);
    QCOMPARE(warnings(), before + 2);
}

QTEST_GUILESS_MAIN(TestAccessControl)
#include "test_accesscontrol.moc"
