#include "sqlfixture.h"

#include <QDateTime>
#include <QSqlError>
#include <QUuid>
#include <QtTest>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(QSql::NumericalPrecisionPolicy)

/// Values in and out of statements, and their types.
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

QTEST_GUILESS_MAIN(TestSqlCipherValues)
#include "test_sqlciphervalues.moc"
