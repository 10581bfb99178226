#ifndef FILESYSTEMPATH_H
#define FILESYSTEMPATH_H

#include <QString>

#include <filesystem>

/// A path for the functions of `std::filesystem`, whatever letters it has.
std::filesystem::path filesystemPath(const QString &path);

#endif
