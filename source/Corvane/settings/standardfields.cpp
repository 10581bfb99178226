#include "Corvane/settings/standardfields.h"

#include "Corvane/settings/settingslists.h"

#include <QCoreApplication>

#include <iterator>

namespace {

const char *const kTexts[] = {
    QT_TRANSLATE_NOOP("StandardFields", "Full Name"),    QT_TRANSLATE_NOOP("StandardFields", "First Name"),
    QT_TRANSLATE_NOOP("StandardFields", "Middle Name"),  QT_TRANSLATE_NOOP("StandardFields", "Last Name"),
    QT_TRANSLATE_NOOP("StandardFields", "Personal ID"),  QT_TRANSLATE_NOOP("StandardFields", "Birthdate"),
    QT_TRANSLATE_NOOP("StandardFields", "Person code"),  QT_TRANSLATE_NOOP("StandardFields", "Gender"),
    QT_TRANSLATE_NOOP("StandardFields", "Ethnic group"),
};
static_assert(std::size(kTexts) == StandardFields::kCount, "every field has a text");

// In the settings the same in every language.
const char *const kEmptyEntry = "(empty)";

/// The number that the text is, if it is one of those up to `last`.
std::optional<int> numberUpTo(int last, const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < 0 || number > last)
        return std::nullopt;
    return number;
}

std::optional<int> customIndex(const QString &name, const QStringList &customNames)
{
    const int position = customNames.indexOf(name);
    if (position < 0)
        return std::nullopt;
    return StandardFields::kFirstCustomIndex + position;
}

}  // namespace

namespace StandardFields {

QString text(int number)
{
    if (number < 0 || number >= kCount)
        return QString();
    return QCoreApplication::translate("StandardFields", kTexts[number]);
}

QString emptyText()
{
    return QCoreApplication::translate("StandardFields", "(empty)");
}

std::optional<int> readMask(const QVariant &value)
{
    // A list of one number is none: the mask has always been a single one.
    if (value.type() == QVariant::List || value.type() == QVariant::StringList)
        return std::nullopt;
    const QList<int> numbers = readNumbers(value);
    if (numbers.isEmpty())
        return std::nullopt;
    return numbers.first();
}

State stateOf(const Masks &masks, int number)
{
    const int bit = 1 << number;
    if (masks.mandatory & bit)
        return Mandatory;
    return masks.visible & bit ? Visible : NotVisible;
}

void addState(Masks &masks, int number, State state)
{
    const int bit = 1 << number;
    if (state == Mandatory)
        masks.mandatory |= bit;
    if (state != NotVisible)
        masks.visible |= bit;
}

std::optional<QList<int>> readNameOrder(const QVariant &value)
{
    const QList<int> numbers = readNumbers(value);
    if (numbers.size() < kNameParts)
        return std::nullopt;
    QList<int> indexes;
    for (const int number : numbers.mid(0, kNameParts)) {
        const bool isPart = number > 0 && number <= kNameParts;
        indexes.append(isPart ? number - 1 : kNoNamePart);
    }
    return indexes;
}

QVariant nameOrderToSetting(const QList<int> &indexes)
{
    QList<int> numbers;
    for (const int index : indexes)
        numbers.append(index + 1);
    return numbersToSetting(numbers);
}

QStringList defaultEntries()
{
    return {QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("7")};
}

QString entryOf(int index, const QStringList &customNames)
{
    if (index >= 0 && index < kCount)
        return QString::number(index);
    const int position = index - kFirstCustomIndex;
    if (position >= 0 && position < customNames.size())
        return customNames.at(position);
    return QLatin1String(kEmptyEntry);
}

int summaryIndex(const QString &entry, const QStringList &customNames)
{
    if (const auto number = numberUpTo(kEmptyIndex, entry))
        return *number;
    // The page itself stores a custom field by its name, and a name may consist of digits.
    if (const auto index = customIndex(entry, customNames))
        return *index;
    return numberUpTo(kEmptyIndex + customNames.size(), entry).value_or(kEmptyIndex);
}

int resultIndex(const QString &entry, const QStringList &customNames)
{
    if (const auto number = numberUpTo(kEmptyIndex, entry))
        return *number;
    if (const auto index = customIndex(entry, customNames))
        return *index;
    for (int number = 0; number < kCount; ++number) {
        if (text(number) == entry)
            return number;
    }
    return kEmptyIndex;
}

}  // namespace StandardFields
