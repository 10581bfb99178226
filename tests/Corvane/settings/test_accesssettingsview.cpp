#include "Corvane/settings/accesssettingsview.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"
#include "support/qtwarnings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace SettingsTest;

namespace {

constexpr int kPollInterval = 5;  // milliseconds
constexpr int kBoth = AccessControlManagement | AuditTrailManagement;
const QString kHash = QStringLiteral("b5c1e0d2a4f84e6bb8a7");
const QString kUnknownText = QStringLiteral("Unknown. Click to read state from database.");
const QString kNotAccepted = QStringLiteral("Setting not accepted");
const QString kConnectionName = QStringLiteral("audit_trail_setting_db");

const QStringList kAccessKeys = {QStringLiteral("accesscontrol/method"),
                                 QStringLiteral("accesscontrol/offline_authentication"),
                                 QStringLiteral("accesscontrol/offline_authentication_expiration_time"),
                                 QStringLiteral("accesscontrol/single_workstation_access_method_system"),
                                 QStringLiteral("accesscontrol/single_workstation_db_location"),
                                 QStringLiteral("accesscontrol/warn_user_expiration")};

QVariant safe(const char *key)
{
    return store()->safeValue(QLatin1String(key), QStringLiteral("absent"));
}

void setSafe(const char *key, const QVariant &value)
{
    store()->setSafeValue(QLatin1String(key), value);
}

/// Shows each connection dialog that comes up to the next visit, and cancels it when none is left.
class ConnectionDialogs : public QObject
{
public:
    using Visit = std::function<void(QDialog &)>;

    explicit ConnectionDialogs(QList<Visit> visits)
        : m_visits(std::move(visits))
    {
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &ConnectionDialogs::answer);
        timer->start(kPollInterval);
    }

    int count() const
    {
        return m_count;
    }

private:
    void answer()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() ||
            dialog->objectName() != QStringLiteral("audit_connection_dialog"))
            return;
        ++m_count;
        if (m_visits.isEmpty())
            dialog->reject();
        else
            m_visits.takeFirst()(*dialog);
    }

    QList<Visit> m_visits;
    int m_count = 0;
};

void press(QDialog &dialog, const char *button)
{
    QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
}

ConnectionDialogs::Visit connectAs(const QString &user, const QString &password = QString())
{
    return [user, password](QDialog &dialog) {
        SiteConnection::signInAs(dialog, user, password);
        press(dialog, "connect_button");
    };
}

}  // namespace

/// The access and audit trail page on its real widgets, with real databases behind the online audit trail.
class TestAccessSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void thePageHasTwoColumnsWithItsTexts();
    void emptySettingsShowTheDefaults();
    void storedSettingsAreShown();
    void whatIsShownIsSavedInItsForm();
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
    void theKeyboardReadsToo();
    void theDialogHasItsSizesAndTexts();

private:
    void show(int rights = kBoth);
    void close();
    QCheckBox *box(const char *name) const
    {
        return child<QCheckBox>(*m_page, name);
    }
    QCheckBox *online() const
    {
        return box("online_audit_trail");
    }
    void pressOnline() const
    {
        QTest::mouseClick(online(), Qt::LeftButton, {}, QPoint(8, online()->height() / 2));
    }
    QString cacheFile() const
    {
        return m_workstation.dataDirectory() + QStringLiteral("local_cache");
    }
    QString auditDatabase(const QString &name, const QString &hash = kHash) const;
    void rememberDatabase(const QString &file) const
    {
        SiteConnection::remember(cacheFile(), "actiondb_online", SiteConnection::params(file));
    }

    Workstation m_workstation;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<AccessSettingsView> m_page;
};

void TestAccessSettingsView::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestAccessSettingsView::init()
{
    QFile::remove(cacheFile());
    useEmptySettings(m_workstation);
    m_warnings = std::make_unique<QtWarnings>();
}

void TestAccessSettingsView::cleanup()
{
    m_page.reset();
    QVERIFY(!QSqlDatabase::contains(kConnectionName));
    QVERIFY(!QApplication::overrideCursor());
    const QStringList warnings = m_warnings->seen();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char(10))));
    m_warnings.reset();
}

void TestAccessSettingsView::show(int rights)
{
    m_page =
        std::make_unique<AccessSettingsView>(m_workstation.dataDirectory(), static_cast<AccessType>(rights));
    m_page->resize(800, 450);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void TestAccessSettingsView::close()
{
    m_page.reset();
}

QString TestAccessSettingsView::auditDatabase(const QString &name, const QString &hash) const
{
    const QString file = m_workstation.path(name + QStringLiteral(".db"));
    QFile::remove(file);
    SiteConnection::run(
        file, {QStringLiteral("CREATE TABLE hash (id INTEGER NOT NULL DEFAULT 1 PRIMARY KEY CHECK (id = 1), "
                              "hash VARCHAR(64) NOT NULL)"),
               QStringLiteral("INSERT INTO hash (hash) VALUES ('%1')").arg(hash)});
    return file;
}

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
    QTest::newRow("local system on") << kBoth << true << true << 30 << true
                                     << "method local path log logpath";
    QTest::newRow("local system off")
        << kBoth << false << true << 30 << true << "method cache label days warn local log logpath";
    QTest::newRow("no days") << kBoth << false << true << 0 << true
                             << "method cache label days local log logpath";
    QTest::newRow("no offline cache")
        << kBoth << false << false << 30 << true << "method cache label local log logpath";
    QTest::newRow("local system on, no cache, no days")
        << kBoth << true << false << 0 << true << "method local path log logpath";
    QTest::newRow("no offline audit trail")
        << kBoth << true << true << 30 << false << "method local path log";
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
    if (rights != kBoth)
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

void TestAccessSettingsView::theOnlineStateIsUnknownAfterEachReload()
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

void TestAccessSettingsView::theFirstPressOnlyReads_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestAccessSettingsView::theFirstPressOnlyReads()
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

void TestAccessSettingsView::aPressOnAReadStateChangesAndBindsIt()
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

void TestAccessSettingsView::afterSettingAcceptedSaveSettingsDoesNotTouchIt()
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

void TestAccessSettingsView::theStateBelongsToTheOneDatabase()
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

void TestAccessSettingsView::cancellingTheConnectionDialogLeavesTheStateAsItWas()
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

void TestAccessSettingsView::failures_data()
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

void TestAccessSettingsView::failures()
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

void TestAccessSettingsView::aFailureOnAReadStateKeepsTheStateAndTheSettings()
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

void TestAccessSettingsView::theConnectionIsTakenFromTheStoreTheFirstTime()
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

void TestAccessSettingsView::theConnectionIsRememberedWithoutUserAndPassword()
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

void TestAccessSettingsView::aRefusedVisitIsRememberedToo()
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

void TestAccessSettingsView::theKeyboardReadsToo()
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

void TestAccessSettingsView::theDialogHasItsSizesAndTexts()
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

QTEST_MAIN(TestAccessSettingsView)
#include "test_accesssettingsview.moc"
