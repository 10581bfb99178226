#ifndef UUIDSTRING_H
#define UUIDSTRING_H

#include <QHash>
#include <QMetaType>
#include <QString>

/// A key of the suite: text that always holds exactly 36 characters and compares as text.
///
/// It does not parse hexadecimal digits, so that ids made from Windows accounts, which only have a UUID's
/// length, are keys as good as any.
class UuidString
{
public:
    static constexpr int Length = 36;

    /// The nil UUID, "00000000-0000-0000-0000-000000000000".
    UuidString();

    /// Takes a text of exactly 36 characters as it stands, drops the first and last of a 38-character one
    /// (the braces of a registry-style UUID), cuts a longer one to 36, and makes the nil UUID of all others.
    UuidString(const QString &text);

    bool isNull() const;
    const QString &toString() const
    {
        return m_text;
    }

    friend bool operator==(const UuidString &a, const UuidString &b)
    {
        return a.m_text == b.m_text;
    }
    friend bool operator!=(const UuidString &a, const UuidString &b)
    {
        return a.m_text != b.m_text;
    }
    friend bool operator<(const UuidString &a, const UuidString &b)
    {
        return a.m_text < b.m_text;
    }

private:
    QString m_text;
};

uint qHash(const UuidString &uuid, uint seed = 0);

Q_DECLARE_METATYPE(UuidString)
Q_DECLARE_TYPEINFO(UuidString, Q_MOVABLE_TYPE);

#endif
