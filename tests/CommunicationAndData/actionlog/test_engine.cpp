#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QHostInfo>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString kNil = QStringLiteral("00000000-0000-0000-0000-000000000000");
const QString kId = QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e");

OperatorModel operatorNamed(const QString &name)
{
    return OperatorModel::create(UuidString(kId), QString(), name, QList<uint>(), QStringList(), QString(),
                                 QString(), QString(), MappedStrings(), MappedStrings(), QString(), QString(),
                                 1U);
}

}  // namespace

class TestEngine : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void actionBecomesARow_data();
    void actionBecomesARow();
    void errorBecomesARow_data();
    void errorBecomesARow();
    void textsComeBackAsTheyWere_data();
    void textsComeBackAsTheyWere();
    void timeIsUtcText();
    void systemIsTheHost();
    void eventsAreOfTheOperatorOfTheMoment();
    void eventsAreKeptInTheirOrder();
    void eventsOfSeveralRunsAreKept();

    void initializedComesFromTheEventLoop();
    void shutdownComesFromTheEventLoop();
    void secondStartIsRefused();
    void secondShutdownIsRefused();
    void shutdownBeforeTheStartIsRefused();
    void eventAfterTheShutdownIsDroppedWithALine();
    void eventBeforeTheStartIsDroppedWithALine();
    void engineCanBeStartedAgain();
    void engineDeletedBeforeItsAnswerIsSafe();
    void slotsCanBeInvokedByName();

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

QString TestEngine::directory() const
{
    return m_workstation.path(QStringLiteral("log%1").arg(m_run));
}

QString TestEngine::file() const
{
    return directory() + QStringLiteral("/actionlog.db");
}

void TestEngine::init()
{
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(directory());
}

void TestEngine::actionBecomesARow_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("numbers");

    QTest::newRow("Login is of access and high") << 0x1300 << 1 << "4096|768|4864|1";
    QTest::newRow("FetchPersonCustomFields is of the database and low") << 0x2100 << 0 << "8192|256|8448|0";
    QTest::newRow("SearchAuditTrail is of the database and normal") << 0x2210 << 1 << "8192|512|8720|1";
    QTest::newRow("ViewSettingsDiff is of the user and normal") << 0x3204 << 1 << "12288|512|12804|1";
    QTest::newRow("AutomaticImport is of transfer and low") << 0x4100 << 0 << "16384|256|16640|0";
    QTest::newRow("Export is of transfer and normal") << 0x4201 << 1 << "16384|512|16897|1";
    QTest::newRow("Started is of the system and low") << 0x5100 << 1 << "20480|256|20736|1";
    QTest::newRow("ConnectionChange is of the system and normal") << 0x5204 << 0 << "20480|512|20996|0";
}

void TestEngine::actionBecomesARow()
{
    QFETCH(int, action);
    QFETCH(int, type);
    QFETCH(QString, numbers);

    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.engine.logAction(static_cast<Actions::Action>(action), static_cast<Actions::ActionType>(type),
                         UuidString(kId), QStringLiteral("actiondb"), QStringLiteral("Server=a;Port=1"),
                         QStringLiteral("Corvane"));

    const QString columns = QStringLiteral("category, action_level, action, action_type, operator, "
                                           "operator_name, database_key, info, target_database, "
                                           "target_server");
    QCOMPARE(
        readActionLog(file(), columns),
        QStringList(numbers + QStringLiteral("|%1||%2|Corvane|actiondb|Server=a;Port=1").arg(kNil, kId)));
    QVERIFY(run.critical.isEmpty());
}

void TestEngine::errorBecomesARow_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<uint>("error");
    QTest::addColumn<QVariant>("data");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<QString>("info");

    QTest::newRow("of a failed sign-in, with the action's level")
        << 0x1300 << 0x14200001U << QVariant(QStringLiteral("nurse")) << "24576|768|4864|0"
        << "Error code: 337641473, nurse";
    QTest::newRow("without data") << 0x2210 << 0x14300000U << QVariant() << "24576|512|8720|0"
                                  << "Error code: 338690048";
    QTest::newRow("of the largest number")
        << 0x5100 << 0xffffffffU << QVariant(QStringLiteral("x")) << "24576|256|20736|0"
        << "Error code: 4294967295, x";
    QTest::newRow("with a list") << 0x5100 << 1U << QVariant(QStringList{"a", "b"}) << "24576|256|20736|0"
                                 << "Error code: 1, a, b";
}

void TestEngine::errorBecomesARow()
{
    QFETCH(int, action);
    QFETCH(uint, error);
    QFETCH(QVariant, data);
    QFETCH(QString, numbers);
    QFETCH(QString, info);

    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.engine.logError(static_cast<Actions::Action>(action), error, data);

    const QString columns = QStringLiteral("category, action_level, action, action_type, info, database_key, "
                                           "target_database, target_server");
    QCOMPARE(readActionLog(file(), columns),
             QStringList(QStringList{numbers, info, kNil, QString(), QString()}.join(QLatin1Char('|'))));
}

void TestEngine::textsComeBackAsTheyWere_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("an empty one") << "";
    QTest::newRow("one with quotes and a statement") << "'); DROP TABLE action_log; --\"`";
    QTest::newRow("one in many scripts") << QString::fromUtf8("Größe Ελλάδα Привет 日本語 😀");
    QTest::newRow("one of several lines") << "first\nsecond\r\n\tthird";
    QTest::newRow("one of a megabyte") << QString(1024 * 1024, QLatin1Char('x'));
    QTest::newRow("one with placeholders") << ":name ? %1 %2";
    QTest::newRow("a nil UUID") << kNil;
}

void TestEngine::textsComeBackAsTheyWere()
{
    QFETCH(QString, text);

    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.engine.setOperatorInfo(operatorNamed(text));
    run.engine.logAction(Actions::Started, Actions::Human, UuidString(), text, text, text);

    QCOMPARE(readActionLog(file(), QStringLiteral("operator_name")), QStringList(text));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(text));
    QCOMPARE(readActionLog(file(), QStringLiteral("target_database")), QStringList(text));
    QCOMPARE(readActionLog(file(), QStringLiteral("target_server")), QStringList(text));
}

void TestEngine::timeIsUtcText()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("x"));

    const QString text = readActionLog(file(), QStringLiteral("timestamp_action")).value(0);
    QVERIFY2(QRegularExpression(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$"))
                 .match(text)
                 .hasMatch(),
             qPrintable(text));
    QDateTime time = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    time.setTimeSpec(Qt::UTC);
    QVERIFY(time.secsTo(before) <= 1 && before.secsTo(time) <= 60);
}

void TestEngine::systemIsTheHost()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("x"));
    QCOMPARE(readActionLog(file(), QStringLiteral("system")), QStringList(QHostInfo::localHostName()));
}

void TestEngine::eventsAreOfTheOperatorOfTheMoment()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("nobody"));
    run.engine.setOperatorInfo(operatorNamed(QStringLiteral("nurse")));
    run.log(QStringLiteral("somebody"));
    run.engine.logError(Actions::Login, 5, QVariant());
    run.engine.setOperatorInfo(OperatorModel());
    run.log(QStringLiteral("nobody again"));

    QCOMPARE(readActionLog(file(), QStringLiteral("operator, operator_name")),
             QStringList({kNil + "|", kId + "|nurse", kId + "|nurse", kNil + "|"}));
}

void TestEngine::eventsAreKeptInTheirOrder()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        expected.append(QString::number(i));
        run.log(expected.last());
    }
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), expected);
}

void TestEngine::eventsOfSeveralRunsAreKept()
{
    QStringList expected;
    for (int i = 0; i < 3; ++i) {
        EngineRun run;
        QCOMPARE(run.start(), 0U);
        expected.append(QString::number(i));
        run.log(expected.last());
        QCOMPARE(run.engine.shutdownEngine(), 0U);
    }
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), expected);
}

void TestEngine::initializedComesFromTheEventLoop()
{
    EngineRun run;
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), 0U);
    QVERIFY(run.initialized.isEmpty());
    QTRY_COMPARE(run.initialized.size(), 1);
    QCOMPARE(run.initialized.first().at(0).toUInt(), 0U);
    QCoreApplication::processEvents();
    QCOMPARE(run.initialized.size(), 1);
}

void TestEngine::shutdownComesFromTheEventLoop()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QVERIFY(run.shutDown.isEmpty());
    QTRY_COMPARE(run.shutDown.size(), 1);
    QCOMPARE(run.shutDown.first().at(0).toUInt(), 0U);
}

void TestEngine::secondStartIsRefused()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), ZephanErrors::kEngineNotReady);
    run.log(QStringLiteral("still writing"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("still writing")));
}

void TestEngine::secondShutdownIsRefused()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QCOMPARE(run.engine.shutdownEngine(), ZephanErrors::kEngineNotReady);
    QTRY_COMPARE(run.shutDown.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(run.shutDown.size(), 1);
}

void TestEngine::shutdownBeforeTheStartIsRefused()
{
    EngineRun run;
    QCOMPARE(run.engine.shutdownEngine(), ZephanErrors::kEngineNotReady);
}

void TestEngine::eventAfterTheShutdownIsDroppedWithALine()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    const int before = readFile(m_workstation.runtimeLog()).count("An event came");
    run.log(QStringLiteral("late"));
    run.engine.logError(Actions::Login, 5, QVariant());
    QCoreApplication::processEvents();

    QVERIFY(readActionLog(file()).isEmpty());
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(readFile(m_workstation.runtimeLog()).count("An event came"), before + 2);
}

void TestEngine::eventBeforeTheStartIsDroppedWithALine()
{
    EngineRun run;
    const int before = readFile(m_workstation.runtimeLog()).count("An event came");
    run.log(QStringLiteral("early"));
    QCoreApplication::processEvents();

    QVERIFY(!QFileInfo::exists(file()));
    QVERIFY(run.critical.isEmpty());
    QCOMPARE(readFile(m_workstation.runtimeLog()).count("An event came"), before + 1);
}

void TestEngine::engineCanBeStartedAgain()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("first"));
    QCOMPARE(run.engine.shutdownEngine(), 0U);
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("second"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList({"first", "second"}));
}

void TestEngine::engineDeletedBeforeItsAnswerIsSafe()
{
    auto *engine = new CommunicationAndDataEngine(nullptr);
    QCOMPARE(engine->initializeEngine(QStringLiteral("Test"), true), 0U);
    delete engine;
    QCoreApplication::processEvents();
    QVERIFY(readActionLog(file()).isEmpty());
}

void TestEngine::slotsCanBeInvokedByName()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    QVERIFY(QMetaObject::invokeMethod(&run.engine, "setOperatorInfo",
                                      Q_ARG(OperatorModel, operatorNamed(QStringLiteral("nurse")))));
    QVERIFY(QMetaObject::invokeMethod(&run.engine, "logAction", Q_ARG(Actions::Action, Actions::Login),
                                      Q_ARG(Actions::ActionType, Actions::Human),
                                      Q_ARG(UuidString, UuidString()), Q_ARG(QString, "db"),
                                      Q_ARG(QString, "server"), Q_ARG(QVariant, QVariant("info"))));
    QVERIFY(QMetaObject::invokeMethod(&run.engine, "logError", Q_ARG(Actions::Action, Actions::Login),
                                      Q_ARG(ZephanError, 5), Q_ARG(QVariant, QVariant())));
    QCOMPARE(readActionLog(file(), QStringLiteral("operator_name, info")),
             QStringList({"nurse|info", "nurse|Error code: 5"}));
}

void TestEngine::locationIsADirectory_data()
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

void TestEngine::locationIsADirectory()
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

void TestEngine::relativeLocationStaysWhenTheCurrentDirectoryChanges()
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

void TestEngine::locationIsReadAtTheStartAlone()
{
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    EngineRun::useLocation(m_workstation.path(QStringLiteral("elsewhere")));
    run.log(QStringLiteral("here"));
    QCOMPARE(readActionLog(file(), QStringLiteral("info")), QStringList(QStringLiteral("here")));
    QVERIFY(!QFileInfo::exists(m_workstation.path(QStringLiteral("elsewhere"))));
}

void TestEngine::fileIsEncrypted()
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

void TestEngine::fileHasTheTwelveColumnsInOrder()
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

void TestEngine::fileHasAnIndexOnTheTime()
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

void TestEngine::fileHasOneRandomHash()
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

void TestEngine::missingHashIsCompleted()
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

void TestEngine::missingTablesOfAnEmptyDatabaseAreCompleted()
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

void TestEngine::journalIsWriteAheadAndGoneAfterTheShutdown()
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

void TestEngine::rowsCanBeReadWhileTheEngineWrites()
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

void TestEngine::openReaderDoesNotHinderWriter()
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

QTEST_GUILESS_MAIN(TestEngine)
#include "test_engine.moc"
