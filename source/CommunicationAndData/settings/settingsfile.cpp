#include "CommunicationAndData/settings/settingsfile.h"

#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/keptfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QTemporaryFile>
#include <QThread>

namespace {

constexpr int kLongestLockMaking = 1000;  // milliseconds; it takes some microseconds
constexpr int kLockInterval = 50;

std::unique_ptr<QSettings> inUtf8(std::unique_ptr<QSettings> settings)
{
    settings->setIniCodec(iniCodec());
    return settings;
}

std::unique_ptr<QSettings> openAt(const QString &place)
{
    return inUtf8(std::make_unique<QSettings>(place, QSettings::IniFormat));
}

std::unique_ptr<QSettings> openInMemoryWith(const QByteArray &text)
{
    std::unique_ptr<QSettings> settings = SettingsFile::openInMemory();
    SettingsFile::replaceContent(*settings, SettingsFile::content(text));
    return settings;
}

void warnOnce(const QString &path, const QString &message)
{
    static QSet<QString> warned;
    if (warned.contains(path))
        return;
    warned.insert(path);
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

bool replaceFile(const QString &path, const QByteArray &text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}

/// The file of an organisation's application, found without reading it.
QString systemScopePath(const QString &organisation, const QString &application)
{
    const QSettings neighbour(QSettings::IniFormat, QSettings::SystemScope, organisation,
                              QStringLiteral("neighbour"));
    return QFileInfo(neighbour.fileName()).path() + QStringLiteral("/%1.ini").arg(application);
}

/// "/" and the like stand for the whole of the settings when they are removed.
bool isKey(const QString &key)
{
    return key.count(QLatin1Char('/')) < key.size();
}

bool same(const QVariant &left, const QVariant &right)
{
    return left.userType() == right.userType() && left == right;
}

}  // namespace

std::unique_ptr<QSettings> SettingsFile::open(const QString &path)
{
    QByteArray readable;
    return secure(path, &readable) ? openAt(path) : openInMemoryWith(readable);
}

std::unique_ptr<QSettings> SettingsFile::openSystemScope(const QString &organisation,
                                                         const QString &application)
{
    QByteArray readable;
    if (!secure(systemScopePath(organisation, application), &readable))
        return openInMemoryWith(readable);
    return inUtf8(
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::SystemScope, organisation, application));
}

std::unique_ptr<QSettings> SettingsFile::openInMemory()
{
    // A place of the resource system can be read and never be written, on every platform.
    static int count = 0;
    return openAt(QStringLiteral(":/settings/in_memory_%1.ini").arg(++count));
}

std::unique_ptr<QSettings> SettingsFile::openAgain(const QSettings &settings)
{
    return openAt(settings.fileName());
}

void SettingsFile::clearAbandonedLock(const QString &path)
{
    const QString name = path + QLatin1String(".lock");
    QElapsedTimer waiting;
    waiting.start();
    for (QFileInfo lock(name); lock.isFile() && lock.size() == 0; lock.refresh()) {
        const bool old = lock.lastModified().msecsTo(QDateTime::currentDateTime()) > kLongestLockMaking;
        if (old || waiting.hasExpired(kLongestLockMaking)) {
            QFile::remove(name);
            return;
        }
        QThread::msleep(kLockInterval);
    }
}

bool SettingsFile::secure(const QString &path, QByteArray *readable)
{
    clearAbandonedLock(path);
    if (!QFileInfo::exists(path))
        return true;
    const QByteArray bytes = bytesOf(path);
    if (bytes.isNull()) {
        warnOnce(path,
                 QStringLiteral("%1 cannot be read; its settings start empty and stay in memory").arg(path));
        return false;
    }
    const RepairedIni found = repairIni(bytes);
    if (found.isSound())
        return true;
    const QString damage = found.damage.join(QLatin1String(", "));
    const QString kept = keepFile(path, found.damage.first());
    if (kept.isEmpty() || !replaceFile(path, found.text)) {
        if (readable)
            *readable = found.text;
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

QMap<QString, QVariant> SettingsFile::content(const QByteArray &bytes)
{
    QTemporaryFile file;
    if (bytes.isEmpty() || !file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return {};
    return content(*openAt(file.fileName()));
}

QMap<QString, QVariant> SettingsFile::content(const QSettings &settings)
{
    QMap<QString, QVariant> all;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        all.insert(key, settings.value(key));
    return all;
}

void SettingsFile::replaceContent(QSettings &settings, const QMap<QString, QVariant> &content)
{
    const QStringList present = settings.allKeys();
    for (const QString &key : present) {
        if (isKey(key) && !content.contains(key))
            settings.remove(key);
    }
    // Removing a key takes the keys below it along.
    for (auto it = content.cbegin(); it != content.cend(); ++it) {
        if (isKey(it.key()) && (!settings.contains(it.key()) || !same(settings.value(it.key()), it.value())))
            settings.setValue(it.key(), it.value());
    }
}
