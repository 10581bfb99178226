#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "ZephanShared/toolkit/zephanerror.h"
#include "loginfixture.h"
#include "support/ordinaryuser.h"
#include "testaccount.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTranslator>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <unistd.h>

namespace {

QVariant storedRights()
{
    return SettingsHandler::getInstance()->safeValue(SettingsKeys::kDefaultRights);
}

/// Whether the account that runs the test is an administrator: anybody may run it.
bool isAdministrator()
{
    UuidString id;
    QString error;
    return isCurrentUserAdmin(id, error);
}

/// A language that says everything at length.
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override
    {
        return false;
    }
    QString translate(const char *, const char *, const char * = nullptr, int = -1) const override
    {
        return QString::fromUtf8("Ein Benutzername ist für die Anmeldung erforderlich.");
    }
};

}  // namespace

/// What the sign-in view shows, how its pages are used, and administrators who sign in.
class TestLoginView : public LoginFixture
{
    Q_OBJECT

private slots:
    void selectionPageOffersTheWays();
    void spareHeightIsSharedAmongLabelsBoxesAndGaps();
    void textsFollowTheLanguage();
    void theStatusFitsItsLabelInLongLanguages();
    void aTurnOfTheWheelChoosesNothing_data();
    void aTurnOfTheWheelChoosesNothing();
    void currentAdministratorGetsAllRights();
    void currentUserWithoutAdministratorRightsFails();
    void emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon_data();
    void emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon();
    void anAdministratorWhoTypedNothingYetIsNotSignedIn();
    void otherAdministratorSignsIn_data();
    void otherAdministratorSignsIn();
    void otherAdministratorWithAWrongPasswordFailsWithoutAnAuditEvent();
    void returnInEitherFieldActsLikeTheButton_data();
    void returnInEitherFieldActsLikeTheButton();
    void signInPageSignsInByTheWayThatWasChosenLast();
    void signInPageIsEmptyEachTimeItIsShown();
    void keyboardGoesFromFieldToFieldToTheButtons();
    void defaultRightsHoldTheirOldValueAfterAnyAttempt_data();
    void defaultRightsHoldTheirOldValueAfterAnyAttempt();
    void aCurrentUserWhoIsUnknownIsLogged();
    void aRefusalAfterTheLogonIsToldAndRecorded();

private:
    int unknownUserLines() const
    {
        int count = 0;
        for (const QByteArray &line : readFile(m_workstation->runtimeLog()).split('\n')) {
            if (line.startsWith("WRN CV: ") && line.contains("\tCould not get current user: "))
                ++count;
        }
        return count;
    }
};

void TestLoginView::selectionPageOffersTheWays()
{
    QCOMPARE(page(), QStringLiteral("selection_page"));
    QCOMPARE(find<QLabel>("heading_label")->text(), QStringLiteral("<b>Select to login as:</b>"));
    QCOMPARE(find<QLabel>("windows_administrator_label")->text(), QStringLiteral("Windows administrator:"));
    QCOMPARE(find<QLabel>("authenticated_user_label")->text(), QStringLiteral("Authenticated user:"));
    const auto *administrator = find<QComboBox>(kAdministrator);
    QCOMPARE(administrator->itemText(0), "Current user " + currentAccount().section('\\', -1));
    QCOMPARE(administrator->itemText(1), QStringLiteral("Other user"));
    const auto *authenticated = find<QComboBox>(kAuthenticated);
    QCOMPARE(authenticated->itemText(0), QStringLiteral("Windows user"));
    QCOMPARE(authenticated->itemText(1), QStringLiteral("Application internal user"));
    QVERIFY(bothBoxesAreEmpty());
    for (const QWidget *widget :
         {static_cast<const QWidget *>(administrator), static_cast<const QWidget *>(authenticated),
          static_cast<const QWidget *>(find<QLabel>("heading_label")),
          static_cast<const QWidget *>(find<QLabel>("status_label"))})
        QCOMPARE(widget->size(), QSize(250, 30));
    const int middle = administrator->mapTo(m_view.get(), administrator->rect().center()).x();
    QVERIFY(qAbs(middle - m_view->rect().center().x()) <= 1);
}

void TestLoginView::spareHeightIsSharedAmongLabelsBoxesAndGaps()
{
    const auto shares = [](const QWidget *widget) {
        const auto *layout = qobject_cast<const QVBoxLayout *>(widget->layout());
        QList<int> stretches;
        for (int i = 0; layout && i < layout->count(); ++i)
            stretches.append(layout->stretch(i));
        return stretches;
    };
    const auto *selection = find<QWidget>("selection_page");
    QCOMPARE(shares(selection), (QList<int>{64, 10, 64, 32, 10, 64, 32}));
    QCOMPARE(selection->layout()->spacing(), 3);
    // Above the product label, itself, below it, the pages, below them, the status and the languages.
    QCOMPARE(shares(m_view.get()), (QList<int>{5, 5, 5, 10, 5, 64, 0}));
}

void TestLoginView::textsFollowTheLanguage()
{
    choose(kAdministrator, kOtherUser);
    QCOMPARE(find<QLineEdit>("username_edit")->placeholderText(), QStringLiteral("Username"));
    QCOMPARE(find<QLineEdit>("password_edit")->placeholderText(), QStringLiteral("Password"));
    clickSignIn();
    QCOMPARE(status(), QStringLiteral("Username needed."));

    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_view.get(), &change);
    QCOMPARE(find<QLineEdit>("username_edit")->placeholderText(), QStringLiteral("Enter username"));
    QCOMPARE(find<QLineEdit>("password_edit")->placeholderText(), QStringLiteral("Enter password"));
    QCOMPARE(status(), QString());
}

void TestLoginView::theStatusFitsItsLabelInLongLanguages()
{
    choose(kAdministrator, kOtherUser);
    LongTexts language;
    QCoreApplication::installTranslator(&language);
    clickSignIn();
    const auto *label = find<QLabel>("status_label");
    QCOMPARE(label->text(), language.translate(nullptr, nullptr));
    QVERIFY(label->wordWrap());
    const QRect room = label->rect();
    QCOMPARE(room.size(), QSize(250, 30));
    QVERIFY(room.contains(label->fontMetrics().boundingRect(room, Qt::TextWordWrap, label->text())));
}

void TestLoginView::aTurnOfTheWheelChoosesNothing_data()
{
    QTest::addColumn<QString>("combo");
    QTest::newRow("of an administrator") << kAdministrator;
    QTest::newRow("of an authenticated user") << kAuthenticated;
}

void TestLoginView::aTurnOfTheWheelChoosesNothing()
{
    QFETCH(QString, combo);
    auto *box = find<QComboBox>(combo);
    box->setFocus();
    QSignalSpy activated(box, SIGNAL(activated(int)));
    const QPointF middle = box->rect().center();
    for (const int delta : {-120, 120}) {
        QWheelEvent wheel(middle, box->mapToGlobal(middle.toPoint()), {}, {0, delta}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &wheel);
        QCoreApplication::processEvents();
        QCOMPARE(page(), QStringLiteral("selection_page"));
        QCOMPARE(status(), QString());
        QVERIFY(bothBoxesAreEmpty());
    }
    QCOMPARE(activated.size() + m_loggedIn->size() + m_actions->size() + m_errors->size(), 0);
}

void TestLoginView::currentAdministratorGetsAllRights()
{
    if (!isAdministrator())
        QSKIP("only root is sure to be an administrator");
    choose(kAdministrator, kCurrentUser);
    QTRY_COMPARE(m_loggedIn->size(), 1);
    QVERIFY(bothBoxesAreEmpty());
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(access->parent(), m_view.get());
    QVERIFY(access->isAllowed(AccessControlManagement) && access->isAllowed(AuditTrailManagement));
    QCOMPARE(static_cast<int>(access->allowedAccessTypes()), -1);
    QCOMPARE(access->getOperator()->username(), currentAccount());
    UuidString id;
    QString error;
    QVERIFY(isCurrentUserAdmin(id, error));
    QCOMPARE(access->getOperator()->operatorID(), id);
}

void TestLoginView::currentUserWithoutAdministratorRightsFails()
{
    {
        const OrdinaryUser nobody;
        if (isAdministrator())
            QSKIP("only root can lay the rights of an administrator down");
        choose(kAdministrator, kCurrentUser);
    }
    QCOMPARE(status(), kFailed);
    QVERIFY(bothBoxesAreEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(m_loggedIn->size() + m_actions->size() + m_errors->size(), 0);
}

void TestLoginView::emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("told");

    QTest::newRow("no name") << ""
                             << "secret"
                             << "Username needed.";
    QTest::newRow("no name and no password") << ""
                                             << ""
                                             << "Username needed.";
    QTest::newRow("no password") << "root"
                                 << ""
                                 << "Password needed.";
}

void TestLoginView::emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(QString, told);
    choose(kAdministrator, kOtherUser);
    fillIn(user, password);
    const int failures = readFile(m_workstation->runtimeLog()).count("Login failure");
    clickSignIn();
    QCOMPARE(status(), told);
    QCOMPARE(readFile(m_workstation->runtimeLog()).count("Login failure"), failures);
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 0);
}

void TestLoginView::anAdministratorWhoTypedNothingYetIsNotSignedIn()
{
    QVERIFY(QMetaObject::invokeMethod(m_view.get(), "logInAdmin"));
    QCOMPARE(page(), QStringLiteral("selection_page"));
    QCOMPARE(status(), QString());
    QCOMPARE(m_view->findChildren<AccessControl *>().size(), 0);
}

void TestLoginView::otherAdministratorSignsIn_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<bool>("admitted");

    QTest::newRow("the name alone") << "USER" << true;
    QTest::newRow("domain and name") << "DOMAIN\\USER" << true;
    QTest::newRow("a leading double backslash makes no difference") << "\\\\DOMAIN\\USER" << true;
    QTest::newRow("of three parts the middle one is lost") << "DOMAIN\\lost\\USER" << true;
    QTest::newRow("another domain") << "elsewhere\\USER" << false;
    QTest::newRow("only backslashes") << "\\\\" << false;
}

void TestLoginView::otherAdministratorSignsIn()
{
    QFETCH(QString, form);
    QFETCH(bool, admitted);
    if (!TestAccount::obstacle().isEmpty())
        QSKIP(qPrintable(TestAccount::obstacle()));
    const TestAccount account({QStringLiteral("sudo")});
    QVERIFY(account.exists());
    const QString typed =
        QString(form).replace("USER", account.name()).replace("DOMAIN", currentAccount().section('\\', 0, 0));

    choose(kAdministrator, kOtherUser);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    fillIn(typed, account.password());
    clickSignIn();
    if (!admitted) {
        QCOMPARE(status(), kFailed);
        return;
    }
    QTRY_COMPARE(m_loggedIn->size(), 1);
    auto *access = m_loggedIn->first().first().value<AccessControl *>();
    QCOMPARE(access->getOperator()->username(), typed);
    QVERIFY(!access->getOperator()->operatorID().isNull());
    QCOMPARE(static_cast<int>(access->allowedAccessTypes()), -1);
    QVERIFY(find<QLineEdit>("password_edit")->text().isEmpty());
}

void TestLoginView::otherAdministratorWithAWrongPasswordFailsWithoutAnAuditEvent()
{
    choose(kAdministrator, kOtherUser);
    fillIn("root", "certainly not the password");
    clickSignIn();
    QCOMPARE(status(), kFailed);
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
    QCOMPARE(find<QLineEdit>("username_edit")->text(), QStringLiteral("root"));
    QCOMPARE(find<QLineEdit>("password_edit")->text(), QStringLiteral("certainly not the password"));
    QCOMPARE(m_loggedIn->size() + m_actions->size() + m_errors->size(), 0);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!readFile(m_workstation->runtimeLog()).contains("certainly not"));
}

void TestLoginView::returnInEitherFieldActsLikeTheButton_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QString>("field");

    QTest::newRow("in the name of another administrator") << kAdministrator << "username_edit";
    QTest::newRow("in the password of another administrator") << kAdministrator << "password_edit";
    QTest::newRow("in the name of an internal user") << kAuthenticated << "username_edit";
    QTest::newRow("in the password of an internal user") << kAuthenticated << "password_edit";
}

void TestLoginView::returnInEitherFieldActsLikeTheButton()
{
    QFETCH(QString, combo);
    QFETCH(QString, field);
    choose(combo, 1);
    find<QLineEdit>("username_edit")->setText(QString());
    QTest::keyClick(find<QLineEdit>(field), Qt::Key_Return);
    QTRY_COMPARE(status(), combo == kAdministrator ? QStringLiteral("Username needed.") : kFailed);
}

void TestLoginView::signInPageSignsInByTheWayThatWasChosenLast()
{
    for (int visit = 0; visit < 3; ++visit) {
        choose(kAdministrator, kOtherUser);
        QTest::mouseClick(find<QPushButton>("go_back_button"), Qt::LeftButton);
        QCOMPARE(page(), QStringLiteral("selection_page"));
        choose(kAuthenticated, kInternalUser);
        fillIn("nobody knows", "");
        clickSignIn();
        QTRY_COMPARE(m_errors->size(), visit + 1);
        QCOMPARE(status(), kFailed);
        QTest::mouseClick(find<QPushButton>("go_back_button"), Qt::LeftButton);
    }
    choose(kAdministrator, kOtherUser);
    fillIn("anna", "");
    clickSignIn();
    QCOMPARE(status(), QStringLiteral("Password needed."));
    QCOMPARE(m_errors->size(), 3);
}

void TestLoginView::signInPageIsEmptyEachTimeItIsShown()
{
    choose(kAdministrator, kOtherUser);
    fillIn("anna", "s3cret");
    QTest::mouseClick(find<QPushButton>("go_back_button"), Qt::LeftButton);
    choose(kAdministrator, kOtherUser);
    QCOMPARE(find<QLineEdit>("username_edit")->text(), QString());
    QCOMPARE(find<QLineEdit>("password_edit")->text(), QString());
    QCOMPARE(m_view->findChildren<QWidget *>("sign_in_page").size(), 1);
}

void TestLoginView::keyboardGoesFromFieldToFieldToTheButtons()
{
    choose(kAdministrator, kOtherUser);
    for (const char *name : {"username_edit", "password_edit", "sign_in_button", "go_back_button"}) {
        QTRY_COMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(find<QPushButton>("go_back_button"), Qt::Key_Space);
    QCOMPARE(page(), QStringLiteral("selection_page"));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), kAdministrator);
}

void TestLoginView::defaultRightsHoldTheirOldValueAfterAnyAttempt_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("reported");

    QTest::newRow("of the current administrator")
        << kAdministrator << kCurrentUser << QString() << QString() << true;
    QTest::newRow("of a current user without the rights of an administrator")
        << kAdministrator << kCurrentUser << "nobody" << QString() << false;
    QTest::newRow("of another administrator") << kAdministrator << kOtherUser << "ADMINISTRATOR"
                                              << "" << true;
    QTest::newRow("of another administrator with a wrong password") << kAdministrator << kOtherUser << "root"
                                                                    << "wrong" << false;
    QTest::newRow("of an internal user") << kAuthenticated << kInternalUser << "anna"
                                         << "s3cret" << true;
    QTest::newRow("of an internal user with a wrong password") << kAuthenticated << kInternalUser << "anna"
                                                               << "wrong" << true;
    QTest::newRow("of a Windows user whom nothing fits")
        << kAuthenticated << kWindowsUser << QString() << QString() << true;
}

void TestLoginView::defaultRightsHoldTheirOldValueAfterAnyAttempt()
{
    QFETCH(QString, combo);
    QFETCH(int, entry);
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(bool, reported);
    std::unique_ptr<TestAccount> account;
    std::unique_ptr<OrdinaryUser> nobody;
    if (user == "ADMINISTRATOR") {
        if (!TestAccount::obstacle().isEmpty())
            QSKIP(qPrintable(TestAccount::obstacle()));
        account = std::make_unique<TestAccount>(QStringList{QStringLiteral("sudo")});
        user = account->name();
        password = account->password();
    }
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    if (user == "nobody")
        nobody = std::make_unique<OrdinaryUser>();
    if (combo == kAdministrator && entry == kCurrentUser && isAdministrator() != reported)
        QSKIP("only root is both kinds of account");
    choose(combo, entry);
    nobody.reset();
    if (!password.isEmpty()) {
        fillIn(user, password);
        clickSignIn();
    }
    QCOMPARE(storedRights().toInt(), kStoredRights);
    if (reported)
        QTRY_VERIFY(m_loggedIn->size() + m_errors->size() == 1);
    else
        QCOMPARE(status(), kFailed);
    QCOMPARE(storedRights().toInt(), kStoredRights);
}

void TestLoginView::aCurrentUserWhoIsUnknownIsLogged()
{
    if (geteuid() != 0)
        QSKIP("only root can become a user without an account");
    constexpr uid_t kWithoutAccount = 54321;
    QCOMPARE(unknownUserLines(), 0);
    {
        const OrdinaryUser stranger(kWithoutAccount);
        LoginView view(nullptr, nullptr);
        QCOMPARE(view.findChild<QComboBox *>(kAdministrator)->itemText(0).trimmed(),
                 QStringLiteral("Current user"));
    }
    QCOMPARE(unknownUserLines(), 1);
}

/// An administrator whose rights are not needed is never refused; what would follow is the same as for
/// others.
void TestLoginView::aRefusalAfterTheLogonIsToldAndRecorded()
{
    const int before = logLines("WRN CV: ", "Login failed.");
    QVERIFY(QMetaObject::invokeMethod(m_view.get(), "accessControlLoginResult",
                                      Q_ARG(ZephanError, ZephanErrors::kNoConnection),
                                      Q_ARG(QVariant, QVariant("WS\\root")), Q_ARG(QString, "the cause")));
    QCOMPARE(status(), kFailed);
    QCOMPARE(m_errors->size(), 1);
    QCOMPARE(m_errors->first().at(0).value<Actions::Action>(), Actions::Login);
    QCOMPARE(m_errors->first().at(1).value<ZephanError>(), 0x14200001u);
    QCOMPARE(m_errors->first().at(2).toString(), QStringLiteral("WS\\root"));
    QCOMPARE(m_loggedIn->size() + m_actions->size(), 0);
    QCOMPARE(logLines("WRN CV: ", "Login failed."), before + 1);
    QVERIFY(!readFile(m_workstation->runtimeLog()).contains("the cause"));
}

QTEST_MAIN(TestLoginView)
#include "test_loginview.moc"
