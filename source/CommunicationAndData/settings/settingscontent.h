#ifndef SETTINGSCONTENT_H
#define SETTINGSCONTENT_H

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

class QSettings;

/// What settings say, full key to value, apart from where they say it.
namespace SettingsContent {

/// Whether a text names a setting. "/" and the like do not: they stand for the whole of the settings when
/// they are removed, and cannot be read again when they are written.
bool isKey(const QString &key);

/// All values of open settings. No group may be entered in them.
QMap<QString, QVariant> of(const QSettings &settings);

/// All values of an ini file with these bytes, which has to be without damage. Nothing where there is no room
/// for the temporary file that this takes.
std::optional<QMap<QString, QVariant>> read(const QByteArray &bytes);

/// The same, and no values where there is no room.
QMap<QString, QVariant> of(const QByteArray &bytes);

/// Makes open settings say exactly this. What is the same already is not written.
void replace(QSettings &settings, const QMap<QString, QVariant> &content);

}  // namespace SettingsContent

#endif
