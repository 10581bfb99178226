#ifndef PLAINTIME_H
#define PLAINTIME_H

#include <QString>

class QDate;
class QDateTime;

/// A date or time as text with the digits 0 to 9, on workstations of every region.
///
/// The `toString` of `QDate` and `QDateTime` writes the digits of the system's region, which no database
/// compares, no other workstation reads and no date field takes back.
///
/// \param form  as of `QDateTime::toString`
/// \return      the text; empty for an invalid date or time
QString plainText(const QDate &date, const QString &form);
QString plainText(const QDateTime &time, const QString &form);

#endif
