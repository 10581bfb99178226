#include "sqlfixture.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QtTest>

Q_DECLARE_METATYPE(QVariant::Type)

namespace {

// A statement of a thousand million rows: whoever fetches more than is asked for never comes back.
const QString kEndlessRows =
    QStringLiteral("WITH RECURSIVE numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM numbers WHERE n < "
                   "1000000000) SELECT n, 'row ' || n FROM numbers");

QString countTo(int last)
{
    return QStringLiteral(
               "WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n "
               "< %1) SELECT n FROM numbers")
        .arg(last);
}

}  // namespace

/// Rows of statements: moving among them, their columns, models over them, and their end.
class TestSqlCipherRows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void moving_data();
    void moving();
    void forwardOnlyMoving_data();
    void forwardOnlyMoving();
    void cellOutsideTheRowIsEmpty_data();
    void cellOutsideTheRowIsEmpty();
    void sizeIsNotKnown();
    void recordOfAResult();
    void columnTypeOfAResult_data();
    void columnTypeOfAResult();
    void recordOfAStatementWithoutRowsIsEmpty();
    void schemaChangeIsSeenByAPreparedStatement();
    void finishLetsGoOfTheRows();
    void rowsReadToTheEndLockNothing();
    void rollbackEndsRowsUnderWay();
    void modelShowsItsFirstPageOfAThousandMillionRows();
    void modelFetchesPageByPage();
    void modelGoesBackOverAllRows();
    void forwardQueryReadsOnlyWhatIsAskedFor();
    void closingMakesQueriesInactive_data();
    void closingMakesQueriesInactive();
    void queryOutlivesItsConnection();
    void modelOutlivesItsConnection();
    void preparedQueryFailsAfterReopening();

private:
    QStringList walk(QSqlQuery &query, const QStringList &steps);

    QSqlDatabase m_database;
    SqlFixture m_files;
};

void TestSqlCipherRows::init()
{
    m_database = m_files.open({QStringLiteral(":memory:"), false});
}

void TestSqlCipherRows::cleanup()
{
    m_database = QSqlDatabase();
    const WarningCatcher catcher;
    SqlFixture::removeConnections();
    QCOMPARE(catcher.warnings(), QStringList());
}

QStringList TestSqlCipherRows::walk(QSqlQuery &query, const QStringList &steps)
{
    QStringList places;
    for (const QString &step : steps) {
        bool isThere = false;
        if (step == QLatin1String("first"))
            isThere = query.first();
        else if (step == QLatin1String("last"))
            isThere = query.last();
        else if (step == QLatin1String("next"))
            isThere = query.next();
        else if (step == QLatin1String("previous"))
            isThere = query.previous();
        else if (step.startsWith(QLatin1String("by ")))
            isThere = query.seek(step.mid(3).toInt(), true);
        else
            isThere = query.seek(step.toInt());
        places.append(isThere                              ? query.value(0).toString()
                      : query.at() == QSql::BeforeFirstRow ? QStringLiteral("before")
                      : query.at() == QSql::AfterLastRow   ? QStringLiteral("after")
                                                           : QStringLiteral("no"));
    }
    return places;
}

void TestSqlCipherRows::moving_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("places");

    QTest::newRow("next to the end and back again")
        << 3 << QStringList{"next", "next", "next", "next", "previous", "previous", "previous", "previous"}
        << QStringList{"1", "2", "3", "after", "3", "2", "1", "before"};
    QTest::newRow("the last and then all the way back")
        << 3 << QStringList{"last", "previous", "previous", "previous"}
        << QStringList{"3", "2", "1", "before"};
    QTest::newRow("the first at any time")
        << 3 << QStringList{"first", "last", "first", "next"} << QStringList{"1", "3", "1", "2"};
    QTest::newRow("seeking to and fro") << 1000 << QStringList{"500", "20", "999", "0", "700"}
                                        << QStringList{"501", "21", "1000", "1", "701"};
    QTest::newRow("seeking by steps")
        << 1000 << QStringList{"by 10", "by 5", "by -3", "by -20"} << QStringList{"10", "15", "12", "before"};
    QTest::newRow("seeking past the end and back") << 3 << QStringList{"3", "1", "100", "last", "-1", "next"}
                                                   << QStringList{"after", "2", "after", "3", "before", "1"};
    QTest::newRow("staying where one is") << 3 << QStringList{"1", "1"} << QStringList{"2", "2"};
    QTest::newRow("no rows at all") << 0 << QStringList{"next", "first", "last", "previous", "0", "5"}
                                    << QStringList{"after", "after", "after", "after", "after", "after"};
}

void TestSqlCipherRows::moving()
{
    QFETCH(const int, rows);
    QFETCH(const QStringList, steps);
    QSqlQuery query(m_database);
    QVERIFY(query.exec(QStringLiteral("SELECT n FROM (%1) WHERE n <= %2").arg(countTo(rows)).arg(rows)));
    QVERIFY(query.isSelect());
    QTEST(walk(query, steps), "places");
}

void TestSqlCipherRows::forwardOnlyMoving_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("places");

    QTest::newRow("next to the end") << 3 << QStringList{"next", "next", "next", "next", "next"}
                                     << QStringList{"1", "2", "3", "after", "after"};
    QTest::newRow("the last is read")
        << 3 << QStringList{"last", "last", "next", "last"} << QStringList{"3", "3", "after", "after"};
    QTest::newRow("the last from the middle")
        << 5 << QStringList{"next", "next", "last"} << QStringList{"1", "2", "5"};
    QTest::newRow("the only row is the last") << 1 << QStringList{"next", "last"} << QStringList{"1", "1"};
    QTest::newRow("seeking ahead") << 1000 << QStringList{"10", "by 5", "900"}
                                   << QStringList{"11", "16", "901"};
    QTest::newRow("seeking past the end") << 3 << QStringList{"5", "next"} << QStringList{"after", "after"};
    QTest::newRow("the first only once") << 3 << QStringList{"first", "next"} << QStringList{"1", "2"};
    QTest::newRow("no rows at all") << 0 << QStringList{"next", "last"} << QStringList{"after", "after"};
}

void TestSqlCipherRows::forwardOnlyMoving()
{
    QFETCH(const int, rows);
    QFETCH(const QStringList, steps);
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    QVERIFY(query.exec(QStringLiteral("SELECT n FROM (%1) WHERE n <= %2").arg(countTo(rows)).arg(rows)));
    QTEST(walk(query, steps), "places");
}

void TestSqlCipherRows::cellOutsideTheRowIsEmpty_data()
{
    QTest::addColumn<bool>("isForwardOnly");
    QTest::newRow("among kept rows") << false;
    QTest::newRow("reading forward") << true;
}

void TestSqlCipherRows::cellOutsideTheRowIsEmpty()
{
    QFETCH(const bool, isForwardOnly);
    QSqlQuery query(m_database);
    query.setForwardOnly(isForwardOnly);
    QVERIFY(query.exec(QStringLiteral("SELECT 1, 2")) && query.next());
    QVERIFY(!query.value(2).isValid());
    QVERIFY(query.isNull(2));
    QVERIFY(query.isNull(-1));
    QCOMPARE(query.value(1).toInt(), 2);
    QVERIFY(!query.next());
    QVERIFY(query.isNull(0));
}

void TestSqlCipherRows::sizeIsNotKnown()
{
    QSqlQuery query(QStringLiteral("SELECT 1"), m_database);
    QCOMPARE(query.size(), -1);
    QVERIFY(query.last());
    QCOMPARE(query.size(), -1);
}

void TestSqlCipherRows::recordOfAResult()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (id INTEGER, \"two words\" VARCHAR(5))",
                                 "INSERT INTO t VALUES (1, 'x')"});
    QSqlQuery query(QStringLiteral("SELECT id AS number, \"two words\", id + 1 FROM t"), m_database);
    const QSqlRecord record = query.record();
    QCOMPARE(record.count(), 3);
    QCOMPARE(record.fieldName(0), QStringLiteral("number"));
    QCOMPARE(record.field(0).tableName(), QStringLiteral("t"));
    QCOMPARE(record.fieldName(1), QStringLiteral("two words"));
    QCOMPARE(record.field(2).tableName(), QString());
    QVERIFY(query.next());
    QCOMPARE(query.value(QStringLiteral("two words")).toString(), QStringLiteral("x"));
    QCOMPARE(query.record().value(0), QVariant(Q_INT64_C(1)));
}

void TestSqlCipherRows::columnTypeOfAResult_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QVariant::Type>("type");

    QTest::newRow("a declared column has its type") << "i FROM t" << QVariant::Int;
    QTest::newRow("a declared column without rows too") << "i FROM t WHERE 0" << QVariant::Int;
    QTest::newRow("a number") << "1" << QVariant::Int;
    QTest::newRow("a fraction") << "1.5" << QVariant::Double;
    QTest::newRow("a text") << "'a'" << QVariant::String;
    QTest::newRow("bytes") << "x'00'" << QVariant::ByteArray;
    QTest::newRow("a null has none") << "NULL" << QVariant::Invalid;
    QTest::newRow("an expression without rows has none") << "i + 1 FROM t WHERE 0" << QVariant::Invalid;
}

void TestSqlCipherRows::columnTypeOfAResult()
{
    QFETCH(const QString, expression);
    SqlFixture::run(m_database, {"CREATE TABLE t (i INTEGER)", "INSERT INTO t VALUES (1)"});
    const QSqlQuery query(QStringLiteral("SELECT ") + expression, m_database);
    QTEST(query.record().field(0).type(), "type");
}

void TestSqlCipherRows::recordOfAStatementWithoutRowsIsEmpty()
{
    QSqlQuery query(m_database);
    QVERIFY(query.exec(QStringLiteral("CREATE TABLE t (a)")));
    QVERIFY(!query.isSelect());
    QVERIFY(query.record().isEmpty());
    QVERIFY(!query.next());
}

void TestSqlCipherRows::schemaChangeIsSeenByAPreparedStatement()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1)"});
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT * FROM t WHERE a = ?")));
    query.addBindValue(1);
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.record().count(), 1);
    query.finish();

    SqlFixture::run(m_database, QStringLiteral("ALTER TABLE t ADD COLUMN b DEFAULT 'new'"));
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.record().count(), 2);
    QCOMPARE(query.value(1).toString(), QStringLiteral("new"));
    query.finish();

    SqlFixture::run(m_database, QStringLiteral("DROP TABLE t"));
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("no such table: t"));
}

void TestSqlCipherRows::finishLetsGoOfTheRows()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2)"});
    QSqlQuery query(QStringLiteral("SELECT a FROM t"), m_database);
    QVERIFY(query.next());
    QCOMPARE(SqlFixture::errorOf(m_database, QStringLiteral("DROP TABLE t")), 6);
    query.finish();
    QVERIFY(!query.isActive());
    QVERIFY(!query.next());
    QCOMPARE(SqlFixture::errorOf(m_database, QStringLiteral("DROP TABLE t")), 0);
}

void TestSqlCipherRows::rowsReadToTheEndLockNothing()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2)"});
    QSqlQuery query(QStringLiteral("SELECT a FROM t"), m_database);
    QVERIFY(query.next() && query.next());
    QCOMPARE(SqlFixture::errorOf(m_database, QStringLiteral("DROP TABLE t")), 6);
    QVERIFY(!query.next());
    QCOMPARE(SqlFixture::errorOf(m_database, QStringLiteral("DROP TABLE t")), 0);
    QVERIFY(query.first());
    QCOMPARE(query.value(0).toInt(), 1);
}

void TestSqlCipherRows::rollbackEndsRowsUnderWay()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2), (3)"});
    QVERIFY(m_database.transaction());
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE other (a)"));
    QSqlQuery query(QStringLiteral("SELECT a FROM t"), m_database);
    QVERIFY(query.next());
    QVERIFY(m_database.rollback());
    QVERIFY(!query.next());
    QCOMPARE(query.lastError().nativeErrorCode(), QStringLiteral("4"));
}

void TestSqlCipherRows::modelShowsItsFirstPageOfAThousandMillionRows()
{
    QSqlQueryModel model;
    model.setQuery(kEndlessRows, m_database);
    QVERIFY2(!model.lastError().isValid(), qPrintable(model.lastError().text()));
    QCOMPARE(model.rowCount(), 256);
    QCOMPARE(model.data(model.index(255, 1)).toString(), QStringLiteral("row 255"));
    QVERIFY(model.canFetchMore());
}

void TestSqlCipherRows::modelFetchesPageByPage()
{
    QSqlQueryModel model;
    model.setQuery(countTo(600), m_database);
    QCOMPARE(model.rowCount(), 256);
    model.fetchMore();
    QCOMPARE(model.rowCount(), 511);
    model.fetchMore();
    QCOMPARE(model.rowCount(), 600);
    QVERIFY(!model.canFetchMore());
    QCOMPARE(model.data(model.index(599, 0)).toInt(), 600);
    QCOMPARE(model.data(model.index(0, 0)).toInt(), 1);
}

void TestSqlCipherRows::modelGoesBackOverAllRows()
{
    constexpr int kRows = 30000;
    QSqlQueryModel model;
    model.setQuery(countTo(kRows), m_database);
    while (model.canFetchMore())
        model.fetchMore();
    QCOMPARE(model.rowCount(), kRows);
    for (int row = kRows - 1; row >= 0; row -= 7)
        QCOMPARE(model.data(model.index(row, 0)).toInt(), row + 1);
}

void TestSqlCipherRows::forwardQueryReadsOnlyWhatIsAskedFor()
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    QVERIFY(query.exec(kEndlessRows));
    QVERIFY(query.seek(100));
    QCOMPARE(query.value(1).toString(), QStringLiteral("row 100"));
}

void TestSqlCipherRows::closingMakesQueriesInactive_data()
{
    QTest::addColumn<bool>("isForwardOnly");
    QTest::newRow("that keep rows") << false;
    QTest::newRow("that read forward") << true;
}

void TestSqlCipherRows::closingMakesQueriesInactive()
{
    QFETCH(const bool, isForwardOnly);
    QSqlQuery query(m_database);
    query.setForwardOnly(isForwardOnly);
    QVERIFY(query.exec(countTo(10)) && query.next() && query.next());
    m_database.close();
    QVERIFY(!query.isActive());
    QVERIFY(!query.next());
    QVERIFY(!query.previous());
    QVERIFY(!query.seek(0));
    QVERIFY(!query.last());
    QVERIFY(query.isNull(0));
    QVERIFY(query.record().isEmpty());
    QVERIFY(!query.lastInsertId().isValid());
    QCOMPARE(query.numRowsAffected(), -1);
    QVERIFY(!query.exec());
    query.finish();
    query.clear();
}

void TestSqlCipherRows::queryOutlivesItsConnection()
{
    QSqlQuery query(m_database);
    QVERIFY(query.exec(countTo(10)) && query.next());
    const QString name = m_database.connectionName();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
    QVERIFY(!query.isActive());
    QVERIFY(!query.next());
}

void TestSqlCipherRows::modelOutlivesItsConnection()
{
    QSqlQueryModel model;
    model.setQuery(countTo(1000), m_database);
    QCOMPARE(model.rowCount(), 256);
    m_database.close();
    QVERIFY(!model.data(model.index(3, 0)).isValid());
    model.fetchMore();
    QVERIFY(!model.data(model.index(3, 0)).isValid());
    model.clear();
}

void TestSqlCipherRows::preparedQueryFailsAfterReopening()
{
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT 1")));
    QVERIFY(m_database.open());
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("No query"));
    QVERIFY(query.exec(QStringLiteral("SELECT 2")) && query.next());
    QCOMPARE(query.value(0).toInt(), 2);
}

QTEST_GUILESS_MAIN(TestSqlCipherRows)
#include "test_sqlcipherrows.moc"
