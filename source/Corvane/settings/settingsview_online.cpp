#include "Corvane/settings/settingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/diffview.h"

#include <QMessageBox>

void SettingsView::diffSettings()
{
    savePages();
    removeRedundantSettings();
    m_currentSettings = settingsSnapshot(Actions::ViewSettingsDiff);
    DiffView::showDiff(m_initialSettings, m_previousSettings, m_currentSettings, m_settingsTag, false, false);
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
