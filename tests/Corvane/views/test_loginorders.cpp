#include "CommunicationAndData/access/accesscontrol.h"
#include "loginfixture.h"
#include "testaccount.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// What a person does on the sign-in view out of turn: choosing while a sign-in is under way, pressing twice,
/// changing the language half-way.
class TestLoginOrders : public LoginFixture
{
    Q_OBJECT

private slots:
    void aChoiceWhileAWindowsUserSignsInCountsForNothing();
    void aChoiceWhileAnInternalUserSignsInCountsForNothing();
    void aChoiceCountsAgainAfterAFailure();
    void aSecondPressDuringAnAdministratorsSignInAsksForNothing();
    void returnOnAFocusedButtonPressesIt();
    void aHeldReturnTriesOnce_data();
    void aHeldReturnTriesOnce();
    void goingBackForgetsThePassword();
    void aPastedNameAndPasswordLoseTheEndsOfTheirLines();
    void aChangeOfLanguageKeepsTheTypedTextAndTheWay();

private:
    /// The arrow takes the first entry, the current user, at once.
    void chooseCurrentUserByKey()
    {
        QTest::keyClick(find<QComboBox>(kAdministrator), Qt::Key_Down);
    }
    UuidString signedInOperator() const
    {
        return m_loggedIn->first().first().value<AccessControl *>()->getOperator()->operatorID();
    }
};

void TestLoginOrders::aChoiceWhileAWindowsUserSignsInCountsForNothing()
{
    const UuidString id = m_database->addOperator(OperatorModelData::WindowsUser, currentAccount(), 0x5);
    choose(kAuthenticated, kWindowsUser);
    chooseCurrentUserByKey();
    QCOMPARE(status(), QStringLiteral("Signing in."));
    QVERIFY(bothBoxesAreEmpty());
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(signedInOperator(), id);
    QCOMPARE(m_errors->size(), 0);
}

void TestLoginOrders::aChoiceWhileAnInternalUserSignsInCountsForNothing()
{
    const UuidString id = m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "s3cret");
    clickSignIn();
    QTest::mouseClick(find<QPushButton>("go_back_button"), Qt::LeftButton);
    chooseCurrentUserByKey();
    QVERIFY(bothBoxesAreEmpty());
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(signedInOperator(), id);
    QCOMPARE(m_errors->size(), 0);
}

void TestLoginOrders::aChoiceCountsAgainAfterAFailure()
{
    const UuidString id = m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kWindowsUser);
    QTest::keyClick(find<QComboBox>(kAuthenticated), Qt::Key_End);
    QCOMPARE(page(), QStringLiteral("selection_page"));
    QTRY_COMPARE(status(), kFailed);
    QTest::keyClick(find<QComboBox>(kAuthenticated), Qt::Key_End);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(signedInOperator(), id);
}

void TestLoginOrders::aSecondPressDuringAnAdministratorsSignInAsksForNothing()
{
    if (!TestAccount::obstacle().isEmpty())
        QSKIP(qPrintable(TestAccount::obstacle()));
    const TestAccount account({QStringLiteral("sudo")});
    QVERIFY(account.exists());
    choose(kAdministrator, kOtherUser);
    fillIn(account.name(), account.password());
    clickSignIn();
    fillIn("somebody else", "");
    clickSignIn();
    QCOMPARE(status(), QStringLiteral("Signing in."));
    QTRY_COMPARE(m_loggedIn->size(), 1);
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(access->getOperator()->username(), account.name());
    QVERIFY(!access->getOperator()->operatorID().isNull());
}

void TestLoginOrders::returnOnAFocusedButtonPressesIt()
{
    choose(kAdministrator, kOtherUser);
    auto *signIn = find<QPushButton>("sign_in_button");
    signIn->setFocus();
    QTest::keyClick(signIn, Qt::Key_Return);
    QCOMPARE(status(), QStringLiteral("Username needed."));
    auto *goBack = find<QPushButton>("go_back_button");
    goBack->setFocus();
    QTest::keyClick(goBack, Qt::Key_Return);
    QCOMPARE(page(), QStringLiteral("selection_page"));
}

void TestLoginOrders::aHeldReturnTriesOnce_data()
{
    QTest::addColumn<QString>("widget");
    QTest::newRow("in the name") << "username_edit";
    QTest::newRow("in the password") << "password_edit";
    QTest::newRow("on the button") << "sign_in_button";
}

void TestLoginOrders::aHeldReturnTriesOnce()
{
    QFETCH(QString, widget);
    const auto press = [&](bool repeated) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), repeated);
        QCoreApplication::sendEvent(find<QWidget>(widget), &key);
    };
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "wrong");
    press(false);
    QTRY_COMPARE(m_errors->size(), 1);
    QTRY_VERIFY(m_view->findChildren<AccessControl *>().isEmpty());
    press(true);
    QVERIFY(m_view->findChildren<AccessControl *>().isEmpty());
    press(false);
    QTRY_COMPARE(m_errors->size(), 2);
}

void TestLoginOrders::goingBackForgetsThePassword()
{
    choose(kAdministrator, kOtherUser);
    fillIn("anna", "s3cret");
    QTest::mouseClick(find<QPushButton>("go_back_button"), Qt::LeftButton);
    QCOMPARE(page(), QStringLiteral("selection_page"));
    QCOMPARE(find<QLineEdit>("password_edit")->text(), QString());
}

void TestLoginOrders::aPastedNameAndPasswordLoseTheEndsOfTheirLines()
{
    const UuidString id = m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    const auto paste = [this](const char *field, const char *text) {
        QGuiApplication::clipboard()->setText(QLatin1String(text));
        find<QLineEdit>(field)->paste();
    };
    paste("username_edit", "anna\r\n");
    paste("password_edit", "s3cret\n");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(signedInOperator(), id);
}

void TestLoginOrders::aChangeOfLanguageKeepsTheTypedTextAndTheWay()
{
    const UuidString id = m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "s3cret");
    find<QLineEdit>("password_edit")->setFocus();
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_view.get(), &change);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    QVERIFY(find<QLineEdit>("password_edit")->hasFocus());
    QTest::keyClick(find<QLineEdit>("password_edit"), Qt::Key_Return);
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(signedInOperator(), id);
}

QTEST_MAIN(TestLoginOrders)
#include "test_loginorders.moc"
