#ifndef VIEWSTACKER_H
#define VIEWSTACKER_H

#include "CommunicationAndData/access/operatormodeldata.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QStackedWidget>
#include <QVariant>

class AccessControl;
class AccesscontrolView;
class AuditTrailView;
class BaseView;
class IntroductionView;
class LoginView;
class QTranslator;
class SettingsView;
class SupportConnectionHandler;

/// The program's full-size views: switches between them, applies the signed-in operator's rights, and passes
/// on what they report to the audit trail.
class ViewStacker : public QStackedWidget
{
    Q_OBJECT

public:
    /// \param dataPath    the data directory with its trailing separator
    /// \param handler     borrowed; may be gone before this object is
    /// \param translator  the installed one; borrowed
    ViewStacker(QString dataPath, SupportConnectionHandler *handler, QTranslator *translator,
                QWidget *parent = nullptr);
    ~ViewStacker() override;

signals:
    void setSubtitle(QString title);
    void setOperatorInfo(OperatorModel operatorInfo);
    void showPlainHeader(bool plain);
    void logAction(Actions::Action action, Actions::ActionType actionType,
                   UuidString databaseKey = UuidString(), QString databaseName = QString(),
                   QString serverInfo = QString(), QVariant info = QVariant());
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);
    void disableAuditTrailViewer(bool disable);
    void disableAccessControlManagement(bool disable);

public slots:
    /// Takes over the operator's rights and shows the home view. A null pointer leaves the rights as they
    /// were.
    void setupAccess(AccessControl *access);
    void showLogin();
    void showIntroduction();
    void showSettings();
    void showDatabase();
    /// Shows the view only when it has a connection, which it may ask for.
    void showAccesscontrol();
    void showAuditTrail();
    void showAbout();
    /// Records that the current view is entered, or left.
    void logEntry(bool exit = false);
    void logExit();

private:
    int addView(BaseView *view);
    void switchTo(int index, bool plainHeader, const QString &subtitle = QString());
    void announceMissingRights();
    QString entryText() const;

    LoginView *m_loginView = nullptr;
    IntroductionView *m_introductionView = nullptr;
    SettingsView *m_settingsView = nullptr;
    AccesscontrolView *m_accesscontrolView = nullptr;
    AuditTrailView *m_auditTrailView = nullptr;
    int m_loginIndex = -1;
    int m_introductionIndex = -1;
    int m_settingsIndex = -1;
    int m_databaseIndex = -1;  ///< of no view: that of the home view
    int m_accessControlIndex = -1;
    int m_auditTrailIndex = -1;
    bool m_auditTrailAllowed = false;
    bool m_accessControlAllowed = false;
};

#endif
