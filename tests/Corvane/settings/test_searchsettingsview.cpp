#include "Corvane/settings/searchsettingsview.h"
#include "fieldpages.h"
#include "settingstest.h"
#include "support/userinput.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTranslator>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr char kResultBox[] = "result_field";
constexpr char kMinimumEdit[] = "minimum_search_characters";
constexpr char kSingleLineBox[] = "single_line_persons";
const QString kThreeFields = QStringLiteral("1:A=0:true,2:B=1:false,3:C=0:true");

QStringList result(const QWidget &page)
{
    return shownTexts(page, kResultBox, 4);
}

void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

/// The result's boxes by row, from their places on the screen.
QList<QList<int>> resultRows(const QWidget &page)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QMap<int, QMap<int, int>> places;
    for (int number = 1; number <= 4; ++number) {
        const QPoint place = fieldBox(page, kResultBox, number)->pos();
        places[place.y()][place.x()] = number;
    }
    QList<QList<int>> lines;
    for (const auto &line : qAsConst(places))
        lines.append(line.values());
    return lines;
}

/// Marks the texts of the standard fields, as any language would replace them.
class Marker : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        const QByteArray name(context);
        if (name != "StandardFields" && name != "SearchSettingsView")
            return QString();
        return QLatin1Char('*') + QLatin1String(source);
    }
    bool isEmpty() const override
    {
        return false;
    }
};

}  // namespace

/// The Search page on its real widgets.
class TestSearchSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theTitlesAndTextsAreThere();
    void theStylesAndSizesAreAsTold();
    void theDefaultsAreShownAndSavedAsTheyAreTold();

    void minimumCharacters_data();
    void minimumCharacters();
    void aTextThatIsNoNumberLeavesTheStoredMinimum_data();
    void aTextThatIsNoNumberLeavesTheStoredMinimum();

    void resultFields_data();
    void resultFields();
    void aResultEntryOfARemovedFieldSelectsEmpty();
    void aSingleRowShowsTheResultsBoxesSo();

    void newNamesKeepTheResultsThatAreStillThere();

    void slotsCanBeCalledByName();
    void theTextsFollowTheLanguage();
    void everyFieldHasAnAccessibleName();

private:
    Workstation m_workstation;
};

void TestSearchSettingsView::init()
{
    useEmptySettings(m_workstation);
}

void TestSearchSettingsView::theTitlesAndTextsAreThere()
{
    setStored(kCustom, kThreeFields);
    SearchSettingsView page;
    show(page);
    QStringList labels;
    for (const QLabel *label : page.findChildren<QLabel *>())
        labels.append(label->text());
    QVERIFY(labels.contains(QStringLiteral("Minimum search characters")));
    QVERIFY(labels.contains(QStringLiteral("Custom fields to search:")));
    QCOMPARE(child<QCheckBox>(page, kSingleLineBox)->text(), QStringLiteral("Search results in single row"));
    QStringList groups;
    for (const QGroupBox *group : page.findChildren<QGroupBox *>())
        groups.append(group->title());
    QCOMPARE(groups, (QStringList{"Person search result", "Search parameters"}));
    QStringList parameters;
    for (const int key : {2, 3, 4, 6, 7})
        parameters.append(parameterBox(page, key)->text());
    QCOMPARE(parameters,
             (QStringList{"First name", "Middle name", "Last name", "Personal ID", "Person code"}));
    for (const int key : {0, 1, 5, 8, 9, 11})
        QVERIFY(!page.findChild<QCheckBox *>(QStringLiteral("search_parameter_%1").arg(key)));
    const QStringList all = {
        "Full Name", "First Name",   "Middle Name", "Last Name", "Personal ID", "Birthdate", "Person code",
        "Gender",    "Ethnic group", "(empty)",     "A",         "B",           "C"};
    for (int number = 1; number <= 4; ++number)
        QCOMPARE(items(fieldBox(page, kResultBox, number)), all);
}

void TestSearchSettingsView::theStylesAndSizesAreAsTold()
{
    const SearchSettingsView page;
    for (const QGroupBox *group : page.findChildren<QGroupBox *>())
        QCOMPARE(group->styleSheet(), QStringLiteral("QGroupBox { border: none; font-weight: bold; } "
                                                     "QGroupBox::title{ top: 10px; left: 10px; }"));
    bool isStyled = false;
    for (const QScrollArea *area : page.findChildren<QScrollArea *>())
        isStyled =
            isStyled || area->styleSheet() == QStringLiteral("QScrollArea{ border-width:1px; "
                                                             "border-style:outset; border-color:gray;}");
    QVERIFY(isStyled);
    bool isLarge = false;
    for (const QFrame *frame : page.findChildren<QFrame *>()) {
        const QSize least = frame->minimumSizeHint();
        isLarge = isLarge || (frame->frameShape() == QFrame::StyledPanel && least.width() >= 362 &&
                              least.height() >= 410);
    }
    QVERIFY(isLarge);
}

void TestSearchSettingsView::theDefaultsAreShownAndSavedAsTheyAreTold()
{
    SearchSettingsView page;
    QCOMPARE(child<QLineEdit>(page, kMinimumEdit)->text(), QStringLiteral("3"));
    QVERIFY(!child<QCheckBox>(page, kSingleLineBox)->isChecked());
    QCOMPARE(result(page), (QStringList{"First Name", "Last Name", "Birthdate", "Gender"}));
    QCOMPARE(checkedParameters(page), (QList<int>{2, 3, 4, 6, 7}));
    QVERIFY(customChecks(page).isEmpty());
    page.saveSettings();
    QCOMPARE(stored(kMinimum), QVariant(3));
    QCOMPARE(stored(kSingleLine), QVariant(false));
    QCOMPARE(stored(kResult).toStringList(), (QStringList{"1", "3", "5", "7"}));
    QCOMPARE(numbers(stored(kParameters)), (QList<int>{2, 3, 4, 6, 7}));
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(kSearchedCustom)));
}

void TestSearchSettingsView::minimumCharacters_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("saved");

    QTest::newRow("another number") << "5" << 5;
    QTest::newRow("none") << "0" << 0;
    QTest::newRow("a number below 0") << "-2" << -2;
}

void TestSearchSettingsView::minimumCharacters()
{
    QFETCH(QString, typed);
    SearchSettingsView page;
    show(page);
    auto *edit = child<QLineEdit>(page, kMinimumEdit);
    edit->selectAll();
    QTest::keyClicks(edit, typed);
    page.saveSettings();
    QTEST(stored(kMinimum).toInt(), "saved");
    const SearchSettingsView another;
    QCOMPARE(child<QLineEdit>(another, kMinimumEdit)->text(), typed);
}

void TestSearchSettingsView::aTextThatIsNoNumberLeavesTheStoredMinimum_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("a word") << "three";
    QTest::newRow("nothing") << "";
    QTest::newRow("a fraction") << "2.5";
    QTest::newRow("a number that overflows") << "99999999999";
}

void TestSearchSettingsView::aTextThatIsNoNumberLeavesTheStoredMinimum()
{
    QFETCH(QString, typed);
    setStored(kMinimum, 4);
    SearchSettingsView page;
    show(page);
    auto *edit = child<QLineEdit>(page, kMinimumEdit);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, typed);
    page.saveSettings();
    QCOMPARE(stored(kMinimum), QVariant(4));
}

void TestSearchSettingsView::resultFields_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("saved");

    QTest::newRow("standard and custom fields")
        << QVariant(QStringList{"0", "B", "(empty)", "8"})
        << QStringList{"Full Name", "B", "(empty)", "Ethnic group"} << QStringList{"0", "B", "(empty)", "8"};
    QTest::newRow("the number 9 is empty") << QVariant(QStringList{"9", "1", "2", "3"})
                                           << QStringList{"(empty)", "First Name", "Middle Name", "Last Name"}
                                           << QStringList{"(empty)", "1", "2", "3"};
    QTest::newRow("a number above 9 is no index") << QVariant(QStringList{"10", "11", "12", "999999999999"})
                                                  << QStringList{"(empty)", "(empty)", "(empty)", "(empty)"}
                                                  << QStringList{"(empty)", "(empty)", "(empty)", "(empty)"};
    QTest::newRow("a standard field's text selects it")
        << QVariant(QStringList{"Gender", "A", "1", "1"})
        << QStringList{"Gender", "A", "First Name", "First Name"} << QStringList{"7", "A", "1", "1"};
    QTest::newRow("boxes without an entry are empty")
        << QVariant("C") << QStringList{"C", "(empty)", "(empty)", "(empty)"}
        << QStringList{"C", "(empty)", "(empty)", "(empty)"};
}

void TestSearchSettingsView::resultFields()
{
    QFETCH(QVariant, setting);
    setStored(kCustom, kThreeFields);
    setStored(kResult, setting);
    SearchSettingsView page;
    QTEST(result(page), "shown");
    page.saveSettings();
    QTEST(stored(kResult).toStringList(), "saved");
}

void TestSearchSettingsView::aResultEntryOfARemovedFieldSelectsEmpty()
{
    setStored(kCustom, kThreeFields);
    setStored(kResult, QStringList{"A", "B", "3", "A"});
    SearchSettingsView page;
    QCOMPARE(result(page), (QStringList{"A", "B", "Last Name", "A"}));
    setStored(kCustom, QStringLiteral("2:B=0:true"));
    page.reloadSettings();
    QCOMPARE(result(page), (QStringList{"(empty)", "B", "Last Name", "(empty)"}));
}

void TestSearchSettingsView::aSingleRowShowsTheResultsBoxesSo()
{
    const QList<QList<int>> two = {{1, 2}, {3, 4}};
    const QList<QList<int>> one = {{1, 2, 3, 4}};
    SearchSettingsView page;
    show(page);
    QCOMPARE(resultRows(page), two);
    click(child<QCheckBox>(page, kSingleLineBox));
    QCOMPARE(resultRows(page), one);
    page.saveSettings();
    QCOMPARE(stored(kSingleLine), QVariant(true));
    click(child<QCheckBox>(page, kSingleLineBox));
    QCOMPARE(resultRows(page), two);

    page.reloadSettings();
    QCOMPARE(resultRows(page), one);
    SearchSettingsView another;
    show(another);
    QCOMPARE(resultRows(another), one);
}

void TestSearchSettingsView::newNamesKeepTheResultsThatAreStillThere()
{
    setStored(kCustom, kThreeFields);
    setStored(kResult, QStringList{"C", "A", "2", "(empty)"});
    SearchSettingsView page;
    page.personCustomFieldsChanged({QStringLiteral("C"), QStringLiteral("Employer"), QStringLiteral("B")});
    QCOMPARE(result(page), (QStringList{"C", "(empty)", "Middle Name", "(empty)"}));
    QCOMPARE(items(fieldBox(page, kResultBox, 3)).mid(10), (QStringList{"C", "Employer", "B"}));
}

void TestSearchSettingsView::slotsCanBeCalledByName()
{
    setStored(kSingleLine, true);
    SearchSettingsView page;
    show(page);
    QVERIFY(
        QMetaObject::invokeMethod(&page, "personCustomFieldsChanged", Q_ARG(QStringList, QStringList{"X"})));
    QCOMPARE(customChecks(page), QStringList{"X"});
    QVERIFY(QMetaObject::invokeMethod(&page, "toggleSearchResultsFieldsRows", Q_ARG(bool, false)));
    QCOMPARE(resultRows(page).size(), 2);
    QVERIFY(QMetaObject::invokeMethod(&page, "monitorSearchParamChecks", Q_ARG(bool, true)));
    QVERIFY(QMetaObject::invokeMethod(&page, "reloadSettings"));
    QCOMPARE(resultRows(page).size(), 1);
    QVERIFY(customChecks(page).isEmpty());
    QVERIFY(QMetaObject::invokeMethod(&page, "saveSettings"));
    QCOMPARE(stored(kSingleLine), QVariant(true));
}

void TestSearchSettingsView::theTextsFollowTheLanguage()
{
    setStored(kCustom, kThreeFields);
    setStored(kResult, QStringList{"A", "1", "(empty)", "7"});
    SearchSettingsView page;
    Marker marker;
    QCoreApplication::installTranslator(&marker);
    QTRY_COMPARE(parameterBox(page, 2)->text(), QStringLiteral("*First name"));
    QCOMPARE(result(page), (QStringList{"A", "*First Name", "*(empty)", "*Gender"}));
    page.saveSettings();
    QCoreApplication::removeTranslator(&marker);
    QCOMPARE(stored(kResult).toStringList(), (QStringList{"A", "1", "(empty)", "7"}));
}

void TestSearchSettingsView::everyFieldHasAnAccessibleName()
{
    const SearchSettingsView page;
    QVERIFY(!child<QLineEdit>(page, kMinimumEdit)->accessibleName().isEmpty());
    for (int number = 1; number <= 4; ++number)
        QCOMPARE(fieldBox(page, kResultBox, number)->accessibleName(),
                 QStringLiteral("Person search result %1").arg(number));
}

QTEST_MAIN(TestSearchSettingsView)
#include "test_searchsettingsview.moc"
