#ifndef TESTS_SERVERFIXTURE_H
#define TESTS_SERVERFIXTURE_H

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "support/databaseserver.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QSet>
#include <QSignalSpy>
#include <QSqlError>
#include <QTest>

#include <memory>
#include <vector>

Q_DECLARE_METATYPE(DatabaseServer::Kind)

constexpr int kPatience = 4000;  // milliseconds; the default options allow two seconds

extern const QString kDatabase;
extern const QString kEmptyDatabase;
extern const QString kConsole;
extern const QString kApplication;
extern const QString kAuditor;
extern const QString
    kPassword;  ///< of all accounts, with everything that means something in a connection text

QString text(const char *utf8);
/// Inserts a row with the statement of the store.
bool insertRow(const QSqlDatabase &database, const QString &table, const QVariantMap &values);
/// The columns of an operator as the store writes them; a user with a password gets a salt.
QVariantMap operatorRow(const QString &id, const QString &username, uint type, const QString &password = {});
QString idOf(int number);

/// The access database on real servers, through ODBC, with the accounts that the scripts provide for.
class ServerFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    void addServers() const;
    void addServersProper() const;
    bool prepare();
    DatabaseServer &server()
    {
        return *m_servers.at(m_kind);
    }
    bool connectAs(const QString &account, const QString &password, const QVariantMap &params = {});
    QString errorText() const
    {
        return m_errors && !m_errors->isEmpty() ? m_errors->first().at(2).toString() : QString();
    }
    QSqlDatabase &database()
    {
        return *m_handler->database();
    }
    QStringList column(const QString &statement, const QVariantList &values = {});
    bool isUnderstood(const QString &statement, const QVariantList &values);
    uint signIn(const QString &method, const QString &user, const QString &password, int &rights);
    QString roleId(const QString &title);

    Workstation m_workstation;
    std::vector<std::unique_ptr<DatabaseServer>> m_servers;
    DatabaseServer::Kind m_kind = DatabaseServer::Sqlite;
    QSet<int> m_prepared;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<QSignalSpy> m_errors;
};

#endif
