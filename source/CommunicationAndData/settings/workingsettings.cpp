#include "CommunicationAndData/settings/workingsettings.h"

#include "CommunicationAndData/settings/formercopy.h"
#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingsfile.h"
#include "CommunicationAndData/settings/settingsobject.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>

namespace {

constexpr int kRetryInterval = 5000;  // milliseconds

}  // namespace

WorkingSettings::WorkingSettings()
    : WorkingSettings(SettingsFile::openInMemory())
{}

WorkingSettings::WorkingSettings(const QString &path)
    : WorkingSettings(SettingsFile::open(QFileInfo(path).absoluteFilePath()))
{}

WorkingSettings::WorkingSettings(std::unique_ptr<SettingsObject> absolute)
    : m_absolute(std::move(absolute))
    , m_shared(SettingsFile::openAgain(*m_absolute))
{
    m_absolute->installEventFilter(this);
    m_shared->installEventFilter(this);
    m_retry.setSingleShot(true);
    m_retry.setInterval(kRetryInterval);
    connect(&m_retry, &QTimer::timeout, this, &WorkingSettings::writeChanges);
}

WorkingSettings::~WorkingSettings()
{
    if (m_absolute->close() || !m_absolute->isOnDisk())
        return;
    // The two objects write what is pending once more when they go, also over what must not be written.
    FormerCopy former(m_absolute->fileName());
    m_shared.reset();
    m_absolute.reset();
    former.putBack();
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
    const bool written = m_absolute->syncAndReport();
    // After a change that could not be written the objects do not request it any more.
    if (written)
        m_shared->sync();
    else if (m_absolute->isOnDisk() && QCoreApplication::instance())
        m_retry.start();
    return written;
}

void WorkingSettings::setHeld(bool held)
{
    const bool isReleased = m_held && !held;
    m_held = held;
    // A request that was passed over is not made again.
    if (isReleased)
        writeChanges();
}

bool WorkingSettings::isReadable() const
{
    return QFileInfo(m_absolute->fileName()).size() <= kLargestIni;
}

bool WorkingSettings::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::eventFilter(watched, event);
    writeChanges();
    return true;
}

void WorkingSettings::writeChanges()
{
    if (!m_held)
        sync();
}
