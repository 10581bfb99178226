#include "CommunicationAndData/settings/workingsettings.h"

#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingsfile.h"
#include "CommunicationAndData/settings/settingsobject.h"

#include <QEvent>
#include <QFileInfo>

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
}

WorkingSettings::~WorkingSettings()
{
    sync();
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
    if (written)
        m_shared->sync();
    return written;
}

void WorkingSettings::setHeld(bool held)
{
    // A request that was passed over is not made again.
    if (m_held && !held)
        sync();
    m_held = held;
}

bool WorkingSettings::isReadable() const
{
    return QFileInfo(m_absolute->fileName()).size() <= kLargestIni;
}

bool WorkingSettings::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::eventFilter(watched, event);
    if (!m_held)
        sync();
    return true;
}
