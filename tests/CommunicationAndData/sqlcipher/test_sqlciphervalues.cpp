#include "sqlfixture.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlRecord>
#include <QUuid>
#include <QtTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(QSql::NumericalPrecisionPolicy)

/// Values in and out of statements: their types, their placeholders and what statements report.
class TestSqlCipherValues : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void valueComesBack_data();
    void valueComesBack();
    void valueWithoutTextIsRefused();
    void storageClass_data();
    void storageClass();
    void nullIsANullText();
    void precision_data();
    void precision();
    void precisionOfTheConnectionIsTheQueries();
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

void TestSqlCipherValues::init()
{
    m_database = m_files.open({QStringLiteral(":memory:"), false});
}

void TestSqlCipherValues::cleanup()
{
    m_database = QSqlDatabase();
    const WarningCatcher catcher;
    SqlFixture::removeConnections();
    QCOMPARE(catcher.warnings(), QStringList());
}

void TestSqlCipherValues::valueComesBack_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("readBack");

    const auto same = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << value << value;
    };
    same("a text", QStringLiteral("text"));
    same("an empty text is not null", QStringLiteral(""));
    same("a text with zero characters", QString::fromLatin1("a\0b\0", 4));
    same("a text of a zero character alone", QString(1, QChar(0)));
    same("a text of all planes", QString::fromUtf8("Zoë Größe 肺活量 🫁"));
    same("a text with quotes", QStringLiteral("it's \"so\" [here] `now`"));
    same("a long text", QString(100000, QLatin1Char('x')));
    same("zero", Q_INT64_C(0));
    same("one", Q_INT64_C(1));
    same("minus one", Q_INT64_C(-1));
    same("the greatest 64-bit number", std::numeric_limits<qlonglong>::max());
    same("the least 64-bit number", std::numeric_limits<qlonglong>::min());
    same("a double", 0.1);
    same("a double that is whole", 3.0);
    same("the greatest double", std::numeric_limits<double>::max());
    same("the smallest double", std::numeric_limits<double>::denorm_min());
    same("infinity", std::numeric_limits<double>::infinity());
    same("bytes", QByteArray("\0\x01\xfe\xff\0", 5));
    same("no bytes are not null", QByteArray(""));
    same("a long blob", QByteArray(300000, '\x7f'));
    QTest::newRow("a number of 32 bits") << QVariant(-7) << QVariant(Q_INT64_C(-7));
    QTest::newRow("an unsigned number of 32 bits")
        << QVariant(4000000000u) << QVariant(Q_INT64_C(4000000000));
    QTest::newRow("an unsigned number within 64 bits")
        << QVariant(Q_UINT64_C(9223372036854775807)) << QVariant(std::numeric_limits<qlonglong>::max());
    QTest::newRow("an unsigned number beyond it is text")
        << QVariant(Q_UINT64_C(18446744073709551615)) << QVariant("18446744073709551615");
    QTest::newRow("a short number") << QVariant::fromValue<short>(-3) << QVariant(Q_INT64_C(-3));
    QTest::newRow("a float") << QVariant(1.5f) << QVariant(1.5);
    QTest::newRow("true") << QVariant(true) << QVariant(Q_INT64_C(1));
    QTest::newRow("false") << QVariant(false) << QVariant(Q_INT64_C(0));
    QTest::newRow("a date") << QVariant(QDate(2024, 2, 29)) << QVariant("2024-02-29");
    QTest::newRow("a time") << QVariant(QTime(23, 59, 58, 7)) << QVariant("23:59:58.007");
    QTest::newRow("a local point in time")
        << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4))) << QVariant("2024-02-29T01:02:03.004");
    QTest::newRow("a point in time in UTC")
        << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4), Qt::UTC))
        << QVariant("2024-02-29T01:02:03.004Z");
    QTest::newRow("a point in time with an offset")
        << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4), Qt::OffsetFromUTC, 5400))
        << QVariant("2024-02-29T01:02:03.004+01:30");
    QTest::newRow("a UUID") << QVariant(QUuid("{5f0b2c1e-8d3a-4e6f-9a7b-000000000001}"))
                            << QVariant("{5f0b2c1e-8d3a-4e6f-9a7b-000000000001}");
    const QVariant null(QVariant::String);
    QTest::newRow("no value") << QVariant() << null;
    QTest::newRow("a null number") << QVariant(QVariant::Int) << null;
    QTest::newRow("a null text") << QVariant(QString()) << null;
    QTest::newRow("null bytes") << QVariant(QByteArray()) << null;
    QTest::newRow("no date") << QVariant(QDate()) << null;
    QTest::newRow("not a number") << QVariant(std::nan("")) << null;
}

void TestSqlCipherValues::valueComesBack()
{
    QFETCH(const QVariant, value);
    QFETCH(const QVariant, readBack);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    for (const bool isForwardOnly : {false, true}) {
        SqlFixture::run(m_database, QStringLiteral("DELETE FROM t"));
        QSqlQuery insert(m_database);
        QVERIFY(insert.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
        insert.addBindValue(value);
        QVERIFY2(insert.exec(), qPrintable(insert.lastError().text()));

        QSqlQuery query(m_database);
        query.setForwardOnly(isForwardOnly);
        QVERIFY(query.exec(QStringLiteral("SELECT a FROM t")));
        QVERIFY(query.next());
        QCOMPARE(query.value(0), readBack);
        QCOMPARE(query.value(0).userType(), readBack.userType());
        QCOMPARE(query.isNull(0), readBack.isNull());
        QCOMPARE(query.value(0).isNull(), readBack.isNull());
        QVERIFY(!query.next());
    }
}

void TestSqlCipherValues::valueWithoutTextIsRefused()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
    query.addBindValue(QVariantList{1, 2});
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().driverText(), QStringLiteral("Unable to bind parameters"));
    QCOMPARE(query.lastError().nativeErrorCode(), QStringLiteral("20"));
    QCOMPARE(SqlFixture::value(m_database, QStringLiteral("SELECT count(*) FROM t")).toInt(), 0);
}

void TestSqlCipherValues::storageClass_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("storage");

    QTest::newRow("a truth value is an integer") << QVariant(true) << "integer";
    QTest::newRow("a long number is an integer") << QVariant(Q_INT64_C(1)) << "integer";
    QTest::newRow("a double is a real") << QVariant(1.0) << "real";
    QTest::newRow("a text is a text") << QVariant("1") << "text";
    QTest::newRow("bytes are a blob") << QVariant(QByteArray("1")) << "blob";
    QTest::newRow("a date is a text") << QVariant(QDate(2024, 1, 1)) << "text";
    QTest::newRow("no value is null") << QVariant() << "null";
}

void TestSqlCipherValues::storageClass()
{
    QFETCH(const QVariant, value);
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT typeof(?)")));
    query.addBindValue(value);
    QVERIFY(query.exec() && query.next());
    QTEST(query.value(0).toString(), "storage");
}

void TestSqlCipherValues::nullIsANullText()
{
    QSqlQuery query(QStringLiteral("SELECT NULL"), m_database);
    QVERIFY(query.next());
    QVERIFY(query.isNull(0));
    QVERIFY(query.value(0).isValid());
    QVERIFY(query.value(0).isNull());
    QCOMPARE(query.value(0).type(), QVariant::String);
}

void TestSqlCipherValues::precision_data()
{
    QTest::addColumn<QSql::NumericalPrecisionPolicy>("policy");
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QVariant>("value");

    const QVariant most(std::numeric_limits<qlonglong>::max());
    const QVariant least(std::numeric_limits<qlonglong>::min());
    QTest::newRow("a double stays one") << QSql::LowPrecisionDouble << "2.75" << QVariant(2.75);
    QTest::newRow("high precision is a double") << QSql::HighPrecision << "2.75" << QVariant(2.75);
    QTest::newRow("64 bits cut the fraction")
        << QSql::LowPrecisionInt64 << "-2.75" << QVariant(Q_INT64_C(-2));
    QTest::newRow("32 bits cut the fraction") << QSql::LowPrecisionInt32 << "2.75" << QVariant(2);
    QTest::newRow("above 64 bits is the greatest") << QSql::LowPrecisionInt64 << "1e300" << most;
    QTest::newRow("below 64 bits is the least") << QSql::LowPrecisionInt64 << "-1e300" << least;
    QTest::newRow("infinity is the greatest") << QSql::LowPrecisionInt64 << "9e999" << most;
    QTest::newRow("an integer stays of 64 bits") << QSql::LowPrecisionInt32 << "9223372036854775807" << most;
}

void TestSqlCipherValues::precision()
{
    QFETCH(const QSql::NumericalPrecisionPolicy, policy);
    QFETCH(const QString, expression);
    QFETCH(const QVariant, value);
    for (const bool isForwardOnly : {false, true}) {
        QSqlQuery query(m_database);
        query.setForwardOnly(isForwardOnly);
        query.setNumericalPrecisionPolicy(policy);
        QVERIFY(query.exec(QStringLiteral("SELECT ") + expression) && query.next());
        QCOMPARE(query.value(0), value);
        QCOMPARE(query.value(0).userType(), value.userType());
    }
}

void TestSqlCipherValues::precisionOfTheConnectionIsTheQueries()
{
    m_database.setNumericalPrecisionPolicy(QSql::LowPrecisionInt64);
    QSqlQuery query(QStringLiteral("SELECT 7.5"), m_database);
    QVERIFY(query.next());
    QCOMPARE(query.value(0), QVariant(Q_INT64_C(7)));
}

void TestSqlCipherValues::placeholders_data()
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

void TestSqlCipherValues::placeholders()
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

void TestSqlCipherValues::wrongNumberOfValues_data()
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

void TestSqlCipherValues::wrongNumberOfValues()
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

void TestSqlCipherValues::unknownNameIsNoValue()
{
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT :a")));
    query.bindValue(QStringLiteral(":a"), 1);
    query.bindValue(QStringLiteral(":other"), 2);
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.value(0).toInt(), 1);
}

void TestSqlCipherValues::preparedStatementRunsAgainWithOtherValues()
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

void TestSqlCipherValues::valuesStayBoundForTheNextRun()
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

void TestSqlCipherValues::batchInsertsAllRows_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<bool>("isNamed");

    QTest::newRow("by position") << "INSERT INTO t VALUES (?, ?, 0)" << false;
    QTest::newRow("by name") << "INSERT INTO t VALUES (:a, :b, 0)" << true;
    QTest::newRow("by a repeated name") << "INSERT INTO t VALUES (:a, :b, :a)" << true;
}

void TestSqlCipherValues::batchInsertsAllRows()
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

void TestSqlCipherValues::batchStopsAtTheFirstError()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a UNIQUE)"));
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
    query.addBindValue(QVariantList{1, 2, 2, 3});
    QVERIFY(!query.execBatch());
    QCOMPARE(query.lastError().nativeErrorCode(), QStringLiteral("19"));
    QCOMPARE(SqlFixture::column(m_database, QStringLiteral("SELECT a FROM t")), (QStringList{"1", "2"}));
}

void TestSqlCipherValues::batchOfUnequalListsIsRefused()
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

void TestSqlCipherValues::boundValueIsNeverStatementText()
{
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES ('x')"});
    QSqlQuery query(m_database);
    QVERIFY(query.prepare(QStringLiteral("SELECT count(*) FROM t WHERE a = :a")));
    query.bindValue(QStringLiteral(":a"), QStringLiteral("' OR 1=1; DROP TABLE t; --"));
    QVERIFY(query.exec() && query.next());
    QCOMPARE(query.value(0).toInt(), 0);
    QCOMPARE(m_database.tables(), QStringList{"t"});
}

void TestSqlCipherValues::lastInsertId()
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

void TestSqlCipherValues::lastInsertIdIsThatOfItsOwnStatement()
{
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY)"));
    QSqlQuery first(QStringLiteral("INSERT INTO t VALUES (10)"), m_database);
    QSqlQuery second(QStringLiteral("INSERT INTO t VALUES (20)"), m_database);
    QCOMPARE(first.lastInsertId().toInt(), 10);
    QCOMPARE(second.lastInsertId().toInt(), 20);
}

void TestSqlCipherValues::affectedRows_data()
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

void TestSqlCipherValues::affectedRows()
{
    QFETCH(const QString, statement);
    SqlFixture::run(m_database, {"CREATE TABLE t (a)", "INSERT INTO t VALUES (1), (2), (3)"});
    QSqlQuery query(m_database);
    QVERIFY(query.exec(statement));
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE later AS SELECT * FROM t"));
    QTEST(query.numRowsAffected(), "rows");
}

void TestSqlCipherValues::statementError_data()
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

void TestSqlCipherValues::statementError()
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

void TestSqlCipherValues::oneStatementAtATime_data()
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

void TestSqlCipherValues::oneStatementAtATime()
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

void TestSqlCipherValues::errorInTheMiddleOfTheRows()
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

void TestSqlCipherValues::queryWithoutStatementFails()
{
    QSqlQuery query(m_database);
    QVERIFY(!query.exec());
    QCOMPARE(query.lastError().databaseText(), QStringLiteral("No query"));
    QVERIFY(!query.exec(QStringLiteral("-- only a comment")));
    QVERIFY(query.lastError().isValid());
}

QTEST_GUILESS_MAIN(TestSqlCipherValues)
#include "test_sqlciphervalues.moc"
