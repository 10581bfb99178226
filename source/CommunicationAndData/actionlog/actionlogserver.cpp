#include "CommunicationAndData/actionlog/actionlogserver.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/sqlschema.h"
#include "ZephanShared/toolkit/logger.h"

namespace {

constexpr char kOdbcDriver[] = "QODBC3";
constexpr char kSeparator[] = ";";

QString key(const char *name)
{
    return QLatin1String(SettingsKeys::kActionDbGroup) + QLatin1Char('/') + QLatin1String(name);
}

QString joinedParameters()
{
    const QVariantMap settings =
        SettingsHandler::getInstance()->databaseSettings(QLatin1String(SettingsKeys::kActionDbGroup));
    const QVariantMap params = settings.value(QLatin1String(SettingsKeys::kParams)).toMap();
    QStringList pairs;
    for (auto it = params.cbegin(); it != params.cend(); ++it)
        pairs.append(it.key() + QLatin1Char('=') + it.value().toString());
    return pairs.join(QLatin1String(kSeparator));
}

QString joinedConnectOptions()
{
    const QStringList defaults = {QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                  QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};
    return SettingsHandler::getInstance()
        ->value(key(SettingsKeys::kConnectOptions), defaults)
        .toStringList()
        .join(QLatin1String(kSeparator));
}

QString credential(const char *name)
{
    return SettingsHandler::getInstance()->safeValue(key(name)).toString();
}

}  // namespace

ActionLogServer::ActionLogServer()
    : ActionLogWriter(kOdbcDriver)
    , m_databaseName(joinedParameters())
    , m_connectOptions(joinedConnectOptions())
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
    if (!openDatabase(m_databaseName, m_connectOptions, m_username, m_password))
        return false;
    m_server = SqlSchema::serverOf(database());
    if (m_server == QSqlDriver::SQLite)
        run(QStringLiteral("PRAGMA synchronous = FULL"));
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
    run(ActionLogTable::probeStatement());
    return !succeeded();
}
