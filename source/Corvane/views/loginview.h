#ifndef LOGINVIEW_H
#define LOGINVIEW_H

#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/widgets/baseview.h"

#include <QPointer>

class AccessControl;
class ClickableLineEdit;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedLayout;
class QTranslator;
class QVBoxLayout;
class SupportConnectionHandler;

/// The first view of the program: four ways to sign in, and the program's language.
///
/// A successful sign-in ends in `loggedIn`. There is one in a run; the view is not shown again.
class LoginView : public BaseView
{
    Q_OBJECT

public:
    /// The person chooses among the first three; the last one follows when the account's groups give no
    /// access.
    enum LoginMode { WindowsAdministrator = 0, InternalUser = 1, WindowsGroup = 2, WindowsUser = 3 };

    /// \param handler     the connection to the access tables; borrowed, may be null
    /// \param translator  the one that is installed; borrowed
    LoginView(SupportConnectionHandler *handler, QTranslator *translator, QWidget *parent = nullptr);

    void updateTexts() override;

signals:
    /// \param accessControl  who signed in, with the rights; it lives as long as this view
    void loggedIn(AccessControl *accessControl);

public slots:
    /// Acts on the choice that was made in one of the two boxes, and empties both. While a sign-in is under
    /// way a choice counts for nothing.
    void switchLogin();
    /// Checks the typed account of another administrator, unless a sign-in is under way or done. Nothing can
    /// have been typed before the sign-in page was shown.
    void logInAdmin();
    /// Signs in by the present mode, unless a sign-in is under way or done.
    void logInUser();
    void accessControlLoginResult(ZephanError errorCode, QVariant errorData, QString errorMessage);
    /// Goes back to the choice of a way to sign in, and forgets a typed password.
    void toIntroduction();
    /// Switches the program to the language of an entry, and keeps it in `local_cache`.
    void languageChange(int index);

private:
    // The screen
    void readCurrentUser();
    QWidget *createSelectionPage();
    QWidget *createSignInPage();
    QLabel *createLabel(const QString &name, Qt::Alignment alignment);
    QComboBox *createLoginCombo(const QString &name);
    ClickableLineEdit *createField(const QString &name);
    void setSelectionTexts();
    void showStatus(const QString &text);

    // Signing in
    void actOnChoice();
    void logInCurrentAdmin();
    void logInAuthenticatedUser();
    void showSignInPage();
    void connectSignIn(const char *slot);
    void authenticate(const QString &method, const QString &user, const QString &password);
    void dropAccessControl();
    void reconnect();
    void dropConnection();
    void finishLogin();
    void tryWindowsUser();
    void reportFailure(const QVariant &errorData);

    // The language selector
    void buildLanguageSelector();
    void fillLanguageCombo();
    QString localCachePath() const;

    QVBoxLayout *m_layout;
    QStackedLayout *m_pages;

    QWidget *m_selectionPage = nullptr;
    QLabel *m_headingLabel = nullptr;
    QLabel *m_authenticatedUserLabel = nullptr;
    QLabel *m_windowsAdministratorLabel = nullptr;
    QComboBox *m_authenticatedUserCombo = nullptr;
    QComboBox *m_windowsAdministratorCombo = nullptr;

    QWidget *m_signInPage = nullptr;  ///< made when it is first needed
    ClickableLineEdit *m_usernameEdit = nullptr;
    ClickableLineEdit *m_passwordEdit = nullptr;
    QPushButton *m_signInButton = nullptr;
    QPushButton *m_goBackButton = nullptr;

    QLabel *m_statusLabel = nullptr;
    QPointer<SupportConnectionHandler> m_handler;
    QString m_currentUser;  ///< domain, backslash, user
    UuidString m_operatorId;
    AccessControl *m_accessControl = nullptr;
    int m_loginMode = WindowsAdministrator;
    QComboBox *m_languageCombo = nullptr;
    QWidget *m_languageContainer = nullptr;
    QTranslator *m_translator;
};

#endif
