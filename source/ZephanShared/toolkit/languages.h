#ifndef LANGUAGES_H
#define LANGUAGES_H

#include <QString>
#include <QVector>

/// The value of an ini file that holds a translation code, in `local_cache` and beside it.
constexpr char kLanguageKey[] = "language";

/// A language of the suite: the code in its translation file's name and its English name.
struct Language
{
    const char *code;
    /// Source text of the name. The view that shows it translates it in its own context.
    const char *name;
};

/// All languages, in the order in which codes are compared.
const QVector<Language> &languages();

/// The language with this code, compared exactly; null when there is none.
const Language *findLanguage(const QString &code);

/// The translation code for a system locale.
///
/// \param bcp47Name  as `QLocale::bcp47Name()` gives it; compared exactly
/// \return           the code of the suite, or the name unchanged when the suite has none of its own for it
QString systemLanguageCode(const QString &bcp47Name);

#endif
