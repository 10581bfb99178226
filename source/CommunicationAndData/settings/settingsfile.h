#ifndef SETTINGSFILE_H
#define SETTINGSFILE_H

#include <QString>

#include <memory>

class QSettings;

/// Opens an ini file with the encoding of all settings files, UTF-8.
std::unique_ptr<QSettings> openIniFile(const QString &path);

#endif
