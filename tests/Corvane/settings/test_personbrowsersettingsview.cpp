#include "Corvane/settings/personbrowsersettingsview.h"
#include "settingstest.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QWheelEvent>

using namespace SettingsTest;

namespace {

constexpr char kLanguage[] = "language";
constexpr char kDate[] = "date_format";
constexpr char kEthnicsList[] = "ethnic_groups_list";
constexpr char kEthnicsButton[] = "ethnic_groups";
constexpr char kDefaultSystem[] = "default_personal_id_system";

QCheckBox *systemBox(const QWidget &page, int number)
{
    return child<QCheckBox>(page, qPrintable(QStringLiteral("personal_id_system_%1").arg(number)));
}

QList<int> selectedEthnics(const QWidget &page)
{
    QList<int> numbers;
    for (const QListWidgetItem *item : child<QListWidget>(page, kEthnicsList)->selectedItems())
        numbers.append(item->data(Qt::UserRole).toInt());
    return numbers;
}

bool hasLabel(const QWidget &page, const QString &text)
{
    for (const QLabel *label : page.findChildren<QLabel *>()) {
        if (label->text() == text)
            return true;
    }
    return false;
}

}  // namespace

/// The General page on its real widgets.
class TestPersonBrowserSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingStoredShowsTheDefaults();
    void theDefaultsAreSavedAsTheyAreTold();
    void theTitlesAndTextsAreThere();

    void dateFormats_data();
    void dateFormats();

    void aSinglePersonalIdSystemIsRead();
    void theDefaultSystemIsAlwaysAUsedOne();
    void reloadingIsNotHeldBackByTheDefaultThatIsShown();
    void choosingUnknownLeavesBothBoxesAndStoresTheCheckedNumbersAndZero();
    void uncheckingTheDefaultSystemHasNoEffectAndUncheckingTheOtherStays();
    void uncheckingTheOtherSystemLeavesTheBoxOfTheDefaultAsItIs();

    void aStoredSingleNumberSelectsOneEthnicGroup();
    void aNumberOutsideTheEthnicGroupsIsIgnored();
    void theDefaultGroupIsAlwaysAShownOne();
    void theButtonShowsTheNumberOfSelectedGroups();
    void theListOpensBelowTheButtonAndClosesAgain();
    void aPressOutsideTheListClosesIt();
    void escapeClosesTheList();

    void theWheelDoesNotChangeABoxWithoutFocus();
    void everyFieldHasAnAccessibleName();
    void whatIsReadAndSavedUnchangedComesBack();

private:
    QString languageFile() const
    {
        return m_workstation.dataDirectory() + QStringLiteral("language.ini");
    }

    Workstation m_workstation;
};

void TestPersonBrowserSettingsView::init()
{
    useEmptySettings(m_workstation);
    QFile::remove(languageFile());
}

void TestPersonBrowserSettingsView::nothingStoredShowsTheDefaults()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.reloadSettings();
    QVERIFY(!child<QCheckBox>(page, "settings_updating")->isChecked());
    QCOMPARE(child<QComboBox>(page, kLanguage)->currentText(), QStringLiteral("English (UK)"));
    QCOMPARE(child<QComboBox>(page, kDate)->currentText(), QStringLiteral("DD.MM.YYYY"));
    QVERIFY(!child<QCheckBox>(page, "time_ampm")->isChecked());
    QCOMPARE(child<QComboBox>(page, "measurement_units")->currentIndex(), 0);
    QCOMPARE(child<QComboBox>(page, "default_geometry")->currentText(), QStringLiteral("Standard"));
    QVERIFY(child<QCheckBox>(page, "enable_statusbar")->isChecked());
    QVERIFY(child<QCheckBox>(page, "prefill_study")->isChecked());
    QVERIFY(systemBox(page, 1)->isChecked());
    QVERIFY(systemBox(page, 2)->isChecked());
    QCOMPARE(child<QComboBox>(page, kDefaultSystem)->currentText(), QStringLiteral("Finnish"));
    QCOMPARE(selectedEthnics(page), QList<int>({3, 2, 10}));
    QCOMPARE(child<QComboBox>(page, "default_ethnic")->currentText(), QStringLiteral("No Information"));
}

void TestPersonBrowserSettingsView::theDefaultsAreSavedAsTheyAreTold()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.saveSettings();
    QCOMPARE(stored("application/settings_updating"), QVariant(false));
    QCOMPARE(stored("application/language"), QVariant("en_GB"));
    QCOMPARE(stored("application/date_format"), QVariant(0));
    QCOMPARE(stored("application/date_separator"), QVariant(0));
    QCOMPARE(stored("application/time_ampm"), QVariant(false));
    QCOMPARE(stored("ui/measurement_units"), QVariant(0));
    QCOMPARE(stored("ui/default_geometry"), QVariant(1));
    QCOMPARE(stored("ui/enable_statusbar"), QVariant(true));
    QCOMPARE(stored("ui/prefill_study"), QVariant(true));
    QCOMPARE(numbers(stored("application/personal_id_systems")), QList<int>({1, 2, 0}));
    QCOMPARE(stored("application/default_personal_id_system"), QVariant(1));
    QCOMPARE(numbers(stored("application/ethnic_groups")), QList<int>({3, 2, 10, 0}));
    QCOMPARE(stored("application/default_ethnic"), QVariant(0));
    // The exchange with hospital systems is saved with the page.
    QCOMPARE(stored("his/import_mode"), QVariant(1));
}

void TestPersonBrowserSettingsView::theTitlesAndTextsAreThere()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    for (const char *title :
         {"Application settings", "Import/Export settings", "Personal ID systems", "Ethnic groups"})
        QVERIFY2(hasLabel(page, QLatin1String(title)), title);
    for (const char *label : {"Language", "Date format", "Units", "Default application size", "Used systems",
                              "Default personal ID system", "Shown ethnic groups", "Default ethnic group"})
        QVERIFY2(hasLabel(page, QLatin1String(label)), label);
    QCOMPARE(child<QCheckBox>(page, "settings_updating")->text(),
             QStringLiteral("Update settings when Persons and Studies starts"));
    QCOMPARE(
        items(child<QComboBox>(page, "measurement_units")),
        QStringList({QStringLiteral("Metric (kg, cm , °C)"), QStringLiteral("Imperial (lb, ft, in, °F)")}));
    QCOMPARE(items(child<QComboBox>(page, "default_geometry")), QStringList({"Saved", "Standard", "Full"}));
    QCOMPARE(items(child<QComboBox>(page, kDefaultSystem)), QStringList({"Unknown", "Finnish", "Swedish"}));
    const QStringList groups = {"No Information",    "African American", "Asian",
                                "Caucasian",         "Hispanic",         "Hong Kong Chinese",
                                "Japanese American", "Polynesian",       "North Indian and Pakistani",
                                "South Indian",      "African Descent",  "Japanese",
                                "Mexican American",  "North East Asian", "South East Asian",
                                "Mixed / Other"};
    QCOMPARE(items(child<QComboBox>(page, "default_ethnic")), groups);
    const auto *list = child<QListWidget>(page, kEthnicsList);
    QCOMPARE(list->count(), groups.size());
    for (int i = 0; i < groups.size(); ++i) {
        QCOMPARE(list->item(i)->text(), groups.at(i));
        QCOMPARE(list->item(i)->data(Qt::UserRole).toInt(), i);
    }
}

void TestPersonBrowserSettingsView::dateFormats_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("separator");
    QTest::addColumn<QString>("sample");
    const QStringList parts[] = {{"DD", "MM", "YYYY"}, {"D", "M", "YYYY"},   {"YYYY", "MM", "DD"},
                                 {"YYYY", "M", "D"},   {"MM", "DD", "YYYY"}, {"M", "D", "YYYY"}};
    const QStringList separators = {".", "-", "/"};
    for (int format = 0; format < 6; ++format) {
        for (int separator = 0; separator < 3; ++separator) {
            const QString sample = parts[format].join(separators.at(separator));
            QTest::newRow(qPrintable(sample)) << format * 3 + separator << format << separator << sample;
        }
    }
}

void TestPersonBrowserSettingsView::dateFormats()
{
    QFETCH(int, row);
    QFETCH(int, format);
    QFETCH(int, separator);
    QFETCH(QString, sample);
    setStored("application/date_format", format);
    setStored("application/date_separator", separator);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    auto *box = child<QComboBox>(page, kDate);
    QCOMPARE(box->count(), 18);
    QCOMPARE(box->currentIndex(), row);
    QCOMPARE(box->currentText(), sample);
    QCOMPARE(box->currentData().toInt(), (format << 16) | separator);

    setStored("application/date_format", 0);
    setStored("application/date_separator", 0);
    page.saveSettings();
    QCOMPARE(stored("application/date_format"), QVariant(format));
    QCOMPARE(stored("application/date_separator"), QVariant(separator));
}

void TestPersonBrowserSettingsView::aSinglePersonalIdSystemIsRead()
{
    setStored("application/personal_id_systems", 2);
    setStored("application/default_personal_id_system", 0);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QVERIFY(!systemBox(page, 1)->isChecked());
    QVERIFY(systemBox(page, 2)->isChecked());
}

void TestPersonBrowserSettingsView::theDefaultSystemIsAlwaysAUsedOne()
{
    setStored("application/personal_id_systems", QVariantList{1, 0});
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QVERIFY(!systemBox(page, 2)->isChecked());
    child<QComboBox>(page, kDefaultSystem)->setCurrentIndex(2);
    QVERIFY(systemBox(page, 2)->isChecked());
    page.saveSettings();
    QCOMPARE(numbers(stored("application/personal_id_systems")), QList<int>({1, 2, 0}));
    QCOMPARE(stored("application/default_personal_id_system"), QVariant(2));
}

void TestPersonBrowserSettingsView::reloadingIsNotHeldBackByTheDefaultThatIsShown()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QCOMPARE(child<QComboBox>(page, kDefaultSystem)->currentIndex(), 1);
    setStored("application/personal_id_systems", QVariantList{2, 0});
    setStored("application/default_personal_id_system", 2);
    page.reloadSettings();
    QVERIFY(!systemBox(page, 1)->isChecked());
    page.saveSettings();
    QCOMPARE(numbers(stored("application/personal_id_systems")), QList<int>({2, 0}));
}

void TestPersonBrowserSettingsView::choosingUnknownLeavesBothBoxesAndStoresTheCheckedNumbersAndZero()
{
    setStored("application/personal_id_systems", QVariantList{2, 0});
    setStored("application/default_personal_id_system", 2);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    child<QComboBox>(page, kDefaultSystem)->setCurrentIndex(0);
    QVERIFY(!systemBox(page, 1)->isChecked());
    QVERIFY(systemBox(page, 2)->isChecked());
    page.saveSettings();
    QCOMPARE(numbers(stored("application/personal_id_systems")), QList<int>({2, 0}));
    QCOMPARE(stored("application/default_personal_id_system"), QVariant(0));
}

void TestPersonBrowserSettingsView::uncheckingTheDefaultSystemHasNoEffectAndUncheckingTheOtherStays()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QTest::mouseClick(systemBox(page, 1), Qt::LeftButton, {}, QPoint(8, systemBox(page, 1)->height() / 2));
    QVERIFY(systemBox(page, 1)->isChecked());
    QTest::mouseClick(systemBox(page, 2), Qt::LeftButton, {}, QPoint(8, systemBox(page, 2)->height() / 2));
    QVERIFY(!systemBox(page, 2)->isChecked());
}

void TestPersonBrowserSettingsView::uncheckingTheOtherSystemLeavesTheBoxOfTheDefaultAsItIs()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    setStored("application/personal_id_systems", QVariantList{2, 0});
    page.reloadSettings();
    QCOMPARE(child<QComboBox>(page, kDefaultSystem)->currentIndex(), 1);
    QVERIFY(!systemBox(page, 1)->isChecked());
    systemBox(page, 2)->click();
    QVERIFY(!systemBox(page, 2)->isChecked());
    QVERIFY(!systemBox(page, 1)->isChecked());
    systemBox(page, 1)->click();
    systemBox(page, 1)->click();
    QVERIFY(systemBox(page, 1)->isChecked());
}

void TestPersonBrowserSettingsView::aStoredSingleNumberSelectsOneEthnicGroup()
{
    setStored("application/ethnic_groups", 5);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.reloadSettings();
    QCOMPARE(selectedEthnics(page), QList<int>{5});
}

void TestPersonBrowserSettingsView::aNumberOutsideTheEthnicGroupsIsIgnored()
{
    setStored("application/ethnic_groups", QVariantList{16, 4, -1});
    setStored("application/default_ethnic", 99);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QCOMPARE(selectedEthnics(page), QList<int>{4});
    page.saveSettings();
    QCOMPARE(numbers(stored("application/ethnic_groups")), QList<int>({4, 0}));
}

void TestPersonBrowserSettingsView::theDefaultGroupIsAlwaysAShownOne()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    child<QComboBox>(page, "default_ethnic")->setCurrentIndex(7);
    page.saveSettings();
    QCOMPARE(numbers(stored("application/ethnic_groups")), QList<int>({3, 2, 10, 7}));
    QCOMPARE(stored("application/default_ethnic"), QVariant(7));
    QCOMPARE(selectedEthnics(page), QList<int>({3, 2, 10, 7}));
}

void TestPersonBrowserSettingsView::theButtonShowsTheNumberOfSelectedGroups()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    const auto *button = child<QPushButton>(page, kEthnicsButton);
    auto *list = child<QListWidget>(page, kEthnicsList);
    QCOMPARE(button->text(), QStringLiteral("Select (3)"));
    list->item(0)->setSelected(true);
    QCOMPARE(button->text(), QStringLiteral("Select (4)"));
    list->clearSelection();
    QCOMPARE(button->text(), QStringLiteral("Select"));
}

void TestPersonBrowserSettingsView::theListOpensBelowTheButtonAndClosesAgain()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.resize(780, 500);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto *button = child<QPushButton>(page, kEthnicsButton);
    auto *list = child<QListWidget>(page, kEthnicsList);
    QVERIFY(button->isCheckable());
    QVERIFY(list->isHidden());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(list->isVisible());
    QVERIFY(list->windowFlags().testFlag(Qt::Popup));
    QCOMPARE(list->selectionMode(), QAbstractItemView::MultiSelection);

    // Picking items leaves it open.
    const QRect item = list->visualItemRect(list->item(5));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, item.center());
    QVERIFY(list->item(5)->isSelected());
    QVERIFY(list->isVisible());
    QCOMPARE(button->text(), QStringLiteral("Select (4)"));

    QVERIFY(QMetaObject::invokeMethod(&page, "showOrHideListWidget"));
    QVERIFY(list->isHidden());
    QVERIFY(!button->isChecked());
}

void TestPersonBrowserSettingsView::aPressOutsideTheListClosesIt()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto *button = child<QPushButton>(page, kEthnicsButton);
    auto *list = child<QListWidget>(page, kEthnicsList);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(list->isVisible());
    QTest::mousePress(list, Qt::LeftButton, {}, QPoint(-5, -5));
    QVERIFY(list->isHidden());
    QVERIFY(!button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(list->isVisible());
}

void TestPersonBrowserSettingsView::escapeClosesTheList()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto *button = child<QPushButton>(page, kEthnicsButton);
    auto *list = child<QListWidget>(page, kEthnicsList);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(list->isHidden());
    QVERIFY(!button->isChecked());
}

void TestPersonBrowserSettingsView::theWheelDoesNotChangeABoxWithoutFocus()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto *box = child<QComboBox>(page, "default_geometry");
    child<QCheckBox>(page, "time_ampm")->setFocus();
    const auto turn = [box] {
        QWheelEvent wheel(QPointF(5, 5), box->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &wheel);
    };
    turn();
    QCOMPARE(box->currentIndex(), 1);
    box->setFocus();
    QTRY_VERIFY(box->hasFocus());
    turn();
    QCOMPARE(box->currentIndex(), 2);
}

void TestPersonBrowserSettingsView::everyFieldHasAnAccessibleName()
{
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    QList<QWidget *> fields;
    for (QComboBox *box : page.findChildren<QComboBox *>())
        fields.append(box);
    for (QLineEdit *edit : page.findChildren<QLineEdit *>())
        fields.append(edit);
    QVERIFY(fields.size() >= 15);
    for (const QWidget *field : qAsConst(fields)) {
        QVERIFY(!field->objectName().isEmpty());
        QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
    }
}

void TestPersonBrowserSettingsView::whatIsReadAndSavedUnchangedComesBack()
{
    QRandomGenerator random(53);
    PersonBrowserSettingsView page(m_workstation.dataDirectory());
    const auto *languages = child<QComboBox>(page, kLanguage);
    for (int round = 0; round < 200; ++round) {
        useEmptySettings(m_workstation);
        const int defaultSystem = random.bounded(3);
        QVariantList systems;
        for (const int number : {1, 2}) {
            if (number == defaultSystem || random.bounded(2))
                systems.append(number);
        }
        systems.append(0);
        QList<int> all;
        for (int number = 0; number < 16; ++number)
            all.append(number);
        std::shuffle(all.begin(), all.end(), random);
        QVariantList ethnics;
        for (int i = random.bounded(16); i >= 0; --i)
            ethnics.append(all.at(i));
        const QMap<QString, QVariant> settings = {
            {"application/settings_updating", random.bounded(2) == 1},
            {"application/language", languages->itemData(random.bounded(languages->count()))},
            {"application/date_format", random.bounded(6)},
            {"application/date_separator", random.bounded(3)},
            {"application/time_ampm", random.bounded(2) == 1},
            {"ui/measurement_units", random.bounded(2)},
            {"ui/default_geometry", random.bounded(3)},
            {"ui/enable_statusbar", random.bounded(2) == 1},
            {"ui/prefill_study", random.bounded(2) == 1},
            {"application/personal_id_systems", systems},
            {"application/default_personal_id_system", defaultSystem},
            {"application/ethnic_groups", ethnics},
            {"application/default_ethnic", ethnics.at(random.bounded(ethnics.size()))},
        };
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
            store()->setValue(setting.key(), *setting);
        page.reloadSettings();
        page.saveSettings();
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
            QCOMPARE(store()->value(setting.key(), QVariant()), *setting);
    }
}

QTEST_MAIN(TestPersonBrowserSettingsView)
#include "test_personbrowsersettingsview.moc"
