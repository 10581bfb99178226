#ifndef TESTS_ACTIONLOGREADER_H
#define TESTS_ACTIONLOGREADER_H

#include <QSqlDatabase>
#include <QStringList>

/// A connection of the tests' own to a database.
class TestDatabase
{
public:
    TestDatabase(const QString &driver, const QString &databaseName);
    ~TestDatabase();
    Q_DISABLE_COPY(TestDatabase)

    /// Runs a statement. \return its rows, the columns of each joined by "|"; "failed" and the error's text
    /// as the only row otherwise
    QStringList run(const QString &statement);
    QSqlDatabase connection() const;

private:
    QString m_name;
};

/// An encrypted file, opened as the readers of the audit trail open it.
class EncryptedFile : public TestDatabase
{
public:
    /// \param key  null for the suite's
    explicit EncryptedFile(const QString &path, const QString &key = QString());
};

/// The rows of the encrypted action log at `path` in the order in which they were written.
QStringList readActionLog(const QString &path, const QString &columns = QStringLiteral("*"));

#endif
