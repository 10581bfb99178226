#include "CommunicationAndData/settings/settingshandler.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

#include <chrono>
#include <future>
#include <thread>

namespace {

using Change = void (*)(const QString &file);

void cut(const QString &file, qint64 size)
{
    QVERIFY(QFile::resize(file, size));
}

void overwrite(const QString &path, qint64 position, int size)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.size() >= position + size);
    file.seek(position);
    file.write(QByteArray(size, '\x5a'));
}

void runOn(const QString &file, const QStringList &statements)
{
    EncryptedFile database(file);
    for (const QString &statement : statements)
        QCOMPARE(database.run(statement), QStringList());
}

void replaceByFileOfOtherKey(const QString &file)
{
    QVERIFY(QFile::remove(file));
    EncryptedFile database(file, QStringLiteral("another key"));
    QCOMPARE(database.run(QStringLiteral("CREATE TABLE action_log (info TEXT)")), QStringList());
}

void replaceByPlainDatabase(const QString &file)
{
    QVERIFY(QFile::remove(file));
    TestDatabase database(QStringLiteral("QSQLITE"), file);
    QCOMPARE(database.run(QStringLiteral("CREATE TABLE action_log (info TEXT)")), QStringList());
}

QStringList damagedNames(const QString &directory)
{
    return QDir(directory).entryList({QStringLiteral("*damaged*")}, QDir::Files, QDir::Name);
}

}  // namespace

Q_DECLARE_METATYPE(Change)

class TestEngineFaults : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void unusableFileIsMovedAside_data();
    void unusableFileIsMovedAside();
    void companionsOfADamagedFileDoNotMeetTheNewOne();
    void journalWithoutItsFileIsMovedAside();
    void emptyFileWithAJournalLosesNothingOfIt();
    void severalDamagedFilesAreAllKept();
    void soundFileWithFurtherColumnsIsKept();
    void noLocationIsRefused_data();
    void noLocationIsRefused();
    void refusedEngineCanBeStartedElsewhere();

    void lostFileIsACriticalError_data();
    void lostFileIsACriticalError();
    void everyFailingEventIsReportedOnceFromTheEventLoop();
    void failingErrorIsReportedWithItsAction();
    void lockHeldTooLongIsACriticalError();
    void lockHeldForAMomentIsWaitedFor();
    void lockHeldAtTheStartIsABadStart();

private:
    QString directory() const;
    QString file() const;
    void writeRows(int count);

    Workstation m_workstation;
    int m_run = 0;
};

QString TestEngineFaults::directory() const
{
    return m_workstation.path(QStringLiteral("log%1").arg(m_run));
}

QString TestEngineFaults::file() const
{
    return directory() + QStringLiteral("/actionlog.db");
}

void TestEngineFaults::init()
{
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(directory());
}

void TestEngineFaults::writeRows(int count)
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    for (int i = 0; i < count; ++i)
        run.log(QString(500, QLatin1Char('x')));
    QCOMPARE(run.engine.shutdownEngine(), 0U);
}

void TestEngineFaults::unusableFileIsMovedAside_data()
{
    QTest::addColumn<Change>("change");

    QTest::newRow("an empty file") << Change([](const QString &file) { cut(file, 0); });
    QTest::newRow("a file cut within its first page") << Change([](const QString &file) { cut(file, 100); });
    QTest::newRow("a file cut to its first page") << Change([](const QString &file) { cut(file, 1024); });
    QTest::newRow("a file that lost the end of its last page")
        << Change([](const QString &file) { cut(file, QFileInfo(file).size() - 100); });
    QTest::newRow("a file that lost its last pages")
        << Change([](const QString &file) { cut(file, QFileInfo(file).size() - 4096); });
    QTest::newRow("a file whose salt is damaged")
        << Change([](const QString &file) { overwrite(file, 0, 1); });
    QTest::newRow("a file whose first page is damaged")
        << Change([](const QString &file) { overwrite(file, 40, 1); });
    QTest::newRow("a file that is damaged in its middle")
        << Change([](const QString &file) { overwrite(file, QFileInfo(file).size() / 2, 3); });
    QTest::newRow("a file whose last page is damaged")
        << Change([](const QString &file) { overwrite(file, QFileInfo(file).size() - 600, 1); });
    QTest::newRow("a text file") << Change([](const QString &file) {
        QVERIFY(writeFile(file, QByteArray("These are no records.\n").repeated(400)));
    });
    QTest::newRow("a database of another key") << Change(replaceByFileOfOtherKey);
    QTest::newRow("a database that is not encrypted") << Change(replaceByPlainDatabase);
    QTest::newRow("a database of other tables") << Change([](const QString &file) {
        runOn(file, {"DROP TABLE action_log", "CREATE TABLE roles (title TEXT)"});
    });
    QTest::newRow("a log without one of its columns") << Change([](const QString &file) {
        runOn(file, {"DROP TABLE action_log", "CREATE TABLE action_log (timestamp_action TEXT, info TEXT)"});
    });
    QTest::newRow("a log that lost its table")
        << Change([](const QString &file) { runOn(file, {"DROP TABLE action_log"}); });
    QTest::newRow("a log whose table is a view") << Change([](const QString &file) {
        runOn(file, {"ALTER TABLE action_log RENAME TO old", "CREATE VIEW action_log AS SELECT * FROM old"});
    });
    QTest::newRow("a hash without its column") << Change([](const QString &file) {
        runOn(file, {"DROP TABLE hash", "CREATE TABLE hash (value TEXT)"});
    });
    QTest::newRow("a log with a further column that asks for a value") << Change([](const QString &file) {
        runOn(file,
              {"DROP TABLE action_log",
               "CREATE TABLE action_log (timestamp_action, category, action_level, action, action_type, "
               "operator, operator_name, system, database_key, info, target_database, target_server, "
               "further TEXT NOT NULL)"});
    });
    QTest::newRow("a log that takes no rows") << Change([](const QString &file) {
        runOn(file, {"CREATE TRIGGER refusal BEFORE INSERT ON action_log BEGIN "
                     "SELECT RAISE(ABORT, 'refused'); END"});
    });
}

void TestEngineFaults::unusableFileIsMovedAside()
{
    QFETCH(Change, change);

    writeRows(25);
    change(file());
    const QByteArray unusable = readFile(file());

    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogReplaced);
    run.log(QStringLiteral("recorded"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("recorded")));
    QVERIFY(run.critical.isEmpty());

    const QStringList names = damagedNames(directory());
    QCOMPARE(names.size(), 1);
    const QRegularExpression form(QStringLiteral("^actionlog\\.damaged-\\d{8}-\\d{6}\\.db$"));
    QVERIFY2(form.match(names.first()).hasMatch(), qPrintable(names.first()));
    QCOMPARE(readFile(directory() + QLatin1Char('/') + names.first()), unusable);

    EngineRun next;
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QCOMPARE(next.start(), 0U);
}

void TestEngineFaults::companionsOfADamagedFileDoNotMeetTheNewOne()
{
    writeRows(5);
    overwrite(file(), 0, 16);
    for (const char *suffix : {"-wal", "-shm", "-journal"})
        QVERIFY(writeFile(file() + QLatin1String(suffix), "of the damaged file"));

    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogReplaced);
    run.log(QStringLiteral("recorded"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("recorded")));
    QVERIFY(!QFileInfo::exists(file() + QStringLiteral("-journal")));
    QVERIFY(!readFile(file() + QStringLiteral("-wal")).startsWith("of the damaged file"));
}

void TestEngineFaults::journalWithoutItsFileIsMovedAside()
{
    QVERIFY(writeFile(file() + QStringLiteral("-wal"), "rows of a removed file"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogReplaced);
    const QStringList names = damagedNames(directory());
    QCOMPARE(names.size(), 1);
    QVERIFY(names.first().endsWith(QLatin1String(".db-wal")));
    QCOMPARE(readFile(directory() + QLatin1Char('/') + names.first()), QByteArray("rows of a removed file"));
}

void TestEngineFaults::emptyFileWithAJournalLosesNothingOfIt()
{
    QVERIFY(writeFile(file(), QByteArray()));
    QVERIFY(writeFile(file() + QStringLiteral("-wal"), "rows of an emptied file"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogReplaced);
    const QStringList names = damagedNames(directory());
    QCOMPARE(names.size(), 2);
    QCOMPARE(readFile(directory() + QLatin1Char('/') + names.at(1)), QByteArray("rows of an emptied file"));
}

void TestEngineFaults::severalDamagedFilesAreAllKept()
{
    for (int i = 0; i < 3; ++i) {
        QVERIFY(writeFile(file(), "damaged " + QByteArray::number(i)));
        EngineRun run;
        QCOMPARE(run.start(), ZephanErrors::kActionLogReplaced);
    }
    QCOMPARE(damagedNames(directory()).size(), 3);
}

void TestEngineFaults::soundFileWithFurtherColumnsIsKept()
{
    writeRows(1);
    runOn(file(), {"ALTER TABLE action_log ADD COLUMN remark TEXT", "CREATE TABLE notes (x)"});
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("second"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")).size(), 2);
    QVERIFY(damagedNames(directory()).isEmpty());
}

void TestEngineFaults::noLocationIsRefused_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("madeFile");
    QTest::addColumn<QString>("madeDirectory");

    QTest::newRow("a directory stands in the file's place") << "%1"
                                                            << ""
                                                            << "%1/actionlog.db";
    QTest::newRow("a file stands in the directory's place") << "%1/x"
                                                            << "%1/x"
                                                            << "";
    QTest::newRow("a file stands above the directory") << "%1/x/y/z"
                                                       << "%1/x"
                                                       << "";
    QTest::newRow("nothing can be made there") << "/proc/nowhere"
                                               << ""
                                               << "";
    QTest::newRow("no file can be made there") << "/proc"
                                               << ""
                                               << "";
    QTest::newRow("an empty location") << ""
                                       << ""
                                       << "";
}

void TestEngineFaults::noLocationIsRefused()
{
    QFETCH(QString, location);
    QFETCH(QString, madeFile);
    QFETCH(QString, madeDirectory);

    for (QString *path : {&location, &madeFile, &madeDirectory})
        path->replace(QLatin1String("%1"), directory());
    if (!madeFile.isEmpty())
        QVERIFY(writeFile(madeFile, "x"));
    if (!madeDirectory.isEmpty())
        QVERIFY(QDir().mkpath(madeDirectory));
    EngineRun::useLocation(location);

    EngineRun run;
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), ZephanErrors::kActionLogNotOpened);
    QCoreApplication::processEvents();
    QVERIFY(run.initialized.isEmpty());
    QVERIFY(damagedNames(directory()).isEmpty());
    QVERIFY(readFile(m_workstation.runtimeLog()).contains("The action log can't be used"));
}

void TestEngineFaults::refusedEngineCanBeStartedElsewhere()
{
    EngineRun::useLocation(QStringLiteral("/proc/nowhere"));
    EngineRun run;
    QCOMPARE(run.start(), ZephanErrors::kActionLogNotOpened);
    EngineRun::useLocation(directory());
    QCOMPARE(run.start(), 0U);
}

void TestEngineFaults::lostFileIsACriticalError_data()
{
    QTest::addColumn<Change>("change");

    QTest::newRow("the file is removed") << Change([](const QString &file) { QVERIFY(QFile::remove(file)); });
    QTest::newRow("the journal is removed")
        << Change([](const QString &file) { QVERIFY(QFile::remove(file + QStringLiteral("-wal"))); });
    QTest::newRow("the file is renamed")
        << Change([](const QString &file) { QVERIFY(QFile::rename(file, file + QStringLiteral(".old"))); });
    QTest::newRow("the file is replaced by another") << Change([](const QString &file) {
        QVERIFY(QFile::copy(file, file + QStringLiteral(".new")));
        QVERIFY(QFile::remove(file));
        QVERIFY(QFile::rename(file + QStringLiteral(".new"), file));
    });
    QTest::newRow("the directory is removed")
        << Change([](const QString &file) { QVERIFY(QDir(QFileInfo(file).path()).removeRecursively()); });
    QTest::newRow("the table is removed")
        << Change([](const QString &file) { runOn(file, {"DROP TABLE action_log"}); });
    QTest::newRow("inserts are refused") << Change([](const QString &file) {
        runOn(file, {"CREATE TRIGGER refusal BEFORE INSERT ON action_log BEGIN "
                     "SELECT RAISE(ABORT, 'refused'); END"});
    });
}

void TestEngineFaults::lostFileIsACriticalError()
{
    QFETCH(Change, change);

    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("recorded"));
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());

    change(file());
    run.log(QStringLiteral("lost"));
    QVERIFY(run.critical.isEmpty());
    QTRY_COMPARE(run.critical.size(), 1);
    QCOMPARE(run.critical.first().at(0).value<Actions::Action>(), Actions::Started);
    QCOMPARE(run.critical.first().at(1).toUInt(), ZephanErrors::kActionLogNotWritten);
    QVERIFY(run.critical.first().at(2).toString().startsWith(
        QLatin1String("The audit trail can no longer be written.\n")));
}

void TestEngineFaults::everyFailingEventIsReportedOnceFromTheEventLoop()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(QDir(directory()).removeRecursively());
    for (int i = 0; i < 3; ++i)
        run.log(QString::number(i));
    QVERIFY(run.critical.isEmpty());
    QTRY_COMPARE(run.critical.size(), 3);
    QCoreApplication::processEvents();
    QCOMPARE(run.critical.size(), 3);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QTRY_COMPARE(run.shutDown.size(), 1);
}

void TestEngineFaults::failingErrorIsReportedWithItsAction()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(QFile::remove(file()));
    run.engine.logError(Actions::Login, 5, QStringLiteral("secret-free"));
    QTRY_COMPARE(run.critical.size(), 1);
    QCOMPARE(run.critical.first().at(0).value<Actions::Action>(), Actions::Login);
}

void TestEngineFaults::lockHeldTooLongIsACriticalError()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EncryptedFile other(file());
    QCOMPARE(other.run(QStringLiteral("BEGIN IMMEDIATE")), QStringList());
    run.log(QStringLiteral("waits"));
    QTRY_COMPARE(run.critical.size(), 1);
    QCOMPARE(other.run(QStringLiteral("COMMIT")), QStringList());

    run.log(QStringLiteral("written"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("written")));
    QCOMPARE(run.critical.size(), 1);
}

void TestEngineFaults::lockHeldForAMomentIsWaitedFor()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    std::promise<void> locked;
    std::thread holder([this, &locked] {
        EncryptedFile other(file());
        other.run(QStringLiteral("BEGIN IMMEDIATE"));
        locked.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        other.run(QStringLiteral("COMMIT"));
    });
    locked.get_future().wait();
    run.log(QStringLiteral("waits"));
    holder.join();
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("waits")));
}

void TestEngineFaults::lockHeldAtTheStartIsABadStart()
{
    writeRows(1);
    EncryptedFile other(file());
    QCOMPARE(other.run(QStringLiteral("BEGIN IMMEDIATE")), QStringList());
    EngineRun run;
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), 0U);
    QVERIFY(run.initialized.isEmpty());
    QTRY_COMPARE(run.initialized.size(), 1);
    QCOMPARE(run.initialized.first().at(0).toUInt(), ZephanErrors::kActionLogNotWritten);
    QVERIFY(damagedNames(directory()).isEmpty());
    QCOMPARE(readActionLog(file(), QStringLiteral("info")).size(), 1);
}

QTEST_GUILESS_MAIN(TestEngineFaults)
#include "test_enginefaults.moc"
