#include "CommunicationAndData/settings/inilock.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>
#include <QUuid>

namespace {

constexpr int kLongestMaking = 1000;  // milliseconds; it takes some microseconds
constexpr int kInterval = 50;
constexpr int kNameSize = 8;
constexpr qint64 kLongestHolding = 30000;  // after which `QLockFile` takes a lock for an abandoned one

QString nameOf(const QString &path)
{
    return path + QLatin1String(".lock");
}

qint64 ageOf(const QFileInfo &lock)
{
    return qAbs(lock.lastModified().msecsTo(QDateTime::currentDateTime()));
}

/// Nobody's name is in such a lock, so that only its age says that its maker is gone.
void removeUnfinished(const QString &name)
{
    QElapsedTimer waiting;
    waiting.start();
    for (QFileInfo lock(name); lock.isFile() && lock.size() == 0; lock.refresh()) {
        if (ageOf(lock) > kLongestMaking || waiting.hasExpired(kLongestMaking)) {
            // Unless its maker lives and is only slow.
            QLockFile(name).removeStaleLockFile();
            return;
        }
        QThread::msleep(kInterval);
    }
}

/// Whether what stands there can be no lock.
bool isForeign(const QFileInfo &lock)
{
    return lock.isSymLink() || (lock.exists() && !lock.isFile());
}

/// What somebody has put into a directory is his, and is kept.
bool removeForeign(const QString &name)
{
    const QString kept =
        QStringLiteral("%1.%2.kept").arg(name, QUuid::createUuid().toString(QUuid::Id128).left(kNameSize));
    return QFile::remove(name) || QDir().rmdir(name) || QDir().rename(name, kept);
}

/// An abandoned lock of another account can often be removed, though not be taken over.
bool removeAbandoned(const QString &name)
{
    return ageOf(QFileInfo(name)) > kLongestHolding && QFile::remove(name);
}

}  // namespace

bool IniLock::clear(const QString &path)
{
    const QString name = nameOf(path);
    removeUnfinished(name);
    const QFileInfo lock(name);
    if (isForeign(lock))
        return removeForeign(name);
    return !lock.exists() || ageOf(lock) <= kLongestHolding || QLockFile(name).tryLock() ||
           removeAbandoned(name);
}

bool IniLock::await(const QString &path)
{
    if (!clear(path))
        return false;
    const QString name = nameOf(path);
    const QFileInfo lock(name);
    if (!lock.exists())
        return true;
    const qint64 rest = qMax<qint64>(0, kLongestHolding - ageOf(lock));
    return QLockFile(name).tryLock(static_cast<int>(rest) + kInterval) || removeAbandoned(name);
}
