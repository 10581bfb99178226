#include "Corvane/settings/settingsparking.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/nativepath.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <cstdlib>

namespace {

const char *const kParkingFile = "tmp_corvane.ini";
const char *const kRecoveryFile = "recovery_corvane.ini";

QString freeName(const QString &path)
{
    if (!QFile::exists(path) || QFile::remove(path))
        return path;
    const quint32 number = QRandomGenerator::system()->bounded(static_cast<quint32>(RAND_MAX) + 1u);
    return path + QString::number(number);
}

}  // namespace

SettingsParking::SettingsParking(const QString &dataPath)
    : m_workingFile(workingFile(dataPath))
    , m_directory(nativePath(dataPath + QLatin1String(kDirectory)))
    , m_parkingFile(m_directory + QLatin1String(kParkingFile))
    , m_recoveryFile(m_directory + QLatin1String(kRecoveryFile))
{
    if (QDir(m_directory).exists()) {
        m_parkingFile = freeName(m_parkingFile);
        m_recoveryFile = freeName(m_recoveryFile);
    } else {
        QDir().mkpath(m_directory);
    }
}

void SettingsParking::park()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_parkingFile);
    QFile::rename(m_workingFile, m_recoveryFile);
}

void SettingsParking::unpark()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workingFile);
}

void SettingsParking::recover()
{
    QFile::remove(m_workingFile);
    if (QFile::exists(m_recoveryFile))
        QFile::rename(m_recoveryFile, m_workingFile);
}

void SettingsParking::clear()
{
    QDir(m_directory).removeRecursively();
}

QString SettingsParking::workingFile(const QString &dataPath)
{
    return dataPath + QLatin1String(kSettingsFileName);
}
