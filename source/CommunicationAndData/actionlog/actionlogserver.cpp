#include "CommunicationAndData/actionlog/actionlogserver.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/sqlschema.h"
#include "ZephanShared/toolkit/logger.h"

namespace {

QString key(const char *name)
{
    return QLatin1String(SettingsKeys::kActionDbGroup) + QLatin1Char('/') + QLatin1String(name);
}

QString databaseNameOfSettings()
{
    const QVariantMap settings =
        SettingsHandler::getInstance()->databaseSettings(QLatin1String(SettingsKeys::kActionDbGroup));
    return OdbcConnection::databaseName(settings.value(QLatin1String(SettingsKeys::kParams)).toMap());
}

QVariant connectOptionsOfSettings()
{
    return SettingsHandler::getInstance()->value(key(SettingsKeys::kConnectOptions),
                                                 OdbcConnection::defaultConnectOptions());
}

QString credential(const char *name)
{
    return SettingsHandler::getInstance()->safeValue(key(name)).toString();
}

}  // namespace

ActionLogServer::ActionLogServer()
    : ActionLogWriter(OdbcConnection::kDriver)
    , m_databaseName(databaseNameOfSettings())
    , m_connectOptions(connectOptionsOfSettings())
    , m_username(credential(SettingsKeys::kUsername))
    , m_password(credential(SettingsKeys::kPassword))
{}

ActionLogWriter::Opening ActionLogServer::open()
{
    Opening opening = Opening::NotOpened;
    if (connect())
        opening = completeTables(m_server) ? Opening::Ready : Opening::Unusable;
    if (opening != Opening::Ready)
        close();
    return opening;
}

bool ActionLogServer::connect()
{
    QSqlDatabase connection = addDatabase(m_databaseName);
    OdbcConnection::open(connection, m_connectOptions, m_username, m_password);
    if (!isOpened())
        return false;
    m_server = SqlSchema::serverOf(database());
    if (m_server == QSqlDriver::SQLite)
        syncAtEachEvent();
    return true;
}

bool ActionLogServer::write(const ActionLogEntry &entry)
{
    if (ActionLogWriter::write(entry))
        return true;
    const QString cause = errorText();
    if (!isConnectionLost()) {
        setErrorText(cause);
        return false;
    }
    CORVANE_LOG(Logger::Warning, Logger::Console, "ActionLogServer::write",
                QStringLiteral("The connection to the action log was lost: ") + cause);
    close();
    return connect() && ActionLogWriter::write(entry);
}

/// Drivers tell a lost connection in different ways; a statement that can't fail otherwise tells it in all.
bool ActionLogServer::isConnectionLost()
{
    run(QStringLiteral("SELECT 1"));
    return !succeeded();
}
