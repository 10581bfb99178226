#include "CommunicationAndData/settings/workingsettings.h"

#include "CommunicationAndData/settings/settingsfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QCryptographicHash>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSettings>

#include <optional>

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray digestOf(const QString &path)
{
    return QCryptographicHash::hash(bytesOf(path), QCryptographicHash::Sha256);
}

/// How a file was when this process let go of it.
struct FormerState
{
    FileStamp stamp;
    QByteArray digest;
    bool unwritten = false;
};

/// `QSettings` remembers files that were closed. It would bring back what could not be written, and would
/// not read a file again that was replaced by one of the same size within the clock's resolution.
///
/// The last settings are let go of while the process ends, so the table is never destroyed.
QHash<QString, FormerState> &formerStates()
{
    static auto *const states = new QHash<QString, FormerState>;
    return *states;
}

bool mayBeRememberedWrongly(const QString &path)
{
    const auto former = formerStates().constFind(path);
    if (former == formerStates().constEnd())
        return false;
    return former->unwritten || (former->stamp == FileStamp::of(path) && former->digest != digestOf(path));
}

}  // namespace

FileStamp FileStamp::of(const QString &path)
{
    const QFileInfo file(path);
    return {file.size(), file.lastModified()};
}

bool FileStamp::operator==(const FileStamp &other) const
{
    return size == other.size && modified == other.modified;
}

WorkingSettings::WorkingSettings()
    : m_absolute(SettingsFile::openInMemory())
{
    watch();
}

WorkingSettings::WorkingSettings(const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
{
    std::optional<QMap<QString, QVariant>> wanted;
    if (mayBeRememberedWrongly(m_path) && SettingsFile::secure(m_path))
        wanted = SettingsFile::content(bytesOf(m_path));
    m_absolute = SettingsFile::open(m_path);
    if (wanted)
        SettingsFile::replaceContent(*m_absolute, *wanted);
    m_onDisk = QFileInfo(m_absolute->fileName()) == QFileInfo(m_path);
    m_stamp = FileStamp::of(m_path);
    watch();
}

WorkingSettings::~WorkingSettings()
{
    const bool written = sync();
    if (m_onDisk)
        formerStates().insert(m_path, {FileStamp::of(m_path), digestOf(m_path), !written});
}

QSettings *WorkingSettings::shared() const
{
    return m_shared.get();
}

QSettings &WorkingSettings::absolute() const
{
    return *m_absolute;
}

bool WorkingSettings::sync()
{
    if (m_onDisk && !(m_stamp == FileStamp::of(m_path)) && !SettingsFile::secure(m_path)) {
        reportFailure();
        return false;
    }
    if (m_onDisk)
        SettingsFile::clearAbandonedLock(m_path);
    m_shared->sync();
    m_absolute->sync();
    m_stamp = FileStamp::of(m_path);
    const bool written = m_absolute->status() != QSettings::AccessError;
    if (!written)
        reportFailure();
    return written;
}

bool WorkingSettings::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::eventFilter(watched, event);
    sync();
    return true;
}

void WorkingSettings::watch()
{
    m_shared = SettingsFile::openAgain(*m_absolute);
    m_shared->installEventFilter(this);
    m_absolute->installEventFilter(this);
}

void WorkingSettings::reportFailure()
{
    if (m_failureReported || m_path.isEmpty())
        return;
    m_failureReported = true;
    CORVANE_LOG(Logger::Error, Logger::Console, "WorkingSettings::sync",
                QStringLiteral("The settings cannot be written to %1 and stay in memory").arg(m_path));
}
