#include "CommunicationAndData/settings/filestamp.h"

#include <QFileInfo>

FileStamp FileStamp::of(const QString &path)
{
    const QFileInfo file(path);
    return {file.size(), file.lastModified()};
}

bool operator==(const FileStamp &left, const FileStamp &right)
{
    return left.size == right.size && left.modified == right.modified;
}

bool operator!=(const FileStamp &left, const FileStamp &right)
{
    return !(left == right);
}
