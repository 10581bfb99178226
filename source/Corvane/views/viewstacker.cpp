#include "Corvane/views/viewstacker.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/settings/settingsview.h"
#include "Corvane/views/aboutdialog.h"
#include "Corvane/views/audittrailview.h"
#include "Corvane/views/introductionview.h"
#include "Corvane/views/loginview.h"
#include "Corvane/views/producttexts.h"
#include "Corvane/views/versiontext.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QHostInfo>

namespace {

const auto kVersionFile = QLatin1String("version");
const auto kAboutFile = QLatin1String("licenses/corvane_about.txt");

}  // namespace

ViewStacker::ViewStacker(QString dataPath, SupportConnectionHandler *handler, QTranslator *translator,
                         QWidget *parent)
    : QStackedWidget(parent)
{
    setObjectName(QStringLiteral("view_stacker"));

    m_loginView = new LoginView(handler, translator, this);
    m_introductionView = new IntroductionView(handler, this);
    connect(this, &ViewStacker::disableAuditTrailViewer, m_introductionView,
            &IntroductionView::disableAuditTrailView);
    connect(this, &ViewStacker::disableAccessControlManagement, m_introductionView,
            &IntroductionView::disableAccessControlView);
    m_loginIndex = addView(m_loginView);
    m_introductionIndex = addView(m_introductionView);
    connect(m_loginView, &LoginView::loggedIn, this, &ViewStacker::setupAccess);

    m_settingsView = new SettingsView(dataPath, this);
    m_settingsIndex = addView(m_settingsView);
    connect(m_introductionView, &IntroductionView::settingsClicked, this, &ViewStacker::showSettings);
    // After setupAccess, so that the home view is on screen while the settings pages are built.
    connect(m_loginView, &LoginView::loggedIn, m_settingsView, &SettingsView::setAccessControl);

    m_databaseIndex = indexOf(m_introductionView);

    m_accesscontrolView = new AccesscontrolView(handler, this);
    m_accessControlIndex = addView(m_accesscontrolView);
    connect(m_introductionView, &IntroductionView::accessClicked, this, &ViewStacker::showAccesscontrol);

    m_auditTrailView = new AuditTrailView(dataPath, this);
    m_auditTrailIndex = addView(m_auditTrailView);
    connect(m_introductionView, &IntroductionView::auditTrailClicked, this, &ViewStacker::showAuditTrail);
}

// The views go while this object can still pass on their last audit events, and the login view last, since
// the others borrow its access control.
ViewStacker::~ViewStacker()
{
    delete m_auditTrailView;
    delete m_accesscontrolView;
    delete m_settingsView;
    delete m_introductionView;
    delete m_loginView;
}

void ViewStacker::setupAccess(AccessControl *access)
{
    if (access) {
        m_auditTrailAllowed = access->isAllowed(AuditTrailManagement);
        m_accessControlAllowed = access->isAllowed(AccessControlManagement);
        emit setOperatorInfo(access->getOperator());
    }
    announceMissingRights();
    switchTo(m_introductionIndex, true);
}

void ViewStacker::showLogin()
{
    switchTo(m_loginIndex, true);
}

void ViewStacker::showIntroduction()
{
    announceMissingRights();
    switchTo(m_introductionIndex, true);
}

void ViewStacker::showSettings()
{
    switchTo(m_settingsIndex, false, tr("Settings Management"));
}

void ViewStacker::showDatabase() {}

void ViewStacker::showAccesscontrol()
{
    if (currentIndex() == m_accessControlIndex || !m_accesscontrolView->ensureConnection())
        return;
    switchTo(m_accessControlIndex, false, tr("Access Control Management"));
}

void ViewStacker::showAuditTrail()
{
    switchTo(m_auditTrailIndex, false, tr("Audit Trail Viewer"));
}

void ViewStacker::showAbout()
{
    const QString version = readVersionLine(suiteDataDirectory() + kVersionFile);
    AboutDialog dialog(QString::fromLatin1(ProductTexts::kSuiteName),
                       QString::fromLatin1(ProductTexts::kProgramName), version, QString(), kAboutFile, this);
    dialog.exec();
}

void ViewStacker::logEntry(bool exit)
{
    const QString text = entryText();
    if (text.isEmpty())
        return;
    emit logAction(exit ? Actions::Stopping : Actions::Started, Actions::Human, UuidString(), QString(),
                   QHostInfo::localHostName(), text);
}

void ViewStacker::logExit()
{
    logEntry(true);
}

int ViewStacker::addView(BaseView *view)
{
    connect(view, &BaseView::logAction, this, &ViewStacker::logAction);
    connect(view, &BaseView::logError, this, &ViewStacker::logError);
    return addWidget(view);
}

void ViewStacker::switchTo(int index, bool plainHeader, const QString &subtitle)
{
    logEntry(true);
    setCurrentIndex(index);
    emit showPlainHeader(plainHeader);
    if (!subtitle.isEmpty())
        emit setSubtitle(subtitle);
    logEntry(false);
}

void ViewStacker::announceMissingRights()
{
    if (!m_auditTrailAllowed)
        emit disableAuditTrailViewer(true);
    if (!m_accessControlAllowed)
        emit disableAccessControlManagement(true);
}

/// What the current view is called in the audit trail; empty for the views that are not recorded.
QString ViewStacker::entryText() const
{
    const int index = currentIndex();
    if (index == m_introductionIndex)
        return QString();
    if (index == m_accessControlIndex)
        return QStringLiteral("Corvane Access Control Management");
    if (index == m_databaseIndex)
        return QStringLiteral("Corvane Database Management");
    if (index == m_settingsIndex)
        return QStringLiteral("Corvane Settings Management");
    if (index == m_auditTrailIndex)
        return QStringLiteral("Corvane Audit Trail Viewer");
    return QString();
}
