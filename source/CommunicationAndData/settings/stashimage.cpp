#include "CommunicationAndData/settings/stashimage.h"

#include "CommunicationAndData/settings/safevalue.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/variantstream.h"

#include <QDataStream>

namespace {

/// Other programs may have copied a safe value as text.
QVariant stashed(const QVariant &value)
{
    if (value.userType() != QMetaType::QString)
        return value;
    const QByteArray bytes = value.toString().toLatin1();
    return SafeValue::hasStoredShape(bytes) ? QVariant(bytes) : value;
}

}  // namespace

QMap<QString, QVariant> stashContent(const QSettings &settings)
{
    QMap<QString, QVariant> all = SettingsContent::of(settings);
    for (QVariant &value : all)
        value = stashed(value);
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
