#include "Corvane/settings/settingsview.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/confmanagementdialog.h"
#include "Corvane/settings/databasesettingsview.h"
#include "Corvane/settings/diffview.h"
#include "Corvane/settings/distributionview.h"

#include <QMessageBox>

void SettingsView::diffSettings()
{
    savePages();
    removeRedundantSettings();
    m_currentSettings = settingsSnapshot(Actions::ViewSettingsDiff);
    DiffView::showDiff(m_initialSettings, m_previousSettings, m_currentSettings, m_settingsTag, false, false);
}

void SettingsView::distributeSettings()
{
    savePages();
    removeRedundantSettings();
    if (!isAllowed(WriteLocalDbSettings)) {
        removeDatabaseGroups();
        m_databasePage->reloadSettings();
    }
    QString notice = tr("Notice.");
    if (appendPrivilegeNotes(notice))
        showMessage(notice);
    const OperatorModel person = m_access->getOperator();
    auto *dialog = new DistributionView(m_dataPath, &m_distributeUsername, &m_distributePassword,
                                        person ? person->username() : QString(), this);
    connect(dialog, &DistributionView::logError, this, &SettingsView::logError);
    dialog->show();
}

void SettingsView::manageSettings()
{
    savePages();
    m_currentSettings = settingsSnapshot(Actions::Initialize);
    connect(SettingsHandler::getInstance(), SIGNAL(onlineSettingsReady(bool, bool, QString)), this,
            SLOT(settingsReceived(bool, bool, QString)));
    auto *dialog = new ConfManagementDialog(m_dataPath, &m_manageUsername, &m_managePassword, this);
    connect(dialog, SIGNAL(loadTag(QString)), this, SLOT(loadTag(QString)));
    connect(dialog, &ConfManagementDialog::logError, this, &SettingsView::logError);
    connect(dialog, SIGNAL(loaded()), this, SLOT(showSettings()));
    dialog->show();
}

void SettingsView::settingsReceived(bool success, bool, QString)
{
    if (success) {
        acceptOnlineSettings();
    } else {
        emit logError(Actions::LoadSettings, ZephanErrors::kLoadingFailed,
                      QStringLiteral("Loading settings configuration from database was unsuccessful"));
        QMessageBox box(QMessageBox::Warning, tr("Loading settings failed"),
                        tr("Loading settings configuration from database was unsuccessful.\n"
                           "Previous settings restored."),
                        QMessageBox::NoButton, this);
        box.addButton(tr("Ok"), QMessageBox::AcceptRole);
        box.exec();
    }
    disconnect(SettingsHandler::getInstance(), SIGNAL(onlineSettingsReady(bool, bool, QString)), this,
               SLOT(settingsReceived(bool, bool, QString)));
}

void SettingsView::acceptOnlineSettings()
{
    removeRedundantSettings();
    m_previousSettings = settingsSnapshot(Actions::LoadSettings);
    if (m_firstLoad) {
        m_firstLoad = false;
        m_initialSettings = settingsSnapshot(Actions::LoadSettings);
    } else if (!DiffView::showDiff(m_initialSettings, m_previousSettings, m_currentSettings, m_settingsTag,
                                   true, true)) {
        SettingsHandler::getInstance()->restore();
    }
    reloadPages();
}
