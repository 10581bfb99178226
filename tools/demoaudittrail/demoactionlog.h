#ifndef DEMOACTIONLOG_H
#define DEMOACTIONLOG_H

#include <QDate>
#include <QString>

/// What a demonstration audit trail holds.
struct DemoTrail
{
    int events = 50000;
    quint32 seed = 20160201;
    int days = 731;  ///< two years
    QDate lastDay;
};

/// Makes the encrypted file `actionlog.db` in a directory, as the programs of the suite keep it, and fills it
/// whole or not at all. A file that is there already stays as it is.
///
/// \param error  set to what failed
bool makeDemoActionLog(const QString &directory, const DemoTrail &trail, QString &error);

#endif
