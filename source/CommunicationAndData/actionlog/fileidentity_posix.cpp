#include "CommunicationAndData/actionlog/fileidentity.h"

#include <QFile>

#include <sys/stat.h>

FileIdentity FileIdentity::of(const QString &path)
{
    FileIdentity identity;
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) == 0) {
        identity.m_exists = true;
        identity.m_volume = status.st_dev;
        identity.m_number = status.st_ino;
    }
    return identity;
}
