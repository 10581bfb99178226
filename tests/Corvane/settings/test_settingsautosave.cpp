#include "settingsbench.h"
#include "settingstest.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kNotice = QStringLiteral(
    "Autosaving settings to local application settings file. This message is only shown once.");

/// Two keys that differ in the file and are one when they are written: a file like this can't be copied
/// whole.
const QByteArray kCollapsingKeys = "[odd]\nb=1\n\\b=2\n\\\\b=3\n";

QAction *action(SettingsView &view, const char *name)
{
    return child<QAction>(view, name);
}

AuditEvent saved(Actions::ActionType type = Actions::Human)
{
    return settingsEvent(Actions::SaveSettings, QStringLiteral("Corvane Settings Local Save"), type);
}

AuditEvent loaded()
{
    return settingsEvent(Actions::LoadSettings, QStringLiteral("Corvane Settings Local Load"));
}

}  // namespace

/// The autosave at exit: the view is destroyed as the program's end does.
class TestSettingsAutosave : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theAutosaveIsSwitchedInTheCache();
    void aSwitchThatCannotBeKeptStaysWhereItWas();
    void theNoticeComesOnceAtTheFirstExit();
    void switchingOnAndOffLeavesTheNoticeForLater();
    void theTickFollowsTheCacheAndSwitchesNothing();
    void closingBeforeAnySourceSavesNothing();
    void withTheAutosaveOffClosingSavesNothing();
    void aSilentSaveShowsNoBoxWhateverHappens_data();
    void aSilentSaveShowsNoBoxWhateverHappens();

private:
    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsAutosave::init()
{
    m_files.reset();
}

void TestSettingsAutosave::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
}

void TestSettingsAutosave::theAutosaveIsSwitchedInTheCache()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.choose("local_menu", "autosave_action");
    QVERIFY(action(bench.view(), "autosave_action")->isChecked());
    QCOMPARE(m_files.cacheValue("localsave"), QVariant("true"));
    QCOMPARE(m_files.cacheValue("autosaveinfo"), QVariant("true"));
    bench.choose("local_menu", "autosave_action");
    QCOMPARE(m_files.cacheValue("localsave"), QVariant("false"));
}

void TestSettingsAutosave::aSwitchThatCannotBeKeptStaysWhereItWas()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    QVERIFY(QDir().mkpath(m_files.cache()));  // a directory in the place of the file
    bench.choose("local_menu", "autosave_action");
    QVERIFY(!action(bench.view(), "autosave_action")->isChecked());
    MessageBoxes boxes;
    bench.close();
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!QFile::exists(m_files.local()));
}

void TestSettingsAutosave::theNoticeComesOnceAtTheFirstExit()
{
    MessageBoxes boxes;
    {
        SettingsBench bench(m_workstation, kAllRights);
        bench.choose("local_menu", "load_action");
        bench.choose("local_menu", "autosave_action");
        QVERIFY(boxes.seen().isEmpty());
        bench.takeEvents();
        child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
        bench.close();
        QCOMPARE(boxes.seen().size(), 1);
        QCOMPARE(boxes.seen().first().text, kNotice);
        QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
        QCOMPARE(bench.takeEvents(), QList<AuditEvent>{saved(Actions::Automatic)});
        QCOMPARE(m_files.localValue("ui/measurement_units").toInt(), 1);
        QCOMPARE(m_files.cacheValue("autosaveinfo"), QVariant("false"));
    }
    SettingsBench next(m_workstation, kAllRights);
    next.choose("local_menu", "load_action");
    child<QComboBox>(next.view(), "measurement_units")->setCurrentIndex(0);
    next.close();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(m_files.localValue("ui/measurement_units").toInt(), 0);
}

void TestSettingsAutosave::switchingOnAndOffLeavesTheNoticeForLater()
{
    MessageBoxes boxes;
    {
        SettingsBench bench(m_workstation, kAllRights);
        bench.choose("local_menu", "load_action");
        bench.choose("local_menu", "autosave_action");
        bench.choose("local_menu", "autosave_action");
        QCOMPARE(m_files.cacheValue("autosaveinfo"), QVariant("true"));
        bench.close();
        QVERIFY(boxes.seen().isEmpty());
        QCOMPARE(m_files.cacheValue("autosaveinfo"), QVariant("true"));
    }
    SettingsBench next(m_workstation, kAllRights);
    next.choose("local_menu", "load_action");
    next.choose("local_menu", "autosave_action");
    next.close();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kNotice);
}

void TestSettingsAutosave::theTickFollowsTheCacheAndSwitchesNothing()
{
    QVERIFY(writeFile(m_files.cache(), "[General]\nlocalsave=true\n"));
    SettingsBench bench(m_workstation, kAllRights);
    QVERIFY(action(bench.view(), "autosave_action")->isChecked());
    QVERIFY(!m_files.cacheValue("autosaveinfo").isValid());
}

void TestSettingsAutosave::closingBeforeAnySourceSavesNothing()
{
    QVERIFY(writeFile(m_files.cache(), "[General]\nlocalsave=true\nautosaveinfo=true\n"));
    MessageBoxes boxes;
    SettingsBench bench(m_workstation, kAllRights);
    bench.close();
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!QFile::exists(m_files.local()));
    QCOMPARE(m_files.cacheValue("autosaveinfo"), QVariant("true"));
}

void TestSettingsAutosave::withTheAutosaveOffClosingSavesNothing()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    bench.close();
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!QFile::exists(m_files.local()));
    QVERIFY(!m_files.workingKeys().contains("ui/measurement_units"));
}

void TestSettingsAutosave::aSilentSaveShowsNoBoxWhateverHappens_data()
{
    QTest::addColumn<QString>("trouble");
    QTest::addColumn<int>("rights");
    QTest::addColumn<QList<AuditEvent>>("events");
    const AuditEvent automatic = saved(Actions::Automatic);
    QTest::newRow("a note is due") << "" << 0 << QList<AuditEvent>{automatic, loaded()};
    QTest::newRow("the local settings are not writable")
        << "directory" << kAllRights
        << QList<AuditEvent>{settingsError(Actions::SaveSettings, 0x14200002, "Settings are not writable")};
    QTest::newRow("not all settings were saved")
        << "collapsing" << kAllRights
        << QList<AuditEvent>{automatic,
                             settingsError(Actions::SaveSettings, 0x14100000, "Not all settings were saved")};
    QTest::newRow("not all settings were loaded afterwards")
        << "odd local" << (kAllRights & ~WriteLocalDbSettings)
        << QList<AuditEvent>{
               automatic, loaded(),
               settingsError(Actions::LoadSettings, 0x14100000, "Not all settings were loaded")};
}

void TestSettingsAutosave::aSilentSaveShowsNoBoxWhateverHappens()
{
    QFETCH(QString, trouble);
    QFETCH(int, rights);
    QFETCH(QList<AuditEvent>, events);
    QVERIFY(writeFile(m_files.cache(), "[General]\nlocalsave=true\n"));
    if (trouble == QLatin1String("collapsing")) {
        store()->changeSettingsFile(m_workstation.path("aside.ini"));
        QVERIFY(writeFile(m_files.working(), kCollapsingKeys));
        store()->changeSettingsFile(m_files.working());
    }
    SettingsBench bench(m_workstation, rights);
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    if (trouble == QLatin1String("directory"))
        QVERIFY(QDir().mkpath(m_files.local()));
    if (trouble == QLatin1String("odd local"))
        QVERIFY(writeFile(m_files.local(), kCollapsingKeys));

    MessageBoxes boxes;
    bench.close();
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(bench.takeEvents(), events);
}

Q_DECLARE_METATYPE(AuditEvent)

QTEST_MAIN(TestSettingsAutosave)
#include "test_settingsautosave.moc"
