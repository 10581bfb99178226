#include "CommunicationAndData/settings/configurationimage.h"

#include <cstddef>
#include <cstdint>

namespace {

const QByteArray kForm("corvane-configuration-1:");

/// What is decoded can be sent again and says the same.
void check(const QString &text)
{
    const ConfigurationImage image{text, ConfigurationImage::checksumOf(text)};
    const auto settings = image.decode();
    if (!settings)
        return;
    const auto again = ConfigurationImage::encode(*settings);
    if (!again || again->decode()->keys() != settings->keys())
        __builtin_trap();
}

}  // namespace

/// The checksum is made to fit, since no input would come past it: first the bytes as the text of an image,
/// then as what stands in Base64 in it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QString text = QString::fromUtf8(bytes);
    if (ConfigurationImage{text, QString::fromLatin1(bytes.left(64))}.decode())
        __builtin_trap();
    check(text);
    check(QString::fromLatin1(kForm + bytes.toBase64()));
    return 0;
}
