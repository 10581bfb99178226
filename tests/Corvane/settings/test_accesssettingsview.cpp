#include "accesspagefixture.h"
#include "settingstest.h"
#include "support/filedialogs.h"

#include <QClipboard>
#include <QComboBox>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kHash = QStringLiteral("b5c1e0d2a4f84e6bb8a7");
const QStringList kAccessKeys = {QStringLiteral("accesscontrol/method"),
                                 QStringLiteral("accesscontrol/offline_authentication"),
                                 QStringLiteral("accesscontrol/offline_authentication_expiration_time"),
                                 QStringLiteral("accesscontrol/single_workstation_access_method_system"),
                                 QStringLiteral("accesscontrol/single_workstation_db_location"),
                                 QStringLiteral("accesscontrol/warn_user_expiration")};

}  // namespace

/// The access and audit trail page on its real widgets: what it shows, saves, removes and enables.
class TestAccessSettingsView : public AccessPageFixture
{
    Q_OBJECT

private slots:
    void thePageHasTwoColumnsWithItsTexts();
    void emptySettingsShowTheDefaults();
    void storedSettingsAreShown();
    void whatIsShownIsSavedInItsForm();
    void aPastedLocationLosesTheEndOfItsLine();
    void theMethods_data();
    void theMethods();
    void widgetsFollowEachOtherAndTheRights_data();
    void widgetsFollowEachOtherAndTheRights();
    void anOperatorWithoutRight1SeesTheAccessWidgetsDisabledAndSavingRemovesTheKeys();
    void anOperatorWithoutRight4SeesTheAuditWidgetsDisabledAndSavingRemovesTheKeys();
    void settingTheDaysTo0UnchecksTheWarnBoxAndSettingThemBackRestoresIt_data();
    void settingTheDaysTo0UnchecksTheWarnBoxAndSettingThemBackRestoresIt();
    void aStoredWarningOf0DaysComesBackWithTheDays();
    void theSuffixTellsThatNothingExpires();
    void locations_data();
    void locations();
    void aTypedLocationThatDoesNotEndInTheFilesNameIsStoredUnchanged();
    void browsingFillsTheLocation();
    void destructionSaves();
    void aDamagedSafeValueIsShownAsTheDefault();
};

void TestAccessSettingsView::thePageHasTwoColumnsWithItsTexts()
{
    show();
    int columns = 0;
    for (const QFrame *frame : m_page->findChildren<QFrame *>()) {
        if (frame->frameShape() != QFrame::StyledPanel || frame->inherits("QScrollArea"))
            continue;
        ++columns;
        QVERIFY(frame->width() >= 362);
        QVERIFY(frame->height() >= 410);
    }
    QCOMPARE(columns, 2);
    QStringList titles;
    QStringList labels;
    for (const QLabel *label : m_page->findChildren<QLabel *>())
        (label->font().bold() ? titles : labels).append(label->text());
    QCOMPARE(titles, QStringList({"Access control settings", "Offline Cache", "Audit trail settings",
                                  "Online audit trail"}));
    QCOMPARE(labels,
             QStringList({"Access control method", "Expiration time", "Path to local access control database",
                          "Audit trail offline database location"}));
    QCOMPARE(box("offline_authentication")->text(), QStringLiteral("Enabled"));
    QCOMPARE(box("warn_expiration")->text(), QStringLiteral("Warn user of expiration"));
    QCOMPARE(box("local_access_control")->text(), QStringLiteral("Local access control system"));
    QCOMPARE(box("offline_audit_trail")->text(), QStringLiteral("Offline audit trail enabled"));
    QCOMPARE(child<QPushButton>(*m_page, "local_access_location_browse")->text(),
             QStringLiteral("Browse..."));
    QCOMPARE(child<QSpinBox>(*m_page, "expiration_time")->minimum(), 0);
    QCOMPARE(child<QSpinBox>(*m_page, "expiration_time")->maximum(), 9999);
}

void TestAccessSettingsView::emptySettingsShowTheDefaults()
{
    show();
    QCOMPARE(child<QComboBox>(*m_page, "access_method")->currentIndex(), 0);
    QVERIFY(box("offline_authentication")->isChecked());
    QCOMPARE(child<QSpinBox>(*m_page, "expiration_time")->value(), 30);
    QVERIFY(box("warn_expiration")->isChecked());
    QVERIFY(box("local_access_control")->isChecked());
    QCOMPARE(child<QLineEdit>(*m_page, "local_access_location")->text(), QString());
    QVERIFY(box("offline_audit_trail")->isChecked());
    QCOMPARE(child<QLineEdit>(*m_page, "audit_trail_location")->text(), QStringLiteral("actionlog"));
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestAccessSettingsView::storedSettingsAreShown()
{
    show();
    setSafe("accesscontrol/method", "Internal users");
    setSafe("accesscontrol/offline_authentication", false);
    setSafe("accesscontrol/offline_authentication_expiration_time", 7);
    setStored("accesscontrol/warn_user_expiration", false);
    setSafe("accesscontrol/single_workstation_access_method_system", false);
    setSafe("accesscontrol/single_workstation_db_location", "/site/");
    setStored("actionlog/activated", false);
    setStored("actionlog/location", "/site/log");
    m_page->reloadSettings();
    QCOMPARE(child<QComboBox>(*m_page, "access_method")->currentText(), QStringLiteral("Internal users"));
    QVERIFY(!box("offline_authentication")->isChecked());
    QCOMPARE(child<QSpinBox>(*m_page, "expiration_time")->value(), 7);
    QVERIFY(!box("warn_expiration")->isChecked());
    QVERIFY(!box("local_access_control")->isChecked());
    QCOMPARE(child<QLineEdit>(*m_page, "local_access_location")->text(),
             QStringLiteral("/site/offline.access.db"));
    QVERIFY(!box("offline_audit_trail")->isChecked());
    QCOMPARE(child<QLineEdit>(*m_page, "audit_trail_location")->text(), QStringLiteral("/site/log"));
}

void TestAccessSettingsView::aPastedLocationLosesTheEndOfItsLine()
{
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("/site/log\r\n"));
    for (const char *name : {"audit_trail_location", "local_access_location"}) {
        auto *edit = child<QLineEdit>(*m_page, name);
        edit->selectAll();
        edit->paste();
        QCOMPARE(edit->text(), QStringLiteral("/site/log"));
    }
}

void TestAccessSettingsView::whatIsShownIsSavedInItsForm()
{
    show();
    child<QComboBox>(*m_page, "access_method")->setCurrentIndex(2);
    box("local_access_control")->click();
    box("warn_expiration")->click();
    child<QSpinBox>(*m_page, "expiration_time")->setValue(12);
    box("offline_authentication")->click();
    box("offline_audit_trail")->click();
    child<QLineEdit>(*m_page, "audit_trail_location")->setText("/log");
    m_page->saveSettings();
    QCOMPARE(safe("accesscontrol/method"), QVariant("Windows user based"));
    QCOMPARE(safe("accesscontrol/offline_authentication"), QVariant(false));
    QCOMPARE(safe("accesscontrol/offline_authentication_expiration_time"), QVariant(12));
    QCOMPARE(stored("accesscontrol/warn_user_expiration"), QVariant(false));
    QCOMPARE(safe("accesscontrol/single_workstation_access_method_system"), QVariant(false));
    QCOMPARE(safe("accesscontrol/single_workstation_db_location"), QVariant(QString()));
    QCOMPARE(stored("actionlog/activated"), QVariant(false));
    QCOMPARE(stored("actionlog/location"), QVariant("/log"));
    // Safe values have no readable form.
    for (const QString &key : kAccessKeys) {
        const bool plain = key == QStringLiteral("accesscontrol/warn_user_expiration");
        QCOMPARE(store()->generalSettings()->value(key).toString().isEmpty(), !plain);
    }
    QVERIFY(!store()->generalSettings()->contains("actionlog/audittrailsetting"));
    QVERIFY(!store()->generalSettings()->contains("actionlog/audittrailsettinghash"));
}

void TestAccessSettingsView::theMethods_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("saved");
    QTest::newRow("none") << QVariant("none") << 0 << "none";
    QTest::newRow("group") << QVariant("Windows group based") << 1 << "Windows group based";
    QTest::newRow("user") << QVariant("Windows user based") << 2 << "Windows user based";
    QTest::newRow("internal") << QVariant("Internal users") << 3 << "Internal users";
    QTest::newRow("the default matches none and selects the first") << QVariant("default") << 0 << "none";
    QTest::newRow("nonsense selects the first") << QVariant("x\n=") << 0 << "none";
    QTest::newRow("a list selects the first")
        << QVariant(QStringList{"Internal users", "none"}) << 0 << "none";
    QTest::newRow("an empty text selects the first") << QVariant(QString()) << 0 << "none";
}

void TestAccessSettingsView::theMethods()
{
    QFETCH(QVariant, stored);
    QFETCH(int, index);
    QFETCH(QString, saved);
    setSafe("accesscontrol/method", stored);
    show();
    const auto *method = child<QComboBox>(*m_page, "access_method");
    QCOMPARE(items(method),
             QStringList({"None", "Windows group based", "Windows user based", "Internal users"}));
    QCOMPARE(method->currentIndex(), index);
    m_page->saveSettings();
    QCOMPARE(safe("accesscontrol/method"), QVariant(saved));
}

void TestAccessSettingsView::widgetsFollowEachOtherAndTheRights_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<bool>("local");
    QTest::addColumn<bool>("cache");
    QTest::addColumn<int>("days");
    QTest::addColumn<bool>("log");
    // Those that are enabled, in short.
    QTest::addColumn<QString>("enabled");
    QTest::newRow("local system on") << kBothRights << true << true << 30 << true
                                     << "method local path log logpath";
    QTest::newRow("local system off")
        << kBothRights << false << true << 30 << true << "method cache label days warn local log logpath";
    QTest::newRow("no days") << kBothRights << false << true << 0 << true
                             << "method cache label days local log logpath";
    QTest::newRow("no offline cache")
        << kBothRights << false << false << 30 << true << "method cache label local log logpath";
    QTest::newRow("local system on, no cache, no days")
        << kBothRights << true << false << 0 << true << "method local path log logpath";
    QTest::newRow("no offline audit trail")
        << kBothRights << true << true << 30 << false << "method local path log";
    QTest::newRow("without right 1, local system on")
        << int(AuditTrailManagement) << true << true << 30 << true << "log logpath";
    QTest::newRow("without right 1, local system off")
        << int(AuditTrailManagement) << false << true << 30 << true << "log logpath";
    QTest::newRow("without right 4") << int(AccessControlManagement) << false << true << 30 << true
                                     << "method cache label days warn local";
    QTest::newRow("other rights don't count")
        << int(WriteLocalDbSettings | DistributeSettings) << false << true << 30 << true << "";
}

void TestAccessSettingsView::widgetsFollowEachOtherAndTheRights()
{
    QFETCH(int, rights);
    QFETCH(bool, local);
    QFETCH(bool, cache);
    QFETCH(int, days);
    QFETCH(bool, log);
    QFETCH(QString, enabled);
    const auto states = [this] {
        const QLabel *label = nullptr;
        for (const QLabel *each : m_page->findChildren<QLabel *>()) {
            if (each->text() == QStringLiteral("Expiration time"))
                label = each;
        }
        const QList<QPair<const char *, const QWidget *>> widgets = {
            {"method", child<QWidget>(*m_page, "access_method")},
            {"cache", box("offline_authentication")},
            {"label", label},
            {"days", child<QWidget>(*m_page, "expiration_time")},
            {"warn", box("warn_expiration")},
            {"local", box("local_access_control")},
            {"path", child<QWidget>(*m_page, "local_access_location")},
            {"log", box("offline_audit_trail")},
            {"logpath", child<QWidget>(*m_page, "audit_trail_location")}};
        QStringList names;
        for (const auto &widget : widgets) {
            if (widget.second->isEnabled())
                names.append(QLatin1String(widget.first));
        }
        return names.join(QLatin1Char(' '));
    };
    const auto *browse = "local_access_location_browse";
    setSafe("accesscontrol/single_workstation_access_method_system", local);
    setSafe("accesscontrol/offline_authentication", cache);
    setSafe("accesscontrol/offline_authentication_expiration_time", days);
    setStored("actionlog/activated", log);
    show(rights);
    QCOMPARE(states(), enabled);
    QCOMPARE(child<QPushButton>(*m_page, browse)->isEnabled(),
             child<QWidget>(*m_page, "local_access_location")->isEnabled());
    QCOMPARE(online()->isEnabled(), (rights & AuditTrailManagement) != 0);

    // The same by hand, from the opposite of it.
    if (rights != kBothRights)
        return;
    setSafe("accesscontrol/single_workstation_access_method_system", false);
    setSafe("accesscontrol/offline_authentication", !cache);
    setSafe("accesscontrol/offline_authentication_expiration_time", days == 0 ? 30 : 0);
    setStored("actionlog/activated", !log);
    m_page->reloadSettings();
    box("offline_authentication")->click();
    child<QSpinBox>(*m_page, "expiration_time")->setValue(days);
    if (local)
        box("local_access_control")->click();
    box("offline_audit_trail")->click();
    QCOMPARE(states(), enabled);
}

void TestAccessSettingsView::anOperatorWithoutRight1SeesTheAccessWidgetsDisabledAndSavingRemovesTheKeys()
{
    setSafe("accesscontrol/method", "Internal users");
    setSafe("accesscontrol/offline_authentication", false);
    setSafe("accesscontrol/offline_authentication_expiration_time", 7);
    setStored("accesscontrol/warn_user_expiration", false);
    setSafe("accesscontrol/single_workstation_access_method_system", false);
    setSafe("accesscontrol/single_workstation_db_location", "/site/");
    setStored("accesscontrol/other", "stays");
    show(AuditTrailManagement);
    for (const char *name : {"access_method", "offline_authentication", "expiration_time", "warn_expiration",
                             "local_access_control", "local_access_location"})
        QVERIFY2(!child<QWidget>(*m_page, name)->isEnabled(), name);
    m_page->saveSettings();
    QCOMPARE(store()->generalSettings()->allKeys(),
             QStringList({"accesscontrol/other", "actionlog/activated", "actionlog/location"}));
}

void TestAccessSettingsView::anOperatorWithoutRight4SeesTheAuditWidgetsDisabledAndSavingRemovesTheKeys()
{
    setStored("actionlog/activated", true);
    setStored("actionlog/location", "/log");
    setSafe("actionlog/audittrailsettinghash", kHash);
    store()->enableAuditTrailSetting(kHash);
    QVERIFY(store()->generalSettings()->contains("actionlog/audittrailsetting"));
    show(AccessControlManagement);
    for (const char *name : {"offline_audit_trail", "audit_trail_location", "online_audit_trail"})
        QVERIFY2(!child<QWidget>(*m_page, name)->isEnabled(), name);
    ConnectionDialogs dialogs({});
    pressOnline();
    QCOMPARE(dialogs.count(), 0);
    m_page->saveSettings();
    QCOMPARE(store()->generalSettings()->allKeys(), kAccessKeys);
}

void TestAccessSettingsView::settingTheDaysTo0UnchecksTheWarnBoxAndSettingThemBackRestoresIt_data()
{
    QTest::addColumn<bool>("warn");
    QTest::newRow("checked") << true;
    QTest::newRow("unchecked") << false;
}

void TestAccessSettingsView::settingTheDaysTo0UnchecksTheWarnBoxAndSettingThemBackRestoresIt()
{
    QFETCH(bool, warn);
    setSafe("accesscontrol/single_workstation_access_method_system", false);
    show();
    if (!warn)
        box("warn_expiration")->click();
    auto *days = child<QSpinBox>(*m_page, "expiration_time");
    days->setValue(0);
    QVERIFY(!box("warn_expiration")->isChecked());
    QVERIFY(!box("warn_expiration")->isEnabled());
    days->setValue(5);
    QCOMPARE(box("warn_expiration")->isChecked(), warn);
    QVERIFY(box("warn_expiration")->isEnabled());
}

void TestAccessSettingsView::aStoredWarningOf0DaysComesBackWithTheDays()
{
    setSafe("accesscontrol/offline_authentication_expiration_time", 0);
    setStored("accesscontrol/warn_user_expiration", true);
    show();
    QVERIFY(!box("warn_expiration")->isChecked());
    child<QSpinBox>(*m_page, "expiration_time")->setValue(1);
    QVERIFY(box("warn_expiration")->isChecked());
    m_page->reloadSettings();
    QVERIFY(!box("warn_expiration")->isChecked());
}

void TestAccessSettingsView::theSuffixTellsThatNothingExpires()
{
    show();
    auto *days = child<QSpinBox>(*m_page, "expiration_time");
    QCOMPARE(days->text(), QStringLiteral("30 Days"));
    days->setValue(0);
    QCOMPARE(days->text(), QStringLiteral("0 Days (No expiration)"));
    setSafe("accesscontrol/offline_authentication_expiration_time", 123456);
    m_page->reloadSettings();
    QCOMPARE(days->text(), QStringLiteral("9999 Days"));
}

void TestAccessSettingsView::locations_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a location of empty text is shown empty") << ""
                                                             << "";
    QTest::newRow("a directory is shown with the file") << "/site/"
                                                        << "/site/offline.access.db";
    QTest::newRow("without its separator it is shown as it is") << "/site"
                                                                << "/siteoffline.access.db";
}

void TestAccessSettingsView::locations()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    setSafe("accesscontrol/single_workstation_db_location", stored);
    show();
    QCOMPARE(child<QLineEdit>(*m_page, "local_access_location")->text(), shown);
    m_page->saveSettings();
    QCOMPARE(safe("accesscontrol/single_workstation_db_location"), QVariant(stored));
}

void TestAccessSettingsView::aTypedLocationThatDoesNotEndInTheFilesNameIsStoredUnchanged()
{
    show();
    auto *location = child<QLineEdit>(*m_page, "local_access_location");
    QTest::keyClicks(location, "/site/other.db");
    m_page->saveSettings();
    QCOMPARE(safe("accesscontrol/single_workstation_db_location"), QVariant("/site/other.db"));
    location->setText("/a/offline.access.db/b/offline.access.db");
    m_page->saveSettings();
    QCOMPARE(safe("accesscontrol/single_workstation_db_location"), QVariant("/a//b/"));
}

void TestAccessSettingsView::browsingFillsTheLocation()
{
    show();
    auto *location = child<QLineEdit>(*m_page, "local_access_location");
    auto *browse = child<QPushButton>(*m_page, "local_access_location_browse");
    const QString file = m_workstation.path("offline.access.db");
    FileDialogs dialogs({QString(), file});
    QTest::mouseClick(browse, Qt::LeftButton);
    QCOMPARE(location->text(), QString());
    QTest::mouseClick(browse, Qt::LeftButton);
    QCOMPARE(location->text(), file);
    QCOMPARE(dialogs.seen().size(), 2);
    const SeenFileDialog &seen = dialogs.seen().first();
    QCOMPARE(seen.title, QStringLiteral("Select offline database location directory"));
    QCOMPARE(seen.nameFilters, QStringList{"offline.access.db"});
    QCOMPARE(seen.acceptLabel, QStringLiteral("Select"));
    QCOMPARE(seen.rejectLabel, QStringLiteral("Cancel"));
    QCOMPARE(seen.fileMode, QFileDialog::AnyFile);
}

void TestAccessSettingsView::destructionSaves()
{
    show();
    child<QSpinBox>(*m_page, "expiration_time")->setValue(3);
    close();
    QCOMPARE(safe("accesscontrol/offline_authentication_expiration_time"), QVariant(3));
    show(NoAccess);
    close();
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestAccessSettingsView::aDamagedSafeValueIsShownAsTheDefault()
{
    for (const QString &key : kAccessKeys)
        store()->setValue(key, QStringLiteral("damaged"));
    show();
    QCOMPARE(child<QComboBox>(*m_page, "access_method")->currentIndex(), 0);
    QVERIFY(box("offline_authentication")->isChecked());
    QCOMPARE(child<QSpinBox>(*m_page, "expiration_time")->value(), 30);
    QVERIFY(box("local_access_control")->isChecked());
    QCOMPARE(child<QLineEdit>(*m_page, "local_access_location")->text(), QString());
}

QTEST_MAIN(TestAccessSettingsView)
#include "test_accesssettingsview.moc"
