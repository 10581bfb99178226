#include "Corvane/accesscontrol/accountdatabase.h"
#include "Corvane/accesscontrol/userfixture.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSysInfo>
#include <QTest>

namespace {

constexpr int kManual = 0;
constexpr int kLocal = 1;
constexpr int kFirstDomain = 2;

QString onThisComputer(const QString &name)
{
    return QSysInfo::machineHostName() + QLatin1Char('\\') + name;
}

QList<QRadioButton *> accounts(QDialog &dialog)
{
    return dialog.findChildren<QRadioButton *>();
}

bool isSavable(QDialog &dialog)
{
    return shown<QPushButton>(dialog, "save_button")->isEnabled();
}

EditorSteps::Step chooseDomain(int index)
{
    return [index](QDialog &dialog) {
        chooseEntry(shown<QComboBox>(dialog, "domain_combo"), index);
    };
}

EditorSteps::Step clickAccount(int index)
{
    return [index](QDialog &dialog) {
        QRadioButton *button = accounts(dialog).value(index);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    };
}

/// Runs the choice of a group, or of a user and then its form.
OperatorModel pick(bool group, const QList<EditorSteps::Step> &steps, const QStringList &domains = {})
{
    const EditorSteps run(steps);
    const OperatorModel oper =
        group ? AccessUserWizard::newWindowsGroup(domains)
              : AccessUserWizard::newWindowsUser(domains, organizations(), departments());
    if (!run.areDone())
        qFatal("Not all steps were done");
    return oper;
}

/// Runs an action each time that a widget is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(std::function<void()> action)
        : m_action(std::move(action))
    {}

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_action();
        return false;
    }

private:
    std::function<void()> m_action;
};

/// The accounts of each column, from left to right.
QList<int> columns(QDialog &dialog)
{
    QMap<int, int> lengths;
    for (const QRadioButton *button : accounts(dialog))
        ++lengths[button->x()];
    return lengths.values();
}

}  // namespace

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
    void accountsStandInEvenColumns_data();
    void accountsStandInEvenColumns();
    void withoutAccountsTheGridIsEmptyAndSaveStaysOff();
    void aServerThatCannotBeAskedGivesAnEmptyListAndNoMessage();
    void aDomainListsTheAccountsOfItsServer();
    void choosingAnAccountTurnsSaveOn_data();
    void choosingAnAccountTurnsSaveOn();
    void anotherDomainTakesTheChoiceAway();
    void goingBackToTypingTakesTheTypedNameAway();
    void theWaitCursorIsUpWhileTheComputerAnswers();
    void aDialogThatGrowsStaysOnTheScreen();
    void givingUpGivesNoOperator_data();
    void givingUpGivesNoOperator();
    void aTypedNameIsNotDiscardedWithoutAQuestion();
    void theNameOfAWindowsUserComesFirstAndThePersonSecond();
    void givingUpInTheFormGivesNoOperator();
    void moreAccountsThanTheScreenHasRoomForCanBeReached();
    void accountNamesAreShownAsTheyAre_data();
    void accountNamesAreShownAsTheyAre();
    void theTabulatorGoesFromTopToBottom();
    void theReturnKeySavesTheChosenAccount();
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

void TestAccountPicker::accountsStandInEvenColumns_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("lengths");

    QTest::newRow("1 account") << 1 << QList<int>{1};
    QTest::newRow("19 accounts in one column") << 19 << QList<int>{19};
    QTest::newRow("20 accounts in two columns") << 20 << QList<int>{10, 10};
    QTest::newRow("21 accounts begin a third column") << 21 << QList<int>{10, 10, 1};
    QTest::newRow("41 accounts in four columns of 13") << 41 << QList<int>{13, 13, 13, 2};
    QTest::newRow("60 accounts in four columns of 15") << 60 << QList<int>{15, 15, 15, 15};
}

void TestAccountPicker::accountsStandInEvenColumns()
{
    QFETCH(int, count);
    QFETCH(QList<int>, lengths);
    AccountDatabase::setUsers(AccountDatabase::numbered(count));
    QVERIFY(!pick(false, {chooseDomain(kLocal), [&](QDialog &dialog) { QCOMPARE(columns(dialog), lengths); },
                          [&](QDialog &dialog) {
                              // Downwards first.
                              QCOMPARE(accounts(dialog).constLast()->text(),
                                       onThisComputer(QStringLiteral("account%1").arg(count)));
                              QCOMPARE(accounts(dialog).constLast()->y(),
                                       accounts(dialog).at(lengths.constLast() - 1)->y());
                          },
                          pressKey(Qt::Key_Escape)}));
}

void TestAccountPicker::withoutAccountsTheGridIsEmptyAndSaveStaysOff()
{
    AccountDatabase::setUsers({});
    const MessageBoxes boxes;
    QVERIFY(!pick(false, {chooseDomain(kLocal),
                          [](QDialog &dialog) {
                              QVERIFY(isShown(dialog, "account_box"));
                              QVERIFY(accounts(dialog).isEmpty());
                              QVERIFY(!isSavable(dialog));
                          },
                          pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
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

void TestAccountPicker::theWaitCursorIsUpWhileTheComputerAnswers()
{
    QComboBox *combo = nullptr;
    QString painted;
    PaintWatch watch([&] { painted = combo->currentText(); });
    int listings = 0;
    AccountDatabase::whenListed([&] {
        ++listings;
        const QCursor *cursor = QApplication::overrideCursor();
        QVERIFY(cursor);
        QCOMPARE(cursor->shape(), Qt::WaitCursor);
        QCOMPARE(painted, text("Local computer"));
        QVERIFY(!combo->view()->isVisible());
        QTest::qSleep(100);
    });
    for (const bool group : {false, true}) {
        painted.clear();
        QVERIFY(
            !pick(group, {[&](QDialog &dialog) {
                              combo = shown<QComboBox>(dialog, "domain_combo");
                              combo->installEventFilter(&watch);
                          },
                          chooseDomain(kLocal), [](QDialog &) { QVERIFY(!QApplication::overrideCursor()); },
                          pressKey(Qt::Key_Escape)}));
    }
    QCOMPARE(listings, 2);
}

void TestAccountPicker::aDialogThatGrowsStaysOnTheScreen()
{
    AccountDatabase::setUsers(AccountDatabase::numbered(19));
    const auto isOnScreen = [](QDialog &dialog) {
        QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
    };
    QVERIFY(!pick(false, {[](QDialog &dialog) {
                              dialog.move(dialog.screen()->availableGeometry().bottomRight() -
                                          QPoint(dialog.width(), dialog.height()));
                          },
                          chooseDomain(kLocal), isOnScreen, pressKey(Qt::Key_Escape)}));
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

void TestAccountPicker::moreAccountsThanTheScreenHasRoomForCanBeReached()
{
    AccountDatabase::setUsers(AccountDatabase::numbered(2000));
    QElapsedTimer timer;
    const OperatorModel user =
        pick(false, {[&timer](QDialog &) { timer.start(); }, chooseDomain(kLocal),
                     [&](QDialog &dialog) {
                         QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
                         const QSize screen = dialog.screen()->availableSize();
                         QVERIFY(dialog.width() <= screen.width());
                         QVERIFY(dialog.height() <= screen.height());
                         QRadioButton *last = accounts(dialog).constLast();
                         QVERIFY(last->visibleRegion().isEmpty());
                         accounts(dialog).at(1998)->setFocus();
                         QTest::keyClick(accounts(dialog).at(1998), Qt::Key_Space);
                         QTest::keyClick(accounts(dialog).at(1998), Qt::Key_Down);
                         QVERIFY(last->isChecked());
                         QVERIFY(!last->visibleRegion().isEmpty());
                     },
                     press("save_button"), press("save_button")});
    QCOMPARE(user->username(), onThisComputer(text("account2000")).toUpper());
}

void TestAccountPicker::accountNamesAreShownAsTheyAre_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an ampersand is no shortcut") << text("r&d");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('x'));
    QTest::newRow("blanks and quotes") << text(" o'brien \"the\" boss ");
    QTest::newRow("marks of HTML") << text("<b>bold</b>&amp;");
    QTest::newRow("right to left and combining letters") << text("\u05de\u05e0\u05d4\u05dc e\u0301\u0327");
    QTest::newRow("a directory's account brings its domain") << text("CLINIC\\ada");
}

void TestAccountPicker::accountNamesAreShownAsTheyAre()
{
    QFETCH(QString, name);
    AccountDatabase::setGroups({name});
    const QString full = name.contains(QLatin1Char('\\')) ? name : onThisComputer(name);
    const OperatorModel group =
        pick(true, {chooseDomain(kLocal),
                    [&](QDialog &dialog) {
                        QRadioButton *button = accounts(dialog).constFirst();
                        QCOMPARE(button->text(), QString(full).replace(text("&"), text("&&")));
                        QVERIFY(button->shortcut().isEmpty());
                        QVERIFY(dialog.width() <= dialog.screen()->availableSize().width());
                    },
                    clickAccount(0), press("save_button")});
    QCOMPARE(group->username(), full.toUpper());
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
