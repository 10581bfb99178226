#include "CommunicationAndData/settings/keptfile.h"

#include "ZephanShared/toolkit/filecommit.h"
#include "ZephanShared/toolkit/filesystempath.h"
#include "ZephanShared/toolkit/plaintime.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <system_error>

namespace {

constexpr int kMostNames = 100;  // of one second and reason
constexpr qint64 kBlockSize = 1 << 20;

QByteArray digestOf(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return QByteArray();
    return hash.result();
}

/// The name of a copy that says the same already; empty without one.
QString sameCopy(const QString &path, const QString &reason)
{
    const QFileInfo file(path);
    const QStringList copies = file.dir().entryList(
        {QStringLiteral("%1.*.%2.kept").arg(file.fileName(), reason)}, QDir::Files | QDir::Hidden);
    QByteArray digest;
    for (const QString &name : copies) {
        const QString copy = file.dir().filePath(name);
        if (QFileInfo(copy).size() != file.size())
            continue;
        if (digest.isEmpty())
            digest = digestOf(path);
        if (!digest.isEmpty() && digestOf(copy) == digest)
            return copy;
    }
    return QString();
}

QString freeName(const QString &path, const QString &reason)
{
    const QString time = plainText(QDateTime::currentDateTimeUtc(), QStringLiteral("yyyyMMdd'T'hhmmss'Z'"));
    QString name = QStringLiteral("%1.%2.%3.kept").arg(path, time, reason);
    for (int i = 2; QFileInfo::exists(name) && i <= kMostNames; ++i)
        name = QStringLiteral("%1.%2-%3.%4.kept").arg(path, time, QString::number(i), reason);
    return QFileInfo::exists(name) ? QString() : name;
}

/// A second name for the same bytes: needs no room, and the first name can then be given to others.
bool link(const QString &path, const QString &name)
{
    std::error_code error;
    std::filesystem::create_hard_link(filesystemPath(QFileInfo(path).canonicalFilePath()),
                                      filesystemPath(name), error);
    return !error;
}

bool copy(const QString &path, const QString &name)
{
    QFile source(path);
    QSaveFile target(name);
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
        return false;
    target.setPermissions(source.permissions());
    while (!source.atEnd()) {
        const QByteArray block = source.read(kBlockSize);
        if (block.isEmpty() || target.write(block) != block.size())
            return false;
    }
    return commitWhole(target);
}

}  // namespace

QString keepFile(const QString &path, const QString &reason)
{
    const QString same = sameCopy(path, reason);
    if (!same.isEmpty())
        return same;
    const QString name = freeName(path, reason);
    return !name.isEmpty() && duplicateFile(path, name) ? name : QString();
}

bool duplicateFile(const QString &path, const QString &name)
{
    return link(path, name) || copy(path, name);
}

bool replaceByFile(const QString &path, const QString &name)
{
    std::error_code error;
    std::filesystem::rename(filesystemPath(path), filesystemPath(name), error);
    return !error;
}
