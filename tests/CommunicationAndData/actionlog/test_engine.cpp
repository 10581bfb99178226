#include "CommunicationAndData/settings/settingshandler.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/workstation.h"

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
    void aLineOfTheRunTimeLogNamesItsFunction_data();
    void aLineOfTheRunTimeLogNamesItsFunction();
    void engineCanBeStartedAgain();
    void engineDeletedBeforeItsAnswerIsSafe();
    void slotsCanBeInvokedByName();

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

void TestEngine::aLineOfTheRunTimeLogNamesItsFunction_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("function");
    QTest::newRow("the start") << "Action log of Test, interactive"
                               << "initializeEngine";
    QTest::newRow("a second start") << "The action log is open already"
                                    << "initializeEngine";
    QTest::newRow("a second shutdown") << "The action log is not open"
                                       << "shutdownEngine";
    QTest::newRow("an event too late") << "An event came while the action log was not open: Login"
                                       << "write";
}

void TestEngine::aLineOfTheRunTimeLogNamesItsFunction()
{
    QFETCH(QString, message);
    QFETCH(QString, function);
    EngineRun run;
    QCOMPARE(run.engine.initializeEngine(QStringLiteral("Test"), true), 0U);
    run.engine.initializeEngine(QStringLiteral("Test"), true);
    run.engine.shutdownEngine();
    run.engine.shutdownEngine();
    run.engine.logError(Actions::Login, 5, QVariant());

    const QStringList lines =
        QString::fromUtf8(readFile(m_workstation.runtimeLog())).split(QLatin1Char('\n'));
    const QStringList found = lines.filter(QLatin1Char('\t') + message);
    QVERIFY(!found.isEmpty());
    const QRegularExpression line(
        QStringLiteral(
            "^... CV: \\S+\t\\S*communicationanddataengine:\\d+::CommunicationAndDataEngine::%1\t%2$")
            .arg(function, message));
    QVERIFY2(line.match(found.last()).hasMatch(), qPrintable(found.last()));
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

QTEST_GUILESS_MAIN(TestEngine)
#include "test_engine.moc"
