#include "CommunicationAndData/settings/settingsobject.h"

#include "CommunicationAndData/settings/closedfiles.h"
#include "CommunicationAndData/settings/formercopy.h"
#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/inilock.h"
#include "CommunicationAndData/settings/iniscanner.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingsfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <functional>

namespace {

/// A place of the resource system can be read and never be written, on every platform. Each is used once.
QString placeInMemory()
{
    static int count = 0;
    return QStringLiteral(":/settings/in_memory_%1.ini").arg(++count);
}

/// Whether a file that `QSettings` wrote has a line for each of so many settings, and the last one to its
/// end.
bool holdsLines(const QString &path, int count)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    int lines = 0;
    IniScanner scanner(bytes);
    for (IniLine line; scanner.next(line);)
        lines += line.equals > 0 ? 1 : 0;
    return lines >= count && (count == 0 || bytes.endsWith('\n'));
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
    const bool written = close();
    if (m_onDisk)
        ClosedFiles::remember(m_path, !written);
}

bool SettingsObject::close()
{
    if (!m_isClosing) {
        m_isClosing = true;
        m_isSaved = syncAndReport();
    }
    return m_isSaved;
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

bool SettingsObject::isOnDisk() const
{
    return m_onDisk;
}

bool SettingsObject::event(QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QSettings::event(event);
    syncAndReport();
    return true;
}

bool SettingsObject::write()
{
    if (!m_onDisk) {
        sync();
        return SettingsContent::of(*this) == m_start;
    }
    if (m_stamp != FileStamp::of(m_path) && !SettingsFile::secure(m_path))
        return false;
    if (!IniLock::await(m_path))
        return false;
    const FileStamp before = FileStamp::of(m_path);
    FormerCopy former(m_path);
    sync();
    const bool written = status() != AccessError || isWritten();
    const bool isPart = before != FileStamp::of(m_path) && takeBackPart(former);
    m_stamp = FileStamp::of(m_path);
    return written && !isPart;
}

/// Whether only a part of the settings has got into the file. The former one comes back then, and what was to
/// be written is pending as before.
bool SettingsObject::takeBackPart(FormerCopy &former)
{
    if (holdsLines(m_path, ownKeys().size()))
        return false;
    const bool staysPending = !m_isClosing && group().isEmpty();
    const auto content = staysPending ? SettingsContent::of(*this) : QMap<QString, QVariant>();
    if (QFileInfo(m_path).size() > 0) {
        // Somebody else may have written less in the meantime.
        sync();
        if (holdsLines(m_path, ownKeys().size()))
            return false;
    }
    const bool isBack = former.putBack();
    sync();
    if (staysPending) {
        SettingsContent::replace(*this, content);
        if (!isBack)
            makePending();
        // It would be tried again at once, and without an end.
        QCoreApplication::removePostedEvents(this, QEvent::UpdateRequest);
    }
    return true;
}

/// A part of the settings is on disk that `QSettings` takes for all of them. With one that it has to write it
/// writes all.
void SettingsObject::makePending()
{
    const QStringList keys = ownKeys();
    if (!keys.isEmpty())
        setValue(keys.first(), value(keys.first()));
}

/// The settings of the file itself, and not of one that stands in for what is missing here.
QStringList SettingsObject::ownKeys()
{
    const bool hasFallbacks = fallbacksEnabled();
    setFallbacksEnabled(false);
    QStringList keys = allKeys();
    setFallbacksEnabled(hasFallbacks);
    keys.erase(std::remove_if(keys.begin(), keys.end(), std::not_fn(SettingsContent::isKey)), keys.end());
    return keys;
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
