#ifndef TESTS_LOGINFIXTURE_H
#define TESTS_LOGINFIXTURE_H

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/loginview.h"
#include "accessdatabase.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

// The boxes, and their entries.
extern const QString kAdministrator;
extern const QString kAuthenticated;
constexpr int kCurrentUser = 0;
constexpr int kOtherUser = 1;
constexpr int kWindowsUser = 0;
constexpr int kInternalUser = 1;

constexpr int kStoredRights = 0x31;  ///< the default rights before each test
extern const QString kFailed;

/// The account that runs the test, with its domain.
QString currentAccount();

/// The sign-in view in a window, with an access database that it is connected to.
class LoginFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
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
    /// How many lines of the run-time log begin and end so.
    int logLines(const QByteArray &tags, const QByteArray &message) const;

    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<AccessDatabase> m_database;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<LoginView> m_view;
    std::unique_ptr<QSignalSpy> m_loggedIn;
    std::unique_ptr<QSignalSpy> m_actions;
    std::unique_ptr<QSignalSpy> m_errors;
};

#endif
