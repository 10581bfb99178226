#include "Corvane/settings/customfields.h"
#include "Corvane/settings/standardfields.h"

#include <QSet>

#include <cstddef>
#include <cstdint>

namespace {

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

void checkCustomFields(const QVariant &setting)
{
    const QVector<CustomField> fields = readCustomFields(setting);
    QSet<int> ids;
    int last = 0;
    for (const CustomField &field : fields) {
        require(field.id > last && !field.name.isEmpty());
        require(cleanCustomName(field.name) == field.name);
        last = field.id;
        ids.insert(field.id);
    }
    require(ids.size() == fields.size());
    const QString written = customFieldsToSetting(fields);
    require(readCustomFields(written) == fields);
    require(readCustomNames(written).size() == fields.size());
    for (const QString &name : readCustomNames(setting))
        require(!name.isEmpty());
}

void checkLists(const QVariant &setting, const QStringList &texts)
{
    const int last = StandardFields::kEmptyIndex + texts.size();
    for (const QString &text : texts) {
        for (const int index :
             {StandardFields::summaryIndex(text, texts), StandardFields::resultIndex(text, texts)}) {
            require(index >= 0 && index <= last);
            // What is shown is stored, and shown again.
            const QString entry = StandardFields::entryOf(index, texts);
            const int again = StandardFields::resultIndex(entry, texts);
            require(StandardFields::entryOf(again, texts) == entry || again <= StandardFields::kEmptyIndex);
        }
    }
    if (const auto order = StandardFields::readNameOrder(setting)) {
        require(order->size() == StandardFields::kNameParts);
        require(StandardFields::readNameOrder(StandardFields::nameOrderToSetting(*order)) == order);
    }
}

void checkMasks(const QVariant &setting)
{
    const std::optional<int> mask = StandardFields::readMask(setting);
    if (!mask)
        return;
    const StandardFields::Masks masks = {*mask, ~*mask};
    for (int number = StandardFields::kFirstEdited; number <= StandardFields::kLastEdited; ++number) {
        StandardFields::Masks again;
        StandardFields::addState(again, number, StandardFields::stateOf(masks, number));
        require(StandardFields::stateOf(again, number) == StandardFields::stateOf(masks, number));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QStringList texts = text.split(QLatin1Char(','));
    // The forms in which an ini file gives a composite setting.
    for (const QVariant &setting : {QVariant(text), QVariant(texts), QVariant(text.toUtf8())}) {
        checkCustomFields(setting);
        checkLists(setting, texts);
        checkMasks(setting);
    }
    return 0;
}
