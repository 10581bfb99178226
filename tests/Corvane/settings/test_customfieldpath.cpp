#include "fieldpages.h"
#include "settingsbench.h"
#include "support/messageboxes.h"
#include "support/pluginfolder.h"
#include "support/userinput.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr int kSearchTab = 2;
constexpr int kFieldTab = 3;
constexpr char kResultBox[] = "result_field";
constexpr char kSummaryBox[] = "summary_field";

/// A custom field's place in the local application settings, with a search that uses it.
QMap<QString, QVariant> site()
{
    return {{kCustom, QStringLiteral("1:Badge=0:true,2:Job=1:false")},
            {kSearchedCustom, QStringList{"Badge"}},
            {kParameters, QVariantList{2, 11}},
            {kResult, QStringList{"1", "Badge", "Job", "5"}},
            {kSummary, QStringList{"Job", "Badge", "1", "3"}}};
}

QWidget &openTab(SettingsBench &bench, int index)
{
    auto *tabs = child<QTabWidget>(bench.view(), "settings_tabs");
    tabs->setCurrentIndex(index);
    bench.view().activateWindow();
    if (!QTest::qWaitForWindowActive(&bench.view()))
        qFatal("The view does not show");
    return *tabs->currentWidget();
}

QStringList lines(const QWidget &dialog, const char *pane)
{
    return child<QPlainTextEdit>(dialog, pane)->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

}  // namespace

/// The way of a custom field from the page where it is defined to the search page, the settings and the
/// comparison, in the real settings view.
class TestCustomFieldPath : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aLoadedSourceShowsItsFieldsOnBothPages();
    void aRenamedFieldShowsOnTheSearchPageUnchecked();
    void aRenamedFieldReachesTheWorkingSettingsAndTheComparison();
    void aRenamedFieldReachesTheLocalApplication();
    void aNameThatIsStillBeingTypedIsSaved();
    void aFieldThatIsAddedAndNamedCanBeSearched();
    void aRemovedFieldLeavesTheSearchPageWhenTheSettingsAreReadAgain();
    void whatIsCheckedButNotSavedSurvivesMovingAndRemoving();
    void afterARenameTheCountOfWhatIsCheckedIsRight();
    void aRenameThatLeavesNothingToSearchChecksAllParameters();
    void aRejectedNameIsTheSameOnBothPages();
    void savedAndLoadedAgainNothingDiffers();
    void aPluginThatFailsIsReportedThroughTheView();

private:
    void load(SettingsBench &bench);

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestCustomFieldPath::init()
{
    m_files.reset();
    m_files.setLocal(site());
}

void TestCustomFieldPath::load(SettingsBench &bench)
{
    bench.choose("local_menu", "load_action");
    QVERIFY(child<QTabWidget>(bench.view(), "settings_tabs")->isVisible());
}

void TestCustomFieldPath::aLoadedSourceShowsItsFieldsOnBothPages()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    const QWidget &fields = openTab(bench, kFieldTab);
    QCOMPARE(rowNames(fields), (QStringList{"Badge", "Job"}));
    QCOMPARE(shownTexts(fields, kSummaryBox, 4), (QStringList{"Job", "Badge", "First Name", "Last Name"}));
    const QWidget &search = openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), (QStringList{"+Badge", "Job"}));
    QCOMPARE(checkedParameters(search), QList<int>{2});
    QCOMPARE(shownTexts(search, kResultBox, 4), (QStringList{"First Name", "Badge", "Job", "Birthdate"}));
}

void TestCustomFieldPath::aRenamedFieldShowsOnTheSearchPageUnchecked()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    typeName(openTab(bench, kFieldTab), 0, QStringLiteral("Employer"));
    const QWidget &search = openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), (QStringList{"Employer", "Job"}));
    QCOMPARE(shownTexts(search, kResultBox, 4), (QStringList{"First Name", "(empty)", "Job", "Birthdate"}));
}

void TestCustomFieldPath::aRenamedFieldReachesTheWorkingSettingsAndTheComparison()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    typeName(openTab(bench, kFieldTab), 0, QStringLiteral("Employer"));
    QCOMPARE(m_files.workingValue(kCustom).toString(), QStringLiteral("1:Employer=0:true,2:Job=1:false"));

    bench.seeChanges([](DiffView &dialog) {
        const QStringList before = lines(dialog, "left_pane");
        const QStringList after = lines(dialog, "right_pane");
        QVERIFY(before.contains("application/custom_person_fields=1:badge=0:true,2:job=1:false"));
        QVERIFY(after.contains("application/custom_person_fields=1:employer=0:true,2:job=1:false"));
        // The old name is no field any more.
        QVERIFY(before.contains("database/defaultsearchcustomfields=badge"));
        QVERIFY(after.contains("database/defaultsearchcustomfields="));
        QVERIFY(before.contains("ui/person_result_fields=1;badge;job;5"));
        QVERIFY(after.contains("ui/person_result_fields=1;(empty);job;5"));
        QVERIFY(before.contains("ui/person_summary_fields=job;badge;1;3"));
        QVERIFY(after.contains("ui/person_summary_fields=job;(empty);1;3"));
    });
}

void TestCustomFieldPath::aRenamedFieldReachesTheLocalApplication()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    typeName(openTab(bench, kFieldTab), 1, QStringLiteral("Work, place"));
    click(child<QCheckBox>(openTab(bench, kSearchTab), "search_custom_field_2"));
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(boxes.seen().value(0).text, QStringLiteral("Saving succeeded."));
    QCOMPARE(m_files.localValue(kCustom).toString(), QStringLiteral("1:Badge=0:true,2:Work place=1:false"));
    QCOMPARE(m_files.localValue(kSearchedCustom).toStringList(), (QStringList{"Badge", "Work place"}));
}

void TestCustomFieldPath::aNameThatIsStillBeingTypedIsSaved()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    const QWidget &fields = openTab(bench, kFieldTab);
    auto *name = rowPart<QLineEdit>(fields, 0, kRowName);
    QTest::mouseClick(name, Qt::LeftButton);
    QTest::keyClicks(name, QStringLiteral(",2"));
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(m_files.localValue(kCustom).toString(), QStringLiteral("1:Badge2=0:true,2:Job=1:false"));
    QCOMPARE(m_files.localValue(kSearchedCustom).toStringList(), QStringList());
    QCOMPARE(customChecks(openTab(bench, kSearchTab)), (QStringList{"Badge2", "Job"}));
}

void TestCustomFieldPath::aFieldThatIsAddedAndNamedCanBeSearched()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    QWidget &fields = openTab(bench, kFieldTab);
    QTest::mouseClick(child<QPushButton>(fields, "add_custom_field"), Qt::LeftButton);
    auto *name = rowPart<QLineEdit>(fields, 2, kRowName);
    QTest::keyClicks(name, QStringLiteral("Employer"));
    QTest::keyClick(name, Qt::Key_Tab);

    const QWidget &search = openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), (QStringList{"+Badge", "Job", "Employer"}));
    chooseEntry(fieldBox(search, kResultBox, 4), 12);
    QCOMPARE(fieldBox(search, kResultBox, 4)->currentText(), QStringLiteral("Employer"));
}

void TestCustomFieldPath::whatIsCheckedButNotSavedSurvivesMovingAndRemoving()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    click(child<QCheckBox>(openTab(bench, kSearchTab), "search_custom_field_2"));
    const QWidget &fields = openTab(bench, kFieldTab);
    QTest::mouseClick(rowPart(fields, 0, kRowDown), Qt::LeftButton);
    QCOMPARE(rowNames(fields), (QStringList{"Job", "Badge"}));
    QCOMPARE(customChecks(openTab(bench, kSearchTab)), (QStringList{"+Badge", "+Job"}));
    openTab(bench, kFieldTab);
    const MessageBoxes boxes({QStringLiteral("Ok")});
    QTest::mouseClick(rowPart(fields, 1, kRowRemove), Qt::LeftButton);
    QCOMPARE(rowNames(fields), QStringList{"Job"});
    QVERIFY(child<QCheckBox>(openTab(bench, kSearchTab), "search_custom_field_2")->isChecked());
}

void TestCustomFieldPath::afterARenameTheCountOfWhatIsCheckedIsRight()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    const QWidget &search = openTab(bench, kSearchTab);
    click(child<QCheckBox>(search, "search_custom_field_2"));
    click(parameterBox(search, 2));
    QCOMPARE(customChecks(search), (QStringList{"+Badge", "+Job"}));
    typeName(openTab(bench, kFieldTab), 1, QStringLiteral("Work"));
    openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), (QStringList{"+Badge", "Work"}));
    QVERIFY(checkedParameters(search).isEmpty());

    click(child<QCheckBox>(search, "search_custom_field_1"));
    QCOMPARE(customChecks(search), (QStringList{"+Badge", "Work"}));
    click(parameterBox(search, 6));
    click(child<QCheckBox>(search, "search_custom_field_1"));
    click(parameterBox(search, 6));
    QCOMPARE(customChecks(search), (QStringList{"Badge", "Work"}));
    QCOMPARE(checkedParameters(search), QList<int>{6});
}

void TestCustomFieldPath::aRenameThatLeavesNothingToSearchChecksAllParameters()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    const QWidget &search = openTab(bench, kSearchTab);
    click(parameterBox(search, 2));
    QVERIFY(checkedParameters(search).isEmpty());
    typeName(openTab(bench, kFieldTab), 0, QStringLiteral("Employer"));
    openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), (QStringList{"Employer", "Job"}));
    QCOMPARE(checkedParameters(search), (QList<int>{2, 3, 4, 6, 7}));
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    QCOMPARE(m_files.localValue(kParameters).toList(), (QVariantList{2, 3, 4, 6, 7}));
    QVERIFY(m_files.localValue(kSearchedCustom).toStringList().isEmpty());
}

void TestCustomFieldPath::aRemovedFieldLeavesTheSearchPageWhenTheSettingsAreReadAgain()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    const QWidget &fields = openTab(bench, kFieldTab);
    {
        const MessageBoxes boxes({QStringLiteral("Ok")});
        QTest::mouseClick(rowPart(fields, 0, kRowRemove), Qt::LeftButton);
        QCOMPARE(boxes.seen().size(), 1);
    }
    QCOMPARE(shownTexts(fields, kSummaryBox, 4), (QStringList{"Job", "(empty)", "First Name", "Last Name"}));
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    load(bench);
    const QWidget &search = openTab(bench, kSearchTab);
    QCOMPARE(customChecks(search), QStringList{"Job"});
    QCOMPARE(shownTexts(search, kResultBox, 4), (QStringList{"First Name", "(empty)", "Job", "Birthdate"}));
}

void TestCustomFieldPath::aRejectedNameIsTheSameOnBothPages()
{
    m_files.setLocal({{kCustom, QStringLiteral("1:A:B=0:true,2:Job=0:true,nonsense")}});
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    QCOMPARE(rowNames(openTab(bench, kFieldTab)), QStringList{"Job"});
    QCOMPARE(customChecks(openTab(bench, kSearchTab)), QStringList{"Job"});
}

void TestCustomFieldPath::savedAndLoadedAgainNothingDiffers()
{
    SettingsBench bench(m_workstation, kAllRights);
    load(bench);
    typeName(openTab(bench, kFieldTab), 0, QStringLiteral("Employer"));
    const MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    load(bench);
    for (const AuditEvent &event : bench.takeEvents())
        QCOMPARE(event.error, 0U);
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(lines(dialog, "left_pane"), QStringList());
        QCOMPARE(lines(dialog, "right_pane"), QStringList());
    });
    for (const AuditEvent &event : bench.takeEvents())
        QCOMPARE(event.error, 0U);
}

void TestCustomFieldPath::aPluginThatFailsIsReportedThroughTheView()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("nullinstance"), QStringLiteral("broken.plugin")));
    SettingsBench bench(m_workstation, kAllRights);
    QTest::qWait(0);
    const AuditEvent expected =
        settingsError(Actions::LoadPlugin, 0x09300000, QStringLiteral("Plugin failure: broken.plugin"));
    QVERIFY(bench.takeEvents().contains(expected));
}

QTEST_MAIN(TestCustomFieldPath)
#include "test_customfieldpath.moc"
