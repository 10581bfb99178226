#ifndef VERSIONTEXT_H
#define VERSIONTEXT_H

#include <QString>

/// The first line of the version file with its line end, as far as `readLine(10)` delivers it: that is nine
/// bytes.
///
/// \return  an empty text when the file is missing or can't be read
QString readVersionLine(const QString &path);

/// A version as people read it: at most three parts of one or two digits, each with an optional patch
/// ("0p3"). A part of any other form, also one with a line end, reads as "0", and a third part that would be
/// a second zero at the end is left out.
///
/// \return  "5.1.0" for "5.1.0.0", "5.0" for "5.0.0"; empty for an empty text
QString formatVersion(const QString &text);

/// Whether a formatted version is one before the release, which is marked by a patch.
bool isPreRelease(const QString &formattedVersion);

#endif
