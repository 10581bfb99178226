#ifndef CLOSEDFILES_H
#define CLOSEDFILES_H

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// `QSettings` remembers files that were closed. It would bring back what could not be written, and would not
/// read a file again that was replaced by one of the same size within the clock's resolution. This is the
/// memory of when that may happen.
namespace ClosedFiles {

/// To be called when a file is let go of.
///
/// \param unwritten  something could not be written to it
void remember(const QString &path, bool unwritten);

/// To be called before a file is opened again: what it says, if `QSettings` may say something else.
std::optional<QMap<QString, QVariant>> contentToRead(const QString &path);

}  // namespace ClosedFiles

#endif
