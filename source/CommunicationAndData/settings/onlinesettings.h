#ifndef ONLINESETTINGS_H
#define ONLINESETTINGS_H

#include <QMetaType>
#include <QString>

/// What is kept with an online configuration beside its settings.
struct SettingsAdditionalData
{
    QString notes;      ///< release notes, plain text, may be empty
    QString timestamp;  ///< time of creation in UTC, "yyyy-MM-dd hh:mm:ss"
    QString user;       ///< name of the creator
};

namespace OnlineSettings {

/// Result of storing or deleting an online configuration.
enum QueryError {
    Success = 0,
    ConfigurationActive = 2,  ///< deleting: it is the active one
    NoRights = 3,             ///< storing: the user lacks rights; deleting: it was not deleted
    UnusableId = 4,           ///< storing: the id is not usable; deleting: it could not be deleted
    ConnectionFailure = 5
};

}  // namespace OnlineSettings

Q_DECLARE_METATYPE(SettingsAdditionalData)
Q_DECLARE_METATYPE(OnlineSettings::QueryError)

#endif
