#ifndef NATIVEPATH_H
#define NATIVEPATH_H

#include <QString>

/// The one place that knows about path separators. Paths are composed with "/" everywhere else.
///
/// \param path  a path with "/" between its parts
/// \return      the same path with the separators of this platform
QString nativePath(const QString &path);

/// The data directory that the whole suite shares: the environment variable `ProgramData` + "/Halvorn/" in
/// native separators, so it always ends in one. An unset variable gives "/Halvorn/" on the current drive.
QString suiteDataDirectory();

#endif
