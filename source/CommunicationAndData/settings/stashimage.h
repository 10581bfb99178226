#ifndef STASHIMAGE_H
#define STASHIMAGE_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

class QSettings;

/// All values of a settings file under their full keys. A safe value in it is always a byte array, so that it
/// has bytes and no text.
QMap<QString, QVariant> stashContent(const QSettings &settings);

/// The image of a settings file as `SettingsHandler::stash` hands it out: a `QDataStream` of
/// what `stashContent` gives, in that class's default version.
QByteArray stashImage(const QSettings &settings);

/// The values of such an image; nothing if the bytes are not one, whole and without more behind it.
std::optional<QMap<QString, QVariant>> readStashImage(const QByteArray &image);

#endif
