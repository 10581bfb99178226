#ifndef MAPPEDSTRINGS_H
#define MAPPEDSTRINGS_H

#include "ZephanShared/toolkit/uuidstring.h"

#include <QMetaType>
#include <QStringList>

/// A key with the texts that belong to it, copied by value: an organisation with its name, a department with
/// its name and address.
struct MappedStrings
{
    UuidString key;
    QStringList values;

    friend bool operator==(const MappedStrings &a, const MappedStrings &b)
    {
        return a.key == b.key && a.values == b.values;
    }
    friend bool operator!=(const MappedStrings &a, const MappedStrings &b)
    {
        return !(a == b);
    }
};

Q_DECLARE_METATYPE(MappedStrings)

#endif
