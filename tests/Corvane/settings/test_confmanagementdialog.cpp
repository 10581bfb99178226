#include "Corvane/settings/databasegroupsettings.h"
#include "confmanagementfixture.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace SettingsTest;

namespace {

constexpr int kQuietTime = 300;  // milliseconds
const QString kConnected = QStringLiteral("Connected - reconnect");
const QString kNotConnected = QStringLiteral("No connection - connect");
const QString kConnecting = QStringLiteral("Connecting...");
const QString kMark = QStringLiteral(" - Active in database");

QString createdBy(int id)
{
    return QStringLiteral("%1 Created 2026-01-0%1 10:00:00 (UTC) by user%1").arg(id);
}

}  // namespace

/// The management dialog: how it connects, lists and closes.
class TestConfManagementDialog : public ConfManagementFixture
{
    Q_OBJECT

private slots:
    void theDialogHasItsSizesAndTexts();
    void widgetsStandInTheirRowsAndColumns();
    void foldingTheConnection();
    void returnInALineStartsNothing();
    void returnOnAButtonPressesThatButtonAndNoOther_data();
    void returnOnAButtonPressesThatButtonAndNoOther();
    void theConnectButtonHasTheFocusAgainOnceThereIsAnAnswer_data();
    void theConnectButtonHasTheFocusAgainOnceThereIsAnAnswer();
    void aFocusThatWasMovedMeanwhileStays();
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
    void cancelRestoresTheSettingsAndRemembersTheConnection();
    void closingTheWindowRestoresTheSettingsAndRemembersNothing_data();
    void closingTheWindowRestoresTheSettingsAndRemembersNothing();
    void answersAfterTheClosingAreNotHeeded();
    void aLateListDoesNotReachTheNextDialog();
};

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

void TestConfManagementDialog::widgetsStandInTheirRowsAndColumns()
{
    m_username.clear();
    open();
    auto *grid = qobject_cast<QGridLayout *>(m_dialog->layout());
    QCOMPARE(grid->verticalSpacing(), 0);
    QCOMPARE(grid->horizontalSpacing(), 10);
    for (const int row : {2, 7, 9, 16})
        QCOMPARE(grid->rowStretch(row), 10);
    struct Place
    {
        const char *name;
        int row;
        int column;
        int rows;
        int columns;
        Qt::Alignment side;
    };
    for (const Place &wanted :
         {Place{"configuration_list", 1, 0, 1, 6, {}}, Place{"configuration_notes", 4, 0, 3, 6, {}},
          Place{"connection_area", 10, 0, 6, 6, {}}}) {
        const int index = grid->indexOf(child<QWidget>(*m_dialog, wanted.name));
        Place found = wanted;
        grid->getItemPosition(index, &found.row, &found.column, &found.rows, &found.columns);
        QCOMPARE(QVector<int>({found.row, found.column, found.rows, found.columns}),
                 QVector<int>({wanted.row, wanted.column, wanted.rows, wanted.columns}));
        QCOMPARE(grid->itemAt(index)->alignment(), wanted.side);
    }
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
    const auto *editor = m_dialog->findChild<DatabaseGroupSettings *>();
    QCOMPARE(editor->minimumWidth(), area->minimumWidth() - 15);
    QVERIFY2(editor->minimumHeight() >= 300, qPrintable(QString::number(editor->minimumHeight())));
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

void TestConfManagementDialog::returnOnAButtonPressesThatButtonAndNoOther_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("onOptions");
    QTest::newRow("Return on the options button unfolds them") << Qt::Key_Return << true;
    QTest::newRow("Enter on the options button unfolds them") << Qt::Key_Enter << true;
    QTest::newRow("Return on the connect button connects anew") << Qt::Key_Return << false;
}

void TestConfManagementDialog::returnOnAButtonPressesThatButtonAndNoOther()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, onOptions);
    addConfigurations(1, 0);
    openConnected();
    setStored("site/own", "opened");
    QSignalSpy loads(m_dialog, SIGNAL(loadTag(QString)));
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    auto *button = child<QToolButton>(*m_dialog, onOptions ? "options_button" : "connect_button");
    button->setFocus();
    QTest::keyClick(button, key);
    QVERIFY(loads.isEmpty());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    QCOMPARE(child<QScrollArea>(*m_dialog, "connection_area")->isVisible(), onOptions);
    QCOMPARE(requests.count(), onOptions ? 0 : 1);
}

void TestConfManagementDialog::theConnectButtonHasTheFocusAgainOnceThereIsAnAnswer_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("the list of the database") << true;
    QTest::newRow("no connection") << false;
}

void TestConfManagementDialog::theConnectButtonHasTheFocusAgainOnceThereIsAnAnswer()
{
    QFETCH(bool, isThere);
    addConfigurations(1, 0);
    if (isThere)
        rememberSite();
    m_username.clear();
    open();
    auto *button = child<QToolButton>(*m_dialog, "connect_button");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!button->isEnabled());
    // The next keys press nothing that the focus would have moved on to.
    QCOMPARE(m_dialog->focusWidget(), m_dialog.data());
    QTest::keyClick(m_dialog, Qt::Key_Space);
    QVERIFY(child<QScrollArea>(*m_dialog, "connection_area")->isHidden());
    QTRY_VERIFY_WITH_TIMEOUT(isThere ? canChoose() : button->isEnabled(), kAnswerTime);
    QCOMPARE(m_dialog->focusWidget(), button);
}

void TestConfManagementDialog::aFocusThatWasMovedMeanwhileStays()
{
    addConfigurations(1, 0);
    rememberSite();
    m_username.clear();
    open();
    auto *button = child<QToolButton>(*m_dialog, "connect_button");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    auto *options = child<QToolButton>(*m_dialog, "options_button");
    options->setFocus();
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
    QCOMPARE(m_dialog->focusWidget(), options);
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

void TestConfManagementDialog::aLateListDoesNotReachTheNextDialog()
{
    addConfigurations(1, 1);
    rememberSite();
    m_username.clear();
    m_password.clear();
    open();
    press("connect_button");
    QCoreApplication::sendPostedEvents();  // the request is with the worker
    press("cancel_button");
    open();
    QTest::qWait(kQuietTime);
    QCOMPARE(connectText(), kNotConnected);
    QVERIFY(!canChoose());
    QCOMPARE(list()->count(), 0);
}

QTEST_MAIN(TestConfManagementDialog)
#include "test_confmanagementdialog.moc"
