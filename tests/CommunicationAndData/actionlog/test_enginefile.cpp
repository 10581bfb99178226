#include "CommunicationAndData/settings/settingshandler.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

/// The file of the workstation: where it is, what it holds and who may read it meanwhile.
class TestEngineFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void locationIsADirectory_data();
    void locationIsADirectory();
    void relativeLocationStaysWhenTheCurrentDirectoryChanges();
    void locationIsReadAtTheStartAlone();
    void fileIsEncrypted();
    void fileHasTheTwelveColumnsInOrder();
    void fileHasAnIndexOnTheTime();
    void fileHasOneRandomHash();
    void missingHashIsCompleted();
    void missingTablesOfAnEmptyDatabaseAreCompleted();
    void journalIsWriteAheadAndGoneAfterTheShutdown();
    void rowsCanBeReadWhileTheEngineWrites();
    void openReaderDoesNotHinderWriter();

private:
    QString directory() const;
    QString file() const;

    Workstation m_workstation;
    int m_run = 0;
};

QString TestEngineFile::directory() const
{
    return m_workstation.path(QStringLiteral("log%1").arg(m_run));
}

QString TestEngineFile::file() const
{
    return directory() + QStringLiteral("/actionlog.db");
}

void TestEngineFile::init()
{
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(directory());
}

void TestEngineFile::locationIsADirectory_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("file");

    QTest::newRow("with a separator at its end") << "%1/with/"
                                                 << "%1/with/actionlog.db";
    QTest::newRow("without one") << "%1/without"
                                 << "%1/without/actionlog.db";
    QTest::newRow("several levels that don't exist") << "%1/a/b/c/d"
                                                     << "%1/a/b/c/d/actionlog.db";
    QTest::newRow("with letters beyond ASCII and blanks")
        << QString::fromUtf8("%1/Protokolle der Übung 日本")
        << QString::fromUtf8("%1/Protokolle der Übung 日本/actionlog.db");
    QTest::newRow("with the marks of a URI") << "%1/a?b#c%20d"
                                             << "%1/a?b#c%20d/actionlog.db";
    QTest::newRow("with detours") << "%1/x/../y//z/."
                                  << "%1/y/z/actionlog.db";
    QTest::newRow("relative to the current directory") << "trail"
                                                       << "%1/trail/actionlog.db";
}

void TestEngineFile::locationIsADirectory()
{
    QFETCH(QString, location);
    QFETCH(QString, file);

    QVERIFY(QDir().mkpath(directory()));
    QVERIFY(QDir::setCurrent(directory()));
    EngineRun::useLocation(location.replace(QLatin1String("%1"), directory()));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("here"));
    QCOMPARE(readActionLog(file.replace(QLatin1String("%1"), directory()), QStringLiteral("info")),
             QStringList(QStringLiteral("here")));
}

void TestEngineFile::relativeLocationStaysWhenTheCurrentDirectoryChanges()
{
    QVERIFY(QDir().mkpath(directory()));
    QVERIFY(QDir::setCurrent(directory()));
    EngineRun::useLocation(QStringLiteral("trail"));
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(QDir::setCurrent(m_workstation.temporaryDirectory()));
    run.log(QStringLiteral("here"));
    QCoreApplication::processEvents();
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(readActionLog(directory() + QStringLiteral("/trail/actionlog.db"), QStringLiteral("info")),
             QStringList(QStringLiteral("here")));
}

void TestEngineFile::locationIsReadAtTheStartAlone()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EngineRun::useLocation(m_workstation.path(QStringLiteral("elsewhere")));
    run.log(QStringLiteral("here"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("here")));
    QVERIFY(!QFileInfo::exists(m_workstation.path(QStringLiteral("elsewhere"))));
}

void TestEngineFile::fileIsEncrypted()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("a word to be found"));
    const QByteArray journal = readFile(file() + QStringLiteral("-wal"));
    QCOMPARE(run.engine.shutdownEngine(), 0U);

    QVERIFY(!journal.isEmpty());
    QVERIFY(!journal.contains("a word to be found"));
    QVERIFY(!readFile(file()).isEmpty());
    QVERIFY(!readFile(file()).contains("a word to be found"));
    QVERIFY(!readFile(file()).startsWith("SQLite format"));
}

void TestEngineFile::fileHasTheTwelveColumnsInOrder()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EncryptedFile database(file());
    QStringList names;
    for (const QString &column : database.run(QStringLiteral("PRAGMA table_info(action_log)")))
        names.append(column.section(QLatin1Char('|'), 1, 1));
    QCOMPARE(names.join(QLatin1String(", ")),
             QStringLiteral("timestamp_action, category, action_level, action, action_type, operator, "
                            "operator_name, system, database_key, info, target_database, target_server"));
}

void TestEngineFile::fileHasAnIndexOnTheTime()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EncryptedFile database(file());
    const QString plan =
        database
            .run(QStringLiteral("EXPLAIN QUERY PLAN SELECT * FROM action_log ORDER BY timestamp_action DESC"))
            .join(QLatin1Char('\n'));
    QVERIFY2(plan.contains(QLatin1String("USING INDEX")), qPrintable(plan));
}

void TestEngineFile::fileHasOneRandomHash()
{
    QStringList hashes;
    for (const QString &location : {directory(), directory() + "-second"}) {
        EngineRun::useLocation(location);
        for (int i = 0; i < 2; ++i) {
            EngineRun run;
            QCOMPARE(run.start(), 0U);
            QCOMPARE(run.engine.shutdownEngine(), 0U);
            EncryptedFile database(location + "/actionlog.db");
            const QStringList rows = database.run(QStringLiteral("SELECT hash FROM hash"));
            QCOMPARE(rows.size(), 1);
            hashes.append(rows);
        }
    }
    QCOMPARE(hashes.at(0), hashes.at(1));
    QCOMPARE(hashes.at(2), hashes.at(3));
    QVERIFY(hashes.at(0) != hashes.at(2));
    QCOMPARE(hashes.at(0).size(), 64);
}

void TestEngineFile::missingHashIsCompleted()
{
    {
        EngineRun run;
        QCOMPARE(run.start(), 0U);
        run.log(QStringLiteral("old"));
        QCOMPARE(run.engine.shutdownEngine(), 0U);
        EncryptedFile database(file());
        database.run(QStringLiteral("DROP TABLE hash"));
    }
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EncryptedFile database(file());
    QCOMPARE(database.run(QStringLiteral("SELECT count(*) FROM hash")), QStringList(QStringLiteral("1")));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("old")));
}

void TestEngineFile::missingTablesOfAnEmptyDatabaseAreCompleted()
{
    QVERIFY(QDir().mkpath(directory()));
    {
        EncryptedFile database(file());
        database.run(QStringLiteral("CREATE TABLE begun (x)"));
        database.run(QStringLiteral("DROP TABLE begun"));
    }
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("new"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("new")));
}

void TestEngineFile::journalIsWriteAheadAndGoneAfterTheShutdown()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("x"));
    {
        EncryptedFile database(file());
        QCOMPARE(database.run(QStringLiteral("PRAGMA journal_mode")), QStringList(QStringLiteral("wal")));
    }
    QVERIFY(QFileInfo(file() + "-wal").size() > 0);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QVERIFY(!QFileInfo::exists(file() + "-wal"));
    QVERIFY(!QFileInfo::exists(file() + "-shm"));
    QCOMPARE(QDir(directory()).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("actionlog.db")));
}

void TestEngineFile::rowsCanBeReadWhileTheEngineWrites()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EncryptedFile reader(file());
    for (int i = 1; i <= 20; ++i) {
        run.log(QString::number(i));
        QCOMPARE(reader.run(QStringLiteral("SELECT count(*) FROM action_log")),
                 QStringList(QString::number(i)));
    }
}

void TestEngineFile::openReaderDoesNotHinderWriter()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("before"));
    EncryptedFile reader(file());
    reader.run(QStringLiteral("BEGIN"));
    QCOMPARE(reader.run(QStringLiteral("SELECT info FROM action_log")).size(), 1);
    for (int i = 0; i < 100; ++i)
        run.log(QString(20000, QLatin1Char('x')));
    QCOMPARE(reader.run(QStringLiteral("SELECT info FROM action_log")).size(), 1);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QTRY_COMPARE(run.shutDown.size(), 1);
    QVERIFY(run.critical.isEmpty());
    reader.run(QStringLiteral("COMMIT"));
    QCOMPARE(reader.run(QStringLiteral("SELECT info FROM action_log")).size(), 101);
}

QTEST_GUILESS_MAIN(TestEngineFile)
#include "test_enginefile.moc"
