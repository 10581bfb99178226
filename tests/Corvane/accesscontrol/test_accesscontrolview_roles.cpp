#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kNameEmpty = QStringLiteral("!Name empty|Please enter unique name.|Ok");
const QString kNameTaken = QStringLiteral("!Name taken|Please enter unique name.|Ok");
const QString kSaveFailed = QStringLiteral("!Save failed|Could not save.|Ok");
const QString kDeleteFailed = QStringLiteral("!Delete failed|Could not delete.|Ok");
const QString kAreYouSure = QStringLiteral("Delete|Are you sure?|No,Ok");

QList<EditorSteps::Step> name(const QString &roleName)
{
    return {typeInto("role_name_edit", roleName), press("save_button")};
}

const QStringList &seededRoles()
{
    static const QStringList roles{QStringLiteral("Nurse"), QStringLiteral("Doctor"),
                                   QStringLiteral("Admin")};
    return roles;
}

}  // namespace

/// Adding, renaming and deleting roles, and their rights in the table.
class TestAccesscontrolViewRoles : public ViewFixture
{
    Q_OBJECT

private slots:
    void theTableHasAHeadingARowAndALabelForEachRight_data();
    void theTableHasAHeadingARowAndALabelForEachRight();
    void aHeadingRowHasNoButton_data();
    void aHeadingRowHasNoButton();
    void aNewRoleIsStoredAndShownInBothTables_data();
    void aNewRoleIsStoredAndShownInBothTables();
    void aNewRoleWithoutANameIsNone_data();
    void aNewRoleWithoutANameIsNone();
    void aNewRoleWithATakenNameIsEditedAtOnce_data();
    void aNewRoleWithATakenNameIsEditedAtOnce();
    void aNewRoleWithATakenNameThatIsGivenUpGoes_data();
    void aNewRoleWithATakenNameThatIsGivenUpGoes();
    void aNewRoleThatIsRefusedLeavesNoColumn_data();
    void aNewRoleThatIsRefusedLeavesNoColumn();
    void aRenamedRoleIsStoredAndShownInBothTables_data();
    void aRenamedRoleIsStoredAndShownInBothTables();
    void aCancelledRenamingPutsTheNameBack_data();
    void aCancelledRenamingPutsTheNameBack();
    void aRenamingToAnEmptyOrTakenNameAsksAgain_data();
    void aRenamingToAnEmptyOrTakenNameAsksAgain();
    void aRefusedRenamingIsTold_data();
    void aRefusedRenamingIsTold();
    void aRoleInUseCannotBeDeleted_data();
    void aRoleInUseCannotBeDeleted();
    void aDeletedRoleGoesFromBothTables_data();
    void aDeletedRoleGoesFromBothTables();
    void aRefusedDeletionLeavesTheColumn_data();
    void aRefusedDeletionLeavesTheColumn();
    void rightsFollowOneAnotherAndAreSaved_data();
    void rightsFollowOneAnotherAndAreSaved();
    void aBitThatNoRowShowsIsKeptUntilASave_data();
    void aBitThatNoRowShowsIsKeptUntilASave();
    void aRoleThatIsNotStoredYetIsNoRoleOfAUser_data();
    void aRoleThatIsNotStoredYetIsNoRoleOfAUser();
};

void TestAccesscontrolViewRoles::theTableHasAHeadingARowAndALabelForEachRight_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::theTableHasAHeadingARowAndALabelForEachRight()
{
    showView();
    chooseView(Roles);
    const CellTable *roles = table("role_table");
    QCOMPARE(roles->rowCount(), 21);
    QCOMPARE(roles->item(0, 0)->text(), QString());
    QCOMPARE(roles->item(0, 0)->flags(), Qt::NoItemFlags);
    QStringList headings;
    for (int row = 1; row < roles->rowCount(); ++row) {
        const bool heading = !roles->cellWidget(row, 1);
        QCOMPARE(roles->item(row, 0)->font().weight(), heading ? 75 : 50);
        if (heading)
            headings.append(roles->item(row, 0)->text());
    }
    QCOMPARE(headings, (QStringList{text("Settings"), text("Audit Trail and Access Control"),
                                    text("Person Access"), text("Study Access"), text("Transfer")}));
    QVERIFY(!roles->horizontalHeader()->isVisible() && !roles->verticalHeader()->isVisible());
    QCOMPARE(shownRoles(), seededRoles());
    QCOMPARE(rightCheck(text("Admin"), text("Export"))->accessibleName(), text("Admin: Export"));
}

void TestAccesscontrolViewRoles::aHeadingRowHasNoButton_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aHeadingRowHasNoButton()
{
    showView();
    chooseView(Roles);
    const CellTable *roles = table("role_table");
    QVERIFY(!roles->cellWidget(1, 1));
    QCOMPARE(roles->item(1, 1)->flags(), Qt::NoItemFlags);
    const QRect cell = roles->visualItemRect(roles->item(1, 1));
    QTest::mouseClick(roles->viewport(), Qt::LeftButton, {}, cell.center());
    QVERIFY(!canSave());
}

void TestAccesscontrolViewRoles::aNewRoleIsStoredAndShownInBothTables_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aNewRoleIsStoredAndShownInBothTables()
{
    QVERIFY(addUsers());
    showView();
    chooseView(Roles);
    EditorSteps steps(name(text("Midwife")));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(shownRoles(), seededRoles() + QStringList{text("Midwife")});
    QCOMPARE(roleHeadings(), shownRoles());
    QCOMPARE(elsewhere(text("SELECT title, actions, deleted FROM roles WHERE role_id = ?"),
                       {role(text("Midwife"))->role()->roleID()}),
             QStringList{text("Midwife|0|0")});
    QVERIFY(!canSave());
    clickRightCheck(text("Midwife"), text("Read person"));
    save();
    QCOMPARE(elsewhere(text("SELECT actions FROM roles WHERE title = 'Midwife'")),
             QStringList{QString::number(0x1000)});
    chooseView(Users);
    for (const QString &user : {text("anna"), text("bert")})
        QVERIFY(!userCheck(user, text("Midwife"))->isChecked());
    clickUserCheck(text("bert"), text("Midwife"));
    save();
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Midwife")}));
}

void TestAccesscontrolViewRoles::aNewRoleWithoutANameIsNone_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aNewRoleWithoutANameIsNone()
{
    showView();
    chooseView(Roles);
    EditorSteps steps({press("save_button"), press("cancel_button")});
    const MessageBoxes boxes;
    click(addButton());
    QCOMPARE(boxTexts(boxes), QStringList{kNameEmpty});
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(shownRoles(), seededRoles());
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM roles")), QStringList{text("3")});
}

void TestAccesscontrolViewRoles::aNewRoleWithATakenNameIsEditedAtOnce_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aNewRoleWithATakenNameIsEditedAtOnce()
{
    showView();
    chooseView(Roles);
    EditorSteps steps(name(text("Doctor")) + name(text("Surgeon")));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    QCOMPARE(shownRoles(), seededRoles() + QStringList{text("Surgeon")});
    QCOMPARE(roleHeadings(), shownRoles());
    QCOMPARE(elsewhere(text("SELECT title FROM roles ORDER BY role_id")), shownRoles());
}

void TestAccesscontrolViewRoles::aNewRoleWithATakenNameThatIsGivenUpGoes_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aNewRoleWithATakenNameThatIsGivenUpGoes()
{
    QVERIFY(addUsers());
    showView();
    chooseView(Roles);
    EditorSteps steps(
        name(text("Doctor")) +
        QList<EditorSteps::Step>{typeInto("role_name_edit", text("Surgeon")), press("cancel_button")} +
        name(text("Surgeon")));
    const MessageBoxes boxes;
    click(addButton());
    QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    QCOMPARE(shownRoles(), seededRoles());
    QCOMPARE(roleHeadings(), seededRoles());
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM roles")), QStringList{text("3")});
    QVERIFY(!canSave());

    // The columns behind the hidden one work.
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(roleHeadings(), seededRoles() + QStringList{text("Surgeon")});
    chooseView(Users);
    clickUserCheck(text("anna"), text("Surgeon"));
    save();
    QCOMPARE(storedRoles(text("anna")), (QStringList{text("Admin"), text("Surgeon")}));
}

void TestAccesscontrolViewRoles::aNewRoleThatIsRefusedLeavesNoColumn_data()
{
    addSqlite();
}

void TestAccesscontrolViewRoles::aNewRoleThatIsRefusedLeavesNoColumn()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("INSERT"), text("roles"), text("1")));
    showView();
    chooseView(Roles);
    EditorSteps steps(name(text("Midwife")));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QCOMPARE(shownRoles(), seededRoles());
    QCOMPARE(roleHeadings(), seededRoles());
}

void TestAccesscontrolViewRoles::aRenamedRoleIsStoredAndShownInBothTables_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("name");
    QTest::newRow("a plain name") << Place::OfflineFile << text("Physician");
    QTest::newRow("quotes and marks") << Place::OfflineFile << text("O'Brien's \"R&D\" %1 ?");
    QTest::newRow("right to left") << Place::OfflineFile << text("רופא");
    QTest::newRow("markup") << Place::OfflineFile << text("<b>Doctor</b>");
}

void TestAccesscontrolViewRoles::aRenamedRoleIsStoredAndShownInBothTables()
{
    QFETCH(const QString, name);
    QVERIFY(addUsers());
    showView();
    chooseView(Roles);
    const uint id = role(text("Doctor"))->role()->roleID();
    EditorSteps steps(::name(name));
    const MessageBoxes boxes;
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), name, text("Admin")}));
    QCOMPARE(roleHeadings(), shownRoles());
    QCOMPARE(roleId(name), id);
    QCOMPARE(rightCheck(name, text("Export"))->accessibleName(), name + text(": Export"));
    QCOMPARE(userCheck(text("anna"), name)->accessibleName(), text("anna: ") + name);
}

void TestAccesscontrolViewRoles::aCancelledRenamingPutsTheNameBack_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("typed");
    QTest::newRow("after a free name") << Place::OfflineFile << text("Surgeon");
    QTest::newRow("after the name of another role") << Place::OfflineFile << text("Nurse");
    QTest::newRow("after none") << Place::OfflineFile << QString();
}

void TestAccesscontrolViewRoles::aCancelledRenamingPutsTheNameBack()
{
    QFETCH(const QString, typed);
    showView();
    chooseView(Roles);
    EditorSteps steps({typeInto("role_name_edit", typed), press("cancel_button")});
    const MessageBoxes boxes;
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(shownRoles(), seededRoles());
    QCOMPARE(role(text("Doctor"))->role()->roleName(), text("Doctor"));
}

void TestAccesscontrolViewRoles::aRenamingToAnEmptyOrTakenNameAsksAgain_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aRenamingToAnEmptyOrTakenNameAsksAgain()
{
    showView();
    chooseView(Roles);
    EditorSteps steps(name(QString()) + name(text("Admin")) + name(text("Physician")));
    const MessageBoxes boxes;
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kNameEmpty, kNameTaken}));
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Physician"), text("Admin")}));
}

void TestAccesscontrolViewRoles::aRefusedRenamingIsTold_data()
{
    addSqlite();
}

void TestAccesscontrolViewRoles::aRefusedRenamingIsTold()
{
    QVERIFY(refuse(text("UPDATE"), text("roles"), text("1")));
    showView();
    chooseView(Roles);
    EditorSteps steps(name(text("Physician")));
    const MessageBoxes boxes;
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Physician"), text("Admin")}));
    QCOMPARE(elsewhere(text("SELECT title FROM roles ORDER BY role_id")), seededRoles());
}

void TestAccesscontrolViewRoles::aRoleInUseCannotBeDeleted_data()
{
    addOfflineFile();
}

// Use is what the operator's list says, not what is checked and unsaved.
void TestAccesscontrolViewRoles::aRoleInUseCannotBeDeleted()
{
    QVERIFY(addUsers());
    showView();
    const MessageBoxes boxes({text("Not now")});
    clickUserCheck(text("anna"), text("Admin"));
    chooseView(Roles);
    bool enabled = true;
    QString tip;
    EditorSteps steps({[&](QDialog &dialog) {
                           const auto *button = shown<QPushButton>(dialog, "delete_button");
                           enabled = button->isEnabled();
                           tip = button->toolTip();
                       },
                       press("cancel_button")});
    clickRole(text("Admin"));
    QVERIFY(steps.areDone());
    QVERIFY(!enabled);
    QCOMPARE(tip, text("Role is in use. Deselect role from users to delete it"));
}

void TestAccesscontrolViewRoles::aDeletedRoleGoesFromBothTables_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aDeletedRoleGoesFromBothTables()
{
    QVERIFY(addUsers());
    showView();
    chooseMethod(WindowsUsers);
    clickUserCheck(text("CLINIC\\CARLA"), text("Doctor"));
    save();  // nobody is a doctor any more
    chooseMethod(InternalUsers);
    clickUserCheck(text("anna"), text("Doctor"));
    MessageBoxes boxes({text("Not now"), text("No"), text("Ok")});
    chooseView(Roles);
    clickRightCheck(text("Doctor"), text("Export"));
    EditorSteps steps({press("delete_button"), press("delete_button")});
    clickRole(text("Doctor"));  // not confirmed
    QCOMPARE(shownRoles(), seededRoles());
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes).mid(1), (QStringList{kAreYouSure, kAreYouSure}));
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Admin")}));
    QCOMPARE(roleHeadings(), shownRoles());
    QVERIFY(!canSave());
    QCOMPARE(elsewhere(text("SELECT title FROM roles WHERE deleted = 1")), QStringList{text("Doctor")});
    chooseView(Users);
    QVERIFY(!canSave());
    clickUserCheck(text("anna"), text("Nurse"));
    save();
    QCOMPARE(storedRoles(text("anna")), (QStringList{text("Nurse"), text("Admin")}));
}

void TestAccesscontrolViewRoles::aRefusedDeletionLeavesTheColumn_data()
{
    addSqlite();
}

void TestAccesscontrolViewRoles::aRefusedDeletionLeavesTheColumn()
{
    QVERIFY(refuse(text("UPDATE"), text("roles"), text("NEW.deleted = 1")));
    showView();
    chooseView(Roles);
    EditorSteps steps({press("delete_button")});
    const MessageBoxes boxes({text("Ok")});
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kAreYouSure, kDeleteFailed}));
    QCOMPARE(shownRoles(), seededRoles());
    QVERIFY(role(text("Doctor"))->deleted());
}

void TestAccesscontrolViewRoles::rightsFollowOneAnotherAndAreSaved_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::rightsFollowOneAnotherAndAreSaved()
{
    showView();
    chooseView(Roles);
    QVERIFY(rightCheck(text("Admin"), text("Delete person"))->isChecked());
    clickRightCheck(text("Admin"), text("Read person"));
    QVERIFY(!rightCheck(text("Admin"), text("Delete person"))->isChecked());
    QVERIFY(rightCheck(text("Nurse"), text("Read person"))->isChecked());
    QVERIFY(canSave());
    clickRightCheck(text("Doctor"), text("Delete person"));
    save();
    QVERIFY(!canSave());
    QCOMPARE(elsewhere(text("SELECT actions FROM roles ORDER BY role_id")),
             (QStringList{QString::number(0x377000), QString::number(0xFF000), QString::number(0xF0037)}));
    clickRightCheck(text("Admin"), text("Write local DB settings"));
    clickRightCheck(text("Admin"), text("Write local DB settings"));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewRoles::aBitThatNoRowShowsIsKeptUntilASave_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewRoles::aBitThatNoRowShowsIsKeptUntilASave()
{
    QVERIFY(elsewhere(text("UPDATE roles SET actions = 8 + 4096 WHERE title = 'Doctor'")).isEmpty());
    showView();
    chooseView(Roles);
    QVERIFY(!canSave());
    EditorSteps steps(name(text("Physician")));
    clickRole(text("Doctor"));
    QVERIFY(steps.areDone());
    const QString rights = text("SELECT actions FROM roles WHERE title = 'Physician'");
    QCOMPARE(elsewhere(rights), QStringList{text("4104")});
    clickRightCheck(text("Physician"), text("Audit trail management"));
    save();
    QCOMPARE(elsewhere(rights), QStringList{text("4100")});
}

void TestAccesscontrolViewRoles::aRoleThatIsNotStoredYetIsNoRoleOfAUser_data()
{
    addSqlite();
}

// A new role that had to be renamed keeps its column when it is refused.
void TestAccesscontrolViewRoles::aRoleThatIsNotStoredYetIsNoRoleOfAUser()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("INSERT"), text("roles"), text("1")));
    showView();
    chooseView(Roles);
    EditorSteps steps(name(text("Doctor")) + name(text("Surgeon")));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kNameTaken, kSaveFailed}));
    QCOMPARE(shownRoles(), seededRoles() + QStringList{text("Surgeon")});
    chooseView(Users);
    clickUserCheck(text("anna"), text("Surgeon"));
    save();
    QCOMPARE(storedRoles(text("anna")), QStringList{text("Admin")});
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator_roles WHERE role_id = 0")),
             QStringList{text("0")});
    QVERIFY(canSave());
}

QTEST_MAIN(TestAccesscontrolViewRoles)
#include "test_accesscontrolview_roles.moc"
