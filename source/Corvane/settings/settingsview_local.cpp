#include "Corvane/settings/settingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/settingsparking.h"
#include "Corvane/settings/settingssnapshot.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QAction>
#include <QSettings>
#include <QTabWidget>

namespace {

void copyKeys(const QSettings &from, const QStringList &keys, QSettings &to)
{
    for (const QString &key : keys)
        to.setValue(key, from.value(key));
}

}  // namespace

SettingsView::~SettingsView()
{
    if (m_tabs && !m_tabs->isHidden() && isLocalSaveEnabled())
        autosave();
}

void SettingsView::autosave()
{
    const auto cache = openSettingsFile(m_dataPath + QLatin1String(LocalCache::kFileName));
    if (cache->value(QLatin1String(LocalCache::kAutosaveInfo), false).toBool()) {
        cache->setValue(QLatin1String(LocalCache::kAutosaveInfo), false);
        syncSettingsFile(*cache);
        showMessage(tr("Autosaving settings to local application settings file. "
                       "This message is only shown once."));
    }
    saveSettingsLocally(true);
}

bool SettingsView::isLocalSaveEnabled() const
{
    return openSettingsFile(m_dataPath + QLatin1String(LocalCache::kFileName))
        ->value(QLatin1String(LocalCache::kLocalSave), false)
        .toBool();
}

void SettingsView::localSaveToggled(bool enabled)
{
    {
        const auto cache = openSettingsFile(m_dataPath + QLatin1String(LocalCache::kFileName));
        cache->setValue(QLatin1String(LocalCache::kLocalSave), enabled);
        if (enabled)
            cache->setValue(QLatin1String(LocalCache::kAutosaveInfo), true);
        syncSettingsFile(*cache);
    }
    // Where the cache cannot be written nothing was switched.
    if (m_autosaveAction)
        m_autosaveAction->setChecked(isLocalSaveEnabled());
}

void SettingsView::saveSettingsLocally(bool silent)
{
    removeRedundantSettings();
    QString message = tr("Error") + QStringLiteral(": ");
    const auto local = openLocalApplicationSettings();
    if (local->isWritable()) {
        logSettingsAction(Actions::SaveSettings, silent ? Actions::Automatic : Actions::Human,
                          QStringLiteral("Corvane Settings Local Save"));
        savePages();
        copyToLocalSettings(*local, message);
    } else {
        message += tr("Cannot write to local settings file.");
        emit logError(Actions::SaveSettings, ZephanErrors::kSettingsNotWritten,
                      QStringLiteral("Settings are not writable"));
    }
    // The database groups that the operator may not save come back from where they are.
    if (!isAllowed(WriteLocalDbSettings))
        replaceByLocalSettings(silent);
    appendPrivilegeNotes(message);
    if (!silent)
        showMessage(message);
}

void SettingsView::copyToLocalSettings(QSettings &local, QString &message)
{
    const WaitCursor cursor;
    const QSettings *working = SettingsHandler::getInstance()->generalSettings();
    // What the operator may not save stays in the working file until it is replaced as a whole, so that no
    // moment leaves the program without it.
    const QStringList keys =
        isAllowed(WriteLocalDbSettings) ? working->allKeys() : withoutDatabaseGroups(working->allKeys());
    copyKeys(*working, keys, local);
    // In one write, so that no moment leaves the applications half of it.
    removeStaleParameters(local);
    const bool isOnDisk = syncSettingsFile(local);
    if (!isOnDisk || local.allKeys().size() < keys.size()) {
        message += tr("Not all settings were saved.");
        emit logError(Actions::SaveSettings, ZephanErrors::kSettingsIncomplete,
                      QStringLiteral("Not all settings were saved"));
    } else {
        message = tr("Saving succeeded.");
    }
}

void SettingsView::loadLocalSettings()
{
    replaceByLocalSettings(false);
}

void SettingsView::replaceByLocalSettings(bool silent)
{
    logSettingsAction(Actions::LoadSettings, Actions::Human, QStringLiteral("Corvane Settings Local Load"));
    // Taken for empty ones, settings that cannot be read just now would become that at the next save.
    if (!canReadLocalApplicationSettings()) {
        tellIncompleteLoad(silent);
        return;
    }
    SettingsParking parking(m_dataPath);
    parking.park();
    parking.unpark();
    // Also where the former file could not be moved aside; the write that fills it is the one that empties
    // it.
    SettingsHandler::getInstance()->generalSettings()->clear();
    const bool complete = copyFromLocalSettings();
    if (complete)
        reloadPages();
    else
        tellIncompleteLoad(silent);
    parking.clear();
    SettingsHandler::getInstance()->initAuditTrailSetting();
    removeRedundantSettings();
    takeLoadedSnapshots(Actions::LoadSettings);
    m_settingsTag = tr("Local settings");
    showSettings();
}

bool SettingsView::copyFromLocalSettings()
{
    const WaitCursor cursor;
    const auto local = openLocalApplicationSettings();
    QSettings *working = SettingsHandler::getInstance()->generalSettings();
    copyKeys(*local, local->allKeys(), *working);
    return local->allKeys().size() <= working->allKeys().size();
}

void SettingsView::tellIncompleteLoad(bool silent)
{
    emit logError(Actions::LoadSettings, ZephanErrors::kSettingsIncomplete,
                  QStringLiteral("Not all settings were loaded"));
    if (!silent)
        showMessage(tr("Error") + QStringLiteral(": ") + tr("Not all settings were loaded."));
}

void SettingsView::takeLoadedSnapshots(Actions::Action action)
{
    if (m_firstLoad) {
        m_firstLoad = false;
        m_initialSettings = settingsSnapshot(action);
    }
    m_previousSettings = settingsSnapshot(action);
}
