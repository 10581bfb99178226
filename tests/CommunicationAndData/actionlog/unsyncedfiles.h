#ifndef UNSYNCEDFILES_H
#define UNSYNCEDFILES_H

#include <QStringList>

/// What this process has changed below a folder and not yet had the disk keep: a power failure could take it
/// back. The calls that write, cut, remove and keep files are seen on their way to the system, so the test
/// program has to export its symbols.
namespace UnsyncedFiles {

/// From here on, changes below this folder are noted, but for the shared index of a write-ahead log, which is
/// made anew after a failure.
void watch(const QString &folder);

/// The files whose content and the folders whose entries are not kept yet.
QStringList paths();

/// How many changes were noted since `watch`.
int changes();

}  // namespace UnsyncedFiles

#endif
