#include "CommunicationAndData/settings/formerfiles.h"

#include "CommunicationAndData/settings/filestamp.h"
#include "CommunicationAndData/settings/settingscontent.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>

namespace {

struct FormerState
{
    FileStamp stamp;
    QByteArray digest;
    bool unwritten = false;
};

/// The last settings are let go of while the process ends, so the table is never destroyed.
QHash<QString, FormerState> &formerStates()
{
    static auto *const states = new QHash<QString, FormerState>;
    return *states;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray digestOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

}  // namespace

void FormerFiles::remember(const QString &path, bool unwritten)
{
    formerStates().insert(path, {FileStamp::of(path), digestOf(bytesOf(path)), unwritten});
}

std::optional<QMap<QString, QVariant>> FormerFiles::contentToRead(const QString &path)
{
    const auto found = formerStates().constFind(path);
    if (found == formerStates().constEnd())
        return std::nullopt;
    const FormerState former = *found;
    formerStates().erase(found);
    if (!former.unwritten && former.stamp != FileStamp::of(path))
        return std::nullopt;
    const QByteArray bytes = bytesOf(path);
    if (!former.unwritten && former.digest == digestOf(bytes))
        return std::nullopt;
    // Without room to read it apart, what is in memory is the nearest to it, and nothing is lost.
    return SettingsContent::read(bytes);
}
