#ifndef FILEIDENTITY_H
#define FILEIDENTITY_H

#include <QString>

/// Tells whether a path still leads to the file that it led to before, and not to none or another one.
class FileIdentity
{
public:
    /// The identity of no file.
    FileIdentity() = default;
    /// The file that is at `path` now; of no file when there is none.
    static FileIdentity of(const QString &path);

    bool isNull() const
    {
        return !m_exists;
    }
    friend bool operator==(const FileIdentity &a, const FileIdentity &b)
    {
        return a.m_exists == b.m_exists && a.m_volume == b.m_volume && a.m_number == b.m_number;
    }
    friend bool operator!=(const FileIdentity &a, const FileIdentity &b)
    {
        return !(a == b);
    }

private:
    bool m_exists = false;
    quint64 m_volume = 0;
    quint64 m_number = 0;
};

#endif
