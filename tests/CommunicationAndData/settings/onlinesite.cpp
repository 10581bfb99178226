#include "onlinesite.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString kWitness = QStringLiteral("witness");

/// Everything that means something in a connection text.
const QString kPassword = QString::fromUtf8("a;b=c}d {e\"f'g]h");

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

}  // namespace

OnlineSite::OnlineSite(const QString &database)
    : m_database(database)
{
    for (const auto kind : {DatabaseServer::MariaDb, DatabaseServer::PostgreSql, DatabaseServer::Sqlite})
        m_servers.push_back(std::make_unique<DatabaseServer>(kind));
}

OnlineSite::~OnlineSite()
{
    closeWitness();
}

void OnlineSite::addServers()
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::newRow("on MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("on PostgreSQL") << DatabaseServer::PostgreSql;
    QTest::newRow("on SQLite") << DatabaseServer::Sqlite;
}

bool OnlineSite::use()
{
    QFETCH_GLOBAL(DatabaseServer::Kind, server);
    if (m_kind != server)
        closeWitness();
    m_kind = server;
    if (!missing().isEmpty())
        return false;
    return prepare() && run(text("DELETE FROM configurations"));
}

QString OnlineSite::missing() const
{
    return server().missing();
}

QString OnlineSite::errorText() const
{
    return server().errorText();
}

DatabaseServer &OnlineSite::server() const
{
    return *m_servers.at(m_kind);
}

QString OnlineSite::accountName(Account account) const
{
    if (!hasAccounts())
        return QString();
    const char *const names[] = {"console", "application", "auditor"};
    return account == Owner ? server().admin() : m_database + QLatin1Char('_') + text(names[account]);
}

QString OnlineSite::password(Account account) const
{
    return account == Owner ? server().adminPassword() : kPassword;
}

QMap<QString, QVariant> OnlineSite::connection(Account account) const
{
    return connection(account, server().parameters(m_database));
}

QMap<QString, QVariant> OnlineSite::connection(Account account, const QVariantMap &parameters) const
{
    const QString group = text(SettingsKeys::kSupportDbGroup) + QLatin1Char('/');
    return {{text(SettingsKeys::kParams), parameters},
            {group + text(SettingsKeys::kConnectOptions), OdbcConnection::defaultConnectOptions()},
            {group + text(SettingsKeys::kDriverParams), QString()},
            {group + text(SettingsKeys::kSqlType), 2},
            {group + text(SettingsKeys::kUsername), accountName(account)},
            {group + text(SettingsKeys::kPassword), password(account)}};
}

void OnlineSite::writeConnection(Account account) const
{
    SettingsHandler *const store = SettingsHandler::getInstance();
    const QString group = text(SettingsKeys::kSupportDbGroup);
    const auto key = [&group](const char *name) {
        return group + QLatin1Char('/') + text(name);
    };
    store->setDatabaseSettings(group, {{text(SettingsKeys::kParams), server().parameters(m_database)}});
    store->setValue(key(SettingsKeys::kConnectOptions), OdbcConnection::defaultConnectOptions());
    store->setSafeValue(key(SettingsKeys::kUsername), accountName(account));
    store->setSafeValue(key(SettingsKeys::kPassword), password(account));
}

QStringList OnlineSite::column(const QString &statement)
{
    QSqlQuery query(witness());
    query.setForwardOnly(true);
    if (!query.exec(statement))
        return {query.lastError().text()};
    QStringList values;
    while (query.next())
        values.append(query.value(0).toString());
    return values;
}

bool OnlineSite::lock()
{
    QSqlDatabase database = witness();
    return database.transaction() &&
           QSqlQuery(database).exec(text("UPDATE configurations SET notes = 'held' WHERE active = 1"));
}

bool OnlineSite::unlock()
{
    return witness().commit();
}

bool OnlineSite::run(const QString &statement)
{
    return server().run(m_database, statement + QLatin1Char(';'));
}

QStringList OnlineSite::activeIds()
{
    return column(text("SELECT id FROM configurations WHERE active = 1"));
}

QSqlDatabase OnlineSite::witness()
{
    if (!QSqlDatabase::contains(kWitness)) {
        QSqlDatabase made = QSqlDatabase::addDatabase(text(OdbcConnection::kDriver), kWitness);
        made.setDatabaseName(OdbcConnection::databaseName(server().parameters(m_database)));
        OdbcConnection::open(made, QString(), accountName(Owner), password(Owner));
    }
    return QSqlDatabase::database(kWitness);
}

bool OnlineSite::prepare()
{
    if (m_prepared.contains(m_kind))
        return true;
    QStringList scripts{text("access"), text("action_log"), text("configurations")};
    if (hasAccounts())
        scripts.append(text("grants"));
    const auto make = [this](Account account, const char *role) {
        return !hasAccounts() ||
               server().makeAccount(m_database, accountName(account), password(account), text(role));
    };
    const bool made = server().makeDatabase(m_database, scripts) &&
                      server().makeDatabase(emptyDatabase(), {}) && make(Administrator, "corvane_console") &&
                      make(Application, "corvane_application") && make(Auditor, "corvane_auditor");
    if (made)
        m_prepared.insert(m_kind);
    return made;
}

void OnlineSite::closeWitness()
{
    if (QSqlDatabase::contains(kWitness))
        QSqlDatabase::removeDatabase(kWitness);
}
