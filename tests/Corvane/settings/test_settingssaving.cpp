#include "settingsbench.h"
#include "settingstest.h"
#include "support/messageboxes.h"
#include "support/ordinaryuser.h"

#include <QColor>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QKeySequence>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QRect>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kNoDatabaseNote = QStringLiteral(" Lacking privileges to save database settings.");
const QString kNoAuditNote = QStringLiteral(" Lacking privileges to save local audit trail settings.");
const QString kNoAccessNote = QStringLiteral(" Lacking privileges to save local access control settings.");

/// Two keys that differ in the file and are one when they are written: a file like this can't be copied
/// whole.
const QByteArray kCollapsingKeys = "[odd]\nb=1\n\\b=2\n\\\\b=3\n";

AuditEvent saved(Actions::ActionType type = Actions::Human)
{
    return settingsEvent(Actions::SaveSettings, QStringLiteral("Corvane Settings Local Save"), type);
}

AuditEvent loaded()
{
    return settingsEvent(Actions::LoadSettings, QStringLiteral("Corvane Settings Local Load"));
}

QString leftPane(const DiffView &dialog)
{
    return child<QPlainTextEdit>(dialog, "left_pane")->toPlainText();
}

}  // namespace

/// Saving to the local application settings on the workbench's real menus and message boxes.
class TestSettingsSaving : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void savingCopiesEverythingAndKeepsForeignKeys();
    void valuesOfEveryKindThatAnotherProgramKeepsSurvive();
    void workstationKeysNeverReachTheLocalApplication();
    void staleParametersAreRemovedFromTheLocalSettingsToo();
    void missingRightsAreNoted_data();
    void missingRightsAreNoted();
    void withoutTheDatabaseRightTheLocalGroupsStayAndComeBackIntoThePages();
    void unwritableLocalSettingsAreTold();
    void unwritableLocalSettingsAndAMissingRightReadThemAgain();
    void notAllSettingsSavedIsTold();

private:
    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsSaving::init()
{
    m_files.reset();
}

void TestSettingsSaving::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
}

void TestSettingsSaving::savingCopiesEverythingAndKeepsForeignKeys()
{
    m_files.setLocal({{"application/language", "sv"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    m_files.setLocal({{"other/program", "kept"}});
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    store()->setSafeValue(QStringLiteral("accesscontrol/method"), QStringLiteral("none"));

    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Saving succeeded."));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::NoIcon);
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{saved()});
    QCOMPARE(m_files.localValue("ui/measurement_units").toInt(), 1);
    QCOMPARE(m_files.localValue("other/program").toString(), QStringLiteral("kept"));
    for (const QString &key : m_files.workingKeys())
        QCOMPARE(m_files.localValue(qPrintable(key)), store()->generalSettings()->value(key));
    QVERIFY(m_files.localKeys().contains("accesscontrol/method"));
}

void TestSettingsSaving::valuesOfEveryKindThatAnotherProgramKeepsSurvive()
{
    const QMap<QString, QVariant> values = {
        {"other/font", QFont("Sans", 12, QFont::Bold, true)},
        {"other/keys", QKeySequence(Qt::CTRL | Qt::Key_K, Qt::Key_S)},
        {"other/color", QColor(1, 2, 3)},
        {"other/language", QLocale("fi_FI")},
        {"other/place", QRect(1, 2, 3, 4)},
        {"other/time", QDateTime(QDate(2024, 2, 29), QTime(8, 15), Qt::UTC)}};
    m_files.setLocal(values);
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.seeChanges([](DiffView &dialog) { QVERIFY(!leftPane(dialog).contains("other/")); });
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded."));
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        QCOMPARE(m_files.localValue(qPrintable(value.key())), *value);
        QCOMPARE(m_files.workingValue(qPrintable(value.key())), *value);
    }
    const QFileInfo local(m_files.local());
    QCOMPARE(local.dir().entryList({"*.kept"}), QStringList());
}

void TestSettingsSaving::workstationKeysNeverReachTheLocalApplication()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    setStored("ui/geometry", "here");
    store()->setSafeValue(QStringLiteral("accesscontrol/defaultrights"), 7);
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QVERIFY(!m_files.localKeys().contains("ui/geometry"));
    QVERIFY(!m_files.localKeys().contains("accesscontrol/defaultrights"));
    QVERIFY(m_files.localKeys().contains("ui/default_geometry"));
}

void TestSettingsSaving::staleParametersAreRemovedFromTheLocalSettingsToo()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    store()->setDatabaseSettings(QStringLiteral("studydb"), {{"params", QVariantMap{{"A", "1"}}}});
    m_files.setLocal({{"studydb/params/2/key", "B"}, {"studydb/params/2/value", "2"}});
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded."));
    QCOMPARE(m_files.localValue("studydb/params/1/key").toString(), QStringLiteral("A"));
    QVERIFY(!m_files.localKeys().contains("studydb/params/2/key"));
    QCOMPARE(m_files.localValue("studydb/params/size").toInt(), 1);
}

void TestSettingsSaving::missingRightsAreNoted_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<QString>("text");
    const QString done = QStringLiteral("Saving succeeded.");
    QTest::newRow("all rights, no note") << kAllRights << done;
    QTest::newRow("without right 2") << (kAllRights & ~2) << done + kNoDatabaseNote;
    QTest::newRow("without right 4") << (kAllRights & ~4) << done + kNoAuditNote;
    QTest::newRow("without right 1") << (kAllRights & ~1) << done + kNoAccessNote;
    QTest::newRow("without any") << 0 << done + kNoDatabaseNote + kNoAuditNote + kNoAccessNote;
}

void TestSettingsSaving::missingRightsAreNoted()
{
    QFETCH(int, rights);
    QFETCH(QString, text);
    SettingsBench bench(m_workstation, rights);
    bench.choose("local_menu", "load_action");
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, text);
}

void TestSettingsSaving::withoutTheDatabaseRightTheLocalGroupsStayAndComeBackIntoThePages()
{
    store()->setSafeValue(QStringLiteral("persondb/username"), QStringLiteral("local_user"));
    const QVariant safeForm = store()->generalSettings()->value("persondb/username");
    const QMap<QString, QVariant> groups = {{"persondb/username", safeForm},
                                            {"persondb/params/size", 1},
                                            {"persondb/params/1/key", "Server"},
                                            {"persondb/params/1/value", "db.example"},
                                            {"actiondb/sqltype", 2}};
    m_files.setLocal(groups);
    SettingsBench bench(m_workstation, kAllRights & ~WriteLocalDbSettings);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    setStored("persondb/params/1/value", "other.example");
    setStored("supportdb/sqltype", 1);
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);

    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded.") + kNoDatabaseNote);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({saved(), loaded()}));
    for (auto group = groups.cbegin(); group != groups.cend(); ++group)
        QCOMPARE(m_files.localValue(qPrintable(group.key())).toString(), group->toString());
    QVERIFY(!m_files.localKeys().contains("supportdb/sqltype"));
    QCOMPARE(m_files.localValue("ui/measurement_units").toInt(), 1);

    QCOMPARE(m_files.workingValue("persondb/params/1/value").toString(), QStringLiteral("db.example"));
    QCOMPARE(child<QLineEdit>(bench.view(), "username_edit")->text(), QStringLiteral("local_user"));
    QCOMPARE(child<QLineEdit>(bench.view(), "connection_setting_1")->text(),
             QStringLiteral("Server=db.example"));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
}

void TestSettingsSaving::unwritableLocalSettingsAreTold()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    QVERIFY(QDir().mkpath(m_files.local()));  // a directory in the place of the file
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);

    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error: Cannot write to local settings file."));
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(Actions::SaveSettings, 0x14200002,
                                             QStringLiteral("Settings are not writable"))});
    // Nothing was saved, not even into the working settings.
    QVERIFY(!m_files.workingKeys().contains("ui/measurement_units"));
}

void TestSettingsSaving::unwritableLocalSettingsAndAMissingRightReadThemAgain()
{
    m_files.setLocal({{"ui/measurement_units", 1}});
    SettingsBench bench(m_workstation, 0);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(0);
    // An ordinary user may read the local settings, and write nothing but the working ones.
    const QString folder = QFileInfo(m_files.local()).path();
    for (const QString &path : {m_workstation.path(QString()), m_workstation.dataDirectory()})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_files.working(), QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(m_files.local(), QFile::Permissions(0x4444)));
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    MessageBoxes boxes;
    {
        const OrdinaryUser user;
        bench.choose("local_menu", "save_action");
    }
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7755)));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error: Cannot write to local settings file.") +
                                            kNoDatabaseNote + kNoAuditNote + kNoAccessNote);
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>({settingsError(Actions::SaveSettings, 0x14200002,
                                              QStringLiteral("Settings are not writable")),
                                loaded()}));
}

void TestSettingsSaving::notAllSettingsSavedIsTold()
{
    store()->changeSettingsFile(m_workstation.path("aside.ini"));
    QVERIFY(writeFile(m_files.working(), kCollapsingKeys));
    store()->changeSettingsFile(m_files.working());
    SettingsBench bench(m_workstation, kAllRights & ~AuditTrailManagement);
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    QVERIFY(m_files.workingKeys().contains("odd//b"));
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error: Not all settings were saved.") + kNoAuditNote);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({saved(), settingsError(Actions::SaveSettings, 0x14100000,
                                                                           "Not all settings were saved")}));
    // What was copied stays.
    QVERIFY(m_files.localKeys().contains("odd/b"));
    QVERIFY(m_files.localKeys().contains("ui/measurement_units"));
}

QTEST_MAIN(TestSettingsSaving)
#include "test_settingssaving.moc"
