#include "Corvane/accesscontrol/supportconnectionhandler.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "ZephanShared/widgets/fittedtext.h"
#include "ZephanShared/widgets/returnkey.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSqlError>
#include <QSqlQuery>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const char *const kOnlineConnection = "access.supportdb";
const char *const kConnectionInfo = "Corvane access connection";

constexpr int kDialogWidth = 400;
constexpr int kFormSpacing = 12;  // between the editor and the buttons
constexpr int kRowHeight = 30;
constexpr int kRowWidth = 250;

const QStringList &accessTables()
{
    static const QStringList tables{QStringLiteral("roles"), QStringLiteral("organization"),
                                    QStringLiteral("department"), QStringLiteral("operator_roles"),
                                    QStringLiteral("operator")};
    return tables;
}

/// A key of the support database in the connection parameter map.
QString mapKey(const char *name)
{
    return QLatin1String(SettingsKeys::kSupportDbGroup) + QLatin1Char('/') + QLatin1String(name);
}

bool isReadable(const QSqlDatabase &database, const QString &table)
{
    QSqlQuery query(database);
    return query.exec(QStringLiteral("SELECT 1 FROM %1 WHERE 1 = 0").arg(table));
}

}  // namespace

SupportConnectionHandler::SupportConnectionHandler(QString dataPath, QWidget *parent)
    : QDialog(parent)
    , m_settings(openSettingsFile(dataPath + QLatin1String(LocalCache::kFileName)))
    , m_dataPath(std::move(dataPath))
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(kFormSpacing);
    setMinimumWidth(kDialogWidth);
    readConnectionSettings();
    refreshCredentials();
    refreshParameters();
    connect(this, SIGNAL(logError(Actions::Action, ZephanError, QVariant)), this, SLOT(error()));
}

SupportConnectionHandler::~SupportConnectionHandler()
{
    writeConnectionSettings();
    closeConnection();
    m_offline.reset();
}

bool SupportConnectionHandler::connectOnline()
{
    if (m_database.isValid() || QSqlDatabase::contains(QLatin1String(kOnlineConnection)))
        closeConnection();
    m_database =
        QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), QLatin1String(kOnlineConnection));
    m_database.setDatabaseName(OdbcConnection::databaseName(parameters()));
    if (openOnline() && hasAccessTables()) {
        logConnection(Actions::Started, Actions::Automatic, QLatin1String(kOnlineConnection));
        updateConnectionState();
        return true;
    }
    emit logError(
        Actions::Initialize, ZephanErrors::kNoConnection,
        QStringLiteral("Database: %1 ErrorInfo: %2")
            .arg(OdbcConnection::withoutSecrets(m_database.databaseName()), m_database.lastError().text()));
    forgetConnection();
    updateConnectionState();
    return false;
}

void SupportConnectionHandler::closeConnection()
{
    logConnection(Actions::Stopping, Actions::Automatic, m_database.connectionName());
    forgetConnection();
    updateConnectionState();
}

bool SupportConnectionHandler::isConnected() const
{
    return m_database.isValid() && m_database.isOpen();
}

void SupportConnectionHandler::setOfflineAllowed(bool allowed)
{
    m_offlineAllowed = allowed;
}

QVBoxLayout *SupportConnectionHandler::createConnectionRow()
{
    auto *button = new QPushButton;
    button->setObjectName(QStringLiteral("connection_options_button"));
    button->setFixedSize(kRowWidth, kRowHeight);
    clickByReturn(button);
    connect(button, SIGNAL(clicked()), this, SLOT(connectionOptions()));
    auto *label = new QLabel;
    label->setObjectName(QStringLiteral("connection_state_label"));
    label->setFixedSize(kRowWidth, kRowHeight);
    label->setWordWrap(true);
    m_connectionRows.append({button, label});

    auto *layout = new QVBoxLayout;
    layout->addWidget(button);
    layout->addWidget(label);
    updateConnectionState();
    return layout;
}

QSqlDatabase *SupportConnectionHandler::database()
{
    return &m_database;
}

QString SupportConnectionHandler::dataPath() const
{
    return m_dataPath;
}

QVariant SupportConnectionHandler::sqlType() const
{
    return m_sqlType;
}

bool SupportConnectionHandler::beginTransaction()
{
    if (!isConnected())
        return false;
    const bool begun = m_database.transaction();
    m_inTransaction = m_inTransaction || begun;
    return checkTransaction(begun, QStringLiteral("Transaction begin failed in access.supportdb"));
}

bool SupportConnectionHandler::commitTransaction()
{
    return isConnected() && endTransaction(m_database.commit(),
                                           QStringLiteral("Transaction commit failed in access.supportdb"));
}

bool SupportConnectionHandler::rollbackTransaction()
{
    return isConnected() && endTransaction(m_database.rollback(),
                                           QStringLiteral("Transaction rollback failed in access.supportdb"));
}

void SupportConnectionHandler::error()
{
    closeConnection();
    emit reconnected();
}

void SupportConnectionHandler::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateConnectionState();
    QDialog::changeEvent(event);
}

void SupportConnectionHandler::readConnectionSettings()
{
    const auto machineSettings = openLocalApplicationSettings();
    const QString storedGroup = QLatin1String(LocalCache::kSupportDbOnlineGroup);
    const QString settingsGroup = QLatin1String(SettingsKeys::kSupportDbGroup);
    if (m_settings->childGroups().contains(storedGroup))
        readParametersOfGroup(*m_settings, storedGroup);
    else if (SettingsHandler::getInstance()->generalSettings()->childGroups().contains(settingsGroup))
        readParametersOfStore();
    else
        readParametersOfGroup(*machineSettings, settingsGroup);
    readOfflineChoice();
}

void SupportConnectionHandler::readParametersOfGroup(QSettings &settings, const QString &group)
{
    settings.beginGroup(group);
    m_connectionValues.insert(QLatin1String(SettingsKeys::kParams), OdbcConnection::readParameters(settings));
    for (const char *name :
         {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams, SettingsKeys::kSqlType}) {
        const QVariant value = settings.value(QLatin1String(name));
        if (value.isValid())
            m_connectionValues.insert(mapKey(name), value);
    }
    settings.endGroup();
    // Without time-outs a silent server would hold up the program for minutes.
    if (!m_connectionValues.contains(mapKey(SettingsKeys::kConnectOptions)))
        m_connectionValues.insert(mapKey(SettingsKeys::kConnectOptions),
                                  OdbcConnection::defaultConnectOptions());
}

void SupportConnectionHandler::readParametersOfStore()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    const QString params = QLatin1String(SettingsKeys::kParams);
    m_connectionValues.insert(
        params, store->databaseSettings(QLatin1String(SettingsKeys::kSupportDbGroup)).value(params).toMap());
    const QString options = mapKey(SettingsKeys::kConnectOptions);
    m_connectionValues.insert(options, store->value(options, OdbcConnection::defaultConnectOptions()));
    for (const char *name : {SettingsKeys::kDriverParams, SettingsKeys::kSqlType})
        m_connectionValues.insert(mapKey(name), store->value(mapKey(name), QString()));
}

void SupportConnectionHandler::readOfflineChoice()
{
    const QString group = QLatin1String(LocalCache::kSupportDbOfflineGroup);
    if (!m_settings->childGroups().contains(group))
        return;
    m_settings->beginGroup(group);
    m_connectionValues.insert(mapKey(SettingsKeys::kOfflineLocation),
                              m_settings->value(QLatin1String(LocalCache::kLocation)));
    m_connectionValues.insert(mapKey(SettingsKeys::kOnlineMode),
                              m_settings->value(QLatin1String(LocalCache::kOnlineMode)));
    m_settings->endGroup();
}

// The user name and the password are left out: they are asked for in each run.
void SupportConnectionHandler::writeConnectionSettings()
{
    m_settings->beginGroup(QLatin1String(LocalCache::kSupportDbOnlineGroup));
    OdbcConnection::writeParameters(*m_settings, parameters());
    for (const char *name :
         {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams, SettingsKeys::kSqlType})
        m_settings->setValue(QLatin1String(name), m_connectionValues.value(mapKey(name)));
    m_settings->endGroup();

    m_settings->beginGroup(QLatin1String(LocalCache::kSupportDbOfflineGroup));
    m_settings->setValue(QLatin1String(LocalCache::kLocation),
                         m_connectionValues.value(mapKey(SettingsKeys::kOfflineLocation)));
    m_settings->setValue(QLatin1String(LocalCache::kOnlineMode),
                         m_connectionValues.value(mapKey(SettingsKeys::kOnlineMode)));
    m_settings->endGroup();
}

void SupportConnectionHandler::refreshCredentials()
{
    m_username = m_connectionValues.value(mapKey(SettingsKeys::kUsername)).toString();
    m_password = m_connectionValues.value(mapKey(SettingsKeys::kPassword)).toString();
}

void SupportConnectionHandler::refreshParameters()
{
    m_connectOptions = m_connectionValues.value(mapKey(SettingsKeys::kConnectOptions));
    m_driverParams = m_connectionValues.value(mapKey(SettingsKeys::kDriverParams));
    m_sqlType = m_connectionValues.value(mapKey(SettingsKeys::kSqlType));
}

QVariantMap SupportConnectionHandler::parameters() const
{
    return m_connectionValues.value(QLatin1String(SettingsKeys::kParams)).toMap();
}

bool SupportConnectionHandler::openOnline()
{
    const WaitCursor cursor;
    return OdbcConnection::open(m_database, m_connectOptions, m_username, m_password,
                                OdbcConnection::AsOptionsSay);
}

// Some drivers list the tables of all databases of a server, or those that may not be read: the list alone
// does not tell that the access tables can be used.
bool SupportConnectionHandler::hasAccessTables() const
{
    const WaitCursor cursor;
    const QStringList present = m_database.tables(QSql::Tables);
    return std::all_of(accessTables().begin(), accessTables().end(), [&](const QString &table) {
        return present.contains(table) && isReadable(m_database, table);
    });
}

// The offline file's object shares its connection, so it has to let go as well before the name is free.
void SupportConnectionHandler::forgetConnection()
{
    const QString name = m_database.connectionName();
    // A driver that is asked to close in the middle of a transaction keeps the connection, and its locks.
    if (m_inTransaction)
        m_database.rollback();
    m_inTransaction = false;
    m_database.close();
    m_database = QSqlDatabase();
    if (m_offline)
        m_offline->closeOfflineDatabase();
    QSqlDatabase::removeDatabase(name);
}

void SupportConnectionHandler::logConnection(Actions::Action action, Actions::ActionType type,
                                             const QString &key)
{
    emit logAction(action, type, UuidString(), key, OdbcConnection::withoutSecrets(m_database.databaseName()),
                   QLatin1String(kConnectionInfo));
}

void SupportConnectionHandler::updateConnectionState()
{
    const QString state = isConnected() ? tr("Connected to authentication database")
                                        : tr("No connection to authentication database");
    for (const ConnectionRow &row : qAsConst(m_connectionRows)) {
        if (row.first)
            row.first->setText(tr("Connection options"));
        if (row.second)
            showFitted(*row.second, state);
    }
}

bool SupportConnectionHandler::endTransaction(bool done, const QString &failure)
{
    m_inTransaction = m_inTransaction && !done;
    return checkTransaction(done, failure);
}

bool SupportConnectionHandler::checkTransaction(bool done, const QString &failure)
{
    if (!done)
        emit logError(Actions::Transaction, ZephanErrors::kStatementFailed, failure);
    return done;
}
