#include "Corvane/accesscontrol/viewfixture.h"

/// Rows and names that nobody would enter.
class TestAccesscontrolViewStrange : public ViewFixture
{
    Q_OBJECT

private slots:
    void usersThatAreStrangeAreShownAndHarmNothing_data();
    void usersThatAreStrangeAreShownAndHarmNothing();
    void namesThatAreStrangeAreShownAndStoredAsTheyAre_data();
    void namesThatAreStrangeAreShownAndStoredAsTheyAre();
    void rowsWithNullsAndStrangeIdsHarmNothing_data();
    void rowsWithNullsAndStrangeIdsHarmNothing();
    void strangeNamesAreStoredAsTheyAre_data();
    void strangeNamesAreStoredAsTheyAre();
};

void TestAccesscontrolViewStrange::usersThatAreStrangeAreShownAndHarmNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewStrange::usersThatAreStrangeAreShownAndHarmNothing()
{
    QVERIFY(addUsers());
    // Nulls in every column but those that put the row into the table.
    elsewhere(text("INSERT INTO operator (operator_id, deleted, operator_type) VALUES ('no uuid', 0, 1)"));
    elsewhere(text("INSERT INTO operator (operator_id, deleted) VALUES ('without a type', 0)"));
    elsewhere(text("INSERT INTO operator (operator_id, username, deleted, operator_type) VALUES "
                   "('0123456789 0123456789 0123456789 0123', 'of type 9', 0, 9)"));
    elsewhere(text("INSERT INTO roles (title, actions, deleted) VALUES (NULL, NULL, 0)"));
    QVERIFY(addUser(text("a-b-c"), text("short id"), 1, {1, 77}));
    showView();
    QCOMPARE(shownUsers(), (QStringList{QString(), text("anna"), text("bert"), text("short id")}));
    QCOMPARE(roleHeadings(), (QStringList{text("Nurse"), text("Doctor"), text("Admin"), QString()}));
    QVERIFY(!canSave());
    trail();
    clickUser(QString());  // opens nothing
    QCOMPARE(trail(), QStringList());
    for (const MethodIndex method : {WindowsGroups, WindowsUsers, InternalUsers})
        chooseMethod(method);

    // An unknown role is no change, and goes with the next one that is saved.
    QCOMPARE(checkedRoles(text("short id")), QStringList{text("Nurse")});
    clickUserCheck(text("anna"), QString());
    QVERIFY(canSave());
    save();
    QVERIFY(!canSave());
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles WHERE operator_id = ? ORDER BY role_id"),
                       {idOf(1).toString()}),
             (QStringList{text("3"), text("4")}));
}

void TestAccesscontrolViewStrange::namesThatAreStrangeAreShownAndStoredAsTheyAre_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("name");
    for (const auto &name : difficultNames()) {
        if (!name.second.contains(QLatin1Char('\n')))
            QTest::newRow(name.first) << Place::OfflineFile << name.second;
    }
    QTest::newRow("an ampersand") << Place::OfflineFile << text("R&D &x");
    QTest::newRow("markup") << Place::OfflineFile << text("<b>x</b>");
    QTest::newRow("10,000 characters") << Place::OfflineFile << QString(10000, QLatin1Char('x'));
}

void TestAccesscontrolViewStrange::namesThatAreStrangeAreShownAndStoredAsTheyAre()
{
    QFETCH(const QString, name);
    QVERIFY(addUsers());
    showView();
    EditorSteps steps({[&](QDialog &dialog) {
                           auto *username = shown<QLineEdit>(dialog, "username_edit");
                           username->selectAll();
                           username->insert(name);
                       },
                       press("save_button")});
    const MessageBoxes boxes;
    clickUser(text("anna"));
    QVERIFY(steps.areDone());
    QCOMPARE(boxTexts(boxes), QStringList());
    QVERIFY(shownUsers().contains(name));
    QCOMPARE(storedValue(name, "operator_id"), idOf(1).toString());
    QVERIFY(table("user_table")->columnWidth(0) < 400);
    m_view->resetTables();
    QVERIFY(shownUsers().contains(name));
    clickUserCheck(name, text("Nurse"));
    save();
    QCOMPARE(storedRoles(name), (QStringList{text("Nurse"), text("Admin")}));
}

void TestAccesscontrolViewStrange::rowsWithNullsAndStrangeIdsHarmNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewStrange::rowsWithNullsAndStrangeIdsHarmNothing()
{
    QVERIFY(addPlacesOfWork());
    elsewhere(text("INSERT INTO department (id, deleted) VALUES ('short', 0)"));
    elsewhere(text("INSERT INTO department (id, deleted) VALUES (?, 0)"), {idOf(9).toString()});
    elsewhere(text("INSERT INTO organization (id, deleted) VALUES (?, 0)"), {QString(36, QLatin1Char('z'))});
    showView();
    chooseView(Departments);
    QCOMPARE(shownRows(), (QStringList{text("Surgery|Building 1"), text("Oncology|Building 2"), text("|")}));
    QVERIFY(!canSave());
    QVERIFY(!deleteButton(3)->isEnabled());
    chooseView(Organisations);
    type(3, 0, text("Named at last"));
    save();
    QCOMPARE(elsewhere(text("SELECT name FROM organization WHERE id LIKE 'z%'")),
             QStringList{text("Named at last")});
}

void TestAccesscontrolViewStrange::strangeNamesAreStoredAsTheyAre_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("name");
    for (const auto &name : difficultNames()) {
        if (!name.second.contains(QLatin1Char('\n')))
            QTest::newRow(name.first) << Place::OfflineFile << name.second;
    }
}

void TestAccesscontrolViewStrange::strangeNamesAreStoredAsTheyAre()
{
    QFETCH(const QString, name);
    showView();
    chooseView(Organisations);
    click(addButton());
    edit(1, 0)->insert(name);
    QTest::keyClick(edit(1, 0), Qt::Key_Return);
    save();
    QCOMPARE(storedNames("organization"), QStringList{name});
    m_view->resetTables();
    QCOMPARE(shownRows(), QStringList{name});
}

QTEST_MAIN(TestAccesscontrolViewStrange)
#include "test_accesscontrolview_strange.moc"
