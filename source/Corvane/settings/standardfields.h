#ifndef STANDARDFIELDS_H
#define STANDARDFIELDS_H

#include <QList>
#include <QStringList>
#include <QVariant>

#include <optional>

/// The standard fields of a person and the settings that name them: masks with a bit a field, lists of fields
/// to show, and the order of a full name. The numbers are another series than `SearchModelData::SearchKey`.
namespace StandardFields {

constexpr int kCount = 9;  // 0 is the full name, which nobody edits; 1 to 8 have rows of their own
constexpr int kFirstEdited = 1;
constexpr int kLastEdited = 8;

// Indexes of a list of fields to choose from: the standard fields, then none, then the custom ones.
constexpr int kEmptyIndex = kCount;
constexpr int kFirstCustomIndex = kEmptyIndex + 1;

constexpr int kDefaultMandatory = 58;  // first and last name, personal ID, birthdate
constexpr int kDefaultVisible = 186;   // the same, and gender

constexpr int kNameParts = 3;            // first, middle and last name, and as many places for them
constexpr int kNoNamePart = kNameParts;  // index of the item for no part

/// The translated text of a standard field; empty for a number that is none.
QString text(int number);
/// The translated text that stands for no field.
QString emptyText();

/// How the measurement applications treat a field; the numbers are the items of its combo box.
enum State { Mandatory, Visible, NotVisible };

/// Two bit masks of the fields that are mandatory and those that are visible.
struct Masks
{
    int mandatory = 0;
    int visible = 0;
};

/// Reads a mask; nothing when the value is no integer of 32 bits.
std::optional<int> readMask(const QVariant &value);
State stateOf(const Masks &masks, int number);
/// Adds the field's bits to masks that have none of it.
void addState(Masks &masks, int number, State state);

/// The indexes of the three parts of a full name, from the stored numbers, which are one higher. A number
/// that is no part gives `kNoNamePart`.
///
/// \return  nothing when fewer than three numbers are stored
std::optional<QList<int>> readNameOrder(const QVariant &value);
QVariant nameOrderToSetting(const QList<int> &indexes);

/// The fields that are shown as long as nobody has chosen others: first and last name, birthdate, gender.
QStringList defaultEntries();
/// The stored form of a chosen index: a standard field's number, a custom field's name, or "(empty)".
QString entryOf(int index, const QStringList &customNames);
/// The index of an entry of the summary fields; `kEmptyIndex` for one that is not offered.
int summaryIndex(const QString &entry, const QStringList &customNames);
/// The index of an entry of the search result's fields; `kEmptyIndex` for one that is not offered.
int resultIndex(const QString &entry, const QStringList &customNames);

}  // namespace StandardFields

#endif
