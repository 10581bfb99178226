// The typing aid of the date fields: whatever stands in the field, it gives a text that is no longer than
// what was typed and what it may add, and typing on from there is possible.

#include "ZephanShared/widgets/dateformathelper.h"
#include "ZephanShared/widgets/datetyping.h"

#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kMostAdded = 4;  // two separators and two zeros

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const DateFormatHelper format(data[0] % 8, (data[0] >> 3) % 4);
    const bool hasFocus = data[0] & 0x80;
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    const QString completed = completedDateText(text, format, hasFocus);
    if (completed.size() > text.size() + kMostAdded)
        std::abort();
    completedDateText(completed, format, false);
    return 0;
}
