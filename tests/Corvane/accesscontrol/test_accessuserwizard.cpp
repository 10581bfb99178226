#include "CommunicationAndData/access/passwordhelper.h"
#include "Corvane/accesscontrol/userfixture.h"
#include "ZephanShared/widgets/combowithuuid.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QLabel>
#include <QTest>

namespace {

/// Chooses an entry of one of the lists of places.
EditorSteps::Step choose(const char *combo, int index)
{
    return [combo, index](QDialog &dialog) {
        chooseEntry(shown<QComboBox>(dialog, combo), index);
    };
}

QStringList entries(const QComboBox *combo)
{
    QStringList texts;
    for (int index = 0; index < combo->count(); ++index)
        texts.append(combo->itemText(index));
    return texts;
}

}  // namespace

class TestAccessUserWizard : public QObject
{
    Q_OBJECT

private slots:
    void theFieldsAreLabelledInTheirOrder();
    void theFieldsShowTheOperator();
    void aNewUserTakesWhatIsTyped();
    void aNewOperatorHasAFreshIdAndNothingElse();
    void savingWithoutAChangeKeepsEverything();
    void changedNamesArriveWhenSaved();
    void thePresentPlacesAreSelectedAndOthersCanBe();
    void aPlaceThatIsGoneShowsTheNullEntry();
    void placesStayWhenTheirListsCouldNotBeLoaded_data();
    void placesStayWhenTheirListsCouldNotBeLoaded();
    void cancellingWithoutAChangeClosesAtOnce_data();
    void cancellingWithoutAChangeClosesAtOnce();
    void aChangedFieldBringsTheQuestion_data();
    void aChangedFieldBringsTheQuestion();
    void theQuestionCanBeTakenBackAndTheTextIsStillThere();
    void aRemovalIsConfirmed_data();
    void aRemovalIsConfirmed();
    void aNewRowOffersNoRemoval();
    void aWindowsUserShowsTheSystemPasswordInADisabledField();
    void aWindowsUserKeepsItsEmptyHash();
    void aGroupCanOnlyBeRemovedOrLeft();
    void aGroupIsRemovedAfterTheConfirmation();
    void aNameOfAnyKindIsKept_data();
    void aNameOfAnyKindIsKept();
    void theSlotsAreFoundByName();
};

void TestAccessUserWizard::theFieldsAreLabelledInTheirOrder()
{
    QVERIFY(!newInternalUser({[](QDialog &dialog) {
                                  QMap<int, QString> byPlace;
                                  for (const QLabel *label : dialog.findChildren<QLabel *>()) {
                                      if (!label->isVisible())
                                          continue;
                                      byPlace.insert(label->y(), label->text());
                                      QVERIFY(label->minimumWidth() == 100);
                                      QVERIFY(label->width() >= label->sizeHint().width());
                                      QVERIFY(label->buddy()->minimumWidth() == 200);
                                      QCOMPARE(label->buddy()->accessibleName(), label->text());
                                  }
                                  QCOMPARE(
                                      byPlace.values(),
                                      QStringList({text("Last Name"), text("Middle Name"), text("First Name"),
                                                   text("Organisation"), text("Department"), text("Username"),
                                                   text("Password"), text("Confirm Password")}));
                                  const auto *save = shown<QPushButton>(dialog, "save_button");
                                  QCOMPARE(save->text(), text("Save"));
                                  QVERIFY(!save->isEnabled());
                                  QCOMPARE(save->toolTip(), text("Username and Password cannot be empty"));
                                  QVERIFY(!isShown(dialog, "remove_button"));
                                  QVERIFY(!isShown(dialog, "domain_combo"));
                                  QVERIFY(!isShown(dialog, "account_box"));
                                  QVERIFY(!isShown(dialog, "manual_widget"));
                                  QCOMPARE(dialog.windowTitle(), text("Internal user"));
                              },
                              pressKey(Qt::Key_Escape)}));
}

void TestAccessUserWizard::theFieldsShowTheOperator()
{
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QCOMPARE(button.text(), text("ada"));
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                               QCOMPARE(shown<QLineEdit>(dialog, "last_name_edit")->text(), text("Lovelace"));
                               QCOMPARE(shown<QLineEdit>(dialog, "middle_name_edit")->text(), text("King"));
                               QCOMPARE(shown<QLineEdit>(dialog, "first_name_edit")->text(), text("Ada"));
                               QCOMPARE(shown<QComboBox>(dialog, "organization_combo")->currentText(),
                                        text("West Clinic"));
                               QCOMPARE(shown<QComboBox>(dialog, "department_combo")->currentText(),
                                        text("Oncology"));
                               QCOMPARE(shown<QLineEdit>(dialog, "username_edit")->text(), text("ada"));
                               QVERIFY(shown<QLineEdit>(dialog, "username_edit")->isEnabled());
                               QVERIFY(shown<QPushButton>(dialog, "save_button")->isEnabled());
                               QVERIFY(shown<QPushButton>(dialog, "save_button")->toolTip().isEmpty());
                               QCOMPARE(shown<QPushButton>(dialog, "remove_button")->text(),
                                        text("Remove user"));
                               QVERIFY(shown<QPushButton>(dialog, "remove_button")->toolTip().isEmpty());
                           },
                           pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
}

void TestAccessUserWizard::aNewUserTakesWhatIsTyped()
{
    const OperatorModel oper = newInternalUser(
        {typeInto("last_name_edit", text("Hopper")), typeInto("middle_name_edit", text("Brewster")),
         typeInto("first_name_edit", text("Grace")), choose("organization_combo", 1),
         choose("department_combo", 2), typeInto("username_edit", text("grace")),
         typeInto("password_edit", text("cobol")), typeInto("confirm_edit", text("cobol")),
         pressKey(Qt::Key_Return)});
    QVERIFY(oper);
    QCOMPARE(oper->lastName(), text("Hopper"));
    QCOMPARE(oper->middleName(), text("Brewster"));
    QCOMPARE(oper->firstName(), text("Grace"));
    QCOMPARE(oper->organization().key.toString(), kEastClinic.toString());
    QVERIFY(oper->organization().values.isEmpty());
    QCOMPARE(oper->department().key.toString(), kOncology.toString());
    QCOMPARE(oper->username(), text("grace"));
    QVERIFY(PasswordHelper::isPassword(text("cobol"), oper->salt(), oper->passwordHash()));
}

void TestAccessUserWizard::aNewOperatorHasAFreshIdAndNothingElse()
{
    const QList<EditorSteps::Step> steps{typeInto("username_edit", text("a")),
                                         typeInto("password_edit", text("b")),
                                         typeInto("confirm_edit", text("b")), press("save_button")};
    const OperatorModel first = newInternalUser(steps);
    const OperatorModel second = newInternalUser(steps);
    QVERIFY(!first->operatorID().isNull());
    QVERIFY(!first->operatorID().toString().contains(QLatin1Char('{')));
    QVERIFY(first->operatorID() != second->operatorID());
    QVERIFY(first->salt() != second->salt());
    QVERIFY(first->operatorRoleIDList().isEmpty());
    QVERIFY(first->operatorRoleNames().isEmpty());
    QVERIFY(first->organization().key.isNull());
    QVERIFY(first->department().key.isNull());
    // Empty, as opposed to null, which a database would keep as such.
    for (const QString &value :
         {first->userID(), first->firstName(), first->middleName(), first->lastName()}) {
        QVERIFY(value.isEmpty());
        QVERIFY(!value.isNull());
    }
}

void TestAccessUserWizard::savingWithoutAChangeKeepsEverything()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QStringList before = valuesOf(oper);
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {press("save_button")}), int(QDialog::Accepted));
    QCOMPARE(valuesOf(oper), before);
    QVERIFY(PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessUserWizard::changedNamesArriveWhenSaved()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QString hash = oper->passwordHash();
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button,
                  {typeInto("last_name_edit", text("Byron")), typeInto("middle_name_edit", text("")),
                   typeInto("first_name_edit", text("Augusta")), typeInto("username_edit", text("augusta")),
                   [&](QDialog &) { QCOMPARE(oper->username(), text("ada")); }, press("save_button")}),
             int(QDialog::Accepted));
    QCOMPARE(oper->lastName(), text("Byron"));
    QCOMPARE(oper->middleName(), text(""));
    QVERIFY(!oper->middleName().isNull());
    QCOMPARE(oper->firstName(), text("Augusta"));
    QCOMPARE(oper->username(), text("augusta"));
    QCOMPARE(oper->passwordHash(), hash);
    QCOMPARE(button.text(), text("ada"));
}

void TestAccessUserWizard::thePresentPlacesAreSelectedAndOthersCanBe()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    AccessUser button(oper, nullptr);
    QCOMPARE(
        edit(button,
             {[](QDialog &dialog) {
                  auto *organization = shown<ComboWithUuid>(dialog, "organization_combo");
                  auto *department = shown<ComboWithUuid>(dialog, "department_combo");
                  QCOMPARE(entries(organization),
                           QStringList({text(""), text("East Clinic"), text("West Clinic")}));
                  QCOMPARE(entries(department), QStringList({text(""), text("Surgery"), text("Oncology")}));
                  QCOMPARE(organization->itemData(0).toString(), UuidString().toString());
                  QCOMPARE(organization->itemData(1).toString(), kEastClinic.toString());
                  QCOMPARE(organization->currentIndex(), 2);
                  QCOMPARE(department->currentIndex(), 2);
              },
              choose("organization_combo", 1), choose("department_combo", 0), press("save_button")}),
        int(QDialog::Accepted));
    QCOMPARE(oper->organization().key.toString(), kEastClinic.toString());
    QVERIFY(oper->department().key.isNull());
}

void TestAccessUserWizard::aPlaceThatIsGoneShowsTheNullEntry()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    oper->setOrganization({UuidString(text("99999999-0000-0000-0000-000000000000")), {}});
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                               QCOMPARE(shown<QComboBox>(dialog, "organization_combo")->currentIndex(), 0);
                           },
                           press("save_button")}),
             int(QDialog::Accepted));
    QVERIFY(oper->organization().key.isNull());
    QCOMPARE(oper->department().key.toString(), kOncology.toString());
}

void TestAccessUserWizard::placesStayWhenTheirListsCouldNotBeLoaded_data()
{
    QTest::addColumn<bool>("organizationsCame");
    QTest::addColumn<bool>("departmentsCame");

    QTest::newRow("neither of them") << false << false;
    QTest::newRow("the departments") << true << false;
    QTest::newRow("the organisations") << false << true;
}

void TestAccessUserWizard::placesStayWhenTheirListsCouldNotBeLoaded()
{
    QFETCH(bool, organizationsCame);
    QFETCH(bool, departmentsCame);
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QStringList before = valuesOf(oper);
    QVERIFY(!oper->organization().key.isNull() && !oper->department().key.isNull());
    AccessUser button(oper, nullptr);
    const EditorSteps steps({press("save_button")});
    QCOMPARE(button.editOperator(organizationsCame ? organizations() : AccessUserWizard::Organizations(),
                                 departmentsCame ? departments() : AccessUserWizard::Departments(), true),
             int(QDialog::Accepted));
    QVERIFY(steps.areDone());
    QCOMPARE(valuesOf(oper), before);
}

void TestAccessUserWizard::cancellingWithoutAChangeClosesAtOnce_data()
{
    QTest::addColumn<uint>("type");

    QTest::newRow("an internal user") << 1u;
    QTest::newRow("a Windows group") << 2u;
    QTest::newRow("a Windows user") << 3u;
}

void TestAccessUserWizard::cancellingWithoutAChangeClosesAtOnce()
{
    QFETCH(uint, type);
    const MessageBoxes boxes;
    const OperatorModel oper = storedOperator(type, text("ada"));
    const QStringList before = valuesOf(oper);
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {pressKey(Qt::Key_Escape)}), int(QDialog::Rejected));
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                      dialog.close();
                  }}),
             int(QDialog::Rejected));
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(valuesOf(oper), before);
}

void TestAccessUserWizard::aChangedFieldBringsTheQuestion_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<EditorSteps::Step>("change");

    QTest::newRow("last name") << 1u << typeInto("last_name_edit", text("x"));
    QTest::newRow("middle name") << 1u << typeInto("middle_name_edit", text("x"));
    QTest::newRow("first name of a Windows user") << 3u << typeInto("first_name_edit", text("x"));
    QTest::newRow("organisation") << 1u << choose("organization_combo", 0);
    QTest::newRow("department of a Windows user") << 3u << choose("department_combo", 1);
    QTest::newRow("username") << 1u << typeInto("username_edit", text("x"));
    QTest::newRow("password") << 1u << typeInto("password_edit", text("x"));
    QTest::newRow("confirmation") << 1u << typeInto("confirm_edit", text("x"));
}

void TestAccessUserWizard::aChangedFieldBringsTheQuestion()
{
    QFETCH(uint, type);
    QFETCH(EditorSteps::Step, change);
    const MessageBoxes boxes({text("Ok")});
    const OperatorModel oper = storedOperator(type, text("ada"));
    const QStringList before = valuesOf(oper);
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {change,
                           [](QDialog &dialog) {
                               dialog.close();
                           }}),
             int(QDialog::Rejected));
    QCOMPARE(boxes.seen().size(), 1);
    const SeenBox &box = boxes.seen().constFirst();
    QCOMPARE(box.title, text("Discard"));
    QCOMPARE(box.text, text("Discard changes?"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QStringList buttons = box.buttons;
    buttons.sort();
    QCOMPARE(buttons, QStringList({text("Cancel"), text("Ok")}));
    QCOMPARE(valuesOf(oper), before);
}

void TestAccessUserWizard::theQuestionCanBeTakenBackAndTheTextIsStillThere()
{
    const MessageBoxes boxes({text("Cancel"), text("Cancel")});
    const OperatorModel oper = storedOperator(1, text("ada"));
    AccessUser button(oper, nullptr);
    const auto stillThere = [](QDialog &dialog) {
        QCOMPARE(shown<QLineEdit>(dialog, "last_name_edit")->text(), text("Byron"));
    };
    QCOMPARE(edit(button, {typeInto("last_name_edit", text("Byron")), pressKey(Qt::Key_Escape), stillThere,
                           pressKey(Qt::Key_Escape), stillThere, press("save_button")}),
             int(QDialog::Accepted));
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(oper->lastName(), text("Byron"));
}

void TestAccessUserWizard::aRemovalIsConfirmed_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Ok marks an internal user") << 1u << text("Ok") << true;
    QTest::newRow("Ok marks a Windows user") << 3u << text("Ok") << true;
    QTest::newRow("No leaves the user, and the dialog counts as saved") << 1u << text("No") << false;
}

void TestAccessUserWizard::aRemovalIsConfirmed()
{
    QFETCH(uint, type);
    QFETCH(QString, answer);
    QFETCH(bool, deleted);
    const MessageBoxes boxes({answer});
    const OperatorModel oper = storedOperator(type, text("ada"));
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {press("remove_button")}), int(QDialog::Accepted));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().constFirst().text, text("Are you sure?"));
    QCOMPARE(button.deleted(), deleted);
    QCOMPARE(button.oper(), oper);
}

void TestAccessUserWizard::aNewRowOffersNoRemoval()
{
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QCOMPARE(
        edit(button,
             {[](QDialog &dialog) { QVERIFY(!isShown(dialog, "remove_button")); }, pressKey(Qt::Key_Escape)},
             false),
        int(QDialog::Rejected));
}

void TestAccessUserWizard::aWindowsUserShowsTheSystemPasswordInADisabledField()
{
    AccessUser button(storedOperator(3, text("HOST\\ADA")), nullptr);
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                               QCOMPARE(dialog.windowTitle(), text("Windows user"));
                               QVERIFY(!shown<QLineEdit>(dialog, "username_edit")->isEnabled());
                               QCOMPARE(shown<QLineEdit>(dialog, "username_edit")->text(), text("HOST\\ADA"));
                               for (const char *name : {"password_edit", "confirm_edit"}) {
                                   auto *field = shown<QLineEdit>(dialog, name);
                                   QVERIFY(!field->isEnabled());
                                   QCOMPARE(field->text(), text("systempassword"));
                                   QCOMPARE(field->echoMode(), QLineEdit::Password);
                               }
                               const auto *save = shown<QPushButton>(dialog, "save_button");
                               QVERIFY(save->isEnabled());
                               QVERIFY(save->toolTip().isEmpty());
                           },
                           pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
}

void TestAccessUserWizard::aWindowsUserKeepsItsEmptyHash()
{
    const OperatorModel oper = storedOperator(3, text("HOST\\ADA"));
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {typeInto("first_name_edit", text("Augusta")), press("save_button")}),
             int(QDialog::Accepted));
    QCOMPARE(oper->firstName(), text("Augusta"));
    QCOMPARE(oper->username(), text("HOST\\ADA"));
    QCOMPARE(oper->passwordHash(), text(""));
    QCOMPARE(oper->salt(), text(""));
    QVERIFY(!oper->salt().isNull());
}

void TestAccessUserWizard::aGroupCanOnlyBeRemovedOrLeft()
{
    const MessageBoxes boxes;
    AccessUser button(storedOperator(2, text("HOST\\NURSES")), nullptr);
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                               const auto *remove = shown<QPushButton>(dialog, "remove_button");
                               QCOMPARE(remove->text(), text("Remove group"));
                               QCOMPARE(remove->toolTip(),
                                        text("Associations to the roles will be removed."));
                               QVERIFY(!isShown(dialog, "save_button"));
                               for (const QLineEdit *field : dialog.findChildren<QLineEdit *>())
                                   QVERIFY(!field->isVisible());
                               QCOMPARE(dialog.windowTitle(), text("Windows group"));
                           },
                           pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
    QVERIFY(!button.deleted());
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccessUserWizard::aGroupIsRemovedAfterTheConfirmation()
{
    const MessageBoxes boxes({text("Ok")});
    const OperatorModel group = storedOperator(2, text("HOST\\NURSES"));
    AccessUser button(group, nullptr);
    QCOMPARE(edit(button, {pressKey(Qt::Key_Space)}), int(QDialog::Accepted));
    QVERIFY(button.deleted());
    QCOMPARE(group->username(), text("HOST\\NURSES"));
    QVERIFY(!group->salt().isNull());
}

void TestAccessUserWizard::aNameOfAnyKindIsKept_data()
{
    addNamesOfAnyKind();
}

void TestAccessUserWizard::aNameOfAnyKindIsKept()
{
    QFETCH(QString, name);
    const OperatorModel oper = storedOperator(1, name);
    oper->setFirstName(name);
    oper->setMiddleName(name);
    oper->setLastName(name);
    const QStringList before = valuesOf(oper);
    AccessUser button(oper, nullptr);
    QCOMPARE(button.text(), name);
    AccessUserWizard::Organizations places = organizations();
    places[kWestClinic] = name;
    const EditorSteps steps({[](QDialog &dialog) { QVERIFY(dialog.width() < 600); },
                             [](QDialog &dialog) { QVERIFY(dialog.height() < 500); }, press("save_button")});
    QCOMPARE(button.editOperator(places, departments(), true), int(QDialog::Accepted));
    QCOMPARE(valuesOf(oper), before);
    QVERIFY(steps.areDone());
}

void TestAccessUserWizard::theSlotsAreFoundByName()
{
    const QMetaObject &meta = AccessUserWizard::staticMetaObject;
    for (const char *slot :
         {"passwordEdited(QString)", "passwordConfirmEdited(QString)", "domainChanged(int)",
          "confirmPassword()", "CheckPasswordAndUsername()", "userSelected()", "customEdited(QString)",
          "setValuesToOperator(OperatorModel)", "setOrganization(MappedStrings)",
          "setDepartment(MappedStrings)", "userEdited()"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    for (const char *signal : {"setPasswordHash(QString)", "setSalt(QString)"})
        QVERIFY2(meta.indexOfSignal(signal) >= 0, signal);
}

QTEST_MAIN(TestAccessUserWizard)
#include "test_accessuserwizard.moc"
