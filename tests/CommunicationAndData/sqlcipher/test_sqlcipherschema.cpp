#include "sqlfixture.h"

#include <QDateTime>
#include <QSqlDriver>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QtTest>
#include <limits>

Q_DECLARE_METATYPE(QSql::TableType)
Q_DECLARE_METATYPE(QSqlDriver::IdentifierType)
Q_DECLARE_METATYPE(QVariant::Type)

/// What a connection tells of its tables and columns, and how it writes names and values into a statement.
class TestSqlCipherSchema : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tables_data();
    void tables();
    void systemTablesWithoutAutoincrementAreTheSchemaAlone();
    void recordTellsTheColumns();
    void recordColumnType_data();
    void recordColumnType();
    void recordOfTableName_data();
    void recordOfTableName();
    void recordOfAMissingTableIsEmpty();
    void primaryIndex_data();
    void primaryIndex();
    void keyColumnGetsItsValueByItself_data();
    void keyColumnGetsItsValueByItself();

    void literalReadsBackAsTheSame_data();
    void literalReadsBackAsTheSame();
    void literalTrimsTheEndWhenAsked();
    void identifier_data();
    void identifier();
    void strippedIdentifier_data();
    void strippedIdentifier();

private:
    QSqlDatabase m_database;
    SqlFixture m_files;
};

void TestSqlCipherSchema::init()
{
    m_database = m_files.open({QStringLiteral(":memory:"), false});
}

void TestSqlCipherSchema::cleanup()
{
    m_database = QSqlDatabase();
    SqlFixture::removeConnections();
}

void TestSqlCipherSchema::tables_data()
{
    QTest::addColumn<QSql::TableType>("type");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("tables, lasting and temporary") << QSql::Tables << QStringList{"passing", "t"};
    QTest::newRow("views, lasting and temporary") << QSql::Views << QStringList{"glance", "v"};
    QTest::newRow("system tables are SQLite's own")
        << QSql::SystemTables << QStringList{"sqlite_master", "sqlite_sequence", "sqlite_stat1"};
    QTest::newRow("all of them")
        << QSql::AllTables
        << QStringList{"glance", "passing", "sqlite_master", "sqlite_sequence", "sqlite_stat1", "t", "v"};
}

void TestSqlCipherSchema::tables()
{
    SqlFixture::run(m_database,
                    {"CREATE TABLE t (a INTEGER PRIMARY KEY AUTOINCREMENT, b)", "CREATE INDEX i ON t (b)",
                     "INSERT INTO t (b) VALUES (1)", "ANALYZE", "CREATE VIEW v AS SELECT * FROM t",
                     "CREATE TEMPORARY TABLE passing (a)", "CREATE TEMPORARY VIEW glance AS SELECT 1"});
    QFETCH(const QSql::TableType, type);
    QStringList names = m_database.tables(type);
    names.sort();
    QTEST(names, "names");
}

void TestSqlCipherSchema::systemTablesWithoutAutoincrementAreTheSchemaAlone()
{
    QCOMPARE(m_database.tables(QSql::SystemTables), QStringList{"sqlite_master"});
    QCOMPARE(m_database.tables(QSql::Tables), QStringList());
    QCOMPARE(m_database.tables(QSql::Views), QStringList());
}

void TestSqlCipherSchema::recordTellsTheColumns()
{
    SqlFixture::run(
        m_database,
        QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY, name VARCHAR(20) NOT NULL DEFAULT "
                       "'it''s', size REAL DEFAULT 1.5, note)"));
    const QSqlRecord record = m_database.record(QStringLiteral("t"));
    QCOMPARE(record.count(), 4);
    QCOMPARE(record.fieldName(0), QStringLiteral("id"));
    QVERIFY(record.field(0).isAutoValue());
    QCOMPARE(record.fieldName(1), QStringLiteral("name"));
    QCOMPARE(record.field(1).requiredStatus(), QSqlField::Required);
    QCOMPARE(record.field(1).tableName(), QStringLiteral("t"));
    QCOMPARE(record.field(1).defaultValue().toString(), QStringLiteral("it's"));
    QVERIFY(!record.field(1).isAutoValue());
    QCOMPARE(record.field(2).defaultValue().toString(), QStringLiteral("1.5"));
    QCOMPARE(record.field(2).requiredStatus(), QSqlField::Optional);
    QVERIFY(!record.field(3).defaultValue().isValid() || record.field(3).defaultValue().isNull());
}

void TestSqlCipherSchema::recordColumnType_data()
{
    QTest::addColumn<QString>("declared");
    QTest::addColumn<QVariant::Type>("type");

    QTest::newRow("INTEGER is a whole number") << "INTEGER" << QVariant::Int;
    QTest::newRow("int is a whole number") << "int" << QVariant::Int;
    QTest::newRow("REAL is a double") << "REAL" << QVariant::Double;
    QTest::newRow("Float is a double") << "Float" << QVariant::Double;
    QTest::newRow("DOUBLE is a double") << "DOUBLE" << QVariant::Double;
    QTest::newRow("NUMERIC with its width is a double") << "NUMERIC(10,2)" << QVariant::Double;
    QTest::newRow("BLOB is a byte array") << "BLOB" << QVariant::ByteArray;
    QTest::newRow("BOOLEAN is a truth value") << "BOOLEAN" << QVariant::Bool;
    QTest::newRow("bool is a truth value") << "bool" << QVariant::Bool;
    QTest::newRow("VARCHAR is a text") << "VARCHAR(36)" << QVariant::String;
    QTest::newRow("DATE is a text") << "DATE" << QVariant::String;
    QTest::newRow("no type is a text") << "" << QVariant::String;
}

void TestSqlCipherSchema::recordColumnType()
{
    QFETCH(const QString, declared);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a %1)").arg(declared));
    QTEST(m_database.record(QStringLiteral("t")).field(0).type(), "type");
}

void TestSqlCipherSchema::recordOfTableName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("column");

    QTest::newRow("a bare name") << "plain"
                                 << "in_plain";
    QTest::newRow("a name in quotes") << "\"plain\""
                                      << "in_plain";
    QTest::newRow("a name in brackets") << "[plain]"
                                        << "in_plain";
    QTest::newRow("a name with a space") << "two words"
                                         << "in_words";
    QTest::newRow("a name with a space in backticks") << "`two words`"
                                                      << "in_words";
    QTest::newRow("a name with a quote") << "qu\"ote"
                                         << "in_quote";
    QTest::newRow("a reserved word") << "order"
                                     << "in_order";
    QTest::newRow("a schema before the dot") << "main.plain"
                                             << "in_plain";
    QTest::newRow("another schema before the dot") << "temp.plain"
                                                   << "in_temp";
    QTest::newRow("schema and table in quotes") << "\"temp\".\"plain\""
                                                << "in_temp";
    QTest::newRow("a dot inside quotes") << "\"do.t\""
                                         << "in_dot";
    QTest::newRow("a view") << "sight"
                            << "in_order";
}

void TestSqlCipherSchema::recordOfTableName()
{
    SqlFixture::run(m_database,
                    {"CREATE TABLE plain (in_plain)", "CREATE TABLE \"two words\" (in_words)",
                     "CREATE TABLE \"qu\"\"ote\" (in_quote)", "CREATE TABLE \"order\" (in_order)",
                     "CREATE TABLE \"do.t\" (in_dot)", "CREATE VIEW sight AS SELECT * FROM \"order\""});
    QFETCH(const QString, name);
    if (name.contains(QLatin1String("temp")))
        SqlFixture::run(m_database, QStringLiteral("CREATE TEMPORARY TABLE plain (in_temp)"));
    QTEST(m_database.record(name).fieldName(0), "column");
}

void TestSqlCipherSchema::recordOfAMissingTableIsEmpty()
{
    QVERIFY(m_database.record(QStringLiteral("missing")).isEmpty());
    QVERIFY(m_database.record(QString()).isEmpty());
    QVERIFY(m_database.primaryIndex(QStringLiteral("missing")).isEmpty());
}

void TestSqlCipherSchema::primaryIndex_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QStringList>("key");

    QTest::newRow("one column") << "a INTEGER PRIMARY KEY, b" << QStringList{"a"};
    QTest::newRow("columns in the key's order") << "a, b, c, PRIMARY KEY (c, a)" << QStringList{"c", "a"};
    QTest::newRow("no key") << "a, b UNIQUE" << QStringList();
}

void TestSqlCipherSchema::primaryIndex()
{
    QFETCH(const QString, columns);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (%1)").arg(columns));
    const QSqlIndex index = m_database.primaryIndex(QStringLiteral("t"));
    QStringList key;
    for (int i = 0; i < index.count(); ++i)
        key.append(index.fieldName(i));
    QTEST(key, "key");
}

void TestSqlCipherSchema::keyColumnGetsItsValueByItself_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<bool>("isAutoValue");

    QTest::newRow("INTEGER PRIMARY KEY does") << "a INTEGER PRIMARY KEY, b" << true;
    QTest::newRow("integer primary key does") << "a integer primary key, b" << true;
    QTest::newRow("INT PRIMARY KEY doesn't") << "a INT PRIMARY KEY, b" << false;
    QTest::newRow("an integer in a key of two doesn't")
        << "a INTEGER, b INTEGER, PRIMARY KEY (a, b)" << false;
}

void TestSqlCipherSchema::keyColumnGetsItsValueByItself()
{
    QFETCH(const QString, columns);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (%1)").arg(columns));
    QTEST(m_database.record(QStringLiteral("t")).field(0).isAutoValue(), "isAutoValue");
    QTEST(m_database.primaryIndex(QStringLiteral("t")).field(0).isAutoValue(), "isAutoValue");
}

void TestSqlCipherSchema::literalReadsBackAsTheSame_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("readBack");

    const auto same = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << value << value;
    };
    same("a text", QStringLiteral("text"));
    same("an empty text", QStringLiteral(""));
    same("a text with quotes", QStringLiteral("it's \"so\""));
    same("a text with a zero character", QString::fromLatin1("a\0b", 3));
    same("a text beyond the first plane", QString::fromUtf8("Größe 🫁"));
    same("a text that looks like a number", QStringLiteral("007"));
    same("a 64-bit number", std::numeric_limits<qlonglong>::max());
    same("the least 64-bit number", std::numeric_limits<qlonglong>::min() + 1);
    same("a double of many digits", 0.1 + 0.2);
    same("a double that is whole", 5.0);
    same("a large double", 1e300);
    same("infinity", std::numeric_limits<double>::infinity());
    same("minus infinity", -std::numeric_limits<double>::infinity());
    same("bytes", QByteArray("\0\xff'x", 4));
    same("no bytes", QByteArray(""));
    QTest::newRow("a number") << QVariant(5) << QVariant(Q_INT64_C(5));
    QTest::newRow("true") << QVariant(true) << QVariant(Q_INT64_C(1));
    QTest::newRow("a date") << QVariant(QDate(2024, 2, 29)) << QVariant("2024-02-29");
    QTest::newRow("a time") << QVariant(QTime(1, 2, 3, 4)) << QVariant("01:02:03.004");
    QTest::newRow("a point in time") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3), Qt::UTC))
                                     << QVariant("2024-02-29T01:02:03.000Z");
    QTest::newRow("a null") << QVariant(QVariant::Int) << QVariant(QVariant::String);
    QTest::newRow("not a number is null")
        << QVariant(std::numeric_limits<double>::quiet_NaN()) << QVariant(QVariant::String);
}

void TestSqlCipherSchema::literalReadsBackAsTheSame()
{
    QFETCH(const QVariant, value);
    QSqlField field(QStringLiteral("f"), value.type());
    field.setValue(value);
    const QString literal = m_database.driver()->formatValue(field);
    const QVariant actual = SqlFixture::value(m_database, QStringLiteral("SELECT ") + literal);
    QFETCH(const QVariant, readBack);
    QCOMPARE(actual, readBack);
    QCOMPARE(actual.userType(), readBack.userType());
    QCOMPARE(actual.isNull(), readBack.isNull());
}

void TestSqlCipherSchema::literalTrimsTheEndWhenAsked()
{
    QSqlField field(QStringLiteral("f"), QVariant::String);
    field.setValue(QStringLiteral("  a b \t "));
    QCOMPARE(m_database.driver()->formatValue(field, true), QStringLiteral("'  a b'"));
    QCOMPARE(m_database.driver()->formatValue(field, false), QStringLiteral("'  a b \t '"));
}

void TestSqlCipherSchema::identifier_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSqlDriver::IdentifierType>("type");
    QTest::addColumn<QString>("escaped");

    QTest::newRow("a column") << "a" << QSqlDriver::FieldName << "\"a\"";
    QTest::newRow("a column with a dot is one name") << "a.b" << QSqlDriver::FieldName << "\"a.b\"";
    QTest::newRow("a table") << "t" << QSqlDriver::TableName << "\"t\"";
    QTest::newRow("a table with its schema") << "main.t" << QSqlDriver::TableName << "\"main\".\"t\"";
    QTest::newRow("a table in quotes with its schema")
        << "main.\"t t\"" << QSqlDriver::TableName << "\"main\".\"t t\"";
    QTest::newRow("a table in quotes") << "\"a.b\"" << QSqlDriver::TableName << "\"a.b\"";
    QTest::newRow("a column in brackets") << "[a b]" << QSqlDriver::FieldName << "[a b]";
    QTest::newRow("a column in backticks") << "`a b`" << QSqlDriver::FieldName << "`a b`";
    QTest::newRow("a quote in a column")
        << "a\"; DROP TABLE t; --" << QSqlDriver::FieldName << "\"a\"\"; DROP TABLE t; --\"";
}

void TestSqlCipherSchema::identifier()
{
    QFETCH(const QString, name);
    QFETCH(const QSqlDriver::IdentifierType, type);
    QTEST(m_database.driver()->escapeIdentifier(name, type), "escaped");
    QFETCH(const QString, escaped);
    QCOMPARE(m_database.driver()->escapeIdentifier(escaped, type), escaped);
}

void TestSqlCipherSchema::strippedIdentifier_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isEscaped");
    QTest::addColumn<QString>("stripped");

    QTest::newRow("quotes go") << "\"a b\"" << true << "a b";
    QTest::newRow("brackets go") << "[a b]" << true << "a b";
    QTest::newRow("backticks go") << "`a b`" << true << "a b";
    QTest::newRow("a bare name stays") << "a b" << false << "a b";
    QTest::newRow("schema and table lose theirs") << "[main].\"t\"" << false << "main.t";
}

void TestSqlCipherSchema::strippedIdentifier()
{
    QFETCH(const QString, name);
    QTEST(m_database.driver()->isIdentifierEscaped(name, QSqlDriver::TableName), "isEscaped");
    QTEST(m_database.driver()->stripDelimiters(name, QSqlDriver::TableName), "stripped");
}

QTEST_GUILESS_MAIN(TestSqlCipherSchema)
#include "test_sqlcipherschema.moc"
