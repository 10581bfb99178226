#include "Corvane/accesscontrol/viewfixture.h"

#include <QHideEvent>

namespace {

const QString kQuestion = QStringLiteral("|There are unsaved changes.\nSave now?|Cancel,Not now,Yes");
const QString kLeavingQuestion =
    QStringLiteral("Access Control Management|There are unsaved changes.\nSave now?|No,Yes");

}  // namespace

/// What becomes of unsaved changes when another table, another type of users or another view is chosen.
class TestAccesscontrolViewLeaving : public ViewFixture
{
    Q_OBJECT

private slots:
    void anotherViewAsksForUnsavedChanges_data();
    void anotherViewAsksForUnsavedChanges();
    void anotherMethodAsksForUnsavedChanges_data();
    void anotherMethodAsksForUnsavedChanges();
    void notNowLeavesTheChangesForComingBack_data();
    void notNowLeavesTheChangesForComingBack();
    void theQuestionIsAnsweredByTheKeyboard_data();
    void theQuestionIsAnsweredByTheKeyboard();
    void withoutChangesNothingIsAsked_data();
    void withoutChangesNothingIsAsked();
    void hidingTheViewWithChangesInTwoMethodsAsksOnceAndSavesBoth_data();
    void hidingTheViewWithChangesInTwoMethodsAsksOnceAndSavesBoth();
    void hidingTheViewSavesChangesOfEveryKind_data();
    void hidingTheViewSavesChangesOfEveryKind();
    void hidingTheViewWithoutSavingLeavesTheChanges_data();
    void hidingTheViewWithoutSavingLeavesTheChanges();
    void aTextThatIsStillBeingTypedIsAskedFor_data();
    void aTextThatIsStillBeingTypedIsAskedFor();
    void aTextThatIsStillBeingTypedIsSavedByTheFirstClick_data();
    void aTextThatIsStillBeingTypedIsSavedByTheFirstClick();
    void aClickBesideTheFieldsLeavesTheText_data();
    void aClickBesideTheFieldsLeavesTheText();
    void aMinimisedWindowAsksNothing_data();
    void aMinimisedWindowAsksNothing();
    void closingTheWindowAsks_data();
    void closingTheWindowAsks();
    void theNextGoodConnectionDropsUnsavedChanges_data();
    void theNextGoodConnectionDropsUnsavedChanges();

private:
    /// A click as the window system gives it to the window, whatever is at that place.
    void clickInWindow(const QPoint &place, const QWidget *widget);
};

void TestAccesscontrolViewLeaving::clickInWindow(const QPoint &place, const QWidget *widget)
{
    QTest::mouseClick(m_stack->windowHandle(), Qt::LeftButton, {}, widget->mapTo(m_stack.get(), place));
}

void TestAccesscontrolViewLeaving::anotherViewAsksForUnsavedChanges_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("view");
    QTest::addColumn<bool>("stored");
    QTest::newRow("Yes saves and goes on") << Place::OfflineFile << text("Yes") << int(Roles) << true;
    QTest::newRow("Not now goes on") << Place::OfflineFile << text("Not now") << int(Roles) << false;
    QTest::newRow("Cancel stays") << Place::OfflineFile << text("Cancel") << int(Users) << false;
    QTest::newRow("Yes is the default") << Place::OfflineFile << QString() << int(Roles) << true;
}

void TestAccesscontrolViewLeaving::anotherViewAsksForUnsavedChanges()
{
    QFETCH(const QString, answer);
    QFETCH(const int, view);
    QFETCH(const bool, stored);
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    QVERIFY(canSave());
    const MessageBoxes boxes({answer});
    chooseView(Roles);
    QCOMPARE(boxTexts(boxes), QStringList{kQuestion});
    QCOMPARE(part<QComboBox>("view_combo")->currentIndex(), view);
    QCOMPARE(table("role_table")->isVisible(), view == Roles);
    QCOMPARE(table("user_table")->isVisible(), view == Users);
    QCOMPARE(canSave(), view == Users);
    QCOMPARE(storedRoles(text("bert")).contains(text("Doctor")), stored);
    QVERIFY(userCheck(text("bert"), text("Doctor"))->isChecked());
}

void TestAccesscontrolViewLeaving::anotherMethodAsksForUnsavedChanges_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("method");
    QTest::addColumn<bool>("stored");
    QTest::newRow("Yes saves and goes on") << Place::OfflineFile << text("Yes") << int(WindowsUsers) << true;
    QTest::newRow("Not now goes on") << Place::OfflineFile << text("Not now") << int(WindowsUsers) << false;
    QTest::newRow("Cancel stays") << Place::OfflineFile << text("Cancel") << int(InternalUsers) << false;
}

void TestAccesscontrolViewLeaving::anotherMethodAsksForUnsavedChanges()
{
    QFETCH(const QString, answer);
    QFETCH(const int, method);
    QFETCH(const bool, stored);
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({answer});
    chooseMethod(WindowsUsers);
    QCOMPARE(boxTexts(boxes), QStringList{kQuestion});
    QCOMPARE(part<QComboBox>("method_combo")->currentIndex(), method);
    const QStringList internal{text("anna"), text("bert")};
    QCOMPARE(shownUsers(), method == InternalUsers ? internal : QStringList{text("CLINIC\\CARLA")});
    QCOMPARE(addButton()->text(),
             method == InternalUsers ? text("Add new internal user") : text("Add new Windows user"));
    QCOMPARE(canSave(), method == InternalUsers);
    QCOMPARE(storedRoles(text("bert")).contains(text("Doctor")), stored);
}

void TestAccesscontrolViewLeaving::notNowLeavesTheChangesForComingBack_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::notNowLeavesTheChangesForComingBack()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("Not now"), text("Not now"), text("Not now")});
    chooseMethod(WindowsGroups);
    QVERIFY(!canSave());
    chooseView(Roles);
    clickRightCheck(text("Doctor"), text("Audit trail management"));
    chooseView(Users);
    chooseMethod(InternalUsers);
    QVERIFY(canSave());
    QCOMPARE(checkedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    chooseView(Roles);
    QVERIFY(canSave());
    QVERIFY(rightCheck(text("Doctor"), text("Audit trail management"))->isChecked());
    QCOMPARE(boxes.seen().size(), 3);
    QCOMPARE(storedRoles(text("bert")), QStringList{text("Nurse")});
}

void TestAccesscontrolViewLeaving::theQuestionIsAnsweredByTheKeyboard_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("view");
    QTest::addColumn<bool>("stored");
    QTest::newRow("Enter saves") << Place::OfflineFile << int(Qt::Key_Return) << int(Roles) << true;
    QTest::newRow("Escape stays") << Place::OfflineFile << int(Qt::Key_Escape) << int(Users) << false;
}

void TestAccesscontrolViewLeaving::theQuestionIsAnsweredByTheKeyboard()
{
    QFETCH(const int, key);
    QFETCH(const bool, stored);
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    QTimer::singleShot(50, m_stack.get(), [key] {
        QTest::keyClick(QApplication::activeModalWidget(), static_cast<Qt::Key>(key));
    });
    chooseView(Roles);
    QTEST(part<QComboBox>("view_combo")->currentIndex(), "view");
    QCOMPARE(storedRoles(text("bert")).contains(text("Doctor")), stored);
}

void TestAccesscontrolViewLeaving::withoutChangesNothingIsAsked_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::withoutChangesNothingIsAsked()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    clickUserCheck(text("bert"), text("Doctor"));
    QVERIFY(!canSave());
    trail();
    const MessageBoxes boxes;
    for (const MethodIndex method : {WindowsGroups, WindowsUsers, InternalUsers})
        chooseMethod(method);
    for (const ViewIndex view : {Roles, Organisations, Departments, Users})
        chooseView(view);
    leaveView();
    comeBack();
    QCOMPARE(boxTexts(boxes), QStringList());
    QCOMPARE(trail(), QStringList());
}

void TestAccesscontrolViewLeaving::hidingTheViewWithChangesInTwoMethodsAsksOnceAndSavesBoth_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::hidingTheViewWithChangesInTwoMethodsAsksOnceAndSavesBoth()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("Not now"), text("Yes")});
    chooseMethod(WindowsUsers);
    clickUserCheck(text("CLINIC\\CARLA"), text("Admin"));
    leaveView();
    QCOMPARE(boxTexts(boxes), (QStringList{kQuestion, kLeavingQuestion}));
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QCOMPARE(storedRoles(text("CLINIC\\CARLA")), (QStringList{text("Doctor"), text("Admin")}));
    QVERIFY(!canSave());
    comeBack();
    QCOMPARE(part<QComboBox>("method_combo")->currentIndex(), int(WindowsUsers));
    QCOMPARE(shownUsers(), QStringList{text("CLINIC\\CARLA")});
    QCOMPARE(addButton()->text(), text("Add new Windows user"));
    leaveView();
    QCOMPARE(boxes.seen().size(), 2);
}

void TestAccesscontrolViewLeaving::hidingTheViewSavesChangesOfEveryKind_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::hidingTheViewSavesChangesOfEveryKind()
{
    QVERIFY(addUsers());
    QVERIFY(addPlacesOfWork());
    showView();
    const MessageBoxes boxes({text("Not now"), text("Not now"), text("Not now"), text("Yes")});
    clickUserCheck(text("bert"), text("Doctor"));
    chooseView(Roles);
    clickRightCheck(text("Doctor"), text("Audit trail management"));
    chooseView(Organisations);
    type(1, 0, text("Eastern Clinic"));
    chooseView(Departments);
    type(2, 2, text("Building 7"));
    leaveView();
    QCOMPARE(boxTexts(boxes), (QStringList{kQuestion, kQuestion, kQuestion, kLeavingQuestion}));
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    QCOMPARE(elsewhere(text("SELECT actions FROM roles WHERE title = 'Doctor'")),
             QStringList{QString::number(331776 | 4)});
    QCOMPARE(storedNames("organization"), (QStringList{text("Eastern Clinic"), text("West Clinic")}));
    QCOMPARE(elsewhere(text("SELECT address FROM department WHERE name = 'Oncology'")),
             QStringList{text("Building 7")});
    comeBack();
    QCOMPARE(part<QComboBox>("view_combo")->currentIndex(), int(Departments));
    QCOMPARE(addButton()->text(), text("Add new department"));
    QVERIFY(!canSave());
    click(addButton());
    QCOMPARE(shownRows().size(), 3);
}

void TestAccesscontrolViewLeaving::hidingTheViewWithoutSavingLeavesTheChanges_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::hidingTheViewWithoutSavingLeavesTheChanges()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("No")});
    leaveView();
    QCOMPARE(boxTexts(boxes), QStringList{kLeavingQuestion});
    QCOMPARE(storedRoles(text("bert")), QStringList{text("Nurse")});
    comeBack();
    QVERIFY(canSave());
    save();
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
}

void TestAccesscontrolViewLeaving::aTextThatIsStillBeingTypedIsAskedFor_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::aTextThatIsStillBeingTypedIsAskedFor()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    click(edit(1, 0));
    QTest::keyClicks(edit(1, 0), text("!"));
    const MessageBoxes boxes({text("Yes")});
    leaveView();
    QCOMPARE(boxTexts(boxes), QStringList{kLeavingQuestion});
    QCOMPARE(storedNames("organization"), (QStringList{text("East Clinic!"), text("West Clinic")}));
}

void TestAccesscontrolViewLeaving::aTextThatIsStillBeingTypedIsSavedByTheFirstClick_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("column");
    QTest::newRow("the name of an organisation") << Place::OfflineFile << int(Organisations) << 0;
    QTest::newRow("the name of a department") << Place::OfflineFile << int(Departments) << 1;
    QTest::newRow("the address of a department") << Place::OfflineFile << int(Departments) << 2;
}

// Save is off until the text is left, which the press on it does.
void TestAccesscontrolViewLeaving::aTextThatIsStillBeingTypedIsSavedByTheFirstClick()
{
    QFETCH(const int, view);
    QFETCH(const int, column);
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(static_cast<ViewIndex>(view));
    ColumnLineEdit *field = edit(1, column);
    click(field);
    QTest::keyClicks(field, text("!"));
    QVERIFY(!canSave());
    clickInWindow(saveButton()->rect().center(), saveButton());
    QVERIFY(elsewhere(text("SELECT name FROM organization UNION SELECT name FROM department UNION SELECT "
                           "address FROM department"))
                .contains(field->text()));
    QVERIFY(!canSave());
    QVERIFY(!field->isUpdated());
}

void TestAccesscontrolViewLeaving::aClickBesideTheFieldsLeavesTheText_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::aClickBesideTheFieldsLeavesTheText()
{
    QVERIFY(addPlacesOfWork());
    showView();
    chooseView(Organisations);
    click(edit(1, 0));
    QTest::keyClicks(edit(1, 0), text("!"));
    clickInWindow(QPoint(1, 1), m_view);
    QVERIFY(!edit(1, 0)->hasFocus());
    QVERIFY(canSave());
    QCOMPARE(storedNames("organization"), (QStringList{text("East Clinic"), text("West Clinic")}));
}

void TestAccesscontrolViewLeaving::aMinimisedWindowAsksNothing_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::aMinimisedWindowAsksNothing()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes;
    QHideEvent hidden;
    QSpontaneKeyEvent::setSpontaneous(&hidden);
    qApp->notify(m_view, &hidden);
    QCOMPARE(boxTexts(boxes), QStringList());
    QVERIFY(canSave());
}

void TestAccesscontrolViewLeaving::closingTheWindowAsks_data()
{
    addOfflineFile();
}

void TestAccesscontrolViewLeaving::closingTheWindowAsks()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    const MessageBoxes boxes({text("Yes")});
    m_stack->close();
    QCOMPARE(boxTexts(boxes), QStringList{kLeavingQuestion});
    QCOMPARE(storedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
}

void TestAccesscontrolViewLeaving::theNextGoodConnectionDropsUnsavedChanges_data()
{
    addSqlite();
}

// A connection that is lost leaves the tables alone, and so do the options when they are given up.
void TestAccesscontrolViewLeaving::theNextGoodConnectionDropsUnsavedChanges()
{
    QVERIFY(addUsers());
    showView();
    clickUserCheck(text("bert"), text("Doctor"));
    m_handler->error();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(canSave());
    QCOMPARE(checkedRoles(text("bert")), (QStringList{text("Nurse"), text("Doctor")}));
    DialogSteps giveUp({pressCancel});
    click(part<QPushButton>("connection_options_button"));
    QVERIFY(canSave());
    DialogSteps again({pressConnect});
    click(part<QPushButton>("connection_options_button"));
    QVERIFY(m_handler->isConnected());
    QVERIFY(!canSave());
    QCOMPARE(checkedRoles(text("bert")), QStringList{text("Nurse")});
}

QTEST_MAIN(TestAccesscontrolViewLeaving)
#include "test_accesscontrolview_leaving.moc"
