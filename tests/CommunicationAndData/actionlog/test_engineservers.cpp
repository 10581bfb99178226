#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/databaseserver.h"
#include "support/workstation.h"

#include <QTest>

Q_DECLARE_METATYPE(DatabaseServer::Kind)

namespace {

const QString kDatabase = QStringLiteral("engine_log");
const QString kAccount = QStringLiteral("engine_writer");
const QString kPassword = QString::fromUtf8("a;b}c ä'");
const QStringList kAllScripts = {QStringLiteral("access"), QStringLiteral("action_log"),
                                 QStringLiteral("configurations"), QStringLiteral("grants")};

}  // namespace

/// The engine on private servers, over ODBC.
class TestEngineServers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();

    void missingTablesAreMade();
    void accountThatMayOnlyAddWrites();
    void accountThatMayOnlyReadIsABadStart();
    void missingTablesThatMayNotBeMadeAreABadStart();
    void wrongPasswordIsRefused();
    void textsComeBackAsTheyWere_data();
    void textsComeBackAsTheyWere();
    void lostConnectionIsMadeAgain();
    void connectionLostForGoodIsACriticalError();
    void removedTableIsACriticalError();

private:
    void useAccount(const QString &name, const QString &password);
    void useAdministrator()
    {
        useAccount(m_server->admin(), m_server->adminPassword());
    }
    void makeAccount(const QString &role);
    QStringList read(const QString &statement);

    Workstation m_workstation;
    std::unique_ptr<DatabaseServer> m_server;
    int m_run = 0;
};

void TestEngineServers::initTestCase_data()
{
    QTest::addColumn<DatabaseServer::Kind>("kind");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
}

void TestEngineServers::init()
{
    QFETCH_GLOBAL(DatabaseServer::Kind, kind);
    m_server = std::make_unique<DatabaseServer>(kind);
    if (!m_server->missing().isEmpty())
        QSKIP(qPrintable(m_server->missing()));
    ++m_run;
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->changeSettingsFile(m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    settings->setValue(QLatin1String(SettingsKeys::kActionLogActivated), false);
    settings->setDatabaseSettings(QLatin1String(SettingsKeys::kActionDbGroup),
                                  {{QLatin1String(SettingsKeys::kParams), m_server->parameters(kDatabase)}});
}

void TestEngineServers::useAccount(const QString &name, const QString &password)
{
    SettingsHandler::getInstance()->setSafeValue(QStringLiteral("actiondb/username"), name);
    SettingsHandler::getInstance()->setSafeValue(QStringLiteral("actiondb/password"), password);
}

void TestEngineServers::makeAccount(const QString &role)
{
    QVERIFY2(m_server->makeDatabase(kDatabase, kAllScripts), qPrintable(m_server->errorText()));
    QVERIFY2(m_server->makeAccount(kDatabase, kAccount, kPassword, role), qPrintable(m_server->errorText()));
    useAccount(kAccount, kPassword);
}

QStringList TestEngineServers::read(const QString &statement)
{
    QVariantMap parameters = m_server->parameters(kDatabase);
    parameters.insert(QStringLiteral("UID"), m_server->admin());
    parameters.insert(QStringLiteral("PWD"), m_server->adminPassword());
    return TestDatabase(QLatin1String(OdbcConnection::kDriver), OdbcConnection::databaseName(parameters))
        .run(statement);
}

void TestEngineServers::missingTablesAreMade()
{
    QVERIFY2(m_server->makeDatabase(kDatabase, {}), qPrintable(m_server->errorText()));
    useAdministrator();
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("first"));
    const QStringList hash = read(QStringLiteral("SELECT hash FROM hash"));
    QCOMPARE(hash.size(), 1);
    QCOMPARE(hash.first().size(), 64);

    EngineRun next;
    QCOMPARE(next.start(), 0U);
    next.log(QStringLiteral("second"));
    QCOMPARE(read(QStringLiteral("SELECT info FROM action_log ORDER BY info")),
             QStringList({"first", "second"}));
    QCOMPARE(read(QStringLiteral("SELECT hash FROM hash")), hash);
}

void TestEngineServers::accountThatMayOnlyAddWrites()
{
    makeAccount(QStringLiteral("corvane_application"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.engine.logAction(Actions::Login, Actions::Human, UuidString(), QString(), QStringLiteral("ws"),
                         QStringLiteral("Corvane"));
    run.engine.logError(Actions::Login, 5, QVariant());
    QCOMPARE(read(QStringLiteral("SELECT category, action_level, action, action_type, info, target_database, "
                                 "target_server FROM action_log ORDER BY category")),
             QStringList({"4096|768|4864|1|Corvane||ws", "24576|768|4864|0|Error code: 5||"}));
    QVERIFY(run.critical.isEmpty());
}

void TestEngineServers::accountThatMayOnlyReadIsABadStart()
{
    makeAccount(QStringLiteral("corvane_auditor"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotWritten);
    QCOMPARE(read(QStringLiteral("SELECT count(*) FROM action_log")), QStringList(QStringLiteral("0")));
}

void TestEngineServers::missingTablesThatMayNotBeMadeAreABadStart()
{
    makeAccount(QStringLiteral("corvane_application"));
    QVERIFY(m_server->run(kDatabase, QStringLiteral("DROP TABLE action_log;")));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotWritten);
}

void TestEngineServers::wrongPasswordIsRefused()
{
    makeAccount(QStringLiteral("corvane_application"));
    useAccount(kAccount, QStringLiteral("another-secret"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotOpened);
    QVERIFY(run.initialized.isEmpty());
    QVERIFY(!readFile(m_workstation.runtimeLog()).contains("another-secret"));
}

void TestEngineServers::textsComeBackAsTheyWere_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("of many scripts") << QString::fromUtf8("Größe Ελλάδα Привет 日本語 😀");
    QTest::newRow("with quotes and a statement") << "'); DROP TABLE action_log; --\"`\\";
    QTest::newRow("of several lines") << "first\nsecond\r\n\tthird";
    QTest::newRow("of a hundred thousand letters") << QString(100000, QLatin1Char('x'));
}

void TestEngineServers::textsComeBackAsTheyWere()
{
    QFETCH(QString, text);
    makeAccount(QStringLiteral("corvane_application"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(text);
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(read(QStringLiteral("SELECT info FROM action_log")), QStringList(text));
}

void TestEngineServers::lostConnectionIsMadeAgain()
{
    makeAccount(QStringLiteral("corvane_application"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("before"));
    QVERIFY2(m_server->endConnections(kAccount), qPrintable(m_server->errorText()));
    run.log(QStringLiteral("just after"));
    run.log(QStringLiteral("long after"));
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(read(QStringLiteral("SELECT info FROM action_log ORDER BY info")),
             QStringList({"before", "just after", "long after"}));
    QVERIFY(readFile(m_workstation.runtimeLog()).contains("The connection to the action log was lost"));
}

void TestEngineServers::connectionLostForGoodIsACriticalError()
{
    makeAccount(QStringLiteral("corvane_application"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    useAccount(QString(), QString());
    QVERIFY2(m_server->makeAccount(kDatabase, kAccount, QStringLiteral("changed"),
                                   QStringLiteral("corvane_application")),
             qPrintable(m_server->errorText()));
    QVERIFY2(m_server->endConnections(kAccount), qPrintable(m_server->errorText()));
    run.log(QStringLiteral("lost"));
    QVERIFY(run.critical.isEmpty());
    QTRY_COMPARE(run.critical.size(), 1);
    QCOMPARE(run.critical.first().at(1).toUInt(), ZephanErrors::kActionLogNotWritten);
    run.log(QStringLiteral("lost too"));
    QTRY_COMPARE(run.critical.size(), 2);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
}

void TestEngineServers::removedTableIsACriticalError()
{
    makeAccount(QStringLiteral("corvane_application"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(m_server->run(kDatabase, QStringLiteral("DROP TABLE action_log;")));
    run.log(QStringLiteral("lost"));
    QTRY_COMPARE(run.critical.size(), 1);
}

QTEST_GUILESS_MAIN(TestEngineServers)
#include "test_engineservers.moc"
