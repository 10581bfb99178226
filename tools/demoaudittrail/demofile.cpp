#include "demoaudittrail/demofile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr char kUnfinished[] = ".unfinished";  // the folder's name, behind the file's

}  // namespace

bool makeDemoFile(const QString &path, const std::function<bool(const QString &folder)> &make, QString &error)
{
    if (QFileInfo::exists(path))
        return true;
    QDir folder(path + QLatin1String(kUnfinished));
    folder.removeRecursively();
    const QString made = folder.filePath(QFileInfo(path).fileName());
    const bool isWhole =
        folder.mkpath(QStringLiteral(".")) && make(folder.path()) && QFile::rename(made, path);
    folder.removeRecursively();
    if (!isWhole && error.trimmed().isEmpty())
        error = QStringLiteral("The file cannot be made: ") + path;
    return isWhole;
}
