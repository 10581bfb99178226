#ifndef DEMOSITE_H
#define DEMOSITE_H

#include <QString>

/// Makes the demonstration hospital's site database, an SQLite file that is reached over ODBC, with operators
/// of all three types; the offline access file with the same operators; this workstation's audit trail of the
/// last two years; and the connection parameters by which the console finds them. What is there already
/// stays.
///
/// \param data   the data directory, without a trailing separator
/// \param error  set to what failed
bool makeDemoSite(const QString &data, QString &error);

#endif
