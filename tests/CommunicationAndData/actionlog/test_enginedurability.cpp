#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"
#include "unsyncedfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTest>
#include <QThread>

#include <future>
#include <thread>

namespace {

// More than a write-ahead log takes before it is taken over into its file.
constexpr int kEvents = 600;

// Milliseconds: longer than the engine waits for a lock, and shorter than it waits for two.
constexpr int kBetweenTwoWaits = 8000;

void useSqliteBehindOdbc(const QString &file)
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->setValue(QLatin1String(SettingsKeys::kActionLogActivated), false);
    const QVariantMap params = {{QStringLiteral("Driver"), QStringLiteral("SQLite3")},
                                {QStringLiteral("Database"), file}};
    settings->setDatabaseSettings(QLatin1String(SettingsKeys::kActionDbGroup),
                                  {{QLatin1String(SettingsKeys::kParams), params}});
}

}  // namespace

/// What a power failure can take from the log: nothing that was acknowledged.
class TestEngineDurability : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eventIsOnDiskWhenLogActionReturns();
    void eventIsOnDiskBehindOdbc();
    void logWithARollbackJournalIsKeptOnDiskTooAndMayGetAWriteAheadOneLater();

private:
    QString directory() const;
    QString file() const;
    void beginWithoutAWriteAheadLog(EngineRun &run);
    void logAndLookAtTheDisk(EngineRun &run, int events);

    Workstation m_workstation;
    int m_run = 0;
};

QString TestEngineDurability::directory() const
{
    return m_workstation.path(QStringLiteral("log%1").arg(m_run));
}

QString TestEngineDurability::file() const
{
    return directory() + QStringLiteral("/actionlog.db");
}

void TestEngineDurability::init()
{
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(directory());
    QVERIFY(QDir().mkpath(directory()));
}

void TestEngineDurability::cleanup()
{
    UnsyncedFiles::watch(QString());
}

/// A reader that is in the way while the engine opens the log leaves it with a rollback journal. The engine
/// tries to change that, gives up, and waits for the reader's end with what it writes next.
void TestEngineDurability::beginWithoutAWriteAheadLog(EngineRun &run)
{
    {
        EngineRun first;
        QCOMPARE(first.start(), 0U);
        first.log(QStringLiteral("first"));
        first.log(QStringLiteral("second"));
        QCOMPARE(first.engine.shutdownEngine(), 0U);
        QCOMPARE(EncryptedFile(file()).run(QStringLiteral("PRAGMA journal_mode = DELETE")),
                 QStringList("delete"));
    }
    std::promise<void> reading;
    std::thread inTheWay([this, &reading] {
        EncryptedFile other(file());
        QSqlQuery reader(other.connection());
        reader.setForwardOnly(true);
        reader.exec(QStringLiteral("SELECT info FROM action_log"));
        reader.next();
        reading.set_value();
        QThread::msleep(kBetweenTwoWaits);
    });
    reading.get_future().wait();
    const ZephanError error = run.start();
    inTheWay.join();
    QCOMPARE(error, 0U);
    QVERIFY(!QFileInfo::exists(file() + QStringLiteral("-wal")));
}

void TestEngineDurability::logAndLookAtTheDisk(EngineRun &run, int events)
{
    UnsyncedFiles::watch(directory());
    for (int i = 0; i < events; ++i) {
        const int changes = UnsyncedFiles::changes();
        run.log(QString(500, QLatin1Char('x')));
        QVERIFY(UnsyncedFiles::changes() > changes);
        QCOMPARE(UnsyncedFiles::paths(), QStringList());
    }
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
}

void TestEngineDurability::eventIsOnDiskWhenLogActionReturns()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    const qint64 size = QFileInfo(file()).size();
    logAndLookAtTheDisk(run, kEvents);
    QVERIFY(QFileInfo(file()).size() > size);
}

void TestEngineDurability::eventIsOnDiskBehindOdbc()
{
    useSqliteBehindOdbc(directory() + QStringLiteral("/server.db"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    logAndLookAtTheDisk(run, 3);
}

void TestEngineDurability::logWithARollbackJournalIsKeptOnDiskTooAndMayGetAWriteAheadOneLater()
{
    EngineRun run;
    beginWithoutAWriteAheadLog(run);
    logAndLookAtTheDisk(run, 3);

    EncryptedFile other(file());
    QCOMPARE(other.run(QStringLiteral("PRAGMA journal_mode = WAL")), QStringList("wal"));
    QCOMPARE(other.run(QStringLiteral("DELETE FROM action_log")), QStringList());
    run.log(QStringLiteral("recorded"));
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("recorded")));
}

QTEST_GUILESS_MAIN(TestEngineDurability)
#include "test_enginedurability.moc"
