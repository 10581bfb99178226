#include "CommunicationAndData/settings/odbcconnection.h"
#include "audittrailreference.h"
#include "support/databaseserver.h"
#include "support/workstation.h"

#include <QSqlError>
#include <QTest>

Q_DECLARE_METATYPE(DatabaseServer::Kind)

namespace {

const QString kDatabase = QStringLiteral("viewed_log");
const QString kConnection = QStringLiteral("viewer");
constexpr quint32 kSeed = 815;
constexpr int kRows = 300;
constexpr int kRounds = 600;

}  // namespace

/// The viewer's statements on private servers.
class TestAuditTrailServers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void rowsAreThoseOfAPlainEvaluation();
    void statementThatTheServerRefusesGivesNothing_data();
    void statementThatTheServerRefusesGivesNothing();

private:
    Workstation m_workstation;
    std::unique_ptr<DatabaseServer> m_server;
};

void TestAuditTrailServers::initTestCase_data()
{
    QTest::addColumn<DatabaseServer::Kind>("kind");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
}

void TestAuditTrailServers::init()
{
    QFETCH_GLOBAL(DatabaseServer::Kind, kind);
    m_server = std::make_unique<DatabaseServer>(kind);
    if (!m_server->missing().isEmpty())
        QSKIP(qPrintable(m_server->missing()));
    QVERIFY2(m_server->makeDatabase(kDatabase, {QStringLiteral("action_log")}),
             qPrintable(m_server->errorText()));
    QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), kConnection);
    database.setDatabaseName(OdbcConnection::databaseName(m_server->parameters(kDatabase)));
    QVERIFY2(OdbcConnection::open(database, {}, m_server->admin(), m_server->adminPassword()),
             qPrintable(database.lastError().text()));
}

void TestAuditTrailServers::cleanup()
{
    QSqlDatabase::removeDatabase(kConnection);
}

void TestAuditTrailServers::rowsAreThoseOfAPlainEvaluation()
{
    QSqlDatabase database = QSqlDatabase::database(kConnection);
    ReferenceLog reference(kSeed, kRows);
    QVERIFY2(reference.writeTo(database), qPrintable(database.lastError().text()));
    for (int round = 0; round < kRounds; ++round) {
        const QString difference =
            reference.difference(database, reference.randomFilters(), reference.randomSort());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

void TestAuditTrailServers::statementThatTheServerRefusesGivesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a quote") << QStringLiteral("o'");
    QTest::newRow("only commas") << QStringLiteral(",,,");
}

void TestAuditTrailServers::statementThatTheServerRefusesGivesNothing()
{
    QFETCH(QString, text);
    QSqlDatabase database = QSqlDatabase::database(kConnection);
    ReferenceLog reference(kSeed, 5);
    QVERIFY(reference.writeTo(database));
    QString error;
    const QString refused =
        AuditTrailQueryString::statement({{AuditFilterKey::System, text}}, {0, Qt::AscendingOrder});
    QVERIFY(readRows(database, refused, error).isEmpty());
    QVERIFY(!error.isEmpty());
    const QString difference = reference.difference(database, {}, {0, Qt::AscendingOrder});
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

QTEST_MAIN(TestAuditTrailServers)
#include "test_audittrailservers.moc"
