#include "Corvane/settings/settingslists.h"

#include <limits>

namespace {

constexpr int kFormatShift = 16;
constexpr quint32 kSeparatorMask = 0xffff;

}  // namespace

QList<int> readNumbers(const QVariant &value)
{
    QVariantList entries = value.toList();
    if (entries.isEmpty())
        entries.append(value);
    QList<int> numbers;
    for (const QVariant &entry : qAsConst(entries)) {
        bool isNumber = false;
        // `toInt` would cut a number that is too large.
        const qlonglong number = entry.toLongLong(&isNumber);
        if (isNumber && number >= std::numeric_limits<int>::min() &&
            number <= std::numeric_limits<int>::max())
            numbers.append(static_cast<int>(number));
    }
    return numbers;
}

QVariant numbersToSetting(const QList<int> &numbers)
{
    QVariantList list;
    for (const int number : numbers)
        list.append(number);
    return list;
}

QStringList overlayTexts(const QStringList &defaults, const QVariant &stored)
{
    QStringList result = defaults;
    const QStringList texts = stored.toStringList();
    for (int i = 0; i < qMin(result.size(), texts.size()); ++i)
        result[i] = texts.at(i);
    return result;
}

int packDateFormat(int format, int separator)
{
    return static_cast<int>((static_cast<quint32>(format) << kFormatShift) |
                            (static_cast<quint32>(separator) & kSeparatorMask));
}

int dateFormatOf(int packed)
{
    return static_cast<int>(static_cast<quint32>(packed) >> kFormatShift);
}

int dateSeparatorOf(int packed)
{
    return static_cast<int>(static_cast<quint32>(packed) & kSeparatorMask);
}
