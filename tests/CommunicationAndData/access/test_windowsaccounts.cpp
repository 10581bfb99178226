#include "CommunicationAndData/access/accessmethodsystem.h"
#include "support/workstation.h"
#include "windowsaccounts.h"

#include <QTest>

#include <memory>

namespace {

const QString kAnna = QStringLiteral("S-1-5-21-1111111111-2222222222-3333333333-1001");
const QString kStaff = QStringLiteral("S-1-5-21-1111111111-2222222222-3333333333-1131");
const QString kUsers = QStringLiteral("S-1-5-32-545");
const QString kAdministrators = QStringLiteral("S-1-5-32-544");
const QString kLogOn = QStringLiteral("S-1-5-5-0-98765");

constexpr const char *kAnnasId = "111111111-2222222222-3333333333-1001";
constexpr const char *kNil = "00000000-0000-0000-0000-000000000000";

constexpr uint kAccessDenied = 5;

}  // namespace

/// The account services of Windows, run against system calls that the test answers.
class TestWindowsAccounts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theCurrentUserIsNamedWithTheDomain_data();
    void theCurrentUserIsNamedWithTheDomain();
    void aCurrentUserWhoCantBeReadHasNoName_data();
    void aCurrentUserWhoCantBeReadHasNoName();
    void aTokenThatCantBeReadHasNoId_data();
    void aTokenThatCantBeReadHasNoId();

    void aMemberOfTheAdministratorsIsOne();
    void anAdministratorWithoutAnIdIsOneAndItIsSaidWhy();
    void aCurrentUserIsNoAdministrator_data();
    void aCurrentUserIsNoAdministrator();
    void aRestrictedTokenIsRefusedBeforeTheGroupsAreLookedAt();

    void aLogOnTakesTheAccountAsItWasTyped_data();
    void aLogOnTakesTheAccountAsItWasTyped();
    void aLogOnIsRefused_data();
    void aLogOnIsRefused();
    void aTextWithAZeroIsNotAskedAbout_data();
    void aTextWithAZeroIsNotAskedAbout();

    void theDomainOfAServer();
    void domainControllersHaveTwoBackslashesInFront();
    void anEmptyServerListsTheLocalMachineWithItsNameAsPrefix();
    void aServersAccountsHaveItsDomainAsPrefix_data();
    void aServersAccountsHaveItsDomainAsPrefix();
    void aComputerWithoutANameListsNothing();
    void whatCantBeListedIsLoggedAndTheRestIsGiven();
    void manyUsersComeInPages();
    void aPageThatFailsKeepsTheUsersBeforeIt();
    void aListWithoutAnEndIsLeft();
    void theCurrentUsersGroupsAreNamedAsListed();

private:
    QByteArray log() const
    {
        return readFile(m_workstation.runtimeLog());
    }
    bool isLast(const QByteArray &function, const QString &message) const
    {
        return log().endsWith("::" + function + '\t' + message.toUtf8() + '\n');
    }

    Workstation m_workstation;
    std::unique_ptr<WindowsAccounts> m_windows;
};

void TestWindowsAccounts::init()
{
    m_windows = std::make_unique<WindowsAccounts>();
    m_windows->user = kAnna;
    m_windows->groups = QStringList{kStaff, kUsers, kLogOn};
    m_windows->names = {{kAnna, {"CLINIC", "anna"}},
                        {kStaff, {"CLINIC", "Staff"}},
                        {kUsers, {"BUILTIN", "Users"}},
                        {kAdministrators, {"BUILTIN", "Administrators"}}};
}

/// Whatever became of a call, all that Windows handed out went back, once.
void TestWindowsAccounts::cleanup()
{
    QCOMPARE(m_windows->handedOut(), 0);
    QCOMPARE(m_windows->wrongReturns, 0);
    m_windows.reset();
}

void TestWindowsAccounts::theCurrentUserIsNamedWithTheDomain_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("user");

    QTest::newRow("domain and name") << "CLINIC"
                                     << "anna"
                                     << "CLINIC\\anna";
    QTest::newRow("without a domain the name alone") << ""
                                                     << "anna"
                                                     << "anna";
    QTest::newRow("letters of many scripts")
        << QString::fromUtf8("KLINIK Ä") << QString::fromUtf8("Größe 日本 😀")
        << QString::fromUtf8("KLINIK Ä\\Größe 日本 😀");
    const QString longest(256, QLatin1Char('x'));
    QTest::newRow("the longest names") << longest << longest << longest + '\\' + longest;
}

void TestWindowsAccounts::theCurrentUserIsNamedWithTheDomain()
{
    QFETCH(QString, domain);
    QFETCH(QString, name);
    QFETCH(QString, user);
    m_windows->names[kAnna] = {domain, name};
    QString sid;
    QString error;
    QCOMPARE(currentUsername(sid, error), user);
    QCOMPARE(sid, kAnna);
    QCOMPARE(error, QString());
    QVERIFY(isLast("currentUsername", "currentUser=" + user));
    QCOMPARE(m_windows->calls, (QStringList{"OpenProcessToken 8", "size of TokenUser", "TokenUser",
                                            "LookupAccountSidW null " + kAnna, "ConvertSidToStringSidW"}));
}

void TestWindowsAccounts::aCurrentUserWhoCantBeReadHasNoName_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("error");

    QTest::newRow("no token") << "OpenProcessToken"
                              << "Could not acquire process token!";
    QTest::newRow("no size") << "size of TokenUser"
                             << "Could not get the required buffer size";
    QTest::newRow("no data") << "TokenUser"
                             << "Could not get user information";
    QTest::newRow("no account") << "LookupAccountSidW"
                                << "could not lookupAccountSid";
}

void TestWindowsAccounts::aCurrentUserWhoCantBeReadHasNoName()
{
    QFETCH(QString, call);
    QFETCH(QString, error);
    m_windows->fail(call, kAccessDenied);
    QString sid;
    QString said;
    QCOMPARE(currentUsername(sid, said), QString());
    QCOMPARE(sid, QString());
    QCOMPARE(said, error);
    QVERIFY(isLast("currentUsername", error));
}

void TestWindowsAccounts::aTokenThatCantBeReadHasNoId_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QByteArray>("loggedBy");

    QTest::newRow("no size, which is not logged") << "size of TokenUser"
                                                  << "Could not get the required buffer size" << QByteArray();
    QTest::newRow("no data") << "TokenUser"
                             << "Could not get user information" << QByteArray("getUuidFromToken");
    QTest::newRow("no account") << "LookupAccountSidW"
                                << "could not lookupAccountSid" << QByteArray("getUuidFromToken");
    QTest::newRow("no text of the identifier") << "ConvertSidToStringSidW"
                                               << "Unknown SID format" << QByteArray("getUuidFromSid");
}

void TestWindowsAccounts::aTokenThatCantBeReadHasNoId()
{
    QFETCH(QString, call);
    QFETCH(QString, error);
    QFETCH(QByteArray, loggedBy);
    m_windows->fail(call, kAccessDenied);
    const QByteArray before = log();
    QString said;
    QVERIFY(getUuidFromToken(nullptr, said).isNull());
    QCOMPARE(said, error);
    if (loggedBy.isEmpty())
        QCOMPARE(log(), before);
    else
        QVERIFY(isLast(loggedBy, error));
}

void TestWindowsAccounts::aMemberOfTheAdministratorsIsOne()
{
    m_windows->groups.append(kAdministrators);
    UuidString id;
    QString error;
    QVERIFY(isCurrentUserAdmin(id, error));
    QCOMPARE(id.toString(), QLatin1String(kAnnasId));
    QCOMPARE(error, QString());
    QVERIFY(m_windows->calls.contains("AllocateAndInitializeSid 2"));
}

void TestWindowsAccounts::anAdministratorWithoutAnIdIsOneAndItIsSaidWhy()
{
    m_windows->groups.append(kAdministrators);
    m_windows->names.remove(kAnna);
    UuidString id(QString(36, QLatin1Char('7')));
    QString error;
    QVERIFY(isCurrentUserAdmin(id, error));
    QVERIFY(id.isNull());
    QCOMPARE(error, QStringLiteral("could not lookupAccountSid"));
}

void TestWindowsAccounts::aCurrentUserIsNoAdministrator_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("logged");
    QTest::addColumn<QString>("id");

    const QString noSize = QStringLiteral("Could not get the required buffer size");
    QTest::newRow("none of the groups") << ""
                                        << "No admin rights"
                                        << "No admin rights" << kAnnasId;
    QTest::newRow("no token") << "OpenProcessToken"
                              << "Could not acquire process token!"
                              << "Could not acquire process token!" << kNil;
    QTest::newRow("no size of the groups") << "size of TokenGroups" << noSize << noSize << kNil;
    QTest::newRow("no groups, which is logged with the last error and the size")
        << "TokenGroups"
        << "Could not get Token info"
        << "Could not get Token info: 5, 136" << kNil;
    QTest::newRow("no identifier to compare with") << "AllocateAndInitializeSid"
                                                   << "Could not allocate SID"
                                                   << "Could not allocate SID" << kAnnasId;
}

void TestWindowsAccounts::aCurrentUserIsNoAdministrator()
{
    QFETCH(QString, call);
    QFETCH(QString, error);
    QFETCH(QString, logged);
    QFETCH(QString, id);
    m_windows->fail(call, kAccessDenied);
    UuidString got;
    QString said;
    QVERIFY(!isCurrentUserAdmin(got, said));
    QCOMPARE(said, error);
    QCOMPARE(got.toString(), id);
    QVERIFY2(isLast("isCurrentUserAdmin", logged), log().split('\n').constLast());
}

void TestWindowsAccounts::aRestrictedTokenIsRefusedBeforeTheGroupsAreLookedAt()
{
    m_windows->groups.append(kAdministrators);
    m_windows->restricted = true;
    UuidString id;
    QString error;
    QVERIFY(!isCurrentUserAdmin(id, error));
    QCOMPARE(error, QStringLiteral("Restricted authentication"));
    QVERIFY(id.isNull());
    QCOMPARE(m_windows->calls, (QStringList{"OpenProcessToken 8", "IsTokenRestricted"}));
    QVERIFY(isLast("isCurrentUserAdmin", error));
}

void TestWindowsAccounts::aLogOnTakesTheAccountAsItWasTyped_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("asked");

    QTest::newRow("name and domain") << "anna"
                                     << "CLINIC"
                                     << "LogonUserW anna CLINIC s3crét 2 0";
    QTest::newRow("this computer's own accounts") << "anna"
                                                  << "."
                                                  << "LogonUserW anna . s3crét 2 0";
    QTest::newRow("the name alone") << "anna"
                                    << ""
                                    << "LogonUserW anna  s3crét 2 0";
    QTest::newRow("a name that holds its domain goes without another one")
        << "anna@clinic.example"
        << ""
        << "LogonUserW anna@clinic.example null s3crét 2 0";
    QTest::newRow("a domain that was given stays beside such a name")
        << "anna@clinic.example"
        << "CLINIC"
        << "LogonUserW anna@clinic.example CLINIC s3crét 2 0";
}

void TestWindowsAccounts::aLogOnTakesTheAccountAsItWasTyped()
{
    QFETCH(QString, user);
    QFETCH(QString, domain);
    QFETCH(QString, asked);
    m_windows->groups.append(kAdministrators);
    UuidString id;
    QString error;
    QVERIFY(logonAdmin(user, domain, QString::fromUtf8("s3crét"), id, error));
    QCOMPARE(m_windows->calls.first(), asked);
    QCOMPARE(id.toString(), QLatin1String(kAnnasId));
    QCOMPARE(error, QString());
    QVERIFY(!log().contains("s3cr"));
}

void TestWindowsAccounts::aLogOnIsRefused_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("restricted");
    QTest::addColumn<QString>("error");

    QTest::newRow("wrong password") << "LogonUserW" << false << "Login failure";
    QTest::newRow("restricted token") << "" << true << "Restricted authentication";
    QTest::newRow("no administrator") << "" << false << "No admin rights";
    QTest::newRow("no size of the groups")
        << "size of TokenGroups" << false << "Could not get the required buffer size";
    QTest::newRow("no identifier to compare with")
        << "AllocateAndInitializeSid" << false << "Could not allocate SID";
}

void TestWindowsAccounts::aLogOnIsRefused()
{
    QFETCH(QString, call);
    QFETCH(bool, restricted);
    QFETCH(QString, error);
    m_windows->fail(call, kAccessDenied);
    m_windows->restricted = restricted;
    UuidString id;
    QString said;
    QVERIFY(!logonAdmin("anna", "CLINIC", "s3cret", id, said));
    QCOMPARE(said, error);
    QVERIFY(isLast("logonAdmin", error));
    QVERIFY(!log().contains("s3cr"));
}

void TestWindowsAccounts::aTextWithAZeroIsNotAskedAbout_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("password");

    const QString rest = QString(QChar(QChar::Null)) + QLatin1Char('x');
    QTest::newRow("in the name") << "anna" + rest << "CLINIC"
                                 << "s3cret";
    QTest::newRow("in the domain") << "anna"
                                   << "CLINIC" + rest << "s3cret";
    QTest::newRow("in the password") << "anna"
                                     << "CLINIC"
                                     << "s3cret" + rest;
}

void TestWindowsAccounts::aTextWithAZeroIsNotAskedAbout()
{
    QFETCH(QString, user);
    QFETCH(QString, domain);
    QFETCH(QString, password);
    m_windows->groups.append(kAdministrators);
    UuidString id;
    QString error;
    QVERIFY(!logonAdmin(user, domain, password, id, error));
    QCOMPARE(error, QStringLiteral("Login failure"));
    QCOMPARE(m_windows->calls, QStringList());
}

void TestWindowsAccounts::theDomainOfAServer()
{
    m_windows->langroup = "CLINIC";
    QCOMPARE(getDomainName(R"(\\DC1)"), QStringLiteral("CLINIC"));
    QVERIFY(isLast("getDomainName", "domain=CLINIC"));
    QCOMPARE(getDomainName(QString()), QStringLiteral("CLINIC"));
    QCOMPARE(m_windows->calls, (QStringList{R"(NetWkstaGetInfo \\DC1 100)", "NetWkstaGetInfo null 100"}));

    m_windows->fail("NetWkstaGetInfo", 53);
    QCOMPARE(getDomainName(R"(\\DC1)"), QString());
    QVERIFY(isLast("getDomainName", "NetWkstaGetInfo: 53"));
}

void TestWindowsAccounts::domainControllersHaveTwoBackslashesInFront()
{
    m_windows->servers = QStringList{"DC1", "DC2"};
    QCOMPARE(getServers(), (QStringList{R"(\\DC1)", R"(\\DC2)"}));
    QCOMPARE(m_windows->calls, QStringList("NetServerEnum null 100 4294967295 8 null"));
    QVERIFY(isLast("getServers", "getServers servertype: 8"));

    m_windows->fail("NetServerEnum", 6118);
    QCOMPARE(getServers(), QStringList());
    QVERIFY(isLast("getServers", "NetServerEnum: 6118"));
}

void TestWindowsAccounts::anEmptyServerListsTheLocalMachineWithItsNameAsPrefix()
{
    m_windows->localGroups = QStringList{"Administrators", "Users"};
    m_windows->globalGroups = QStringList{"None"};
    m_windows->users = QStringList{"anna", "ben"};
    QCOMPARE(getSystemGroups(QString()),
             (QStringList{R"(WARD3\Administrators)", R"(WARD3\Users)", R"(WARD3\None)"}));
    QCOMPARE(getSystemUsers(QString()), (QStringList{R"(WARD3\anna)", R"(WARD3\ben)"}));
    QCOMPARE(m_windows->calls,
             (QStringList{"GetComputerNameW 255", "NetLocalGroupEnum null 0 4294967295",
                          "NetGroupEnum null 0 4294967295", "GetComputerNameW 255",
                          "NetQueryDisplayInformation null 1 0 1000 4294967295", "page at 0"}));
}

void TestWindowsAccounts::aServersAccountsHaveItsDomainAsPrefix_data()
{
    QTest::addColumn<QString>("langroup");
    QTest::addColumn<QString>("prefix");

    QTest::newRow("its domain") << "CLINIC"
                                << "CLINIC";
    QTest::newRow("its own name where it tells none") << ""
                                                      << R"(\\DC1)";
}

void TestWindowsAccounts::aServersAccountsHaveItsDomainAsPrefix()
{
    QFETCH(QString, langroup);
    QFETCH(QString, prefix);
    m_windows->langroup = langroup;
    m_windows->localGroups = QStringList{"Users"};
    m_windows->globalGroups = QStringList{"Staff"};
    m_windows->users = QStringList{"anna"};
    const QString server = QStringLiteral(R"(\\DC1)");
    QCOMPARE(getSystemGroups(server), (QStringList{prefix + "\\Users", prefix + "\\Staff"}));
    QCOMPARE(getSystemUsers(server), QStringList(prefix + "\\anna"));
    for (const QString &call : qAsConst(m_windows->calls))
        QVERIFY2(call.startsWith("page") || call.contains(R"( \\DC1 )"), qPrintable(call));
}

void TestWindowsAccounts::aComputerWithoutANameListsNothing()
{
    m_windows->localGroups = QStringList{"Users"};
    m_windows->users = QStringList{"anna"};
    m_windows->fail("GetComputerNameW", kAccessDenied);
    QCOMPARE(getSystemGroups(QString()) + getSystemUsers(QString()), QStringList());
    QCOMPARE(m_windows->calls, (QStringList{"GetComputerNameW 255", "GetComputerNameW 255"}));
}

void TestWindowsAccounts::whatCantBeListedIsLoggedAndTheRestIsGiven()
{
    m_windows->localGroups = QStringList{"Users"};
    m_windows->globalGroups = QStringList{"None"};
    m_windows->fail("NetLocalGroupEnum", 5);
    QCOMPARE(getSystemGroups(QString()), QStringList(R"(WARD3\None)"));
    QVERIFY(isLast("getSystemGroups", "NetLocalGroupEnum: 5 "));
    m_windows->fail("NetGroupEnum", 2226);
    QCOMPARE(getSystemGroups(QString()), QStringList());
    QVERIFY(isLast("getSystemGroups", "NetGroupEnum: 2226"));
    m_windows->fail("NetQueryDisplayInformation", 5);
    QCOMPARE(getSystemUsers(QString()), QStringList());
    QVERIFY(isLast("getSystemUsers", "NetQueryDisplayInformation: 5"));
}

void TestWindowsAccounts::manyUsersComeInPages()
{
    QStringList expected;
    for (int i = 0; i < 2500; ++i) {
        m_windows->users.append(QStringLiteral("user%1").arg(i));
        expected.append(QStringLiteral("WARD3\\user%1").arg(i));
    }
    QCOMPARE(getSystemUsers(QString()), expected);
    QCOMPARE(m_windows->calls.filter("NetQueryDisplayInformation").size(), 25);
}

void TestWindowsAccounts::aPageThatFailsKeepsTheUsersBeforeIt()
{
    m_windows->users = QStringList{"anna", "ben", "cleo"};
    m_windows->usersAtOnce = 2;
    m_windows->fail("page at 14", 1231);
    QCOMPARE(getSystemUsers(QString()), (QStringList{R"(WARD3\anna)", R"(WARD3\ben)"}));
    QVERIFY(isLast("getSystemUsers", "NetQueryDisplayInformation: 1231"));
}

void TestWindowsAccounts::aListWithoutAnEndIsLeft()
{
    m_windows->users = QStringList{"anna"};
    m_windows->moreWithoutEnd = true;
    QCOMPARE(getSystemUsers(QString()), QStringList(R"(WARD3\anna)"));
}

void TestWindowsAccounts::theCurrentUsersGroupsAreNamedAsListed()
{
    QCOMPARE(currentUserGroups(), (QStringList{R"(CLINIC\Staff)", R"(BUILTIN\Users)", R"(WARD3\Users)"}));
    m_windows->fail("GetComputerNameW", kAccessDenied);
    QCOMPARE(currentUserGroups(), (QStringList{R"(CLINIC\Staff)", R"(BUILTIN\Users)"}));
    m_windows->fail("TokenGroups", kAccessDenied);
    QCOMPARE(currentUserGroups(), QStringList());
    m_windows->fail("OpenProcessToken", kAccessDenied);
    QCOMPARE(currentUserGroups(), QStringList());
}

QTEST_GUILESS_MAIN(TestWindowsAccounts)
#include "test_windowsaccounts.moc"
