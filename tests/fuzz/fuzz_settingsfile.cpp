#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingscontent.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace {

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

/// `QSettings` remembers files by their names.
QString newName()
{
    static const QTemporaryDir directory;
    static quint64 count = 0;
    return directory.filePath(QString::number(++count));
}

/// What `QSettings` makes of an ini file that needs no repair.
QMap<QString, QVariant> readBy(const QByteArray &ini)
{
    const QString name = newName();
    QFile file(name);
    require(file.open(QIODevice::WriteOnly) && file.write(ini) == ini.size());
    file.close();
    QMap<QString, QVariant> content;
    {
        QSettings settings(name, QSettings::IniFormat);
        settings.setIniCodec(iniUtf8Codec());
        content = SettingsContent::of(settings);
        require(settings.status() == QSettings::NoError);
    }
    file.remove();
    return content;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const RepairedIni found = repairIni(bytes);
    if (found.isSound()) {
        readBy(bytes);
        return 0;
    }
    require(repairIni(found.text).isSound());
    readBy(found.text);
    return 0;
}
