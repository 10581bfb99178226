#ifndef DEMOSETTINGS_H
#define DEMOSETTINGS_H

#include <QString>

/// Writes the settings of the demonstration hospital: every group of the suite, with values as a site has
/// them after some use, safe ones included.
///
/// \param path  the ini file; made anew
/// \return      whether all of it is on disk
bool writeDemoSettings(const QString &path);

#endif
