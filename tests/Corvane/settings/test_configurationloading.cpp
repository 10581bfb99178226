#include "confmanagementfixture.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kNotConnected = QStringLiteral("No connection - connect");
const QString kMark = QStringLiteral(" - Active in database");

QString createdBy(int id)
{
    return QStringLiteral("%1 Created 2026-01-0%1 10:00:00 (UTC) by user%1").arg(id);
}

}  // namespace

/// The management dialog in the settings view, and the configurations that it loads.
class TestConfigurationLoading : public ConfManagementFixture
{
    Q_OBJECT

private slots:
    void theMenuOpensTheDialogAfterThePagesWereSaved();
    void anOperatorWithoutRight32OpensNoDialog();
    void loadingClosesTheDialogAndShowsThePages();
    void aFirstOnlineLoadShowsNoComparisonAndALaterOneDoes();
    void refusingTheComparisonUndoesTheLoad();
    void aSecondClickLoadsNothingMore();
    void aTagWithAnActiveMarkIsShownAsItStands();
    void aConfigurationThatCannotBeLoadedIsTold();
    void cancelAfterALoadIsImpossible();
    void aFailedLoadRestoresNothing();
    void aCancelledDialogLeavesTheConnectionToSettingsReceivedInPlace();
    void userAndPasswordAreKeptForTheRun();
};

void TestConfigurationLoading::theMenuOpensTheDialogAfterThePagesWereSaved()
{
    SettingsBench bench(m_workstation, kAllRights);
    setStored("ui/geometry", "here");
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    openFromMenu(bench);
    QVERIFY(m_dialog && m_dialog->isVisible());
    QCOMPARE(m_files.workingValue("ui/measurement_units").toInt(), 1);
    QVERIFY(m_files.workingKeys().contains("ui/geometry"));
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestConfigurationLoading::anOperatorWithoutRight32OpensNoDialog()
{
    SettingsBench bench(m_workstation, kAllRights & ~DownloadSettings);
    openFromMenu(bench);
    QVERIFY(!m_dialog);
    child<QAction>(bench.view(), "manage_action")->setEnabled(true);
    openFromMenu(bench);
    QVERIFY(!m_dialog);
}

void TestConfigurationLoading::loadingClosesTheDialogAndShowsThePages()
{
    addConfigurations(2, 0);
    SettingsBench bench(m_workstation, kAllRights);
    QVERIFY(child<QTabWidget>(bench.view(), "settings_tabs")->isHidden());
    connectFromMenu(bench);
    choose(1);
    MessageBoxes boxes;
    press("load_button");
    QVERIFY(!m_dialog || !m_dialog->isVisible());
    waitForTheEnd();
    QTRY_COMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("sv"));
    QVERIFY(child<QTabWidget>(bench.view(), "settings_tabs")->isVisible());
    QCOMPARE(stored("site/number").toInt(), 1);
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!SiteConnection::remembered(m_files.cache(), "supportdb_online").isEmpty());
}

void TestConfigurationLoading::aFirstOnlineLoadShowsNoComparisonAndALaterOneDoes()
{
    addConfigurations(2, 0);
    SettingsBench bench(m_workstation, kAllRights);
    QString label;
    QString right;
    const DiffAnswers answers(
        [&](DiffView &dialog) {
            label = child<QLabel>(dialog, "left_label")->text();
            right = child<QPlainTextEdit>(dialog, "right_pane")->toPlainText();
        },
        true);
    connectFromMenu(bench);
    choose(1);
    press("load_button");
    waitForTheEnd();
    QTRY_COMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("sv"));
    QCOMPARE(answers.count(), 0);

    connectFromMenu(bench);
    choose(2);
    press("load_button");
    waitForTheEnd();
    QTRY_COMPARE(answers.count(), 1);
    QTRY_COMPARE(stored("site/number").toInt(), 2);
    QCOMPARE(label, createdBy(2));
    QVERIFY(!right.isEmpty());
}

void TestConfigurationLoading::refusingTheComparisonUndoesTheLoad()
{
    addConfigurations(1, 0);
    m_files.setLocal({{"site/number", 77}, {"application/language", "fi"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    const DiffAnswers answers([](DiffView &) {}, false);
    connectFromMenu(bench);
    press("load_button");
    waitForTheEnd();
    QTRY_COMPARE(answers.count(), 1);
    QTRY_COMPARE(stored("site/number").toInt(), 77);
    QCOMPARE(child<QComboBox>(bench.view(), "language")->currentData().toString(), QStringLiteral("fi"));
}

void TestConfigurationLoading::aSecondClickLoadsNothingMore()
{
    addConfigurations(1, 0);
    m_files.setLocal({{"site/number", 77}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    const DiffAnswers answers([](DiffView &) {}, false);
    connectFromMenu(bench);
    QSignalSpy received(store(), &SettingsHandler::onlineSettingsReady);
    auto *load = child<QAbstractButton>(*m_dialog, "load_button");
    load->click();
    // The click that was on its way when the first one closed the dialog.
    load->click();
    waitForTheEnd();
    QTRY_COMPARE(answers.count(), 1);
    QCOMPARE(received.count(), 1);
    QCOMPARE(stored("site/number").toInt(), 77);
}

void TestConfigurationLoading::aTagWithAnActiveMarkIsShownAsItStands()
{
    addConfigurations(1, 1);
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    QString label;
    const DiffAnswers answers([&](DiffView &dialog) { label = child<QLabel>(dialog, "left_label")->text(); },
                              true);
    connectFromMenu(bench);
    QTRY_VERIFY_WITH_TIMEOUT(list()->currentText().endsWith(kMark), kAnswerTime);
    press("load_button");
    waitForTheEnd();
    QTRY_COMPARE(answers.count(), 1);
    QCOMPARE(label, createdBy(1) + kMark);
}

void TestConfigurationLoading::aConfigurationThatCannotBeLoadedIsTold()
{
    addConfigurations(2, 0);
    m_files.setLocal({{"site/number", 77}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    connectFromMenu(bench);
    SiteConnection::run(m_site, {"UPDATE configurations SET image = 'damaged'"});
    MessageBoxes boxes;
    press("load_button");
    waitForTheEnd();
    QTRY_COMPARE_WITH_TIMEOUT(boxes.seen().size(), 1, kAnswerTime);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Loading settings failed"));
    QCOMPARE(boxes.seen().first().text,
             QStringLiteral("Loading settings configuration from database was unsuccessful.\n"
                            "Previous settings restored."));
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(
                 Actions::LoadSettings, 0x14200003,
                 QStringLiteral("Loading settings configuration from database was unsuccessful"))});
    QCOMPARE(stored("site/number").toInt(), 77);
}

void TestConfigurationLoading::aFailedLoadRestoresNothing()
{
    addConfigurations(1, 0);
    setStored("site/own", "opened");
    openConnected();
    SiteConnection::run(m_site, {"UPDATE configurations SET image = 'damaged'"});
    setStored("site/own", "changed meanwhile");
    QSignalSpy loaded(m_dialog, SIGNAL(loaded()));
    press("load_button");
    QCOMPARE(loaded.count(), 0);
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("changed meanwhile"));
}

void TestConfigurationLoading::cancelAfterALoadIsImpossible()
{
    addConfigurations(1, 0);
    openConnected();
    const QPointer<QWidget> cancel = child<QWidget>(*m_dialog, "cancel_button");
    press("load_button");
    // The load has closed the dialog, with the button in it.
    QVERIFY(!m_dialog || !m_dialog->isVisible());
    QVERIFY(!cancel || !cancel->isVisible());
    waitForTheEnd();
    QVERIFY(!cancel);
    QCOMPARE(stored("site/number").toInt(), 1);
}

void TestConfigurationLoading::aCancelledDialogLeavesTheConnectionToSettingsReceivedInPlace()
{
    SettingsBench bench(m_workstation, kAllRights);
    MessageBoxes boxes;
    // Nobody listens before the dialog was opened.
    store()->callOnlineInit();
    QVERIFY(!store()->getOnlineSettings(1));
    QTest::qWait(50);
    QVERIFY(boxes.seen().isEmpty());

    for (int i = 0; i < 2; ++i) {
        openFromMenu(bench);
        QVERIFY(m_dialog);
        press("cancel_button");
        waitForTheEnd();
    }
    QVERIFY(!store()->getOnlineSettings(1));
    // Connected twice, told once: the first telling cuts both.
    QTRY_COMPARE_WITH_TIMEOUT(boxes.seen().size(), 1, kAnswerTime);
    QVERIFY(!store()->getOnlineSettings(1));
    QTest::qWait(50);
    QCOMPARE(boxes.seen().size(), 1);
}

void TestConfigurationLoading::userAndPasswordAreKeptForTheRun()
{
    addConfigurations(1, 0);
    rememberSite();
    {
        SettingsBench bench(m_workstation, kAllRights);
        connectFromMenu(bench);
        press("cancel_button");
        waitForTheEnd();
        openFromMenu(bench);
        QCOMPARE(SiteConnection::userOf(*m_dialog), QStringLiteral("reader"));
        QCOMPARE(SiteConnection::passwordOf(*m_dialog), QStringLiteral("secret"));
        QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
        m_dialog->close();
        waitForTheEnd();
    }
    SettingsBench bench(m_workstation, kAllRights);
    openFromMenu(bench);
    QCOMPARE(SiteConnection::userOf(*m_dialog) + SiteConnection::passwordOf(*m_dialog), QString());
    QCOMPARE(connectText(), kNotConnected);
}

QTEST_MAIN(TestConfigurationLoading)
#include "test_configurationloading.moc"
