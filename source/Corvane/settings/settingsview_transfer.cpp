#include "Corvane/settings/settingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/settings/databasesettingsview.h"
#include "Corvane/settings/settingsparking.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace {

// Beside the working file and not in the temporary directory, where it is out of the way of the clearing.
const char *const kExportParkingFile = "tmp_corvane.ini";

QString iniFilter()
{
    return SettingsView::tr("INI (*.ini)");
}

/// Not every system minds a file's own protection when the file is removed.
bool removeUnprotected(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) && file.remove();
}

}  // namespace

void SettingsView::exportSettings()
{
    removeRedundantSettings();
    const QString target = QFileDialog::getSaveFileName(this, tr("Export to a file"), QString(), iniFilter());
    QString message = tr("Error") + QStringLiteral(": ");
    const bool exported = target.isEmpty() || exportTo(target, message);
    if (!isAllowed(WriteLocalDbSettings) && m_databasePage)
        m_databasePage->reloadSettings();
    if (exported) {
        QString notes;
        if (appendPrivilegeNotes(notes))
            showMessage(notes);
    } else {
        emit logError(Actions::Export, ZephanErrors::kExportFailed,
                      QStringLiteral("Exporting settings did not succeed: ") + target);
        showMessage(message);
    }
    logSettingsAction(Actions::Export, Actions::Human, QStringLiteral("Corvane Settings Export"));
}

bool SettingsView::exportTo(const QString &target, QString &message)
{
    savePages();
    if (!isAllowed(WriteLocalDbSettings))
        removeDatabaseGroups();

    const WaitCursor cursor;
    const QString workingFile = SettingsParking::workingFile(m_dataPath);
    const QString parkingFile = m_dataPath + QLatin1String(kExportParkingFile);
    QDir temporary(nativePath(m_dataPath + QLatin1String(SettingsParking::kDirectory)));
    if (!temporary.exists())
        QDir().mkpath(temporary.path());
    else
        QFile::remove(parkingFile);

    SettingsHandler *handler = SettingsHandler::getInstance();
    // A file that could not be written holds older settings, and the present ones are in memory alone.
    bool exported = handler->flushSettingsFile();
    if (exported) {
        handler->changeSettingsFile(parkingFile);
        exported = copyWorkingFile(workingFile, target, message);
        handler->changeSettingsFile(workingFile);
    } else {
        tellFailedCopy(message);
    }
    SettingsParking::clear(m_dataPath);
    return exported;
}

bool SettingsView::copyWorkingFile(const QString &workingFile, const QString &target, QString &message)
{
    // The working file is its own copy; removing it as an old target would lose the settings.
    if (QFileInfo(workingFile) == QFileInfo(target))
        return true;
    bool exported = true;
    if (QFile::exists(target) && !removeUnprotected(target)) {
        message = tr("File existed and could not be overwritten!");
        exported = false;
    }
    if (!QFile::copy(workingFile, target)) {
        tellFailedCopy(message);
        exported = false;
    }
    return exported;
}

void SettingsView::tellFailedCopy(QString &message)
{
    message += tr(" File copying failed!");
    CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsView::exportSettings", message);
}

void SettingsView::importSettings()
{
    const QString source =
        QFileDialog::getOpenFileName(this, tr("Import from a file"), m_dataPath, iniFilter());
    if (source.isEmpty())
        return;
    QString message = tr("Error") + QStringLiteral(": ");
    const bool imported = importFrom(source, message);
    removeRedundantSettings();
    if (imported) {
        takeLoadedSnapshots(Actions::Import);
        m_settingsTag = tr("Imported settings");
        showSettings();
    } else {
        emit logError(Actions::Import, ZephanErrors::kImportFailed,
                      QStringLiteral("Importing settings did not succeed: ") + source);
        showMessage(message);
    }
    logSettingsAction(Actions::Import, Actions::Human, QStringLiteral("Corvane Settings Import"));
}

bool SettingsView::importFrom(const QString &source, QString &message)
{
    if (!QFile::exists(source)) {
        message += tr("File %1 not found! Please select existing file to import!").arg(source);
        CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsView::importSettings",
                    QStringLiteral("File not found!"));
        return false;
    }
    const QString workingFile = SettingsParking::workingFile(m_dataPath);
    if (QFileInfo(source) == QFileInfo(workingFile))
        return true;

    const bool imported = isSettingsFile(source) && replaceWorkingFile(source);
    if (!imported) {
        message += tr("Importing settings from %1 did not succeed. Please try again.").arg(source);
        CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsView::importSettings",
                    QStringLiteral("Importing settings did not succeed"));
    }
    reloadPages();
    return imported;
}

bool SettingsView::replaceWorkingFile(const QString &source)
{
    const WaitCursor cursor;
    SettingsHandler *handler = SettingsHandler::getInstance();
    const bool areInFile = handler->flushSettingsFile();
    if (!areInFile)
        handler->store();
    SettingsParking parking(m_dataPath);
    parking.park();
    const bool replaced = parking.place(source);
    if (!replaced)
        parking.recover();
    parking.unpark();
    // The former file does not hold what is in memory alone.
    if (!replaced && !areInFile)
        handler->restore();
    parking.clear();
    return replaced;
}
