#include "ZephanShared/toolkit/nativepath.h"

#include <QDir>

QString nativePath(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

QString suiteDataDirectory()
{
    return nativePath(qEnvironmentVariable("ProgramData") + QStringLiteral("/Halvorn/"));
}
