#include "Corvane/accesscontrol/offlinefixture.h"
#include "support/fulldisk.h"
#include "support/ordinaryuser.h"

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QSqlQuery>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kPage = 1024;  // bytes, of a file that SQLCipher makes

struct sqlite3;
using Trace = void (*)(void *, const char *);
using Entry = int (*)(sqlite3 *, char **, const void *);

QByteArray deadlyStatement;
void *(*traceStatements)(sqlite3 *, Trace, void *) = nullptr;

void dieAtStatement(void *, const char *statement)
{
    if (QByteArray(statement).startsWith(deadlyStatement))
        kill(getpid(), SIGKILL);
}

int watchConnection(sqlite3 *connection, char **, const void *)
{
    traceStatements(connection, dieAtStatement, nullptr);
    return 0;
}

/// Has this process killed as soon as a connection begins a statement. The library is the one that the driver
/// has loaded.
bool arrangeDeathAt(const QByteArray &statement)
{
    QLibrary library(QStringLiteral("sqlcipher"), 0);
    traceStatements = reinterpret_cast<decltype(traceStatements)>(library.resolve("sqlite3_trace"));
    const auto onEachConnection = reinterpret_cast<int (*)(Entry)>(library.resolve("sqlite3_auto_extension"));
    deadlyStatement = statement;
    return traceStatements && onEachConnection && onEachConnection(watchConnection) == 0;
}

}  // namespace

/// The encrypted file of a single workstation where it can't be opened, read, made or completed.
class TestOfflineFaults : public OfflineFixture
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aLocationThatIsAFileIsRefused();
    void aLocationBelowAFileIsRefused();
    void aDanglingLinkIsRefused();
    void aReadOnlyDirectoryWithoutAFileIsRefused();
    void aReadOnlyFileCanBeReadAndIsNotChanged();
    void aFileOfAnotherKeyIsRefusedAndNotChanged();
    void aFileThatIsNoDatabaseIsRefusedAndNotChanged();
    void aTruncatedFileIsRefusedAndNotChanged();
    void aFailedTableLeavesTheConnectionOpenUntilItIsClosed();
    void aFileWithoutItsLastPagesIsRefusedAndNotChanged();
    void aFolderInPlaceOfTheFileIsRefused();
    void aFullDiskLeavesNothingThatALaterOpenWouldNotComplete();
    void aProcessThatDiesWhileItMakesTheRolesLeavesThemToTheNextOpen_data();
    void aProcessThatDiesWhileItMakesTheRolesLeavesThemToTheNextOpen();
};

void TestOfflineFaults::initTestCase()
{
    // The driver may lie where the ordinary user, as whom some tests open files, reads nothing.
    QVERIFY(prepare(QStringLiteral(":memory:"), {}));
}

void TestOfflineFaults::aLocationThatIsAFileIsRefused()
{
    const QString location = folder();
    QVERIFY(writeFile(location, "a file"));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kLocationFailure);
    QCOMPARE(readFile(location), QByteArray("a file"));
}

void TestOfflineFaults::aLocationBelowAFileIsRefused()
{
    QVERIFY(writeFile(folder(), "a file"));
    QVERIFY(!open(folder() + QStringLiteral("/below")));
    QCOMPARE(m_error, kLocationFailure);
    QCOMPARE(readFile(folder()), QByteArray("a file"));
}

void TestOfflineFaults::aDanglingLinkIsRefused()
{
    QVERIFY(QFile::link(folder(QStringLiteral("nowhere")), folder()));
    QVERIFY(!open(folder()));
    QCOMPARE(m_error, kLocationFailure);
}

void TestOfflineFaults::aReadOnlyDirectoryWithoutAFileIsRefused()
{
    const QString location = folder();
    QVERIFY(QDir().mkpath(location));
    QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7755));
    QFile::setPermissions(location, QFile::Permissions(0x5555));
    {
        const OrdinaryUser user;
        QVERIFY(!open(location));
        QCOMPARE(m_error, kOpenFailure);
        QVERIFY(!QSqlDatabase::contains(kConnection));
        QVERIFY(!open(location + QStringLiteral("/below")));
        QCOMPARE(m_error, kLocationFailure);
    }
    QVERIFY(QDir(location).isEmpty());
}

void TestOfflineFaults::aReadOnlyFileCanBeReadAndIsNotChanged()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), QStringLiteral("DROP INDEX operator_roles_operator"));
    m_offline->closeOfflineDatabase();
    const QByteArray before = readFile(fileIn(location));
    QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7755));
    QFile::setPermissions(fileIn(location), QFile::Permissions(0x4444));
    QFile::setPermissions(location, QFile::Permissions(0x5555));
    {
        const OrdinaryUser user;
        QVERIFY2(open(location), qPrintable(m_error));
        QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT count(*) FROM roles")),
                 QStringList{QStringLiteral("3")});
        QSqlQuery query(m_offline->database());
        QVERIFY(!query.exec(QStringLiteral("DELETE FROM roles")));
        query.clear();
        m_offline->closeOfflineDatabase();
    }
    QCOMPARE(readFile(fileIn(location)), before);
}

void TestOfflineFaults::aFileOfAnotherKeyIsRefusedAndNotChanged()
{
    const QString location = folder();
    QVERIFY(QDir().mkpath(location));
    QVERIFY(prepare(fileIn(location), {QStringLiteral("CREATE TABLE roles (title TEXT)")},
                    {QStringLiteral("PRAGMA key = 'another';"), databaseKeyStatements().last()}));
    const QByteArray before = readFile(fileIn(location));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kTableFailure);
    m_offline->closeOfflineDatabase();
    QCOMPARE(readFile(fileIn(location)), before);
}

void TestOfflineFaults::aFileThatIsNoDatabaseIsRefusedAndNotChanged()
{
    const QString location = folder();
    const QByteArray text = QByteArray("This is the shopping list of the ward.\n").repeated(200);
    QVERIFY(writeFile(fileIn(location), text));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kTableFailure);
    m_offline->closeOfflineDatabase();
    QCOMPARE(readFile(fileIn(location)), text);
}

void TestOfflineFaults::aTruncatedFileIsRefusedAndNotChanged()
{
    const QString location = folder();
    QVERIFY(open(location));
    m_offline->closeOfflineDatabase();
    const QByteArray whole = readFile(fileIn(location));
    const QByteArray half = whole.left(whole.size() / 2 + 100);
    QVERIFY(writeFile(fileIn(location), half));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kTableFailure);
    m_offline->closeOfflineDatabase();
    QCOMPARE(readFile(fileIn(location)), half);
}

void TestOfflineFaults::aFailedTableLeavesTheConnectionOpenUntilItIsClosed()
{
    const QString location = folder();
    QVERIFY(QDir().mkpath(location));
    QVERIFY(prepare(fileIn(location), {QStringLiteral("CREATE VIEW organization AS SELECT 1")}));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kTableFailure);
    QVERIFY(m_offline->database().isOpen());
    QCOMPARE(tables(m_offline->database()),
             (QStringList{QStringLiteral("department"), QStringLiteral("operator"),
                          QStringLiteral("operator_roles")}));
}

void TestOfflineFaults::aFileWithoutItsLastPagesIsRefusedAndNotChanged()
{
    const QString location = folder();
    QVERIFY(open(location));
    m_offline->closeOfflineDatabase();
    const QByteArray whole = readFile(fileIn(location));
    const int pages = whole.size() / kPage;
    QCOMPARE(whole.size() % kPage, 0);
    for (const int kept : {1, pages / 2, pages - 1}) {
        const QByteArray part = whole.left(kept * kPage);
        QVERIFY(writeFile(fileIn(location), part));
        QVERIFY(!open(location));
        QCOMPARE(m_error, kTableFailure);
        m_offline->closeOfflineDatabase();
        QCOMPARE(readFile(fileIn(location)), part);
    }
}

void TestOfflineFaults::aFolderInPlaceOfTheFileIsRefused()
{
    const QString location = folder();
    QVERIFY(QDir().mkpath(fileIn(location)));
    QVERIFY(!open(location));
    QCOMPARE(m_error, kOpenFailure);
    QVERIFY(!QSqlDatabase::contains(kConnection));
    QVERIFY(QDir(fileIn(location)).isEmpty());
}

/// Every page at which a disk may be full, until there is room for all.
void TestOfflineFaults::aFullDiskLeavesNothingThatALaterOpenWouldNotComplete()
{
    QSet<QString> failures;
    bool fits = false;
    for (int pages = 0; !fits; ++pages) {
        const QString location = folder(QStringLiteral("full_%1").arg(pages));
        {
            const FullDisk disk(static_cast<unsigned long>(pages * kPage));
            fits = open(location);
        }
        if (!fits) {
            QVERIFY2(m_error == kTableFailure || m_error == kRolesFailure, qPrintable(m_error));
            QVERIFY(m_offline->database().isOpen());
            failures.insert(m_error);
        }
        QVERIFY2(open(location), qPrintable(m_error));
        QCOMPARE(tables(m_offline->database()), kTables);
        QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT title FROM roles ORDER BY role_id")),
                 kDefaultRoles);
        QCOMPARE(rows(m_offline->database(), QStringLiteral("PRAGMA integrity_check")),
                 QStringList{QStringLiteral("ok")});
        m_offline->closeOfflineDatabase();
    }
    QCOMPARE(failures, (QSet<QString>{kTableFailure, kRolesFailure}));
}

void TestOfflineFaults::aProcessThatDiesWhileItMakesTheRolesLeavesThemToTheNextOpen_data()
{
    QTest::addColumn<QByteArray>("statement");
    QTest::newRow("before their table") << QByteArray("CREATE TABLE roles");
    const QStringList inserts = AccessControlOffline::defaultRoleStatements();
    QTest::newRow("between their table and the first") << inserts.at(0).toUtf8();
    QTest::newRow("between the first and the second") << inserts.at(1).toUtf8();
    QTest::newRow("before the last") << inserts.at(2).toUtf8();
    QTest::newRow("when all are there and none is kept") << QByteArray("COMMIT");
}

void TestOfflineFaults::aProcessThatDiesWhileItMakesTheRolesLeavesThemToTheNextOpen()
{
    QFETCH(QByteArray, statement);
    const QString location = folder();
    QVERIFY(open(folder(QStringLiteral("driver"))));  // the driver is loaded
    m_offline->closeOfflineDatabase();
    const pid_t process = fork();
    if (process == 0) {
        if (arrangeDeathAt(statement))
            open(location);
        _exit(1);
    }
    int status = 0;
    QCOMPARE(waitpid(process, &status, 0), process);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGKILL);

    QVERIFY2(open(location), qPrintable(m_error));
    QCOMPARE(tables(m_offline->database()), kTables);
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT title FROM roles ORDER BY role_id")),
             kDefaultRoles);
}

QTEST_MAIN(TestOfflineFaults)
#include "test_offlinefaults.moc"
