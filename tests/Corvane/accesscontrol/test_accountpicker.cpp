#include "Corvane/accesscontrol/accountdatabase.h"
#include "Corvane/accesscontrol/pickersteps.h"
#include "support/messageboxes.h"
#include "support/workstation.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSysInfo>
#include <QTest>

class TestAccountPicker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theListOfDomainsHasItsTexts();
    void typingShowsTheFormOfAName_data();
    void typingShowsTheFormOfAName();
    void saveIsOnWhileANameIsTyped();
    void aTypedNameIsInCapitals();
    void theLocalComputerListsItsAccounts_data();
    void theLocalComputerListsItsAccounts();
    void aServerThatCannotBeAskedGivesAnEmptyListAndNoMessage();
    void aDomainListsTheAccountsOfItsServer();
    void choosingAnAccountTurnsSaveOn_data();
    void choosingAnAccountTurnsSaveOn();
    void anAccountThatThePointerLeavesIsNotChosen();
    void anotherDomainTakesTheChoiceAway();
    void goingBackToTypingTakesTheTypedNameAway();
    void givingUpGivesNoOperator_data();
    void givingUpGivesNoOperator();
    void aTypedNameIsNotDiscardedWithoutAQuestion();
    void theNameOfAWindowsUserComesFirstAndThePersonSecond();
    void givingUpInTheFormGivesNoOperator();
    void theTabulatorGoesFromTopToBottom();
    void theReturnKeySavesTheChosenAccount();

private:
    Workstation m_workstation;
};

void TestAccountPicker::init()
{
    AccountDatabase::setUsers({text("ada"), text("grace")});
    AccountDatabase::setGroups({text("nurses"), text("doctors"), text("clerks")});
    AccountDatabase::whenListed(nullptr);
}

void TestAccountPicker::theListOfDomainsHasItsTexts()
{
    QVERIFY(!pick(true,
                  {[](QDialog &dialog) {
                       const auto *combo = shown<QComboBox>(dialog, "domain_combo");
                       QCOMPARE(combo->count(), 4);
                       QCOMPARE(combo->itemText(kManual), text("Enter name manually"));
                       QCOMPARE(combo->itemData(kManual).toString(), QString());
                       QCOMPARE(combo->itemText(kLocal), text("Local computer"));
                       QCOMPARE(combo->itemData(kLocal).toString(), QString());
                       QCOMPARE(combo->itemText(kFirstDomain), text("\\\\NOWHERE"));
                       QVERIFY(!combo->itemData(kFirstDomain).isValid());
                       QCOMPARE(combo->itemText(kFirstDomain + 1), QSysInfo::machineHostName());
                       QCOMPARE(combo->itemData(kFirstDomain + 1).toString(), text("\\\\localhost"));
                       QCOMPARE(combo->currentIndex(), kManual);
                       QCOMPARE(combo->accessibleName(), text("Computer or domain"));
                       QVERIFY(!isShown(dialog, "remove_button"));
                   },
                   pressKey(Qt::Key_Escape)},
                  {text("\\\\NOWHERE"), text("\\\\localhost")}));
}

void TestAccountPicker::typingShowsTheFormOfAName_data()
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("title");

    QTest::newRow("of a user") << false << text("COMPUTER\\USER OR DOMAIN\\USER") << text("Windows user");
    QTest::newRow("of a group") << true << text("COMPUTER\\GROUP OR DOMAIN\\GROUP") << text("Windows group");
}

void TestAccountPicker::typingShowsTheFormOfAName()
{
    QFETCH(bool, group);
    QFETCH(QString, form);
    QFETCH(QString, title);
    QVERIFY(!pick(group, {[&](QDialog &dialog) {
                              const auto *label = dialog.findChild<QLabel *>();
                              QVERIFY(label->isVisible());
                              QCOMPARE(label->text(), form);
                              QCOMPARE(spokenName(shown<QLineEdit>(dialog, "manual_edit")), form);
                              QCOMPARE(dialog.windowTitle(), title);
                              QVERIFY(!isShown(dialog, "account_box"));
                          },
                          pressKey(Qt::Key_Escape)}));
}

void TestAccountPicker::saveIsOnWhileANameIsTyped()
{
    const MessageBoxes boxes;
    QVERIFY(
        !pick(true, {[](QDialog &dialog) { QVERIFY(!isSavable(dialog)); }, typeInto("manual_edit", text("x")),
                     [](QDialog &dialog) { QVERIFY(isSavable(dialog)); }, typeInto("manual_edit", QString()),
                     [](QDialog &dialog) {
                         QVERIFY(!isSavable(dialog));
                         QTest::keyClick(shown<QLineEdit>(dialog, "manual_edit"), Qt::Key_Return);
                         QVERIFY(dialog.isVisible());
                     },
                     pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccountPicker::aTypedNameIsInCapitals()
{
    const OperatorModel group =
        pick(true, {typeInto("manual_edit", text("clinic\\Nurses \u00e4\u00df")), press("save_button")});
    QCOMPARE(group->username(), text("CLINIC\\NURSES \u00c4SS"));
    QVERIFY(!group->operatorID().isNull());
    QCOMPARE(group->passwordHash(), text(""));
    QVERIFY(!group->passwordHash().isNull());
    QVERIFY(!group->salt().isNull());
    QVERIFY(group->organization().key.isNull());
    QVERIFY(group->operatorRoleIDList().isEmpty());
}

void TestAccountPicker::theLocalComputerListsItsAccounts_data()
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("users") << false << text("Select a Windows user")
                           << QStringList{text("ada"), text("grace")};
    QTest::newRow("groups") << true << text("Select a Windows group")
                            << QStringList{text("nurses"), text("doctors"), text("clerks")};
}

void TestAccountPicker::theLocalComputerListsItsAccounts()
{
    QFETCH(bool, group);
    QFETCH(QString, title);
    QFETCH(QStringList, names);
    QVERIFY(!pick(group, {chooseDomain(kLocal),
                          [&](QDialog &dialog) {
                              QCOMPARE(shown<QGroupBox>(dialog, "account_box")->title(), title);
                              QStringList listed;
                              for (const QRadioButton *button : accounts(dialog)) {
                                  QVERIFY(button->isVisible());
                                  QVERIFY(!button->isChecked());
                                  listed.append(button->text());
                              }
                              QStringList expected;
                              for (const QString &name : names)
                                  expected.append(onThisComputer(name));
                              QCOMPARE(listed, expected);
                              QVERIFY(!isSavable(dialog));
                              QVERIFY(!isShown(dialog, "manual_widget"));
                          },
                          pressKey(Qt::Key_Escape)}));
}

void TestAccountPicker::aServerThatCannotBeAskedGivesAnEmptyListAndNoMessage()
{
    // Its entry has no data, as that of the local computer, whose accounts it therefore lists.
    const MessageBoxes boxes;
    QVERIFY(!pick(true,
                  {chooseDomain(kFirstDomain), [](QDialog &dialog) { QCOMPARE(accounts(dialog).size(), 3); },
                   [](QDialog &dialog) {
                       shown<QComboBox>(dialog, "domain_combo")->setItemData(kLocal, text("\\\\GONE"));
                   },
                   chooseDomain(kLocal),
                   [](QDialog &dialog) {
                       QVERIFY(accounts(dialog).isEmpty());
                       QVERIFY(!isSavable(dialog));
                   },
                   pressKey(Qt::Key_Escape)},
                  {text("\\\\NOWHERE")}));
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccountPicker::aDomainListsTheAccountsOfItsServer()
{
    const OperatorModel group = pick(
        true, {chooseDomain(kFirstDomain), clickAccount(1), press("save_button")}, {text("\\\\localhost")});
    QCOMPARE(group->username(), onThisComputer(text("doctors")).toUpper());
}

void TestAccountPicker::choosingAnAccountTurnsSaveOn_data()
{
    QTest::addColumn<EditorSteps::Step>("choice");
    QTest::addColumn<QString>("chosen");

    const auto withKey = [](Qt::Key key) {
        return [key](QDialog &dialog) {
            accounts(dialog).constFirst()->setFocus();
            QTest::keyClick(accounts(dialog).constFirst(), Qt::Key_Space);
            QTest::keyClick(accounts(dialog).constFirst(), key);
        };
    };
    QTest::newRow("with the mouse") << clickAccount(2) << text("clerks");
    QTest::newRow("with the space bar") << EditorSteps::Step(withKey(Qt::Key_Shift)) << text("nurses");
    QTest::newRow("with an arrow key") << EditorSteps::Step(withKey(Qt::Key_Down)) << text("doctors");
    QTest::newRow("as a screen reader does")
        << EditorSteps::Step([](QDialog &dialog) { accounts(dialog).at(1)->toggle(); }) << text("doctors");
}

void TestAccountPicker::choosingAnAccountTurnsSaveOn()
{
    QFETCH(EditorSteps::Step, choice);
    QFETCH(QString, chosen);
    const OperatorModel group =
        pick(true, {chooseDomain(kLocal), [](QDialog &dialog) { QVERIFY(!isSavable(dialog)); }, choice,
                    [](QDialog &dialog) { QVERIFY(isSavable(dialog)); }, press("save_button")});
    QCOMPARE(group->username(), onThisComputer(chosen).toUpper());
}

void TestAccountPicker::anAccountThatThePointerLeavesIsNotChosen()
{
    const auto pressAndLeave = [](QDialog &dialog) {
        QRadioButton *button = accounts(dialog).at(1);
        QTest::mousePress(button, Qt::LeftButton);
        QVERIFY(isSavable(dialog));
        const QPoint beside(-20, -20);
        QMouseEvent move(QEvent::MouseMove, beside, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &move);
        QTest::mouseRelease(button, Qt::LeftButton, {}, beside);
    };
    const OperatorModel group =
        pick(true, {chooseDomain(kLocal), pressAndLeave, [](QDialog &dialog) { QVERIFY(!isSavable(dialog)); },
                    clickAccount(2), pressAndLeave, [](QDialog &dialog) { QVERIFY(isSavable(dialog)); },
                    press("save_button")});
    QVERIFY(group);
    QCOMPARE(group->username(), onThisComputer(text("clerks")).toUpper());
}

void TestAccountPicker::anotherDomainTakesTheChoiceAway()
{
    QVERIFY(!pick(true,
                  {chooseDomain(kLocal), clickAccount(0), chooseDomain(kFirstDomain),
                   [](QDialog &dialog) {
                       QVERIFY(!isSavable(dialog));
                       QCOMPARE(accounts(dialog).size(), 3);
                       for (const QRadioButton *button : accounts(dialog))
                           QVERIFY(!button->isChecked());
                   },
                   pressKey(Qt::Key_Escape)},
                  {text("\\\\localhost")}));
}

void TestAccountPicker::goingBackToTypingTakesTheTypedNameAway()
{
    const MessageBoxes boxes;
    QVERIFY(!pick(true, {typeInto("manual_edit", text("clinic\\nurses")), chooseDomain(kLocal),
                         [](QDialog &dialog) { QVERIFY(!isSavable(dialog)); }, chooseDomain(kManual),
                         [](QDialog &dialog) {
                             QVERIFY(shown<QLineEdit>(dialog, "manual_edit")->text().isEmpty());
                             QVERIFY(!isShown(dialog, "account_box"));
                             QVERIFY(!isSavable(dialog));
                             QCOMPARE(dialog.findChildren<QLabel *>().size(), 1);
                         },
                         pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccountPicker::givingUpGivesNoOperator_data()
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<int>("domain");

    QTest::newRow("a user that was to be typed") << false << kManual;
    QTest::newRow("a group that was to be typed") << true << kManual;
    QTest::newRow("a chosen user") << false << kLocal;
    QTest::newRow("a chosen group") << true << kLocal;
}

void TestAccountPicker::givingUpGivesNoOperator()
{
    QFETCH(bool, group);
    QFETCH(int, domain);
    const MessageBoxes boxes;
    QList<EditorSteps::Step> steps{chooseDomain(domain)};
    if (domain == kLocal)
        steps.append(clickAccount(0));
    QVERIFY(!pick(group, steps + QList<EditorSteps::Step>{pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccountPicker::aTypedNameIsNotDiscardedWithoutAQuestion()
{
    const MessageBoxes boxes({text("Cancel"), text("Ok")});
    QVERIFY(!pick(true, {typeInto("manual_edit", text("clinic\\nurses")), pressKey(Qt::Key_Escape),
                         [](QDialog &dialog) {
                             QCOMPARE(shown<QLineEdit>(dialog, "manual_edit")->text(),
                                      text("clinic\\nurses"));
                             QVERIFY(isSavable(dialog));
                         },
                         pressKey(Qt::Key_Escape)}));
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(boxes.seen().constFirst().text, text("Discard changes?"));
}

void TestAccountPicker::theNameOfAWindowsUserComesFirstAndThePersonSecond()
{
    const OperatorModel user =
        pick(false, {chooseDomain(kLocal), clickAccount(1), press("save_button"),
                     [](QDialog &dialog) {
                         QVERIFY(!isShown(dialog, "domain_combo"));
                         QVERIFY(!isShown(dialog, "manual_widget"));
                         QVERIFY(!isShown(dialog, "account_box"));
                         auto *name = shown<QLineEdit>(dialog, "username_edit");
                         QCOMPARE(name->text(), onThisComputer(text("grace")).toUpper());
                         QVERIFY(!name->isEnabled());
                         QVERIFY(isSavable(dialog));
                         QCOMPARE(shown<QLineEdit>(dialog, "password_edit")->text(), text("systempassword"));
                         QCOMPARE(dialog.focusWidget()->objectName(), text("last_name_edit"));
                         for (const QLabel *label : dialog.findChildren<QLabel *>()) {
                             if (label->isVisible())
                                 QVERIFY(label->width() >= label->sizeHint().width());
                         }
                     },
                     typeInto("last_name_edit", text("Hopper")), pressKey(Qt::Key_Return)});
    QVERIFY(user);
    QCOMPARE(user->username(), onThisComputer(text("grace")).toUpper());
    QCOMPARE(user->lastName(), text("Hopper"));
    QCOMPARE(user->passwordHash(), text(""));
    QVERIFY(!user->passwordHash().isNull());
}

void TestAccountPicker::givingUpInTheFormGivesNoOperator()
{
    const MessageBoxes boxes({text("Ok")});
    QVERIFY(!pick(false,
                  {chooseDomain(kLocal), clickAccount(1), press("save_button"), pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(!pick(false, {chooseDomain(kLocal), clickAccount(1), press("save_button"),
                          typeInto("last_name_edit", text("Hopper")), pressKey(Qt::Key_Escape)}));
    QCOMPARE(boxes.seen().size(), 1);
}

void TestAccountPicker::theTabulatorGoesFromTopToBottom()
{
    QStringList typed;
    QStringList listed;
    QVERIFY(!pick(true, {[&](QDialog &dialog) { typed = tabOrder(dialog); },
                         typeInto("manual_edit", text("x")), chooseDomain(kLocal), clickAccount(0),
                         [&](QDialog &dialog) {
                             shown<QComboBox>(dialog, "domain_combo")->setFocus();
                             listed = tabOrder(dialog);
                         },
                         pressKey(Qt::Key_Escape)}));
    QCOMPARE(typed, QStringList({text("domain_combo"), text("manual_edit")}));  // Save is off
    QCOMPARE(listed, QStringList({text("domain_combo"), text("account_0"), text("save_button")}));
}

void TestAccountPicker::theReturnKeySavesTheChosenAccount()
{
    const OperatorModel group = pick(true, {chooseDomain(kLocal), clickAccount(2), pressKey(Qt::Key_Return)});
    QCOMPARE(group->username(), onThisComputer(text("clerks")).toUpper());
}

QTEST_MAIN(TestAccountPicker)
#include "test_accountpicker.moc"
