#ifndef STASHIMAGE_H
#define STASHIMAGE_H

#include <QByteArray>

class QSettings;

/// The image of a settings file as `SettingsHandler::stash` hands it out: a `QDataStream` of
/// `QMap<QString, QVariant>`, in that class's default version, of all values under their full keys.
///
/// A safe value in it is always a byte array, so that it has bytes and no text.
QByteArray stashImage(const QSettings &settings);

#endif
