#include "accesspagefixture.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kHash = QStringLiteral("b5c1e0d2a4f84e6bb8a7");
const QString kUnknownText = QStringLiteral("Unknown. Click to read state from database.");
const QString kNotAccepted = QStringLiteral("Setting not accepted");

void press(QDialog &dialog, const char *button)
{
    QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
}

}  // namespace

/// The check box of the online audit trail, with real databases behind it.
class TestOnlineAuditTrail : public AccessPageFixture
{
    Q_OBJECT

private slots:
    void theOnlineStateIsUnknownAfterEachReload();
    void theFirstPressOnlyReads_data();
    void theFirstPressOnlyReads();
    void aPressOnAReadStateChangesAndBindsIt();
    void afterSettingAcceptedSaveSettingsDoesNotTouchIt();
    void theStateBelongsToTheOneDatabase();
    void cancellingTheConnectionDialogLeavesTheStateAsItWas();
    void failures_data();
    void failures();
    void aFailureOnAReadStateKeepsTheStateAndTheSettings();
    void theConnectionIsTakenFromTheStoreTheFirstTime();
    void theConnectionIsRememberedWithoutUserAndPassword();
    void aRefusedVisitIsRememberedToo();
    void aConnectionOfAnotherVisitCutsThePagesOwnSignals_data();
    void aConnectionOfAnotherVisitCutsThePagesOwnSignals();
    void theKeyboardReadsToo();
    void assistiveTechnologyReadsToo();
    void assistiveTechnologyChangesAReadState();
    void theDialogHasItsSizesAndTexts();

private:
    /// As assistive technology does, which needs no press.
    void toggleOnline() const
    {
        QAccessible::queryAccessibleInterface(online())->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    QString auditDatabase(const QString &name, const QString &hash = kHash) const;
    void rememberDatabase(const QString &file) const
    {
        SiteConnection::remember(cacheFile(), "actiondb_online", SiteConnection::params(file));
    }
};

QString TestOnlineAuditTrail::auditDatabase(const QString &name, const QString &hash) const
{
    const QString file = m_workstation.path(name + QStringLiteral(".db"));
    QFile::remove(file);
    SiteConnection::run(
        file, {QStringLiteral("CREATE TABLE hash (id INTEGER NOT NULL DEFAULT 1 PRIMARY KEY CHECK (id = 1), "
                              "hash VARCHAR(64) NOT NULL)"),
               QStringLiteral("INSERT INTO hash (hash) VALUES ('%1')").arg(hash)});
    return file;
}

void TestOnlineAuditTrail::theOnlineStateIsUnknownAfterEachReload()
{
    rememberDatabase(auditDatabase("reload"));
    show();
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(online()->text(), kUnknownText);
    QVERIFY(online()->isTristate());
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader")});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QVERIFY(!online()->isTristate());
    m_page->reloadSettings();
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(online()->text(), kUnknownText);
    QVERIFY(online()->isTristate());
}

void TestOnlineAuditTrail::theFirstPressOnlyReads_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestOnlineAuditTrail::theFirstPressOnlyReads()
{
    QFETCH(bool, on);
    if (on)
        store()->enableAuditTrailSetting(kHash);
    const auto before = store()->generalSettings()->allKeys();
    rememberDatabase(auditDatabase("read"));
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader")});
    pressOnline();
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Setting read"));
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Setting value for connected database is now shown."));
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(online()->checkState(), on ? Qt::Checked : Qt::Unchecked);
    QCOMPARE(online()->text(), QStringLiteral("Enabled"));
    QVERIFY(!online()->isDown());
    QCOMPARE(store()->generalSettings()->allKeys(), before);
}

void TestOnlineAuditTrail::aPressOnAReadStateChangesAndBindsIt()
{
    rememberDatabase(auditDatabase("bind"));
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader"), connectAs("reader"), connectAs("reader")});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);

    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Checked);
    QVERIFY(store()->isAuditTrailSettingEnabled(kHash));
    QCOMPARE(safe("actionlog/audittrailsettinghash"), QVariant("absent"));
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Setting accepted"));
    QCOMPARE(boxes.seen().last().text,
             QStringLiteral("Setting is now bound to the connected database. Please save or distribute to "
                            "bring into effect."));
    QCOMPARE(boxes.seen().last().buttons, QStringList{"Ok"});

    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QVERIFY(!store()->isAuditTrailSettingEnabled(kHash));
    QCOMPARE(safe("actionlog/audittrailsettinghash"), QVariant(kHash));
    QCOMPARE(boxes.seen().size(), 3);
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Setting accepted"));
    QCOMPARE(dialogs.count(), 3);
}

void TestOnlineAuditTrail::afterSettingAcceptedSaveSettingsDoesNotTouchIt()
{
    rememberDatabase(auditDatabase("kept"));
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader"), connectAs("reader")});
    pressOnline();
    pressOnline();
    const QVariant setting = stored("actionlog/audittrailsetting");
    QVERIFY(!setting.toString().isEmpty());
    m_page->saveSettings();
    QCOMPARE(stored("actionlog/audittrailsetting"), setting);
    m_page->reloadSettings();
    m_page->saveSettings();
    QCOMPARE(stored("actionlog/audittrailsetting"), setting);
    QVERIFY(store()->isAuditTrailSettingEnabled(kHash));
    // Only in the working settings.
    QVERIFY(!QFile::exists(m_workstation.localApplicationSettings()));
}

void TestOnlineAuditTrail::theStateBelongsToTheOneDatabase()
{
    store()->enableAuditTrailSetting(kHash);
    rememberDatabase(auditDatabase("another", "another hash"));
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader")});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QVERIFY(store()->isAuditTrailSettingEnabled(kHash));
}

void TestOnlineAuditTrail::cancellingTheConnectionDialogLeavesTheStateAsItWas()
{
    const QString file = auditDatabase("cancel");
    rememberDatabase(file);
    show();
    MessageBoxes boxes;
    const auto cancel = [](QDialog &dialog) {
        SiteConnection::signInAs(dialog, "typed", "typed");
        press(dialog, "cancel_button");
    };
    const auto escape = [](QDialog &dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
    };
    ConnectionDialogs dialogs({cancel, connectAs("reader"), escape, cancel});
    const QStringList before = SiteConnection::remembered(cacheFile(), "actiondb_online");
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(online()->text(), kUnknownText);
    QVERIFY(!online()->isDown());
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(SiteConnection::remembered(cacheFile(), "actiondb_online"), before);
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    pressOnline();
    pressOnline();
    QCOMPARE(dialogs.count(), 4);
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QCOMPARE(online()->text(), QStringLiteral("Enabled"));
    QCOMPARE(boxes.seen().size(), 1);
}

void TestOnlineAuditTrail::failures_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QStringList>("texts");
    const QString refused = QStringLiteral("Setting was not loaded nor written.");
    const QString ask = QStringLiteral("Please enter username.");
    QTest::newRow("without a user name") << ""
                                         << "SQLite3" << QStringList() << QStringList{ask, refused};
    QTest::newRow("no such driver") << "reader"
                                    << "No such driver" << QStringList() << QStringList{refused};
    QTest::newRow("a database without a hash table gives Setting not accepted, and the box stays unknown")
        << "reader"
        << "SQLite3" << QStringList{"DROP TABLE hash"} << QStringList{refused};
    QTest::newRow("an empty hash table")
        << "reader"
        << "SQLite3" << QStringList{"DELETE FROM hash"} << QStringList{refused};
    QTest::newRow("an empty hash") << "reader"
                                   << "SQLite3" << QStringList{"UPDATE hash SET hash = ''"}
                                   << QStringList{refused};
    QTest::newRow("a table without the column")
        << "reader"
        << "SQLite3"
        << QStringList{"DROP TABLE hash", "CREATE TABLE hash (a INT)", "INSERT INTO hash VALUES (1)"}
        << QStringList{refused};
}

void TestOnlineAuditTrail::failures()
{
    QFETCH(QString, user);
    QFETCH(QString, driver);
    QFETCH(QStringList, statements);
    QFETCH(QStringList, texts);
    const QString file = auditDatabase("failing");
    SiteConnection::run(file, statements);
    QVariantMap params = SiteConnection::params(file);
    params.insert("Driver", driver);
    SiteConnection::remember(cacheFile(), "actiondb_online", params);
    store()->enableAuditTrailSetting(kHash);
    const QVariant setting = stored("actionlog/audittrailsetting");
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs(user)});
    pressOnline();
    QStringList seen;
    for (const SeenBox &each : boxes.seen()) {
        seen.append(each.text);
        QCOMPARE(each.buttons, QStringList{"Ok"});
    }
    QCOMPARE(seen, texts);
    QCOMPARE(boxes.seen().last().title, kNotAccepted);
    QCOMPARE(boxes.seen().last().icon, QMessageBox::Warning);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(online()->text(), kUnknownText);
    QCOMPARE(stored("actionlog/audittrailsetting"), setting);
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList{"actionlog/audittrailsetting"});
}

void TestOnlineAuditTrail::aFailureOnAReadStateKeepsTheStateAndTheSettings()
{
    store()->enableAuditTrailSetting(kHash);
    const QString file = auditDatabase("lost");
    rememberDatabase(file);
    show();
    MessageBoxes boxes;
    const auto loseTheTable = [&file](QDialog &dialog) {
        SiteConnection::run(file, {"DROP TABLE hash"});
        press(dialog, "connect_button");
    };
    ConnectionDialogs dialogs({connectAs("reader"), loseTheTable});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Checked);
    pressOnline();
    QCOMPARE(boxes.seen().last().title, kNotAccepted);
    QCOMPARE(online()->checkState(), Qt::Checked);
    QCOMPARE(online()->text(), QStringLiteral("Enabled"));
    QVERIFY(store()->isAuditTrailSettingEnabled(kHash));
}

void TestOnlineAuditTrail::theConnectionIsTakenFromTheStoreTheFirstTime()
{
    const QString file = auditDatabase("first");
    store()->setDatabaseSettings("actiondb", {{"params", SiteConnection::params(file)}});
    setSafe("actiondb/username", "stored user");
    setSafe("actiondb/password", "stored password");
    setStored("actiondb/sqltype", 2);
    show();
    MessageBoxes boxes;
    QStringList params;
    QStringList options;
    QString credentials;
    ConnectionDialogs dialogs({[&](QDialog &dialog) {
        params = SiteConnection::lines(dialog, "connection_setting_");
        options = SiteConnection::lines(dialog, "connection_parameter_");
        credentials = SiteConnection::userOf(dialog) + SiteConnection::passwordOf(dialog);
        QCOMPARE(child<QComboBox>(dialog, "sql_type_combo")->currentData().toInt(), 2);
        connectAs("reader")(dialog);
    }});
    pressOnline();
    QCOMPARE(params, QStringList({"Database=" + file, "Driver=SQLite3", ""}));
    QCOMPARE(options, QStringList({"SQL_ATTR_CONNECTION_TIMEOUT=2", "SQL_ATTR_LOGIN_TIMEOUT=2", ""}));
    QCOMPARE(credentials, QString());
    QCOMPARE(online()->checkState(), Qt::Unchecked);
}

void TestOnlineAuditTrail::theConnectionIsRememberedWithoutUserAndPassword()
{
    const QString file = auditDatabase("remembered");
    SiteConnection::remember(cacheFile(), "actiondb_online", {{"A", "1"}, {"B", "2"}, {"C", "3"}, {"D", "4"}},
                             QStringList{"SQL_ATTR_LOGIN_TIMEOUT=9"});
    show();
    MessageBoxes boxes;
    QString credentials;
    ConnectionDialogs dialogs(
        {[&](QDialog &dialog) {
             QCOMPARE(SiteConnection::lines(dialog, "connection_setting_"),
                      QStringList({"A=1", "B=2", "C=3", "D=4", ""}));
             child<QLineEdit>(dialog, "connection_setting_1")->setText("Driver=SQLite3;Database=" + file);
             for (const char *line : {"connection_setting_2", "connection_setting_3", "connection_setting_4"})
                 child<QLineEdit>(dialog, line)->clear();
             connectAs("reader", "secret")(dialog);
         },
         [&](QDialog &dialog) {
             credentials = SiteConnection::userOf(dialog) + SiteConnection::passwordOf(dialog);
             dialog.reject();
         },
         [&](QDialog &dialog) {
             credentials = SiteConnection::userOf(dialog) + SiteConnection::passwordOf(dialog);
             dialog.reject();
         }});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QCOMPARE(SiteConnection::remembered(cacheFile(), "actiondb_online"),
             QStringList({"connectoptions=SQL_ATTR_LOGIN_TIMEOUT=9", "driverparams=", "params/1/key=Database",
                          "params/1/value=" + file, "params/2/key=Driver", "params/2/value=SQLite3",
                          "params/size=2", "sqltype=2"}));
    QVERIFY(!readFile(cacheFile()).contains("secret"));
    QVERIFY(!readFile(cacheFile()).contains("reader"));
    pressOnline();
    QCOMPARE(credentials, QStringLiteral("readersecret"));
    show();
    pressOnline();
    QCOMPARE(credentials, QString());
    QCOMPARE(dialogs.count(), 3);
}

void TestOnlineAuditTrail::aRefusedVisitIsRememberedToo()
{
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({[](QDialog &dialog) {
        child<QLineEdit>(dialog, "connection_setting_1")->setText("Driver=Nowhere");
        connectAs("reader")(dialog);
    }});
    pressOnline();
    QCOMPARE(boxes.seen().last().title, kNotAccepted);
    QVERIFY(SiteConnection::remembered(cacheFile(), "actiondb_online").contains("params/1/value=Nowhere"));
}

void TestOnlineAuditTrail::aConnectionOfAnotherVisitCutsThePagesOwnSignals_data()
{
    QTest::addColumn<bool>("isLeft");
    QTest::newRow("the signals are heard after an ordinary visit") << false;
    QTest::newRow("the signals are cut where a connection was left") << true;
}

void TestOnlineAuditTrail::aConnectionOfAnotherVisitCutsThePagesOwnSignals()
{
    QFETCH(bool, isLeft);
    rememberDatabase(auditDatabase("left"));
    show();
    const QSignalSpy heard(m_page.get(), &AccessSettingsView::checkDefRights);
    if (isLeft)
        QSqlDatabase::addDatabase("QODBC3", "audit_trail_setting_db");
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader")});
    pressOnline();
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    emit m_page->checkDefRights();
    QCOMPARE(heard.count(), isLeft ? 0 : 1);
    const QStringList warnings = takeWarnings();
    QCOMPARE(warnings.filter("duplicate connection name").size(), isLeft ? 1 : 0);
    QCOMPARE(warnings.size(), isLeft ? 1 : 0);
}

void TestOnlineAuditTrail::theKeyboardReadsToo()
{
    rememberDatabase(auditDatabase("keyboard"));
    store()->enableAuditTrailSetting(kHash);
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader")});
    online()->setFocus();
    QTest::keyClick(online(), Qt::Key_Space);
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(online()->checkState(), Qt::Checked);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "checkAuditTrailPrivileges"));
    QCOMPARE(dialogs.count(), 2);
    QCOMPARE(online()->checkState(), Qt::Checked);
    online()->click();  // as assistive technology does
    QCOMPARE(dialogs.count(), 3);
    QCOMPARE(online()->checkState(), Qt::Checked);
}

void TestOnlineAuditTrail::assistiveTechnologyReadsToo()
{
    rememberDatabase(auditDatabase("assisted"));
    store()->enableAuditTrailSetting(kHash);
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({[](QDialog &dialog) { dialog.reject(); }, connectAs("reader")});
    QCOMPARE(online()->accessibleDescription(), kUnknownText);
    toggleOnline();
    QTRY_COMPARE(dialogs.count(), 1);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QCOMPARE(online()->text(), kUnknownText);
    toggleOnline();
    QTRY_COMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Setting read"));
    QTRY_VERIFY(!online()->isDown());
    QCOMPARE(online()->checkState(), Qt::Checked);
    QCOMPARE(dialogs.count(), 2);
}

void TestOnlineAuditTrail::assistiveTechnologyChangesAReadState()
{
    rememberDatabase(auditDatabase("assisted"));
    show();
    MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs("reader"), connectAs("reader"), connectAs("reader")});
    for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked, Qt::Unchecked}) {
        const int count = boxes.seen().size();
        toggleOnline();
        QTRY_COMPARE(boxes.seen().size(), count + 1);
        QTRY_VERIFY(!online()->isDown());
        QCOMPARE(online()->checkState(), state);
        QCOMPARE(store()->isAuditTrailSettingEnabled(kHash), state == Qt::Checked);
    }
    // Cancelled, it stays as it was read.
    toggleOnline();
    QTRY_COMPARE(dialogs.count(), 4);
    QTRY_VERIFY(!online()->isDown());
    QCOMPARE(online()->checkState(), Qt::Unchecked);
}

void TestOnlineAuditTrail::theDialogHasItsSizesAndTexts()
{
    show();
    bool seen = false;
    ConnectionDialogs dialogs({[&](QDialog &dialog) {
        seen = true;
        QVERIFY(dialog.isModal());
        const auto *area = dialog.findChild<QScrollArea *>();
        QVERIFY(area->minimumHeight() >= 300);
        QVERIFY(area->minimumWidth() >= m_page->width() / 2);
        const auto *connectButton = child<QPushButton>(dialog, "connect_button");
        const auto *cancelButton = child<QPushButton>(dialog, "cancel_button");
        QCOMPARE(connectButton->text(), QStringLiteral("Connect"));
        QCOMPARE(cancelButton->text(), QStringLiteral("Cancel"));
        QCOMPARE(connectButton->height(), 30);
        QCOMPARE(cancelButton->height(), 30);
        QVERIFY(!child<QComboBox>(dialog, "database_selector")->isVisible());
        dialog.reject();
    }});
    pressOnline();
    QVERIFY(seen);
}

QTEST_MAIN(TestOnlineAuditTrail)
#include "test_onlineaudittrail.moc"
