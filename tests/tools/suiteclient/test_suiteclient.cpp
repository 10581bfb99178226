#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/onlinesite.h"
#include "CommunicationAndData/settings/onlinestore.h"
#include "CommunicationAndData/settings/safevalue.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "support/workstation.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTest>
#include <QThread>

namespace {

using Settings = QMap<QString, QVariant>;

constexpr int kPatience = 60000;  // milliseconds
constexpr int kKills = 50;

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// How a run of the client ended.
struct Ending
{
    int code = -1;
    QString line;
};

std::unique_ptr<QProcess> started(const QStringList &arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start(QCoreApplication::applicationDirPath() + text("/suiteclient"), arguments);
    return process;
}

Ending run(const QStringList &arguments)
{
    const auto process = started(arguments);
    if (!process->waitForFinished(kPatience) || process->exitStatus() != QProcess::NormalExit)
        return {};
    const QByteArray said = process->readAll();
    // What a sanitizer has to say, beside the test's own failure.
    if (said.contains("Sanitizer"))
        qWarning("%s", said.constData());
    return {process->exitCode(), QString::fromUtf8(said)};
}

}  // namespace

class TestSuiteClient : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();

    void whatIsDistributedIsWhatArrives();
    void laterConfigurationReplacesAnEarlierOne();
    void accountThatMayOnlyReadIsEnough();
    void withUpdatingOffEverythingStays_data();
    void withUpdatingOffEverythingStays();
    void storedConfigurationReachesNobody();
    void unreachableDatabaseLeavesEverything();
    void damagedConfigurationLeavesEverything();
    void fileThatCannotBeWrittenStays();
    void fileThatThereIsNoRoomForStays();
    void whatBelongsToTheWorkstationStays();
    void configurationWithoutDatabasesLeavesTheOwnOnes();
    void usersAreToldWhenTheyAreToBe();
    void localApplicationSettingsAreUpdatedByThemselves();
    void killedClientLeavesTheFormerOrTheNewSettings();
    void helpTellsEveryExitCode();
    void wrongArgumentsAreRefused();

private:
    void writeClient(OnlineSite::Account account = OnlineSite::Administrator);
    Settings clientContent() const;
    void distribute(const Settings &settings, const QString &notes = QString(), bool informUser = false);
    Settings example();
    Ending update() const;

    Workstation m_workstation;
    OnlineSite m_site{QStringLiteral("corvane_suite")};
    QString m_console;
    QString m_client;
};

void TestSuiteClient::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestSuiteClient::initTestCase()
{
    m_console = m_workstation.dataDirectory() + text("corvane.ini");
    m_client = m_workstation.path(text("client.ini"));
    store()->changeSettingsFile(m_console);
}

void TestSuiteClient::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QDir(m_client + text(".update")).removeRecursively();
    writeClient();
}

/// The settings of an application that updates them and knows where from.
void TestSuiteClient::writeClient(OnlineSite::Account account)
{
    QFile::remove(m_client);
    store()->changeSettingsFile(m_client);
    m_site.writeConnection(account);
    store()->setValue(text("application/settings_updating"), true);
    store()->setValue(text("ui/former"), 1);
    store()->changeSettingsFile(m_console);
}

Settings TestSuiteClient::clientContent() const
{
    return SettingsContent::of(readFile(m_client));
}

void TestSuiteClient::distribute(const Settings &settings, const QString &notes, bool informUser)
{
    OnlineStore::setContent(settings);
    QCOMPARE(OnlineStore::send({notes, QString(), QString()}, informUser, true), OnlineSettings::Success);
}

/// Settings as a page leaves them, with a connection to the same database.
Settings TestSuiteClient::example()
{
    OnlineStore::setContent({});
    m_site.writeConnection();
    store()->setValue(text("application/settings_updating"), text("true"));
    store()->setValue(text("ui/person_result_fields"),
                      QStringList{text("1"), text("a;b,c"), text("größe 肺")});
    store()->setValue(text("his/importlocation"), text("C:\\Halvorn\\Größe"));
    store()->setValue(text("his/defaultfilter"), QString());
    store()->setSafeValue(text("accesscontrol/method"), text("Internal users"));
    store()->setSafeValue(text("persondb/password"), text("sëcret 肺"));
    return OnlineStore::content();
}

Ending TestSuiteClient::update() const
{
    return run({text("--settings"), m_client});
}

void TestSuiteClient::whatIsDistributedIsWhatArrives()
{
    const Settings distributed = example();
    distribute(distributed);
    const Ending ending = update();
    QVERIFY2(ending.code == 0, qPrintable(ending.line));
    QCOMPARE(ending.line, QStringLiteral("Configuration %1 was taken over.\n").arg(OnlineStore::activeId()));
    QCOMPARE(clientContent(), SettingsContent::of(readFile(m_console)));
    QCOMPARE(clientContent().keys(), distributed.keys());
    const auto secret = SafeValue::decipher(clientContent().value(text("persondb/password")).toByteArray());
    QVERIFY(secret);
    QCOMPARE(secret->toString(), text("sëcret 肺"));
    QVERIFY(!QFile::exists(m_client + text(".update")));
}

void TestSuiteClient::laterConfigurationReplacesAnEarlierOne()
{
    for (int round = 0; round < 3; ++round) {
        Settings settings = example();
        settings.insert(QStringLiteral("ui/round_%1").arg(round), QString::number(round));
        distribute(settings);
        QCOMPARE(update().code, 0);
        QCOMPARE(clientContent().keys(), settings.keys());
    }
}

void TestSuiteClient::accountThatMayOnlyReadIsEnough()
{
    writeClient(OnlineSite::Application);
    distribute(example());
    QCOMPARE(update().code, 0);
    QVERIFY(clientContent().contains(text("ui/person_result_fields")));
}

void TestSuiteClient::withUpdatingOffEverythingStays_data()
{
    QTest::addColumn<QString>("line");

    QTest::newRow("when it is off") << "settings_updating=false";
    QTest::newRow("when nothing says that it is on") << "other=true";
}

void TestSuiteClient::withUpdatingOffEverythingStays()
{
    QFETCH(QString, line);
    distribute(example());
    const QByteArray file = readFile(m_client).replace("settings_updating=true", line.toUtf8());
    QVERIFY(writeFile(m_client, file));
    const Ending ending = update();
    QCOMPARE(ending.code, 0);
    QCOMPARE(ending.line, text("Updating is off, the settings stay as they are.\n"));
    QCOMPARE(readFile(m_client), file);
}

void TestSuiteClient::storedConfigurationReachesNobody()
{
    example();
    QCOMPARE(OnlineStore::send({}, false, false), OnlineSettings::Success);
    const QByteArray file = readFile(m_client);
    const Ending ending = update();
    QCOMPARE(ending.code, 3);
    QCOMPARE(ending.line, text("No configuration is active.\n"));
    QCOMPARE(readFile(m_client), file);
}

void TestSuiteClient::unreachableDatabaseLeavesEverything()
{
    store()->changeSettingsFile(m_client);
    store()->setDatabaseSettings(text("supportdb"),
                                 {{text("params"), QVariantMap{{text("Driver"), text("No Such Driver")}}}});
    store()->changeSettingsFile(m_console);
    const QByteArray file = readFile(m_client);
    const Ending ending = update();
    QCOMPARE(ending.code, 2);
    QVERIFY(ending.line.endsWith(text("There is no connection to the settings database.\n")));
    QCOMPARE(readFile(m_client), file);
}

void TestSuiteClient::damagedConfigurationLeavesEverything()
{
    distribute(example());
    QVERIFY(m_site.run(text("UPDATE configurations SET checksum = 'none'")));
    const QByteArray file = readFile(m_client);
    const Ending ending = update();
    QCOMPARE(ending.code, 4);
    QVERIFY(ending.line.contains(text("cannot be taken over.")));
    QCOMPARE(readFile(m_client), file);
    QVERIFY(!QFile::exists(m_client + text(".update")));
}

void TestSuiteClient::fileThatCannotBeWrittenStays()
{
    distribute(example());
    QVERIFY(QDir().mkpath(m_client + text(".update/in_the_way")));
    const QByteArray file = readFile(m_client);
    QCOMPARE(update().code, 5);
    QCOMPARE(readFile(m_client), file);
}

void TestSuiteClient::fileThatThereIsNoRoomForStays()
{
    distribute(example());
    const QByteArray file = readFile(m_client);
    // The client can write files of one block, of 512 bytes or 1024, as on a disk that is nearly full.
    QProcess client;
    client.start(text("sh"), {text("-c"), text("trap '' XFSZ; ulimit -f 1; exec \"$0\" --settings \"$1\""),
                              QCoreApplication::applicationDirPath() + text("/suiteclient"), m_client});
    QVERIFY(client.waitForFinished(kPatience));
    QCOMPARE(client.exitStatus(), QProcess::NormalExit);
    QCOMPARE(client.exitCode(), 5);
    QCOMPARE(readFile(m_client), file);
}

void TestSuiteClient::whatBelongsToTheWorkstationStays()
{
    store()->changeSettingsFile(m_client);
    store()->setValue(text("ui/geometry"), QByteArray("\x01\x02\x00\xff", 4));
    store()->setSafeValue(text("accesscontrol/defaultrights"), 7);
    store()->changeSettingsFile(m_console);
    const Settings before = clientContent();
    distribute(example());
    QCOMPARE(update().code, 0);
    for (const char *key : {"ui/geometry", "accesscontrol/defaultrights"})
        QCOMPARE(clientContent().value(text(key)), before.value(text(key)));
    QVERIFY(!clientContent().contains(text("ui/former")));
}

/// As an operator distributes it who may not write the databases' settings.
void TestSuiteClient::configurationWithoutDatabasesLeavesTheOwnOnes()
{
    const Settings before = clientContent();
    for (int round = 0; round < 2; ++round) {
        distribute({{text("application/settings_updating"), text("true")},
                    {text("ui/round"), QString::number(round)},
                    {text("persondb/sqltype"), text("2")}});
        QCOMPARE(update().code, 0);
        QCOMPARE(clientContent().value(text("ui/round")).toInt(), round);
        QCOMPARE(clientContent().value(text("supportdb/params/size")),
                 before.value(text("supportdb/params/size")));
        QCOMPARE(clientContent().value(text("supportdb/password")), before.value(text("supportdb/password")));
    }
}

void TestSuiteClient::usersAreToldWhenTheyAreToBe()
{
    distribute(example(), text("New date\nformat, größe 肺"), true);
    const QString id = QString::number(OnlineStore::activeId());
    QCOMPARE(update().line,
             QStringLiteral("Configuration %1 was taken over. Users are to be told: ").arg(id) +
                 text("New date format, größe 肺\n"));
    distribute(example(), text("Nobody needs to know"), false);
    QVERIFY(!update().line.contains(text("know")));
}

void TestSuiteClient::localApplicationSettingsAreUpdatedByThemselves()
{
    QVERIFY(writeFile(m_workstation.localApplicationSettings(), readFile(m_client)));
    distribute(example());
    QCOMPARE(run({}).code, 0);
    QVERIFY(readFile(m_workstation.localApplicationSettings()).contains("person_result_fields"));
    QVERIFY(!readFile(m_client).contains("person_result_fields"));
}

void TestSuiteClient::killedClientLeavesTheFormerOrTheNewSettings()
{
    if (m_site.hasAccounts())
        return;
    Settings settings = example();
    for (int i = 0; i < 500; ++i)
        settings.insert(QStringLiteral("ui/filler_%1").arg(i), QString(100, QLatin1Char('x')));
    distribute(settings);
    const QByteArray former = readFile(m_client);
    const Settings wanted = SettingsContent::of(readFile(m_console));
    for (int round = 0; round < kKills; ++round) {
        QVERIFY(writeFile(m_client, former));
        const auto client = started({text("--settings"), m_client});
        QVERIFY(client->waitForStarted());
        QThread::msleep(QRandomGenerator::system()->bounded(200));
        client->kill();
        QVERIFY(client->waitForFinished());
        const QByteArray file = readFile(m_client);
        QVERIFY(file == former || (repairIni(file).isSound() && SettingsContent::of(file) == wanted));
    }
    QCOMPARE(update().code, 0);
    QCOMPARE(clientContent(), wanted);
}

void TestSuiteClient::helpTellsEveryExitCode()
{
    const Ending ending = run({text("--help")});
    QCOMPARE(ending.code, 0);
    for (int code = 0; code <= 5; ++code)
        QVERIFY(ending.line.contains(QStringLiteral("  %1  when ").arg(code)));
    QVERIFY(ending.line.contains(text("--settings")));
}

void TestSuiteClient::wrongArgumentsAreRefused()
{
    QCOMPARE(run({text("--nonsense")}).code, 1);
    QCOMPARE(run({text("a file")}).code, 1);
}

QTEST_GUILESS_MAIN(TestSuiteClient)
#include "test_suiteclient.moc"
