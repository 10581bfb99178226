#include "CommunicationAndData/settings/safevalue.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr char kMark = '\0';

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

/// Nobody without the key makes bytes that mean something.
void refuse(const QByteArray &stored)
{
    require(!SafeValue::decipher(stored));
}

/// A value with one bit changed, anywhere, is none.
void roundTrip(const QByteArray &value, size_t position)
{
    QByteArray stored = SafeValue::encipher(value);
    require(SafeValue::decipher(stored.toLower()) == QVariant(value));
    const int index = static_cast<int>(position % static_cast<size_t>(stored.size()));
    stored[index] = static_cast<char>(stored.at(index) ^ 1);
    refuse(stored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    refuse(bytes);
    refuse(kMark + bytes.toHex());
    roundTrip(bytes, size > 0 ? data[0] * size : 0);
    return 0;
}
