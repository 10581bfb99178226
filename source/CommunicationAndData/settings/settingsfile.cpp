#include "CommunicationAndData/settings/settingsfile.h"

#include <QSettings>

std::unique_ptr<QSettings> openIniFile(const QString &path)
{
    auto settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
    settings->setIniCodec("UTF-8");
    return settings;
}
