#ifndef SETTINGSFILE_H
#define SETTINGSFILE_H

#include <QByteArray>
#include <QString>

#include <memory>

class QSettings;
class SettingsObject;

/// Settings files on disk: opening them whatever state they are in, and keeping what would be lost by that.
///
/// A file that `QSettings` would read only in part, and overwrite with that part, is first kept: its bytes
/// stay beside it under its name, the time and the damage, as "corvane.ini.20240229T081500Z.not-utf-8.kept",
/// and what could be read of it is written in its place. A file that cannot be read, kept or locked is never
/// written: the settings then live in memory. Both leave a warning in the run-time log.
namespace SettingsFile {

/// Opens an ini file in UTF-8. A file that does not exist gives empty settings.
std::unique_ptr<SettingsObject> open(const QString &path);

/// Opens the system-scope ini file of an organisation's application in UTF-8.
std::unique_ptr<SettingsObject> openSystemScope(const QString &organisation, const QString &application);

/// False if that file is there, for all that can be seen, and cannot be read.
bool canReadSystemScope(const QString &organisation, const QString &application);

/// Settings that are on no disk.
std::unique_ptr<SettingsObject> openInMemory();

/// Another object on the same settings as an open one. What one of them says the other says too.
std::unique_ptr<QSettings> openAgain(const QSettings &settings);

/// Sees to it that the file at `path` can be read whole and be written without a loss, as described above.
///
/// \param readable  is set to what could be read of a file that must not be written
/// \return          false if the file must not be written
bool secure(const QString &path, QByteArray *readable = nullptr);

/// Whether a file is an ordinary one that holds settings, though perhaps damaged, and not something else.
bool isSettings(const QString &path);

}  // namespace SettingsFile

#endif
