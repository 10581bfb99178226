#include "Corvane/views/startlanguage.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/views/translationfiles.h"
#include "ZephanShared/toolkit/languages.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

QString startLanguage(QSettings &localCache)
{
    QString language = localCache.value(LocalCache::kLanguage, QString()).toString();
    if (language.isEmpty()) {
        language = SettingsHandler::getInstance()
                       ->value(SettingsKeys::kLanguage, QLatin1String(TranslationFiles::kDefaultCode))
                       .toString();
        localCache.setValue(LocalCache::kLanguage, language);
    }
    return language;
}

void installTranslation(QTranslator &translator, const QString &language)
{
    if (!TranslationFiles::load(translator, language) &&
        !TranslationFiles::load(translator, systemLanguageCode(QLocale::system().bcp47Name())))
        TranslationFiles::load(translator, QLatin1String(TranslationFiles::kDefaultCode));
    QCoreApplication::installTranslator(&translator);
}
