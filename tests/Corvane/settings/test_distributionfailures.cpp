#include "distributionfixture.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace SettingsTest;

namespace {

constexpr int kAnswerTime = 20000;  // milliseconds
const QString kNoConnection =
    QStringLiteral("Could not connect to database. Check connection options and try again.");
const QString kNotInserted = QStringLiteral("Settings could not be inserted to database. ");
QPlainTextEdit *notes(const QObject &dialog)
{
    return child<QPlainTextEdit>(dialog, "release_notes");
}

QString status(const QObject &dialog)
{
    return child<QLabel>(dialog, "distribution_status")->text();
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
const QList<bool> kAllDisabled = {false, false, false};
AuditEvent failed(const QString &data)
{
    return settingsError(Actions::SaveSettings, 0x14200002, data);
}

}  // namespace

/// Distributions that fail, are cancelled, or end before their answer.
class TestDistributionFailures : public DistributionFixture
{
    Q_OBJECT

private slots:
    void buttonsAreDisabledWhileAnAnswerIsAwaited();
    void aConnectionFailureIsToldAndKeepsWhatWasEntered();
    void aFailedAttemptGivesTheButtonTheFocusBack();
    void aConnectionFailureLeavesTheDistributeFlagClear();
    void aFailedAttemptFollowedByASuccessfulOneSendsTheSameWorkingSettings();
    void failedStoring_data();
    void failedStoring();
    void aDatabaseThatRefusesIsTold();
    void whatConnectingChangesIsPutBackBeforeSending();
    void cancellingWritesNothing_data();
    void cancellingWritesNothing();
    void closingWhileConnectingSendsNothing();
    void closingWhileSendingEndsTheDialog();
};

void TestDistributionFailures::buttonsAreDisabledWhileAnAnswerIsAwaited()
{
    open();
    QSignalSpy sent(store(), &SettingsHandler::settingsOnlineStoredReady);
    connectTo(m_site);
    QCOMPARE(status(*m_dialog), QStringLiteral("Connecting..."));
    QCOMPARE(buttons(*m_dialog), kAllDisabled);
    QString sendingStatus;
    QList<bool> sendingButtons;
    whenConnected([&] {
        sendingStatus = status(*m_dialog);
        sendingButtons = buttons(*m_dialog);
    });
    waitForTheEnd();
    QCOMPARE(sendingStatus, QStringLiteral("Sending settings..."));
    QCOMPARE(sendingButtons, kAllDisabled);
    QCOMPARE(sent.count(), 1);
}

void TestDistributionFailures::aConnectionFailureIsToldAndKeepsWhatWasEntered()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    QVERIFY(openFromMenu(bench));
    SiteConnection::signInAs(*m_dialog, "reader", "secret");
    notes(*m_dialog)->setPlainText("kept");
    child<QCheckBox>(*m_dialog, "inform_users")->click();
    const QStringList cache = remembered();
    connectTo(m_workstation.path("nowhere/site.db"), "distribute_button");
    QTRY_COMPARE_WITH_TIMEOUT(status(*m_dialog), kNoConnection, kAnswerTime);
    QCOMPARE(buttons(*m_dialog), kAllEnabled);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{failed("No connection to settings database")});
    QCOMPARE(notes(*m_dialog)->toPlainText(), QStringLiteral("kept"));
    QVERIFY(child<QCheckBox>(*m_dialog, "inform_users")->isChecked());
    QCOMPARE(SiteConnection::userOf(*m_dialog), QStringLiteral("reader"));
    QCOMPARE(SiteConnection::passwordOf(*m_dialog), QStringLiteral("secret"));
    QCOMPARE(remembered(), cache);
}

void TestDistributionFailures::aFailedAttemptGivesTheButtonTheFocusBack()
{
    open();
    child<QLineEdit>(*m_dialog, "connection_setting_1")
        ->setText("Driver=SQLite3;Database=" + m_workstation.path("nowhere/site.db"));
    auto *button = child<QPushButton>(*m_dialog, "distribute_button");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(buttons(*m_dialog), kAllDisabled);
    QCOMPARE(m_dialog->focusWidget(), m_dialog.data());
    QTRY_COMPARE_WITH_TIMEOUT(buttons(*m_dialog), kAllEnabled, kAnswerTime);
    QCOMPARE(m_dialog->focusWidget(), button);
}

void TestDistributionFailures::aConnectionFailureLeavesTheDistributeFlagClear()
{
    open();
    connectTo(m_workstation.path("nowhere/site.db"), "distribute_button");
    QTRY_COMPARE_WITH_TIMEOUT(status(*m_dialog), kNoConnection, kAnswerTime);
    connectTo(m_site, "save_button");
    waitForTheEnd();
    QCOMPARE(rows("COALESCE(active, 0)"), QStringList{"0"});
}

void TestDistributionFailures::aFailedAttemptFollowedByASuccessfulOneSendsTheSameWorkingSettings()
{
    setStored("site/own", "opened");
    open();
    connectTo(m_workstation.path("nowhere/site.db"));
    QTRY_COMPARE_WITH_TIMEOUT(status(*m_dialog), kNoConnection, kAnswerTime);
    // A database that connects and then refuses: what the working settings are then is sent by the next
    // attempt.
    setStored("site/own", "sent");
    QVERIFY(QMetaObject::invokeMethod(m_dialog, "storeReady",
                                      Q_ARG(OnlineSettings::QueryError, OnlineSettings::NoRights)));
    setStored("site/own", "changed by connecting");
    connectTo(m_site);
    waitForTheEnd();
    setStored("site/own", "changed");
    QVERIFY(store()->getOnlineSettings(1));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("sent"));
}

void TestDistributionFailures::failedStoring_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("no rights") << 3 << "Check user rights and try again.";
    QTest::newRow("unusable id") << 4 << "Check configuration ID and try again.";
    QTest::newRow("connection lost") << 5 << "Check connection options and try again.";
    QTest::newRow("active") << 2 << "Check connection options and try again.";
    QTest::newRow("unknown") << 7 << "Check connection options and try again.";
}

void TestDistributionFailures::failedStoring()
{
    QFETCH(int, error);
    QFETCH(QString, sentence);
    open();
    QSignalSpy errors(m_dialog, &DistributionView::logError);
    QString statusWhenLogged;
    connect(m_dialog, &DistributionView::logError, this, [&] { statusWhenLogged = status(*m_dialog); });
    // The store's answer, as it comes from its worker.
    emit store()->settingsOnlineStoredReady(static_cast<OnlineSettings::QueryError>(error));
    QTRY_COMPARE(status(*m_dialog), kNotInserted + sentence);
    QCOMPARE(statusWhenLogged, kNotInserted + sentence);
    QCOMPARE(buttons(*m_dialog), kAllEnabled);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.first().at(0).value<Actions::Action>(), Actions::SaveSettings);
    QCOMPARE(errors.first().at(1).value<ZephanError>(), ZephanError(0x14200002));
    QCOMPARE(errors.first().at(2).value<QVariant>().toString(),
             QStringLiteral("Distributing failed, OnlineSettings error: %1").arg(error));
    const QByteArray line = lastLine(m_workstation.runtimeLog());
    QVERIFY2(line.startsWith("WRN CV: "), line);
    QVERIFY2(line.contains("DistributionView::storeReady"), line);
    QVERIFY2(line.contains("Distributing failed"), line);
}

void TestDistributionFailures::aDatabaseThatRefusesIsTold()
{
    open();
    connectTo(m_site);
    waitForTheEnd();
    SiteConnection::run(m_site, {"ALTER TABLE configurations RENAME COLUMN notes TO other_notes"});
    setStored("site/own", "kept");
    open();
    connectTo(m_site);
    QTRY_VERIFY_WITH_TIMEOUT(status(*m_dialog).startsWith(kNotInserted), kAnswerTime);
    QCOMPARE(buttons(*m_dialog), kAllEnabled);
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));
    SiteConnection::run(m_site, {"ALTER TABLE configurations RENAME COLUMN other_notes TO notes"});
    press(*m_dialog, "save_button");
    waitForTheEnd();
    QCOMPARE(rows("id").size(), 2);
    setStored("site/own", "changed");
    QVERIFY(store()->getOnlineSettings(2));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));
}

void TestDistributionFailures::whatConnectingChangesIsPutBackBeforeSending()
{
    setStored("site/own", "opened");
    open();
    setStored("site/own", "changed meanwhile");
    connectTo(m_site);
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    setStored("site/own", "later");
    QVERIFY(store()->getOnlineSettings(1));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
}

void TestDistributionFailures::cancellingWritesNothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("the cancel button") << "button";
    QTest::newRow("the window's close button") << "window";
    QTest::newRow("Escape") << "escape";
}

void TestDistributionFailures::cancellingWritesNothing()
{
    QFETCH(QString, way);
    setStored("site/own", "opened");
    open();
    SiteConnection::signInAs(*m_dialog, "reader", "secret");
    child<QLineEdit>(*m_dialog, "connection_setting_1")->setText("Driver=SQLite3");
    setStored("site/own", "changed meanwhile");
    if (way == "button")
        press(*m_dialog, "cancel_button");
    else if (way == "window")
        m_dialog->close();
    else
        QTest::keyClick(m_dialog, Qt::Key_Escape);
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    QCOMPARE(m_username + m_password, QString());
    QVERIFY(!QFile::exists(m_files.cache()));
}

void TestDistributionFailures::closingWhileConnectingSendsNothing()
{
    setStored("site/own", "opened");
    open();
    QSignalSpy answers(store(), &SettingsHandler::onlineReconnected);
    QSignalSpy sent(store(), &SettingsHandler::settingsOnlineStoredReady);
    connectTo(m_site, "distribute_button");
    QVERIFY(answers.wait(kAnswerTime));
    // The answer is on its way to the dialog.
    m_dialog->close();
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    store()->callOnlineInit();
    QSignalSpy lists(store(), &SettingsHandler::onlineNotesReady);
    emit store()->requestIDs(0, true);
    QVERIFY(lists.wait(kAnswerTime));
    QVERIFY(store()->getOnlineNotesList().isEmpty());
    QVERIFY(sent.isEmpty());
}

void TestDistributionFailures::closingWhileSendingEndsTheDialog()
{
    setStored("site/own", "opened");
    open();
    QSignalSpy sent(store(), &SettingsHandler::settingsOnlineStoredReady);
    connectTo(m_site);
    whenConnected([&] {
        setStored("site/own", "changed meanwhile");
        m_dialog->close();
    });
    waitForTheEnd();
    QCOMPARE(stored("site/own").toString(), QStringLiteral("opened"));
    QTRY_COMPARE_WITH_TIMEOUT(sent.count(), 1, kAnswerTime);
    QVERIFY(!QFile::exists(m_files.cache()));
    QCOMPARE(m_username, QString());
}

QTEST_MAIN(TestDistributionFailures)
#include "test_distributionfailures.moc"
