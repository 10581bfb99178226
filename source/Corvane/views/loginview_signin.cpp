#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/loginview.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/widgets/clickablelineedit.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QComboBox>
#include <QHostInfo>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>

namespace {

// The entries of the two boxes.
constexpr int kNoChoice = -1;
constexpr int kCurrentUserEntry = 0;
constexpr int kOtherUserEntry = 1;
constexpr int kWindowsUserEntry = 0;
constexpr int kInternalUserEntry = 1;

// What `accesscontrol/defaultrights` holds during a sign-in.
constexpr int kAllRights = -1;
constexpr int kNoRights = 0;

const auto kNoMethod = QLatin1String("none");
const auto kInternalMethod = QLatin1String("Internal users");
const auto kGroupMethod = QLatin1String("Windows group based");
const auto kUserMethod = QLatin1String("Windows user based");

/// Puts other default rights in force while it lives, and afterwards the stored ones back.
class TemporaryDefaultRights
{
public:
    explicit TemporaryDefaultRights(int rights)
        : m_stored(SettingsHandler::getInstance()->safeValue(SettingsKeys::kDefaultRights, 0))
    {
        SettingsHandler::getInstance()->setSafeValue(SettingsKeys::kDefaultRights, rights);
    }
    ~TemporaryDefaultRights()
    {
        SettingsHandler::getInstance()->setSafeValue(SettingsKeys::kDefaultRights, m_stored);
    }
    Q_DISABLE_COPY(TemporaryDefaultRights)

private:
    QVariant m_stored;
};

struct Account
{
    QString domain;
    QString user;
};

/// The account that a person typed: the domain is what stands before the first backslash, the user what
/// stands behind the last one. Leading backslashes don't count.
Account splitAccount(const QString &text)
{
    QStringList parts = text.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    while (parts.size() < 2)
        parts.prepend(QString());
    return {parts.first(), parts.last()};
}

}  // namespace

void LoginView::switchLogin()
{
    // What was chosen while a sign-in is under way would end up in its outcome.
    if (!m_accessControl)
        actOnChoice();
    m_windowsAdministratorCombo->setCurrentIndex(kNoChoice);
    m_authenticatedUserCombo->setCurrentIndex(kNoChoice);
}

void LoginView::logInAdmin()
{
    if (m_accessControl || !m_signInPage)
        return;
    const QString typed = m_usernameEdit->text();
    if (typed.isEmpty()) {
        showStatus(tr("Username needed."));
        return;
    }
    if (m_passwordEdit->text().isEmpty()) {
        showStatus(tr("Password needed."));
        return;
    }
    showStatus(tr("Signing in."));

    const Account account = splitAccount(typed);
    QString error;
    bool isAdmin = false;
    {
        const WaitCursor wait;
        isAdmin = logonAdmin(account.user, account.domain, m_passwordEdit->text(), m_operatorId, error);
    }
    if (!isAdmin) {
        showStatus(tr("Sign in failed!"));
        return;
    }
    m_currentUser = typed;
    if (!error.isEmpty())
        CORVANE_LOG(Logger::Warning, Logger::Console, "LoginView::logInAdmin", error);
    logInUser();
}

void LoginView::logInUser()
{
    switch (m_loginMode) {
    case WindowsAdministrator: {
        const TemporaryDefaultRights rights(kAllRights);
        authenticate(kNoMethod, m_currentUser, QString());
        break;
    }
    case InternalUser: {
        reconnect();
        const TemporaryDefaultRights rights(kNoRights);
        authenticate(kInternalMethod, m_usernameEdit->text(), m_passwordEdit->text());
        break;
    }
    case WindowsGroup: {
        const TemporaryDefaultRights rights(kNoRights);
        authenticate(kGroupMethod, m_currentUser, QString());
        break;
    }
    default:
        break;
    }
}

void LoginView::accessControlLoginResult(ZephanError errorCode, QVariant errorData, QString errorMessage)
{
    Q_UNUSED(errorMessage)
    if (errorCode == ZephanErrors::kStatementFailed)
        dropConnection();
    if (errorCode == ZephanErrors::kNone)
        finishLogin();
    else if (m_loginMode == WindowsGroup)
        tryWindowsUser();
    else
        reportFailure(errorData);
}

void LoginView::actOnChoice()
{
    m_loginMode = WindowsAdministrator;
    m_statusLabel->clear();
    switch (m_windowsAdministratorCombo->currentIndex()) {
    case kCurrentUserEntry:
        logInCurrentAdmin();
        break;
    case kOtherUserEntry:
        showSignInPage();
        break;
    default:
        logInAuthenticatedUser();
    }
}

void LoginView::logInCurrentAdmin()
{
    QString error;
    if (!isCurrentUserAdmin(m_operatorId, error)) {
        showStatus(tr("Sign in failed!"));
        return;
    }
    if (!error.isEmpty())
        CORVANE_LOG(Logger::Warning, Logger::Console, "LoginView::logInCurrentAdmin", error);
    logInUser();
}

void LoginView::logInAuthenticatedUser()
{
    if (!m_handler)
        return;
    if (!m_handler->isConnected())
        m_handler->connectionOptions();
    if (!m_handler->isConnected())
        return;

    switch (m_authenticatedUserCombo->currentIndex()) {
    case kWindowsUserEntry:
        m_loginMode = WindowsGroup;
        showStatus(tr("Signing in."));
        logInUser();
        break;
    case kInternalUserEntry:
        m_loginMode = InternalUser;
        showSignInPage();
        break;
    default:
        break;
    }
}

void LoginView::showSignInPage()
{
    if (!m_signInPage) {
        m_signInPage = createSignInPage();
        m_pages->addWidget(m_signInPage);
    }
    m_pages->setCurrentWidget(m_signInPage);
    m_statusLabel->clear();
    m_usernameEdit->clear();
    m_passwordEdit->clear();
    connectSignIn(m_loginMode == WindowsAdministrator ? SLOT(logInAdmin()) : SLOT(logInUser()));
    m_usernameEdit->setFocus();
}

/// Gives both fields and the button one meaning, and takes the former one away.
void LoginView::connectSignIn(const char *slot)
{
    m_usernameEdit->disconnect();
    m_passwordEdit->disconnect();
    m_signInButton->disconnect();
    connect(m_usernameEdit, SIGNAL(returnPressed()), this, slot);
    connect(m_passwordEdit, SIGNAL(returnPressed()), this, slot);
    connect(m_signInButton, SIGNAL(clicked()), this, slot);
}

/// Opens the connection again that a failed statement has cost, with the parameters that it had.
void LoginView::reconnect()
{
    if (m_handler && !m_accessControl && !m_handler->isConnected())
        m_handler->connectOnline();
}

/// Lets go of a connection that was lost while the view stood, so that the next try opens it again.
void LoginView::dropConnection()
{
    if (m_handler && m_handler->isConnected())
        m_handler->closeConnection();
}

void LoginView::authenticate(const QString &method, const QString &user, const QString &password)
{
    if (m_accessControl)
        return;
    const WaitCursor wait;
    QSqlDatabase *database = m_handler ? m_handler->database() : nullptr;
    const uint type = m_handler ? m_handler->sqlType().toUInt() : SqlStorage::UnknownType;
    m_accessControl =
        new AccessControl(this, method, database, static_cast<SqlStorage::SqlDatabaseType>(type));
    connect(m_accessControl, &AccessControl::loginResult, this, &LoginView::accessControlLoginResult);
    m_accessControl->login(user, password);
}

/// Lets go of the access control, which may be the one that is just reporting.
void LoginView::dropAccessControl()
{
    if (!m_accessControl)
        return;
    m_accessControl->disconnect(this);
    m_accessControl->deleteLater();
    m_accessControl = nullptr;
}

void LoginView::finishLogin()
{
    if (m_handler)
        m_handler->setOfflineAllowed(true);
    const OperatorModel operatorModel = m_accessControl ? m_accessControl->getOperator() : OperatorModel();
    if (m_loginMode == WindowsAdministrator && !m_operatorId.isNull() && operatorModel)
        operatorModel->setOperatorID(m_operatorId);
    if (m_passwordEdit)
        m_passwordEdit->clear();
    emit loggedIn(m_accessControl);
    emit logAction(Actions::Login, Actions::Human, UuidString(), QString(), QHostInfo::localHostName(),
                   QStringLiteral("Corvane"));
    CORVANE_LOG(Logger::Information, Logger::Unnamed, "LoginView::finishLogin", QStringLiteral("Logged in."));
}

/// The account's groups gave no access: perhaps the account itself does.
void LoginView::tryWindowsUser()
{
    m_loginMode = WindowsUser;
    dropAccessControl();
    authenticate(kUserMethod, m_currentUser, QString());
}

void LoginView::reportFailure(const QVariant &errorData)
{
    CORVANE_LOG(Logger::Warning, Logger::Console, "LoginView::reportFailure",
                QStringLiteral("Login failed."));
    emit logError(Actions::Login, ZephanErrors::kLoginFailed, errorData);
    showStatus(tr("Sign in failed!"));
    dropAccessControl();
}
