#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kAreYouSure = QStringLiteral("Delete|Are you sure?|No,Ok");
const QString kDeleteFailed = QStringLiteral("!Delete failed|Could not delete.|Ok");
const QString kSaveFailed = QStringLiteral("!Save failed|Could not save.|Ok");
const QString kQuestion = QStringLiteral("|There are unsaved changes.\nSave now?|Cancel,Not now,Yes");
const QString kLeavingQuestion =
    QStringLiteral("Access Control Management|There are unsaved changes.\nSave now?|No,Yes");

}  // namespace

/// What follows when the database refuses what was confirmed.
class TestAccesscontrolViewRefusals : public ViewFixture
{
    Q_OBJECT

private slots:
    void afterARefusedDeletionTheNextEditOfAUserDeletesWithoutAsking_data();
    void afterARefusedDeletionTheNextEditOfAUserDeletesWithoutAsking();
    void afterARefusedDeletionTheNextEditOfARoleDeletesWithoutAsking_data();
    void afterARefusedDeletionTheNextEditOfARoleDeletesWithoutAsking();
    void anotherViewIsShownThoughTheSaveWasRefused_data();
    void anotherViewIsShownThoughTheSaveWasRefused();
    void anotherTypeOfUsersIsShownThoughTheSaveWasRefused_data();
    void anotherTypeOfUsersIsShownThoughTheSaveWasRefused();
    void leavingTheViewSavesTheRestThoughOneSaveWasRefused_data();
    void leavingTheViewSavesTheRestThoughOneSaveWasRefused();
};

void TestAccesscontrolViewRefusals::afterARefusedDeletionTheNextEditOfAUserDeletesWithoutAsking_data()
{
    addSqlite();
}

void TestAccesscontrolViewRefusals::afterARefusedDeletionTheNextEditOfAUserDeletesWithoutAsking()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("NEW.deleted = 1")));
    showView();
    EditorSteps remove({press("remove_button")});
    const MessageBoxes boxes({text("Ok")});
    clickUser(text("anna"));
    QVERIFY(remove.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kAreYouSure, kDeleteFailed}));
    QVERIFY(user(text("anna"))->deleted());
    allowAll();
    // A save connects again, and the mark stays.
    clickUserCheck(text("bert"), text("Doctor"));
    save();
    QVERIFY(m_handler->isConnected());
    QVERIFY(user(text("anna"))->deleted());

    EditorSteps cancel({pressKey(Qt::Key_Escape)});
    clickUser(text("anna"));
    QVERIFY(cancel.areDone());
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    EditorSteps edit({typeInto("last_name_edit", text("Virtanen")), press("save_button")});
    clickUser(text("anna"));
    QVERIFY(edit.areDone());
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(shownUsers(), QStringList{text("bert")});
    QCOMPARE(elsewhere(text("SELECT deleted FROM operator WHERE operator_id = ?"), {idOf(1).toString()}),
             QStringList{text("1")});
}

void TestAccesscontrolViewRefusals::afterARefusedDeletionTheNextEditOfARoleDeletesWithoutAsking_data()
{
    addSqlite();
}

void TestAccesscontrolViewRefusals::afterARefusedDeletionTheNextEditOfARoleDeletesWithoutAsking()
{
    QVERIFY(refuse(text("UPDATE"), text("roles"), text("NEW.deleted = 1")));
    showView();
    chooseView(Roles);
    EditorSteps remove({press("delete_button")});
    const MessageBoxes boxes({text("Ok")});
    clickRole(text("Doctor"));
    QVERIFY(remove.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kAreYouSure, kDeleteFailed}));
    QVERIFY(role(text("Doctor"))->deleted());
    allowAll();

    EditorSteps cancel({pressKey(Qt::Key_Escape)});
    clickRole(text("Doctor"));
    QVERIFY(cancel.areDone());
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Doctor"), text("Admin")}));
    EditorSteps edit({typeInto("role_name_edit", text("Physician")), press("save_button")});
    clickRole(text("Doctor"));
    QVERIFY(edit.areDone());
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Admin")}));
    QCOMPARE(roleHeadings(), (QStringList{text("Nurse"), text("Admin")}));
    QCOMPARE(elsewhere(text("SELECT title FROM roles WHERE deleted = 1")), QStringList{text("Doctor")});
}

void TestAccesscontrolViewRefusals::anotherViewIsShownThoughTheSaveWasRefused_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::newRow("from the users") << Place::Sqlite << Users;
    QTest::newRow("from the roles") << Place::Sqlite << Roles;
}

void TestAccesscontrolViewRefusals::anotherViewIsShownThoughTheSaveWasRefused()
{
    QFETCH(const ViewIndex, view);
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text(view == Users ? "operator" : "roles"), text("1")));
    showView();
    chooseView(view);
    if (view == Users)
        clickUserCheck(text("bert"), text("Doctor"));
    else
        clickRightCheck(text("Doctor"), text("Audit trail management"));
    const MessageBoxes boxes({text("Yes")});
    chooseView(Departments);
    QCOMPARE(boxTexts(boxes), (QStringList{kQuestion, kSaveFailed}));
    QCOMPARE(part<QComboBox>("view_combo")->currentIndex(), int(Departments));
    QVERIFY(table("info_table")->isVisible());
    QCOMPARE(addButton()->text(), text("Add new department"));
    QVERIFY(!canSave());
    // The change is there on coming back, and can be saved once the database takes it.
    chooseView(view);
    QVERIFY(canSave());
    allowAll();
    save();
    QVERIFY(!canSave());
    QCOMPARE(boxes.seen().size(), 2);
}

void TestAccesscontrolViewRefusals::anotherTypeOfUsersIsShownThoughTheSaveWasRefused_data()
{
    addSqlite();
}

void TestAccesscontrolViewRefusals::anotherTypeOfUsersIsShownThoughTheSaveWasRefused()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("1")));
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("Yes")});
    chooseMethod(WindowsUsers);
    QCOMPARE(boxTexts(boxes), (QStringList{kQuestion, kSaveFailed}));
    QCOMPARE(part<QComboBox>("method_combo")->currentIndex(), int(WindowsUsers));
    QCOMPARE(shownUsers(), QStringList{text("CLINIC\\CARLA")});
    QCOMPARE(addButton()->text(), text("Add new Windows user"));
    QVERIFY(!canSave());
    QCOMPARE(storedRoles(text("bert")), QStringList{text("Nurse")});
    chooseMethod(InternalUsers);
    QVERIFY(canSave());
    QCOMPARE(checkedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QCOMPARE(boxes.seen().size(), 2);
}

void TestAccesscontrolViewRefusals::leavingTheViewSavesTheRestThoughOneSaveWasRefused_data()
{
    addSqlite();
}

void TestAccesscontrolViewRefusals::leavingTheViewSavesTheRestThoughOneSaveWasRefused()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("NEW.username = 'bert'")));
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("Not now"), text("Yes")});
    chooseMethod(WindowsUsers);
    clickUserCheck(text("CLINIC\\CARLA"), text("Admin"));
    leaveView();
    QCOMPARE(boxTexts(boxes), (QStringList{kQuestion, kLeavingQuestion, kSaveFailed}));
    QCOMPARE(m_stack->currentIndex(), 1);
    QCOMPARE(storedRoles(text("bert")), QStringList{text("Nurse")});
    QCOMPARE(storedRoles(text("CLINIC\\CARLA")), (QStringList{text("Doctor"), text("Admin")}));
    comeBack();
    QCOMPARE(shownUsers(), QStringList{text("CLINIC\\CARLA")});
    QVERIFY(!canSave());
    chooseMethod(InternalUsers);
    QVERIFY(canSave());
    QCOMPARE(checkedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    allowAll();
    save();
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QCOMPARE(boxes.seen().size(), 3);
}

QTEST_MAIN(TestAccesscontrolViewRefusals)
#include "test_accesscontrolview_refusals.moc"
