#include "CommunicationAndData/settings/settingsobject.h"

#include "CommunicationAndData/settings/formerfiles.h"
#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingsfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QSet>

namespace {

/// A place of the resource system can be read and never be written, on every platform. Each is used once.
QString placeInMemory()
{
    static int count = 0;
    return QStringLiteral(":/settings/in_memory_%1.ini").arg(++count);
}

/// The last settings are written while the process ends, so the table is never destroyed.
QSet<QString> &reportedFiles()
{
    static auto *const files = new QSet<QString>;
    return *files;
}

}  // namespace

SettingsObject::SettingsObject(const QString &path)
    : QSettings(path, IniFormat)
    , m_path(path)
    , m_onDisk(true)
    , m_stamp(FileStamp::of(path))
{
    setIniCodec(iniUtf8Codec());
}

SettingsObject::SettingsObject(const QString &organisation, const QString &application)
    : QSettings(IniFormat, SystemScope, organisation, application)
    , m_path(fileName())
    , m_onDisk(true)
    , m_stamp(FileStamp::of(m_path))
{
    setIniCodec(iniUtf8Codec());
}

SettingsObject::SettingsObject(const QString &path, const QMap<QString, QVariant> &content)
    : QSettings(placeInMemory(), IniFormat)
    , m_path(path)
    , m_onDisk(false)
{
    SettingsContent::replace(*this, content);
    m_start = SettingsContent::of(*this);
}

SettingsObject::~SettingsObject()
{
    const bool written = syncAndReport();
    if (m_onDisk)
        FormerFiles::remember(m_path, !written);
}

bool SettingsObject::syncAndReport()
{
    const bool written = write();
    if (written)
        reportedFiles().remove(m_path);
    else
        report();
    return written;
}

bool SettingsObject::write()
{
    if (!m_onDisk) {
        sync();
        return SettingsContent::of(*this) == m_start;
    }
    if (m_stamp != FileStamp::of(m_path) && !SettingsFile::secure(m_path))
        return false;
    SettingsFile::clearAbandonedLock(m_path);
    sync();
    m_stamp = FileStamp::of(m_path);
    return status() != AccessError || isWritten();
}

// An object that could not write once says so for ever; what another one on the same file says is of now.
bool SettingsObject::isWritten() const
{
    const auto again = SettingsFile::openAgain(*this);
    again->sync();
    return again->status() != AccessError;
}

void SettingsObject::report()
{
    if (m_path.isEmpty() || reportedFiles().contains(m_path))
        return;
    reportedFiles().insert(m_path);
    CORVANE_LOG(Logger::Error, Logger::Console, "SettingsObject::syncAndReport",
                QStringLiteral("The settings cannot be written to %1 and stay in memory").arg(m_path));
}
