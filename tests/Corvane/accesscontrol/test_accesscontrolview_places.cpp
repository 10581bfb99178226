#include "Corvane/accesscontrol/viewfixture.h"

namespace {

const QString kSaveFailed = QStringLiteral("!Save failed|Could not save.|Ok");

}  // namespace

/// The management view on each place that the access tables may be in.
class TestAccesscontrolViewPlaces : public ViewFixture
{
    Q_OBJECT

private slots:
    void everythingIsAddedChangedAndDeleted_data();
    void everythingIsAddedChangedAndDeleted();
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
    addSqlite();
}

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
    QCOMPARE(boxTexts(boxes), (QStringList{kSaveFailed, kSaveFailed}));
    for (int number = 1; number <= 8; ++number) {
        const QString user = QStringLiteral("user %1").arg(number);
        const bool refused = number == 2 || number == 5;
        QCOMPARE(storedRoles(user).contains(text("Doctor")), !refused);
        QCOMPARE(this->user(user)->oper()->operatorRoleIDList().size(), refused ? 1 : 2);
    }
    QVERIFY(canSave());
    clickUserCheck(text("user 2"), text("Doctor"));
    QVERIFY(canSave());
    clickUserCheck(text("user 5"), text("Doctor"));
    QVERIFY(!canSave());
}

void TestAccesscontrolViewPlaces::rightsThatAreRefusedStayUnsaved_data()
{
    addSqlite();
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
    addSqlite();
}

void TestAccesscontrolViewPlaces::rolesThatAreRefusedAfterTheirOperatorStayUnsaved()
{
    QVERIFY(addUsers());
    QVERIFY(refuse(text("INSERT"), text("operator_roles"), text("1")));
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
