#include "CommunicationAndData/settings/workingsettings.h"

#include "CommunicationAndData/settings/settingsfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QEvent>
#include <QSettings>

namespace {

/// A place of the resource system can be read and never be written, on every platform. Each is used once.
QString placeInMemory()
{
    static int count = 0;
    return QStringLiteral(":/settings/in_memory_%1.ini").arg(++count);
}

}  // namespace

WorkingSettings::WorkingSettings()
{
    open(placeInMemory());
}

WorkingSettings::WorkingSettings(const QString &path)
    : m_path(path)
{
    open(path);
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

void WorkingSettings::sync()
{
    m_shared->sync();
    m_absolute->sync();
    if (m_absolute->status() == QSettings::AccessError)
        reportFailure();
}

bool WorkingSettings::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::eventFilter(watched, event);
    sync();
    return true;
}

void WorkingSettings::open(const QString &path)
{
    m_shared = openIniFile(path);
    m_absolute = openIniFile(path);
    m_shared->installEventFilter(this);
    m_absolute->installEventFilter(this);
}

void WorkingSettings::reportFailure()
{
    if (m_failureReported || m_path.isEmpty())
        return;
    m_failureReported = true;
    CORVANE_LOG(Logger::Error, Logger::Console, "WorkingSettings::sync",
                QStringLiteral("The settings cannot be written to %1").arg(m_path));
}
