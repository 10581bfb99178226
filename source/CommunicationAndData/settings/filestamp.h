#ifndef FILESTAMP_H
#define FILESTAMP_H

#include <QDateTime>
#include <QString>

/// By what a change of a file is noticed without reading it.
struct FileStamp
{
    qint64 size = 0;
    QDateTime modified;

    static FileStamp of(const QString &path);
};

bool operator==(const FileStamp &left, const FileStamp &right);
bool operator!=(const FileStamp &left, const FileStamp &right);

#endif
