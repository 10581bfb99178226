#include "Corvane/settings/databasesettingsview.h"
#include "settingstest.h"
#include "support/filedialogs.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QTest>

using namespace SettingsTest;

namespace {

constexpr auto kBothRights = static_cast<AccessType>(WriteLocalDbSettings | AuditTrailManagement);

QCheckBox *criterion(const QWidget &page, int number)
{
    return child<QCheckBox>(page, qPrintable(QStringLiteral("identification_%1").arg(number)));
}

QList<int> checkedCriteria(const QWidget &page)
{
    QList<int> checked;
    for (const int number : {6, 7, 4, 3, 2, 5, 8, 9}) {
        if (criterion(page, number)->isChecked())
            checked.append(number);
    }
    return checked;
}

bool isSelectable(const QComboBox *box, int row)
{
    return box->model()->flags(box->model()->index(row, 0)).testFlag(Qt::ItemIsEnabled);
}

}  // namespace

/// The Database page on its real widgets.
class TestDatabaseSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingStoredShowsTheDefaults();
    void theTitlesAndBoxesAreThere();
    void criteria_data();
    void criteria();
    void theStoredOrderIsTheOrderOfTheBoxes();
    void uncheckingTheLastBoxHasNoLastingEffect();
    void reloadingOtherCriteriaShowsExactlyThose();
    void nothingChosenStoresThePersonalId();
    void theEditorFollowsTheRights_data();
    void theEditorFollowsTheRights();
    void withoutTheRightToWriteTheConnectionsStayUntouched();
    void reloadingShowsTheStoredConnectionAndSavesNothing();
    void changingTheSelectorSavesTheConnectionThatWasShown();
    void browsingForTheLocation();
    void aCancelledDialogLeavesTheLocation();
    void whatIsReadAndSavedUnchangedComesBack();

private:
    Workstation m_workstation;
};

void TestDatabaseSettingsView::init()
{
    useEmptySettings(m_workstation);
}

void TestDatabaseSettingsView::nothingStoredShowsTheDefaults()
{
    DatabaseSettingsView page(kBothRights);
    QCOMPARE(child<QLineEdit>(page, "database_location")->text(), QStringLiteral("C:/Halvorn/Data"));
    QVERIFY(child<QCheckBox>(page, "use_offline")->isChecked());
    QCOMPARE(checkedCriteria(page), QList<int>{6});
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestDatabaseSettingsView::theTitlesAndBoxesAreThere()
{
    DatabaseSettingsView page(kBothRights);
    QStringList labels;
    for (const QLabel *label : page.findChildren<QLabel *>())
        labels.append(label->text());
    for (const char *text : {"General storage settings", "Offline database", "Location", "Synchronisation",
                             "Identification criteria", "Database connection settings"})
        QVERIFY2(labels.contains(QLatin1String(text)), text);
    const QMap<int, QString> texts = {{6, "Personal ID"}, {7, "Person code"}, {4, "Last Name"},
                                      {3, "Middle Name"}, {2, "First Name"},  {5, "Birthdate"},
                                      {8, "Gender"},      {9, "Ethnic Group"}};
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        QCOMPARE(criterion(page, text.key())->text(), *text);
    QCOMPARE(child<QCheckBox>(page, "use_offline")->text(),
             QStringLiteral("Use offline database exclusively"));
}

void TestDatabaseSettingsView::criteria_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QList<int>>("checked");
    QTest::newRow("a list that holds a single number 4 checks only the last name")
        << QVariant(QVariantList{4}) << QList<int>{4};
    QTest::newRow("a single number") << QVariant(4) << QList<int>{4};
    QTest::newRow("a single number as text") << QVariant("4") << QList<int>{4};
    QTest::newRow("a number that isn't in the table, such as 11, is ignored")
        << QVariant(QVariantList{11, 2}) << QList<int>{2};
    QTest::newRow("all of them") << QVariant(QStringList{"2", "3", "4", "5", "6", "7", "8", "9"})
                                 << QList<int>{6, 7, 4, 3, 2, 5, 8, 9};
    QTest::newRow("none that is known checks none") << QVariant(11) << QList<int>{};
}

void TestDatabaseSettingsView::criteria()
{
    QFETCH(QVariant, value);
    QFETCH(QList<int>, checked);
    setStored("database/sync_person_identification_keys", value);
    DatabaseSettingsView page(kBothRights);
    page.reloadSettings();
    QCOMPARE(checkedCriteria(page), checked);
}

void TestDatabaseSettingsView::theStoredOrderIsTheOrderOfTheBoxes()
{
    DatabaseSettingsView page(kBothRights);
    page.show();
    QTest::mouseClick(criterion(page, 2), Qt::LeftButton, {}, QPoint(8, criterion(page, 2)->height() / 2));
    page.saveSettings();
    QCOMPARE(numbers(stored("database/sync_person_identification_keys")), QList<int>({6, 2}));
}

void TestDatabaseSettingsView::uncheckingTheLastBoxHasNoLastingEffect()
{
    DatabaseSettingsView page(kBothRights);
    page.show();
    const auto click = [&page](int number) {
        QCheckBox *box = criterion(page, number);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    };
    click(6);
    QCOMPARE(checkedCriteria(page), QList<int>{6});
    click(8);
    click(6);
    QCOMPARE(checkedCriteria(page), QList<int>{8});
    click(8);
    QCOMPARE(checkedCriteria(page), QList<int>{8});
}

void TestDatabaseSettingsView::reloadingOtherCriteriaShowsExactlyThose()
{
    DatabaseSettingsView page(kBothRights);
    QCOMPARE(checkedCriteria(page), QList<int>{6});
    setStored("database/sync_person_identification_keys", QVariantList{4});
    page.reloadSettings();
    QCOMPARE(checkedCriteria(page), QList<int>{4});
}

void TestDatabaseSettingsView::nothingChosenStoresThePersonalId()
{
    setStored("database/sync_person_identification_keys", 11);
    DatabaseSettingsView page(kBothRights);
    page.saveSettings();
    QCOMPARE(numbers(stored("database/sync_person_identification_keys")), QList<int>{6});
}

void TestDatabaseSettingsView::theEditorFollowsTheRights_data()
{
    QTest::addColumn<int>("rights");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("actionLog");
    QTest::newRow("no right") << 0 << false << false;
    QTest::newRow("writing database settings") << 2 << true << false;
    QTest::newRow("managing the audit trail") << 4 << false << true;
    QTest::newRow("both") << 6 << true << true;
    QTest::newRow("every other right") << ~6 << false << false;
}

void TestDatabaseSettingsView::theEditorFollowsTheRights()
{
    QFETCH(int, rights);
    QFETCH(bool, editable);
    QFETCH(bool, actionLog);
    DatabaseSettingsView page(static_cast<AccessType>(rights));
    const auto *selector = child<QComboBox>(page, "database_selector");
    QVERIFY(!selector->isHidden());
    QCOMPARE(selector->currentText(), QStringLiteral("persondb"));
    QCOMPARE(child<QLineEdit>(page, "username_edit")->isEnabled(), editable);
    QCOMPARE(isSelectable(selector, 0), actionLog);
    QVERIFY(isSelectable(selector, 1));
    // What is no connection can be edited by everyone who reaches the page.
    QVERIFY(child<QLineEdit>(page, "database_location")->isEnabled());
}

void TestDatabaseSettingsView::withoutTheRightToWriteTheConnectionsStayUntouched()
{
    DatabaseSettingsView page(AuditTrailManagement);
    child<QComboBox>(page, "database_selector")->setCurrentIndex(2);
    page.saveSettings();
    QCOMPARE(store()->generalSettings()->childGroups(), QStringList{"database"});
}

void TestDatabaseSettingsView::reloadingShowsTheStoredConnectionAndSavesNothing()
{
    DatabaseSettingsView page(kBothRights);
    child<QLineEdit>(page, "username_edit")->setText(QStringLiteral("typed"));
    store()->setSafeValue(QStringLiteral("persondb/username"), QStringLiteral("stored"));
    store()->setDatabaseSettings(QStringLiteral("persondb"),
                                 {{"params", QVariantMap{{"Server", "db.example"}, {"Driver", "X"}}}});
    page.reloadSettings();
    QCOMPARE(child<QLineEdit>(page, "username_edit")->text(), QStringLiteral("stored"));
    QCOMPARE(child<QLineEdit>(page, "connection_setting_1")->text(), QStringLiteral("Driver=X"));
    QCOMPARE(store()->safeValue(QStringLiteral("persondb/username"), QString()).toString(),
             QStringLiteral("stored"));
}

void TestDatabaseSettingsView::changingTheSelectorSavesTheConnectionThatWasShown()
{
    DatabaseSettingsView page(kBothRights);
    child<QLineEdit>(page, "username_edit")->setText(QStringLiteral("anna"));
    child<QComboBox>(page, "database_selector")->setCurrentIndex(2);
    QCOMPARE(store()->safeValue(QStringLiteral("persondb/username"), QString()).toString(),
             QStringLiteral("anna"));
    QVERIFY(child<QLineEdit>(page, "username_edit")->text().isEmpty());
    child<QLineEdit>(page, "username_edit")->setText(QStringLiteral("berta"));
    page.saveSettings();
    QCOMPARE(store()->safeValue(QStringLiteral("studydb/username"), QString()).toString(),
             QStringLiteral("berta"));
}

void TestDatabaseSettingsView::browsingForTheLocation()
{
    DatabaseSettingsView page(kBothRights);
    FileDialogs dialogs({m_workstation.temporaryDirectory()});
    QTest::mouseClick(child<QPushButton>(page, "database_location_browse"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, QStringLiteral("Select offline database location directory"));
    QCOMPARE(dialogs.seen().first().acceptLabel, QStringLiteral("Select"));
    QCOMPARE(dialogs.seen().first().rejectLabel, QStringLiteral("Cancel"));
    QCOMPARE(child<QLineEdit>(page, "database_location")->text(),
             QDir::toNativeSeparators(m_workstation.temporaryDirectory()));
    page.saveSettings();
    QCOMPARE(stored("database/location").toString(), child<QLineEdit>(page, "database_location")->text());
}

void TestDatabaseSettingsView::aCancelledDialogLeavesTheLocation()
{
    DatabaseSettingsView page(kBothRights);
    FileDialogs dialogs;
    QTest::mouseClick(child<QPushButton>(page, "database_location_browse"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(child<QLineEdit>(page, "database_location")->text(), QStringLiteral("C:/Halvorn/Data"));
}

void TestDatabaseSettingsView::whatIsReadAndSavedUnchangedComesBack()
{
    QRandomGenerator random(52);
    DatabaseSettingsView page(kBothRights);
    const auto text = [&random] {
        QString result;
        for (int i = random.bounded(1, 12); i > 0; --i)
            result.append(QChar(random.bounded(0x61, 0x7b)));
        return result;
    };
    for (int round = 0; round < 50; ++round) {
        useEmptySettings(m_workstation);
        QVariantList criteria;
        for (const int number : {6, 7, 4, 3, 2, 5, 8, 9}) {
            if (random.bounded(2))
                criteria.append(number);
        }
        if (criteria.isEmpty())
            criteria.append(9);
        QVariantMap parameters;
        for (int i = random.bounded(5); i > 0; --i)
            parameters.insert(text(), text());
        const QMap<QString, QVariant> plain = {
            {"database/location", text()},
            {"database/useoffline", random.bounded(2) == 1},
            {"database/sync_person_identification_keys", criteria},
            {"persondb/connectoptions",
             random.bounded(2) ? QVariant(QString()) : QVariant(QStringList{"A=" + text(), "B=" + text()})},
            {"persondb/driverparams", QString()},
            {"persondb/sqltype", random.bounded(1, 3)},
        };
        const QString user = text();
        for (auto setting = plain.cbegin(); setting != plain.cend(); ++setting)
            store()->setValue(setting.key(), *setting);
        store()->setSafeValue("persondb/username", user);
        store()->setSafeValue("persondb/password", user + user);
        store()->setDatabaseSettings("persondb", {{"params", parameters}});
        const QStringList keys = store()->generalSettings()->allKeys();

        page.reloadSettings();
        page.saveSettings();
        for (auto setting = plain.cbegin(); setting != plain.cend(); ++setting)
            QCOMPARE(store()->value(setting.key(), QVariant()), *setting);
        QCOMPARE(store()->safeValue("persondb/username", QString()).toString(), user);
        QCOMPARE(store()->safeValue("persondb/password", QString()).toString(), user + user);
        QCOMPARE(store()->databaseSettings("persondb").value("params").toMap(), parameters);
        QCOMPARE(store()->generalSettings()->allKeys(), keys);
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestDatabaseSettingsView test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_databasesettingsview.moc"
