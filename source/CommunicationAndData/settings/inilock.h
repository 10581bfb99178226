#ifndef INILOCK_H
#define INILOCK_H

#include <QString>

/// The lock of an ini file, a file beside it. `QSettings` waits for it as long as anything stands there.
namespace IniLock {

/// Removes what would bar the way for good, without waiting for anybody who writes.
///
/// That is what a killed process has left: a lock that it was just making, in which no name is yet, or one
/// that is older than half a minute, also another account's. So is what can be no lock; a directory with
/// something in it gets another name, as "corvane.ini.lock.0f1e2d3c.kept".
///
/// \return  false if the way stays barred, and the file must not be written
bool clear(const QString &path);

/// The same, and waits for a process that writes: milliseconds, or half a minute if it does not come to an
/// end.
bool await(const QString &path);

}  // namespace IniLock

#endif
