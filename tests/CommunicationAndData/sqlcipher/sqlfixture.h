#ifndef TESTS_SQLFIXTURE_H
#define TESTS_SQLFIXTURE_H

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

/// How a connection of a test is made.
struct Connection
{
    QString file;          ///< name inside the folder, or a whole path; ":memory:" is itself
    bool isKeyed = true;   ///< whether the suite's key statements follow the opening
    QString options = {};  ///< connect options
    QString driver = {};   ///< empty for QSQLCIPHER
    QString name = {};     ///< connection name; made up where empty
    bool isOpened = true;  ///< whether the opening has to succeed
};

/// Database files in a folder of their own and connections to them, gone with the fixture.
class SqlFixture
{
public:
    SqlFixture();
    ~SqlFixture();

    QString path(const QString &name) const;
    /// Adds a connection and opens it. A failure ends the test program, unless it is expected.
    QSqlDatabase open(const Connection &connection);
    /// The first column of the first row, an invalid value where there is none.
    static QVariant value(const QSqlDatabase &database, const QString &statement);
    /// The first column of all rows.
    static QStringList column(const QSqlDatabase &database, const QString &statement);
    /// SQLite's number of the statement's error, 0 for none.
    static int errorOf(const QSqlDatabase &database, const QString &statement);
    /// Runs statements that have to succeed.
    static void run(const QSqlDatabase &database, const QStringList &statements);
    static void run(const QSqlDatabase &database, const QString &statement);

    /// Removes all connections. No query may be alive.
    static void removeConnections();

private:
    QTemporaryDir m_folder;
    int m_connections = 0;
};

/// The warnings of Qt while it lives.
class WarningCatcher
{
public:
    WarningCatcher();
    ~WarningCatcher();

    QStringList warnings() const;
};

#endif
