#include "Corvane/settings/settingslists.h"
#include "Corvane/settings/settingssnapshot.h"

#include <cstddef>
#include <cstdint>

namespace {

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

/// The forms in which an ini file gives a composite setting.
void readInAllForms(const QString &text, int size)
{
    const QStringList entries = text.split(QLatin1Char(','));
    for (const QVariant &value : {QVariant(text), QVariant(entries), QVariant(text.toUtf8())}) {
        const QList<int> numbers = readNumbers(value);
        require(readNumbers(numbersToSetting(numbers)) == numbers);
        require(overlayTexts({QString(), text, QString()}, value).size() == 3);
        require(snapshotLine(text, value).contains(QLatin1Char('=')));
    }
    for (const QString &key : staleArrayKeys(entries, size))
        require(entries.contains(key));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const int length = static_cast<int>(size);
    readInAllForms(QString::fromUtf8(reinterpret_cast<const char *>(data), length), length);
    return 0;
}
