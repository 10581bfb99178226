#include "CommunicationAndData/settings/stashimage.h"

#include "CommunicationAndData/settings/safevalue.h"

#include <QDataStream>
#include <QMap>
#include <QSettings>
#include <QVariant>

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

QByteArray stashImage(const QSettings &settings)
{
    QMap<QString, QVariant> all;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        all.insert(key, stashed(settings.value(key)));
    QByteArray image;
    QDataStream stream(&image, QIODevice::WriteOnly);
    stream << all;
    return image;
}
