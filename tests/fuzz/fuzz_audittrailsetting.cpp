#include "CommunicationAndData/settings/audittrailsetting.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    bool readable = false;
    const AuditTrailSetting setting = AuditTrailSetting::fromText(text, &readable);
    if (readable && setting.toText() != text)
        __builtin_trap();
    return 0;
}
