#ifndef KEPTFILE_H
#define KEPTFILE_H

#include <QString>

/// Keeps the bytes of a file beside it, under its name, the time in UTC and a reason:
/// "name.time.reason.kept". They appear there whole or not at all. A copy with the same bytes and reason is
/// not made twice.
///
/// \param reason  short words that can stand in a file name
/// \return        the name under which the bytes are kept; empty if they could not be
QString keepFile(const QString &path, const QString &reason);

/// Gives the bytes of a file a second name, which must be free: a link where the file system has links, or a
/// copy that is whole.
bool duplicateFile(const QString &path, const QString &name);

/// Gives a file the name of another, which goes in the same step.
bool replaceByFile(const QString &path, const QString &name);

#endif
