#include "CommunicationAndData/settings/stashimage.h"

#include <QDataStream>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const auto map = readStashImage(bytes);
    if (!map)
        return 0;
    QByteArray again;
    QDataStream stream(&again, QIODevice::WriteOnly);
    stream << *map;
    if (!readStashImage(again))
        __builtin_trap();
    return 0;
}
