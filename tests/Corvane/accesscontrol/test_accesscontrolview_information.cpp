#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kSaveFirst = QStringLiteral("iUnsaved changes|Please save first|Ok");

}  // namespace

/// Adding and changing organisations and departments.
class TestAccesscontrolViewInformation : public ViewFixture
{
    Q_OBJECT

private slots:
    void eachViewShowsItsOwnColumnsAndRows_data();
    void eachViewShowsItsOwnColumnsAndRows();
    void aNewOrganisationIsStored_data();
    void aNewOrganisationIsStored();
    void twoBlankRowsCannotExist_data();
    void twoBlankRowsCannotExist();
    void aNewDepartmentIsStoredWithItsAddress_data();
    void aNewDepartmentIsStoredWithItsAddress();
    void aDepartmentWithOnlyAnAddressIsNotSaved_data();
    void aDepartmentWithOnlyAnAddressIsNotSaved();
    void aChangedNameIsStoredUnderItsId_data();
    void aChangedNameIsStoredUnderItsId();
    void anEmptiedNameIsNotSavedAndCannotBeDeleted_data();
    void anEmptiedNameIsNotSavedAndCannotBeDeleted();
    void theButtonsAfterAChangedRowWaitForTheSave_data();
    void theButtonsAfterAChangedRowWaitForTheSave();
    void anEmptiedAddressIsSavedWithItsName_data();
    void anEmptiedAddressIsSavedWithItsName();
    void aRestoredTextCountsAsAChange_data();
    void aRestoredTextCountsAsAChange();
    void aLongNameStaysInTheViewUntilTheNextReload_data();
    void aLongNameStaysInTheViewUntilTheNextReload();
    void eachRefusedRowIsToldAndStaysAChange_data();
    void eachRefusedRowIsToldAndStaysAChange();
    void ctrlSSavesWhatIsBeingTyped_data();
    void ctrlSSavesWhatIsBeingTyped();
};

void TestAccesscontrolViewInformation::eachViewShowsItsOwnColumnsAndRows_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::eachViewShowsItsOwnColumnsAndRows()
{
    QVERIFY(addPlacesOfWork());
    QVERIFY(addOrganization(3, text("South Clinic")));
    showView();
    const CellTable *info = table("info_table");
    QCOMPARE(info->columnCount(), 4);
    QCOMPARE(info->columnWidth(2), 500);
    QCOMPARE(info->item(0, 0)->text(), text("-"));
    chooseView(Organisations);
    QCOMPARE(info->item(0, 0)->text(), text("Organisation"));
    QCOMPARE(addButton()->text(), text("Add new organisation"));
    QCOMPARE(shownRows(), (QStringList{text("East Clinic"), text("West Clinic"), text("South Clinic")}));
    QVERIFY(deleteButton(3)->isEnabled());
    QVERIFY(!part<QComboBox>("method_combo")->isVisible());
    chooseView(Departments);
    QCOMPARE(info->item(0, 1)->text(), text("Department"));
    QCOMPARE(info->item(0, 2)->text(), text("Address"));
    QCOMPARE(addButton()->text(), text("Add new department"));
    QCOMPARE(shownRows(), (QStringList{text("Surgery|Building 1"), text("Oncology|Building 2")}));
    QVERIFY(info->isRowHidden(3));
    chooseView(Organisations);
    QCOMPARE(shownRows().size(), 3);
    QCOMPARE(edit(1, 0)->accessibleName(), text("Organisation"));
    QCOMPARE(deleteButton(1)->accessibleName(), text("Delete"));
    QCOMPARE(deleteButton(1)->accessibleDescription(), text("East Clinic"));
}

void TestAccesscontrolViewInformation::aNewOrganisationIsStored_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aNewOrganisationIsStored()
{
    showView();
    chooseView(Organisations);
    click(addButton());
    QCOMPARE(edit(1, 0)->placeholderText(), text("Enter name"));
    QCOMPARE(m_stack->focusWidget(), edit(1, 0));
    QVERIFY(!deleteButton(1)->isEnabled());
    QVERIFY(!canSave());
    type(1, 0, text("East Clinic"));
    QVERIFY(deleteButton(1)->isEnabled());
    QVERIFY(canSave());
    const UuidString id = edit(1, 0)->id();
    save();
    QVERIFY(!canSave());
    QCOMPARE(elsewhere(text("SELECT id, name FROM organization WHERE deleted = 0")),
             QStringList{id.toString() + text("|East Clinic")});
}

void TestAccesscontrolViewInformation::twoBlankRowsCannotExist_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::newRow("of organisations") << Place::OfflineFile << Organisations;
    QTest::newRow("of departments") << Place::OfflineFile << Departments;
}

void TestAccesscontrolViewInformation::twoBlankRowsCannotExist()
{
    QFETCH(const ViewIndex, view);
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(view);
    click(addButton());
    QCOMPARE(shownRows().size(), 3);
    click(addButton());
    QCOMPARE(shownRows().size(), 3);
    type(3, view == Organisations ? 0 : 1, text("Third"));
    click(addButton());
    QCOMPARE(shownRows().size(), 4);
    // The blank row is no row of the other view.
    const MessageBoxes boxes({text("Not now")});
    chooseView(view == Organisations ? Departments : Organisations);
    QCOMPARE(shownRows().size(), 2);
}

void TestAccesscontrolViewInformation::aNewDepartmentIsStoredWithItsAddress_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aNewDepartmentIsStoredWithItsAddress()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Departments);
    click(addButton());
    QCOMPARE(edit(3, 1)->placeholderText(), text("Enter name"));
    QCOMPARE(edit(3, 2)->placeholderText(), text("Enter address"));
    type(3, 1, text("Radiology"));
    QCOMPARE(m_stack->focusWidget(), edit(3, 2));
    type(3, 2, text("Building 3"));
    save();
    QVERIFY(!canSave());
    QCOMPARE(
        elsewhere(text("SELECT name, address FROM department WHERE id = ?"), {edit(3, 1)->id().toString()}),
        QStringList{text("Radiology|Building 3")});
    m_view->resetTables();
    QVERIFY(shownRows().contains(text("Radiology|Building 3")));
}

void TestAccesscontrolViewInformation::aDepartmentWithOnlyAnAddressIsNotSaved_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aDepartmentWithOnlyAnAddressIsNotSaved()
{
    showView();
    chooseView(Departments);
    click(addButton());
    type(1, 2, text("Building 3"));
    QVERIFY(!deleteButton(1)->isEnabled());
    QVERIFY(canSave());
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(storedNames("department"), QStringList());
    QVERIFY(!deleteButton(1)->isEnabled());
    QCOMPARE(shownRows(), QStringList{text("|Building 3")});
}

void TestAccesscontrolViewInformation::aChangedNameIsStoredUnderItsId_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aChangedNameIsStoredUnderItsId()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    type(2, 0, text("Western Clinic"));
    QVERIFY(canSave());
    trail();
    save();
    QCOMPARE(elsewhere(text("SELECT name FROM organization ORDER BY id")),
             (QStringList{text("East Clinic"), text("Western Clinic")}));
    // The unchanged row is left alone.
    QCOMPARE(trail(), QStringList{QStringLiteral("UpdateOrganization Human %1: Organization: Western Clinic")
                                      .arg(idOf(2).toString())});
    QVERIFY(!canSave());
}

void TestAccesscontrolViewInformation::anEmptiedNameIsNotSavedAndCannotBeDeleted_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::anEmptiedNameIsNotSavedAndCannotBeDeleted()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    type(1, 0, QString());
    QVERIFY(!canSave());
    QVERIFY(!deleteButton(1)->isEnabled());
    QVERIFY(deleteButton(2)->isEnabled());
    type(1, 0, text("East"));
    QVERIFY(canSave());
    QVERIFY(deleteButton(1)->isEnabled());
}

void TestAccesscontrolViewInformation::theButtonsAfterAChangedRowWaitForTheSave_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::theButtonsAfterAChangedRowWaitForTheSave()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    type(1, 0, text("East"));
    type(2, 0, QString());
    QVERIFY(deleteButton(2)->isEnabled());
    const MessageBoxes boxes;
    clickDelete(2);
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFirst});
    save();
    QVERIFY(!canSave());
    QVERIFY(deleteButton(1)->isEnabled());
    QVERIFY(!deleteButton(2)->isEnabled());
    QCOMPARE(storedNames("organization"), (QStringList{text("East"), text("West Clinic")}));
}

void TestAccesscontrolViewInformation::anEmptiedAddressIsSavedWithItsName_data()
{
    addOfflineFile();
}

// An empty address alone does not make the list one that can be saved.
void TestAccesscontrolViewInformation::anEmptiedAddressIsSavedWithItsName()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Departments);
    type(1, 2, QString());
    QVERIFY(!canSave());
    type(1, 1, text("Surgeries"));
    save();
    QCOMPARE(elsewhere(text("SELECT name, address FROM department WHERE id = ?"), {idOf(1).toString()}),
             QStringList{text("Surgeries|")});
}

void TestAccesscontrolViewInformation::aRestoredTextCountsAsAChange_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aRestoredTextCountsAsAChange()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    click(edit(1, 0));
    QTest::keyClicks(edit(1, 0), text("x"));
    QTest::keyClick(edit(1, 0), Qt::Key_Backspace);
    QTest::keyClick(edit(1, 0), Qt::Key_Return);
    QVERIFY(!canSave());
    type(1, 0, text("East"));
    type(1, 0, text("East Clinic"));
    QVERIFY(canSave());
}

void TestAccesscontrolViewInformation::aLongNameStaysInTheViewUntilTheNextReload_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::aLongNameStaysInTheViewUntilTheNextReload()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Departments);
    const QString name(51, QLatin1Char('n'));
    const QString address(10000, QLatin1Char('a'));
    edit(1, 2)->setText(address);
    type(1, 1, name);
    save();
    QCOMPARE(edit(1, 1)->text(), name);
    QCOMPARE(elsewhere(text("SELECT name, address FROM department WHERE id = ?"), {idOf(1).toString()}),
             QStringList{name.left(50) + QLatin1Char('|') + address.left(50)});
    m_view->resetTables();
    QCOMPARE(edit(1, 1)->text(), name.left(50));
    QCOMPARE(edit(1, 2)->text(), address.left(50));
}

void TestAccesscontrolViewInformation::eachRefusedRowIsToldAndStaysAChange_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::newRow("of organisations") << Place::Sqlite << Organisations;
    QTest::newRow("of departments") << Place::Sqlite << Departments;
}

void TestAccesscontrolViewInformation::eachRefusedRowIsToldAndStaysAChange()
{
    QFETCH(const ViewIndex, view);
    const char *stored = view == Organisations ? "organization" : "department";
    const int column = view == Organisations ? 0 : 1;
    for (int number = 1; number <= 5; ++number) {
        QVERIFY(addOrganization(number, QStringLiteral("Place %1").arg(number)));
        QVERIFY(addDepartment(number, QStringLiteral("Place %1").arg(number), QString()));
    }
    QVERIFY(refuse(text("UPDATE"), text(stored), text("NEW.name LIKE '%refused%'")));
    showView();
    chooseView(view);
    type(1, column, text("One"));
    type(2, column, text("Two is <b>refused</b>"));
    type(3, column, text("Three"));
    type(4, column, text("Four is refused"));
    type(5, column, text("Five"));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), (QStringList{text("!Save failed|Could not save Two is <b>refused</b>|Ok"),
                                           text("!Save failed|Could not save Four is refused|Ok")}));
    QCOMPARE(storedNames(stored),
             (QStringList{text("One"), text("Place 2"), text("Three"), text("Place 4"), text("Five")}));
    QVERIFY(canSave());
    for (int row = 1; row <= 5; ++row)
        QCOMPARE(edit(row, column)->isUpdated(), row % 2 == 0);
}

// A later "No" is a no, though the edit keeps its mark of the first answer.
void TestAccesscontrolViewInformation::ctrlSSavesWhatIsBeingTyped_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewInformation::ctrlSSavesWhatIsBeingTyped()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    click(edit(1, 0));
    QTest::keyClicks(edit(1, 0), text("!"));
    QTest::keyClick(edit(1, 0), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(storedNames("organization"), (QStringList{text("East Clinic!"), text("West Clinic")}));
    QVERIFY(!canSave());
}

QTEST_MAIN(TestAccesscontrolViewInformation)
#include "test_accesscontrolview_information.moc"
