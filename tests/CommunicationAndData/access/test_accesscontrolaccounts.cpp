#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/zephanerror.h"
#include "accesstables.h"

#include <QTest>

namespace {

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

}  // namespace

/// Who is signed in without a password: the given user, and the current account by its groups or its name.
class TestAccessControlAccounts : public AccessTables
{
    Q_OBJECT

private slots:
    void givenUserIsTakenAsItIs_data();
    void givenUserIsTakenAsItIs();
    void defaultRightsAreReadInsideLogin();
    void defaultRightsCountForNoneAlone();
    void windowsGroupSignsIn_data();
    void windowsGroupSignsIn();
    void allGroupsOfTheAccountCount();
    void groupMemberIsTheAccountItself();
    void windowsUserSignsIn_data();
    void windowsUserSignsIn();
};

void TestAccessControlAccounts::givenUserIsTakenAsItIs_data()
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

void TestAccessControlAccounts::givenUserIsTakenAsItIs()
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

void TestAccessControlAccounts::defaultRightsAreReadInsideLogin()
{
    const QString key = QLatin1String(SettingsKeys::kDefaultRights);
    SettingsHandler::getInstance()->setSafeValue(key, -1);
    SignIn signIn(kNone, nullptr);
    signIn.control.login(QStringLiteral("admin"), QString());
    SettingsHandler::getInstance()->setSafeValue(key, 0);
    QTRY_COMPARE(signIn.results.size(), 1);
    QCOMPARE(int(signIn.control.allowedAccessTypes()), -1);
}

void TestAccessControlAccounts::defaultRightsCountForNoneAlone()
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

void TestAccessControlAccounts::windowsGroupSignsIn_data()
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

void TestAccessControlAccounts::windowsGroupSignsIn()
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

void TestAccessControlAccounts::allGroupsOfTheAccountCount()
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

void TestAccessControlAccounts::groupMemberIsTheAccountItself()
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

void TestAccessControlAccounts::windowsUserSignsIn_data()
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

void TestAccessControlAccounts::windowsUserSignsIn()
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

QTEST_GUILESS_MAIN(TestAccessControlAccounts)
#include "test_accesscontrolaccounts.moc"
