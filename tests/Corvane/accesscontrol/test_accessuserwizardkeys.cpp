#include "CommunicationAndData/access/passwordhelper.h"
#include "Corvane/accesscontrol/userfixture.h"
#include "ZephanShared/widgets/combowithuuid.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QTest>

/// The user editor worked from the keyboard and by a screen reader.
class TestAccessUserWizardKeys : public QObject
{
    Q_OBJECT

private slots:
    void theReturnKeyPressesTheButtonThatHasTheFocus_data();
    void theReturnKeyPressesTheButtonThatHasTheFocus();
    void aReturnKeyThatIsHeldDownRemovesNothing_data();
    void aReturnKeyThatIsHeldDownRemovesNothing();
    void whatIsPastedLosesTheEndOfItsLine();
    void theTabulatorGoesFromTopToBottom();
    void screenReadersAreToldEachName();
};

void TestAccessUserWizardKeys::theReturnKeyPressesTheButtonThatHasTheFocus_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QString>("focused");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Save saves") << 1u << text("save_button") << false;
    QTest::newRow("a field saves") << 1u << text("username_edit") << false;
    QTest::newRow("Remove user asks and removes") << 1u << text("remove_button") << true;
    QTest::newRow("Remove user of a Windows user asks and removes") << 3u << text("remove_button") << true;
    QTest::newRow("Remove group asks and removes") << 2u << text("remove_button") << true;
}

void TestAccessUserWizardKeys::theReturnKeyPressesTheButtonThatHasTheFocus()
{
    QFETCH(uint, type);
    QFETCH(QString, focused);
    QFETCH(bool, deleted);
    const MessageBoxes boxes({text("Ok")});
    AccessUser button(storedOperator(type, text("ada")), nullptr);
    QCOMPARE(edit(button, {giveFocus(focused), pressKey(Qt::Key_Return)}), int(QDialog::Accepted));
    QCOMPARE(boxes.seen().size(), deleted ? 1 : 0);
    QCOMPARE(button.deleted(), deleted);
}

void TestAccessUserWizardKeys::aReturnKeyThatIsHeldDownRemovesNothing_data()
{
    QTest::addColumn<uint>("type");

    QTest::newRow("an internal user") << 1u;
    QTest::newRow("a Windows group") << 2u;
    QTest::newRow("a Windows user") << 3u;
}

void TestAccessUserWizardKeys::aReturnKeyThatIsHeldDownRemovesNothing()
{
    QFETCH(uint, type);
    const MessageBoxes boxes({text("Ok")});
    AccessUser button(storedOperator(type, text("ada")), nullptr);
    QCOMPARE(edit(button, {giveFocus(text("remove_button")), holdReturn(), pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(!button.deleted());
}

void TestAccessUserWizardKeys::whatIsPastedLosesTheEndOfItsLine()
{
    const OperatorModel oper = newInternalUser(
        {typeInto("last_name_edit", text("Lovelace\r\n")), typeInto("username_edit", text("ada\n")),
         typeInto("password_edit", text("secret\n")), typeInto("confirm_edit", text("secret")),
         press("save_button")});
    QVERIFY(oper);
    QCOMPARE(oper->lastName(), text("Lovelace"));
    QCOMPARE(oper->username(), text("ada"));
    QVERIFY(PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessUserWizardKeys::theTabulatorGoesFromTopToBottom()
{
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QStringList order;
    QCOMPARE(
        edit(button, {[&order](QDialog &dialog) { order = tabOrder(dialog); }, pressKey(Qt::Key_Escape)}),
        int(QDialog::Rejected));
    QCOMPARE(order, QStringList({text("last_name_edit"), text("middle_name_edit"), text("first_name_edit"),
                                 text("organization_combo"), text("department_combo"), text("username_edit"),
                                 text("password_edit"), text("confirm_edit"), text("save_button"),
                                 text("remove_button")}));
}

void TestAccessUserWizardKeys::screenReadersAreToldEachName()
{
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QCOMPARE(edit(button,
                  {[](QDialog &dialog) {
                       QCOMPARE(spokenName(&dialog), text("Internal user"));
                       QCOMPARE(spokenName(shown<QLineEdit>(dialog, "last_name_edit")), text("Last Name"));
                       QCOMPARE(spokenName(shown<QWidget>(dialog, "department_combo")), text("Department"));
                       QCOMPARE(spokenName(shown<QLineEdit>(dialog, "confirm_edit")),
                                text("Confirm Password"));
                       QCOMPARE(spokenName(shown<QPushButton>(dialog, "save_button")), text("Save"));
                   },
                   pressKey(Qt::Key_Escape)}),
             int(QDialog::Rejected));
}

QTEST_MAIN(TestAccessUserWizardKeys)
#include "test_accessuserwizardkeys.moc"
