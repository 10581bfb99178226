// The driver QSQLCIPHER beside SQLCipher's C interface, on the same encrypted file, and beside QSQLITE.
//
// usage: bench_driver [--rows=<number, 1000000>] [Google Benchmark's options]

#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ratios.h"
#include "rawreader.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QTemporaryDir>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr int kRows = 1000000;
constexpr int kRepetitions = 5;
constexpr int kPages = 20;  // a key is derived for each, which takes far longer than what is measured
constexpr int kPageRows = 256;
constexpr char kRowsOption[] = "--rows=";
constexpr char kMeasureOption[] = "--measure-model=";
constexpr char kSelect[] = "SELECT * FROM action_log";
constexpr char kPlainDriver[] = "QSQLITE";

/// A file of the benchmark and the driver that reads it.
struct Source
{
    QString driver;
    QString path;
    bool isKeyed;
};

QSqlDatabase openSource(const Source &source)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(source.driver, source.path + source.driver);
    database.setDatabaseName(source.path);
    if (!database.open())
        qFatal("%s can't be opened: %s", qPrintable(source.path), qPrintable(database.lastError().text()));
    const QStringList statements = source.isKeyed ? databaseKeyStatements() : QStringList();
    for (const QString &statement : statements)
        QSqlQuery(statement, database);
    return database;
}

void closeSource(QSqlDatabase &database)
{
    const QString name = database.connectionName();
    database.close();
    database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

void run(QSqlQuery &query, const QString &statement)
{
    if (!query.exec(statement))
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
}

/// Fills a table as the audit trail's: keys, times, numbers, names, a free text that is often missing.
void makeFile(const Source &source, int rows)
{
    QSqlDatabase database = openSource(source);
    {
        QSqlQuery query(database);
        run(query,
            QStringLiteral("CREATE TABLE action_log (id INTEGER PRIMARY KEY, action_date TEXT, category "
                           "INTEGER, level INTEGER, action INTEGER, type INTEGER, user_name TEXT, "
                           "operator_id VARCHAR(36), computer TEXT, duration REAL, database_key "
                           "VARCHAR(36), info TEXT)"));
        database.transaction();
        query.prepare(QStringLiteral("INSERT INTO action_log VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"));
        const QDateTime start(QDate(2024, 1, 1), QTime(0, 0), Qt::UTC);
        const QString format = QStringLiteral("yyyy-MM-dd hh:mm:ss");
        for (int row = 0; row < rows; ++row) {
            const QVariant values[] = {
                row,
                start.addSecs(37LL * row).toString(format),
                row % 7,
                row % 4,
                10000 + row % 300,
                row % 2,
                QStringLiteral("operator%1").arg(row % 50),
                QStringLiteral("5f0b2c1e-8d3a-4e6f-9a7b-%1").arg(row % 50, 12, 16, QLatin1Char('0')),
                QStringLiteral("SPIRO-WS-%1").arg(row % 20),
                row * 0.25,
                row % 3 == 0
                    ? QVariant()
                    : QVariant(
                          QStringLiteral("a81d54c0-0000-4000-8000-%1").arg(row, 12, 16, QLatin1Char('0'))),
                row % 4 != 0 ? QVariant() : QVariant(QStringLiteral("Settings changed, entry %1").arg(row))};
            for (const QVariant &value : values)
                query.addBindValue(value);
            if (!query.exec())
                qFatal("insert: %s", qPrintable(query.lastError().text()));
        }
        query.finish();
        database.commit();
    }
    closeSource(database);
}

void forwardRaw(benchmark::State &state, const QString &path, int rows)
{
    QLibrary library(QCoreApplication::applicationDirPath() + QStringLiteral("/libbenchrawreader.so"));
    const auto readAll = reinterpret_cast<decltype(&rawReadAll)>(library.resolve("rawReadAll"));
    if (!readAll)
        return state.SkipWithError("the raw reader is missing");
    QList<QByteArray> statements;
    const QStringList keyStatements = databaseKeyStatements();
    for (const QString &statement : keyStatements)
        statements.append(statement.toUtf8());
    const char *const pointers[] = {statements.at(0).constData(), statements.at(1).constData(), nullptr};
    for (auto _ : state) {
        if (readAll(QFile::encodeName(path).constData(), pointers, kSelect) <= 0)
            return state.SkipWithError("the file can't be read");
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

void forwardDriver(benchmark::State &state, const Source &source, int rows)
{
    for (auto _ : state) {
        QSqlDatabase database = openSource(source);
        {
            QSqlQuery query(database);
            query.setForwardOnly(true);
            run(query, QLatin1String(kSelect));
            const int columns = 12;
            while (query.next()) {
                for (int column = 0; column < columns; ++column)
                    benchmark::DoNotOptimize(query.value(column));
            }
        }
        closeSource(database);
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

/// The time from the statement to the first page of a model, its cells read; the key is derived before.
void firstPage(benchmark::State &state, const Source &source)
{
    for (auto _ : state) {
        state.PauseTiming();
        QSqlDatabase database = openSource(source);
        {
            QSqlQuery query(database);
            run(query, QStringLiteral("SELECT count(*) FROM sqlite_master"));
        }
        state.ResumeTiming();
        {
            QSqlQueryModel model;
            model.setQuery(QLatin1String(kSelect), database);
            const int rows = qMin(model.rowCount(), kPageRows);
            for (int row = 0; row < rows; ++row) {
                for (int column = 0; column < model.columnCount(); ++column)
                    benchmark::DoNotOptimize(model.data(model.index(row, column)));
            }
        }
        state.PauseTiming();
        closeSource(database);
        state.ResumeTiming();
    }
}

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// In a process of its own: prints the bytes by which a fully fetched model makes it grow.
int measureModel(const Source &source)
{
    QSqlDatabase database = openSource(source);
    {
        QSqlQuery query(database);
        run(query, QStringLiteral("SELECT count(*) FROM action_log"));
    }
    const qint64 before = residentBytes();
    QSqlQueryModel model;
    model.setQuery(QLatin1String(kSelect), database);
    while (model.canFetchMore())
        model.fetchMore();
    std::printf("%lld %d\n", static_cast<long long>(residentBytes() - before), model.rowCount());
    return 0;
}

double modelBytes(const Source &source, int rows)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QLatin1String(kMeasureOption) + source.driver, source.path});
    child.waitForFinished(-1);
    const QList<QByteArray> answer = child.readAllStandardOutput().trimmed().split(' ');
    if (answer.value(1).toInt() != rows)
        qFatal("The model of %s has %s rows", qPrintable(source.driver), answer.value(1).constData());
    return answer.value(0).toDouble();
}

}  // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    int rows = kRows;
    const QStringList arguments = QCoreApplication::arguments();
    for (const QString &argument : arguments) {
        if (argument.startsWith(QLatin1String(kRowsOption)))
            rows = argument.mid(static_cast<int>(qstrlen(kRowsOption))).toInt();
        if (argument.startsWith(QLatin1String(kMeasureOption))) {
            const QString driver = argument.mid(static_cast<int>(qstrlen(kMeasureOption)));
            return measureModel({driver, arguments.last(), driver == QLatin1String(kEncryptedDriver)});
        }
    }

    const QTemporaryDir folder;
    const Source encrypted{QLatin1String(kEncryptedDriver), folder.filePath(QStringLiteral("encrypted.db")),
                           true};
    const Source plain{QLatin1String(kPlainDriver), folder.filePath(QStringLiteral("plain.db")), false};
    const Source plainHere{QLatin1String(kEncryptedDriver), plain.path, false};
    std::printf("Writing two files of %d rows ...\n", rows);
    makeFile(encrypted, rows);
    makeFile(plain, rows);

    const auto repeat = [](benchmark::internal::Benchmark *bench) {
        bench->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions)->ReportAggregatesOnly(false);
    };
    repeat(benchmark::RegisterBenchmark(
        "forward/encrypted/C", [&](benchmark::State &state) { forwardRaw(state, encrypted.path, rows); }));
    repeat(benchmark::RegisterBenchmark("forward/encrypted/QSQLCIPHER", [&](benchmark::State &state) {
        forwardDriver(state, encrypted, rows);
    }));
    repeat(benchmark::RegisterBenchmark(
        "forward/plain/QSQLCIPHER", [&](benchmark::State &state) { forwardDriver(state, plainHere, rows); }));
    repeat(benchmark::RegisterBenchmark("forward/plain/QSQLITE",
                                        [&](benchmark::State &state) { forwardDriver(state, plain, rows); }));
    repeat(benchmark::RegisterBenchmark("first page/encrypted/QSQLCIPHER", [&](benchmark::State &state) {
               firstPage(state, encrypted);
           })->Iterations(kPages));
    repeat(benchmark::RegisterBenchmark("first page/plain/QSQLITE", [&](benchmark::State &state) {
               firstPage(state, plain);
           })->Iterations(kPages));
    benchmark::Initialize(&argc, argv);
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);

    const double ours = modelBytes(encrypted, rows);
    const double theirs = modelBytes(plain, rows);
    std::printf("\nModel of all rows: QSQLCIPHER %.0f MB, QSQLITE %.0f MB\n", ours / 1e6, theirs / 1e6);
    const double firstPageTime = ratios.bestElapsed("first page/encrypted/QSQLCIPHER");
    if (firstPageTime > 0)
        std::printf("First page of a model, beyond the key's derivation: %.2f ms (aim: at most 20)\n",
                    1000 * firstPageTime);
    std::printf("Ratios of %d rows with 12 columns:\n", rows);
    Ratios::print("reading forward, encrypted: QSQLCIPHER / C interface",
                  ratios.best("forward/encrypted/QSQLCIPHER"), ratios.best("forward/encrypted/C"),
                  "aim: at most 1.3");
    Ratios::print("reading forward, plain: QSQLCIPHER / QSQLITE", ratios.best("forward/plain/QSQLCIPHER"),
                  ratios.best("forward/plain/QSQLITE"), "aim: below 1");
    Ratios::print("reading forward: QSQLCIPHER encrypted / QSQLITE plain",
                  ratios.best("forward/encrypted/QSQLCIPHER"), ratios.best("forward/plain/QSQLITE"), "");
    Ratios::print("first page of a model: QSQLCIPHER encrypted / QSQLITE plain",
                  ratios.best("first page/encrypted/QSQLCIPHER"), ratios.best("first page/plain/QSQLITE"),
                  "");
    Ratios::print("memory of a fully fetched model: QSQLCIPHER / QSQLITE", ours, theirs, "aim: below 0.40");
    return 0;
}
