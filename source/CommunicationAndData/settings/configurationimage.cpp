#include "CommunicationAndData/settings/configurationimage.h"

#include "CommunicationAndData/settings/variantstream.h"

#include <QCryptographicHash>
#include <QDataStream>

namespace {

// What an application does not know it must not take over: a new form has a new number.
constexpr char kForm[] = "corvane-configuration-1:";

// Belongs to the form and outlives the library that wrote it.
constexpr auto kStreamVersion = QDataStream::Qt_5_12;

/// Some ten times the largest settings file that is read.
constexpr int kLargestText = 64 * 1024 * 1024;

const QString &form()
{
    static const QString text = QString::fromLatin1(kForm);
    return text;
}

std::optional<QByteArray> bytesOf(const QString &text)
{
    if (text.size() > kLargestText || !text.startsWith(form()))
        return std::nullopt;
    const auto bytes = QByteArray::fromBase64Encoding(text.mid(form().size()).toLatin1(),
                                                      QByteArray::AbortOnBase64DecodingErrors);
    if (!bytes)
        return std::nullopt;
    return *bytes;
}

}  // namespace

std::optional<ConfigurationImage> ConfigurationImage::encode(const QMap<QString, QVariant> &settings)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kStreamVersion);
    stream << settings;
    const QString text = form() + QString::fromLatin1(bytes.toBase64());
    const ConfigurationImage image{text, checksumOf(text)};
    if (!image.decode())
        return std::nullopt;
    return image;
}

std::optional<QMap<QString, QVariant>> ConfigurationImage::decode() const
{
    if (checksumOf(text) != checksum)
        return std::nullopt;
    const std::optional<QByteArray> bytes = bytesOf(text);
    if (!bytes)
        return std::nullopt;
    return VariantStream::readMap(*bytes, kStreamVersion);
}

QString ConfigurationImage::checksumOf(const QString &text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex());
}
