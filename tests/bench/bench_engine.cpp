// The engine's events beside bare inserts of the same rows, with the same durability, by the same driver.
//
// Both wait for the disk most of the time, and disks are moody: so the two take turns, event by event, and
// the medians are compared.
//
// usage: bench_engine [Google Benchmark's options]

#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "CommunicationAndData/actionlog/communicationanddataengine.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/sqlschema.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ratios.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int kEvents = 3000;
constexpr double kNanoseconds = 1e9;
const QString kStatement = QStringLiteral("SELECT timestamp_action, category, action_level FROM action_log "
                                          "WHERE (action LIKE 8720) ORDER BY timestamp_action DESC;");

/// Inserts without anything around them, into a file of the same kind.
class BareLog
{
public:
    explicit BareLog(const QString &path)
        : m_database(QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), QStringLiteral("bare")))
    {
        m_database.setDatabaseName(path);
        if (!m_database.open())
            qFatal("%s can't be opened", qPrintable(path));
        const QStringList statements =
            databaseKeyStatements() +
            QStringList{QStringLiteral("PRAGMA journal_mode = WAL"),
                        QStringLiteral("PRAGMA synchronous = EXTRA")} +
            SqlSchema::statements(QSqlDriver::SQLite, QLatin1String(ActionLogTable::kTable));
        for (const QString &statement : statements)
            QSqlQuery(statement, m_database);
        m_insert = QSqlQuery(m_database);
        if (!m_insert.prepare(ActionLogTable::insertStatement()))
            qFatal("prepare: %s", qPrintable(m_insert.lastError().text()));
    }

    void write(const QVariantList &values)
    {
        for (int i = 0; i < values.size(); ++i)
            m_insert.bindValue(i, values.at(i));
        if (!m_insert.exec())
            qFatal("insert: %s", qPrintable(m_insert.lastError().text()));
    }

private:
    QSqlDatabase m_database;
    QSqlQuery m_insert;
};

QVariantList rowOfTheEvent()
{
    ActionLogEntry entry;
    entry.time = QDateTime::currentDateTimeUtc();
    entry.category = Actions::DatabaseCategory;
    entry.level = Actions::NormalLevel;
    entry.action = Actions::SearchAuditTrail;
    entry.actionType = Actions::Human;
    entry.system = QStringLiteral("workstation");
    entry.info = kStatement;
    entry.targetDatabase = QStringLiteral("actiondb");
    entry.targetServer = QStringLiteral("Driver=SQLite3;Database=actionlog.db");
    return entry.values();
}

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Seconds of each turn.
struct Times
{
    std::vector<double> engine;
    std::vector<double> bare;
};

void takeTurns(benchmark::State &state, CommunicationAndDataEngine &engine, BareLog &bareLog, Times &times)
{
    const QVariantList row = rowOfTheEvent();
    QElapsedTimer timer;
    for (auto _ : state) {
        timer.start();
        bareLog.write(row);
        times.bare.push_back(static_cast<double>(timer.nsecsElapsed()) / kNanoseconds);
        timer.start();
        engine.logAction(Actions::SearchAuditTrail, Actions::Human, UuidString(), QStringLiteral("actiondb"),
                         QStringLiteral("Driver=SQLite3;Database=actionlog.db"), kStatement);
        times.engine.push_back(static_cast<double>(timer.nsecsElapsed()) / kNanoseconds);
        state.SetIterationTime(times.engine.back());
    }
    state.SetItemsProcessed(state.iterations());
}

}  // namespace

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    qputenv("TEMP", folder.path().toLocal8Bit());
    const QCoreApplication application(argc, argv);
    SettingsHandler::getInstance()->changeSettingsFile(folder.filePath(QStringLiteral("corvane.ini")));
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kActionLogLocation), folder.path());

    CommunicationAndDataEngine engine(nullptr);
    if (engine.initializeEngine(QStringLiteral("Benchmark"), false) != ZephanErrors::kNone)
        qFatal("The engine does not start");
    BareLog bareLog(folder.filePath(QStringLiteral("bare.db")));

    Times times;
    benchmark::RegisterBenchmark("engine",
                                 [&](benchmark::State &state) { takeTurns(state, engine, bareLog, times); })
        ->UseManualTime()
        ->Iterations(kEvents)
        ->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    const double ours = median(times.engine);
    const double bare = median(times.bare);
    std::printf("\nEvents a second: engine %.0f, bare inserts %.0f\n", 1 / ours, 1 / bare);
    Ratios::print("one durable event: engine / bare insert", ours, bare, "aim: at most 1.2");
    return 0;
}
