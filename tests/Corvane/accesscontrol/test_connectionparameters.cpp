#include "Corvane/accesscontrol/handlerfixture.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "support/messageboxes.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSettings>
#include <QTest>

/// Where the parameters of the access connection come from, and where they go.
class TestConnectionParameters : public HandlerFixture
{
    Q_OBJECT

private slots:
    void theLastUsedParametersComeFirst();
    void theWorkingSettingsComeSecond();
    void theMachineWideSettingsComeThird();
    void withoutAnySourceTheTimeoutsAreThere();
    void theOfflineChoiceIsReadWhicheverSourceWins();
    void theParametersLastUsedAreWrittenAtTheEnd();
    void aFileWithoutAUsernameLeavesTheCredentialsEmpty();
    void credentialsNeverReachTheDisk();
    void aDamagedLocalCacheIsReadAsFarAsItGoes();
};

void TestConnectionParameters::theLastUsedParametersComeFirst()
{
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    QSettings(m_workstation.localApplicationSettings(), QSettings::IniFormat)
        .setValue(text("supportdb/params/size"), 0);
    writeLocalCache({{text("A"), text("1")}, {text("Name"), QString::fromUtf8("Käyttöoikeudet 访问")}},
                    {text("SQL_ATTR_LOGIN_TIMEOUT=7")});
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"),
             (QStringList{text("A=1"), QString::fromUtf8("Name=Käyttöoikeudet 访问")}));
    QCOMPARE(shownRows("connection_parameter_"), QStringList{text("SQL_ATTR_LOGIN_TIMEOUT=7")});
    QCOMPARE(m_handler->sqlType().toUInt(), 2u);
    QCOMPARE(m_handler->dataPath(), m_workstation.dataDirectory());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_actions->size(), 0);
}

void TestConnectionParameters::theWorkingSettingsComeSecond()
{
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    store()->setValue(text("supportdb/sqltype"), 1);
    store()->setSafeValue(text("supportdb/username"), text("reader"));
    QSettings(m_workstation.localApplicationSettings(), QSettings::IniFormat)
        .setValue(text("supportdb/connectoptions"), QStringList{text("X=1")});
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("B=2")});
    QCOMPARE(shownRows("connection_parameter_"), kDefaultOptions);
    QCOMPARE(m_handler->sqlType().toUInt(), 1u);
    QCOMPARE(shownRows("username_edit"), QStringList());
}

void TestConnectionParameters::theMachineWideSettingsComeThird()
{
    {
        QSettings machine(m_workstation.localApplicationSettings(), QSettings::IniFormat);
        machine.setValue(text("supportdb/params/1/key"), text("C"));
        machine.setValue(text("supportdb/params/1/value"), text("3"));
        machine.setValue(text("supportdb/params/size"), 1);
        machine.setValue(text("supportdb/connectoptions"), QStringList{text("X=1"), text("Y=2")});
        machine.setValue(text("supportdb/sqltype"), 1);
    }
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("C=3")});
    QCOMPARE(shownRows("connection_parameter_"), (QStringList{text("X=1"), text("Y=2")}));
    QCOMPARE(m_handler->sqlType().toUInt(), 1u);
}

void TestConnectionParameters::withoutAnySourceTheTimeoutsAreThere()
{
    makeHandler();
    QCOMPARE(shownRows("connection_setting_"), QStringList());
    QCOMPARE(shownRows("connection_parameter_"), kDefaultOptions);
}

void TestConnectionParameters::theOfflineChoiceIsReadWhicheverSourceWins()
{
    {
        QSettings cache(localCache(), QSettings::IniFormat);
        cache.setValue(text("supportdb_offline/location"), text("/srv/offline.access.db"));
        cache.setValue(text("supportdb_offline/online_mode"), false);
    }
    store()->setDatabaseSettings(text("supportdb"), {{text("params"), QVariantMap{{text("B"), text("2")}}}});
    makeHandler();
    m_handler->setOfflineAllowed(true);
    bool offline = false;
    QString location;
    DialogSteps steps({[&](QDialog &dialog) {
        auto *editor = dialog.findChild<DatabaseGroupSettings *>();
        offline = editor->isOffline();
        location = editor->offlineLocation();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(offline);
    QCOMPARE(location, text("/srv/offline.access.db"));
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("B=2")});
}

void TestConnectionParameters::theParametersLastUsedAreWrittenAtTheEnd()
{
    writeLocalCache({{text("A"), text("1")}, {text("B"), text("2")}, {text("C"), text("3")}});
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString file = makeDatabase(text("written"));
    MessageBoxes boxes;
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "connection_setting_1")->setText(text("Driver=SQLite3"));
        find<QLineEdit>(dialog, "connection_setting_2")->setText(text("Database=") + file);
        find<QLineEdit>(dialog, "connection_setting_3")->clear();
        find<QLineEdit>(dialog, "connection_parameter_2")->setText(text("SQL_ATTR_CONNECTION_TIMEOUT=9"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    m_handler.reset();

    QSettings cache(localCache(), QSettings::IniFormat);
    QCOMPARE(cache.value(text("supportdb_online/params/size")).toInt(), 2);
    QCOMPARE(cache.value(text("supportdb_online/params/1/key")).toString(), text("Database"));
    QCOMPARE(cache.value(text("supportdb_online/params/1/value")).toString(), file);
    QCOMPARE(cache.value(text("supportdb_online/params/2/key")).toString(), text("Driver"));
    QVERIFY(!cache.contains(text("supportdb_online/params/3/key")));
    QCOMPARE(cache.value(text("supportdb_online/connectoptions")).toStringList(),
             (QStringList{kDefaultOptions.first(), text("SQL_ATTR_CONNECTION_TIMEOUT=9")}));
    QVERIFY(cache.contains(text("supportdb_online/driverparams")));
    QCOMPARE(cache.value(text("supportdb_online/sqltype")).toInt(), 2);
    QCOMPARE(cache.value(text("supportdb_offline/online_mode")).toBool(), true);
    QVERIFY(cache.contains(text("supportdb_offline/location")));
}

void TestConnectionParameters::aFileWithoutAUsernameLeavesTheCredentialsEmpty()
{
    writeLocalCache(sqlite(makeDatabase(text("plain"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(m_handler->database()->userName(), QString());
}

void TestConnectionParameters::credentialsNeverReachTheDisk()
{
    writeLocalCache(sqlite(makeDatabase(text("secret"))));
    makeHandler();
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "username_edit")->setText(text("marjatta"));
        find<QLineEdit>(dialog, "password_edit")->setText(text("kolme-sanaa"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    m_handler->connectOnline();
    QCOMPARE(m_handler->database()->userName(), text("marjatta"));
    m_handler.reset();
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));

    QVERIFY(readFile(localCache()).contains("supportdb_online"));
    QDirIterator files(m_workstation.path(QString()), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QByteArray bytes = readFile(files.next());
        QVERIFY2(!bytes.contains("marjatta") && !bytes.contains("kolme-sanaa"), qPrintable(files.filePath()));
    }
    for (const Event &event : events())
        QVERIFY(!event.database.contains(text("kolme-sanaa")));
}

void TestConnectionParameters::aDamagedLocalCacheIsReadAsFarAsItGoes()
{
    QVERIFY(writeFile(localCache(), "[supportdb_online]\nparams\\size=999999999\nparams\\2\\key=A\n"
                                    "params\\2\\value=1\nparams\\x\\key=B\nconnectoptions=@Variant(\\0\\0)\n"
                                    "\xff\xfe garbage\nsqltype=many\n"));
    QElapsedTimer time;
    time.start();
    makeHandler();
    QVERIFY(time.elapsed() < 5000);
    QCOMPARE(shownRows("connection_setting_"), QStringList{text("A=1")});
    QCOMPARE(m_handler->sqlType().toUInt(), 0u);
    QVERIFY(!m_handler->connectOnline());
}

QTEST_MAIN(TestConnectionParameters)
#include "test_connectionparameters.moc"
