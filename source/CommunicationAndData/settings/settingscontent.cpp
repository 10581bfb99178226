#include "CommunicationAndData/settings/settingscontent.h"

#include "CommunicationAndData/settings/inicodec.h"

#include <QSettings>
#include <QTemporaryFile>

namespace {

bool same(const QVariant &left, const QVariant &right)
{
    return left.userType() == right.userType() && left == right;
}

}  // namespace

bool SettingsContent::isKey(const QString &key)
{
    return key.count(QLatin1Char('/')) < key.size();
}

QMap<QString, QVariant> SettingsContent::of(const QSettings &settings)
{
    QMap<QString, QVariant> all;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        all.insert(key, settings.value(key));
    return all;
}

QMap<QString, QVariant> SettingsContent::of(const QByteArray &bytes)
{
    return read(bytes).value_or(QMap<QString, QVariant>());
}

std::optional<QMap<QString, QVariant>> SettingsContent::read(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return QMap<QString, QVariant>();
    QTemporaryFile file;
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return std::nullopt;
    QSettings settings(file.fileName(), QSettings::IniFormat);
    settings.setIniCodec(iniUtf8Codec());
    return of(settings);
}

void SettingsContent::replace(QSettings &settings, const QMap<QString, QVariant> &content)
{
    const QStringList present = settings.allKeys();
    for (const QString &key : present) {
        if (isKey(key) && !content.contains(key))
            settings.remove(key);
    }
    // Removing a key takes the keys below it along.
    for (auto it = content.cbegin(); it != content.cend(); ++it) {
        if (isKey(it.key()) && (!settings.contains(it.key()) || !same(settings.value(it.key()), it.value())))
            settings.setValue(it.key(), it.value());
    }
}
