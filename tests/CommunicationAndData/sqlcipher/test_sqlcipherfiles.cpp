#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "sqlfixture.h"
#include "support/fulldisk.h"
#include "support/ordinaryuser.h"

#include <QFile>
#include <QProcess>
#include <QSqlError>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QtTest>
#include <memory>

namespace {

// SQLite's numbers of errors.
constexpr int kReadOnly = 8;
constexpr int kInputOutput = 10;
constexpr int kFull = 13;
constexpr int kCantOpen = 14;
constexpr int kNoDatabase = 26;

const QString kCreate = QStringLiteral("CREATE TABLE t (a TEXT)");
const QString kInsert = QStringLiteral("INSERT INTO t VALUES ('Zoë')");
const QString kSelect = QStringLiteral("SELECT a FROM t");
const QString kCount = QStringLiteral("SELECT count(*) FROM t");

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written", qPrintable(path));
}

}  // namespace

/// Encrypted files: their keys, their neighbours and their failures.
class TestSqlCipherFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void shellReadsWhatTheDriverWrote();
    void driverReadsWhatTheShellWrote();
    void shellWithoutTheCipherReadsNothing();
    void fileShowsNothingOfItsContent_data();
    void fileShowsNothingOfItsContent();
    void plainFileIsReadWithoutAKey();

    void openingTouchesNoPage_data();
    void openingTouchesNoPage();
    void emptyFileBecomesADatabase();
    void wrongKey_data();
    void wrongKey();
    void fileThatIsNoDatabase_data();
    void fileThatIsNoDatabase();
    void changedByteIsFound();

    void readOnlyFile();
    void readOnlyFolder();
    void readOnlyConnectionReads();
    void uriChoosesTheMode();

    void fullDatabaseKeepsWhatItHad();
    void fileThatCantGrowKeepsWhatItHad();

    void plainFileIsAttached();
    void connectionIsRemovedWithoutWarnings();

private:
    QString runShell(const QStringList &statements);
    QString path() const;

    std::unique_ptr<SqlFixture> m_files;
};

void TestSqlCipherFiles::init()
{
    m_files = std::make_unique<SqlFixture>();
}

void TestSqlCipherFiles::cleanup()
{
    m_files.reset();
}

QString TestSqlCipherFiles::path() const
{
    return m_files->path(QStringLiteral("file.db"));
}

QString TestSqlCipherFiles::runShell(const QStringList &statements)
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start(QStringLiteral("sqlcipher"), {path()});
    shell.write(statements.join(QLatin1Char('\n')).toUtf8() + '\n');
    shell.closeWriteChannel();
    if (!shell.waitForFinished())
        return shell.errorString();
    return QString::fromUtf8(shell.readAll());
}

void TestSqlCipherFiles::shellReadsWhatTheDriverWrote()
{
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    database.close();
    const QString answer = runShell(databaseKeyStatements() + QStringList{kSelect + QLatin1Char(';')});
    QVERIFY2(answer.endsWith(QStringLiteral("Zoë\n")), qPrintable(answer));
}

void TestSqlCipherFiles::driverReadsWhatTheShellWrote()
{
    runShell(databaseKeyStatements() + QStringList{kCreate + QLatin1Char(';'), kInsert + QLatin1Char(';')});
    QCOMPARE(SqlFixture::column(m_files->open({QStringLiteral("file.db")}), kSelect), QStringList{"Zoë"});
}

void TestSqlCipherFiles::shellWithoutTheCipherReadsNothing()
{
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    database.close();
    const QString answer = runShell({databaseKeyStatements().first(), QStringLiteral("SELECT a FROM t;")});
    QVERIFY2(answer.contains(QStringLiteral("file is encrypted or is not a database")), qPrintable(answer));
}

void TestSqlCipherFiles::fileShowsNothingOfItsContent_data()
{
    QTest::addColumn<QString>("journal");
    QTest::newRow("nor does its rollback journal") << "delete";
    QTest::newRow("nor does its write-ahead log") << "wal";
}

void TestSqlCipherFiles::fileShowsNothingOfItsContent()
{
    QFETCH(const QString, journal);
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    QCOMPARE(SqlFixture::value(database, QStringLiteral("PRAGMA journal_mode = ") + journal).toString(),
             journal);
    SqlFixture::run(database,
                    {"CREATE TABLE secrets (a TEXT)", "INSERT INTO secrets VALUES ('Merriweather')"});
    // A page that is changed goes to the journal before the file; a small cache makes it go at once.
    SqlFixture::run(database, {"PRAGMA cache_size = 1", "BEGIN", "UPDATE secrets SET a = 'Featherstone'",
                               "CREATE TABLE more AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
                               "FROM n WHERE i < 5000) SELECT 'Featherstone' || i FROM n"});
    int files = 0;
    for (const QString &suffix : {QString(), QStringLiteral("-journal"), QStringLiteral("-wal")}) {
        const QByteArray bytes = contentOf(path() + suffix);
        files += bytes.isEmpty() ? 0 : 1;
        for (const char *word : {"SQLite format", "Merriweather", "Featherstone", "secrets", "CREATE TABLE"})
            QVERIFY2(!bytes.contains(word), qPrintable(suffix + QLatin1String(word)));
    }
    QCOMPARE(files, 2);
}

void TestSqlCipherFiles::plainFileIsReadWithoutAKey()
{
    QSqlDatabase plain = m_files->open({QStringLiteral("file.db"), false, {}, QStringLiteral("QSQLITE")});
    SqlFixture::run(plain, {kCreate, kInsert});
    plain.close();
    QVERIFY(contentOf(path()).startsWith("SQLite format 3"));
    QCOMPARE(SqlFixture::column(m_files->open({QStringLiteral("file.db"), false}), kSelect),
             QStringList{"Zoë"});
}

void TestSqlCipherFiles::openingTouchesNoPage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("of a file that is missing") << QByteArray();
    QTest::newRow("of a file that is no database") << QByteArray(5000, 'n');
}

void TestSqlCipherFiles::openingTouchesNoPage()
{
    QFETCH(const QByteArray, bytes);
    if (!bytes.isEmpty())
        write(path(), bytes);
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    QVERIFY(database.isOpen());
    QVERIFY(!database.lastError().isValid());
    database.close();
    QCOMPARE(contentOf(path()), bytes);
}

void TestSqlCipherFiles::emptyFileBecomesADatabase()
{
    write(path(), QByteArray());
    const QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    QCOMPARE(SqlFixture::column(database, kSelect), QStringList{"Zoë"});
}

void TestSqlCipherFiles::wrongKey_data()
{
    QTest::addColumn<QStringList>("statements");

    const QStringList right = databaseKeyStatements();
    const QString cipher = right.last();
    QTest::newRow("another key") << QStringList{"PRAGMA key = 'wrong';", cipher};
    QTest::newRow("no key") << QStringList();
    QTest::newRow("no cipher") << QStringList{right.first()};
    QTest::newRow("another cipher") << QStringList{right.first(), "PRAGMA cipher = 'aes-256-cbc';"};
}

void TestSqlCipherFiles::wrongKey()
{
    QFETCH(const QStringList, statements);
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    database.close();
    const QByteArray before = contentOf(path());

    QSqlDatabase locked = m_files->open({QStringLiteral("file.db"), false});
    SqlFixture::run(locked, statements);
    QSqlQuery query(locked);
    for (const QString &statement : {kSelect, kCreate}) {
        QVERIFY(!query.exec(statement));
        QCOMPARE(query.lastError().nativeErrorCode().toInt(), kNoDatabase);
        QCOMPARE(query.lastError().databaseText(), QStringLiteral("file is encrypted or is not a database"));
        QCOMPARE(query.lastError().type(), QSqlError::StatementError);
    }
    QCOMPARE(locked.tables(), QStringList());
    QVERIFY(locked.record(QStringLiteral("t")).isEmpty());
    query.clear();
    locked.close();
    QCOMPARE(contentOf(path()), before);
}

void TestSqlCipherFiles::fileThatIsNoDatabase_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isKeyed");

    const QByteArray header("SQLite format 3\0\x04\0\x01\x01\0\x40\x20\x20", 24);
    QTest::newRow("a text") << QByteArray("This is no database.\n").repeated(300) << true;
    QTest::newRow("a short text") << QByteArray("short") << true;
    QTest::newRow("a text without a key") << QByteArray("This is no database.\n").repeated(300) << false;
    QTest::newRow("zero bytes") << QByteArray(8192, '\0') << true;
    QTest::newRow("a plain database with a key") << header + QByteArray(4072, '\0') << true;
}

void TestSqlCipherFiles::fileThatIsNoDatabase()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isKeyed);
    write(path(), bytes);
    const QSqlDatabase database = m_files->open({QStringLiteral("file.db"), isKeyed});
    QCOMPARE(SqlFixture::errorOf(database, QStringLiteral("SELECT * FROM sqlite_master")), kNoDatabase);
    QCOMPARE(SqlFixture::errorOf(database, kCreate), kNoDatabase);
    QCOMPARE(contentOf(path()), bytes);
}

void TestSqlCipherFiles::changedByteIsFound()
{
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(
        database,
        QStringLiteral("CREATE TABLE t AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                       "WHERE i < 3000) SELECT 'some text ' || i AS a FROM n"));
    database.close();
    QByteArray bytes = contentOf(path());
    bytes[bytes.size() / 2] = static_cast<char>(bytes.at(bytes.size() / 2) ^ 1);
    write(path(), bytes);

    QVERIFY(database.open());
    SqlFixture::run(database, databaseKeyStatements());
    QVERIFY(SqlFixture::errorOf(database, QStringLiteral("SELECT sum(length(a)) FROM t")) != 0);
}

void TestSqlCipherFiles::readOnlyFile()
{
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    database.close();
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    QFile::setPermissions(m_files->path(QString()), QFile::Permissions(0x5555));

    const OrdinaryUser user;
    const QSqlDatabase locked = m_files->open({QStringLiteral("file.db")});
    QCOMPARE(SqlFixture::column(locked, kSelect), QStringList{"Zoë"});
    QSqlQuery query(locked);
    QVERIFY(!query.exec(kInsert));
    QCOMPARE(query.lastError().nativeErrorCode().toInt(), kReadOnly);
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("attempt to write a readonly database"));
}

void TestSqlCipherFiles::readOnlyFolder()
{
    QFile::setPermissions(m_files->path(QString()), QFile::Permissions(0x5555));
    {
        const OrdinaryUser user;
        const QSqlDatabase database = m_files->open({QStringLiteral("file.db"), false, {}, {}, {}, false});
        QCOMPARE(database.lastError().nativeErrorCode().toInt(), kCantOpen);
    }
    QFile::setPermissions(m_files->path(QString()), QFile::Permissions(0x7755));
}

void TestSqlCipherFiles::readOnlyConnectionReads()
{
    SqlFixture::run(m_files->open({QStringLiteral("file.db")}), {kCreate, kInsert});
    const QSqlDatabase reader =
        m_files->open({QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_OPEN_READONLY")});
    QCOMPARE(SqlFixture::column(reader, kSelect), QStringList{"Zoë"});
    QCOMPARE(SqlFixture::errorOf(reader, kInsert), kReadOnly);
    QCOMPARE(SqlFixture::errorOf(reader, QStringLiteral("DELETE FROM t")), kReadOnly);
}

void TestSqlCipherFiles::uriChoosesTheMode()
{
    SqlFixture::run(m_files->open({QStringLiteral("file.db")}), {kCreate, kInsert});
    const QString uri = QStringLiteral("file:%1?mode=ro").arg(path());
    const QSqlDatabase reader = m_files->open({uri, true, QStringLiteral("QSQLITE_OPEN_URI")});
    QCOMPARE(SqlFixture::column(reader, kSelect), QStringList{"Zoë"});
    QCOMPARE(SqlFixture::errorOf(reader, kInsert), kReadOnly);
}

void TestSqlCipherFiles::fullDatabaseKeepsWhatItHad()
{
    const QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert, "PRAGMA max_page_count = 20"});
    QSqlQuery query(database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
    query.addBindValue(QString(100000, QLatin1Char('x')));
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().nativeErrorCode().toInt(), kFull);
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("database or disk is full"));
    QCOMPARE(SqlFixture::column(database, kSelect), QStringList{"Zoë"});

    SqlFixture::run(database, QStringLiteral("PRAGMA max_page_count = 1000"));
    QVERIFY(query.exec());
    QCOMPARE(SqlFixture::value(database, kCount).toInt(), 2);
}

void TestSqlCipherFiles::fileThatCantGrowKeepsWhatItHad()
{
    const QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    QSqlQuery query(database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
    query.addBindValue(QString(5000000, QLatin1Char('x')));
    {
        const FullDisk disk(1 << 20);
        QVERIFY(!query.exec());
        const int error = query.lastError().nativeErrorCode().toInt();
        QVERIFY2(error == kInputOutput || error == kFull, qPrintable(query.lastError().text()));
        QCOMPARE(SqlFixture::column(database, kSelect), QStringList{"Zoë"});
    }
    QVERIFY(query.exec());
    QCOMPARE(SqlFixture::value(database, kCount).toInt(), 2);
    QCOMPARE(SqlFixture::value(database, QStringLiteral("PRAGMA integrity_check")).toString(),
             QStringLiteral("ok"));
}

void TestSqlCipherFiles::plainFileIsAttached()
{
    SqlFixture::run(m_files->open({QStringLiteral("file.db"), false}), {kCreate, kInsert});
    const QSqlDatabase database = m_files->open({QStringLiteral("other.db")});
    SqlFixture::run(database, QStringLiteral("CREATE TABLE t (other)"));
    QSqlQuery query(database);
    QVERIFY(query.prepare(QStringLiteral("ATTACH DATABASE :path AS plain KEY ''")));
    query.bindValue(QStringLiteral(":path"), path());
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QCOMPARE(SqlFixture::column(database, QStringLiteral("SELECT a FROM plain.t")), QStringList{"Zoë"});
    QCOMPARE(database.record(QStringLiteral("plain.t")).fieldName(0), QStringLiteral("a"));
    QCOMPARE(database.record(QStringLiteral("t")).fieldName(0), QStringLiteral("other"));
}

void TestSqlCipherFiles::connectionIsRemovedWithoutWarnings()
{
    const WarningCatcher catcher;
    QSqlDatabase database = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(database, {kCreate, kInsert});
    QCOMPARE(database.tables(), QStringList{"t"});
    QCOMPARE(database.record(QStringLiteral("t")).count(), 1);
    QVERIFY(database.primaryIndex(QStringLiteral("t")).isEmpty());
    QCOMPARE(SqlFixture::column(database, kSelect), QStringList{"Zoë"});
    const QString name = database.connectionName();
    database.close();
    database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    QVERIFY(!QSqlDatabase::contains(name));
    QCOMPARE(catcher.warnings(), QStringList());
}

QTEST_GUILESS_MAIN(TestSqlCipherFiles)
#include "test_sqlcipherfiles.moc"
