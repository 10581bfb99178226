#include "Corvane/settings/searchsettingsview.h"
#include "fieldpages.h"
#include "settingstest.h"

#include <QTest>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

const QString kThreeFields = QStringLiteral("1:A=0:true,2:B=1:false,3:C=0:true");

void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

QCheckBox *customBox(const QWidget &page, int number)
{
    return child<QCheckBox>(page, qPrintable(QStringLiteral("search_custom_field_%1").arg(number)));
}

}  // namespace

/// The check boxes of the Search page: what is searched, of which one is always checked.
class TestSearchParameters : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void parameters_data();
    void parameters();
    void theParametersStandInTheirOrder();
    void uncheckingAllStopsWithOneChecked();
    void theLastCustomFieldCanNotBeUncheckedEither();
    void reloadingIsNotHeldBackByTheLastCheckedBox();
    void afterABoxIsReplacedTheCountIsRight();
    void customFieldsToSearchAreReadAndSaved();
    void withoutCustomFieldsNothingIsWrittenForThem();
    void aStoredListThatLosesItsLastFieldIsEmptied();
    void aFieldWithANewNameIsUnchecked();
    void whenNothingThatWasSearchedIsLeftAllParametersAre();
    void withNoBoxCheckedTheFirstOneStaysChecked();
    void aNameWithAnAmpersandIsShownAndSavedWhole();
    void customFieldsAreReadWithPatience();

private:
    Workstation m_workstation;
};

void TestSearchParameters::init()
{
    useEmptySettings(m_workstation);
}

void TestSearchParameters::parameters_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QList<int>>("shown");
    QTest::addColumn<QList<int>>("saved");

    const QList<int> all = {2, 3, 4, 6, 7};
    QTest::newRow("nothing stored checks all") << QVariant() << all << all;
    QTest::newRow("an empty list checks all") << QVariant(QVariantList{}) << all << all;
    QTest::newRow("an empty text checks all") << QVariant("") << all << all;
    QTest::newRow("a list of empty texts checks all") << QVariant(QVariantList{"", ""}) << all << all;
    QTest::newRow("words name no box") << QVariant("first name") << QList<int>{} << QList<int>{};
    QTest::newRow("a list of words names no box")
        << QVariant(QVariantList{"first", "name"}) << QList<int>{} << QList<int>{};
    QTest::newRow("words between the numbers are passed over")
        << QVariant(QVariantList{"first", 4}) << QList<int>{4} << QList<int>{4};
    QTest::newRow("a list checks its boxes")
        << QVariant(QVariantList{7, 2}) << QList<int>{2, 7} << QList<int>{2, 7};
    QTest::newRow("a single integer is read") << QVariant(6) << QList<int>{6} << QList<int>{6};
    QTest::newRow("a single integer as text is read") << QVariant("4") << QList<int>{4} << QList<int>{4};
    QTest::newRow("a number without a box is dropped at the next save")
        << QVariant(QVariantList{5, 2, 0, 8}) << QList<int>{2} << QList<int>{2};
    QTest::newRow("11 without a checked custom field is dropped")
        << QVariant(QVariantList{3, 11}) << QList<int>{3} << QList<int>{3};
    QTest::newRow("numbers without boxes alone leave none checked")
        << QVariant(QVariantList{5}) << QList<int>{} << QList<int>{};
}

void TestSearchParameters::parameters()
{
    QFETCH(QVariant, setting);
    if (setting.isValid())
        setStored(kParameters, setting);
    SearchSettingsView page;
    QTEST(checkedParameters(page), "shown");
    page.saveSettings();
    QTEST(numbers(stored(kParameters)), "saved");
}

void TestSearchParameters::theParametersStandInTheirOrder()
{
    SearchSettingsView page;
    show(page);
    QMap<QPair<int, int>, int> places;
    for (const int key : {7, 6, 4, 3, 2}) {
        const QPoint place = parameterBox(page, key)->pos();
        places.insert({place.y(), place.x()}, key);
    }
    QCOMPARE(places.values(), (QList<int>{2, 3, 4, 6, 7}));
}

void TestSearchParameters::uncheckingAllStopsWithOneChecked()
{
    setStored(kCustom, kThreeFields);
    setStored(kSearchedCustom, QStringList{"B"});
    SearchSettingsView page;
    show(page);
    click(customBox(page, 2));
    for (const int key : {7, 2, 4, 3})
        click(parameterBox(page, key));
    QCOMPARE(checkedParameters(page), QList<int>{6});
    click(parameterBox(page, 6));
    QCOMPARE(checkedParameters(page), QList<int>{6});
    click(parameterBox(page, 6));
    QCOMPARE(checkedParameters(page), QList<int>{6});

    click(parameterBox(page, 3));
    click(parameterBox(page, 6));
    click(parameterBox(page, 3));
    QCOMPARE(checkedParameters(page), QList<int>{3});
    QCOMPARE(customChecks(page), (QStringList{"A", "B", "C"}));
}

void TestSearchParameters::theLastCustomFieldCanNotBeUncheckedEither()
{
    setStored(kCustom, kThreeFields);
    setStored(kParameters, QVariantList{11});
    setStored(kSearchedCustom, QStringList{"A", "C"});
    SearchSettingsView page;
    show(page);
    click(customBox(page, 1));
    click(customBox(page, 3));
    QCOMPARE(customChecks(page), (QStringList{"A", "B", "+C"}));
    page.saveSettings();
    QCOMPARE(numbers(stored(kParameters)), QList<int>{11});
    QCOMPARE(stored(kSearchedCustom).toStringList(), QStringList{"C"});
}

void TestSearchParameters::reloadingIsNotHeldBackByTheLastCheckedBox()
{
    SearchSettingsView page;
    show(page);
    for (const int key : {2, 3, 4, 6, 7}) {
        setStored(kParameters, QVariantList{key});
        page.reloadSettings();
        QCOMPARE(checkedParameters(page), QList<int>{key});
        click(parameterBox(page, key));
        QCOMPARE(checkedParameters(page), QList<int>{key});
    }
}

void TestSearchParameters::afterABoxIsReplacedTheCountIsRight()
{
    setStored(kCustom, kThreeFields);
    setStored(kParameters, QVariantList{2, 11});
    setStored(kSearchedCustom, QStringList{"A", "B", "C"});
    SearchSettingsView page;
    show(page);
    page.personCustomFieldsChanged({QStringLiteral("X"), QStringLiteral("Y")});
    QCOMPARE(customChecks(page), (QStringList{"X", "Y"}));
    click(parameterBox(page, 2));
    QCOMPARE(checkedParameters(page), QList<int>{2});
    page.personCustomFieldsChanged({QStringLiteral("X"), QStringLiteral("B")});
    QCOMPARE(customChecks(page), (QStringList{"X", "+B"}));
    click(parameterBox(page, 2));
    QVERIFY(checkedParameters(page).isEmpty());
    click(customBox(page, 2));
    QCOMPARE(customChecks(page), (QStringList{"X", "+B"}));
}

void TestSearchParameters::customFieldsToSearchAreReadAndSaved()
{
    setStored(kCustom, kThreeFields);
    setStored(kSearchedCustom, QStringList{"C", "gone"});
    SearchSettingsView page;
    show(page);
    QCOMPARE(customChecks(page), (QStringList{"A", "B", "+C"}));
    click(customBox(page, 1));
    page.saveSettings();
    QCOMPARE(stored(kSearchedCustom).toStringList(), (QStringList{"A", "C"}));
    QCOMPARE(numbers(stored(kParameters)), (QList<int>{2, 3, 4, 6, 7, 11}));
}

void TestSearchParameters::withoutCustomFieldsNothingIsWrittenForThem()
{
    setStored(kCustom, kThreeFields);
    SearchSettingsView page;
    show(page);
    page.saveSettings();
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(kSearchedCustom)));
    click(customBox(page, 1));
    click(customBox(page, 1));
    page.saveSettings();
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(kSearchedCustom)));
}

void TestSearchParameters::aStoredListThatLosesItsLastFieldIsEmptied()
{
    setStored(kCustom, kThreeFields);
    setStored(kSearchedCustom, QStringList{"A"});
    SearchSettingsView page;
    show(page);
    click(customBox(page, 1));
    page.saveSettings();
    QVERIFY(store()->generalSettings()->contains(QLatin1String(kSearchedCustom)));
    QVERIFY(stored(kSearchedCustom).toStringList().isEmpty());
    QCOMPARE(numbers(stored(kParameters)), (QList<int>{2, 3, 4, 6, 7}));
}

void TestSearchParameters::aFieldWithANewNameIsUnchecked()
{
    setStored(kCustom, kThreeFields);
    setStored(kSearchedCustom, QStringList{"A", "B"});
    SearchSettingsView page;
    page.personCustomFieldsChanged({QStringLiteral("Employer"), QStringLiteral("B"), QStringLiteral("C")});
    QCOMPARE(customChecks(page), (QStringList{"Employer", "+B", "C"}));
}

void TestSearchParameters::whenNothingThatWasSearchedIsLeftAllParametersAre()
{
    setStored(kCustom, kThreeFields);
    setStored(kParameters, QVariantList{11});
    setStored(kSearchedCustom, QStringList{"A"});
    SearchSettingsView page;
    show(page);
    QVERIFY(checkedParameters(page).isEmpty());
    page.personCustomFieldsChanged({QStringLiteral("X"), QStringLiteral("B")});
    QCOMPARE(customChecks(page), (QStringList{"X", "B"}));
    QCOMPARE(checkedParameters(page), (QList<int>{2, 3, 4, 6, 7}));
    for (const int key : {2, 3, 4, 6, 7})
        click(parameterBox(page, key));
    QCOMPARE(checkedParameters(page), QList<int>{7});
    page.saveSettings();
    QCOMPARE(numbers(stored(kParameters)), QList<int>{7});
}

void TestSearchParameters::withNoBoxCheckedTheFirstOneStaysChecked()
{
    setStored(kParameters, QVariantList{5});
    SearchSettingsView page;
    show(page);
    page.personCustomFieldsChanged({QStringLiteral("X")});
    QVERIFY(checkedParameters(page).isEmpty());
    click(parameterBox(page, 4));
    click(parameterBox(page, 4));
    QCOMPARE(checkedParameters(page), QList<int>{4});
}

void TestSearchParameters::aNameWithAnAmpersandIsShownAndSavedWhole()
{
    setStored(kCustom, QStringLiteral("1:R&D=0:true"));
    SearchSettingsView page;
    show(page);
    QCOMPARE(customBox(page, 1)->text(), QStringLiteral("R&&D"));
    click(customBox(page, 1));
    page.saveSettings();
    QCOMPARE(stored(kSearchedCustom).toStringList(), QStringList{"R&D"});
    page.reloadSettings();
    QVERIFY(customBox(page, 1)->isChecked());
}

void TestSearchParameters::customFieldsAreReadWithPatience()
{
    setStored(kCustom, QStringLiteral("3:C=0:true,,1:A=0,:::,2:B=,nonsense"));
    const SearchSettingsView page;
    QCOMPARE(customChecks(page), (QStringList{"C", "A", "B"}));
}

QTEST_MAIN(TestSearchParameters)
#include "test_searchparameters.moc"
