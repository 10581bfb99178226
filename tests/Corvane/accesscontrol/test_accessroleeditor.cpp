#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/accesscontrol/accessroleeditdialog.h"
#include "Corvane/accesscontrol/editorsteps.h"
#include "support/messageboxes.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTest>

namespace {

using Role = QSharedPointer<AccessRoleModelData>;

const char *const kName = "role_name_edit";
const char *const kInUseTip = "Role is in use. Deselect role from users to delete it";

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

Role nurse()
{
    return Role::create(7u, text("Nurse"), 0x1000);
}

/// Runs the editor of a role that is in the table, with these steps.
int edit(AccessRole &button, bool inUse, const QList<EditorSteps::Step> &steps)
{
    const EditorSteps run(steps);
    const int result = button.editRole(inUse);
    return run.areDone() ? result : -1;
}

}  // namespace

class TestAccessRoleEditor : public QObject
{
    Q_OBJECT

private slots:
    void itsTextsAreThese();
    void aNewRoleHasTheTypedName();
    void aPastedNameLosesTheEndOfItsLine();
    void aNewRoleThatIsCancelledIsNone_data();
    void aNewRoleThatIsCancelledIsNone();
    void aNewRoleWithoutANameIsGivenToTheView();
    void theNameInTheRoleChangesWithEachKey();
    void aCancelLeavesTheTypedNameInTheRole();
    void theReturnKeySavesFromTheName();
    void theReturnKeyPressesTheButtonThatHasTheFocus_data();
    void theReturnKeyPressesTheButtonThatHasTheFocus();
    void aReturnKeyThatIsHeldDownDeletesNothing();
    void aRoleInUseCannotBeDeleted();
    void aDeletionIsConfirmed_data();
    void aDeletionIsConfirmed();
    void theTabulatorGoesFromTopToBottom();
    void screenReadersAreToldEachName();
    void aNameOfAnyKindIsKept_data();
    void aNameOfAnyKindIsKept();
    void anotherRoleInTheDialogLeavesTheFirstAlone();
};

void TestAccessRoleEditor::itsTextsAreThese()
{
    AccessRole button(nurse(), nullptr);
    QCOMPARE(edit(button, false,
                  {[](QDialog &dialog) {
                       QCOMPARE(dialog.windowTitle(), text("Role"));
                       QCOMPARE(dialog.findChild<QLabel *>()->text(), text("Name"));
                       QCOMPARE(shown<QLineEdit>(dialog, kName)->text(), text("Nurse"));
                       QVERIFY(shown<QLineEdit>(dialog, kName)->minimumWidth() == 200);
                       QCOMPARE(shown<QPushButton>(dialog, "save_button")->text(), text("Save"));
                       QCOMPARE(shown<QPushButton>(dialog, "cancel_button")->text(), text("Cancel"));
                       QCOMPARE(shown<QPushButton>(dialog, "delete_button")->text(), text("Delete role"));
                       QVERIFY(shown<QPushButton>(dialog, "delete_button")->isEnabled());
                       QVERIFY(shown<QPushButton>(dialog, "delete_button")->toolTip().isEmpty());
                   },
                   press("cancel_button")}),
             int(QDialog::Rejected));
}

void TestAccessRoleEditor::aNewRoleHasTheTypedName()
{
    const EditorSteps steps({[](QDialog &dialog) { QVERIFY(!isShown(dialog, "delete_button")); },
                             typeInto(kName, text("Head nurse")), press("save_button")});
    const Role role = AccessRole::newRole();
    QVERIFY(role);
    QCOMPARE(role->roleName(), text("Head nurse"));
    QCOMPARE(role->roleID(), 0u);
    QCOMPARE(role->accessTypes(), 0);
    QVERIFY(steps.areDone());
}

void TestAccessRoleEditor::aPastedNameLosesTheEndOfItsLine()
{
    QGuiApplication::clipboard()->setText(text("Head nurse\r\n"));
    const EditorSteps steps(
        {[](QDialog &dialog) { shown<QLineEdit>(dialog, kName)->paste(); }, press("save_button")});
    const Role role = AccessRole::newRole();
    QVERIFY(role);
    QCOMPARE(role->roleName(), text("Head nurse"));
    QVERIFY(steps.areDone());
}

void TestAccessRoleEditor::aNewRoleThatIsCancelledIsNone_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("with the button") << false;
    QTest::newRow("with the escape key") << true;
}

void TestAccessRoleEditor::aNewRoleThatIsCancelledIsNone()
{
    QFETCH(bool, byKey);
    const EditorSteps steps(
        {typeInto(kName, text("Head nurse")), byKey ? pressKey(Qt::Key_Escape) : press("cancel_button")});
    QVERIFY(!AccessRole::newRole());
    QVERIFY(steps.areDone());
}

void TestAccessRoleEditor::aNewRoleWithoutANameIsGivenToTheView()
{
    const EditorSteps steps({press("save_button")});
    const Role role = AccessRole::newRole();
    QVERIFY(role);
    QVERIFY(role->roleName().isEmpty());
}

void TestAccessRoleEditor::theNameInTheRoleChangesWithEachKey()
{
    const Role role = nurse();
    AccessRole button(role, nullptr);
    QStringList names;
    const auto typeLetter = [&](char letter) {
        return [&names, role, letter](QDialog &dialog) {
            QTest::keyClick(shown<QLineEdit>(dialog, kName), letter);
            names.append(role->roleName());
        };
    };
    const auto goToEnd = [](QDialog &dialog) {
        shown<QLineEdit>(dialog, kName)->end(false);
    };
    QCOMPARE(edit(button, false, {goToEnd, typeLetter('r'), typeLetter('y'), press("save_button")}),
             int(QDialog::Accepted));
    QCOMPARE(names, QStringList({text("Nurser"), text("Nursery")}));
    QCOMPARE(button.text(), text("Nurse"));
}

void TestAccessRoleEditor::aCancelLeavesTheTypedNameInTheRole()
{
    const Role role = nurse();
    AccessRole button(role, nullptr);
    QCOMPARE(edit(button, true, {typeInto(kName, text("Doctor")), pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
    QCOMPARE(role->roleName(), text("Doctor"));
    QCOMPARE(button.text(), text("Nurse"));
    QVERIFY(!button.deleted());
}

void TestAccessRoleEditor::theReturnKeySavesFromTheName()
{
    const Role role = nurse();
    AccessRole button(role, nullptr);
    QCOMPARE(edit(button, false,
                  {[](QDialog &dialog) { QCOMPARE(dialog.focusWidget()->objectName(), text(kName)); },
                   typeInto(kName, text("Doctor")), pressKey(Qt::Key_Return)}),
             int(QDialog::Accepted));
    QCOMPARE(role->roleName(), text("Doctor"));
    QVERIFY(!button.deleted());
}

void TestAccessRoleEditor::theReturnKeyPressesTheButtonThatHasTheFocus_data()
{
    QTest::addColumn<QString>("focused");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Save saves") << text("save_button") << int(QDialog::Accepted) << false;
    QTest::newRow("Cancel cancels") << text("cancel_button") << int(QDialog::Rejected) << false;
    QTest::newRow("Delete role asks and deletes") << text("delete_button") << int(QDialog::Accepted) << true;
}

void TestAccessRoleEditor::theReturnKeyPressesTheButtonThatHasTheFocus()
{
    QFETCH(QString, focused);
    QFETCH(int, result);
    QFETCH(bool, deleted);
    const MessageBoxes boxes({text("Ok")});
    AccessRole button(nurse(), nullptr);
    QCOMPARE(edit(button, false, {giveFocus(focused), pressKey(Qt::Key_Return)}), result);
    QCOMPARE(boxes.seen().size(), deleted ? 1 : 0);
    QCOMPARE(button.deleted(), deleted);
}

void TestAccessRoleEditor::aReturnKeyThatIsHeldDownDeletesNothing()
{
    const MessageBoxes boxes({text("Ok")});
    AccessRole button(nurse(), nullptr);
    QCOMPARE(edit(button, false, {giveFocus(text("delete_button")), holdReturn(), pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(!button.deleted());
}

void TestAccessRoleEditor::aRoleInUseCannotBeDeleted()
{
    const MessageBoxes boxes;
    AccessRole button(nurse(), nullptr);
    QCOMPARE(edit(button, true,
                  {[](QDialog &dialog) {
                       auto *deleteButton = shown<QPushButton>(dialog, "delete_button");
                       QVERIFY(!deleteButton->isEnabled());
                       QCOMPARE(deleteButton->toolTip(), text(kInUseTip));
                       QTest::mouseClick(deleteButton, Qt::LeftButton);
                       QVERIFY(dialog.isVisible());
                   },
                   press("save_button")}),
             int(QDialog::Accepted));
    QVERIFY(!button.deleted());
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccessRoleEditor::aDeletionIsConfirmed_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Ok marks the role") << text("Ok") << true;
    QTest::newRow("No leaves it, and the dialog counts as saved") << text("No") << false;
}

void TestAccessRoleEditor::aDeletionIsConfirmed()
{
    QFETCH(QString, answer);
    QFETCH(bool, deleted);
    const MessageBoxes boxes({answer});
    AccessRole button(nurse(), nullptr);
    QCOMPARE(edit(button, false, {press("delete_button")}), int(QDialog::Accepted));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().constFirst().title, text("Delete"));
    QCOMPARE(boxes.seen().constFirst().text, text("Are you sure?"));
    QCOMPARE(button.deleted(), deleted);
}

void TestAccessRoleEditor::theTabulatorGoesFromTopToBottom()
{
    AccessRole button(nurse(), nullptr);
    QStringList order;
    QCOMPARE(edit(button, false,
                  {[&order](QDialog &dialog) { order = tabOrder(dialog); }, pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
    QCOMPARE(order,
             QStringList({text(kName), text("save_button"), text("cancel_button"), text("delete_button")}));
}

void TestAccessRoleEditor::screenReadersAreToldEachName()
{
    AccessRole button(nurse(), nullptr);
    QCOMPARE(
        edit(button, true,
             {[](QDialog &dialog) {
                  QCOMPARE(spokenName(&dialog), text("Role"));
                  QCOMPARE(spokenName(shown<QLineEdit>(dialog, kName)), text("Name"));
                  QWidget *deleteButton = shown<QPushButton>(dialog, "delete_button");
                  QCOMPARE(spokenName(deleteButton), text("Delete role"));
                  QCOMPARE(
                      QAccessible::queryAccessibleInterface(deleteButton)->text(QAccessible::Description),
                      text(kInUseTip));
              },
              pressKey(Qt::Key_Escape)}),
        int(QDialog::Rejected));
}

void TestAccessRoleEditor::aNameOfAnyKindIsKept_data()
{
    addNamesOfAnyKind();
}

void TestAccessRoleEditor::aNameOfAnyKindIsKept()
{
    QFETCH(QString, name);
    const Role role = Role::create(7u, name, 0);
    AccessRole button(role, nullptr);
    QCOMPARE(edit(button, false,
                  {[](QDialog &dialog) {
                       QVERIFY(dialog.width() < 600);
                       QVERIFY(dialog.height() < 300);
                   },
                   press("save_button")}),
             int(QDialog::Accepted));
    QCOMPARE(role->roleName(), name);
    QCOMPARE(button.text(), name);
}

void TestAccessRoleEditor::anotherRoleInTheDialogLeavesTheFirstAlone()
{
    const Role first = nurse();
    AccessRoleEditDialog dialog;
    dialog.setRole(first);
    dialog.createRole();
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), text("Doctor"));
    QCOMPARE(first->roleName(), text("Nurse"));
    QCOMPARE(dialog.role()->roleName(), text("Doctor"));
}

QTEST_MAIN(TestAccessRoleEditor)
#include "test_accessroleeditor.moc"
