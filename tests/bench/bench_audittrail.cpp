// The audit trail's viewer on a large encrypted log, beside SQLCipher's C interface on the same file with the
// same statement.
//
// usage: bench_audittrail [--rows=<number, 1000000>] [Google Benchmark's options]

#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/audittrailexport.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailquerystring.h"
#include "demoaudittrail/demoactionlog.h"
#include "ratios.h"
#include "rawreader.h"

#include <QApplication>
#include <QFile>
#include <QLibrary>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QWidget>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int kRows = 1000000;
constexpr int kFewer = 10;  // times fewer rows, for what must not grow with them
constexpr int kRepetitions = 5;
constexpr int kPages = 20;         // a key is derived for each, which takes far longer than what is measured
constexpr int kFetchedRows = 256;  // by a model at a time
constexpr int kShownRows = 32;     // on a screen
constexpr int kDays = 731;
const QString kRowsOption = QStringLiteral("--rows=");
const QString kMeasureScroll = QStringLiteral("--measure-scroll");
const QString kMeasureExport = QStringLiteral("--measure-export");

/// The viewer's own statement; the newest events come first.
QString statement()
{
    return AuditTrailQueryString::statement({}, {0, Qt::DescendingOrder});
}

/// An open log whose key is derived already.
class OpenLog
{
public:
    explicit OpenLog(const QString &path)
        : m_database(QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), path))
    {
        m_database.setDatabaseName(path);
        if (!m_database.open())
            qFatal("%s can't be opened", qPrintable(path));
        for (const QString &key : databaseKeyStatements())
            QSqlQuery(key, m_database);
        QSqlQuery(QStringLiteral("SELECT count(*) FROM sqlite_master"), m_database);
    }
    ~OpenLog()
    {
        const QString name = m_database.connectionName();
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name);
    }
    Q_DISABLE_COPY(OpenLog)

    QSqlDatabase database() const
    {
        return m_database;
    }

private:
    QSqlDatabase m_database;
};

/// SQLCipher's C interface.
struct RawLibrary
{
    RawLibrary()
        : library(QCoreApplication::applicationDirPath() + QStringLiteral("/libbenchrawreader.so"))
        , open(reinterpret_cast<decltype(&rawOpen)>(library.resolve("rawOpen")))
        , read(reinterpret_cast<decltype(&rawRead)>(library.resolve("rawRead")))
        , close(reinterpret_cast<decltype(&rawClose)>(library.resolve("rawClose")))
    {}

    QLibrary library;
    decltype(&rawOpen) open;
    decltype(&rawRead) read;
    decltype(&rawClose) close;
};

void readRaw(benchmark::State &state, const RawLibrary &raw, const QString &path, long long rows)
{
    QList<QByteArray> keys;
    for (const QString &key : databaseKeyStatements())
        keys.append(key.toUtf8());
    const char *const pointers[] = {keys.at(0).constData(), keys.at(1).constData(), nullptr};
    const QByteArray select = statement().toUtf8();
    for (auto _ : state) {
        state.PauseTiming();
        void *connection = raw.open(QFile::encodeName(path).constData(), pointers);
        state.ResumeTiming();
        if (!connection || raw.read(connection, select.constData(), rows) <= 0)
            return state.SkipWithError("the file can't be read");
        state.PauseTiming();
        raw.close(connection);
        state.ResumeTiming();
    }
}

/// What a screen shows of the rows from `first` on.
void show(const AuditTrailQueryModel &model, int first)
{
    const int last = qMin(model.rowCount(), first + kShownRows);
    for (int row = first; row < last; ++row) {
        for (int column = 0; column < model.columnCount(); ++column)
            benchmark::DoNotOptimize(model.data(model.index(row, column)));
    }
}

void showFirstPage(benchmark::State &state, const QString &path)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            const OpenLog log(path);
            AuditTrailQueryModel model;
            state.ResumeTiming();
            model.setQuery(statement(), log.database());
            show(model, 0);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

/// Down to the last row, with a screen of each block that is fetched.
void scroll(AuditTrailQueryModel &model)
{
    show(model, 0);
    while (model.canFetchMore()) {
        const int first = model.rowCount();
        model.fetchMore();
        show(model, first);
    }
}

void scrollThrough(benchmark::State &state, const QString &path)
{
    for (auto _ : state) {
        state.PauseTiming();
        {
            const OpenLog log(path);
            AuditTrailQueryModel model;
            state.ResumeTiming();
            model.setQuery(statement(), log.database());
            scroll(model);
            state.PauseTiming();
        }
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

/// In a process of its own: prints the bytes by which the first and the second half of the rows make it grow.
int measureScroll(const QString &path, int rows)
{
    const OpenLog log(path);
    AuditTrailQueryModel model;
    model.setQuery(statement(), log.database());
    const qint64 before = residentBytes();
    while (model.canFetchMore() && model.rowCount() < rows / 2)
        model.fetchMore();
    const qint64 half = residentBytes();
    while (model.canFetchMore())
        model.fetchMore();
    std::printf("%lld %lld %d\n", static_cast<long long>(half - before),
                static_cast<long long>(residentBytes() - half), model.rowCount());
    return 0;
}

/// In a process of its own: prints the bytes by which saving all rows makes it grow at most.
int measureExport(const QString &path, int rows)
{
    const QTemporaryDir folder;
    const OpenLog log(path);
    QWidget window;
    window.show();
    QApplication::processEvents();
    const qint64 before = residentBytes();
    AuditTrailExport csv(log.database(), &window);
    const auto end = csv.save(folder.filePath(QStringLiteral("all.csv")), statement(), rows);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    constexpr qint64 unit = 1024;  // of the greatest resident size
    std::printf("%lld %d %lld\n", static_cast<long long>(usage.ru_maxrss * unit - before),
                end == AuditTrailReader::End::Complete, static_cast<long long>(csv.rows()));
    return 0;
}

QList<QByteArray> measure(const QString &what, const QString &path, int rows)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {what, path, QString::number(rows)});
    child.waitForFinished(-1);
    const QList<QByteArray> answer = child.readAllStandardOutput().trimmed().split(' ');
    if (answer.value(2).toInt() != rows)
        qFatal("%s: %s rows", qPrintable(what), answer.value(2).constData());
    return answer;
}

QString makeLog(const QString &directory, int rows)
{
    DemoTrail trail;
    trail.events = rows;
    trail.days = kDays;
    trail.lastDay = QDate(2016, 2, 1);
    QString error;
    if (!makeDemoActionLog(directory, trail, error))
        qFatal("%s: %s", qPrintable(directory), qPrintable(error));
    return directory + QLatin1Char('/') + QLatin1String(ActionLogTable::kFileName);
}

void printMemory(const QString &path, int rows)
{
    const QList<QByteArray> halves = measure(kMeasureScroll, path, rows);
    const double first = halves.at(0).toDouble();
    const double second = halves.at(1).toDouble();
    std::printf("Memory of a fetched row: %.0f bytes\n", (first + second) / rows);
    Ratios::print("memory of a fetched row: second half / first half", second, first, "aim: at most 1.1");
    const QList<QByteArray> saving = measure(kMeasureExport, path, rows);
    std::printf("Saving all rows as CSV grows the process by at most %.1f MB (aim: at most 16)\n",
                saving.at(0).toDouble() / 1e6);
}

}  // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    int rows = kRows;
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == kMeasureScroll)
        return measureScroll(arguments.value(2), arguments.value(3).toInt());
    if (arguments.value(1) == kMeasureExport)
        return measureExport(arguments.value(2), arguments.value(3).toInt());
    for (const QString &argument : arguments) {
        if (argument.startsWith(kRowsOption))
            rows = argument.mid(kRowsOption.size()).toInt();
    }

    const QTemporaryDir folder;
    std::printf("Writing logs of %d and %d rows ...\n", rows, rows / kFewer);
    const QString large = makeLog(folder.filePath(QStringLiteral("large")), rows);
    const QString small = makeLog(folder.filePath(QStringLiteral("small")), rows / kFewer);
    const RawLibrary raw;
    if (!raw.open || !raw.read || !raw.close)
        qFatal("The raw reader is missing");

    using benchmark::RegisterBenchmark;
    const auto repeat = [](benchmark::internal::Benchmark *bench) {
        return bench->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
    };
    repeat(RegisterBenchmark("first page/C", [&](auto &state) {
        readRaw(state, raw, large, kFetchedRows);
    }))->Iterations(kPages);
    repeat(RegisterBenchmark("first page/viewer", [&](auto &state) {
        showFirstPage(state, large);
    }))->Iterations(kPages);
    repeat(RegisterBenchmark("first page/viewer, small log", [&](auto &state) {
        showFirstPage(state, small);
    }))->Iterations(kPages);
    repeat(RegisterBenchmark("full scroll/C", [&](auto &state) {
        readRaw(state, raw, large, -1);
    }))->Iterations(1);
    repeat(RegisterBenchmark("full scroll/viewer", [&](auto &state) {
        scrollThrough(state, large);
    }))->Iterations(1);
    benchmark::Initialize(&argc, argv);
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);

    std::printf("\nRatios of %d rows with 12 columns, beyond the key's derivation:\n", rows);
    Ratios::print("first page: viewer / C interface", ratios.best("first page/viewer"),
                  ratios.best("first page/C"), "aim: at most 1.2");
    Ratios::print("full scroll: viewer / C interface", ratios.best("full scroll/viewer"),
                  ratios.best("full scroll/C"), "aim: at most 1.5");
    Ratios::print("first page: large log / one of a tenth", ratios.best("first page/viewer"),
                  ratios.best("first page/viewer, small log"), "aim: at most 1.5");
    printMemory(large, rows);
    return 0;
}
