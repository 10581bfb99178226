#ifndef TRANSLATIONFILES_H
#define TRANSLATIONFILES_H

#include <QString>
#include <QStringList>

class QTranslator;

/// The translation files of this program, "Corvane_<code>.qm" in the folder `translations` beside the
/// executable.
namespace TranslationFiles {

/// The code of the language that the program comes up in where nothing else is chosen.
constexpr char kDefaultCode[] = "en_GB";

/// The folder, in native separators.
QString directory();

/// The codes of the files that are there, in the order of the files' names.
QStringList codes();

/// Loads the file of a code, or of its less specific forms.
///
/// \return  false when there is no such file, and the translator is then empty
bool load(QTranslator &translator, const QString &code);

}  // namespace TranslationFiles

#endif
