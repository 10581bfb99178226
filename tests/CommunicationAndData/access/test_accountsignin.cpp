#include "CommunicationAndData/access/accessmethodsystem.h"
#include "support/workstation.h"
#include "testaccount.h"

#include <QDir>
#include <QScopedPointer>
#include <QSysInfo>
#include <QTest>

#include <pwd.h>
#include <sched.h>
#include <sys/mount.h>

/// Passwords of real accounts, asked of the real PAM. The accounts are made for the test and removed after
/// it.
class TestAccountSignIn : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void signIn_data();
    void signIn();
    void theIdIsThatOfTheAccount();
    void withoutRootsRightsOnlyTheOwnPasswordCanBeAsked();
    void noPasswordIsLogged();
    void theServiceDecides_data();
    void theServiceDecides();

private:
    QString known(const QString &placeholder) const;

    Workstation m_workstation;
    QScopedPointer<TestAccount> m_administrator;
    QScopedPointer<TestAccount> m_clerk;
    QScopedPointer<TestAccount> m_locked;
    QScopedPointer<TestAccount> m_expired;
    QScopedPointer<TestAccount> m_open;
};

void TestAccountSignIn::initTestCase()
{
    if (const QString obstacle = TestAccount::obstacle(); !obstacle.isEmpty())
        QSKIP(qPrintable(obstacle));
    const QStringList administrators{QStringLiteral("sudo")};
    m_administrator.reset(new TestAccount(administrators));
    m_clerk.reset(new TestAccount);
    m_locked.reset(new TestAccount(administrators));
    m_expired.reset(new TestAccount(administrators));
    m_open.reset(new TestAccount(administrators));
    QVERIFY(m_administrator->exists() && m_clerk->exists());
    QVERIFY(m_locked->change(QStringLiteral("passwd"), {QStringLiteral("--lock")}));
    QVERIFY(
        m_expired->change(QStringLiteral("chage"), {QStringLiteral("--expiredate"), QStringLiteral("1")}));
    QVERIFY(m_open->change(QStringLiteral("passwd"), {QStringLiteral("--delete")}));
}

void TestAccountSignIn::cleanupTestCase()
{
    for (QScopedPointer<TestAccount> *account :
         {&m_administrator, &m_clerk, &m_locked, &m_expired, &m_open}) {
        const QString name = *account ? (*account)->name() : QString();
        account->reset();
        QVERIFY2(name.isEmpty() || !getpwnam(name.toLocal8Bit().constData()), qPrintable(name));
    }
}

/// The names and passwords of the accounts, which are known only once the accounts are made.
QString TestAccountSignIn::known(const QString &placeholder) const
{
    const QMap<QString, QString> values{
        {QStringLiteral("administrator"), m_administrator->name()},
        {QStringLiteral("administrator's"), m_administrator->password()},
        {QStringLiteral("administrator's and a zero"),
         m_administrator->password() + QChar(QChar::Null) + QLatin1Char('x')},
        {QStringLiteral("clerk"), m_clerk->name()},
        {QStringLiteral("clerk's"), m_clerk->password()},
        {QStringLiteral("locked"), m_locked->name()},
        {QStringLiteral("locked's"), m_locked->password()},
        {QStringLiteral("expired"), m_expired->name()},
        {QStringLiteral("expired's"), m_expired->password()},
        {QStringLiteral("open"), m_open->name()},
        {QStringLiteral("host"), QSysInfo::machineHostName()},
        {QStringLiteral("HOST"), QSysInfo::machineHostName().toUpper()},
    };
    return values.value(placeholder, placeholder);
}

void TestAccountSignIn::signIn_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("domain");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("error");

    const QString none;
    const QString failure = QStringLiteral("Login failure");
    QTest::newRow("an administrator with the right password")
        << "administrator" << none << "administrator's" << none;
    QTest::newRow("the computer's name as domain") << "administrator"
                                                   << "host"
                                                   << "administrator's" << none;
    QTest::newRow("the computer's name in capitals") << "administrator"
                                                     << "HOST"
                                                     << "administrator's" << none;
    QTest::newRow("another domain is refused") << "administrator"
                                               << "ELSEWHERE"
                                               << "administrator's" << failure;
    QTest::newRow("a wrong password is refused") << "administrator" << none << "wrong-password" << failure;
    QTest::newRow("more than the password, behind a zero, is refused")
        << "administrator" << none << "administrator's and a zero" << failure;
    QTest::newRow("an empty password is refused") << "administrator" << none << none << failure;
    QTest::newRow("an account without a password is refused with an empty one")
        << "open" << none << none << failure;
    QTest::newRow("an account without a password is refused with any other")
        << "open" << none << "x" << failure;
    QTest::newRow("somebody who is no administrator is refused") << "clerk" << none << "clerk's"
                                                                 << "No admin rights";
    QTest::newRow("a locked account is refused") << "locked" << none << "locked's" << failure;
    QTest::newRow("an expired account is refused") << "expired" << none << "expired's" << failure;
    QTest::newRow("an unknown user is refused") << "nosuchuser" << none << "administrator's" << failure;
    QTest::newRow("an empty user is refused") << none << none << "administrator's" << failure;
}

void TestAccountSignIn::signIn()
{
    QFETCH(QString, user);
    QFETCH(QString, domain);
    QFETCH(QString, password);
    QFETCH(QString, error);
    UuidString id;
    QString said;
    const bool accepted = logonAdmin(known(user), known(domain), known(password), id, said);
    QCOMPARE(said, error);
    QCOMPARE(accepted, error.isEmpty());
    if (!accepted) {
        const QByteArray log = readFile(m_workstation.runtimeLog());
        QVERIFY(log.endsWith("::logonAdmin\t" + error.toUtf8() + '\n'));
    }
}

void TestAccountSignIn::theIdIsThatOfTheAccount()
{
    for (const TestAccount *account : {m_administrator.data(), m_clerk.data()}) {
        UuidString id;
        QString error;
        logonAdmin(account->name(), QString(), account->password(), id, error);
        AccountToken token;
        token.user = account->user();
        QCOMPARE(id, getUuidFromToken(&token, error));
        QVERIFY(!id.isNull());
    }
}

void TestAccountSignIn::withoutRootsRightsOnlyTheOwnPasswordCanBeAsked()
{
    const auto answer = [this](const TestAccount &account) {
        return inOwnProcess([&] {
            UuidString id;
            QString error;
            if (!becomeUser(m_administrator->user(), {}))
                return QByteArray("could not become the user");
            return logonAdmin(account.name(), QString(), account.password(), id, error) ? QByteArray("yes")
                                                                                        : error.toUtf8();
        });
    };
    QCOMPARE(answer(*m_administrator), QByteArray("yes"));
    QCOMPARE(answer(*m_clerk), QByteArray("Login failure"));
}

void TestAccountSignIn::noPasswordIsLogged()
{
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(!log.isEmpty());
    QVERIFY(!log.contains("wrong-password"));
    QVERIFY(!log.contains(m_administrator->password().toUtf8()));
}

void TestAccountSignIn::theServiceDecides_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<QByteArray>("login");
    QTest::addColumn<bool>("accepted");

    const QByteArray permit = "auth required pam_permit.so\naccount required pam_permit.so\n";
    const QByteArray deny = "auth required pam_deny.so\naccount required pam_deny.so\n";
    const QByteArray noAccount = "auth required pam_permit.so\naccount required pam_deny.so\n";
    const QByteArray none;
    QTest::newRow("the program's own service permits") << permit << deny << true;
    QTest::newRow("the program's own service denies") << deny << permit << false;
    QTest::newRow("the account may not be used now") << noAccount << permit << false;
    QTest::newRow("without one of its own, login permits") << none << permit << true;
    QTest::newRow("without one of its own, login denies") << none << deny << false;
}

void TestAccountSignIn::theServiceDecides()
{
    QFETCH(QByteArray, own);
    QFETCH(QByteArray, login);
    QFETCH(bool, accepted);
    const QString services = m_workstation.path(QStringLiteral("pam.d"));
    QVERIFY(QDir(services).removeRecursively());
    QVERIFY(writeFile(services + QStringLiteral("/login"), login));
    QVERIFY(own.isEmpty() || writeFile(services + QStringLiteral("/corvane"), own));

    bool mounted = false;
    bool answer = false;
    inOwnThread([&] {
        // This thread alone sees other services in the folder of PAM.
        mounted = unshare(CLONE_NEWNS) == 0 &&
                  mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                  mount(services.toLocal8Bit().constData(), "/etc/pam.d", nullptr, MS_BIND, nullptr) == 0;
        UuidString id;
        QString error;
        answer = mounted && logonAdmin(m_administrator->name(), QString(), QStringLiteral("any"), id, error);
    });
    if (!mounted)
        QSKIP("this system does not let root mount");
    QCOMPARE(answer, accepted);
}

QTEST_GUILESS_MAIN(TestAccountSignIn)
#include "test_accountsignin.moc"
