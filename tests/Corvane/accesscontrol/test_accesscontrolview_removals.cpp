#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kAreYouSure = QStringLiteral("Delete|Are you sure?|No,Ok");
const QString kDeleteFailed = QStringLiteral("!Delete failed|Could not delete.|Ok");
const QString kSaveFirst = QStringLiteral("iUnsaved changes|Please save first|Ok");

}  // namespace

/// Deleting organisations and departments.
class TestAccesscontrolViewRemovals : public ViewFixture
{
    Q_OBJECT

private slots:
    void aBlankRowCannotBeDeletedThoughTheOtherListHasItsRow_data();
    void aBlankRowCannotBeDeletedThoughTheOtherListHasItsRow();
    void unsavedChangesAreSavedBeforeADeletion_data();
    void unsavedChangesAreSavedBeforeADeletion();
    void aDeletedRowClosesUp_data();
    void aDeletedRowClosesUp();
    void theLastRowsCanBeDeletedOneByOne_data();
    void theLastRowsCanBeDeletedOneByOne();
    void aDeletionThatIsNotConfirmedChangesNothing_data();
    void aDeletionThatIsNotConfirmedChangesNothing();
    void aRefusedDeletionLeavesTheRow_data();
    void aRefusedDeletionLeavesTheRow();
};

void TestAccesscontrolViewRemovals::aBlankRowCannotBeDeletedThoughTheOtherListHasItsRow_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRemovals::aBlankRowCannotBeDeletedThoughTheOtherListHasItsRow()
{
    QVERIFY(addPlacesOfWork());
    QVERIFY(addDepartment(3, text("Radiology"), text("Building 3")));
    showView();
    chooseView(Departments);
    QVERIFY(deleteButton(3)->isEnabled());
    chooseView(Organisations);
    type(1, 0, text("East"));
    QCOMPARE(deleteButton(2)->accessibleDescription(), text("West Clinic"));
    click(addButton());
    QCOMPARE(shownRows(), (QStringList{text("East"), text("West Clinic"), QString()}));
    QVERIFY(!deleteButton(3)->isEnabled());
    QCOMPARE(deleteButton(3)->accessibleDescription(), QString());
}

void TestAccesscontrolViewRemovals::unsavedChangesAreSavedBeforeADeletion_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRemovals::unsavedChangesAreSavedBeforeADeletion()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    type(1, 0, text("Eastern Clinic"));
    const MessageBoxes boxes;
    clickDelete(2);
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFirst});
    QCOMPARE(shownRows(), (QStringList{text("Eastern Clinic"), text("West Clinic")}));
    QCOMPARE(storedNames("organization"), (QStringList{text("East Clinic"), text("West Clinic")}));
}

void TestAccesscontrolViewRemovals::aDeletedRowClosesUp_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::newRow("of organisations") << Place::OfflineFile << Organisations;
    QTest::newRow("of departments") << Place::OfflineFile << Departments;
}

void TestAccesscontrolViewRemovals::aDeletedRowClosesUp()
{
    QFETCH(const ViewIndex, view);
    const int column = view == Organisations ? 0 : 1;
    QVERIFY(addPlacesOfWork());
    QVERIFY(addOrganization(3, text("South Clinic")));
    QVERIFY(addDepartment(3, text("Radiology"), text("Building 3")));
    showView();
    chooseView(view);
    const QStringList before = shownRows();
    const QString firstName = edit(1, column)->text();
    const MessageBoxes boxes({text("Ok")});
    clickDelete(1);
    QCOMPARE(boxTexts(boxes), QStringList{kAreYouSure});
    QCOMPARE(shownRows(), before.mid(1));
    QVERIFY(!canSave());
    QVERIFY(edit(1, column)->id() == idOf(2));
    QCOMPARE(edit(1, column)->row(), 1);
    const char *stored = view == Organisations ? "organization" : "department";
    QVERIFY(!storedNames(stored).contains(firstName));

    // The moved rows are whole: their changes are noticed and saved, and they can be deleted.
    type(2, column, text("Last"));
    QVERIFY(canSave());
    save();
    QVERIFY(storedNames(stored).contains(text("Last")));
    const MessageBoxes again({text("Ok")});
    clickDelete(1);
    QCOMPARE(shownRows().size(), 1);
    // The other list has all of its rows.
    chooseView(view == Organisations ? Departments : Organisations);
    QCOMPARE(shownRows().size(), 3);
    QVERIFY(deleteButton(3)->isEnabled());
    // A name that was deleted is free.
    chooseView(view);
    click(addButton());
    type(2, column, firstName);
    save();
    QVERIFY(storedNames(stored).contains(firstName));
}

void TestAccesscontrolViewRemovals::theLastRowsCanBeDeletedOneByOne_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRemovals::theLastRowsCanBeDeletedOneByOne()
{
    QVERIFY(addPlacesOfWork());
    QVERIFY(addOrganization(3, text("South Clinic")));
    showView();
    chooseView(Organisations);
    const MessageBoxes boxes({text("Ok"), text("Ok"), text("Ok")});
    clickDelete(3);
    QCOMPARE(table("info_table")->rowCount(), 3);  // no list needs the row any more
    clickDelete(2);
    clickDelete(1);
    QCOMPARE(shownRows(), QStringList());
    QCOMPARE(storedNames("organization"), QStringList());
    chooseView(Departments);
    QCOMPARE(shownRows(), (QStringList{text("Surgery|Building 1"), text("Oncology|Building 2")}));
    click(addButton());
    QCOMPARE(shownRows().size(), 3);
}

void TestAccesscontrolViewRemovals::aDeletionThatIsNotConfirmedChangesNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRemovals::aDeletionThatIsNotConfirmedChangesNothing()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    const MessageBoxes boxes({text("No")});
    clickDelete(1);
    QCOMPARE(boxTexts(boxes), QStringList{kAreYouSure});
    QCOMPARE(storedNames("organization"), (QStringList{text("East Clinic"), text("West Clinic")}));
}

void TestAccesscontrolViewRemovals::aRefusedDeletionLeavesTheRow_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::newRow("of an organisation") << Place::Sqlite << Organisations;
    QTest::newRow("of a department") << Place::Sqlite << Departments;
}

void TestAccesscontrolViewRemovals::aRefusedDeletionLeavesTheRow()
{
    QFETCH(const ViewIndex, view);
    const char *stored = view == Organisations ? "organization" : "department";
    QVERIFY(addPlacesOfWork());
    QVERIFY(refuse(text("UPDATE"), text(stored), text("NEW.deleted = 1")));
    showView();
    chooseView(view);
    const QStringList before = shownRows();
    const QStringList names = storedNames(stored);
    const MessageBoxes boxes({text("Ok"), QString(), text("No")});
    clickDelete(1);
    QCOMPARE(boxTexts(boxes), (QStringList{kAreYouSure, kDeleteFailed}));
    QCOMPARE(shownRows(), before);
    QVERIFY(edit(1, view == Organisations ? 0 : 1)->deleted());
    QVERIFY(!m_handler->isConnected());
    clickDelete(1);
    QCOMPARE(boxTexts(boxes).mid(2), QStringList{kAreYouSure});
    QCOMPARE(shownRows(), before);
    QCOMPARE(storedNames(stored), names);
}

QTEST_MAIN(TestAccesscontrolViewRemovals)
#include "test_accesscontrolview_removals.moc"
