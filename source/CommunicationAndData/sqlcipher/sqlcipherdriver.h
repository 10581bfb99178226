#ifndef SQLCIPHERDRIVER_H
#define SQLCIPHERDRIVER_H

#include <QMetaType>
#include <QSqlDriver>
#include <vector>

struct sqlite3;
class SqlCipherResult;

/// The Qt SQL driver `QSQLCIPHER`: SQLite files that SQLCipher encrypts.
///
/// It behaves as Qt's `QSQLITE` does, on files whose key is given by statement directly after the opening:
/// `open` touches no page, so `PRAGMA key` and `PRAGMA cipher` can follow. A wrong key shows at the first
/// statement that reads the file, with SQLite's error 26. Without a key it opens ordinary SQLite files.
class SqlCipherDriver : public QSqlDriver
{
    Q_OBJECT

public:
    explicit SqlCipherDriver(QObject *parent = nullptr);
    ~SqlCipherDriver() override;

    bool hasFeature(DriverFeature feature) const override;

    /// Opens the file \p db, and makes it where it is missing; user, password, host and port mean nothing
    /// here.
    ///
    /// \param connOpts  separated by ";": QSQLITE_BUSY_TIMEOUT=<milliseconds> (5000), how long a statement
    /// waits
    ///                  for another connection's lock; QSQLITE_OPEN_READONLY; QSQLITE_OPEN_URI, the name is a
    ///                  "file:" URI. Anything else is warned of and ignored.
    /// \return false, with a ConnectionError, where the file can be neither opened nor made
    bool open(const QString &db, const QString &user, const QString &password, const QString &host, int port,
              const QString &connOpts) override;
    /// Closes the connection; its queries become inactive and forget their rows.
    void close() override;

    QSqlResult *createResult() const override;

    bool beginTransaction() override;
    bool commitTransaction() override;
    bool rollbackTransaction() override;

    /// Names of tables and views, without those of temporary ones' schemas. Names that SQLite keeps for
    /// itself
    /// ("sqlite_master", "sqlite_sequence", ...) are system tables, and nothing else is.
    QStringList tables(QSql::TableType tableType) const override;
    /// Columns of \p tableName, "table" or "schema.table", with type, default, whether a value is required
    /// and whether it comes by itself.
    QSqlRecord record(const QString &tableName) const override;
    /// The columns of the primary key, in the key's order.
    QSqlIndex primaryIndex(const QString &tableName) const override;

    /// The value as a literal that SQLite reads back as the same value.
    QString formatValue(const QSqlField &field, bool trimStrings) const override;
    QString escapeIdentifier(const QString &identifier, IdentifierType type) const override;
    bool isIdentifierEscaped(const QString &identifier, IdentifierType type) const override;
    QString stripDelimiters(const QString &identifier, IdentifierType type) const override;

    /// The open connection as `sqlite3 *`.
    QVariant handle() const override;

private:
    friend class SqlCipherResult;

    bool runTransactionStatement(const char *sql, const QString &failure);
    void addResult(SqlCipherResult *result) const;
    void removeResult(SqlCipherResult *result) const;

    sqlite3 *m_connection = nullptr;
    mutable std::vector<SqlCipherResult *> m_results;
};

Q_DECLARE_OPAQUE_POINTER(sqlite3 *)
Q_DECLARE_METATYPE(sqlite3 *)

#endif
