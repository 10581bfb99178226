#include "settingsbench.h"
#include "settingstest.h"
#include "support/messageboxes.h"
#include "support/ordinaryuser.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>

#include <functional>

using namespace SettingsTest;

namespace {

/// Two keys that differ in the file and are one when they are written: a file like this can't be copied
/// whole.
const QByteArray kCollapsingKeys = "[odd]\nb=1\n\\b=2\n\\\\b=3\n";

/// Something that befalls a file.
using Mishap = std::function<void(const QString &file)>;

QAction *action(SettingsView &view, const char *name)
{
    return child<QAction>(view, name);
}

QTabWidget *tabs(SettingsView &view)
{
    return child<QTabWidget>(view, "settings_tabs");
}

AuditEvent loaded()
{
    return settingsEvent(Actions::LoadSettings, QStringLiteral("Corvane Settings Local Load"));
}

QString leftPane(const DiffView &dialog)
{
    return child<QPlainTextEdit>(dialog, "left_pane")->toPlainText();
}

QString rightPane(const DiffView &dialog)
{
    return child<QPlainTextEdit>(dialog, "right_pane")->toPlainText();
}

}  // namespace

/// The workbench on its real menus, tabs and message boxes: construction and loading.
class TestSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutRightsTheViewIsAnEmptyBox();
    void afterSignInThePromptAndTheMenusAreThere();
    void theTabsStandInTheirOrder();
    void actionsAtTheStartAndAfterALoad_data();
    void actionsAtTheStartAndAfterALoad();
    void whatMustNotTravelIsRemovedAtSignIn();
    void staleParametersAreRemoved();
    void loadingReplacesTheWorkingSettingsAndShowsTheTabs();
    void loadingIsWholesaleAlsoOnDisk();
    void loadingIsWholesaleWhereTheFormerFileCannotBeMovedAside();
    void aStuckTemporaryFileGetsAFreshName();
    void notAllSettingsLoadedIsToldAndTheTabsAreShown();
    void anInvalidValueIsSkippedInTheSnapshotAndLogged();
    void loadingALocalFileThatIsNotThereGivesEmptySettings();
    void loadingALocalFileThatCannotBeReadIsToldAndIsNoLoad_data();
    void loadingALocalFileThatCannotBeReadIsToldAndIsNoLoad();
    void aLocalFileThatCannotBeReadLeavesTheLoadedSettingsAsTheyAre();

private:
    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsView::init()
{
    m_files.reset();
}

void TestSettingsView::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
}

void TestSettingsView::withoutRightsTheViewIsAnEmptyBox()
{
    SettingsView view(m_workstation.dataDirectory(), nullptr);
    QVERIFY(view.children().size() == 1 && view.layout() && view.layout()->count() == 0);
    QCOMPARE(view.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    view.setAccessControl(nullptr);
    QCOMPARE(view.layout()->count(), 0);
    QVERIFY(QMetaObject::invokeMethod(&view, "showSettings"));
    view.updateTexts();
}

void TestSettingsView::afterSignInThePromptAndTheMenusAreThere()
{
    SettingsBench bench(m_workstation, kAllRights);
    SettingsView &view = bench.view();
    const auto *prompt = child<QLabel>(view, "settings_prompt");
    QCOMPARE(prompt->text(), QStringLiteral("Select settings source from menu below"));
    QVERIFY(prompt->isVisible());
    QVERIFY(tabs(view)->isHidden());
    QCOMPARE(tabs(view)->minimumSize(), QSize(765, 490));
    QCOMPARE(tabs(view)->styleSheet(), QStringLiteral("QTabBar::tab { height: 35px; }"));

    auto *bar = child<QMenuBar>(view, "settings_menus");
    QVERIFY(bar->isDefaultUp());
    QCOMPARE(bar->styleSheet(),
             QStringLiteral("QMenuBar { border: none; }"
                            "QMenuBar::item { background: white; padding: 3px; border: groove; "
                            "border-radius: 4px; border-width: 2px; border-color: darkgray; "
                            "margin-right: 15px; }"
                            "QMenuBar::item:selected { padding: 3px; border: groove; border-radius: 4px; "
                            "border-width: 3px; border-color: darkgray; margin-right: 15px; }"
                            "QMenuBar::item:pressed { padding: 3px; border: inset; border-radius: 4px; "
                            "border-width: 2px; border-color: darkgray; margin-right: 15px; }"));
    QList<QStringList> menus;
    for (const QAction *menu : bar->actions()) {
        QStringList texts{menu->text()};
        for (const QAction *entry : menu->menu()->actions())
            texts.append(entry->text());
        menus.append(texts);
    }
    const QList<QStringList> expected = {
        {"Manage local application", "Enable autosaving to local application",
         "Save settings to local application", "Load settings from local application"},
        {"Manage online configurations", "See changes made in settings", "Manage settings configurations",
         "Distribute settings"},
        {"Transfer settings", "Import settings", "Export settings"}};
    QCOMPARE(menus, expected);
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestSettingsView::theTabsStandInTheirOrder()
{
    SettingsBench bench(m_workstation, kAllRights);
    QStringList shown;
    for (int i = 0; i < tabs(bench.view())->count(); ++i)
        shown.append(tabs(bench.view())->tabText(i));
    const QStringList expected = {"General",       "Database",     "Search",
                                  "Person fields", "Study fields", "Access control and\nAudit trail"};
    QCOMPARE(shown, expected);
    QCOMPARE(tabs(bench.view())->currentIndex(), 0);
}

void TestSettingsView::actionsAtTheStartAndAfterALoad_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<bool>("manage");
    QTest::addColumn<bool>("distribute");
    QTest::newRow("all rights") << kAllRights << true << true;
    QTest::newRow("no rights") << 0 << false << false;
    QTest::newRow("without right 16 distributing stays disabled") << (kAllRights & ~16) << true << false;
    QTest::newRow("without right 32 managing stays disabled") << (kAllRights & ~32) << false << true;
}

void TestSettingsView::actionsAtTheStartAndAfterALoad()
{
    QFETCH(int, rights);
    QFETCH(bool, manage);
    QFETCH(bool, distribute);
    SettingsBench bench(m_workstation, rights);
    SettingsView &view = bench.view();
    const auto enabled = [&view] {
        QList<bool> states;
        for (const char *name : {"autosave_action", "save_action", "load_action", "diff_action",
                                 "manage_action", "distribute_action", "import_action", "export_action"})
            states.append(action(view, name)->isEnabled());
        return states;
    };
    QVERIFY(action(view, "autosave_action")->isCheckable());
    QCOMPARE(enabled(), QList<bool>({false, false, true, false, manage, false, true, false}));
    QVERIFY(QMetaObject::invokeMethod(&view, "showSettings"));
    QCOMPARE(enabled(), QList<bool>({true, true, true, true, manage, distribute, true, true}));
    QVERIFY(child<QLabel>(view, "settings_prompt")->isHidden());
    QVERIFY(tabs(view)->isVisible());
}

void TestSettingsView::whatMustNotTravelIsRemovedAtSignIn()
{
    setStored("ui/geometry", "here");
    setStored("ui/default_geometry", 2);
    SettingsBench bench(m_workstation, kAllRights);
    QCOMPARE(m_files.workingKeys(), QStringList{"ui/default_geometry"});
}

void TestSettingsView::staleParametersAreRemoved()
{
    setStored("persondb/params/size", 2);
    setStored("persondb/params/2/key", "stays");
    setStored("persondb/params/3/key", "goes");
    setStored("persondb/params/3/value", "goes");
    SettingsBench bench(m_workstation, kAllRights);
    QCOMPARE(m_files.workingKeys(), QStringList({"persondb/params/2/key", "persondb/params/size"}));
    QCOMPARE(m_files.workingValue("persondb/params/size").toInt(), 2);
}

void TestSettingsView::loadingReplacesTheWorkingSettingsAndShowsTheTabs()
{
    setStored("application/language", "fi");
    setStored("site/own", "old");
    m_files.setLocal({{"application/language", "sv"}, {"ui/measurement_units", 1}, {"ui/geometry", "x"}});
    SettingsBench bench(m_workstation, kAllRights);
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("fi"));

    MessageBoxes boxes;
    bench.choose("local_menu", "load_action");
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{loaded()});
    QVERIFY(tabs(bench.view())->isVisible());
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("sv"));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    QCOMPARE(m_files.workingKeys(), QStringList({"application/language", "ui/measurement_units"}));
}

void TestSettingsView::loadingIsWholesaleAlsoOnDisk()
{
    setStored("site/own", "old");
    m_files.setLocal({{"application/language", "sv"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    store()->generalSettings()->sync();
    QCOMPARE(openSettingsFile(m_files.working())->allKeys(), QStringList{"application/language"});
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
}

void TestSettingsView::loadingIsWholesaleWhereTheFormerFileCannotBeMovedAside()
{
    setStored("site/own", "old");
    store()->generalSettings()->sync();
    QVERIFY(writeFile(m_files.temporaryDirectory(), "no directory"));
    m_files.setLocal({{"application/language", "sv"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    QCOMPARE(m_files.workingKeys(), QStringList{"application/language"});
    store()->generalSettings()->sync();
    QCOMPARE(openSettingsFile(m_files.working())->allKeys(), QStringList{"application/language"});
}

void TestSettingsView::aStuckTemporaryFileGetsAFreshName()
{
    // A directory with something in it can't be removed as a file.
    QVERIFY(writeFile(m_files.temporaryDirectory() + "/tmp_corvane.ini/stuck", "x"));
    QVERIFY(writeFile(m_files.temporaryDirectory() + "/recovery_corvane.ini/stuck", "x"));
    setStored("site/own", "old");
    m_files.setLocal({{"application/language", "sv"}});
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    bench.choose("local_menu", "load_action");
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{loaded()});
    QCOMPARE(m_files.workingKeys(), QStringList{"application/language"});
}

void TestSettingsView::notAllSettingsLoadedIsToldAndTheTabsAreShown()
{
    QVERIFY(writeFile(m_files.local(), kCollapsingKeys + "[application]\nlanguage=sv\n"));
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    bench.choose("local_menu", "load_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error: Not all settings were loaded."));
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>({loaded(), settingsError(Actions::LoadSettings, 0x14100000,
                                                        QStringLiteral("Not all settings were loaded"))}));
    QVERIFY(tabs(bench.view())->isVisible());
    // The working settings keep what arrived, the pages their old contents.
    QCOMPARE(m_files.workingKeys(), QStringList({"application/language", "odd/b"}));
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("en_GB"));
}

void TestSettingsView::anInvalidValueIsSkippedInTheSnapshotAndLogged()
{
    QVERIFY(writeFile(m_files.local(), "[site]\nbroken=@Invalid()\nwhole=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    const AuditEvent skipped =
        settingsError(Actions::LoadSettings, 0x14100000, QStringLiteral("Invalid setting was skipped"));
    // The first load takes two snapshots.
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>({loaded(), skipped, skipped}));
    bench.seeChanges([](DiffView &dialog) {
        QVERIFY(!leftPane(dialog).contains("site/"));
        QVERIFY(!rightPane(dialog).contains("site/"));
    });
    const QList<AuditEvent> events = bench.takeEvents();
    QCOMPARE(events.size(), 1);
    QCOMPARE(events.first(), settingsError(Actions::ViewSettingsDiff, 0x14100000,
                                           QStringLiteral("Invalid setting was skipped")));
}

void TestSettingsView::loadingALocalFileThatIsNotThereGivesEmptySettings()
{
    setStored("site/own", "old");
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    bench.choose("local_menu", "load_action");
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(m_files.workingKeys().isEmpty());
    QVERIFY(tabs(bench.view())->isVisible());
}

void TestSettingsView::loadingALocalFileThatCannotBeReadIsToldAndIsNoLoad_data()
{
    QTest::addColumn<Mishap>("bar");
    QTest::newRow("a file that may not be read") << Mishap(
        [](const QString &file) { QVERIFY(QFile::setPermissions(file, QFile::Permissions(0x2200))); });
    QTest::newRow("a folder that may not be entered") << Mishap([](const QString &file) {
        QVERIFY(QFile::setPermissions(QFileInfo(file).path(), QFile::Permissions(0x6600)));
    });
    QTest::newRow("a folder in the place of the file")
        << Mishap([](const QString &file) { QVERIFY(QFile::remove(file) && QDir().mkpath(file)); });
    QTest::newRow("a link that leads to itself")
        << Mishap([](const QString &file) { QVERIFY(QFile::remove(file) && QFile::link(file, file)); });
}

void TestSettingsView::loadingALocalFileThatCannotBeReadIsToldAndIsNoLoad()
{
    QFETCH(Mishap, bar);
    setStored("site/own", "kept");
    QVERIFY(store()->flushSettingsFile());
    m_files.setLocal({{"application/language", "sv"}, {"site/new", 1}});
    const QByteArray local = readFile(m_files.local());
    const QString folder = QFileInfo(m_files.local()).path();
    for (const QString &path : {m_workstation.path(QString()), folder})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7755)));
    bar(m_files.local());

    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    {
        const OrdinaryUser user;
        bench.choose("local_menu", "load_action");
    }
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Error: Not all settings were loaded."));
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>({loaded(), settingsError(Actions::LoadSettings, 0x14100000,
                                                        QStringLiteral("Not all settings were loaded"))}));
    // There is nothing yet that could be saved over what is there.
    QVERIFY(tabs(bench.view())->isHidden());
    QVERIFY(!action(bench.view(), "save_action")->isEnabled());
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));

    // As soon as it can be read, it is loaded as ever.
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7755)));
    QVERIFY(QFile::remove(m_files.local()) || QDir().rmdir(m_files.local()));
    QVERIFY(writeFile(m_files.local(), local));
    bench.choose("local_menu", "load_action");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(m_files.workingKeys(), QStringList({"application/language", "site/new"}));
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("sv"));
    QCOMPARE(readFile(m_files.local()), local);
}

void TestSettingsView::aLocalFileThatCannotBeReadLeavesTheLoadedSettingsAsTheyAre()
{
    m_files.setLocal({{"application/language", "sv"}, {"other/program", "kept"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    const QByteArray local = readFile(m_files.local());
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    QVERIFY(QFile::remove(m_files.local()) && QDir().mkpath(m_files.local()));
    MessageBoxes boxes;
    bench.choose("local_menu", "load_action");
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY(tabs(bench.view())->isVisible());
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("sv"));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);

    QVERIFY(QDir().rmdir(m_files.local()) && writeFile(m_files.local(), local));
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().last().text, QStringLiteral("Saving succeeded."));
    QCOMPARE(m_files.localValue("application/language").toString(), QStringLiteral("sv"));
    QCOMPARE(m_files.localValue("ui/measurement_units").toInt(), 1);
    QCOMPARE(m_files.localValue("other/program").toString(), QStringLiteral("kept"));
    QCOMPARE(m_files.workingValue("other/program").toString(), QStringLiteral("kept"));
}

Q_DECLARE_METATYPE(Mishap)

QTEST_MAIN(TestSettingsView)
#include "test_settingsview.moc"
