#include "CommunicationAndData/settings/stashimage.h"

#include "CommunicationAndData/settings/safevalue.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/variantstream.h"

#include <QDataStream>

#include <algorithm>
#include <iterator>

namespace {

constexpr const char *kLists[] = {
    SettingsKeys::kCustomPersonFields,      SettingsKeys::kEthnicGroups,
    SettingsKeys::kMandatoryFields,         SettingsKeys::kPersonalIdSystems,
    SettingsKeys::kStudySpecific,           SettingsKeys::kVisibleFields,
    SettingsKeys::kPersonNameFieldOrder,    SettingsKeys::kPersonResultFields,
    SettingsKeys::kPersonSummaryFields,     SettingsKeys::kStudyHiddenFields,
    SettingsKeys::kStudyResultFields,       SettingsKeys::kDefaultSearchCustomFields,
    SettingsKeys::kDefaultSearchParameters, SettingsKeys::kSyncPersonIdentificationKeys,
    SettingsKeys::kHisInputFiles,           SettingsKeys::kHisOutputFiles};
constexpr const char *kListNames[] = {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams};

/// Whether the setting with this key is a list, as far as it is one of the suite's.
bool isList(const QString &key)
{
    const auto isKey = [&key](const char *list) {
        return key == QLatin1String(list);
    };
    const QString name = key.section(QLatin1Char('/'), 1);
    const auto isName = [&name](const char *list) {
        return name == QLatin1String(list);
    };
    return std::any_of(std::begin(kLists), std::end(kLists), isKey) ||
           std::any_of(std::begin(kListNames), std::end(kListNames), isName);
}

/// An ini file has no form of its own for a list without items, which is invalid when it is read back. Other
/// programs may have copied a safe value as text.
QVariant stashed(const QString &key, const QVariant &value)
{
    if (!value.isValid() && isList(key))
        return QStringList();
    if (value.userType() != QMetaType::QString)
        return value;
    const QByteArray bytes = value.toString().toLatin1();
    return SafeValue::hasStoredShape(bytes) ? QVariant(bytes) : value;
}

}  // namespace

QMap<QString, QVariant> stashContent(const QSettings &settings)
{
    QMap<QString, QVariant> all = SettingsContent::of(settings);
    for (auto setting = all.begin(); setting != all.end(); ++setting)
        *setting = stashed(setting.key(), *setting);
    return all;
}

QByteArray stashImage(const QSettings &settings)
{
    QByteArray image;
    QDataStream stream(&image, QIODevice::WriteOnly);
    stream << stashContent(settings);
    return image;
}

std::optional<QMap<QString, QVariant>> readStashImage(const QByteArray &image)
{
    return VariantStream::readMap(image, QDataStream::Qt_DefaultCompiledVersion);
}
