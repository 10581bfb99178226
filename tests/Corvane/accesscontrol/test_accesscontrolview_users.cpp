#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kNameTaken = QStringLiteral("!Name taken|Please enter unique name.|Ok");
const QString kUsernameTaken = QStringLiteral("!Username taken|Please enter unique username.|Ok");
const QString kSaveFailed = QStringLiteral("!Save failed|Could not save.|Ok");
const QString kDeleteFailed = QStringLiteral("!Delete failed|Could not delete.|Ok");
const QString kAreYouSure = QStringLiteral("Delete|Are you sure?|No,Ok");

QList<EditorSteps::Step> newUser(const QString &name)
{
    return {typeInto("username_edit", name), typeInto("password_edit", text("secret")),
            typeInto("confirm_edit", text("secret")), press("save_button")};
}

/// Chooses an account by its name, and saves its personal data.
QList<EditorSteps::Step> newAccount(const QString &name, bool isGroup)
{
    QList<EditorSteps::Step> steps{typeInto("manual_edit", name), press("save_button")};
    if (!isGroup)
        steps.append(press("save_button"));
    return steps;
}

}  // namespace

/// Adding, editing and deleting users, and their roles in the table.
class TestAccesscontrolViewUsers : public ViewFixture
{
    Q_OBJECT

private slots:
    void aNewUserOfEachTypeIsStoredAndShown_data();
    void aNewUserOfEachTypeIsStoredAndShown();
    void anAbandonedNewUserLeavesNothing_data();
    void anAbandonedNewUserLeavesNothing();
    void aTakenNameIsAskedForAgain_data();
    void aTakenNameIsAskedForAgain();
    void aTakenNameThatIsGivenUpLeavesNoRow_data();
    void aTakenNameThatIsGivenUpLeavesNoRow();
    void aTakenWindowsNameHasNoSecondTry_data();
    void aTakenWindowsNameHasNoSecondTry();
    void namesInAnotherCaseAreOthers_data();
    void namesInAnotherCaseAreOthers();
    void aNewUserThatIsRefusedLeavesNoRow_data();
    void aNewUserThatIsRefusedLeavesNoRow();
    void unreadableOrganisationsAreToldAndTheFlowGoesOn_data();
    void unreadableOrganisationsAreToldAndTheFlowGoesOn();
    void anEditedUserIsStoredAndShown_data();
    void anEditedUserIsStoredAndShown();
    void aCancelledEditChangesNothing_data();
    void aCancelledEditChangesNothing();
    void anEditedNameThatIsTakenIsPutBack_data();
    void anEditedNameThatIsTakenIsPutBack();
    void anEmptyNameIsPutBack_data();
    void anEmptyNameIsPutBack();
    void aRefusedEditIsTold_data();
    void aRefusedEditIsTold();
    void aDeletedUserGoes_data();
    void aDeletedUserGoes();
    void aDeletionThatIsNotConfirmedSaves_data();
    void aDeletionThatIsNotConfirmedSaves();
    void aRefusedDeletionLeavesTheRowAndItsName_data();
    void aRefusedDeletionLeavesTheRowAndItsName();
};

void TestAccesscontrolViewUsers::aNewUserOfEachTypeIsStoredAndShown_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("stored");

    QTest::newRow("an internal user keeps its name as typed")
        << Place::OfflineFile << InternalUsers << text("Add new internal user") << text("Clinic\\dora|1");
    QTest::newRow("a Windows group is in capitals")
        << Place::OfflineFile << WindowsGroups << text("Add new Windows group") << text("CLINIC\\DORA|2");
    QTest::newRow("a Windows user is in capitals")
        << Place::OfflineFile << WindowsUsers << text("Add new Windows user") << text("CLINIC\\DORA|3");
}

void TestAccesscontrolViewUsers::aNewUserOfEachTypeIsStoredAndShown()
{
    QFETCH(const MethodIndex, method);
    QFETCH(const QString, stored);
    QVERIFY(addUsers());
    showView();
    chooseMethod(method);
    QTEST(addButton()->text(), "button");
    const QString typed = text("Clinic\\dora");
    EditorSteps steps(method == InternalUsers ? newUser(typed) : newAccount(typed, method == WindowsGroups));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());

    const QString name = stored.section(QLatin1Char('|'), 0, 0);
    QVERIFY(shownUsers().contains(name));
    QCOMPARE(elsewhere(text("SELECT username, operator_type FROM operator WHERE username = ?"), {name}),
             QStringList{stored});
    QCOMPARE(checkedRoles(name), QStringList());
    QVERIFY(!canSave());
    QCOMPARE(m_stack->focusWidget(), user(name));
    chooseMethod(method == InternalUsers ? WindowsUsers : InternalUsers);
    QVERIFY(!shownUsers().contains(name));

    // A new user gets roles like any other.
    chooseMethod(method);
    clickUserCheck(name, text("Nurse"));
    save();
    QCOMPARE(storedRoles(name), QStringList{text("Nurse")});
}

void TestAccesscontrolViewUsers::anAbandonedNewUserLeavesNothing_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::newRow("an internal user") << Place::OfflineFile << InternalUsers;
    QTest::newRow("a Windows group") << Place::OfflineFile << WindowsGroups;
    QTest::newRow("a Windows user") << Place::OfflineFile << WindowsUsers;
}

void TestAccesscontrolViewUsers::anAbandonedNewUserLeavesNothing()
{
    QFETCH(const MethodIndex, method);
    QVERIFY(addUsers());
    showView();
    chooseMethod(method);
    const QStringList before = shownUsers();
    EditorSteps steps({pressKey(Qt::Key_Escape)});
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(shownUsers(), before);
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator")), QStringList{text("4")});
}

void TestAccesscontrolViewUsers::aTakenNameIsAskedForAgain_data()
{
    addOfflineFile();
}

// The name is that of a user of another type, whose row is hidden.
void TestAccesscontrolViewUsers::aTakenNameIsAskedForAgain()
{
    QVERIFY(addUsers());
    showView();
    QString offered = text("not seen");
    EditorSteps steps(newUser(text("CLINIC\\CARLA")) +
                      QList<EditorSteps::Step>{[&](QDialog &dialog) {
                                                   offered =
                                                       shown<QLineEdit>(dialog, "username_edit")->text();
                                                   QVERIFY(!isShown(dialog, "remove_button"));
                                                   typeInto("username_edit", text("carla"))(dialog);
                                               },
                                               press("save_button")});
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    QCOMPARE(offered, QString());
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert"), text("carla")}));
    QCOMPARE(storedValue(text("carla"), "operator_type"), text("1"));
}

void TestAccesscontrolViewUsers::aTakenNameThatIsGivenUpLeavesNoRow_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::aTakenNameThatIsGivenUpLeavesNoRow()
{
    QVERIFY(addUsers());
    showView();
    EditorSteps steps(newUser(text("anna")) + QList<EditorSteps::Step>{pressKey(Qt::Key_Escape)});
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator")), QStringList{text("4")});
}

void TestAccesscontrolViewUsers::aTakenWindowsNameHasNoSecondTry_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::newRow("of a group") << Place::OfflineFile << WindowsGroups;
    QTest::newRow("of a user") << Place::OfflineFile << WindowsUsers;
}

void TestAccesscontrolViewUsers::aTakenWindowsNameHasNoSecondTry()
{
    QFETCH(const MethodIndex, method);
    QVERIFY(addUsers());
    showView();
    chooseMethod(method);
    const QStringList before = shownUsers();
    EditorSteps steps(newAccount(text("clinic\\carla"), method == WindowsGroups));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    QCOMPARE(shownUsers(), before);
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator")), QStringList{text("4")});
}

void TestAccesscontrolViewUsers::namesInAnotherCaseAreOthers_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::namesInAnotherCaseAreOthers()
{
    QVERIFY(addUsers());
    showView();
    EditorSteps steps(newUser(text("Anna")));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(shownUsers(), (QStringList{text("Anna"), text("anna"), text("bert")}));
}

void TestAccesscontrolViewUsers::aNewUserThatIsRefusedLeavesNoRow_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::newRow("an internal user") << Place::Sqlite << InternalUsers;
    QTest::newRow("a Windows group") << Place::Sqlite << WindowsGroups;
    QTest::newRow("a Windows user") << Place::Sqlite << WindowsUsers;
}

void TestAccesscontrolViewUsers::aNewUserThatIsRefusedLeavesNoRow()
{
    QFETCH(const MethodIndex, method);
    QVERIFY(addUsers());
    QVERIFY(refuse(text("INSERT"), text("operator"), text("1")));
    showView();
    chooseMethod(method);
    const QStringList before = shownUsers();
    const QString typed = text("Clinic\\dora");
    EditorSteps steps(method == InternalUsers ? newUser(typed) : newAccount(typed, method == WindowsGroups));
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QCOMPARE(shownUsers(), before);
    QVERIFY(!m_handler->isConnected());
}

void TestAccesscontrolViewUsers::unreadableOrganisationsAreToldAndTheFlowGoesOn_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::newRow("for an internal user") << Place::OfflineFile << InternalUsers;
    QTest::newRow("for a Windows user") << Place::OfflineFile << WindowsUsers;
}

void TestAccesscontrolViewUsers::unreadableOrganisationsAreToldAndTheFlowGoesOn()
{
    QFETCH(const MethodIndex, method);
    QVERIFY(addUsers());
    showView();
    chooseMethod(method);
    QVERIFY(hideTable(text("organization")));
    EditorSteps steps({pressKey(Qt::Key_Escape)});
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxes.seen().size(), 1);
    const SeenBox &box = boxes.seen().first();
    QCOMPARE(box.title, text("Load failed"));
    QVERIFY2(box.text.startsWith(text("Could not load organisational information: ")), qPrintable(box.text));
    QVERIFY2(box.text.contains(text("organization")), qPrintable(box.text));
    QCOMPARE(box.icon, QMessageBox::Critical);
}

void TestAccesscontrolViewUsers::anEditedUserIsStoredAndShown_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::anEditedUserIsStoredAndShown()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    clickUserCheck(text("anna"), text("Nurse"));  // not saved
    EditorSteps steps({typeInto("username_edit", text("anna v.")),
                       typeInto("last_name_edit", text("Virtanen")),
                       [](QDialog &dialog) {
                           chooseEntry(shown<QComboBox>(dialog, "organization_combo"), 2);
                           chooseEntry(shown<QComboBox>(dialog, "department_combo"), 1);
                       },
                       press("save_button")});
    const MessageBoxes boxes;
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(shownUsers(), (QStringList{text("anna v."), text("bert")}));
    QCOMPARE(elsewhere(text("SELECT last_name, organization_id, department_id, operator_type FROM operator "
                            "WHERE username = 'anna v.'")),
             QStringList{QStringLiteral("Virtanen|%1|%2|1").arg(idOf(2).toString(), idOf(1).toString())});
    QCOMPARE(userCheck(text("anna v."), text("Admin"))->accessibleName(), text("anna v.: Admin"));
    // The roles are saved with Save alone.
    QCOMPARE(storedRoles(text("anna v.")), QStringList{text("Admin")});
    QVERIFY(canSave());
}

void TestAccesscontrolViewUsers::aCancelledEditChangesNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::aCancelledEditChangesNothing()
{
    QVERIFY(addUsers());
    showView();
    trail();
    EditorSteps steps({typeInto("username_edit", text("zoe")), pressKey(Qt::Key_Escape)});
    const MessageBoxes boxes({text("Ok")});
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{text("iDiscard|Discard changes?|Cancel,Ok")});
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QCOMPARE(user(text("anna"))->oper()->username(), text("anna"));
    QCOMPARE(trail(), QStringList());
}

void TestAccesscontrolViewUsers::anEditedNameThatIsTakenIsPutBack_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::anEditedNameThatIsTakenIsPutBack()
{
    QVERIFY(addUsers());
    showView();
    QString offered;
    EditorSteps steps({typeInto("username_edit", text("bert")), press("save_button"),
                       [&](QDialog &dialog) {
                           offered = shown<QLineEdit>(dialog, "username_edit")->text();
                           QVERIFY(isShown(dialog, "remove_button"));
                       },
                       typeInto("username_edit", text("berta")), press("save_button")});
    const MessageBoxes boxes;
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kUsernameTaken});
    QCOMPARE(offered, text("anna"));
    QCOMPARE(shownUsers(), (QStringList{text("bert"), text("berta")}));
    QCOMPARE(storedValue(text("berta"), "operator_id"), idOf(1).toString());
}

void TestAccesscontrolViewUsers::anEmptyNameIsPutBack_data()
{
    addOfflineFile();
}

// A new user whose name is taken starts with none, and Save is on because of the password.
void TestAccesscontrolViewUsers::anEmptyNameIsPutBack()
{
    QVERIFY(addUsers());
    showView();
    QString offered;
    EditorSteps steps(newUser(text("anna")) +
                      QList<EditorSteps::Step>{press("save_button"),
                                               [&](QDialog &dialog) {
                                                   offered =
                                                       shown<QLineEdit>(dialog, "username_edit")->text();
                                               },
                                               typeInto("username_edit", text("zoe")), press("save_button")});
    const MessageBoxes boxes;
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kNameTaken, text("!Username empty|Please enter username.|Ok")}));
    QCOMPARE(offered, text("anna"));
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert"), text("zoe")}));
}

void TestAccesscontrolViewUsers::aRefusedEditIsTold_data()
{
    addSqlite();
}

void TestAccesscontrolViewUsers::aRefusedEditIsTold()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("1")));
    showView();
    EditorSteps steps({typeInto("username_edit", text("zoe")), press("save_button")});
    const MessageBoxes boxes;
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QCOMPARE(shownUsers(), (QStringList{text("bert"), text("zoe")}));
    QCOMPARE(storedValue(text("anna"), "operator_id"), idOf(1).toString());
    QVERIFY(!m_handler->isConnected());
}

void TestAccesscontrolViewUsers::aDeletedUserGoes_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<MethodIndex>("method");
    QTest::addColumn<QString>("name");
    QTest::newRow("an internal user") << Place::OfflineFile << InternalUsers << text("anna");
    QTest::newRow("a Windows group") << Place::OfflineFile << WindowsGroups << text("CLINIC\\NURSES");
    QTest::newRow("a Windows user") << Place::OfflineFile << WindowsUsers << text("CLINIC\\CARLA");
}

void TestAccesscontrolViewUsers::aDeletedUserGoes()
{
    QFETCH(const MethodIndex, method);
    QFETCH(const QString, name);
    QVERIFY(addUsers());
    showView();
    chooseMethod(method);
    clickUserCheck(name, text("Nurse"));  // not saved, and lost with the row
    EditorSteps steps({press("remove_button")});
    const MessageBoxes boxes({text("Ok")});
    clickUser(name);
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kAreYouSure});
    QVERIFY(!shownUsers().contains(name));
    QVERIFY(!canSave());
    const QString left = elsewhere(text("SELECT username FROM operator WHERE deleted = 1")).value(0);
    QVERIFY2(left.startsWith(name + text("_deleted")), qPrintable(left));

    // The name is free again, and the hidden row stays hidden.
    EditorSteps again(method == InternalUsers ? newUser(name) : newAccount(name, method == WindowsGroups));
    click(addButton());
    QVERIFY(again.areDone());
    QVERIFY(shownUsers().contains(name));
    chooseMethod(method == InternalUsers ? WindowsUsers : InternalUsers);
    chooseMethod(method);
    QCOMPARE(shownUsers().count(name), 1);
}

void TestAccesscontrolViewUsers::aDeletionThatIsNotConfirmedSaves_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewUsers::aDeletionThatIsNotConfirmedSaves()
{
    QVERIFY(addUsers());
    showView();
    EditorSteps steps({typeInto("last_name_edit", text("Virtanen")), press("remove_button")});
    const MessageBoxes boxes({text("No")});
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList{kAreYouSure});
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QCOMPARE(storedValue(text("anna"), "last_name"), text("Virtanen"));
}

void TestAccesscontrolViewUsers::aRefusedDeletionLeavesTheRowAndItsName_data()
{
    addSqlite();
}

void TestAccesscontrolViewUsers::aRefusedDeletionLeavesTheRowAndItsName()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("NEW.deleted = 1")));
    showView();
    EditorSteps steps({press("remove_button")});
    const MessageBoxes boxes({text("Ok")});
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), (QStringList{kAreYouSure, kDeleteFailed}));
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QVERIFY(user(text("anna"))->deleted());
    QCOMPARE(storedValue(text("anna"), "deleted"), text("0"));
    // A role that is saved later does not bring the name of the deletion along.
    clickUserCheck(text("anna"), text("Nurse"));
    save();
    QCOMPARE(storedRoles(text("anna")), (QStringList{text("Nurse"), text("Admin")}));
}

QTEST_MAIN(TestAccesscontrolViewUsers)
#include "test_accesscontrolview_users.moc"
