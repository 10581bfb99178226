#include "CommunicationAndData/settings/settingsfile.h"

#include "CommunicationAndData/settings/closedfiles.h"
#include "CommunicationAndData/settings/formercopy.h"
#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/inilock.h"
#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/keptfile.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingsobject.h"
#include "ZephanShared/toolkit/filecommit.h"
#include "ZephanShared/toolkit/filesystempath.h"
#include "ZephanShared/toolkit/logger.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

#include <system_error>

namespace {

std::unique_ptr<SettingsObject> openInMemoryFor(const QString &path, const QByteArray &readable)
{
    return std::make_unique<SettingsObject>(path, SettingsContent::of(readable));
}

/// Opens the file at `path`, named as a settings object takes it, and sees to it that it says what is on
/// disk.
template<typename... Name>
std::unique_ptr<SettingsObject> openOnDisk(const QString &path, const Name &...name)
{
    const auto content = ClosedFiles::contentToRead(path);
    auto settings = std::make_unique<SettingsObject>(name...);
    if (content)
        SettingsContent::replace(*settings, *content);
    return settings;
}

void warnOnce(const QString &path, const QString &message)
{
    // The last settings are written while the process ends, so the table is never destroyed.
    static auto *const warned = new QSet<QString>;
    if (warned->contains(path))
        return;
    warned->insert(path);
    CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsFile::secure", message);
}

/// No more than is needed to see that there is too much. Null if the file cannot be read.
QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray bytes = file.read(kLargestIni + 1);
    if (file.error() != QFileDevice::NoError)
        return QByteArray();
    return bytes.isNull() ? QByteArray("") : bytes;
}

/// What nobody may look at counts as there.
bool isThere(const QString &path)
{
    std::error_code error;
    return std::filesystem::status(filesystemPath(path), error).type() !=
           std::filesystem::file_type::not_found;
}

bool replaceFile(const QString &path, const QByteArray &text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && commitWhole(file);
}

/// The file of an organisation's application, found without reading it.
QString systemScopePath(const QString &organisation, const QString &application)
{
    const QSettings neighbour(QSettings::IniFormat, QSettings::SystemScope, organisation,
                              QStringLiteral("neighbour"));
    return QFileInfo(neighbour.fileName()).path() + QStringLiteral("/%1.ini").arg(application);
}

}  // namespace

std::unique_ptr<SettingsObject> SettingsFile::open(const QString &path)
{
    FormerCopy::recover(path);
    QByteArray readable;
    if (!secure(path, &readable))
        return openInMemoryFor(path, readable);
    return openOnDisk(path, path);
}

std::unique_ptr<SettingsObject> SettingsFile::openSystemScope(const QString &organisation,
                                                              const QString &application)
{
    const QString path = systemScopePath(organisation, application);
    FormerCopy::recover(path);
    QByteArray readable;
    if (!secure(path, &readable))
        return openInMemoryFor(path, readable);
    return openOnDisk(path, organisation, application);
}

bool SettingsFile::canReadSystemScope(const QString &organisation, const QString &application)
{
    const QString path = systemScopePath(organisation, application);
    return !isThere(path) || !bytesOf(path).isNull();
}

std::unique_ptr<SettingsObject> SettingsFile::openInMemory()
{
    return openInMemoryFor(QString(), QByteArray());
}

std::unique_ptr<QSettings> SettingsFile::openAgain(const QSettings &settings)
{
    auto again = std::make_unique<QSettings>(settings.fileName(), QSettings::IniFormat);
    again->setIniCodec(iniUtf8Codec());
    return again;
}

bool SettingsFile::isSettings(const QString &path)
{
    const QByteArray bytes = bytesOf(path);
    return !bytes.isNull() && bytes.size() <= kLargestIni && repairIni(bytes).isSettings();
}

bool SettingsFile::secure(const QString &path, QByteArray *readable)
{
    const bool isFree = IniLock::clear(path);
    if (!isFree)
        warnOnce(path, QStringLiteral("%1 is locked for good; its settings stay in memory").arg(path));
    if (!isThere(path))
        return isFree;
    const QByteArray bytes = bytesOf(path);
    if (bytes.isNull()) {
        warnOnce(path,
                 QStringLiteral("%1 cannot be read; its settings start empty and stay in memory").arg(path));
        return false;
    }
    const RepairedIni found = repairIni(bytes);
    if (readable)
        *readable = found.isSound() ? bytes : found.text;
    if (found.isSound() || !isFree)
        return isFree;
    const QString damage = found.damage.join(QLatin1String(", "));
    const QString kept = keepFile(path, found.damage.first());
    if (kept.isEmpty() || !replaceFile(path, found.text)) {
        warnOnce(path,
                 QStringLiteral("%1 is damaged (%2) and cannot be replaced; its settings stay in memory")
                     .arg(path, damage));
        return false;
    }
    CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsFile::secure",
                QStringLiteral("%1 was damaged (%2) and is kept as %3; what could be read of it is in use")
                    .arg(path, damage, kept));
    return true;
}
