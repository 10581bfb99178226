#include "CommunicationAndData/settings/onlinesite.h"
#include "Corvane/settings/confmanagementdialog.h"
#include "Corvane/settings/distributionview.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"
#include "support/userinput.h"
#include "support/wire.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace SettingsTest;

namespace {

constexpr int kPatience = 30000;  // milliseconds
constexpr int kMany = 500;
constexpr int kMostRequests = 200;
const QString kMark = QStringLiteral(" - Active in database");
const QString kNotDeleted =
    QStringLiteral("Deleting settings configuration from database was unsuccessful.\n");
const QString kNotInserted = QStringLiteral("Settings could not be inserted to database. ");
const QString kAdvice = QStringLiteral("Check connection options and try again.");
const QString kNotes = QString::fromUtf8(
    "Größe ნაწილი 肺とハイ 🫁 'quoted' \"%1\"; العربية ปอด\nsecond line");

void press(const QObject &dialog, const char *button)
{
    QTest::mouseClick(child<QAbstractButton>(dialog, button), Qt::LeftButton);
}

QString site(const char *key)
{
    return stored(key).toString();
}

}  // namespace

/// The distribution, management and difference dialogs on the real menus, by real clicks, with each of the
/// servers.
class TestSettingsServers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();

    void whatIsDistributedIsListedWithItsNotesAndMarked();
    void theFirstLoadAsksNothingAndLaterOnesCanBeRefused();
    void aBigConfigurationComesBackThroughTheDialogs();
    void fiveHundredConfigurationsAreListed();
    void deletingRemovesTheConfiguration();
    void theActiveConfigurationStays();
    void whatSomebodyElseDeletedIsTold();
    void loadingWhatSomebodyElseDeletedIsTold();
    void withoutTheRightNothingIsStoredOrDeleted();
    void aServerThatIsGoneIsToldAndTheNextAttemptSucceeds();
    void aServerThatGoesAwayWhileSendingLeavesOneActive();
    void aServerThatGoesAwayWhileTheListIsShown();
    void theLateAnswerOfAClosedDialogHarmsNothing();

private:
    void addConfiguration(SettingsBench &bench, const QString &mark, const char *button = "save_button");
    void openDistribution(SettingsBench &bench, OnlineSite::Account account = OnlineSite::Administrator);
    void openManagement(SettingsBench &bench, OnlineSite::Account account = OnlineSite::Administrator);
    void signIn(OnlineSite::Account account) const;
    void connectAndWait();
    void choose(int row);
    void load(int row);
    void waitForTheEnd();
    void remember(const QVariantMap &parameters) const;
    bool useWire();
    QComboBox *list() const
    {
        return child<QComboBox>(*m_dialog, "configuration_list");
    }
    QString status() const
    {
        return child<QLabel>(*m_dialog, "distribution_status")->text();
    }
    bool canChoose() const
    {
        return child<QWidget>(*m_dialog, "load_button")->isEnabled();
    }
    QStringList ids()
    {
        return m_site.column(QStringLiteral("SELECT id FROM configurations ORDER BY id"));
    }

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    OnlineSite m_site{QStringLiteral("corvane_dialogs")};
    std::unique_ptr<Wire> m_wire;
    std::unique_ptr<MessageBoxes> m_boxes;
    QPointer<QDialog> m_dialog;
};

void TestSettingsServers::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestSettingsServers::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
    m_files.reset();
    remember(m_site.server().parameters(m_site.database()));
    m_boxes = std::make_unique<MessageBoxes>();
}

void TestSettingsServers::cleanup()
{
    if (m_dialog)
        m_dialog->close();
    QTRY_VERIFY(!m_dialog);
    m_wire.reset();
    m_boxes.reset();
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QApplication::overrideCursor());
}

void TestSettingsServers::remember(const QVariantMap &parameters) const
{
    SiteConnection::remember(m_files.cache(), "supportdb_online", parameters,
                             QStringList{"SQL_ATTR_LOGIN_TIMEOUT=2", "SQL_ATTR_CONNECTION_TIMEOUT=2"});
}

/// Puts a line that can be cut between the program and the server; a file has none.
bool TestSettingsServers::useWire()
{
    if (!m_site.hasAccounts())
        return false;
    QVariantMap parameters = m_site.server().parameters(m_site.database());
    m_wire = std::make_unique<Wire>(static_cast<quint16>(parameters.value("Port").toUInt()));
    parameters.insert("Port", QString::number(m_wire->port()));
    remember(parameters);
    return true;
}

void TestSettingsServers::signIn(OnlineSite::Account account) const
{
    SiteConnection::signInAs(*m_dialog, m_site.accountName(account), m_site.password(account));
}

void TestSettingsServers::openDistribution(SettingsBench &bench, OnlineSite::Account account)
{
    bench.choose("online_menu", "distribute_action");
    m_dialog = bench.view().findChild<DistributionView *>();
    QVERIFY(m_dialog && m_dialog->isVisible());
    signIn(account);
}

void TestSettingsServers::openManagement(SettingsBench &bench, OnlineSite::Account account)
{
    bench.choose("online_menu", "manage_action");
    m_dialog = bench.view().findChild<ConfManagementDialog *>();
    QVERIFY(m_dialog && m_dialog->isVisible());
    if (SiteConnection::userOf(*m_dialog).isEmpty() || !m_site.hasAccounts()) {
        signIn(account);
        press(*m_dialog, "connect_button");
    }
}

void TestSettingsServers::connectAndWait()
{
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kPatience);
}

void TestSettingsServers::choose(int row)
{
    QVERIFY(row >= 0 && row < list()->count());
    chooseEntry(list(), row);
    QCOMPARE(list()->currentIndex(), row);
}

void TestSettingsServers::waitForTheEnd()
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, kPatience);
}

/// Sends the working settings with a mark of their own.
void TestSettingsServers::addConfiguration(SettingsBench &bench, const QString &mark, const char *button)
{
    setStored("site/mark", mark);
    openDistribution(bench);
    child<QPlainTextEdit>(*m_dialog, "release_notes")->setPlainText(kNotes + mark);
    press(*m_dialog, button);
    waitForTheEnd();
}

void TestSettingsServers::load(int row)
{
    choose(row);
    press(*m_dialog, "load_button");
    waitForTheEnd();
    // The configuration arrives from the event loop.
    QApplication::processEvents();
}

void TestSettingsServers::whatIsDistributedIsListedWithItsNotesAndMarked()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one", "distribute_button");
    addConfiguration(bench, "two", "distribute_button");
    addConfiguration(bench, "three", "save_button");
    QCOMPARE(m_site.activeIds(), QStringList{ids().at(1)});
    openManagement(bench);
    connectAndWait();
    QTRY_VERIFY_WITH_TIMEOUT(list()->itemText(1).endsWith(kMark), kPatience);
    QCOMPARE(list()->count(), 3);
    QCOMPARE(list()->currentIndex(), 1);
    const auto *notes = child<QPlainTextEdit>(*m_dialog, "configuration_notes");
    QCOMPARE(notes->toPlainText(), kNotes + "two");
    choose(0);
    QCOMPARE(notes->toPlainText(), kNotes + "three");
    QVERIFY(list()->currentText().endsWith(" by anna"));
    QVERIFY(m_boxes->seen().isEmpty());
}

void TestSettingsServers::theFirstLoadAsksNothingAndLaterOnesCanBeRefused()
{
    {
        SettingsBench sender(m_workstation, kAllRights);
        sender.choose("local_menu", "load_action");
        for (const char *mark : {"one", "two", "three"})
            addConfiguration(sender, mark);
    }
    setStored("site/mark", "before");
    SettingsBench bench(m_workstation, kAllRights);
    openManagement(bench);
    connectAndWait();
    {
        const DiffAnswers none([](DiffView &) {}, true);
        load(2);
        QTRY_COMPARE(site("site/mark"), QStringLiteral("one"));
        QCOMPARE(none.count(), 0);
    }
    for (const bool accepted : {true, false}) {
        QString right;
        const DiffAnswers answers(
            [&right](DiffView &dialog) {
                right = child<QPlainTextEdit>(dialog, "right_pane")->toPlainText();
            },
            accepted);
        openManagement(bench);
        connectAndWait();
        load(accepted ? 1 : 0);
        QTRY_COMPARE(answers.count(), 1);
        QTRY_COMPARE(site("site/mark"), QStringLiteral("two"));
        QVERIFY(right.contains(accepted ? "site/mark=one" : "site/mark=two"));
    }
    QVERIFY(m_boxes->seen().isEmpty());
}

void TestSettingsServers::aBigConfigurationComesBackThroughTheDialogs()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    QMap<QString, QString> big;
    for (int i = 0; i < 2000; ++i)
        big.insert(QStringLiteral("site/key_%1").arg(i), QString(525, QChar(0x3042 + i % 80)));
    for (auto setting = big.cbegin(); setting != big.cend(); ++setting)
        store()->setValue(setting.key(), *setting);
    addConfiguration(bench, "big", "distribute_button");
    for (auto setting = big.cbegin(); setting != big.cend(); ++setting)
        store()->setValue(setting.key(), 0);
    const DiffAnswers answers([](DiffView &) {}, true);
    openManagement(bench);
    connectAndWait();
    load(0);
    QTRY_COMPARE(answers.count(), 1);
    for (auto setting = big.cbegin(); setting != big.cend(); ++setting)
        QVERIFY2(store()->value(setting.key(), {}).toString() == *setting, qPrintable(setting.key()));
}

void TestSettingsServers::fiveHundredConfigurationsAreListed()
{
    QStringList rows;
    for (int i = 1; i <= kMany; ++i)
        rows.append(QStringLiteral("('notes of %1', '2026-01-01 10:00:00', 'user%1', 0, '', '')").arg(i));
    QVERIFY2(m_site.run("INSERT INTO configurations (notes, created, creator, inform_users, checksum, image) "
                        "VALUES " +
                        rows.join(", ")),
             qPrintable(m_site.errorText()));
    SettingsBench bench(m_workstation, kAllRights);
    openManagement(bench);
    connectAndWait();
    QCOMPARE(list()->count(), kMany);
    QVERIFY(list()->itemText(0).endsWith(" Created 2026-01-01 10:00:00 (UTC) by user500"));
    QCOMPARE(list()->currentIndex(), 0);
    choose(kMany - 1);
    QCOMPARE(child<QPlainTextEdit>(*m_dialog, "configuration_notes")->toPlainText(),
             QStringLiteral("notes of 1"));
}

void TestSettingsServers::deletingRemovesTheConfiguration()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    for (const char *mark : {"one", "two"})
        addConfiguration(bench, mark);
    const QStringList before = ids();
    openManagement(bench);
    connectAndWait();
    choose(0);
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"OK"});
    press(*m_dialog, "delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 1, kPatience);
    QCOMPARE(ids(), QStringList{before.first()});
    QCOMPARE(m_boxes->seen().size(), 1);
    QVERIFY(canChoose());
}

void TestSettingsServers::theActiveConfigurationStays()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one", "distribute_button");
    const QStringList before = ids();
    bench.takeEvents();
    openManagement(bench);
    connectAndWait();
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"OK"});
    press(*m_dialog, "delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 2, kPatience);
    QCOMPARE(m_boxes->seen().last().text, kNotDeleted + "Cannot delete active configuration");
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(Actions::DeleteSettings, 0x14200004, "OnlineSettingsError: 2")});
    QCOMPARE(ids(), before);
    QCOMPARE(list()->count(), 1);
    QVERIFY(canChoose());
}

void TestSettingsServers::whatSomebodyElseDeletedIsTold()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    for (const char *mark : {"one", "two"})
        addConfiguration(bench, mark);
    bench.takeEvents();
    openManagement(bench);
    connectAndWait();
    choose(0);
    QVERIFY(m_site.run("DELETE FROM configurations WHERE id = " + ids().last()));
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"OK"});
    press(*m_dialog, "delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 2, kPatience);
    QCOMPARE(m_boxes->seen().last().text, kNotDeleted + "Could not delete settings configuration");
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(Actions::DeleteSettings, 0x14200004, "OnlineSettingsError: 4")});
    // It connects anew and shows what is there.
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 1, kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kPatience);
    QCOMPARE(list()->currentData().toString(), ids().first());
}

void TestSettingsServers::loadingWhatSomebodyElseDeletedIsTold()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one");
    setStored("site/mark", "kept");
    bench.takeEvents();
    openManagement(bench);
    connectAndWait();
    QVERIFY(m_site.run("DELETE FROM configurations"));
    press(*m_dialog, "load_button");
    waitForTheEnd();
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 1, kPatience);
    QCOMPARE(m_boxes->seen().first().title, QStringLiteral("Loading settings failed"));
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{settingsError(
                                     Actions::LoadSettings, 0x14200003,
                                     "Loading settings configuration from database was unsuccessful")});
    QCOMPARE(site("site/mark"), QStringLiteral("kept"));
}

void TestSettingsServers::withoutTheRightNothingIsStoredOrDeleted()
{
    if (!m_site.hasAccounts())
        return;
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one");
    const QStringList before = ids();
    bench.takeEvents();
    for (const char *button : {"save_button", "distribute_button"}) {
        openDistribution(bench, OnlineSite::Application);
        press(*m_dialog, button);
        QTRY_COMPARE_WITH_TIMEOUT(status(), kNotInserted + "Check user rights and try again.", kPatience);
        QCOMPARE(bench.takeEvents(),
                 QList<AuditEvent>{settingsError(Actions::SaveSettings, 0x14200002,
                                                 "Distributing failed, OnlineSettings error: 3")});
        press(*m_dialog, "cancel_button");
        waitForTheEnd();
    }
    openManagement(bench, OnlineSite::Application);
    connectAndWait();
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"OK"});
    press(*m_dialog, "delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 2, kPatience);
    QCOMPARE(m_boxes->seen().last().text, kNotDeleted + "Settings configuration was not deleted");
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(Actions::DeleteSettings, 0x14200004, "OnlineSettingsError: 3")});
    QCOMPARE(ids(), before);
    QVERIFY(canChoose());
}

void TestSettingsServers::aServerThatIsGoneIsToldAndTheNextAttemptSucceeds()
{
    if (!useWire())
        return;
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    setStored("site/mark", "sent");
    m_wire->cut();
    openDistribution(bench);
    press(*m_dialog, "distribute_button");
    QTRY_COMPARE_WITH_TIMEOUT(status(), "Could not connect to database. " + kAdvice, kPatience);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{settingsError(Actions::SaveSettings, 0x14200002,
                                                                 "No connection to settings database")});
    m_wire->mend();
    press(*m_dialog, "save_button");
    waitForTheEnd();
    QCOMPARE(ids().size(), 1);
    QVERIFY(m_site.activeIds().isEmpty());

    m_wire->cut();
    openManagement(bench);
    const auto *connect = child<QToolButton>(*m_dialog, "connect_button");
    QTRY_COMPARE_WITH_TIMEOUT(connect->text(), QStringLiteral("No connection - connect"), kPatience);
    QTRY_VERIFY(connect->isEnabled());
    QVERIFY(!canChoose());
    QVERIFY(m_boxes->seen().isEmpty());
    m_wire->mend();
    press(*m_dialog, "connect_button");
    connectAndWait();
    QCOMPARE(list()->count(), 1);
    QCOMPARE(site("site/mark"), QStringLiteral("sent"));
}

void TestSettingsServers::aServerThatGoesAwayWhileSendingLeavesOneActive()
{
    if (!useWire())
        return;
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "first", "distribute_button");
    setStored("site/mark", "sent");
    int failures = 0;
    bool done = false;
    for (int requests = 0; !done && requests < kMostRequests; requests += 3) {
        bench.takeEvents();
        openDistribution(bench);
        m_wire->cutAfter(requests);
        press(*m_dialog, "distribute_button");
        QTRY_VERIFY_WITH_TIMEOUT(!m_dialog || child<QWidget>(*m_dialog, "save_button")->isEnabled(),
                                 kPatience);
        done = !m_dialog;
        m_wire->mend();
        if (!done) {
            ++failures;
            QVERIFY2(status().endsWith(kAdvice), qPrintable(status()));
            QCOMPARE(bench.takeEvents().size(), 1);
            press(*m_dialog, "cancel_button");
            waitForTheEnd();
        }
        QCOMPARE(site("site/mark"), QStringLiteral("sent"));
        QTRY_COMPARE_WITH_TIMEOUT(m_site.activeIds().size(), 1, kPatience);
    }
    QVERIFY(done);
    QVERIFY(failures > 0);
}

void TestSettingsServers::aServerThatGoesAwayWhileTheListIsShown()
{
    if (!useWire())
        return;
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one");
    addConfiguration(bench, "two");
    bench.takeEvents();
    setStored("site/mark", "kept");
    openManagement(bench);
    connectAndWait();
    m_wire->cut();
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"OK"});
    press(*m_dialog, "delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 2, kPatience);
    QCOMPARE(m_boxes->seen().last().text, kNotDeleted + "Check connection options and try again");
    QCOMPARE(bench.takeEvents().size(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(child<QWidget>(*m_dialog, "connect_button")->isEnabled(), kPatience);
    QCOMPARE(ids().size(), 2);

    m_wire->mend();
    press(*m_dialog, "connect_button");
    connectAndWait();
    m_wire->cut();
    press(*m_dialog, "load_button");
    waitForTheEnd();
    QTRY_COMPARE_WITH_TIMEOUT(m_boxes->seen().size(), 3, kPatience);
    QCOMPARE(m_boxes->seen().last().title, QStringLiteral("Loading settings failed"));
    QCOMPARE(site("site/mark"), QStringLiteral("kept"));
}

void TestSettingsServers::theLateAnswerOfAClosedDialogHarmsNothing()
{
    if (!useWire())
        return;
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    addConfiguration(bench, "one", "distribute_button");
    bench.takeEvents();
    const QByteArray cache = readFile(m_files.cache());
    setStored("site/mark", "kept");

    openDistribution(bench);
    m_wire->hold();
    press(*m_dialog, "distribute_button");
    m_dialog->close();
    waitForTheEnd();
    openManagement(bench);
    press(*m_dialog, "cancel_button");
    waitForTheEnd();
    m_wire->mend();

    // Whatever comes late goes to nobody; the next dialog gets its own answers.
    openManagement(bench);
    connectAndWait();
    QCOMPARE(list()->count(), ids().size());
    QTRY_VERIFY_WITH_TIMEOUT(list()->currentText().endsWith(kMark), kPatience);
    QVERIFY(m_boxes->seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
    QCOMPARE(site("site/mark"), QStringLiteral("kept"));
    QCOMPARE(m_site.activeIds().size(), 1);
    QCOMPARE(readFile(m_files.cache()), cache);
}

QTEST_MAIN(TestSettingsServers)
#include "test_settingsservers.moc"
