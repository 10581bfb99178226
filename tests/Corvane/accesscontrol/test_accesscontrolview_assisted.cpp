#include "Corvane/accesscontrol/viewfixture.h"

#include <QAccessible>
#include <QScrollBar>

namespace {

/// Does what a screen reader or a switch does with a widget that can be checked.
void toggle(QWidget *widget)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(accessible && accessible->actionInterface());
    QVERIFY(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

}  // namespace

/// The tables in the hands of persons who use neither the mouse nor, some of them, the keys.
class TestAccesscontrolViewAssisted : public ViewFixture
{
    Q_OBJECT

private slots:
    void aRoleThatIsToggledForAUserCanBeSaved_data();
    void aRoleThatIsToggledForAUserCanBeSaved();
    void aRightThatIsToggledBringsItsDependentRights_data();
    void aRightThatIsToggledBringsItsDependentRights();
    void afterASaveTheKeyboardIsBackInTheTable_data();
    void afterASaveTheKeyboardIsBackInTheTable();
    void aSaveLeavesTheTableWhereItWasScrolledTo_data();
    void aSaveLeavesTheTableWhereItWasScrolledTo();
    void afterARefusedSaveTheKeyboardStaysOnSave_data();
    void afterARefusedSaveTheKeyboardStaysOnSave();
    void afterADeletionTheKeyboardGoesOnFromTheNextUser_data();
    void afterADeletionTheKeyboardGoesOnFromTheNextUser();
    void afterADeletionTheKeyboardGoesOnFromTheNextRole_data();
    void afterADeletionTheKeyboardGoesOnFromTheNextRole();
    void afterTheLastDeletionTheKeyboardIsAtTheAddButton_data();
    void afterTheLastDeletionTheKeyboardIsAtTheAddButton();
};

void TestAccesscontrolViewAssisted::aRoleThatIsToggledForAUserCanBeSaved_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewAssisted::aRoleThatIsToggledForAUserCanBeSaved()
{
    QVERIFY(addUsers());
    showView();
    toggle(userCheck(text("bert"), text("Doctor")));
    QVERIFY(canSave());
    save();
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
}

void TestAccesscontrolViewAssisted::aRightThatIsToggledBringsItsDependentRights_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewAssisted::aRightThatIsToggledBringsItsDependentRights()
{
    showView();
    chooseView(Roles);
    const QString doctor = text("Doctor");
    toggle(rightCheck(doctor, text("Delete person")));
    for (const char *right : {"Delete person", "Create person", "Delete study"})
        QVERIFY2(rightCheck(doctor, text(right))->isChecked(), right);
    QVERIFY(canSave());
    toggle(rightCheck(doctor, text("Read study")));
    for (const char *right : {"Delete person", "Read study", "Create study", "Delete study"})
        QVERIFY2(!rightCheck(doctor, text(right))->isChecked(), right);
    QVERIFY(rightCheck(doctor, text("Create person"))->isChecked());
}

void TestAccesscontrolViewAssisted::afterASaveTheKeyboardIsBackInTheTable_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewAssisted::afterASaveTheKeyboardIsBackInTheTable()
{
    const auto pressKey = [this](Qt::Key key) {
        QTest::keyClick(m_stack->focusWidget(), key);
    };
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    table("user_table")->focusCell(userRow(text("bert")), roleColumn(text("Doctor")));
    pressKey(Qt::Key_Space);
    saveButton()->setFocus();
    pressKey(Qt::Key_Return);
    QCOMPARE(m_stack->focusWidget(), userCheck(text("bert"), text("Doctor")));

    chooseView(Organisations);
    type(2, 0, text("South Clinic"));
    saveButton()->setFocus();
    pressKey(Qt::Key_Space);
    QVERIFY(!canSave());
    QVERIFY(table("info_table")->isAncestorOf(m_stack->focusWidget()));
}

void TestAccesscontrolViewAssisted::aSaveLeavesTheTableWhereItWasScrolledTo_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewAssisted::aSaveLeavesTheTableWhereItWasScrolledTo()
{
    for (int number = 1; number <= 60; ++number)
        QVERIFY(addUser(idOf(number), text("user %1").arg(number), OperatorModelData::InternalUser));
    showView();
    clickUserCheck(text("user 1"), text("Doctor"));
    QScrollBar *bar = table("user_table")->verticalScrollBar();
    bar->setValue(bar->maximum());
    const int scrolled = bar->value();
    QVERIFY(scrolled > 0);
    save();
    QVERIFY(!canSave());
    QCOMPARE(bar->value(), scrolled);
}

void TestAccesscontrolViewAssisted::afterARefusedSaveTheKeyboardStaysOnSave_data()
{
    addSqlite();
}

void TestAccesscontrolViewAssisted::afterARefusedSaveTheKeyboardStaysOnSave()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    type(1, 0, text("South Clinic"));
    QVERIFY(refuse(text("UPDATE"), text("organization"), text("1 = 1")));
    const MessageBoxes boxes;
    saveButton()->setFocus();
    QTest::keyClick(m_stack->focusWidget(), Qt::Key_Return);
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY(canSave());
    QCOMPARE(m_stack->focusWidget(), saveButton());
}

void TestAccesscontrolViewAssisted::afterADeletionTheKeyboardGoesOnFromTheNextUser_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QString>("next");
    QTest::newRow("below the deleted one") << Place::OfflineFile << text("anna") << text("bert");
    QTest::newRow("above the last one") << Place::OfflineFile << text("bert") << text("anna");
}

void TestAccesscontrolViewAssisted::afterADeletionTheKeyboardGoesOnFromTheNextUser()
{
    QFETCH(const QString, deleted);
    QFETCH(const QString, next);
    QVERIFY(addUsers());
    showView();
    table("user_table")->focusCell(userRow(deleted), 0);
    EditorSteps steps({press("remove_button")});
    const MessageBoxes boxes({text("Ok")});
    QTest::keyClick(m_stack->focusWidget(), Qt::Key_Return);
    QVERIFY(steps.areDone());
    QCOMPARE(shownUsers(), QStringList{next});
    QCOMPARE(m_stack->focusWidget(), user(next));
}

void TestAccesscontrolViewAssisted::afterADeletionTheKeyboardGoesOnFromTheNextRole_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QString>("next");
    QTest::newRow("behind the deleted one") << Place::OfflineFile << text("Doctor") << text("Admin");
    QTest::newRow("before the last one") << Place::OfflineFile << text("Admin") << text("Doctor");
}

void TestAccesscontrolViewAssisted::afterADeletionTheKeyboardGoesOnFromTheNextRole()
{
    QFETCH(const QString, deleted);
    QFETCH(const QString, next);
    showView();
    chooseView(Roles);
    table("role_table")->focusCell(0, roleColumn(deleted));
    EditorSteps steps({press("delete_button")});
    const MessageBoxes boxes({text("Ok")});
    QTest::keyClick(m_stack->focusWidget(), Qt::Key_Return);
    QVERIFY(steps.areDone());
    QVERIFY(!shownRoles().contains(deleted));
    QCOMPARE(m_stack->focusWidget(), role(next));
}

void TestAccesscontrolViewAssisted::afterTheLastDeletionTheKeyboardIsAtTheAddButton_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<ViewIndex>("view");
    QTest::addColumn<int>("more");
    QTest::newRow("organisations alone") << Place::OfflineFile << Organisations << 0;
    QTest::newRow("organisations before departments") << Place::OfflineFile << Organisations << 1;
    QTest::newRow("departments alone") << Place::OfflineFile << Departments << 0;
}

void TestAccesscontrolViewAssisted::afterTheLastDeletionTheKeyboardIsAtTheAddButton()
{
    QFETCH(const ViewIndex, view);
    QFETCH(const int, more);
    const bool organizations = view == Organisations;
    QVERIFY(!organizations || addOrganization(1, text("East Clinic")));
    QVERIFY((organizations && more == 0) || addDepartment(1, text("Surgery"), text("Building 1")));
    showView();
    chooseView(view);
    table("info_table")->focusCell(1, 3);
    QCOMPARE(m_stack->focusWidget(), deleteButton(1));
    const MessageBoxes boxes({text("Ok")});
    QTest::keyClick(m_stack->focusWidget(), Qt::Key_Return);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(shownRows(), QStringList());
    QCOMPARE(m_stack->focusWidget(), addButton());
}

QTEST_MAIN(TestAccesscontrolViewAssisted)
#include "test_accesscontrolview_assisted.moc"
