#include "sqlfixture.h"

#include <QElapsedTimer>
#include <QSqlError>
#include <QSqlRecord>
#include <QThread>
#include <QtTest>
#include <atomic>
#include <memory>

namespace {

constexpr int kBusy = 5;  // SQLite's number of the error

const QString kCreate = QStringLiteral("CREATE TABLE t (a TEXT)");
const QString kInsert = QStringLiteral("INSERT INTO t VALUES ('Zoë')");
const QString kSelect = QStringLiteral("SELECT a FROM t");
const QString kCount = QStringLiteral("SELECT count(*) FROM t");

}  // namespace

/// Several connections to one encrypted file: what each sees of the others, and how they wait for one
/// another.
class TestSqlCipherSharing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void twoConnectionsSeeEachOthersRows();
    void schemaChangeOfAnotherConnectionIsSeen();
    void lockIsReportedAtOnce();
    void lockIsWaitedForAsLongAsAsked();
    void statementGoesOnWhenTheLockIsGone();
    void readerUnderWayHoldsUpACommit();
    void readerUnderWayHoldsUpNoWriteAheadLog();
    void threadsWriteThroughTheirOwnConnections();

private:
    std::unique_ptr<SqlFixture> m_files;
};

void TestSqlCipherSharing::init()
{
    m_files = std::make_unique<SqlFixture>();
}

void TestSqlCipherSharing::cleanup()
{
    m_files.reset();
}

void TestSqlCipherSharing::twoConnectionsSeeEachOthersRows()
{
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first, kCreate);
    QSqlDatabase second = m_files->open({QStringLiteral("file.db")});
    QCOMPARE(second.tables(), QStringList{"t"});
    SqlFixture::run(first, kInsert);
    QCOMPARE(SqlFixture::column(second, kSelect), QStringList{"Zoë"});
    QVERIFY(second.transaction());
    SqlFixture::run(second, kInsert);
    QCOMPARE(SqlFixture::value(first, kCount).toInt(), 1);
    QVERIFY(second.commit());
    QCOMPARE(SqlFixture::value(first, kCount).toInt(), 2);
}

void TestSqlCipherSharing::schemaChangeOfAnotherConnectionIsSeen()
{
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first, {kCreate, kInsert});
    QSqlQuery query(first);
    QVERIFY(query.prepare(QStringLiteral("SELECT * FROM t WHERE a <> ?")));
    query.addBindValue(QStringLiteral("x"));
    QVERIFY(query.exec());
    QCOMPARE(query.record().count(), 1);
    query.finish();
    SqlFixture::run(m_files->open({QStringLiteral("file.db")}),
                    QStringLiteral("ALTER TABLE t ADD COLUMN b DEFAULT 'new'"));
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.record().count(), 2);
    QCOMPARE(query.value(1).toString(), QStringLiteral("new"));
}

void TestSqlCipherSharing::lockIsReportedAtOnce()
{
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first, kCreate);
    const QSqlDatabase second =
        m_files->open({QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_BUSY_TIMEOUT=0")});
    SqlFixture::run(first, QStringLiteral("BEGIN IMMEDIATE"));
    QSqlQuery query(second);
    QVERIFY(!query.exec(kInsert));
    QCOMPARE(query.lastError().nativeErrorCode().toInt(), kBusy);
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("database is locked"));
    SqlFixture::run(first, QStringLiteral("COMMIT"));
    QVERIFY(query.exec(kInsert));
}

void TestSqlCipherSharing::lockIsWaitedForAsLongAsAsked()
{
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first, kCreate);
    const QSqlDatabase second =
        m_files->open({QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_BUSY_TIMEOUT=300")});
    QCOMPARE(SqlFixture::errorOf(second, kSelect), 0);
    SqlFixture::run(first, QStringLiteral("BEGIN IMMEDIATE"));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(SqlFixture::errorOf(second, kInsert), kBusy);
    QVERIFY2(timer.elapsed() >= 250, qPrintable(QString::number(timer.elapsed())));
}

void TestSqlCipherSharing::statementGoesOnWhenTheLockIsGone()
{
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first, {kCreate, QStringLiteral("BEGIN IMMEDIATE"), kInsert});
    std::atomic<int> error{-1};
    std::atomic<bool> isWaiting{false};
    const std::unique_ptr<QThread> other(QThread::create([&] {
        {
            const QSqlDatabase second = m_files->open({QStringLiteral("file.db"),
                                                       true,
                                                       QStringLiteral("QSQLITE_BUSY_TIMEOUT=60000"),
                                                       {},
                                                       QStringLiteral("other thread")});
            isWaiting = true;
            error = SqlFixture::errorOf(second, kInsert);
        }
        QSqlDatabase::removeDatabase(QStringLiteral("other thread"));
    }));
    other->start();
    QTRY_VERIFY(isWaiting);
    QVERIFY(!other->wait(200));
    SqlFixture::run(first, QStringLiteral("COMMIT"));
    QVERIFY(other->wait(60000));
    QCOMPARE(error.load(), 0);
    QCOMPARE(SqlFixture::value(first, kCount).toInt(), 2);
}

void TestSqlCipherSharing::readerUnderWayHoldsUpACommit()
{
    const QSqlDatabase reader = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(reader, {kCreate, kInsert, kInsert});
    QSqlDatabase writer =
        m_files->open({QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_BUSY_TIMEOUT=0")});
    QSqlQuery query(kSelect, reader);
    QVERIFY(query.next());
    QVERIFY(writer.transaction());
    SqlFixture::run(writer, kInsert);
    QVERIFY(!writer.commit());
    QCOMPARE(writer.lastError().type(), QSqlError::TransactionError);
    QCOMPARE(writer.lastError().nativeErrorCode().toInt(), kBusy);
    query.finish();
    QVERIFY(writer.commit());
    QCOMPARE(SqlFixture::value(reader, kCount).toInt(), 3);
}

void TestSqlCipherSharing::readerUnderWayHoldsUpNoWriteAheadLog()
{
    const QSqlDatabase reader = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(reader, {"PRAGMA journal_mode = WAL", kCreate, kInsert, kInsert});
    const QSqlDatabase writer =
        m_files->open({QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_BUSY_TIMEOUT=0")});
    QSqlQuery query(kSelect, reader);
    QVERIFY(query.next());
    SqlFixture::run(writer, {kInsert, kInsert});
    int rows = 1;
    while (query.next())
        ++rows;
    QCOMPARE(rows, 2);
    QCOMPARE(SqlFixture::value(reader, kCount).toInt(), 4);
}

void TestSqlCipherSharing::threadsWriteThroughTheirOwnConnections()
{
    constexpr int kThreads = 4;
    constexpr int kRows = 50;
    const QSqlDatabase first = m_files->open({QStringLiteral("file.db")});
    SqlFixture::run(first,
                    {"PRAGMA journal_mode = WAL", "CREATE TABLE t (thread, row, UNIQUE (thread, row))"});
    std::atomic<int> failures{0};
    const auto writeRows = [&](int thread) {
        const QString name = QStringLiteral("thread %1").arg(thread);
        {
            const QSqlDatabase database = m_files->open(
                {QStringLiteral("file.db"), true, QStringLiteral("QSQLITE_BUSY_TIMEOUT=60000"), {}, name});
            QSqlQuery query(database);
            query.prepare(QStringLiteral("INSERT INTO t VALUES (:thread, :row)"));
            for (int row = 0; row < kRows; ++row) {
                query.bindValue(QStringLiteral(":thread"), thread);
                query.bindValue(QStringLiteral(":row"), row);
                failures += query.exec() ? 0 : 1;
            }
        }
        QSqlDatabase::removeDatabase(name);
    };
    std::vector<std::unique_ptr<QThread>> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back(QThread::create(writeRows, thread));
        threads.back()->start();
    }
    for (const std::unique_ptr<QThread> &thread : threads)
        QVERIFY(thread->wait(120000));
    QCOMPARE(failures.load(), 0);
    QCOMPARE(SqlFixture::value(first, kCount).toInt(), kThreads * kRows);
}

QTEST_GUILESS_MAIN(TestSqlCipherSharing)
#include "test_sqlciphersharing.moc"
