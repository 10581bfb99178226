#ifndef ONLINESTORE_H
#define ONLINESTORE_H

#include "CommunicationAndData/settings/settingshandler.h"

#include <QMap>
#include <QVariant>

/// The online operations of the store as one call each: asks, and waits for the answer.
namespace OnlineStore {

/// The working settings, full key to value.
QMap<QString, QVariant> content();

/// Makes the working settings exactly these.
void setContent(const QMap<QString, QVariant> &content);

bool connectTo(const QMap<QString, QVariant> &connection);
OnlineSettings::QueryError send(const SettingsAdditionalData &data, bool informUser, bool distribute);
/// The configurations by id; fails the test when they are not readable.
QMap<int, SettingsAdditionalData> list();
bool isListReadable();
int activeId();
OnlineSettings::QueryError remove(int id);
/// What `getOnlineSettings` returns, checked against `onlineSettingsReady`.
bool load(int id);

}  // namespace OnlineStore

#endif
