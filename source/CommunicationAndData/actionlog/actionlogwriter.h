#ifndef ACTIONLOGWRITER_H
#define ACTIONLOGWRITER_H

#include "CommunicationAndData/actionlog/actionlogtable.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#include <memory>

/// Writes the audit trail into one database, over a connection of its own.
class ActionLogWriter
{
public:
    enum class Opening {
        Ready,
        Replaced,   ///< ready, after a damaged log was moved aside
        NotOpened,  ///< there is no log to be had
        Unusable    ///< the log is there but can't be written
    };

    virtual ~ActionLogWriter();

    /// Opens the log and completes its tables. `errorText` says what is wrong with any other result than
    /// `Ready`.
    virtual Opening open() = 0;
    /// Writes one row. It is on disk, or taken by the server, when this returns true.
    virtual bool write(const ActionLogEntry &entry);
    virtual void close();

    /// What went wrong last, in the words of the database.
    QString errorText() const;

protected:
    explicit ActionLogWriter(const char *driver);
    Q_DISABLE_COPY(ActionLogWriter)

    /// Adds the connection, which is then to be opened. \return a handle of it, not to be kept
    QSqlDatabase addDatabase(const QString &databaseName);
    /// Whether the opening of the connection has succeeded; keeps its error otherwise.
    bool isOpened();
    const QSqlDatabase &database() const
    {
        return m_database;
    }

    /// Runs a statement. \return its first value, empty where there is none
    QString run(const QString &statement);
    bool succeeded() const
    {
        return m_error.type() == QSqlError::NoError;
    }
    const QSqlError &error() const
    {
        return m_error;
    }
    void setErrorText(const QString &text);

    /// Of an SQLite database: whatever is written is on disk when the statement is done.
    void syncAtEachEvent();
    /// Makes the tables and the hash where they are missing. \return whether both tables are as they should
    /// be
    bool completeTables(QSqlDriver::DbmsType server);

private:
    QSqlError createTables(QSqlDriver::DbmsType server);
    bool hasTables();
    void completeHash();
    bool prepareInsert();
    bool keepResult(bool done, const QSqlError &error);

    const QString m_driver;
    const QString m_connectionName;
    QSqlDatabase m_database;
    std::unique_ptr<QSqlQuery> m_insert;
    QSqlError m_error;
    QString m_errorText;
};

#endif
