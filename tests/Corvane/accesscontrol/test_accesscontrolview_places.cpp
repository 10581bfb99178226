#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kSaveFailed = QStringLiteral("!Save failed|Could not save.|Ok");
const QString kNameTaken = QStringLiteral("!Name taken|Please enter unique name.|Ok");
const QString kUsernameTaken = QStringLiteral("!Username taken|Please enter unique username.|Ok");

QList<EditorSteps::Step> newUser(const QString &name)
{
    return {typeInto("username_edit", name), typeInto("password_edit", text("secret")),
            typeInto("confirm_edit", text("secret")), press("save_button")};
}

QList<EditorSteps::Step> rename(const QString &name)
{
    return {typeInto("username_edit", name), press("save_button")};
}

}  // namespace

/// The management view on each place that the access tables may be in.
class TestAccesscontrolViewPlaces : public ViewFixture
{
    Q_OBJECT

private slots:
    void everythingIsAddedChangedAndDeleted_data();
    void everythingIsAddedChangedAndDeleted();
    void aNameThatIsTakenIsRefusedAndThatOfADeletedUserIsFree_data();
    void aNameThatIsTakenIsRefusedAndThatOfADeletedUserIsFree();
    void theNameOfADeletedOrganisationIsFreeAndALongOneIsCut_data();
    void theNameOfADeletedOrganisationIsFreeAndALongOneIsCut();
    void aRoleInUseStays_data();
    void aRoleInUseStays();
    void theSecondOfTwoAdministratorsHasTheLastWord_data();
    void theSecondOfTwoAdministratorsHasTheLastWord();
    void aUserWhomSomeoneElseDeletedIsNotSaved_data();
    void aUserWhomSomeoneElseDeletedIsNotSaved();
    void aTableThatIsDroppedLeavesTheViewAsItWas_data();
    void aTableThatIsDroppedLeavesTheViewAsItWas();
    void aRefreshRecordsWhatTheStoresRecord_data();
    void aRefreshRecordsWhatTheStoresRecord();
    void aConnectionThatEndsIsOpenedByTheNextSave_data();
    void aConnectionThatEndsIsOpenedByTheNextSave();
    void oneBoxARowAndTheOthersAreSaved_data();
    void oneBoxARowAndTheOthersAreSaved();
    void rightsThatAreRefusedStayUnsaved_data();
    void rightsThatAreRefusedStayUnsaved();
    void rolesThatAreRefusedAfterTheirOperatorStayUnsaved_data();
    void rolesThatAreRefusedAfterTheirOperatorStayUnsaved();
};

void TestAccesscontrolViewPlaces::everythingIsAddedChangedAndDeleted_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::everythingIsAddedChangedAndDeleted()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    const QString name = text("Zoë O'Brien");
    {
        EditorSteps steps(
            {typeInto("username_edit", name), typeInto("password_edit", text("secret")),
             typeInto("confirm_edit", text("secret")),
             [](QDialog &dialog) { chooseEntry(shown<QComboBox>(dialog, "organization_combo"), 2); },
             press("save_button")});
        click(addButton());
        QVERIFY(steps.areDone());
    }
    clickUserCheck(name, text("Nurse"));
    clickUserCheck(text("anna"), text("Admin"));
    save();
    QCOMPARE(storedRoles(name), QStringList{text("Nurse")});
    QCOMPARE(storedRoles(text("anna")), QStringList());
    QCOMPARE(storedValue(name, "organization_id"), idOf(2).toString());

    chooseView(Roles);
    {
        EditorSteps steps({typeInto("role_name_edit", text("Kätilö")), press("save_button")});
        click(addButton());
        QVERIFY(steps.areDone());
    }
    clickRightCheck(text("Kätilö"), text("Modify person"));
    save();
    QCOMPARE(elsewhere(text("SELECT actions FROM roles WHERE title = ?"), {text("Kätilö")}),
             QStringList{QString::number(0x5000)});
    {
        const MessageBoxes boxes({text("Ok")});
        EditorSteps steps({press("delete_button")});
        clickRole(text("Admin"));
        QVERIFY(steps.areDone());
    }
    QCOMPARE(shownRoles(), (QStringList{text("Nurse"), text("Doctor"), text("Kätilö")}));

    chooseView(Organisations);
    click(addButton());
    type(3, 0, text("South Clinic"));
    type(1, 0, text("Eastern Clinic"));
    save();
    {
        const MessageBoxes boxes({text("Ok")});
        clickDelete(2);
    }
    QCOMPARE(shownRows(), (QStringList{text("Eastern Clinic"), text("South Clinic")}));
    chooseView(Departments);
    type(2, 2, text("Building 9"));
    save();

    chooseView(Users);
    {
        const MessageBoxes boxes({text("Ok")});
        EditorSteps steps({press("remove_button")});
        clickUser(text("bert"));
        QVERIFY(steps.areDone());
    }
    // A refresh shows what is stored.
    const QStringList users = shownUsers();
    QCOMPARE(users, (QStringList{name, text("anna")}));
    m_view->resetTables();
    QCOMPARE(shownUsers(), users);
    QCOMPARE(checkedRoles(name), QStringList{text("Nurse")});
    QCOMPARE(roleHeadings(), (QStringList{text("Nurse"), text("Doctor"), text("Kätilö")}));
    chooseView(Organisations);
    QStringList organizations = shownRows();
    organizations.sort();
    QCOMPARE(organizations, (QStringList{text("Eastern Clinic"), text("South Clinic")}));
    chooseView(Departments);
    QVERIFY(shownRows().contains(text("Oncology|Building 9")));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::aNameThatIsTakenIsRefusedAndThatOfADeletedUserIsFree_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::aNameThatIsTakenIsRefusedAndThatOfADeletedUserIsFree()
{
    QVERIFY(addUsers());
    showView();
    {
        const MessageBoxes boxes;
        EditorSteps steps(newUser(text("anna")) + rename(text("zoë")));
        click(addButton());
        QVERIFY(steps.areDone());
        QCOMPARE(boxTexts(boxes), QStringList{kNameTaken});
    }
    {
        const MessageBoxes boxes;
        EditorSteps steps(rename(text("anna")) + rename(text("berta")));
        clickUser(text("bert"));
        QVERIFY(steps.areDone());
        QCOMPARE(boxTexts(boxes), QStringList{kUsernameTaken});
    }
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("berta"), text("zoë")}));
    QCOMPARE(storedValue(text("berta"), "operator_id"), idOf(2).toString());
    {
        const MessageBoxes boxes({text("Ok")});
        EditorSteps steps({press("remove_button")});
        clickUser(text("anna"));
        QVERIFY(steps.areDone());
    }
    const MessageBoxes boxes;
    EditorSteps steps(newUser(text("anna")));
    click(addButton());
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(storedValue(text("anna"), "deleted"), text("0"));
    QVERIFY(storedValue(text("anna"), "operator_id") != idOf(1).toString());
    QCOMPARE(elsewhere(text("SELECT deleted FROM operator WHERE operator_id = ?"), {idOf(1).toString()}),
             QStringList{text("1")});
    m_view->resetTables();
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("berta"), text("zoë")}));
    QCOMPARE(checkedRoles(text("anna")), QStringList());
}

void TestAccesscontrolViewPlaces::theNameOfADeletedOrganisationIsFreeAndALongOneIsCut_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::theNameOfADeletedOrganisationIsFreeAndALongOneIsCut()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    {
        const MessageBoxes boxes({text("Ok")});
        clickDelete(1);
    }
    click(addButton());
    type(2, 0, text("East Clinic"));
    const QString longName(51, QLatin1Char('n'));
    type(1, 0, longName);
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxes.seen().size(), 0);
    QVERIFY(!canSave());
    QCOMPARE(shownRows(), (QStringList{longName, text("East Clinic")}));
    m_view->resetTables();
    QStringList names = shownRows();
    names.sort();
    QCOMPARE(names, (QStringList{text("East Clinic"), longName.left(50)}));
    // A name that is taken is refused by the table, and stays a change.
    QVERIFY(!canSave());
    type(1, 0, text("East Clinic"));
    type(2, 0, text("East Clinic"));
    save();
    QCOMPARE(boxTexts(boxes), QStringList{text("!Save failed|Could not save East Clinic|Ok")});
    QVERIFY(canSave());
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM organization WHERE name = 'East Clinic'")),
             QStringList{text("1")});
}

void TestAccesscontrolViewPlaces::aRoleInUseStays_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::aRoleInUseStays()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("anna"), text("Admin"));
    save();
    chooseView(Roles);
    QMap<QString, bool> deletable;
    for (const QString &role : shownRoles()) {
        EditorSteps steps({[&](QDialog &dialog) {
                               deletable[role] = shown<QPushButton>(dialog, "delete_button")->isEnabled();
                           },
                           press("cancel_button")});
        clickRole(role);
        QVERIFY(steps.areDone());
    }
    QCOMPARE(deletable,
             (QMap<QString, bool>{{text("Nurse"), false}, {text("Doctor"), false}, {text("Admin"), true}}));
}

void TestAccesscontrolViewPlaces::theSecondOfTwoAdministratorsHasTheLastWord_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::theSecondOfTwoAdministratorsHasTheLastWord()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    elsewhere(text("UPDATE operator SET last_name = 'Another' WHERE username = 'bert'"));
    elsewhere(text("INSERT INTO operator_roles (operator_id, role_id) VALUES (?, ?)"),
              {idOf(2).toString(), roleId(text("Doctor"))});
    elsewhere(text("UPDATE organization SET name = 'West End' WHERE name = 'West Clinic'"));
    elsewhere(text("UPDATE organization SET deleted = 1, name = '_deleted7' WHERE name = 'East Clinic'"));
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));

    clickUserCheck(text("bert"), text("Admin"));
    save();
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Admin")}));
    QCOMPARE(storedValue(text("bert"), "last_name"), text("Last"));
    // Only rows that were changed here are written; a deleted one is live again.
    chooseView(Organisations);
    type(1, 0, text("Eastern Clinic"));
    save();
    QCOMPARE(storedNames("organization"), (QStringList{text("Eastern Clinic"), text("West End")}));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::aUserWhomSomeoneElseDeletedIsNotSaved_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::aUserWhomSomeoneElseDeletedIsNotSaved()
{
    QVERIFY(addUsers());
    showView();
    elsewhere(text("UPDATE operator SET deleted = 1, username = 'anna_deleted5' WHERE username = 'anna'"));
    clickUserCheck(text("anna"), text("Nurse"));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QVERIFY(canSave());
    QCOMPARE(storedRoles(text("anna_deleted5")), QStringList{text("Admin")});
    QVERIFY(connectHandler());
    QCOMPARE(shownUsers(), QStringList{text("bert")});
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::aTableThatIsDroppedLeavesTheViewAsItWas_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::aTableThatIsDroppedLeavesTheViewAsItWas()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    QVERIFY(hideTable(text("operator")));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QVERIFY(!m_handler->isConnected());
    QVERIFY(canSave());
    QCOMPARE(shownUsers(), (QStringList{text("anna"), text("bert")}));
    QCOMPARE(checkedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QVERIFY(showTables());
    if (isOffline())
        return;  // the next operation goes to the online database
    save();
    QVERIFY(!canSave());
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
}

void TestAccesscontrolViewPlaces::aRefreshRecordsWhatTheStoresRecord_data()
{
    addPlaces();
}

void TestAccesscontrolViewPlaces::aRefreshRecordsWhatTheStoresRecord()
{
    QVERIFY(addUsers());
    trail();
    m_handler->getRoles();
    m_handler->getOperators();
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    m_handler->getOrganizationInfo(organizations, departments);
    const QStringList expected = trail();
    QVERIFY(!expected.isEmpty());
    showView();
    QCOMPARE(trail(), expected);
    m_view->resetTables();
    QCOMPARE(trail(), expected);
}

void TestAccesscontrolViewPlaces::aConnectionThatEndsIsOpenedByTheNextSave_data()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("MariaDB") << Place::MariaDb;
    QTest::newRow("PostgreSQL") << Place::PostgreSql;
}

void TestAccesscontrolViewPlaces::aConnectionThatEndsIsOpenedByTheNextSave()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    QVERIFY(endConnection());
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QVERIFY(canSave());
    save();
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY(!canSave());
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
}

void TestAccesscontrolViewPlaces::oneBoxARowAndTheOthersAreSaved_data()
{
    addPlaces();
}

// A refusal ends the work on the encrypted file: the rows after it go to the online database, of which
// nobody has given parameters.

void TestAccesscontrolViewPlaces::oneBoxARowAndTheOthersAreSaved()
{
    for (int number = 1; number <= 8; ++number)
        QVERIFY(addUser(idOf(number), QStringLiteral("user %1").arg(number), 1, {roleId(text("Nurse"))}));
    QVERIFY(refuse(text("UPDATE"), text("operator"), text("NEW.username IN ('user 2', 'user 5')")));
    showView();
    for (int number = 1; number <= 8; ++number)
        clickUserCheck(QStringLiteral("user %1").arg(number), text("Doctor"));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes).count(kSaveFailed), isOffline() ? 7 : 2);
    QCOMPARE(boxes.seen().size(), isOffline() ? 7 : 2);
    for (int number = 1; number <= 8; ++number) {
        const QString user = QStringLiteral("user %1").arg(number);
        const bool refused = isOffline() ? number > 1 : number == 2 || number == 5;
        QCOMPARE(storedRoles(user).contains(text("Doctor")), !refused);
        QCOMPARE(this->user(user)->oper()->operatorRoleIDList().size(), refused ? 1 : 2);
    }
    QVERIFY(canSave());
    if (isOffline())
        return;
    clickUserCheck(text("user 2"), text("Doctor"));
    QVERIFY(canSave());
    clickUserCheck(text("user 5"), text("Doctor"));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::rightsThatAreRefusedStayUnsaved_data()
{
    addOnlinePlaces();
}

void TestAccesscontrolViewPlaces::rightsThatAreRefusedStayUnsaved()
{
    QVERIFY(refuse(text("UPDATE"), text("roles"), text("NEW.title = 'Nurse'")));
    showView();
    chooseView(Roles);
    clickRightCheck(text("Nurse"), text("Audit trail management"));
    clickRightCheck(text("Doctor"), text("Audit trail management"));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QVERIFY(canSave());
    QCOMPARE(elsewhere(text("SELECT actions FROM roles ORDER BY role_id")).mid(0, 2),
             (QStringList{QString::number(3633152), QString::number(331776 | 4)}));
    clickRightCheck(text("Nurse"), text("Audit trail management"));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::rolesThatAreRefusedAfterTheirOperatorStayUnsaved_data()
{
    addOnlinePlaces();
}

void TestAccesscontrolViewPlaces::rolesThatAreRefusedAfterTheirOperatorStayUnsaved()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("INSERT"), text("operator_roles"), text("1 = 1")));
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes;
    save();
    QCOMPARE(boxTexts(boxes), QStringList{kSaveFailed});
    QVERIFY(canSave());
    QCOMPARE(storedRoles(text("bert")), QStringList{text("Nurse")});
}

QTEST_MAIN(TestAccesscontrolViewPlaces)
#include "test_accesscontrolview_places.moc"
