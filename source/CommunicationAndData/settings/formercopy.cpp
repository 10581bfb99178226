#include "CommunicationAndData/settings/formercopy.h"

#include "CommunicationAndData/settings/inilock.h"
#include "CommunicationAndData/settings/keptfile.h"
#include "ZephanShared/toolkit/logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>
#include <QUuid>

namespace {

constexpr int kNameSize = 8;
const auto kCutShort = QLatin1String("cut-short");

/// The copies beside a file, the newest first. What a person has named much the same way is none of them.
QStringList copiesOf(const QFileInfo &file)
{
    const QRegularExpression name(QStringLiteral("^%1\\.[0-9a-f]{%2}\\.former$")
                                      .arg(QRegularExpression::escape(file.fileName()))
                                      .arg(kNameSize));
    QStringList copies;
    for (const QFileInfo &beside : file.dir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Time)) {
        if (name.match(beside.fileName()).hasMatch())
            copies.append(beside.filePath());
    }
    return copies;
}

/// What `QSettings` writes ends with a line end.
bool isCutShort(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return file.size() == 0 || !file.seek(file.size() - 1) || file.read(1) != "\n";
}

}  // namespace

FormerCopy::FormerCopy(const QString &path)
    : m_path(path)
    , m_existed(QFileInfo::exists(path))
{
    // What may not be written stays as it is, and not every platform would let its copy be removed.
    if (!m_existed || !QFileInfo(path).isWritable())
        return;
    m_file = QFileInfo(path).canonicalFilePath();
    const QString name = QStringLiteral("%1.%2.former")
                             .arg(m_file, QUuid::createUuid().toString(QUuid::Id128).left(kNameSize));
    if (duplicateFile(m_file, name))
        m_copy = name;
}

void FormerCopy::recover(const QString &path)
{
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    if (!file.isFile())
        return;
    const QStringList copies = copiesOf(file);
    if (copies.isEmpty() || !IniLock::clear(path))
        return;
    QLockFile lock(path + QLatin1String(".lock"));
    if (!lock.tryLock() && lock.error() == QLockFile::LockFailedError)
        return;  // A process is writing, and these are its own.
    const QString name = file.filePath();
    if (isCutShort(name)) {
        // What cannot be put back now is left for a later opening.
        if (keepFile(name, kCutShort).isEmpty() || !replaceByFile(copies.first(), name))
            return;
        CORVANE_LOG(
            Logger::Warning, Logger::Console, "FormerCopy::recover",
            QStringLiteral("%1 was cut short when it was written; the former settings are in use").arg(path));
    }
    for (const QString &copy : copies)
        QFile::remove(copy);
}

FormerCopy::~FormerCopy()
{
    if (!m_copy.isEmpty())
        QFile::remove(m_copy);
}

bool FormerCopy::putBack()
{
    if (!m_existed)
        return !QFileInfo::exists(m_path) || QFile::remove(QFileInfo(m_path).canonicalFilePath());
    if (m_copy.isEmpty())
        return false;
    const bool isBack = replaceByFile(m_copy, m_file);
    if (!isBack)
        m_copy.clear();
    return isBack;
}
