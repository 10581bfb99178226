#include "Corvane/settings/plainsettings.h"

#include "CommunicationAndData/settings/settingshandler.h"

namespace PlainSettings {

QVariant read(const char *key, const QVariant &defaultValue)
{
    return SettingsHandler::getInstance()->value(QLatin1String(key), defaultValue);
}

void write(const char *key, const QVariant &value)
{
    SettingsHandler::getInstance()->setValue(QLatin1String(key), value);
}

}  // namespace PlainSettings
