#include "Corvane/settings/databasegroupsettings.h"
#include "distributionfixture.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

using namespace SettingsTest;

namespace {

QPlainTextEdit *notes(const QObject &dialog)
{
    return child<QPlainTextEdit>(dialog, "release_notes");
}

/// Which of distribute, save and cancel can be pressed.
QList<bool> buttons(const QObject &dialog)
{
    QList<bool> states;
    for (const char *name : {"distribute_button", "save_button", "cancel_button"})
        states.append(child<QPushButton>(dialog, name)->isEnabled());
    return states;
}

const QList<bool> kAllEnabled = {true, true, true};

}  // namespace

/// The distribution dialog: how it opens, and what it sends.
class TestDistributionView : public DistributionFixture
{
    Q_OBJECT

private slots:
    void theDialogHasItsSizesAndTexts();
    void cancelHasTheFocusAndReturnInALineSendsNothing();
    void returnOnTheInformBoxSendsNothing_data();
    void returnOnTheInformBoxSendsNothing();
    void theMenuOpensTheDialogAfterThePagesWereSaved();
    void anOperatorWithoutRight16OpensNoDialog();
    void showingThePagesTwiceOpensOneDialog();
    void missingRightsAreNotedAndTheDialogOpensAnyway_data();
    void missingRightsAreNotedAndTheDialogOpensAnyway();
    void withoutTheDatabaseRightTheDatabaseGroupsAreNotSent();
    void aFirstDistributionStartsWithTheStoresParametersAndEmptyCredentials();
    void aRememberedConnectionIsShown();
    void aRememberedConnectionWithoutOptionsHasTheDefaultTimeouts();
    void savingStoresTheSettingsAndLeavesTheActiveConfiguration();
    void distributingMakesTheConfigurationActive();
    void theInformBoxIsSent();
    void theRecord_data();
    void theRecord();
    void anOperatorNameOf40CharactersIsStoredWithItsFirst32_data();
    void anOperatorNameOf40CharactersIsStoredWithItsFirst32();
    void aSecondDistributionInTheSameRunShowsUserAndPasswordAgain();
};

void TestDistributionView::theDialogHasItsSizesAndTexts()
{
    open();
    QCOMPARE(m_dialog->size(), QSize(480, 600));
    QCOMPARE(m_dialog->minimumSize(), m_dialog->maximumSize());
    QCOMPARE(m_dialog->windowModality(), Qt::ApplicationModal);
    QVERIFY(qobject_cast<QDialog *>(m_dialog));
    const auto *grid = qobject_cast<QGridLayout *>(m_dialog->layout());
    QCOMPARE(grid->contentsMargins(), QMargins(6, 2, 6, 2));
    QCOMPARE(grid->horizontalSpacing(), 10);
    QCOMPARE(grid->verticalSpacing(), 10);
    QCOMPARE(grid->rowStretch(2), 20);

    const auto textAt = [&](int row, int column) {
        const QWidget *widget = grid->itemAtPosition(row, column)->widget();
        return widget->property("text").toString();
    };
    QCOMPARE(textAt(0, 0), QStringLiteral("Options to connect settings database"));
    QCOMPARE(textAt(3, 0), QStringLiteral("Insert additional configuration information"));
    QCOMPARE(textAt(4, 0), QStringLiteral("Inform user about settings change"));
    QCOMPARE(textAt(5, 0), QStringLiteral("Add configuration release notes:"));
    QCOMPARE(textAt(7, 0), QString());
    QCOMPARE(textAt(9, 0), QStringLiteral("Distribute to users"));
    QCOMPARE(textAt(9, 1), QStringLiteral("Save to database"));
    QCOMPARE(textAt(9, 2), QStringLiteral("Cancel"));
    QVERIFY(grid->itemAtPosition(0, 0)->widget()->font().bold());
    QVERIFY(grid->itemAtPosition(3, 0)->widget()->font().bold());
    QVERIFY(!grid->itemAtPosition(5, 0)->widget()->font().bold());
    for (const auto &rowAndHeight : {qMakePair(0, 20), qMakePair(1, 250), qMakePair(3, 20), qMakePair(4, 20),
                                     qMakePair(5, 20), qMakePair(6, 100), qMakePair(7, 40), qMakePair(9, 30)})
        QCOMPARE(grid->itemAtPosition(rowAndHeight.first, 0)->widget()->height(), rowAndHeight.second);

    const auto *area = child<QScrollArea>(*m_dialog, "connection_area");
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), area);
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(area->widget()->width() <= area->viewport()->width());
    QCOMPARE(m_dialog->findChild<DatabaseGroupSettings *>()->minimumWidth(), area->minimumWidth() - 15);
    QCOMPARE(notes(*m_dialog)->wordWrapMode(), QTextOption::WordWrap);
    QVERIFY(child<QLabel>(*m_dialog, "distribution_status")->wordWrap());
    QVERIFY(!child<QComboBox>(*m_dialog, "database_selector")->isVisible());
    QVERIFY(!child<QComboBox>(*m_dialog, "online_mode_combo")->isVisible());
    QCOMPARE(buttons(*m_dialog), kAllEnabled);
}

void TestDistributionView::cancelHasTheFocusAndReturnInALineSendsNothing()
{
    open();
    QCOMPARE(m_dialog->focusWidget(), child<QPushButton>(*m_dialog, "cancel_button"));
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    auto *user = child<QLineEdit>(*m_dialog, "username_edit");
    user->setFocus();
    QTest::keyClicks(user, "reader");
    QTest::keyClick(user, Qt::Key_Return);
    QVERIFY(requests.isEmpty());
    QVERIFY(m_dialog->isVisible());
}

void TestDistributionView::returnOnTheInformBoxSendsNothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void TestDistributionView::returnOnTheInformBoxSendsNothing()
{
    QFETCH(Qt::Key, key);
    open();
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    auto *box = child<QCheckBox>(*m_dialog, "inform_users");
    box->setFocus();
    QTest::keyClick(box, key);
    QVERIFY(requests.isEmpty());
    QVERIFY(!box->isChecked());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(buttons(*m_dialog), kAllEnabled);
}

void TestDistributionView::theMenuOpensTheDialogAfterThePagesWereSaved()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    setStored("ui/geometry", "here");
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    MessageBoxes boxes;
    QVERIFY(openFromMenu(bench));
    QVERIFY(m_dialog->isVisible());
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(m_files.workingValue("ui/measurement_units").toInt(), 1);
    QVERIFY(!m_files.workingKeys().contains("ui/geometry"));
    QVERIFY(bench.takeEvents().isEmpty());
    connectTo(m_site, "distribute_button");
    waitForTheEnd();
    QCOMPARE(rows("creator"), QStringList{"anna"});
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestDistributionView::anOperatorWithoutRight16OpensNoDialog()
{
    SettingsBench bench(m_workstation, kAllRights & ~DistributeSettings);
    bench.choose("local_menu", "load_action");
    QVERIFY(!openFromMenu(bench));
    child<QAction>(bench.view(), "distribute_action")->setEnabled(true);
    QVERIFY(!openFromMenu(bench));
}

void TestDistributionView::showingThePagesTwiceOpensOneDialog()
{
    SettingsBench bench(m_workstation, kAllRights);
    QVERIFY(!openFromMenu(bench));
    bench.view().showSettings();
    bench.view().showSettings();
    QVERIFY(openFromMenu(bench));
    QCOMPARE(bench.view().findChildren<DistributionView *>().size(), 1);
}

void TestDistributionView::missingRightsAreNotedAndTheDialogOpensAnyway_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<QString>("text");
    QTest::newRow("without right 2") << (kAllRights & ~2)
                                     << "Notice. Lacking privileges to save database settings.";
    QTest::newRow("without right 4") << (kAllRights & ~4)
                                     << "Notice. Lacking privileges to save local audit trail settings.";
    QTest::newRow("with right 16 alone")
        << int(DistributeSettings)
        << "Notice. Lacking privileges to save database settings. Lacking privileges to save local audit "
           "trail settings. Lacking privileges to save local access control settings.";
}

void TestDistributionView::missingRightsAreNotedAndTheDialogOpensAnyway()
{
    QFETCH(int, rights);
    QFETCH(QString, text);
    SettingsBench bench(m_workstation, rights);
    bench.choose("local_menu", "load_action");
    MessageBoxes boxes;
    QVERIFY(openFromMenu(bench));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, text);
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QVERIFY(m_dialog->isVisible());
}

void TestDistributionView::withoutTheDatabaseRightTheDatabaseGroupsAreNotSent()
{
    m_files.setLocal({{"persondb/sqltype", 2},
                      {"studydb/sqltype", 2},
                      {"supportdb/sqltype", 2},
                      {"actiondb/sqltype", 2},
                      {"persondb/params/size", 1},
                      {"persondb/params/1/key", "Server"},
                      {"persondb/params/1/value", "db.example"}});
    SettingsBench bench(m_workstation, kAllRights & ~WriteLocalDbSettings);
    bench.choose("local_menu", "load_action");
    QCOMPARE(SiteConnection::lines(bench.view(), "connection_setting_").first(),
             QStringLiteral("Server=db.example"));
    MessageBoxes boxes;
    QVERIFY(openFromMenu(bench));
    for (const QString &key : m_files.workingKeys())
        QVERIFY2(!key.contains(QLatin1String("db/")), qPrintable(key));
    // The page shows what is left.
    QCOMPARE(child<QWidget>(bench.view(), "database_page")
                 ->findChild<QLineEdit *>(QStringLiteral("connection_setting_1"))
                 ->text(),
             QString());
}

void TestDistributionView::aFirstDistributionStartsWithTheStoresParametersAndEmptyCredentials()
{
    store()->setDatabaseSettings("supportdb", {{"params", SiteConnection::params(m_site)}});
    store()->setSafeValue("supportdb/username", "stored user");
    store()->setSafeValue("supportdb/password", "stored password");
    setStored("supportdb/sqltype", 2);
    m_username = "remembered";
    open();
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_setting_"),
             QStringList({"Database=" + m_site, "Driver=SQLite3", ""}));
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_parameter_"),
             QStringList({"SQL_ATTR_LOGIN_TIMEOUT=2", "SQL_ATTR_CONNECTION_TIMEOUT=2", ""}));
    QCOMPARE(child<QComboBox>(*m_dialog, "sql_type_combo")->currentData().toInt(), 2);
    QCOMPARE(SiteConnection::userOf(*m_dialog), QString());
    QCOMPARE(SiteConnection::passwordOf(*m_dialog), QString());
}

void TestDistributionView::aRememberedConnectionIsShown()
{
    store()->setDatabaseSettings("supportdb", {{"params", QVariantMap{{"A", "1"}}}});
    SiteConnection::remember(m_files.cache(), "supportdb_online", SiteConnection::params(m_site),
                             QStringList{"SQL_ATTR_LOGIN_TIMEOUT=9"}, 2);
    m_username = "remembered";
    m_password = "secret";
    open();
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_setting_"),
             QStringList({"Database=" + m_site, "Driver=SQLite3", ""}));
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_parameter_"),
             QStringList({"SQL_ATTR_LOGIN_TIMEOUT=9", ""}));
    QCOMPARE(child<QComboBox>(*m_dialog, "sql_type_combo")->currentData().toInt(), 2);
    QCOMPARE(SiteConnection::userOf(*m_dialog), QStringLiteral("remembered"));
    QCOMPARE(SiteConnection::passwordOf(*m_dialog), QStringLiteral("secret"));
}

void TestDistributionView::aRememberedConnectionWithoutOptionsHasTheDefaultTimeouts()
{
    SiteConnection::remember(m_files.cache(), "supportdb_online", SiteConnection::params(m_site));
    open();
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_parameter_"), QStringList{QString()});
    m_dialog->close();
    QTRY_VERIFY(!m_dialog);

    openSettingsFile(m_files.cache())->remove("supportdb_online/connectoptions");
    open();
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_parameter_"),
             QStringList({"SQL_ATTR_LOGIN_TIMEOUT=2", "SQL_ATTR_CONNECTION_TIMEOUT=2", ""}));
}

void TestDistributionView::savingStoresTheSettingsAndLeavesTheActiveConfiguration()
{
    setStored("site/own", "sent");
    open();
    connectTo(m_site, "distribute_button");
    waitForTheEnd();
    const QStringList before = m_files.workingKeys();
    open();
    connectTo(m_site, "save_button");
    waitForTheEnd();
    QCOMPARE(rows("COALESCE(active, 0)"), QStringList({"1", "0"}));
    QCOMPARE(m_files.workingKeys(), before);
    // What was stored is what stood there.
    setStored("site/own", "changed");
    QVERIFY(store()->getOnlineSettings(2));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("sent"));
}

void TestDistributionView::distributingMakesTheConfigurationActive()
{
    for (int i = 0; i < 2; ++i) {
        open();
        connectTo(m_site, "distribute_button");
        waitForTheEnd();
    }
    QCOMPARE(rows("COALESCE(active, 0)"), QStringList({"0", "1"}));
}

void TestDistributionView::theInformBoxIsSent()
{
    open();
    connectTo(m_site);
    waitForTheEnd();
    open();
    QVERIFY(!child<QCheckBox>(*m_dialog, "inform_users")->isChecked());
    child<QCheckBox>(*m_dialog, "inform_users")->click();
    connectTo(m_site);
    waitForTheEnd();
    QCOMPARE(rows("inform_users"), QStringList({"0", "1"}));
}

void TestDistributionView::theRecord_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("an empty note is sent as an empty text") << QString();
    QTest::newRow("lines") << "first\nsecond\n";
    QTest::newRow("letters of many languages") << QString::fromUtf8("Übersicht – リリース 'quoted' \"%1\" ;");
}

void TestDistributionView::theRecord()
{
    QFETCH(QString, text);
    const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
    open();
    notes(*m_dialog)->setPlainText(text);
    connectTo(m_site);
    waitForTheEnd();
    QCOMPARE(rows("notes"), QStringList{text});
    const QString created = rows("created").value(0);
    QDateTime time = QDateTime::fromString(created, "yyyy-MM-dd hh:mm:ss");
    time.setTimeSpec(Qt::UTC);
    QVERIFY2(time.isValid(), qPrintable(created));
    QVERIFY(time >= before && time <= QDateTime::currentDateTimeUtc());
}

void TestDistributionView::anOperatorNameOf40CharactersIsStoredWithItsFirst32_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("creator");
    QTest::newRow("40 characters") << QString(32, 'a') + QString(8, 'b') << QString(32, 'a');
    QTest::newRow("32 characters") << QString(32, 'a') << QString(32, 'a');
    QTest::newRow("an empty name is Admin") << QString() << "Admin";
}

void TestDistributionView::anOperatorNameOf40CharactersIsStoredWithItsFirst32()
{
    QFETCH(QString, name);
    QFETCH(QString, creator);
    open(name);
    connectTo(m_site);
    waitForTheEnd();
    QCOMPARE(rows("creator"), QStringList{creator});
}

void TestDistributionView::aSecondDistributionInTheSameRunShowsUserAndPasswordAgain()
{
    {
        SettingsBench bench(m_workstation, kAllRights);
        bench.choose("local_menu", "load_action");
        QVERIFY(openFromMenu(bench));
        SiteConnection::signInAs(*m_dialog, "reader", "secret");
        connectTo(m_site);
        waitForTheEnd();
        QCOMPARE(remembered(), QStringList({"connectoptions=SQL_ATTR_LOGIN_TIMEOUT=2;"
                                            "SQL_ATTR_CONNECTION_TIMEOUT=2",
                                            "driverparams=", "params/1/key=Database",
                                            "params/1/value=" + m_site, "params/2/key=Driver",
                                            "params/2/value=SQLite3", "params/size=2", "sqltype=1"}));
        QVERIFY(openFromMenu(bench));
        QCOMPARE(SiteConnection::userOf(*m_dialog), QStringLiteral("reader"));
        QCOMPARE(SiteConnection::passwordOf(*m_dialog), QStringLiteral("secret"));
        m_dialog->close();
        waitForTheEnd();
    }
    // After a restart the password is gone and the parameters are not.
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    QVERIFY(openFromMenu(bench));
    QCOMPARE(SiteConnection::lines(*m_dialog, "connection_setting_"),
             QStringList({"Database=" + m_site, "Driver=SQLite3", ""}));
    QCOMPARE(SiteConnection::userOf(*m_dialog), QString());
    QCOMPARE(SiteConnection::passwordOf(*m_dialog), QString());
    for (const QString &file : {m_files.cache(), m_files.working()})
        QVERIFY(!readFile(file).contains("secret"));
}

QTEST_MAIN(TestDistributionView)
#include "test_distributionview.moc"
