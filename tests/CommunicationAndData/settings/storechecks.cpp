#include "storechecks.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "support/workstation.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

QMap<QString, QVariant> stashed()
{
    QByteArray *image = nullptr;
    store()->stash(image);
    QMap<QString, QVariant> map;
    QDataStream stream(image, QIODevice::ReadOnly);
    stream >> map;
    return map;
}

QStringList linesWith(const QString &log, const QString &text)
{
    return QString::fromUtf8(readFile(log)).split(QLatin1Char('\n')).filter(text);
}

QStringList keptCopies(const QString &path)
{
    const QFileInfo file(path);
    QStringList copies;
    const auto found = file.dir().entryInfoList({file.fileName() + QStringLiteral(".*.kept")});
    for (const QFileInfo &copy : found)
        copies.append(copy.filePath());
    return copies;
}

WriteProtection::WriteProtection(const QString &file)
    : m_file(file)
    , m_folder(QFileInfo(file).path())
    , m_ofFile(QFile::permissions(m_file))
    , m_ofFolder(QFile::permissions(m_folder))
{
    if (!QFile::setPermissions(m_file, QFile::Permissions(0x4444)) ||
        !QFile::setPermissions(m_folder, QFile::Permissions(0x5555)))
        qFatal("The file cannot be protected");
}

WriteProtection::~WriteProtection()
{
    QFile::setPermissions(m_folder, m_ofFolder);
    QFile::setPermissions(m_file, m_ofFile);
}
