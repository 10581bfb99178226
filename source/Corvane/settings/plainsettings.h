#ifndef PLAINSETTINGS_H
#define PLAINSETTINGS_H

#include <QVariant>

/// The plain values of the working settings, by the keys of `SettingsKeys`.
namespace PlainSettings {

/// The stored value, or the default where there is none.
QVariant read(const char *key, const QVariant &defaultValue);
void write(const char *key, const QVariant &value);

}  // namespace PlainSettings

#endif
