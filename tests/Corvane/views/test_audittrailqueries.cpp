#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/sqlschema.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "audittrailbench.h"
#include "audittrailreference.h"
#include "enginerun.h"

#include <QSqlQuery>
#include <QTest>

namespace {

constexpr quint32 kSeed = 4711;
constexpr int kRows = 400;
constexpr int kRounds = 2000;

QStringList planOf(const QSqlDatabase &database, const QString &statement)
{
    QStringList steps;
    QSqlQuery query(QStringLiteral("EXPLAIN QUERY PLAN ") + statement, database);
    while (query.next())
        steps.append(query.value(3).toString());
    return steps;
}

}  // namespace

/// The viewer's statements on the files: the program's own, while the engine writes it, and one behind ODBC.
class TestAuditTrailQueries : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowsOfTheOwnLogAreThoseOfAPlainEvaluationWhileTheEngineWrites();
    void rowsOverOdbcAreThoseOfAPlainEvaluation();
    void rowsThatAreFetchedLaterDoNotMixWithNewOnes();
    void orderByTimeIsReadFromAnIndex_data();
    void orderByTimeIsReadFromAnIndex();
    void everyScriptMakesTheIndexOfTheTime_data();
    void everyScriptMakesTheIndexOfTheTime();

private:
    QString log() const
    {
        return m_workstation->path(QStringLiteral("log/actionlog.db"));
    }

    std::unique_ptr<Workstation> m_workstation;
};

void TestAuditTrailQueries::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<Workstation>();
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation->path(QStringLiteral("corvane.ini")));
    EngineRun::useLocation(m_workstation->path(QStringLiteral("log")));
}

void TestAuditTrailQueries::rowsOfTheOwnLogAreThoseOfAPlainEvaluationWhileTheEngineWrites()
{
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kNone);
    LogMaker reader(QLatin1String(kEncryptedDriver), log());
    QSqlDatabase database = reader.database();
    ReferenceLog reference(kSeed, kRows);
    QVERIFY(reference.writeTo(database));

    QString error;
    for (int round = 0; round < kRounds; ++round) {
        if (round % 10 == 0) {
            const QString info = QStringLiteral("live%1").arg(round);
            run.log(info);
            const QVector<QStringList> written =
                readRows(database,
                         AuditTrailQueryString::statement({}, {12, Qt::AscendingOrder}) +
                             QStringLiteral(" WHERE info = '%1'").arg(info),
                         error);
            QCOMPARE(written.size(), 1);
            reference.append(written.first());
        }
        const QString difference =
            reference.difference(database, reference.randomFilters(), reference.randomSort());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
    QVERIFY(run.critical.isEmpty());
}

void TestAuditTrailQueries::rowsOverOdbcAreThoseOfAPlainEvaluation()
{
    LogMaker maker(QStringLiteral("QODBC3"), QStringLiteral("Driver=SQLite3;Database=") +
                                                 m_workstation->path(QStringLiteral("online.db")));
    for (const QString &statement : SqlSchema::statements(QSqlDriver::SQLite, QStringLiteral("action_log")))
        QVERIFY(maker.run(statement));
    QSqlDatabase database = maker.database();
    ReferenceLog reference(kSeed + 1, kRows);
    QVERIFY(reference.writeTo(database));
    for (int round = 0; round < kRounds; ++round) {
        const QString difference =
            reference.difference(database, reference.randomFilters(), reference.randomSort());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

void TestAuditTrailQueries::rowsThatAreFetchedLaterDoNotMixWithNewOnes()
{
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kNone);
    LogMaker reader(QLatin1String(kEncryptedDriver), log());
    QSqlDatabase database = reader.database();
    QVERIFY(ReferenceLog(kSeed, 2 * kRows).writeTo(database));

    QSqlQuery query(database);
    QVERIFY(query.exec(AuditTrailQueryString::statement({}, {0, Qt::DescendingOrder})));
    QVERIFY(query.next());
    for (int i = 0; i < 20; ++i)
        run.log(QStringLiteral("live"));
    int rows = 1;
    while (query.next()) {
        QVERIFY(query.value(9).toString() != QLatin1String("live"));
        ++rows;
    }
    QCOMPARE(rows, 2 * kRows);
    QVERIFY(run.critical.isEmpty());
}

void TestAuditTrailQueries::orderByTimeIsReadFromAnIndex_data()
{
    QTest::addColumn<AuditFilterMap>("filters");
    QTest::addColumn<int>("order");

    const QDateTime day(QDate(2016, 2, 1), QTime(0, 0));
    QTest::newRow("oldest first") << AuditFilterMap() << int(Qt::AscendingOrder);
    QTest::newRow("newest first") << AuditFilterMap() << int(Qt::DescendingOrder);
    QTest::newRow("from a day on") << AuditFilterMap{{AuditFilterKey::DateFrom, day}}
                                   << int(Qt::AscendingOrder);
    QTest::newRow("between two days, of one category") << AuditFilterMap{{AuditFilterKey::DateFrom, day},
                                                                         {AuditFilterKey::DateTo, day},
                                                                         {AuditFilterKey::Category, 4096}}
                                                       << int(Qt::DescendingOrder);
}

void TestAuditTrailQueries::orderByTimeIsReadFromAnIndex()
{
    QFETCH(AuditFilterMap, filters);
    QFETCH(int, order);
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kNone);
    LogMaker reader(QLatin1String(kEncryptedDriver), log());
    const QString statement =
        AuditTrailQueryString::statement(filters, {0, static_cast<Qt::SortOrder>(order)});
    const QStringList plan = planOf(reader.database(), statement);
    QCOMPARE(plan.size(), 1);  // no step that sorts
    QVERIFY2(plan.first().contains(QStringLiteral("USING INDEX action_log_time")), qPrintable(plan.first()));

    // A column without an index is sorted, so that the plan would tell.
    const QString sorted = AuditTrailQueryString::statement(filters, {6, Qt::AscendingOrder});
    QVERIFY(planOf(reader.database(), sorted).last().contains(QStringLiteral("TEMP B-TREE")));
}

void TestAuditTrailQueries::everyScriptMakesTheIndexOfTheTime_data()
{
    QTest::addColumn<int>("server");
    QTest::newRow("SQLite") << int(QSqlDriver::SQLite);
    QTest::newRow("MariaDB") << int(QSqlDriver::MySqlServer);
    QTest::newRow("PostgreSQL") << int(QSqlDriver::PostgreSQL);
    QTest::newRow("SQL Server") << int(QSqlDriver::MSSqlServer);
}

void TestAuditTrailQueries::everyScriptMakesTheIndexOfTheTime()
{
    QFETCH(int, server);
    const QString script =
        SqlSchema::statements(static_cast<QSqlDriver::DbmsType>(server), QStringLiteral("action_log"))
            .join(QLatin1Char('\n'))
            .simplified();
    QVERIFY(script.contains(QStringLiteral("INDEX action_log_time (timestamp_action)")) ||
            script.contains(
                QStringLiteral("INDEX IF NOT EXISTS action_log_time ON action_log (timestamp_action)")));
}

QTEST_MAIN(TestAuditTrailQueries)
#include "test_audittrailqueries.moc"
