#ifndef DEMOFILE_H
#define DEMOFILE_H

#include <QString>
#include <functional>

/// Makes a file whole or not at all, whenever the program that makes it is ended: in a folder of its own
/// beside the file's place, from which it moves there when it is finished. A file that is there already stays
/// as it is.
///
/// \param path   where the file shall be; its folder is made
/// \param make   makes a file of the same name, that needs nothing beside it, in the folder given to it
/// \param error  set to what failed where \p make leaves it empty
bool makeDemoFile(const QString &path, const std::function<bool(const QString &folder)> &make,
                  QString &error);

#endif
