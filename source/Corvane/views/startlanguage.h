#ifndef STARTLANGUAGE_H
#define STARTLANGUAGE_H

#include <QString>

class QSettings;
class QTranslator;

/// The language that this workstation starts in: the one in `local_cache`, else that of the working settings,
/// which is then written to `local_cache` and kept from then on.
///
/// \param localCache  the open file `local_cache`
/// \return            a translation code, or whatever else the files hold; never empty unless both are
QString startLanguage(QSettings &localCache);

/// Loads the translation of a language, failing that the one of the system's locale, failing that English,
/// and installs it. Without any of them the source texts stay in force.
void installTranslation(QTranslator &translator, const QString &language);

#endif
