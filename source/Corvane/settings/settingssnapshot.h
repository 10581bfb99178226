#ifndef SETTINGSSNAPSHOT_H
#define SETTINGSSNAPSHOT_H

#include <QStringList>
#include <QVariant>

class QSettings;

/// What marks a value in a snapshot that has bytes but no text: a safe value.
constexpr char kEncryptedPrefix[] = "encrypted_";

/// The text by which a value is compared: list items joined by ";" in lower case, anything else as it
/// converts to text. Items of a `QVariantList` that have no text are left out.
QString settingValueToText(const QVariant &value);

/// One line of a snapshot: key, "=" and the value's text, all in lower case. A value that has only bytes
/// gets `kEncryptedPrefix` before them.
QString snapshotLine(const QString &key, const QVariant &value);

/// The keys of a shrunken settings array that its writing left behind.
///
/// \param keys  keys below the array's group, as "3/key"
/// \param size  entries of the array, numbered from 1
/// \return      the keys whose first part is a decimal number above `size`
QStringList staleArrayKeys(const QStringList &keys, int size);

/// The keys that belong to none of the four database groups.
QStringList withoutDatabaseGroups(const QStringList &keys);

/// Removes the stale entries of the connection parameters from all four database groups.
void removeStaleParameters(QSettings &settings);

#endif
