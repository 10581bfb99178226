#ifndef TESTS_SUPPORT_DATABASESERVER_H
#define TESTS_SUPPORT_DATABASESERVER_H

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantMap>

class QProcess;

/// One of the databases behind ODBC that the tests work with: a private server that CTest has started, or an
/// SQLite file as the embedded stand-in for a server.
///
/// The administrator's work is done with the server's own client program, as an administrator does it.
class DatabaseServer
{
public:
    enum Kind { MariaDb, PostgreSql, Sqlite };

    explicit DatabaseServer(Kind kind);

    Kind kind() const
    {
        return m_kind;
    }
    /// Why this database cannot be had here; empty when it can. A reason to skip.
    QString missing() const;

    /// Makes a database anew and runs scripts of `resources/sql` in it, by their names without the ending.
    bool makeDatabase(const QString &database, const QStringList &scripts);
    /// Runs SQL text as the administrator.
    bool run(const QString &database, const QString &sql);
    bool runScript(const QString &database, const QString &script);
    /// Makes an account anew that has the rights of a role of the grants script.
    bool makeAccount(const QString &database, const QString &name, const QString &password,
                     const QString &role);
    /// Runs shell commands in the folder of the sources; the clients `mariadb` and `psql` in them reach this
    /// server as its administrator.
    bool runShell(const QString &commands);
    /// Ends all connections of an account at once.
    bool endConnections(const QString &account);

    /// What the last client program had to say when it failed.
    QString errorText() const
    {
        return m_errorText;
    }

    /// Connection parameters, name to value, for a database.
    QVariantMap parameters(const QString &database) const;
    /// Account of the administrator; empty for a file.
    QString admin() const
    {
        return m_state.value(QStringLiteral("admin"));
    }
    QString adminPassword() const
    {
        return m_state.value(QStringLiteral("password"));
    }

private:
    void readState();
    QString sqlFolder() const;
    bool runClient(const QString &database, const QByteArray &sql);
    bool run(QProcess &client, const QByteArray &input);

    Kind m_kind;
    QMap<QString, QString> m_state;
    QString m_errorText;
    QTemporaryDir m_files;  ///< of the databases that are files
};

#endif
