#include "ZephanShared/toolkit/languages.h"

#include <algorithm>

const QVector<Language> &languages()
{
    static const QVector<Language> table = {
        {"cs", "Czech"},
        {"de_AT", "German (Austria)"},
        {"de_DE", "German"},
        {"dn", "Danish"},
        {"el", "Greek"},
        {"en_GB", "English (UK)"},
        {"en_US", "English (US)"},
        {"et", "Estonian"},
        {"fi", "Finnish"},
        {"fr", "French"},
        {"hu", "Hungarian"},
        {"it", "Italian"},
        {"ja", "Japanese"},
        {"nb", "Norwegian (Bokmål)"},
        {"nl", "Dutch"},
        {"nl_BE", "Flemish"},
        {"pl", "Polish"},
        {"pt", "Portuguese"},
        {"pt_BR", "Portuguese (Brazil)"},
        {"ru", "Russian"},
        {"es", "Spanish"},
        {"sv", "Swedish"},
        {"tr", "Turkish"},
        {"th", "Thai"},
        {"zh_Hans_CN", "Chinese (PRC Simpl.)"},
        {"zh_Hans_HK", "Chinese (Hong Kong Simpl.)"},
        {"zh_Hans_TW", "Chinese (Taiwan Simpl.)"},
        {"zh_Hant_CN", "Chinese (PRC Trad.)"},
        {"zh_Hant_HK", "Chinese (Hong Kong trad.)"},
        {"zh_Hant_TW", "Chinese (Taiwan trad.)"},
    };
    return table;
}

const Language *findLanguage(const QString &code)
{
    const QVector<Language> &all = languages();
    const auto found = std::find_if(all.cbegin(), all.cend(),
                                    [&code](const Language &l) { return code == QLatin1String(l.code); });
    return found == all.cend() ? nullptr : &*found;
}

QString systemLanguageCode(const QString &bcp47Name)
{
    struct Mapping
    {
        const char *locale;
        const char *code;
    };
    // "de-DE" names no translation file, so a German system goes on to the last language of the start's
    // chain; "dn" is how the Danish file has always been called.
    static const Mapping mappings[] = {
        {"en-GB", "en_GB"},      {"en", "en_US"}, {"zh-HK", "zh_Hant_HK"}, {"zh", "zh_Hans_CN"},
        {"zh-TW", "zh_Hant_TW"}, {"da", "dn"},    {"nl-BE", "nl_BE"},      {"de-AT", "de_AT"},
        {"de", "de-DE"},         {"pt-PT", "pt"}, {"pt-BR", "pt_BR"},
    };
    for (const Mapping &mapping : mappings) {
        if (bcp47Name == QLatin1String(mapping.locale))
            return QLatin1String(mapping.code);
    }
    return bcp47Name;
}
