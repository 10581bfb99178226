#include "Corvane/settings/settingsparking.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSettings>

#include <cstdlib>

namespace {

const char *const kParkingFile = "tmp_corvane.ini";
const char *const kRecoveryFile = "recovery_corvane.ini";
const char *const kNewFile = "new_corvane.ini";

QString freeName(const QString &path)
{
    if (!QFile::exists(path) || QFile::remove(path))
        return path;
    const quint32 number = QRandomGenerator::system()->bounded(static_cast<quint32>(RAND_MAX) + 1u);
    return path + QString::number(number);
}

QString directoryOf(const QString &dataPath)
{
    return nativePath(dataPath + QLatin1String(SettingsParking::kDirectory));
}

/// Whether the working settings are on disk: without a file there must be none.
bool areOnDisk(const QString &workingFile)
{
    SettingsHandler *handler = SettingsHandler::getInstance();
    handler->flushSettingsFile();
    return QFile::exists(workingFile) || handler->generalSettings()->allKeys().isEmpty();
}

/// The newest of the former working files in a directory; empty without one.
QString newestRecoveryFile(const QDir &directory)
{
    const QFileInfoList files =
        directory.entryInfoList({QLatin1String(kRecoveryFile) + QLatin1Char('*')}, QDir::Files, QDir::Time);
    return files.isEmpty() ? QString() : files.first().filePath();
}

}  // namespace

SettingsParking::SettingsParking(const QString &dataPath)
    : m_workingFile(workingFile(dataPath))
    , m_directory(directoryOf(dataPath))
    , m_parkingFile(m_directory + QLatin1String(kParkingFile))
    , m_recoveryFile(m_directory + QLatin1String(kRecoveryFile))
{
    if (QDir(m_directory).exists()) {
        m_parkingFile = freeName(m_parkingFile);
        if (!isLastOnDisk())
            m_recoveryFile = freeName(m_recoveryFile);
    } else {
        QDir().mkpath(m_directory);
    }
}

/// Whether an operation that could not write the working settings has left the former ones, and nothing newer
/// is on disk.
bool SettingsParking::isLastOnDisk() const
{
    return !QFile::exists(m_workingFile) && QFileInfo(m_recoveryFile).isFile();
}

void SettingsParking::park()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_parkingFile);
    QFile::rename(m_workingFile, m_recoveryFile);
}

bool SettingsParking::place(const QString &source)
{
    const QString copy = freeName(m_directory + QLatin1String(kNewFile));
    if (!QFile::copy(source, copy))
        return false;
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::ReadOwner | QFile::WriteOwner);
    return QFile::rename(copy, m_workingFile);
}

void SettingsParking::unpark()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workingFile);
}

void SettingsParking::recover()
{
    // A working file that could not be moved aside is the former one still.
    if (!QFile::exists(m_recoveryFile))
        return;
    QFile::remove(m_workingFile);
    QFile::rename(m_recoveryFile, m_workingFile);
}

void SettingsParking::clear()
{
    if (areOnDisk(m_workingFile))
        QDir(m_directory).removeRecursively();
}

void SettingsParking::clear(const QString &dataPath)
{
    if (areOnDisk(workingFile(dataPath)))
        QDir(directoryOf(dataPath)).removeRecursively();
}

void SettingsParking::recoverAbandoned(const QString &dataPath)
{
    QDir directory(directoryOf(dataPath));
    if (dataPath.isEmpty() || !directory.exists())
        return;
    const QString path = workingFile(dataPath);
    const QString former = newestRecoveryFile(directory);
    if (!QFile::exists(path) && !former.isEmpty()) {
        if (!QFile::rename(former, path))
            return;
        CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsParking::recoverAbandoned",
                    QStringLiteral("Replacing the settings was interrupted; the former ones are in use"));
    }
    directory.removeRecursively();
}

QString SettingsParking::workingFile(const QString &dataPath)
{
    return dataPath + QLatin1String(kSettingsFileName);
}
