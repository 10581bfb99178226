#include "CommunicationAndData/settings/closedfiles.h"

#include "CommunicationAndData/settings/filestamp.h"
#include "CommunicationAndData/settings/settingscontent.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>

namespace {

struct ClosedState
{
    FileStamp stamp;
    QByteArray digest;
    bool unwritten = false;
};

/// The last settings are let go of while the process ends, so the table is never destroyed.
QHash<QString, ClosedState> &closedStates()
{
    static auto *const states = new QHash<QString, ClosedState>;
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

void ClosedFiles::remember(const QString &path, bool unwritten)
{
    closedStates().insert(path, {FileStamp::of(path), digestOf(bytesOf(path)), unwritten});
}

std::optional<QMap<QString, QVariant>> ClosedFiles::contentToRead(const QString &path)
{
    const auto found = closedStates().constFind(path);
    if (found == closedStates().constEnd())
        return std::nullopt;
    const ClosedState closed = *found;
    closedStates().erase(found);
    if (!closed.unwritten && closed.stamp != FileStamp::of(path))
        return std::nullopt;
    const QByteArray bytes = bytesOf(path);
    if (!closed.unwritten && closed.digest == digestOf(bytes))
        return std::nullopt;
    // Without room to read it apart, what is in memory is the nearest to it, and nothing is lost.
    return SettingsContent::read(bytes);
}
