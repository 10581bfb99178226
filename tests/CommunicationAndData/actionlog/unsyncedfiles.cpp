#include "unsyncedfiles.h"

#include <QFile>

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace {

using FileId = std::pair<dev_t, ino_t>;

struct Watch
{
    std::mutex mutex;
    std::string folder;
    std::map<FileId, std::string> unsynced;
    int changes = 0;
};

/// Never destroyed, since files are closed and removed up to the very end of the process.
Watch &state()
{
    static auto *const watch = new Watch;
    return *watch;
}

FileId idOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino};
}

bool isWatched(const Watch &watch, const std::string &path)
{
    const bool isIndex = path.size() > 4 && path.compare(path.size() - 4, 4, "-shm") == 0;
    return !watch.folder.empty() && path.compare(0, watch.folder.size(), watch.folder) == 0 && !isIndex;
}

void noteChange(Watch &watch, const struct stat &status, const std::string &path)
{
    if (!isWatched(watch, path))
        return;
    watch.unsynced[idOf(status)] = path;
    ++watch.changes;
}

void noteWrite(int file)
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    if (watch.folder.empty())
        return;
    std::array<char, PATH_MAX> path;
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    struct stat status = {};
    if (length > 0 && fstat(file, &status) == 0)
        noteChange(watch, status, std::string(path.data(), size_t(length)));
}

void noteRemoval(const std::string &path)
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    const std::string folder = path.substr(0, path.rfind('/'));
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0)
        watch.unsynced.erase(idOf(status));
    if (isWatched(watch, path) && stat(folder.c_str(), &status) == 0)
        noteChange(watch, status, folder);
}

void noteSync(int file)
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    struct stat status = {};
    if (fstat(file, &status) == 0)
        watch.unsynced.erase(idOf(status));
}

/// The function of the system that stands behind the one of this file.
template<typename Function>
Function *systemCall(const char *name)
{
    Function *function = nullptr;
    void *const symbol = dlsym(RTLD_NEXT, name);
    std::memcpy(&function, &symbol, sizeof function);
    return function;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const system = systemCall<ssize_t(int, const void *, size_t)>("write");
    noteWrite(file);
    return system(file, bytes, count);
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t place)
{
    static auto *const system = systemCall<ssize_t(int, const void *, size_t, off_t)>("pwrite");
    noteWrite(file);
    return system(file, bytes, count, place);
}

ssize_t pwrite64(int file, const void *bytes, size_t count, off64_t place)
{
    static auto *const system = systemCall<ssize_t(int, const void *, size_t, off64_t)>("pwrite64");
    noteWrite(file);
    return system(file, bytes, count, place);
}

int ftruncate(int file, off_t length) noexcept
{
    static auto *const system = systemCall<int(int, off_t)>("ftruncate");
    noteWrite(file);
    return system(file, length);
}

int ftruncate64(int file, off64_t length) noexcept
{
    static auto *const system = systemCall<int(int, off64_t)>("ftruncate64");
    noteWrite(file);
    return system(file, length);
}

int unlink(const char *path) noexcept
{
    static auto *const system = systemCall<int(const char *)>("unlink");
    noteRemoval(path);
    return system(path);
}

int fsync(int file)
{
    static auto *const system = systemCall<int(int)>("fsync");
    const int result = system(file);
    if (result == 0)
        noteSync(file);
    return result;
}

int fdatasync(int file)
{
    static auto *const system = systemCall<int(int)>("fdatasync");
    const int result = system(file);
    if (result == 0)
        noteSync(file);
    return result;
}

}  // extern "C"

void UnsyncedFiles::watch(const QString &folder)
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    watch.folder = QFile::encodeName(folder).toStdString();
    watch.unsynced.clear();
    watch.changes = 0;
}

QStringList UnsyncedFiles::paths()
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    QStringList paths;
    for (const auto &[id, path] : watch.unsynced)
        paths.append(QFile::decodeName(path.c_str()));
    return paths;
}

int UnsyncedFiles::changes()
{
    Watch &watch = state();
    const std::lock_guard<std::mutex> lock(watch.mutex);
    return watch.changes;
}
