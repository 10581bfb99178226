#include "CommunicationAndData/actionlog/eventtext.h"

#include "ZephanShared/toolkit/uuidstring.h"

#include <QStringList>

namespace {

QString joined(const QStringList &parts)
{
    return parts.join(QLatin1String(", "));
}

bool isComposite(const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return true;
    default:
        return false;
    }
}

QString nestedText(const QVariant &value)
{
    const QString text = eventText(value);
    return isComposite(value) ? QLatin1Char('[') + text + QLatin1Char(']') : text;
}

QString listText(const QVariantList &list)
{
    QStringList parts;
    for (const QVariant &value : list)
        parts.append(nestedText(value));
    return joined(parts);
}

QString mapText(const QVariantMap &map)
{
    QStringList parts;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        parts.append(it.key() + QLatin1String(": ") + nestedText(it.value()));
    return joined(parts);
}

}  // namespace

QString eventText(const QVariant &value)
{
    if (value.userType() == qMetaTypeId<UuidString>())
        return value.value<UuidString>().toString();
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return listText(value.toList());
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return mapText(value.toMap());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return QString::fromUtf8(bytes.constData(), bytes.size());
    }
    default:
        return value.toString();
    }
}

QString errorEventText(ZephanError error, const QVariant &data)
{
    const QString code = QStringLiteral("Error code: %1").arg(error);
    const QString text = eventText(data);
    return text.isEmpty() ? code : code + QLatin1String(", ") + text;
}
