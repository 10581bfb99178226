#include "CommunicationAndData/settings/onlineworker.h"

namespace {

constexpr int kNoConfiguration = 0;

}  // namespace

void OnlineWorker::reconnect(const QMap<QString, QVariant> &settings)
{
    Q_UNUSED(settings)
    emit reconnected(false);
}

void OnlineWorker::list(bool withNotes)
{
    Q_UNUSED(withNotes)
    emit listed(false, {});
}

void OnlineWorker::deleteConfiguration(int id)
{
    emit deleted(id, OnlineSettings::ConnectionFailure);
}

void OnlineWorker::findActive()
{
    emit activeFound(kNoConfiguration);
}

void OnlineWorker::store(const SettingsAdditionalData &data, const QByteArray &image, bool informUser,
                         bool distribute)
{
    Q_UNUSED(data)
    Q_UNUSED(image)
    Q_UNUSED(informUser)
    Q_UNUSED(distribute)
    emit stored(OnlineSettings::ConnectionFailure);
}

std::optional<OnlineWorker::Configuration> OnlineWorker::fetch(int id)
{
    Q_UNUSED(id)
    return std::nullopt;
}
