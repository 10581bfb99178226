#include "sqlfixture.h"

#include <QSqlError>
#include <QSqlRecord>
#include <QtTest>

/// Statements: their placeholders, how often they run, what they report and how they fail.
class TestSqlCipherStatements : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void placeholders_data();
    void placeholders();
    void wrongNumberOfValues_data();
    void wrongNumberOfValues();
    void unknownNameIsNoValue();
    void preparedStatementRunsAgainWithOtherValues();
    void valuesStayBoundForTheNextRun();
    void batchInsertsAllRows_data();
    void batchInsertsAllRows();
    void batchStopsAtTheFirstError();
    void batchOfUnequalListsIsRefused();
    void boundValueIsNeverStatementText();
    void lastInsertId();
    void lastInsertIdIsThatOfItsOwnStatement();
    void affectedRows_data();
    void affectedRows();
    void statementError_data();
    void statementError();
    void oneStatementAtATime_data();
    void oneStatementAtATime();
    void errorInTheMiddleOfTheRows();
    void queryWithoutStatementFails();

private:
    QSqlDatabase m_database;
    SqlFixture m_files;
};

void TestSqlCipherStatements::init()
{
    m_database = m_files.open({QStringLiteral(":memory:"), false});
}

void TestSqlCipherStatements::cleanup()
{
    m_database = QSqlDatabase();
    const WarningCatcher catcher;
    SqlFixture::removeConnections();
    QCOMPARE(catcher.warnings(), QStringList());
}

void TestSqlCipherStatements::placeholders_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QVariantMap>("named");
    QTest::addColumn<QVariantList>("positional");
    QTest::addColumn<QString>("row");

    const QVariantMap none;
    QTest::newRow("question marks in order") << "SELECT ?, ?, ?" << none << QVariantList{1, 2, 3} << "1 2 3";
    QTest::newRow("numbered question marks") << "SELECT ?2, ?1, ?2" << none << QVariantList{1, 2} << "2 1 2";
    QTest::newRow("names") << "SELECT :b, :a" << QVariantMap{{":a", 1}, {":b", 2}} << QVariantList() << "2 1";
    QTest::newRow("a repeated name") << "SELECT :a, :b, :a, :c"
                                     << QVariantMap{{":a", 1}, {":b", 2}, {":c", 3}} << QVariantList()
                                     << "1 2 1 3";
    QTest::newRow("a name repeated in a row")
        << "SELECT :a, :a, :a, :b" << QVariantMap{{":a", 1}, {":b", 2}} << QVariantList() << "1 1 1 2";
    QTest::newRow("names that begin alike")
        << "SELECT :a, :ab, :abc" << QVariantMap{{":abc", 3}, {":ab", 2}, {":a", 1}} << QVariantList()
        << "1 2 3";
    QTest::newRow("names by position") << "SELECT :b, :a" << none << QVariantList{1, 2} << "1 2";
    QTest::newRow("a repeated name by position of each occurrence")
        << "SELECT :a, :b, :a" << none << QVariantList{1, 2, 1} << "1 2 1";
    QTest::newRow("a repeated name by position of each name")
        << "SELECT :a, :b, :a" << none << QVariantList{1, 2} << "1 2 1";
    QTest::newRow("names of other kinds by position")
        << "SELECT @a, $b, @a" << none << QVariantList{1, 2} << "1 2 1";
    QTest::newRow("a colon inside a text is no placeholder")
        << "SELECT ':a', :b" << QVariantMap{{":b", 2}} << QVariantList() << ":a 2";
    QTest::newRow("a time inside a text is no placeholder")
        << "SELECT '12:30:45', ?" << none << QVariantList{2} << "12:30:45 2";
    QTest::newRow("a colon inside a quoted name is no placeholder")
        << "SELECT 1 AS \":a\", :b AS [:c]" << QVariantMap{{":b", 2}} << QVariantList() << "1 2";
    QTest::newRow("a name inside a comment is no placeholder")
        << "SELECT :a -- not :x\n, :b" << QVariantMap{{":a", 1}, {":b", 2}} << QVariantList() << "1 2";
    QTest::newRow("a question mark inside a comment is no placeholder")
        << "SELECT ?, -- why?\n ?" << none << QVariantList{1, 2} << "1 2";
    QTest::newRow("a name without a value is null")
        << "SELECT :a, :b, :a, ifnull(:c, 'null')" << QVariantMap{{":a", 1}, {":b", 2}} << QVariantList()
        << "1 2 1 null";
    QTest::newRow("no placeholders and no values") << "SELECT 1" << none << QVariantList() << "1";
}

void TestSqlCipherStatements::placeholders()
{
    QFETCH(const QString, statement);
    QFETCH(const QVariantMap, named);
    QFETCH(const QVariantList, positional);
    QSqlQuery query(m_database);
    QVERIFY2(query.prepare(statement), qPrintable(query.lastError().text()));
    for (auto value = named.cbegin(); value != named.cend(); ++value)
        query.bindValue(value.key(), value.value());
    for (int i = 0; i < positional.size(); ++i)
        query.bindValue(i, positional.at(i));
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QVERIFY(query.next());
    QStringList row;
    for (int column = 0; column < query.record().count(); ++column)
        row.append(query.value(column).toString());
    QTEST(row.join(QLatin1Char(' ')), "row");
}

void TestSqlCipherStatements::wrongNumberOfValues_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QVariantMap>("named");
    QTest::addColumn<QVariantList>("positional");

    const QVariantMap none;
    QTest::newRow("one too few") << "SELECT ?, ?" << none << QVariantList{1};
    QTest::newRow("one too many") << "SELECT ?" << none << QVariantList{1, 2};
    QTest::newRow("none at all") << "SELECT ?" << none << QVariantList();
    QTest::newRow("one where none is asked for") << "SELECT 1" << none << QVariantList{1};
    QTest::newRow("one where a text holds a colon") << "SELECT ':a'" << none << QVariantList{1};
    QTest::newRow("too many for a repeated name") << "SELECT :a, :a" << none << QVariantList{1, 2, 3};
}

void TestSqlCipherStatements::wrongNumberOfValues()
{
    QFETCH(const QString, statement);
    QFETCH(const QVariantMap, named);
    QFETCH(const QVariantList, positional);
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(statement));
    for (auto value = named.cbegin(); value != named.cend(); ++value)
        query.bindValue(value.key(), value.value());
    for (const QVariant &value : positional)
        query.addBindValue(value);
    QVERIFY(!query.exec());
    QVERIFY(!query.isActive());
    QCOMPARE(query.lastError().type(), QSqlError::StatementError);
    QCOMPARE(query.lastError().driverText(), QStringLiteral("Parameter count mismatch"));
}

void TestSqlCipherStatements::unknownNameIsNoValue()
{
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT :a")));
    query.bindValue(QStringLiteral(":a"), 1);
    query.bindValue(QStringLiteral(":other"), 2);
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.value(0).toInt(), 1);
}

void TestSqlCipherStatements::preparedStatementRunsAgainWithOtherValues()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a, b)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (:a, :b)")));
    for (int row = 0; row < 5; ++row) {
        query.bindValue(QStringLiteral(":a"), row);
        query.bindValue(QStringLiteral(":b"), row == 2 ? QVariant() : QVariant(row * row));
        QVERIFY(query.exec());
    }
    QCOMPARE(SqlFixture::column(m_database, QStringLiteral("SELECT a || '-' || ifnull(b, 'null') FROM t")),
             (QStringList{"0-0", "1-1", "2-null", "3-9", "4-16"}));
}

void TestSqlCipherStatements::valuesStayBoundForTheNextRun()
{
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT ?, ?")));
    query.addBindValue(1);
    query.addBindValue(2);
    QVERIFY(query.exec() && query.exec() && query.next());
    QCOMPARE(query.value(1).toInt(), 2);
    query.bindValue(0, 5);
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.value(0).toInt(), 5);
    QCOMPARE(query.value(1).toInt(), 2);
    QCOMPARE(query.boundValue(1).toInt(), 2);
}

void TestSqlCipherStatements::batchInsertsAllRows_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<bool>("isNamed");

    QTest::newRow("by position") << "INSERT INTO t VALUES (?, ?, 0)" << false;
    QTest::newRow("by name") << "INSERT INTO t VALUES (:a, :b, 0)" << true;
    QTest::newRow("by a repeated name") << "INSERT INTO t VALUES (:a, :b, :a)" << true;
}

void TestSqlCipherStatements::batchInsertsAllRows()
{
    QFETCH(const QString, statement);
    QFETCH(const bool, isNamed);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a, b, c)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(statement));
    const QVariantList numbers{1, 2, QVariant(QVariant::Int)};
    const QVariantList texts{"one", QVariant(QVariant::String), "none"};
    if (isNamed) {
        query.bindValue(QStringLiteral(":b"), texts);
        query.bindValue(QStringLiteral(":a"), numbers);
    } else {
        query.addBindValue(numbers);
        query.addBindValue(texts);
    }
    QVERIFY2(query.execBatch(), qPrintable(query.lastError().text()));
    QCOMPARE(SqlFixture::column(
                 m_database, QStringLiteral("SELECT ifnull(a, '-') || ifnull(b, '-') FROM t ORDER BY rowid")),
             (QStringList{"1one", "2-", "-none"}));
    QCOMPARE(query.boundValue(isNamed ? 1 : 0).toList().size(), 3);
}

void TestSqlCipherStatements::batchStopsAtTheFirstError()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a UNIQUE)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
    query.addBindValue(QVariantList{1, 2, 2, 3});
    QVERIFY(!query.execBatch());
    QCOMPARE(query.lastError().nativeErrorCode(), QStringLiteral("19"));
    QCOMPARE(SqlFixture::column(m_database, QStringLiteral("SELECT a FROM t")), (QStringList{"1", "2"}));
}

void TestSqlCipherStatements::batchOfUnequalListsIsRefused()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a, b)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?, ?)")));
    query.addBindValue(QVariantList{1, 2});
    query.addBindValue(QVariantList{1});
    QVERIFY(!query.execBatch());
    QCOMPARE(query.lastError().driverText(), QStringLiteral("Parameter count mismatch"));
    QCOMPARE(SqlFixture::value(m_database, QStringLiteral("SELECT count(*) FROM t")).toInt(), 0);
}

void TestSqlCipherStatements::boundValueIsNeverStatementText()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES ('x')"});
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT count(*) FROM t WHERE a = :a")));
    query.bindValue(QStringLiteral(":a"), QStringLiteral("' OR 1=1; DROP TABLE t; --"));
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.value(0).toInt(), 0);
    QCOMPARE(m_database.tables(), QStringList{"t"});
}

void TestSqlCipherStatements::lastInsertId()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY, a)"));
    QSqlQuery query(m_database);
    QVERIFY(query.exec(QStringLiteral("INSERT INTO t (a) VALUES ('x')")));
    QCOMPARE(query.lastInsertId(), QVariant(Q_INT64_C(1)));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO t VALUES (9223372036854775806, 'y')")));
    QCOMPARE(query.lastInsertId(), QVariant(Q_INT64_C(9223372036854775806)));
    QVERIFY(query.exec(QStringLiteral("SELECT 1")));
    QVERIFY(!query.lastInsertId().isValid());
    QVERIFY(!QSqlQuery(m_database).lastInsertId().isValid());
}

void TestSqlCipherStatements::lastInsertIdIsThatOfItsOwnStatement()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY)"));
    QSqlQuery first(QStringLiteral("INSERT INTO t VALUES (10)"), m_database);
    QSqlQuery second(QStringLiteral("INSERT INTO t VALUES (20)"), m_database);
    QCOMPARE(first.lastInsertId().toInt(), 10);
    QCOMPARE(second.lastInsertId().toInt(), 20);
}

void TestSqlCipherStatements::affectedRows_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("rows");

    QTest::newRow("an insert of one") << "INSERT INTO t VALUES (9)" << 1;
    QTest::newRow("an insert of several") << "INSERT INTO t VALUES (8), (9)" << 2;
    QTest::newRow("an update of all") << "UPDATE t SET a = a + 1" << 3;
    QTest::newRow("an update of none") << "UPDATE t SET a = 0 WHERE a > 100" << 0;
    QTest::newRow("a delete of some") << "DELETE FROM t WHERE a < 3" << 2;
    QTest::newRow("a delete of all") << "DELETE FROM t" << 3;
    QTest::newRow("a new table") << "CREATE TABLE other (a)" << 0;
    QTest::newRow("a savepoint") << "SAVEPOINT s" << 0;
    QTest::newRow("rows that are read") << "SELECT * FROM t" << -1;
}

void TestSqlCipherStatements::affectedRows()
{
    QFETCH(const QString, statement);
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2), (3)"});
    QSqlQuery query(m_database);
    QVERIFY(query.exec(statement));
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE later AS SELECT * FROM t"));
    QTEST(query.numRowsAffected(), "rows");
}

void TestSqlCipherStatements::statementError_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("a word that is none") << "SELEKT 1" << 1 << "near \"SELEKT\": syntax error";
    QTest::newRow("a statement that ends early") << "SELECT 'a" << 1 << "unrecognized token: \"'a\"";
    QTest::newRow("a missing table") << "SELECT * FROM missing" << 1 << "no such table: missing";
    QTest::newRow("a missing column") << "SELECT missing FROM t" << 1 << "no such column: missing";
    QTest::newRow("a value twice") << "INSERT INTO t VALUES (1, 1)" << 19 << "UNIQUE constraint failed: t.a";
    QTest::newRow("a value that is missing")
        << "INSERT INTO t VALUES (2, NULL)" << 19 << "NOT NULL constraint failed: t.b";
    QTest::newRow("a text as a key") << "INSERT INTO k VALUES ('x')" << 20 << "datatype mismatch";
    QTest::newRow("a trigger that refuses") << "DELETE FROM t" << 19 << "kept";
    QTest::newRow("a foreign key that leads nowhere")
        << "INSERT INTO child VALUES (5)" << 19 << "FOREIGN KEY constraint failed";
}

void TestSqlCipherStatements::statementError()
{
    SqlFixture::run(m_database,
                    {"PRAGMA foreign_keys = ON", "CREATE TABLE t (a UNIQUE, b NOT NULL)",
                     "CREATE TABLE k (id INTEGER PRIMARY KEY)", "CREATE TABLE child (id REFERENCES k)",
                     "INSERT INTO t VALUES (1, 1)",
                     "CREATE TRIGGER keep BEFORE DELETE ON t BEGIN SELECT RAISE(ABORT, 'kept'); END"});
    QFETCH(const QString, statement);
    QSqlQuery query(m_database);
    QVERIFY(!query.exec(statement));
    QVERIFY(!query.isActive());
    QVERIFY(!query.next());
    QCOMPARE(query.lastError().type(), QSqlError::StatementError);
    QTEST(query.lastError().nativeErrorCode().toInt(), "number");
    QTEST(query.lastError().databaseText(), "text");
    QVERIFY(query.exec(QStringLiteral("SELECT 1")));
    QVERIFY(!query.lastError().isValid());
}

void TestSqlCipherStatements::oneStatementAtATime_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<bool>("isOne");

    QTest::newRow("a semicolon may end it") << "SELECT 1;" << true;
    QTest::newRow("space may follow") << "SELECT 1; \n\t " << true;
    QTest::newRow("a comment may follow") << "SELECT 1; -- all of it; really" << true;
    QTest::newRow("a long comment may follow") << "SELECT 1; /* SELECT 2 */ ;" << true;
    QTest::newRow("a comment without end may follow") << "SELECT 1; /* SELECT 2" << true;
    QTest::newRow("a second statement may not") << "SELECT 1; SELECT 2" << false;
    QTest::newRow("nor one after a comment") << "SELECT 1; -- x\nDROP TABLE t" << false;
    QTest::newRow("nor one after a long comment") << "SELECT 1; /* x */ DROP TABLE t" << false;
    QTest::newRow("nor nonsense") << "SELECT 1; nonsense" << false;
}

void TestSqlCipherStatements::oneStatementAtATime()
{
    QFETCH(const QString, statement);
    QFETCH(const bool, isOne);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    QSqlQuery query(m_database);
    QCOMPARE(query.exec(statement), isOne);
    if (!isOne) {
        QCOMPARE(query.lastError().driverText(),
                 QStringLiteral("Unable to execute multiple statements at a time"));
        QCOMPARE(query.lastError().nativeErrorCode(), QStringLiteral("21"));
    }
    QCOMPARE(m_database.tables(), QStringList{"t"});
}

void TestSqlCipherStatements::errorInTheMiddleOfTheRows()
{
    // abs() fails for the least number, which comes third.
    const QString statement =
        QStringLiteral("SELECT abs(n) FROM (SELECT 1 AS n UNION ALL SELECT 2 UNION ALL SELECT "
                       "-9223372036854775808 UNION ALL SELECT 4)");
    for (const bool isForwardOnly : {false, true}) {
        QSqlQuery query(m_database);
        query.setForwardOnly(isForwardOnly);
        QVERIFY(query.exec(statement));
        QVERIFY(query.next() && query.next());
        QVERIFY(!query.next());
        QCOMPARE(query.at(), static_cast<int>(QSql::AfterLastRow));
        QCOMPARE(query.lastError().databaseText(), QStringLiteral("integer overflow"));
        QVERIFY(!query.next());
        QVERIFY(isForwardOnly || query.previous());
    }
}

void TestSqlCipherStatements::queryWithoutStatementFails()
{
    QSqlQuery query(m_database);
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("No query"));
    QVERIFY(!query.exec(QStringLiteral("-- only a comment")));
    QVERIFY(query.lastError().isValid());
}

QTEST_GUILESS_MAIN(TestSqlCipherStatements)
#include "test_sqlcipherstatements.moc"
