#include "CommunicationAndData/access/passwordhelper.h"
#include "Corvane/accesscontrol/userfixture.h"
#include "support/messageboxes.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

const QString kNoMatch = QStringLiteral("Password does not match with confirmation");
const char *const kName = "username_edit";
const char *const kPassword = "password_edit";
const char *const kConfirm = "confirm_edit";

bool isSavable(QDialog &dialog)
{
    return shown<QPushButton>(dialog, "save_button")->isEnabled();
}

QString saveTip(QDialog &dialog)
{
    return shown<QPushButton>(dialog, "save_button")->toolTip();
}

/// The pairs of hash and salt that the dialog told.
struct Told
{
    std::unique_ptr<QSignalSpy> hashes;
    std::unique_ptr<QSignalSpy> salts;

    EditorSteps::Step listen()
    {
        return [this](QDialog &dialog) {
            hashes = std::make_unique<QSignalSpy>(&dialog, SIGNAL(setPasswordHash(QString)));
            salts = std::make_unique<QSignalSpy>(&dialog, SIGNAL(setSalt(QString)));
        };
    }
    int count() const
    {
        return hashes->size() == salts->size() ? hashes->size() : -1;
    }
    QString hash() const
    {
        return hashes->last().value(0).toString();
    }
    QString salt() const
    {
        return salts->last().value(0).toString();
    }
};

}  // namespace

class TestAccessPassword : public QObject
{
    Q_OBJECT

private slots:
    void saveIsOffUntilNothingIsMissing_data();
    void saveIsOffUntilNothingIsMissing();
    void theSameTextTwiceGivesAHashAndANewSaltWhenTheyAgree();
    void changingTheConfirmationAfterwardsTurnsSaveOff();
    void eachAgreementGivesAFreshSalt();
    void thePasswordCanBeChangedInEitherOrder();
    void aForgottenUsernameIsTold();
    void anExistingPasswordShowsAFillerThatIsNoneOfIt();
    void typingReplacesTheFillerWhole();
    void aNewPasswordOfAnExistingUserReplacesTheOldOne();
    void thePresentPasswordInOneFieldAgreesWithTheStoredOne_data();
    void thePresentPasswordInOneFieldAgreesWithTheStoredOne();
    void aPastedPasswordReplacesTheFillerWhole();
    void theReturnKeyInAPasswordFieldSavesAndKeepsThePassword_data();
    void theReturnKeyInAPasswordFieldSavesAndKeepsThePassword();
    void theEscapeKeyInAPasswordFieldKeepsThePassword();
    void aUserWithoutAPasswordNeedsOne();
    void aPasswordOfAnyKindIsTaken_data();
    void aPasswordOfAnyKindIsTaken();
    void theFieldsEchoWhileTheyAreEdited();
};

void TestAccessPassword::saveIsOffUntilNothingIsMissing_data()
{
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("confirmation");
    QTest::addColumn<QString>("tip");

    const QString none;
    QTest::newRow("nothing after everything")
        << none << none << none << text("Username and Password cannot be empty.");
    QTest::newRow("no username") << none << text("x") << text("x") << text("Username cannot be empty.");
    QTest::newRow("no password") << text("ada") << none << none << text("Password cannot be empty.");
    QTest::newRow("no confirmation") << text("ada") << text("x") << none << kNoMatch;
    QTest::newRow("no password but a confirmation") << text("ada") << none << text("x") << kNoMatch;
    QTest::newRow("another confirmation, and no username") << none << text("x") << text("y") << kNoMatch;
    QTest::newRow("upper and lower case differ") << text("ada") << text("X") << text("x") << kNoMatch;
    QTest::newRow("a trailing blank differs") << text("ada") << text("x") << text("x ") << kNoMatch;
    QTest::newRow("everything") << text("ada") << text("x") << text("x") << none;
    QTest::newRow("blanks count as text") << text(" ") << text(" ") << text(" ") << none;
}

void TestAccessPassword::saveIsOffUntilNothingIsMissing()
{
    QFETCH(QString, username);
    QFETCH(QString, password);
    QFETCH(QString, confirmation);
    QFETCH(QString, tip);
    QVERIFY(newInternalUser(
        {typeInto(kName, text("q")), typeInto(kPassword, text("q")), typeInto(kConfirm, text("q")),
         [](QDialog &dialog) { QVERIFY(isSavable(dialog)); }, typeInto(kPassword, password),
         typeInto(kConfirm, confirmation), typeInto(kName, username),
         [tip](QDialog &dialog) {
             QCOMPARE(saveTip(dialog), tip);
             QCOMPARE(isSavable(dialog), tip.isEmpty());
             dialog.done(QDialog::Accepted);
         }}));
}

void TestAccessPassword::theSameTextTwiceGivesAHashAndANewSaltWhenTheyAgree()
{
    Told told;
    const OperatorModel oper =
        newInternalUser({told.listen(), typeInto(kName, text("ada")), typeInto(kPassword, text("secret")),
                         typeInto(kConfirm, text("secre")),
                         [&](QDialog &dialog) {
                             QCOMPARE(told.count(), 0);
                             QVERIFY(!isSavable(dialog));
                             QCOMPARE(saveTip(dialog), kNoMatch);
                             QTest::keyClick(shown<QLineEdit>(dialog, kConfirm), 't');
                             QCOMPARE(told.count(), 1);
                             QCOMPARE(told.salt().size(), 16);
                             QCOMPARE(told.hash(), PasswordHelper::hashPassword(text("secret"), told.salt()));
                             QVERIFY(isSavable(dialog));
                             QVERIFY(saveTip(dialog).isEmpty());
                         },
                         press("save_button")});
    QCOMPARE(oper->passwordHash(), PasswordHelper::hashPassword(text("secret"), oper->salt()));
}

void TestAccessPassword::changingTheConfirmationAfterwardsTurnsSaveOff()
{
    QVERIFY(newInternalUser(
        {typeInto(kName, text("ada")), typeInto(kPassword, text("secret")),
         typeInto(kConfirm, text("secret")), [](QDialog &dialog) { QVERIFY(isSavable(dialog)); },
         [](QDialog &dialog) { QTest::keyClick(shown<QLineEdit>(dialog, kConfirm), 's'); },
         [](QDialog &dialog) {
             QVERIFY(!isSavable(dialog));
             QCOMPARE(saveTip(dialog), kNoMatch);
             QTest::keyClick(shown<QLineEdit>(dialog, kConfirm), Qt::Key_Return);
             QVERIFY(dialog.isVisible());
             dialog.done(QDialog::Accepted);
         }}));
}

void TestAccessPassword::eachAgreementGivesAFreshSalt()
{
    Told told;
    QStringList salts;
    const auto note = [&](QDialog &dialog) {
        QVERIFY(isSavable(dialog));
        QCOMPARE(told.hash(), PasswordHelper::hashPassword(text("secret"), told.salt()));
        salts.append(told.salt());
    };
    const auto again = [](QDialog &dialog) {
        QTest::keyClick(shown<QLineEdit>(dialog, kConfirm), 'x');
        QTest::keyClick(shown<QLineEdit>(dialog, kConfirm), Qt::Key_Backspace);
    };
    const OperatorModel oper = newInternalUser(
        {told.listen(), typeInto(kName, text("ada")), typeInto(kPassword, text("secret")),
         typeInto(kConfirm, text("secret")), note, again, note, again, note, press("save_button")});
    QCOMPARE(told.count(), 3);
    QCOMPARE(salts.removeDuplicates(), 0);
    QCOMPARE(oper->salt(), salts.last());
    QCOMPARE(oper->passwordHash(), told.hash());
}

void TestAccessPassword::thePasswordCanBeChangedInEitherOrder()
{
    const OperatorModel oper = newInternalUser(
        {typeInto(kName, text("ada")), typeInto(kConfirm, text("first")), typeInto(kPassword, text("first")),
         typeInto(kPassword, text("second")), [](QDialog &dialog) { QVERIFY(!isSavable(dialog)); },
         typeInto(kConfirm, text("second")), press("save_button")});
    QVERIFY(PasswordHelper::isPassword(text("second"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::aForgottenUsernameIsTold()
{
    const OperatorModel oper =
        newInternalUser({typeInto(kPassword, text("secret")), typeInto(kConfirm, text("secret")),
                         [](QDialog &dialog) {
                             QVERIFY(!isSavable(dialog));
                             QCOMPARE(saveTip(dialog), text("Username cannot be empty."));
                         },
                         typeInto(kName, text("ada")), press("save_button")});
    QVERIFY(PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::anExistingPasswordShowsAFillerThatIsNoneOfIt()
{
    QStringList fillers;
    const auto look = [&fillers](QDialog &dialog) {
        const QString filler = shown<QLineEdit>(dialog, kPassword)->text();
        QCOMPARE(filler.size(), 6);
        for (const QChar letter : filler)
            QVERIFY(letter >= QLatin1Char('a') && letter <= QLatin1Char('y'));
        QCOMPARE(shown<QLineEdit>(dialog, kConfirm)->text(), filler);
        QVERIFY(!shown<QLineEdit>(dialog, kPassword)->displayText().contains(filler));
        QVERIFY(shown<QLineEdit>(dialog, kPassword)->isEnabled());
        fillers.append(filler);
    };
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QCOMPARE(edit(button, {look, pressKey(Qt::Key_Escape)}), int(QDialog::Rejected));
    QCOMPARE(edit(button, {look, pressKey(Qt::Key_Escape)}), int(QDialog::Rejected));
    QVERIFY(fillers.value(0) != fillers.value(1));
}

void TestAccessPassword::typingReplacesTheFillerWhole()
{
    AccessUser button(storedOperator(1, text("ada")), nullptr);
    QCOMPARE(edit(button, {[](QDialog &dialog) {
                               auto *field = shown<QLineEdit>(dialog, kPassword);
                               QTest::mouseClick(field, Qt::LeftButton);
                               QTest::keyClicks(field, text("new"));
                               QCOMPARE(field->text(), text("new"));
                               QCOMPARE(saveTip(dialog), kNoMatch);
                           },
                           [](QDialog &dialog) {
                               dialog.done(QDialog::Accepted);
                           }}),
             int(QDialog::Accepted));
}

void TestAccessPassword::aNewPasswordOfAnExistingUserReplacesTheOldOne()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QString oldSalt = oper->salt();
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {typeInto(kPassword, text("new")), typeInto(kConfirm, text("new")),
                           [&](QDialog &) { QCOMPARE(oper->salt(), oldSalt); }, press("save_button")}),
             int(QDialog::Accepted));
    QVERIFY(oper->salt() != oldSalt);
    QVERIFY(PasswordHelper::isPassword(text("new"), oper->salt(), oper->passwordHash()));
    QVERIFY(!PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::thePresentPasswordInOneFieldAgreesWithTheStoredOne_data()
{
    QTest::addColumn<QString>("field");

    QTest::newRow("in that of the password") << text(kPassword);
    QTest::newRow("in that of the confirmation") << text(kConfirm);
}

void TestAccessPassword::thePresentPasswordInOneFieldAgreesWithTheStoredOne()
{
    QFETCH(QString, field);
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QString oldSalt = oper->salt();
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {typeInto(field == text(kConfirm) ? kConfirm : kPassword, text("secret")),
                           press("save_button")}),
             int(QDialog::Accepted));
    QVERIFY(oper->salt() != oldSalt);
    QVERIFY(PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::aPastedPasswordReplacesTheFillerWhole()
{
    QApplication::clipboard()->setText(text("pasted"));
    const auto clickInto = [](const char *name) {
        return [name](QDialog &dialog) {
            auto *field = shown<QLineEdit>(dialog, name);
            QTest::mouseClick(field, Qt::LeftButton, {}, QPoint(field->width() - 5, field->height() / 2));
        };
    };
    const auto paste = [](QDialog &dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_V, Qt::ControlModifier);
    };
    const OperatorModel oper = storedOperator(1, text("ada"));
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {clickInto(kPassword), clickInto(kPassword), paste, clickInto(kConfirm), paste,
                           press("save_button")}),
             int(QDialog::Accepted));
    QVERIFY(PasswordHelper::isPassword(text("pasted"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::theReturnKeyInAPasswordFieldSavesAndKeepsThePassword_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("key");

    QTest::newRow("Return in that of the password") << text(kPassword) << int(Qt::Key_Return);
    QTest::newRow("Enter in that of the password") << text(kPassword) << int(Qt::Key_Enter);
    QTest::newRow("Return in that of the confirmation") << text(kConfirm) << int(Qt::Key_Return);
}

void TestAccessPassword::theReturnKeyInAPasswordFieldSavesAndKeepsThePassword()
{
    QFETCH(QString, field);
    QFETCH(int, key);
    const OperatorModel oper = storedOperator(1, text("ada"));
    const QStringList before = valuesOf(oper);
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {giveFocus(field), pressKey(Qt::Key(key))}), int(QDialog::Accepted));
    QCOMPARE(valuesOf(oper), before);
}

void TestAccessPassword::theEscapeKeyInAPasswordFieldKeepsThePassword()
{
    const MessageBoxes boxes({text("Cancel")});
    const OperatorModel oper = storedOperator(1, text("ada"));
    AccessUser button(oper, nullptr);
    QCOMPARE(edit(button, {typeInto("last_name_edit", text("Byron")), giveFocus(text(kPassword)),
                           pressKey(Qt::Key_Escape),
                           [](QDialog &dialog) {
                               QVERIFY(isSavable(dialog));
                               dialog.done(QDialog::Accepted);
                           }}),
             int(QDialog::Accepted));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(oper->lastName(), text("Byron"));
    QVERIFY(PasswordHelper::isPassword(text("secret"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::aUserWithoutAPasswordNeedsOne()
{
    const OperatorModel oper = storedOperator(1, text("ada"));
    oper->setPasswordHash(QString());
    oper->setSalt(QString());
    AccessUser button(oper, nullptr);
    QCOMPARE(
        edit(button, {[](QDialog &dialog) {
                          QVERIFY(!isSavable(dialog));
                          QCOMPARE(saveTip(dialog), text("Username and Password cannot be empty"));
                          QVERIFY(shown<QLineEdit>(dialog, kPassword)->text().isEmpty());
                      },
                      typeInto(kName, text("lovelace")),
                      [](QDialog &dialog) {
                          QVERIFY(!isSavable(dialog));
                          QCOMPARE(saveTip(dialog), text("Password cannot be empty."));
                      },
                      typeInto(kPassword, text("p")), typeInto(kConfirm, text("p")), press("save_button")}),
        int(QDialog::Accepted));
    QVERIFY(PasswordHelper::isPassword(text("p"), oper->salt(), oper->passwordHash()));
}

void TestAccessPassword::aPasswordOfAnyKindIsTaken_data()
{
    QTest::addColumn<QString>("password");

    QTest::newRow("blanks") << text("   ");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('x'));
    QTest::newRow("quotes and marks") << text("O'Brien \"the\" `boss`; DROP -- <b>&amp;");
    QTest::newRow("right to left") << text("\u05de\u05e0\u05d4\u05dc \u0645\u062f\u064a\u0631");
    QTest::newRow("combining letters are no composed ones") << text("e\u0301\u0327 a\u0308");
    QTest::newRow("beyond the basic plane") << text("\U0001F637 \U00020000");
}

void TestAccessPassword::aPasswordOfAnyKindIsTaken()
{
    QFETCH(QString, password);
    const auto paste = [&password](const char *name) {
        return [&password, name](QDialog &dialog) {
            auto *field = shown<QLineEdit>(dialog, name);
            QTest::mouseClick(field, Qt::LeftButton);
            field->insert(password);
        };
    };
    const OperatorModel oper = newInternalUser(
        {typeInto(kName, text("ada")), paste(kPassword), paste(kConfirm), press("save_button")});
    QCOMPARE(oper->passwordHash(), PasswordHelper::hashPassword(password, oper->salt()));
}

void TestAccessPassword::theFieldsEchoWhileTheyAreEdited()
{
    QVERIFY(!newInternalUser({[](QDialog &dialog) {
                                  for (const char *name : {kPassword, kConfirm}) {
                                      QCOMPARE(shown<QLineEdit>(dialog, name)->echoMode(),
                                               QLineEdit::PasswordEchoOnEdit);
                                  }
                              },
                              pressKey(Qt::Key_Escape)}));
}

QTEST_MAIN(TestAccessPassword)
#include "test_accesspassword.moc"
