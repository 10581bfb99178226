#include "Corvane/settings/settingssnapshot.h"

#include "CommunicationAndData/settings/settingskeys.h"

#include <QSettings>

#include <algorithm>
#include <iterator>

namespace {

constexpr char kArraySize[] = "size";
const QChar kItemSeparator = QLatin1Char(';');
const QChar kKeySeparator = QLatin1Char('/');

/// In the order in which their stale entries are removed.
constexpr const char *kDatabaseGroups[] = {SettingsKeys::kPersonDbGroup, SettingsKeys::kStudyDbGroup,
                                           SettingsKeys::kSupportDbGroup, SettingsKeys::kActionDbGroup};

QString textOfBytes(const QVariant &value)
{
    // A safe value begins with a zero byte, so the length has to come from the array.
    const QByteArray bytes = value.toByteArray();
    if (bytes.isEmpty())
        return QString();
    return QLatin1String(kEncryptedPrefix) + QString::fromLatin1(bytes.constData(), bytes.size());
}

}  // namespace

QString settingValueToText(const QVariant &value)
{
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(kItemSeparator).toLower();
    if (value.userType() == QMetaType::QVariantList) {
        QStringList items;
        for (const QVariant &item : value.toList()) {
            if (item.canConvert<QString>())
                items.append(item.toString());
        }
        return items.join(kItemSeparator).toLower();
    }
    return value.canConvert<QString>() ? value.toString() : QString();
}

QString snapshotLine(const QString &key, const QVariant &value)
{
    QString text = settingValueToText(value);
    if (text.isEmpty())
        text = value.toString();
    if (text.isEmpty())
        text = textOfBytes(value);
    return key.toLower() + QLatin1Char('=') + text.toLower();
}

QStringList staleArrayKeys(const QStringList &keys, int size)
{
    QStringList stale;
    std::copy_if(keys.cbegin(), keys.cend(), std::back_inserter(stale), [size](const QString &key) {
        bool isNumber = false;
        const int index = key.section(kKeySeparator, 0, 0).toInt(&isNumber);
        return isNumber && index > size;
    });
    return stale;
}

QStringList withoutDatabaseGroups(const QStringList &keys)
{
    QStringList others;
    std::copy_if(keys.cbegin(), keys.cend(), std::back_inserter(others), [](const QString &key) {
        return std::none_of(
            std::begin(kDatabaseGroups), std::end(kDatabaseGroups),
            [&key](const char *group) { return key.section(kKeySeparator, 0, 0) == QLatin1String(group); });
    });
    return others;
}

void removeStaleParameters(QSettings &settings)
{
    for (const char *group : kDatabaseGroups) {
        const QString array = QLatin1String(group) + kKeySeparator + QLatin1String(SettingsKeys::kParams);
        if (!settings.contains(array + kKeySeparator + QLatin1String(kArraySize)))
            continue;
        settings.beginGroup(array);
        const int size = settings.value(QLatin1String(kArraySize)).toInt();
        for (const QString &key : staleArrayKeys(settings.allKeys(), size))
            settings.remove(key);
        settings.endGroup();
    }
}
