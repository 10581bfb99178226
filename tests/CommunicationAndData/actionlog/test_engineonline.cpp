#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

namespace {

const QString kNil = QStringLiteral("00000000-0000-0000-0000-000000000000");
constexpr char kOdbcDriver[] = "QODBC3";

void useConnection(const QVariantMap &params, const QVariant &connectOptions = QVariant())
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->setValue(QLatin1String(SettingsKeys::kActionLogActivated), false);
    settings->setDatabaseSettings(QLatin1String(SettingsKeys::kActionDbGroup),
                                  {{QLatin1String(SettingsKeys::kParams), params}});
    if (connectOptions.isValid())
        settings->setValue(QStringLiteral("actiondb/connectoptions"), connectOptions);
    settings->setSafeValue(QStringLiteral("actiondb/username"), QStringLiteral("writer"));
    settings->setSafeValue(QStringLiteral("actiondb/password"), QStringLiteral("pass;word"));
}

}  // namespace

/// The engine on an online database; SQLite behind ODBC stands for the server.
class TestEngineOnline : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void missingTablesAreMade();
    void presentTablesAreKept();
    void rowsAreWritten_data();
    void rowsAreWritten();
    void databaseIsReadByOthersMeanwhile();
    void engineRunsWithConnectOptions_data();
    void engineRunsWithConnectOptions();
    void connectionThatCannotBeMadeIsRefused_data();
    void connectionThatCannotBeMadeIsRefused();
    void missingTablesThatCannotBeMadeAreABadStart();
    void tableWithoutItsColumnsIsABadStart();
    void removedTableIsACriticalError();
    void refusedInsertIsACriticalError();
    void locationOfTheFileIsNotTouched();
    void passwordStandsInNoLog();
    void shutdownIsReported();

private:
    QString file() const;
    QVariantMap params() const;

    Workstation m_workstation;
    int m_run = 0;
};

QString TestEngineOnline::file() const
{
    return m_workstation.path(QStringLiteral("server%1.db").arg(m_run));
}

QVariantMap TestEngineOnline::params() const
{
    return {{QStringLiteral("Driver"), QStringLiteral("SQLite3")}, {QStringLiteral("Database"), file()}};
}

void TestEngineOnline::init()
{
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(m_workstation.path(QStringLiteral("log%1").arg(m_run)));
    useConnection(params());
}

void TestEngineOnline::missingTablesAreMade()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    QCOMPARE(server.run(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")),
             QStringList({"action_log", "hash"}));
    QCOMPARE(server.run(QStringLiteral("SELECT hash FROM hash")).value(0).size(), 64);
}

void TestEngineOnline::presentTablesAreKept()
{
    QString hash;
    {
        EngineRun run;
        QCOMPARE(run.start(), 0U);
        run.log(QStringLiteral("first"));
        QCOMPARE(run.engine.shutdownEngine(), 0U);
        hash = TestDatabase(QStringLiteral("QSQLITE"), file())
                   .run(QStringLiteral("SELECT hash FROM hash"))
                   .value(0);
    }
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("second"));
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    QCOMPARE(server.run(QStringLiteral("SELECT info FROM action_log")), QStringList({"first", "second"}));
    QCOMPARE(server.run(QStringLiteral("SELECT hash FROM hash")), QStringList(hash));
}

void TestEngineOnline::rowsAreWritten_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("with an empty text") << "";
    QTest::newRow("with quotes and a statement") << "'); DROP TABLE action_log; --\"`";
    QTest::newRow("with letters of many scripts") << QString::fromUtf8("Größe Ελλάδα Привет 日本語");
    QTest::newRow("with several lines") << "first\nsecond\r\n\tthird";
    QTest::newRow("with a hundred thousand letters") << QString(100000, QLatin1Char('x'));
}

void TestEngineOnline::rowsAreWritten()
{
    QFETCH(QString, text);

    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.engine.logAction(Actions::SearchAuditTrail, Actions::Human, UuidString(), text, text, text);
    run.engine.logError(Actions::Login, 5, text);
    QVERIFY(run.critical.isEmpty());

    TestDatabase server(QStringLiteral("QSQLITE"), file());
    const QString statement =
        QStringLiteral("SELECT category, action_level, action, action_type, operator, "
                       "operator_name, database_key, info, target_database, target_server "
                       "FROM action_log ORDER BY rowid");
    const QString error =
        text.isEmpty() ? QStringLiteral("Error code: 5") : QStringLiteral("Error code: 5, ") + text;
    QCOMPARE(
        server.run(statement),
        QStringList({QStringList({"8192", "512", "8720", "1", kNil, "", kNil, text, text, text}).join('|'),
                     QStringList({"24576", "768", "4864", "0", kNil, "", kNil, error, "", ""}).join('|')}));
}

void TestEngineOnline::databaseIsReadByOthersMeanwhile()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    TestDatabase reader(QLatin1String(kOdbcDriver), QStringLiteral("Driver=SQLite3;Database=") + file());
    for (int i = 1; i <= 10; ++i) {
        run.log(QString::number(i));
        QCOMPARE(reader.run(QStringLiteral("SELECT count(*) FROM action_log")),
                 QStringList(QString::number(i)));
    }
}

void TestEngineOnline::engineRunsWithConnectOptions_data()
{
    QTest::addColumn<QVariant>("options");

    QTest::newRow("that are the default") << QVariant();
    QTest::newRow("that are an empty text") << QVariant(QString());
    QTest::newRow("that are a list") << QVariant(QStringList{"SQL_ATTR_LOGIN_TIMEOUT=5"});
    QTest::newRow("that are one text") << QVariant(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=5"));
}

void TestEngineOnline::engineRunsWithConnectOptions()
{
    QFETCH(QVariant, options);
    useConnection(params(), options);
    EngineRun run;
    QCOMPARE(run.start(), 0U);
}

void TestEngineOnline::connectionThatCannotBeMadeIsRefused_data()
{
    QTest::addColumn<QVariantMap>("params");

    QTest::newRow("without parameters") << QVariantMap();
    QTest::newRow("with a driver that isn't there") << QVariantMap{{"Driver", "No such driver"}};
    QTest::newRow("with a file that can't be made")
        << QVariantMap{{"Driver", "SQLite3"}, {"Database", "/proc/nowhere/server.db"}};
}

void TestEngineOnline::connectionThatCannotBeMadeIsRefused()
{
    QFETCH(QVariantMap, params);
    useConnection(params);
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotOpened);
    QCoreApplication::processEvents();
    QVERIFY(run.initialized.isEmpty());
}

void TestEngineOnline::missingTablesThatCannotBeMadeAreABadStart()
{
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    server.run(QStringLiteral("CREATE TABLE other (x)"));
    server.run(QStringLiteral("BEGIN EXCLUSIVE"));
    useConnection({{"Driver", "SQLite3"}, {"Database", file()}, {"Timeout", "200"}});
    EngineRun run;
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), 0U);
    QTRY_COMPARE(run.initialized.size(), 1);
    QCOMPARE(run.initialized.first().at(0).toUInt(), ZephanErrors::kActionLogNotWritten);
}

void TestEngineOnline::tableWithoutItsColumnsIsABadStart()
{
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    server.run(QStringLiteral("CREATE TABLE action_log (info TEXT)"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotWritten);
    QCOMPARE(server.run(QStringLiteral("SELECT count(*) FROM action_log")), QStringList(QStringLiteral("0")));
}

void TestEngineOnline::removedTableIsACriticalError()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("recorded"));
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    server.run(QStringLiteral("DROP TABLE action_log"));
    run.log(QStringLiteral("lost"));
    QVERIFY(run.critical.isEmpty());
    QTRY_COMPARE(run.critical.size(), 1);
    QCOMPARE(run.critical.first().at(1).toUInt(), ZephanErrors::kActionLogNotWritten);
    QCOMPARE(server.run(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'action_log'")),
             QStringList(QStringLiteral("0")));
}

void TestEngineOnline::refusedInsertIsACriticalError()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    TestDatabase server(QStringLiteral("QSQLITE"), file());
    server.run(QStringLiteral("CREATE TRIGGER refusal BEFORE INSERT ON action_log BEGIN "
                              "SELECT RAISE(ABORT, 'refused'); END"));
    run.log(QStringLiteral("lost"));
    run.log(QStringLiteral("lost too"));
    QTRY_COMPARE(run.critical.size(), 2);
    server.run(QStringLiteral("DROP TRIGGER refusal"));
    run.log(QStringLiteral("recorded"));
    QCOMPARE(server.run(QStringLiteral("SELECT info FROM action_log")),
             QStringList(QStringLiteral("recorded")));
}

void TestEngineOnline::locationOfTheFileIsNotTouched()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(!QFileInfo::exists(m_workstation.path(QStringLiteral("log%1").arg(m_run))));
}

void TestEngineOnline::passwordStandsInNoLog()
{
    useConnection({{"Driver", "No such driver"}});
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotOpened);
    QVERIFY(readFile(m_workstation.runtimeLog()).contains("The action log can't be used"));
    QVERIFY(!readFile(m_workstation.runtimeLog()).contains("pass;word"));
}

void TestEngineOnline::shutdownIsReported()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QTRY_COMPARE(run.shutDown.size(), 1);
    QCOMPARE(run.engine.shutdownEngine(), ZephanErrors::kEngineNotReady);
}

QTEST_GUILESS_MAIN(TestEngineOnline)
#include "test_engineonline.moc"
