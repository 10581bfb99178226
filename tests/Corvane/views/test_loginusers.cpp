#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "loginfixture.h"
#include "support/messageboxes.h"

#include <QComboBox>
#include <QHostInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>

/// Authenticated users who sign in, internal ones and those of the system, and the connection that they need.
class TestLoginUsers : public LoginFixture
{
    Q_OBJECT

private slots:
    void internalUserSignsIn();
    void emptyPasswordOfAnInternalUserGoesToTheLogin();
    void failureKeepsTheSignInPageWithTheTypedText();
    void windowsUserSignsInByAGroup();
    void windowsUserSignsInByTheAccountWhenNoGroupFits();
    void windowsUserWhomNothingFitsFailsOnce();
    void cancelledConnectionDialogChangesNothing();
    void connectionDialogLeadsOnToTheSignInPage();
    void offlineDatabaseIsOfferedOnlyAfterTheSignIn();
    void withoutAHandlerTheAuthenticatedWaysDoNothing();
    void noSecondLoginWhileAnAccessControlExists();
    void successIsToldBeforeItIsRecorded();
    void refusedConnectionLeadsNowhere();
    void aFailedStatementIsFollowedByANewConnection_data();
    void aFailedStatementIsFollowedByANewConnection();

private:
    int warningLines() const
    {
        return readFile(m_workstation->runtimeLog()).count("\nWRN ");
    }
};

void TestLoginUsers::internalUserSignsIn()
{
    const UuidString id = m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    QVERIFY(bothBoxesAreEmpty());
    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(static_cast<int>(access->allowedAccessTypes()), 0x5);
    QCOMPARE(access->getOperator()->operatorID(), id);
    QVERIFY(find<QLineEdit>("password_edit")->text().isEmpty());
}

void TestLoginUsers::emptyPasswordOfAnInternalUserGoesToTheLogin()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "");
    clickSignIn();
    QTRY_COMPARE(m_errors->size(), 1);
    QCOMPARE(status(), kFailed);
}

void TestLoginUsers::failureKeepsTheSignInPageWithTheTypedText()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    const int failures = logLines("WRN CV: ", "Login failed.");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "wrong");
    clickSignIn();
    QTRY_COMPARE(status(), kFailed);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    QCOMPARE(find<QLineEdit>("username_edit")->text(), QStringLiteral("anna"));
    QCOMPARE(find<QLineEdit>("password_edit")->text(), QStringLiteral("wrong"));
    QCOMPARE(m_errors->size(), 1);
    QCOMPARE(m_errors->first().at(0).value<Actions::Action>(), Actions::Login);
    QCOMPARE(m_errors->first().at(1).value<ZephanError>(), 0x14200001u);
    QCOMPARE(logLines("WRN CV: ", "Login failed."), failures + 1);
    QTRY_COMPARE(m_view->findChildren<AccessControl *>().size(), 0);

    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
}

void TestLoginUsers::windowsUserSignsInByAGroup()
{
    const QString group = currentUserGroups().value(0);
    QVERIFY(!group.isEmpty());
    m_database->addOperator(OperatorModelData::WindowsGroup, group, 0x4);
    choose(kAuthenticated, kWindowsUser);
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QCOMPARE(page(), QStringLiteral("selection_page"));
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(static_cast<int>(access->allowedAccessTypes()), 0x4);
}

void TestLoginUsers::windowsUserSignsInByTheAccountWhenNoGroupFits()
{
    const UuidString id = m_database->addOperator(OperatorModelData::WindowsUser, currentAccount(), 0x1);
    choose(kAuthenticated, kWindowsUser);
    QCOMPARE(status(), QStringLiteral("Signing in."));
    QTRY_COMPARE(m_loggedIn->size(), 1);
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(access->getOperator()->operatorID(), id);
    QCOMPARE(static_cast<int>(access->allowedAccessTypes()), 0x1);
    QCOMPARE(m_errors->size(), 0);
    QCOMPARE(m_actions->size(), 1);
    QVERIFY(status() != kFailed);
    QTRY_COMPARE(m_view->findChildren<AccessControl *>(), QList<AccessControl *>{access});
}

void TestLoginUsers::windowsUserWhomNothingFitsFailsOnce()
{
    const int warnings = warningLines();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        choose(kAuthenticated, kWindowsUser);
        QTRY_COMPARE(status(), kFailed);
        QCOMPARE(m_errors->size(), attempt);
        QCOMPARE(m_errors->last().at(1).value<ZephanError>(), 0x14200001u);
        QCOMPARE(warningLines(), warnings + attempt);  // that it failed, and nothing of the two ways
    }
    QCOMPARE(m_loggedIn->size() + m_actions->size(), 0);
}

void TestLoginUsers::cancelledConnectionDialogChangesNothing()
{
    m_handler->closeConnection();
    for (const int entry : {kWindowsUser, kInternalUser}) {
        answerDialog("cancel_button");
        choose(kAuthenticated, entry);
        QCOMPARE(page(), QStringLiteral("selection_page"));
        QCOMPARE(status(), QString());
        QVERIFY(bothBoxesAreEmpty());
    }
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 0);
}

void TestLoginUsers::connectionDialogLeadsOnToTheSignInPage()
{
    m_handler->closeConnection();
    answerDialog("connect_button");
    choose(kAuthenticated, kInternalUser);
    QVERIFY(m_handler->isConnected());
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
}

void TestLoginUsers::offlineDatabaseIsOfferedOnlyAfterTheSignIn()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    bool offered = true;
    const auto lookForTheMode = [&](const QWidget *dialog) {
        const auto *mode = dialog->findChild<QComboBox *>("online_mode_combo");
        offered = mode && mode->isVisible();
    };
    answerDialog("cancel_button", lookForTheMode);
    m_handler->connectionOptions();
    QVERIFY(!offered);

    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
    answerDialog("cancel_button", lookForTheMode);
    m_handler->connectionOptions();
    QVERIFY(offered);
}

void TestLoginUsers::withoutAHandlerTheAuthenticatedWaysDoNothing()
{
    m_view = std::make_unique<LoginView>(nullptr, nullptr);
    m_view->show();
    for (const int entry : {kWindowsUser, kInternalUser}) {
        choose(kAuthenticated, entry);
        QCOMPARE(page(), QStringLiteral("selection_page"));
        QCOMPARE(status(), QString());
        QVERIFY(bothBoxesAreEmpty());
    }
    choose(kAdministrator, kOtherUser);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
}

void TestLoginUsers::noSecondLoginWhileAnAccessControlExists()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "s3cret");
    clickSignIn();
    clickSignIn();
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 1);
    QTRY_COMPARE(m_loggedIn->size(), 1);
    m_view->logInUser();
    QCoreApplication::processEvents();
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 1);
    QCOMPARE(m_loggedIn->size(), 1);
}

void TestLoginUsers::successIsToldBeforeItIsRecorded()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    const int successes = logLines("INF ??: ", "Logged in.");
    QStringList order;
    connect(m_view.get(), &LoginView::loggedIn, this, [&order] { order.append("logged in"); });
    connect(m_view.get(), &LoginView::logAction, this, [&order] { order.append("recorded"); });
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(order, (QStringList{"logged in", "recorded"}));
    const QList<QVariant> login = m_actions->first();
    QCOMPARE(login.at(0).value<Actions::Action>(), Actions::Login);
    QCOMPARE(login.at(1).value<Actions::ActionType>(), Actions::Human);
    QCOMPARE(login.at(2).value<UuidString>(), UuidString());
    QCOMPARE(login.at(3).toString(), QString());
    QCOMPARE(login.at(4).toString(), QHostInfo::localHostName());
    QCOMPARE(login.at(5).toString(), QStringLiteral("Corvane"));
    QCOMPARE(logLines("INF ??: ", "Logged in."), successes + 1);
}

void TestLoginUsers::refusedConnectionLeadsNowhere()
{
    m_handler->closeConnection();
    for (const int entry : {kWindowsUser, kInternalUser}) {
        MessageBoxes boxes;
        answerDialog("connect_button", [](QWidget *dialog) {
            dialog->findChild<QLineEdit *>("connection_setting_1")->setText("Database=/nowhere/access.db");
        });
        choose(kAuthenticated, entry);
        QCOMPARE(boxes.seen().size(), 1);
        QCOMPARE(boxes.seen().first().text, QStringLiteral("Connection failed"));
        QCOMPARE(page(), QStringLiteral("selection_page"));
        QCOMPARE(status(), QString());
        QVERIFY(bothBoxesAreEmpty());
    }
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 0);
    QCOMPARE(m_loggedIn->size() + m_actions->size() + m_errors->size(), 0);
}

void TestLoginUsers::aFailedStatementIsFollowedByANewConnection_data()
{
    QTest::addColumn<int>("entry");
    QTest::newRow("of an internal user, at the next press of the button") << kInternalUser;
    QTest::newRow("of a Windows user, by the connection's dialog") << kWindowsUser;
}

void TestLoginUsers::aFailedStatementIsFollowedByANewConnection()
{
    QFETCH(int, entry);
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    m_database->addOperator(OperatorModelData::WindowsUser, currentAccount(), 0x5);
    QSignalSpy closed(m_handler.get(), SIGNAL(logAction(Actions::Action, Actions::ActionType, UuidString,
                                                        QString, QString, QVariant)));
    const auto rename = [this](const QString &from, const QString &to) {
        QSqlQuery query(*m_handler->database());
        return query.exec(QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(from, to));
    };
    QVERIFY(rename("operator", "hidden"));
    choose(kAuthenticated, entry);
    if (entry == kInternalUser) {
        fillIn("anna", "s3cret");
        clickSignIn();
    }
    QTRY_COMPARE(status(), kFailed);
    QCOMPARE(m_errors->size(), 1);
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(closed.size(), 1);
    QCOMPARE(closed.first().first().value<Actions::Action>(), Actions::Stopping);

    m_database->run("ALTER TABLE hidden RENAME TO operator");
    if (entry == kInternalUser) {
        clickSignIn();
    } else {
        answerDialog("connect_button");
        choose(kAuthenticated, entry);
    }
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QVERIFY(m_handler->isConnected());
}

QTEST_MAIN(TestLoginUsers)
#include "test_loginusers.moc"
