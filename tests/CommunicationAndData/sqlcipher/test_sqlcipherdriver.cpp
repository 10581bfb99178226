#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "sqlfixture.h"

#include <QDateTime>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QSqlResult>
#include <QSqlTableModel>
#include <QtTest>
#include <limits>

Q_DECLARE_METATYPE(QSql::TableType)
Q_DECLARE_METATYPE(QSqlDriver::DriverFeature)
Q_DECLARE_METATYPE(QSqlDriver::IdentifierType)
Q_DECLARE_METATYPE(QVariant::Type)

/// A connection of the driver: features, opening, schema, literals and names, transactions.
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

void TestSqlCipherDriver::tables_data()
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

void TestSqlCipherDriver::tables()
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

void TestSqlCipherDriver::systemTablesWithoutAutoincrementAreTheSchemaAlone()
{
    QCOMPARE(m_database.tables(QSql::SystemTables), QStringList{"sqlite_master"});
    QCOMPARE(m_database.tables(QSql::Tables), QStringList());
    QCOMPARE(m_database.tables(QSql::Views), QStringList());
}

void TestSqlCipherDriver::recordTellsTheColumns()
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

void TestSqlCipherDriver::recordColumnType_data()
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

void TestSqlCipherDriver::recordColumnType()
{
    QFETCH(const QString, declared);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (a %1)").arg(declared));
    QTEST(m_database.record(QStringLiteral("t")).field(0).type(), "type");
}

void TestSqlCipherDriver::recordOfTableName_data()
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

void TestSqlCipherDriver::recordOfTableName()
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

void TestSqlCipherDriver::recordOfAMissingTableIsEmpty()
{
    QVERIFY(m_database.record(QStringLiteral("missing")).isEmpty());
    QVERIFY(m_database.record(QString()).isEmpty());
    QVERIFY(m_database.primaryIndex(QStringLiteral("missing")).isEmpty());
}

void TestSqlCipherDriver::primaryIndex_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QStringList>("key");

    QTest::newRow("one column") << "a INTEGER PRIMARY KEY, b" << QStringList{"a"};
    QTest::newRow("columns in the key's order") << "a, b, c, PRIMARY KEY (c, a)" << QStringList{"c", "a"};
    QTest::newRow("no key") << "a, b UNIQUE" << QStringList();
}

void TestSqlCipherDriver::primaryIndex()
{
    QFETCH(const QString, columns);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (%1)").arg(columns));
    const QSqlIndex index = m_database.primaryIndex(QStringLiteral("t"));
    QStringList key;
    for (int i = 0; i < index.count(); ++i)
        key.append(index.fieldName(i));
    QTEST(key, "key");
}

void TestSqlCipherDriver::keyColumnGetsItsValueByItself_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<bool>("isAutoValue");

    QTest::newRow("INTEGER PRIMARY KEY does") << "a INTEGER PRIMARY KEY, b" << true;
    QTest::newRow("integer primary key does") << "a integer primary key, b" << true;
    QTest::newRow("INT PRIMARY KEY doesn't") << "a INT PRIMARY KEY, b" << false;
    QTest::newRow("an integer in a key of two doesn't")
        << "a INTEGER, b INTEGER, PRIMARY KEY (a, b)" << false;
}

void TestSqlCipherDriver::keyColumnGetsItsValueByItself()
{
    QFETCH(const QString, columns);
    SqlFixture::run(m_database, QStringLiteral("CREATE TABLE t (%1)").arg(columns));
    QTEST(m_database.record(QStringLiteral("t")).field(0).isAutoValue(), "isAutoValue");
    QTEST(m_database.primaryIndex(QStringLiteral("t")).field(0).isAutoValue(), "isAutoValue");
}

void TestSqlCipherDriver::literalReadsBackAsTheSame_data()
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

void TestSqlCipherDriver::literalReadsBackAsTheSame()
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

void TestSqlCipherDriver::literalTrimsTheEndWhenAsked()
{
    QSqlField field(QStringLiteral("f"), QVariant::String);
    field.setValue(QStringLiteral("  a b \t "));
    QCOMPARE(m_database.driver()->formatValue(field, true), QStringLiteral("'  a b'"));
    QCOMPARE(m_database.driver()->formatValue(field, false), QStringLiteral("'  a b \t '"));
}

void TestSqlCipherDriver::identifier_data()
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

void TestSqlCipherDriver::identifier()
{
    QFETCH(const QString, name);
    QFETCH(const QSqlDriver::IdentifierType, type);
    QTEST(m_database.driver()->escapeIdentifier(name, type), "escaped");
    QFETCH(const QString, escaped);
    QCOMPARE(m_database.driver()->escapeIdentifier(escaped, type), escaped);
}

void TestSqlCipherDriver::strippedIdentifier_data()
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

void TestSqlCipherDriver::strippedIdentifier()
{
    QFETCH(const QString, name);
    QTEST(m_database.driver()->isIdentifierEscaped(name, QSqlDriver::TableName), "isEscaped");
    QTEST(m_database.driver()->stripDelimiters(name, QSqlDriver::TableName), "stripped");
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
