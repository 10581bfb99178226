#include "sqlfixture.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QSqlResult>
#include <QSqlTableModel>
#include <QtTest>

Q_DECLARE_METATYPE(QSqlDriver::DriverFeature)

/// A connection of the driver: features, opening and transactions.
class TestSqlCipherDriver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void driverIsFoundBesideTheExecutable();
    void otherDriverKeepsItsOwnLibrary();
    void feature_data();
    void feature();
    void handleIsTheConnection();

    void connectOption_data();
    void connectOption();
    void unknownConnectOptionIsWarnedOf();
    void reopenedConnectionStartsAnew();
    void closedConnectionAnswersNothing();
    void openFails_data();
    void openFails();

    void transaction_data();
    void transaction();
    void transactionErrors_data();
    void transactionErrors();
    void savepointIsRolledBackAlone();
    void tableModelEditsThroughTheDriver();

private:
    QSqlDatabase m_database;
    SqlFixture m_files;
};

void TestSqlCipherDriver::init()
{
    m_database = m_files.open({QStringLiteral(":memory:"), false});
}

void TestSqlCipherDriver::cleanup()
{
    m_database = QSqlDatabase();
    SqlFixture::removeConnections();
}

void TestSqlCipherDriver::driverIsFoundBesideTheExecutable()
{
    QVERIFY(QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLCIPHER")));
    QVERIFY(QFile::exists(QCoreApplication::applicationDirPath() +
                          QStringLiteral("/sqldrivers/libqsqlcipher.so")));
    QVERIFY(!SqlFixture::value(m_database, QStringLiteral("PRAGMA cipher_version")).toString().isEmpty());
}

void TestSqlCipherDriver::otherDriverKeepsItsOwnLibrary()
{
    // Both libraries have the same symbols; each driver has to reach its own, whichever came first.
    const QSqlDatabase plain =
        m_files.open({QStringLiteral(":memory:"), false, {}, QStringLiteral("QSQLITE")});
    const QString sourceId = QStringLiteral("SELECT sqlite_source_id()");
    QVERIFY(SqlFixture::value(plain, sourceId) != SqlFixture::value(m_database, sourceId));
    QVERIFY(!SqlFixture::value(plain, QStringLiteral("PRAGMA cipher_version")).isValid());
    QVERIFY(SqlFixture::value(m_database, QStringLiteral("PRAGMA cipher_version")).isValid());
}

void TestSqlCipherDriver::feature_data()
{
    QTest::addColumn<QSqlDriver::DriverFeature>("feature");
    QTest::addColumn<bool>("isThere");

    QTest::newRow("transactions are there") << QSqlDriver::Transactions << true;
    QTest::newRow("the number of rows isn't known beforehand") << QSqlDriver::QuerySize << false;
    QTest::newRow("blobs are there") << QSqlDriver::BLOB << true;
    QTest::newRow("Unicode is there") << QSqlDriver::Unicode << true;
    QTest::newRow("prepared queries are there") << QSqlDriver::PreparedQueries << true;
    QTest::newRow("named placeholders are there") << QSqlDriver::NamedPlaceholders << true;
    QTest::newRow("positional placeholders are there") << QSqlDriver::PositionalPlaceholders << true;
    QTest::newRow("the last insert id is there") << QSqlDriver::LastInsertId << true;
    QTest::newRow("a batch runs row by row") << QSqlDriver::BatchOperations << false;
    QTest::newRow("a reader and a writer lock simply") << QSqlDriver::SimpleLocking << true;
    QTest::newRow("low precision numbers are there") << QSqlDriver::LowPrecisionNumbers << true;
    QTest::newRow("there are no notifications") << QSqlDriver::EventNotifications << false;
    QTest::newRow("queries can be finished") << QSqlDriver::FinishQuery << true;
    QTest::newRow("a query has one result") << QSqlDriver::MultipleResultSets << false;
    QTest::newRow("a query can't be cancelled") << QSqlDriver::CancelQuery << false;
}

void TestSqlCipherDriver::feature()
{
    QFETCH(const QSqlDriver::DriverFeature, feature);
    QTEST(m_database.driver()->hasFeature(feature), "isThere");
}

void TestSqlCipherDriver::handleIsTheConnection()
{
    const QVariant handle = m_database.driver()->handle();
    QCOMPARE(handle.typeName(), "sqlite3*");
    QVERIFY(*static_cast<void *const *>(handle.constData()) != nullptr);

    QSqlQuery query(QStringLiteral("SELECT 1"), m_database);
    const QVariant statement = query.result()->handle();
    QCOMPARE(statement.typeName(), "sqlite3_stmt*");
    QVERIFY(*static_cast<void *const *>(statement.constData()) != nullptr);
}

void TestSqlCipherDriver::connectOption_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("error");

    const QString timeout = QStringLiteral("PRAGMA busy_timeout");
    const QString write = QStringLiteral("CREATE TABLE made (a)");
    QTest::newRow("the busy time-out is set") << "QSQLITE_BUSY_TIMEOUT=1234" << timeout << 1234;
    QTest::newRow("spaces around the busy time-out don't matter")
        << " QSQLITE_BUSY_TIMEOUT = 77 ;" << timeout << 77;
    QTest::newRow("the busy time-out is five seconds by itself") << "" << timeout << 5000;
    QTest::newRow("a busy time-out that is no number is left out")
        << "QSQLITE_BUSY_TIMEOUT=soon" << timeout << 5000;
    QTest::newRow("options come together")
        << "QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=55" << timeout << 55;
    QTest::newRow("without options a file is written") << "" << write << 0;
    QTest::newRow("a file opened for reading can't be written") << "QSQLITE_OPEN_READONLY" << write << 8;
}

void TestSqlCipherDriver::connectOption()
{
    QFETCH(const QString, options);
    QFETCH(const QString, statement);
    const QString file = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".db");
    SqlFixture::run(m_files.open({file}), QStringLiteral("CREATE TABLE t (a)"));

    const QSqlDatabase database = m_files.open({file, true, options});
    if (statement.startsWith(QLatin1String("PRAGMA")))
        QTEST(SqlFixture::value(database, statement).toInt(), "error");
    else
        QTEST(SqlFixture::errorOf(database, statement), "error");
}

void TestSqlCipherDriver::unknownConnectOptionIsWarnedOf()
{
    const WarningCatcher catcher;
    const QSqlDatabase database =
        m_files.open({QStringLiteral(":memory:"), false, QStringLiteral("QSQLITE_FAST=1")});
    QVERIFY(database.isOpen());
    QCOMPARE(catcher.warnings(), QStringList{"QSQLCIPHER: the connect option QSQLITE_FAST is not known"});
}

void TestSqlCipherDriver::reopenedConnectionStartsAnew()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    QVERIFY(m_database.open());
    QVERIFY(m_database.isOpen());
    QCOMPARE(m_database.tables(), QStringList());
}

void TestSqlCipherDriver::closedConnectionAnswersNothing()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a PRIMARY KEY)"));
    m_database.close();
    QVERIFY(!m_database.isOpen());
    QCOMPARE(m_database.tables(QSql::AllTables), QStringList());
    QVERIFY(m_database.record(QStringLiteral("t")).isEmpty());
    QVERIFY(m_database.primaryIndex(QStringLiteral("t")).isEmpty());
    QVERIFY(!m_database.transaction());
    QVERIFY(!m_database.commit());
    QVERIFY(!m_database.rollback());
    m_database.close();
}

void TestSqlCipherDriver::openFails_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("options");

    QTest::newRow("the folder is missing") << "missing/file.db"
                                           << "";
    QTest::newRow("the file is a folder") << "folder"
                                          << "";
    QTest::newRow("the file to read is missing") << "missing.db"
                                                 << "QSQLITE_OPEN_READONLY";
    QTest::newRow("the file of the URI is missing") << "file:/missing/file.db?mode=ro"
                                                    << "QSQLITE_OPEN_URI";
}

void TestSqlCipherDriver::openFails()
{
    QFETCH(const QString, file);
    QFETCH(const QString, options);
    QDir(m_files.path(QString())).mkpath(QStringLiteral("folder"));
    const QSqlDatabase database = m_files.open({file, false, options, {}, {}, false});
    QVERIFY(!database.isOpen());
    QVERIFY(database.isOpenError());
    QCOMPARE(database.lastError().type(), QSqlError::ConnectionError);
    QCOMPARE(database.lastError().nativeErrorCode(), QStringLiteral("14"));
    QCOMPARE(database.lastError().databaseText(), QStringLiteral("unable to open database file"));
    QCOMPARE(database.lastError().driverText(), QStringLiteral("Error opening database"));
    QVERIFY(!QFile::exists(m_files.path(QStringLiteral("missing.db"))));
}

void TestSqlCipherDriver::transaction_data()
{
    QTest::addColumn<bool>("isCommitted");
    QTest::addColumn<int>("rows");

    QTest::newRow("a committed row stays") << true << 1;
    QTest::newRow("a row rolled back goes") << false << 0;
}

void TestSqlCipherDriver::transaction()
{
    QFETCH(const bool, isCommitted);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    QVERIFY(m_database.transaction());
    SqlFixture::run(m_database, QStringLiteral("INSERT INTO t VALUES (1)"));
    QVERIFY(isCommitted ? m_database.commit() : m_database.rollback());
    QTEST(SqlFixture::value(m_database, QStringLiteral("SELECT count(*) FROM t")).toInt(), "rows");
}

void TestSqlCipherDriver::transactionErrors_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("databaseText");

    QTest::newRow("a transaction inside a transaction") << "begin"
                                                        << "Unable to begin transaction"
                                                        << "cannot start a transaction within a transaction";
    QTest::newRow("a commit without a transaction") << "commit"
                                                    << "Unable to commit transaction"
                                                    << "cannot commit - no transaction is active";
    QTest::newRow("a rollback without a transaction") << "rollback"
                                                      << "Unable to rollback transaction"
                                                      << "cannot rollback - no transaction is active";
}

void TestSqlCipherDriver::transactionErrors()
{
    QFETCH(const QString, step);
    if (step == QLatin1String("begin"))
        QVERIFY(m_database.transaction() && !m_database.transaction());
    else
        QVERIFY(step == QLatin1String("commit") ? !m_database.commit() : !m_database.rollback());
    const QSqlError error = m_database.lastError();
    QCOMPARE(error.type(), QSqlError::TransactionError);
    QCOMPARE(error.nativeErrorCode(), QStringLiteral("1"));
    QTEST(error.driverText(), "text");
    QTEST(error.databaseText(), "databaseText");
}

void TestSqlCipherDriver::savepointIsRolledBackAlone()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    QVERIFY(m_database.transaction());
    SqlFixture::run(m_database,
                    {"INSERT INTO t VALUES (1)", "SAVEPOINT inner_step", "INSERT INTO t VALUES (2)",
                     "ROLLBACK TO inner_step", "RELEASE inner_step", "INSERT INTO t VALUES (3)"});
    QVERIFY(m_database.commit());
    QCOMPARE(SqlFixture::column(m_database, QStringLiteral("SELECT a FROM t ORDER BY a")),
             (QStringList{"1", "3"}));
}

void TestSqlCipherDriver::tableModelEditsThroughTheDriver()
{
    SqlFixture::run(m_database,
                    {"CREATE TABLE \"my t\" (id INTEGER PRIMARY KEY, \"a b\" TEXT)",
                     "INSERT INTO \"my t\" VALUES (1, 'one')", "INSERT INTO \"my t\" VALUES (2, 'two')",
                     "INSERT INTO \"my t\" VALUES (3, NULL)"});
    QSqlTableModel model(nullptr, m_database);
    model.setTable(QStringLiteral("my t"));
    model.setEditStrategy(QSqlTableModel::OnManualSubmit);
    QVERIFY(model.select());
    QCOMPARE(model.rowCount(), 3);
    QVERIFY(model.setData(model.index(0, 1), QStringLiteral("it's")));
    QVERIFY(model.removeRow(1));
    QSqlRecord added = model.record();
    added.setValue(QStringLiteral("a b"), QStringLiteral("four"));
    added.setGenerated(QStringLiteral("id"), false);
    QVERIFY(model.insertRecord(-1, added));
    QVERIFY2(model.submitAll(), qPrintable(model.lastError().text()));
    QCOMPARE(
        SqlFixture::column(m_database, QStringLiteral("SELECT id || ifnull(\"a b\", '-') FROM \"my t\"")),
        (QStringList{"1it's", "3-", "4four"}));
}

QTEST_GUILESS_MAIN(TestSqlCipherDriver)
#include "test_sqlcipherdriver.moc"
