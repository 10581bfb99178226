#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/loginview.h"
#include "ZephanShared/widgets/clickablelineedit.h"
#include "accessdatabase.h"
#include "support/userinput.h"
#include "support/workstation.h"
#include "testaccount.h"

#include <QApplication>
#include <QComboBox>
#include <QHostInfo>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <unistd.h>

namespace {

constexpr uid_t kNobody = 65534;
constexpr int kStoredRights = 0x31;

// The boxes, and their entries.
const QString kAdministrator = QStringLiteral("windows_administrator_combo");
const QString kAuthenticated = QStringLiteral("authenticated_user_combo");
constexpr int kCurrentUser = 0;
constexpr int kOtherUser = 1;
constexpr int kWindowsUser = 0;
constexpr int kInternalUser = 1;

const QString kFailed = QStringLiteral("Sign in failed!");

/// Gives up the rights of root while it lives, where there are any.
class AsNobody
{
public:
    AsNobody()
    {
        if (m_user == 0 && seteuid(kNobody) != 0)
            qFatal("root can't become nobody");
    }
    ~AsNobody()
    {
        if (m_user == 0 && seteuid(m_user) != 0)
            qFatal("nobody can't become root");
    }

private:
    uid_t m_user = geteuid();
};

QString currentAccount()
{
    QString sid;
    QString error;
    return currentUsername(sid, error);
}

QVariant storedRights()
{
    return SettingsHandler::getInstance()->safeValue(SettingsKeys::kDefaultRights);
}

}  // namespace

class TestLoginView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void selectionPageOffersTheWays();
    void spareHeightIsSharedAmongLabelsBoxesAndGaps();
    void textsFollowTheLanguage();

    void currentAdministratorGetsAllRights();
    void currentUserWithoutAdministratorRightsFails();
    void emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon_data();
    void emptyFieldsOfTheAdministratorAreToldWithoutAskingForALogon();
    void otherAdministratorSignsIn_data();
    void otherAdministratorSignsIn();
    void otherAdministratorWithAWrongPasswordFailsWithoutAnAuditEvent();

    void internalUserSignsIn();
    void emptyPasswordOfAnInternalUserGoesToTheLogin();
    void failureKeepsTheSignInPageWithTheTypedText();
    void returnInEitherFieldActsLikeTheButton_data();
    void returnInEitherFieldActsLikeTheButton();
    void signInPageSignsInByTheWayThatWasChosenLast();
    void signInPageIsEmptyEachTimeItIsShown();
    void keyboardGoesFromFieldToFieldToTheButtons();

    void windowsUserSignsInByAGroup();
    void windowsUserSignsInByTheAccountWhenNoGroupFits();
    void windowsUserWhomNothingFitsFailsOnce();

    void cancelledConnectionDialogChangesNothing();
    void connectionDialogLeadsOnToTheSignInPage();
    void offlineDatabaseIsOfferedOnlyAfterTheSignIn();
    void withoutAHandlerTheAuthenticatedWaysDoNothing();

    void noSecondLoginWhileAnAccessControlExists();
    void defaultRightsHoldTheirOldValueAfterAnyAttempt_data();
    void defaultRightsHoldTheirOldValueAfterAnyAttempt();
    void successIsToldBeforeItIsRecorded();

private:
    template<class W>
    W *find(const QString &name) const
    {
        return m_view->findChild<W *>(name);
    }
    void choose(const QString &combo, int entry);
    void fillIn(const QString &user, const QString &password);
    void clickSignIn();
    QString status() const;
    QString page() const;
    bool bothBoxesAreEmpty() const;
    /// Clicks a button of the dialog that is going to open.
    void answerDialog(const QString &button, const std::function<void(QWidget *)> &look = {});

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<AccessDatabase> m_database;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<LoginView> m_view;
    std::unique_ptr<QSignalSpy> m_loggedIn;
    std::unique_ptr<QSignalSpy> m_actions;
    std::unique_ptr<QSignalSpy> m_errors;
};

void TestLoginView::initTestCase()
{
    qRegisterMetaType<AccessControl *>("AccessControl*");
    m_workstation = std::make_unique<Workstation>();
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation->dataDirectory() + kSettingsFileName);
}

void TestLoginView::init()
{
    QFile::remove(m_workstation->dataDirectory() + LocalCache::kFileName);
    SettingsHandler::getInstance()->setSafeValue(SettingsKeys::kDefaultRights, kStoredRights);
    m_database = std::make_unique<AccessDatabase>(m_workstation->path("access.db"));
    m_database->configure(m_workstation->dataDirectory());
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation->dataDirectory(), nullptr);
    QVERIFY(m_handler->connectOnline());
    m_view = std::make_unique<LoginView>(m_handler.get(), nullptr);
    m_loggedIn = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::loggedIn);
    m_actions = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::logAction);
    m_errors = std::make_unique<QSignalSpy>(m_view.get(), &LoginView::logError);
    m_view->resize(800, 600);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void TestLoginView::cleanup()
{
    m_view.reset();
    m_handler.reset();
    m_database.reset();
    QFile::remove(m_workstation->path("access.db"));
}

void TestLoginView::choose(const QString &combo, int entry)
{
    chooseEntry(find<QComboBox>(combo), entry);
}

void TestLoginView::fillIn(const QString &user, const QString &password)
{
    find<QLineEdit>("username_edit")->clear();
    find<QLineEdit>("password_edit")->clear();
    QTest::keyClicks(find<QLineEdit>("username_edit"), user);
    find<QLineEdit>("password_edit")->insert(password);  // key clicks can't type every letter
}

void TestLoginView::clickSignIn()
{
    QTest::mouseClick(find<QPushButton>("sign_in_button"), Qt::LeftButton);
}

QString TestLoginView::status() const
{
    return find<QLabel>("status_label")->text();
}

QString TestLoginView::page() const
{
    for (const char *name : {"selection_page", "sign_in_page"}) {
        const auto *candidate = find<QWidget>(name);
        if (candidate && candidate->isVisible())
            return QString::fromLatin1(name);
    }
    return QString();
}

bool TestLoginView::bothBoxesAreEmpty() const
{
    return find<QComboBox>(kAdministrator)->currentIndex() == -1 &&
           find<QComboBox>(kAuthenticated)->currentIndex() == -1;
}

void TestLoginView::answerDialog(const QString &button, const std::function<void(QWidget *)> &look)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [timer, button, look] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *answer = dialog ? dialog->findChild<QPushButton *>(button) : nullptr;
        if (!answer || !answer->isVisible())
            return;
        timer->deleteLater();
        timer->stop();
        if (look)
            look(dialog);
        QTest::mouseClick(answer, Qt::LeftButton);
    });
    timer->start(10);
}

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

void TestLoginView::currentAdministratorGetsAllRights()
{
    if (geteuid() != 0)
        QSKIP("only root is an administrator for certain");
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
        const AsNobody nobody;
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
    QCOMPARE(m_loggedIn->size() + m_actions->size() + m_errors->size(), 0);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!readFile(m_workstation->runtimeLog()).contains("certainly not"));
}

void TestLoginView::internalUserSignsIn()
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

void TestLoginView::emptyPasswordOfAnInternalUserGoesToTheLogin()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(kAuthenticated, kInternalUser);
    fillIn("anna", "");
    clickSignIn();
    QTRY_COMPARE(m_errors->size(), 1);
    QCOMPARE(status(), kFailed);
}

void TestLoginView::failureKeepsTheSignInPageWithTheTypedText()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
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
    QVERIFY(readFile(m_workstation->runtimeLog()).contains("Login failed."));
    QTRY_COMPARE(m_view->findChildren<AccessControl *>().size(), 0);

    fillIn("anna", "s3cret");
    clickSignIn();
    QTRY_COMPARE(m_loggedIn->size(), 1);
}

void TestLoginView::returnInEitherFieldActsLikeTheButton_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QString>("field");

    for (const QString &combo : {kAdministrator, kAuthenticated}) {
        for (const char *field : {"username_edit", "password_edit"}) {
            const QByteArray row = combo.toLatin1() + ", " + field;
            QTest::newRow(row.constData()) << combo << field;
        }
    }
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

void TestLoginView::windowsUserSignsInByAGroup()
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

void TestLoginView::windowsUserSignsInByTheAccountWhenNoGroupFits()
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

void TestLoginView::windowsUserWhomNothingFitsFailsOnce()
{
    for (int attempt = 1; attempt <= 2; ++attempt) {
        choose(kAuthenticated, kWindowsUser);
        QTRY_COMPARE(status(), kFailed);
        QCOMPARE(m_errors->size(), attempt);
        QCOMPARE(m_errors->last().at(1).value<ZephanError>(), 0x14200001u);
    }
    QCOMPARE(m_loggedIn->size() + m_actions->size(), 0);
}

void TestLoginView::cancelledConnectionDialogChangesNothing()
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

void TestLoginView::connectionDialogLeadsOnToTheSignInPage()
{
    m_handler->closeConnection();
    answerDialog("connect_button");
    choose(kAuthenticated, kInternalUser);
    QVERIFY(m_handler->isConnected());
    QCOMPARE(page(), QStringLiteral("sign_in_page"));
}

void TestLoginView::offlineDatabaseIsOfferedOnlyAfterTheSignIn()
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

void TestLoginView::withoutAHandlerTheAuthenticatedWaysDoNothing()
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

void TestLoginView::noSecondLoginWhileAnAccessControlExists()
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

void TestLoginView::defaultRightsHoldTheirOldValueAfterAnyAttempt_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("password");

    QTest::newRow("current administrator") << kAdministrator << kCurrentUser << QString();
    QTest::newRow("internal user") << kAuthenticated << kInternalUser << "s3cret";
    QTest::newRow("internal user with a wrong password") << kAuthenticated << kInternalUser << "wrong";
    QTest::newRow("Windows user") << kAuthenticated << kWindowsUser << QString();
}

void TestLoginView::defaultRightsHoldTheirOldValueAfterAnyAttempt()
{
    QFETCH(QString, combo);
    QFETCH(int, entry);
    QFETCH(QString, password);
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
    choose(combo, entry);
    if (!password.isEmpty()) {
        fillIn("anna", password);
        clickSignIn();
    }
    QCOMPARE(storedRights().toInt(), kStoredRights);
    QTRY_VERIFY(m_loggedIn->size() + m_errors->size() == 1);
    QCOMPARE(storedRights().toInt(), kStoredRights);
}

void TestLoginView::successIsToldBeforeItIsRecorded()
{
    m_database->addOperator(OperatorModelData::InternalUser, "anna", 0x5, "s3cret");
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
    QVERIFY(readFile(m_workstation->runtimeLog()).contains("Logged in."));
}

QTEST_MAIN(TestLoginView)
#include "test_loginview.moc"
