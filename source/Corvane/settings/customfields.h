#ifndef CUSTOMFIELDS_H
#define CUSTOMFIELDS_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <limits>
#include <optional>

/// A person field that the site has defined for itself.
struct CustomField
{
    int id = 0;  ///< the field's number, from 1; 0 for one that has none yet
    QString name;
    int lineType = 0;  ///< 0 one line, 1 multi line
    bool visible = false;
};

inline bool operator==(const CustomField &a, const CustomField &b)
{
    return a.id == b.id && a.name == b.name && a.lineType == b.lineType && a.visible == b.visible;
}

/// Reads a field in the form "id:name=lineType:visible".
///
/// \return  nothing unless the text has the three parts, the number, the name and the line type
std::optional<CustomField> readCustomField(const QString &text);
QString customFieldToText(const CustomField &field);

/// Reads the fields of the setting, which are joined by ",". Malformed ones are skipped. A field with a
/// number below 1 gets the one after the highest of those before it. A field whose number is taken by one
/// before it gets a free one when all others have theirs.
///
/// \return  in the order of their numbers
QVector<CustomField> readCustomFields(const QVariant &setting);
QString customFieldsToSetting(const QVector<CustomField> &fields);

/// The names of the setting's fields in the order in which they are stored, read with more patience: only
/// a number and a name are asked for.
QStringList readCustomNames(const QVariant &setting);

/// The number for a field that has none: one more than the highest of those in use, or where that can't be
/// counted further the lowest free one.
///
/// \param used  a map by number
template<class Field>
int nextCustomId(const QMap<int, Field> &used)
{
    if (used.isEmpty())
        return 1;
    if (used.lastKey() < std::numeric_limits<int>::max())
        return used.lastKey() + 1;
    int free = 1;
    while (used.contains(free))
        ++free;
    return free;
}

/// A name without the characters that have a meaning in the setting.
QString cleanCustomName(const QString &typed);

#endif
