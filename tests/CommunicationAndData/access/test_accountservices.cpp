#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/access/accessmethodsystemhelper.h"
#include "support/workstation.h"
#include "testaccount.h"

#include <QSysInfo>
#include <QTest>
#include <QThread>

#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sched.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr const char *kNil = "00000000-0000-0000-0000-000000000000";

QString onThisComputer(const QString &name)
{
    return QSysInfo::machineHostName() + QLatin1Char('\\') + name;
}

/// What `isCurrentUserAdmin` says: the answer, the error and the id.
QByteArray adminAnswer()
{
    UuidString id;
    QString error;
    const bool isAdmin = isCurrentUserAdmin(id, error);
    return (isAdmin ? "yes|" : "no|") + error.toUtf8() + '|' + id.toString().toUtf8();
}

bool enterNameSpaceOfOneId()
{
    if (unshare(CLONE_NEWUSER) != 0)
        return false;
    constexpr char map[] = "0 0 1";
    const int file = open("/proc/self/uid_map", O_WRONLY);
    const bool mapped = write(file, map, strlen(map)) == ssize_t(strlen(map));
    close(file);
    return mapped && geteuid() == 0;
}

}  // namespace

/// Collects what a domain helper delivers, and where.
class DomainListener : public QObject
{
    Q_OBJECT

public slots:
    void domainListUpdated(QStringList domainList)
    {
        lists.append(domainList);
        threads.append(QThread::currentThread());
    }

public:
    QList<QStringList> lists;
    QList<QThread *> threads;
};

class TestAccountServices : public QObject
{
    Q_OBJECT

private slots:
    void sidBecomesId_data();
    void sidBecomesId();
    void everyAccountHasAnId_data();
    void everyAccountHasAnId();
    void accountsHaveDifferentIds();
    void anUnknownAccountHasNoId();
    void failuresAreLogged();
    void theMissingTokenIsNotLogged();

    void currentUserIsNamedWithTheDomain();
    void aProcessWithoutAnAccountHasNoName();
    void currentUserGroupsAreNamedAsListed();
    void rootIsAnAdministrator();
    void anAdministratorsGroupMakesAnAdministrator_data();
    void anAdministratorsGroupMakesAnAdministrator();
    void aRestrictedTokenIsRefusedBeforeTheGroupsAreLookedAt();
    void rootOfANameSpaceThatAnybodyCanMakeIsRestricted();

    void anEmptyServerListsTheLocalMachineWithItsNameAsPrefix();
    void onlyOrdinaryAccountsAreListed();
    void aServerThatIsNotThereListsNothing();
    void thisComputerIsItsOwnDomain_data();
    void thisComputerIsItsOwnDomain();
    void noDomainControllersAreKnown();

    void domainsArriveFromTheHelpersThread();
    void theHelperFetchesOnceByItself();
    void theHelperCanBeDestroyedAtOnce();

private:
    QByteArray log() const
    {
        return readFile(m_workstation.runtimeLog());
    }

    Workstation m_workstation;
};

void TestAccountServices::sidBecomesId_data()
{
    QTest::addColumn<QString>("sid");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("error");

    QTest::newRow("37 characters lose the leading digit") << "S-1-5-21-1111111111-2222222222-3333333333-1001"
                                                          << "111111111-2222222222-3333333333-1001"
                                                          << "";
    QTest::newRow("36 characters stand") << "S-1-5-21-1111111111-2222222222-3333333333-500"
                                         << "1111111111-2222222222-3333333333-500"
                                         << "";
    QTest::newRow("more than 37 characters lose all that is too much")
        << "S-1-5-21-1111111111-2222222222-3333333333-1234567"
        << "111111-2222222222-3333333333-1234567"
        << "";
    QTest::newRow("short parts of a domain give the nil UUID without an error")
        << "S-1-5-21-1-2-3-1001" << kNil << "";
    QTest::newRow("35 characters give the nil UUID without an error")
        << "S-1-5-21-111111111-2222222222-3333333333-500" << kNil << "";
    QTest::newRow("a well-known account has an unknown format") << "S-1-5-18" << kNil << "Unknown SID format";
    QTest::newRow("nine parts are an unknown format")
        << "S-1-5-21-1111111111-2222222222-3333333333-1001-1" << kNil << "Unknown SID format";
    QTest::newRow("empty parts don't count") << "S-1--5-21-1111111111-2222222222-3333333333-1001-"
                                             << "111111111-2222222222-3333333333-1001"
                                             << "";
    QTest::newRow("an empty text has an unknown format") << "" << kNil << "Unknown SID format";
    QTest::newRow("the digits are not looked at") << "a-b-c-d-1111111111-2222222222-3333333333-ABC"
                                                  << "1111111111-2222222222-3333333333-ABC"
                                                  << "";
}

void TestAccountServices::sidBecomesId()
{
    QFETCH(QString, sid);
    QFETCH(QString, id);
    QFETCH(QString, error);
    QString said;
    QCOMPARE(getUuidFromSid(sid, said).toString(), id);
    QCOMPARE(said, error);
}

void TestAccountServices::everyAccountHasAnId_data()
{
    QTest::addColumn<quint32>("user");
    QTest::addColumn<QString>("relativeId");

    QTest::newRow("root") << 0U << "-1000";
    QTest::newRow("a service") << 1U << "-1002";
    QTest::newRow("nobody") << 65534U << "-132068";
}

void TestAccountServices::everyAccountHasAnId()
{
    QFETCH(quint32, user);
    QFETCH(QString, relativeId);
    AccountToken token;
    token.user = user;
    QString error;
    const QString id = getUuidFromToken(&token, error).toString();
    QCOMPARE(error, QString());
    QVERIFY2(id.endsWith(relativeId), qPrintable(id));
    QCOMPARE(id.count(QLatin1Char('-')), 3);
    QCOMPARE(id.size(), 36);
}

void TestAccountServices::accountsHaveDifferentIds()
{
    AccountToken root;
    AccountToken service;
    service.user = 1;
    QString error;
    QVERIFY(getUuidFromToken(&root, error) != getUuidFromToken(&service, error));
    QVERIFY(getUuidFromToken(&root, error) == getUuidFromToken(&root, error));
}

void TestAccountServices::anUnknownAccountHasNoId()
{
    AccountToken token;
    token.user = 3987654321U;
    QString error;
    QVERIFY(getUuidFromToken(&token, error).isNull());
    QCOMPARE(error, QStringLiteral("could not lookupAccountSid"));
    QVERIFY(log().contains("::getUuidFromToken\tcould not lookupAccountSid\n"));
}

void TestAccountServices::failuresAreLogged()
{
    QString error;
    getUuidFromSid(QStringLiteral("S-1-5-18"), error);
    const QList<QByteArray> lines = log().split('\n');
    const QByteArray line = lines.at(lines.size() - 2);
    QVERIFY2(line.startsWith("INF ??: "), line);
    QVERIFY2(line.contains("\t..\\..\\source\\CommunicationAndData\\access\\accessmethodsystem_win:"), line);
    QVERIFY2(line.endsWith("::getUuidFromSid\tUnknown SID format"), line);
}

void TestAccountServices::theMissingTokenIsNotLogged()
{
    QString error;
    const QByteArray before = log();
    QVERIFY(getUuidFromToken(nullptr, error).isNull());
    QCOMPARE(error, QStringLiteral("Could not get the required buffer size"));
    QCOMPARE(log(), before);
}

void TestAccountServices::currentUserIsNamedWithTheDomain()
{
    QString sid;
    QString error;
    const QString name = currentUsername(sid, error);
    QCOMPARE(error, QString());
    QCOMPARE(name, onThisComputer(QString::fromLocal8Bit(getpwuid(geteuid())->pw_name)));
    QCOMPARE(sid.split(QLatin1Char('-')).size(), 8);
    QVERIFY(sid.startsWith(QLatin1String("S-1-5-21-")));
    QVERIFY(sid.endsWith(QLatin1Char('-') + QString::number(1000 + 2 * quint64(geteuid()))));
    QVERIFY(log().contains("::currentUsername\tcurrentUser=" + name.toUtf8() + '\n'));
    for (const QString &part : sid.split(QLatin1Char('-')).mid(4, 3)) {
        bool fits = false;
        QVERIFY2(part.toUInt(&fits) >= 1000000000 && fits, qPrintable(part));
    }
}

void TestAccountServices::aProcessWithoutAnAccountHasNoName()
{
    if (geteuid() != 0)
        QSKIP("only root can become an account that doesn't exist");
    const QByteArray answer = inOwnProcess([] {
        QString sid;
        QString error;
        if (!becomeUser(987654321, {}))
            return QByteArray("still somebody");
        const QString name = currentUsername(sid, error);
        return name.toUtf8() + '|' + sid.toUtf8() + '|' + error.toUtf8() + '|' + adminAnswer();
    });
    QCOMPARE(answer, QByteArray("||could not lookupAccountSid|no|No admin rights|") + kNil);
}

void TestAccountServices::currentUserGroupsAreNamedAsListed()
{
    if (const QString obstacle = TestAccount::obstacle(); !obstacle.isEmpty())
        QSKIP(qPrintable(obstacle));
    const TestAccount account;
    QVERIFY(account.exists());
    const quint32 user = account.user();
    const QByteArray answer = inOwnProcess([user] {
        return becomeUser(user, {user}) ? currentUserGroups().join(QLatin1Char(',')).toUtf8() : QByteArray();
    });
    QCOMPARE(answer, onThisComputer(account.name()).toUtf8());
    QVERIFY(getSystemGroups(QString()).contains(QString::fromUtf8(answer)));
}

void TestAccountServices::rootIsAnAdministrator()
{
    if (geteuid() != 0)
        QSKIP("needs root");
    UuidString id;
    QString error;
    QVERIFY(isCurrentUserAdmin(id, error));
    QCOMPARE(error, QString());
    AccountToken root;
    QCOMPARE(id, getUuidFromToken(&root, error));
}

void TestAccountServices::anAdministratorsGroupMakesAnAdministrator_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("a member of sudo is an administrator") << QByteArray("sudo") << QByteArray("yes||");
    QTest::newRow("a member of games is none") << QByteArray("games") << QByteArray("no|No admin rights|");
}

void TestAccountServices::anAdministratorsGroupMakesAnAdministrator()
{
    QFETCH(QByteArray, group);
    QFETCH(QByteArray, answer);
    if (const QString obstacle = TestAccount::obstacle(); !obstacle.isEmpty())
        QSKIP(qPrintable(obstacle));
    const struct group *entry = getgrnam(group.constData());
    QVERIFY(entry);
    const gid_t member = entry->gr_gid;
    const TestAccount account;
    QVERIFY(account.exists());
    const quint32 user = account.user();
    const QByteArray said = inOwnProcess(
        [=] { return becomeUser(user, {member}) ? adminAnswer() : QByteArray("could not become the user"); });
    QVERIFY2(said.startsWith(answer), said);
    QVERIFY2(said.endsWith('-' + QByteArray::number(1000 + 2 * user)), said);
}

void TestAccountServices::aRestrictedTokenIsRefusedBeforeTheGroupsAreLookedAt()
{
    // A root that may gain no privileges would be an administrator by its groups, and would have an id.
    QByteArray answer;
    inOwnThread([&answer] {
        prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
        answer = adminAnswer();
    });
    QCOMPARE(answer, QByteArray("no|Restricted authentication|") + kNil);
    QVERIFY(log().endsWith("::isCurrentUserAdmin\tRestricted authentication\n"));
}

void TestAccountServices::rootOfANameSpaceThatAnybodyCanMakeIsRestricted()
{
    const QByteArray answer =
        inOwnProcess([] { return enterNameSpaceOfOneId() ? adminAnswer() : QByteArray("no name space"); });
    if (answer == "no name space")
        QSKIP("root alone is sure to enter a user name space");
    QCOMPARE(answer, QByteArray("no|Restricted authentication|") + kNil);
}

void TestAccountServices::anEmptyServerListsTheLocalMachineWithItsNameAsPrefix()
{
    if (const QString obstacle = TestAccount::obstacle(); !obstacle.isEmpty())
        QSKIP(qPrintable(obstacle));
    const TestAccount account;
    QVERIFY(account.exists());
    const QString name = onThisComputer(account.name());
    const QStringList users = getSystemUsers(QString());
    const QStringList groups = getSystemGroups(QString());
    QCOMPARE(users.count(name), 1);
    QCOMPARE(groups.count(name), 1);
    for (const QString &entry : users + groups)
        QVERIFY2(entry.startsWith(onThisComputer(QString())), qPrintable(entry));
}

void TestAccountServices::onlyOrdinaryAccountsAreListed()
{
    for (const char *name : {"root", "daemon", "nobody", "mail"})
        QVERIFY2(!getSystemUsers(QString()).contains(onThisComputer(QLatin1String(name))), name);
    for (const char *name : {"root", "daemon", "nogroup", "mail"})
        QVERIFY2(!getSystemGroups(QString()).contains(onThisComputer(QLatin1String(name))), name);
}

void TestAccountServices::aServerThatIsNotThereListsNothing()
{
    const QString server = QStringLiteral("\\\\nosuchserver");
    QCOMPARE(getSystemUsers(server), QStringList());
    QVERIFY(log().endsWith("::getSystemUsers\tNetQueryDisplayInformation: 53\n"));
    QCOMPARE(getSystemGroups(server), QStringList());
    QVERIFY(log().contains("::getSystemGroups\tNetLocalGroupEnum: 53 \n"));
    QVERIFY(log().endsWith("::getSystemGroups\tNetGroupEnum: 53\n"));
    QCOMPARE(getDomainName(server), QString());
    QVERIFY(log().endsWith("::getDomainName\tNetWkstaGetInfo: 53\n"));
}

void TestAccountServices::thisComputerIsItsOwnDomain_data()
{
    QTest::addColumn<QString>("server");

    QTest::newRow("no name") << QString();
    QTest::newRow("its name") << QSysInfo::machineHostName();
    QTest::newRow("its name in capitals") << QSysInfo::machineHostName().toUpper();
    QTest::newRow("its name as a server's") << QStringLiteral("\\\\") + QSysInfo::machineHostName();
}

void TestAccountServices::thisComputerIsItsOwnDomain()
{
    QFETCH(QString, server);
    QCOMPARE(getDomainName(server), QSysInfo::machineHostName());
    QVERIFY(log().endsWith("::getDomainName\tdomain=" + QSysInfo::machineHostName().toUtf8() + '\n'));
    QCOMPARE(getSystemGroups(server), getSystemGroups(QString()));
}

void TestAccountServices::noDomainControllersAreKnown()
{
    QCOMPARE(getServers(), QStringList());
    QVERIFY(log().endsWith("::getServers\tgetServers servertype: 8\n"));
    QCOMPARE(getServers(1), QStringList());
    QVERIFY(log().endsWith("::getServers\tgetServers servertype: 1\n"));
}

void TestAccountServices::domainsArriveFromTheHelpersThread()
{
    AccessMethodSystemHelper helper;
    QVERIFY(helper.thread() != QThread::currentThread());
    DomainListener listener;
    QVERIFY(connect(&helper, SIGNAL(domainListUpdated(QStringList)), &listener,
                    SLOT(domainListUpdated(QStringList))));
    emit helper.updateDomainList();
    QTRY_VERIFY(!listener.lists.isEmpty());
    QCOMPARE(listener.lists.constLast(), getServers());
    QCOMPARE(listener.threads.constLast(), QThread::currentThread());
}

void TestAccountServices::theHelperFetchesOnceByItself()
{
    const int before = log().count("getServers servertype: 8");
    {
        const AccessMethodSystemHelper helper;
        QTRY_COMPARE(log().count("getServers servertype: 8"), before + 1);
    }
    QCOMPARE(log().count("getServers servertype: 8"), before + 1);
}

void TestAccountServices::theHelperCanBeDestroyedAtOnce()
{
    for (int i = 0; i < 200; ++i)
        const AccessMethodSystemHelper helper;
}

QTEST_GUILESS_MAIN(TestAccountServices)
#include "test_accountservices.moc"
