#ifndef ONLINESITE_H
#define ONLINESITE_H

#include "support/databaseserver.h"

#include <QMap>
#include <QSet>
#include <QSqlDatabase>
#include <QVariant>

#include <memory>
#include <vector>

Q_DECLARE_METATYPE(DatabaseServer::Kind)

/// A settings database of a test's own on each of the servers, with the accounts of a hospital.
///
/// Tests run on every server by `addServers` in their `initTestCase_data` and `use` in their `init`.
class OnlineSite
{
public:
    enum Account {
        Administrator,  ///< may do all that the console does
        Application,    ///< may only read
        Auditor,        ///< may not even read the configurations
        Owner           ///< may make tables
    };

    /// \param database  a name that no other test program uses
    explicit OnlineSite(const QString &database);
    ~OnlineSite();

    /// A row of the global test data for each server.
    static void addServers();

    /// Goes to the server of the present row of test data and empties its table. Why that is impossible is in
    /// `errorText`.
    bool use();
    /// Why the present row's server is not there; empty if it is.
    QString missing() const;
    QString errorText() const;

    DatabaseServer &server() const;
    /// False for a file.
    bool hasAccounts() const
    {
        return m_kind != DatabaseServer::Sqlite;
    }
    /// Lets `use` make the database and the accounts anew.
    void forget()
    {
        m_prepared.remove(m_kind);
    }
    QString database() const
    {
        return m_database;
    }
    QString emptyDatabase() const
    {
        return m_database + QStringLiteral("_empty");
    }
    QString accountName(Account account) const;
    QString password(Account account) const;

    /// The map that the dialogs connect by.
    QMap<QString, QVariant> connection(Account account = Administrator) const;
    /// The same, with other connection parameters.
    QMap<QString, QVariant> connection(Account account, const QVariantMap &parameters) const;

    /// Writes a connection into the working settings, as a page does.
    void writeConnection(Account account = Administrator) const;

    /// The first column of a query's rows, asked over a connection that is nobody else's.
    QStringList column(const QString &statement);
    /// Holds the active configuration's row, or the file, as another administrator does in a transaction.
    bool lock();
    bool unlock();
    /// Runs a statement as the owner.
    bool run(const QString &statement);
    /// The configurations that are active, by their own account; more than one would be an error.
    QStringList activeIds();

private:
    QSqlDatabase witness();
    bool prepare();
    void closeWitness();

    const QString m_database;
    std::vector<std::unique_ptr<DatabaseServer>> m_servers;
    DatabaseServer::Kind m_kind = DatabaseServer::Sqlite;
    QSet<int> m_prepared;
};

#endif
