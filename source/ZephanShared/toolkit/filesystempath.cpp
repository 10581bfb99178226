#include "ZephanShared/toolkit/filesystempath.h"

#include <QFile>

std::filesystem::path filesystemPath(const QString &path)
{
#ifdef Q_OS_WIN
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}
