#include "Corvane/settings/confmanagementdialog.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

using namespace SettingsTest;

namespace {

constexpr int kAnswerTime = 20000;  // milliseconds
const QString kConnected = QStringLiteral("Connected - reconnect");
const QString kNotConnected = QStringLiteral("No connection - connect");
const QString kConnecting = QStringLiteral("Connecting...");
const QString kMark = QStringLiteral(" - Active in database");
const QString kFailure = QStringLiteral("Deleting settings configuration from database was unsuccessful.\n");

QString createdBy(int id)
{
    return QStringLiteral("%1 Created 2026-01-0%1 10:00:00 (UTC) by user%1").arg(id);
}

AuditEvent notDeleted(int error)
{
    return settingsError(Actions::DeleteSettings, 0x14200004,
                         QStringLiteral("OnlineSettingsError: %1").arg(error));
}

}  // namespace

/// The management dialog with the store's real worker and a database of the site.
class TestConfManagementDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theDialogHasItsSizesAndTexts();
    void foldingTheConnection();
    void returnInALineStartsNothing();
    void withUserAndPasswordRememberedTheDialogConnectsAtOnce();
    void withoutThemItWaitsForTheConnectButton_data();
    void withoutThemItWaitsForTheConnectButton();
    void aFirstConnectionTakesUserAndPasswordFromTheStore();
    void theHighestIdComesFirstAndTheActiveOneIsMarkedAndSelected();
    void theFirstItemsNotesAreShownEvenIfNoneIsActive();
    void choosingAConfigurationShowsItsNotes();
    void aFailedConnectionIsShownByTheConnectButtonAlone();
    void anUnreadableListLeavesTheListDisabled();
    void aRefreshOfAShownListIsIgnored();
    void reconnectingFillsTheListAnew();
    void aDatabaseWithNoConfigurationsKeepsAskingAndTheListStaysDisabled();
    void deletingAsksFirst();
    void deletingRemovesTheItem();
    void deletingTheLastOneLeavesNothingToChoose();
    void deletingTheActiveConfigurationLeavesTheListAndDoesNotReconnect();
    void failedDeleting_data();
    void failedDeleting();
    void cancelRestoresTheSettingsAndRemembersTheConnection();
    void closingTheWindowRestoresTheSettingsAndRemembersNothing_data();
    void closingTheWindowRestoresTheSettingsAndRemembersNothing();
    void answersAfterTheClosingAreNotHeeded();

    void theMenuOpensTheDialogAfterThePagesWereSaved();
    void anOperatorWithoutRight32OpensNoDialog();
    void loadingClosesTheDialogAndShowsThePages();
    void aFirstOnlineLoadShowsNoComparisonAndALaterOneDoes();
    void refusingTheComparisonUndoesTheLoad();
    void aTagWithAnActiveMarkIsShownAsItStands();
    void aConfigurationThatCannotBeLoadedIsTold();
    void aCancelledDialogLeavesTheConnectionToSettingsReceivedInPlace();
    void userAndPasswordAreKeptForTheRun();

private:
    void addConfigurations(int count, int active, const QString &language = QStringLiteral("sv"));
    void rememberSite() const
    {
        SiteConnection::remember(m_files.cache(), "supportdb_online", SiteConnection::params(m_site));
    }
    void open();
    void openConnected();
    void openFromMenu(SettingsBench &bench);
    void connectFromMenu(SettingsBench &bench);
    void choose(int id);
    void press(const char *button)
    {
        QTest::mouseClick(child<QAbstractButton>(*m_dialog, button), Qt::LeftButton);
    }
    QComboBox *list() const
    {
        return child<QComboBox>(*m_dialog, "configuration_list");
    }
    QString notes() const
    {
        return child<QPlainTextEdit>(*m_dialog, "configuration_notes")->toPlainText();
    }
    QString connectText() const
    {
        return child<QToolButton>(*m_dialog, "connect_button")->text();
    }
    bool isEnabled(const char *name) const
    {
        return child<QWidget>(*m_dialog, name)->isEnabled();
    }
    /// Whether the list and what works on it can be used; the four go together.
    bool canChoose() const
    {
        const bool enabled = list()->isEnabled();
        for (const char *name : {"configuration_notes", "load_button", "delete_button"}) {
            if (isEnabled(name) != enabled)
                qFatal("%s differs from the list", name);
        }
        return enabled;
    }
    void waitForTheEnd()
    {
        QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, kAnswerTime);
    }

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    QString m_site;
    QString m_username;
    QString m_password;
    QPointer<ConfManagementDialog> m_dialog;
};

void TestConfManagementDialog::init()
{
    m_files.reset();
    m_site = m_workstation.path("site.db");
    QFile::remove(m_site);
    m_username = "reader";
    m_password = "secret";
}

void TestConfManagementDialog::cleanup()
{
    if (m_dialog)
        m_dialog->close();
    QTRY_VERIFY(!m_dialog);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QApplication::overrideCursor());
}

/// Stores configurations 1 to `count` by the store itself, each with its own notes and number.
void TestConfManagementDialog::addConfigurations(int count, int active, const QString &language)
{
    QSignalSpy connected(store(), &SettingsHandler::onlineReconnected);
    store()->callOnlineInit();
    emit store()->reconnectOnline({{"params", SiteConnection::params(m_site)}});
    QVERIFY(connected.wait(kAnswerTime));
    QVERIFY(connected.first().first().toBool());
    const QVariant former = store()->value("application/language");
    store()->setValue("application/language", language);
    for (int id = 1; id <= count; ++id) {
        QSignalSpy storedReady(store(), &SettingsHandler::settingsOnlineStoredReady);
        store()->setValue("site/number", id);
        store()->storeSettingsOnline({QStringLiteral("notes of %1").arg(id),
                                      QStringLiteral("2026-01-0%1 10:00:00").arg(id),
                                      QStringLiteral("user%1").arg(id)},
                                     0, false, id == active);
        QVERIFY(storedReady.wait(kAnswerTime));
        QCOMPARE(storedReady.first().first().value<OnlineSettings::QueryError>(), OnlineSettings::Success);
    }
    store()->generalSettings()->remove("site/number");
    if (former.isValid())
        store()->setValue("application/language", former);
    else
        store()->generalSettings()->remove("application/language");
}

void TestConfManagementDialog::open()
{
    m_dialog = new ConfManagementDialog(m_workstation.dataDirectory(), &m_username, &m_password);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
}

void TestConfManagementDialog::openConnected()
{
    rememberSite();
    open();
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
}

void TestConfManagementDialog::openFromMenu(SettingsBench &bench)
{
    bench.choose("online_menu", "manage_action");
    m_dialog = bench.view().findChild<ConfManagementDialog *>();
}

void TestConfManagementDialog::connectFromMenu(SettingsBench &bench)
{
    rememberSite();
    openFromMenu(bench);
    QVERIFY(m_dialog);
    if (SiteConnection::userOf(*m_dialog).isEmpty()) {
        SiteConnection::signInAs(*m_dialog, "reader", "secret");
        press("connect_button");
    }
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
}

void TestConfManagementDialog::choose(int id)
{
    const int index = list()->findData(id);
    QVERIFY(index >= 0);
    list()->setCurrentIndex(index);
}

void TestConfManagementDialog::theDialogHasItsSizesAndTexts()
{
    m_username.clear();
    open();
    QCOMPARE(m_dialog->size(), QSize(480, 320));
    QCOMPARE(m_dialog->windowModality(), Qt::ApplicationModal);
    QCOMPARE(m_dialog->layout()->contentsMargins(), QMargins(6, 2, 6, 2));
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Settings configuration management"));
    QStringList labels;
    for (const QLabel *label : m_dialog->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        labels.append(label->text());
        QCOMPARE(label->height(), 20);
    }
    QCOMPARE(labels, QStringList({"Select settings configuration", "Configuration notes"}));
    QCOMPARE(list()->height(), 25);
    QCOMPARE(child<QWidget>(*m_dialog, "configuration_notes")->height(), 100);
    QVERIFY(child<QPlainTextEdit>(*m_dialog, "configuration_notes")->isReadOnly());
    const QList<QPair<const char *, QString>> buttons = {{"connect_button", kNotConnected},
                                                         {"options_button", "Show connection options"},
                                                         {"load_button", "Load configuration"},
                                                         {"delete_button", "Delete configuration"},
                                                         {"cancel_button", "Cancel"}};
    for (const auto &button : buttons) {
        QCOMPARE(child<QAbstractButton>(*m_dialog, button.first)->text(), button.second);
        QCOMPARE(child<QAbstractButton>(*m_dialog, button.first)->height(), 30);
    }
    QVERIFY(!canChoose());
    QCOMPARE(list()->count(), 0);
    QVERIFY(isEnabled("connect_button"));
    QCOMPARE(m_dialog->focusWidget(), child<QWidget>(*m_dialog, "cancel_button"));
}

void TestConfManagementDialog::foldingTheConnection()
{
    m_username.clear();
    open();
    const auto *area = child<QScrollArea>(*m_dialog, "connection_area");
    QVERIFY(!area->isVisible());
    QCOMPARE(area->minimumHeight(), 300);
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    press("options_button");
    QTRY_COMPARE(m_dialog->size(), QSize(480, 620));
    QVERIFY(area->isVisible());
    QVERIFY(area->height() >= 300);
    QTRY_VERIFY(area->widget()->width() <= area->viewport()->width());
    QCOMPARE(child<QToolButton>(*m_dialog, "options_button")->text(),
             QStringLiteral("Hide connection options"));
    press("options_button");
    QTRY_COMPARE(m_dialog->size(), QSize(480, 320));
    QVERIFY(!area->isVisible());
    QCOMPARE(child<QToolButton>(*m_dialog, "options_button")->text(),
             QStringLiteral("Show connection options"));
    QCOMPARE(connectText(), kNotConnected);
}

void TestConfManagementDialog::returnInALineStartsNothing()
{
    m_username.clear();
    open();
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    press("options_button");
    auto *user = child<QLineEdit>(*m_dialog, "username_edit");
    user->setFocus();
    QTest::keyClick(user, Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QVERIFY(requests.isEmpty());
}

void TestConfManagementDialog::withUserAndPasswordRememberedTheDialogConnectsAtOnce()
{
    addConfigurations(1, 1);
    rememberSite();
    open();
    QCOMPARE(connectText(), kConnecting);
    QVERIFY(!isEnabled("connect_button"));
    QVERIFY(!canChoose());
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
    QCOMPARE(connectText(), kConnected);
    QVERIFY(isEnabled("connect_button"));
}

void TestConfManagementDialog::withoutThemItWaitsForTheConnectButton_data()
{
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::newRow("without both") << ""
                                  << "";
    QTest::newRow("without a password") << "reader"
                                        << "";
    QTest::newRow("without a user name") << ""
                                         << "secret";
}

void TestConfManagementDialog::withoutThemItWaitsForTheConnectButton()
{
    QFETCH(QString, username);
    QFETCH(QString, password);
    addConfigurations(1, 1);
    rememberSite();
    m_username = username;
    m_password = password;
    open();
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    QCOMPARE(connectText(), kNotConnected);
    QVERIFY(isEnabled("connect_button"));
    QVERIFY(!canChoose());
    press("connect_button");
    QCOMPARE(requests.count(), 1);
    QCOMPARE(connectText(), kConnecting);
    QVERIFY(!isEnabled("connect_button"));
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
}

void TestConfManagementDialog::aFirstConnectionTakesUserAndPasswordFromTheStore()
{
    store()->setDatabaseSettings("supportdb", {{"params", SiteConnection::params(m_site)}});
    store()->setSafeValue("supportdb/username", "stored user");
    store()->setSafeValue("supportdb/password", "stored password");
    m_username.clear();
    m_password.clear();
    open();
    QCOMPARE(SiteConnection::userOf(*m_dialog), QStringLiteral("stored user"));
    QCOMPARE(SiteConnection::passwordOf(*m_dialog), QStringLiteral("stored password"));
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_setting_"),
             QStringList({"Database=" + m_site, "Driver=SQLite3", ""}));
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_parameter_"),
             QStringList({"SQL_ATTR_LOGIN_TIMEOUT=2", "SQL_ATTR_CONNECTION_TIMEOUT=2", ""}));
    QCOMPARE(connectText(), kNotConnected);
    m_dialog->close();
    waitForTheEnd();

    rememberSite();
    open();
    QCOMPARE(SiteConnection::userOf(*m_dialog) + SiteConnection::passwordOf(*m_dialog), QString());
}

void TestConfManagementDialog::theHighestIdComesFirstAndTheActiveOneIsMarkedAndSelected()
{
    addConfigurations(3, 2);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(items(list()), QStringList({createdBy(3), createdBy(2) + kMark, createdBy(1)}),
                              kAnswerTime);
    QCOMPARE(list()->currentIndex(), 1);
    QCOMPARE(list()->itemData(0, Qt::UserRole).toInt(), 3);
    QCOMPARE(list()->itemData(1, Qt::UserRole).toInt(), 2);
    QCOMPARE(list()->itemData(2, Qt::UserRole).toInt(), 1);
    QCOMPARE(notes(), QStringLiteral("notes of 2"));
}

void TestConfManagementDialog::theFirstItemsNotesAreShownEvenIfNoneIsActive()
{
    addConfigurations(2, 0);
    QSignalSpy active(store(), &SettingsHandler::activeOnlineId);
    openConnected();
    QCOMPARE(notes(), QStringLiteral("notes of 2"));
    QTRY_COMPARE_WITH_TIMEOUT(active.count(), 1, kAnswerTime);
    QTest::qWait(0);
    QCOMPARE(items(list()), QStringList({createdBy(2), createdBy(1)}));
    QCOMPARE(list()->currentIndex(), 0);
    QCOMPARE(notes(), QStringLiteral("notes of 2"));
}

void TestConfManagementDialog::choosingAConfigurationShowsItsNotes()
{
    addConfigurations(3, 0);
    openConnected();
    choose(1);
    QCOMPARE(notes(), QStringLiteral("notes of 1"));
    choose(3);
    QCOMPARE(notes(), QStringLiteral("notes of 3"));
    QCOMPARE(child<QPlainTextEdit>(*m_dialog, "configuration_notes")->textCursor().position(), 0);
}

void TestConfManagementDialog::aFailedConnectionIsShownByTheConnectButtonAlone()
{
    SiteConnection::remember(m_files.cache(), "supportdb_online",
                             SiteConnection::params(m_workstation.path("nowhere/site.db")));
    MessageBoxes boxes;
    SettingsBench bench(m_workstation, kAllRights);
    openFromMenu(bench);
    SiteConnection::signInAs(*m_dialog, "reader", "secret");
    QSignalSpy answers(store(), &SettingsHandler::onlineReconnected);
    press("connect_button");
    QVERIFY(answers.wait(kAnswerTime));
    QTRY_VERIFY(isEnabled("connect_button"));
    QCOMPARE(connectText(), kNotConnected);
    QVERIFY(!canChoose());
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestConfManagementDialog::anUnreadableListLeavesTheListDisabled()
{
    addConfigurations(1, 0);
    SiteConnection::run(m_site, {"ALTER TABLE configurations RENAME COLUMN notes TO other_notes"});
    rememberSite();
    open();
    QSignalSpy answers(store(), &SettingsHandler::onlineNotesReady);
    QVERIFY(answers.wait(kAnswerTime));
    QCOMPARE(answers.first().first().toBool(), false);
    QTRY_COMPARE(connectText(), kConnected);
    QVERIFY(isEnabled("connect_button"));
    QVERIFY(!canChoose());
    QCOMPARE(list()->count(), 0);
}

void TestConfManagementDialog::aRefreshOfAShownListIsIgnored()
{
    addConfigurations(2, 1);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(list()->currentIndex(), 1, kAnswerTime);
    const QStringList before = items(list());
    QVERIFY(QMetaObject::invokeMethod(m_dialog, "showList", Q_ARG(bool, true)));
    QVERIFY(QMetaObject::invokeMethod(m_dialog, "showList", Q_ARG(bool, false)));
    QCOMPARE(items(list()), before);
    QCOMPARE(connectText(), kConnected);
    QVERIFY(canChoose());
}

void TestConfManagementDialog::reconnectingFillsTheListAnew()
{
    addConfigurations(2, 1);
    openConnected();
    SiteConnection::run(m_site, {"DELETE FROM configurations WHERE id = 2"});
    press("connect_button");
    QVERIFY(!canChoose());
    QCOMPARE(list()->count(), 0);
    QCOMPARE(notes(), QString());
    QTRY_COMPARE_WITH_TIMEOUT(items(list()), QStringList{createdBy(1) + kMark}, kAnswerTime);
    QVERIFY(canChoose());
}

void TestConfManagementDialog::aDatabaseWithNoConfigurationsKeepsAskingAndTheListStaysDisabled()
{
    rememberSite();
    open();
    QSignalSpy requests(m_dialog, SIGNAL(requestIdList(int, bool)));
    QTRY_VERIFY_WITH_TIMEOUT(requests.count() >= 3, kAnswerTime);
    QCOMPARE(requests.first().at(0).toInt(), 0);
    QCOMPARE(requests.first().at(1).toBool(), true);
    QVERIFY(!canChoose());
    QVERIFY(isEnabled("cancel_button"));
    // As soon as somebody has distributed settings they are there.
    SiteConnection::run(m_site, {"INSERT INTO configurations (notes, created, creator, inform_users, "
                                 "checksum, image) VALUES ('', '2026-01-01 10:00:00', 'user1', 0, '', '')"});
    QTRY_COMPARE_WITH_TIMEOUT(items(list()), QStringList{createdBy(1)}, kAnswerTime);
    QVERIFY(canChoose());
    QCOMPARE(connectText(), kConnected);
}

void TestConfManagementDialog::deletingAsksFirst()
{
    addConfigurations(2, 1);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(list()->currentIndex(), 1, kAnswerTime);
    QSignalSpy requests(m_dialog, SIGNAL(requestDelete(int)));
    MessageBoxes boxes({"Cancel"});
    press("delete_button");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Deleting settings"));
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Deleting from database:\n") + createdBy(1) + kMark);
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Information);
    QStringList buttons = boxes.seen().first().buttons;
    buttons.sort();
    QCOMPARE(buttons, QStringList({"Cancel", "OK"}));
    QVERIFY(requests.isEmpty());
    QVERIFY(canChoose());
}

void TestConfManagementDialog::deletingRemovesTheItem()
{
    addConfigurations(3, 1);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(list()->currentIndex(), 2, kAnswerTime);
    for (const int id : {3, 2}) {
        choose(id);
        MessageBoxes boxes({"OK"});
        press("delete_button");
        QVERIFY(!isEnabled("load_button"));
        QVERIFY(!isEnabled("delete_button"));
        QTRY_COMPARE_WITH_TIMEOUT(list()->findData(id), -1, kAnswerTime);
        QVERIFY(canChoose());
        QCOMPARE(boxes.seen().size(), 1);
        QVERIFY(list()->currentIndex() >= 0);
        QCOMPARE(notes(), QStringLiteral("notes of %1").arg(list()->currentData().toInt()));
    }
    QCOMPARE(items(list()), QStringList{createdBy(1) + kMark});
    QCOMPARE(SiteConnection::run(m_site, {"SELECT id FROM configurations"}), QStringList{"1"});
}

void TestConfManagementDialog::deletingTheLastOneLeavesNothingToChoose()
{
    addConfigurations(1, 0);
    openConnected();
    MessageBoxes boxes({"OK"});
    press("delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 0, kAnswerTime);
    QVERIFY(!isEnabled("load_button"));
    QVERIFY(!isEnabled("delete_button"));
    QCOMPARE(notes(), QString());
}

void TestConfManagementDialog::deletingTheActiveConfigurationLeavesTheListAndDoesNotReconnect()
{
    addConfigurations(2, 2);
    SettingsBench bench(m_workstation, kAllRights);
    connectFromMenu(bench);
    QTRY_VERIFY_WITH_TIMEOUT(list()->currentText().endsWith(kMark), kAnswerTime);
    const QStringList before = items(list());
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    MessageBoxes boxes({"OK"});
    press("delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(boxes.seen().size(), 2, kAnswerTime);
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Deleting configuration failed"));
    QCOMPARE(boxes.seen().last().text, kFailure + QStringLiteral("Cannot delete active configuration"));
    QCOMPARE(boxes.seen().last().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().last().buttons, QStringList{"Ok"});
    QCOMPARE(items(list()), before);
    QVERIFY(canChoose());
    QVERIFY(requests.isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{notDeleted(2)});
    QVERIFY(readFile(m_workstation.runtimeLog()).contains("Settings configuration delete not ok"));
}

void TestConfManagementDialog::failedDeleting_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<bool>("reconnects");
    const QString options = QStringLiteral("Check connection options and try again");
    QTest::newRow("active") << 2 << 2 << "Cannot delete active configuration" << false;
    QTest::newRow("not deleted") << 2 << 3 << "Settings configuration was not deleted" << false;
    QTest::newRow("could not delete") << 2 << 4 << "Could not delete settings configuration" << true;
    QTest::newRow("connection lost") << 2 << 5 << options << true;
    QTest::newRow("unknown") << 2 << 1 << options << true;
    QTest::newRow("success of a foreign id") << 1 << 0 << options << true;
}

void TestConfManagementDialog::failedDeleting()
{
    QFETCH(int, id);
    QFETCH(int, error);
    QFETCH(QString, sentence);
    QFETCH(bool, reconnects);
    addConfigurations(2, 0);
    SettingsBench bench(m_workstation, kAllRights);
    connectFromMenu(bench);
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    MessageBoxes boxes;
    // The store's answer, as it comes from its worker.
    emit store()->settingsDeletedOnline(id, static_cast<OnlineSettings::QueryError>(error));
    QTRY_COMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kFailure + sentence);
    QCOMPARE(requests.count(), reconnects ? 1 : 0);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{notDeleted(error)});
    QTRY_COMPARE_WITH_TIMEOUT(items(list()), QStringList({createdBy(2), createdBy(1)}), kAnswerTime);
    QTRY_VERIFY(canChoose());
}

void TestConfManagementDialog::cancelRestoresTheSettingsAndRemembersTheConnection()
{
    addConfigurations(1, 0);
    setStored("site/own", "opened");
    m_username.clear();
    open();
    SiteConnection::signInAs(*m_dialog, "writer", "hidden");
    child<QLineEdit>(*m_dialog, "connection_setting_1")->setText("Driver=SQLite3;Database=" + m_site);
    setStored("site/own", "changed meanwhile");
    press("cancel_button");
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    QCOMPARE(m_username, QStringLiteral("writer"));
    QCOMPARE(m_password, QStringLiteral("hidden"));
    QCOMPARE(SiteConnection::remembered(m_files.cache(), "supportdb_online"),
             QStringList({"connectoptions=SQL_ATTR_LOGIN_TIMEOUT=2;SQL_ATTR_CONNECTION_TIMEOUT=2",
                          "driverparams=", "params/1/key=Database", "params/1/value=" + m_site,
                          "params/2/key=Driver", "params/2/value=SQLite3", "params/size=2", "sqltype=1"}));
    QVERIFY(!readFile(m_files.cache()).contains("hidden"));
}

void TestConfManagementDialog::closingTheWindowRestoresTheSettingsAndRemembersNothing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("the window's close button") << false;
    QTest::newRow("Escape") << true;
}

void TestConfManagementDialog::closingTheWindowRestoresTheSettingsAndRemembersNothing()
{
    QFETCH(bool, escape);
    m_username.clear();
    setStored("site/own", "opened");
    open();
    SiteConnection::signInAs(*m_dialog, "writer", "hidden");
    setStored("site/own", "changed meanwhile");
    if (escape)
        QTest::keyClick(m_dialog, Qt::Key_Escape);
    else
        m_dialog->close();
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    QCOMPARE(m_username, QString());
    QVERIFY(!QFile::exists(m_files.cache()));
}

void TestConfManagementDialog::answersAfterTheClosingAreNotHeeded()
{
    addConfigurations(1, 0);
    openConnected();
    MessageBoxes boxes;
    emit store()->settingsDeletedOnline(1, OnlineSettings::ConnectionFailure);
    emit store()->onlineNotesReady(true);
    emit store()->onlineReconnected(true);
    emit store()->activeOnlineId(1);
    m_dialog->close();
    waitForTheEnd();
    QVERIFY(boxes.seen().isEmpty());
}

void TestConfManagementDialog::theMenuOpensTheDialogAfterThePagesWereSaved()
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

void TestConfManagementDialog::anOperatorWithoutRight32OpensNoDialog()
{
    SettingsBench bench(m_workstation, kAllRights & ~DownloadSettings);
    openFromMenu(bench);
    QVERIFY(!m_dialog);
    child<QAction>(bench.view(), "manage_action")->setEnabled(true);
    openFromMenu(bench);
    QVERIFY(!m_dialog);
}

void TestConfManagementDialog::loadingClosesTheDialogAndShowsThePages()
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

void TestConfManagementDialog::aFirstOnlineLoadShowsNoComparisonAndALaterOneDoes()
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

void TestConfManagementDialog::refusingTheComparisonUndoesTheLoad()
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

void TestConfManagementDialog::aTagWithAnActiveMarkIsShownAsItStands()
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

void TestConfManagementDialog::aConfigurationThatCannotBeLoadedIsTold()
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

void TestConfManagementDialog::aCancelledDialogLeavesTheConnectionToSettingsReceivedInPlace()
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

void TestConfManagementDialog::userAndPasswordAreKeptForTheRun()
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

QTEST_MAIN(TestConfManagementDialog)
#include "test_confmanagementdialog.moc"
