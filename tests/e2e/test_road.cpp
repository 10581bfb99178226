#include "drivenworkstation.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/actions.h"

#include <QDir>
#include <QMap>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <memory>

#include <unistd.h>

namespace {

const QString kConsole = QStringLiteral("Corvane");
const QString kSettings = QStringLiteral("Corvane Settings Management");
const QString kLoad = QStringLiteral("Corvane Settings Local Load");
const QString kSave = QStringLiteral("Corvane Settings Local Save");

/// What the end of a program says of a connection to the access database that there never was.
Event noConnection()
{
    return {Actions::Stopping, Actions::Automatic, QStringLiteral("Corvane access connection"), QString(),
            QString()};
}

/// The first column of a query's rows in the site's database.
QStringList rowsOf(const QString &file, const QString &statement)
{
    QStringList rows;
    const QString connection = QStringLiteral("site");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QODBC3"), connection);
        database.setDatabaseName(QStringLiteral("Driver=SQLite3;Database=") + file);
        if (database.open()) {
            QSqlQuery query(statement, database);
            while (query.next())
                rows.append(query.value(0).toString());
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return rows;
}

}  // namespace

class TestRoad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void aChangedSettingIsSavedAndFoundRecorded();
    void settingsAreSavedByTheEndOfTheProgramWithTheKeyboardAlone();
    void anotherAdministratorSignsInWithAPassword();
    void theWindowStaysLightOnADarkDesktop();
    void operatorsSignInByEveryWayOnTheDemonstrationWorkstation();
    void aRoleAndAUserAreAddedWithTheKeyboardAloneAndTheUserMayDoWhatTheRoleAllows();
    void aChangedSettingIsDistributedAndLoadedBack();

private:
    std::unique_ptr<DrivenWorkstation> m_workstation;
    QString m_userName;
    QString m_userId;
};

void TestRoad::initTestCase()
{
    // What the operator of "Current user" is called in the audit trail.
    QString sid;
    QString error;
    m_workstation = std::make_unique<DrivenWorkstation>();
    m_userName = currentUsername(sid, error);
    m_userId = getUuidFromSid(sid, error).toString();
    QVERIFY2(!m_userName.isEmpty() && error.isEmpty(), qPrintable(error));
}

void TestRoad::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<DrivenWorkstation>();
}

void TestRoad::aChangedSettingIsSavedAndFoundRecorded()
{
    const QVariant geometry = m_workstation->localSetting(SettingsKeys::kGeometry);
    const QVariant rights = m_workstation->localSetting(SettingsKeys::kDefaultRights);
    const QVariant password = m_workstation->localSetting("persondb/password");
    QVERIFY(!geometry.toByteArray().isEmpty());
    QVERIFY(!rights.toByteArray().isEmpty());
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kDateFormat).toInt(), 0);
    m_workstation->setLocalSetting("persondb/params/9/key", QStringLiteral("Left"));
    const QDateTime begin = QDateTime::currentDateTimeUtc();

    const Output walk = m_workstation->drive(QStringLiteral("walk.py"), QStringLiteral("road"));
    QVERIFY2(walk.exitCode == 0, walk.text.constData());

    // The change is there, the rest is as it was, and nothing of the console's own went along.
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kDateFormat).toInt(), 2);
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kDateSeparator).toInt(), 1);
    QCOMPARE(m_workstation->localSetting("persondb/password"), password);
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kGeometry), geometry);
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kDefaultRights), rights);
    QCOMPARE(m_workstation->workingSetting(SettingsKeys::kDateFormat).toInt(), 2);
    QVERIFY(!m_workstation->workingSetting(SettingsKeys::kGeometry).isValid());
    QVERIFY(!m_workstation->workingSetting(SettingsKeys::kDefaultRights).isValid());
    QVERIFY(m_workstation->localSetting("persondb/params/1/key").isValid());
    QVERIFY(!m_workstation->localSetting("persondb/params/9/key").isValid());
    QVERIFY(!m_workstation->workingSetting("persondb/params/9/key").isValid());
    QVERIFY(!QDir(m_workstation->dataDirectory() + QStringLiteral("tmp_ini")).exists());

    const QString viewer = QStringLiteral("Corvane Audit Trail Viewer");
    const auto query = [this](const char *direction) {
        const QString statement =
            QStringLiteral("SELECT timestamp_action, category, action_level, action, action_type, operator, "
                           "operator_name, system, database_key, info, target_database, target_server FROM "
                           "action_log ORDER BY timestamp_action ");
        return Event{Actions::SearchAuditTrail, Actions::Human, statement + QLatin1String(direction),
                     QStringLiteral("actiondb"), m_workstation->actionLog()};
    };
    const QVector<Event> expected = {
        ownEvent(Actions::Started, kConsole),
        ownEvent(Actions::Login, kConsole),
        ownEvent(Actions::Started, kSettings),
        ownEvent(Actions::LoadSettings, kLoad),
        ownEvent(Actions::SaveSettings, kSave),
        ownEvent(Actions::Stopping, kSettings),
        ownEvent(Actions::Started, viewer),
        query("ASC;"),
        query("DESC;"),
        noConnection(),
        ownEvent(Actions::Stopping, viewer),
        ownEvent(Actions::Logout, kConsole),
        ownEvent(Actions::Stopping, kConsole),
    };
    const QVector<Event> events = m_workstation->recorded();
    QVERIFY2(events == expected, describe(events).constData());
    QCOMPARE(m_workstation->wrongColumns(begin, m_userId, m_userName), QString());

    const QStringList lines = {
        QStringLiteral("INF ??: centralelement::CentralElement::CentralElement Started."),
        QStringLiteral("INF ??: centralelement::CentralElement::start Initialized."),
        QStringLiteral("INF ??: loginview_signin::LoginView::finishLogin Logged in."),
        QStringLiteral("INF ??: centralelement::CentralElement::~CentralElement Stopping."),
    };
    QCOMPARE(m_workstation->logLines(), lines);
}

void TestRoad::settingsAreSavedByTheEndOfTheProgramWithTheKeyboardAlone()
{
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kHisSystem).toInt(), 1);
    const QDateTime begin = QDateTime::currentDateTimeUtc();
    const Output walk = m_workstation->drive(QStringLiteral("autosave.py"), QStringLiteral("autosave"));
    QVERIFY2(walk.exitCode == 0, walk.text.constData());

    QCOMPARE(m_workstation->localSetting(SettingsKeys::kHisSystem).toInt(), 3);
    QCOMPARE(m_workstation->workingSetting(SettingsKeys::kHisSystem).toInt(), 3);
    QCOMPARE(m_workstation->cacheSetting(LocalCache::kLocalSave), QVariant("true"));
    QCOMPARE(m_workstation->cacheSetting(LocalCache::kAutosaveInfo), QVariant("false"));

    const QVector<Event> begun = {ownEvent(Actions::Started, kConsole), ownEvent(Actions::Login, kConsole),
                                  ownEvent(Actions::Started, kSettings)};
    const QVector<Event> left = {noConnection(), ownEvent(Actions::Stopping, kSettings)};
    const Event saved = ownEvent(Actions::SaveSettings, kSave, Actions::Automatic);
    const QVector<Event> ended = {ownEvent(Actions::Logout, kConsole), ownEvent(Actions::Stopping, kConsole)};
    QVector<Event> expected;
    for (int run = 0; run < 2; ++run)
        expected << begun << ownEvent(Actions::LoadSettings, kLoad) << left << saved << ended;
    expected << begun << left << ended;  // without a load there is nothing to save
    const QVector<Event> events = m_workstation->recorded();
    QVERIFY2(events == expected, describe(events).constData());
    QCOMPARE(m_workstation->wrongColumns(begin, m_userId, m_userName), QString());
}

void TestRoad::anotherAdministratorSignsInWithAPassword()
{
    if (geteuid() != 0)
        QSKIP("Making an account needs root rights.");
    const Output signIn =
        m_workstation->drive(QStringLiteral("othersignin.py"), QStringLiteral("othersignin"));
    QVERIFY2(signIn.exitCode == 0, signIn.text.constData());

    const QVector<Event> expected = {ownEvent(Actions::Started, kConsole), ownEvent(Actions::Login, kConsole),
                                     noConnection(), ownEvent(Actions::Logout, kConsole),
                                     ownEvent(Actions::Stopping, kConsole)};
    const QVector<Event> events = m_workstation->recorded();
    QVERIFY2(events == expected, describe(events).constData());
    QVERIFY(!m_workstation->runtimeLog().contains("corvane-e2e-secret"));
}

void TestRoad::theWindowStaysLightOnADarkDesktop()
{
    const Output walk = m_workstation->drive(QStringLiteral("darkdesktop.py"), QStringLiteral("dark"));
    QVERIFY2(walk.exitCode == 0, walk.text.constData());
}

void TestRoad::operatorsSignInByEveryWayOnTheDemonstrationWorkstation()
{
    QVERIFY(m_workstation->makeSite());
    const int before = m_workstation->recorded().size();  // of two years
    const Output signIns = m_workstation->drive(QStringLiteral("signins.py"), QStringLiteral("signins"));
    QVERIFY2(signIns.exitCode == 0, signIns.text.constData());

    int signedIn = 0;
    const QVector<Event> events = m_workstation->recorded().mid(before);
    for (const Event &event : events)
        signedIn += event.action == Actions::Login ? 1 : 0;
    QCOMPARE(signedIn, 5);  // four, and the refused one
}

void TestRoad::aRoleAndAUserAreAddedWithTheKeyboardAloneAndTheUserMayDoWhatTheRoleAllows()
{
    QVERIFY(m_workstation->makeSite());
    const int before = m_workstation->recorded().size();
    const Output newUser = m_workstation->drive(QStringLiteral("newuser.py"), QStringLiteral("newuser"));
    QVERIFY2(newUser.exitCode == 0, newUser.text.constData());

    const QVector<Event> events = m_workstation->recorded().mid(before);
    QMap<int, int> counts;
    bool isUserAdded = false;
    for (const Event &event : events) {
        ++counts[event.action];
        isUserAdded = isUserAdded || (event.action == Actions::AddOperator && event.type == Actions::Human &&
                                      event.info == kConsole);
    }
    QCOMPARE(counts.value(Actions::Login), 2);
    QCOMPARE(counts.value(Actions::AddRole), 1);
    QCOMPARE(counts.value(Actions::ModifyRole), 1);   // its rights
    QCOMPARE(counts.value(Actions::AddOperator), 2);  // the new user, and then its role
    QVERIFY2(isUserAdded, describe(events).constData());
    QVERIFY(!m_workstation->runtimeLog().contains("radium-1898"));
}

void TestRoad::aChangedSettingIsDistributedAndLoadedBack()
{
    QVERIFY(m_workstation->makeSite());
    const QVariant language = m_workstation->localSetting(SettingsKeys::kLanguage);
    const int before = m_workstation->recorded().size();
    const Output round = m_workstation->drive(QStringLiteral("settingsround.py"), QStringLiteral("round"));
    QVERIFY2(round.exitCode == 0, round.text.constData());

    // The site has one configuration, which is the active one, and this workstation works with its settings.
    const QString site = m_workstation->dataDirectory() + QStringLiteral("site.db");
    QCOMPARE(rowsOf(site, QStringLiteral("SELECT id || ' ' || active || ' ' || notes FROM configurations")),
             QStringList{QStringLiteral("1 1 Dates as YYYY-MM-DD from now on")});
    QCOMPARE(m_workstation->workingSetting(SettingsKeys::kDateFormat).toInt(), 2);
    QCOMPARE(m_workstation->workingSetting(SettingsKeys::kLanguage), language);
    QVERIFY(!m_workstation->workingSetting(SettingsKeys::kGeometry).isValid());
    // The local application takes it at its next start, not from here.
    QCOMPARE(m_workstation->localSetting(SettingsKeys::kDateFormat).toInt(), 0);

    const QVector<Event> expected = {
        ownEvent(Actions::Started, kConsole),
        ownEvent(Actions::Login, kConsole),
        ownEvent(Actions::Started, kSettings),
        ownEvent(Actions::LoadSettings, kLoad),
        noConnection(),
        ownEvent(Actions::Stopping, kSettings),
        ownEvent(Actions::Logout, kConsole),
        ownEvent(Actions::Stopping, kConsole),
    };
    const QVector<Event> events = m_workstation->recorded().mid(before);
    QVERIFY2(events == expected, describe(events).constData());
}

QTEST_GUILESS_MAIN(TestRoad)
#include "test_road.moc"
