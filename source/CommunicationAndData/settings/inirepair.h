#ifndef INIREPAIR_H
#define INIREPAIR_H

#include <QByteArray>
#include <QStringList>

/// What was found in the bytes of an ini file.
struct RepairedIni
{
    /// Why the bytes cannot be used as they are, in short words that can stand in a file name: "too-large",
    /// "utf-16", "utf-8-mark", "nul-bytes", "not-utf-8", "open-quote", "unreadable-line", "unreadable-value".
    /// Empty if `QSettings` reads everything in them.
    QStringList damage;
    /// Everything that could be read, as an ini file in UTF-8 without damage. Empty if there is no damage.
    QByteArray text;

    bool isSound() const
    {
        return damage.isEmpty();
    }
    /// Whether the bytes are those of settings, though perhaps damaged, and not of something else: binary
    /// bytes, or a text without any setting.
    bool isSettings() const;
};

/// No more than this is read of a file; a settings file of the suite has some ten thousand bytes.
constexpr qint64 kLargestIni = 4 * 1024 * 1024;

/// Looks through the bytes of an ini file, of whatever kind they are.
///
/// UTF-16 is read as such, a line that is not UTF-8 is read as Latin-1, NUL bytes are left out, a quote ends
/// with its line at the latest, a line that is neither key nor section is left out, and so is a value that
/// claims to be a typed one and is not. `QSettings` stumbles over a byte order mark, so that one in front of
/// UTF-8 is damage as well. Line ends of every kind are none.
///
/// \param bytes  if there are more than `kLargestIni`, the lines that are whole up to there are used
RepairedIni repairIni(const QByteArray &bytes);

#endif
